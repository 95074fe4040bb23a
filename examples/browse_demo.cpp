// browse_demo: the platform's two browse dialogs, one after the other, each answer printed when
// its dialog closes. Windows only (the posix backend has no screen).
//
// usage: browse_demo [START-DIRECTORY]
#include <tessik/tessik.h>

#include <cstdio>

namespace {

// The file dialog's names are below the browse directory; the folder dialog's is a full path.
void PrintAnswer(char const* dialog, bool confirmed, DFileLoad const& load, bool full) {
    std::printf("%s: %s\n", dialog, confirmed ? "confirmed" : "cancelled");
    for (unsigned int i = 0; confirmed && i < load.GetBrowseTotal(); ++i)
        std::printf("  %s\n", full ? &load.GetBrowseFullFilename(i) : &load.GetBrowseFilename(i));
    std::fflush(stdout); // a script reads each answer while the next dialog is open
}

} // namespace

int main(int argc, char** argv) {
    DFileLoad load;
    if (argc > 1)
        load.SetBrowseDir(DName(argv[1]));
    load.SetBrowseTitle(DName("tessik: choose files"));
    PrintAnswer("files", load.BrowseForFile(nullptr), load, true); // the default filter list

    load.SetBrowseTitle(DName("tessik: choose a directory"));
    PrintAnswer("directory", load.BrowseForDir(nullptr), load, false);
    return 0;
}
