// Names of directory entries, read without making copies: these run for every entry a cursor
// steps over.
#ifndef TESSIK_RECORDS_ENTRYNAMES_H
#define TESSIK_RECORDS_ENTRYNAMES_H

#include <tessik/DName.h>
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

// Whether the last component of a path is "." or "..". Nearly every path ends in another
// byte than a dot, trailing separators apart, and is answered without finding its last
// component.
inline bool IsDotsPath(char const* text, unsigned int size) {
    unsigned int last = size;
    while (last > 0 && (text[last - 1] == '\\' || text[last - 1] == '/'))
        --last;
    if (last == 0 || text[last - 1] != '.')
        return false;
    unsigned int start, end;
    DName::LastComponent(text, size, start, end);
    unsigned int const length = end - start;
    return (length == 1 || length == 2) && text[start] == '.' &&
           (length == 1 || text[start + 1] == '.');
}

} // namespace entry_names

#endif
