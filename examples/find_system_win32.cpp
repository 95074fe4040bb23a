// tessik-find on Windows: paths are the system's own (C:\Users, or Z:\tmp under Wine) for the
// system and the library alike. Reasons are the system's messages.
#include "find_system.h"

#include <tessik/platform.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <io.h>

namespace {

// The console's handler runs on a thread of its own.
std::atomic<bool> interrupted(false);

BOOL WINAPI NoteInterrupt(DWORD event) {
    if (event != CTRL_C_EVENT)
        return FALSE; // Ctrl-Break and closing the console end the program
    // The first Ctrl-C is noted; a second goes on to the system's handler, which ends it.
    return interrupted.exchange(true) ? FALSE : TRUE;
}

// The system's text of `code`, without its closing full stop and line end.
std::string SystemMessage(DWORD code) {
    char* text = nullptr;
    DWORD const length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<char*>(&text), 0, nullptr);
    std::string message = length > 0 ? std::string(text, length) : "error " + std::to_string(code);
    LocalFree(text);
    while (!message.empty() && std::strchr(". \r\n", message.back()))
        message.pop_back();
    return message;
}

bool Failed(std::string& error) {
    error = SystemMessage(GetLastError());
    return false;
}

} // namespace

// A console (not a file, a pipe nor the NUL device) that takes escape sequences (Windows 10 and
// later take them once asked).
bool IsTerminal(std::FILE* stream) {
    HANDLE const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    if (!GetConsoleMode(handle, &mode))
        return false;
    return (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 ||
           SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

unsigned TerminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) &&
        info.srWindow.Right > info.srWindow.Left)
        return static_cast<unsigned>(info.srWindow.Right - info.srWindow.Left + 1);
    return 80;
}

void CatchInterrupt() {
    interrupted = false;
    SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

void ReleaseInterrupt() {
    SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

bool InterruptRequested() {
    return interrupted;
}

std::string FullPath(std::string const& written) {
    DWORD const needed = GetFullPathNameA(written.c_str(), 0, nullptr, nullptr);
    std::string full(needed, '\0');
    DWORD const length =
        needed == 0 ? 0 : GetFullPathNameA(written.c_str(), needed, &full[0], nullptr);
    if (length == 0 || length >= needed)
        return written; // not a path, or the current directory changed in between
    full.resize(length);
    return full;
}

std::string FullLibraryPath(std::string const& written) {
    return FullPath(written);
}

// Links on the way are left for the system to follow as the search goes through them.
bool DirectoryToSearch(std::string const& written, std::string& libraryPath, std::string& error) {
    std::string full = FullPath(written);
    while (full.size() > 3 && (full.back() == '\\' || full.back() == '/'))
        full.pop_back(); // as a directory is named, but for a drive's root
    DWORD const attributes = GetFileAttributesA(full.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return Failed(error);
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        error = std::strerror(ENOTDIR);
        return false;
    }
    libraryPath = full;
    return true;
}

// Rights on Windows are lists that attributes do not show: the entry is opened to know.
bool CanRead(std::string const& path, bool directory, std::string& reason) {
    if (directory) {
        WIN32_FIND_DATAA entry;
        HANDLE const find = FindFirstFileA((path + "\\*").c_str(), &entry);
        if (find != INVALID_HANDLE_VALUE) {
            FindClose(find);
            return true;
        }
    } else {
        HANDLE const file = CreateFileA(path.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
            return true;
        }
    }
    // The listing walks long paths in pieces.
    return GetLastError() == ERROR_FILENAME_EXCED_RANGE || Failed(reason);
}

bool IsFile(std::string const& file, std::string& error) {
    DWORD const attributes = GetFileAttributesA(file.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return Failed(error);
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        error = std::strerror(EISDIR);
        return false;
    }
    return true;
}

// The read-only attribute of a directory does not keep files from being made in it: one is made.
bool CanSave(std::string const& file, std::string& error) {
    std::string probe;
    if (!NewFileBeside(file, probe, error))
        return false;
    DeleteFileA(probe.c_str());
    return true;
}

bool NewFileBeside(std::string const& file, std::string& temporary, std::string& error) {
    std::string const directory = file.substr(0, file.find_last_of("\\/") + 1);
    char name[MAX_PATH];
    if (GetTempFileNameA(directory.empty() ? "." : directory.c_str(), "tsk", 0, name) == 0)
        return Failed(error);
    temporary = name;
    return true;
}

bool MakeDurable(std::string const& file) {
    HANDLE const handle = CreateFileA(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    bool const flushed = FlushFileBuffers(handle) != 0;
    CloseHandle(handle);
    return flushed;
}

bool PutInPlace(std::string const& temporary, std::string const& file, std::string& error) {
    return MoveFileExA(temporary.c_str(), file.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) ||
           Failed(error);
}
