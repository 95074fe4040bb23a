#include "support/Records.h"

#include <cstring>
#include <memory>

namespace {

DFile Dated(char const* path) {
    FILETIME const written = Ft(1ull << 32 | 2), created = Ft(3ull << 32 | 4),
                   accessed = Ft(5ull << 32 | 6);
    return DFile(DName(path), 0x20, 0, &created, &accessed, &written);
}

WIN32_FIND_DATAA FindData(char const* name, char const* alternate = "") {
    WIN32_FIND_DATAA data = {};
    std::strcpy(data.cFileName, name);
    std::strcpy(data.cAlternateFileName, alternate);
    data.dwFileAttributes = 0x21, data.nFileSizeLow = 7, data.nFileSizeHigh = 1;
    return data;
}

} // namespace

TEST(DFile, EqualityIsAboutEntryAndState) {
    DFile empty;
    EXPECT_TRUE(!(empty == empty) && empty != empty && empty.CompStruct(DFile()));
    DFile const a = Dated("C:\\x");
    DFile b = a;
    b.SetDateLastAccessed(Ft(77));
    b.SetIndex(DName("key"));
    EXPECT_TRUE(a == b); // neither the access date nor the key counts
    void (*const changes[])(DFile&) = {
        [](DFile& f) { f.SetFileSize(0, 1); }, // same low half, other high half
        [](DFile& f) { f.SetDateCreated(Ft(3ull << 32 | 5)); },
        [](DFile& f) { f.dataEncrypted = true; },
        [](DFile& f) { f.SetFullPath(DName("C:\\y")); }}; // the only one CompStruct ignores
    for (unsigned i = 0; i < 4; ++i) {
        b = a;
        b.dataEncrypted = false;
        changes[i](b);
        EXPECT_FALSE(a == b) << i;
        EXPECT_EQ(a.CompStruct(b), i == 3) << i;
    }
}

TEST(DFile, AttributeBits) {
    DFile file;
    // isAttribute looks at the bits below 0x8000, isAnAttribute at those up to 0x8000.
    for (DWORD value : {0u, 0x21u, 0xFFFFFFFFu}) {
        EXPECT_TRUE(file.isAttribute(value, 0) && file.isAttribute(value, 0x8000) &&
                    file.isAttribute(value, 0x10000));
        EXPECT_FALSE(file.isAnAttribute(value, 0) || file.isAnAttribute(value, 0x10000));
    }
    EXPECT_TRUE(file.isAnAttribute(0x8000, 0x8000) && file.isAttribute(0x4021, 0x4001) &&
                file.isAnAttribute(0x21, 0x4001));
    EXPECT_FALSE(file.isAnAttribute(0x4000, 0x8000) || file.isAttribute(0x21, 0x4001) ||
                 file.isAnAttribute(0x20, 0x12));

    file.SetAttribute(0x21);
    file.SubAttribute(0x3); // subtracts when any of the bits is set, else nothing
    file.SubAttribute(0x1);
    EXPECT_EQ(file.GetAttribute(), 0x1Eu);
    file.SetAttribute(0x20);
    file.AddAttribute(0x10);
    EXPECT_TRUE(file.isDir() && !file.isFile() && file.isArchive() && !file.isHidden());
}

// The record alone; copies between positions of a listing: SortingTest, ListingCopiesTest.
TEST(DFile, AssignmentKeepsLinkAndScrambleStateAndDotsAreNames) {
    DFile neighbour, other;
    DFile source = Dated("a");
    source.next = std::addressof(neighbour);
    source.dataEncrypted = true;
    DFile target(std::addressof(neighbour));
    EXPECT_EQ(target.next, nullptr);
    target.next = std::addressof(other);
    target = source;
    EXPECT_TRUE(target.next == std::addressof(other) && !target.isDataEncrypted());
    target = "b.txt"; // only the path changes
    EXPECT_STREQ(&target, "b.txt");
    EXPECT_TRUE(target.GetDateWritten().dwHighDateTime == 1 && target.GetAttribute() == 0x20);
    target.Destroy();
    EXPECT_TRUE(target.isEmpty() && target.GetAttribute() == 0 &&
                target.next == std::addressof(other));

    EXPECT_FALSE(DFile().isDots() || Record("...").isDots() || Record(".profile").isDots());
    EXPECT_TRUE(Record("C:\\dir\\..").isDots() && Record(".").isDots());
    EXPECT_TRUE(DFile().isDots(FindData("..")) && !DFile().isDots(FindData("a..")));
}

TEST(DFile, CopyAndExtractFromFindRecords) {
    DFile file;
    file.SetIndex(DName("key"));
    file.Copy(FindData("name.txt"), DName("C:\\home"));
    EXPECT_EQ(std::string(&file) + "|" + &file.GetKey(), "C:\\home\\name.txt|key");
    EXPECT_TRUE(file.GetFileSize64() == 0x100000007ull && file.is64() &&
                file.GetAttribute() == 0x21);

    file.Copy(Dated("x"), DName(0));
    EXPECT_STREQ(&file, "x");
    EXPECT_TRUE(file.GetKey().isEmpty() && file.GetLongSize() == 1); // the other record's

    // The longer of the two names; one that fills its array without a zero ends with it.
    EXPECT_STREQ(&file.ExtractFilename(FindData("long name.txt")), "long name.txt");
    EXPECT_STREQ(&file.ExtractFilename(FindData("abc", "ABC")), "abc");
    EXPECT_STREQ(&file.ExtractFilename(FindData("a", "LONGER~1")), "LONGER~1");
    WIN32_FIND_DATAA full = FindData("");
    std::memset(full.cFileName, 'x', sizeof full.cFileName);
    EXPECT_EQ(file.ExtractFilename(full).Size(), sizeof full.cFileName);
}

TEST(DFile, FromPathFillsFromTheFileSystemTo100Nanoseconds) {
    TempTree tree;
    tree.MakeFile("data.txt", "12345");
    tree.SetTimes("data.txt", 1000000000, 123456789);
    DFile file = Dated("unchanged");
    EXPECT_FALSE(file.FromPath(DName(tree.WinPath("missing").c_str())));
    EXPECT_TRUE(std::string(&file) == "unchanged" && file.GetAttribute() == 0x20);

    DName const pattern(tree.WinPath("*.txt").c_str());
    EXPECT_TRUE(file.FromPath(pattern) && file.GetFileSize() == 5);
    EXPECT_STREQ(&file, &pattern);
    // 2001-09-09 01:46:40.1234567 UTC in 100 ns since 1601: the last 89 ns are cut off.
    EXPECT_EQ(Ticks(file.GetDateWritten()), Ticks(At(1000000000, 1234567)));
    EXPECT_EQ(Ticks(file.GetDateLastAccessed()), Ticks(At(1000000000, 1234567)));

    EXPECT_TRUE(DFile(DName(tree.WinPath("nothing here").c_str())).isEmpty());
}
