// The listing as a value: copies, comparisons by record count, and dropping directories or
// files.
//
// A copy never shares the enumeration handle of an open cursor, since each object closes its
// own: the copy's cursor is closed.
#include <tessik/DFileLoad.h>

// Field by field as the assignment does, on a new object: its criteria keep the stream byte 0
// of a new object, and its found record takes over the source's link and scrambling state,
// which an assignment leaves to the target.
DFileLoad::DFileLoad(DFileLoad const& other) : DFileLoad() {
    *this = other;
    foundFile.next = other.foundFile.next;
    foundFile.dataEncrypted = other.foundFile.dataEncrypted;
}

DFileLoad& DFileLoad::operator=(DFileLoad const& other) {
    if (&other == this)
        return *this;
    browseIsDir = other.browseIsDir;
    files = other.files;
    CloseDirListing(); // the target's own cursor; the source's handle stays the source's
    openFileFlags = other.openFileFlags;
    browseDirFlags = other.browseDirFlags;
    browseFilterIndex = other.browseFilterIndex;
    spec.Copy(other.spec);
    foundFile = other.foundFile;
    workPath = other.workPath;
    storedDir = other.storedDir;
    browseDir = other.browseDir;
    browseTitle = other.browseTitle;
    browseFilter = other.browseFilter;
    browseNames = other.browseNames;
    searchTerms = other.searchTerms;
    totalSearched = other.totalSearched;
    totalMatches = other.totalMatches;
    totalSearchMilliseconds = other.totalSearchMilliseconds;
    totalSearchDirs = other.totalSearchDirs;
    totalMatchesSize = other.totalMatchesSize;
    countOnly = other.countOnly;
    analysis = other.analysis;
    totalArchive = other.totalArchive;
    totalCompressed = other.totalCompressed;
    totalNormal = other.totalNormal;
    totalDirectory = other.totalDirectory;
    totalHidden = other.totalHidden;
    totalEncrypted = other.totalEncrypted;
    totalSystem = other.totalSystem;
    totalTemporary = other.totalTemporary;
    totalReadOnly = other.totalReadOnly;
    totalArchiveSize = other.totalArchiveSize;
    totalCompressedSize = other.totalCompressedSize;
    totalNormalSize = other.totalNormalSize;
    totalDirectorySize = other.totalDirectorySize;
    totalHiddenSize = other.totalHiddenSize;
    totalEncryptedSize = other.totalEncryptedSize;
    totalSystemSize = other.totalSystemSize;
    totalTemporarySize = other.totalTemporarySize;
    totalReadOnlySize = other.totalReadOnlySize;
    totalSearchedSize = other.totalSearchedSize;
    abortRequested = other.abortRequested;
    searching = other.searching;
    progressBar = other.progressBar;
    percentText = other.percentText;
    statusWnd = other.statusWnd;
    listControl = other.listControl;
    return *this;
}

bool DFileLoad::RemDirs() {
    return files.DelIf([](DFile const& file) { return file.isDir(); });
}

bool DFileLoad::RemFiles() {
    return files.DelIf([](DFile const& file) { return file.isFile(); });
}

bool DFileLoad::operator==(DFileLoad const& other) const {
    return files.count == other.files.count;
}
bool DFileLoad::operator!=(DFileLoad const& other) const {
    return files.count != other.files.count;
}
bool DFileLoad::operator==(unsigned const& n) const {
    return files.count == n;
}
bool DFileLoad::operator!=(unsigned const& n) const {
    return files.count != n;
}
bool DFileLoad::operator<(unsigned const& n) const {
    return files.count < n;
}
bool DFileLoad::operator>(unsigned const& n) const {
    return files.count > n;
}
bool DFileLoad::operator>=(unsigned const& n) const {
    return files.count >= n;
}
bool DFileLoad::operator<=(unsigned const& n) const {
    return files.count <= n;
}
