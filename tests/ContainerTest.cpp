#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

DFile Record(char const* path, DWORD size = 0) {
    return DFile(DName(path), 0x20, size, nullptr, nullptr, nullptr);
}

std::vector<std::string> Paths(Container<DFile> const& list) {
    std::vector<std::string> paths;
    for (DFile* file = list.head; file; file = file->next)
        paths.push_back(&file->fullPath);
    return paths;
}

using Paths_t = std::vector<std::string>;

} // namespace

TEST(Container, PositionsPastTheEndGiveTheFirstElement) {
    Container<DFile> list;
    EXPECT_EQ(list(0), nullptr);
    list.InsertRight(Record("a"));
    list.InsertRight(Record("b"));
    list.InsertRight(Record("c"));
    EXPECT_STREQ(&list[1], "b");
    EXPECT_STREQ(&list[3], "a");
    EXPECT_STREQ(&list[1000], "a");
    EXPECT_EQ(list(2), list.head->next->next);
    // Going back after a forward walk still finds the right element.
    EXPECT_STREQ(&list[0], "a");
}

TEST(Container, InsertsKeepChainCountAndEnd) {
    Container<DFile> list;
    list.InsertPos(5, Record("only")); // empty list: becomes the first
    EXPECT_EQ(Paths(list), (Paths_t{"only"}));
    list.InsertPos(0, Record("first"));
    list.InsertPos(1, Record("middle"));
    list.InsertPos(99, Record("last")); // past the end: appended
    list.InsertLeft(Record("head"));
    EXPECT_EQ(Paths(list), (Paths_t{"head", "first", "middle", "only", "last"}));
    EXPECT_EQ(list.count, 5u);
    list.InsertRight(Record("tail"));
    EXPECT_STREQ(&list[5], "tail");
    EXPECT_EQ(list[5].next, nullptr);
}

TEST(Container, InsertingAnElementOfAnotherListLeavesThatListAlone) {
    Container<DFile> one, two;
    one.InsertRight(Record("a"));
    one.InsertRight(Record("b"));
    two.InsertRight(*one.head); // its link points into `one`
    EXPECT_EQ(two.head->next, nullptr);
    EXPECT_EQ(Paths(one), (Paths_t{"a", "b"}));
    two.InsertRight(Record("c"));
    EXPECT_EQ(Paths(two), (Paths_t{"a", "c"}));
    EXPECT_EQ(Paths(one), (Paths_t{"a", "b"}));
}

TEST(Container, DeletesAtEveryPlaceKeepTheEndRight) {
    Container<DFile> list;
    EXPECT_FALSE(list.DelLeft());
    EXPECT_FALSE(list.DelRight());
    for (char const* path : {"a", "b", "c", "d"})
        list.InsertRight(Record(path));
    EXPECT_FALSE(list.DelPos(4));
    EXPECT_EQ(list.count, 4u);
    EXPECT_TRUE(list.DelRight());
    list.InsertRight(Record("e")); // appended after the new last element
    EXPECT_TRUE(list.DelPos(1));
    EXPECT_TRUE(list.DelLeft());
    EXPECT_EQ(Paths(list), (Paths_t{"c", "e"}));
    EXPECT_TRUE(list.DelPos(1));
    EXPECT_TRUE(list.DelRight());
    EXPECT_EQ(list.count, 0u);
    EXPECT_EQ(list.head, nullptr);
    list.InsertRight(Record("new"));
    EXPECT_EQ(Paths(list), (Paths_t{"new"}));
}

TEST(Container, AssignmentCopiesEveryElementOrEmpties) {
    Container<DFile> source, target;
    source.InsertRight(Record("a", 1));
    source.InsertRight(Record("b", 2));
    target.InsertRight(Record("old"));
    EXPECT_TRUE(target = source);
    EXPECT_EQ(Paths(target), (Paths_t{"a", "b"}));
    EXPECT_NE(target.head, source.head);
    Container<DFile> empty;
    EXPECT_FALSE(target = empty);
    EXPECT_EQ(target.count, 0u);
    EXPECT_EQ(target.head, nullptr);
}

TEST(Container, CopyPosAndReplacePosCopyContentsNotLinks) {
    Container<DFile> list;
    list.InsertRight(Record("a", 1));
    list.InsertRight(Record("b", 2));
    DFile* second = list.head->next;
    EXPECT_FALSE(list.CopyPos(0, 0));
    EXPECT_FALSE(list.CopyPos(2, 0));
    EXPECT_TRUE(list.CopyPos(1, 0));
    EXPECT_EQ(list.head->next, second);
    EXPECT_STREQ(&list[1], "a");
    EXPECT_EQ(list[1].sizeLow, 1u);
    EXPECT_TRUE(list.ReplacePos(0, Record("z", 9)));
    EXPECT_FALSE(list.ReplacePos(2, Record("y")));
    EXPECT_EQ(Paths(list), (Paths_t{"z", "a"}));
}

TEST(Container, RelinkedFindsTheEndAfterAHandMadeChain) {
    Container<DFile> list;
    for (char const* path : {"a", "b", "c"})
        list.InsertRight(Record(path));
    // Reverse the chain by hand.
    DFile* previous = nullptr;
    DFile* file = list.head;
    while (file) {
        DFile* following = file->next;
        file->next = previous;
        previous = file;
        file = following;
    }
    list.head = previous;
    list.Relinked();
    list.InsertRight(Record("d"));
    EXPECT_EQ(Paths(list), (Paths_t{"c", "b", "a", "d"}));
    EXPECT_STREQ(&list[3], "d");
}

TEST(Link, AppendReplaceAndRead) {
    Link<bool> flags;
    EXPECT_EQ(flags(0), nullptr);
    EXPECT_FALSE(flags.DelLeft());
    flags.InsertRight(false);
    flags.InsertRight(false);
    flags.InsertRight(false);
    EXPECT_TRUE(flags.ReplacePos(2, true));
    EXPECT_TRUE(flags.ReplacePos(0, true));
    EXPECT_FALSE(flags.ReplacePos(3, true));
    EXPECT_EQ(flags.count, 3u);
    EXPECT_TRUE(*flags(0));
    EXPECT_FALSE(*flags(1));
    EXPECT_TRUE(*flags(2));
    EXPECT_EQ(flags(3), nullptr);
    Link<bool> copy(flags);
    EXPECT_TRUE(flags.DelLeft());
    flags.InsertRight(false);
    EXPECT_EQ(copy.count, 3u);
    EXPECT_TRUE(*copy(0));
    EXPECT_FALSE(*flags(2));
    EXPECT_FALSE(*flags(0));
}
