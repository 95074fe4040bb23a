// tessik_walk: whole-process runs of a search, to time against find and grep.
//
//   tessik_walk list TREE    every entry below TREE, one "size seconds path" line each
//   tessik_walk grep TEXT TREE   the files below TREE that hold TEXT, one path a line
//   tessik_walk count TREE   counts the entries without storing them
#include <tessik/tessik.h>

#include <cinttypes>
#include <cstdio>
#include <cstring>

namespace {

// Prints a date as seconds since 1970 with seven decimals, like find's %T@, in integers.
void PrintSeconds(FILETIME const& date) {
    std::uint64_t const ticks =
        (static_cast<std::uint64_t>(date.dwHighDateTime) << 32) | date.dwLowDateTime;
    std::int64_t const seconds = static_cast<std::int64_t>(ticks / 10000000) - 11644473600LL;
    std::printf("%" PRId64 ".%07u", seconds, static_cast<unsigned>(ticks % 10000000));
}

int Usage() {
    std::fprintf(stderr, "usage: tessik_walk list TREE | grep TEXT TREE | count TREE\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return Usage();
    char const* mode = argv[1];
    bool const grep = std::strcmp(mode, "grep") == 0;
    if (grep && argc != 4)
        return Usage();
    DirectoryListingSpec spec(DName("*.*"), DName(argv[grep ? 3 : 2]));
    DFileLoad load;
    if (std::strcmp(mode, "count") == 0) {
        std::printf("%u\n", static_cast<unsigned>(load.GetTotalDirListings(spec, true)));
        return 0;
    }
    if (grep) {
        spec.textToFind = argv[2];
        spec.containingMode = 1;
    }
    if (!load.LoadAllDirListings(spec, true))
        return 1;
    static char buffer[1 << 16];
    std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
    for (DFile const* file = load.files.head; file; file = file->next) {
        if (!grep) {
            std::printf("%" PRIu64 " ", file->GetFileSize64());
            PrintSeconds(file->GetDateWritten());
            std::putchar(' ');
        }
        std::printf("%s\n", &file->GetFullPath());
    }
    return 0;
}
