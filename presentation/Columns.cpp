// Columns: one field of a record as text, and the ascending order of records by one field.
//
// A column number picks exactly one column; combinations of bits name none. Records are
// reached through files(index), which resumes from the last position it reached, so loops over
// increasing positions do not walk the list from its head each time.
#include "presentation/ColumnOrder.h"

#include <tessik/DFileLoad.h>

DName DFileLoad::GetColumn(unsigned int const& index, unsigned int const& column) const {
    DFile const* file = files(index);
    if (!file)
        return DName(); // an empty listing has no field to show
    DName text;
    switch (column) {
    case ColumnName:
        return file->GetFileName();
    case ColumnSize:
        text.FromLong64(file->GetFileSize64(), 0);
        return text;
    case ColumnAttributes:
        return file->FormatAttributes(false, -1);
    case ColumnCreated:
        return file->FormatNumericalDate(file->dateCreated);
    case ColumnAccessed:
        return file->FormatNumericalDate(file->dateLastAccessed);
    case ColumnWritten:
        return file->FormatNumericalDate(file->dateWritten);
    default: // the drive, the path, and every number that names no column
        return file->fullPath;
    }
}

bool DFileLoad::CompareColumn(unsigned int const& index, DFile const& other,
                              unsigned int const& column) const {
    if (index >= files.count)
        return false;
    DFile const* file = files(index);
    return file &&
           ColumnCompare(MakeColumnKey(*file, column), MakeColumnKey(other, column), column) > 0;
}
