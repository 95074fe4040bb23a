#include "find_interrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t interrupted = 0;
void (*former)(int) = SIG_DFL;

void NoteInterrupt(int) {
    interrupted = 1;
    std::signal(SIGINT, SIG_DFL); // a second Ctrl-C ends the program
}

} // namespace

void CatchInterrupt() {
    interrupted = 0;
    former = std::signal(SIGINT, NoteInterrupt);
    if (former == SIG_ERR)
        former = SIG_DFL;
    else if (former == SIG_IGN)
        std::signal(SIGINT, SIG_IGN); // started where Ctrl-C is to be ignored (in the background)
}

void ReleaseInterrupt() {
    std::signal(SIGINT, former);
}

bool InterruptRequested() {
    return interrupted != 0;
}
