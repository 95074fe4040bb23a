// What Windows reports of a file system entry, from the entry's own status (links are never
// followed).
#ifndef TESSIK_POSIX_ENTRY_INFO_H
#define TESSIK_POSIX_ENTRY_INFO_H

#include <tessik/platform.h>

namespace posix {

// Status of `path` relative to the open directory `dirFd` (AT_FDCWD for the current directory;
// an empty path with AT_EMPTY_PATH in `flags` for the directory itself) as a find record, all
// but the names. `baseName` is the last component, for the hidden bit. False when the entry
// cannot be looked at (it vanished, or a component is not searchable).
bool ReadEntry(int dirFd, char const* path, int flags, char const* baseName,
               WIN32_FIND_DATAA& data);

} // namespace posix

#endif
