// Fixed-size fields of the stored forms: numbers little-endian, and a field counts as read only
// when all of its bytes came (a short read at the end of a stream succeeds for FileOper, but
// leaves the field incomplete).
#ifndef TESSIK_RECORDS_STREAMFIELDS_H
#define TESSIK_RECORDS_STREAMFIELDS_H

#include <tessik/FileOper.h>
#include <tessik/platform.h>

namespace stream_fields {

bool WriteByte(FileOper& file, BYTE byte);
bool WriteWord(FileOper& file, DWORD word);
bool WriteDate(FileOper& file, FILETIME const& date); // low word, then high word

bool ReadBytes(FileOper& file, void* bytes, DWORD size);
bool ReadByte(FileOper& file, BYTE& byte);
bool ReadWord(FileOper& file, DWORD& word);
bool ReadDate(FileOper& file, FILETIME& date);

} // namespace stream_fields

#endif
