// tessik_walk: whole-process runs of a search, to time against find and grep.
//
//   tessik_walk list TREE    every entry below TREE, one "size seconds path" line each
//   tessik_walk grep TEXT TREE   the files below TREE that hold TEXT, one path a line
//   tessik_walk count TREE   counts the entries without storing them
#include "lines.h"

#include <tessik/tessik.h>

#include <cstdio>
#include <cstring>

namespace {

// One line for `file`, its date counted from 1970.
void PrintEntry(DFile const& file) {
    FILETIME const& date = file.GetDateWritten();
    std::uint64_t const ticks =
        (static_cast<std::uint64_t>(date.dwHighDateTime) << 32) | date.dwLowDateTime;
    std::uint64_t const epoch = 116444736000000000ull;
    PrintLine(file.GetFileSize64(), ticks > epoch ? ticks - epoch : 0, &file.GetFullPath(),
              file.GetFullPath().Size());
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
    BufferOutput();
    for (DFile const* file = load.files.head; file; file = file->next) {
        if (!grep) {
            PrintEntry(*file);
            continue;
        }
        std::fwrite(&file->GetFullPath(), 1, file->GetFullPath().Size(), stdout);
        std::putchar('\n');
    }
    return 0;
}
