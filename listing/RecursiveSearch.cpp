// The search: breadth first over directory trees, with a first-in, first-out queue of
// directories still to search, so several trees are searched level by level.
#include "listing/SearchFeedback.h"

#include <tessik/DFileLoad.h>

#include <set>

namespace {

// Whether `text` begins with `prefix`, bytes compared without regard to case.
bool BeginsWith(DName const& text, DName const& prefix) {
    return _memicmp(&text, &prefix, prefix.Size()) == 0;
}

// Drops every directory that begins with a shorter one, names compared without regard to
// case or separators, in the fixed order of removals that decides which names survive.
void PruneOverlapping(Container<DName>& dirs) {
    unsigned i = 0;
    while (i < dirs.count) {
        unsigned j = 0;
        for (;;) {
            DName const& a = dirs[i];
            DName const& b = dirs[j];
            bool removed = false;
            if (a.Size() > b.Size() && BeginsWith(a, b))
                removed = dirs.DelPos(i);
            else if (a.Size() < b.Size() && BeginsWith(b, a))
                removed = dirs.DelPos(j);
            if (removed) {
                if (j < dirs.count) {
                    j = 0;
                    if (i < dirs.count)
                        continue;
                    break;
                }
                ++i;
                break;
            }
            if (++j < dirs.count)
                continue;
            ++i;
            break;
        }
    }
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

// A start directory as a full path, so that every record has one. A rooted path takes the
// current drive; a relative one becomes the directory that the process reaches by it from the
// current directory, and one without a drive that cannot be entered is joined to the current
// directory.
DName Absolute(DFileLoad const& load, DName const& dir, DName const& current) {
    char const* text = &dir;
    bool const hasDrive = dir.Size() >= 2 && text[1] == ':';
    if (dir.isEmpty() || (hasDrive && IsSeparator(text[2])) ||
        (IsSeparator(text[0]) && IsSeparator(text[1])))
        return dir; // already full, a network path, or the empty name that prunes all others
    if (IsSeparator(text[0])) {
        DName drive;
        DName(current).RemDrive(drive);
        return drive + dir;
    }
    if (load.ChangeDir(dir)) {
        DName const reached = load.GetDir();
        load.ChangeDir(current);
        if (!reached.isEmpty())
            return reached;
    }
    if (hasDrive)
        return dir; // a drive that cannot be entered keeps its own name
    DName joined(dir);
    joined.AddHome(current, false);
    return joined;
}

// Fills in what the caller left empty, prunes the directories and collapses the patterns.
void Normalise(DirectoryListingSpec& work, DName const& currentDir) {
    if (work.directories.count == 0) {
        DName root(currentDir); // the root of the current drive, such as C:\ .
        if (root.Size() > 3)
            root.DelRight(root.Size() - 3);
        work.directories.InsertRight(root);
    }
    if (work.namePatterns.count == 0)
        work.namePatterns.InsertRight(DName("*.*"));
    PruneOverlapping(work.directories);
    for (DName const* pattern = work.namePatterns.head; pattern; pattern = pattern->link) {
        if (*pattern == "*.*") {
            work.namePatterns.Destroy();
            work.namePatterns.InsertRight(DName("*.*"));
            break;
        }
    }
}

struct ByName {
    bool operator()(DName const* a, DName const* b) const { return *a < *b; }
};

// The starting directories, each once, empty names left out. False when out of memory.
bool BuildQueue(Container<DName> const& dirs, Container<DName>& queue) {
    std::set<DName const*, ByName> queued;
    for (DName const* dir = dirs.head; dir; dir = dir->link) {
        if (dir->isEmpty() || queued.count(dir))
            continue;
        if (!queue.InsertRight(*dir))
            return false;
        DName* added = queue(queue.count - 1);
        queued.insert(added);
    }
    return true;
}

} // namespace

bool DFileLoad::LoadAllDirListings(DirectoryListingSpec const& criteria, bool recursive) {
    totalMatches = 0;
    totalSearched = 0;
    totalMatchesSize = 0;
    totalSearchedSize = 0;
    totalSearchDirs = 1; // the start of the search counts as one directory
    DWORD const startTicks = GetTickCount();

    DirectoryListingSpec work(criteria);
    DName const current = GetDir();
    for (DName* dir = work.directories.head; dir; dir = dir->link)
        *dir = Absolute(*this, *dir, current);
    Normalise(work, current);
    Container<DName> queue;
    if (!BuildQueue(work.directories, queue))
        return false;
    MakeSearchTerms(work);

    SearchFeedback feedback(*this);
    searching = true;
    feedback.Setup();
    if (analysis)
        ClearAnalysis();

    bool result = true;
    DWORD unlisted = 0;
    bool specHeld = false; // whether an opened directory has put `work` into `spec`
    while (queue.count != 0) {
        feedback.Directory(*queue.head);
        bool const opened = OpenCursor(work, *queue.head, 0, specHeld);
        specHeld = specHeld || isOpen();
        if (opened || StepPastUnlisted(unlisted)) {
            SearchStep const outcome =
                abortRequested ? SearchStep::Stopped
                               : SearchDirectory(work, recursive, queue, feedback, unlisted);
            if (outcome != SearchStep::Done) {
                feedback.Message(outcome == SearchStep::Stopped ? "Stopped processing folders."
                                                                : "Insufficient memory.");
                result = false;
                queue.Destroy();
            }
        }
        totalSearchMilliseconds = GetTickCount() - startTicks;
        queue.DelLeft();
    }

    feedback.Close();
    searchTerms.Destroy();
    abortRequested = false;
    searching = false;
    feedback.Finish(result);
    if (result && unlisted != 0)
        feedback.Message(&((DName("Entries not listed: ") + std::uint64_t(unlisted)) += "."));
    return result;
}

DFileLoad::SearchStep DFileLoad::SearchDirectory(DirectoryListingSpec const& work, bool recursive,
                                                 Container<DName>& queue, SearchFeedback& feedback,
                                                 DWORD& unlisted) {
    do {
        feedback.Entry();
        ++totalSearched;
        totalSearchedSize += foundFile.GetFileSize64();
        feedback.Progress();
        if (IsFileSpec(work, foundFile)) {
            if (!countOnly && !files.InsertRight(foundFile))
                return SearchStep::OutOfMemory;
            if (analysis)
                AddToAnalysis(foundFile);
            ++totalMatches;
            totalMatchesSize += foundFile.GetFileSize64();
        }
        feedback.Rows();
        if (foundFile.isDir() && !foundFile.isDots()) {
            ++totalSearchDirs; // whether or not it passed, and also when not recursive
            if (recursive && !queue.InsertRight(foundFile.GetFullPath()))
                return SearchStep::OutOfMemory;
        }
        if (!NextDirListing() && !StepPastUnlisted(unlisted))
            return SearchStep::Done; // the end of a directory: no look at abortRequested
    } while (!abortRequested);
    return SearchStep::Stopped;
}
