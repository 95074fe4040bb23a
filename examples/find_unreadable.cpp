#include "find_unreadable.h"

#include "find_paths.h"
#include "find_system.h"

UnreadableWatch::UnreadableWatch(DirectoryListingSpec const& searched, bool posix)
    : spec(searched), contentTest(searched.containingMode != 0), posixPaths(posix) {
    if (spec.namePatterns.count == 0)
        spec.namePatterns.InsertRight(DName("*.*")); // as the search fills it in
}

void UnreadableWatch::DirectoryStarts(DFileLoad const& load, std::string const& next) {
    if (!directory.empty() && load.totalSearched == entriesBefore)
        Check(directory, true, directories);
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
    Check(&entry.GetFullPath(), false, files);
}

void UnreadableWatch::Check(std::string const& path, bool isDirectory, unsigned& count) {
    std::string reason;
    if (CanRead(path, isDirectory, reason))
        return;
    ++count;
    messages += "tessik-find: " + (posixPaths ? PosixPath(path) : path) + ": " + reason + "\n";
}

std::string UnreadableWatch::TakeMessages() {
    std::string taken;
    taken.swap(messages);
    return taken;
}
