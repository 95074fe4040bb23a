// The headless windows and painting that the search feedback is watched through; the paints,
// fonts and regions of a run are checked in SearchFeedbackTest.
#include <tessik/Controls.h>
#include <tessik/headless.h>
#include <tessik/platform.h>

#include <gtest/gtest.h>

#include <vector>

TEST(HeadlessPainting, ContextsFontsPixelsAndRegions) {
    HWND const window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 200, 18, nullptr, nullptr,
                                        nullptr, nullptr);
    HWND const other =
        CreateWindowExA(0, "STATIC", "", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    HDC const dc = GetDC(window);
    unsigned out = 0;
    EXPECT_TRUE(dc && GetDC(nullptr) == nullptr && HeadlessDCsOut(window, &out) && out == 1);
    EXPECT_EQ(ReleaseDC(other, dc), 0); // not that window's
    EXPECT_EQ(std::vector<COLORREF>({GetPixel(dc, 0, 0), GetPixel(dc, 199, 17),
                                     GetPixel(dc, 200, 0), GetPixel(dc, 0, -1)}),
              std::vector<COLORREF>({0xF0F0F0, 0xF0F0F0, CLR_INVALID, CLR_INVALID}));
    EXPECT_EQ(std::vector<DWORD>({GetSysColor(COLOR_MENUTEXT), GetSysColor(COLOR_BTNFACE),
                                  GetSysColor(5), GetSysColor(30), GetSysColor(31)}),
              std::vector<DWORD>({0, 0xF0F0F0, 0xFFFFFF, 0xF0F0F0, 0}));
    EXPECT_EQ(SetBkMode(dc, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(dc, 7), 0);
    EXPECT_EQ(SetTextColor(dc, 0x123456), 0u);

    // A font is freed only once no context holds it; the stock font is never freed.
    HFONT const font = CreateFontA(-12, 10, 1, 2, 700, 1, 0, 1, 0, OUT_RASTER_PRECIS,
                                   CLIP_STROKE_PRECIS, 3, FF_SWISS, "Face");
    HGDIOBJ const stock = SelectObject(dc, font);
    RECT rect = {5, 6, 7, 8};
    EXPECT_EQ(DrawTextA(dc, "second text", 6, &rect, 0), 12);
    EXPECT_EQ(SelectObject(dc, window), nullptr); // not a font
    EXPECT_FALSE(DeleteObject(font));
    EXPECT_EQ(SelectObject(dc, stock), static_cast<HGDIOBJ>(font));
    HeadlessFont described = {};
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_FALSE(HeadlessFontOf(font, &described) || DeleteObject(font));
    EXPECT_TRUE(DeleteObject(stock) && HeadlessFontOf(static_cast<HFONT>(stock), &described));

    HRGN const region = CreateRectRgn(2, 2, 1, 1); // corners in any order
    EXPECT_EQ(SetWindowRgn(nullptr, region, FALSE), 0);
    EXPECT_EQ(SetWindowRgn(window, region, TRUE), 1);
    EXPECT_FALSE(DeleteObject(region)); // the window's now
    HeadlessRegion held = {};
    ASSERT_TRUE(HeadlessRegionOf(window, &held));
    EXPECT_EQ(std::vector<long>({held.whole, held.rect.left, held.rect.right, long(held.changes)}),
              std::vector<long>({0, 1, 2, 1}));

    // A context outlives its window, but paints nothing any more.
    ASSERT_TRUE(DestroyWindow(window) && DestroyWindow(other));
    EXPECT_EQ(DrawTextA(dc, "x", -1, &rect, 0), 0);
    EXPECT_EQ(GetPixel(dc, 0, 0), CLR_INVALID);
    EXPECT_EQ(ReleaseDC(window, dc), 1);
    EXPECT_EQ(ReleaseDC(window, dc), 0);
}

TEST(Controls, EachControlOwnsAHeadlessWindow) {
    HWND parentWindow = nullptr, childWindow = nullptr;
    {
        DStatic parent;
        DProgressBar bar(0, 100, parent.GetHandle(-1, nullptr), 3);
        parentWindow = parent.GetHandle(-1, nullptr);
        childWindow = bar.GetHandle(-1, nullptr);
        ASSERT_TRUE(IsWindow(parentWindow) && IsWindow(childWindow));
        EXPECT_EQ(bar.GetHandle(3, parentWindow), childWindow);
        EXPECT_EQ(bar.GetHandle(-1, childWindow), nullptr); // not its parent
        EXPECT_EQ(bar.GetHandle(4, nullptr), nullptr);
        DText orphan(childWindow);                // a parent that goes: the control still works
        ASSERT_TRUE(DestroyWindow(parentWindow)); // takes the child with it
        EXPECT_FALSE(IsWindow(childWindow) || bar.Redraw(-1));
        EXPECT_TRUE(orphan.Set(DName("5%")));
        EXPECT_FALSE(orphan.Redraw(-1));
        EXPECT_EQ(orphan.RedrawCount(), 1u);
    }
    HWND window = nullptr;
    {
        DListControl list;
        window = list.GetHandle(-1, nullptr);
        ASSERT_TRUE(IsWindow(window));
    }
    EXPECT_FALSE(IsWindow(window));
}
