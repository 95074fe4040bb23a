#include "support/RecordFields.h"
#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(ListingReport, HeaderOnceThenEachRecordsBlock) {
    TempTree tree;
    DFileLoad load;
    FILETIME const date = {0x2C7B6000, 0x01C4E2A1};
    load.InsertRight(DFile(DName("C:\\a\\first.txt"), 0x21, 12, &date, nullptr, &date));
    load.InsertRight(DFile(DName("D:\\second"), 0x10, 0, nullptr, &date, nullptr));
    std::string blocks;
    for (unsigned count = 0; count <= load.Size(); ++count) {
        DFileLoad part;
        for (unsigned i = 0; i < count; ++i)
            part.InsertRight(load[i]);
        FileOper out(tree.Path("report").c_str(), true);
        ASSERT_TRUE(part.TextWrite(out));
        out.Close();
        EXPECT_EQ(FileBytes(tree.Path("report")),
                  "       Creation     Last Access      Write Date           Size Attributes\n" +
                      blocks);
        if (count < load.Size()) {
            FileOper block(tree.Path("block").c_str(), true);
            ASSERT_TRUE(load[count].TextWrite(block));
            block.Close();
            blocks += FileBytes(tree.Path("block"));
        }
    }
}

TEST(ListingLineFormat, ColumnsLineUpOverTheListing) {
    TempTree tree;
    DFileLoad load;
    load.InsertRight(DFile(DName("C:\\a\\long-name.txt"), 0x20, 5, nullptr, nullptr, nullptr));
    load.InsertRight(DFile(DName("D:\\b.c"), 0, 1, nullptr, nullptr, nullptr));
    load[1].sizeHigh = 1; // 4294967297: shown in full
    std::string const date(&DFile().FormatNumericalDate(FILETIME{0, 0}));
    std::string const dates = date + " " + date + " " + date;
    EXPECT_EQ(std::string(&load.Format(0)), "long-name.txt C:\\ C:\\a\\long-name.txt 5          "
                                            "--A------ " +
                                                dates);
    EXPECT_EQ(std::string(&load.Format(1)), "b.c           D:\\ D:\\b.c             4294967297 "
                                            "--------- " +
                                                dates);
    EXPECT_EQ(std::string(&load.Format(2)), "");

    DListControl list;
    load.SetupControls(nullptr, nullptr, nullptr, &list);
    std::vector<std::pair<DWORD, std::string>> const styles = {
        {0, ""}, {128, date}, {1, "b.c           "}, {2 | 8, "D:\\ 4294967297 "}};
    for (auto const& style : styles) {
        list.SetReportStyle(style.first);
        EXPECT_EQ(std::string(&load.Format(1)), style.second) << style.first;
    }
    EXPECT_EQ(std::string(&DFileLoad().Format(0)), "");
}

TEST(KeyDrawing, ABatchDrawsWhatSingleCallsDraw) {
    for (unsigned count : {0u, 1u, 7u, 8u, 9u, 15u, 16u, 17u, 100u, 993u}) {
        msvcrt_srand(count * 7919);
        std::vector<int> single(count + 1), batch(count + 1);
        for (int& value : single)
            value = msvcrt_rand();
        msvcrt_srand(count * 7919);
        msvcrt_rand_many(batch.data(), count);
        batch[count] = msvcrt_rand(); // the generator goes on where the calls would
        EXPECT_EQ(batch, single) << count;
    }
}
