// Windows paths reach the POSIX file system as drive Z: (seen through the file functions).
#include <tessik/FileOper.h>

#include "support/Backend.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <string>
#include <unistd.h>

namespace {

bool Opens(std::string const& path) {
    return FileOper(path.c_str(), false).isOpen();
}

} // namespace

TEST(PathMapping, AbsolutePathsAreOnDriveZ) {
    ONLY_ON_POSIX_BACKEND("POSIX names with Windows-forbidden bytes");
    TempTree tree;
    tree.MakeFile("f.txt", "x");
    std::string posixPath = tree.Path("f.txt");
    std::string windowsPath = tree.WinPath("f.txt");

    EXPECT_TRUE(Opens(windowsPath));
    EXPECT_TRUE(Opens("z:" + posixPath));
    EXPECT_TRUE(Opens(posixPath));
    EXPECT_TRUE(Opens(windowsPath.substr(2)));
    EXPECT_FALSE(Opens("C" + windowsPath.substr(1)));
    EXPECT_FALSE(Opens("\\" + windowsPath.substr(2)));
    EXPECT_FALSE(Opens(""));
    EXPECT_FALSE(FileOper(nullptr, false).isOpen());

    FileOper(tree.WinPath("new.txt").c_str(), true).Write("ok", 2);
    EXPECT_EQ(FileOper(tree.Path("new.txt").c_str(), false).GetLength(), 2u);

    // A POSIX name holding a backslash cannot be addressed.
    tree.MakeFile("a\\b", "x");
    EXPECT_FALSE(Opens(tree.Path("a\\b")));
}

TEST(PathMapping, RelativePathsFollowTheCurrentDirectory) {
    TempTree tree;
    tree.MakeDir("sub");
    tree.MakeFile("sub/f.txt", "x");
    ASSERT_EQ(chdir(tree.Root().c_str()), 0);

    EXPECT_TRUE(Opens("sub\\f.txt"));
    EXPECT_TRUE(Opens("Z:sub\\f.txt"));
    EXPECT_TRUE(Opens("z:sub/f.txt"));
    EXPECT_FALSE(Opens("C:sub\\f.txt"));
    EXPECT_FALSE(Opens("f.txt"));
    ASSERT_EQ(chdir("sub"), 0);
    EXPECT_TRUE(Opens("..\\sub\\f.txt"));
}
