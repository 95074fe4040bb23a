// DFile: the stream form of a record, and the scrambling of its path and numbers.
//
// A record goes out as: flag byte, key, path, dateWritten, dateLastAccessed, dateCreated,
// attributes, sizeLow, sizeHigh, numbers little-endian. The path and the numbers are scrambled
// with a key made for each write and stored in the clear ahead of them.
#include <tessik/DFile.h>
#include <tessik/FileOper.h>

namespace {

void PutWord(unsigned char* bytes, DWORD word) {
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<unsigned char>(word >> (8 * i));
}

DWORD GetWord(unsigned char const* bytes) {
    DWORD word = 0;
    for (int i = 0; i < 4; ++i)
        word |= static_cast<DWORD>(bytes[i]) << (8 * i);
    return word;
}

bool WriteWord(FileOper& file, DWORD word) {
    unsigned char bytes[4];
    PutWord(bytes, word);
    return file.Write(bytes, sizeof bytes);
}

bool WriteDate(FileOper& file, FILETIME const& date) {
    unsigned char bytes[8];
    PutWord(bytes, date.dwLowDateTime);
    PutWord(bytes + 4, date.dwHighDateTime);
    return file.Write(bytes, sizeof bytes);
}

// A field counts as read only when all of its bytes came: a short read at the end of the
// stream succeeds for FileOper, but leaves the field incomplete.
bool ReadBytes(FileOper& file, unsigned char* bytes, DWORD size) {
    return file.Read(bytes, size, true) && file.GetReadSize() == size;
}

bool ReadWord(FileOper& file, DWORD& word) {
    unsigned char bytes[4];
    if (!ReadBytes(file, bytes, sizeof bytes))
        return false;
    word = GetWord(bytes);
    return true;
}

bool ReadDate(FileOper& file, FILETIME& date) {
    unsigned char bytes[8];
    if (!ReadBytes(file, bytes, sizeof bytes))
        return false;
    date.dwLowDateTime = GetWord(bytes);
    date.dwHighDateTime = GetWord(bytes + 4);
    return true;
}

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
    unsigned char const flag = dataEncrypted ? 1 : 0;
    bool const written = file.Write(&flag, 1) && hashKey.Write(file) && fullPath.Write(file) &&
                         WriteDate(file, dateWritten) && WriteDate(file, dateLastAccessed) &&
                         WriteDate(file, dateCreated) && WriteWord(file, attributes) &&
                         WriteWord(file, sizeLow) && WriteWord(file, sizeHigh);
    Decrypt();
    return written;
}

bool DFile::Read(FileOper& file) {
    unsigned char flag = 0;
    if (!ReadBytes(file, &flag, 1))
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

bool DFile::CreateHashKey(DName& key) {
    key = 0;
    int const length = msvcrt_rand() / 33 + 1;
    for (int i = 0; i < length; ++i) {
        char const c = static_cast<char>(msvcrt_rand() / 255 + 1); // 1 to 129
        if (!key.InsertRight(c, 1))
            return false;
    }
    return true;
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
