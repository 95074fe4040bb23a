#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Every entry of a directory by name, with its find record.
std::map<std::string, WIN32_FIND_DATAA> Enumerate(std::string const& pattern) {
    std::map<std::string, WIN32_FIND_DATAA> entries;
    WIN32_FIND_DATAA data;
    HANDLE find = FindFirstFileA(pattern.c_str(), &data);
    if (find == INVALID_HANDLE_VALUE)
        return entries;
    do
        entries[data.cFileName] = data;
    while (FindNextFileA(find, &data));
    FindClose(find);
    return entries;
}

} // namespace

TEST(PlatformFind, AttributesOfEveryKindOfEntry) {
    TempTree tree;
    tree.MakeFile("plain", "abc");
    tree.MakeFile(".hidden");
    tree.MakeFile("locked");
    tree.SetMode("locked", 0444);
    tree.MakeDir("dir");
    ASSERT_EQ(symlink(tree.Path("dir").c_str(), tree.Path("link").c_str()), 0);
    ASSERT_EQ(mkfifo(tree.Path("fifo").c_str(), 0644), 0);
    tree.MakeFile("caf\xc3\xa9 \xff", "x");
    auto entries = Enumerate(tree.WinPath("*.*"));
    ASSERT_EQ(entries.size(), 9u); // with "." and ".."
    std::map<std::string, std::pair<DWORD, DWORD>> const expected = {
        // attributes, size
        {"plain", {0x20, 3}},           {".hidden", {0x22, 0}},
        {"locked", {0x21, 0}},          {"dir", {0x10, 0}},
        {"link", {0x400, 0}},           {"fifo", {0x4, 0}},
        {"caf\xc3\xa9 \xff", {0x20, 1}}}; // a link is never a directory
    for (auto const& [name, attributesAndSize] : expected) {
        EXPECT_EQ(entries[name].dwFileAttributes, attributesAndSize.first) << name;
        EXPECT_EQ(entries[name].nFileSizeLow, attributesAndSize.second) << name;
    }
    EXPECT_EQ(entries["."].dwFileAttributes & 0x12, 0x10u);
    EXPECT_EQ(entries["plain"].cAlternateFileName[0], 0);
    EXPECT_EQ(GetFileAttributesA("Z:\\dev\\null"), 0x4u);

    // Patterns match without regard to case; without wildcards, that one entry.
    tree.MakeFile("Report.TXT");
    tree.MakeFile("notes.txt");
    for (auto const& [pattern, count] :
         std::map<std::string, unsigned>{{tree.WinPath("*.txt"), 2},
                                         {tree.Path("r*"), 1},
                                         {tree.WinPath("?????.txt"), 1},
                                         {tree.WinPath("*.zip"), 0},
                                         {tree.WinPath("notes.txt"), 1}})
        EXPECT_EQ(Enumerate(pattern).size(), count) << pattern; // forward slashes work too
    EXPECT_EQ(Enumerate(tree.WinPath("notes.txt")).count("notes.txt"), 1u);
}

TEST(PlatformFind, OnlyDriveZExistsAndHoldsTheCurrentDirectory) {
    TempTree tree;
    tree.MakeDir("sub");
    tree.MakeFile("sub/f");
    for (std::string const& path : {"z:" + tree.Path("sub/f"), tree.Path("sub/f"),
                                    tree.WinPath("sub\\f"), tree.WinPath("sub/f").substr(2)})
        EXPECT_EQ(GetFileAttributesA(path.c_str()), 0x20u) << path;
    ASSERT_TRUE(SetCurrentDirectoryA(tree.WinPath().c_str()));
    for (char const* path : {"sub\\f", "Z:sub\\f", "z:sub/f", "sub\\..\\sub\\f"})
        EXPECT_EQ(GetFileAttributesA(path), 0x20u) << path;
    for (std::string const& path :
         {"C:" + tree.Path("sub/f"), "\\" + tree.WinPath("sub\\f").substr(2),
          std::string("C:sub\\f"), std::string("f"), std::string()})
        EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES) << path;
    WIN32_FIND_DATAA data;
    for (std::string const& pattern :
         {"C:" + tree.Path("*.*"), std::string(), tree.WinPath("missing\\*.*")})
        EXPECT_EQ(FindFirstFileA(pattern.c_str(), &data), INVALID_HANDLE_VALUE) << pattern;
    EXPECT_FALSE(FindNextFileA(nullptr, &data));
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(SetCurrentDirectoryA("C:\\"));

    // The current directory as a Windows path.
    DWORD const needed = GetCurrentDirectoryA(0, nullptr);
    EXPECT_EQ(needed, tree.WinPath().size() + 1);
    char small[4];
    EXPECT_EQ(GetCurrentDirectoryA(sizeof small, small), needed);
    std::string buffer(needed, 'x');
    EXPECT_EQ(GetCurrentDirectoryA(needed, buffer.data()), needed - 1);
    EXPECT_STREQ(buffer.c_str(), tree.WinPath().c_str());
    ASSERT_TRUE(SetCurrentDirectoryA("Z:\\"));
    char root[8];
    EXPECT_EQ(GetCurrentDirectoryA(sizeof root, root), 3u);
    EXPECT_STREQ(root, "Z:\\");
}

TEST(Wildcard, MatchesStarsAndQuestionMarksInAnyCase) {
    char const* const matching[][2] = {{"README.TXT", "*.txt"},
                                       {"abxbcd", "*b?d"},
                                       {"mississippi", "m*iss*ppi"},
                                       {"abc", "abc.*"},
                                       {"noext", "*.*"},
                                       {"a.b.z", "*.Z"},
                                       {"", "*"}};
    char const* const failing[][2] = {
        {"readme.txt", "*.doc"}, {"", "?"},        {"abc", "a?"},    {"mississippi", "m*iss*ppx"},
        {"abcd", "abc.*"},       {"a.b.c", "*.b"}, {"ab", "*?*?*?*"}};
    for (auto const& c : matching)
        EXPECT_TRUE(DName(c[0]).isFileSpec(DName(c[1]))) << c[0] << " ~ " << c[1];
    for (auto const& c : failing)
        EXPECT_FALSE(DName(c[0]).isFileSpec(DName(c[1]))) << c[0] << " ~ " << c[1];
    EXPECT_FALSE(PathMatchSpecA(nullptr, "*"));

    // Would take ages with a matcher that tries every split.
    std::string many(5000, 'a');
    EXPECT_FALSE(PathMatchSpecA(many.c_str(), "*a*a*a*a*a*a*a*a*a*a*b"));
}
