// The control value objects and the headless controls that the listing feeds.
#include "support/Records.h"

namespace {

struct Changes {
    int calls = 0;
    DIBasics const* last = nullptr;
    static void Count(void* user, DIBasics const& control) {
        ++static_cast<Changes*>(user)->calls;
        static_cast<Changes*>(user)->last = &control;
    }
};

} // namespace

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

    // What the search feeds the others is checked in SearchFeedbackTest; another id selects none.
    DProgressBar bar(0, 0, nullptr, 12);
    bar.SetChangeCallback(Changes::Count, &changes);
    EXPECT_TRUE(bar.Redraw(-1) && !bar.Redraw(4));
    bar.SetRange(5, 400, 12);
    bar.SetPos(9, 13);
    bar.SetRange(1, 2, 13);
    EXPECT_EQ(std::vector<DWORD>({bar.RedrawCount(), bar.GetRange(12), bar.GetRange(13),
                                  bar.rangeLow, bar.Position()}),
              std::vector<DWORD>({1, 400, 0, 5, 0}));
    bar.SetChangeCallback(nullptr, nullptr);
    bar.SetPos(1, -1);
    EXPECT_EQ(changes.calls, 7);
}

// The list's cells, callback and window stay where they are (its lists: ValueObjectsTest).
TEST(Controls, AssignmentCopiesFieldsButNotContent) {
    Changes changes;
    DListControl target;
    target.SetText(DName("kept"), 3, 0);
    {
        DListControl source;
        source.SetText(DName("not copied"), 0, 0);
        source.SetChangeCallback(Changes::Count, &changes);
        source.reportStyle = 9, source.gridColour = 77, source.helpId = 55;
        target = source;
        EXPECT_NE(target.GetHandle(-1, nullptr), source.GetHandle(-1, nullptr));
    }
    EXPECT_EQ(target.reportStyle + target.gridColour + target.helpId, 141u);
    EXPECT_EQ(Shown(target.CellText(3, 0)) + Shown(target.CellText(0, 0)), "kept");
    target.Reset();
    EXPECT_EQ(changes.calls, 0); // the callback stayed with the source
}
