#include "support/TempTree.h"

#include <tessik/DFileLoad.h>

#include <gtest/gtest.h>

#include <string>

namespace {

// The text of a column, which never holds a zero byte here.
std::string Text(DFileLoad const& load, unsigned int index, unsigned int column) {
    return &load.GetColumn(index, column);
}

// A date given in UTC; the tests that use it run with TZ=UTC.
FILETIME Date(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second,
              WORD millisecond = 0) {
    SYSTEMTIME const local{year, month, 0, day, hour, minute, second, millisecond};
    return DFile().GetUTCDate(local);
}

DFile Record(char const* path, DWORD attributes = 0, std::uint64_t size = 0) {
    DFile file(DName(path), attributes, 0, nullptr, nullptr, nullptr);
    file.SetFileSize(static_cast<DWORD>(size), static_cast<DWORD>(size >> 32));
    return file;
}

// Whether `left` sorts after `right` in `column`, asked through a listing that holds `left`.
bool After(DFile const& left, DFile const& right, unsigned int column) {
    DFileLoad load;
    load.InsertRight(left);
    return load.CompareColumn(0, right, column);
}

} // namespace

TEST(Columns, TextOfEachColumn) {
    TempTree utc;
    DFileLoad load;
    EXPECT_TRUE(Text(load, 0, ColumnPath).empty()); // nothing to read
    EXPECT_TRUE(Text(load, 3, ColumnName).empty());

    FILETIME const created = Date(2004, 3, 9, 13, 5, 7);
    FILETIME const accessed = Date(2004, 3, 10, 0, 0, 0);
    DFile file(DName("C:\\dir\\name.txt"), 0x21, 0, &created, &accessed, nullptr);
    file.SetFileSize(0, 1);
    load.InsertRight(file);
    load.InsertRight(Record("C:\\other"));

    EXPECT_EQ(Text(load, 0, ColumnName), "name.txt");
    EXPECT_EQ(Text(load, 0, ColumnDrive), "C:\\dir\\name.txt");
    EXPECT_EQ(Text(load, 0, ColumnPath), "C:\\dir\\name.txt");
    EXPECT_EQ(Text(load, 0, ColumnSize), "4294967296");
    EXPECT_EQ(Text(load, 0, ColumnAttributes), "R-A------");
    EXPECT_EQ(Text(load, 0, ColumnCreated), "3/09/2004 1:05:07 PM");
    EXPECT_EQ(Text(load, 0, ColumnAccessed), "3/10/2004 12:00:00 AM");
    EXPECT_EQ(Text(load, 0, ColumnWritten), "0/00/1985 12:00:00 AM");
    for (unsigned int column : {0u, 3u, 5u, 129u, 256u})
        EXPECT_EQ(Text(load, 1, column), "C:\\other") << column;
    EXPECT_EQ(Text(load, 1, ColumnName), "other");
    EXPECT_EQ(Text(load, 2, ColumnName), "name.txt"); // past the count: the first
}

TEST(Columns, NamesAndPathsHaveNoTieBreak) {
    DFile const a = Record("C:\\a\\same.txt");
    DFile const b = Record("C:\\b\\same.txt");
    EXPECT_FALSE(After(a, b, ColumnName));
    EXPECT_FALSE(After(b, a, ColumnName));
    EXPECT_TRUE(After(b, a, ColumnPath));
    EXPECT_TRUE(After(b, a, ColumnDrive));
    EXPECT_FALSE(After(a, b, ColumnPath));
    EXPECT_FALSE(After(a, a, ColumnPath));

    // Numbers that name no column compare file names.
    DFile const early = Record("C:\\z\\apple");
    DFile const late = Record("C:\\a\\pear");
    for (unsigned int column : {0u, 3u, 129u}) {
        EXPECT_TRUE(After(late, early, column)) << column;
        EXPECT_FALSE(After(early, late, column)) << column;
    }
    EXPECT_FALSE(After(late, early, ColumnPath));
}

TEST(Columns, SizesAndAttributesFallToThePathOnATie) {
    std::uint64_t const fourGiB = 0x100000000ull;
    EXPECT_TRUE(After(Record("C:\\a", 0, fourGiB), Record("C:\\b", 0, fourGiB - 1), ColumnSize));
    EXPECT_FALSE(After(Record("C:\\b", 0, fourGiB - 1), Record("C:\\a", 0, fourGiB), ColumnSize));
    EXPECT_TRUE(After(Record("C:\\a", 0, 10), Record("C:\\b", 0, 9), ColumnSize));
    EXPECT_TRUE(After(Record("C:\\b", 0, 10), Record("C:\\a", 0, 10), ColumnSize));
    EXPECT_FALSE(After(Record("C:\\a", 0, 10), Record("C:\\b", 0, 10), ColumnSize));
    EXPECT_FALSE(After(Record("C:\\a", 0, 10), Record("C:\\a", 0, 10), ColumnSize));

    // By the flag text: "R--------" is after "--A------", though 0x1 is below 0x20.
    EXPECT_TRUE(After(Record("C:\\a", 0x1), Record("C:\\b", 0x20), ColumnAttributes));
    EXPECT_FALSE(After(Record("C:\\b", 0x20), Record("C:\\a", 0x1), ColumnAttributes));
    EXPECT_TRUE(After(Record("C:\\b", 0x20), Record("C:\\a", 0x20), ColumnAttributes));
    EXPECT_TRUE(After(Record("C:\\b", 0x400), Record("C:\\a", 0), ColumnAttributes));
    EXPECT_FALSE(After(Record("C:\\a", 0x400), Record("C:\\b", 0), ColumnAttributes));
}

TEST(Columns, DatesCompareToTheSecondThenByPath) {
    TempTree utc;
    struct Case {
        unsigned int column;
        void (DFile::*set)(FILETIME const&);
    };
    for (Case const& c : {Case{ColumnCreated, &DFile::SetDateCreated},
                          Case{ColumnAccessed, &DFile::SetDateLastAccessed},
                          Case{ColumnWritten, &DFile::SetDateWritten}}) {
        DFile a = Record("C:\\a");
        DFile b = Record("C:\\b");
        (a.*c.set)(Date(2004, 3, 9, 1, 2, 3, 900));
        (b.*c.set)(Date(2004, 3, 9, 1, 2, 3, 100));
        EXPECT_FALSE(After(a, b, c.column)) << c.column; // milliseconds do not count
        EXPECT_TRUE(After(b, a, c.column)) << c.column;
        (a.*c.set)(Date(2004, 3, 9, 1, 2, 4));
        EXPECT_TRUE(After(a, b, c.column)) << c.column;
        EXPECT_FALSE(After(b, a, c.column)) << c.column;
    }
    // A date of one column does not decide another.
    DFile a = Record("C:\\a");
    a.SetDateWritten(Date(2010, 1, 1, 0, 0, 0));
    EXPECT_FALSE(After(a, Record("C:\\b"), ColumnCreated));
}

TEST(Columns, PositionsAtOrPastTheCountCompareFalse) {
    DFileLoad load;
    DFile const small = Record("C:\\a", 0, 1);
    EXPECT_FALSE(load.CompareColumn(0, small, ColumnPath));
    load.InsertRight(Record("C:\\z", 0x1, 99));
    load.InsertRight(Record("C:\\y", 0x1, 98));
    EXPECT_TRUE(load.CompareColumn(0, small, ColumnPath));
    EXPECT_TRUE(load.CompareColumn(1, small, ColumnSize));
    for (unsigned int column : {1u, 4u, 8u, 16u, 128u}) {
        EXPECT_FALSE(load.CompareColumn(2, small, column)) << column;
        EXPECT_FALSE(load.CompareColumn(100, small, column)) << column;
    }
}
