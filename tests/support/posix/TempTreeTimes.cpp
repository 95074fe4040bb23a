// The parts of a TempTree that are the system's own: the zone of TZ, and times to the nanosecond.
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

void TempTree::KeepZone() {
    char const* tz = std::getenv("TZ");
    hadTz = tz != nullptr;
    if (tz)
        oldTz = tz;
    UseZone("UTC");
}

void TempTree::RestoreZone() const {
    if (hadTz)
        setenv("TZ", oldTz.c_str(), 1);
    else
        unsetenv("TZ");
    tzset();
}

void TempTree::UseZone(char const* zone) const {
    setenv("TZ", zone, 1);
    tzset();
}

void TempTree::SetTimes(std::string const& relative, std::int64_t seconds, long nanoseconds) const {
    struct timespec times[2];
    times[0].tv_sec = static_cast<time_t>(seconds);
    times[0].tv_nsec = nanoseconds;
    times[1] = times[0];
    ASSERT_EQ(utimensat(AT_FDCWD, Path(relative).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
}
