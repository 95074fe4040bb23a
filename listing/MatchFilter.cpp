// The match filter: does one entry fit the search criteria? Tests run in a fixed order and the
// first that fails ends the call; the content, the only costly test, comes last.
#include <tessik/DFileLoad.h>

namespace {

bool NameFits(DirectoryListingSpec const& spec, DFile const& file) {
    for (DName const* pattern = spec.namePatterns.head; pattern; pattern = pattern->link) {
        if (*pattern == "*.*" || !*pattern)
            return true;
        if (file.GetFullPath().isFileSpec(*pattern) || file.GetFileName().isFileSpec(*pattern))
            return true;
    }
    return false;
}

// Whether an outcome of -1, 0 or 1 (less, equal, greater) is let through by a test byte.
bool TestLetsThrough(char test, int outcome) {
    if (outcome == 0)
        return test & 0x01;
    return outcome < 0 ? (test & 0x02) : (test & 0x04);
}

bool SizeFits(DirectoryListingSpec const& spec, DFile const& file) {
    DWORD const size = file.GetFileSize();
    if (spec.sizeTest == 0)
        return true;
    if (spec.sizeTest == 6)
        return size >= spec.size && size <= spec.sizeUpper;
    return TestLetsThrough(spec.sizeTest, size == spec.size ? 0 : (size < spec.size ? -1 : 1));
}

bool AttributesFit(DirectoryListingSpec const& spec, DFile const& file) {
    if (spec.attributeTest == 0)
        return true;
    bool const has = (spec.attributeTest & 0x01) ? file.isAnAttribute(spec.attributes)
                                                 : file.isAttribute(spec.attributes);
    bool const inverted = spec.attributeTest & 0x04;
    return has != inverted;
}

bool DatesFit(DirectoryListingSpec const& spec, DFile const& file) {
    if (spec.createdTest &&
        !TestLetsThrough(spec.createdTest, file.CompDateCreated(spec.dateCreated)))
        return false;
    if (spec.accessedTest &&
        !TestLetsThrough(spec.accessedTest, file.CompDateLastAccessed(spec.dateLastAccessed)))
        return false;
    if (spec.writtenTest &&
        !TestLetsThrough(spec.writtenTest, file.CompDateWritten(spec.dateWritten)))
        return false;
    return true;
}

} // namespace

bool DFileLoad::IsFileSpec(DirectoryListingSpec const& criteria, WIN32_FIND_DATAA const& data) {
    return IsFileSpec(criteria, DFile(data, DName(0)));
}

bool DFileLoad::IsFileSpec(DirectoryListingSpec const& criteria, DFile const& file) {
    if (file.isDots() || !NameFits(criteria, file) || !SizeFits(criteria, file) ||
        !AttributesFit(criteria, file) || !DatesFit(criteria, file))
        return false;
    if (criteria.containingMode == 0 || searchTerms.count == 0)
        return true;
    return ContainsTerms(criteria, file);
}
