// FileOper: a file stream over one Win32 file handle.
//
// The stream keeps its own position and length, so it never has to ask the file where it is.
// A read that delivers less than asked marks the end as met, so a file that shrinks while it is
// read still ends a `while (!isEof())` loop.
#include <tessik/FileOper.h>

#include <cstring>

FileOper::FileOper(FileOper const*)
    : handle(INVALID_HANDLE_VALUE), position(0), length(0), totalRead(0), readSize(0),
      endMet(false) {}

FileOper::FileOper(char const* path, bool create) : FileOper() {
    handle = create ? CreateFileA(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)
                    : CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    LARGE_INTEGER size;
    if (handle != INVALID_HANDLE_VALUE && GetFileSizeEx(handle, &size) && size.QuadPart >= 0)
        length = static_cast<std::uint64_t>(size.QuadPart);
    else
        Close();
}

FileOper::~FileOper() {
    Close();
}

void FileOper::Close() {
    if (handle != INVALID_HANDLE_VALUE)
        CloseHandle(handle);
    handle = INVALID_HANDLE_VALUE;
}

bool FileOper::isOpen() const {
    return handle != INVALID_HANDLE_VALUE;
}

bool FileOper::Read(void* data, DWORD const& size, bool const& partial) {
    readSize = 0;
    if (!isOpen() || (!data && size))
        return false;
    DWORD got = 0;
    bool done = ReadFile(handle, data, size, &got, nullptr) != FALSE;
    readSize = got;
    position += got;
    totalRead = position;
    if (!done || got < size)
        endMet = true;
    // A partial read must deliver something, so `while (Read(...))` ends as well.
    return done && (got == size || (partial && got > 0));
}

DWORD const& FileOper::GetReadSize() const {
    return readSize;
}

std::uint64_t FileOper::GetTotalReadSize() const {
    return totalRead;
}

bool FileOper::SetPos(std::uint64_t const& to) {
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<std::int64_t>(to);
    if (!isOpen() || distance.QuadPart < 0 ||
        !SetFilePointerEx(handle, distance, nullptr, FILE_BEGIN))
        return false;
    position = to;
    endMet = false;
    return true;
}

std::uint64_t FileOper::GetPos() const {
    return position;
}

bool FileOper::isEof() const {
    return !isOpen() || endMet || position >= length;
}

std::uint64_t FileOper::GetLength() const {
    return length;
}

bool FileOper::Write(void const* data, DWORD const& size) {
    if (!isOpen() || (!data && size))
        return false;
    DWORD written = 0;
    bool done = WriteFile(handle, data, size, &written, nullptr) != FALSE;
    position += written;
    if (position > length)
        length = position;
    return done && written == size;
}

bool FileOper::TWrite(char const* text) {
    std::size_t n = text ? std::strlen(text) : 0;
    if (n > 0xFFFFFFFFu)
        return false;
    return (n == 0 || Write(text, static_cast<DWORD>(n))) && Write("\n", 1);
}

bool FileOper::wtf() {
    return Write("\n", 1);
}
