// What a running search shows on the controls attached to its listing.
#ifndef TESSIK_LISTING_SEARCHFEEDBACK_H
#define TESSIK_LISTING_SEARCHFEEDBACK_H

#include <tessik/DFileLoad.h>

// Lives for one search run: prepared at its start, given back at its end. Every control is
// optional and tested before use.
class SearchFeedback {
public:
    explicit SearchFeedback(DFileLoad& load);
    ~SearchFeedback();
    SearchFeedback(SearchFeedback const&) = delete;
    SearchFeedback& operator=(SearchFeedback const&) = delete;

    void Setup();                     // the run starts: the list is emptied
    void Directory(DName const& dir); // the run turns to `dir`
    void Entry();                     // an entry arrives, before it is counted
    void Progress();                  // the entry has been counted
    void Rows();                      // the entry has been through the filter
    void Message(char const* text);   // a text for the status window
    void Close();                     // the run is over: last rows, give back what Setup took
    void Finish(bool succeeded);      // the bar back to 0, the closing status text

private:
    void SetupBar();
    void NewPercentage();
    void Paint(COLORREF colour);
    void DrawNewRows();
    void GiveBack();

    DFileLoad& load;
    HWND barWindow;
    HDC barDC;
    RECT barRect;
    HFONT barFont;
    COLORREF backColour;
    COLORREF textColour;
    char paintedText[64]; // the percentage as painted, empty at first
    float paintedValue;
    DWORD lastPaintTicks;
    DWORD lastRowTicks;
    unsigned nextRow; // the first position in `files` not drawn in this run
};

#endif
