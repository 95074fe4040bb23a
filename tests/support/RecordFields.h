// Whole records and whole stream files, for comparing what went into a stream with what came out.
#ifndef TESSIK_TESTS_RECORDFIELDS_H
#define TESSIK_TESTS_RECORDFIELDS_H

#include "support/Records.h"

#include <fstream>
#include <iterator>
#include <tuple>

// Every field of a record but its link, the key included; of each record of a listing.
inline auto Fields(DFile const& f) {
    return std::make_tuple(Shown(f.fullPath), f.sizeLow, f.sizeHigh, f.attributes,
                           Ticks(f.dateCreated), Ticks(f.dateLastAccessed), Ticks(f.dateWritten),
                           f.dataEncrypted, Shown(f.hashKey));
}

inline auto AllFields(DFileLoad const& load) {
    std::vector<decltype(Fields(DFile()))> all;
    for (DFile const* f = load.files.head; f; f = f->next)
        all.push_back(Fields(*f));
    return all;
}

// The four bytes of a word as streams store it, the lowest first.
inline std::string Word(DWORD value) {
    return {char(value), char(value >> 8), char(value >> 16), char(value >> 24)};
}

inline std::string FileBytes(std::string const& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Writes `object` (a record, listing or criteria) to a new stream at `path`, or reads it from one.
template <class T> bool Store(T& object, std::string const& path) {
    FileOper out(path.c_str(), true);
    return object.Write(out);
}
template <class T> bool Load(T& object, std::string const& path) {
    FileOper in(path.c_str(), false);
    return object.Read(in);
}

// A file of its own for each stream: rewriting one frees its blocks each time, which some file
// systems make slow (a discard waited for at every truncation).
inline std::string FreshPath(TempTree const& tree) {
    static unsigned made = 0;
    return tree.Path("stream" + std::to_string(++made));
}

// The text report that `object` (a record or a listing) writes into a new stream file.
template <class T> std::string Report(TempTree const& tree, T& object) {
    std::string const path = FreshPath(tree);
    FileOper out(path.c_str(), true);
    EXPECT_TRUE(object.TextWrite(out) && out.Flush());
    return FileBytes(path);
}

// A new file holding `bytes`; its path.
inline std::string PutFileBytes(TempTree const& tree, std::string const& bytes) {
    std::string const path = FreshPath(tree);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

// Calls test(path, cut) with the file at `path` holding the first `cut` bytes, for every cut
// shorter than `bytes`. The file grows by appending: no file is made or truncated per cut.
template <class Test> void ForEachCut(TempTree const& tree, std::string const& bytes, Test test) {
    std::string const path = FreshPath(tree);
    std::ofstream out(path, std::ios::binary);
    for (std::size_t cut = 0; cut < bytes.size(); out.put(bytes[cut++])) {
        out.flush();
        test(path, cut);
    }
}

#endif
