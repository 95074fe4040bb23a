// The thin forms of the search: one directory, directories or files only, counting.
#include <tessik/DFileLoad.h>

bool DFileLoad::LoadDirListing(DirectoryListingSpec const& criteria) {
    return LoadAllDirListings(criteria, false);
}

namespace {

// The criteria a directories-only or files-only run uses: `spec` itself when it already
// asks for that, else a copy with the directory bit and the given attribute test.
DirectoryListingSpec const& WithDirectoryBit(DirectoryListingSpec const& spec, char test,
                                             DirectoryListingSpec& made) {
    if (!spec) {
        made = DirectoryListingSpec("*.*");
        made.attributes = 0x10;
        made.attributeTest = test;
        return made;
    }
    bool const hasBit = spec.attributes & 0x10;
    bool const testsAsAsked = test == 0 ? spec.attributeTest == 0 : spec.attributeTest != 0;
    if (hasBit && testsAsAsked)
        return spec;
    made = spec;
    made.attributes |= 0x10;
    made.attributeTest = test;
    return made;
}

} // namespace

bool DFileLoad::LoadDirSubDirs(DirectoryListingSpec const& criteria, bool recursive) {
    DirectoryListingSpec made;
    return LoadAllDirListings(WithDirectoryBit(criteria, 0, made), recursive);
}

bool DFileLoad::LoadDirFiles(DirectoryListingSpec const& criteria, bool recursive) {
    DirectoryListingSpec made;
    return LoadAllDirListings(WithDirectoryBit(criteria, 1, made), recursive);
}

DWORD const& DFileLoad::GetTotalDirListings(DirectoryListingSpec const& criteria, bool recursive) {
    countOnly = true;
    if (!LoadAllDirListings(criteria, recursive)) {
        totalMatches = 0;
        totalMatchesSize = 0;
    }
    countOnly = false;
    return totalMatches;
}

DWORD const& DFileLoad::GetTotalAnalysis(DirectoryListingSpec const& criteria, bool recursive) {
    analysis = true;
    GetTotalDirListings(criteria, recursive);
    analysis = false;
    return totalMatches;
}

// An entry that the platform cannot give (a name too long for a find record) cannot be tested,
// and is passed over as the search passes it.
bool DFileLoad::isDirEmpty(DirectoryListingSpec const& criteria, DName const& dir) {
    DWORD unlisted = 0;
    if (!OpenDirListing(criteria, dir, 0) && !StepPastUnlisted(unlisted))
        return true;
    do {
        if (IsFileSpec(criteria, foundFile))
            return false;
    } while (NextDirListing() || StepPastUnlisted(unlisted));
    return true;
}
