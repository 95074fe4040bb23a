// The content test of the match filter: the file is read in overlapping blocks and searched
// for the terms of `searchTerms`.
#include "listing/TermSearch.h"

#include <tessik/DFileLoad.h>
#include <tessik/FileOper.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>

namespace {

DWORD const defaultBlockSize = 12800;
DWORD const largestBlockSize = 65534;

unsigned int LongestTerm(Container<DName> const& terms) {
    unsigned int longest = 0;
    for (DName const* term = terms.head; term; term = term->link)
        if (term->Size() > longest)
            longest = term->Size();
    return longest;
}

DWORD BlockSize(DirectoryListingSpec const& spec, unsigned int longest) {
    DWORD size = spec.readBlockSize ? spec.readBlockSize : defaultBlockSize;
    if (size < longest)
        size = longest;
    if (size >= largestBlockSize)
        size = largestBlockSize;
    return size;
}

// The path to open `file` by. The cursor's entry lies in the cursor's directory, which the
// cursor has made the current one, so it is opened by its name there: the same file, without
// walking its whole path twice more (the look before the open, and the open).
char const* PathToOpen(DFileLoad const& load, DFile const& file) {
    char const* path = &file.GetFullPath();
    unsigned int const home = load.workPath.Size();
    bool const inHome = &file == &load.foundFile && load.isOpen() && home != 0 &&
                        file.GetFullPath().Size() > home + 1 &&
                        std::memcmp(path, &load.workPath, home) == 0;
    if (!inHome)
        return path;
    char const last = path[home - 1];
    bool const joined = last == '\\' || last == '/';
    return joined || path[home] == '\\' ? path + home + (joined ? 0 : 1) : &file.GetFullPath();
}

// Frees the block buffer however the search ends.
struct FreeBuffer {
    void operator()(char* buffer) const { std::free(buffer); }
};

} // namespace

bool DFileLoad::ContainsTerms(DirectoryListingSpec const& criteria, DFile const& file) {
    if (file.isDir())
        return false; // a directory never opens as a stream: its record says so without a look
    FileOper stream(PathToOpen(*this, file), false);
    if (!stream.isOpen())
        return false;
    unsigned int const longest = LongestTerm(searchTerms);
    DWORD const blockSize = BlockSize(criteria, longest);
    std::unique_ptr<char, FreeBuffer> buffer(static_cast<char*>(std::malloc(blockSize + 1)));
    if (!buffer)
        return false;
    Link<bool> found;
    for (unsigned i = 0; i < searchTerms.count; ++i)
        if (!found.InsertRight(false))
            return false;

    bool result = false;
    if (!abortRequested) {
        bool const invert = criteria.invertContaining;
        result = invert; // what the end of the file gives when no block held the terms
        while (!stream.isEof()) {
            // Consecutive blocks share `longest` bytes, so a term that crosses the end of one
            // block lies whole in the next. A term that fills the block leaves no step forward
            // if the blocks overlap by its length: then they follow each other without overlap.
            std::uint64_t const behind = stream.GetTotalReadSize();
            if (stream.GetReadSize() != 0 && longest < behind && longest < blockSize)
                stream.SetPos(behind - longest);
            if (!stream.Read(buffer.get(), blockSize, true)) {
                result = false;
                break;
            }
            if (FindContaining(buffer.get(), stream.GetReadSize(), criteria, found)) {
                result = !invert;
                break;
            }
            if (abortRequested) {
                result = false;
                break;
            }
        }
    }
    if (stream.GetLength() == 0)
        result = criteria.invertContaining; // an empty file does not hold the text
    return result;
}

bool DFileLoad::FindContaining(char const* buffer, unsigned int const& length,
                               DirectoryListingSpec const& criteria, Link<bool>& found) {
    if (!buffer || length == 0 || found.count != searchTerms.count)
        return false;
    bool const oneIsEnough = criteria.containingMode & 0x03;
    bool const ignoreCase = criteria.containingMode & 0x08;

    char const* block = buffer;
    std::unique_ptr<char[]> folded;
    if (ignoreCase) {
        folded.reset(new (std::nothrow) char[length]);
        if (!folded)
            return false;
        FoldCase(buffer, folded.get(), length);
        block = folded.get();
    }

    // Where a term lies in the block does not change the outcome: one term found is enough in
    // the any-term modes, and otherwise every term must have been found in some block.
    bool setNow = false;
    bool allFound = true;
    std::string foldedTerm;
    unsigned index = 0;
    for (DName const* term = searchTerms.head; term; term = term->link, ++index) {
        bool const* flag = found(index);
        if (!oneIsEnough && flag && *flag)
            continue;
        char const* bytes = &*term;
        if (ignoreCase) {
            foldedTerm.resize(term->Size());
            FoldCase(bytes, &foldedTerm[0], term->Size());
            bytes = foldedTerm.data();
        }
        if (!TermSearch(bytes, term->Size()).In(block, length)) {
            allFound = false;
            continue;
        }
        if (oneIsEnough)
            return true;
        if (found.ReplacePos(index, true))
            setNow = true;
        else
            allFound = false;
    }
    return setNow && allFound;
}
