// The directory cursor: one directory's entries, one at a time, in `foundFile`.
//
// The cursor makes its directory the process's current directory and enumerates "*.*" there;
// "." and ".." never come out.
#include <tessik/DFileLoad.h>

#include <cstdlib>

bool DFileLoad::OpenDirListing(DirectoryListingSpec const& searchSpec, DName const& dir,
                               unsigned const& index) {
    return OpenCursor(searchSpec, dir, index, false);
}

bool DFileLoad::OpenCursor(DirectoryListingSpec const& searchSpec, DName const& dir, unsigned index,
                           bool specHeld) {
    CloseDirListing();
    bool const chosen = !dir.isEmpty() || searchSpec.directories.count != 0;
    if (!dir.isEmpty()) {
        workPath = dir;
    } else if (searchSpec.directories.count != 0) {
        unsigned const last = searchSpec.directories.count - 1;
        workPath = searchSpec.directories[index < last ? index : last];
    } else {
        workPath.Destroy();
    }
    if (chosen && !ChangeDir(workPath))
        return false;

    WIN32_FIND_DATAA data = {};
    HANDLE const find = FindFirstFileA("*.*", &data);
    if (find == INVALID_HANDLE_VALUE)
        return false;
    findHandle = find;
    if (!workPath)
        workPath = GetDir();
    if (!specHeld)
        spec = searchSpec;
    if (foundFile.isDots(data))
        return NextDirListing();
    foundFile.Copy(data, workPath);
    return true;
}

bool DFileLoad::NextDirListing() {
    if (!isOpen())
        return false;
    WIN32_FIND_DATAA data;
    do {
        data = {};
        if (!FindNextFileA(findHandle, &data))
            return false;
    } while (foundFile.isDots(data));
    foundFile.Copy(data, workPath);
    return true;
}

// After the cursor found no further entry: whether that was an entry the platform could not
// give (a name too long for a find record). Each such entry is counted and stepped past.
bool DFileLoad::StepPastUnlisted(DWORD& unlisted) {
    while (isOpen() && GetLastError() == ERROR_FILENAME_EXCED_RANGE) {
        ++unlisted;
        if (NextDirListing())
            return true;
    }
    return false;
}

void DFileLoad::CloseDirListing() {
    if (!isOpen())
        return;
    FindClose(findHandle);
    findHandle = nullptr;
}

// A failed change leaves the current directory where it was on both platforms, so the
// comparison of the directory before and after a failure always finds them equal: the result
// is that of the change itself, without reading the current directory twice a change.
bool DFileLoad::ChangeDir(DName const& path) const {
    return !path.isEmpty() && SetCurrentDirectoryA(&path);
}

// The size is asked first and the text fetched after; a path that grew in between (a directory
// renamed) makes the fetch give the size it now needs, and the fetch is made again with that.
DName DFileLoad::GetDir() const {
    DName dir;
    DWORD size = GetCurrentDirectoryA(0, nullptr);
    for (int tries = 0; size != 0 && tries < 16; ++tries) {
        char* buffer = static_cast<char*>(std::malloc(size + 1));
        if (!buffer)
            break;
        DWORD const written = GetCurrentDirectoryA(size, buffer);
        if (written != 0 && written < size)
            dir.Namen(buffer, written);
        std::free(buffer);
        if (written < size)
            break;
        size = written;
    }
    return dir;
}

void DFileLoad::StoreCurrentDir(DName const& dir) {
    if (!dir)
        storedDir = GetDir();
    else
        storedDir = dir;
}

bool DFileLoad::RestoreDir() const {
    return !storedDir.isEmpty() && ChangeDir(storedDir);
}

bool DFileLoad::isDir(DName const& path) const {
    if (path.isEmpty())
        return false;
    DWORD const attributes = GetFileAttributesA(&path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & 0x10);
}

bool DFileLoad::isFile(DName const& path) const {
    return !isDir(path);
}

bool DFileLoad::isDir(WIN32_FIND_DATAA const& data) const {
    return data.dwFileAttributes & 0x10;
}

bool DFileLoad::isSubDir(DName const& a, DName const& b) const {
    DName restA(a), restB(b), driveA, driveB;
    restA.RemDrive(driveA);
    restB.RemDrive(driveB);
    if (!driveA.isEmpty() && !driveB.isEmpty() && driveA != driveB)
        return false;
    return restA == restB;
}

bool DFileLoad::isDots(WIN32_FIND_DATAA const& data) const {
    return foundFile.isDots(data);
}
bool DFileLoad::isNotDots(WIN32_FIND_DATAA const& data) const {
    return !isDots(data);
}
