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

std::string Cwd() {
    return fs::current_path().string();
}

std::string Slashed(std::string path) {
    for (char& c : path)
        c = c == '\\' ? '/' : c;
    return path;
}

} // namespace

// Each case on a fresh tree of a file, a read-only file, an empty directory and a full one.
TEST(DirectoryServices, RemoveTakesFilesAndEmptyDirectoriesOnly) {
    struct Case {
        char const* path; // below the tree; "" is the empty name
        bool slashed;     // written with '/' instead of '\'
        bool removed;
        char const* gone;
    } const cases[] = {
        {"", false, false, ""},
        {"f", false, true, "f"},
        {"ro", false, true, "ro"},
        {"missing", false, false, ""},
        {"full", false, false, ""},
        {"empty", false, true, "empty"},
        {"empty", true, true, "empty"},
        {"empty\\", false, true, "empty"},
        {"full\\g", true, true, "full/g"},
    };
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
        std::string path = *c.path ? tree.WinPath(c.path) : "";
        if (c.slashed)
            path = Slashed(path);
        ASSERT_EQ(chdir("/"), 0); // a full path works from any current directory
        DFileLoad load;
        EXPECT_EQ(load.Remove(DName(path.c_str())), c.removed) << c.path;
        EXPECT_EQ(Tree(tree), expected) << c.path;
        EXPECT_EQ(Cwd(), "/");
    }
}

TEST(DirectoryServices, MakeDirCreatesEveryLevelAndEntersIt) {
    struct Case {
        char const* path;
        bool single, slashed, made;
        char const* cwd; // where the process stands afterwards, below the tree
    } const cases[] = {
        {"", false, false, false, "."},
        {"", true, false, false, "."},
        {"a\\b\\c", false, false, true, "a/b/c"},
        {"a\\b\\c", false, true, true, "a/b/c"},
        {"old\\sub", false, false, true, "old/sub"}, // exists already
        {"s\\\\", true, false, true, "s"},
        {"s", true, true, true, "s"},
        {"file\\x\\y", false, false, false, "."}, // a level that cannot be made
    };
    for (Case const& c : cases) {
        TempTree tree;
        tree.MakeDir("old");
        tree.MakeDir("old/sub");
        tree.MakeFile("file");
        ASSERT_EQ(chdir(tree.Root().c_str()), 0);
        std::string path = *c.path ? tree.WinPath(c.path) : "";
        if (c.slashed)
            path = Slashed(path);
        DFileLoad load;
        DName const name(path.c_str());
        EXPECT_EQ(c.single ? load.MakeSingleDir(name) : load.MakeDir(name), c.made) << c.path;
        EXPECT_TRUE(fs::equivalent(Cwd(), tree.Path(c.cwd))) << c.path;
    }
}

TEST(DirectoryServices, FreeRoomIn64KiBUnits) {
    struct Case {
        std::uint64_t bytes;
        DWORD units;
    } const cases[] = {
        {1000000, 15}, {65535, 0}, {65536, 1}, {(std::uint64_t(1) << 48) + 5 * 65536 + 3, 5}};
    DFileLoad load;
    for (Case const& c : cases) {
        HeadlessSetDiskRoom(&c.bytes);
        EXPECT_EQ(load.GetDiskFreeSpaceA(), c.units) << c.bytes;
    }
    HeadlessSetDiskRoom(nullptr);

    TempTree tree;
    ASSERT_EQ(chdir(tree.Root().c_str()), 0);
    struct statvfs room;
    ASSERT_EQ(statvfs("/", &room), 0); // drive Z: is the file system of "/"
    double const expected = double(room.f_bavail) * double(room.f_frsize) / 65536;
    EXPECT_NEAR(load.GetDiskFreeSpaceA(), expected, expected / 100 + 16);

    tree.MakeDir("gone");
    ASSERT_EQ(chdir(tree.Path("gone").c_str()), 0);
    ASSERT_EQ(rmdir(tree.Path("gone").c_str()), 0); // the current directory cannot be read
    EXPECT_EQ(load.GetDiskFreeSpaceA(), 0u);
}

TEST(DirectoryServices, PlatformFileSystemChanges) {
    TempTree tree;
    tree.MakeFile("f");
    tree.MakeDir("d");
    std::string const file = tree.WinPath("f"), dir = tree.WinPath("d");
    auto mode = [&] {
        struct stat status;
        return stat(tree.Path("f").c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
    };
    tree.SetMode("f", 0644);
    EXPECT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY | 0x20));
    EXPECT_EQ(mode(), 0444u);
    EXPECT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_EQ(mode(), 0644u);
    EXPECT_FALSE(SetFileAttributesA(tree.WinPath("missing").c_str(), 0x20));
    EXPECT_EQ(_unlink(dir.c_str()), -1);
    EXPECT_FALSE(CreateDirectoryA(dir.c_str(), nullptr));
    EXPECT_FALSE(RemoveDirectoryA(tree.WinPath("missing").c_str()));

    // Short and long forms: the path itself, with the Windows conventions for buffer sizes.
    for (auto form : {GetShortPathNameA, GetLongPathNameA}) {
        DWORD const length = static_cast<DWORD>(file.size());
        char buffer[4096];
        std::fill(buffer, buffer + sizeof buffer, '#');
        EXPECT_EQ(form(file.c_str(), nullptr, 0), length + 1);
        EXPECT_EQ(form(file.c_str(), buffer, length), length + 1);
        EXPECT_EQ(buffer[0], '#');
        EXPECT_EQ(form(file.c_str(), buffer, length + 1), length);
        EXPECT_EQ(std::string(buffer), file);
        EXPECT_EQ(form(tree.WinPath("missing").c_str(), buffer, sizeof buffer), 0u);
        EXPECT_EQ(form("", buffer, sizeof buffer), 0u);
    }
}
