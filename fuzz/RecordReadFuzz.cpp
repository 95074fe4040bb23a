// DFile::Read over any bytes: records are read one after the other until one fails. Each
// record read takes at least its smallest size from the stream, so the walk ends.
#include "FuzzStream.h"

#include <tessik/DFile.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    FileOper file(FuzzFile(data, size).c_str(), false);
    DFile record;
    std::size_t records = 0;
    while (records <= size && record.Read(file))
        ++records;
    FuzzCheck(records <= size / smallestRecord, "more records than the bytes can hold");
    return 0;
}
