#include "support/Listing.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

// The paths of the listing in order, separated by blanks.
std::string Names(DFileLoad const& load) {
    std::string names;
    for (std::string const& path : PathsOf(load))
        names += (names.empty() ? "" : " ") + path;
    return names;
}

// Paths beginning with D are directories.
void Add(DFileLoad& load, std::string const& paths) {
    for (std::size_t at = 0; at < paths.size();) {
        std::size_t const end = std::min(paths.find(' ', at), paths.size());
        std::string const path = paths.substr(at, end - at);
        load.InsertRight(Record(path.c_str(), path[0] == 'D' ? 0x10 : 0x20, 1));
        at = end + 1;
    }
}

// Every public field of the listing, by kind; the lists, criteria, found record, enumeration
// handle and controls are checked on their own.
DWORD DFileLoad::*const words[] = {
    &DFileLoad::openFileFlags,   &DFileLoad::browseDirFlags, &DFileLoad::browseFilterIndex,
    &DFileLoad::totalSearched,   &DFileLoad::totalMatches,   &DFileLoad::totalSearchMilliseconds,
    &DFileLoad::totalSearchDirs, &DFileLoad::totalArchive,   &DFileLoad::totalCompressed,
    &DFileLoad::totalNormal,     &DFileLoad::totalDirectory, &DFileLoad::totalHidden,
    &DFileLoad::totalEncrypted,  &DFileLoad::totalSystem,    &DFileLoad::totalTemporary,
    &DFileLoad::totalReadOnly};
std::uint64_t DFileLoad::*const sizes[] = {
    &DFileLoad::totalMatchesSize,   &DFileLoad::totalArchiveSize,   &DFileLoad::totalCompressedSize,
    &DFileLoad::totalNormalSize,    &DFileLoad::totalDirectorySize, &DFileLoad::totalHiddenSize,
    &DFileLoad::totalEncryptedSize, &DFileLoad::totalSystemSize,    &DFileLoad::totalTemporarySize,
    &DFileLoad::totalReadOnlySize,  &DFileLoad::totalSearchedSize};
bool DFileLoad::*const flags[] = {&DFileLoad::browseIsDir, &DFileLoad::countOnly,
                                  &DFileLoad::analysis, &DFileLoad::abortRequested,
                                  &DFileLoad::searching};
DName DFileLoad::*const names[] = {&DFileLoad::workPath, &DFileLoad::storedDir,
                                   &DFileLoad::browseDir, &DFileLoad::browseTitle,
                                   &DFileLoad::browseFilter};
Container<DName> DFileLoad::*const lists[] = {&DFileLoad::browseNames, &DFileLoad::searchTerms};

char controls[12]; // stand-ins: the listing only keeps their addresses
DFile anchors[3];  // the same for the found record's link

// A value of its own in every field, all different from those of a new object; `seed` makes
// two such listings different from each other.
void FillAll(DFileLoad& load, unsigned seed) {
    Add(load, seed == 1 ? "F1 D1" : "D7 F7 F8");
    unsigned i = 0;
    for (auto word : words)
        load.*word = seed * 1000 + ++i;
    for (auto size : sizes)
        load.*size = (std::uint64_t{seed} << 40) + ++i;
    for (auto flag : flags)
        load.*flag = seed == 1;
    for (auto name : names)
        load.*name = DName(std::to_string(seed * 1000 + ++i).c_str());
    for (auto list : lists)
        for (unsigned n = 0; n < seed; ++n)
            (load.*list).InsertRight(DName(std::to_string(seed * 1000 + ++i).c_str()));
    load.spec.namePatterns.InsertRight(DName(seed == 1 ? "*.txt" : "*.doc"));
    load.spec.streamByte = static_cast<BYTE>(seed + 7);
    load.foundFile = seed == 1 ? "C:\\found" : "C:\\other";
    load.foundFile.dataEncrypted = seed == 1;
    load.foundFile.next = std::addressof(anchors[seed]);
    load.progressBar = reinterpret_cast<DProgressBar*>(&controls[seed * 4]);
    load.percentText = reinterpret_cast<DText*>(&controls[seed * 4 + 1]);
    load.statusWnd = reinterpret_cast<DStatusWnd*>(&controls[seed * 4 + 2]);
    load.listControl = reinterpret_cast<DListControl*>(&controls[seed * 4 + 3]);
}

void ExpectSameValues(DFileLoad const& copy, DFileLoad const& source) {
    for (auto word : words)
        EXPECT_EQ(copy.*word, source.*word); // the value tells the field
    for (auto size : sizes)
        EXPECT_EQ(copy.*size, source.*size);
    for (auto flag : flags)
        EXPECT_EQ(copy.*flag, source.*flag);
    for (auto name : names)
        EXPECT_EQ(Shown(copy.*name), Shown(source.*name));
    for (auto list : lists) {
        ASSERT_EQ((copy.*list).count, (source.*list).count);
        EXPECT_NE((copy.*list).head, (source.*list).head);
        for (unsigned n = 0; n < (copy.*list).count; ++n)
            EXPECT_EQ(Shown((copy.*list)[n]), Shown((source.*list)[n]));
    }
    EXPECT_EQ(Names(copy), Names(source));
    EXPECT_NE(copy.files.head, source.files.head);
    ASSERT_EQ(copy.spec.namePatterns.count, 1u);
    EXPECT_EQ(Shown(copy.spec.namePatterns[0]), Shown(source.spec.namePatterns[0]));
    EXPECT_EQ(Shown(copy.foundFile.GetFullPath()), Shown(source.foundFile.GetFullPath()));
    EXPECT_TRUE(copy.progressBar == source.progressBar && copy.percentText == source.percentText &&
                copy.statusWnd == source.statusWnd && copy.listControl == source.listControl);
}

} // namespace

TEST(ListingCopies, CopiesAreValuesOfTheirOwn) {
    DFileLoad source;
    FillAll(source, 1);
    DFileLoad copy(source);
    ExpectSameValues(copy, source);
    EXPECT_EQ(copy.spec.streamByte, 0); // as a new object's
    EXPECT_TRUE(copy.foundFile.isDataEncrypted());
    EXPECT_EQ(copy.foundFile.next, std::addressof(anchors[1]));
    copy.DelLeft();
    copy.browseNames.Destroy();
    EXPECT_TRUE(Names(source) == "F1 D1" && source.browseNames.count == 1);
    DFileLoad const fresh;
    EXPECT_EQ(DFileLoad(fresh).openFileFlags, 0xAA9A11u);

    // The assignment rebuilds the lists and keeps what the target's criteria and record own.
    DFileLoad target;
    FillAll(target, 2);
    EXPECT_EQ(&(target = source), &target);
    ExpectSameValues(target, source);
    EXPECT_EQ(target.spec.streamByte, 9);
    EXPECT_FALSE(target.foundFile.isDataEncrypted());
    EXPECT_EQ(target.foundFile.next, std::addressof(anchors[2]));
    DFileLoad& same = target;
    target = same;
    ExpectSameValues(target, source);
}

TEST(ListingCopies, ACopyNeverSharesAnOpenCursor) {
    TempTree tree;
    tree.MakeFiles("d", 3);
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
    EXPECT_TRUE(++source && ++source && !++source);
}

TEST(ListingCopies, ThinningKeepsOrderAndTheListUsable) {
    DFileLoad load;
    Add(load, "D1 F1 D2 F2 F3 D3");
    DFileLoad other(load);
    EXPECT_TRUE(load.RemDirs());
    EXPECT_STREQ(&load[2].GetFullPath(), "F3");
    Add(load, "F4"); // the end is known
    EXPECT_TRUE(Names(load) == "F1 F2 F3 F4" && load.Size() == 4);

    EXPECT_TRUE(other.RemFiles());
    EXPECT_EQ(Names(other), "D1 D2 D3");
    EXPECT_TRUE(other != load && other == 3u && other < 4u && other > 2u); // by the count only
    EXPECT_TRUE(other.RemDirs() && other.isEmpty() && other.files.head == nullptr);
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
