// What tessik-find prints: the records on stdout, the tallies on stderr.
#ifndef TESSIK_EXAMPLES_FIND_OUTPUT_H
#define TESSIK_EXAMPLES_FIND_OUTPUT_H

#include <tessik/tessik.h>

#include <cstdio>
#include <vector>

// One line a record: attribute flags, size (right-aligned), write date, full path.
void PrintAligned(DFileLoad const& load, std::FILE* out);

// One line a record: the given columns' texts between tabs.
void PrintFields(DFileLoad const& load, std::vector<unsigned> const& columns, std::FILE* out);

// Entries searched, matches, directories, total size of the matches, milliseconds.
void PrintTallies(DFileLoad const& load, std::FILE* out);

#endif
