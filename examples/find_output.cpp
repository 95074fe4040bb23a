#include "find_output.h"

#include "find_paths.h"

#include <cinttypes>

namespace {

std::string IsoDate(FILETIME const& date) {
    FILETIME local = {};
    SYSTEMTIME t = {};
    if (!FileTimeToLocalFileTime(&date, &local) || !FileTimeToSystemTime(&local, &t))
        return "-";
    char text[64];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", t.wYear, t.wMonth, t.wDay,
                  t.wHour, t.wMinute, t.wSecond);
    return text;
}

std::string DateText(DFile const& file, FILETIME const& date, OutputForm const& form) {
    return form.recordDates ? &file.FormatNumericalDate(date) : IsoDate(date);
}

std::string PathText(DFile const& file, OutputForm const& form) {
    std::string const path = &file.GetFullPath();
    return form.posixPaths ? PosixPath(path) : path;
}

} // namespace

std::string ColumnText(DFile const& file, unsigned column, OutputForm const& form) {
    switch (column) {
    case ColumnName: {
        std::string const name = &file.GetFileName();
        return form.posixPaths ? PosixPath(name) : name;
    }
    case ColumnDrive: {
        std::string const path = &file.GetFullPath();
        return path.size() >= 2 && path[1] == ':' ? path.substr(0, 2) : std::string();
    }
    case ColumnSize:
        return std::to_string(file.GetFileSize64());
    case ColumnAttributes:
        return &file.FormatAttributes(false, -1);
    case ColumnCreated:
        return DateText(file, file.dateCreated, form);
    case ColumnAccessed:
        return DateText(file, file.dateLastAccessed, form);
    case ColumnWritten:
        return DateText(file, file.dateWritten, form);
    default:
        return PathText(file, form);
    }
}

void PrintAligned(DFileLoad const& load, OutputForm const& form, std::FILE* out) {
    if (form.print0) {
        for (DFile const* file = load.files.head; file; file = file->next) {
            std::string const path = PathText(*file, form);
            std::fwrite(path.c_str(), 1, path.size() + 1, out);
        }
        return;
    }
    std::uint64_t largest = 0;
    for (DFile const* file = load.files.head; file; file = file->next)
        if (file->GetFileSize64() > largest)
            largest = file->GetFileSize64();
    int const sizeWidth = static_cast<int>(std::to_string(largest).size());
    int const dateWidth = form.recordDates ? 22 : 19; // "12/31/2024 12:59:59 PM"
    for (DFile const* file = load.files.head; file; file = file->next)
        std::fprintf(out, "%s  %*" PRIu64 "  %-*s  %s\n", &file->FormatAttributes(false, -1),
                     sizeWidth, file->GetFileSize64(), dateWidth,
                     DateText(*file, file->dateWritten, form).c_str(),
                     PathText(*file, form).c_str());
}

void PrintFields(DFileLoad const& load, std::vector<unsigned> const& columns,
                 OutputForm const& form, std::FILE* out) {
    for (DFile const* file = load.files.head; file; file = file->next) {
        std::string line;
        for (std::size_t i = 0; i < columns.size(); ++i)
            line += (i == 0 ? "" : "\t") + ColumnText(*file, columns[i], form);
        line += form.print0 ? '\0' : '\n';
        std::fwrite(line.data(), 1, line.size(), out);
    }
}

std::string Counted(std::uint64_t count, char const* one, char const* many) {
    DName digits;
    digits.FromLong64(count, 1);
    return std::string(&digits) + " " + (count == 1 ? one : many);
}

void PrintTallies(DFileLoad const& load, unsigned directoriesSearched, std::FILE* out) {
    std::uint64_t bytes = 0;
    for (DFile const* file = load.files.head; file; file = file->next)
        bytes += file->GetFileSize64();
    std::fprintf(out, "%s searched in %s: %s, %s, %s\n",
                 Counted(load.GetTotalSearched(), "entry", "entries").c_str(),
                 Counted(directoriesSearched, "directory", "directories").c_str(),
                 Counted(load.Size(), "match", "matches").c_str(),
                 Counted(bytes, "byte", "bytes").c_str(),
                 Counted(load.GetTotalSearchMilliseconds(), "ms", "ms").c_str());
}
