#include "terminal_width.h"

#include <windows.h>

unsigned TerminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) &&
        info.srWindow.Right >= info.srWindow.Left)
        return static_cast<unsigned>(info.srWindow.Right - info.srWindow.Left + 1);
    return 80;
}
