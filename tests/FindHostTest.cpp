// The example host tessik-find, run as a program on a generated tree with its output a pipe: a
// smoke test of its own work (help, exit statuses, one search, one saved listing and its
// changes). The search itself is the library's, tested on its own.
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
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
};

std::string Quoted(std::string const& text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// 1700000000 is 2023-11-14 22:13:20 UTC, 1500000000 2017-07-14 02:40:00.
class FindHost : public ::testing::Test {
protected:
    void SetUp() override {
        if (!findPath)
            GTEST_SKIP() << "tessik-find is not built";
        tree.MakeDir("t");
        tree.MakeDir("t/sub");
        tree.MakeFile("t/a.txt", "hello world");
        tree.MakeFile("t/old.txt");
        tree.MakeSparseFile("t/huge", 5ull << 30); // its low 32 bits say 1 GiB
        tree.MakeFile("t/sub/b.log", std::string(2000, 'x'));
        tree.SetTimes("t/sub/b.log", 1500000000);
        for (char const* entry : {"t/a.txt", "t/old.txt", "t/huge", "t/sub", "t"})
            tree.SetTimes(entry, 1700000000);
    }

    // Runs tessik-find in directory t of the tree, stdout caught and stderr dropped.
    Outcome Find(std::vector<std::string> const& args) const {
        Outcome run;
        std::string command = "cd " + Quoted(tree.Path("t")) + " && " + Quoted(findPath);
        for (std::string const& arg : args)
            command += " " + Quoted(arg);
        std::FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
        if (!pipe)
            return run;
        char buffer[4096];
        for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            run.out.append(buffer, n);
        int const status = pclose(pipe);
        run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return run;
    }

    TempTree tree;
};

TEST_F(FindHost, HelpExitStatusesAndOneSearch) {
    Outcome const help = Find({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("--changes"), std::string::npos);
    EXPECT_EQ(Find({"--size", "5..2"}).status, 2);
    EXPECT_EQ(Find({"gone"}).status, 1);
    Outcome const run = Find({});
    EXPECT_EQ(run.status, 0);
    std::string const recent = "2023-11-14 22:13:20  ";
    EXPECT_EQ(run.out, "-D-------           0  " + recent + tree.WinPath("t/sub") + "\n" +
                           "--A------          11  " + recent + tree.WinPath("t/a.txt") + "\n" +
                           "--A------  5368709120  " + recent + tree.WinPath("t/huge") + "\n" +
                           "--A------           0  " + recent + tree.WinPath("t/old.txt") + "\n" +
                           "--A------        2000  2017-07-14 02:40:00  " +
                           tree.WinPath("t/sub/b.log") + "\n");
}

// Save, change the tree, --changes lists each kind with status 1 (as diff); after saving anew,
// nothing and 0.
TEST_F(FindHost, SavedListingCycle) {
    std::string const saved = tree.Path("t.tsk");
    ASSERT_EQ(Find({"--save", saved}).status, 0);
    EXPECT_EQ(Find({"--changes", saved}).status, 0);
    tree.SetTimes("t/a.txt", 1700000100);                 // touched
    tree.MakeFile("t/added.txt");                         // added
    ASSERT_EQ(unlink(tree.Path("t/old.txt").c_str()), 0); // removed
    tree.MakeFile("t/sub/b.log", std::string(2001, 'x')); // size changed
    tree.SetTimes("t/sub/b.log", 1500000000);
    Outcome const run = Find({"--changes", saved, "-p"});
    EXPECT_EQ(run.status, 1);
    std::string const dir = tree.Path("t");
    std::istringstream lines(run.out);
    for (std::string const& start : // a file system without birth times adds them
         {"~ " + dir + "/a.txt  written 2023-11-14 22:13:20 -> 2023-11-14 22:15:00",
          "+ " + dir + "/added.txt", "- " + dir + "/old.txt",
          "~ " + dir + "/sub/b.log  size 2000 -> 2001"}) {
        std::string line;
        EXPECT_TRUE(std::getline(lines, line) && line.rfind(start, 0) == 0) << run.out;
    }
    EXPECT_EQ(Find({"--changes", saved, "--save", saved}).status, 1);
    Outcome const again = Find({"--changes", saved});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.out, "");
}

} // namespace
