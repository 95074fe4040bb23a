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
    EXPECT_TRUE(HeadlessTextCount(window, &count));
    EXPECT_TRUE(count > 0 && HeadlessTextAt(window, count - 1, &text));
    return text;
}

} // namespace

TEST(HeadlessPainting, DeviceContextsComeAndGo) {
    Window window;
    Window other;
    HDC const dc = GetDC(window.handle);
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(DCsOut(window.handle), 1u);
    EXPECT_EQ(DCsOut(other.handle), 0u);
    EXPECT_EQ(GetDC(nullptr), nullptr);

    EXPECT_EQ(ReleaseDC(other.handle, dc), 0); // not that window's
    EXPECT_EQ(ReleaseDC(window.handle, dc), 1);
    EXPECT_EQ(ReleaseDC(window.handle, dc), 0);
    EXPECT_EQ(DCsOut(window.handle), 0u);
    EXPECT_EQ(SetBkMode(dc, TRANSPARENT), 0); // gone

    ASSERT_TRUE(HeadlessFailGetDC(window.handle, true));
    EXPECT_EQ(GetDC(window.handle), nullptr);
    EXPECT_EQ(DCsOut(window.handle), 0u);
    ASSERT_TRUE(HeadlessFailGetDC(window.handle, false));

    // A context outlives its window, but paints nothing any more.
    HWND const gone =
        CreateWindowExA(0, "STATIC", "", 0, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    HDC const orphan = GetDC(gone);
    ASSERT_TRUE(DestroyWindow(gone));
    RECT rect = {0, 0, 10, 10};
    EXPECT_EQ(DrawTextA(orphan, "x", -1, &rect, 0), 0);
    EXPECT_EQ(GetPixel(orphan, 0, 0), CLR_INVALID);
    EXPECT_FALSE(HeadlessDCsOut(gone, nullptr));
    EXPECT_EQ(ReleaseDC(gone, orphan), 1);
}

TEST(HeadlessPainting, TextsCarryTheStateOfTheirContext) {
    Window window;
    HDC const dc = GetDC(window.handle);
    RECT rect = {0, 0, 200, 18};
    EXPECT_EQ(DrawTextA(dc, "first", -1, &rect, DT_CENTER), 16); // the stock font's height
    HeadlessText text = LastText(window.handle);
    EXPECT_STREQ(text.text, "first");
    EXPECT_EQ(text.colour, 0u);
    EXPECT_EQ(text.backgroundMode, OPAQUE);
    EXPECT_STREQ(text.font.face, "System");
    HFONT const stock = text.fontHandle;

    EXPECT_EQ(SetBkMode(dc, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(dc, 7), 0);
    EXPECT_EQ(SetTextColor(dc, 0x123456), 0u);
    EXPECT_EQ(SetTextColor(dc, 0x654321), 0x123456u);
    HFONT const font =
        CreateFontA(-12, 10, 1, 2, 700, 1, 0, 1, 0, OUT_RASTER_PRECIS, CLIP_STROKE_PRECIS, 3,
                    FF_SWISS, "A face name that runs past thirty-one bytes");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(SelectObject(dc, font), static_cast<HGDIOBJ>(stock));
    RECT other = {5, 6, 7, 8};
    EXPECT_EQ(DrawTextA(dc, "second text", 6, &other, 0x42025), 12);
    text = LastText(window.handle);
    EXPECT_STREQ(text.text, "second");
    EXPECT_EQ(text.length, 6u);
    EXPECT_EQ(text.colour, 0x654321u);
    EXPECT_EQ(text.backgroundMode, TRANSPARENT);
    EXPECT_EQ(text.rect.left, 5);
    EXPECT_EQ(text.rect.bottom, 8);
    EXPECT_EQ(text.flags, 0x42025u);
    EXPECT_EQ(text.fontHandle, font);
    HeadlessFont const& made = text.font;
    EXPECT_EQ(std::vector<long>({made.height, made.width, made.escapement, made.orientation,
                                 made.weight, made.italic, made.underline, made.strikeOut,
                                 made.charSet, made.outPrecision, made.clipPrecision, made.quality,
                                 made.pitchAndFamily}),
              std::vector<long>({-12, 10, 1, 2, 700, 1, 0, 1, 0, 6, 2, 3, 0x20}));
    EXPECT_EQ(std::string(text.font.face),
              std::string("A face name that runs past thirty-one bytes").substr(0, 31));

    EXPECT_EQ(DrawTextA(dc, nullptr, -1, &other, 0), 0);
    EXPECT_EQ(DrawTextA(dc, "x", -1, nullptr, 0), 0);
    EXPECT_EQ(SelectObject(dc, window.handle), nullptr); // not a font

    // A font is freed only once no context holds it; the stock font is never freed.
    EXPECT_FALSE(DeleteObject(font));
    EXPECT_EQ(SelectObject(dc, stock), static_cast<HGDIOBJ>(font));
    HeadlessFont described = {};
    EXPECT_TRUE(HeadlessFontOf(font, &described));
    EXPECT_EQ(described.width, 10);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_FALSE(HeadlessFontOf(font, &described));
    EXPECT_FALSE(DeleteObject(font));
    EXPECT_EQ(SelectObject(dc, font), nullptr);
    EXPECT_TRUE(DeleteObject(stock));
    EXPECT_TRUE(HeadlessFontOf(stock, &described));
    EXPECT_EQ(described.height, 16);
    EXPECT_FALSE(DeleteObject(dc));
    ReleaseDC(window.handle, dc);
}

TEST(HeadlessPainting, PixelsAndSystemColours) {
    Window window;
    HDC const dc = GetDC(window.handle);
    EXPECT_EQ(GetPixel(dc, 0, 0), 0x00F0F0F0u);
    EXPECT_EQ(GetPixel(dc, 199, 17), 0x00F0F0F0u);
    EXPECT_EQ(GetPixel(dc, 200, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(dc, 0, -1), CLR_INVALID);
    ASSERT_TRUE(HeadlessSetPixel(window.handle, 0x00332211));
    EXPECT_EQ(GetPixel(dc, 3, 4), 0x00332211u);
    EXPECT_FALSE(HeadlessSetPixel(nullptr, 0));
    ReleaseDC(window.handle, dc);

    EXPECT_EQ(GetSysColor(COLOR_MENUTEXT), 0u);
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), 0x00F0F0F0u);
    EXPECT_EQ(GetSysColor(5), 0x00FFFFFFu);  // COLOR_WINDOW
    EXPECT_EQ(GetSysColor(30), 0x00F0F0F0u); // COLOR_MENUBAR, the last
    EXPECT_EQ(GetSysColor(31), 0u);
    EXPECT_EQ(GetSysColor(-1), 0u);
}

TEST(HeadlessPainting, WindowsOwnTheRegionsSetOnThem) {
    Window window;
    HeadlessRegion region = {};
    ASSERT_TRUE(HeadlessRegionOf(window.handle, &region));
    EXPECT_TRUE(region.whole);
    EXPECT_EQ(region.rect.right, 200);
    EXPECT_EQ(region.changes, 0u);

    HRGN const first = CreateRectRgn(2, 2, 1, 1); // corners in any order
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(SetWindowRgn(window.handle, first, TRUE), 1);
    ASSERT_TRUE(HeadlessRegionOf(window.handle, &region));
    bool whole = true;
    ASSERT_TRUE(HeadlessWholeRegion(window.handle, &whole));
    EXPECT_FALSE(whole);
    EXPECT_FALSE(region.whole);
    EXPECT_EQ(region.rect.left, 1);
    EXPECT_EQ(region.rect.top, 1);
    EXPECT_EQ(region.rect.right, 2);
    EXPECT_EQ(region.rect.bottom, 2);
    EXPECT_EQ(region.changes, 1u);
    EXPECT_TRUE(region.redrawAsked);
    EXPECT_FALSE(DeleteObject(first)); // the window's now
    EXPECT_EQ(SetWindowRgn(window.handle, first, FALSE), 0);

    HRGN const second = CreateRectRgn(0, 0, 5, 5);
    EXPECT_EQ(SetWindowRgn(nullptr, second, FALSE), 0);
    EXPECT_EQ(SetWindowRgn(window.handle, second, FALSE), 1);
    EXPECT_EQ(SetWindowRgn(window.handle, nullptr, FALSE), 1);
    ASSERT_TRUE(HeadlessRegionOf(window.handle, &region));
    EXPECT_TRUE(region.whole);
    EXPECT_EQ(region.rect.bottom, 18);
    EXPECT_EQ(region.changes, 3u);
    EXPECT_FALSE(region.redrawAsked);

    HRGN const unused = CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(DeleteObject(unused));
    EXPECT_FALSE(DeleteObject(unused));
    EXPECT_FALSE(HeadlessRegionOf(nullptr, &region));
}
