#include "find_checks.h"

namespace {

std::uint64_t const ticksPerSecond = 10000000;
std::uint64_t const ticksPerDay = 86400 * ticksPerSecond;

std::uint64_t Ticks(FILETIME const& date) {
    return (static_cast<std::uint64_t>(date.dwHighDateTime) << 32) | date.dwLowDateTime;
}

FILETIME FromTicks(std::uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

// The largest size that `test` lets pass.
std::uint64_t LargestPassing(SizeTest const& test) {
    switch (test.test) {
    case 1:
        return test.size;
    case 2:
        return test.size == 0 ? 0 : test.size - 1;
    case 6:
        return test.upper;
    default:
        return UINT64_MAX;
    }
}

// The listing's date test for `date`, when it can have one: from 1985 on the listing compares
// dates exactly to the second. For a whole day it tests from the day's first second on ("=" as
// "the same or later"), and tessik-find then cuts off what comes after the day.
void SetLibraryDate(DateTest const& date, char& test, FILETIME& value) {
    if (date.test == 0 || date.local.wYear < 1985)
        return;
    test = date.wholeDay && date.test == 1 ? 5 : date.test;
    value = DFile().GetUTCDate(date.local);
}

} // namespace

void SetLibraryChecks(FindOptions const& options, DirectoryListingSpec& spec) {
    SizeTest const& size = options.size;
    if (size.test != 0 && LargestPassing(size) <= 0xFFFFFFFFu) {
        spec.sizeTest = size.test;
        spec.size = static_cast<DWORD>(size.size);
        spec.sizeUpper = static_cast<DWORD>(size.upper);
    }
    SetLibraryDate(options.written, spec.writtenTest, spec.dateWritten);
    SetLibraryDate(options.created, spec.createdTest, spec.dateCreated);
    SetLibraryDate(options.accessed, spec.accessedTest, spec.dateLastAccessed);
}

TrueChecks::TrueChecks(FindOptions const& options)
    : size(options.size), written(MakeSpan(options.written)), created(MakeSpan(options.created)),
      accessed(MakeSpan(options.accessed)) {}

TrueChecks::Span TrueChecks::MakeSpan(DateTest const& date) {
    Span span;
    span.test = date.test;
    if (date.test == 0)
        return span;
    DFile const any;
    span.from = Ticks(any.GetUTCDate(date.local));
    if (!date.wholeDay) {
        span.to = span.from + ticksPerSecond;
        return span;
    }
    // The next day's local midnight: the calendar day moved on by one, then made UTC (a day
    // of a change to or from summer time is not 24 hours long).
    FILETIME day = {};
    SystemTimeToFileTime(&date.local, &day);
    FILETIME const nextDay = FromTicks(Ticks(day) + ticksPerDay);
    SYSTEMTIME next = {};
    FileTimeToSystemTime(&nextDay, &next);
    span.to = Ticks(any.GetUTCDate(next));
    return span;
}

bool TrueChecks::Pass(Span const& span, FILETIME const& date) {
    if (span.test == 0)
        return true;
    std::uint64_t const ticks = Ticks(date);
    char const bit = ticks < span.from ? 2 : ticks >= span.to ? 4 : 1;
    return (span.test & bit) != 0;
}

bool TrueChecks::Pass(DFile const& file) const {
    if (size.test != 0) {
        std::uint64_t const bytes = file.GetFileSize64();
        bool const passes = size.test == 6 ? bytes >= size.size && bytes <= size.upper
                                           : (size.test & (bytes == size.size  ? 1
                                                           : bytes < size.size ? 2
                                                                               : 4)) != 0;
        if (!passes)
            return false;
    }
    return Pass(written, file.dateWritten) && Pass(created, file.dateCreated) &&
           Pass(accessed, file.dateLastAccessed);
}

void KeepTrueMatches(FindOptions const& options, DFileLoad& load) {
    TrueChecks const checks(options);
    // Positions in increasing order cost one step each, a removal included.
    for (unsigned pos = 0; pos < load.Size();) {
        if (checks.Pass(load[pos]))
            ++pos;
        else
            load.DelPos(pos);
    }
}
