// Direct operations on the disk: free room, removing a file or an empty directory, creating
// one directory or a whole path. They never read or change the listing.
#include <tessik/DFileLoad.h>

namespace {

// The form the directory calls get: every separator a backslash.
DName Backslashed(DName const& path) {
    DName copy(path);
    copy.Replace('/', '\\');
    return copy;
}

} // namespace

DName const& DFileLoad::GetWorkPath() const {
    return workPath;
}

DWORD DFileLoad::GetDiskFreeSpaceA() const {
    DName const dir = GetDir();
    DName root;
    if (dir.Size() < 3 || !root.Namen(&dir, 3))
        return 0;
    ULARGE_INTEGER freeToCaller, total, totalFree;
    if (GetDiskFreeSpaceExA(&root, &freeToCaller, &total, &totalFree) != 1)
        return 0;
    return static_cast<DWORD>(freeToCaller.QuadPart >> 16);
}

bool DFileLoad::Remove(DName const& path) const {
    if (!path)
        return false;
    // A path that does not exist answers with every bit set, so it ends in RemoveDir.
    if (GetFileAttributesA(&path) & FILE_ATTRIBUTE_DIRECTORY)
        return RemoveDir(path);
    SetFileAttributesA(&path, FILE_ATTRIBUTE_ARCHIVE); // a read-only file goes too
    return _unlink(&path) != -1;
}

bool DFileLoad::RemoveDir(DName const& path) const {
    DName dir = Backslashed(path);
    DName last;
    if (!dir.RemDir(last)) // leaves the whole path, without trailing separators
        return false;
    SetFileAttributesA(&dir, FILE_ATTRIBUTE_ARCHIVE);
    return RemoveDirectoryA(&dir) != 0;
}

bool DFileLoad::MakeSingleDir(DName const& path) const {
    if (!path)
        return false;
    DName dir = Backslashed(path);
    dir.ChopPath(true);
    CreateDirectoryA(&dir, nullptr); // one that exists already is no failure
    return ChangeDir(dir);
}

// Walks the path from the top down, entering each level by its bare name under the prefix
// walked so far; the last change into the whole path decides.
bool DFileLoad::MakeDir(DName const& path) const {
    if (!path)
        return false;
    DName remainder = Backslashed(path);
    DName part;
    if (remainder.RemDrive(part))
        part.AttachSlash(false);
    DName prefix(part);
    if (remainder.RemIndexDir(part)) {
        do {
            if (!prefix.isEmpty() && !ChangeDir(prefix))
                return false;
            prefix.AddFile(part, false);
            if (!MakeSingleDir(part) && !ChangeDir(prefix))
                break;
        } while (remainder.RemIndexDir(part));
    }
    return ChangeDir(path);
}
