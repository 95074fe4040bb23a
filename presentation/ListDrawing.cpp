// Drawing records into the attached list control, one row per record.
//
// The report style says which columns the control shows; the set bits, in ascending order, are
// numbered into control columns (sub-items) from 0. Only the name, or the path when it comes
// first, carries the file's icon.
#include <tessik/Controls.h>
#include <tessik/DFileLoad.h>

namespace {

// "C:\": the first character of the path, a colon and a backslash.
DName DriveText(DFile const& file) {
    DName text;
    if (!file.fullPath.isEmpty())
        text.InsertRight(file.fullPath[0], 1);
    text += ":\\";
    return text;
}

struct DateColumn {
    DWORD bit;
    FILETIME DFile::*date;
};

DateColumn const dateColumns[3] = {{ColumnCreated, &DFile::dateCreated},
                                   {ColumnAccessed, &DFile::dateLastAccessed},
                                   {ColumnWritten, &DFile::dateWritten}};

} // namespace

bool DFileLoad::DrawFile(DFile const& file, unsigned int const& row) {
    if (!listControl)
        return false;
    DListControl& list = *listControl;
    DWORD const style = list.GetReportStyle();
    unsigned int column = 0;
    if (style & ColumnName) {
        if (!list.SetImage(file.GetFileName(), &file.fullPath, row, 0))
            return false;
        ++column;
    }
    if (style & ColumnDrive)
        list.SetText(DriveText(file), row, column++);
    if (style & ColumnPath) {
        bool const shown = column == 0 ? list.SetImage(file.fullPath, &file.fullPath, row, 0)
                                       : list.SetText(file.fullPath, row, column);
        if (!shown)
            return false;
        ++column;
    }
    if (style & ColumnSize)
        list.SetInt(file.GetFileSize(), row, column++);
    if (style & ColumnAttributes)
        list.SetText(file.FormatAttributes(false, -1), row, column++);
    for (DateColumn const& date : dateColumns)
        if (style & date.bit)
            list.SetText(file.FormatNumericalDate(file.*date.date), row, column++);
    return true;
}

bool DFileLoad::DrawAllFiles(int const& first, int const& last) {
    if (!listControl)
        return false;
    listControl->Reset();
    listControl->CreateIcons();
    unsigned int const start = first > 0 ? static_cast<unsigned int>(first) : 0;
    unsigned int end = last > 0 ? static_cast<unsigned int>(last) : files.count;
    // A position past the count would give the first record again, into row after row.
    if (end > files.count)
        end = files.count;
    for (unsigned int i = start; i < end; ++i) {
        DFile const* file = files(i);
        if (!file)
            break;
        if (statusWnd)
            statusWnd->SetText(DName(&file->fullPath));
        DrawFile(*file, i);
    }
    listControl->Redraw(-1);
    return true;
}
