// The whole platform surface of tessik in one place.
//
// The library calls Win32 services by their platform names and works with Windows paths. On
// Windows they come from <windows.h>; on every other system the posix backend (platform/posix/)
// emulates them: the whole file system is drive Z:, both separators work, links are never
// followed. Nothing outside this header and the backends may test the platform.
#ifndef TESSIK_PLATFORM_H
#define TESSIK_PLATFORM_H

#include <tessik/export.h>

#include <cstddef>
#include <cstdint>

#if defined(_WIN32)

// The lean <windows.h> (no winsock.h, which would clash with a host's winsock2.h), with the
// common dialogs, the shell's folder dialog and the path functions.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <commdlg.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <stdlib.h>
#include <string.h>

// The runtime's own generator; the posix backend declares the same names below.
inline int msvcrt_rand() {
    return rand();
}
inline void msvcrt_srand(unsigned seed) {
    srand(seed);
}
// `count` values into `values`, exactly as `count` calls of rand give them (0 to 32767 each).
inline void msvcrt_rand_many(std::uint16_t* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        values[i] = static_cast<std::uint16_t>(rand());
}

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

// The halves go by the name Win32 also gives them (`u`), without its nameless struct, which ISO
// C++ lacks.
union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
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

// Why the last FindFirstFileA or FindNextFileA of this thread failed (the posix backend sets it
// nowhere else). A name whose Windows form does not fit cFileName fails FindNextFileA with
// ERROR_FILENAME_EXCED_RANGE; the next call goes on with the entry after it.
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_PATH_NOT_FOUND 3
#define ERROR_NOT_ENOUGH_MEMORY 8
#define ERROR_NO_MORE_FILES 18
#define ERROR_FILENAME_EXCED_RANGE 206
TESSIK_API DWORD GetLastError();

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
    } u;
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

// ---- Windows and painting (headless) ----
// Every window is headless: a record of its client rectangle, the colour of its pixel (0,0)
// (the button face colour, RGB 240 240 240), its window region (whole or one pixel) and the texts
// painted on it. The record lives until DestroyWindow of the window or of one of its parents.
// Tests and hosts read it through <tessik/headless.h>. Handles are never reused.

typedef struct HMENU__* HMENU;

#define WS_CHILD 0x40000000u
#define WS_POPUP 0x80000000u
#define RDW_INVALIDATE 0x1
#define RDW_UPDATENOW 0x100

// Any class name makes a window; its client rectangle is 0, 0, width, height (negative sizes
// count as 0). Null without a class name, or with a parent that is not a window.
TESSIK_API HWND CreateWindowExA(DWORD exStyle, char const* className, char const* windowName,
                                DWORD style, int x, int y, int width, int height, HWND parent,
                                HMENU menu, HINSTANCE instance, void* param);
TESSIK_API BOOL DestroyWindow(HWND window); // its children go with it
TESSIK_API BOOL IsWindow(HWND window);
TESSIK_API BOOL GetClientRect(HWND window, RECT* rect);
TESSIK_API BOOL RedrawWindow(HWND window, RECT const* update, HRGN region, unsigned int flags);

// Painting. A device context belongs to one window; it starts with background mode OPAQUE, text
// colour black and the stock system font selected, and lives until ReleaseDC. GetDC gives null
// for a null window (there is no screen) and for a window marked by HeadlessFailGetDC. Texts are
// not rasterised: the whole client area keeps the colour of pixel (0,0).

#define TRANSPARENT 1
#define OPAQUE 2
#define CLR_INVALID 0xFFFFFFFFu
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_BTNFACE 15
#define FW_DONTCARE 0
#define ANSI_CHARSET 0
#define OUT_RASTER_PRECIS 6
#define CLIP_STROKE_PRECIS 2
#define DEFAULT_QUALITY 0
#define FF_SWISS 0x20
#define DT_CENTER 0x1
#define DT_VCENTER 0x4
#define DT_SINGLELINE 0x20
#define DT_EDITCONTROL 0x2000
#define DT_WORD_ELLIPSIS 0x40000

TESSIK_API HDC GetDC(HWND window);
TESSIK_API int ReleaseDC(HWND window, HDC dc); // 1 when `dc` was the window's, else 0
TESSIK_API int SetBkMode(HDC dc, int mode);    // the former mode; 0 on failure
// CLR_INVALID outside the client rectangle, or for a context that is gone.
TESSIK_API COLORREF GetPixel(HDC dc, int x, int y);
TESSIK_API DWORD GetSysColor(int index); // the Windows 10 defaults; 0 for an unknown index
TESSIK_API COLORREF SetTextColor(HDC dc, COLORREF colour); // the former colour
TESSIK_API HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight,
                             DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                             DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                             DWORD pitchAndFamily, char const* faceName);
// Only fonts can be selected; the result is the former font, null on failure.
TESSIK_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
// Frees a font or a region. FALSE for a font still selected into a context, for a region that a
// window owns, and for anything else; TRUE, and nothing happens, for the stock font.
TESSIK_API BOOL DeleteObject(HGDIOBJ object);
// Records the text (`count` bytes, or up to its zero with -1) with the context's text colour,
// background mode and font, the rectangle and the flags, on the context's window. Nothing is
// measured (DT_CALCRECT is recorded like any flag). The font's height; 0 on failure.
TESSIK_API int DrawTextA(HDC dc, char const* text, int count, RECT* rect, unsigned int flags);

// Regions are rectangles. Once SetWindowRgn succeeds the window owns the region and frees the
// one it had; a null region gives the window its whole area back.
TESSIK_API HRGN CreateRectRgn(int left, int top, int right, int bottom);
TESSIK_API int SetWindowRgn(HWND window, HRGN region, BOOL redraw); // 0 on failure
// ---- end windows ----

// ---- Time ----
// FILETIME counts 100 ns since 1601-01-01 UTC; SYSTEMTIME holds its proleptic Gregorian fields
// (wDayOfWeek 0 for Sunday). Local time is that of the process's time zone (TZ) at the instant
// concerned, daylight saving included.

// FALSE for a value of 0x8000000000000000 or more.
TESSIK_API BOOL FileTimeToSystemTime(FILETIME const* fileTime, SYSTEMTIME* systemTime);
// FALSE for fields outside the calendar or years outside 1601..30827; wDayOfWeek is ignored.
TESSIK_API BOOL SystemTimeToFileTime(SYSTEMTIME const* systemTime, FILETIME* fileTime);
// Both give FALSE, and leave the output alone, when the result would leave the FILETIME range.
// A local time repeated by a clock change gives the earlier instant; one skipped by a clock
// change is read with the offset in force before it (02:30 in a 02:00 -> 03:00 gap is 03:30).
TESSIK_API BOOL FileTimeToLocalFileTime(FILETIME const* utc, FILETIME* local);
TESSIK_API BOOL LocalFileTimeToFileTime(FILETIME const* local, FILETIME* utc);
// Milliseconds of the monotonic clock, low 32 bits; <tessik/headless_time.h> can replace it.
TESSIK_API DWORD GetTickCount();
// ---- end time ----

// ---- Runtime ----
#include <cstddef>

// The Windows C runtime's _memicmp and rand, which do not exist (or differ) elsewhere. The
// library calls rand as msvcrt_rand so that it never reaches the C library's own generator.

// ASCII letters compared as lower case, whatever the locale; the sign is that of the first
// differing folded byte pair, compared unsigned. 0x7FFFFFFF when a pointer is null and n > 0.
TESSIK_API int _memicmp(void const* a, void const* b, std::size_t n);
// state = state * 214013 + 2531011, result (state >> 16) & 0x7FFF; each thread starts at 1.
TESSIK_API int msvcrt_rand();
TESSIK_API void msvcrt_srand(unsigned seed);
// `count` values into `values`, exactly as `count` calls of msvcrt_rand give them, leaving the
// generator where those calls would; faster than the calls.
TESSIK_API void msvcrt_rand_many(std::uint16_t* values, std::size_t count);
// ---- end runtime ----

#endif

// ---- Disk room, file system changes, path forms and the common dialogs ----------------------
#if defined(_WIN32)

#include <io.h>

#else

typedef unsigned int UINT;
typedef DWORD ULONG;
typedef unsigned short USHORT;
typedef std::int32_t HRESULT;
typedef std::uintptr_t UINT_PTR;
typedef std::uintptr_t WPARAM;
typedef std::intptr_t LPARAM;

#define S_OK 0
#define E_FAIL (static_cast<HRESULT>(0x80004005u))
#define SUCCEEDED(result) (static_cast<HRESULT>(result) >= 0)

// statvfs of the file system that holds the root's POSIX path: the bytes available to the
// caller (f_bavail), in all (f_blocks) and free (f_bfree), each times f_frsize. Any of the three
// places may be null; a null root is the current directory.
TESSIK_API BOOL GetDiskFreeSpaceExA(char const* root, ULARGE_INTEGER* freeToCaller,
                                    ULARGE_INTEGER* total, ULARGE_INTEGER* totalFree);
// FILE_ATTRIBUTE_READONLY clears the owner write bit, its absence sets it; the other bits are
// accepted and ignored. A symbolic link is left as it is (never followed). FALSE when missing.
TESSIK_API BOOL SetFileAttributesA(char const* path, DWORD attributes);
TESSIK_API int _unlink(char const* path); // -1 on failure, for a directory too
TESSIK_API BOOL CreateDirectoryA(char const* path, void* security); // mkdir(path, 0777)
TESSIK_API BOOL RemoveDirectoryA(char const* path);                 // rmdir
// The emulated volume makes no 8.3 names, so both give the path back as it stands when it
// exists: its length when it fits `size` with its zero; else the size it needs, zero included,
// with the buffer untouched. 0 when the path does not exist.
TESSIK_API DWORD GetShortPathNameA(char const* path, char* buffer, DWORD size);
TESSIK_API DWORD GetLongPathNameA(char const* path, char* buffer, DWORD size);

// The common dialogs answer from the scripted queues of <tessik/headless.h>; with nothing
// queued the user cancels.

#define OFN_READONLY 0x1
#define OFN_HIDEREADONLY 0x4
#define OFN_SHOWHELP 0x10
#define OFN_ALLOWMULTISELECT 0x200
#define OFN_PATHMUSTEXIST 0x800
#define OFN_FILEMUSTEXIST 0x1000
#define OFN_NOREADONLYRETURN 0x8000
#define OFN_NONETWORKBUTTON 0x20000
#define OFN_EXPLORER 0x80000
#define OFN_LONGNAMES 0x200000
#define OFN_ENABLESIZING 0x800000
#define BIF_RETURNONLYFSDIRS 0x1
#define BIF_EDITBOX 0x10
#define BIF_BROWSEINCLUDEFILES 0x4000

typedef UINT_PTR (*LPOFNHOOKPROC)(HWND, UINT, WPARAM, LPARAM);

// The size of the structure up to lpTemplateName, as a 32-bit Windows build has it; on Windows
// <commdlg.h> gives the value of the build's own width (136 on 64-bit).
#define OPENFILENAME_SIZE_VERSION_400A 76

struct OPENFILENAMEA {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    char const* lpstrFilter;
    char* lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    char* lpstrFile;
    DWORD nMaxFile;
    char* lpstrFileTitle;
    DWORD nMaxFileTitle;
    char const* lpstrInitialDir;
    char const* lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    char const* lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    char const* lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};

struct SHITEMID {
    USHORT cb;
    BYTE abID[1];
};
struct ITEMIDLIST {
    SHITEMID mkid;
};
typedef ITEMIDLIST* LPITEMIDLIST;
typedef ITEMIDLIST const* LPCITEMIDLIST;
typedef int (*BFFCALLBACK)(HWND, UINT, LPARAM, LPARAM);

struct BROWSEINFOA {
    HWND hwndOwner;
    LPCITEMIDLIST pidlRoot;
    char* pszDisplayName;
    char const* lpszTitle;
    UINT ulFlags;
    BFFCALLBACK lpfn;
    LPARAM lParam;
    int iImage;
};

// The shell's allocator, as SHGetMalloc hands it out: Free takes back an item list that
// SHBrowseForFolderA gave, Release ends this use of the allocator. No virtual operations: the
// same calls read alike on the COM interface of Windows.
class TESSIK_API IMalloc {
public:
    void Free(void* block);
    ULONG Release();
};

// Non-zero when the user confirmed: lpstrFile then holds a full path, or (with several names) a
// directory and bare names, zero-separated in the Explorer form, blank-separated without it.
// 0 when cancelled or when the answer does not fit nMaxFile.
TESSIK_API BOOL GetOpenFileNameA(OPENFILENAMEA* dialog);
// An item list, freed by the shell's allocator; null when cancelled. The item's display name
// goes to pszDisplayName (MAX_PATH bytes at most).
TESSIK_API LPITEMIDLIST SHBrowseForFolderA(BROWSEINFOA* dialog);
// The item's path into `path` (MAX_PATH bytes); FALSE, with `path` untouched, for an item
// without a file-system path.
TESSIK_API BOOL SHGetPathFromIDListA(LPCITEMIDLIST list, char* path);
TESSIK_API HRESULT SHGetMalloc(IMalloc** allocator);     // E_FAIL and null when made to fail
TESSIK_API void CoTaskMemFree(void* block);              // the same as the allocator's Free
TESSIK_API HWND GetActiveWindow();                       // null unless a test set one
TESSIK_API HINSTANCE GetModuleHandleA(char const* name); // the program for null, else null

#endif
// ---- end disk room, file system changes, path forms and dialogs ----

#endif
