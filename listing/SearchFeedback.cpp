#include "listing/SearchFeedback.h"

#include <tessik/Controls.h>

SearchFeedback::SearchFeedback(DFileLoad& listing) : load(listing) {}

void SearchFeedback::Setup() {
    if (load.listControl) {
        load.listControl->Reset();
        load.listControl->CreateIcons();
    }
}

void SearchFeedback::Directory(DName const& dir) {
    if (load.statusWnd)
        load.statusWnd->SetText(dir);
}

void SearchFeedback::Entry() {}

void SearchFeedback::Progress() {}

void SearchFeedback::Rows() {}

void SearchFeedback::Close() {}

void SearchFeedback::Message(char const* text) {
    if (load.statusWnd)
        load.statusWnd->SetText(DName(text));
}

void SearchFeedback::Finish(bool succeeded) {
    if (load.progressBar) {
        load.progressBar->SetPos(0, -1);
        load.progressBar->Redraw(-1);
    }
    if (succeeded)
        Message(" "); // a failure's message stays
}
