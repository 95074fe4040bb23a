// One record of a listing as a line of text, its columns aligned with every other record's.
//
// The columns are those of the attached list control's report style, or all of them without a
// control. Each width is the longest text of its column over the whole listing as it is at this
// call; every column but the last (the write date) is padded to its width plus one blank.
#include <tessik/Controls.h>
#include <tessik/DFileLoad.h>

namespace {

struct Widths {
    unsigned int path = 0;
    unsigned int name = 0;
    unsigned int attributes = 0;
    unsigned int size = 0;
    unsigned int created = 0;
    unsigned int accessed = 0;
};

void Widen(unsigned int& width, unsigned int length) {
    if (length > width)
        width = length;
}

Widths Measure(Container<DFile> const& files) {
    Widths widths;
    DName size;
    for (DFile const* record = files.head; record; record = record->next) {
        Widen(widths.path, record->fullPath.Size());
        unsigned int start, end; // what GetFileName() would copy
        DName::LastComponent(&record->fullPath, record->fullPath.Size(), start, end);
        Widen(widths.name, end - start);
        Widen(widths.attributes, record->FormatAttributes(false, -1).Size());
        Widen(widths.size, size.FromLong64(record->GetFileSize64(), 0).Size());
        Widen(widths.created, record->FormatNumericalDate(record->dateCreated).Size());
        Widen(widths.accessed, record->FormatNumericalDate(record->dateLastAccessed).Size());
    }
    return widths;
}

// The text, left-aligned, and blanks up to `width`, plus one.
void AddPadded(DName& line, DName const& text, unsigned int width) {
    line += text;
    line.InsertRight(' ', width - text.Size() + 1);
}

} // namespace

DName DFileLoad::Format(unsigned int const& index) const {
    DName line;
    DFile const* record = index < files.count ? files(index) : nullptr;
    if (!record)
        return line;
    Widths const widths = Measure(files);
    DWORD const style = listControl ? listControl->GetReportStyle() : 0xFFFF;
    if (style & ColumnName)
        AddPadded(line, record->GetFileName(), widths.name);
    if (style & ColumnDrive) {
        if (!record->fullPath.isEmpty()) // an empty path has no first character
            line.InsertRight(record->fullPath[0], 1);
        line += ":\\ ";
    }
    if (style & ColumnPath)
        AddPadded(line, record->fullPath, widths.path);
    if (style & ColumnSize) {
        DName size;
        AddPadded(line, size.FromLong64(record->GetFileSize64(), 0), widths.size);
    }
    if (style & ColumnAttributes)
        AddPadded(line, record->FormatAttributes(false, -1), widths.attributes);
    if (style & ColumnCreated)
        AddPadded(line, record->FormatNumericalDate(record->dateCreated), widths.created);
    if (style & ColumnAccessed)
        AddPadded(line, record->FormatNumericalDate(record->dateLastAccessed), widths.accessed);
    if (style & ColumnWritten)
        line += record->FormatNumericalDate(record->dateWritten);
    return line;
}
