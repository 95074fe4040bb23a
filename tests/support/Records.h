// Small values that many tests build: texts of names, dates, records and search criteria; with
// them the test framework and the standard strings and vectors.
#ifndef TESSIK_TESTS_RECORDS_H
#define TESSIK_TESTS_RECORDS_H

#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

// The bytes of a name, zero bytes included.
inline std::string Shown(DName const& name) {
    return std::string(&name, name.Size());
}

inline DName Raw(std::string const& bytes) {
    DName name;
    name.Namen(bytes.data(), static_cast<unsigned int>(bytes.size()));
    return name;
}

inline SYSTEMTIME St(int y, int mo, int d, int h = 0, int mi = 0, int s = 0, int ms = 0) {
    return SYSTEMTIME{WORD(y), WORD(mo), 0, WORD(d), WORD(h), WORD(mi), WORD(s), WORD(ms)};
}

inline std::uint64_t Ticks(FILETIME const& time) {
    return static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

inline FILETIME Ft(std::uint64_t ticks) {
    return FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

// A date given by its UTC fields.
inline FILETIME Utc(int y, int mo, int d, int h = 0, int mi = 0, int s = 0, int ms = 0) {
    SYSTEMTIME const fields = St(y, mo, d, h, mi, s, ms);
    FILETIME time = {};
    SystemTimeToFileTime(&fields, &time);
    return time;
}

// A time in seconds since 1970 (UTC) and 100 ns ticks beyond it.
inline FILETIME At(std::int64_t seconds, std::int64_t extraTicks = 0) {
    return Ft(static_cast<std::uint64_t>((seconds + 11644473600LL) * 10000000LL + extraTicks));
}

inline DFile Record(char const* path, DWORD attributes = 0x20, std::uint64_t size = 0) {
    DFile file(DName(path), attributes, 0, nullptr, nullptr, nullptr);
    file.SetFileSize(static_cast<DWORD>(size), static_cast<DWORD>(size >> 32));
    return file;
}

inline DirectoryListingSpec In(TempTree const& tree, std::string const& dir,
                               char const* pattern = "*.*") {
    return DirectoryListingSpec(DName(pattern), DName(tree.WinPath(dir).c_str()));
}

#endif
