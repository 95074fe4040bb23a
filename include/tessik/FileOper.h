// FileOper: a file stream over one open file.
//
// FileOper(path, false) opens an existing regular file for reading; FileOper(path, true) creates
// or truncates one for reading and writing. FIFOs, sockets, devices and pseudo-file-system files
// never open, so a reader can never block on one. The destructor closes; Close() closes early.
#ifndef TESSIK_FILEOPER_H
#define TESSIK_FILEOPER_H

#include <tessik/export.h>
#include <tessik/platform.h>

#include <cstdint>

class TESSIK_API FileOper {
public:
    FileOper(FileOper const* other = nullptr); // a closed stream, whatever `other` is
    FileOper(char const* path, bool create);
    ~FileOper();
    FileOper(FileOper const&) = delete;
    FileOper& operator=(FileOper const&) = delete;

    void Close();
    bool isOpen() const;

    // Reads up to `size` bytes. With `partial` a short read at the end succeeds; without it
    // anything short of `size` fails. GetReadSize gives the bytes of the last read (0 before
    // the first), GetTotalReadSize the offset just behind the last block, also after SetPos.
    bool Read(void* data, DWORD const& size, bool const& partial);
    DWORD const& GetReadSize() const;
    std::uint64_t GetTotalReadSize() const;

    bool SetPos(std::uint64_t const& position); // absolute
    std::uint64_t GetPos() const;
    bool isEof() const;              // a read met the end, or the position is at the length
    std::uint64_t GetLength() const; // length when opened, grown by writes

    bool Write(void const* data, DWORD const& size);
    bool TWrite(char const* text); // the text and a line end ("\n")
    bool wtf();                    // ends a report block: one empty line

private:
    HANDLE handle;
    std::uint64_t position;
    std::uint64_t length;
    std::uint64_t totalRead;
    DWORD readSize;
    bool endMet;
};

#endif
