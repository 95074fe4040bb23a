#include "support/TempTree.h"

#include <tessik/headless.h>
#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::set<std::string> Tree(TempTree const& tree) {
    std::set<std::string> entries;
    for (auto const& entry : fs::recursive_directory_iterator(tree.Root()))
        entries.insert(fs::relative(entry.path(), tree.Root()).string());
    return entries;
}

// A path on drive Z: whose root part has '/' and whose `relative` part is written as given.
DName Full(TempTree const& tree, std::string const& relative) {
    return DName(relative.empty() ? "" : ("Z:" + tree.Root() + "\\" + relative).c_str());
}

} // namespace

// Each case on a fresh tree of a file, a read-only file, an empty directory and a full one.
TEST(DirectoryServices, RemoveTakesFilesAndEmptyDirectoriesOnly) {
    struct Case {
        char const *path, *gone; // "" is the empty name, and nothing gone
        bool removed;
        // clang-format off
    } const cases[] = {
        {"", "", false}, {"f", "f", true}, {"ro", "ro", true}, {"missing", "", false},
        {"full", "", false}, {"empty", "empty", true}, {"empty\\", "empty", true},
        {"empty//", "empty", true}, {"full/g", "full/g", true},
    };
    // clang-format on
    for (Case const& c : cases) {
        TempTree tree;
        tree.MakeFile("f", "x");
        tree.MakeFile("ro", "x");
        tree.SetMode("ro", 0444);
        tree.MakeDir("empty");
        tree.MakeDir("full");
        tree.MakeFile("full/g");
        std::set<std::string> expected = Tree(tree);
        expected.erase(c.gone);
        ASSERT_EQ(chdir("/"), 0); // a full path works from any current directory
        EXPECT_EQ(DFileLoad().Remove(Full(tree, c.path)), c.removed) << c.path;
        EXPECT_EQ(Tree(tree), expected) << c.path;
        EXPECT_EQ(fs::current_path(), "/");
    }
}

TEST(DirectoryServices, MakeDirCreatesEveryLevelAndEntersIt) {
    struct Case {
        char const* path;
        bool single, made;
        char const* cwd; // where the process stands afterwards, below the tree
        // clang-format off
    } const cases[] = {
        {"", false, false, "."}, {"", true, false, "."}, {"a\\b\\c", false, true, "a/b/c"},
        {"a/b//c", false, true, "a/b/c"}, {"old\\sub", false, true, "old/sub"},
        {"s\\\\", true, true, "s"}, {"s/", true, true, "s"}, {"file\\x\\y", false, false, "."},
    };
    // clang-format on
    for (Case const& c : cases) {
        TempTree tree;
        tree.MakeDir("old");
        tree.MakeDir("old/sub");
        tree.MakeFile("file");
        ASSERT_EQ(chdir(tree.Root().c_str()), 0);
        DFileLoad const load;
        DName const path = Full(tree, c.path);
        EXPECT_EQ(c.single ? load.MakeSingleDir(path) : load.MakeDir(path), c.made) << c.path;
        EXPECT_TRUE(fs::equivalent(fs::current_path(), tree.Path(c.cwd))) << c.path;
    }
}

TEST(DirectoryServices, FreeRoomIn64KiBUnits) {
    std::uint64_t const bytes[] = {1000000, 65535, 65536, (std::uint64_t(1) << 48) + 5 * 65536 + 3};
    DWORD const units[] = {15, 0, 1, 5};
    DFileLoad load;
    for (int i = 0; i < 4; ++i) {
        HeadlessSetDiskRoom(&bytes[i]);
        EXPECT_EQ(load.GetDiskFreeSpaceA(), units[i]) << bytes[i];
    }
    HeadlessSetDiskRoom(nullptr);

    TempTree tree;
    tree.MakeDir("gone");
    ASSERT_EQ(chdir(tree.Path("gone").c_str()), 0);
    struct statvfs room;
    ASSERT_EQ(statvfs("/", &room), 0); // drive Z: is the file system of "/"
    double const expected = double(room.f_bavail) * double(room.f_frsize) / 65536;
    EXPECT_NEAR(load.GetDiskFreeSpaceA(), expected, expected / 100 + 16);
    ASSERT_EQ(rmdir(tree.Path("gone").c_str()), 0); // the current directory cannot be read
    EXPECT_EQ(load.GetDiskFreeSpaceA(), 0u);
}

// Read-only is the owner write bit alone.
TEST(DirectoryServices, PlatformAttributes) {
    TempTree tree;
    tree.MakeFile("f");
    std::string const file = tree.WinPath("f");
    struct stat status;
    for (DWORD attributes : {0x21u, 0x20u, 0x1u, 0x80u}) {
        tree.SetMode("f", attributes & 1 ? 0664 : 0464);
        EXPECT_TRUE(SetFileAttributesA(file.c_str(), attributes));
        EXPECT_TRUE(stat(tree.Path("f").c_str(), &status) == 0 &&
                    (status.st_mode & 0777) == (attributes & 1 ? 0464u : 0664u));
    }
    EXPECT_FALSE(SetFileAttributesA(tree.WinPath("missing").c_str(), 0x20));
}
