#include "listing/TermSearch.h"

#include <cstring>

namespace {

// How common a byte is in ordinary files, coarsely: the anchor of a term is its least common
// byte, so memchr stops at few false candidates.
int Commonness(unsigned char byte) {
    if (byte == ' ' || byte == 'e' || byte == 't' || byte == 'a' || byte == 'o')
        return 9;
    if ((byte >= 'a' && byte <= 'z') || byte == '\n' || byte == 0)
        return 7;
    if ((byte >= '0' && byte <= '9') || byte == '\r' || byte == '\t' || byte == '.' ||
        byte == ',' || byte == '_' || byte == '(' || byte == ')' || byte == ';')
        return 5;
    if (byte >= 'A' && byte <= 'Z')
        return 4;
    if (byte < 128)
        return 2;
    return 1;
}

std::size_t RarestByte(char const* term, std::size_t size) {
    std::size_t best = 0;
    for (std::size_t i = 1; i < size; ++i)
        if (Commonness(static_cast<unsigned char>(term[i])) <
            Commonness(static_cast<unsigned char>(term[best])))
            best = i;
    return best;
}

} // namespace

TermSearch::TermSearch(char const* termBytes, std::size_t termSize)
    : term(termBytes), size(termSize), anchor(RarestByte(termBytes, termSize)) {}

bool TermSearch::In(char const* data, std::size_t length) const {
    if (size > length)
        return false;
    if (size == 0)
        return length > 0;
    // A match starting at p has its anchor byte at p + anchor, for p in [0, length - size].
    char const* const anchorByte = term + anchor;
    char const* scan = data + anchor;
    char const* const scanEnd = data + (length - size) + anchor + 1;
    while (scan < scanEnd) {
        void const* hit = std::memchr(scan, static_cast<unsigned char>(*anchorByte),
                                      static_cast<std::size_t>(scanEnd - scan));
        if (!hit)
            return false;
        char const* const start = static_cast<char const*>(hit) - anchor;
        if (std::memcmp(start, term, size) == 0)
            return true;
        scan = static_cast<char const*>(hit) + 1;
    }
    return false;
}

void FoldCase(char const* from, char* to, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        char const c = from[i];
        to[i] = (c >= 'A' && c <= 'Z') ? static_cast<char>(c + ('a' - 'A')) : c;
    }
}
