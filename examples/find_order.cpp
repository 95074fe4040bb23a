#include "find_order.h"

#include <algorithm>
#include <vector>

namespace {

FILETIME const& DateOf(DFile const& file, unsigned column) {
    return column == ColumnCreated    ? file.dateCreated
           : column == ColumnAccessed ? file.dateLastAccessed
                                      : file.dateWritten;
}

std::uint64_t Seconds(FILETIME const& date) {
    return ((static_cast<std::uint64_t>(date.dwHighDateTime) << 32) | date.dwLowDateTime) /
           10000000;
}

void SortByDate(DFileLoad& load, unsigned column, bool descending) {
    std::vector<DFile*> records;
    records.reserve(load.Size());
    for (DFile* file = load.files.head; file; file = file->next)
        records.push_back(file);
    std::stable_sort(records.begin(), records.end(), [column](DFile const* a, DFile const* b) {
        std::uint64_t const first = Seconds(DateOf(*a, column));
        std::uint64_t const second = Seconds(DateOf(*b, column));
        return first != second ? first < second : a->fullPath < b->fullPath;
    });
    if (descending)
        std::reverse(records.begin(), records.end());
    // The same records, linked anew in the new order.
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i]->next = i + 1 < records.size() ? records[i + 1] : nullptr;
    load.files.head = records.empty() ? nullptr : records.front();
    load.files.Relinked(records.empty() ? nullptr : records.back());
}

} // namespace

void Order(DFileLoad& load, SortOrder const& sort) {
    if (sort.directoriesFirst)
        load.Sort();
    else if (sort.column == ColumnCreated || sort.column == ColumnAccessed ||
             sort.column == ColumnWritten)
        SortByDate(load, sort.column, sort.descending);
    else
        load.SortAlpha(sort.column, sort.descending);
}
