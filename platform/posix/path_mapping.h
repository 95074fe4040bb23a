// Windows paths on the single emulated drive Z:, and back.
#ifndef TESSIK_PLATFORM_POSIX_PATH_MAPPING_H
#define TESSIK_PLATFORM_POSIX_PATH_MAPPING_H

#include <string>

namespace posix {

// "Z:\a\b", "z:/a/b", "\a\b" and "/a/b" give "/a/b"; "Z:a" and "a\b" stay relative to the
// current directory ("a", "a/b"); "Z:" alone is the current directory ("."). Another drive
// letter, a UNC path ("\\server\share") and an empty or null path give false. Each `\` becomes
// `/`, so a POSIX name holding a `\` cannot be addressed.
bool ToPosixPath(char const* windowsPath, std::string& posixPath);

// "/a/b" gives "Z:\a\b" and "/" gives "Z:\" (a missing leading `/` is assumed).
std::string ToWindowsPath(std::string const& posixAbsolutePath);

} // namespace posix

#endif
