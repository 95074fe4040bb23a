#include "find_search.h"

#include "find_checks.h"
#include "find_paths.h"
#include "find_system.h"

#include <cstdio>

bool AddDirectories(FindOptions const& options, DirectoryListingSpec& spec) {
    std::vector<std::string> const current = {"."};
    bool allFound = true;
    for (std::string const& written : options.directories.empty() ? current : options.directories) {
        std::string full;
        std::string error;
        if (DirectoryToSearch(written, full, error)) {
            spec.directories.InsertRight(DName(full.c_str()));
        } else {
            std::fprintf(stderr, "tessik-find: '%s': %s\n", written.c_str(), error.c_str());
            allFound = false;
        }
    }
    return allFound;
}

void SetTests(FindOptions const& options, DirectoryListingSpec& spec) {
    for (std::string const& name : options.names)
        spec.namePatterns.InsertRight(DName(LibraryName(name, true).c_str()));
    spec.attributeTest = options.attributeTest;
    spec.attributes = options.attributes;
    SetLibraryChecks(options, spec);
    spec.textToFind = DName(options.text.c_str());
    spec.containingMode = options.containingMode;
    spec.invertContaining = options.invertText;
}
