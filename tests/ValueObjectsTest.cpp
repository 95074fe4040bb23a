#include "support/Records.h"

namespace {

std::vector<DWORD> Values(Link<DWORD> const& list) {
    std::vector<DWORD> values;
    for (auto* node = list.head; node; node = node->next)
        values.push_back(*node->value);
    return values;
}

// Assignment from an empty list, from a full one, onto itself, and with the source freed
// afterwards: under ASan a node shared by two objects shows as a double free.
template <class T> void CheckLists(Link<DWORD> T::*list) {
    T target;
    for (DWORD v : {1u, 2u, 3u})
        (target.*list).InsertRight(v);
    target = T();
    EXPECT_TRUE((target.*list).count == 0 && (target.*list).head == nullptr);
    {
        T source;
        for (DWORD v : {7u, 8u})
            (source.*list).InsertRight(v);
        target = source;
        target = target;
    }
    EXPECT_EQ(Values(target.*list), (std::vector<DWORD>{7, 8}));
}

template <class... T> void CheckTags() {
    (CheckLists<T>(&T::tags), ...);
}

} // namespace

TEST(ValueObjects, EveryControlCopiesItsListsNodeByNode) {
    CheckTags<DIBasics, DText, DButton, DCheckBox, DComboBox, DListBox, DListControl, DMenu,
              DMsgBox, DPopup, DProgressBar, DSlider, DStatic, DStatusWnd, DSystemTray, DTabControl,
              DToolTip>();
    CheckLists<DListControl>(&DListControl::columnWidths);
    CheckLists<DSystemTray>(&DSystemTray::menuCommands);
    DMsgBox empty;
    DMsgBox const copy(empty);
    EXPECT_EQ(copy.tags.head, nullptr);
}

// The stream's assignment is checked in FileOperTest.
TEST(ValueObjects, SmallClassesAssignByValue) {
    ShortName name("abc");
    DRect rect(1, 2, 3, 4);
    DName text("x");
    name = name, rect = rect, text = text;
    EXPECT_TRUE(name == ShortName("abc") && rect.Bottom() == 4 && text == "x");
}
