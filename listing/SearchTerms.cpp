// Turning the text to find into the terms of a content search.
#include <tessik/DFileLoad.h>

namespace {

// Puts the word at the end of the terms and empties it. A term that cannot be allocated is
// left out.
void TakeWord(Container<DName>& terms, DName& word) {
    terms.InsertRight(word);
    word.Destroy();
}

// Splits at blanks outside quotes; a quoted run is one word, blanks included, even when it is
// empty. Blanks in a row count as one. Gives back the last word, not yet taken.
DName SplitWords(DName const& text, Container<DName>& terms) {
    DName word;
    bool quoted = false;
    for (unsigned int i = 0; i < text.Size(); ++i) {
        char const c = text[i];
        if (c == '"') {
            if (quoted || !word.isEmpty())
                TakeWord(terms, word);
            quoted = !quoted;
        } else if (c == ' ' && !quoted) {
            if (!word.isEmpty())
                TakeWord(terms, word);
        } else {
            word.InsertRight(c, 1);
        }
    }
    return word;
}

} // namespace

void DFileLoad::MakeSearchTerms(DirectoryListingSpec& work) {
    searchTerms.Destroy();
    if (work.containingMode == 0)
        return;
    if (!(work.containingMode & 0x06)) {
        searchTerms.InsertRight(work.textToFind);
        return;
    }
    DName last = SplitWords(work.textToFind, searchTerms);
    if (!last.isEmpty() && searchTerms.count != 0) {
        TakeWord(searchTerms, last); // also closes a quote left open
    } else if (!work.textToFind) {
        work.containingMode = 0;
        searchTerms.Destroy();
    } else if (searchTerms.count < 2) {
        // Fewer than two words: one term, the word that was found, or the whole text when
        // the text held no word at all (blanks only).
        work.containingMode = static_cast<BYTE>((work.containingMode & ~0x06) | 0x01);
        if (!last.isEmpty())
            TakeWord(searchTerms, last);
        else if (searchTerms.count == 0)
            searchTerms.InsertRight(work.textToFind);
    }
}
