// tessik-find: searches directory trees with tessik and lists what it finds.
//
// A run reads the options, searches, orders the listing and prints it. Further steps on the
// finished listing (storing it, comparing it with a stored one, writing a report) fit in
// between the ordering and the printing, each in a file of its own.
#include "find_interrupt.h"
#include "find_options.h"
#include "find_output.h"
#include "find_progress.h"
#include "find_search.h"

#include <tessik/tessik.h>

#include <cstdio>
#include <unistd.h>

namespace {

enum class Outcome { Done, Stopped, OutOfMemory };

Outcome Search(DFileLoad& load, DirectoryListingSpec const& spec, FindOptions const& options,
               bool drawProgress) {
    CatchInterrupt();
    bool finished = false;
    {
        ProgressView const view(load, drawProgress, spec.directories.count, options.recursive);
        finished = load.LoadAllDirListings(spec, options.recursive);
    }
    bool const stopped = InterruptRequested();
    ReleaseInterrupt();
    if (finished)
        return Outcome::Done;
    return stopped ? Outcome::Stopped : Outcome::OutOfMemory;
}

void Order(DFileLoad& load, SortOrder const& sort) {
    if (sort.directoriesFirst)
        load.Sort();
    else
        load.SortAlpha(sort.column, sort.descending);
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
    std::string missing;
    if (!AddDirectories(options, load, spec, missing)) {
        std::fprintf(stderr, "tessik-find: no such directory: %s\n", missing.c_str());
        return 1;
    }
    SetTests(options, spec);

    bool const drawProgress = !options.quiet && isatty(STDERR_FILENO);
    Outcome const outcome = Search(load, spec, options, drawProgress);
    Order(load, options.sort);

    if (options.fields.empty())
        PrintAligned(load, stdout);
    else
        PrintFields(load, options.fields, stdout);
    std::fflush(stdout);
    if (options.stats || (!options.quiet && isatty(STDOUT_FILENO)))
        PrintTallies(load, stderr);

    if (outcome == Outcome::Stopped) {
        std::fputs("tessik-find: search stopped by Ctrl-C; listed is what it found until then\n",
                   stderr);
        return 130;
    }
    if (outcome == Outcome::OutOfMemory) {
        std::fputs("tessik-find: out of memory; the listing is incomplete\n", stderr);
        return 1;
    }
    return 0;
}
