#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

FILETIME Date(DWORD high, DWORD low) {
    return FILETIME{low, high};
}

DFile Record(char const* path, DWORD attributes = 0x20, DWORD size = 0) {
    FILETIME const written = Date(1, 2), created = Date(3, 4), accessed = Date(5, 6);
    return DFile(DName(path), attributes, size, &created, &accessed, &written);
}

WIN32_FIND_DATAA FindData(char const* name, char const* alternate = "") {
    WIN32_FIND_DATAA data = {};
    std::strcpy(data.cFileName, name);
    std::strcpy(data.cAlternateFileName, alternate);
    data.dwFileAttributes = 0x21;
    data.nFileSizeLow = 7;
    data.nFileSizeHigh = 1;
    data.ftLastWriteTime = Date(9, 9);
    return data;
}

} // namespace

TEST(DFile, EqualityIsAboutEntryAndState) {
    DFile empty;
    EXPECT_FALSE(empty == empty);
    EXPECT_TRUE(empty != empty);
    EXPECT_TRUE(empty.CompStruct(DFile()));

    DFile a = Record("C:\\x"), b = Record("C:\\x");
    b.SetDateLastAccessed(Date(77, 77));
    b.SetIndex(DName("key"));
    EXPECT_TRUE(a == b);

    b.SetFileSize(0, 1);
    EXPECT_FALSE(a == b); // same low half, other high half
    b = a;
    b.SetDateCreated(Date(3, 5));
    EXPECT_FALSE(a == b);
    b = a;
    b.dataEncrypted = true;
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a.CompStruct(b));
    b.dataEncrypted = false;
    b.SetFullPath(DName("C:\\y"));
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a.CompStruct(b));
}

TEST(DFile, MaskTestsLookAtTheirOwnBitRanges) {
    DFile file;
    for (DWORD value : {0u, 0x21u, 0xFFFFFFFFu}) {
        EXPECT_TRUE(file.isAttribute(value, 0));
        EXPECT_FALSE(file.isAnAttribute(value, 0));
        EXPECT_TRUE(file.isAttribute(value, 0x8000));
        EXPECT_TRUE(file.isAttribute(value, 0x10000));
        EXPECT_FALSE(file.isAnAttribute(value, 0x10000));
    }
    EXPECT_TRUE(file.isAnAttribute(0x8000, 0x8000));
    EXPECT_FALSE(file.isAnAttribute(0x4000, 0x8000));
    EXPECT_TRUE(file.isAttribute(0x4021, 0x4001));
    EXPECT_FALSE(file.isAttribute(0x21, 0x4001));
    EXPECT_TRUE(file.isAnAttribute(0x21, 0x4001));
    EXPECT_FALSE(file.isAnAttribute(0x20, 0x12));
}

TEST(DFile, SubAttributeSubtracts) {
    DFile file;
    file.SetAttribute(0x21);
    file.SubAttribute(0x3);
    EXPECT_EQ(file.GetAttribute(), 0x1Eu);
    file.SetAttribute(0x23);
    file.SubAttribute(0x3);
    EXPECT_EQ(file.GetAttribute(), 0x20u);
    file.SubAttribute(0x3);
    EXPECT_EQ(file.GetAttribute(), 0x20u);
    file.AddAttribute(0x10);
    EXPECT_TRUE(file.isDir());
    EXPECT_FALSE(file.isFile());
    EXPECT_TRUE(file.isArchive());
    EXPECT_FALSE(file.isHidden());
}

TEST(DFile, SixtyFourBitSizes) {
    DFile file;
    file.SetFileSize(0xFFFFFFFF, 0);
    EXPECT_FALSE(file.is64());
    file.SetFileSize(0, 1);
    EXPECT_TRUE(file.is64());
    EXPECT_EQ(file.GetFileSize(), 0u);
    EXPECT_EQ(file.GetFileSize64(), 4294967296ull);
}

TEST(DFile, DotsAreJudgedByTheLastComponent) {
    EXPECT_FALSE(DFile().isDots());
    EXPECT_TRUE(DFile().isNotDots());
    EXPECT_TRUE(Record("C:\\dir\\..").isDots());
    EXPECT_TRUE(Record(".").isDots());
    EXPECT_FALSE(Record("...").isDots());
    EXPECT_FALSE(Record(".profile").isDots());
    DFile file;
    EXPECT_TRUE(file.isDots(FindData("..")));
    EXPECT_FALSE(file.isDots(FindData("a..")));
    EXPECT_EQ(DFile().GetFileName().Size(), 0u);
    EXPECT_STREQ(&Record("C:\\dir\\name.txt").GetFileName(), "name.txt");
}

TEST(DFile, AssignmentKeepsLinkAndScrambleState) {
    DFile neighbour;
    DFile source = Record("a");
    source.next = std::addressof(neighbour);
    source.dataEncrypted = true;
    DFile copied(source);
    EXPECT_EQ(copied.next, std::addressof(neighbour));
    EXPECT_TRUE(copied.isDataEncrypted());

    DFile target(std::addressof(neighbour));
    EXPECT_EQ(target.next, nullptr);
    DFile other;
    target.next = std::addressof(other);
    target = source;
    EXPECT_EQ(target.next, std::addressof(other));
    EXPECT_FALSE(target.isDataEncrypted());
    EXPECT_STREQ(&target, "a");

    target = "b.txt";
    EXPECT_STREQ(&target, "b.txt");
    EXPECT_EQ(target.GetDateWritten().dwHighDateTime, 1u);
    EXPECT_EQ(target.GetAttribute(), 0x20u);

    target.Destroy();
    EXPECT_TRUE(target.isEmpty());
    EXPECT_EQ(target.GetAttribute(), 0u);
    EXPECT_EQ(target.next, std::addressof(other));
}

TEST(DFile, CopyFromFindRecordPutsHomeInFrontAndKeepsKey) {
    DFile file;
    file.SetIndex(DName("key"));
    file.Copy(FindData("name.txt"), DName("C:\\home"));
    EXPECT_STREQ(&file, "C:\\home\\name.txt");
    EXPECT_STREQ(&file.GetKey(), "key");
    EXPECT_EQ(file.GetFileSize64(), 0x100000007ull);
    EXPECT_EQ(file.GetAttribute(), 0x21u);

    DFile other = Record("x");
    file.Copy(other, DName(0));
    EXPECT_STREQ(&file, "x");
    EXPECT_EQ(file.GetKey().Size(), 0u); // copied from `other`
    EXPECT_EQ(file.GetLongSize(), 1u);
}

TEST(DFile, ExtractFilenamePrefersTheLongerName) {
    DFile file;
    EXPECT_STREQ(&file.ExtractFilename(FindData("long name.txt")), "long name.txt");
    EXPECT_STREQ(&file.ExtractFilename(FindData("abc", "ABC")), "abc");
    EXPECT_STREQ(&file.ExtractFilename(FindData("a", "LONGER~1")), "LONGER~1");
    // A name that fills its whole array without a closing zero is cut at the array's end.
    WIN32_FIND_DATAA full = FindData("");
    std::memset(full.cFileName, 'x', sizeof full.cFileName);
    EXPECT_EQ(file.ExtractFilename(full).Size(), sizeof full.cFileName);
}

TEST(DFile, FromPathFillsFromTheFileSystem) {
    TempTree tree;
    tree.MakeFile("data.txt", "12345");
    tree.SetTimes("data.txt", 1000000000);
    DFile file = Record("unchanged");
    EXPECT_FALSE(file.FromPath(DName(tree.WinPath("missing").c_str())));
    EXPECT_STREQ(&file, "unchanged");
    EXPECT_EQ(file.GetAttribute(), 0x20u);

    DName const pattern(tree.WinPath("*.txt").c_str());
    EXPECT_TRUE(file.FromPath(pattern));
    EXPECT_STREQ(&file, &pattern);
    EXPECT_EQ(file.GetFileSize(), 5u);
    // 2001-09-09 01:46:40 UTC in 100 ns since 1601.
    std::uint64_t const written = 116444736000000000ull + 1000000000ull * 10000000ull;
    EXPECT_EQ(file.GetDateWritten().dwLowDateTime, static_cast<DWORD>(written));
    EXPECT_EQ(file.GetDateWritten().dwHighDateTime, static_cast<DWORD>(written >> 32));

    DFile made(DName(tree.WinPath("nothing here").c_str()));
    EXPECT_TRUE(made.isEmpty());
}
