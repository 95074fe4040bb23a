// The tallies of a search run, and figures worked out from the records of the listing.
#include <tessik/DFileLoad.h>

void DFileLoad::ClearAnalysis() {
    totalArchive = totalCompressed = totalNormal = totalDirectory = totalHidden = 0;
    totalEncrypted = totalSystem = totalTemporary = totalReadOnly = 0;
    totalArchiveSize = totalCompressedSize = totalNormalSize = totalDirectorySize = 0;
    totalHiddenSize = totalEncryptedSize = totalSystemSize = totalTemporarySize = 0;
    totalReadOnlySize = 0;
}

void DFileLoad::AddToAnalysis(DFile const& file) {
    struct Tally {
        DWORD bit;
        DWORD DFileLoad::*count;
        std::uint64_t DFileLoad::*size;
    };
    static Tally const tallies[] = {
        {0x20, &DFileLoad::totalArchive, &DFileLoad::totalArchiveSize},
        {0x800, &DFileLoad::totalCompressed, &DFileLoad::totalCompressedSize},
        {0x80, &DFileLoad::totalNormal, &DFileLoad::totalNormalSize},
        {0x10, &DFileLoad::totalDirectory, &DFileLoad::totalDirectorySize},
        {0x2, &DFileLoad::totalHidden, &DFileLoad::totalHiddenSize},
        {0x40, &DFileLoad::totalEncrypted, &DFileLoad::totalEncryptedSize},
        {0x4, &DFileLoad::totalSystem, &DFileLoad::totalSystemSize},
        {0x100, &DFileLoad::totalTemporary, &DFileLoad::totalTemporarySize},
        {0x1, &DFileLoad::totalReadOnly, &DFileLoad::totalReadOnlySize},
    };
    for (Tally const& tally : tallies) {
        if (!file.isAttribute(tally.bit))
            continue;
        ++(this->*tally.count);
        this->*tally.size += file.GetFileSize(); // the low 32 bits only
    }
}

DWORD const& DFileLoad::GetTotalSearched() const {
    return totalSearched;
}
DWORD const& DFileLoad::GetTotalMatches() const {
    return totalMatches;
}
DWORD const& DFileLoad::GetTotalSearchMilliseconds() const {
    return totalSearchMilliseconds;
}
DWORD const& DFileLoad::GetTotalSearchDirs() const {
    return totalSearchDirs;
}
std::uint64_t const& DFileLoad::GetTotalMatchesSize() const {
    return totalMatchesSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchedSize() const {
    return totalSearchedSize;
}

DWORD const& DFileLoad::GetTotalSearchArchive() const {
    return totalArchive;
}
DWORD const& DFileLoad::GetTotalSearchCompressed() const {
    return totalCompressed;
}
DWORD const& DFileLoad::GetTotalSearchNormal() const {
    return totalNormal;
}
DWORD const& DFileLoad::GetTotalSearchDirectory() const {
    return totalDirectory;
}
DWORD const& DFileLoad::GetTotalSearchHidden() const {
    return totalHidden;
}
DWORD const& DFileLoad::GetTotalSearchEncrypted() const {
    return totalEncrypted;
}
DWORD const& DFileLoad::GetTotalSearchSystem() const {
    return totalSystem;
}
DWORD const& DFileLoad::GetTotalSearchTemporary() const {
    return totalTemporary;
}
DWORD const& DFileLoad::GetTotalSearchReadOnly() const {
    return totalReadOnly;
}

std::uint64_t const& DFileLoad::GetTotalSearchArchiveSize() const {
    return totalArchiveSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchCompressedSize() const {
    return totalCompressedSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchNormalSize() const {
    return totalNormalSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchDirectorySize() const {
    return totalDirectorySize;
}
std::uint64_t const& DFileLoad::GetTotalSearchHiddenSize() const {
    return totalHiddenSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchEncryptedSize() const {
    return totalEncryptedSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchSystemSize() const {
    return totalSystemSize;
}
std::uint64_t const& DFileLoad::GetTotalSearchTemporarySize() const {
    return totalTemporarySize;
}
std::uint64_t const& DFileLoad::GetTotalSearchReadOnlySize() const {
    return totalReadOnlySize;
}

DWORD DFileLoad::GetTotalSearchFiles() const {
    // totalSearchDirs counts the start of a run as one directory that no entry stands for;
    // that one is left out, so the result is the number of entries that were not directories.
    DWORD const dirEntries = totalSearchDirs ? totalSearchDirs - 1 : 0;
    return totalSearched > dirEntries ? totalSearched - dirEntries : 0;
}

DWORD DFileLoad::GetTotalDirs(DName const& dir) const {
    DWORD total = 0;
    for (DFile const* file = files.head; file; file = file->next) {
        DName const& path = file->GetFullPath();
        // A plain prefix of the text (an empty one always is): the directory itself is not
        // counted, C:\database is.
        if (file->isDir() && dir.Size() < path.Size() && _memicmp(&dir, &path, dir.Size()) == 0)
            ++total;
    }
    return total;
}

DWORD DFileLoad::GetTotalFiles() const {
    DWORD total = 0;
    for (DFile const* file = files.head; file; file = file->next)
        if (!file->isDir())
            ++total;
    return total;
}

DWORD DFileLoad::GetTotalFileSizes() const {
    DWORD total = 0;
    for (DFile const* file = files.head; file; file = file->next)
        total += file->GetFileSize(); // low halves, wrapping at 32 bits
    return total;
}

DWORD DFileLoad::GetTotalAllocationSizes() const {
    DWORD total = 0;
    for (DFile const* file = files.head; file; file = file->next)
        total += file->HeaderSize();
    return total;
}
