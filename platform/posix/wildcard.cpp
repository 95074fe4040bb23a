// PathMatchSpecA: `*` and `?` without regard to ASCII case.
//
// Greedy matching with one backtrack point: on a mismatch the last `*` takes one more byte and
// the match goes on from there. Earlier stars never need to be revisited, so the cost is at most
// name length times pattern length, whatever the pattern.
#include <tessik/platform.h>

namespace {

unsigned char Fold(char c) {
    unsigned char byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

// What is left of the pattern when the name has run out: only stars, or (the Windows rule for
// extensions) a ".*" among stars, which also matches a name with no dot there.
bool AcceptsEmptyRest(char const* pattern) {
    while (*pattern == '*')
        ++pattern;
    if (pattern[0] == '.' && pattern[1] == '*') {
        ++pattern;
        while (*pattern == '*')
            ++pattern;
    }
    return *pattern == 0;
}

} // namespace

BOOL PathMatchSpecA(char const* name, char const* pattern) {
    if (!name || !pattern)
        return FALSE;
    char const* star = nullptr;   // pattern just behind the last `*`
    char const* resume = nullptr; // name position that `*` is to take next
    while (*name) {
        if (*pattern == '*') {
            star = ++pattern;
            resume = name;
        } else if (*pattern && (*pattern == '?' || Fold(*pattern) == Fold(*name))) {
            ++pattern;
            ++name;
        } else if (star) {
            pattern = star;
            name = ++resume;
        } else {
            return FALSE;
        }
    }
    return AcceptsEmptyRest(pattern) ? TRUE : FALSE;
}
