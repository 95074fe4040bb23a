#include "support/RecordFields.h"

#include <random>

// Against the record-by-record walks as described, on listings of few values in each field, so
// that records repeat and paths and file names meet. Access dates and keys make no difference.
TEST(ListingLookup, AgreesWithARecordByRecordWalk) {
    char const* const paths[] = {"", "C:\\a\\x.txt", "D:\\b\\x.txt", "C:\\a\\y", "y", "C:\\X.txt"};
    std::mt19937 random(17);
    for (int round = 0; round < 300; ++round) {
        DFileLoad mine, other, differences, expected;
        for (DFileLoad* load : {&mine, &mine, &other, &other, &differences})
            for (auto n = random() % 6; n > 0; --n) {
                FILETIME const date = {DWORD(random() % 2), 1}, seen = {DWORD(random() % 3), 2};
                DFile file(DName(paths[random() % 6]), random() % 2 ? 0x20 : 0x10,
                           DWORD(random() % 2), &date, &seen, &date);
                file.dateCreated.dwHighDateTime = random() % 8 ? 1 : 5;
                file.sizeHigh = random() % 8 ? 0 : 1, file.hashKey = random() % 2 ? "key" : "";
                load->InsertRight(file);
            }
        for (DFile const* r = other.files.head; r; r = r->next) {
            bool held = false;
            for (DFile const* m = mine.files.head; m; m = m->next)
                held = held || *m == *r;
            if (!held)
                expected.InsertRight(*r);
        }
        EXPECT_EQ(mine.FindDifferences(other, differences), !expected.isEmpty());
        EXPECT_EQ(AllFields(differences), AllFields(expected)); // what it held is gone

        DName const name(paths[random() % 6]);
        int at = -1, byName = -1, position = 0;
        for (DFile const* m = mine.files.head; m; m = m->next, ++position) {
            at = at < 0 && m->fullPath == name ? position : at;
            bool const sameName = m->GetFileName() == DFile(name, 0, 0, 0, 0, 0).GetFileName();
            byName = byName < 0 && sameName ? position : byName;
        }
        EXPECT_EQ(mine.FindPos(name), at);
        EXPECT_EQ(mine.FindByLong(name), at);
        EXPECT_EQ(mine.FindByFilename(name), byName);
    }
}

// Lines of two records, with all columns and with a control's styles; the report of the same.
TEST(ListingLineFormat, ColumnsLineUpAndTheReportHasOneHeader) {
    TempTree tree;
    DFileLoad load;
    load.InsertRight(Record("C:\\a\\long-name.txt", 0x20, 5));
    load.InsertRight(Record("D:\\b.c", 0, 4294967297)); // shown in full
    std::string const date(&DFile().FormatNumericalDate(FILETIME{0, 0}));
    std::string const dates = date + " " + date + " " + date;
    EXPECT_EQ(&load.Format(0),
              "long-name.txt C:\\ C:\\a\\long-name.txt 5          --A------ " + dates);
    EXPECT_EQ(&load.Format(1),
              "b.c           D:\\ D:\\b.c             4294967297 --------- " + dates);
    EXPECT_STREQ(&load.Format(2), "");
    DListControl list;
    load.SetupControls(nullptr, nullptr, nullptr, &list);
    for (auto const& style : std::vector<std::pair<DWORD, std::string>>{
             {0, ""}, {128, date}, {1, "b.c           "}, {2 | 8, "D:\\ 4294967297 "}}) {
        list.SetReportStyle(style.first);
        EXPECT_EQ(&load.Format(1), style.second) << style.first;
    }
    EXPECT_EQ(Report(tree, load),
              "       Creation     Last Access      Write Date           Size Attributes\n" +
                  Report(tree, load[0]) + Report(tree, load[1]));
}

TEST(KeyDrawing, ABatchDrawsWhatSingleCallsDraw) {
    for (unsigned count : {0u, 1u, 7u, 31u, 32u, 33u, 64u, 65u, 100u, 993u}) {
        std::vector<std::uint16_t> single(count + 1), batch(count + 1);
        msvcrt_srand(count * 7919);
        for (std::uint16_t& value : single)
            value = std::uint16_t(msvcrt_rand());
        msvcrt_srand(count * 7919);
        msvcrt_rand_many(batch.data(), count);
        batch[count] = std::uint16_t(msvcrt_rand()); // goes on where the calls would
        EXPECT_EQ(batch, single) << count;
    }
}
