// tessik_floor: the system calls a search cannot do without, and nothing else, to show how close
// tessik_walk comes to them.
//
//   tessik_floor list TREE        tessik_walk list's lines from a plain walk
//   tessik_floor grep TEXT TREE   tessik_walk grep's paths from a plain walk and read
//
// Breadth first like the search, and like its cursor it enters each directory (chdir) before it
// reads it; one getdents64 buffer a directory, one statx an entry (with the birth time, which a
// record's creation date needs). The content walk opens the regular files it found, relative to
// their open directory, and reads each in 64 KiB blocks; it builds no record and keeps no
// listing.
#include "lines.h"

#include <cstring>
#include <deque>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

char entries[1 << 15];
char block[1 << 16];

bool IsDots(char const* name) {
    return name[0] == '.' && (!name[1] || (name[1] == '.' && !name[2]));
}

// Whether the regular file `name` in `dir` holds `text`, looked for across block edges.
bool Holds(int dir, char const* name, std::string const& text) {
    int const fd = openat(dir, name, O_RDONLY | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
    if (fd < 0)
        return false;
    std::size_t kept = 0; // the end of the last block, where a match may start
    bool found = false;
    ssize_t got;
    while (!found && (got = read(fd, block + kept, sizeof block - kept)) > 0) {
        std::size_t const filled = kept + static_cast<std::size_t>(got);
        found = memmem(block, filled, text.data(), text.size()) != nullptr;
        kept = text.size() > 1 && filled >= text.size() - 1 ? text.size() - 1 : 0;
        std::memmove(block, block + filled - kept, kept);
    }
    close(fd);
    return found;
}

// Searches the tree at `root`; with `text`, prints the files that hold it, otherwise a line for
// each entry.
void Walk(std::string const& root, std::string const* text) {
    std::deque<std::string> queue{root};
    for (; !queue.empty(); queue.pop_front()) {
        std::string const& path = queue.front();
        if (chdir(path.c_str()) != 0)
            continue;
        int const dir = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (dir < 0)
            continue;
        long got;
        while ((got = getdents64(dir, entries, sizeof entries)) > 0) {
            for (long at = 0; at < got;) {
                auto const* entry = reinterpret_cast<dirent64 const*>(entries + at);
                at += entry->d_reclen;
                struct statx info;
                if (IsDots(entry->d_name) || statx(dir, entry->d_name, AT_SYMLINK_NOFOLLOW,
                                                   STATX_BASIC_STATS | STATX_BTIME, &info) != 0)
                    continue;
                std::string const full = path + "/" + entry->d_name;
                if (S_ISDIR(info.stx_mode))
                    queue.push_back(full);
                if (!text) {
                    std::uint64_t const ticks =
                        static_cast<std::uint64_t>(info.stx_mtime.tv_sec) * 10000000 +
                        info.stx_mtime.tv_nsec / 100;
                    PrintLine(info.stx_size, ticks, full.data(), full.size());
                } else if (S_ISREG(info.stx_mode) && Holds(dir, entry->d_name, *text)) {
                    std::printf("%s\n", full.c_str());
                }
            }
        }
        close(dir);
    }
}

} // namespace

int main(int argc, char** argv) {
    bool const grep = argc == 4 && std::strcmp(argv[1], "grep") == 0;
    if (!grep && !(argc == 3 && std::strcmp(argv[1], "list") == 0)) {
        std::fprintf(stderr, "usage: tessik_floor list TREE | grep TEXT TREE\n");
        return 2;
    }
    BufferOutput();
    std::string const text = grep ? argv[2] : "";
    Walk(argv[argc - 1], grep ? &text : nullptr);
    return 0;
}
