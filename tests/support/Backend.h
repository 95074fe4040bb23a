// Which platform backend the library under test runs on. Most tests hold on both; a test about
// one backend's own behaviour (what the posix emulation reports, the headless windows, the clock
// hook, the zone of TZ) says so on its first line and skips on the other.
#ifndef TESSIK_TESTS_BACKEND_H
#define TESSIK_TESTS_BACKEND_H

#include <gtest/gtest.h>

// TESSIK_TEST_POSIX_BACKEND is set by the build: 1 for posix, 0 for win32.
constexpr bool posixBackend = TESSIK_TEST_POSIX_BACKEND != 0;

#define ONLY_ON_POSIX_BACKEND(why)                                                                 \
    if (!posixBackend)                                                                             \
    GTEST_SKIP() << "about the posix backend: " why

#endif
