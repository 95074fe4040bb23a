// Headless windows: records in a registry, addressed by handles that are never reused.
#include "platform/posix/windows.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <new>
#include <utility>

namespace posix {
namespace {

struct Registry {
    std::mutex lock;
    std::map<std::uintptr_t, HeadlessWindow> windows;
    std::uintptr_t made = 0;
};

// Built in static storage and never destroyed, so a control that outlives the static objects
// can still let go of its window.
Registry& Windows() {
    alignas(Registry) static unsigned char storage[sizeof(Registry)];
    static Registry* registry = new (storage) Registry;
    return *registry;
}

// Handles count up from a value that no real pointer near null could take.
HWND HandleOf(std::uintptr_t key) {
    return reinterpret_cast<HWND>(key);
}
std::uintptr_t KeyOf(HWND window) {
    return reinterpret_cast<std::uintptr_t>(window);
}
std::uintptr_t const firstKey = 0x10000;
std::uintptr_t const keyStep = 16;

COLORREF const buttonFace = 0x00F0F0F0;

// Destroys the windows whose parent is gone, and theirs, until none is left.
void DestroyOrphans(std::map<std::uintptr_t, HeadlessWindow>& windows) {
    bool destroyed = true;
    while (destroyed) {
        destroyed = false;
        for (auto at = windows.begin(); at != windows.end();) {
            HWND const parent = at->second.parent;
            if (parent && windows.count(KeyOf(parent)) == 0) {
                at = windows.erase(at);
                destroyed = true;
            } else {
                ++at;
            }
        }
    }
}

} // namespace

LockedWindow::LockedWindow(HWND window) : hold(Windows().lock), record(nullptr) {
    auto const found = Windows().windows.find(KeyOf(window));
    if (found != Windows().windows.end())
        record = &found->second;
}

namespace {

template <class T> bool ReadField(HWND window, T HeadlessWindow::*field, T* out) {
    LockedWindow record(window);
    if (!record || !out)
        return false;
    *out = (*record).*field;
    return true;
}

template <class T> bool WriteField(HWND window, T HeadlessWindow::*field, T value) {
    LockedWindow record(window);
    if (!record)
        return false;
    (*record).*field = value;
    return true;
}

} // namespace

bool AddPainted(HeadlessWindow& window, PaintedText&& text) {
    try {
        window.painted.push_back(std::move(text));
    } catch (std::bad_alloc const&) {
        return false;
    }
    if (window.painted.size() > HEADLESS_KEPT_TEXTS)
        window.painted.pop_front();
    ++window.paintedCount;
    return true;
}

} // namespace posix

using posix::LockedWindow;

HWND CreateWindowExA(DWORD, char const* className, char const*, DWORD, int, int, int width,
                     int height, HWND parent, HMENU, HINSTANCE, void*) {
    if (!className)
        return nullptr;
    posix::Registry& registry = posix::Windows();
    std::lock_guard<std::mutex> hold(registry.lock);
    if (parent && registry.windows.count(posix::KeyOf(parent)) == 0)
        return nullptr;
    std::uintptr_t const key = posix::firstKey + registry.made * posix::keyStep;
    RECT const client = {0, 0, width > 0 ? width : 0, height > 0 ? height : 0};
    try {
        registry.windows.emplace(
            key, posix::HeadlessWindow{
                     parent, client, posix::buttonFace, true, client, 0, false, false, {}, 0});
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
    ++registry.made;
    return posix::HandleOf(key);
}

BOOL DestroyWindow(HWND window) {
    posix::Registry& registry = posix::Windows();
    std::lock_guard<std::mutex> hold(registry.lock);
    if (registry.windows.erase(posix::KeyOf(window)) == 0)
        return FALSE;
    posix::DestroyOrphans(registry.windows);
    return TRUE;
}

BOOL IsWindow(HWND window) {
    return LockedWindow(window) ? TRUE : FALSE;
}

BOOL GetClientRect(HWND window, RECT* rect) {
    return HeadlessClientRect(window, rect) ? TRUE : FALSE;
}

// A headless window has nothing to bring up to date.
BOOL RedrawWindow(HWND window, RECT const*, HRGN, unsigned int) {
    return IsWindow(window);
}

bool HeadlessClientRect(HWND window, RECT* rect) {
    return posix::ReadField(window, &posix::HeadlessWindow::client, rect);
}

bool HeadlessPixel(HWND window, COLORREF* colour) {
    return posix::ReadField(window, &posix::HeadlessWindow::pixel, colour);
}

bool HeadlessWholeRegion(HWND window, bool* whole) {
    return posix::ReadField(window, &posix::HeadlessWindow::wholeRegion, whole);
}

bool HeadlessSetPixel(HWND window, COLORREF colour) {
    return posix::WriteField(window, &posix::HeadlessWindow::pixel, colour);
}

bool HeadlessRegionOf(HWND window, HeadlessRegion* region) {
    LockedWindow record(window);
    if (!record || !region)
        return false;
    region->whole = record->wholeRegion;
    region->rect = record->wholeRegion ? record->client : record->region;
    region->changes = record->regionChanges;
    region->redrawAsked = record->regionRedraw;
    return true;
}

bool HeadlessTextCount(HWND window, unsigned* count) {
    return posix::ReadField(window, &posix::HeadlessWindow::paintedCount, count);
}

bool HeadlessTextAt(HWND window, unsigned index, HeadlessText* text) {
    LockedWindow record(window);
    if (!record || !text)
        return false;
    unsigned const firstKept = record->paintedCount - static_cast<unsigned>(record->painted.size());
    if (index < firstKept || index >= record->paintedCount)
        return false;
    posix::PaintedText const& painted = record->painted[index - firstKept];
    std::size_t const copied = painted.text.size() < MAX_PATH ? painted.text.size() : MAX_PATH - 1;
    std::memcpy(text->text, painted.text.data(), copied);
    text->text[copied] = '\0';
    text->length = static_cast<unsigned>(painted.text.size());
    text->colour = painted.colour;
    text->rect = painted.rect;
    text->flags = painted.flags;
    text->backgroundMode = painted.backgroundMode;
    text->fontHandle = painted.fontHandle;
    text->font = painted.font;
    return true;
}

bool HeadlessFailGetDC(HWND window, bool fail) {
    return posix::WriteField(window, &posix::HeadlessWindow::getDCFails, fail);
}
