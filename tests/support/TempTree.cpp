#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// An unreadable directory left by a test must still be removable: each is opened up on the
// way down, then everything is removed on the way up.
int OpenUp(char const* path, struct stat const* st, int, struct FTW*) {
    return S_ISDIR(st->st_mode) ? (chmod(path, 0700), 0) : 0;
}

int RemoveEntry(char const* path, struct stat const*, int, struct FTW*) {
    return remove(path);
}

} // namespace

TempTree::TempTree() {
    char const* tz = std::getenv("TZ");
    hadTz = tz != nullptr;
    if (tz)
        oldTz = tz;
    setenv("TZ", "UTC", 1);
    tzset();

    char cwd[4096];
    if (getcwd(cwd, sizeof cwd))
        startDir = cwd;

    char const* tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/tessik-test-XXXXXX";
    char* made = mkdtemp(pattern.data());
    if (!made)
        ADD_FAILURE() << "cannot make a temporary directory";
    root = made ? made : "";
}

TempTree::~TempTree() {
    if (!startDir.empty() && chdir(startDir.c_str()) != 0)
        ADD_FAILURE() << "cannot return to " << startDir;
    if (!root.empty()) {
        nftw(root.c_str(), OpenUp, 16, FTW_PHYS);
        nftw(root.c_str(), RemoveEntry, 16, FTW_DEPTH | FTW_PHYS);
    }
    if (hadTz)
        setenv("TZ", oldTz.c_str(), 1);
    else
        unsetenv("TZ");
    tzset();
}

void TempTree::MakeDir(std::string const& relative) const {
    ASSERT_EQ(mkdir(Path(relative).c_str(), 0755), 0) << relative;
}

void TempTree::MakeFile(std::string const& relative, std::string const& content) const {
    int fd = open(Path(relative).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ASSERT_GE(fd, 0) << relative;
    ASSERT_EQ(write(fd, content.data(), content.size()), static_cast<ssize_t>(content.size()));
    close(fd);
}

void TempTree::MakeSparseFile(std::string const& relative, std::uint64_t size) const {
    MakeFile(relative);
    ASSERT_EQ(truncate(Path(relative).c_str(), static_cast<off_t>(size)), 0) << relative;
}

void TempTree::SetTimes(std::string const& relative, std::int64_t seconds, long nanoseconds) const {
    struct timespec times[2];
    times[0].tv_sec = static_cast<time_t>(seconds);
    times[0].tv_nsec = nanoseconds;
    times[1] = times[0];
    ASSERT_EQ(utimensat(AT_FDCWD, Path(relative).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
}

void TempTree::SetMode(std::string const& relative, unsigned mode) const {
    ASSERT_EQ(chmod(Path(relative).c_str(), mode), 0);
}

void TempTree::UseZone(char const* zone) const {
    setenv("TZ", zone, 1);
    tzset();
}
