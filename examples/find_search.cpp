#include "find_search.h"

namespace {

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// "Z:" and the path with every run of separators as one `\`, none at the end but the root's.
DName OnDriveZ(std::string const& path) {
    std::string full = "Z:";
    for (char c : path) {
        if (!IsSeparator(c))
            full += c;
        else if (full.back() != '\\')
            full += '\\';
    }
    if (full.size() > 3 && full.back() == '\\')
        full.pop_back();
    return DName(full.c_str());
}

FILETIME UtcDate(DateTest const& date) {
    return DFile().GetUTCDate(date.local);
}

} // namespace

DName FullDirectory(DFileLoad& load, std::string const& written) {
    if (!written.empty() && IsSeparator(written[0]))
        return OnDriveZ(written);
    bool const onZ = written.size() >= 3 && (written[0] == 'Z' || written[0] == 'z') &&
                     written[1] == ':' && IsSeparator(written[2]);
    if (onZ)
        return OnDriveZ(written.substr(2));
    // Relative: the current directory knows where it leads.
    DName const name(written.c_str());
    DName const before = load.GetDir();
    if (!load.ChangeDir(name))
        return DName();
    DName const full = load.GetDir();
    load.ChangeDir(before);
    return full;
}

bool AddDirectories(FindOptions const& options, DFileLoad& load, DirectoryListingSpec& spec,
                    std::string& missing) {
    if (options.directories.empty())
        return spec.directories.InsertRight(load.GetDir());
    for (std::string const& written : options.directories) {
        DName const full = FullDirectory(load, written);
        if (full.isEmpty() || !load.isDir(full)) {
            missing = written;
            return false;
        }
        spec.directories.InsertRight(full);
    }
    return true;
}

void SetTests(FindOptions const& options, DirectoryListingSpec& spec) {
    for (std::string const& name : options.names)
        spec.namePatterns.InsertRight(DName(name.c_str()));
    spec.sizeTest = options.size.test;
    spec.size = options.size.size;
    spec.sizeUpper = options.size.upper;
    spec.attributeTest = options.attributeTest;
    spec.attributes = options.attributes;
    spec.writtenTest = options.written.test;
    spec.dateWritten = UtcDate(options.written);
    spec.createdTest = options.created.test;
    spec.dateCreated = UtcDate(options.created);
    spec.accessedTest = options.accessed.test;
    spec.dateLastAccessed = UtcDate(options.accessed);
    spec.textToFind = DName(options.text.c_str());
    spec.containingMode = options.containingMode;
    spec.invertContaining = options.invertText;
}
