// FileOper: a buffered file stream over one Win32 file handle.
//
// The stream keeps its own position and length, so it never has to ask the file where it is.
// A read that delivers less than asked marks the end as met, so a file that shrinks while it is
// read still ends a `while (!isEof())` loop. One buffer serves reads and writes in turn: it
// holds either bytes read ahead from `bufferStart` on, or bytes written there and not yet out.
#include <tessik/FileOper.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace {

// Below the size from which malloc maps memory of its own, so streams opened one after the
// other reuse the same heap block.
constexpr DWORD bufferCapacity = 96 * 1024;

} // namespace

FileOper::FileOper(FileOper const*)
    : handle(INVALID_HANDLE_VALUE), position(0), length(0), totalRead(0), readSize(0),
      endMet(false), writable(false), failed(false), buffer(nullptr), bufferStart(0), bufferFill(0),
      bufferWriting(false), filePosition(0) {}

FileOper::FileOper(char const* path, bool create) : FileOper() {
    handle = create ? CreateFileA(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)
                    : CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    writable = create;
    LARGE_INTEGER size;
    if (handle != INVALID_HANDLE_VALUE && GetFileSizeEx(handle, &size) && size.QuadPart >= 0)
        length = static_cast<std::uint64_t>(size.QuadPart);
    else
        Close();
}

FileOper::FileOper(FileOper const&) : FileOper() {}

FileOper& FileOper::operator=(FileOper const& other) {
    if (&other == this)
        return *this;
    Close(); // the target's own stream; the source keeps its own
    position = length = totalRead = bufferStart = filePosition = 0;
    readSize = 0;
    endMet = writable = failed = bufferWriting = false;
    return *this;
}

FileOper::~FileOper() {
    Close();
}

void FileOper::Close() {
    if (handle != INVALID_HANDLE_VALUE) {
        Flush();
        CloseHandle(handle);
    }
    handle = INVALID_HANDLE_VALUE;
    delete[] buffer;
    buffer = nullptr;
    bufferFill = 0;
}

bool FileOper::isOpen() const {
    return handle != INVALID_HANDLE_VALUE;
}

bool FileOper::Flush() {
    if (!bufferWriting)
        return !failed;
    bufferWriting = false;
    DWORD const pending = bufferFill;
    bufferFill = 0;
    if (pending && (!SeekTo(bufferStart) || !WriteOut(buffer, pending)))
        failed = true;
    return !failed;
}

bool FileOper::SeekTo(std::uint64_t at) {
    if (at == filePosition)
        return true;
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<std::int64_t>(at);
    if (distance.QuadPart < 0 || !SetFilePointerEx(handle, distance, nullptr, FILE_BEGIN))
        return false;
    filePosition = at;
    return true;
}

bool FileOper::WriteOut(void const* data, DWORD size) {
    DWORD written = 0;
    bool const done = WriteFile(handle, data, size, &written, nullptr) != FALSE;
    filePosition += written;
    return done && written == size;
}

// Reads the buffer full from `at` on. False on a read error; an empty buffer at the end.
bool FileOper::Fill(std::uint64_t at) {
    if (!buffer)
        buffer = new (std::nothrow) char[bufferCapacity];
    bufferStart = at;
    bufferFill = 0;
    if (!buffer || !SeekTo(at))
        return false;
    // A stream that only reads asks for no more than the length it opened with, so the read
    // that reaches the end is the last one.
    DWORD const wanted = !writable && length - at < bufferCapacity ? static_cast<DWORD>(length - at)
                                                                   : bufferCapacity;
    bool const done = ReadFile(handle, buffer, wanted, &bufferFill, nullptr) != FALSE;
    filePosition += bufferFill;
    return done;
}

// Reads the rest of a file opened for reading straight into `target`, which has room for it.
bool FileOper::ReadRest(char* target, DWORD& got) {
    DWORD const wanted = static_cast<DWORD>(length - position);
    got = 0;
    if (!SeekTo(position) || ReadFile(handle, target, wanted, &got, nullptr) == FALSE)
        return false;
    filePosition += got;
    position += got;
    return true;
}

bool FileOper::Read(void* data, DWORD const& size, bool const& partial) {
    readSize = 0;
    if (!isOpen() || (!data && size) || !Flush())
        return false;
    char* target = static_cast<char*>(data);
    DWORD got = 0;
    bool done = true;
    while (got < size) {
        if (position >= bufferStart && position < bufferStart + bufferFill) {
            DWORD const offset = static_cast<DWORD>(position - bufferStart);
            DWORD const n = std::min(size - got, bufferFill - offset);
            std::memcpy(target + got, buffer + offset, n);
            got += n;
            position += n;
        } else if (position >= length && !writable) {
            break; // the end as the file was opened: no read to learn it
        } else if (!writable && length - position <= size - got) {
            // What is left of the file fits the caller's block: no copy through the buffer.
            DWORD n;
            done = ReadRest(target + got, n);
            got += n;
            if (!done || position < length)
                break; // an error, or the file shrank
        } else if (!Fill(position)) {
            done = false;
            break;
        } else if (bufferFill == 0) {
            break; // the end of the file
        }
    }
    readSize = got;
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
    if (!isOpen() || static_cast<std::int64_t>(to) < 0 || !Flush())
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
    if (!isOpen() || !writable || (!data && size) || failed)
        return false;
    if (!bufferWriting || position != bufferStart + bufferFill ||
        bufferFill + size > bufferCapacity) {
        if (!Flush())
            return false;
        bufferStart = position;
        bufferFill = 0; // read-ahead bytes are of no use once the file changes
        if (!buffer)
            buffer = new (std::nothrow) char[bufferCapacity];
    }
    if (!buffer || size > bufferCapacity) {
        // Too large for the buffer, or no buffer: straight to the file.
        if (!SeekTo(position) || !WriteOut(data, size))
            return false;
    } else {
        std::memcpy(buffer + bufferFill, data, size);
        bufferFill += size;
        bufferWriting = true;
    }
    position += size;
    if (position > length)
        length = position;
    return true;
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
