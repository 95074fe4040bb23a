#include "platform/posix/entry_info.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace posix {
namespace {

// 100 ns intervals between 1601-01-01 and 1970-01-01.
constexpr std::int64_t epochDifference = 116444736000000000LL;

FILETIME ToFileTime(std::int64_t seconds, std::uint32_t nanoseconds) {
    std::int64_t const ticks = seconds * 10000000LL + nanoseconds / 100 + epochDifference;
    FILETIME time = {0, 0};
    if (ticks > 0) {
        time.dwLowDateTime = static_cast<DWORD>(ticks & 0xFFFFFFFF);
        time.dwHighDateTime = static_cast<DWORD>(static_cast<std::uint64_t>(ticks) >> 32);
    }
    return time;
}

FILETIME ToFileTime(struct statx_timestamp const& stamp) {
    return ToFileTime(stamp.tv_sec, stamp.tv_nsec);
}

DWORD AttributesOf(unsigned mode, char const* baseName) {
    DWORD attributes = 0;
    if (S_ISDIR(mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    else if (S_ISREG(mode))
        attributes |= FILE_ATTRIBUTE_ARCHIVE;
    else if (S_ISLNK(mode))
        attributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    else
        attributes |= FILE_ATTRIBUTE_SYSTEM; // FIFO, socket or device
    if (!(mode & S_IWUSR))
        attributes |= FILE_ATTRIBUTE_READONLY;
    if (baseName[0] == '.' && std::strcmp(baseName, ".") != 0 && std::strcmp(baseName, "..") != 0)
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

} // namespace

bool ReadEntry(int dirFd, char const* path, int flags, char const* baseName,
               WIN32_FIND_DATAA& data) {
    struct statx status;
    unsigned const wanted =
        STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_ATIME | STATX_MTIME | STATX_BTIME;
    if (statx(dirFd, path, flags | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, wanted, &status) != 0)
        return false;
    data.dwFileAttributes = AttributesOf(status.stx_mode, baseName);
    data.ftLastWriteTime = ToFileTime(status.stx_mtime);
    data.ftLastAccessTime = ToFileTime(status.stx_atime);
    data.ftCreationTime =
        (status.stx_mask & STATX_BTIME) ? ToFileTime(status.stx_btime) : data.ftLastWriteTime;
    std::uint64_t const size = S_ISREG(status.stx_mode) ? status.stx_size : 0;
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(size & 0xFFFFFFFF);
    data.cAlternateFileName[0] = 0;
    return true;
}

} // namespace posix
