#include "support/Records.h"

#include <tessik/Controls.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// The cells of one row, column 0 first, up to the last written one; an image shows as "[path]".
std::vector<std::string> Row(DListControl const& list, unsigned int row) {
    std::vector<std::string> cells;
    for (unsigned int column = 0; column < 9; ++column) {
        std::string cell = Shown(list.CellText(row, column));
        DName const image = list.CellImage(row, column);
        if (!image.isEmpty())
            cell += "[" + Shown(image) + "]";
        cells.push_back(cell);
    }
    while (!cells.empty() && cells.back().empty())
        cells.pop_back();
    return cells;
}

// The numbers of the rows that hold a cell.
std::vector<unsigned int> Rows(DListControl const& list) {
    std::vector<unsigned int> rows;
    unsigned int row = 0;
    for (unsigned int from = 0; list.NextRow(from, &row); from = row + 1)
        rows.push_back(row);
    return rows;
}

using Cells = std::vector<std::string>;

} // namespace

TEST(ListDrawing, ReportStyleBitsNumberTheControlColumns) {
    TempTree utc;
    FILETIME const written = Utc(2004, 3, 9, 13, 5, 7);
    DFile file(DName("C:\\dir\\big.iso"), 0x20, 0, nullptr, nullptr, &written);
    file.SetFileSize(0, 1); // exactly 4 GiB: the control gets the low word only
    file.SetDateLastAccessed(FILETIME{written.dwLowDateTime, written.dwHighDateTime + 1});
    std::string const accessed = "3/09/2004 1:12:16 PM"; // 429.5 seconds later

    DFileLoad load;
    EXPECT_FALSE(load.DrawFile(file, 0));
    DListControl list;
    load.SetupControls(nullptr, nullptr, nullptr, &list);

    list.SetReportStyle(ColumnName | ColumnSize | ColumnWritten);
    EXPECT_TRUE(load.DrawFile(file, 3));
    EXPECT_EQ(Row(list, 3), (Cells{"big.iso[C:\\dir\\big.iso]", "0", "3/09/2004 1:05:07 PM"}));

    list.Reset();
    list.SetReportStyle(0xFF);
    EXPECT_TRUE(load.DrawFile(file, 0));
    std::string const none = "0/00/1985 12:00:00 AM";
    EXPECT_EQ(Row(list, 0), (Cells{"big.iso[C:\\dir\\big.iso]", "C:\\", "C:\\dir\\big.iso", "0",
                                   "--A------", none, accessed, "3/09/2004 1:05:07 PM"}));

    // Without the name the drive text comes first, as plain text, and so does the path.
    list.Reset();
    list.SetReportStyle(ColumnDrive | ColumnPath | ColumnAttributes);
    EXPECT_TRUE(load.DrawFile(file, 0));
    EXPECT_EQ(Row(list, 0), (Cells{"C:\\", "C:\\dir\\big.iso", "--A------"}));

    // The path carries the icon only when it comes first.
    list.Reset();
    list.SetReportStyle(ColumnPath | ColumnCreated);
    EXPECT_TRUE(load.DrawFile(file, 0));
    EXPECT_EQ(Row(list, 0), (Cells{"C:\\dir\\big.iso[C:\\dir\\big.iso]", none}));

    list.Reset();
    list.SetReportStyle(ColumnSize | ColumnAccessed);
    file.SetFileSize(0xFFFFFFFF, 0);
    EXPECT_TRUE(load.DrawFile(file, 0));
    EXPECT_EQ(Row(list, 0), (Cells{"4294967295", accessed}));

    list.Reset();
    list.SetReportStyle(0);
    EXPECT_TRUE(load.DrawFile(file, 0));
    EXPECT_EQ(list.RowCount(), 0u);
}

TEST(ListDrawing, RedrawsAStretchOfTheListingAtItsPositions) {
    DFileLoad load;
    EXPECT_FALSE(load.DrawAllFiles(0, 0));
    DListControl list;
    list.SetReportStyle(ColumnPath);
    DStatusWnd status;
    load.SetupControls(nullptr, nullptr, &status, &list);

    // An empty listing: the control is emptied, whatever the bounds.
    list.SetText(DName("stale"), 50, 0);
    EXPECT_TRUE(load.DrawAllFiles(0, 0));
    EXPECT_EQ(list.RowCount(), 0u);
    EXPECT_TRUE(list.HasIcons());
    EXPECT_TRUE(load.DrawAllFiles(2, 7));
    EXPECT_EQ(list.RowCount(), 0u);
    unsigned int redraws = list.RedrawCount();

    for (char const* path : {"C:\\r0", "C:\\r1", "C:\\r2", "C:\\r3"})
        load.InsertRight(DFile(DName(path), 0, 0, nullptr, nullptr, nullptr));
    struct Bounds {
        int first;
        int last;
        std::vector<unsigned int> rows;
    };
    for (Bounds const& b :
         {Bounds{0, 0, {0, 1, 2, 3}}, Bounds{-5, -1, {0, 1, 2, 3}}, Bounds{1, 3, {1, 2}},
          Bounds{2, 0, {2, 3}}, Bounds{3, 3, {}}, Bounds{4, 0, {}}, Bounds{9, 2, {}},
          Bounds{-1, 100, {0, 1, 2, 3}}, Bounds{0, 2147483647, {0, 1, 2, 3}}}) {
        list.SetText(DName("stale"), 50, 0);
        EXPECT_TRUE(load.DrawAllFiles(b.first, b.last));
        EXPECT_EQ(Rows(list), b.rows) << b.first << " " << b.last;
        EXPECT_EQ(list.RedrawCount(), ++redraws);
        for (unsigned int row : b.rows)
            EXPECT_EQ(Row(list, row),
                      Cells{"C:\\r" + std::to_string(row) + "[C:\\r" + std::to_string(row) + "]"});
    }
    EXPECT_EQ(Shown(status.Text()), "C:\\r3"); // the last record drawn stays

    // Without a status window the same rows are drawn.
    load.SetupControls(nullptr, nullptr, nullptr, &list);
    EXPECT_TRUE(load.DrawAllFiles(1, 0));
    EXPECT_EQ(Rows(list), (std::vector<unsigned int>{1, 2, 3}));
    EXPECT_EQ(Shown(status.Text()), "C:\\r3");
    EXPECT_TRUE(load.DrawAllFiles(0, 1));
    EXPECT_EQ(Shown(status.Text()), "C:\\r3");
}
