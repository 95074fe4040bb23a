// Names of directory entries, read without making copies: these run for every entry a cursor
// steps over.
#ifndef TESSIK_RECORDS_ENTRYNAMES_H
#define TESSIK_RECORDS_ENTRYNAMES_H

#include <tessik/platform.h>

#include <cstddef>
#include <cstring>

namespace entry_names {

// Length of a text in a fixed array that may lack its closing zero.
template <std::size_t N> inline unsigned int BoundedLength(char const (&text)[N]) {
    void const* end = std::memchr(text, 0, N);
    return static_cast<unsigned int>(end ? static_cast<char const*>(end) - text : N);
}

// The name to use from a find record: the alternate name only when it is the longer.
inline void FoundName(WIN32_FIND_DATAA const& data, char const*& name, unsigned int& length) {
    unsigned int const nameLength = BoundedLength(data.cFileName);
    unsigned int const alternateLength = BoundedLength(data.cAlternateFileName);
    bool const alternate = alternateLength > nameLength;
    name = alternate ? data.cAlternateFileName : data.cFileName;
    length = alternate ? alternateLength : nameLength;
}

inline bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

// The last component of a path as DName::RemDir finds it: a drive and the separators after
// it are the root, which it never reaches into; trailing separators are passed over.
inline void LastComponent(char const* text, unsigned int size, unsigned int& start,
                          unsigned int& end) {
    bool const drive =
        size >= 2 && text[1] == ':' && (text[0] | 0x20) >= 'a' && (text[0] | 0x20) <= 'z';
    unsigned int root = drive ? 2 : 0;
    while (root < size && IsSeparator(text[root]))
        ++root;
    end = size;
    while (end > root && IsSeparator(text[end - 1]))
        --end;
    start = end;
    while (start > root && !IsSeparator(text[start - 1]))
        --start;
}

// Whether the last component of a path is "." or "..".
inline bool IsDotsPath(char const* text, unsigned int size) {
    unsigned int start, end;
    LastComponent(text, size, start, end);
    unsigned int const length = end - start;
    return (length == 1 || length == 2) && text[start] == '.' &&
           (length == 1 || text[start + 1] == '.');
}

} // namespace entry_names

#endif
