// The size and date tests that tessik-find checks on the true values. The listing's own size
// test looks at the low 32 bits of a size, and its date tests see every date before 1985 as one
// date, as described for them. So the listing gets only the part of a test that cannot lose a
// true match (it may let more through), and after the search tessik-find keeps the records
// whose 64-bit size and exact date pass. A date written without a time stands for its whole day.
#ifndef TESSIK_EXAMPLES_FIND_CHECKS_H
#define TESSIK_EXAMPLES_FIND_CHECKS_H

#include "find_options.h"

#include <tessik/tessik.h>

// Sets the size and date tests of `spec` that the listing can check without losing a match.
void SetLibraryChecks(FindOptions const& options, DirectoryListingSpec& spec);

// The tests of `options` made ready to check many records.
class TrueChecks {
public:
    explicit TrueChecks(FindOptions const& options);
    bool Pass(DFile const& file) const;

private:
    // A date test as a span of UTC times, [from, to), in FILETIME ticks.
    struct Span {
        char test = 0;
        std::uint64_t from = 0;
        std::uint64_t to = 0;
    };
    static Span MakeSpan(DateTest const& date);
    static bool Pass(Span const& span, FILETIME const& date);

    SizeTest size;
    Span written;
    Span created;
    Span accessed;
};

// Removes from `load` every record that fails the true checks.
void KeepTrueMatches(FindOptions const& options, DFileLoad& load);

#endif
