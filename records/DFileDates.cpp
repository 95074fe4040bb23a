// The record's dates: accessors, exact comparisons, and their reading in local time.
//
// The results of the platform conversions are never examined: every output starts zeroed, so a
// conversion that fails leaves a zero date, which reads as the fallback date.
#include <tessik/DFile.h>

#include <cstdio>

namespace {

SYSTEMTIME FallbackDate() {
    SYSTEMTIME date = {};
    date.wYear = 1985;
    return date;
}

// Hour on the 12-hour clock and its marker.
struct ClockHour {
    int hour;
    char const* marker;
};

ClockHour TwelveHour(WORD hour) {
    int twelve = hour > 12 ? hour - 12 : hour;
    return ClockHour{twelve == 0 ? 12 : twelve, hour >= 12 ? "PM" : "AM"};
}

int Order(WORD first, WORD second) {
    return first < second ? -1 : first > second ? 1 : 0;
}

} // namespace

FILETIME const& DFile::GetDateCreated() const {
    return dateCreated;
}
FILETIME const& DFile::GetDateLastAccessed() const {
    return dateLastAccessed;
}
FILETIME const& DFile::GetDateWritten() const {
    return dateWritten;
}
void DFile::SetDateCreated(FILETIME const& date) {
    dateCreated = date;
}
void DFile::SetDateLastAccessed(FILETIME const& date) {
    dateLastAccessed = date;
}
void DFile::SetDateWritten(FILETIME const& date) {
    dateWritten = date;
}

bool DFile::isEmpty(FILETIME const& date) const {
    return date.dwLowDateTime == 0 && date.dwHighDateTime == 0;
}

bool DFile::CompDates(FILETIME const& first, FILETIME const& second) const {
    return first.dwHighDateTime == second.dwHighDateTime &&
           first.dwLowDateTime == second.dwLowDateTime;
}

bool DFile::CompDates(DFile const& other) const {
    return CompDates(dateWritten, other.dateWritten) && CompDates(dateCreated, other.dateCreated);
}

SYSTEMTIME DFile::GetLocalDate(FILETIME const& date) const {
    FILETIME local = {};
    SYSTEMTIME fields = {};
    FileTimeToLocalFileTime(&date, &local);
    FileTimeToSystemTime(&local, &fields);
    if (isEmpty(date) || fields.wYear < 1985)
        return FallbackDate();
    return fields;
}

FILETIME DFile::GetUTCDate(SYSTEMTIME const& local) const {
    FILETIME localTime = {};
    FILETIME utc = {};
    SystemTimeToFileTime(&local, &localTime);
    LocalFileTimeToFileTime(&localTime, &utc);
    return utc;
}

SYSTEMTIME DFile::GetLocalDateCreated() const {
    return GetLocalDate(dateCreated);
}
SYSTEMTIME DFile::GetLocalDateLastAccessed() const {
    return GetLocalDate(dateLastAccessed);
}
SYSTEMTIME DFile::GetLocalDateWritten() const {
    return GetLocalDate(dateWritten);
}
void DFile::SetLocalDateCreated(SYSTEMTIME const& local) {
    dateCreated = GetUTCDate(local);
}
void DFile::SetLocalDateLastAccessed(SYSTEMTIME const& local) {
    dateLastAccessed = GetUTCDate(local);
}
void DFile::SetLocalDateWritten(SYSTEMTIME const& local) {
    dateWritten = GetUTCDate(local);
}

int DFile::CompDate(FILETIME const& first, FILETIME const& second) const {
    SYSTEMTIME const a = GetLocalDate(first);
    SYSTEMTIME const b = GetLocalDate(second);
    WORD const left[6] = {a.wYear, a.wMonth, a.wDay, a.wHour, a.wMinute, a.wSecond};
    WORD const right[6] = {b.wYear, b.wMonth, b.wDay, b.wHour, b.wMinute, b.wSecond};
    for (int i = 0; i < 6; ++i)
        if (int const order = Order(left[i], right[i]))
            return order;
    return 0;
}

int DFile::CompDateCreated(FILETIME const& date) const {
    return CompDate(dateCreated, date);
}
int DFile::CompDateLastAccessed(FILETIME const& date) const {
    return CompDate(dateLastAccessed, date);
}
int DFile::CompDateWritten(FILETIME const& date) const {
    return CompDate(dateWritten, date);
}

bool DFile::isValidDate(SYSTEMTIME const& local) const {
    SYSTEMTIME const date = GetLocalDate(GetUTCDate(local));
    return date.wYear >= 1985 && date.wYear <= 2080 && date.wMonth >= 1 && date.wMonth <= 12 &&
           date.wDay >= 1 && date.wDay <= 31 && date.wHour <= 23 && date.wMinute <= 59 &&
           date.wSecond <= 59;
}

bool DFile::isValidDate(FILETIME const& date) const {
    return !isEmpty(date) && isValidDate(GetLocalDate(date));
}

DName DFile::FormatDate(FILETIME const& date) const {
    static char const* const months[13] = {"",     "Jan", "Feb",  "Mar", "April", "May", "June",
                                           "July", "Aug", "Sept", "Oct", "Nov",   "Dec"};
    SYSTEMTIME const fields = isValidDate(date) ? GetLocalDate(date) : FallbackDate();
    ClockHour const clock = TwelveHour(fields.wHour);
    char text[64];
    std::snprintf(text, sizeof text, "%s %d, %d  %d:%02d:%02d %s",
                  months[fields.wMonth <= 12 ? fields.wMonth : 0], fields.wDay, fields.wYear,
                  clock.hour, fields.wMinute, fields.wSecond, clock.marker);
    return DName(text);
}

DName DFile::FormatNumericalDate(FILETIME const& date) const {
    SYSTEMTIME const fields = isValidDate(date) ? GetLocalDate(date) : FallbackDate();
    ClockHour const clock = TwelveHour(fields.wHour);
    char text[64];
    std::snprintf(text, sizeof text, "%d/%02d/%04d %d:%02d:%02d %s", fields.wMonth, fields.wDay,
                  fields.wYear, clock.hour, fields.wMinute, fields.wSecond, clock.marker);
    return DName(text);
}
