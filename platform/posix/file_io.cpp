// Win32 file I/O over POSIX descriptors.
//
// A file HANDLE is a heap object holding the descriptor. Only regular files open: anything else
// is refused before it is opened, and the open itself never waits (O_NONBLOCK). A link in the
// last component is never followed (O_NOFOLLOW).
#define _FILE_OFFSET_BITS 64

#include <tessik/platform.h>

#include "platform/posix/path_mapping.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/vfs.h>
#endif

namespace {

constexpr std::uint32_t kFileTag = 0x46494c45;
// Linux caps one read or write near 2 GiB; stay well below.
constexpr DWORD kMaxChunk = 1u << 30;

struct FileObject {
    std::uint32_t tag;
    int fd;
    bool writable;
    std::int64_t openedSize; // a file opened only for reading keeps the size it had
};

FileObject* AsFile(HANDLE handle) {
    if (!handle || handle == INVALID_HANDLE_VALUE)
        return nullptr;
    FileObject* file = static_cast<FileObject*>(handle);
    return file->tag == kFileTag ? file : nullptr;
}

// Kernel pseudo file systems: their "files" have invented sizes and contents, or block.
bool OnPseudoFileSystem(int fd) {
#if defined(__linux__)
    static long const kMagics[] = {
        0x9fa0,     // procfs
        0x62656572, // sysfs
        0x64626720, // debugfs
        0x74726163, // tracefs
        0x73636673, // securityfs
        0x27e0eb,   // cgroup
        0x63677270, // cgroup2
        0x6165676c, // pstore
        0xcafe4a11, // bpf
        0x62656570, // configfs
        0xde5e81e4, // efivarfs
        0x1cd1,     // devpts
        0x65735543, // fusectl
        0xf97cff8c, // selinuxfs
        0x43415d53, // smackfs
        0x42494e4d, // binfmt_misc
        0x6e736673, // nsfs
        0x19800202, // mqueue
        0x67596969, // rpc_pipefs
        0x0187,     // autofs
    };
    struct statfs info;
    int result;
    do
        result = fstatfs(fd, &info);
    while (result != 0 && errno == EINTR);
    if (result != 0)
        return true;
    for (long magic : kMagics)
        if (static_cast<long>(info.f_type) == magic)
            return true;
    return false;
#else
    (void)fd;
    return false;
#endif
}

// Whether the file system of `info` is a pseudo one. The answer of the last file system asked
// is kept, since a search opens file after file on the same one.
bool OnPseudoFileSystem(int fd, struct stat const& info) {
    thread_local dev_t lastDevice = 0;
    thread_local bool lastAnswer = false;
    thread_local bool asked = false;
    if (!asked || lastDevice != info.st_dev) {
        lastAnswer = OnPseudoFileSystem(fd);
        lastDevice = info.st_dev;
        asked = true;
    }
    return lastAnswer;
}

int OpenFlags(DWORD access, DWORD disposition) {
    int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW;
    bool reads = (access & GENERIC_READ) != 0;
    bool writes = (access & GENERIC_WRITE) != 0;
    if (reads && writes)
        flags |= O_RDWR;
    else if (writes)
        flags |= O_WRONLY;
    else
        flags |= O_RDONLY;
    if (disposition == CREATE_ALWAYS)
        flags |= O_CREAT; // truncated only once known to be a regular file
    return flags;
}

// What the name stands for now, without following a link: false when it is missing.
bool LookAt(posix::PathAnchor const& anchor, struct stat& info) {
    return fstatat(anchor.Dir(), anchor.Rest(), &info, AT_SYMLINK_NOFOLLOW) == 0;
}

// What exists and is not a regular file (a link too) is refused before it is opened, so the
// open of a device never acts. A name taken over between the look and the open cannot make a
// reader wait either: O_NONBLOCK stays set (it has no effect on a regular file), a FIFO or
// directory then fails its reads, and a link fails the open (O_NOFOLLOW). So an existing file
// is not looked at again; one made here is, for its file system.
int OpenRegular(std::string const& path, DWORD access, DWORD disposition, std::int64_t& size) {
    posix::PathAnchor const anchor(path);
    struct stat info;
    if (!anchor.Reached())
        return -1;
    bool const existed = LookAt(anchor, info);
    if (existed ? !S_ISREG(info.st_mode) : (disposition != CREATE_ALWAYS || errno != ENOENT))
        return -1;
    int fd;
    do
        fd = openat(anchor.Dir(), anchor.Rest(), OpenFlags(access, disposition), 0666);
    while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return -1;
    bool ready = (existed || (fstat(fd, &info) == 0 && S_ISREG(info.st_mode))) &&
                 !OnPseudoFileSystem(fd, info);
    if (ready && disposition == CREATE_ALWAYS)
        ready = ftruncate(fd, 0) == 0;
    if (!ready) {
        close(fd);
        return -1;
    }
    size = disposition == CREATE_ALWAYS ? 0 : static_cast<std::int64_t>(info.st_size);
    return fd;
}

// Reads or writes `size` bytes in chunks with `step(offset, count)`, again after a signal,
// until all are done or `step` moves nothing (the end of the file); false on an error.
template <class Step> bool Transfer(DWORD size, DWORD& done, Step step) {
    while (done < size) {
        DWORD chunk = size - done < kMaxChunk ? size - done : kMaxChunk;
        ssize_t moved = step(done, chunk);
        if (moved < 0 && errno == EINTR)
            continue;
        if (moved <= 0)
            return moved == 0;
        done += static_cast<DWORD>(moved);
    }
    return true;
}

} // namespace

HANDLE CreateFileA(char const* path, DWORD access, DWORD, void*, DWORD disposition, DWORD, HANDLE) {
    std::string posixPath;
    if (disposition != OPEN_EXISTING && disposition != CREATE_ALWAYS)
        return INVALID_HANDLE_VALUE;
    if (!posix::ToPosixPath(path, posixPath))
        return INVALID_HANDLE_VALUE;
    std::int64_t size = 0;
    int fd = OpenRegular(posixPath, access, disposition, size);
    if (fd < 0)
        return INVALID_HANDLE_VALUE;
    bool const writable = (access & GENERIC_WRITE) != 0;
    FileObject* file = new (std::nothrow) FileObject{kFileTag, fd, writable, size};
    if (!file) {
        close(fd);
        return INVALID_HANDLE_VALUE;
    }
    return file;
}

BOOL ReadFile(HANDLE handle, void* buffer, DWORD size, DWORD* read, void*) {
    FileObject* file = AsFile(handle);
    char* bytes = static_cast<char*>(buffer);
    DWORD done = 0;
    bool moved = file && (bytes || !size) && Transfer(size, done, [&](DWORD at, DWORD n) {
                     return ::read(file->fd, bytes + at, n);
                 });
    if (read)
        *read = done;
    return moved ? TRUE : FALSE;
}

BOOL WriteFile(HANDLE handle, void const* buffer, DWORD size, DWORD* written, void*) {
    FileObject* file = AsFile(handle);
    char const* bytes = static_cast<char const*>(buffer);
    DWORD done = 0;
    bool moved = file && (bytes || !size) && Transfer(size, done, [&](DWORD at, DWORD n) {
                     return ::write(file->fd, bytes + at, n);
                 });
    if (written)
        *written = done;
    return moved && done == size ? TRUE : FALSE;
}

BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position,
                      DWORD method) {
    FileObject* file = AsFile(handle);
    if (!file || method > FILE_END)
        return FALSE;
    int const whence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    off_t reached = lseek(file->fd, static_cast<off_t>(distance.QuadPart), whence[method]);
    if (reached < 0)
        return FALSE;
    if (position)
        position->QuadPart = static_cast<std::int64_t>(reached);
    return TRUE;
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
    FileObject* file = AsFile(handle);
    if (!file || !size)
        return FALSE;
    if (!file->writable) {
        size->QuadPart = file->openedSize;
        return TRUE;
    }
    struct stat info;
    if (fstat(file->fd, &info) != 0)
        return FALSE;
    size->QuadPart = static_cast<std::int64_t>(info.st_size);
    return TRUE;
}

BOOL CloseHandle(HANDLE handle) {
    FileObject* file = AsFile(handle);
    if (!file)
        return FALSE;
    close(file->fd); // not retried on EINTR: the descriptor is gone either way on Linux
    file->tag = 0;
    delete file;
    return TRUE;
}
