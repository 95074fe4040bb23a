#include "support/Backend.h"
#include "support/TempTree.h"

#include <tessik/headless_time.h>
#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <string>

namespace {

DirectoryListingSpec In(TempTree const& tree, std::string const& dir, char const* pattern = "*.*") {
    return DirectoryListingSpec(DName(pattern), DName(tree.WinPath(dir).c_str()));
}

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
    DFileLoad load;
    EXPECT_EQ(load.GetTotalSearchFiles(), 0u);
    DWORD const& searched = load.GetTotalSearched(); // follows later runs
    TempTree tree;
    tree.MakeDir("empty");
    ASSERT_TRUE(load.LoadDirListing(In(tree, "empty")));
    EXPECT_EQ(load.GetTotalSearchDirs(), 1u); // the start of the run
    EXPECT_EQ(load.GetTotalSearchFiles(), 0u);

    tree.MakeDir("d");
    for (char const* name : {"d/one", "d/two", "d/three"})
        tree.MakeFile(name, "12");
    tree.MakeDir("d/s1");
    tree.MakeDir("d/s2");
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
    ONLY_ON_POSIX_BACKEND("a read-only directory (Wine keeps none)");
    TempTree tree;
    tree.MakeDir("a");
    tree.MakeDir("a/.hidden");
    tree.SetMode("a/.hidden", 0555);
    tree.MakeSparseFile("a/big", (1ull << 32) + 5);
    tree.MakeFile("a/small", "1234567");
    tree.MakeFile("a/.file", "abc");
    tree.MakeDir("b");
    tree.MakeFile("b/other", "xy");

    DFileLoad load;
    EXPECT_EQ(load.GetTotalAnalysis(In(tree, "a"), false), 4u);
    EXPECT_EQ(load.GetTotalSearchDirectory(), 1u);
    EXPECT_EQ(load.GetTotalSearchHidden(), 2u);
    EXPECT_EQ(load.GetTotalSearchHiddenSize(), 3u);
    EXPECT_EQ(load.GetTotalSearchReadOnly(), 1u);
    EXPECT_EQ(load.GetTotalSearchArchive(), 3u);
    EXPECT_EQ(load.GetTotalSearchArchiveSize(), 5u + 7 + 3); // the low half of the big file
    EXPECT_EQ(load.GetTotalMatchesSize(), (1ull << 32) + 5 + 7 + 3);
    EXPECT_EQ(load.GetTotalSearchNormal(), 0u);

    // A plain run leaves the analysis of the last one in place; the next analysis starts anew.
    ASSERT_TRUE(load.LoadDirListing(In(tree, "b")));
    EXPECT_EQ(load.GetTotalSearchArchive(), 3u);
    EXPECT_EQ(load.GetTotalAnalysis(In(tree, "b"), false), 1u);
    EXPECT_EQ(load.GetTotalSearchArchive(), 1u);
    EXPECT_EQ(load.GetTotalSearchArchiveSize(), 2u);
    EXPECT_EQ(load.GetTotalSearchHidden(), 0u);
}

TEST(SearchStatistics, MillisecondsOfAnEmptyQueueStay) {
    ONLY_ON_POSIX_BACKEND("the clock hook");
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
