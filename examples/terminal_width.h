// The width of the terminal that standard error shows on, in columns; 80 when it cannot be told.
// One implementation a system: terminal_width_posix.cpp, terminal_width_win32.cpp.
#ifndef TESSIK_EXAMPLES_TERMINAL_WIDTH_H
#define TESSIK_EXAMPLES_TERMINAL_WIDTH_H

unsigned TerminalWidth();

#endif
