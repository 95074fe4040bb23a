// Directory enumeration, attributes and the current directory, with Windows paths on drive Z:.
#include "platform/posix/entry_info.h"
#include "platform/posix/path_mapping.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <new>
#include <string>
#include <unistd.h>

namespace {

struct FindState {
    DIR* dir;
    std::string pattern;
    bool matchesAll;
};

bool HasWildcard(std::string const& name) {
    return name.find_first_of("*?") != std::string::npos;
}

// The last component of a POSIX path, trailing slashes ignored ("/" for the root).
std::string BaseName(std::string const& path) {
    std::size_t end = path.find_last_not_of('/');
    if (end == std::string::npos)
        return path.empty() ? path : "/";
    std::size_t const slash = path.rfind('/', end);
    std::size_t const begin = slash == std::string::npos ? 0 : slash + 1;
    return path.substr(begin, end + 1 - begin);
}

// Splits a Windows pattern into its directory (as a POSIX path, "." for the current one) and
// its last component.
bool SplitPattern(char const* pattern, std::string& directory, std::string& name) {
    std::string const text(pattern);
    std::size_t cut = text.find_last_of("\\/");
    std::string windowsDir;
    if (cut != std::string::npos) {
        windowsDir = text.substr(0, cut + 1);
        name = text.substr(cut + 1);
    } else if (text.size() >= 2 && text[1] == ':') {
        windowsDir = text.substr(0, 2);
        name = text.substr(2);
    } else {
        name = text;
    }
    if (windowsDir.empty()) {
        directory = ".";
        return true;
    }
    if (!posix::ToPosixPath(windowsDir.c_str(), directory))
        return false;
    if (directory.empty())
        directory = ".";
    return true;
}

bool NextMatch(FindState& state, WIN32_FIND_DATAA& data) {
    int const dirFd = dirfd(state.dir);
    while (dirent* entry = readdir(state.dir)) {
        if (!state.matchesAll && !PathMatchSpecA(entry->d_name, state.pattern.c_str()))
            continue;
        if (posix::ReadEntry(dirFd, entry->d_name, entry->d_name, data))
            return true; // an entry that vanished since readdir is passed over
    }
    return false;
}

FindState* AsState(HANDLE find) {
    if (!find || find == INVALID_HANDLE_VALUE)
        return nullptr;
    return static_cast<FindState*>(find);
}

} // namespace

HANDLE FindFirstFileA(char const* pattern, WIN32_FIND_DATAA* data) {
    if (!pattern || !*pattern || !data)
        return INVALID_HANDLE_VALUE;
    std::string directory, name;
    if (!SplitPattern(pattern, directory, name) || name.empty())
        return INVALID_HANDLE_VALUE;

    if (!HasWildcard(name)) {
        std::string const path = directory == "." ? name : directory + "/" + name;
        if (!posix::ReadEntry(AT_FDCWD, path.c_str(), name.c_str(), *data))
            return INVALID_HANDLE_VALUE;
        FindState* single = new (std::nothrow) FindState{nullptr, std::string(), false};
        return single ? single : INVALID_HANDLE_VALUE;
    }

    DIR* dir = opendir(directory.c_str());
    if (!dir)
        return INVALID_HANDLE_VALUE;
    FindState* state = new (std::nothrow) FindState{dir, name, name == "*" || name == "*.*"};
    if (!state) {
        closedir(dir);
        return INVALID_HANDLE_VALUE;
    }
    if (!NextMatch(*state, *data)) {
        FindClose(state);
        return INVALID_HANDLE_VALUE;
    }
    return state;
}

BOOL FindNextFileA(HANDLE find, WIN32_FIND_DATAA* data) {
    FindState* state = AsState(find);
    if (!state || !state->dir || !data)
        return FALSE;
    return NextMatch(*state, *data) ? TRUE : FALSE;
}

BOOL FindClose(HANDLE find) {
    FindState* state = AsState(find);
    if (!state)
        return FALSE;
    if (state->dir)
        closedir(state->dir);
    delete state;
    return TRUE;
}

DWORD GetCurrentDirectoryA(DWORD size, char* buffer) {
    std::string cwd(256, '\0');
    while (!getcwd(cwd.data(), cwd.size())) {
        if (errno != ERANGE || cwd.size() > (1u << 20))
            return 0;
        cwd.resize(cwd.size() * 2);
    }
    cwd.resize(std::strlen(cwd.c_str()));
    std::string const path = posix::ToWindowsPath(cwd);
    DWORD const needed = static_cast<DWORD>(path.size() + 1);
    if (!buffer || size < needed)
        return needed;
    std::memcpy(buffer, path.c_str(), needed);
    return needed - 1;
}

BOOL SetCurrentDirectoryA(char const* path) {
    std::string target;
    if (!path || !*path || !posix::ToPosixPath(path, target))
        return FALSE;
    if (target.empty())
        return TRUE; // the drive alone: the current directory of drive Z:
    return chdir(target.c_str()) == 0 ? TRUE : FALSE;
}

DWORD GetFileAttributesA(char const* path) {
    std::string target;
    if (!path || !*path || !posix::ToPosixPath(path, target))
        return INVALID_FILE_ATTRIBUTES;
    if (target.empty())
        target = ".";
    WIN32_FIND_DATAA data;
    if (!posix::ReadEntry(AT_FDCWD, target.c_str(), BaseName(target).c_str(), data))
        return INVALID_FILE_ATTRIBUTES;
    return data.dwFileAttributes;
}
