// The stored form of a listing: the record count, 4 bytes little-endian, then each record's
// stream form in list order. Nothing else: no specification, no tallies, no settings.
#include "records/StreamFields.h"

#include <tessik/Controls.h>
#include <tessik/DFileLoad.h>
#include <tessik/FileOper.h>

bool DFileLoad::Write(FileOper& file) {
    if (!stream_fields::WriteWord(file, files.count))
        return false;
    for (DFile* record = files.head; record; record = record->next)
        if (!record->Write(file))
            return false;
    return true;
}

// Records are taken one at a time as the stream holds them, so a count that the stream does not
// back costs nothing: what is allocated is what was read.
bool DFileLoad::Read(FileOper& file) {
    DWORD count = 0;
    if (!stream_fields::ReadWord(file, count))
        return false;
    Destroy();
    if (listControl) {
        listControl->Reset();
        listControl->CreateIcons();
    }
    DFile record;
    for (DWORD index = 0; index < count; ++index) {
        if (!record.Read(file) || !files.InsertRight(record))
            return false;
        if (listControl)
            DrawFile(record, index);
    }
    return true;
}

bool DFileLoad::operator>>(FileOper& file) {
    return Write(file);
}

bool DFileLoad::operator<<(FileOper& file) {
    return Read(file);
}

bool DFileLoad::ReadFind(FileOper& file, DName const& name, DFile& record) {
    DWORD count = 0;
    if (!stream_fields::ReadWord(file, count))
        return false;
    for (DWORD index = 0; index < count; ++index) {
        if (!record.Read(file))
            return false;
        if (name == record.GetFullPath())
            return true; // the stream stands just behind this record
    }
    return false;
}
