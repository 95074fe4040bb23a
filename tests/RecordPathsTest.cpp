#include "support/Backend.h"
#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <string>

namespace {

DFile Record(std::string const& path) {
    DFile file;
    file.SetFullPath(DName(path.c_str()));
    return file;
}

} // namespace

TEST(RecordPaths, WildCardMatchesTheWholePathWithoutBacktracking) {
    struct Case {
        char const* pattern;
        char const* path;
        bool matches;
        // clang-format off
    } const cases[] = {
        {"*", "Z:\\any\\path.txt", true}, {"*", "", false}, {"", "a", false}, {"a*", "a", false},
        {"a*c", "abxc", true}, {"a*bc", "abxbc", false}, {"*?", "ab?", true}, {"*?", "a?b", false},
        {"**", "ab*", true}, {"**", "a*b", false}, {"A?", "ab", false}, {"a?", "ab", true},
        {"?", "ab", false}, {"ab", "a", false}, {"Z:\\*.txt", "Z:\\d\\n.txt", true},
        {"*.txt", "n.txt.bak", false}, {"a*", "ab", true}, {"*b", "abab", false},
    };
    // clang-format on
    for (Case const& c : cases) {
        DFile file = Record(c.path);
        EXPECT_EQ(file.IsWildCard(DName(c.pattern)), c.matches) << c.pattern << " " << c.path;
    }
}

TEST(RecordPaths, ParentShortAndLongForms) {
    ONLY_ON_POSIX_BACKEND("no 8.3 names (Wine makes them)");
    TempTree tree;
    tree.MakeDir("d");
    tree.MakeFile("d/f.txt");
    std::string const dir = tree.WinPath("d"), file = tree.WinPath("d\\f.txt");
    struct Case {
        std::string record, argument, parent;
    } const cases[] = {
        {file, "", dir},                                    // a file loses its name
        {"", file, dir},                                    // the argument goes first
        {dir, "", dir},                                     // a directory stays whole
        {dir + "\\", "", dir + "\\"},                       // with its separator
        {tree.WinPath("d\\no"), "", tree.WinPath("d\\no")}, // a missing path too
        {"", "", ""},
    };
    for (Case const& c : cases) {
        DFile const record = Record(c.record);
        EXPECT_EQ(&record.GetParentPath(DName(c.argument.c_str())), c.parent) << c.record;
    }

    // No 8.3 names on this volume: both forms give the path as it stands, existing or not.
    for (std::string const& path : {file, dir, tree.WinPath("d\\missing.txt"), std::string()}) {
        DFile const record = Record(path);
        EXPECT_EQ(&record.GetOldStyle(), path);
        EXPECT_EQ(&record.GetNewStyle(), path);
        std::string const last = path.substr(path.find_last_of('\\') + 1);
        EXPECT_EQ(&record.GetOldFullPath(), last);
        EXPECT_EQ(&record.GetNewFullPath(), last);
    }
}
