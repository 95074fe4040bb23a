// The two forms of a path that tessik-find shows: the library's (Z:\usr\include) and the POSIX
// one (/usr/include). The bytes \ : * ? " < > | of a POSIX name stand in the library's form as
// the character U+F000 + byte in UTF-8 (EF 80 xx or EF 81 xx), as the platform shows them.
#ifndef TESSIK_EXAMPLES_FIND_PATHS_H
#define TESSIK_EXAMPLES_FIND_PATHS_H

#include <string>

// "Z:\a\b", "/a/b" and "Z:/a/b" give "/a/b"; a relative "a\b" gives "a/b".
std::string PosixPath(std::string const& path);

// A POSIX name, pattern or path in the library's form: '/' as '\', and each byte a Windows
// name cannot hold as its stand-in; with `wildcards` true, '*' and '?' stay wildcards.
std::string LibraryName(std::string const& posix, bool wildcards);

// An absolute POSIX path as the library writes it: "/a/b" gives "Z:\a\b", "/" gives "Z:\".
std::string LibraryPath(std::string const& posixPath);

#endif
