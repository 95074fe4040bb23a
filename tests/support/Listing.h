// What tests read back from a listing, and the criteria of a search from several directories.
#ifndef TESSIK_TESTS_LISTING_H
#define TESSIK_TESTS_LISTING_H

#include <tessik/tessik.h>

#include <string>
#include <vector>

// The full paths of the records in order, into a vector or a set.
template <class Paths = std::vector<std::string>> Paths PathsOf(DFileLoad const& load) {
    Paths paths;
    for (DFile const* file = load.files.head; file; file = file->next)
        paths.insert(paths.end(), &file->GetFullPath());
    return paths;
}

// All names ("*.*") in each of `dirs`.
inline DirectoryListingSpec From(std::vector<std::string> const& dirs) {
    DirectoryListingSpec spec("*.*");
    for (auto const& dir : dirs)
        spec.directories.InsertRight(DName(dir.c_str()));
    return spec;
}

#endif
