#include "support/TempTree.h"

#include <tessik/tessik.h>

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
    tree.MakeDir("d");
    tree.MakeFile("d/one", "1");
    tree.MakeFile("d/two", "22");
    tree.MakeDir("d/sub");
    DFileLoad load;
    ASSERT_TRUE(load.OpenDirListing(DirectoryListingSpec(), Name(tree.WinPath("d")), 0));
    EXPECT_TRUE(load.isOpen());
    std::string const home = tree.WinPath("d") + "\\";
    EXPECT_EQ(ReadAll(load), (std::set<std::string>{home + "one", home + "two", home + "sub"}));
    EXPECT_FALSE(++load); // the end stays open
    EXPECT_TRUE(load.isOpen());
    EXPECT_STREQ(&load.workPath, tree.WinPath("d").c_str());
    EXPECT_STREQ(&load.GetDir(), tree.WinPath("d").c_str());
    --load;
    EXPECT_FALSE(load.isOpen());
    EXPECT_FALSE(load.NextDirListing());
}

TEST(DirectoryCursor, EmptyDirectoryGivesFalseWithTheCursorOpen) {
    TempTree tree;
    tree.MakeDir("empty");
    DFileLoad load;
    EXPECT_FALSE(load.OpenDirListing(DirectoryListingSpec(), Name(tree.WinPath("empty")), 0));
    EXPECT_TRUE(load.isOpen());
    EXPECT_FALSE(++load);
}

TEST(DirectoryCursor, ChoosesTheDirectoryFromTheCriteria) {
    TempTree tree;
    tree.MakeDir("A");
    tree.MakeDir("B");
    tree.MakeFile("A/a");
    tree.MakeFile("B/b");
    DirectoryListingSpec spec;
    spec.directories.InsertRight(Name(tree.WinPath("A")));
    spec.directories.InsertRight(Name(tree.WinPath("B")));
    spec.size = 42;
    DFileLoad load;
    for (unsigned index : {1u, 5u}) {
        ASSERT_TRUE(load.OpenDirListing(spec, DName(0), index));
        EXPECT_STREQ(&load.GetFoundFile(), (tree.WinPath("B") + "\\b").c_str());
    }
    EXPECT_EQ(load.spec.size, 42u);
    ASSERT_TRUE(load.OpenDirListing(spec, DName(0), 0));
    EXPECT_STREQ(&load.GetFoundFile(), (tree.WinPath("A") + "\\a").c_str());
}

TEST(DirectoryCursor, WithoutADirectoryOpensTheCurrentOneWithFullPaths) {
    TempTree tree;
    tree.MakeFile("here");
    DFileLoad load;
    ASSERT_TRUE(load.ChangeDir(Name(tree.WinPath())));
    ASSERT_TRUE(load.OpenDirListing(DirectoryListingSpec(), DName(0), 0));
    EXPECT_STREQ(&load.workPath, tree.WinPath().c_str());
    EXPECT_STREQ(&load.GetFoundFile(), tree.WinPath("here").c_str());
}

TEST(DirectoryCursor, MissingDirectoryLeavesTheCursorClosed) {
    TempTree tree;
    DFileLoad load;
    DName const missing(tree.WinPath("missing").c_str());
    EXPECT_FALSE(load.OpenDirListing(DirectoryListingSpec(), missing, 0));
    EXPECT_FALSE(load.isOpen());
    EXPECT_EQ(load.workPath, missing);
    EXPECT_FALSE(load.OpenDirListing(DirectoryListingSpec(), DName("Q:\\anything"), 0));
    EXPECT_FALSE(load.isOpen());
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
}

TEST(DirectoryCursor, IsSubDirIsEqualityApartFromDrives) {
    DFileLoad load;
    EXPECT_TRUE(load.isSubDir(DName("C:\\a"), DName("\\a")));
    EXPECT_FALSE(load.isSubDir(DName("C:\\a"), DName("D:\\a")));
    EXPECT_FALSE(load.isSubDir(DName("C:\\a"), DName("C:\\a\\b")));
    EXPECT_TRUE(load.isSubDir(DName("C:\\a"), DName("C:\\a")));
}

TEST(Listing, PositionsAndInsertsOfTheObject) {
    DFileLoad load;
    EXPECT_EQ(load(0), nullptr);
    for (char const* path : {"a", "b"})
        load.InsertRight(DFile(DName(path), 0, 0, nullptr, nullptr, nullptr));
    load.InsertPos(DFile(DName("c"), 0, 0, nullptr, nullptr, nullptr), 0);
    WIN32_FIND_DATAA data = {};
    data.cFileName[0] = 'n';
    load.InsertLeft(data);
    EXPECT_STREQ(&load[0], "n");
    EXPECT_STREQ(&load.GetPos(3), "b");
    EXPECT_STREQ(&load[4], "n"); // past the end: the first
    EXPECT_TRUE(load.DelRight());
    EXPECT_EQ(load.Size(), 3u);
}
