#include "presentation/ColumnOrder.h"

#include <tessik/DFileLoad.h>

#include <algorithm>
#include <cstring>

namespace {

enum class Kind { Name, Path, Size, Attributes, Date };

Kind KindOf(unsigned int column) {
    switch (column) {
    case ColumnDrive:
    case ColumnPath:
        return Kind::Path;
    case ColumnSize:
        return Kind::Size;
    case ColumnAttributes:
        return Kind::Attributes;
    case ColumnCreated:
    case ColumnAccessed:
    case ColumnWritten:
        return Kind::Date;
    default:
        return Kind::Name; // the file name, also for numbers that name no column
    }
}

FILETIME const& DateOf(DFile const& record, unsigned int column) {
    if (column == ColumnCreated)
        return record.GetDateCreated();
    return column == ColumnAccessed ? record.GetDateLastAccessed() : record.GetDateWritten();
}

// Up to eight bytes, most significant first, zeros behind a shorter text: two texts whose
// heads differ are ordered by them, since a zero there either stands for a zero byte or for
// the end of the shorter text, which sorts first anyway.
std::uint64_t Head(char const* text, unsigned int size) {
    std::uint64_t head = 0;
    for (unsigned int i = 0; i < 8; ++i)
        head = head << 8 | (i < size ? static_cast<unsigned char>(text[i]) : 0u);
    return head;
}

// The first sixteen bytes go into the two numbers, so most texts compare without a look at
// the record itself.
void SetText(ColumnKey& key, char const* text, unsigned int size) {
    key.text = text;
    key.size = size;
    key.high = Head(text, size);
    key.low = size > 8 ? Head(text + 8, size - 8) : 0;
}

// Unsigned bytes, a text before any longer text it begins.
int CompareBytes(char const* a, unsigned int aSize, char const* b, unsigned int bSize) {
    int const order = std::memcmp(a, b, std::min(aSize, bSize));
    if (order != 0)
        return order;
    return aSize < bSize ? -1 : (aSize > bSize ? 1 : 0);
}

template <class T> int Order(T const& a, T const& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

} // namespace

ColumnKey MakeColumnKey(DFile const& record, unsigned int column, unsigned int skip) {
    ColumnKey key;
    char const* const path = &record.GetFullPath();
    unsigned int const pathSize = record.GetFullPath().Size();
    skip = std::min(skip, pathSize);
    key.path = path + skip;
    key.pathSize = pathSize - skip;
    key.pathHead = Head(key.path, key.pathSize);
    switch (KindOf(column)) {
    case Kind::Name: {
        unsigned int start, end;
        DName::LastComponent(path, pathSize, start, end);
        SetText(key, path + start, end - start);
        break;
    }
    case Kind::Path:
        SetText(key, key.path, key.pathSize);
        break;
    case Kind::Size:
        key.high = record.GetFileSize64();
        break;
    case Kind::Attributes: {
        DName const letters = record.FormatAttributes(false, -1);
        key.high = Head(&letters, letters.Size());
        key.low = letters.Size() > 8 ? static_cast<unsigned char>(letters[8]) : 0u;
        break;
    }
    case Kind::Date: {
        // Local time to the second, as the record's date comparison sees it.
        SYSTEMTIME const local = record.GetLocalDate(DateOf(record, column));
        key.high =
            std::uint64_t{local.wYear} << 32 | std::uint64_t{local.wMonth} << 16 | local.wDay;
        key.low =
            std::uint64_t{local.wHour} << 32 | std::uint64_t{local.wMinute} << 16 | local.wSecond;
        break;
    }
    }
    return key;
}

bool ColumnBreaksTies(unsigned int column) {
    Kind const kind = KindOf(column);
    return kind != Kind::Name && kind != Kind::Path;
}

int ColumnCompare(ColumnKey const& left, ColumnKey const& right, unsigned int column) {
    int order = Order(left.high, right.high);
    if (order == 0)
        order = Order(left.low, right.low);
    if (order == 0 && left.text)
        order = CompareBytes(left.text, left.size, right.text, right.size);
    if (order != 0 || !ColumnBreaksTies(column))
        return order;
    order = Order(left.pathHead, right.pathHead);
    return order != 0 ? order : CompareBytes(left.path, left.pathSize, right.path, right.pathSize);
}

unsigned int CommonPathPrefix(std::vector<DFile*> const& records) {
    if (records.empty())
        return 0;
    DName const& first = records.front()->GetFullPath();
    unsigned int common = first.Size();
    for (DFile const* record : records) {
        DName const& path = record->GetFullPath();
        unsigned int const limit = std::min(common, path.Size());
        char const* a = &first;
        char const* b = &path;
        unsigned int same = 0;
        while (same < limit && a[same] == b[same])
            ++same;
        common = same;
    }
    return common;
}
