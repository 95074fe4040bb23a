#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

// The paths of the listing in order, separated by blanks.
std::string Names(DFileLoad const& load) {
    std::string names;
    for (DFile const* file = load.files.head; file; file = file->next)
        names += (names.empty() ? "" : " ") + std::string(&file->GetFullPath());
    return names;
}

void Add(DFileLoad& load, char const* paths) {
    std::string const text = paths;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const end = std::min(text.find(' ', at), text.size());
        std::string const path = text.substr(at, end - at);
        load.InsertRight(
            DFile(DName(path.c_str()), path[0] == 'D' ? 0x10 : 0x20, 1, nullptr, nullptr, nullptr));
        at = end + 1;
    }
}

int control;

// Something in each kind of field: lists, the search criteria, the found record, names,
// tallies, flags and an attached control.
void FillAll(DFileLoad& load) {
    Add(load, "F1 D1");
    load.spec.namePatterns.InsertRight(DName("*.txt"));
    load.spec.streamByte = 8;
    load.foundFile = "C:\\found";
    load.foundFile.dataEncrypted = true;
    load.foundFile.next = load.files.head;
    load.browseTitle = "title";
    load.browseNames.InsertRight(DName("chosen"));
    load.totalReadOnlySize = 14;
    load.openFileFlags = 5;
    load.progressBar = reinterpret_cast<DProgressBar*>(&control);
}

void ExpectSameValues(DFileLoad const& copy, DFileLoad const& source) {
    EXPECT_EQ(Names(copy), Names(source));
    EXPECT_NE(copy.files.head, source.files.head);
    ASSERT_EQ(copy.spec.namePatterns.count, 1u);
    EXPECT_STREQ(&copy.spec.namePatterns[0], "*.txt");
    EXPECT_STREQ(&copy.foundFile.GetFullPath(), "C:\\found");
    EXPECT_STREQ(&copy.browseTitle, "title");
    ASSERT_EQ(copy.browseNames.count, 1u);
    EXPECT_NE(copy.browseNames.head, source.browseNames.head);
    EXPECT_EQ(copy.totalReadOnlySize, 14u);
    EXPECT_EQ(copy.openFileFlags, 5u);
    EXPECT_EQ(copy.progressBar, source.progressBar);
}

} // namespace

TEST(ListingCopies, CopiesAreValuesOfTheirOwn) {
    DFileLoad source;
    FillAll(source);
    DFileLoad copy(source);
    ExpectSameValues(copy, source);
    EXPECT_EQ(copy.spec.streamByte, 0);
    EXPECT_TRUE(copy.foundFile.isDataEncrypted());
    EXPECT_EQ(copy.foundFile.next, source.files.head);
    copy.DelLeft();
    copy.browseNames.Destroy();
    EXPECT_EQ(Names(source), "F1 D1");
    EXPECT_EQ(source.browseNames.count, 1u);
    DFileLoad const fresh;
    EXPECT_EQ(DFileLoad(fresh).openFileFlags, 0xAA9A11u);

    // The assignment rebuilds the lists and keeps what the target's spec and record own.
    DFileLoad target;
    Add(target, "D7 F7 F8");
    target.spec.streamByte = 9;
    DFile anchor;
    target.foundFile.next = std::addressof(anchor);
    target.browseNames.InsertRight(DName("old"));
    target.browseNames.InsertRight(DName("older"));
    DFileLoad& result = (target = source);
    EXPECT_EQ(&result, &target);
    ExpectSameValues(target, source);
    EXPECT_EQ(target.spec.streamByte, 9);
    EXPECT_FALSE(target.foundFile.isDataEncrypted());
    EXPECT_EQ(target.foundFile.next, std::addressof(anchor));

    DFileLoad& same = target;
    target = same;
    ExpectSameValues(target, source);
}

TEST(ListingCopies, ACopyNeverSharesAnOpenCursor) {
    TempTree tree;
    tree.MakeDir("d");
    for (char const* name : {"d/1", "d/2", "d/3"})
        tree.MakeFile(name);
    DName const dir(tree.WinPath("d").c_str());
    DFileLoad source;
    ASSERT_TRUE(source.OpenDirListing(DirectoryListingSpec(), dir, 0));
    {
        DFileLoad copy(source);
        EXPECT_FALSE(copy.isOpen());
        EXPECT_EQ(copy.GetFoundFile().GetFullPath(), source.GetFoundFile().GetFullPath());
        DFileLoad assigned;
        ASSERT_TRUE(assigned.OpenDirListing(DirectoryListingSpec(), dir, 0));
        assigned = source;
        EXPECT_FALSE(assigned.isOpen()); // its own cursor closed, the source's not taken
        DFileLoad& same = source;
        source = same;
        EXPECT_TRUE(source.isOpen());
    } // the copies end without closing the source's enumeration
    EXPECT_TRUE(++source);
    EXPECT_TRUE(++source);
    EXPECT_FALSE(++source);
}

TEST(ListingCopies, ComparisonsLookAtTheCountOnly) {
    DFileLoad a, b;
    Add(a, "F1 F2 F3");
    Add(b, "D1 D2 D3");
    EXPECT_TRUE(a == b && !(a != b));
    EXPECT_TRUE(a == 3u && !(a != 3u) && a != 2u);
    EXPECT_TRUE(a < 4u && !(a < 3u) && a > 2u && !(a > 3u));
    EXPECT_TRUE(a >= 3u && !(a >= 4u) && a <= 3u && !(a <= 2u));
    b.DelLeft();
    EXPECT_TRUE(a != b && !(a == b));
}

TEST(ListingCopies, ThinningKeepsOrderAndTheListUsable) {
    DFileLoad load;
    Add(load, "D1 F1 D2 F2 F3 D3");
    DFileLoad other(load);
    EXPECT_TRUE(load.RemDirs());
    EXPECT_EQ(Names(load), "F1 F2 F3");
    EXPECT_STREQ(&load[2].GetFullPath(), "F3");
    Add(load, "F4");
    EXPECT_EQ(Names(load), "F1 F2 F3 F4");
    EXPECT_EQ(load.Size(), 4u);

    EXPECT_TRUE(other.RemFiles());
    EXPECT_EQ(Names(other), "D1 D2 D3");
    EXPECT_TRUE(other.RemDirs());
    EXPECT_TRUE(other.isEmpty() && other.files.head == nullptr);
    EXPECT_TRUE(other.RemFiles());
    Add(other, "new");
    EXPECT_EQ(Names(other), "new");

    DFileLoad broken; // a chain that ends before its count
    Add(broken, "F D");
    broken.files.count = 3;
    EXPECT_FALSE(broken.RemDirs());
    EXPECT_EQ(Names(broken), "F");
    broken.files.count = 1;
}
