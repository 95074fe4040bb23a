#include "find_values.h"

#include <tessik/DFileLoad.h>

#include <cstdint>
#include <cstring>

namespace {

// Reads the digits at `pos` (at least one, at most `most`) and moves `pos` behind them.
bool ReadDigits(std::string const& text, std::size_t& pos, std::size_t most, std::uint64_t& value) {
    std::size_t const start = pos;
    value = 0;
    while (pos < text.size() && pos - start < most && text[pos] >= '0' && text[pos] <= '9')
        value = value * 10 + static_cast<unsigned>(text[pos++] - '0');
    return pos > start;
}

bool ReadSize(std::string const& text, std::uint64_t& size) {
    std::size_t pos = 0;
    std::uint64_t value = 0;
    // 19 digits cannot overflow; a suffix may shift by at most 40 bits.
    if (!ReadDigits(text, pos, 19, value))
        return false;
    if (pos + 1 == text.size()) {
        char const* const suffixes = "kKmMgGtT";
        char const* found = text[pos] == '\0' ? nullptr : std::strchr(suffixes, text[pos]);
        if (!found)
            return false;
        unsigned const shift = static_cast<unsigned>(10 * (1 + (found - suffixes) / 2));
        if (value > (UINT64_MAX >> shift))
            return false;
        value <<= shift;
        ++pos;
    }
    if (pos != text.size())
        return false;
    size = value;
    return true;
}

// Reads `digits` digits at `pos` after the separator `before` (none when it is 0). A blank
// stands for the 'T' between date and time, as tessik-find prints dates.
bool ReadField(std::string const& text, std::size_t& pos, char before, std::size_t digits,
               WORD& field) {
    if (before != '\0') {
        char const at = pos < text.size() ? text[pos++] : '\0';
        if (at != before && !(before == 'T' && at == ' '))
            return false;
    }
    std::size_t const start = pos;
    std::uint64_t value = 0;
    if (!ReadDigits(text, pos, digits, value) || pos - start != digits)
        return false;
    field = static_cast<WORD>(value);
    return true;
}

struct ColumnWord {
    char const* word;
    unsigned column;
};

ColumnWord const columnWords[] = {
    {"name", ColumnName},         {"drive", ColumnDrive},           {"path", ColumnPath},
    {"size", ColumnSize},         {"attributes", ColumnAttributes}, {"created", ColumnCreated},
    {"accessed", ColumnAccessed}, {"written", ColumnWritten}};

} // namespace

bool ParseSizeTest(std::string const& text, SizeTest& out) {
    SizeTest read;
    std::size_t const dots = text.find("..");
    if (dots != std::string::npos) {
        read.test = 6;
        if (!ReadSize(text.substr(0, dots), read.size) ||
            !ReadSize(text.substr(dots + 2), read.upper) || read.size > read.upper)
            return false;
    } else if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        read.test = text[0] == '-' ? 2 : 4;
        if (!ReadSize(text.substr(1), read.size))
            return false;
    } else {
        read.test = 1;
        if (!ReadSize(text, read.size))
            return false;
    }
    out = read;
    return true;
}

bool ParseAttributeLetters(std::string const& text, DWORD& bits) {
    static char const letters[] = "RHSDAENTC";
    static DWORD const values[] = {0x1, 0x2, 0x4, 0x10, 0x20, 0x40, 0x80, 0x100, 0x800};
    DWORD read = 0;
    for (char c : text) {
        char const upper = (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
        char const* found = upper == '\0' ? nullptr : std::strchr(letters, upper);
        if (!found)
            return false;
        read |= values[found - letters];
    }
    if (read == 0)
        return false;
    bits = read;
    return true;
}

bool ParseDateTest(std::string const& text, DateTest& out) {
    DateTest read;
    char const* const tests = "=<>";
    char const* found = text.empty() ? nullptr : std::strchr(tests, text[0]);
    if (!found)
        return false;
    read.test = static_cast<char>(1 << (found - tests));
    SYSTEMTIME& t = read.local;
    std::size_t pos = 1;
    if (!ReadField(text, pos, '\0', 4, t.wYear) || !ReadField(text, pos, '-', 2, t.wMonth) ||
        !ReadField(text, pos, '-', 2, t.wDay))
        return false;
    read.wholeDay = pos == text.size();
    if (!read.wholeDay &&
        (!ReadField(text, pos, 'T', 2, t.wHour) || !ReadField(text, pos, ':', 2, t.wMinute) ||
         !ReadField(text, pos, ':', 2, t.wSecond)))
        return false;
    FILETIME check = {};
    if (pos != text.size() || !SystemTimeToFileTime(&t, &check))
        return false; // not a day of the calendar
    out = read;
    return true;
}

bool ParseColumnName(std::string const& text, unsigned& column) {
    for (ColumnWord const& entry : columnWords) {
        if (text == entry.word) {
            column = entry.column;
            return true;
        }
    }
    return false;
}

bool ParseSortOrder(std::string const& text, SortOrder& out) {
    SortOrder read;
    if (text == "path") {
        out = read;
        return true;
    }
    std::size_t const colon = text.find(':');
    std::string const direction = colon == std::string::npos ? "asc" : text.substr(colon + 1);
    if (direction != "asc" && direction != "desc")
        return false;
    read.directoriesFirst = false;
    read.descending = direction == "desc";
    if (!ParseColumnName(text.substr(0, colon), read.column))
        return false;
    out = read;
    return true;
}
