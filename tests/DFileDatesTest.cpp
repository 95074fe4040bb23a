#include "support/Backend.h"
#include "support/Records.h"

#include <cstring>

namespace {

std::string Texts(DFile const& file, FILETIME const& date) {
    return std::string(&file.FormatDate(date)) + "|" + &file.FormatNumericalDate(date);
}

bool Same(SYSTEMTIME const& a, SYSTEMTIME const& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

FILETIME const zero = {0, 0};

} // namespace

TEST(DFileDates, FallbackOutsideTheValidYearsAndComparisonsToTheSecond) {
    TempTree utcZone;
    DFile file;
    std::string const shown = " 0, 1985  12:00:00 AM|0/00/1985 12:00:00 AM";
    FILETIME const in2100 = Utc(2100, 6, 1);
    for (FILETIME const& date : {zero, Utc(1970, 1, 1), in2100, FILETIME{~0u, ~0u}, FILETIME{1, 0}})
        EXPECT_EQ(Texts(file, date), shown);

    EXPECT_TRUE(file.GetLocalDate(in2100).wYear == 2100 && !file.isValidDate(in2100));
    // The last a conversion fails.
    for (FILETIME const& date : {zero, Utc(1984, 12, 31, 23, 59, 59), FILETIME{0, 0x80000000}})
        EXPECT_TRUE(Same(file.GetLocalDate(date), St(1985, 0, 0)) && !file.isValidDate(date));
    EXPECT_TRUE(file.isValidDate(Utc(1985, 1, 1)));
    EXPECT_TRUE(file.CompDates(file.GetUTCDate(St(2004, 13, 1)), zero)); // no such month

    // CompDate: the local fields to the second, the fallback with month 0. CompDateCreated and
    // the others are the oracle of SortingTest's date columns.
    FILETIME const in1980 = Utc(1980, 5, 5), in1985 = Utc(1985, 1, 1);
    EXPECT_EQ(std::vector<int>({file.CompDate(zero, in1980), file.CompDate(zero, in1985),
                                file.CompDate(in1985, zero)}),
              std::vector<int>({0, -1, 1}));
    FILETIME const early = Utc(2004, 3, 9, 13, 5, 7, 1), late = Utc(2004, 3, 9, 13, 5, 7, 999);
    EXPECT_TRUE(file.CompDate(early, late) == 0 && !file.CompDates(early, late));
    EXPECT_TRUE(file.CompDates(zero, zero) && !file.isEmpty(FILETIME{0, 1}));
    EXPECT_EQ(file.CompDate(early, Utc(2004, 2, 29, 23, 59, 59)), 1);
}

// Local times on the twelve-hour clock are shown in DFileTextTest.
TEST(DFileDates, LocalDatesGoThroughTheZone) {
    ONLY_ON_POSIX_BACKEND("local time follows TZ");
    TempTree zone;
    zone.UseZone("IST-5:30");
    DFile file;
    SYSTEMTIME local = St(2004, 3, 9, 13, 5, 7, 123);
    local.wDayOfWeek = 2; // a Tuesday
    file.SetLocalDateCreated(local);
    EXPECT_TRUE(file.CompDates(file.GetDateCreated(), Utc(2004, 3, 9, 7, 35, 7, 123)));
    EXPECT_TRUE(Same(file.GetLocalDateCreated(), local));

    // The valid years are local ones: 1985 begins at 18:30 UTC the day before.
    EXPECT_TRUE(file.isValidDate(St(1985, 1, 1)) && file.isValidDate(Utc(1984, 12, 31, 18, 30)) &&
                file.isValidDate(St(2080, 12, 31, 23, 59, 59)));
    EXPECT_FALSE(file.isValidDate(Utc(1984, 12, 31, 18, 29, 59)) ||
                 file.isValidDate(St(2081, 1, 1)) || file.isValidDate(St(2004, 2, 30)));
}
