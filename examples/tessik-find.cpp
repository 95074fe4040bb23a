// tessik-find: lists a directory with tessik.
//
//   tessik-find [DIRECTORY]
//
// Prints each entry of DIRECTORY (the current directory by default) as its size, its
// attribute word and its path.
#include <tessik/tessik.h>

#include <cinttypes>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc > 2) {
        std::fprintf(stderr, "usage: %s [DIRECTORY]\n", argv[0]);
        return 2;
    }
    DFileLoad load;
    DName const dir(argc == 2 ? argv[1] : nullptr);
    if (argc == 2 && !load.isDir(dir)) {
        std::fprintf(stderr, "%s: no such directory: %s\n", argv[0], argv[1]);
        return 1;
    }
    for (bool more = load.OpenDirListing(DirectoryListingSpec(), dir, 0); more; more = ++load)
        load.InsertRight(load.GetFoundFile());
    for (DFile const* file = load.files.head; file; file = file->next)
        std::printf("%12" PRIu64 "  %08X  %s\n", file->GetFileSize64(),
                    static_cast<unsigned>(file->GetAttribute()), &file->GetFullPath());
    std::printf("%u entries\n", load.Size());
    return 0;
}
