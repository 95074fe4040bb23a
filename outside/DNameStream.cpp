// DName: the stream form, the radix form and the scrambler.
#include <tessik/DName.h>
#include <tessik/FileOper.h>

#include <algorithm>
#include <climits>
#include <memory>

namespace {

bool ValidRadix(unsigned int radix) {
    return radix >= 2 && radix <= 36;
}

// How many digits in `radix` any byte needs.
unsigned int DigitsPerByte(unsigned int radix) {
    unsigned int digits = 1;
    for (unsigned int reach = radix; reach < 256; reach *= radix)
        ++digits;
    return digits;
}

// The value of a lower-case digit; 36 for anything else.
unsigned int DigitValue(char c) {
    if (c >= '0' && c <= '9')
        return static_cast<unsigned int>(c - '0');
    if (c >= 'a' && c <= 'z')
        return static_cast<unsigned int>(c - 'a' + 10);
    return 36;
}

// Depends on the position only, so a scramble can be undone from the same start position.
unsigned char PositionMix(unsigned int position) {
    return static_cast<unsigned char>((position * 2654435761u) >> 24);
}

} // namespace

bool DName::Write(FileOper& file) const {
    unsigned char header[4] = {
        static_cast<unsigned char>(size), static_cast<unsigned char>(size >> 8),
        static_cast<unsigned char>(size >> 16), static_cast<unsigned char>(size >> 24)};
    return file.Write(header, sizeof header) && (size == 0 || file.Write(text, size));
}

bool DName::Read(FileOper& file) {
    unsigned char header[4];
    if (!file.Read(header, sizeof header, false))
        return false;
    unsigned int n =
        static_cast<unsigned int>(header[0]) | static_cast<unsigned int>(header[1]) << 8 |
        static_cast<unsigned int>(header[2]) << 16 | static_cast<unsigned int>(header[3]) << 24;
    // A damaged length must not make us allocate more than the stream still holds.
    std::uint64_t position = file.GetPos();
    std::uint64_t length = file.GetLength();
    if (position > length || n > length - position)
        return false;
    DName fresh;
    if (n && (!fresh.Reserve(n) || !file.Read(fresh.text, n, false)))
        return false;
    fresh.size = n;
    if (fresh.text)
        fresh.text[n] = 0;
    Take(fresh);
    return true;
}

DName DName::ToRadix(unsigned int const& radix) const {
    DName form;
    if (!ValidRadix(radix))
        return form;
    unsigned int digits = DigitsPerByte(radix);
    if (size == 0 || size > (UINT_MAX - 1) / digits || !form.Reserve(size * digits))
        return form;
    for (unsigned int i = 0; i < size; ++i) {
        unsigned int value = static_cast<unsigned char>(text[i]);
        for (unsigned int d = digits; d-- > 0; value /= radix)
            form.text[i * digits + d] = "0123456789abcdefghijklmnopqrstuvwxyz"[value % radix];
    }
    form.size = size * digits;
    form.text[form.size] = 0;
    return form;
}

DName DName::FromRadix(unsigned int const& radix) const {
    DName bytes;
    if (!ValidRadix(radix) || size == 0)
        return bytes;
    unsigned int digits = DigitsPerByte(radix);
    if (size % digits != 0 || !bytes.Reserve(size / digits))
        return bytes;
    for (unsigned int i = 0; i < size / digits; ++i) {
        unsigned int value = 0;
        for (unsigned int d = 0; d < digits; ++d) {
            unsigned int digit = DigitValue(text[i * digits + d]);
            value = value * radix + digit;
            if (digit >= radix || value > 255) {
                bytes.Destroy();
                return bytes;
            }
        }
        bytes.text[i] = static_cast<char>(value);
    }
    bytes.size = size / digits;
    bytes.text[bytes.size] = 0;
    return bytes;
}

void DName::det(DName const& key, unsigned int& position) {
    if (std::addressof(key) == this) {
        DName copy(key);
        det(copy, position);
        return;
    }
    if (key.size == 0) {
        position += size;
        return;
    }
    // The key byte for position `at` is at % key.size. It is found by stepping through the key
    // in runs that end where the key wraps, so no byte needs a division; `at` wrapping past
    // 2^32 restarts the key too.
    unsigned int k = position % key.size;
    for (unsigned int i = 0; i < size;) {
        unsigned int const at = position + i;
        unsigned int run = std::min(size - i, key.size - k);
        if (at + run < at)
            run = 0u - at; // to the wrap of `at`
        // Local pointers: a byte store could otherwise alias the pointers and reload them.
        unsigned char* const bytes = reinterpret_cast<unsigned char*>(text + i);
        unsigned char const* const with = reinterpret_cast<unsigned char const*>(key.text + k);
        for (unsigned int j = 0; j < run; ++j)
            bytes[j] = static_cast<unsigned char>(bytes[j] ^ with[j] ^ PositionMix(at + j));
        i += run;
        k = (k + run == key.size || at + run == 0) ? 0 : k + run;
    }
    position += size;
}
