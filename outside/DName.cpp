// DName: storage, assignment, access, comparison and edits.
#include <tessik/DName.h>

#include <climits>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <utility>

namespace {

// One byte of the capacity is always kept for the terminating zero.
constexpr unsigned int kMaxSize = UINT_MAX - 1;

// The length of a C string, when it fits a name.
bool TextLength(char const* text, unsigned int& length) {
    std::size_t found = text ? std::strlen(text) : 0;
    length = static_cast<unsigned int>(found);
    return found <= kMaxSize;
}

} // namespace

DName::DName(char const* value) : link(nullptr), text(nullptr), size(0), capacity(0) {
    Name(value);
}

DName::DName(int const& value) : link(nullptr), text(nullptr), size(0), capacity(0) {
    *this = value;
}

DName::DName(DName const& other) : link(nullptr), text(nullptr), size(0), capacity(0) {
    Assign(other.text, other.size);
}

DName::~DName() {
    delete[] text;
}

DName& DName::operator=(DName const& other) {
    Copy(other);
    return *this;
}

DName& DName::operator=(char const* value) {
    Name(value);
    return *this;
}

bool DName::Copy(DName const& other) {
    return std::addressof(other) == this || Assign(other.text, other.size);
}

bool DName::Name(char const* value) {
    unsigned int length;
    return TextLength(value, length) && Assign(value, length);
}

bool DName::Namen(char const* value, unsigned int const& n) {
    return Assign(value, value ? n : 0);
}

void DName::Destroy() {
    delete[] text;
    text = nullptr;
    size = 0;
    capacity = 0;
}

bool DName::Assign(char const* bytes, unsigned int n) {
    return Splice(0, size, bytes, n);
}

bool DName::Reserve(unsigned int n) {
    if (n > kMaxSize)
        return false;
    if (n < capacity)
        return true;
    // Growing an existing text leaves room for more, so appending byte by byte stays linear.
    unsigned int wanted = n + 1;
    unsigned int grown = capacity > UINT_MAX - capacity / 2 ? UINT_MAX : capacity + capacity / 2;
    if (capacity > 0 && grown > wanted)
        wanted = grown;
    char* fresh = new (std::nothrow) char[wanted];
    if (!fresh)
        return false;
    if (size)
        std::memcpy(fresh, text, size);
    fresh[size] = 0;
    delete[] text;
    text = fresh;
    capacity = wanted;
    return true;
}

bool DName::Holds(char const* bytes) const {
    std::less_equal<char const*> atOrBefore;
    return text && atOrBefore(text, bytes) && !atOrBefore(text + capacity, bytes);
}

bool DName::Splice(unsigned int at, unsigned int cut, char const* bytes, unsigned int n) {
    if (n && Holds(bytes)) {
        DName copy;
        return copy.Assign(bytes, n) && Splice(at, cut, copy.text, n);
    }
    unsigned int kept = size - cut;
    if (n > kMaxSize - kept)
        return false;
    unsigned int newSize = kept + n;
    if (newSize == 0) {
        Keep(0, 0);
        return true;
    }
    if (!Reserve(newSize))
        return false;
    std::memmove(text + at + n, text + at + cut, size - at - cut);
    if (n)
        std::memcpy(text + at, bytes, n);
    size = newSize;
    text[size] = 0;
    return true;
}

void DName::Keep(unsigned int from, unsigned int to) {
    if (!text)
        return;
    std::memmove(text, text + from, to - from);
    size = to - from;
    text[size] = 0;
}

void DName::Take(DName& other) {
    delete[] text;
    text = other.text;
    size = other.size;
    capacity = other.capacity;
    other.text = nullptr;
    other.size = 0;
    other.capacity = 0;
}

void DName::Swap(DName& other) {
    std::swap(text, other.text);
    std::swap(size, other.size);
    std::swap(capacity, other.capacity);
}

unsigned int const& DName::Size() const {
    return size;
}

char const* DName::operator&() const {
    return text ? text : "";
}

char DName::operator[](unsigned int const& index) const {
    return Char(index);
}

char DName::Char(unsigned int const& index) const {
    return index < size ? text[index] : 0;
}

bool DName::isEmpty() const {
    return size == 0;
}

bool DName::operator!() const {
    return size == 0;
}

int DName::Comp(DName const& other) const {
    unsigned int common = size < other.size ? size : other.size;
    int order = common ? std::memcmp(text, other.text, common) : 0;
    if (order == 0)
        order = size < other.size ? -1 : size > other.size ? 1 : 0;
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

bool DName::operator==(DName const& other) const {
    return Comp(other) == 0;
}

bool DName::operator==(char const* other) const {
    if (!other)
        return size == 0;
    for (unsigned int i = 0; i < size; ++i)
        if (other[i] != text[i] || other[i] == 0)
            return false;
    return other[size] == 0;
}

bool DName::operator!=(DName const& other) const {
    return Comp(other) != 0;
}

bool DName::operator!=(char const* other) const {
    return !(*this == other);
}

bool DName::operator<(DName const& other) const {
    return Comp(other) < 0;
}

bool DName::operator>(DName const& other) const {
    return Comp(other) > 0;
}

bool DName::operator<=(DName const& other) const {
    return Comp(other) <= 0;
}

bool DName::operator>=(DName const& other) const {
    return Comp(other) >= 0;
}

DName DName::operator+(DName const& other) const {
    DName joined(*this);
    joined += other;
    return joined;
}

DName& DName::operator+=(DName const& other) {
    InsertRight(other);
    return *this;
}

DName& DName::operator+=(char const* other) {
    unsigned int length;
    if (TextLength(other, length))
        Splice(size, 0, other, length);
    return *this;
}

bool DName::InsertLeft(DName const& other) {
    return Splice(0, 0, other.text, other.size);
}

bool DName::InsertRight(DName const& other) {
    return Splice(size, 0, other.text, other.size);
}

bool DName::InsertRight(char const& c, unsigned int const& n) {
    if (n == 0)
        return true;
    if (n > kMaxSize - size || !Reserve(size + n))
        return false;
    std::memset(text + size, c, n);
    size += n;
    text[size] = 0;
    return true;
}

bool DName::DelRight(unsigned int const& n) {
    Keep(0, n < size ? size - n : 0);
    return true;
}

bool DName::ModPos(unsigned int const& pos, char const& c) {
    if (pos >= size)
        return false;
    text[pos] = c;
    return true;
}

bool DName::Replace(char const& from, char const& to) {
    bool changed = false;
    for (unsigned int i = 0; i < size && from != to; ++i)
        if (text[i] == from) {
            text[i] = to;
            changed = true;
        }
    return changed;
}

unsigned int DName::FindFirstChar(char const& c, unsigned int const& start) const {
    for (unsigned int i = start; i < size; ++i)
        if (text[i] == c)
            return i;
    return size;
}
