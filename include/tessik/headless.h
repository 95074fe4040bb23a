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

#endif
