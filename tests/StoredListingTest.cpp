#include "support/RecordFields.h"
#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

// Paths of any bytes, empty ones among them; numbers and dates over their whole range.
void AddRandom(DFileLoad& load, std::mt19937& random, unsigned count) {
    auto word = [&] { return static_cast<DWORD>(random()); };
    for (unsigned i = 0; i < count; ++i) {
        std::string path(random() % 5 ? random() % 40 : 0, '\0');
        for (char& c : path)
            c = static_cast<char>(random());
        FILETIME const made = {word(), word()}, seen = {word(), word()}, changed = {word(), word()};
        DFile file(DName(), word(), word(), &made, &seen, &changed);
        file.fullPath.Namen(path.data(), static_cast<unsigned>(path.size()));
        file.sizeHigh = random() % 2 ? word() : 0;
        load.InsertRight(file);
    }
}

} // namespace

TEST(StoredListing, RoundTripsAndFindsEachRecord) {
    TempTree tree;
    std::mt19937 random(11);
    for (unsigned count : {0u, 1u, 2u, 37u}) {
        std::string const path = FreshPath(tree);
        DFileLoad written;
        AddRandom(written, random, count);
        {
            FileOper out(path.c_str(), true);
            ASSERT_TRUE(written >> out);
        }
        DFileLoad read;
        AddRandom(read, random, 3); // emptied first
        DListControl list;
        list.SetText(DName("stale"), 50, 0);
        read.SetupControls(nullptr, nullptr, nullptr, &list);
        FileOper in(path.c_str(), false);
        ASSERT_TRUE(read << in);
        EXPECT_EQ(AllFields(read), AllFields(written)); // the keys that the write made included
        EXPECT_EQ(list.RowCount(), count);
        if (count == 0) {
            EXPECT_EQ(FileBytes(path), std::string(4, '\0'));
        }

        // Each path is found by a look-up in the stream, standing where its first record stands.
        for (DFile const* f = written.files.head; f; f = f->next) {
            FileOper again(path.c_str(), false);
            DFile found;
            bool const hit = read.ReadFind(again, f->fullPath, found);
            int const at = read.FindPos(f->fullPath);
            EXPECT_EQ(hit, at >= 0);
            if (hit) {
                EXPECT_EQ(Fields(found), Fields(read[static_cast<unsigned>(at)]));
            }
        }
        FileOper miss(path.c_str(), false);
        DFile last;
        EXPECT_FALSE(read.ReadFind(miss, DName("no such path in any listing"), last));
        if (count) {
            EXPECT_EQ(Fields(last), Fields(read[count - 1]));
        }
    }
}

TEST(StoredListing, DamagedStreamsKeepWhatWasRead) {
    TempTree tree;
    std::string const path = tree.Path("listing");
    std::mt19937 random(5);
    DFileLoad written;
    AddRandom(written, random, 3);
    written[2].fullPath = "C:\\last";
    {
        FileOper out(path.c_str(), true);
        ASSERT_TRUE(written.Write(out));
    }
    std::string const whole = FileBytes(path);
    std::vector<std::uint64_t> ends; // where each record ends
    {
        FileOper in(path.c_str(), false);
        DFile record;
        in.SetPos(4);
        while (record.Read(in))
            ends.push_back(in.GetPos());
    }
    ASSERT_EQ(ends.size(), 3u);
    ForEachCut(tree, whole, [&](std::string const& part, std::size_t cut) {
        DFileLoad read;
        AddRandom(read, random, 1);
        FileOper in(part.c_str(), false), again(part.c_str(), false);
        EXPECT_FALSE(read.Read(in));
        unsigned wholeRecords = 0;
        while (wholeRecords < 3 && ends[wholeRecords] <= cut)
            ++wholeRecords;
        EXPECT_EQ(read.Size(), cut < 4 ? 1u : wholeRecords) << "cut at " << cut;
        DFile found;
        EXPECT_FALSE(read.ReadFind(again, DName("C:\\last"), found));
    });

    // A count that claims 4,294,967,295 records in front of two: the two are read, then false.
    std::string const lie =
        PutFileBytes(tree, std::string(4, '\xFF') + whole.substr(4, ends[1] - 4));
    DFileLoad read;
    FileOper in(lie.c_str(), false);
    EXPECT_FALSE(read.Read(in));
    EXPECT_EQ(read.Size(), 2u);
}
