// Writes the seed corpus of the fuzz targets with the library's own writers:
//   tessik_fuzz_seeds DIR   makes DIR/<target> for each target, named as the target is.
#include <tessik/tessik.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::filesystem::path root;

std::string Seed(char const* target, char const* name) {
    std::filesystem::create_directories(root / target);
    return (root / target / name).string();
}

// Three records: a plain file, a directory with a path of any bytes, one with an empty path.
void FillListing(DFileLoad& listing, unsigned count) {
    FILETIME const date = {0x2C7B6000, 0x01C4E2A1};
    DFile records[3] = {DFile(DName("C:\\data\\report.txt"), 0x21, 1234, &date, &date, &date),
                        DFile(DName("D:\\x\\\xE9\xFF"), 0x10, 0, nullptr, &date, nullptr), DFile()};
    records[0].sizeHigh = 2;
    for (unsigned i = 0; i < count; ++i)
        listing.InsertRight(records[i]);
}

void WriteListing(char const* target, char const* name, unsigned count, char const* prefix = "") {
    std::string const path = Seed(target, name);
    std::ofstream(path, std::ios::binary) << prefix;
    DFileLoad listing;
    FillListing(listing, count);
    std::string stored;
    {
        std::string const body = path + ".body";
        FileOper out(body.c_str(), true);
        listing.Write(out);
        out.Close();
        std::ifstream in(body, std::ios::binary);
        stored.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        std::remove(body.c_str());
    }
    std::ofstream(path, std::ios::binary | std::ios::app) << stored;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DIR\n", argv[0]);
        return 2;
    }
    root = argv[1];
    for (unsigned count = 0; count <= 3; ++count) {
        std::string const name = "listing" + std::to_string(count);
        WriteListing("ListingReadFuzz", name.c_str(), count);
    }
    WriteListing("ReadFindFuzz", "hit", 3,
                 "\x12"
                 "C:\\data\\report.txt");
    WriteListing("ReadFindFuzz", "miss", 2, "\x01z");
    {
        DFileLoad listing;
        FillListing(listing, 3);
        FileOper out(Seed("RecordReadFuzz", "records").c_str(), true);
        for (DFile* record = listing.files.head; record; record = record->next)
            record->Write(out);
    }
    // A count that claims far more records than follow.
    std::string const lie = Seed("ListingReadFuzz", "count-lie");
    WriteListing("ListingReadFuzz", "count-lie", 2);
    std::fstream(lie, std::ios::binary | std::ios::in | std::ios::out) << "\xFF\xFF\xFF\xFF";

    DirectoryListingSpec empty, full(DName("*.txt"), DName("C:\\data"), DName("needle"), true);
    full.directories.InsertRight(DName("D:\\more"));
    full.containingMode = 9;
    full.sizeTest = 6;
    full.sizeUpper = 4096;
    full.dateWritten = {0x2C7B6000, 0x01C4E2A1};
    FileOper emptyOut(Seed("CriteriaReadFuzz", "empty").c_str(), true),
        fullOut(Seed("CriteriaReadFuzz", "full").c_str(), true);
    return empty.Write(emptyOut) && full.Write(fullOut) ? 0 : 1;
}
