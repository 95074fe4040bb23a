#include "support/Backend.h"
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
        entries.insert(fs::relative(entry.path(), tree.Root()).generic_string());
    return entries;
}

// A path on drive Z: whose root part has '/' and whose `relative` part is written as given.
DName Full(TempTree const& tree, std::string const& relative) {
    return DName(relative.empty() ? "" : ("Z:" + tree.Root() + "\\" + relative).c_str());
}

} // namespace

// Each case on a fresh tree of a file, a read-only file, an empty directory and a full one.
// Removals start from the root directory: a full path works from anywhere.
TEST(DirectoryServices, RemoveAndMakeDirOnARealTree) {
    struct Case {
        char op;          // Remove, MakeDir, MakeSingleDir
        char const* path; // below the tree; "" is the empty name
        bool result;
        char const *gone, *made, *cwd; // cwd below the tree, or "/"
        // clang-format off
    } const cases[] = {
        {'r', "", false, "", "", "/"}, {'r', "f", true, "f", "", "/"},
        {'r', "ro", true, "ro", "", "/"}, {'r', "missing", false, "", "", "/"},
        {'r', "full", false, "", "", "/"}, {'r', "empty", true, "empty", "", "/"},
        {'r', "empty\\", true, "empty", "", "/"}, {'r', "empty//", true, "empty", "", "/"},
        {'r', "full/g", true, "full/g", "", "/"}, {'m', "", false, "", "", ""},
        {'s', "", false, "", "", ""}, {'m', "a\\b\\c", true, "", "a/b/c", "a/b/c"},
        {'m', "a/b//c", true, "", "a/b/c", "a/b/c"}, {'m', "full", true, "", "", "full"},
        {'s', "s\\\\", true, "", "s", "s"}, {'s', "s/", true, "", "s", "s"},
        {'m', "f\\x\\y", false, "", "", ""}, // f is a file: the walk stops in the tree
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
        for (fs::path made = c.made; !made.empty(); made = made.parent_path())
            expected.insert(made.generic_string());
        ASSERT_EQ(chdir(c.op == 'r' ? "/" : tree.Root().c_str()), 0);
        DFileLoad const load;
        DName const path = Full(tree, c.path);
        bool const result = c.op == 'r'   ? load.Remove(path)
                            : c.op == 'm' ? load.MakeDir(path)
                                          : load.MakeSingleDir(path);
        EXPECT_EQ(result, c.result) << c.op << c.path;
        EXPECT_EQ(Tree(tree), expected) << c.op << c.path;
        EXPECT_TRUE(fs::equivalent(fs::current_path(), *c.cwd == '/' ? "/" : tree.Path(c.cwd)));
    }
}

TEST(DirectoryServices, FreeRoomIn64KiBUnits) {
    ONLY_ON_POSIX_BACKEND("the disk room hook");
    DFileLoad load;
    for (auto [bytes, units] : {std::pair<std::uint64_t, DWORD>{1000000, 15},
                                {65535, 0},
                                {65536, 1},
                                {(std::uint64_t(1) << 48) + 5 * 65536 + 3, 5}}) {
        HeadlessSetDiskRoom(&bytes);
        EXPECT_EQ(load.GetDiskFreeSpaceA(), units) << bytes;
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
    ONLY_ON_POSIX_BACKEND("the owner write bit");
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
