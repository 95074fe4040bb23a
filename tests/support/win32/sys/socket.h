// Unix domain sockets for the tests of the Windows build: every call fails (see posix_calls.h).
#ifndef TESSIK_TESTS_WIN32_SYS_SOCKET_H
#define TESSIK_TESTS_WIN32_SYS_SOCKET_H

#define AF_UNIX 1
#define SOCK_STREAM 1

struct sockaddr;

inline int socket(int, int, int) {
    return -1;
}
inline int bind(int, sockaddr const*, unsigned) {
    return -1;
}

#endif
