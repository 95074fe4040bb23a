#include "support/Records.h"

#include <tessik/headless_time.h>
#include <tessik/platform.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <thread>
#include <vector>

namespace {

constexpr std::uint64_t hour = 36000000000ULL;
constexpr std::uint64_t lastValid = 0x7FFFFFFFFFFFFFFFULL;

std::uint64_t TicksOf(SYSTEMTIME const& fields) {
    FILETIME time = {};
    EXPECT_TRUE(SystemTimeToFileTime(&fields, &time));
    return Ticks(time);
}

// A local conversion that must succeed.
std::uint64_t Convert(decltype(&FileTimeToLocalFileTime) convert, std::uint64_t ticks) {
    FILETIME const in = Ft(ticks);
    FILETIME out = {};
    EXPECT_TRUE(convert(&in, &out)) << ticks;
    return Ticks(out);
}

DWORD MonotonicNow() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<DWORD>(now.tv_sec * 1000 + now.tv_nsec / 1000000);
}

} // namespace

TEST(PlatformTime, FieldsMatchTheCCalendarRoundTripAndStayInIt) {
    // gmtime covers the whole range with a 64-bit time_t; every field must agree with it.
    std::vector<std::uint64_t> samples = {116444736000000000ULL};
    for (std::uint64_t ticks = 1; ticks < lastValid / 5000 * 4999; ticks += lastValid / 4999 + 7)
        samples.push_back(ticks);
    samples.push_back(lastValid);
    SYSTEMTIME t = {};
    for (std::uint64_t ticks : samples) {
        FILETIME const in = Ft(ticks);
        ASSERT_TRUE(FileTimeToSystemTime(&in, &t)) << ticks;
        std::time_t const seconds =
            static_cast<std::time_t>(static_cast<std::int64_t>(ticks / 10000000) - 11644473600LL);
        std::tm c = {};
        ASSERT_TRUE(gmtime_r(&seconds, &c));
        SYSTEMTIME const expected = {WORD(c.tm_year + 1900), WORD(c.tm_mon + 1),
                                     WORD(c.tm_wday),        WORD(c.tm_mday),
                                     WORD(c.tm_hour),        WORD(c.tm_min),
                                     WORD(c.tm_sec),         WORD(ticks / 10000 % 1000)};
        ASSERT_EQ(std::memcmp(&t, &expected, sizeof t), 0) << ticks;
        t.wDayOfWeek = 9;       // ignored on the way back
        if (t.wYear <= 30827) { // the last year that SystemTimeToFileTime takes
            ASSERT_EQ(TicksOf(t), ticks - ticks % 10000) << ticks;
        }
    }
    EXPECT_EQ(t.wYear, 30828); // the last value, 30828-09-14 02:48:05.477
    FILETIME const topBit = Ft(lastValid + 1);
    EXPECT_FALSE(FileTimeToSystemTime(&topBit, &t));

    // Fields inside the calendar convert, those outside fail.
    FILETIME out = {};
    for (SYSTEMTIME const& fields :
         {St(1601, 1, 1), St(2000, 2, 29), St(30827, 12, 31, 23, 59, 59, 999)})
        EXPECT_TRUE(SystemTimeToFileTime(&fields, &out)) << fields.wYear;
    EXPECT_EQ(Ticks(out), 0x7FFF35F4F06C58F0ULL);
    for (SYSTEMTIME const& fields :
         {St(1600, 12, 31), St(30828, 1, 1), St(1900, 2, 29), St(2100, 2, 29), St(2024, 4, 31),
          St(2024, 0, 1), St(2024, 13, 1), St(2024, 1, 0), St(2024, 1, 1, 24),
          St(2024, 1, 1, 0, 60), St(2024, 1, 1, 0, 0, 60), St(2024, 1, 1, 0, 0, 0, 1000)})
        EXPECT_FALSE(SystemTimeToFileTime(&fields, &out)) << fields.wYear << "-" << fields.wMonth;
}

TEST(PlatformTime, LocalTimeFollowsTheZoneAtThatInstant) {
    TempTree zone;
    std::uint64_t const winter = TicksOf(St(2021, 1, 15, 12, 0, 0, 250));
    std::uint64_t const before1970 = TicksOf(St(1960, 1, 15, 12));
    // Offsets of half an hour: see DFileDatesTest and DFileTextTest.
    zone.UseZone("EST5EDT,M3.2.0,M11.1.0");
    EXPECT_EQ(Convert(FileTimeToLocalFileTime, before1970), before1970 - 5 * hour);
    EXPECT_EQ(Convert(LocalFileTimeToFileTime, before1970 - 5 * hour), before1970);
    // Each hour of a year, across both clock changes, and back: only the repeated hour in
    // November (the second 01:00 to 02:00) goes back to its first instant.
    std::uint64_t const repeated = TicksOf(St(2021, 11, 7, 6));
    for (std::uint64_t utc = winter; utc < winter + 366 * 24 * hour; utc += hour + 10000000) {
        std::uint64_t const local = Convert(FileTimeToLocalFileTime, utc);
        EXPECT_EQ(local,
                  utc - (utc >= TicksOf(St(2021, 3, 14, 7)) && utc < repeated ? 4 : 5) * hour);
        bool const second = utc >= repeated && utc < repeated + hour;
        EXPECT_EQ(Convert(LocalFileTimeToFileTime, local), second ? utc - hour : utc) << utc;
    }
    // 02:30 does not exist on 14 March: read with the offset before, it is 03:30 EDT.
    EXPECT_EQ(Convert(LocalFileTimeToFileTime, TicksOf(St(2021, 3, 14, 2, 30))),
              TicksOf(St(2021, 3, 14, 7, 30)));

    // Results outside the FILETIME range fail and leave the output alone.
    FILETIME out = Ft(99);
    FILETIME const first = Ft(hour), last = Ft(~0ULL);
    EXPECT_FALSE(FileTimeToLocalFileTime(&first, &out) || LocalFileTimeToFileTime(&last, &out));
    setenv("TZ", "IST-5:30", 1); // no tzset: the conversions notice the change themselves
    EXPECT_FALSE(LocalFileTimeToFileTime(&first, &out) || FileTimeToLocalFileTime(&last, &out));
    EXPECT_EQ(Ticks(out), 99u);
}

TEST(PlatformRuntime, TickCountMemicmpAndRand) {
    SetTickSource([]() -> DWORD { return 0xFFFFFFFF; });
    EXPECT_EQ(GetTickCount(), 0xFFFFFFFFu);
    SetTickSource(nullptr); // the monotonic clock again
    DWORD const before = MonotonicNow();
    DWORD const tick = GetTickCount();
    EXPECT_LE(DWORD(tick - before), DWORD(MonotonicNow() - before));

    // ASCII letters fold down, so '_' comes before them; nothing else folds.
    EXPECT_EQ(_memicmp("HeLLo, World@[Zz", "hello, wORLD@[zZ", 16), 0);
    EXPECT_EQ(_memicmp("abcX", "ABCY", 3), 0);
    EXPECT_TRUE(_memicmp("a", "B", 1) < 0 && _memicmp("Zb", "zA", 2) > 0 &&
                _memicmp("_", "A", 1) < 0);
    EXPECT_TRUE(_memicmp("\x80", "\x01", 1) > 0 && _memicmp("\xC4", "\xE4", 1) != 0);
    EXPECT_NE(_memicmp(nullptr, "a", 1), 0);

    // The Windows generator, each thread from 1.
    std::vector<int> const expected = {41, 18467, 6334, 26500, 19169};
    std::vector<int> seeded, fresh;
    msvcrt_srand(1);
    while (seeded.size() < 5)
        seeded.push_back(msvcrt_rand());
    msvcrt_srand(0);
    EXPECT_EQ(msvcrt_rand(), 38);
    std::thread([&fresh] {
        while (fresh.size() < 5)
            fresh.push_back(msvcrt_rand());
    }).join();
    EXPECT_TRUE(seeded == expected && fresh == expected);
}
