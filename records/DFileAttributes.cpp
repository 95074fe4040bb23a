// The record's attribute word: single bits, mask tests, the dots entries.
#include "records/EntryNames.h"

#include <tessik/DFile.h>

namespace {

// Walks single bits from 0x1 upward while they stay below `limit` and asks `test` of each.
template <class Test> bool AnyBitBelow(DWORD limit, Test test) {
    for (DWORD bit = 1; bit < limit; bit <<= 1)
        if (test(bit))
            return true;
    return false;
}

} // namespace

void DFile::SetAttribute(DWORD const& value) {
    attributes = value;
}
void DFile::AddAttribute(DWORD const& bits) {
    attributes |= bits;
}

void DFile::SubAttribute(DWORD const& bits) {
    if (attributes & bits)
        attributes -= bits;
}

bool DFile::isReadOnly() const {
    return attributes & 0x1;
}
bool DFile::isHidden() const {
    return attributes & 0x2;
}
bool DFile::isSystem() const {
    return attributes & 0x4;
}
bool DFile::isDir() const {
    return attributes & 0x10;
}
bool DFile::isFile() const {
    return !isDir();
}
bool DFile::isArchive() const {
    return attributes & 0x20;
}
bool DFile::isEncrypted() const {
    return attributes & 0x40;
}
bool DFile::isNormal() const {
    return attributes & 0x80;
}
bool DFile::isTemp() const {
    return attributes & 0x100;
}
bool DFile::isCompressed() const {
    return attributes & 0x800;
}

bool DFile::isAttribute(DWORD const& value, DWORD const& mask) const {
    // Bits 0x1 to 0x4000: a mask bit missing from the value fails the test.
    return !AnyBitBelow(0x8000, [&](DWORD bit) { return (mask & bit) && !(value & bit); });
}

bool DFile::isAttribute(DWORD const& mask) const {
    return isAttribute(attributes, mask);
}

bool DFile::isAttribute(WIN32_FIND_DATAA const& data, DWORD const& mask) const {
    return isAttribute(data.dwFileAttributes, mask);
}

bool DFile::isAnAttribute(DWORD const& value, DWORD const& mask) const {
    // Bits 0x1 to 0x8000.
    return AnyBitBelow(0xFFFF, [&](DWORD bit) { return (mask & bit) && (value & bit); });
}

bool DFile::isAnAttribute(DWORD const& mask) const {
    return isAnAttribute(attributes, mask);
}

bool DFile::isAnAttribute(WIN32_FIND_DATAA const& data, DWORD const& mask) const {
    return isAnAttribute(data.dwFileAttributes, mask);
}

bool DFile::isDots() const {
    return entry_names::IsDotsPath(&fullPath, fullPath.Size());
}

bool DFile::isDots(WIN32_FIND_DATAA const& data) const {
    char const* name;
    unsigned int length;
    entry_names::FoundName(data, name, length);
    return entry_names::IsDotsPath(name, length);
}

bool DFile::isNotDots() const {
    return !isDots();
}
bool DFile::isNotDots(WIN32_FIND_DATAA const& data) const {
    return !isDots(data);
}
