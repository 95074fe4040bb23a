#include "find_interrupt.h"

#include <signal.h>

namespace {

volatile sig_atomic_t interrupted = 0;
struct sigaction former = {};

void NoteInterrupt(int) {
    interrupted = 1;
}

} // namespace

void CatchInterrupt() {
    interrupted = 0;
    sigaction(SIGINT, nullptr, &former);
    if (former.sa_handler == SIG_IGN)
        return; // started where Ctrl-C is to be ignored (in the background of a shell)
    struct sigaction action = {};
    action.sa_handler = NoteInterrupt;
    action.sa_flags = SA_RESETHAND | SA_RESTART; // a second Ctrl-C ends the program
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}

void ReleaseInterrupt() {
    sigaction(SIGINT, &former, nullptr);
}

bool InterruptRequested() {
    return interrupted != 0;
}
