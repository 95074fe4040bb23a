// tessik-find: searches directory trees with tessik and lists what it finds.
//
// A run takes its criteria from the options (or from a saved listing), searches, keeps what
// passes its own checks, and then lists the records, or lists what changed since the saved
// listing, and saves the listing or its report when asked.
#include "find_changes.h"
#include "find_checks.h"
#include "find_options.h"
#include "find_order.h"
#include "find_output.h"
#include "find_paths.h"
#include "find_progress.h"
#include "find_search.h"
#include "find_store.h"
#include "find_system.h"
#include "find_unreadable.h"

#include <tessik/tessik.h>

#include <cstdio>

namespace {

enum class Outcome { Done, Stopped, OutOfMemory };

struct SearchRun {
    Outcome outcome = Outcome::Done;
    unsigned directoriesSearched = 0;
};

SearchRun Search(DFileLoad& load, DirectoryListingSpec const& spec, FindOptions const& options,
                 UnreadableWatch& watch, bool draw) {
    ViewSettings settings;
    settings.draw = draw;
    settings.tellEach = !options.quiet;
    settings.posixPaths = options.posixPaths;
    settings.startDirectories = spec.directories.count;
    settings.recursive = options.recursive;
    SearchRun run;
    CatchInterrupt();
    bool finished = false;
    {
        ProgressView const view(load, watch, settings);
        finished = load.LoadAllDirListings(spec, options.recursive);
        run.directoriesSearched = view.DirectoriesSearched();
    }
    bool const stopped = InterruptRequested();
    ReleaseInterrupt();
    if (!finished)
        run.outcome = stopped ? Outcome::Stopped : Outcome::OutOfMemory;
    return run;
}

// With --quiet the unreadable entries are told by their number.
void TellUnreadable(UnreadableWatch const& watch) {
    if (watch.Directories() + watch.Files() == 0)
        return;
    std::string const directories = Counted(watch.Directories(), "directory", "directories");
    std::string const files = Counted(watch.Files(), "file", "files");
    std::string const what = watch.Files() == 0         ? directories
                             : watch.Directories() == 0 ? files
                                                        : directories + " and " + files;
    std::fprintf(stderr, "tessik-find: %s could not be read\n", what.c_str());
}

int BadFile(std::string const& file, std::string const& error) {
    std::fprintf(stderr, "tessik-find: '%s': %s\n", file.c_str(), error.c_str());
    return 2;
}

OutputForm FormOf(FindOptions const& options) {
    OutputForm form;
    form.posixPaths = options.posixPaths;
    form.recordDates = options.recordDates;
    form.print0 = options.print0;
    return form;
}

void PrintListing(DFileLoad const& load, FindOptions const& options) {
    if (options.fields.empty())
        PrintAligned(load, FormOf(options), stdout);
    else
        PrintFields(load, options.fields, FormOf(options), stdout);
}

// The checks of the saved arguments take the place of the (absent) ones of the command line.
bool TakeKeptArguments(std::vector<std::string> const& kept, FindOptions& options) {
    std::vector<char*> argv = {const_cast<char*>("tessik-find")};
    for (std::string const& argument : kept)
        argv.push_back(const_cast<char*>(argument.c_str()));
    FindOptions saved;
    std::string error;
    if (!ParseFindOptions(static_cast<int>(argv.size()), argv.data(), saved, error) ||
        !saved.directories.empty())
        return false;
    options.recursive = saved.recursive;
    options.size = saved.size;
    options.written = saved.written;
    options.created = saved.created;
    options.accessed = saved.accessed;
    options.keptArguments = kept;
    return true;
}

// --find-in: each path's stored record, without loading the listing. 1 when one is missing.
int FindIn(FindOptions const& options) {
    SavedFile file;
    std::string error;
    if (!file.Open(options.findInFile, error))
        return BadFile(options.findInFile, error);
    DFileLoad found;
    int status = 0;
    for (std::string const& written : options.directories) {
        DFile record;
        if (file.Find(DName(FullLibraryPath(written).c_str()), record)) {
            found.InsertRight(record);
        } else {
            std::fprintf(stderr, "tessik-find: %s: not in '%s'\n", written.c_str(),
                         options.findInFile.c_str());
            status = 1;
        }
    }
    PrintListing(found, options);
    return status;
}

} // namespace

int main(int argc, char** argv) {
    FindOptions options;
    std::string error;
    if (!ParseFindOptions(argc, argv, options, error)) {
        std::fprintf(stderr, "tessik-find: %s\nTry 'tessik-find --help' for the options.\n",
                     error.c_str());
        return 2;
    }
    if (options.help) {
        PrintFindHelp(stdout);
        return 0;
    }
    for (std::string* file : {&options.saveFile, &options.reportFile}) {
        if (file->empty())
            continue;
        *file = FullPath(*file);
        if (!CanSave(*file, error))
            return BadFile(*file, "cannot be saved: " + error);
    }
    // The listing comes at the end, in one go: no line buffering on a terminal.
    std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16);
    if (!options.findInFile.empty())
        return FindIn(options);
    bool const draw = !options.quiet && IsTerminal(stderr);
    bool const tallies = options.stats || (!options.quiet && IsTerminal(stdout));

    DFileLoad load;  // what the search finds, or the listing of --load
    DFileLoad saved; // the listing of --changes
    DirectoryListingSpec spec;
    bool trouble = false;
    std::string const& source = options.loadFile.empty() ? options.changesFile : options.loadFile;
    if (!source.empty()) {
        SavedFile file;
        std::vector<std::string> kept;
        PhaseLine const phase(draw, "loading " + source);
        if (!file.Open(source, error) ||
            !file.ReadListing(options.loadFile.empty() ? saved : load, kept, error))
            return BadFile(source, error);
        if (!TakeKeptArguments(kept, options))
            return BadFile(source, "holds arguments that are not understood");
        spec = file.Spec();
    } else {
        trouble = !AddDirectories(options, spec);
        if (spec.directories.count == 0)
            return 1; // nothing left to search (an empty list would mean the whole drive)
        SetTests(options, spec);
    }

    SearchRun run;
    UnreadableWatch watch(spec, options.posixPaths);
    if (options.loadFile.empty()) {
        run = Search(load, spec, options, watch, draw);
        KeepTrueMatches(options, load);
        trouble = trouble || watch.Directories() + watch.Files() > 0;
    }
    Order(load, options.sort);

    bool const listing =
        options.changesFile.empty() && options.saveFile.empty() && options.reportFile.empty();
    if (listing)
        PrintListing(load, options);
    std::fflush(stdout);
    if (options.quiet)
        TellUnreadable(watch);
    if (tallies && options.loadFile.empty())
        PrintTallies(load, run.directoriesSearched, stderr);

    // An incomplete search is neither compared nor saved: what it missed would show as removed.
    if (run.outcome != Outcome::Done) {
        bool const stopped = run.outcome == Outcome::Stopped;
        std::fprintf(
            stderr, "tessik-find: %s; %s\n", stopped ? "search stopped by Ctrl-C" : "out of memory",
            listing ? "listed is what it found until then" : "nothing was compared or saved");
        return stopped ? 130 : options.changesFile.empty() ? 1 : 2;
    }
    std::vector<Change> changes;
    if (!options.changesFile.empty()) {
        DFileLoad added;
        DFileLoad removed;
        {
            PhaseLine const phase(draw, "comparing with " + options.changesFile);
            changes = FindChanges(saved, load, added, removed);
        }
        PrintChanges(changes, FormOf(options), stdout);
        std::fflush(stdout);
    }
    // Saved only after a whole search: an incomplete listing would show as removals later.
    if (!options.saveFile.empty() &&
        !SaveListing(options.saveFile, spec, load, options.keptArguments, error))
        return BadFile(options.saveFile, "cannot be saved: " + error);
    if (!options.reportFile.empty() && !SaveReport(options.reportFile, load, error))
        return BadFile(options.reportFile, "cannot be saved: " + error);
    if (!options.changesFile.empty()) // as diff: 1 when something changed, 2 for trouble
        return trouble ? 2 : changes.empty() ? 0 : 1;
    return trouble ? 1 : 0;
}
