// Whole records and whole files, for comparing what went into a stream with what came back.
#ifndef TESSIK_TESTS_RECORDFIELDS_H
#define TESSIK_TESTS_RECORDFIELDS_H

#include "support/TempTree.h"

#include <tessik/DFile.h>
#include <tessik/DFileLoad.h>

#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

// Every field of a record but its link, the key included.
inline auto Fields(DFile const& f) {
    return std::make_tuple(std::string(&f.fullPath, f.fullPath.Size()), f.sizeLow, f.sizeHigh,
                           f.attributes, f.dateCreated.dwLowDateTime, f.dateCreated.dwHighDateTime,
                           f.dateLastAccessed.dwLowDateTime, f.dateLastAccessed.dwHighDateTime,
                           f.dateWritten.dwLowDateTime, f.dateWritten.dwHighDateTime,
                           f.dataEncrypted, std::string(&f.hashKey, f.hashKey.Size()));
}

inline std::vector<decltype(Fields(DFile()))> AllFields(DFileLoad const& load) {
    std::vector<decltype(Fields(DFile()))> all;
    for (DFile const* f = load.files.head; f; f = f->next)
        all.push_back(Fields(*f));
    return all;
}

inline std::string FileBytes(std::string const& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A file of its own for each stream: rewriting one file frees its blocks each time, which some
// file systems make slow (a discard waited for at every truncation).
inline std::string FreshPath(TempTree const& tree) {
    static unsigned made = 0;
    return tree.Path("stream" + std::to_string(++made));
}

// Calls test(path, cut) with the file at `path` holding the first `cut` bytes, for every cut
// shorter than `bytes`. The file grows by appending, so no file is made or truncated per cut.
template <class Test> void ForEachCut(TempTree const& tree, std::string const& bytes, Test test) {
    std::string const path = FreshPath(tree);
    std::ofstream out(path, std::ios::binary);
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
        out.flush();
        test(path, cut);
        out.put(bytes[cut]);
    }
}

inline std::string PutFileBytes(TempTree const& tree, std::string const& bytes) {
    std::string const path = FreshPath(tree);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

#endif
