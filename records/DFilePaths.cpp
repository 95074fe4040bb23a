// A record's path in other forms: its parent directory, its short and long forms and their
// last components, and a match of the whole path against a wildcard.
#include <tessik/DFile.h>

#include <cstdlib>

DName DFile::GetParentPath(DName const& path) const {
    DName parent(path.isEmpty() ? fullPath : path);
    // A missing path answers with every bit set and so counts as a directory.
    if (!(GetFileAttributesA(&parent) & FILE_ATTRIBUTE_DIRECTORY))
        parent.RemFilename();
    return parent;
}

DName DFile::GetOldStyle() const {
    DName path(fullPath);
    if (path.isEmpty())
        return path;
    // As many bytes as the path has: a short form that is not shorter than the path, with its
    // zero, does not fit, and the path stays.
    DWORD const size = path.Size();
    char* buffer = static_cast<char*>(std::calloc(size, 1));
    if (!buffer)
        return DName();
    DWORD const length = GetShortPathNameA(&path, buffer, size);
    if (length != 0 && length < size && buffer[0] != 0)
        path.Namen(buffer, length);
    std::free(buffer);
    return path;
}

DName DFile::GetNewStyle() const {
    DName path(fullPath);
    if (path.isEmpty())
        return path;
    DWORD const size = GetLongPathNameA(&path, nullptr, 0);
    char* buffer = size ? static_cast<char*>(std::malloc(size)) : nullptr;
    if (!buffer)
        return path;
    // A length that does not fit means the path changed between the two calls: nothing was
    // written, and the path stays.
    DWORD const length = GetLongPathNameA(&path, buffer, size);
    if (length != 0 && length < size)
        path.Namen(buffer, length);
    std::free(buffer);
    return path;
}

DName DFile::GetOldFullPath() const {
    DName last = GetOldStyle();
    last.RemDir();
    return last;
}

DName DFile::GetNewFullPath() const {
    DName last = GetNewStyle();
    last.RemDir();
    return last;
}

bool DFile::IsWildCard(DName const& pattern) {
    unsigned int const pathSize = fullPath.Size();
    unsigned int const patternSize = pattern.Size();
    if (pathSize == 0 || patternSize == 0)
        return false;
    unsigned int i = 0, j = 0;
    while (i < pathSize && j < patternSize) {
        char const wanted = pattern[j];
        if (wanted == '*') {
            if (++j == patternSize)
                return true;
            // Only the first occurrence of the character behind the star is tried, literally.
            i = fullPath.FindFirstChar(pattern[j], i);
            if (i >= pathSize)
                return false;
        } else if (wanted != '?' && wanted != fullPath[i]) {
            return false;
        }
        ++i;
        ++j;
    }
    return i == pathSize && j == patternSize;
}
