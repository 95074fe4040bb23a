// The records of another listing that this one lacks.
//
// Each record of `other` is looked for among this listing's records by DFile::operator==. Instead
// of walking this listing for every record of `other`, the walk is done once into a hash table
// of the fields that operator== compares; a record of `other` is then looked up in it and
// confirmed by operator== itself. The outcome, and the order of `differences`, are those of the
// record-by-record comparison.
#include <tessik/DFileLoad.h>

#include <cstdint>
#include <cstring>
#include <new>

namespace {

std::uint64_t Mix(std::uint64_t hash, std::uint64_t value) {
    hash = (hash ^ value) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 29);
}

std::uint64_t Quad(DWORD low, DWORD high) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

// Covers exactly what operator== compares: the path's bytes, the attributes, both size words,
// dateWritten, dateCreated and dataEncrypted. The key and dateLastAccessed play no part.
std::uint64_t EqualityHash(DFile const& file) {
    char const* path = &file.fullPath;
    unsigned int left = file.fullPath.Size();
    std::uint64_t hash = Mix(0, left);
    for (; left >= 8; left -= 8, path += 8) {
        std::uint64_t chunk;
        std::memcpy(&chunk, path, 8);
        hash = Mix(hash, chunk);
    }
    std::uint64_t tail = 0;
    std::memcpy(&tail, path, left);
    hash = Mix(hash, tail);
    hash = Mix(hash, Quad(file.attributes, file.dataEncrypted ? 1 : 0));
    hash = Mix(hash, Quad(file.sizeLow, file.sizeHigh));
    hash = Mix(hash, Quad(file.dateWritten.dwLowDateTime, file.dateWritten.dwHighDateTime));
    return Mix(hash, Quad(file.dateCreated.dwLowDateTime, file.dateCreated.dwHighDateTime));
}

// The records of a listing by that hash, in an open-addressed table at most half full. Records
// with an empty path are left out: they are equal to nothing. Should the table not fit in
// memory, a look-up walks the listing instead, with the same answers.
class RecordIndex {
public:
    explicit RecordIndex(Container<DFile> const& listing) : files(listing), mask(0), slots(nullptr) {
        std::size_t capacity = 16;
        while (capacity < static_cast<std::size_t>(listing.count) * 2)
            capacity *= 2;
        slots = new (std::nothrow) Slot[capacity]();
        if (!slots)
            return;
        mask = capacity - 1;
        for (DFile const* record = listing.head; record; record = record->next) {
            if (record->fullPath.isEmpty())
                continue;
            std::uint64_t const hash = EqualityHash(*record);
            std::size_t at = static_cast<std::size_t>(hash) & mask;
            while (slots[at].record)
                at = (at + 1) & mask;
            slots[at] = Slot{hash, record};
        }
    }
    ~RecordIndex() { delete[] slots; }
    RecordIndex(RecordIndex const&) = delete;
    RecordIndex& operator=(RecordIndex const&) = delete;

    bool Holds(DFile const& wanted) const {
        if (wanted.fullPath.isEmpty())
            return false;
        if (!slots) {
            for (DFile const* record = files.head; record; record = record->next)
                if (*record == wanted)
                    return true;
            return false;
        }
        std::uint64_t const hash = EqualityHash(wanted);
        for (std::size_t at = static_cast<std::size_t>(hash) & mask; slots[at].record;
             at = (at + 1) & mask)
            if (slots[at].hash == hash && *slots[at].record == wanted)
                return true;
        return false;
    }

private:
    struct Slot {
        std::uint64_t hash;
        DFile const* record; // null: a free slot
    };

    Container<DFile> const& files;
    std::size_t mask;
    Slot* slots;
};

} // namespace

bool DFileLoad::FindDifferences(DFileLoad const& other, DFileLoad& differences) {
    bool found = false;
    differences.files.Destroy(); // first: what it held is gone, found or not
    RecordIndex const index(files);
    for (DFile const* record = other.files.head; record; record = record->next) {
        if (index.Holds(*record))
            continue;
        found = true;
        differences.files.InsertRight(*record); // a copy that cannot be made is left out
    }
    return found;
}
