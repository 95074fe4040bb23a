// The file record: construction, copying, filling from the file system, accessors.
#include "records/EntryNames.h"

#include <tessik/DFile.h>

#include <cstring>

namespace {

FILETIME const noDate = {0, 0};

FILETIME DateOrNone(FILETIME const* date) {
    return date ? *date : noDate;
}

} // namespace

DFile::DFile(DFile*)
    : dataEncrypted(false), sizeLow(0), sizeHigh(0), attributes(0), dateCreated(noDate),
      dateLastAccessed(noDate), dateWritten(noDate), next(nullptr) {}

DFile::DFile(DFile const& other)
    : dataEncrypted(other.dataEncrypted), fullPath(other.fullPath), hashKey(other.hashKey),
      sizeLow(other.sizeLow), sizeHigh(other.sizeHigh), attributes(other.attributes),
      dateCreated(other.dateCreated), dateLastAccessed(other.dateLastAccessed),
      dateWritten(other.dateWritten), next(other.next) {}

DFile::DFile(DName const& path) : DFile() {
    FromPath(path);
}

DFile::DFile(DName const& path, DWORD const& attributeWord, DWORD const& size,
             FILETIME const* created, FILETIME const* accessed, FILETIME const* written)
    : dataEncrypted(false), fullPath(path), sizeLow(size), sizeHigh(0), attributes(attributeWord),
      dateCreated(DateOrNone(created)), dateLastAccessed(DateOrNone(accessed)),
      dateWritten(DateOrNone(written)), next(nullptr) {}

DFile::DFile(WIN32_FIND_DATAA const& data, DName const& home) : DFile() {
    Copy(data, home);
}

DFile::~DFile() {
    Destroy();
}

void DFile::Destroy() {
    dataEncrypted = false;
    fullPath.Destroy();
    hashKey.Destroy();
    sizeLow = 0;
    sizeHigh = 0;
    attributes = 0;
    dateCreated = noDate;
    dateLastAccessed = noDate;
    dateWritten = noDate;
}

void DFile::operator--() {
    Destroy();
}

DFile const& DFile::operator=(DFile const& other) {
    return Copy(other, DName(0));
}

DFile const& DFile::operator=(char const* path) {
    fullPath.Name(path);
    return *this;
}

DFile const& DFile::Copy(DFile const& other, DName const& home) {
    SetFullPath(other.fullPath);
    if (!home.isEmpty())
        fullPath.AddHome(home, false);
    attributes = other.attributes;
    sizeLow = other.sizeLow;
    sizeHigh = other.sizeHigh;
    dateLastAccessed = other.dateLastAccessed;
    dateWritten = other.dateWritten;
    dateCreated = other.dateCreated;
    hashKey = other.hashKey;
    return *this;
}

DFile const& DFile::Copy(WIN32_FIND_DATAA const& data, DName const& home) {
    // Built in place, home first and the name behind it: a cursor refills one record for every
    // entry it steps over, in the block the record already has.
    char const* name;
    unsigned int length;
    entry_names::FoundName(data, name, length);
    if (home.isEmpty() || &home == &fullPath) {
        fullPath.Namen(name, length);
        fullPath.AddHome(home, false);
    } else {
        fullPath.Copy(home);
        fullPath.AddFile(name, length, false);
    }
    TakeEntry(data);
    return *this;
}

void DFile::TakeEntry(WIN32_FIND_DATAA const& data) {
    attributes = data.dwFileAttributes;
    dateCreated = data.ftCreationTime;
    dateLastAccessed = data.ftLastAccessTime;
    dateWritten = data.ftLastWriteTime;
    sizeLow = data.nFileSizeLow;
    sizeHigh = data.nFileSizeHigh;
}

bool DFile::FromPath(DName const& path) {
    WIN32_FIND_DATAA data = {};
    HANDLE find = FindFirstFileA(&path, &data);
    if (find == INVALID_HANDLE_VALUE)
        return false;
    fullPath = path;
    TakeEntry(data);
    FindClose(find);
    return true;
}

DFile DFile::GetByFormat(WIN32_FIND_DATAA const& data, DName const& home) {
    return DFile(data, home);
}

DName DFile::ExtractFilename(WIN32_FIND_DATAA const& data) const {
    char const* text;
    unsigned int length;
    entry_names::FoundName(data, text, length);
    DName name;
    name.Namen(text, length);
    return name;
}

DName DFile::GetFileName() const {
    DName name(fullPath);
    name.RemDir();
    return name;
}

DName const& DFile::GetFullPath() const {
    return fullPath;
}
DName const& DFile::GetKey() const {
    return hashKey;
}
DWORD const& DFile::GetFileSize() const {
    return sizeLow;
}

std::uint64_t DFile::GetFileSize64() const {
    return (static_cast<std::uint64_t>(sizeHigh) << 32) | sizeLow;
}

unsigned int const& DFile::GetLongSize() const {
    return fullPath.Size();
}
DWORD const& DFile::GetAttribute() const {
    return attributes;
}
bool DFile::isDataEncrypted() const {
    return dataEncrypted;
}
bool DFile::isEmpty() const {
    return fullPath.isEmpty();
}
bool DFile::is64() const {
    return sizeHigh != 0;
}
bool DFile::is64(WIN32_FIND_DATAA const& data) const {
    return data.nFileSizeHigh != 0;
}
char const* DFile::operator&() const {
    return &fullPath;
}
char DFile::operator[](unsigned int const& index) const {
    return fullPath.Char(index);
}

bool DFile::SetFullPath(DName const& path) {
    return fullPath.Name(&path);
}
bool DFile::SetIndex(DName const& text) {
    return hashKey.Name(&text);
}

void DFile::SetFileSize(DWORD const& low, DWORD const& high) {
    sizeLow = low;
    sizeHigh = high;
}

bool DFile::Comp(DFile const& other) const {
    if (!fullPath || !other.fullPath)
        return false;
    return fullPath == other.fullPath && CompStruct(other);
}

bool DFile::operator==(DFile const& other) const {
    return Comp(other);
}
bool DFile::operator!=(DFile const& other) const {
    return !Comp(other);
}

bool DFile::CompStruct(DFile const& other) const {
    return attributes == other.attributes && sizeLow == other.sizeLow &&
           sizeHigh == other.sizeHigh && CompDates(other) && dataEncrypted == other.dataEncrypted;
}
