// Directories and files that the search could not read. The listing passes over them without
// a word, as described for it; tessik-find finds them from the search's feedback. A directory
// that gave no entry is checked as the search turns to the next one (readable and searchable?),
// and in a content search a file that passes every other test is checked before the listing
// opens it (readable?). What fails is told as grep tells it: the path and the reason.
#ifndef TESSIK_EXAMPLES_FIND_UNREADABLE_H
#define TESSIK_EXAMPLES_FIND_UNREADABLE_H

#include <tessik/tessik.h>

#include <string>

class UnreadableWatch {
public:
    // `spec` as the search gets it; `posixPaths` picks the form of the paths told.
    UnreadableWatch(DirectoryListingSpec const& spec, bool posixPaths);

    // The search turns to `directory` (a text of the status window). At the end of the search
    // the directory is empty.
    void DirectoryStarts(DFileLoad const& load, std::string const& directory);
    // The search counted an entry (`load.foundFile`).
    void EntryCounted(DFileLoad const& load);

    // What is still to tell, one line each, emptied by the call.
    std::string TakeMessages();
    unsigned Directories() const { return directories; }
    unsigned Files() const { return files; }

private:
    void Check(std::string const& path, bool isDirectory, unsigned& count);

    DirectoryListingSpec spec;
    DFileLoad filter; // tests an entry against everything but its content
    bool const contentTest;
    bool const posixPaths;
    std::string directory;   // the directory being searched
    DWORD entriesBefore = 0; // entries counted before it
    DWORD entriesChecked = 0;
    unsigned directories = 0;
    unsigned files = 0;
    std::string messages;
};

#endif
