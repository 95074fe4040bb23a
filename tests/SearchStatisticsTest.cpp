#include "support/Listing.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

// The plain tallies of a run are checked in RecursiveSearchTest; these are the ones worked out
// from them.
TEST(SearchStatistics, CountsOfARun) {
    TempTree tree;
    for (char const* dir : {"empty", "d", "d/s1", "d/s2"})
        tree.MakeDir(dir);
    for (char const* name : {"d/one", "d/two", "d/three"})
        tree.MakeFile(name, "12");
    tree.MakeFile("d/s1/below", "1234");
    DFileLoad load;
    DWORD const& searched = load.GetTotalSearched(); // follows later runs
    ASSERT_TRUE(load.LoadDirListing(In(tree, "empty")));
    EXPECT_EQ(load.GetTotalSearchDirs() * 10 + load.GetTotalSearchFiles(), 10u); // the start
    ASSERT_TRUE(load.LoadDirListing(In(tree, "d", "t*")));
    EXPECT_EQ(std::vector<std::uint64_t>({searched, load.GetTotalSearchDirs(),
                                          load.GetTotalSearchFiles(), load.GetTotalMatches(),
                                          load.GetTotalMatchesSize(), load.GetTotalSearchedSize()}),
              std::vector<std::uint64_t>({5, 3, 3, 2, 4, 6}));
    ASSERT_TRUE(load.LoadAllDirListings(In(tree, "d"), true));
    EXPECT_EQ(searched * 10 + load.GetTotalSearchFiles(), 64u);
    load.totalSearchDirs = 9; // more directories than entries only by hand: no wrap
    EXPECT_EQ(load.GetTotalSearchFiles(), 0u);
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

    // The run's sizes are whole; the sizes of the files, low halves, wrapping.
    std::uint64_t const whole = 5 + 1 + 0xFFFFFFFFull + (1ull << 32) + 5;
    EXPECT_EQ(std::vector<std::uint64_t>({load.GetTotalSearchedSize(), load.GetTotalMatchesSize(),
                                          load.GetTotalFiles(), load.GetTotalFileSizes(),
                                          load.GetTotalDirs(DName())}),
              std::vector<std::uint64_t>({whole, whole, 4, 5u + 1 + 0xFFFFFFFF + 5, 3}));
    // A prefix of the text: under "data" lie "data\inner" and "database", not "data" itself.
    std::string const dataDir = tree.WinPath("t\\data");
    std::string upper = dataDir;
    std::transform(upper.begin(), upper.end(), upper.begin(), ::toupper);
    EXPECT_TRUE(load.GetTotalDirs(DName(dataDir.c_str())) == 2 &&
                load.GetTotalDirs(DName(upper.c_str())) == 2);
    EXPECT_EQ(load.GetTotalDirs(DName(tree.WinPath("t\\data\\inner").c_str())), 0u);

    DWORD paths = 0;
    for (std::string const& path : PathsOf(load))
        paths += static_cast<DWORD>(path.size());
    EXPECT_EQ(load.GetTotalAllocationSizes(), paths + 7 * 36);
    FileOper out(tree.Path("stream").c_str(), true);
    ASSERT_TRUE(load[2].Write(out)); // the record keeps the key of the write
    EXPECT_EQ(load.GetTotalAllocationSizes(), paths + 7 * 36 + load[2].GetKey().Size());
}
