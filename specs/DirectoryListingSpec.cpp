// The search criteria record: making, copying, emptying.
#include <tessik/DFile.h>
#include <tessik/DirectoryListingSpec.h>

namespace {

FILETIME const noDate = {0, 0};

// Puts a copy of `name` at the end of `list` unless the name is empty.
void AddUnlessEmpty(Container<DName>& list, DName const& name) {
    if (!name.isEmpty())
        list.InsertRight(name);
}

} // namespace

DirectoryListingSpec::DirectoryListingSpec(DName const& namePattern, DName const& directory,
                                           DWORD const& attributeWord, DWORD const& sizeValue,
                                           char attributeTestByte, char sizeTestByte)
    : streamByte(0) {
    Clear();
    AddUnlessEmpty(namePatterns, namePattern);
    AddUnlessEmpty(directories, directory);
    attributes = attributeWord;
    size = sizeValue;
    attributeTest = attributeTestByte;
    sizeTest = sizeTestByte;
}

DirectoryListingSpec::DirectoryListingSpec(Container<DName> const& patterns,
                                           Container<DName> const& dirs)
    : DirectoryListingSpec() {
    namePatterns = patterns;
    directories = dirs;
}

DirectoryListingSpec::DirectoryListingSpec(DName const& namePattern, Container<DName> const& dirs)
    : DirectoryListingSpec(namePattern) {
    directories = dirs;
}

DirectoryListingSpec::DirectoryListingSpec(DName const& namePattern, DName const& directory,
                                           DWORD const& attributeWord, DWORD const& sizeValue,
                                           FILETIME const& created, FILETIME const& accessed,
                                           FILETIME const& written)
    : DirectoryListingSpec(namePattern, directory, attributeWord, sizeValue) {
    dateCreated = created;
    dateLastAccessed = accessed;
    dateWritten = written;
}

DirectoryListingSpec::DirectoryListingSpec(int const&) : DirectoryListingSpec() {}

DirectoryListingSpec::DirectoryListingSpec(char const* namePattern)
    : DirectoryListingSpec(DName(namePattern)) {}

DirectoryListingSpec::DirectoryListingSpec(char const* namePattern, DWORD const& attributeWord,
                                           char attributeTestByte)
    : DirectoryListingSpec(DName(namePattern), DName(0), attributeWord, 0, attributeTestByte) {}

DirectoryListingSpec::DirectoryListingSpec(DName const& namePattern, DName const& directory,
                                           DName const& text, bool invert)
    : DirectoryListingSpec(namePattern, directory) {
    textToFind = text;
    invertContaining = invert;
}

DirectoryListingSpec::DirectoryListingSpec(DirectoryListingSpec const& other)
    : DirectoryListingSpec() {
    Copy(other);
}

DirectoryListingSpec::~DirectoryListingSpec() {
    Destroy();
}

void DirectoryListingSpec::Copy(DirectoryListingSpec const& other) {
    if (&other == this)
        return;
    // Element by element, so the two objects share nothing; a failed allocation ends a list.
    namePatterns = other.namePatterns;
    directories = other.directories;
    textToFind = other.textToFind;
    readBlockSize = other.readBlockSize;
    sizeTest = other.sizeTest;
    writtenTest = other.writtenTest;
    createdTest = other.createdTest;
    accessedTest = other.accessedTest;
    attributeTest = other.attributeTest;
    invertContaining = other.invertContaining;
    containingMode = other.containingMode;
    sizeUpper = other.sizeUpper;
    size = other.size;
    attributes = other.attributes;
    dateCreated = other.dateCreated;
    dateLastAccessed = other.dateLastAccessed;
    dateWritten = other.dateWritten;
}

void DirectoryListingSpec::operator=(DirectoryListingSpec const& other) {
    Copy(other);
}

void DirectoryListingSpec::operator=(int const& value) {
    Destroy();
    attributes = static_cast<DWORD>(value);
}

void DirectoryListingSpec::Destroy() {
    namePatterns.Destroy();
    directories.Destroy();
    textToFind.Destroy();
    Clear();
}

void DirectoryListingSpec::Clear() {
    readBlockSize = 0;
    sizeTest = 0;
    writtenTest = 0;
    createdTest = 0;
    accessedTest = 0;
    attributeTest = 0;
    invertContaining = false;
    containingMode = 0;
    sizeUpper = 0;
    size = 0;
    attributes = 0;
    dateCreated = noDate;
    dateLastAccessed = noDate;
    dateWritten = noDate;
}

bool DirectoryListingSpec::isEmpty() const {
    DFile const dates;
    return namePatterns.count == 0 && directories.count == 0 && !textToFind && size == 0 &&
           attributes == 0 && dates.isEmpty(dateCreated) && dates.isEmpty(dateLastAccessed) &&
           dates.isEmpty(dateWritten);
}

bool DirectoryListingSpec::operator!() const {
    return isEmpty();
}
