// The controls tessik-find attaches to its search: they pass Ctrl-C on to the listing, and
// when asked they are drawn on the terminal (stderr) as two lines rewritten in place.
#ifndef TESSIK_EXAMPLES_FIND_PROGRESS_H
#define TESSIK_EXAMPLES_FIND_PROGRESS_H

#include <tessik/tessik.h>

#include <chrono>
#include <string>

class ProgressView {
public:
    // `startDirectories` and `recursive` let the bar estimate how much is still to come.
    ProgressView(DFileLoad& load, bool draw, unsigned startDirectories, bool recursive);
    ~ProgressView(); // detaches the controls and erases what was drawn
    ProgressView(ProgressView const&) = delete;
    ProgressView& operator=(ProgressView const&) = delete;

private:
    void SetCallbacks(DIBasics::ChangeCallback callback);
    static void Changed(void* user, DIBasics const& control);
    void OnChange(DIBasics const& control);
    void CountDirectory();
    void EstimateRange();
    void Draw();
    std::string BarLine(unsigned width) const;
    void Erase();

    DFileLoad& load;
    bool const draw;
    unsigned const startDirectories;
    bool const recursive;
    DProgressBar bar;
    DText matchShare;
    DStatusWnd status;
    DListControl list;
    bool busy = false; // our own changes to the controls call back again
    bool drawn = false;
    DName lastStatus;
    unsigned directoriesSeen = 0;
    std::chrono::steady_clock::time_point nextDraw;
};

#endif
