#include "platform/posix/path_mapping.h"

namespace posix {

namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

} // namespace

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
    posixPath.assign(rest);
    for (char& c : posixPath)
        if (c == '\\')
            c = '/';
    return true;
}

std::string ToWindowsPath(std::string const& posixAbsolutePath) {
    std::string windowsPath = "Z:";
    if (posixAbsolutePath.empty() || posixAbsolutePath[0] != '/')
        windowsPath += '\\';
    windowsPath += posixAbsolutePath;
    for (char& c : windowsPath)
        if (c == '/')
            c = '\\';
    return windowsPath;
}

} // namespace posix
