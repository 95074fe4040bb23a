// The whole platform surface of tessik in one place.
//
// The library calls Win32 services by their platform names and works with Windows paths. On
// Windows they come from <windows.h>; on every other system the posix backend (platform/posix/)
// emulates them: the whole file system is drive Z:, both separators work, links are never
// followed. Nothing outside this header and the backends may test the platform.
#ifndef TESSIK_PLATFORM_H
#define TESSIK_PLATFORM_H

#include <tessik/export.h>

#include <cstdint>

#if defined(_WIN32)

#include <windows.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <string.h>

#else

// ---- Types, with the Win32 names and layouts -------------------------------------------------

typedef std::uint8_t BYTE;
typedef std::uint16_t WORD;
typedef std::uint32_t DWORD;
typedef int BOOL;
typedef char CHAR;
typedef std::int32_t LONG;
typedef void* HANDLE;
typedef struct HWND__* HWND;
typedef struct HDC__* HDC;
typedef struct HFONT__* HFONT;
typedef struct HRGN__* HRGN;
typedef struct HICON__* HICON;
typedef struct HINSTANCE__* HINSTANCE;
typedef void* HGDIOBJ;
typedef DWORD COLORREF;

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1)))
#define INVALID_FILE_ATTRIBUTES (static_cast<DWORD>(0xFFFFFFFF))

#define FILE_ATTRIBUTE_READONLY 0x1
#define FILE_ATTRIBUTE_HIDDEN 0x2
#define FILE_ATTRIBUTE_SYSTEM 0x4
#define FILE_ATTRIBUTE_DIRECTORY 0x10
#define FILE_ATTRIBUTE_ARCHIVE 0x20
#define FILE_ATTRIBUTE_NORMAL 0x80
#define FILE_ATTRIBUTE_REPARSE_POINT 0x400

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    std::uint64_t QuadPart;
};

struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    CHAR cFileName[MAX_PATH];
    CHAR cAlternateFileName[14];
};

// ---- Directory enumeration, attributes and the current directory -----------------------------

TESSIK_API HANDLE FindFirstFileA(char const* pattern, WIN32_FIND_DATAA* data);
TESSIK_API BOOL FindNextFileA(HANDLE find, WIN32_FIND_DATAA* data);
TESSIK_API BOOL FindClose(HANDLE find);
TESSIK_API DWORD GetCurrentDirectoryA(DWORD size, char* buffer);
TESSIK_API BOOL SetCurrentDirectoryA(char const* path);
TESSIK_API DWORD GetFileAttributesA(char const* path);

// ---- Files ----------------------------------------------------------------------------------
// CreateFileA opens only regular files: a FIFO, socket or device, and any file on a kernel
// pseudo file system (procfs, sysfs, ...), gives INVALID_HANDLE_VALUE, so reading never blocks.

#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 0x1
#define FILE_SHARE_WRITE 0x2
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    };
    std::int64_t QuadPart;
};

TESSIK_API HANDLE CreateFileA(char const* path, DWORD access, DWORD share, void* security,
                              DWORD disposition, DWORD flags, HANDLE templateFile);
TESSIK_API BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* read, void* overlapped);
TESSIK_API BOOL WriteFile(HANDLE file, void const* buffer, DWORD size, DWORD* written,
                          void* overlapped);
TESSIK_API BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position,
                                 DWORD method);
TESSIK_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
TESSIK_API BOOL CloseHandle(HANDLE object);

// Wildcard match of a name against a pattern (shlwapi): `*` and `?`, without regard to case.
TESSIK_API BOOL PathMatchSpecA(char const* name, char const* pattern);

#endif

#endif
