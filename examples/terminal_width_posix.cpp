#include "terminal_width.h"

#include <sys/ioctl.h>
#include <unistd.h>

unsigned TerminalWidth() {
    winsize size = {};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return 80;
}
