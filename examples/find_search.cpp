#include "find_search.h"

#include "find_checks.h"
#include "find_paths.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

namespace {

// The full path of the directory `written` leads to (through links), or false with the
// reason in errno.
bool ResolveDirectory(std::string const& written, std::string& full) {
    std::string const posix = PosixPath(written);
    struct stat status = {};
    if (stat(posix.c_str(), &status) != 0)
        return false;
    if (!S_ISDIR(status.st_mode)) {
        errno = ENOTDIR;
        return false;
    }
    char* const resolved = realpath(posix.c_str(), nullptr);
    if (!resolved)
        return false;
    full = resolved;
    std::free(resolved);
    return true;
}

} // namespace

bool AddDirectories(FindOptions const& options, DirectoryListingSpec& spec) {
    std::vector<std::string> const current = {"."};
    bool allFound = true;
    for (std::string const& written : options.directories.empty() ? current : options.directories) {
        std::string full;
        if (ResolveDirectory(written, full)) {
            spec.directories.InsertRight(DName(LibraryPath(full).c_str()));
        } else {
            std::fprintf(stderr, "tessik-find: '%s': %s\n", written.c_str(), std::strerror(errno));
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
