// Names of every byte, paths of any length: the search lists exactly what a plain POSIX walk
// lists, each name in its Windows form, and never leaves its roots.
#include "support/TempTree.h"

#include <tessik/Controls.h>
#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// The Windows form of a POSIX path: each of the bytes \ : * ? " < > | of a name becomes
// U+F000 + byte in UTF-8, and `/` separates.
std::string Mapped(std::string const& posix) {
    std::string out = "Z:";
    for (unsigned char c : posix) {
        if (std::string("\\:*?\"<>|").find(static_cast<char>(c)) != std::string::npos)
            out +=
                {'\xEF', static_cast<char>(0x80 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
        else
            out += c == '/' ? '\\' : static_cast<char>(c);
    }
    return out;
}

struct Search {
    std::map<std::string, DWORD> found; // path and kind of each record
    std::string status;
    bool result;
    DWORD searched, dirs;
};

Search SearchTree(std::string const& dir, char const* text = nullptr) {
    DirectoryListingSpec spec(DName("*.*"), DName(dir.c_str()));
    if (text) {
        spec.textToFind = text;
        spec.containingMode = 1;
    }
    DFileLoad load;
    DStatusWnd status;
    load.SetupControls(nullptr, nullptr, &status, nullptr);
    // Braced initialisers run in order: the tallies are read after the search.
    Search search{
        {}, "", load.LoadAllDirListings(spec, true), load.totalSearched, load.totalSearchDirs};
    for (DFile const* file = load.files.head; file; file = file->next)
        search.found[&file->GetFullPath()] = file->GetAttribute() & 0x430; // the kind
    search.status = &status.Text();
    return search;
}

// What a plain walk lists below `root` (links not followed), each path mapped; with `text`,
// only the regular files that hold it.
std::map<std::string, DWORD> Walk(std::string const& root, char const* text = nullptr) {
    std::map<std::string, DWORD> expected;
    for (auto const& entry : fs::recursive_directory_iterator(root)) {
        fs::file_type const type = entry.symlink_status().type();
        bool const regular = type == fs::file_type::regular;
        std::stringstream content;
        if (text && regular)
            content << std::ifstream(entry.path()).rdbuf();
        if (text && content.str().find(text) == std::string::npos)
            continue;
        expected[Mapped(entry.path().string())] = type == fs::file_type::directory ? 0x10
                                                  : regular                        ? 0x20
                                                                                   : 0x400;
    }
    return expected;
}

} // namespace

TEST(HostileNames, TreesOfRandomNamesListAsAPlainWalkDoes) {
    std::mt19937 random(11);
    auto pick = [&](unsigned n) { return static_cast<unsigned>(random() % n); };
    auto name = [&] {
        std::string text;
        unsigned const length = 1 + (pick(8) == 0 ? pick(250) : pick(6));
        for (unsigned i = 0; i < length; ++i)
            text += pick(2) ? "\\:*?\"<>|."[pick(9)] : static_cast<char>(1 + pick(255));
        for (std::size_t at = 0; (at = text.find('/', at)) != std::string::npos;)
            text[at] = '\\';
        for (std::size_t at = 0; (at = text.find('\xEF', at)) != std::string::npos;)
            text[at] = 'e'; // a name that already holds a mapped form is the one ambiguity
        return text == "." || text == ".." ? text + "." : text;
    };
    for (int round = 0; round < 12; ++round) {
        TempTree tree;
        tree.MakeDir("t");
        std::vector<std::string> dirs = {"t"};
        if (round == 0) { // names that look like paths, and a tree beside t that they could reach
            for (char const* dir :
                 {"t/\\", "t/\\\\", "t/a", "t/..\\secret", "t/a\\.", "t/.\\", "secret"})
                tree.MakeDir(dir);
            for (char const* file : {"t/a\\b", "t/..\\secret/password", "t/\\\\/x", "t/a/b",
                                     "t/a\\..", "secret/password"})
                tree.MakeFile(file, "NEEDLE");
        }
        for (int i = 0; i < 60; ++i) {
            std::string const path = dirs[pick(static_cast<unsigned>(dirs.size()))] + "/" + name();
            if (fs::exists(fs::symlink_status(tree.Path(path))))
                continue;
            switch (pick(4)) {
            case 0:
                tree.MakeDir(path);
                dirs.push_back(path);
                break;
            case 1:
                fs::create_symlink(pick(2) ? tree.Path(dirs[0]) : tree.Path("t/none"),
                                   tree.Path(path));
                break;
            default:
                tree.MakeFile(path, pick(2) ? "hay NEEDLE hay" : "hay");
            }
        }
        // A name too long for a find record is counted, and what lies below it is not reached.
        auto fits = [](std::string const& path, std::size_t end) {
            for (std::size_t from = 0, to = 0; from < end; from = to + 1)
                if ((to = std::min(path.find('\\', from), end)) - from >= MAX_PATH)
                    return false;
            return true;
        };
        auto expected = Walk(tree.Path("t")), withText = Walk(tree.Path("t"), "NEEDLE");
        unsigned tooLong = 0;
        for (auto it = expected.begin(); it != expected.end();) {
            std::string const path = it->first;
            bool const listed = fits(path, path.size());
            tooLong += !listed && fits(path, path.rfind('\\'));
            if (!listed)
                withText.erase(path);
            it = listed ? std::next(it) : expected.erase(it);
        }
        Search const all = SearchTree(tree.WinPath("t"));
        EXPECT_TRUE(all.result);
        EXPECT_EQ(all.found, expected) << round;
        EXPECT_EQ(all.searched, expected.size());
        EXPECT_EQ(all.dirs,
                  1 + std::count_if(expected.begin(), expected.end(),
                                    [](auto const& entry) { return entry.second == 0x10; }));
        EXPECT_EQ(all.status,
                  tooLong ? "Entries not listed: " + std::to_string(tooLong) + "." : " ");
        EXPECT_EQ(SearchTree(tree.WinPath("t"), "NEEDLE").found, withText);
    }
}

// Also where a tree is deep: the search queues directories, it does not recurse.
TEST(HostileNames, PathsLongerThanTheSystemTakesInOneCall) {
    TempTree tree;
    std::string path = "deep";
    tree.MakeDir(path);
    ASSERT_EQ(chdir(tree.Path(path).c_str()), 0);
    for (int level = 0; level < 25; ++level) {
        std::string const name(200, static_cast<char>('a' + level % 26));
        ASSERT_EQ(mkdir(name.c_str(), 0700), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
        std::ofstream("file") << "needle";
        path += "/" + name;
    }
    ASSERT_EQ(mkdir("empty", 0700), 0);
    ASSERT_GT(tree.Path(path).size(), std::size_t(PATH_MAX));
    EXPECT_EQ(SearchTree(tree.WinPath("deep")).found.size(), 51u);
    EXPECT_EQ(SearchTree(tree.WinPath("deep"), "needle").found.size(), 25u);
    DFileLoad load;
    std::string const deepest = Mapped(tree.Path(path));
    EXPECT_TRUE(load.isDir(DName(deepest.c_str())));
    ASSERT_TRUE(load.ChangeDir(DName((deepest + "\\..").c_str())));
    EXPECT_EQ(std::string(&load.GetDir()), deepest.substr(0, deepest.rfind('\\')));
    EXPECT_TRUE(FileOper((deepest + "\\file").c_str(), false).isOpen());
    DirectoryListingSpec const all("*.*");
    EXPECT_TRUE(load.isDirEmpty(all, DName((deepest + "\\empty").c_str())));
    EXPECT_TRUE(load.isDirEmpty(all, DName((deepest + "\\none").c_str())));
    EXPECT_FALSE(load.isDirEmpty(all, DName(deepest.c_str())));
    EXPECT_TRUE(load.isDirEmpty(DirectoryListingSpec("*.zip"), DName(deepest.c_str())));
}

TEST(HostileNames, RelativeStartDirectoriesGiveFullPathsAndLinksAreNotRead) {
    TempTree tree;
    for (char const* dir : {"t", "t/special", "t/special/inner"})
        tree.MakeDir(dir);
    tree.MakeFile("t/special/inner/f");
    auto const expected = Walk(tree.Path("t/special"));
    std::pair<char const*, char const*> const starts[] = {
        {"t", "special"}, {"t/special", "."}, {"t/special/inner", ".."}, {"t", "Z:special"}};
    for (auto const& [cwd, dir] : starts) {
        ASSERT_EQ(chdir(tree.Path(cwd).c_str()), 0);
        EXPECT_EQ(SearchTree(dir).found, expected) << dir;
    }
    // Content is never read through a link.
    tree.MakeFile("target", "needle");
    fs::create_symlink(tree.Path("target"), tree.Path("t/link"));
    EXPECT_EQ(SearchTree(tree.WinPath("t"), "needle").found.size(), 0u);
    EXPECT_FALSE(FileOper(tree.WinPath("t\\link").c_str(), false).isOpen());
}

// Armed, the next GetCurrentDirectoryA given a buffer answers as if the path had grown since
// its size was asked: the size it now needs, and nothing written.
bool growBeforeFetch = false;
DWORD GetCurrentDirectoryA(DWORD size, char* buffer) {
    static auto const real =
        reinterpret_cast<DWORD (*)(DWORD, char*)>(dlsym(RTLD_NEXT, "_Z20GetCurrentDirectoryAjPc"));
    if (buffer && growBeforeFetch) {
        growBeforeFetch = false;
        return real(0, nullptr) + 100;
    }
    return real(size, buffer);
}

TEST(HostileNames, CurrentDirectoryReadWhileItsPathGrows) {
    TempTree tree;
    DFileLoad load;
    ASSERT_TRUE(load.ChangeDir(DName(tree.WinPath().c_str())));
    growBeforeFetch = true;
    EXPECT_STREQ(&load.GetDir(), tree.WinPath().c_str());
    EXPECT_FALSE(growBeforeFetch);
}
