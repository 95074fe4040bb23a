// What changed between a saved listing and a new search with its criteria, told as diff tells
// it: "+ path" added, "- path" removed, "~ path  size 10 -> 12, written ... -> ..." changed,
// in path order.
#ifndef TESSIK_EXAMPLES_FIND_CHANGES_H
#define TESSIK_EXAMPLES_FIND_CHANGES_H

#include "find_output.h"

#include <tessik/tessik.h>

#include <cstdio>

#include <string>
#include <vector>

struct Change {
    std::string path;    // the library's form, for the order
    char mark;           // '+', '-' or '~'
    DFile const* record; // as found, or as saved for a removal
    DFile const* before; // for '~', as saved
};

// Added: records of `found` that `saved` lacks, copied into `added`; removed: the other way
// round, into `removed`; changed: paths in both with different records (size, the dates but
// the last access, attributes). In path order; the changes point into `added` and `removed`.
std::vector<Change> FindChanges(DFileLoad& saved, DFileLoad& found, DFileLoad& added,
                                DFileLoad& removed);

// One line a change; for '~' with the fields that changed.
void PrintChanges(std::vector<Change> const& changes, OutputForm const& form, std::FILE* out);

#endif
