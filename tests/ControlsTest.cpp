#include <tessik/Controls.h>
#include <tessik/headless.h>

#include "support/Backend.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string Shown(DName const& name) {
    return std::string(&name, name.Size());
}

std::vector<DWORD> Values(Link<DWORD> const& link) {
    std::vector<DWORD> values;
    for (unsigned at = 0; at < link.count; ++at)
        values.push_back(link(at) ? *link(at) : 0xDEAD);
    return values;
}

void Fill(Link<DWORD>& link, std::vector<DWORD> const& values) {
    for (DWORD value : values)
        link.InsertRight(value);
}

// Every class copies the shared fields, empties the target's list first and returns itself.
template <class Control> void CheckSharedFields() {
    Control source;
    Control target;
    Fill(source.tags, {7, 8, 9});
    Fill(target.tags, {1, 2, 3, 4});
    source.helpId = 55;
    source.enabled = 0;
    source.rangeStep = 3;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(Values(target.tags), (std::vector<DWORD>{7, 8, 9}));
    EXPECT_EQ(target.helpId, 55u);
    EXPECT_EQ(target.enabled, 0);
    EXPECT_EQ(target.rangeStep, 3u);
    EXPECT_NE(target.GetHandle(-1, nullptr), source.GetHandle(-1, nullptr));

    Control const empty;
    target = empty;
    EXPECT_EQ(target.tags.count, 0u);
    EXPECT_EQ(target.tags.head, nullptr);
}

struct Changes {
    int calls = 0;
    DIBasics const* last = nullptr;
};

void Count(void* user, DIBasics const& control) {
    Changes* changes = static_cast<Changes*>(user);
    ++changes->calls;
    changes->last = &control;
}

} // namespace

TEST(ControlsTest, FeedbackControlsShowWhatTheyAreGiven) {
    DProgressBar bar(0, 0, nullptr, 12);
    EXPECT_EQ(bar.GetRange(-1), 0u);
    bar.SetRange(5, 400, -1);
    bar.SetPos(250, 12);
    EXPECT_EQ(bar.GetRange(12), 400u);
    EXPECT_EQ(bar.rangeLow, 5u);
    EXPECT_EQ(bar.Position(), 250u);
    bar.SetPos(9, 13); // another control's id
    bar.SetRange(1, 2, 13);
    EXPECT_EQ(bar.Position(), 250u);
    EXPECT_EQ(bar.GetRange(13), 0u);
    EXPECT_EQ(bar.GetRange(-1), 400u);
    EXPECT_EQ(DProgressBar(3, 90).GetRange(-1), 90u);

    DText percent;
    EXPECT_TRUE(percent.Set(DName("12.50%")));
    EXPECT_EQ(Shown(percent.Text()), "12.50%");

    DStatusWnd status;
    EXPECT_EQ(status.controlId, 1194u);
    EXPECT_TRUE(status.Text().isEmpty());
    status.SetText(DName("Z:\\home"));
    EXPECT_EQ(Shown(status.Text()), "Z:\\home");
    EXPECT_EQ(Shown(DStatusWnd(DName("ready")).Text()), "ready");
    EXPECT_EQ(Shown(DMenu("File").Text()), "File");
    EXPECT_EQ(Shown(DSystemTray(nullptr, nullptr, DName("tip"), 4).Text()), "tip");
}

TEST(ControlsTest, ListKeepsSparseCells) {
    DListControl list;
    EXPECT_EQ(list.GetReportStyle(), 0xFFu);
    list.SetReportStyle(1 + 8 + 128);
    EXPECT_EQ(list.GetReportStyle(), 137u);

    EXPECT_TRUE(list.SetImage(DName("a.txt"), "Z:\\d\\a.txt", 5, 0));
    EXPECT_TRUE(list.SetText(DName("Z:\\d\\"), 5, 2));
    EXPECT_TRUE(list.SetInt(4000000000u, 4000000000u, 31));
    EXPECT_FALSE(list.SetText(DName("x"), 1, DListControl::maxColumns));
    EXPECT_FALSE(list.SetImage(DName("x"), nullptr, 1, 0));
    EXPECT_EQ(list.RowCount(), 2u);
    EXPECT_EQ(Shown(list.CellText(5, 0)), "a.txt");
    EXPECT_EQ(Shown(list.CellImage(5, 0)), "Z:\\d\\a.txt");
    EXPECT_EQ(Shown(list.CellText(5, 2)), "Z:\\d\\");
    EXPECT_TRUE(list.CellImage(5, 2).isEmpty());
    EXPECT_TRUE(list.CellText(5, 1).isEmpty());
    EXPECT_EQ(Shown(list.CellText(4000000000u, 31)), "4000000000");
    EXPECT_TRUE(list.SetText(DName("b"), 5, 0)); // overwrites text and image
    EXPECT_EQ(Shown(list.CellText(5, 0)), "b");
    EXPECT_TRUE(list.CellImage(5, 0).isEmpty());

    unsigned row = 0;
    EXPECT_TRUE(list.NextRow(0, &row));
    EXPECT_EQ(row, 5u);
    EXPECT_TRUE(list.NextRow(6, &row));
    EXPECT_EQ(row, 4000000000u);
    EXPECT_FALSE(list.NextRow(4000000001u, &row));

    EXPECT_TRUE(list.CreateIcons());
    EXPECT_TRUE(list.HasIcons());
    list.Reset();
    EXPECT_EQ(list.RowCount(), 0u);
    EXPECT_FALSE(list.HasIcons());
    EXPECT_TRUE(list.CellText(5, 2).isEmpty());
}

TEST(ControlsTest, HostIsToldOfEveryChange) {
    Changes changes;
    DListControl list;
    list.SetChangeCallback(Count, &changes);
    list.SetText(DName("a"), 0, 0);
    list.SetInt(3, 0, 1);
    list.SetImage(DName("a"), "Z:\\a", 0, 0);
    list.SetText(DName("a"), 0, 99); // fails: nothing changed
    list.Reset();
    list.CreateIcons();
    list.SetReportStyle(1);
    EXPECT_EQ(changes.calls, 6);
    EXPECT_EQ(changes.last, &list);

    DProgressBar bar;
    bar.SetChangeCallback(Count, &changes);
    bar.SetPos(1, -1);
    bar.SetRange(0, 9, -1);
    EXPECT_TRUE(bar.Redraw(-1));
    EXPECT_FALSE(bar.Redraw(4)); // another id: no redraw
    EXPECT_EQ(bar.RedrawCount(), 1u);
    EXPECT_EQ(changes.calls, 9);
    EXPECT_EQ(changes.last, &bar);

    DText percent;
    percent.SetChangeCallback(Count, &changes);
    percent.Set(DName("1%"));
    percent.SetChangeCallback(nullptr, nullptr);
    percent.Set(DName("2%"));
    EXPECT_EQ(changes.calls, 10);
    EXPECT_EQ(changes.last, &percent);
}

TEST(ControlsTest, AssignmentCopiesFieldsInOrderButNotContent) {
    CheckSharedFields<DIBasics>();
    CheckSharedFields<DText>();
    CheckSharedFields<DButton>();
    CheckSharedFields<DCheckBox>();
    CheckSharedFields<DComboBox>();
    CheckSharedFields<DListBox>();
    CheckSharedFields<DListControl>();
    CheckSharedFields<DMenu>();
    CheckSharedFields<DMsgBox>();
    CheckSharedFields<DPopup>();
    CheckSharedFields<DProgressBar>();
    CheckSharedFields<DSlider>();
    CheckSharedFields<DStatic>();
    CheckSharedFields<DStatusWnd>();
    CheckSharedFields<DSystemTray>();
    CheckSharedFields<DTabControl>();
    CheckSharedFields<DToolTip>();

    Changes changes;
    DListControl target;
    target.SetText(DName("kept"), 3, 0);
    Fill(target.columnWidths, {1, 2});
    {
        DListControl source;
        source.SetText(DName("not copied"), 0, 0);
        source.SetChangeCallback(Count, &changes);
        source.reportStyle = 9;
        source.gridColour = 77;
        Fill(source.columnWidths, {100, 200, 300});
        target = source;
        target = target;
    }
    EXPECT_EQ(Values(target.columnWidths), (std::vector<DWORD>{100, 200, 300}));
    EXPECT_EQ(target.reportStyle, 9u);
    EXPECT_EQ(target.gridColour, 77u);
    EXPECT_EQ(Shown(target.CellText(3, 0)), "kept");
    EXPECT_EQ(target.RowCount(), 1u);
    target.Reset();
    EXPECT_EQ(changes.calls, 0); // the callback stayed with the source

    DMsgBox box;
    box.caption = DName("Question");
    box.controlId = 8;
    Fill(box.tags, {4});
    DMsgBox const copy(box);
    EXPECT_EQ(Shown(copy.caption), "Question");
    EXPECT_EQ(copy.controlId, 8u);
    EXPECT_EQ(Values(copy.tags), (std::vector<DWORD>{4}));
    EXPECT_NE(copy.tags.head, box.tags.head);
    EXPECT_NE(copy.GetHandle(-1, nullptr), box.GetHandle(-1, nullptr));

    DSystemTray tray;
    Fill(tray.menuCommands, {10, 20});
    DSystemTray other;
    other = tray;
    EXPECT_EQ(Values(other.menuCommands), (std::vector<DWORD>{10, 20}));
    EXPECT_NE(other.menuCommands.head, tray.menuCommands.head);
}

TEST(ControlsTest, EachControlOwnsAHeadlessWindow) {
    ONLY_ON_POSIX_BACKEND("the headless windows");
    HWND parentWindow = nullptr;
    HWND childWindow = nullptr;
    {
        DStatic parent;
        DProgressBar bar(0, 100, parent.GetHandle(-1, nullptr), 3);
        parentWindow = parent.GetHandle(-1, nullptr);
        childWindow = bar.GetHandle(-1, nullptr);
        ASSERT_TRUE(IsWindow(parentWindow));
        ASSERT_TRUE(IsWindow(childWindow));
        EXPECT_EQ(bar.GetHandle(3, parentWindow), childWindow);
        EXPECT_EQ(bar.GetHandle(-1, childWindow), nullptr); // not its parent
        EXPECT_EQ(bar.GetHandle(4, nullptr), nullptr);
        EXPECT_EQ(bar.style, static_cast<DWORD>(WS_CHILD));

        RECT rect = {1, 1, 1, 1};
        ASSERT_TRUE(GetClientRect(childWindow, &rect));
        EXPECT_EQ(rect.left, 0);
        EXPECT_GT(rect.right, rect.bottom);
        COLORREF pixel = 0;
        bool whole = false;
        unsigned painted = 9;
        ASSERT_TRUE(HeadlessPixel(childWindow, &pixel));
        ASSERT_TRUE(HeadlessWholeRegion(childWindow, &whole));
        ASSERT_TRUE(HeadlessTextCount(childWindow, &painted));
        EXPECT_EQ(pixel, 0x00F0F0F0u);
        EXPECT_TRUE(whole);
        EXPECT_EQ(painted, 0u);
        HeadlessText text;
        EXPECT_FALSE(HeadlessTextAt(childWindow, 0, &text));
        EXPECT_TRUE(HeadlessFailGetDC(childWindow, true));

        // A parent that is not a window gives no window, but the control still works.
        HWND const gone =
            CreateWindowExA(0, "STATIC", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(DestroyWindow(gone));
        EXPECT_FALSE(DestroyWindow(gone));
        DText orphan(gone);
        EXPECT_EQ(orphan.GetHandle(-1, nullptr), nullptr);
        EXPECT_TRUE(orphan.Set(DName("5%")));
        EXPECT_FALSE(orphan.Redraw(-1));
        EXPECT_EQ(orphan.RedrawCount(), 1u);

        ASSERT_TRUE(DestroyWindow(parentWindow)); // takes the child with it
        EXPECT_FALSE(IsWindow(childWindow));
        EXPECT_FALSE(bar.Redraw(-1));
    }
    EXPECT_FALSE(IsWindow(parentWindow));
    RECT rect;
    EXPECT_FALSE(GetClientRect(childWindow, &rect));
    EXPECT_FALSE(HeadlessFailGetDC(childWindow, false));
    EXPECT_EQ(CreateWindowExA(0, nullptr, "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
              nullptr);

    HWND window = nullptr;
    {
        DListControl list;
        window = list.GetHandle(-1, nullptr);
        ASSERT_TRUE(IsWindow(window));
    }
    EXPECT_FALSE(IsWindow(window));
}
