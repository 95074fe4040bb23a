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
    // Saved listings: each a file name, empty when not given.
    std::string saveFile;    // search, and save the criteria and the listing
    std::string changesFile; // search with the saved criteria, list what changed
    std::string loadFile;    // list a saved listing without searching
    std::string reportFile;  // write the listing's text report
    std::string findInFile;  // look the paths (in `directories`) up in a saved listing
    // The arguments that a saved listing keeps for tessik-find's own checks (-n, --size and
    // the dates), as given.
    std::vector<std::string> keptArguments;

    bool stats = false;
    bool quiet = false;
    bool help = false;
};

// Reads argv[1..argc-1]. False with a message in `error` when an argument is not understood.
bool ParseFindOptions(int argc, char** argv, FindOptions& options, std::string& error);

// Every option with an example.
void PrintFindHelp(std::FILE* out);

#endif
