// Directory enumeration, attributes and the current directory, with Windows paths on drive Z:.
//
// An enumeration reads the directory's entries with getdents64 into a buffer of its own and
// looks at each with one statx relative to the open directory. "." and ".." come first, as on
// Windows: "." from the open directory itself, ".." with the same record (no call is made for
// it), and the names the directory itself holds for them are passed over.
#include "platform/posix/entry_info.h"
#include "platform/posix/path_mapping.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <new>
#include <string>
#include <unistd.h>

namespace {

thread_local DWORD lastError = 0;

struct FindState {
    int fd;              // the open directory; -1 for a single entry
    std::string pattern; // the last component of the pattern, in Windows form
    bool matchesAll;
    int dotsGiven; // how many of "." and ".." have had their turn
    WIN32_FIND_DATAA dot;
    long fill; // bytes of `entries` that getdents64 gave, and where the next entry starts
    long next;
    alignas(8) char entries[32768];
};

enum class Step { Found, End, NameTooLong };

// The state of the last enumeration closed on this thread, kept for the next one: a search
// opens one directory after the other, and the entry buffer is too large to take anew each
// time.
thread_local std::unique_ptr<FindState> spare;

FindState* NewState() {
    return spare ? spare.release() : new (std::nothrow) FindState;
}

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
// its last component, still in Windows form.
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
    return posix::ToPosixPath(windowsDir.c_str(), directory);
}

bool Matches(FindState const& state, char const* windowsName) {
    return state.matchesAll || PathMatchSpecA(windowsName, state.pattern.c_str());
}

Step NextMatch(FindState& state, WIN32_FIND_DATAA& data) {
    while (state.dotsGiven < 2) {
        char const* dots = state.dotsGiven++ == 0 ? "." : "..";
        if (Matches(state, dots)) {
            data = state.dot;
            std::strcpy(data.cFileName, dots);
            return Step::Found;
        }
    }
    for (;;) {
        if (state.next >= state.fill) {
            state.fill = getdents64(state.fd, state.entries, sizeof state.entries);
            state.next = 0;
            if (state.fill <= 0)
                return Step::End;
        }
        dirent64 const* entry = reinterpret_cast<dirent64 const*>(state.entries + state.next);
        state.next += entry->d_reclen;
        char const* name = entry->d_name;
        if (name[0] == '.' && (!name[1] || (name[1] == '.' && !name[2])))
            continue;
        if (!posix::ToWindowsName(name, data.cFileName, MAX_PATH))
            return Step::NameTooLong;
        if (Matches(state, data.cFileName) && posix::ReadEntry(state.fd, name, 0, name, data))
            return Step::Found; // an entry that vanished since it was read is passed over
    }
}

FindState* AsState(HANDLE find) {
    if (!find || find == INVALID_HANDLE_VALUE)
        return nullptr;
    return static_cast<FindState*>(find);
}

HANDLE Fail(DWORD error) {
    lastError = error;
    return INVALID_HANDLE_VALUE;
}

HANDLE FindOne(std::string const& directory, std::string const& windowsName,
               WIN32_FIND_DATAA& data) {
    std::string const name = posix::ToPosixName(windowsName.data(), windowsName.size());
    std::string const path = directory == "." ? name : directory + "/" + name;
    posix::PathAnchor const anchor(path);
    if (!posix::ToWindowsName(name.c_str(), data.cFileName, MAX_PATH))
        return Fail(ERROR_FILENAME_EXCED_RANGE);
    if (!anchor.Reached() || !posix::ReadEntry(anchor.Dir(), anchor.Rest(), 0, name.c_str(), data))
        return Fail(ERROR_FILE_NOT_FOUND);
    FindState* single = NewState();
    if (!single)
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    single->fd = -1;
    return single;
}

} // namespace

HANDLE FindFirstFileA(char const* pattern, WIN32_FIND_DATAA* data) {
    std::string directory, name;
    if (!pattern || !*pattern || !data || !SplitPattern(pattern, directory, name) || name.empty())
        return Fail(ERROR_FILE_NOT_FOUND);
    if (!HasWildcard(name))
        return FindOne(directory, name, *data);

    posix::PathAnchor const anchor(directory);
    int const fd = anchor.Reached()
                       ? openat(anchor.Dir(), anchor.Rest(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)
                       : -1;
    if (fd < 0)
        return Fail(ERROR_PATH_NOT_FOUND);
    FindState* state = NewState();
    if (!state) {
        close(fd);
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
    state->fd = fd;
    state->pattern = name;
    state->matchesAll = name == "*" || name == "*.*";
    state->dotsGiven = 0;
    state->fill = state->next = 0;
    if (!posix::ReadEntry(fd, "", AT_EMPTY_PATH, ".", state->dot)) {
        FindClose(state);
        return Fail(ERROR_PATH_NOT_FOUND);
    }
    Step const first = NextMatch(*state, *data);
    if (first != Step::Found) {
        FindClose(state);
        return Fail(first == Step::End ? ERROR_FILE_NOT_FOUND : ERROR_FILENAME_EXCED_RANGE);
    }
    return state;
}

BOOL FindNextFileA(HANDLE find, WIN32_FIND_DATAA* data) {
    FindState* state = AsState(find);
    if (!state || state->fd < 0 || !data) {
        lastError = ERROR_NO_MORE_FILES;
        return FALSE;
    }
    Step const step = NextMatch(*state, *data);
    if (step == Step::Found)
        return TRUE;
    lastError = step == Step::End ? ERROR_NO_MORE_FILES : ERROR_FILENAME_EXCED_RANGE;
    return FALSE;
}

BOOL FindClose(HANDLE find) {
    FindState* state = AsState(find);
    if (!state)
        return FALSE;
    if (state->fd >= 0)
        close(state->fd);
    if (spare)
        delete state;
    else
        spare.reset(state);
    return TRUE;
}

DWORD GetLastError() {
    return lastError;
}

DWORD GetCurrentDirectoryA(DWORD size, char* buffer) {
    std::string cwd(PATH_MAX, '\0');
    while (!getcwd(cwd.data(), cwd.size())) {
        if (errno != ERANGE || cwd.size() > (1u << 24))
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
    if (target.size() < PATH_MAX)
        return chdir(target.c_str()) == 0 ? TRUE : FALSE;
    posix::PathAnchor const anchor(target);
    int const fd = anchor.Reached()
                       ? openat(anchor.Dir(), anchor.Rest(), O_PATH | O_DIRECTORY | O_CLOEXEC)
                       : -1;
    bool const changed = fd >= 0 && fchdir(fd) == 0;
    if (fd >= 0)
        close(fd);
    return changed ? TRUE : FALSE;
}

DWORD GetFileAttributesA(char const* path) {
    std::string target;
    if (!path || !*path || !posix::ToPosixPath(path, target))
        return INVALID_FILE_ATTRIBUTES;
    posix::PathAnchor const anchor(target);
    WIN32_FIND_DATAA data;
    if (!anchor.Reached() ||
        !posix::ReadEntry(anchor.Dir(), anchor.Rest(), 0, BaseName(target).c_str(), data))
        return INVALID_FILE_ATTRIBUTES;
    return data.dwFileAttributes;
}
