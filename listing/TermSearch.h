// Finding a byte string in a block of a file.
#ifndef TESSIK_LISTING_TERMSEARCH_H
#define TESSIK_LISTING_TERMSEARCH_H

#include <cstddef>

// One term, ready to be looked for: memchr finds the candidates for the term's rarest byte, a
// full compare confirms them. Blocks and terms are compared as given, so a search that ignores
// case folds both first (FoldCase).
class TermSearch {
public:
    TermSearch(char const* term, std::size_t size);

    // Whether the term lies wholly inside data[0, length). An empty term is found in any
    // block that is not empty.
    bool In(char const* data, std::size_t length) const;

private:
    char const* term;
    std::size_t size;
    std::size_t anchor; // position of the rarest byte in the term
};

// ASCII lower case of `size` bytes, whatever the locale.
void FoldCase(char const* from, char* to, std::size_t size);

#endif
