// The Unix domain socket address, for the tests of the Windows build (see sys/socket.h).
#ifndef TESSIK_TESTS_WIN32_SYS_UN_H
#define TESSIK_TESTS_WIN32_SYS_UN_H

struct sockaddr_un {
    unsigned short sun_family;
    char sun_path[108];
};

#endif
