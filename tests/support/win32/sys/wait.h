// On Windows pclose gives the exit code itself.
#ifndef TESSIK_TESTS_WIN32_SYS_WAIT_H
#define TESSIK_TESTS_WIN32_SYS_WAIT_H

#define WIFEXITED(status) ((status) != -1)
#define WEXITSTATUS(status) (status)

#endif
