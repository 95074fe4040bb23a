// FileOper: a file stream over one open file.
//
// FileOper(path, false) opens an existing regular file for reading; FileOper(path, true) creates
// or truncates one for reading and writing. FIFOs, sockets, devices and pseudo-file-system files
// never open, so a reader can never block on one. The destructor closes; Close() closes early.
//
// Reads and writes go through a buffer of the stream's own, so many small fields cost few
// system calls. Written bytes reach the file at the latest at Flush or Close; a write error
// that shows only then makes Flush false and the next Write false.
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
    // An open file is never shared: a copy is a closed stream, and an assignment closes the
    // target's own stream (writing out what it holds) and leaves it closed.
    FileOper(FileOper const& other);
    FileOper& operator=(FileOper const& other);

    void Close();
    bool isOpen() const;
    bool Flush(); // writes out what the buffer holds

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
    bool Fill(std::uint64_t at);
    bool ReadRest(char* target, DWORD& got);
    bool SeekTo(std::uint64_t at);
    bool WriteOut(void const* data, DWORD size);

    HANDLE handle;
    std::uint64_t position; // where the next read or write takes place
    std::uint64_t length;
    std::uint64_t totalRead;
    DWORD readSize;
    bool endMet;
    bool writable;
    bool failed; // a buffered write could not be written out
    char* buffer;
    std::uint64_t bufferStart; // file offset of buffer[0]
    DWORD bufferFill;          // bytes read into the buffer, or written to it and not yet out
    bool bufferWriting;
    std::uint64_t filePosition; // where the file's own pointer stands
};

#endif
