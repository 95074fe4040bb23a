// The command line of tessik-find, read into one plain struct.
#ifndef TESSIK_EXAMPLES_FIND_OPTIONS_H
#define TESSIK_EXAMPLES_FIND_OPTIONS_H

#include "find_values.h"

#include <cstdio>
#include <string>
#include <vector>

struct FindOptions {
    std::vector<std::string> directories; // as written; none means the current directory
    bool recursive = true;
    std::vector<std::string> names; // wildcard patterns; none means every name

    SizeTest size;
    DWORD attributes = 0;
    char attributeTest = 0; // the listing's test byte; 0 means no attribute test
    DateTest written;
    DateTest created;
    DateTest accessed;

    std::string text;        // what a file must hold
    BYTE containingMode = 0; // 0x01 phrase, 0x02 any word, 0x04 all words; 0x08 ignore case
    bool ignoreCase = false;
    bool invertText = false;

    SortOrder sort;
    std::vector<unsigned> fields; // column numbers; empty means the aligned listing
    bool posixPaths = false;
    bool recordDates = false;
    bool print0 = false;
    bool stats = false;
    bool quiet = false;
    bool help = false;
};

// Reads argv[1..argc-1]. False with a message in `error` when an argument is not understood.
bool ParseFindOptions(int argc, char** argv, FindOptions& options, std::string& error);

// Every option with an example.
void PrintFindHelp(std::FILE* out);

#endif
