// The controls tessik-find attaches to its search: they pass Ctrl-C on to the listing, feed
// the watch for unreadable entries, and when asked they are drawn on the terminal (stderr) as
// three lines rewritten in place.
#ifndef TESSIK_EXAMPLES_FIND_PROGRESS_H
#define TESSIK_EXAMPLES_FIND_PROGRESS_H

#include "find_unreadable.h"

#include <tessik/tessik.h>

#include <chrono>
#include <string>

struct ViewSettings {
    bool draw = false;             // the bar and the status on the terminal
    bool tellEach = true;          // each unreadable entry on stderr as it is found
    bool posixPaths = false;       // the status in POSIX form
    unsigned startDirectories = 1; // with `recursive`, to estimate how much is still to come
    bool recursive = true;
};

class ProgressView {
public:
    ProgressView(DFileLoad& load, UnreadableWatch& watch, ViewSettings const& settings);
    ~ProgressView(); // detaches the controls, ends the watch and erases what was drawn
    unsigned DirectoriesSearched() const { return directoriesSeen; }
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
    std::string Shown(std::string const& path, unsigned width) const;
    void Erase();
    void Tell();

    DFileLoad& load;
    UnreadableWatch& watch;
    ViewSettings const settings;
    DProgressBar bar;
    DStatusWnd status;
    bool busy = false; // our own changes to the controls call back again
    bool drawn = false;
    DName lastStatus;
    unsigned directoriesSeen = 0;
    unsigned changes = 0;
    std::chrono::steady_clock::time_point nextDraw;
};

// One line on the terminal (stderr) while a step without progress of its own runs (loading a
// saved listing, comparing), erased when it ends.
class PhaseLine {
public:
    PhaseLine(bool draw, std::string const& text);
    ~PhaseLine();
    PhaseLine(PhaseLine const&) = delete;
    PhaseLine& operator=(PhaseLine const&) = delete;

private:
    bool const draw;
};

#endif
