// Saved listings: one file that holds the search criteria (their stream form), then the listing
// (its stream form), then the arguments that tessik-find checks itself (-n, --size, the dates),
// so that a later run can search again with nothing but the file. The records inside are
// scrambled as the stream form scrambles them: that keeps paths from a casual look, not from
// anyone who reads the file with tessik.
#ifndef TESSIK_EXAMPLES_FIND_STORE_H
#define TESSIK_EXAMPLES_FIND_STORE_H

#include <tessik/tessik.h>

#include <memory>
#include <string>
#include <vector>

// Writes the file beside its final name and renames it into place only when it is complete,
// so an existing file is replaced only by a whole new one. False with the reason in `error`.
bool SaveListing(std::string const& file, DirectoryListingSpec& spec, DFileLoad& load,
                 std::vector<std::string> const& keptArguments, std::string& error);

// The same for the listing's text report.
bool SaveReport(std::string const& file, DFileLoad& load, std::string& error);

// A saved file opened for reading, its criteria read; the stream then stands at the listing.
class SavedFile {
public:
    // False with what is wrong in `error` ("No such file or directory", "is empty", ...).
    bool Open(std::string const& file, std::string& error);
    DirectoryListingSpec const& Spec() const { return spec; }
    // Reads the listing and the kept arguments; the file must end behind them.
    bool ReadListing(DFileLoad& load, std::vector<std::string>& keptArguments, std::string& error);
    // The stored record of `path` (the library's form), read from the listing's start.
    bool Find(DName const& path, DFile& record);

private:
    std::unique_ptr<FileOper> stream;
    DirectoryListingSpec spec;
    std::uint64_t listingStart = 0;
};

#endif
