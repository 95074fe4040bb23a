// Windows paths on the single emulated drive Z:, and back; and POSIX paths of any length.
#ifndef TESSIK_PLATFORM_POSIX_PATH_MAPPING_H
#define TESSIK_PLATFORM_POSIX_PATH_MAPPING_H

#include <cstddef>
#include <string>

namespace posix {

// A POSIX name may hold the bytes \ : * ? " < > |, which a Windows name cannot. Each is shown as
// the character U+F000 + byte in UTF-8 (`\` is EF 81 9C), as Wine shows them, so a name never
// reads as two components, nor as "." or "..". Bytes from 128 on are left as they are.

// The Windows form of the POSIX name `name` into `out` with its zero; false when it needs more
// than `capacity` bytes.
bool ToWindowsName(char const* name, char* out, std::size_t capacity);

// The POSIX form of one Windows name: each U+F000 + byte sequence back to its byte.
std::string ToPosixName(char const* name, std::size_t length);

// "Z:\a\b", "z:/a/b", "\a\b" and "/a/b" give "/a/b"; "Z:a" and "a\b" stay relative to the
// current directory ("a", "a/b"); "Z:" alone is the current directory ("."). Another drive
// letter, a UNC path ("\\server\share") and an empty or null path give false. Both `\` and `/`
// separate; within a component each U+F000 + byte sequence becomes its byte again.
bool ToPosixPath(char const* windowsPath, std::string& posixPath);

// "/a/b" gives "Z:\a\b" and "/" gives "Z:\" (a missing leading `/` is assumed); each name in
// its Windows form.
std::string ToWindowsPath(std::string const& posixAbsolutePath);

// A path of any length made reachable by the *at calls: a path the system takes in one call
// stands as it is, relative to AT_FDCWD; from a longer one the leading directories are opened
// piece by piece, and the rest is relative to the last of them. Links in the leading
// directories are followed, as the system does in one call.
class PathAnchor {
public:
    explicit PathAnchor(std::string const& posixPath); // `posixPath` must outlive the anchor
    ~PathAnchor();
    PathAnchor(PathAnchor const&) = delete;
    PathAnchor& operator=(PathAnchor const&) = delete;

    bool Reached() const { return rest != nullptr; } // false when a leading piece cannot open
    int Dir() const { return dir; }
    char const* Rest() const { return rest; }

private:
    int dir;
    char const* rest;
};

} // namespace posix

#endif
