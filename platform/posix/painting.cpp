// Headless painting: device contexts, fonts and regions in a registry of their own, with
// handles that are never reused. Painted texts and window regions go to the window records.
//
// Lock order: the window registry (posix::LockedWindow) before this one, never the other way.
#include "platform/posix/windows.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <new>
#include <utility>

namespace {

struct DeviceContext {
    HWND window;
    int backgroundMode;
    COLORREF textColour;
    std::uintptr_t font;
};

// The top quarter of the address space, away from the window handles and from null.
std::uintptr_t const firstKey = std::uintptr_t(1) << (sizeof(std::uintptr_t) * 8 - 2);
std::uintptr_t const keyStep = 8;
std::uintptr_t const stockFont = firstKey;

struct Gdi {
    std::mutex lock;
    std::map<std::uintptr_t, DeviceContext> contexts;
    std::map<std::uintptr_t, HeadlessFont> fonts;
    std::map<std::uintptr_t, RECT> regions;
    std::uintptr_t made = 1; // the first key is the stock font

    Gdi() {
        fonts.emplace(stockFont, HeadlessFont{16, 7, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 0, "System"});
    }

    std::uintptr_t NextKey() { return firstKey + made++ * keyStep; }

    DeviceContext* Context(HDC dc) {
        auto const found = contexts.find(reinterpret_cast<std::uintptr_t>(dc));
        return found == contexts.end() ? nullptr : &found->second;
    }
};

// Never destroyed, so windows that outlive the static objects can still be painted on.
Gdi& Objects() {
    static Gdi* gdi = new Gdi;
    return *gdi;
}

template <class Handle> Handle HandleOf(std::uintptr_t key) {
    return reinterpret_cast<Handle>(key);
}
template <class Handle> std::uintptr_t KeyOf(Handle handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

// Inside the client rectangle every pixel has the colour of pixel (0,0).
COLORREF PixelOf(HWND window, int x, int y) {
    posix::LockedWindow record(window);
    if (!record || x < 0 || y < 0 || x >= record->client.right || y >= record->client.bottom)
        return CLR_INVALID;
    return record->pixel;
}

// Keeps `record` under a new handle; null when memory runs out.
template <class Handle, class Record>
Handle Keep(std::map<std::uintptr_t, Record> Gdi::*objects, Record const& record) {
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    std::uintptr_t const key = gdi.NextKey();
    try {
        (gdi.*objects).emplace(key, record);
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
    return HandleOf<Handle>(key);
}

// Puts `value` into a field of the context and the former value into `value`.
template <class T> bool Exchange(HDC dc, T DeviceContext::*field, T& value) {
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    DeviceContext* context = gdi.Context(dc);
    if (!context)
        return false;
    std::swap(context->*field, value);
    return true;
}

bool FontSelected(Gdi const& gdi, std::uintptr_t font) {
    for (auto const& context : gdi.contexts)
        if (context.second.font == font)
            return true;
    return false;
}

// Windows 10 defaults, by index, as 0x00BBGGRR.
DWORD const systemColours[] = {0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464,
                               0x000000, 0x000000, 0x000000, 0xB4B4B4, 0xFCF7F4, 0xABABAB, 0xD77800,
                               0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x000000, 0xFFFFFF,
                               0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF, 0x000000, 0xCC6600, 0xEAD1B9,
                               0xF2E4D7, 0xD77800, 0xF0F0F0};

} // namespace

HDC GetDC(HWND window) {
    posix::LockedWindow record(window);
    if (!record || record->getDCFails)
        return nullptr;
    return Keep<HDC>(&Gdi::contexts, DeviceContext{window, OPAQUE, 0, stockFont});
}

int ReleaseDC(HWND window, HDC dc) {
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    DeviceContext const* context = gdi.Context(dc);
    if (!context || context->window != window)
        return 0;
    gdi.contexts.erase(KeyOf(dc));
    return 1;
}

int SetBkMode(HDC dc, int mode) {
    if (mode != TRANSPARENT && mode != OPAQUE)
        return 0;
    return Exchange(dc, &DeviceContext::backgroundMode, mode) ? mode : 0;
}

COLORREF GetPixel(HDC dc, int x, int y) {
    HWND window = nullptr;
    {
        Gdi& gdi = Objects();
        std::lock_guard<std::mutex> hold(gdi.lock);
        DeviceContext const* context = gdi.Context(dc);
        if (!context)
            return CLR_INVALID;
        window = context->window;
    }
    return PixelOf(window, x, y);
}

DWORD GetSysColor(int index) {
    int const known = static_cast<int>(sizeof systemColours / sizeof systemColours[0]);
    return index >= 0 && index < known ? systemColours[index] : 0;
}

COLORREF SetTextColor(HDC dc, COLORREF colour) {
    return Exchange(dc, &DeviceContext::textColour, colour) ? colour : CLR_INVALID;
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                  DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, char const* faceName) {
    HeadlessFont font = {height,        width,     escapement,     orientation, weight,
                         italic,        underline, strikeOut,      charSet,     outPrecision,
                         clipPrecision, quality,   pitchAndFamily, ""};
    if (faceName)
        std::strncpy(font.face, faceName, sizeof font.face - 1);
    return Keep<HFONT>(&Gdi::fonts, font);
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    DeviceContext* context = gdi.Context(dc);
    std::uintptr_t font = KeyOf(object);
    if (!context || gdi.fonts.count(font) == 0)
        return nullptr;
    std::swap(context->font, font);
    return HandleOf<HGDIOBJ>(font);
}

BOOL DeleteObject(HGDIOBJ object) {
    std::uintptr_t const key = KeyOf(object);
    if (key == stockFont)
        return TRUE;
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    if (gdi.regions.erase(key) != 0)
        return TRUE;
    if (gdi.fonts.count(key) == 0 || FontSelected(gdi, key))
        return FALSE;
    gdi.fonts.erase(key);
    return TRUE;
}

int DrawTextA(HDC dc, char const* text, int count, RECT* rect, unsigned int flags) {
    if (!text || !rect)
        return 0;
    posix::PaintedText painted;
    HWND window = nullptr;
    {
        Gdi& gdi = Objects();
        std::lock_guard<std::mutex> hold(gdi.lock);
        DeviceContext const* context = gdi.Context(dc);
        if (!context)
            return 0;
        window = context->window;
        painted.colour = context->textColour;
        painted.backgroundMode = context->backgroundMode;
        painted.fontHandle = HandleOf<HFONT>(context->font);
        auto const font = gdi.fonts.find(context->font); // a selected font is never deleted
        if (font == gdi.fonts.end())
            return 0;
        painted.font = font->second;
    }
    painted.rect = *rect;
    painted.flags = flags;
    try {
        painted.text.assign(text, count < 0 ? std::strlen(text) : static_cast<std::size_t>(count));
    } catch (std::bad_alloc const&) {
        return 0;
    }
    int const height = painted.font.height < 0 ? -painted.font.height : painted.font.height;
    posix::LockedWindow record(window);
    if (!record || !posix::AddPainted(*record, std::move(painted)))
        return 0;
    return height;
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
    RECT const area = {left < right ? left : right, top < bottom ? top : bottom,
                       left < right ? right : left, top < bottom ? bottom : top};
    return Keep<HRGN>(&Gdi::regions, area);
}

// The region leaves the registry for the window record, where the next one replaces it.
int SetWindowRgn(HWND window, HRGN region, BOOL redraw) {
    posix::LockedWindow record(window);
    if (!record)
        return 0;
    if (region) {
        Gdi& gdi = Objects();
        std::lock_guard<std::mutex> hold(gdi.lock);
        auto const found = gdi.regions.find(KeyOf(region));
        if (found == gdi.regions.end())
            return 0;
        record->region = found->second;
        gdi.regions.erase(found);
    }
    record->wholeRegion = region == nullptr;
    ++record->regionChanges;
    record->regionRedraw = redraw != FALSE;
    return 1;
}

bool HeadlessDCsOut(HWND window, unsigned* count) {
    posix::LockedWindow record(window);
    if (!record || !count)
        return false;
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    *count = 0;
    for (auto const& context : gdi.contexts)
        if (context.second.window == window)
            ++*count;
    return true;
}

bool HeadlessFontOf(HFONT font, HeadlessFont* description) {
    Gdi& gdi = Objects();
    std::lock_guard<std::mutex> hold(gdi.lock);
    auto const found = gdi.fonts.find(KeyOf(font));
    if (found == gdi.fonts.end() || !description)
        return false;
    *description = found->second;
    return true;
}
