#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace {

namespace fs = std::filesystem;

std::set<std::string> Tree(TempTree const& tree) {
    std::set<std::string> entries;
    for (auto const& entry : fs::recursive_directory_iterator(tree.Root()))
        entries.insert(fs::relative(entry.path(), tree.Root()).generic_string());
    return entries;
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
        fs::current_path(c.op == 'r' ? "/" : tree.Root());
        DFileLoad const load;
        // On drive Z:, the root part with '/', the part below it written as given.
        DName const path(*c.path ? ("Z:" + tree.Root() + "\\" + c.path).c_str() : "");
        bool const result = c.op == 'r'   ? load.Remove(path)
                            : c.op == 'm' ? load.MakeDir(path)
                                          : load.MakeSingleDir(path);
        EXPECT_EQ(result, c.result) << c.op << c.path;
        EXPECT_EQ(Tree(tree), expected) << c.op << c.path;
        EXPECT_TRUE(fs::equivalent(fs::current_path(), *c.cwd == '/' ? "/" : tree.Path(c.cwd)));
    }
}
