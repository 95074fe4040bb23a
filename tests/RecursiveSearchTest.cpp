// The search over whole trees. Which entries a search lists is compared with a plain walk in
// HostileNamesTest, as is a deep tree; sizes past 4 GiB in SearchStatisticsTest, a search
// without directories in SearchFeedbackTest; here: the order, the tallies, the pruning of start
// directories, the terms.
#include "support/Backend.h"
#include "support/Listing.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

TEST(RecursiveSearch, BreadthFirstAcrossTrees) {
    TempTree tree;
    for (char const* dir : {"a", "a/deep", "a/deep/deeper", "b", "b/inner"})
        tree.MakeDir(dir);
    tree.MakeFile("a/deep/deeper/last");
    DFileLoad load;
    ASSERT_TRUE(load.LoadAllDirListings(From({tree.WinPath("a"), tree.WinPath("b")}), true));
    EXPECT_EQ(PathsOf(load),
              (std::vector<std::string>{tree.WinPath("a\\deep"), tree.WinPath("b\\inner"),
                                        tree.WinPath("a\\deep\\deeper"),
                                        tree.WinPath("a\\deep\\deeper\\last")}));
    // The cursor stays open on the last directory, which is still the current one.
    EXPECT_TRUE(load.isOpen());
    EXPECT_STREQ(&load.GetDir(), tree.WinPath("a\\deep\\deeper").c_str());
}

TEST(RecursiveSearch, OneDirectoryAndItsTallies) {
    TempTree tree;
    tree.MakeDir("d");
    tree.MakeFile("d/one.txt", "1");
    tree.MakeFile("d/two", "22");
    for (char const* sub : {"d/s1", "d/s2", "d/s3"})
        tree.MakeDir(sub);
    tree.MakeFile("d/s1/below");
    DFileLoad load;
    DirectoryListingSpec spec = In(tree, "d", "*.txt");
    spec.namePatterns.InsertRight(DName("*.*")); // one pattern that lets all through: only it
    for (unsigned size : {5u, 10u}) {            // a second search appends
        ASSERT_TRUE(load.LoadDirListing(spec));
        // The start and each subdirectory, not entered, are searched.
        EXPECT_EQ(std::vector<std::uint64_t>({load.Size(), load.totalMatches, load.totalMatchesSize,
                                              load.totalSearchDirs}),
                  std::vector<std::uint64_t>({size, 5, 3, 4}));
    }
    EXPECT_STREQ(&load.spec.namePatterns[0], "*.*");
    EXPECT_EQ(load.spec.namePatterns.count, 1u);
    EXPECT_EQ(load.GetTotalDirListings(spec, true), 6u);
    EXPECT_EQ(load.Size(), 10u);
    EXPECT_FALSE(load.countOnly);

    DFileLoad dirs;
    DirectoryListingSpec subdirs = In(tree, "d");
    subdirs.attributes = 0x10;
    subdirs.attributeTest = 2;
    ASSERT_TRUE(dirs.LoadDirFiles(subdirs, false));
    EXPECT_EQ(dirs.Size(), 3u);
    ASSERT_TRUE(dirs.LoadDirSubDirs(In(tree, "d"), false)); // test 0: every entry
    EXPECT_EQ(dirs.Size(), 3u + 5u);
}

TEST(RecursiveSearch, OverlappingAndRepeatedDirectories) {
    ONLY_ON_POSIX_BACKEND("names differing only in case");
    TempTree tree;
    for (char const* dir : {"data", "data/old", "database", "bA", "aA", "Aa", "baA"})
        tree.MakeDir(dir);
    tree.MakeFile("data/in-data");
    tree.MakeFile("data/old/in-old");
    tree.MakeFile("database/in-database");
    tree.MakeFile("aA/kept");
    tree.MakeFile("baA/dropped");
    auto run = [&](std::vector<std::string> const& dirs) {
        DFileLoad load;
        EXPECT_TRUE(load.LoadAllDirListings(From(dirs), false));
        return PathsOf<std::set<std::string>>(load);
    };
    std::string const data = tree.WinPath("data");
    std::string const upperOld = tree.WinPath() + "\\DATA\\old";
    EXPECT_EQ(run({data, upperOld}), (std::set<std::string>{data + "\\in-data", data + "\\old"}));
    EXPECT_EQ(run({data, tree.WinPath("database")}).count(tree.WinPath("database\\in-database")),
              0u);
    EXPECT_EQ(run({data, data}).size(), 2u); // searched once
    EXPECT_TRUE(run({"", data}).empty());    // an empty name is a prefix of every name

    // Which names survive depends on the order of removals: here one that begins with a
    // shorter name is passed over and stays.
    auto const survivors = run({tree.WinPath("bA"), tree.WinPath("aA"), tree.WinPath("Aa"),
                                tree.WinPath("baA"), tree.WinPath()});
    EXPECT_EQ(survivors.count(tree.WinPath("aA\\kept")), 1u);
    EXPECT_EQ(survivors.count(tree.WinPath("baA")), 1u); // an entry of the root
    EXPECT_EQ(survivors.count(tree.WinPath("baA\\dropped")), 0u);
}

TEST(RecursiveSearch, TextIsSplitIntoTerms) {
    TempTree tree;
    tree.MakeFile("phrase", "xx b c xx");
    tree.MakeFile("split", "xx b xx c");
    tree.MakeFile("first", "a");
    tree.MakeFile("empty", "");
    struct Case {
        char const* text;
        BYTE mode, modeAfter;
        std::set<std::string> names;
    } const cases[] = {
        {"a \"b c\" d", 2, 2, {"phrase", "first"}},
        {"a \"b c\" d", 4, 4, {}},
        {"\"b c\" xx", 4, 4, {"phrase"}},
        {"q \"c", 2, 2, {"phrase", "split"}},              // the open quote is closed
        {"\"\"", 2, 1, {"phrase", "split", "first"}},      // one empty term
        {"", 4, 0, {"phrase", "split", "first", "empty"}}, // no text
        {"  c  ", 12, 9, {"phrase", "split"}}, // one word: searched as that word, case ignored
        {"b c", 1, 1, {"phrase"}},             // the whole text, blanks and all
    };
    for (Case const& c : cases) {
        DirectoryListingSpec spec = In(tree, "");
        spec.textToFind = c.text;
        spec.containingMode = c.mode;
        DFileLoad load;
        EXPECT_TRUE(load.LoadDirListing(spec));
        EXPECT_EQ(load.searchTerms.count, 0u); // emptied at the end
        std::set<std::string> names;
        for (DFile const* file = load.files.head; file; file = file->next)
            names.insert(&file->GetFileName());
        EXPECT_EQ(names, c.names) << c.text << int(c.mode);
        EXPECT_EQ(load.spec.containingMode, c.modeAfter) << c.text << int(c.mode);
    }
}

TEST(RecursiveSearch, PatternsAndTextsOfEveryByte) {
    TempTree tree;
    tree.MakeDir("t");
    std::string every;
    for (int c = 0; c < 256; ++c)
        every += static_cast<char>(c);
    tree.MakeFile("t/all", every + every);
    tree.MakeFile("t/plain", "nothing special");
    for (int mode : {1, 2, 4, 9, 12}) {
        // A pattern of the bytes 1 to 255, and one that lets every name through, so each name
        // meets the odd one first.
        DirectoryListingSpec spec(DName(every.c_str() + 1), DName(tree.WinPath("t").c_str()));
        spec.namePatterns.InsertRight(DName("*"));
        spec.textToFind.Namen(every.data(), static_cast<unsigned int>(every.size()));
        spec.containingMode = static_cast<BYTE>(mode);
        DFileLoad load;
        EXPECT_TRUE(load.LoadAllDirListings(spec, true));
        // The whole text, zero byte and all, stands only in `all`; split into words, it has
        // pieces that both files hold or that neither does, but the search ends either way.
        if (mode == 1 || mode == 9) {
            EXPECT_EQ(PathsOf(load), std::vector<std::string>{tree.WinPath("t\\all")}) << mode;
        }
    }
}
