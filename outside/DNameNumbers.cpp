// DName: decimal numbers in and out of the text.
#include <tessik/DName.h>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Writes the decimal digits of `value` backwards, ending at `end`; gives the first digit.
char* Digits(std::uint64_t value, char* end, bool grouping) {
    char* first = end;
    int inGroup = 0;
    do {
        if (grouping && inGroup == 3) {
            *--first = ',';
            inGroup = 0;
        }
        *--first = static_cast<char>('0' + value % 10);
        value /= 10;
        ++inGroup;
    } while (value);
    return first;
}

// The number at `pos` (low 32 bits); `pos` ends behind its last digit.
DWORD ReadDigits(DName const& name, unsigned int& pos) {
    DWORD value = 0;
    for (; pos < name.Size() && IsDigit(name[pos]); ++pos)
        value = value * 10 + static_cast<DWORD>(name[pos] - '0');
    return value;
}

} // namespace

DName& DName::operator=(int const& value) {
    if (value == 0) {
        Destroy();
        return *this;
    }
    char buffer[24];
    char* end = buffer + sizeof buffer;
    std::int64_t wide = value;
    char* first = Digits(static_cast<std::uint64_t>(wide < 0 ? -wide : wide), end, false);
    if (wide < 0)
        *--first = '-';
    Namen(first, static_cast<unsigned int>(end - first));
    return *this;
}

DName const& DName::FromLong64(std::uint64_t const& value, int const& grouping) {
    char buffer[32];
    char* end = buffer + sizeof buffer;
    char* first = Digits(value, end, grouping != 0);
    Namen(first, static_cast<unsigned int>(end - first));
    return *this;
}

DName DName::operator+(std::uint64_t const& value) const {
    DName number;
    number.FromLong64(value, 0);
    DName joined(*this);
    joined += number;
    return joined;
}

DWORD DName::ToWord() const {
    unsigned int pos = 0;
    while (pos < size && (text[pos] == ' ' || text[pos] == '\t'))
        ++pos;
    return ReadDigits(*this, pos);
}

DWORD DName::GetNumber(unsigned int const& index, unsigned int* end) const {
    unsigned int pos = 0;
    for (unsigned int run = 0;; ++run) {
        while (pos < size && !IsDigit(text[pos]))
            ++pos;
        if (pos == size)
            break;
        DWORD value = ReadDigits(*this, pos);
        if (run == index) {
            if (end)
                *end = pos;
            return value;
        }
    }
    if (end)
        *end = size;
    return 0;
}
