// What a running search shows on the controls attached to its listing.
#ifndef TESSIK_LISTING_SEARCHFEEDBACK_H
#define TESSIK_LISTING_SEARCHFEEDBACK_H

#include <tessik/DFileLoad.h>

// Lives for one search run: prepared at its start, given back at its end. Every control is
// optional and tested before use.
class SearchFeedback {
public:
    explicit SearchFeedback(DFileLoad& load);

    void Setup();                     // the run starts: the list is emptied
    void Directory(DName const& dir); // the run turns to `dir`
    void Message(char const* text);   // a text for the status window
    void Finish(bool succeeded);      // the run ends

private:
    DFileLoad& load;
};

#endif
