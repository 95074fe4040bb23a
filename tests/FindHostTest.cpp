// The example host tessik-find, run as a program on generated trees with its output a pipe.
#include "support/Backend.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace {

#ifdef TESSIK_FIND_PATH
char const* const findPath = TESSIK_FIND_PATH;
#else
char const* const findPath = nullptr; // the example host is not built: the tests skip
#endif

struct Outcome {
    int status = -1; // the exit status; -1 when the program did not exit by itself
    std::string out;
    std::string err;
};

std::string Quoted(std::string const& text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::vector<std::string> Lines(std::string const& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// The tree every test searches, below "t" of the temporary directory; all dates fixed.
// 1700000000 is 2023-11-14 22:13:20 UTC, 1500000000 is 2017-07-14 02:40:00 UTC.
class FindHost : public ::testing::Test {
protected:
    void SetUp() override {
        if (!findPath)
            GTEST_SKIP() << "tessik-find is not built";
        ONLY_ON_POSIX_BACKEND("the host runs through a POSIX shell");
        tree.MakeDir("t");
        tree.MakeDir("t/sub");
        tree.MakeDir("t/sub/deep");
        tree.MakeFile("t/a.txt", "hello world");
        tree.MakeFile("t/notes.md", "The Needle is here\n");
        tree.MakeFile("t/sub/b.log", std::string(2000, 'x'));
        tree.MakeFile("t/sub/deep/c.txt", std::string(5000, 'y') + "needle");
        tree.SetTimes("t/sub/b.log", 1500000000);
        for (char const* entry :
             {"t/a.txt", "t/notes.md", "t/sub/deep/c.txt", "t/sub/deep", "t/sub", "t"})
            tree.SetTimes(entry, 1700000000);
    }

    // Runs tessik-find in directory `cwd` of the tree, stdout and stderr caught.
    Outcome Find(std::vector<std::string> const& args, std::string const& cwd = "t") const {
        Outcome run;
        std::string const errFile = tree.Path("stderr.txt");
        std::string command = "cd " + Quoted(tree.Path(cwd)) + " && " + Quoted(findPath);
        for (std::string const& arg : args)
            command += " " + Quoted(arg);
        command += " 2>" + Quoted(errFile);
        std::FILE* pipe = popen(command.c_str(), "r");
        if (!pipe)
            return run;
        char buffer[4096];
        for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            run.out.append(buffer, n);
        int const status = pclose(pipe);
        run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        std::ifstream err(errFile);
        std::stringstream text;
        text << err.rdbuf();
        run.err = text.str();
        return run;
    }

    // The paths of the records, the last field of each aligned line.
    std::vector<std::string> Paths(Outcome const& run) const {
        std::vector<std::string> paths;
        for (std::string const& line : Lines(run.out))
            paths.push_back(line.substr(line.find("Z:\\")));
        return paths;
    }

    std::string Win(std::string const& relative) const { return tree.WinPath(relative); }

    TempTree tree;
};

TEST_F(FindHost, WithoutArgumentsListsTheCurrentTreeDirectoriesFirst) {
    Outcome const run = Find({});
    EXPECT_EQ(run.status, 0);
    std::string const recent = "11/14/2023 10:13:20 PM";
    std::string const expected = "-D-------     0  " + recent + "  " + Win("t/sub") + "\n" +      //
                                 "-D-------     0  " + recent + "  " + Win("t/sub/deep") + "\n" + //
                                 "--A------    11  " + recent + "  " + Win("t/a.txt") + "\n" +    //
                                 "--A------    19  " + recent + "  " + Win("t/notes.md") + "\n" + //
                                 "--A------  2000  7/14/2017 2:40:00 AM    " + Win("t/sub/b.log") +
                                 "\n" + "--A------  5006  " + recent + "  " +
                                 Win("t/sub/deep/c.txt") + "\n";
    EXPECT_EQ(run.out, expected);
    EXPECT_EQ(run.err, ""); // a pipe gets the result and nothing else
}

TEST_F(FindHost, PosixAndWindowsDirectoriesGiveTheSameFullPaths) {
    Outcome const posix = Find({tree.Path("t") + "/"}, "");
    Outcome const windows = Find({Win("t")}, "");
    Outcome const relative = Find({"t"}, "");
    EXPECT_EQ(posix.status, 0);
    EXPECT_EQ(posix.out, Find({}).out);
    EXPECT_EQ(windows.out, posix.out);
    EXPECT_EQ(relative.out, posix.out);
}

TEST_F(FindHost, NoRecurseStaysInTheDirectory) {
    Outcome const run = Find({"-n"});
    std::vector<std::string> const expected = {Win("t/sub"), Win("t/a.txt"), Win("t/notes.md")};
    EXPECT_EQ(Paths(run), expected);
}

TEST_F(FindHost, NamePatternsPickAnyOfTheirNames) {
    std::vector<std::string> const texts = {Win("t/a.txt"), Win("t/sub/deep/c.txt")};
    EXPECT_EQ(Paths(Find({"-name", "*.txt"})), texts);
    std::vector<std::string> const both = {Win("t/a.txt"), Win("t/notes.md"),
                                           Win("t/sub/deep/c.txt")};
    EXPECT_EQ(Paths(Find({"-name", "?.txt", "--name=*.md"})), both);
    EXPECT_EQ(Find({"-name", "??.txt"}).out, "");
}

TEST_F(FindHost, SizeTests) {
    std::vector<std::string> const inRange = {Win("t/sub/b.log")};
    EXPECT_EQ(Paths(Find({"--size", "1k..4k"})), inRange);
    std::vector<std::string> const greater = {Win("t/sub/deep/c.txt")};
    EXPECT_EQ(Paths(Find({"--size", "+2000"})), greater);
    std::vector<std::string> const equal = {Win("t/a.txt")};
    EXPECT_EQ(Paths(Find({"--size", "11"})), equal);
    std::vector<std::string> const less = {Win("t/sub"), Win("t/sub/deep")};
    EXPECT_EQ(Paths(Find({"--size", "-1"})), less);
}

TEST_F(FindHost, AttributeTests) {
    std::vector<std::string> const dirs = {Win("t/sub"), Win("t/sub/deep")};
    EXPECT_EQ(Paths(Find({"--attr", "d"})), dirs);
    EXPECT_EQ(Paths(Find({"--attr-any", "DR"})), dirs);
    EXPECT_EQ(Find({"--not-attr", "D"}).out, Find({"--attr", "A"}).out);
    EXPECT_EQ(Find({"--attr", "DA"}).out, "");
}

TEST_F(FindHost, WrittenDateTests) {
    std::vector<std::string> const old = {Win("t/sub/b.log")};
    EXPECT_EQ(Paths(Find({"--written", "<2020-01-01"})), old);
    EXPECT_EQ(Paths(Find({"--written", "=2017-07-14T02:40:00"})), old);
    EXPECT_EQ(Lines(Find({"--written", ">2020-01-01"}).out).size(), 5u);
}

TEST_F(FindHost, TextSearches) {
    std::vector<std::string> const exact = {Win("t/sub/deep/c.txt")};
    EXPECT_EQ(Paths(Find({"--text", "needle"})), exact);
    std::vector<std::string> const anyCase = {Win("t/notes.md"), Win("t/sub/deep/c.txt")};
    EXPECT_EQ(Paths(Find({"--text", "NEEDLE", "-i"})), anyCase);
    std::vector<std::string> const words = {Win("t/a.txt"), Win("t/sub/deep/c.txt")};
    EXPECT_EQ(Paths(Find({"--any-word", "world needle"})), words);
    EXPECT_EQ(Paths(Find({"--all-words", "hello world"})),
              std::vector<std::string>{Win("t/a.txt")});
    std::vector<std::string> const without = {Win("t/a.txt"), Win("t/sub/b.log")};
    EXPECT_EQ(
        Paths(Find({"-name", "*.txt", "-name", "*.log", "--invert", "-i", "--text", "needle"})),
        without);
}

TEST_F(FindHost, FieldsAreTabSeparatedWithoutPadding) {
    Outcome const run = Find({"--fields", "size,name,path", "-name", "*.txt"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out,
              "11\ta.txt\t" + Win("t/a.txt") + "\n5006\tc.txt\t" + Win("t/sub/deep/c.txt") + "\n");
    Outcome const dates = Find({"--fields", "written,attributes", "-name", "b.log"});
    EXPECT_EQ(dates.out, "7/14/2017 2:40:00 AM\t--A------\n");
}

TEST_F(FindHost, SortBySizeDescending) {
    std::vector<std::string> const expected = {Win("t/sub/deep/c.txt"), Win("t/sub/b.log"),
                                               Win("t/notes.md"), Win("t/a.txt")};
    EXPECT_EQ(Paths(Find({"--sort", "size:desc", "--attr", "A"})), expected);
    std::vector<std::string> const ascending(expected.rbegin(), expected.rend());
    EXPECT_EQ(Paths(Find({"--sort=size", "--attr", "A"})), ascending);
}

TEST_F(FindHost, StatsGoToStderr) {
    Outcome const run = Find({"--stats", "-name", "*.txt"});
    EXPECT_EQ(Lines(run.out).size(), 2u);
    EXPECT_NE(run.err.find("6 entries searched in 3 directories: 2 matches, 5,017 bytes"),
              std::string::npos)
        << run.err;
}

TEST_F(FindHost, MissingDirectoryExitsWithOne) {
    Outcome const run = Find({"no-such-dir"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("no such directory: no-such-dir"), std::string::npos) << run.err;
    EXPECT_EQ(Find({tree.Path("t/gone")}).status, 1);
    EXPECT_EQ(Find({Win("t/a.txt")}).status, 1); // a file is no directory
}

TEST_F(FindHost, BadArgumentsExitWithTwo) {
    Outcome const unknown = Find({"--colour"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.out, "");
    EXPECT_NE(unknown.err.find("unknown option --colour"), std::string::npos) << unknown.err;
    for (std::vector<std::string> const& args :
         std::vector<std::vector<std::string>>{{"--size", "ten"},
                                               {"--size", "4G"},
                                               {"--size", "5..2"},
                                               {"--attr", "X"},
                                               {"--attr", "D", "--not-attr", "H"},
                                               {"--written", "2024-01-01"},
                                               {"--written", "<2023-02-30"},
                                               {"--sort", "size:up"},
                                               {"--fields", "size,colour"},
                                               {"-i"},
                                               {"--text", "a", "--any-word", "b"},
                                               {"-name"},
                                               {"--stats=yes"}}) {
        Outcome const run = Find(args);
        EXPECT_EQ(run.status, 2) << args[0];
        EXPECT_NE(run.err.find("tessik-find: "), std::string::npos) << args[0];
    }
}

TEST_F(FindHost, HelpListsEveryOption) {
    Outcome const run = Find({"--help"});
    EXPECT_EQ(run.status, 0);
    for (char const* option :
         {"--no-recurse", "-name", "--size", "--attr ", "--attr-any", "--not-attr", "--written",
          "--created", "--accessed", "--text", "--any-word", "--all-words", "--ignore-case",
          "--invert", "--sort", "--fields", "--stats", "--quiet", "--help"})
        EXPECT_NE(run.out.find(option), std::string::npos) << option;
}

} // namespace
