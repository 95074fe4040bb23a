#include "support/Backend.h"
#include "support/Records.h"

#include <tuple>

TEST(RecordPaths, WildCardMatchesTheWholePathWithoutBacktracking) {
    // clang-format off
    std::tuple<char const*, char const*, bool> const cases[] = {
        {"*", "Z:\\any\\path.txt", true}, {"*", "", false}, {"", "a", false}, {"a*", "a", false},
        {"a*c", "abxc", true}, {"a*bc", "abxbc", false}, {"*?", "ab?", true}, {"*?", "a?b", false},
        {"**", "ab*", true}, {"**", "a*b", false}, {"A?", "ab", false}, {"a?", "ab", true},
        {"?", "ab", false}, {"ab", "a", false}, {"Z:\\*.txt", "Z:\\d\\n.txt", true},
        {"*.txt", "n.txt.bak", false}, {"a*", "ab", true}, {"*b", "abab", false},
    }; // clang-format on
    for (auto const& [pattern, path, matches] : cases)
        EXPECT_EQ(Record(path).IsWildCard(DName(pattern)), matches) << pattern << " " << path;
}

TEST(RecordPaths, ParentShortAndLongForms) {
    ONLY_ON_POSIX_BACKEND("no 8.3 names (Wine makes them)");
    TempTree tree;
    tree.MakeDir("d");
    tree.MakeFile("d/f.txt");
    std::string const dir = tree.WinPath("d"), file = tree.WinPath("d\\f.txt");
    std::string const missing = tree.WinPath("d\\no");
    std::string const cases[][3] = {
        // record, argument, parent
        {file, "", dir},                // a file loses its name
        {"", file, dir},                // the argument goes first
        {file, dir + "\\", dir + "\\"}, // even before a record of its own
        {dir, "", dir},                 // a directory stays whole
        {dir + "\\", "", dir + "\\"},   // with its separator
        {missing, "", missing},         // a missing path too
        {"", "", ""},
    };
    for (auto const& c : cases)
        EXPECT_EQ(&Record(c[0].c_str()).GetParentPath(DName(c[1].c_str())), c[2]) << c[0];

    // No 8.3 names on this volume: both forms give the path as it stands, existing or not.
    for (std::string const& path : {file, dir, missing, std::string()}) {
        DFile const record = Record(path.c_str());
        std::string const last = path.substr(path.find_last_of('\\') + 1);
        EXPECT_EQ(&record.GetOldStyle() + std::string("|") + &record.GetNewStyle() + "|" +
                      &record.GetOldFullPath() + "|" + &record.GetNewFullPath(),
                  path + "|" + path + "|" + last + "|" + last);
    }
}
