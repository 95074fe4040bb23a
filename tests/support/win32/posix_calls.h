// Included first in every test source of the Windows build: the few POSIX calls the tests make
// to set up what only the posix backend shows (FIFOs, sockets, links, the zone of TZ). Here they
// fail, and the tests that need them skip before they call them.
#ifndef TESSIK_TESTS_WIN32_POSIX_CALLS_H
#define TESSIK_TESTS_WIN32_POSIX_CALLS_H

// gmtime_r and localtime_r, which the runtime has under these names only when asked.
#define _POSIX_THREAD_SAFE_FUNCTIONS 200112L

#include <stdlib.h>

inline int setenv(char const* name, char const* value, int) {
    return _putenv_s(name, value);
}
inline int unsetenv(char const* name) {
    return _putenv_s(name, "");
}
inline unsigned geteuid() {
    return 0; // no POSIX users
}
inline int mkfifo(char const*, unsigned) {
    return -1;
}
inline int symlink(char const*, char const*) {
    return -1;
}

#endif
