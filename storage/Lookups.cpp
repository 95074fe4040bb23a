// Where a path or a file name stands in a listing: one walk along the chain each.
#include <tessik/DFileLoad.h>

#include <cstring>

int DFileLoad::FindPos(DName const& name) const {
    int position = 0;
    for (DFile const* record = files.head; record; record = record->next, ++position)
        if (name == record->GetFullPath())
            return position;
    return -1;
}

int DFileLoad::FindByLong(DName const& name) const {
    return FindPos(name);
}

// The last components are compared where they stand, without copying either path.
int DFileLoad::FindByFilename(DName const& name) const {
    unsigned int start, end;
    DName::LastComponent(&name, name.Size(), start, end);
    char const* const wanted = &name + start;
    unsigned int const length = end - start;
    int position = 0;
    for (DFile const* record = files.head; record; record = record->next, ++position) {
        char const* const path = &record->fullPath;
        DName::LastComponent(path, record->fullPath.Size(), start, end);
        if (end - start == length && std::memcmp(path + start, wanted, length) == 0)
            return position;
    }
    return -1;
}
