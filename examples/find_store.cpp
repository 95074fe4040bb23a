#include "find_store.h"

#include "find_system.h"

#include <cstring>
#include <functional>

namespace {

// Stands before the kept arguments, which follow as one name, each argument ended by '\n'.
char const keptMark[4] = {'t', 'f', 'k', '1'};

// Makes `file` by `write` through a temporary file beside it, made durable, then renamed.
bool WriteWhole(std::string const& file, std::function<bool(FileOper&)> const& write,
                std::string& error) {
    std::string temporary;
    if (!NewFileBeside(file, temporary, error))
        return false;
    bool written = false;
    {
        FileOper stream(temporary.c_str(), true);
        written = stream.isOpen() && write(stream) && stream.Flush();
    }
    written = written && MakeDurable(temporary);
    if (!written || !PutInPlace(temporary, file, error)) {
        if (!written)
            error = "could not write the whole file";
        _unlink(temporary.c_str());
        return false;
    }
    return true;
}

} // namespace

bool SaveListing(std::string const& file, DirectoryListingSpec& spec, DFileLoad& load,
                 std::vector<std::string> const& keptArguments, std::string& error) {
    std::string kept;
    for (std::string const& argument : keptArguments)
        kept += argument + "\n";
    return WriteWhole(
        file,
        [&](FileOper& stream) {
            return spec.Write(stream) && load.Write(stream) &&
                   stream.Write(keptMark, sizeof keptMark) && DName(kept.c_str()).Write(stream);
        },
        error);
}

bool SaveReport(std::string const& file, DFileLoad& load, std::string& error) {
    return WriteWhole(
        file, [&](FileOper& stream) { return load.TextWrite(stream); }, error);
}

bool SavedFile::Open(std::string const& file, std::string& error) {
    if (!IsFile(file, error))
        return false;
    stream.reset(new FileOper(file.c_str(), false));
    if (!stream->isOpen()) {
        error = "cannot be opened";
        return false;
    }
    if (stream->GetLength() == 0) {
        error = "is empty";
        return false;
    }
    if (!spec.Read(*stream)) {
        error = "is not a listing saved by tessik-find";
        return false;
    }
    listingStart = stream->GetPos();
    return true;
}

bool SavedFile::ReadListing(DFileLoad& load, std::vector<std::string>& keptArguments,
                            std::string& error) {
    char mark[sizeof keptMark] = {};
    DName kept;
    if (!stream || !stream->SetPos(listingStart) || !load.Read(*stream) ||
        !stream->Read(mark, sizeof mark, false) || std::memcmp(mark, keptMark, sizeof mark) != 0 ||
        !kept.Read(*stream) || stream->GetPos() != stream->GetLength()) {
        error = "is cut short or damaged";
        return false;
    }
    keptArguments.clear();
    std::string const text(&kept, kept.Size());
    for (std::size_t start = 0, end; (end = text.find('\n', start)) != std::string::npos;
         start = end + 1)
        keptArguments.push_back(text.substr(start, end - start));
    return true;
}

bool SavedFile::Find(DName const& path, DFile& record) {
    DFileLoad any; // ReadFind uses no field of its object
    return stream && stream->SetPos(listingStart) && any.ReadFind(*stream, path, record);
}
