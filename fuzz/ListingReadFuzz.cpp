// DFileLoad::Read over any bytes. A listing read whole is written again and read back: the same
// records, with the keys the second write made.
#include "FuzzStream.h"

#include <tessik/DFileLoad.h>

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    DFileLoad listing;
    bool read;
    {
        FileOper file(FuzzFile(data, size).c_str(), false);
        read = listing.Read(file);
    }
    FuzzCheck(listing.Size() <= size / smallestRecord, "more records than the bytes can hold");
    if (!read)
        return 0;
    DWORD count = 0;
    std::memcpy(&count, data, sizeof count);
    FuzzCheck(listing.Size() == count, "a whole listing holds its count of records");
    {
        FileOper out(FuzzPath(1).c_str(), true);
        FuzzCheck(listing.Write(out), "a listing read is written");
    }
    DFileLoad again;
    FileOper in(FuzzPath(1).c_str(), false);
    FuzzCheck(again.Read(in) && again.Size() == listing.Size(), "a listing written is read");
    for (DFile const *a = listing.files.head, *b = again.files.head; a && b;
         a = a->next, b = b->next)
        FuzzCheck(a->fullPath == b->fullPath && a->hashKey == b->hashKey && a->CompStruct(*b) &&
                      a->CompDates(a->dateLastAccessed, b->dateLastAccessed),
                  "a record comes back as it went out");
    return 0;
}
