// DName: a byte string that is also a Windows path.
//
// The text may hold zero bytes (Namen keeps them); Size() counts bytes. Comparisons order names
// by their unsigned bytes, case-sensitively, a prefix before the longer name. Path operations
// take both `\` and `/` as separators and write `\` unless asked for `/`.
#ifndef TESSIK_DNAME_H
#define TESSIK_DNAME_H

#include <tessik/export.h>
#include <tessik/platform.h>

#include <cstdint>

class FileOper;

class TESSIK_API DName {
public:
    // Link used by Container<DName>; a copy-constructed name has it null.
    DName* link;

    DName(char const* text = nullptr);
    DName(int const& value); // 0 gives an empty name, any other value its decimal text
    DName(DName const& other);
    ~DName();

    DName& operator=(DName const& other); // keeps the target's link
    DName& operator=(char const* text);
    DName& operator=(int const& value);
    bool Copy(DName const& other); // keeps the target's link
    void Swap(DName& other);       // exchanges the texts; both links stay

    // Set or empty the text. Namen keeps exactly n bytes of `text`, zero bytes included.
    bool Name(char const* text);
    bool Namen(char const* text, unsigned int const& n);
    void Destroy();

    unsigned int const& Size() const;
    char const* operator&() const; // never null; "" when empty
    char operator[](unsigned int const& index) const;
    char Char(unsigned int const& index) const; // 0 past the end
    bool isEmpty() const;
    bool operator!() const;

    // One consistent order: unsigned bytes, case-sensitive, a prefix first.
    int Comp(DName const& other) const; // -1, 0 or 1
    bool operator==(DName const& other) const;
    bool operator==(char const* text) const;
    bool operator!=(DName const& other) const;
    bool operator!=(char const* text) const;
    bool operator<(DName const& other) const;
    bool operator>(DName const& other) const;
    bool operator<=(DName const& other) const;
    bool operator>=(DName const& other) const;

    // Edits.
    DName operator+(DName const& other) const;
    DName operator+(std::uint64_t const& value) const; // appends the decimal text of value
    DName& operator+=(DName const& other);
    DName& operator+=(char const* text);
    bool InsertLeft(DName const& text);
    bool InsertRight(DName const& text);
    bool InsertRight(char const& c, unsigned int const& n); // n copies of c
    bool DelRight(unsigned int const& n);                   // cuts n bytes; all when n >= Size
    bool ModPos(unsigned int const& pos, char const& c);    // false past the end
    bool Replace(char const& from, char const& to);         // every byte; true when any changed
    // Position of the first `c` at or after `start`; Size() when there is none.
    unsigned int FindFirstChar(char const& c, unsigned int const& start = 0) const;

    // Numbers. FromLong64 sets the decimal text of `value`, with a ',' between groups of three
    // digits when `grouping` is not 0. ToWord reads the leading decimal number (blanks skipped)
    // and keeps its low 32 bits. GetNumber gives the index-th run of digits (0 when there is
    // none) and, when `end` is not null, the position behind it.
    DName const& FromLong64(std::uint64_t const& value, int const& grouping);
    DWORD ToWord() const;
    DWORD GetNumber(unsigned int const& index, unsigned int* end) const;

    // Paths.
    // Where the last component of a path lies: behind the root (a drive and the separators
    // after it), trailing separators passed over. What RemDir() leaves, without a copy.
    static void LastComponent(char const* bytes, unsigned int length, unsigned int& start,
                              unsigned int& end);
    bool RemDir();                // leaves the last component
    bool RemDir(DName& out);      // drops trailing separators, the last component into out
    bool RemFilename();           // removes the last component and its separator
    bool RemFilename(DName& out); // the same, the component into out
    bool RemDrive(DName& out);    // "C:" into out; false when there is no drive
    bool RemIndexDir(DName& out); // the first component into out; false when there is none
    bool AddHome(DName const& home, bool const& forward);
    bool AddFile(DName const& name, bool const& forward);
    bool AddFile(char const* name, unsigned int const& length, bool const& forward);
    bool AttachSlash(bool const& forward);       // a trailing separator unless there is one
    bool ChopPath(bool const& all);              // removes one, or all, trailing separators
    bool isFileSpec(DName const& pattern) const; // wildcard match, `*` and `?`, any case

    // Stream form: a 32-bit little-endian length, then the bytes.
    bool Write(FileOper& file) const;
    bool Read(FileOper& file);

    // Radix form: each byte as a fixed number of digits in `radix` (2 to 36), lower case.
    DName ToRadix(unsigned int const& radix) const;
    DName FromRadix(unsigned int const& radix) const; // empty when the text is not a radix form

    // Scrambles the text in place with `key`, from key position `position` on, and moves the
    // position on by Size(). Its own inverse for the same key and start position.
    void det(DName const& key, unsigned int& position);

private:
    bool Assign(char const* text, unsigned int n);
    bool Reserve(unsigned int n);
    bool Holds(char const* bytes) const; // whether `bytes` lie in this name's block
    // Replaces `cut` bytes at `at` with `n` bytes (which may lie inside this name).
    bool Splice(unsigned int at, unsigned int cut, char const* bytes, unsigned int n);
    void Keep(unsigned int from, unsigned int to); // leaves bytes [from, to), never allocates
    void Take(DName& other);                       // other's text moves here, links stay
    // Bytes [start, end) into out, bytes [keepFrom, keepTo) left here.
    bool Split(unsigned int start, unsigned int end, unsigned int keepFrom, unsigned int keepTo,
               DName& out);

    char* text;
    unsigned int size;
    unsigned int capacity;
};

// The link through which Container<DName> chains names.
inline DName*& NextOf(DName& name) {
    return name.link;
}

#endif
