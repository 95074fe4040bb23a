// The stored form of search criteria: the magic 0x28018293, the two lists (a count, then each
// name), streamByte, the text to find in its radix-16 form, then a fixed block of 47 bytes.
// Numbers are little-endian, with no padding between fields.
#include "records/StreamFields.h"

#include <tessik/DirectoryListingSpec.h>
#include <tessik/FileOper.h>

namespace {

using namespace stream_fields;

constexpr DWORD magic = 0x28018293;

// Hands each field of the fixed block to `field`, in stored order, and stops at the first that
// fails: on a read, the fields before it hold their new values and the rest their old ones.
template <class Field> bool FixedBlock(DirectoryListingSpec& spec, Field field) {
    return field(spec.readBlockSize) && field(spec.sizeTest) && field(spec.writtenTest) &&
           field(spec.createdTest) && field(spec.accessedTest) && field(spec.attributeTest) &&
           field(spec.invertContaining) && field(spec.containingMode) && field(spec.sizeUpper) &&
           field(spec.size) && field(spec.attributes) && field(spec.dateCreated) &&
           field(spec.dateLastAccessed) && field(spec.dateWritten);
}

struct FieldWriter {
    FileOper& file;
    bool operator()(DWORD const& word) const { return WriteWord(file, word); }
    bool operator()(FILETIME const& date) const { return WriteDate(file, date); }
    bool operator()(BYTE const& byte) const { return WriteByte(file, byte); }
    bool operator()(char const& byte) const { return WriteByte(file, static_cast<BYTE>(byte)); }
    bool operator()(bool const& flag) const { return WriteByte(file, flag ? 1 : 0); }
};

struct FieldReader {
    FileOper& file;
    bool operator()(DWORD& word) const { return ReadWord(file, word); }
    bool operator()(FILETIME& date) const { return ReadDate(file, date); }
    bool operator()(BYTE& byte) const { return ReadByte(file, byte); }
    bool operator()(char& byte) const { return Byte(byte); }
    bool operator()(bool& flag) const { return Byte(flag); } // any byte but 0 is true

    template <class Target> bool Byte(Target& target) const {
        BYTE byte = 0;
        if (!ReadByte(file, byte))
            return false;
        target = static_cast<Target>(byte);
        return true;
    }
};

bool WriteNames(FileOper& file, Container<DName> const& names) {
    if (!WriteWord(file, names.count))
        return false;
    for (DName const* name = names.head; name; name = name->link)
        if (!name->Write(file))
            return false;
    return true;
}

// Empties `names` and fills it from the stream; on any failure it is left empty. Each name takes
// at least its 4-byte length from the stream, so a count that the stream does not back ends at
// the stream's end.
bool ReadNames(FileOper& file, Container<DName>& names) {
    names.Destroy();
    DWORD count = 0;
    if (!ReadWord(file, count))
        return false;
    for (DWORD i = 0; i < count; ++i) {
        DName name(0);
        if (!name.Read(file) || !names.InsertRight(name)) {
            names.Destroy();
            return false;
        }
    }
    return true;
}

} // namespace

bool DirectoryListingSpec::Write(FileOper& file) {
    DName const radix = textToFind.ToRadix(16);
    return WriteWord(file, magic) && file.isOpen() && WriteNames(file, namePatterns) &&
           file.isOpen() && WriteNames(file, directories) && WriteByte(file, streamByte) &&
           radix.Write(file) && FixedBlock(*this, FieldWriter{file});
}

bool DirectoryListingSpec::Read(FileOper& file) {
    DWORD stored = 0;
    if (!ReadWord(file, stored) || stored != magic || !file.isOpen())
        return false;
    if (!ReadNames(file, namePatterns) || !file.isOpen() || !ReadNames(file, directories))
        return false;
    DName radix(0);
    if (!ReadByte(file, streamByte) || !radix.Read(file) || !FixedBlock(*this, FieldReader{file}))
        return false;
    textToFind = radix.FromRadix(16); // only once every field has come
    return true;
}
