#include "support/RecordFields.h"

#include <algorithm>
#include <random>

// Random listings (paths of any bytes, empty ones among them, every number over its whole range)
// come back whole, and each path is found in the stream. The stream of three records is then cut
// at every byte: the records read whole stay; without a whole count the object stays as it was.
TEST(StoredListing, RoundTripsFindsAndKeepsWhatWasRead) {
    TempTree tree;
    std::mt19937 random(11);
    auto word = [&] { return DWORD(random()); };
    for (unsigned count : {0u, 1u, 3u, 37u}) {
        DFileLoad written, read;
        for (unsigned i = 0; i < count + 2; ++i) {
            std::string path(random() % 5 ? random() % 40 : 0, '\0');
            std::generate(path.begin(), path.end(), [&] { return char(random()); });
            FILETIME const made = {word(), word()}, seen = {word(), word()},
                           wrote = {word(), word()};
            DFile file(Raw(path), word(), word(), &made, &seen, &wrote);
            file.sizeHigh = random() % 2 ? word() : 0;
            (i < count ? written : read).InsertRight(file); // two records in `read`, to go
        }
        if (count == 3)
            written[2].fullPath = "C:\\last"; // found by none of the cuts
        std::string const path = FreshPath(tree);
        DListControl list;
        list.SetText(DName("stale"), 50, 0);
        read.SetupControls(nullptr, nullptr, nullptr, &list);
        ASSERT_TRUE(Store(written, path) && Load(read, path));
        EXPECT_EQ(AllFields(read), AllFields(written)); // the keys that the write made included
        EXPECT_EQ(list.RowCount(), count);
        EXPECT_TRUE(count || FileBytes(path) == std::string(4, '\0'));
        for (unsigned i = 0; i <= count; ++i) { // each path: its first record; a miss: the last
            FileOper in(path.c_str(), false);
            DFile found;
            DName const name = i < count ? read[i].fullPath : DName("no such path");
            EXPECT_EQ(read.ReadFind(in, name, found), i < count);
            unsigned const at = i < count ? unsigned(read.FindPos(name)) : count - 1;
            EXPECT_TRUE(count == 0 || Fields(found) == Fields(read[at]));
        }
        if (count != 3)
            continue;
        std::vector<std::size_t> ends; // where each record ends (a stream of a few KiB)
        FileOper in(path.c_str(), false);
        in.SetPos(4);
        for (DFile record; record.Read(in);)
            ends.push_back(static_cast<std::size_t>(in.GetPos()));
        std::string const whole = FileBytes(path);
        ForEachCut(tree, whole, [&](std::string const& part, std::size_t cut) {
            FileOper again(part.c_str(), false);
            DFile found;
            EXPECT_FALSE(Load(read, part) || read.ReadFind(again, DName("C:\\last"), found));
            auto const records = std::upper_bound(ends.begin(), ends.end(), cut) - ends.begin();
            EXPECT_EQ(read.Size(), cut < 4 ? 3u : unsigned(records)) << cut;
        });
        // A count that claims 4,294,967,295 records in front of two: the two, then false.
        std::ofstream(path, std::ios::binary) << Word(~0u) + whole.substr(4, ends[1] - 4);
        EXPECT_FALSE(Load(read, path));
        EXPECT_EQ(read.Size(), 2u);
    }
}

// A text of every byte goes out as its radix form, two hex digits a byte, and comes back.
TEST(StoredCriteria, LayoutIsPinnedAndCutsKeepWhatWasRead) {
    TempTree tree;
    DirectoryListingSpec spec("*.txt", 0x33, 5), back;
    std::string text, radix;
    for (int c = 0; c < 256; ++c) {
        text += char(c);
        radix += std::string{"0123456789abcdef"[c / 16], "0123456789abcdef"[c % 16]};
    }
    spec.textToFind.Namen(text.data(), 256);
    spec.streamByte = 7, spec.readBlockSize = 0x01020304, spec.sizeTest = 1, spec.writtenTest = 2;
    spec.createdTest = 3, spec.accessedTest = 4, spec.invertContaining = true;
    spec.containingMode = 9, spec.sizeUpper = 0x11, spec.size = 0x22;
    spec.dateCreated = {1, 2}, spec.dateLastAccessed = {3, 4}, spec.dateWritten = {5, 6};
    std::string const path = FreshPath(tree);
    ASSERT_TRUE(Store(spec, path));
    std::string const lists = Word(0x28018293) + Word(1) + Word(5) + "*.txt" + Word(0);
    std::string const bytes = FileBytes(path);
    EXPECT_EQ(bytes, lists + "\x07" + Word(512) + radix + Word(0x01020304) + "\x01\x02\x03\x04" +
                         "\x05\x01\x09" + Word(0x11) + Word(0x22) + Word(0x33) + Word(1) + Word(2) +
                         Word(3) + Word(4) + Word(5) + Word(6));
    ASSERT_TRUE(Load(back, path) && back.textToFind == spec.textToFind && Store(back, path));
    EXPECT_EQ(FileBytes(path), bytes);

    // Before the magic is whole nothing changes; behind the lists they are new; the text to find
    // stays the old one to the end.
    ForEachCut(tree, bytes, [&](std::string const& part, std::size_t cut) {
        DirectoryListingSpec read("old", DName("dir"), DName("old text"), false);
        EXPECT_FALSE(Load(read, part));
        EXPECT_EQ(read.namePatterns.count == 1 && read.namePatterns[0] == "old", cut < 4) << cut;
        EXPECT_EQ(read.directories.count, cut < lists.size() - 4 ? 1u : 0u);
        EXPECT_EQ(read.readBlockSize, cut >= lists.size() + 521 ? 0x01020304u : 0u);
        EXPECT_EQ(read.textToFind, DName("old text"));
    });
    std::ofstream(path, std::ios::binary) << "\x28\x01\x82\x93" + bytes.substr(4);
    EXPECT_FALSE(Load(back, path)); // the magic the wrong way round: untouched
    EXPECT_EQ(back.textToFind, spec.textToFind);
    std::ofstream(path, std::ios::binary) << Word(0x28018293) + Word(~0u) + Word(1) + "a";
    EXPECT_FALSE(Load(back, path));
    EXPECT_EQ(back.namePatterns.count, 0u);
}
