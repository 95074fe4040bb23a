#include "find_output.h"

#include <cinttypes>
#include <cstring>

namespace {

// The longest text FormatNumericalDate gives: "12/31/2024 12:59:59 PM".
int const dateWidth = 22;

int Digits(std::uint64_t value) {
    int digits = 1;
    for (; value >= 10; value /= 10)
        ++digits;
    return digits;
}

} // namespace

void PrintAligned(DFileLoad const& load, std::FILE* out) {
    std::uint64_t largest = 0;
    for (DFile const* file = load.files.head; file; file = file->next)
        if (file->GetFileSize64() > largest)
            largest = file->GetFileSize64();
    int const sizeWidth = Digits(largest);
    for (DFile const* file = load.files.head; file; file = file->next)
        std::fprintf(out, "%s  %*" PRIu64 "  %-*s  %s\n", &file->FormatAttributes(false, -1),
                     sizeWidth, file->GetFileSize64(), dateWidth,
                     &file->FormatNumericalDate(file->dateWritten), &file->GetFullPath());
}

void PrintFields(DFileLoad const& load, std::vector<unsigned> const& columns, std::FILE* out) {
    for (unsigned row = 0; row < load.Size(); ++row) {
        char const* separator = "";
        for (unsigned column : columns) {
            std::fprintf(out, "%s%s", separator, &load.GetColumn(row, column));
            separator = "\t";
        }
        std::fputc('\n', out);
    }
}

void PrintTallies(DFileLoad const& load, std::FILE* out) {
    DName size;
    size.FromLong64(load.GetTotalMatchesSize(), 1);
    unsigned long const directories = load.GetTotalSearchDirs();
    std::fprintf(out, "%lu entries searched in %lu %s: %lu matches, %s bytes, %lu ms\n",
                 static_cast<unsigned long>(load.GetTotalSearched()), directories,
                 directories == 1 ? "directory" : "directories",
                 static_cast<unsigned long>(load.GetTotalMatches()), &size,
                 static_cast<unsigned long>(load.GetTotalSearchMilliseconds()));
}
