// Hooks into the headless windows of the posix backend, for tests and for hosts that draw the
// controls themselves (a terminal program, say). Not available on Windows, where windows are
// real.
#ifndef TESSIK_HEADLESS_H
#define TESSIK_HEADLESS_H

#include <tessik/platform.h>

// How many painted texts a window keeps: the latest ones.
#define HEADLESS_KEPT_TEXTS 256

// One text painted on a window.
struct HeadlessText {
    char text[MAX_PATH]; // its first MAX_PATH - 1 bytes, zero-terminated
    unsigned length;     // its whole length in bytes
    COLORREF colour;
    RECT rect;
    unsigned flags;
};

// Each hook gives false, and changes nothing, for a handle that is not a live window.
TESSIK_API bool HeadlessClientRect(HWND window, RECT* rect);
TESSIK_API bool HeadlessPixel(HWND window, COLORREF* colour);  // of pixel (0,0)
TESSIK_API bool HeadlessWholeRegion(HWND window, bool* whole); // false: the one-pixel region

// Texts are numbered from 0 in the order they were painted; `count` counts them all, but only
// the latest HEADLESS_KEPT_TEXTS can be read.
TESSIK_API bool HeadlessTextCount(HWND window, unsigned* count);
TESSIK_API bool HeadlessTextAt(HWND window, unsigned index, HeadlessText* text);

// While set, GetDC gives null for the window.
TESSIK_API bool HeadlessFailGetDC(HWND window, bool fail);

#endif
