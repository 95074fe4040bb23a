// File system changes, disk room and path forms, with Windows paths on drive Z:.
#include "platform/posix/path_mapping.h"

#include <tessik/headless.h>

#include <mutex>
#include <string>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

// A POSIX path for a call that needs a named entry: the bare drive ("Z:", the current
// directory) counts as ".".
bool EntryPath(char const* windowsPath, std::string& posixPath) {
    if (!windowsPath || !*windowsPath || !posix::ToPosixPath(windowsPath, posixPath))
        return false;
    if (posixPath.empty())
        posixPath = ".";
    return true;
}

std::mutex diskRoomLock;
bool diskRoomSet = false;
std::uint64_t diskRoom = 0;
// What a set room keeps back from the caller, so the three figures differ as on a real disk.
constexpr std::uint64_t reservedRoom = std::uint64_t(1) << 30;

void Put(ULARGE_INTEGER* place, std::uint64_t value) {
    if (place)
        place->QuadPart = value;
}

// The Windows answer of both path form calls on a volume without 8.3 names.
DWORD SamePath(char const* path, char* buffer, DWORD size) {
    if (GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES)
        return 0;
    std::string const text(path);
    if (text.size() >= 0xFFFFFFFFu)
        return 0;
    DWORD const length = static_cast<DWORD>(text.size());
    if (!buffer || size <= length)
        return length + 1;
    text.copy(buffer, length);
    buffer[length] = 0;
    return length;
}

} // namespace

void HeadlessSetDiskRoom(std::uint64_t const* bytes) {
    std::lock_guard<std::mutex> hold(diskRoomLock);
    diskRoomSet = bytes != nullptr;
    diskRoom = bytes ? *bytes : 0;
}

BOOL GetDiskFreeSpaceExA(char const* root, ULARGE_INTEGER* freeToCaller, ULARGE_INTEGER* total,
                         ULARGE_INTEGER* totalFree) {
    std::string path = ".";
    if (root && !EntryPath(root, path))
        return FALSE;
    {
        std::lock_guard<std::mutex> hold(diskRoomLock);
        if (diskRoomSet) {
            Put(freeToCaller, diskRoom);
            Put(total, diskRoom + 2 * reservedRoom);
            Put(totalFree, diskRoom + reservedRoom);
            return TRUE;
        }
    }
    struct statvfs room;
    if (statvfs(path.c_str(), &room) != 0)
        return FALSE;
    std::uint64_t const unit = room.f_frsize;
    Put(freeToCaller, room.f_bavail * unit);
    Put(total, room.f_blocks * unit);
    Put(totalFree, room.f_bfree * unit);
    return TRUE;
}

BOOL SetFileAttributesA(char const* path, DWORD attributes) {
    std::string target;
    struct stat status;
    if (!EntryPath(path, target) || lstat(target.c_str(), &status) != 0)
        return FALSE;
    if (S_ISLNK(status.st_mode))
        return TRUE; // a link has no mode of its own to change
    mode_t mode = status.st_mode & 07777;
    mode = (attributes & FILE_ATTRIBUTE_READONLY) ? (mode & ~S_IWUSR) : (mode | S_IWUSR);
    return chmod(target.c_str(), mode) == 0 ? TRUE : FALSE;
}

int _unlink(char const* path) {
    std::string target;
    if (!EntryPath(path, target))
        return -1;
    return unlink(target.c_str()) == 0 ? 0 : -1;
}

BOOL CreateDirectoryA(char const* path, void*) {
    std::string target;
    return EntryPath(path, target) && mkdir(target.c_str(), 0777) == 0 ? TRUE : FALSE;
}

BOOL RemoveDirectoryA(char const* path) {
    std::string target;
    return EntryPath(path, target) && rmdir(target.c_str()) == 0 ? TRUE : FALSE;
}

DWORD GetShortPathNameA(char const* path, char* buffer, DWORD size) {
    return SamePath(path, buffer, size);
}

DWORD GetLongPathNameA(char const* path, char* buffer, DWORD size) {
    return SamePath(path, buffer, size);
}
