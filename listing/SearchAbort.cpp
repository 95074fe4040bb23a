// Stopping a search. Both flags are plain bytes: a request from another thread, or from code a
// control runs during its redraw, takes effect at the run's next check.
#include <tessik/Controls.h>
#include <tessik/DFileLoad.h>

void DFileLoad::SetAbort() {
    if (!searching)
        return; // a request between runs would stop the next one
    abortRequested = true;
    if (statusWnd)
        statusWnd->SetText(DName("Please wait while cleaning up for abort..."));
}

void DFileLoad::ClearAbort() {
    abortRequested = false;
}
