// The records behind the headless windows, for the parts of the backend that paint on them.
#ifndef TESSIK_PLATFORM_POSIX_WINDOWS_H
#define TESSIK_PLATFORM_POSIX_WINDOWS_H

#include <tessik/headless.h>
#include <tessik/platform.h>

#include <deque>
#include <mutex>
#include <string>

namespace posix {

struct PaintedText {
    std::string text;
    COLORREF colour;
    RECT rect;
    unsigned flags;
    int backgroundMode;
    HFONT fontHandle;
    HeadlessFont font;
};

struct HeadlessWindow {
    HWND parent;
    RECT client;
    COLORREF pixel;   // colour of pixel (0,0)
    bool wholeRegion; // false: `region` is set
    RECT region;
    unsigned regionChanges;
    bool regionRedraw; // asked for by the last SetWindowRgn
    bool getDCFails;
    std::deque<PaintedText> painted; // the latest HEADLESS_KEPT_TEXTS, oldest first
    unsigned paintedCount;           // all texts ever painted
};

// Keeps `text` among the latest texts painted on `window`. False when memory runs out.
bool AddPainted(HeadlessWindow& window, PaintedText&& text);

// The record of a live window, with every window locked while this object lives; null (false)
// for any other handle. Windows may be used from several threads.
class LockedWindow {
public:
    explicit LockedWindow(HWND window);
    LockedWindow(LockedWindow const&) = delete;
    LockedWindow& operator=(LockedWindow const&) = delete;

    explicit operator bool() const { return record != nullptr; }
    HeadlessWindow* operator->() const { return record; }
    HeadlessWindow& operator*() const { return *record; }

private:
    std::unique_lock<std::mutex> hold;
    HeadlessWindow* record;
};

} // namespace posix

#endif
