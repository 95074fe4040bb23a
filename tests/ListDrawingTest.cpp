#include "support/Records.h"

#include <tuple>
#include <utility>

namespace {

// The cells of one row, column 0 first, up to the last written one, separated by "|"; an image
// shows as "[path]".
std::string Row(DListControl const& list, unsigned int row) {
    std::string cells, pending;
    for (unsigned int column = 0; column < 9; ++column) {
        std::string const image = Shown(list.CellImage(row, column));
        std::string const cell =
            Shown(list.CellText(row, column)) + (image.empty() ? "" : "[" + image + "]");
        pending += (column ? "|" : "") + cell;
        if (!cell.empty()) // empty cells count only before a written one
            cells += pending, pending.clear();
    }
    return cells;
}

// Each row that holds a cell, and its cells.
std::string Rows(DListControl const& list) {
    std::string rows;
    unsigned int row = 0;
    for (unsigned int from = 0; list.NextRow(from, &row); from = row + 1)
        rows += std::to_string(row) + ":" + Row(list, row) + " ";
    return rows;
}

} // namespace

TEST(ListDrawing, ReportStyleBitsNumberTheControlColumns) {
    TempTree utc;
    FILETIME const written = Utc(2004, 3, 9, 13, 5, 7);
    DFile file(DName("C:\\dir\\big.iso"), 0x20, 0, nullptr, nullptr, &written);
    file.SetFileSize(0, 1); // exactly 4 GiB: the control gets the low word only
    file.SetDateLastAccessed(FILETIME{written.dwLowDateTime, written.dwHighDateTime + 1});
    DFileLoad load;
    EXPECT_FALSE(load.DrawFile(file, 0));
    DListControl list;
    load.SetupControls(nullptr, nullptr, nullptr, &list);
    // Without the name the drive comes first, as plain text; the path carries the icon only
    // when it comes first. The access date is 429.5 seconds after the written one.
    std::string const name = "big.iso[C:\\dir\\big.iso]", none = "0/00/1985 12:00:00 AM";
    std::pair<unsigned, std::string> const cases[] = {
        {ColumnName | ColumnSize | ColumnWritten, name + "|0|3/09/2004 1:05:07 PM"},
        {0xFF, name + "|C:\\|C:\\dir\\big.iso|0|--A------|" + none +
                   "|3/09/2004 1:12:16 PM|3/09/2004 1:05:07 PM"},
        {ColumnDrive | ColumnPath | ColumnAttributes, "C:\\|C:\\dir\\big.iso|--A------"},
        {ColumnPath | ColumnCreated, "C:\\dir\\big.iso[C:\\dir\\big.iso]|" + none},
        {0, ""}};
    for (auto const& [style, row] : cases) {
        list.Reset();
        list.SetReportStyle(style);
        EXPECT_TRUE(load.DrawFile(file, 3));
        EXPECT_EQ(Rows(list), row.empty() ? "" : "3:" + row + " ") << style;
    }
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
    EXPECT_TRUE(load.DrawAllFiles(0, 0) && list.RowCount() == 0 && list.HasIcons());
    EXPECT_TRUE(load.DrawAllFiles(2, 7) && list.RowCount() == 0);
    unsigned int redraws = list.RedrawCount();

    for (char const* path : {"r0", "r1", "r2", "r3"})
        load.InsertRight(Record(path));
    std::string const all = "0:r0[r0] 1:r1[r1] 2:r2[r2] 3:r3[r3] ";
    // clang-format off
    std::tuple<int, int, std::string> const cases[] = {
        {0, 0, all}, {-5, -1, all}, {1, 3, all.substr(9, 18)}, {2, 0, all.substr(18)}, {3, 3, ""},
        {4, 0, ""}, {9, 2, ""}, {-1, 100, all}, {0, 2147483647, all},
    }; // clang-format on
    for (auto const& [first, last, rows] : cases) {
        list.SetText(DName("stale"), 50, 0);
        EXPECT_TRUE(load.DrawAllFiles(first, last));
        EXPECT_EQ(Rows(list), rows) << first << " " << last;
        EXPECT_EQ(list.RedrawCount(), ++redraws);
    }
    EXPECT_EQ(Shown(status.Text()), "r3");                // the last record drawn stays
    load.SetupControls(nullptr, nullptr, nullptr, &list); // without one, the same rows
    EXPECT_TRUE(load.DrawAllFiles(1, 0) && load.DrawAllFiles(0, 1));
    EXPECT_EQ(Rows(list), all.substr(0, 9));
    EXPECT_EQ(Shown(status.Text()), "r3");
}
