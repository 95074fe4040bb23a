// Which platform backend the library under test runs on. Tests of the posix backend's own
// behaviour live in posix/; a library test that Windows (or Wine) cannot hold, such as a zone
// changed while the program runs, says why on its first line and skips there.
#ifndef TESSIK_TESTS_BACKEND_H
#define TESSIK_TESTS_BACKEND_H

#include <gtest/gtest.h>

// TESSIK_TEST_POSIX_BACKEND is set by the build: 1 for posix, 0 for win32.
constexpr bool posixBackend = TESSIK_TEST_POSIX_BACKEND != 0;

#define ONLY_ON_POSIX_BACKEND(why)                                                                 \
    if (!posixBackend)                                                                             \
    GTEST_SKIP() << "about the posix backend: " why

#endif
