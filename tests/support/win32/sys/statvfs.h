// File system room for the tests of the Windows build: the call fails (see posix_calls.h).
#ifndef TESSIK_TESTS_WIN32_SYS_STATVFS_H
#define TESSIK_TESTS_WIN32_SYS_STATVFS_H

struct statvfs {
    unsigned long long f_bsize;
    unsigned long long f_frsize;
    unsigned long long f_blocks;
    unsigned long long f_bfree;
    unsigned long long f_bavail;
};

inline int statvfs(char const*, struct statvfs*) {
    return -1;
}

#endif
