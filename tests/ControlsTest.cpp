// The control value objects and the headless controls that the listing feeds.
#include "support/Records.h"

#include <tessik/Controls.h>
#include <tessik/headless.h>

#include "support/Backend.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

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

// Every class copies the shared fields, empties the target's list first, returns itself and
// keeps its own window.
template <class... Control> void CheckSharedFields() {
    auto check = [](auto source, auto target) {
        Fill(source.tags, {7, 8, 9});
        Fill(target.tags, {1, 2, 3, 4});
        source.helpId = 55, source.enabled = 0, source.rangeStep = 3;
        EXPECT_EQ(&(target = source), &target);
        EXPECT_EQ(Values(target.tags), (std::vector<DWORD>{7, 8, 9}));
        EXPECT_EQ(std::vector<DWORD>({target.helpId, DWORD(target.enabled), target.rangeStep}),
                  std::vector<DWORD>({55, 0, 3}));
        EXPECT_NE(target.GetHandle(-1, nullptr), source.GetHandle(-1, nullptr));
        target = decltype(source)();
        EXPECT_EQ(target.tags.head, nullptr);
    };
    (check(Control(), Control()), ...);
}

struct Changes {
    int calls = 0;
    DIBasics const* last = nullptr;
    static void Count(void* user, DIBasics const& control) {
        ++static_cast<Changes*>(user)->calls;
        static_cast<Changes*>(user)->last = &control;
    }
};

} // namespace

TEST(Controls, FeedbackControlsShowWhatTheyAreGivenUnderTheirId) {
    DProgressBar bar(0, 0, nullptr, 12);
    bar.SetRange(5, 400, -1);
    bar.SetPos(250, 12);
    bar.SetPos(9, 13); // another control's id
    bar.SetRange(1, 2, 13);
    EXPECT_EQ(std::vector<DWORD>({bar.GetRange(12), bar.GetRange(13), bar.rangeLow, bar.Position(),
                                  DProgressBar(3, 90).GetRange(-1)}),
              std::vector<DWORD>({400, 0, 5, 250, 90}));
    DText percent;
    EXPECT_TRUE(percent.Set(DName("12.50%")));
    EXPECT_EQ(Shown(percent.Text()), "12.50%");
    DStatusWnd status;
    EXPECT_EQ(status.controlId, 1194u);
    status.SetText(DName("Z:\\home"));
    EXPECT_EQ(Shown(status.Text()), "Z:\\home");
}

// Cells as rows are drawn are checked in ListDrawingTest; these are the edges.
TEST(Controls, ListKeepsSparseCellsAndTellsTheHost) {
    Changes changes;
    DListControl list;
    list.SetChangeCallback(Changes::Count, &changes);
    EXPECT_EQ(list.GetReportStyle(), 0xFFu);
    EXPECT_TRUE(list.SetImage(DName("a.txt"), "Z:\\a.txt", 5, 0) &&
                list.SetInt(4000000000u, 4000000000u, 31));
    EXPECT_FALSE(list.SetText(DName("x"), 1, DListControl::maxColumns) ||
                 list.SetImage(DName("x"), nullptr, 1, 0)); // no change
    EXPECT_TRUE(changes.calls == 2 && changes.last == &list && list.RowCount() == 2);
    EXPECT_EQ(Shown(list.CellText(4000000000u, 31)), "4000000000");
    EXPECT_TRUE(list.SetText(DName("b"), 5, 0)); // overwrites text and image
    EXPECT_EQ(Shown(list.CellText(5, 0)) + Shown(list.CellImage(5, 0)), "b");
    EXPECT_TRUE(list.CreateIcons() && list.HasIcons());
    list.Reset();
    EXPECT_FALSE(list.HasIcons() || list.RowCount() != 0);

    DProgressBar bar;
    bar.SetChangeCallback(Changes::Count, &changes);
    EXPECT_TRUE(bar.Redraw(-1));
    EXPECT_FALSE(bar.Redraw(4)); // another id: no redraw
    EXPECT_EQ(bar.RedrawCount(), 1u);
    bar.SetChangeCallback(nullptr, nullptr);
    bar.SetPos(1, -1);
    EXPECT_EQ(changes.calls, 6);
}

TEST(Controls, AssignmentCopiesFieldsInOrderButNotContent) {
    CheckSharedFields<DIBasics, DText, DButton, DCheckBox, DComboBox, DListBox, DListControl, DMenu,
                      DMsgBox, DPopup, DProgressBar, DSlider, DStatic, DStatusWnd, DSystemTray,
                      DTabControl, DToolTip>();
    Changes changes;
    DListControl target;
    target.SetText(DName("kept"), 3, 0);
    {
        DListControl source;
        source.SetText(DName("not copied"), 0, 0);
        source.SetChangeCallback(Changes::Count, &changes);
        source.reportStyle = 9, source.gridColour = 77;
        Fill(source.columnWidths, {100, 200, 300});
        target = source;
        target = target;
    }
    EXPECT_EQ(Values(target.columnWidths), (std::vector<DWORD>{100, 200, 300}));
    EXPECT_EQ(target.reportStyle + target.gridColour, 86u);
    EXPECT_EQ(Shown(target.CellText(3, 0)), "kept");
    target.Reset();
    EXPECT_EQ(changes.calls, 0); // the callback stayed with the source

    DMsgBox box;
    box.caption = DName("Question");
    Fill(box.tags, {4});
    DMsgBox const copy(box);
    EXPECT_EQ(Shown(copy.caption), "Question");
    EXPECT_NE(copy.tags.head, box.tags.head);
    DSystemTray tray, other;
    Fill(tray.menuCommands, {10, 20});
    other = tray;
    EXPECT_EQ(Values(other.menuCommands), (std::vector<DWORD>{10, 20}));
}

TEST(Controls, EachControlOwnsAHeadlessWindow) {
    ONLY_ON_POSIX_BACKEND("the headless windows");
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
