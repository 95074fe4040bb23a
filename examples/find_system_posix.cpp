// tessik-find on a POSIX system: paths go to the system calls in POSIX form and to the library
// as the posix backend writes them (Z:\usr\include).
#include "find_system.h"

#include "find_paths.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

volatile sig_atomic_t interrupted = 0;
struct sigaction former = {};

void NoteInterrupt(int) {
    interrupted = 1;
}

bool Failed(std::string& error) {
    error = std::strerror(errno);
    return false;
}

} // namespace

bool IsTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) != 0;
}

unsigned TerminalWidth() {
    winsize size = {};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return 80;
}

void CatchInterrupt() {
    interrupted = 0;
    sigaction(SIGINT, nullptr, &former);
    if (former.sa_handler == SIG_IGN)
        return; // started where Ctrl-C is to be ignored (in the background of a shell)
    struct sigaction action = {};
    action.sa_handler = NoteInterrupt;
    action.sa_flags = SA_RESETHAND | SA_RESTART; // a second Ctrl-C ends the program
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}

void ReleaseInterrupt() {
    sigaction(SIGINT, &former, nullptr);
}

bool InterruptRequested() {
    return interrupted != 0;
}

std::string FullPath(std::string const& written) {
    std::string posix = PosixPath(written);
    if (posix.empty() || posix[0] != '/') {
        char* const current = getcwd(nullptr, 0);
        posix = std::string(current ? current : "") + "/" + posix;
        std::free(current);
    }
    return posix;
}

std::string FullLibraryPath(std::string const& written) {
    return LibraryPath(FullPath(written));
}

bool DirectoryToSearch(std::string const& written, std::string& libraryPath, std::string& error) {
    std::string const posix = PosixPath(written);
    struct stat status = {};
    if (stat(posix.c_str(), &status) != 0)
        return Failed(error);
    if (!S_ISDIR(status.st_mode)) {
        error = std::strerror(ENOTDIR);
        return false;
    }
    char* const resolved = realpath(posix.c_str(), nullptr);
    if (!resolved)
        return Failed(error);
    libraryPath = LibraryPath(resolved);
    std::free(resolved);
    return true;
}

// Effective ids, as the opening itself uses them.
bool CanRead(std::string const& path, bool directory, std::string& reason) {
    std::string const posix = PosixPath(path);
    int const mode = directory ? R_OK | X_OK : R_OK;
    if (faccessat(AT_FDCWD, posix.c_str(), mode, AT_EACCESS) == 0 || errno == ENAMETOOLONG)
        return true; // the listing walks long paths in pieces
    return Failed(reason);
}

bool IsFile(std::string const& file, std::string& error) {
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0)
        return Failed(error);
    if (S_ISDIR(status.st_mode)) {
        error = std::strerror(EISDIR);
        return false;
    }
    return true;
}

bool CanSave(std::string const& file, std::string& error) {
    std::string const directory = file.substr(0, file.rfind('/') + 1);
    return access(directory.empty() ? "." : directory.c_str(), W_OK | X_OK) == 0 || Failed(error);
}

bool NewFileBeside(std::string const& file, std::string& temporary, std::string& error) {
    temporary = file + ".XXXXXX";
    int const descriptor = mkstemp(&temporary[0]);
    if (descriptor < 0)
        return Failed(error);
    close(descriptor);
    return true;
}

bool MakeDurable(std::string const& file) {
    int const descriptor = open(file.c_str(), O_RDONLY);
    bool const synced = descriptor >= 0 && fsync(descriptor) == 0;
    if (descriptor >= 0)
        close(descriptor);
    return synced;
}

bool PutInPlace(std::string const& temporary, std::string const& file, std::string& error) {
    return std::rename(temporary.c_str(), file.c_str()) == 0 || Failed(error);
}
