// What tessik-find prints: the records on stdout, the tallies on stderr.
#ifndef TESSIK_EXAMPLES_FIND_OUTPUT_H
#define TESSIK_EXAMPLES_FIND_OUTPUT_H

#include <tessik/tessik.h>

#include <cstdio>
#include <string>
#include <vector>

struct OutputForm {
    bool posixPaths = false;  // /usr/include instead of Z:\usr\include
    bool recordDates = false; // the record's own date text instead of ISO 8601 local time
    bool print0 = false;      // each record ended by a zero byte instead of a line end
};

// The text of one column of a record, in the chosen form. Dates are local time, as ISO 8601
// ("2024-05-01 13:45:10") from the true date, or as the record writes them ("5/01/2024 1:45:10
// PM", with 0/00/1985 for a date before 1985 or after 2080); the drive is the path's ("Z:" on
// POSIX systems).
std::string ColumnText(DFile const& file, unsigned column, OutputForm const& form);

// One line a record: attribute flags, size (right-aligned), write date, full path. With
// print0 only the path.
void PrintAligned(DFileLoad const& load, OutputForm const& form, std::FILE* out);

// One line a record: the given columns' texts between tabs.
void PrintFields(DFileLoad const& load, std::vector<unsigned> const& columns,
                 OutputForm const& form, std::FILE* out);

// Entries searched, directories searched, matches and their bytes, milliseconds: the matches
// as listed (after tessik-find's own checks).
void PrintTallies(DFileLoad const& load, unsigned directoriesSearched, std::FILE* out);

// "1 entry", "2 entries": the count with digit groups and its noun.
std::string Counted(std::uint64_t count, char const* one, char const* many);

#endif
