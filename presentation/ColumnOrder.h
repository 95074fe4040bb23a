// The order of records in a column, worked out once per record so that sorting a listing
// compares plain values that lie side by side in memory.
#ifndef TESSIK_PRESENTATION_COLUMNORDER_H
#define TESSIK_PRESENTATION_COLUMNORDER_H

#include <tessik/DFile.h>

#include <cstdint>
#include <vector>

// What one column compares of one record. Texts are views into the record, never copies.
struct ColumnKey {
    std::uint64_t high = 0;     // the size, the local date, attribute letters, or text bytes 0-7
    std::uint64_t low = 0;      // the local time of day, the last attribute letter, or bytes 8-15
    char const* text = nullptr; // the compared text (file name or path), when there is one
    unsigned int size = 0;
    unsigned int index = 0;     // where the record stood
    std::uint64_t pathHead = 0; // the full path, for ties: 8 bytes after the common prefix,
    char const* path = nullptr; // and all bytes after it
    unsigned int pathSize = 0;
};

// `skip` is a number of leading path bytes known to be the same in every record compared: the
// keys leave them out.
ColumnKey MakeColumnKey(DFile const& record, unsigned int column, unsigned int skip = 0);

// Below 0, 0 or above 0 as `left` sorts before, with or after `right` in ascending order of
// `column`: the column's value first, the full path on a tie, except for the name and path
// columns, which have no tie-break.
int ColumnCompare(ColumnKey const& left, ColumnKey const& right, unsigned int column);

// Whether `column` breaks ties of its value by the full path.
bool ColumnBreaksTies(unsigned int column);

// The number of leading bytes that every path of `records` has in common.
unsigned int CommonPathPrefix(std::vector<DFile*> const& records);

#endif
