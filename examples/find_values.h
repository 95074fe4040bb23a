// The values tessik-find's options take: sizes, attribute letters, dates, column names.
// Each reader gives false for text it does not accept, and then leaves its output alone.
#ifndef TESSIK_EXAMPLES_FIND_VALUES_H
#define TESSIK_EXAMPLES_FIND_VALUES_H

#include <tessik/platform.h>

#include <string>

#include <cstdint>

// A size test, in the listing's test bytes: 1 equal, 2 less, 4 greater, 6 the range
// size..upper, 0 none. The sizes have 64 bits; the listing's own test has 32.
struct SizeTest {
    char test = 0;
    std::uint64_t size = 0;
    std::uint64_t upper = 0;
};

// A date test: test 1 the same second (or day), 2 earlier, 4 later, 0 none; the date in local
// time. With `wholeDay` the date was written without a time and stands for its whole day.
struct DateTest {
    char test = 0;
    SYSTEMTIME local = {};
    bool wholeDay = false;
};

// Sorting by path with directories first, or by one column up or down.
struct SortOrder {
    bool directoriesFirst = true;
    unsigned column = 0;
    bool descending = false;
};

// N, -N, +N or A..B; each number in bytes with an optional k, M, G or T suffix (powers of
// 1024), below 2^64.
bool ParseSizeTest(std::string const& text, SizeTest& out);

// Letters R H S D A E N T C, in either case, as attribute bits.
bool ParseAttributeLetters(std::string const& text, DWORD& bits);

// =DATE, <DATE or >DATE with DATE as YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS.
bool ParseDateTest(std::string const& text, DateTest& out);

// name, drive, path, size, attributes, created, accessed or written as its column number.
bool ParseColumnName(std::string const& text, unsigned& column);

// "path", or a column name with an optional ":asc" or ":desc".
bool ParseSortOrder(std::string const& text, SortOrder& out);

#endif
