#include "support/Backend.h"
#include "support/TempTree.h"

#include <tessik/Controls.h>
#include <tessik/headless.h>
#include <tessik/headless_time.h>
#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

std::string Shown(DName const& name) {
    return std::string(&name, name.Size());
}

HWND WindowOf(DIBasics const& control) {
    return control.GetHandle(-1, nullptr);
}

// The clock of a run: GetTickCount gives `now`, which the test moves.
DWORD now = 0;
DWORD Now() {
    return now;
}

class Clock {
public:
    explicit Clock(DWORD start) {
        now = start;
        SetTickSource(Now);
    }
    ~Clock() { SetTickSource(nullptr); }
    Clock(Clock const&) = delete;
    Clock& operator=(Clock const&) = delete;
};

// The four controls, the bar's range 0 to 10, the list showing names only. The bar moves the
// clock: while it stands at position k (the k-th entry is counted), the time is ticks[k - 1].
struct Watch {
    DProgressBar bar;
    DText percent;
    DStatusWnd status;
    DListControl list;
    std::vector<DWORD> ticks;

    Watch() {
        bar.SetRange(0, 10, -1);
        list.SetReportStyle(ColumnName);
        bar.SetChangeCallback(FollowBar, this);
    }
    void Attach(DFileLoad& load) { load.SetupControls(&bar, &percent, &status, &list); }

    static void FollowBar(void* user, DIBasics const&) {
        Watch const& watch = *static_cast<Watch*>(user);
        DWORD const k = watch.bar.Position();
        if (k >= 1 && k <= watch.ticks.size())
            now = watch.ticks[k - 1];
    }
};

// Texts painted on a window, with their colours.
typedef std::vector<std::pair<std::string, COLORREF>> Paints;

Paints Painted(HWND window, unsigned from = 0) {
    unsigned count = 0;
    EXPECT_TRUE(HeadlessTextCount(window, &count));
    Paints texts;
    for (HeadlessText text; from < count && HeadlessTextAt(window, from, &text); ++from)
        texts.emplace_back(text.text, text.colour);
    return texts;
}

DirectoryListingSpec In(TempTree const& tree, std::string const& dir, char const* pattern = "*.*") {
    return DirectoryListingSpec(DName(pattern), DName(tree.WinPath(dir).c_str()));
}

void MakeFiles(TempTree const& tree, std::string const& dir, int count, char const* ext = "") {
    tree.MakeDir(dir);
    for (int i = 0; i < count; ++i)
        tree.MakeFile(dir + "/f" + std::to_string(i) + ext);
}

// Calls `act` at each change of `control`, from its change callback.
template <class Control> struct Hook {
    Control& control;
    std::function<void(Control&)> act;
    static void Call(void* user, DIBasics const&) {
        Hook& hook = *static_cast<Hook*>(user);
        hook.act(hook.control);
    }
    Hook(Control& watched, std::function<void(Control&)> action)
        : control(watched), act(std::move(action)) {
        control.SetChangeCallback(Call, this);
    }
    ~Hook() { control.SetChangeCallback(nullptr, nullptr); }
};

} // namespace

TEST(SearchFeedback, PaintsTheShareOfEntriesOnTheBar) {
    ONLY_ON_POSIX_BACKEND("the headless windows and the clock hook");
    TempTree tree;
    MakeFiles(tree, "t", 13);
    Watch watch;
    watch.bar.SetRange(0, 20, -1); // 5% an entry
    HWND const bar = WindowOf(watch.bar);
    ASSERT_TRUE(HeadlessSetPixel(bar, 0x00ABCDEF));
    COLORREF const back = 0x00ABCDEF, text = GetSysColor(COLOR_MENUTEXT);
    Clock clock(100000);
    watch.ticks = {100000, 100100, 100100, 100100, 100100, 100100, 100100,
                   100100, 100100, 100100, 100750, 101500, 102250};
    DFileLoad load;
    watch.Attach(load);
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));

    // A new value at the 1st, 11th (750 ms on), 12th and 13th entries; the old one painted out
    // up to 55%, inclusive.
    Paints expected(10, {"05% ", text});
    for (auto const& paint :
         Paints{{"05% ", back}, {"55% ", text}, {"55% ", back}, {"60% ", text}, {"65% ", text}})
        expected.push_back(paint);
    EXPECT_EQ(Painted(bar), expected);

    HeadlessText first;
    ASSERT_TRUE(HeadlessTextAt(bar, 0, &first));
    EXPECT_EQ(first.flags, 0x42025u);
    EXPECT_EQ(first.backgroundMode, TRANSPARENT);
    EXPECT_EQ(first.rect.right, 200);
    EXPECT_EQ(first.rect.bottom, 18);
    HeadlessFont const& font = first.font;
    EXPECT_EQ(
        std::vector<int>({font.height, font.width, font.escapement, font.orientation, font.weight}),
        std::vector<int>({12, 10, 0, 0, 0}));
    EXPECT_EQ(std::vector<DWORD>({font.italic, font.underline, font.strikeOut, font.charSet,
                                  font.outPrecision, font.clipPrecision, font.quality,
                                  font.pitchAndFamily}),
              std::vector<DWORD>({0, 0, 0, 0, 6, 2, 0, 0x20}));
    EXPECT_STREQ(font.face, "");
    // Given back: the font freed, the context released; the bar back at 0.
    HeadlessFont freed;
    EXPECT_FALSE(HeadlessFontOf(first.fontHandle, &freed));
    unsigned out = 1;
    ASSERT_TRUE(HeadlessDCsOut(bar, &out));
    EXPECT_EQ(out, 0u);
    EXPECT_EQ(watch.bar.Position(), 0u);

    // The tick counter wraps: 0xFFFFFF00 to 0x1EE is 750 ms.
    unsigned before = 0;
    ASSERT_TRUE(HeadlessTextCount(bar, &before));
    watch.ticks.assign(13, 0x1EE);
    watch.ticks[0] = 0xFFFFFF00;
    watch.ticks[1] = 0x1ED;
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    auto const wrapped = Painted(bar, before);
    ASSERT_GE(wrapped.size(), 4u);
    EXPECT_EQ(Paints(wrapped.begin(), wrapped.begin() + 4),
              Paints({{"05% ", text}, {"05% ", text}, {"05% ", back}, {"15% ", text}}));

    // A bar without a range shows 0%.
    watch.bar.SetRange(0, 0, -1);
    ASSERT_TRUE(HeadlessTextCount(bar, &before));
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    EXPECT_EQ(Painted(bar, before).front(), std::make_pair(std::string("00% "), text));
}

TEST(SearchFeedback, ShowsTheShareOfMatchesAndTheDirectory) {
    TempTree tree;
    MakeFiles(tree, "t1", 2, ".txt");
    MakeFiles(tree, "t2", 2, ".log");
    Watch watch;
    std::vector<std::string> shares, statuses;
    // What each control shows when it is redrawn.
    unsigned percentRedraws = 0, statusRedraws = 0;
    Hook<DText> percent(watch.percent, [&](DText& control) {
        if (control.RedrawCount() != percentRedraws)
            shares.push_back(Shown(control.Text()));
        percentRedraws = control.RedrawCount();
    });
    Hook<DStatusWnd> status(watch.status, [&](DStatusWnd& control) {
        if (control.RedrawCount() != statusRedraws)
            statuses.push_back(Shown(control.Text()));
        statusRedraws = control.RedrawCount();
    });
    DirectoryListingSpec spec("*.txt");
    spec.directories.InsertRight(DName(tree.WinPath("t1").c_str()));
    spec.directories.InsertRight(DName(tree.WinPath("t2").c_str()));
    Clock clock(500);
    DFileLoad load;
    watch.Attach(load);
    ASSERT_TRUE(load.LoadAllDirListings(spec, false));

    // Each text is redrawn once it is set; it shows the entries before the one arriving.
    EXPECT_EQ(shares, (std::vector<std::string>{"0.00%", "100.00%", "100.00%", "66.67%"}));
    EXPECT_EQ(Shown(watch.percent.Text()), "66.67%");
    EXPECT_EQ(statuses, (std::vector<std::string>{tree.WinPath("t1"), tree.WinPath("t2")}));
    EXPECT_EQ(Shown(watch.status.Text()), " ");

    // Without controls, the same records and tallies.
    DFileLoad bare;
    ASSERT_TRUE(bare.LoadAllDirListings(spec, false));
    EXPECT_EQ(bare.files.count, load.files.count);
    EXPECT_EQ(bare.totalSearched, load.totalSearched);
    EXPECT_EQ(bare.totalMatches, load.totalMatches);
}

TEST(SearchFeedback, DrawsNewRowsInBatchesWhileTheListIsHidden) {
    ONLY_ON_POSIX_BACKEND("the headless windows and the clock hook");
    TempTree tree;
    MakeFiles(tree, "t", 5);
    Watch watch;
    HWND const list = WindowOf(watch.list);
    struct Drawn {
        unsigned rows;
        HeadlessRegion region;
    };
    std::vector<Drawn> drawn;
    Hook<DListControl> rows(watch.list, [&](DListControl& control) {
        Drawn seen = {control.RowCount(), {}};
        HeadlessRegionOf(list, &seen.region);
        if (seen.rows > 0)
            drawn.push_back(seen);
    });
    Clock clock(0);
    watch.ticks = {1000, 1500, 1699, 1700, 2000}; // rows at the 1st and the 4th entry
    DFileLoad load;
    watch.Attach(load);
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));

    ASSERT_EQ(drawn.size(), 5u);
    for (unsigned i = 0; i < drawn.size(); ++i) {
        EXPECT_EQ(drawn[i].rows, i + 1);
        EXPECT_EQ(drawn[i].region.whole, i == 4) << i; // the last at the end, not hidden
    }
    EXPECT_EQ(drawn[0].region.rect.left, 1);
    EXPECT_EQ(drawn[0].region.rect.top, 1);
    EXPECT_EQ(drawn[0].region.rect.right, 2);
    EXPECT_EQ(drawn[0].region.rect.bottom, 2);
    HeadlessRegion region;
    ASSERT_TRUE(HeadlessRegionOf(list, &region));
    EXPECT_TRUE(region.whole);
    EXPECT_EQ(region.changes, 4u);
    EXPECT_FALSE(region.redrawAsked);
    for (unsigned row = 0; row < 5; ++row)
        EXPECT_EQ(Shown(watch.list.CellImage(row, 0)), &load.files[row].fullPath);

    // An interval that never comes up: every row at the end, the list never hidden.
    drawn.clear();
    watch.ticks.assign(5, 500);
    now = 500;
    DFileLoad quick;
    watch.Attach(quick);
    ASSERT_TRUE(quick.LoadDirListing(In(tree, "t")));
    ASSERT_EQ(drawn.size(), 5u);
    EXPECT_TRUE(drawn[0].region.whole);
    ASSERT_TRUE(HeadlessRegionOf(list, &region));
    EXPECT_EQ(region.changes, 4u);

    // Counting only: the list is emptied and the records the listing holds drawn anew.
    MakeFiles(tree, "u", 2);
    drawn.clear();
    ASSERT_EQ(quick.GetTotalDirListings(In(tree, "u"), false), 2u);
    EXPECT_EQ(quick.files.count, 5u);
    EXPECT_EQ(watch.list.RowCount(), 5u);
    EXPECT_EQ(drawn.front().rows, 1u);
    EXPECT_EQ(Shown(watch.list.CellImage(0, 0)), &quick.files[0].fullPath);
}

TEST(SearchFeedback, DropsABarWithoutDeviceContext) {
    ONLY_ON_POSIX_BACKEND("the headless windows and the clock hook");
    TempTree tree;
    MakeFiles(tree, "t", 3);
    Watch watch;
    HWND const bar = WindowOf(watch.bar);
    ASSERT_TRUE(HeadlessFailGetDC(bar, true));
    watch.bar.SetPos(7, -1);
    Clock clock(5000);
    DFileLoad load;
    watch.Attach(load);
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));

    EXPECT_EQ(load.progressBar, nullptr);
    EXPECT_EQ(watch.bar.Position(), 7u); // nor reset at the end
    unsigned painted = 1;
    ASSERT_TRUE(HeadlessTextCount(bar, &painted));
    EXPECT_EQ(painted, 0u);
    EXPECT_EQ(Shown(watch.percent.Text()), "100.00%");
    EXPECT_EQ(Shown(watch.status.Text()), " ");
    EXPECT_EQ(watch.list.RowCount(), 3u);

    ASSERT_TRUE(HeadlessFailGetDC(bar, false));
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t"))); // still given up
    ASSERT_TRUE(HeadlessTextCount(bar, &painted));
    EXPECT_EQ(painted, 0u);
    watch.Attach(load);
    ASSERT_TRUE(load.LoadDirListing(In(tree, "t")));
    ASSERT_TRUE(HeadlessTextCount(bar, &painted));
    EXPECT_EQ(painted, 3u);
}

namespace {

// A clock that asks `abortAtTick` to stop at its third reading.
DFileLoad* abortAtTick = nullptr;
unsigned tickCalls = 0;
DWORD AbortAtThirdTick() {
    if (++tickCalls == 3 && abortAtTick)
        abortAtTick->SetAbort();
    return 500;
}

} // namespace

TEST(SearchFeedback, StopsWhenAsked) {
    ONLY_ON_POSIX_BACKEND("the headless windows and the clock hook");
    TempTree tree;
    MakeFiles(tree, "a", 3);
    MakeFiles(tree, "a/sub", 2);
    Watch watch;
    std::vector<std::string> statuses;
    Hook<DStatusWnd> status(
        watch.status, [&](DStatusWnd& control) { statuses.push_back(Shown(control.Text())); });
    DFileLoad load;
    watch.Attach(load);
    load.SetAbort(); // no run
    EXPECT_FALSE(load.abortRequested);
    EXPECT_TRUE(statuses.empty());

    // From the status window's redraw at the second directory: the run stops there, with its
    // records but without their rows, and keeps its message.
    bool const takeBack[] = {false, true};
    for (bool clear : takeBack) {
        statuses.clear();
        bool asked = false;
        status.act = [&](DStatusWnd& control) {
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
        EXPECT_FALSE(load.abortRequested);
        EXPECT_FALSE(load.searching);
        if (clear) {
            EXPECT_EQ(Shown(watch.status.Text()), " ");
            EXPECT_EQ(load.files.count, 6u);
            continue;
        }
        EXPECT_EQ(load.files.count, 4u);
        EXPECT_EQ(watch.list.RowCount(), 0u);
        ASSERT_GE(statuses.size(), 2u);
        EXPECT_EQ(statuses[statuses.size() - 2], "Please wait while cleaning up for abort...");
        EXPECT_EQ(statuses.back(), "Stopped processing folders.");
        EXPECT_EQ(Shown(watch.status.Text()), "Stopped processing folders.");
    }

    // While rows are drawn, at the last entry: they stop after the row, the run ends well.
    status.act = [](DStatusWnd&) {};
    Hook<DListControl> rows(watch.list, [&](DListControl& control) {
        if (control.RowCount() == 2 && !load.abortRequested)
            load.SetAbort();
    });
    Clock clock(0);
    watch.ticks = {500, 500, 500, 1000};
    load.Destroy();
    EXPECT_TRUE(load.LoadDirListing(In(tree, "a")));
    EXPECT_EQ(load.files.count, 4u);
    EXPECT_EQ(watch.list.RowCount(), 2u);
    EXPECT_EQ(Shown(watch.status.Text()), " ");
}

TEST(SearchFeedback, StopsWithoutStatusWindow) {
    ONLY_ON_POSIX_BACKEND("the headless windows and the clock hook");
    TempTree tree;
    MakeFiles(tree, "t", 4);
    DListControl list;
    DFileLoad load;
    load.SetupControls(nullptr, nullptr, nullptr, &list);
    abortAtTick = &load;
    tickCalls = 0;
    SetTickSource(AbortAtThirdTick); // the start, then one a row check
    bool const finished = load.LoadDirListing(In(tree, "t"));
    SetTickSource(nullptr);
    abortAtTick = nullptr;
    EXPECT_FALSE(finished);
    EXPECT_EQ(load.totalSearched, 2u);
    EXPECT_EQ(list.RowCount(), 0u);
}

TEST(SearchFeedback, StopsFromAnotherThread) {
    TempTree tree;
    int const dirs = 30, files = 30;
    tree.MakeDir("t");
    for (int d = 0; d < dirs; ++d)
        MakeFiles(tree, "t/d" + std::to_string(d), files);
    DStatusWnd status;
    std::promise<void> started;
    bool signalled = false;
    Hook<DStatusWnd> hook(status, [&](DStatusWnd&) {
        if (!signalled) {
            signalled = true;
            started.set_value();
        }
    });
    DFileLoad load;
    load.SetupControls(nullptr, nullptr, &status, nullptr);
    std::thread stopper([&load, run = started.get_future()]() {
        run.wait();
        load.SetAbort();
    });
    bool const finished = load.LoadAllDirListings(In(tree, "t"), true);
    if (!signalled)
        started.set_value();
    stopper.join();

    // Seen or not, the outcome hangs together.
    DWORD const all = dirs + dirs * files;
    EXPECT_EQ(load.files.count, load.totalMatches);
    if (finished) {
        EXPECT_EQ(load.totalSearched, all);
    } else {
        EXPECT_LT(load.totalSearched, all);
        // The other thread may write its message after the run wrote its own.
        std::string const shown = Shown(status.Text());
        EXPECT_TRUE(shown == "Stopped processing folders." ||
                    shown == "Please wait while cleaning up for abort...")
            << shown;
    }
}
