// TempTree on Windows, run under Wine: the trees are made below \tmp of the current drive, which
// is Z: (the Unix root) when the tests start in a Unix directory, so the paths read the same as
// on Linux. Local time is the system's: the test program runs with TZ=UTC.
#include "support/TempTree.h"

#include <tessik/platform.h>

#include <winioctl.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// Removes `path` and everything below it, read-only entries included.
void RemoveTree(std::string const& path) {
    WIN32_FIND_DATAA entry;
    HANDLE find = FindFirstFileA((path + "\\*").c_str(), &entry);
    if (find != INVALID_HANDLE_VALUE) {
        do {
            std::string const name = entry.cFileName;
            if (name == "." || name == "..")
                continue;
            std::string const child = path + "\\" + name;
            SetFileAttributesA(child.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveTree(child);
            else
                DeleteFileA(child.c_str());
        } while (FindNextFileA(find, &entry));
        FindClose(find);
    }
    RemoveDirectoryA(path.c_str());
}

HANDLE OpenForChange(std::string const& path, DWORD disposition) {
    return CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       disposition, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT,
                       nullptr);
}

} // namespace

TempTree::TempTree() : hadTz(false) {
    char cwd[MAX_PATH];
    DWORD const length = GetCurrentDirectoryA(MAX_PATH, cwd);
    if (length > 0 && length < MAX_PATH)
        startDir = cwd;
    char const* tmp = std::getenv("TMPDIR");
    std::string const base = std::string(tmp && *tmp ? tmp : "/tmp") + "/tessik-test-";
    for (unsigned attempt = 0; attempt < 100 && root.empty(); ++attempt) {
        std::string const candidate = base + std::to_string(GetCurrentProcessId()) + "-" +
                                      std::to_string(GetTickCount() + attempt);
        if (CreateDirectoryA(candidate.c_str(), nullptr))
            root = candidate;
    }
    if (root.empty())
        ADD_FAILURE() << "cannot make a temporary directory";
}

TempTree::~TempTree() {
    if (!startDir.empty() && !SetCurrentDirectoryA(startDir.c_str()))
        ADD_FAILURE() << "cannot return to " << startDir;
    if (!root.empty())
        RemoveTree(root);
}

void TempTree::MakeDir(std::string const& relative) const {
    ASSERT_TRUE(CreateDirectoryA(Path(relative).c_str(), nullptr)) << relative;
}

void TempTree::MakeFile(std::string const& relative, std::string const& content) const {
    HANDLE file = OpenForChange(Path(relative), CREATE_ALWAYS);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << relative;
    DWORD written = 0;
    BOOL const wrote =
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
    ASSERT_TRUE(wrote && written == content.size()) << relative;
}

void TempTree::MakeSparseFile(std::string const& relative, std::uint64_t size) const {
    HANDLE file = OpenForChange(Path(relative), CREATE_ALWAYS);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << relative;
    DWORD returned = 0;
    DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr);
    LARGE_INTEGER end;
    end.QuadPart = static_cast<LONGLONG>(size);
    BOOL const sized = SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file);
    CloseHandle(file);
    ASSERT_TRUE(sized) << relative;
}

void TempTree::SetTimes(std::string const& relative, std::int64_t seconds, long nanoseconds) const {
    std::uint64_t const ticks = (static_cast<std::uint64_t>(seconds) + 11644473600u) * 10000000u +
                                static_cast<std::uint64_t>(nanoseconds / 100);
    FILETIME const time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    HANDLE file = OpenForChange(Path(relative), OPEN_EXISTING);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << relative;
    BOOL const set = SetFileTime(file, nullptr, &time, &time);
    CloseHandle(file);
    ASSERT_TRUE(set) << relative;
}

// Only the owner's write bit has a Windows form: the read-only attribute.
void TempTree::SetMode(std::string const& relative, unsigned mode) const {
    std::string const path = Path(relative);
    DWORD const attributes = GetFileAttributesA(path.c_str());
    ASSERT_NE(attributes, INVALID_FILE_ATTRIBUTES) << relative;
    DWORD const readOnly = (mode & 0200) ? 0 : FILE_ATTRIBUTE_READONLY;
    ASSERT_TRUE(SetFileAttributesA(path.c_str(),
                                   (attributes & ~DWORD(FILE_ATTRIBUTE_READONLY)) | readOnly));
}

// Local time on Windows is the system's, whatever TZ holds: the zone stays.
void TempTree::UseZone(char const*) const {}
