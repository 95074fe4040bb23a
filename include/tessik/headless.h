// Hooks into the headless windows of the posix backend, for tests and for hosts that draw the
// controls themselves (a terminal program, say). Not available on Windows, where windows are
// real.
#ifndef TESSIK_HEADLESS_H
#define TESSIK_HEADLESS_H

#include <tessik/platform.h>

// How many painted texts a window keeps: the latest ones.
#define HEADLESS_KEPT_TEXTS 256

// The arguments a font was made with (CreateFontA).
struct HeadlessFont {
    int height;
    int width;
    int escapement;
    int orientation;
    int weight;
    DWORD italic;
    DWORD underline;
    DWORD strikeOut;
    DWORD charSet;
    DWORD outPrecision;
    DWORD clipPrecision;
    DWORD quality;
    DWORD pitchAndFamily;
    char face[32]; // its first 31 bytes, zero-terminated; empty without a face name
};

// One text painted on a window.
struct HeadlessText {
    char text[MAX_PATH]; // its first MAX_PATH - 1 bytes, zero-terminated
    unsigned length;     // its whole length in bytes
    COLORREF colour;
    RECT rect;
    unsigned flags;
    int backgroundMode; // TRANSPARENT or OPAQUE
    HFONT fontHandle;   // the font selected when it was painted
    HeadlessFont font;  // and what that font was made with
};

// The window region.
struct HeadlessRegion {
    bool whole;       // no region set: the whole window
    RECT rect;        // the region's rectangle; the client rectangle when whole
    unsigned changes; // SetWindowRgn calls that succeeded
    bool redrawAsked; // the redraw argument of the last one
};

// Each hook gives false, and changes nothing, for a handle that is not a live window.
TESSIK_API bool HeadlessClientRect(HWND window, RECT* rect);
TESSIK_API bool HeadlessPixel(HWND window, COLORREF* colour);  // of pixel (0,0)
TESSIK_API bool HeadlessWholeRegion(HWND window, bool* whole); // false: a region is set
TESSIK_API bool HeadlessSetPixel(HWND window, COLORREF colour);
TESSIK_API bool HeadlessRegionOf(HWND window, HeadlessRegion* region);
// Device contexts of the window that GetDC gave and ReleaseDC did not take back yet.
TESSIK_API bool HeadlessDCsOut(HWND window, unsigned* count);

// Texts are numbered from 0 in the order they were painted; `count` counts them all, but only
// the latest HEADLESS_KEPT_TEXTS can be read.
TESSIK_API bool HeadlessTextCount(HWND window, unsigned* count);
TESSIK_API bool HeadlessTextAt(HWND window, unsigned index, HeadlessText* text);

// While set, GetDC gives null for the window.
TESSIK_API bool HeadlessFailGetDC(HWND window, bool fail);

// What a live font was made with; false once DeleteObject freed it. The stock font is
// "System", height 16, width 7, weight 700.
TESSIK_API bool HeadlessFontOf(HFONT font, HeadlessFont* description);

// ---- Disk room and the common dialogs ----
// While `bytes` is not null, GetDiskFreeSpaceExA answers *bytes as the room available to the
// caller for every root, 1 GiB more as the free room and 2 GiB more as the size; null goes
// back to statvfs.
TESSIK_API void HeadlessSetDiskRoom(std::uint64_t const* bytes);

// Scripted answers, taken oldest first, one per call of the dialog; with none queued the user
// cancels. The open-file dialog writes `length` bytes of `names` (zeros included: the caller
// gives the closing zeros) into lpstrFile and `filterIndex` into nFilterIndex; names that do
// not fit nMaxFile make the call fail. A folder answer writes `displayName` into
// pszDisplayName; `path` is what SHGetPathFromIDListA gives for the item, and null makes an
// item without a file-system path. False when memory runs out.
TESSIK_API bool HeadlessQueueOpenFile(char const* names, unsigned length, DWORD filterIndex);
TESSIK_API bool HeadlessQueueOpenFileCancel();
TESSIK_API bool HeadlessQueueFolder(char const* displayName, char const* path);
TESSIK_API bool HeadlessQueueFolderCancel();
// Empties both queues and forgets the last structures.
TESSIK_API void HeadlessClearDialogs();

// The last structure each dialog was given, as it came in. Its pointers lead to copies that
// the backend keeps until the next call of that dialog: the filter up to its double zero, the
// two name buffers (nMaxFile and nMaxFileTitle bytes), the texts up to their zero. False before
// the first call.
TESSIK_API bool HeadlessLastOpenFile(OPENFILENAMEA* given);
TESSIK_API bool HeadlessLastFolder(BROWSEINFOA* given);

// While set, SHGetMalloc fails. Item lists given out and not yet freed are counted.
TESSIK_API void HeadlessFailShellAllocator(bool fail);
TESSIK_API unsigned HeadlessItemListsOut();
// The window GetActiveWindow gives; null at first.
TESSIK_API void HeadlessSetActiveWindow(HWND window);

#endif
