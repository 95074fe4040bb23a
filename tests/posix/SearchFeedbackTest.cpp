#include "support/Listing.h"
#include "support/Records.h"

#include <tessik/Controls.h>
#include <tessik/headless.h>
#include <tessik/headless_time.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

// The clock of a run: GetTickCount gives `now`, which the test moves.
DWORD now = 0;
struct Clock {
    explicit Clock(DWORD start) {
        now = start;
        SetTickSource([] { return now; });
    }
    ~Clock() { SetTickSource(nullptr); }
};

// Calls `act` at each change of `control`, from its change callback.
template <class Control> struct Hook {
    Control& control;
    std::function<void(Control&)> act;
    Hook(Control& watched, std::function<void(Control&)> action)
        : control(watched), act(std::move(action)) {
        control.SetChangeCallback(
            [](void* user, DIBasics const&) {
                Hook& hook = *static_cast<Hook*>(user);
                hook.act(hook.control);
            },
            this);
    }
    ~Hook() { control.SetChangeCallback(nullptr, nullptr); }
};

// A tree, the four controls and a listing that reports to them; the bar's range 0 to 10, the list
// showing names only. The bar moves the clock: while it stands at position k (the k-th entry is
// counted), the time is ticks[k - 1].
struct Feedback : ::testing::Test {
    TempTree tree;
    DProgressBar bar;
    DText percent;
    DStatusWnd status;
    DListControl list;
    std::vector<DWORD> ticks;
    Hook<DProgressBar> follow{bar, [this](DProgressBar& b) {
                                  if (b.Position() >= 1 && b.Position() <= ticks.size())
                                      now = ticks[b.Position() - 1];
                              }};
    HWND const barWindow = bar.GetHandle(-1, nullptr), listWindow = list.GetHandle(-1, nullptr);
    DFileLoad load;

    Feedback() {
        bar.SetRange(0, 10, -1);
        list.SetReportStyle(ColumnName);
        Attach(load);
    }
    void Attach(DFileLoad& to) { to.SetupControls(&bar, &percent, &status, &list); }
};

// Texts painted on a window from the `from`-th on, with their colours.
typedef std::vector<std::pair<std::string, COLORREF>> Paints;
Paints Painted(HWND window, std::size_t from = 0) {
    Paints texts;
    for (HeadlessText text; HeadlessTextAt(window, static_cast<unsigned>(from), &text); ++from)
        texts.emplace_back(text.text, text.colour);
    return texts;
}

} // namespace

TEST_F(Feedback, PaintsTheShareOfEntriesOnTheBar) {
    tree.MakeFiles("t", 13);
    bar.SetRange(0, 20, -1); // 5% an entry
    ASSERT_TRUE(HeadlessSetPixel(barWindow, 0x00ABCDEF));
    COLORREF const back = 0x00ABCDEF, text = GetSysColor(COLOR_MENUTEXT);
    Clock clock(100000);
    ticks = {100000, 100100, 100100, 100100, 100100, 100100, 100100,
             100100, 100100, 100100, 100750, 101500, 102250};
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));

    // A new value at the 1st, 11th (750 ms on), 12th and 13th entries; the old one painted out
    // up to 55%, inclusive.
    Paints expected(10, {"05% ", text});
    expected.insert(
        expected.end(),
        {{"05% ", back}, {"55% ", text}, {"55% ", back}, {"60% ", text}, {"65% ", text}});
    EXPECT_EQ(Painted(barWindow), expected);

    HeadlessText first;
    ASSERT_TRUE(HeadlessTextAt(barWindow, 0, &first));
    HeadlessFont const& f = first.font;
    EXPECT_EQ(std::vector<long>({long(first.flags), first.backgroundMode, first.rect.right,
                                 first.rect.bottom, f.height, f.width, f.escapement, f.orientation,
                                 f.weight, long(f.italic), long(f.underline), long(f.strikeOut),
                                 long(f.charSet), long(f.outPrecision), long(f.clipPrecision),
                                 long(f.quality), long(f.pitchAndFamily), long(f.face[0])}),
              std::vector<long>(
                  {0x42025, TRANSPARENT, 200, 18, 12, 10, 0, 0, 0, 0, 0, 0, 0, 6, 2, 0, 0x20, 0}));
    // Given back: the font freed, the context released; the bar back at 0.
    unsigned out = 1;
    EXPECT_FALSE(HeadlessFontOf(first.fontHandle, &first.font));
    EXPECT_TRUE(HeadlessDCsOut(barWindow, &out) && out == 0 && bar.Position() == 0);

    // The tick counter wraps: 0xFFFFFF00 to 0x1EE is 750 ms.
    std::size_t before = Painted(barWindow).size();
    ticks.assign(13, 0x1EE);
    ticks[0] = 0xFFFFFF00, ticks[1] = 0x1ED;
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    Paints wrapped(11, {"15% ", text});
    wrapped.insert(wrapped.begin(), {{"05% ", text}, {"05% ", text}, {"05% ", back}});
    EXPECT_EQ(Painted(barWindow, before), wrapped);

    bar.SetRange(0, 0, -1); // a bar without a range shows 0%
    before = Painted(barWindow).size();
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    EXPECT_EQ(Painted(barWindow, before).front(), std::make_pair(std::string("00% "), text));
}

TEST_F(Feedback, ShowsTheShareOfMatchesAndTheDirectory) {
    tree.MakeFiles("t1", 2, ".txt");
    tree.MakeFiles("t2", 2, ".log");
    // What each text shows when it is redrawn.
    std::vector<std::string> shown[2];
    unsigned redraws[2] = {};
    auto note = [&](int which) {
        return [&, which](DIBasics& control) {
            if (control.RedrawCount() != redraws[which])
                shown[which].push_back(Shown(control.Text()));
            redraws[which] = control.RedrawCount();
        };
    };
    Hook<DIBasics> percentHook(percent, note(0)), statusHook(status, note(1));
    DirectoryListingSpec spec = From({tree.WinPath("t1"), tree.WinPath("t2")});
    spec.namePatterns[0] = "*.txt";
    Clock clock(500);
    ASSERT_TRUE(load.LoadAllDirListings(spec, false));

    // Each text is redrawn once it is set; it shows the entries before the one arriving.
    EXPECT_EQ(shown[0], (std::vector<std::string>{"0.00%", "100.00%", "100.00%", "66.67%"}));
    EXPECT_EQ(Shown(percent.Text()), "66.67%");
    EXPECT_EQ(shown[1], (std::vector<std::string>{tree.WinPath("t1"), tree.WinPath("t2")}));
    EXPECT_TRUE(Shown(status.Text()) == " " && load.files.count == 2);
}

TEST_F(Feedback, DrawsNewRowsInBatchesWhileTheListIsHidden) {
    tree.MakeFiles("t", 5);
    std::vector<std::pair<unsigned, HeadlessRegion>> drawn; // rows, and the list's region
    Hook<DListControl> rows(list, [&](DListControl& control) {
        HeadlessRegion region = {};
        HeadlessRegionOf(listWindow, &region);
        if (control.RowCount() > 0)
            drawn.emplace_back(control.RowCount(), region);
    });
    Clock clock(0);
    ticks = {1000, 1500, 1699, 1700, 2000}; // rows at the 1st and the 4th entry
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    ASSERT_EQ(drawn.size(), 5u);
    for (unsigned i = 0; i < drawn.size(); ++i) {
        EXPECT_EQ(drawn[i].first, i + 1);
        EXPECT_EQ(drawn[i].second.whole, i == 4) << i; // the last at the end, not hidden
    }
    RECT const& hidden = drawn[0].second.rect;
    EXPECT_EQ(std::vector<long>({hidden.left, hidden.top, hidden.right, hidden.bottom}),
              std::vector<long>({1, 1, 2, 2}));
    HeadlessRegion region;
    ASSERT_TRUE(HeadlessRegionOf(listWindow, &region));
    EXPECT_TRUE(region.whole && region.changes == 4 && !region.redrawAsked);
    for (unsigned row = 0; row < 5; ++row)
        EXPECT_EQ(Shown(list.CellImage(row, 0)), &load.files[row].fullPath);

    // An interval that never comes up: every row at the end, the list never hidden.
    drawn.clear();
    ticks.assign(5, 500);
    now = 500;
    DFileLoad quick;
    Attach(quick);
    ASSERT_TRUE(quick.LoadDirListing(In(tree, "t")));
    ASSERT_EQ(drawn.size(), 5u);
    EXPECT_TRUE(drawn[0].second.whole && HeadlessRegionOf(listWindow, &region) &&
                region.changes == 4);

    // Counting only: the list is emptied and the records the listing holds drawn anew.
    tree.MakeFiles("u", 2);
    drawn.clear();
    ASSERT_EQ(quick.GetTotalDirListings(In(tree, "u"), false), 2u);
    EXPECT_TRUE(quick.files.count == 5 && list.RowCount() == 5 && drawn[0].first == 1);
    EXPECT_EQ(Shown(list.CellImage(0, 0)), &quick.files[0].fullPath);
}

TEST_F(Feedback, DropsABarWithoutDeviceContext) {
    tree.MakeFiles("t", 3);
    ASSERT_TRUE(HeadlessFailGetDC(barWindow, true));
    bar.SetPos(7, -1);
    Clock clock(5000);
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    // Nor reset at the end.
    EXPECT_TRUE(!load.progressBar && bar.Position() == 7 && Painted(barWindow).empty());
    EXPECT_EQ(Shown(percent.Text()) + Shown(status.Text()), "100.00% ");
    EXPECT_EQ(list.RowCount(), 3u);
    ASSERT_TRUE(HeadlessFailGetDC(barWindow, false));
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t"))); // still given up
    EXPECT_TRUE(Painted(barWindow).empty());
    Attach(load);
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    EXPECT_EQ(Painted(barWindow).size(), 3u);
}

TEST_F(Feedback, StopsWhenAsked) {
    tree.MakeFiles("a", 3);
    tree.MakeFiles("a/sub", 2);
    tree.MakeFiles("t", 4);
    std::vector<std::string> statuses;
    Hook<DStatusWnd> statusHook(status,
                                [&](DStatusWnd& c) { statuses.push_back(Shown(c.Text())); });
    load.SetAbort(); // no run: nothing to stop
    EXPECT_TRUE(!load.abortRequested && statuses.empty());

    // From the status window's redraw at the second directory: the run stops there, with its
    // records but without their rows, and keeps its message; unless the stop is taken back.
    for (bool clear : {false, true}) {
        statuses.clear();
        bool asked = false;
        statusHook.act = [&](DStatusWnd& control) {
            statuses.push_back(Shown(control.Text()));
            if (!asked && Shown(control.Text()) == tree.WinPath("a/sub")) {
                asked = true;
                load.SetAbort();
                if (clear)
                    load.ClearAbort();
            }
        };
        Clock clock(500);
        load.Destroy();
        EXPECT_EQ(load.LoadAllDirListings(In(tree, "a"), true), clear);
        EXPECT_FALSE(load.abortRequested || load.searching);
        EXPECT_EQ(load.files.count, clear ? 6u : 4u);
        if (clear) {
            EXPECT_EQ(Shown(status.Text()), " ");
            continue;
        }
        EXPECT_EQ(list.RowCount(), 0u);
        ASSERT_GE(statuses.size(), 2u);
        EXPECT_EQ(statuses[statuses.size() - 2] + statuses.back() + Shown(status.Text()),
                  "Please wait while cleaning up for abort...Stopped processing folders."
                  "Stopped processing folders.");
    }

    // While rows are drawn, at the last entry: they stop after the row, the run ends well.
    statusHook.act = [](DStatusWnd&) {};
    Hook<DListControl> rows(list, [&](DListControl& control) {
        if (control.RowCount() == 2 && !load.abortRequested)
            load.SetAbort();
    });
    Clock clock(0);
    ticks = {500, 500, 500, 1000};
    load.Destroy();
    EXPECT_TRUE(load.LoadDirListing(In(tree, "a")));
    EXPECT_TRUE(load.files.count == 4 && list.RowCount() == 2);
    EXPECT_EQ(Shown(status.Text()), " ");

    // Without a status window, from the clock at its third reading (the start, then one a row
    // check): no rows.
    DListControl bareList;
    DFileLoad bare;
    bare.SetupControls(nullptr, nullptr, nullptr, &bareList);
    static DFileLoad* stopping;
    static unsigned readings;
    stopping = &bare, readings = 0;
    SetTickSource([]() -> DWORD {
        if (++readings == 3)
            stopping->SetAbort();
        return 500;
    });
    EXPECT_FALSE(bare.LoadDirListing(In(tree, "t")));
    EXPECT_TRUE(bare.totalSearched == 2 && bareList.RowCount() == 0);
}

TEST(SearchStatistics, MillisecondsOfAnEmptyQueueStay) {
    TempTree tree;
    tree.MakeDir("d");
    Clock clock(0);
    static int calls = 0; // 1000 at the first reading, 12345 ms later at every other
    SetTickSource([]() -> DWORD { return calls++ == 0 ? 1000 : 13345; });
    DFileLoad load;
    ASSERT_TRUE(load.LoadDirListing(In(tree, "d")));
    EXPECT_EQ(load.GetTotalSearchMilliseconds(), 12345u);
    EXPECT_TRUE(load.LoadDirListing(From({""}))); // a directory that gives no queue entry
    EXPECT_EQ(load.GetTotalSearchMilliseconds(), 12345u);
    EXPECT_EQ(load.GetTotalSearchDirs(), 1u);
}
