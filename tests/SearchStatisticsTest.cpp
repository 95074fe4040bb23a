#include "support/Records.h"

#include <tessik/headless_time.h>

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <string>

namespace {

// 1000 at the first call, 12345 ms later at every other.
int tickCalls = 0;
DWORD TwoTimes() {
    return tickCalls++ == 0 ? 1000 : 13345;
}

struct ClockReset {
    ~ClockReset() { SetTickSource(nullptr); }
};

} // namespace

TEST(SearchStatistics, CountsOfARun) {
    TempTree tree;
    tree.MakeDir("empty");
    DFileLoad load;
    DWORD const& searched = load.GetTotalSearched(); // follows later runs
    ASSERT_TRUE(load.LoadDirListing(In(tree, "empty")));
    EXPECT_EQ(load.GetTotalSearchDirs(), 1u); // the start of the run
    EXPECT_EQ(load.GetTotalSearchFiles(), 0u);

    for (char const* dir : {"d", "d/s1", "d/s2"})
        tree.MakeDir(dir);
    for (char const* name : {"d/one", "d/two", "d/three"})
        tree.MakeFile(name, "12");
    tree.MakeFile("d/s1/below", "1234");
    ASSERT_TRUE(load.LoadDirListing(In(tree, "d", "t*")));
    EXPECT_EQ(searched, 5u);
    EXPECT_EQ(load.GetTotalSearchDirs(), 3u);
    EXPECT_EQ(load.GetTotalSearchFiles(), 3u);
    EXPECT_EQ(load.GetTotalMatches(), 2u);
    EXPECT_EQ(load.GetTotalMatchesSize(), 4u);
    EXPECT_EQ(load.GetTotalSearchedSize(), 6u);
    ASSERT_TRUE(load.LoadAllDirListings(In(tree, "d"), true));
    EXPECT_EQ(searched, 6u);
    EXPECT_EQ(load.GetTotalSearchFiles(), 4u);

    load.totalSearchDirs = 9; // more directories than entries only by hand: no wrap
    EXPECT_EQ(load.GetTotalSearchFiles(), 0u);
}

TEST(SearchStatistics, AnalysisByAttribute) {
    TempTree tree;
    tree.MakeDir("a");
    tree.MakeDir("a/.hidden");
    tree.SetMode("a/.hidden", 0555);
    tree.MakeSparseFile("a/big", (1ull << 32) + 5);
    tree.MakeFile("a/small", "1234567");
    tree.MakeFile("a/.file", "abc");
    tree.MakeFifo("a/pipe");
    tree.MakeSocket("a/socket");
    tree.SetMode("a/socket", 0444);
    tree.MakeDir("b");
    tree.MakeFile("b/other", "xy");

    DFileLoad load;
    EXPECT_EQ(load.GetTotalAnalysis(In(tree, "a"), false), 6u);
    EXPECT_EQ(load.GetTotalMatchesSize(), (1ull << 32) + 5 + 7 + 3);
    // Each tally with its size, the low halves only. Entries that are neither file nor
    // directory are System, the others never are.
    struct Tally {
        DWORD const& (DFileLoad::*count)() const;
        std::uint64_t const& (DFileLoad::*size)() const;
        DWORD expectedCount;
        std::uint64_t expectedSize;
    };
    Tally const tallies[] = {
        {&DFileLoad::GetTotalSearchArchive, &DFileLoad::GetTotalSearchArchiveSize, 3, 5 + 7 + 3},
        {&DFileLoad::GetTotalSearchDirectory, &DFileLoad::GetTotalSearchDirectorySize, 1, 0},
        {&DFileLoad::GetTotalSearchHidden, &DFileLoad::GetTotalSearchHiddenSize, 2, 3},
        {&DFileLoad::GetTotalSearchReadOnly, &DFileLoad::GetTotalSearchReadOnlySize, 2, 0},
        {&DFileLoad::GetTotalSearchSystem, &DFileLoad::GetTotalSearchSystemSize, 2, 0},
        {&DFileLoad::GetTotalSearchNormal, &DFileLoad::GetTotalSearchNormalSize, 0, 0},
        {&DFileLoad::GetTotalSearchTemporary, &DFileLoad::GetTotalSearchTemporarySize, 0, 0},
        {&DFileLoad::GetTotalSearchCompressed, &DFileLoad::GetTotalSearchCompressedSize, 0, 0},
        {&DFileLoad::GetTotalSearchEncrypted, &DFileLoad::GetTotalSearchEncryptedSize, 0, 0},
    };
    for (Tally const& tally : tallies) {
        EXPECT_EQ((load.*tally.count)(), tally.expectedCount) << &tally - tallies;
        EXPECT_EQ((load.*tally.size)(), tally.expectedSize) << &tally - tallies;
    }

    // A plain run leaves the analysis of the last one in place; the next analysis starts anew.
    ASSERT_TRUE(load.LoadDirListing(In(tree, "b")));
    EXPECT_EQ(load.GetTotalSearchArchive(), 3u);
    EXPECT_EQ(load.GetTotalAnalysis(In(tree, "b"), false), 1u);
    EXPECT_EQ(load.GetTotalSearchArchive(), 1u);
    EXPECT_EQ(load.GetTotalSearchArchiveSize(), 2u);
    EXPECT_EQ(load.GetTotalSearchHidden(), 0u);
    EXPECT_EQ(load.GetTotalSearchSystem(), 0u);
}

TEST(SearchStatistics, MillisecondsOfAnEmptyQueueStay) {
    TempTree tree;
    tree.MakeDir("d");
    ClockReset const reset;
    SetTickSource(TwoTimes);
    DFileLoad load;
    ASSERT_TRUE(load.LoadDirListing(In(tree, "d")));
    EXPECT_EQ(load.GetTotalSearchMilliseconds(), 12345u);

    DirectoryListingSpec nowhere("*.*");
    nowhere.directories.InsertRight(DName()); // a directory that gives no queue entry
    EXPECT_TRUE(load.LoadDirListing(nowhere));
    EXPECT_EQ(load.GetTotalSearchMilliseconds(), 12345u);
    EXPECT_EQ(load.GetTotalSearchDirs(), 1u);
}

TEST(SearchStatistics, FiguresOverTheListing) {
    TempTree tree;
    for (char const* dir : {"t", "t/data", "t/database", "t/data/inner"})
        tree.MakeDir(dir);
    tree.MakeFile("t/small", "12345");
    tree.MakeFile("t/tiny", "1");
    tree.MakeSparseFile("t/full", 0xFFFFFFFF);
    tree.MakeSparseFile("t/over", (1ull << 32) + 5);
    DFileLoad load;
    ASSERT_TRUE(load.LoadAllDirListings(In(tree, "t"), true));
    ASSERT_EQ(load.Size(), 7u);

    EXPECT_EQ(load.GetTotalFiles(), 4u);
    EXPECT_EQ(load.GetTotalFileSizes(), 5u + 1 + 0xFFFFFFFF + 5); // low halves, wrapping
    EXPECT_EQ(load.GetTotalDirs(DName()), 3u);
    // A prefix of the text: under "data" lie "data\inner" and "database", not "data" itself.
    std::string dataDir = tree.WinPath("t\\data");
    EXPECT_EQ(load.GetTotalDirs(DName(dataDir.c_str())), 2u);
    for (char& c : dataDir)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(load.GetTotalDirs(DName(dataDir.c_str())), 2u);
    EXPECT_EQ(load.GetTotalDirs(DName(tree.WinPath("t\\data\\inner").c_str())), 0u);

    DWORD paths = 0;
    for (DFile const* file = load.files.head; file; file = file->next)
        paths += static_cast<DWORD>(std::strlen(&file->GetFullPath()));
    EXPECT_EQ(load.GetTotalAllocationSizes(), paths + 7 * 36);
    FileOper out(tree.Path("stream").c_str(), true);
    ASSERT_TRUE(load[2].Write(out)); // the record keeps the key of the write
    EXPECT_EQ(load.GetTotalAllocationSizes(), paths + 7 * 36 + load[2].GetKey().Size());
}
