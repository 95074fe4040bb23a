// DFile: the stream form of a record, and the scrambling of its path and numbers.
//
// A record goes out as: flag byte, key, path, dateWritten, dateLastAccessed, dateCreated,
// attributes, sizeLow, sizeHigh, numbers little-endian. The path and the numbers are scrambled
// with a key made for each write and stored in the clear ahead of them.
#include "records/StreamFields.h"

#include <tessik/DFile.h>
#include <tessik/FileOper.h>

namespace {

using namespace stream_fields;

// Scrambles the path, then the nine words in the record's field order, with the record's key
// from position 0 on. Its own inverse.
void Scramble(DFile& file) {
    unsigned int position = 0;
    file.fullPath.det(file.hashKey, position);
    DWORD* const words[] = {
        &file.sizeLow,
        &file.sizeHigh,
        &file.attributes,
        &file.dateCreated.dwLowDateTime,
        &file.dateCreated.dwHighDateTime,
        &file.dateLastAccessed.dwLowDateTime,
        &file.dateLastAccessed.dwHighDateTime,
        &file.dateWritten.dwLowDateTime,
        &file.dateWritten.dwHighDateTime,
    };
    for (DWORD* word : words)
        file.IncWord(*word, file.hashKey, position);
}

} // namespace

bool DFile::Write(FileOper& file) {
    Encrypt(); // when no key can be made the record goes out plain, flag 0
    bool const written = WriteByte(file, dataEncrypted ? 1 : 0) && hashKey.Write(file) &&
                         fullPath.Write(file) && WriteDate(file, dateWritten) &&
                         WriteDate(file, dateLastAccessed) && WriteDate(file, dateCreated) &&
                         WriteWord(file, attributes) && WriteWord(file, sizeLow) &&
                         WriteWord(file, sizeHigh);
    Decrypt();
    return written;
}

bool DFile::Read(FileOper& file) {
    BYTE flag = 0;
    if (!ReadByte(file, flag))
        return false;
    dataEncrypted = flag != 0;
    if (!hashKey.Read(file) || !fullPath.Read(file) || !ReadDate(file, dateWritten) ||
        !ReadDate(file, dateLastAccessed) || !ReadDate(file, dateCreated) ||
        !ReadWord(file, attributes) || !ReadWord(file, sizeLow) || !ReadWord(file, sizeHigh))
        return false;
    Decrypt(); // a record stored plain (flag 0) stays as it is
    return true;
}

bool DFile::operator>>(FileOper& file) {
    return Write(file);
}

bool DFile::operator<<(FileOper& file) {
    return Read(file);
}

DWORD DFile::HeaderSize() const {
    return hashKey.Size() + fullPath.Size() + 36;
}

// The first value gives the length, 1 to 993, the further ones the characters from left to
// right, 1 to 129 each; they are drawn in one batch, the same values as one call after another.
bool DFile::CreateHashKey(DName& key) {
    key = 0;
    constexpr int longest = 0x7FFF / 33 + 1;
    int const length = msvcrt_rand() / 33 + 1;
    int values[longest];
    msvcrt_rand_many(values, static_cast<std::size_t>(length));
    char characters[longest];
    for (int i = 0; i < length; ++i)
        characters[i] = static_cast<char>(values[i] / 255 + 1);
    return key.Namen(characters, static_cast<unsigned int>(length));
}

void DFile::IncWord(DWORD& word, DName const& key, unsigned int& position) {
    // The shift starts at 1 and is multiplied by 8 in 8 bits after each character; only its
    // low five bits count, so the four characters are shifted by 1, 8, 0 and 0.
    DWORD sum = 0;
    unsigned char shift = 1;
    for (int i = 0; i < 4; ++i) {
        if (position >= key.Size())
            position = 0;
        DWORD const c = static_cast<DWORD>(static_cast<std::int32_t>(
            static_cast<signed char>(key.Char(position)))); // 128 and 129 are negative
        sum += c << (shift & 31);
        ++position;
        shift = static_cast<unsigned char>(shift * 8);
    }
    word ^= sum;
}

void DFile::DecWord(DWORD& word, DName const& key, unsigned int& position) {
    IncWord(word, key, position);
}

bool DFile::Encrypt() {
    if (dataEncrypted || !CreateHashKey(hashKey))
        return false;
    Scramble(*this);
    dataEncrypted = true;
    return true;
}

bool DFile::Decrypt() {
    if (!dataEncrypted)
        return false;
    Scramble(*this);
    dataEncrypted = false;
    return true;
}
