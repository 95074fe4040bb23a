// What Windows reports of a file system entry, from the entry's own status (links are never
// followed).
#ifndef TESSIK_POSIX_ENTRY_INFO_H
#define TESSIK_POSIX_ENTRY_INFO_H

#include <tessik/platform.h>

namespace posix {

// Status of `name` relative to the open directory `dirFd` (AT_FDCWD for the current directory)
// as a find record. `baseName` is the last component, for the hidden bit. False when the entry
// cannot be looked at (it vanished, or a component is not searchable).
bool ReadEntry(int dirFd, char const* name, char const* baseName, WIN32_FIND_DATAA& data);

} // namespace posix

#endif
