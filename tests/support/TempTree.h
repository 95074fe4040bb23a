// A fresh directory tree for one test: made under $TMPDIR (or /tmp, on drive Z: under Wine),
// removed afterwards. Also fixes TZ and puts the current directory back when the test ends.
// The times and the zone are the system's own business: posix/ and win32/ hold those parts.
#ifndef TESSIK_TESTS_TEMPTREE_H
#define TESSIK_TESTS_TEMPTREE_H

#include <cstdint>
#include <string>

class TempTree {
public:
    TempTree();
    ~TempTree();
    TempTree(TempTree const&) = delete;
    TempTree& operator=(TempTree const&) = delete;

    // POSIX path of the root, and of `relative` below it.
    std::string const& Root() const { return root; }
    std::string Path(std::string const& relative) const;
    // The same as a path of drive Z: with backslashes, as the library reports it.
    std::string WinPath(std::string const& relative = "") const;

    void MakeDir(std::string const& relative) const;
    void MakeFile(std::string const& relative, std::string const& content = "") const;
    // The directory `dir` with `count` empty files "f0`ext`", "f1`ext`", ...
    void MakeFiles(std::string const& dir, int count, std::string const& ext = "") const;
    void MakeSparseFile(std::string const& relative, std::uint64_t size) const;
    // Sets the last write and access time, in seconds since 1970 (UTC) and nanoseconds.
    void SetTimes(std::string const& relative, std::int64_t seconds, long nanoseconds = 0) const;
    void SetMode(std::string const& relative, unsigned mode) const;
    // Sets TZ until the tree goes (on Windows, local time stays the system's).
    void UseZone(char const* zone) const;

private:
    void KeepZone();
    void RestoreZone() const;

    std::string root;
    std::string startDir;
    std::string oldTz;
    bool hadTz = false;
};

#endif
