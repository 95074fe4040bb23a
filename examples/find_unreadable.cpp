#include "find_unreadable.h"

#include "find_paths.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

UnreadableWatch::UnreadableWatch(DirectoryListingSpec const& searched, bool posix)
    : spec(searched), contentTest(searched.containingMode != 0), posixPaths(posix) {
    if (spec.namePatterns.count == 0)
        spec.namePatterns.InsertRight(DName("*.*")); // as the search fills it in
}

void UnreadableWatch::DirectoryStarts(DFileLoad const& load, std::string const& next) {
    if (!directory.empty() && load.totalSearched == entriesBefore)
        Check(directory, R_OK | X_OK, directories);
    directory = next;
    entriesBefore = load.totalSearched;
}

void UnreadableWatch::EntryCounted(DFileLoad const& load) {
    if (!contentTest || load.totalSearched == entriesChecked)
        return;
    entriesChecked = load.totalSearched;
    DFile const& entry = load.foundFile;
    // Only regular files are opened: no directory, link (0x400) or device (0x4).
    if (entry.isAnAttribute(0x414) || !filter.IsFileSpec(spec, entry))
        return;
    Check(&entry.GetFullPath(), R_OK, files);
}

// Effective ids, as the opening itself uses them.
void UnreadableWatch::Check(std::string const& path, int mode, unsigned& count) {
    std::string const posix = PosixPath(path);
    if (faccessat(AT_FDCWD, posix.c_str(), mode, AT_EACCESS) == 0 || errno == ENAMETOOLONG)
        return; // the listing walks long paths in pieces
    ++count;
    messages += "tessik-find: " + (posixPaths ? posix : path) + ": " + std::strerror(errno) + "\n";
}

std::string UnreadableWatch::TakeMessages() {
    std::string taken;
    taken.swap(messages);
    return taken;
}
