// tessik-find: searches directory trees with tessik and lists what it finds.
//
// A run reads the options, searches, keeps what passes its own checks, orders the listing and
// prints it. Further steps on the finished listing (storing it, comparing it with a stored one,
// writing a report) fit in between the ordering and the printing, each in a file of its own.
#include "find_checks.h"
#include "find_interrupt.h"
#include "find_options.h"
#include "find_order.h"
#include "find_output.h"
#include "find_progress.h"
#include "find_search.h"
#include "find_unreadable.h"

#include <tessik/tessik.h>

#include <cstdio>
#include <unistd.h>

namespace {

enum class Outcome { Done, Stopped, OutOfMemory };

struct SearchRun {
    Outcome outcome = Outcome::Done;
    unsigned directoriesSearched = 0;
};

SearchRun Search(DFileLoad& load, DirectoryListingSpec const& spec, FindOptions const& options,
                 UnreadableWatch& watch) {
    ViewSettings settings;
    settings.draw = !options.quiet && isatty(STDERR_FILENO);
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
    std::string const what =
        watch.Files() == 0         ? Counted(watch.Directories(), "directory", "directories")
        : watch.Directories() == 0 ? Counted(watch.Files(), "file", "files")
                                   : Counted(watch.Directories(), "directory", "directories") +
                                         " and " + Counted(watch.Files(), "file", "files");
    std::fprintf(stderr, "tessik-find: %s could not be read\n", what.c_str());
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

    DFileLoad load;
    DirectoryListingSpec spec;
    bool trouble = !AddDirectories(options, spec);
    if (spec.directories.count == 0)
        return 1; // nothing left to search (an empty list would mean the whole drive)
    SetTests(options, spec);

    UnreadableWatch watch(spec, options.posixPaths);
    SearchRun const run = Search(load, spec, options, watch);
    KeepTrueMatches(options, load);
    Order(load, options.sort);

    // The listing comes at the end, in one go: no line buffering on a terminal.
    std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16);
    OutputForm form;
    form.posixPaths = options.posixPaths;
    form.recordDates = options.recordDates;
    form.print0 = options.print0;
    if (options.fields.empty())
        PrintAligned(load, form, stdout);
    else
        PrintFields(load, options.fields, form, stdout);
    std::fflush(stdout);
    if (options.quiet)
        TellUnreadable(watch);
    if (options.stats || (!options.quiet && isatty(STDOUT_FILENO)))
        PrintTallies(load, run.directoriesSearched, stderr);
    trouble = trouble || watch.Directories() + watch.Files() > 0;

    if (run.outcome == Outcome::Stopped) {
        std::fputs("tessik-find: search stopped by Ctrl-C; listed is what it found until then\n",
                   stderr);
        return 130;
    }
    if (run.outcome == Outcome::OutOfMemory) {
        std::fputs("tessik-find: out of memory; the listing is incomplete\n", stderr);
        return 1;
    }
    return trouble ? 1 : 0;
}
