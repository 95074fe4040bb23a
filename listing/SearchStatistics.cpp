// The tallies of a search run.
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
