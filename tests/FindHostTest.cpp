// The example host tessik-find, run as a program on a generated tree with its output a pipe: a
// smoke test of its own work (options, exit status, its checks on true sizes and dates, what it
// tells on stderr). The search itself is the library's, tested on its own.
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
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
    std::string err;
};

std::string Quoted(std::string const& text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// 1700000000 is 2023-11-14 22:13:20 UTC, 1500000000 2017-07-14 02:40:00, 100000000 1973-03-03.
class FindHost : public ::testing::Test {
protected:
    void SetUp() override {
        if (!findPath)
            GTEST_SKIP() << "tessik-find is not built";
        tree.MakeDir("t");
        tree.MakeDir("t/sub");
        tree.MakeDir("t/sub/deep");
        tree.MakeFile("t/a.txt", "hello world");
        tree.MakeFile("t/notes.md", "The Needle is here\n");
        tree.MakeFile("t/old.txt");
        tree.MakeSparseFile("t/huge", 5ull << 30); // its low 32 bits say 1 GiB
        tree.MakeFile("t/sub/b.log", std::string(2000, 'x'));
        tree.MakeFile("t/sub/deep/c.txt", std::string(5000, 'y') + "needle");
        tree.SetTimes("t/sub/b.log", 1500000000);
        tree.SetTimes("t/old.txt", 100000000);
        for (char const* entry :
             {"t/a.txt", "t/notes.md", "t/huge", "t/sub/deep/c.txt", "t/sub/deep", "t/sub", "t"})
            tree.SetTimes(entry, 1700000000);
    }

    // Runs tessik-find in directory `cwd` of the tree, stdout and stderr caught.
    Outcome Find(std::vector<std::string> const& args, std::string const& cwd = "t") const {
        Outcome run;
        std::string const errFile = tree.Path("stderr.txt");
        std::string command = "cd " + Quoted(tree.Path(cwd)) + " && " + asUser + Quoted(findPath);
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

    TempTree tree;
    std::string asUser; // a command that runs tessik-find as another user
};

TEST_F(FindHost, ListsTheTreeDirectoriesFirstWithIsoDates) {
    Outcome const run = Find({});
    EXPECT_EQ(run.status, 0);
    std::string const recent = "2023-11-14 22:13:20  ";
    EXPECT_EQ(run.out, "-D-------           0  " + recent + tree.WinPath("t/sub") + "\n" +
                           "-D-------           0  " + recent + tree.WinPath("t/sub/deep") + "\n" +
                           "--A------          11  " + recent + tree.WinPath("t/a.txt") + "\n" +
                           "--A------  5368709120  " + recent + tree.WinPath("t/huge") + "\n" +
                           "--A------          19  " + recent + tree.WinPath("t/notes.md") + "\n" +
                           "--A------           0  1973-03-03 09:46:40  " +
                           tree.WinPath("t/old.txt") + "\n" +
                           "--A------        2000  2017-07-14 02:40:00  " +
                           tree.WinPath("t/sub/b.log") + "\n" + "--A------        5006  " + recent +
                           tree.WinPath("t/sub/deep/c.txt") + "\n");
    EXPECT_EQ(run.err, ""); // a pipe gets the result and nothing else
    EXPECT_EQ(Find({tree.Path("t") + "/"}, "").out, run.out);
}

// Sizes on 64 bits, dates outside 1985..2080 and whole days, the output forms.
TEST_F(FindHost, ChecksAndForms) {
    std::string const dir = tree.Path("t");
    std::vector<std::pair<std::vector<std::string>, std::string>> const cases = {
        {{"--size", "+3G"}, "huge\n"},
        {{"--size", "4G..5G"}, "huge\n"},
        {{"--size", "-1k", "--attr", "A"}, "a.txt\nnotes.md\nold.txt\n"},
        {{"--written", "<1980-01-01"}, "old.txt\n"},
        {{"--written", "=2023-11-14", "--attr", "A"}, "a.txt\nhuge\nnotes.md\nc.txt\n"},
        {{"--written", ">2023-11-14"}, ""},
        {{"--written", "=2023-11-14 22:13:20", "-name", "a*"}, "a.txt\n"},
        {{"--text", "needle", "-i", "--size", "-1M"}, "notes.md\nc.txt\n"},
        {{"--sort", "written:desc", "--attr", "A"},
         "c.txt\nnotes.md\nhuge\na.txt\nb.log\nold.txt\n"},
    };
    for (auto const& [args, names] : cases) {
        std::vector<std::string> withNames = args;
        withNames.insert(withNames.end(), {"--fields", "name"});
        Outcome const run = Find(withNames);
        EXPECT_EQ(run.out, names) << args[0] << " " << args[1];
        EXPECT_EQ(run.status, 0) << args[0] << " " << args[1];
    }
    EXPECT_EQ(Find({"--fields", "drive,size,written", "-name", "b.log"}).out,
              "Z:\t2000\t2017-07-14 02:40:00\n");
    EXPECT_EQ(Find({"--record-dates", "--fields", "written", "-name", "old.txt"}).out,
              "0/00/1985 12:00:00 AM\n");
    EXPECT_EQ(Find({"-p", "-0", "-name", "a.txt"}).out, dir + "/a.txt" + std::string(1, '\0'));
    EXPECT_NE(Find({"--stats", "-name", "c.txt", "--", "sub/deep"})
                  .err.find("1 entry searched in 1 directory: 1 match, 5,006 bytes"),
              std::string::npos);
}

TEST_F(FindHost, HelpAndBadArgumentsExitWithZeroAndTwo) {
    Outcome const help = Find({"--help"});
    EXPECT_EQ(help.status, 0);
    for (char const* option : {"--size", "--written", "--text", "--sort", "--fields", "--print0"})
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    for (std::vector<std::string> const& args :
         std::vector<std::vector<std::string>>{{"--colour"},
                                               {"--size", "ten"},
                                               {"--size", "5..2"},
                                               {"--attr", "X"},
                                               {"--written", "2024-01-01"},
                                               {"--written", "<2023-02-30"},
                                               {"-i"},
                                               {"--stats=yes"}}) {
        Outcome const run = Find(args);
        EXPECT_EQ(run.status, 2) << args[0];
        EXPECT_EQ(run.err.rfind("tessik-find: ", 0), 0u) << args[0];
    }
}

// Like find: each bad start directory is told, the others are searched, the status is 1.
TEST_F(FindHost, BadStartDirectoriesAreToldAndTheOthersSearched) {
    Outcome const run = Find({"--fields", "name", "a.txt", "gone", "sub/deep"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "c.txt\n");
    EXPECT_EQ(run.err, "tessik-find: 'a.txt': Not a directory\n"
                       "tessik-find: 'gone': No such file or directory\n");
    EXPECT_EQ(Find({"gone"}).status, 1);
}

// As grep: each unreadable directory and (in a content search) file on stderr, status 1.
TEST_F(FindHost, UnreadableEntriesAreToldWithStatusOne) {
    tree.SetMode("", 0755);
    tree.MakeDir("t/closed");
    tree.SetMode("t/closed", 0);
    tree.SetMode("t/notes.md", 0);
    if (geteuid() == 0) // root reads everything: run as nobody
        asUser = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    Outcome const run = Find({"-p", "-i", "--text", "needle", "--size", "-1M", "--fields", "name"});
    if (run.status == 127)
        GTEST_SKIP() << "no setpriv to run as another user";
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "c.txt\n");
    for (char const* entry : {"t/closed", "t/notes.md"}) // in the order the search meets them
        EXPECT_NE(run.err.find("tessik-find: " + tree.Path(entry) + ": Permission denied\n"),
                  std::string::npos);
    EXPECT_EQ(Find({"-q"}).err, "tessik-find: 1 directory could not be read\n");
}

// Save, change the tree, --changes lists each kind with status 1 (as diff); after saving anew,
// nothing and 0. Bad files give one line and status 2.
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
    std::vector<std::string> const expected = {
        "~ " + dir + "/a.txt  written 2023-11-14 22:13:20 -> 2023-11-14 22:15:00",
        "+ " + dir + "/added.txt", "- " + dir + "/old.txt",
        "~ " + dir + "/sub/b.log  size 2000 -> 2001"};
    std::istringstream lines(run.out);
    for (std::string const& start : expected) { // a file system without birth times adds them
        std::string line;
        EXPECT_TRUE(std::getline(lines, line) && line.rfind(start, 0) == 0) << run.out;
    }
    EXPECT_EQ(Find({"--changes", saved, "--save", saved}).status, 1);
    Outcome const again = Find({"--changes", saved});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.out, "");
    EXPECT_EQ(Find({"--find-in", saved, "sub/b.log", "a.txt", "--fields", "size"}).out,
              "2001\n11\n");
    Outcome const foreign = Find({"--load", tree.Path("t/a.txt")});
    EXPECT_EQ(foreign.status, 2);
    EXPECT_EQ(foreign.err, "tessik-find: '" + tree.Path("t/a.txt") +
                               "': is not a listing saved by tessik-find\n");
}

} // namespace
