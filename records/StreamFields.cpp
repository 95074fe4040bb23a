// Fixed-size fields of the stored forms.
#include "records/StreamFields.h"

namespace stream_fields {

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

} // namespace

bool WriteByte(FileOper& file, BYTE byte) {
    return file.Write(&byte, 1);
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

bool ReadBytes(FileOper& file, void* bytes, DWORD size) {
    return file.Read(bytes, size, true) && file.GetReadSize() == size;
}

bool ReadByte(FileOper& file, BYTE& byte) {
    return ReadBytes(file, &byte, 1);
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

} // namespace stream_fields
