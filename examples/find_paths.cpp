#include "find_paths.h"

#include <cstring>

namespace {

// The bytes a Windows name cannot hold.
char const* const unnamable = "\\:*?\"<>|";

bool IsUnnamable(char c) {
    return c != '\0' && std::strchr(unnamable, c) != nullptr;
}

// The byte that the three bytes at `at` stand for, or 0 when they stand for none.
char MappedByte(std::string const& text, std::size_t at) {
    if (at + 2 >= text.size() || static_cast<unsigned char>(text[at]) != 0xEF)
        return '\0';
    unsigned const second = static_cast<unsigned char>(text[at + 1]);
    unsigned const third = static_cast<unsigned char>(text[at + 2]);
    if ((second & 0xFEu) != 0x80u || (third & 0xC0u) != 0x80u)
        return '\0';
    char const byte = static_cast<char>(((second & 1u) << 6) | (third & 0x3Fu));
    return IsUnnamable(byte) ? byte : '\0';
}

} // namespace

std::string PosixPath(std::string const& path) {
    bool const onZ = path.size() >= 3 && (path[0] == 'Z' || path[0] == 'z') && path[1] == ':' &&
                     (path[2] == '\\' || path[2] == '/');
    std::string posix;
    for (std::size_t at = onZ ? 2 : 0; at < path.size(); ++at) {
        if (char const byte = MappedByte(path, at)) {
            posix += byte;
            at += 2;
        } else {
            posix += path[at] == '\\' ? '/' : path[at];
        }
    }
    return posix;
}

std::string LibraryName(std::string const& posix, bool wildcards) {
    std::string name;
    for (char c : posix) {
        if (c == '/') {
            name += '\\';
        } else if (IsUnnamable(c) && !(wildcards && (c == '*' || c == '?'))) {
            unsigned const mapped = 0xF000u + static_cast<unsigned char>(c);
            name += static_cast<char>(0xEF);
            name += static_cast<char>(0x80u | ((mapped >> 6) & 0x3Fu));
            name += static_cast<char>(0x80u | (mapped & 0x3Fu));
        } else {
            name += c;
        }
    }
    return name;
}

std::string LibraryPath(std::string const& posixPath) {
    std::string const path = "Z:" + LibraryName(posixPath, false);
    return path.size() == 2 ? "Z:\\" : path;
}
