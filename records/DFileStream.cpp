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

// A key character widened to 32 bits as a signed value: 128 and 129 are negative.
DWORD Widened(char c) {
    return static_cast<DWORD>(static_cast<std::int32_t>(static_cast<signed char>(c)));
}

// What IncWord XORs into a word: four characters of the key from `position` on, the position
// returning to 0 at the key's end before each one (a character past the end of an empty key
// is 0). The shift starts at 1 and is multiplied by 8 in 8 bits after each character; only its
// low five bits count, so the four characters are shifted by 1, 8, 0 and 0. Characters add up.
DWORD KeyMask(char const* key, unsigned int size, unsigned int& position) {
    if (position < size && size - position >= 4) { // no wrap on the way
        char const* const c = key + position;
        DWORD const sum =
            (Widened(c[0]) << 1) + (Widened(c[1]) << 8) + Widened(c[2]) + Widened(c[3]);
        position += 4;
        return sum;
    }
    DWORD sum = 0;
    unsigned char shift = 1;
    for (int i = 0; i < 4; ++i) {
        if (position >= size)
            position = 0;
        sum += Widened(position < size ? key[position] : 0) << (shift & 31);
        ++position;
        shift = static_cast<unsigned char>(shift * 8);
    }
    return sum;
}

// The nine words that are scrambled, in the order of scrambling (the record's field order).
struct Words {
    DWORD sizeLow, sizeHigh, attributes;
    FILETIME dateCreated, dateLastAccessed, dateWritten;

    explicit Words(DFile const& file)
        : sizeLow(file.sizeLow), sizeHigh(file.sizeHigh), attributes(file.attributes),
          dateCreated(file.dateCreated), dateLastAccessed(file.dateLastAccessed),
          dateWritten(file.dateWritten) {}

    void Into(DFile& file) const {
        file.sizeLow = sizeLow;
        file.sizeHigh = sizeHigh;
        file.attributes = attributes;
        file.dateCreated = dateCreated;
        file.dateLastAccessed = dateLastAccessed;
        file.dateWritten = dateWritten;
    }

    // Each word in turn XOR the mask of the key from `position` on.
    void Scramble(DName const& key, unsigned int& position) {
        DWORD* const words[] = {
            &sizeLow,
            &sizeHigh,
            &attributes,
            &dateCreated.dwLowDateTime,
            &dateCreated.dwHighDateTime,
            &dateLastAccessed.dwLowDateTime,
            &dateLastAccessed.dwHighDateTime,
            &dateWritten.dwLowDateTime,
            &dateWritten.dwHighDateTime,
        };
        char const* const bytes = &key;
        unsigned int const size = key.Size();
        for (DWORD* word : words)
            *word ^= KeyMask(bytes, size, position);
    }
};

// Scrambles the path, then the nine words, with the record's key from position 0 on. Its own
// inverse.
void Scramble(DFile& file) {
    unsigned int position = 0;
    file.fullPath.det(file.hashKey, position);
    Words words(file);
    words.Scramble(file.hashKey, position);
    words.Into(file);
}

// The stream form of a record with the given path and words, which may be scrambled. The
// numbers go out in one block.
bool WriteFields(FileOper& file, bool scrambled, DName const& key, DName const& path,
                 Words const& words) {
    DWORD const numbers[] = {
        words.dateWritten.dwLowDateTime,
        words.dateWritten.dwHighDateTime,
        words.dateLastAccessed.dwLowDateTime,
        words.dateLastAccessed.dwHighDateTime,
        words.dateCreated.dwLowDateTime,
        words.dateCreated.dwHighDateTime,
        words.attributes,
        words.sizeLow,
        words.sizeHigh,
    };
    return WriteByte(file, scrambled ? 1 : 0) && key.Write(file) && path.Write(file) &&
           WriteWords(file, numbers, sizeof numbers / sizeof numbers[0]);
}

} // namespace

bool DFile::Write(FileOper& file) {
    if (dataEncrypted || !CreateHashKey(hashKey)) {
        // Scrambled by the caller, with its own key; or no key could be made: plain, flag 0.
        bool const written = WriteFields(file, dataEncrypted, hashKey, fullPath, Words(*this));
        Decrypt();
        return written;
    }
    // With the new key the path and the words are scrambled on their way out, in copies, so
    // the record stays plain. A path that cannot be copied is scrambled in place and back.
    thread_local DName pathCopy; // its room serves every write of the thread
    bool const copied = pathCopy.Copy(fullPath);
    DName& path = copied ? pathCopy : fullPath;
    unsigned int position = 0;
    path.det(hashKey, position);
    Words words(*this);
    words.Scramble(hashKey, position);
    bool const written = WriteFields(file, true, hashKey, path, words);
    if (!copied) {
        position = 0;
        fullPath.det(hashKey, position);
    }
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
// The key is set in one piece, over the text it held (its room is used again), and emptied when
// that fails.
bool DFile::CreateHashKey(DName& key) {
    constexpr int block = 16; // characters made in blocks of a fixed length, which vectorise
    constexpr int longest = (0x7FFF / 33 + block) / block * block;
    int const length = msvcrt_rand() / 33 + 1;
    std::uint16_t values[longest];
    msvcrt_rand_many(values, static_cast<std::size_t>(length));
    for (int i = length; i % block != 0; ++i)
        values[i] = 0; // the rest of the last block, made and not used
    char characters[longest];
    for (int i = 0; i < length; i += block) {
        for (int j = i; j < i + block; ++j) {
            // value / 255 without a division (exact below 65535); it all fits in 16 bits
            unsigned const value = values[j];
            characters[j] = static_cast<char>(((value + (value >> 8) + 1) >> 8) + 1);
        }
    }
    if (key.Namen(characters, static_cast<unsigned int>(length)))
        return true;
    key = 0;
    return false;
}

void DFile::IncWord(DWORD& word, DName const& key, unsigned int& position) {
    word ^= KeyMask(&key, key.Size(), position);
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
