// DFileLoad::ReadFind over any bytes: the first byte gives the length of the name to look for,
// the bytes after it are the name, and the rest is the stream. A found record has that path.
#include "FuzzStream.h"

#include <tessik/DFileLoad.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0)
        return 0;
    std::size_t const length = data[0] % 32 < size - 1 ? data[0] % 32 : size - 1;
    DName name;
    name.Namen(reinterpret_cast<char const*>(data + 1), static_cast<unsigned>(length));
    FileOper file(FuzzFile(data + 1 + length, size - 1 - length).c_str(), false);
    DFile record;
    DFileLoad listing;
    if (listing.ReadFind(file, name, record))
        FuzzCheck(record.fullPath == name, "the record found has the path looked for");
    FuzzCheck(listing.isEmpty(), "the object plays no part");
    return 0;
}
