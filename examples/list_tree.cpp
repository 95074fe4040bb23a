// list_tree: every entry below each DIRECTORY, one record a line in the record's own text form
// (path, size, attributes, created, written, accessed, tab-separated), sorted by path. Built on
// every system, so that one tree can be listed by the Linux and the Windows build and compared
// (tests/differential/run.sh).
//
// usage: list_tree DIRECTORY...
#include <tessik/tessik.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: list_tree DIRECTORY...\n", stderr);
        return 2;
    }
    DirectoryListingSpec spec(DName("*.*"), DName(argv[1]));
    for (int i = 2; i < argc; ++i)
        spec.directories.InsertRight(DName(argv[i]));
    DFileLoad load;
    if (!load.LoadAllDirListings(spec, true) || !load.Sort())
        return 1;
    DName line;
    for (DFile const* file = load.files.head; file; file = file->next) {
        file->ToString(line, '\t');
        std::printf("%s\n", &line);
    }
    return 0;
}
