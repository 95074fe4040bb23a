// The record's text forms: the attribute text, the separated line and the report block.
#include <tessik/DFile.h>
#include <tessik/FileOper.h>

#include <cstdio>

namespace {

struct AttributeRow {
    char letter;
    DWORD bit;
    char const* word;
};

// The order of both attribute forms: the flag positions and the order of the words.
AttributeRow const attributeRows[9] = {
    {'R', 0x1, "Read Only, "},    {'D', 0x10, "Folder, "},     {'A', 0x20, "Archive, "},
    {'N', 0x80, "Normal, "},      {'S', 0x4, "System, "},      {'H', 0x2, "Hidden, "},
    {'C', 0x800, "Compressed, "}, {'T', 0x100, "Temporary, "}, {'E', 0x40, "Encrypted, "}};

DName FlagText(DWORD word) {
    DName text("---------");
    for (unsigned int pos = 0; pos < 9; ++pos)
        if (word & attributeRows[pos].bit)
            text.ModPos(pos, attributeRows[pos].letter);
    return text;
}

DName WordText(DWORD word) {
    DName text;
    for (AttributeRow const& row : attributeRows)
        if (word & row.bit)
            text += row.word;
    if (text.isEmpty())
        return DName("No Attributes");
    text.DelRight(1);
    text.DelRight(1);
    return text;
}

DWORD FlagBits(DName const& token) {
    DWORD bits = 0;
    for (AttributeRow const& row : attributeRows)
        if (token.FindFirstChar(row.letter) < token.Size())
            bits |= row.bit;
    return bits;
}

// The character behind position `pos` after blanks; 0 at the end.
char NextMark(DName const& token, unsigned int pos) {
    while (token.Char(pos) == ' ')
        ++pos;
    return token.Char(pos);
}

// The hour of a 24-hour clock, or -1. Without an AM or PM marker the hour is already one.
int DayHour(DWORD hour, char marker) {
    bool const am = marker == 'A' || marker == 'a';
    bool const pm = marker == 'P' || marker == 'p';
    if (!am && !pm)
        return hour <= 23 ? static_cast<int>(hour) : -1;
    if (hour < 1 || hour > 12)
        return -1;
    return static_cast<int>(hour % 12 + (pm ? 12 : 0));
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

unsigned int DigitRuns(DName const& token) {
    unsigned int runs = 0;
    for (unsigned int pos = 0; pos < token.Size(); ++pos)
        if (IsDigit(token[pos]) && (pos == 0 || !IsDigit(token[pos - 1])))
            ++runs;
    return runs;
}

// A date in the form FormatNumericalDate writes, "3/09/2004 1:05:07 PM" in local time, back to
// UTC. A token that names no date (the fallback "0/00/1985 ...", fewer than six numbers, a
// field out of range) gives zero, the record's "no date".
FILETIME ReadDate(DFile const& file, DName const& token) {
    FILETIME const none = {};
    if (DigitRuns(token) < 6)
        return none;
    DWORD numbers[6];
    unsigned int end = 0;
    for (unsigned int i = 0; i < 6; ++i)
        numbers[i] = token.GetNumber(i, &end);
    int const hour = DayHour(numbers[3], NextMark(token, end));
    if (hour < 0 || numbers[0] > 12 || numbers[1] > 31 || numbers[2] > 30827 || numbers[4] > 59 ||
        numbers[5] > 59)
        return none;
    SYSTEMTIME local = {};
    local.wMonth = static_cast<WORD>(numbers[0]);
    local.wDay = static_cast<WORD>(numbers[1]);
    local.wYear = static_cast<WORD>(numbers[2]);
    local.wHour = static_cast<WORD>(hour);
    local.wMinute = static_cast<WORD>(numbers[4]);
    local.wSecond = static_cast<WORD>(numbers[5]);
    FILETIME check = {};
    if (!SystemTimeToFileTime(&local, &check))
        return none;
    return file.GetUTCDate(local);
}

bool WriteDateLine(FileOper& file, char const* label, FILETIME const& date) {
    SYSTEMTIME fields = {};
    FileTimeToSystemTime(&date, &fields);
    char line[80];
    std::snprintf(line, sizeof line, "%s[%02d/%02d/%04d %02d:%02d:%02d]", label, fields.wMonth,
                  fields.wDay, fields.wYear, fields.wHour, fields.wMinute, fields.wSecond);
    return file.TWrite(line);
}

} // namespace

DName DFile::FormatAttributes(bool words, LONG const& value) const {
    DWORD const word = value < 0 ? attributes : static_cast<DWORD>(value);
    return words ? WordText(word) : FlagText(word);
}

void DFile::ToString(DName& text, char separator) const {
    DName const fields[5] = {DName() + GetFileSize64(), FormatAttributes(false, -1),
                             FormatNumericalDate(dateCreated), FormatNumericalDate(dateWritten),
                             FormatNumericalDate(dateLastAccessed)};
    DName line(fullPath);
    for (DName const& field : fields) {
        line.InsertRight(separator, 1);
        line += field;
    }
    text = line;
}

void DFile::FromString(DName& text, char separator) {
    DName const line(text); // `text` may be one of the fields about to be emptied
    Destroy();
    DName token;
    unsigned int field = 0;
    unsigned int const size = line.Size();
    for (unsigned int pos = 0; pos <= size && field < 6; ++pos) {
        bool const atEnd = pos == size;
        if (!atEnd && line[pos] != separator) {
            token.InsertRight(line[pos], 1);
            continue;
        }
        // The end of the text closes only the last field; any earlier unclosed token is dropped.
        if (atEnd && field != 5)
            break;
        switch (field) {
        case 0:
            fullPath = token;
            break;
        case 1:
            sizeLow = token.ToWord();
            break;
        case 2:
            attributes = FlagBits(token);
            break;
        case 3:
            dateCreated = ReadDate(*this, token);
            break;
        case 4:
            dateWritten = ReadDate(*this, token);
            break;
        default:
            dateLastAccessed = ReadDate(*this, token);
            break;
        }
        ++field;
        token.Destroy();
    }
}

bool DFile::TextWrite(FileOper& file) const {
    if (!file.TWrite(&fullPath) || !WriteDateLine(file, "Creation Date   : ", dateCreated) ||
        !WriteDateLine(file, "Last Access Date: ", dateLastAccessed) ||
        !WriteDateLine(file, "Write Date      : ", dateWritten))
        return false;
    char line[64];
    if (sizeHigh != 0) {
        DName size;
        size.FromLong64(GetFileSize64(), 0);
        std::snprintf(line, sizeof line, "Size            : %s", &size);
    } else {
        std::snprintf(line, sizeof line, "Size            : %u", static_cast<unsigned>(sizeLow));
    }
    if (!file.TWrite(line))
        return false;
    std::snprintf(line, sizeof line, "Attributes      : %s", &FormatAttributes(false, -1));
    if (!file.TWrite(line))
        return false;
    file.wtf();
    return true;
}
