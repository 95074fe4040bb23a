// The headless painting that the search feedback is watched through.
#include <tessik/headless.h>
#include <tessik/platform.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// A top-level window of 200 x 18, destroyed at the end of the test.
struct Window {
    HWND handle = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 200, 18, nullptr, nullptr,
                                  nullptr, nullptr);
    ~Window() { DestroyWindow(handle); }
};

unsigned DCsOut(HWND window) {
    unsigned count = 0xDEAD;
    EXPECT_TRUE(HeadlessDCsOut(window, &count));
    return count;
}

HeadlessText LastText(HWND window) {
    unsigned count = 0;
    HeadlessText text = {};
    EXPECT_TRUE(HeadlessTextCount(window, &count) && count > 0 &&
                HeadlessTextAt(window, count - 1, &text));
    return text;
}

} // namespace

TEST(HeadlessPainting, DeviceContextsComeAndGo) {
    Window window, other;
    HDC const dc = GetDC(window.handle);
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(DCsOut(window.handle) * 10 + DCsOut(other.handle), 10u);
    EXPECT_EQ(GetDC(nullptr), nullptr);
    EXPECT_EQ(ReleaseDC(other.handle, dc), 0); // not that window's
    EXPECT_EQ(ReleaseDC(window.handle, dc), 1);
    EXPECT_EQ(ReleaseDC(window.handle, dc), 0);
    EXPECT_EQ(DCsOut(window.handle), 0u);
    EXPECT_EQ(SetBkMode(dc, TRANSPARENT), 0); // gone
    ASSERT_TRUE(HeadlessFailGetDC(window.handle, true));
    EXPECT_EQ(GetDC(window.handle), nullptr);
    ASSERT_TRUE(HeadlessFailGetDC(window.handle, false));

    // Pixels of the client area, and the system colours.
    HDC const painted = GetDC(window.handle);
    EXPECT_EQ(std::vector<COLORREF>({GetPixel(painted, 0, 0), GetPixel(painted, 199, 17),
                                     GetPixel(painted, 200, 0), GetPixel(painted, 0, -1)}),
              std::vector<COLORREF>({0xF0F0F0, 0xF0F0F0, CLR_INVALID, CLR_INVALID}));
    ASSERT_TRUE(HeadlessSetPixel(window.handle, 0x00332211));
    EXPECT_EQ(GetPixel(painted, 3, 4), 0x00332211u);
    EXPECT_EQ(std::vector<DWORD>({GetSysColor(COLOR_MENUTEXT), GetSysColor(COLOR_BTNFACE),
                                  GetSysColor(5), GetSysColor(30), GetSysColor(31)}),
              std::vector<DWORD>({0, 0xF0F0F0, 0xFFFFFF, 0xF0F0F0, 0}));

    // A context outlives its window, but paints nothing any more.
    ASSERT_TRUE(DestroyWindow(window.handle));
    RECT rect = {0, 0, 10, 10};
    EXPECT_EQ(DrawTextA(painted, "x", -1, &rect, 0), 0);
    EXPECT_EQ(GetPixel(painted, 0, 0), CLR_INVALID);
    EXPECT_EQ(ReleaseDC(window.handle, painted), 1);
}

TEST(HeadlessPainting, TextsCarryTheStateOfTheirContextAndFontsTheirOwners) {
    Window window;
    HDC const dc = GetDC(window.handle);
    RECT rect = {5, 6, 7, 8};
    EXPECT_EQ(DrawTextA(dc, "first", -1, &rect, DT_CENTER), 16); // the stock font's height
    HeadlessText text = LastText(window.handle);
    EXPECT_EQ(std::string(text.text) + text.font.face, "firstSystem");
    EXPECT_EQ(text.backgroundMode, OPAQUE);
    HFONT const stock = text.fontHandle;

    EXPECT_EQ(SetBkMode(dc, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(dc, 7), 0);
    EXPECT_EQ(SetTextColor(dc, 0x123456), 0u);
    EXPECT_EQ(SetTextColor(dc, 0x654321), 0x123456u);
    HFONT const font =
        CreateFontA(-12, 10, 1, 2, 700, 1, 0, 1, 0, OUT_RASTER_PRECIS, CLIP_STROKE_PRECIS, 3,
                    FF_SWISS, "A face name that runs past thirty-one bytes");
    EXPECT_EQ(SelectObject(dc, font), static_cast<HGDIOBJ>(stock));
    EXPECT_EQ(DrawTextA(dc, "second text", 6, &rect, 0x42025), 12);
    text = LastText(window.handle);
    HeadlessFont const& f = text.font;
    EXPECT_EQ(
        std::vector<long>({long(text.length), long(text.colour), text.backgroundMode,
                           text.rect.left, text.rect.bottom, long(text.flags), f.height, f.width,
                           f.escapement, f.orientation, f.weight, long(f.italic), long(f.underline),
                           long(f.strikeOut), long(f.charSet), long(f.outPrecision),
                           long(f.clipPrecision), long(f.quality), long(f.pitchAndFamily)}),
        std::vector<long>({6, 0x654321, TRANSPARENT, 5, 8, 0x42025, -12, 10, 1, 2, 700, 1, 0, 1, 0,
                           6, 2, 3, 0x20}));
    EXPECT_EQ(std::string(text.text) + "|" + f.face, "second|A face name that runs past thir");
    EXPECT_EQ(text.fontHandle, font);
    EXPECT_EQ(DrawTextA(dc, nullptr, -1, &rect, 0) + DrawTextA(dc, "x", -1, nullptr, 0), 0);
    EXPECT_EQ(SelectObject(dc, window.handle), nullptr); // not a font

    // A font is freed only once no context holds it; the stock font is never freed.
    EXPECT_FALSE(DeleteObject(font));
    EXPECT_EQ(SelectObject(dc, stock), static_cast<HGDIOBJ>(font));
    HeadlessFont described = {};
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_FALSE(HeadlessFontOf(font, &described) || DeleteObject(font));
    EXPECT_EQ(SelectObject(dc, font), nullptr);
    EXPECT_TRUE(DeleteObject(stock));
    EXPECT_TRUE(HeadlessFontOf(stock, &described));
    EXPECT_FALSE(DeleteObject(dc));
    ReleaseDC(window.handle, dc);
}

TEST(HeadlessPainting, WindowsOwnTheRegionsSetOnThem) {
    Window window;
    HeadlessRegion region = {};
    HRGN const first = CreateRectRgn(2, 2, 1, 1); // corners in any order
    EXPECT_EQ(SetWindowRgn(window.handle, first, TRUE), 1);
    ASSERT_TRUE(HeadlessRegionOf(window.handle, &region));
    EXPECT_EQ(std::vector<long>({region.whole, region.rect.left, region.rect.top, region.rect.right,
                                 region.rect.bottom, long(region.changes), region.redrawAsked}),
              std::vector<long>({0, 1, 1, 2, 2, 1, 1}));
    EXPECT_FALSE(DeleteObject(first)); // the window's now
    EXPECT_EQ(SetWindowRgn(window.handle, first, FALSE), 0);

    HRGN const second = CreateRectRgn(0, 0, 5, 5);
    EXPECT_EQ(SetWindowRgn(nullptr, second, FALSE), 0);
    EXPECT_EQ(SetWindowRgn(window.handle, second, FALSE), 1);
    EXPECT_EQ(SetWindowRgn(window.handle, nullptr, FALSE), 1);
    ASSERT_TRUE(HeadlessRegionOf(window.handle, &region));
    EXPECT_EQ(std::vector<long>({region.whole, region.rect.right, region.rect.bottom,
                                 long(region.changes), region.redrawAsked}),
              std::vector<long>({1, 200, 18, 3, 0}));
    HRGN const unused = CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(DeleteObject(unused));
    EXPECT_FALSE(DeleteObject(unused) || HeadlessRegionOf(nullptr, &region));
}
