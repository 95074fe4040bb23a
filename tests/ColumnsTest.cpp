// How columns order records is checked against a plain transcription in SortingTest.
#include "support/Records.h"

TEST(Columns, TextOfEachColumn) {
    TempTree utc;
    DFileLoad load;
    EXPECT_EQ(Shown(load.GetColumn(0, ColumnPath)) + Shown(load.GetColumn(3, ColumnName)), "");
    FILETIME const created = Utc(2004, 3, 9, 13, 5, 7), accessed = Utc(2004, 3, 10);
    DFile file(DName("C:\\dir\\name.txt"), 0x21, 0, &created, &accessed, nullptr);
    file.SetFileSize(0, 1);
    load.InsertRight(file);
    load.InsertRight(Record("C:\\other"));
    std::string const texts[] = {
        "name.txt",  "C:\\dir\\name.txt",    "C:\\dir\\name.txt",     "4294967296",
        "R-A------", "3/09/2004 1:05:07 PM", "3/10/2004 12:00:00 AM", "0/00/1985 12:00:00 AM"};
    for (unsigned int bit = 0; bit < 8; ++bit)
        EXPECT_EQ(Shown(load.GetColumn(0, 1u << bit)), texts[bit]) << bit;
    for (unsigned int column : {0u, 3u, 5u, 129u, 256u}) // no column: the path
        EXPECT_EQ(Shown(load.GetColumn(1, column)), "C:\\other") << column;
    // Past the count: the first record.
    EXPECT_EQ(Shown(load.GetColumn(1, ColumnName)) + "|" + Shown(load.GetColumn(2, ColumnName)),
              "other|name.txt");
}

TEST(Columns, PositionsAtOrPastTheCountCompareFalse) {
    DFileLoad load;
    DFile const small = Record("C:\\a", 0x20, 1);
    EXPECT_FALSE(load.CompareColumn(0, small, ColumnPath));
    load.InsertRight(Record("C:\\z", 0x1, 99));
    load.InsertRight(Record("C:\\y", 0x1, 98));
    EXPECT_TRUE(load.CompareColumn(0, small, ColumnPath) &&
                load.CompareColumn(1, small, ColumnSize));
    for (unsigned int column : {1u, 4u, 8u, 16u, 128u})
        EXPECT_FALSE(load.CompareColumn(2, small, column) || load.CompareColumn(100, small, column))
            << column;
}
