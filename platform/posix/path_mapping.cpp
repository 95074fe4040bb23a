#include "platform/posix/path_mapping.h"

#include <climits>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace posix {

namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The bytes a Windows name cannot hold.
bool IsMapped(unsigned char c) {
    return c == '\\' || c == ':' || c == '*' || c == '?' || c == '"' || c == '<' || c == '>' ||
           c == '|';
}

// The three bytes of U+F000 + c in UTF-8.
void Encode(unsigned char c, char* out) {
    out[0] = '\xEF';
    out[1] = static_cast<char>(0x80 | (c >> 6));
    out[2] = static_cast<char>(0x80 | (c & 0x3F));
}

// The byte that the sequence at `at` (at least three bytes) stands for, or 0 when it is not one.
unsigned char Decode(char const* at) {
    if (at[0] != '\xEF' || (at[1] != '\x80' && at[1] != '\x81') || (at[2] & 0xC0) != 0x80)
        return 0;
    unsigned char const c = static_cast<unsigned char>(((at[1] & 1) << 6) | (at[2] & 0x3F));
    return IsMapped(c) ? c : 0;
}

// Appends `length` bytes of Windows names, sequences turned back into their bytes and, with
// `separators`, each `\` into `/`.
void AppendPosix(char const* text, std::size_t length, bool separators, std::string& out) {
    out.reserve(out.size() + length);
    for (std::size_t i = 0; i < length; ++i) {
        unsigned char const byte = i + 2 < length ? Decode(text + i) : 0;
        if (byte) {
            out += static_cast<char>(byte);
            i += 2;
        } else {
            out += separators && text[i] == '\\' ? '/' : text[i];
        }
    }
}

} // namespace

bool ToWindowsName(char const* name, char* out, std::size_t capacity) {
    std::size_t n = 0;
    for (;;) {
        std::size_t const plain = std::strcspn(name, "\\:*?\"<>|"); // runs of bytes as they are
        if (n + plain >= capacity)
            return false;
        std::memcpy(out + n, name, plain);
        n += plain;
        name += plain;
        if (!*name)
            break;
        if (n + 3 >= capacity)
            return false;
        Encode(static_cast<unsigned char>(*name++), out + n);
        n += 3;
    }
    out[n] = 0;
    return true;
}

std::string ToPosixName(char const* name, std::size_t length) {
    std::string posixName;
    AppendPosix(name, length, false, posixName);
    return posixName;
}

bool ToPosixPath(char const* windowsPath, std::string& posixPath) {
    if (!windowsPath || !*windowsPath)
        return false;
    char const* rest = windowsPath;
    bool hasDrive = IsLetter(rest[0]) && rest[1] == ':';
    if (hasDrive) {
        if (rest[0] != 'Z' && rest[0] != 'z')
            return false;
        rest += 2;
        if (!*rest) {
            posixPath = ".";
            return true;
        }
    } else if (IsSeparator(rest[0]) && IsSeparator(rest[1])) {
        return false; // UNC or device namespace: no such thing here
    }
    posixPath.clear();
    AppendPosix(rest, std::strlen(rest), true, posixPath);
    return true;
}

std::string ToWindowsPath(std::string const& posixAbsolutePath) {
    std::string windowsPath = "Z:";
    if (posixAbsolutePath.empty() || posixAbsolutePath[0] != '/')
        windowsPath += '\\';
    windowsPath.reserve(posixAbsolutePath.size() + 3);
    for (char c : posixAbsolutePath) {
        if (IsMapped(static_cast<unsigned char>(c))) {
            char sequence[3];
            Encode(static_cast<unsigned char>(c), sequence);
            windowsPath.append(sequence, 3);
        } else {
            windowsPath += c == '/' ? '\\' : c;
        }
    }
    return windowsPath;
}

PathAnchor::PathAnchor(std::string const& posixPath) : dir(AT_FDCWD), rest(posixPath.c_str()) {
    if (posixPath.size() < PATH_MAX)
        return;
    if (*rest == '/')
        dir = open("/", O_PATH | O_DIRECTORY | O_CLOEXEC);
    while (*rest == '/')
        ++rest;
    while (rest && std::strlen(rest) >= PATH_MAX) {
        // The longest run of whole components that the system takes in one call.
        char const* cut = rest + PATH_MAX - 1;
        while (cut > rest && *cut != '/')
            --cut;
        std::string const piece(rest, static_cast<std::size_t>(cut - rest));
        int const next =
            cut > rest ? openat(dir, piece.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC) : -1;
        if (dir >= 0)
            close(dir);
        dir = next;
        rest = next >= 0 ? cut + 1 : nullptr;
        while (rest && *rest == '/')
            ++rest;
    }
}

PathAnchor::~PathAnchor() {
    if (dir >= 0)
        close(dir);
}

} // namespace posix
