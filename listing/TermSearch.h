// Finding a byte string in a block of a file.
#ifndef TESSIK_LISTING_TERMSEARCH_H
#define TESSIK_LISTING_TERMSEARCH_H

#include <cstddef>

// One term, ready to be looked for: the candidates are the places of its rarest byte (found by
// memchr when that byte is rare, by comparing sixteen places at once with its next rarest byte
// otherwise), its next rarest byte turns most of them down, and a full compare confirms the rest.
// Blocks and terms are compared as given, so a search that ignores case folds both first
// (FoldCase).
class TermSearch {
public:
    TermSearch(char const* term, std::size_t size);

    // Whether the term lies wholly inside data[0, length). An empty term is found in any
    // block that is not empty.
    bool In(char const* data, std::size_t length) const;

private:
    bool Fits(char const* start) const; // whether the term begins at `start`, its anchor known
    bool LeapToAnchors(char const* data, std::size_t starts) const;
    bool ComparePairs(char const* data, std::size_t starts) const;

    char const* term;
    std::size_t size;
    std::size_t anchor; // position of the rarest byte in the term
    std::size_t check;  // position of the next rarest; the anchor's own in a term of one byte
    bool rareAnchor;    // whether memchr finds few false candidates for the anchor
};

// ASCII lower case of `size` bytes, whatever the locale.
void FoldCase(char const* from, char* to, std::size_t size);

#endif
