#include "support/Listing.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

std::set<std::string> ReadAll(DFileLoad& load) {
    std::set<std::string> paths;
    for (bool more = true; more; more = ++load)
        paths.insert(&load.GetFoundFile());
    return paths;
}

DName Name(std::string const& text) {
    return DName(text.c_str());
}

} // namespace

TEST(DirectoryCursor, StepsThroughEveryEntryButDots) {
    TempTree tree;
    for (char const* dir : {"d", "d/sub", "empty"})
        tree.MakeDir(dir);
    tree.MakeFile("d/one");
    tree.MakeFile("d/two");
    DFileLoad load;
    ASSERT_TRUE(load.OpenDirListing(DirectoryListingSpec(), Name(tree.WinPath("d")), 0));
    std::string const home = tree.WinPath("d") + "\\";
    EXPECT_EQ(ReadAll(load), (std::set<std::string>{home + "one", home + "two", home + "sub"}));
    EXPECT_TRUE(!++load && load.isOpen()); // the end stays open
    EXPECT_STREQ(&load.workPath, tree.WinPath("d").c_str());
    EXPECT_STREQ(&load.GetDir(), tree.WinPath("d").c_str());
    --load;
    EXPECT_FALSE(load.isOpen() || load.NextDirListing());

    // An empty directory gives false with the cursor open; a missing one leaves it closed.
    EXPECT_FALSE(load.OpenDirListing(DirectoryListingSpec(), Name(tree.WinPath("empty")), 0));
    EXPECT_TRUE(load.isOpen() && !++load);
    DName const missing(tree.WinPath("missing").c_str());
    for (DName const& dir : {missing, DName("Q:\\anything")}) {
        EXPECT_FALSE(load.OpenDirListing(DirectoryListingSpec(), dir, 0));
        EXPECT_FALSE(load.isOpen());
        EXPECT_EQ(load.workPath, dir);
    }
    // Without a directory: the current one, with full paths.
    ASSERT_TRUE(load.ChangeDir(Name(tree.WinPath("d\\sub"))));
    tree.MakeFile("d/sub/here");
    ASSERT_TRUE(load.OpenDirListing(DirectoryListingSpec(), DName(0), 0));
    EXPECT_STREQ(&load.workPath, tree.WinPath("d\\sub").c_str());
    EXPECT_STREQ(&load.GetFoundFile(), tree.WinPath("d\\sub\\here").c_str());
}

TEST(DirectoryCursor, ChoosesTheDirectoryFromTheCriteria) {
    TempTree tree;
    tree.MakeFiles("A", 1, ".a");
    tree.MakeFiles("B", 1, ".b");
    DirectoryListingSpec spec = From({tree.WinPath("A"), tree.WinPath("B")});
    spec.size = 42;
    DFileLoad load;
    for (unsigned index : {0u, 1u, 5u}) { // past the end: the last
        ASSERT_TRUE(load.OpenDirListing(spec, DName(0), index));
        EXPECT_STREQ(&load.GetFoundFile(), tree.WinPath(index ? "B\\f0.b" : "A\\f0.a").c_str());
    }
    EXPECT_EQ(load.spec.size, 42u);
}

TEST(DirectoryCursor, CurrentDirectoryServices) {
    TempTree tree;
    tree.MakeDir("first");
    tree.MakeDir("second");
    tree.MakeFile("file");
    DFileLoad load;
    DName const before = load.GetDir();
    EXPECT_FALSE(load.ChangeDir(DName()));
    EXPECT_EQ(load.GetDir(), before);
    EXPECT_FALSE(load.RestoreDir()); // nothing stored yet

    ASSERT_TRUE(load.ChangeDir(Name(tree.WinPath("first"))));
    load.StoreCurrentDir(DName());
    EXPECT_STREQ(&load.storedDir, tree.WinPath("first").c_str());
    ASSERT_TRUE(load.ChangeDir(Name(tree.Path("second")))); // a POSIX-style path works too
    EXPECT_STREQ(&load.GetDir(), tree.WinPath("second").c_str());
    EXPECT_TRUE(load.RestoreDir());
    EXPECT_STREQ(&load.GetDir(), tree.WinPath("first").c_str());
    EXPECT_FALSE(load.ChangeDir(Name(tree.WinPath("file"))));

    EXPECT_FALSE(load.isDir(DName()));
    EXPECT_TRUE(load.isFile(DName()));
    EXPECT_TRUE(load.isDir(Name(tree.WinPath("first"))));
    EXPECT_FALSE(load.isDir(Name(tree.WinPath("file"))));
    EXPECT_FALSE(load.isDir(Name(tree.WinPath("missing"))));

    // isSubDir is equality apart from drives.
    EXPECT_TRUE(load.isSubDir(DName("C:\\a"), DName("\\a")) &&
                load.isSubDir(DName("C:\\a"), DName("C:\\a")));
    EXPECT_FALSE(load.isSubDir(DName("C:\\a"), DName("D:\\a")) ||
                 load.isSubDir(DName("C:\\a"), DName("C:\\a\\b")));
}

TEST(Listing, PositionsAndInsertsOfTheObject) {
    DFileLoad load;
    EXPECT_EQ(load(0), nullptr);
    load.InsertRight(Record("a"));
    load.InsertRight(Record("b"));
    load.InsertPos(Record("c"), 0);
    WIN32_FIND_DATAA data = {};
    data.cFileName[0] = 'n';
    load.InsertLeft(data);
    EXPECT_STREQ(&load[0], "n");
    EXPECT_STREQ(&load.GetPos(3), "b");
    EXPECT_STREQ(&load[4], "n"); // past the end: the first
    EXPECT_TRUE(load.DelRight());
    EXPECT_EQ(load.Size(), 3u);
}
