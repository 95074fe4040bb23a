#include "listing/TermSearch.h"

#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

// The position of the term's least common byte, skipping `except`; of equals, the last.
std::size_t RarestByte(char const* term, std::size_t size, std::size_t except) {
    std::size_t best = except == 0 && size > 1 ? 1 : 0;
    for (std::size_t i = best + 1; i < size; ++i)
        if (i != except && Commonness(static_cast<unsigned char>(term[i])) <=
                               Commonness(static_cast<unsigned char>(term[best])))
            best = i;
    return best;
}

} // namespace

TermSearch::TermSearch(char const* termBytes, std::size_t termSize)
    : term(termBytes), size(termSize), anchor(RarestByte(termBytes, termSize, termSize)),
      check(RarestByte(termBytes, termSize, anchor)),
      rareAnchor(termSize > 0 && Commonness(static_cast<unsigned char>(termBytes[anchor])) <= 4) {}

bool TermSearch::In(char const* data, std::size_t length) const {
    if (size > length)
        return false;
    if (size == 0)
        return length > 0;
    std::size_t const starts = length - size + 1; // a match begins at 0 to length - size
    return rareAnchor ? LeapToAnchors(data, starts) : ComparePairs(data, starts);
}

bool TermSearch::Fits(char const* start) const {
    return start[check] == term[check] && std::memcmp(start, term, size) == 0;
}

// A rare anchor: memchr leaps from one to the next.
bool TermSearch::LeapToAnchors(char const* data, std::size_t starts) const {
    char const* scan = data + anchor;
    char const* const end = scan + starts;
    while (scan < end) {
        void const* hit = std::memchr(scan, static_cast<unsigned char>(term[anchor]),
                                      static_cast<std::size_t>(end - scan));
        if (!hit)
            return false;
        if (Fits(static_cast<char const*>(hit) - anchor))
            return true;
        scan = static_cast<char const*>(hit) + 1;
    }
    return false;
}

// A common anchor would stop memchr every few bytes: the anchor and check bytes are compared at
// sixteen starts at once where the processor can.
bool TermSearch::ComparePairs(char const* data, std::size_t starts) const {
    std::size_t p = 0;
#if defined(__SSE2__)
    __m128i const anchorByte = _mm_set1_epi8(term[anchor]);
    __m128i const checkByte = _mm_set1_epi8(term[check]);
    for (; p + 16 <= starts; p += 16) {
        __m128i const a = _mm_loadu_si128(reinterpret_cast<__m128i const*>(data + p + anchor));
        __m128i const c = _mm_loadu_si128(reinterpret_cast<__m128i const*>(data + p + check));
        unsigned fits = static_cast<unsigned>(_mm_movemask_epi8(
            _mm_and_si128(_mm_cmpeq_epi8(a, anchorByte), _mm_cmpeq_epi8(c, checkByte))));
        for (; fits != 0; fits &= fits - 1)
            if (std::memcmp(data + p + static_cast<unsigned>(__builtin_ctz(fits)), term, size) == 0)
                return true;
    }
#endif
    for (; p < starts; ++p)
        if (data[p + anchor] == term[anchor] && Fits(data + p))
            return true;
    return false;
}

void FoldCase(char const* from, char* to, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        char const c = from[i];
        to[i] = (c >= 'A' && c <= 'Z') ? static_cast<char>(c + ('a' - 'A')) : c;
    }
}
