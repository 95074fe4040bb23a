// FILETIME and SYSTEMTIME conversions, local time and the tick count.
//
// The calendar is proleptic Gregorian, counted in days from 0000-03-01 so that the leap day is
// the last day of a counting year; FILETIME days are never negative, so no division here has to
// round towards minus infinity. Local offsets come from the C library (tm_gmtoff).
#include <tessik/headless_time.h>
#include <tessik/platform.h>

#include <atomic>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <mutex>
#include <string>

namespace {

constexpr std::uint64_t ticksPerMillisecond = 10000;
constexpr std::uint64_t ticksPerSecond = 10000000;
constexpr std::uint64_t millisecondsPerDay = 86400000;
constexpr std::int64_t secondsPerDay = 86400;
// Days from 0000-03-01 to 1601-01-01, and seconds from 1601-01-01 to 1970-01-01.
constexpr std::uint64_t daysBefore1601 = 584694;
constexpr std::int64_t secondsBefore1970 = 11644473600LL;
constexpr std::uint64_t daysPerEra = 146097; // 400 years

std::uint64_t Ticks(FILETIME const& time) {
    return static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

FILETIME FromTicks(std::uint64_t ticks) {
    return FILETIME{static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
}

bool IsLeap(unsigned year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

unsigned DaysInMonth(unsigned year, unsigned month) {
    static unsigned char const days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeap(year) ? 29 : days[month - 1];
}

// Days since 1601-01-01 of a valid date.
std::uint64_t DaysFromCivil(unsigned year, unsigned month, unsigned day) {
    std::uint64_t const y = month <= 2 ? year - 1 : year;
    std::uint64_t const era = y / 400;
    std::uint64_t const yearOfEra = y - era * 400;
    std::uint64_t const monthFromMarch = month > 2 ? month - 3 : month + 9;
    std::uint64_t const dayOfYear = (153 * monthFromMarch + 2) / 5 + day - 1;
    std::uint64_t const dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * daysPerEra + dayOfEra - daysBefore1601;
}

void CivilFromDays(std::uint64_t days, SYSTEMTIME& out) {
    std::uint64_t const z = days + daysBefore1601;
    std::uint64_t const era = z / daysPerEra;
    std::uint64_t const dayOfEra = z - era * daysPerEra;
    std::uint64_t const yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    std::uint64_t const dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    std::uint64_t const monthFromMarch = (5 * dayOfYear + 2) / 153;
    std::uint64_t const month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    out.wYear = static_cast<WORD>(era * 400 + yearOfEra + (month <= 2 ? 1 : 0));
    out.wMonth = static_cast<WORD>(month);
    out.wDay = static_cast<WORD>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    out.wDayOfWeek = static_cast<WORD>((days + 1) % 7); // 1601-01-01 was a Monday
}

// Makes the C library read the time zone again when TZ has changed since the last look.
// localtime_r does not notice a changed TZ by itself, and tzset at every call costs a look at
// /etc/localtime when TZ is not set, for every date converted.
void FollowTimeZone() {
    static std::mutex guard;
    static std::string lastZone;
    static bool looked = false;
    static bool hadZone = false;
    std::lock_guard<std::mutex> const lock(guard);
    char const* const zone = std::getenv("TZ");
    if (looked && (zone != nullptr) == hadZone && (!zone || lastZone == zone))
        return;
    tzset();
    looked = true;
    hadZone = zone != nullptr;
    lastZone = zone ? zone : "";
}

// Offset of local time from UTC, in seconds, at `seconds` since 1970 (UTC). An instant beyond
// time_t takes the offset of the nearest one that fits; 0 when the C library cannot tell.
std::int64_t OffsetAt(std::int64_t seconds) {
    constexpr std::int64_t lowest = std::numeric_limits<std::time_t>::min();
    constexpr std::int64_t highest = std::numeric_limits<std::time_t>::max();
    std::time_t const instant = static_cast<std::time_t>(seconds < lowest    ? lowest
                                                         : seconds > highest ? highest
                                                                             : seconds);
    FollowTimeZone();
    struct tm fields = {};
    if (!localtime_r(&instant, &fields))
        return 0;
    return fields.tm_gmtoff;
}

std::int64_t SecondsSince1970(std::uint64_t ticks) {
    return static_cast<std::int64_t>(ticks / ticksPerSecond) - secondsBefore1970;
}

// ticks - offset seconds, false when that leaves the range of FILETIME.
bool Shift(std::uint64_t ticks, std::int64_t offset, std::uint64_t& out) {
    std::uint64_t const amount =
        static_cast<std::uint64_t>(offset < 0 ? -offset : offset) * ticksPerSecond;
    if (offset > 0 ? ticks < amount : ticks > std::numeric_limits<std::uint64_t>::max() - amount)
        return false;
    out = offset > 0 ? ticks - amount : ticks + amount;
    return true;
}

std::atomic<DWORD (*)()> tickSource{nullptr};

DWORD MonotonicMilliseconds() {
    struct timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::uint64_t const ms = static_cast<std::uint64_t>(now.tv_sec) * 1000 +
                             static_cast<std::uint64_t>(now.tv_nsec) / 1000000;
    return static_cast<DWORD>(ms & 0xFFFFFFFF);
}

} // namespace

BOOL FileTimeToSystemTime(FILETIME const* fileTime, SYSTEMTIME* systemTime) {
    if (!fileTime || !systemTime)
        return FALSE;
    std::uint64_t const ticks = Ticks(*fileTime);
    if (ticks >> 63)
        return FALSE;
    std::uint64_t const ms = ticks / ticksPerMillisecond;
    std::uint64_t const msOfDay = ms % millisecondsPerDay;
    CivilFromDays(ms / millisecondsPerDay, *systemTime);
    systemTime->wHour = static_cast<WORD>(msOfDay / 3600000);
    systemTime->wMinute = static_cast<WORD>(msOfDay / 60000 % 60);
    systemTime->wSecond = static_cast<WORD>(msOfDay / 1000 % 60);
    systemTime->wMilliseconds = static_cast<WORD>(msOfDay % 1000);
    return TRUE;
}

BOOL SystemTimeToFileTime(SYSTEMTIME const* systemTime, FILETIME* fileTime) {
    if (!systemTime || !fileTime)
        return FALSE;
    SYSTEMTIME const& t = *systemTime;
    if (t.wYear < 1601 || t.wYear > 30827 || t.wMonth < 1 || t.wMonth > 12 || t.wDay < 1 ||
        t.wDay > DaysInMonth(t.wYear, t.wMonth) || t.wHour > 23 || t.wMinute > 59 ||
        t.wSecond > 59 || t.wMilliseconds > 999)
        return FALSE;
    std::uint64_t const ms = DaysFromCivil(t.wYear, t.wMonth, t.wDay) * millisecondsPerDay +
                             ((t.wHour * 60u + t.wMinute) * 60u + t.wSecond) * 1000u +
                             t.wMilliseconds;
    *fileTime = FromTicks(ms * ticksPerMillisecond);
    return TRUE;
}

BOOL FileTimeToLocalFileTime(FILETIME const* utc, FILETIME* local) {
    if (!utc || !local)
        return FALSE;
    std::uint64_t const ticks = Ticks(*utc);
    std::uint64_t shifted = 0;
    if (!Shift(ticks, -OffsetAt(SecondsSince1970(ticks)), shifted))
        return FALSE;
    *local = FromTicks(shifted);
    return TRUE;
}

// The offsets a day before and a day after the local reading are the candidates: exactly one
// fits for an ordinary local time, both for one that a clock change repeats (the earlier instant
// wins) and none for one that a clock change skips (the offset before the change applies, which
// moves the reading forward by the length of the gap).
BOOL LocalFileTimeToFileTime(FILETIME const* local, FILETIME* utc) {
    if (!local || !utc)
        return FALSE;
    std::uint64_t const ticks = Ticks(*local);
    std::int64_t const reading = SecondsSince1970(ticks);
    std::int64_t const before = OffsetAt(reading - secondsPerDay);
    std::int64_t const after = OffsetAt(reading + secondsPerDay);
    std::uint64_t early = 0, late = 0;
    bool const earlyFits =
        Shift(ticks, before, early) && OffsetAt(SecondsSince1970(early)) == before;
    bool const lateFits = Shift(ticks, after, late) && OffsetAt(SecondsSince1970(late)) == after;
    std::uint64_t result = 0;
    if (earlyFits && lateFits)
        result = early < late ? early : late;
    else if (earlyFits || lateFits)
        result = earlyFits ? early : late;
    else if (!Shift(ticks, before, result))
        return FALSE;
    *utc = FromTicks(result);
    return TRUE;
}

DWORD GetTickCount() {
    DWORD (*source)() = tickSource.load();
    return source ? source() : MonotonicMilliseconds();
}

void SetTickSource(DWORD (*source)()) {
    tickSource.store(source);
}
