// DirectoryListingSpec::Read over any bytes. Criteria read whole are written and read again:
// the second stored form equals the first.
#include "FuzzStream.h"

#include <tessik/DirectoryListingSpec.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    DirectoryListingSpec spec;
    bool read;
    {
        FileOper file(FuzzFile(data, size).c_str(), false);
        read = spec.Read(file);
    }
    FuzzCheck(spec.namePatterns.count + spec.directories.count <= size / 4,
              "more names than the bytes can hold");
    if (!read)
        return 0;
    std::string stored[2];
    for (std::string& bytes : stored) {
        {
            FileOper out(FuzzPath(1).c_str(), true);
            FuzzCheck(spec.Write(out), "criteria read are written");
        }
        bytes = FuzzBytes(FuzzPath(1));
        FileOper in(FuzzPath(1).c_str(), false);
        FuzzCheck(spec.Read(in), "criteria written are read");
    }
    FuzzCheck(stored[0] == stored[1], "criteria come back as they went out");
    return 0;
}
