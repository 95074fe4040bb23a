// Entries a Windows tree never holds (named pipes, sockets, devices), directories the process may
// not read, the owner's write bit and the room of the disk: how the posix backend shows them.
#include "support/Listing.h"
#include "support/Records.h"

#include <tessik/headless.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

// A named pipe, and a socket bound to a path: entries that are neither file nor directory.
void MakeFifo(TempTree const& tree, std::string const& relative) {
    ASSERT_EQ(mkfifo(tree.Path(relative).c_str(), 0644), 0) << relative;
}

void MakeSocket(TempTree const& tree, std::string const& relative) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::string const path = tree.Path(relative);
    ASSERT_LT(path.size(), sizeof address.sun_path) << path;
    path.copy(address.sun_path, path.size());
    int const fd = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(fd, 0);
    EXPECT_EQ(bind(fd, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0) << path;
    close(fd); // the bound path stays behind
}

// While it lives, file permissions apply to the process: a process running as root takes the
// effective user and group "nobody" (65534) and gets its own back at the end. Active() is false
// when neither works, and a test of unreadable entries then has nothing to test.
class PermissionsApply {
public:
    PermissionsApply() : active(geteuid() != 0), switched(false) {
        if (!active && setegid(65534) == 0) {
            switched = seteuid(65534) == 0;
            if (!switched && setegid(0) != 0)
                ADD_FAILURE() << "cannot restore the group";
            active = switched;
        }
    }
    ~PermissionsApply() {
        if (switched && (seteuid(0) != 0 || setegid(0) != 0))
            ADD_FAILURE() << "cannot restore the user";
    }
    PermissionsApply(PermissionsApply const&) = delete;
    PermissionsApply& operator=(PermissionsApply const&) = delete;
    bool Active() const { return active; }

private:
    bool active;
    bool switched;
};

} // namespace

TEST(FileOper, OpensOnlyRegularFiles) {
    TempTree tree;
    tree.MakeDir("dir");
    MakeFifo(tree, "fifo");
    for (char const* name : {"dir", "fifo"})
        EXPECT_FALSE(FileOper(tree.Path(name).c_str(), true).isOpen()) << name;
    for (std::string const& path : {tree.Path("dir"), tree.Path("fifo"), tree.Path("missing"),
                                    std::string("/dev/null"), std::string("/proc/self/status")})
        EXPECT_FALSE(FileOper(path.c_str(), false).isOpen()) << path;
}

TEST(RecursiveSearch, SpecialEntriesAndUnreadableDirectories) {
    TempTree tree;
    tree.SetMode("", 0755);
    tree.MakeDir("t");
    tree.MakeFile("t/hit", "needle");
    MakeFifo(tree, "t/fifo");
    tree.MakeDir("t/closed");
    tree.MakeFile("t/closed/hidden-hit", "needle");
    tree.SetMode("t/closed", 0);
    DirectoryListingSpec spec = In(tree, "t");
    spec.textToFind = "needle";
    spec.containingMode = 1;
    PermissionsApply permissions;
    DFileLoad load;
    ASSERT_TRUE(load.LoadAllDirListings(spec, true));
    std::set<std::string> expected = {tree.WinPath("t\\hit")};
    if (!permissions.Active())
        expected.insert(tree.WinPath("t\\closed\\hidden-hit"));
    EXPECT_EQ(PathsOf<std::set<std::string>>(load), expected);
}

TEST(SearchStatistics, AnalysisByAttribute) {
    TempTree tree;
    tree.MakeDir("a");
    tree.MakeDir("a/.hidden");
    tree.SetMode("a/.hidden", 0555);
    tree.MakeSparseFile("a/big", (1ull << 32) + 5);
    tree.MakeFile("a/small", "1234567");
    tree.MakeFile("a/.file", "abc");
    MakeFifo(tree, "a/pipe");
    MakeSocket(tree, "a/socket");
    tree.SetMode("a/socket", 0444);
    tree.MakeDir("b");
    tree.MakeFile("b/other", "xy");

    DFileLoad load;
    EXPECT_EQ(load.GetTotalAnalysis(In(tree, "a"), false), 6u);
    EXPECT_EQ(load.GetTotalMatchesSize(), (1ull << 32) + 5 + 7 + 3);
    // Archive, directory, hidden, read-only, system, normal, temporary, compressed, encrypted,
    // then their sizes, the low halves only. Entries that are neither file nor directory are
    // System, the others never are.
    EXPECT_EQ(
        std::vector<std::uint64_t>(
            {load.GetTotalSearchArchive(), load.GetTotalSearchDirectory(),
             load.GetTotalSearchHidden(), load.GetTotalSearchReadOnly(),
             load.GetTotalSearchSystem(), load.GetTotalSearchNormal(),
             load.GetTotalSearchTemporary(), load.GetTotalSearchCompressed(),
             load.GetTotalSearchEncrypted(), load.GetTotalSearchArchiveSize(),
             load.GetTotalSearchDirectorySize(), load.GetTotalSearchHiddenSize(),
             load.GetTotalSearchReadOnlySize(), load.GetTotalSearchSystemSize(),
             load.GetTotalSearchNormalSize(), load.GetTotalSearchTemporarySize(),
             load.GetTotalSearchCompressedSize(), load.GetTotalSearchEncryptedSize()}),
        std::vector<std::uint64_t>({3, 1, 2, 2, 2, 0, 0, 0, 0, 5 + 7 + 3, 0, 3, 0, 0, 0, 0, 0, 0}));

    // A plain run leaves the analysis of the last one in place; the next analysis starts anew.
    ASSERT_TRUE(load.LoadDirListing(In(tree, "b")));
    EXPECT_EQ(load.GetTotalSearchArchive(), 3u);
    EXPECT_EQ(load.GetTotalAnalysis(In(tree, "b"), false), 1u);
    EXPECT_EQ(
        std::vector<std::uint64_t>({load.GetTotalSearchArchive(), load.GetTotalSearchArchiveSize(),
                                    load.GetTotalSearchHidden(), load.GetTotalSearchSystem()}),
        std::vector<std::uint64_t>({1, 2, 0, 0}));
}

// Read-only is the owner write bit alone.
TEST(DirectoryServices, PlatformAttributes) {
    TempTree tree;
    tree.MakeFile("f");
    std::string const file = tree.WinPath("f");
    struct stat status;
    for (DWORD attributes : {0x21u, 0x20u, 0x1u, 0x80u}) {
        tree.SetMode("f", attributes & 1 ? 0664 : 0464);
        EXPECT_TRUE(SetFileAttributesA(file.c_str(), attributes));
        EXPECT_TRUE(stat(tree.Path("f").c_str(), &status) == 0 &&
                    (status.st_mode & 0777) == (attributes & 1 ? 0464u : 0664u));
    }
    EXPECT_FALSE(SetFileAttributesA(tree.WinPath("missing").c_str(), 0x20));
}

TEST(DirectoryServices, FreeRoomIn64KiBUnits) {
    DFileLoad load;
    for (auto [bytes, units] : {std::pair<std::uint64_t, DWORD>{1000000, 15},
                                {65535, 0},
                                {65536, 1},
                                {(std::uint64_t(1) << 48) + 5 * 65536 + 3, 5}}) {
        HeadlessSetDiskRoom(&bytes);
        EXPECT_EQ(load.GetDiskFreeSpaceA(), units) << bytes;
    }
    HeadlessSetDiskRoom(nullptr);

    TempTree tree;
    tree.MakeDir("gone");
    ASSERT_EQ(chdir(tree.Path("gone").c_str()), 0);
    struct statvfs room;
    ASSERT_EQ(statvfs("/", &room), 0); // drive Z: is the file system of "/"
    double const expected = double(room.f_bavail) * double(room.f_frsize) / 65536;
    EXPECT_NEAR(load.GetDiskFreeSpaceA(), expected, expected / 100 + 16);
    ASSERT_EQ(rmdir(tree.Path("gone").c_str()), 0); // the current directory cannot be read
    EXPECT_EQ(load.GetDiskFreeSpaceA(), 0u);
}
