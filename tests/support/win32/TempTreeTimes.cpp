// The parts of a TempTree that are Windows' own. Local time is the system's whatever TZ holds:
// the test program runs with TZ=UTC, which Wine takes as the zone when it starts.
#include "support/TempTree.h"

#include <tessik/platform.h>

#include <gtest/gtest.h>

void TempTree::KeepZone() {}

void TempTree::RestoreZone() const {}

void TempTree::UseZone(char const*) const {}

void TempTree::SetTimes(std::string const& relative, std::int64_t seconds, long nanoseconds) const {
    std::uint64_t const ticks = (static_cast<std::uint64_t>(seconds) + 11644473600u) * 10000000u +
                                static_cast<std::uint64_t>(nanoseconds / 100);
    FILETIME const time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    HANDLE file = CreateFileA(Path(relative).c_str(), GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << relative;
    BOOL const set = SetFileTime(file, nullptr, &time, &time);
    CloseHandle(file);
    ASSERT_TRUE(set) << relative;
}
