// Ctrl-C while a search runs. The signal handler only notes the request: the listing is told
// (SetAbort) by the change callbacks of its controls, outside the handler, because SetAbort
// also sets the status window's text, which takes the control's lock. The bar changes at every
// entry, so the search stops at the next entry (after the content of the current file).
#ifndef TESSIK_EXAMPLES_FIND_INTERRUPT_H
#define TESSIK_EXAMPLES_FIND_INTERRUPT_H

void CatchInterrupt();   // from now on Ctrl-C is noted instead of ending the program
void ReleaseInterrupt(); // Ctrl-C ends the program again
bool InterruptRequested();

#endif
