#include "support/Records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

struct ContentCase {
    std::string content;
    std::vector<std::string> terms;
    BYTE mode = 1;
    bool invert = false;
    DWORD readBlockSize = 0;
};

// The block-by-block search written out plainly: each block read, then every term looked for.
bool Reference(ContentCase const& c) {
    auto const same = [&c](char a, char b) {
        auto const fold = [&c](char x) { return c.mode & 8 && x >= 'A' && x <= 'Z' ? x + 32 : x; };
        return fold(a) == fold(b);
    };
    std::size_t longest = 0;
    for (auto const& term : c.terms)
        longest = std::max(longest, term.size());
    std::size_t const block = std::min<std::size_t>(
        std::max<std::size_t>(c.readBlockSize ? c.readBlockSize : 12800, longest), 65534);
    std::vector<bool> found(c.terms.size(), false);
    std::size_t const length = c.content.size();
    std::size_t position = 0, behind = 0, lastRead = 0;
    for (bool end = length == 0; !end;) {
        if (lastRead != 0 && longest < behind && longest < block)
            position = behind - longest;
        lastRead = std::min(block, length - position);
        behind = position += lastRead;
        end = lastRead < block || position >= length;
        char const *data = c.content.data() + (behind - lastRead), *dataEnd = data + lastRead;
        for (std::size_t t = 0; t < c.terms.size(); ++t)
            found[t] =
                found[t] || (lastRead != 0 && std::search(data, dataEnd, c.terms[t].begin(),
                                                          c.terms[t].end(), same) != dataEnd);
        // Any term for the whole text (1) or any word (2), otherwise every word.
        if (std::count(found.begin(), found.end(), true) >= (c.mode & 3 ? 1 : long(found.size())))
            return !c.invert;
    }
    return c.invert;
}

class ContentSearch : public ::testing::Test {
protected:
    // Runs the filter's content test on a file that holds `c.content`.
    bool Search(ContentCase const& c, char const* name = "file") {
        tree.MakeFile("file", c.content);
        load.searchTerms.Destroy();
        for (auto const& term : c.terms)
            load.searchTerms.InsertRight(Raw(term));
        DirectoryListingSpec spec("*.*");
        spec.containingMode = c.mode;
        spec.invertContaining = c.invert;
        spec.readBlockSize = c.readBlockSize;
        return load.IsFileSpec(spec, Record(tree.WinPath(name).c_str()));
    }

    TempTree tree;
    DFileLoad load;
};

} // namespace

// Blocks, modes, case and empty files are covered by the random cases below; these are the
// terms too long for them.
TEST_F(ContentSearch, LongTermsAbortsAndMissingFiles) {
    std::string const q300k(300000, 'q'), q20k(20000, 'q');
    // A term that can never lie whole in a block of 65534 bytes, one the block grows to, and
    // one that fills the block: the blocks then follow each other without overlap.
    for (ContentCase const& c :
         {ContentCase{q300k, {std::string(70000, 'q')}},
          ContentCase{std::string(65535, 'q'), {std::string(65535, 'q')}},
          ContentCase{q300k, {q20k}}, ContentCase{std::string(19999, 'q') + "x" + q300k, {q20k}}}) {
        EXPECT_EQ(Search(c), Reference(c));
        EXPECT_EQ(Search(c), c.terms[0].size() <= 65534) << c.terms[0].size();
    }

    ContentCase c{"", {"x"}, 1, true};
    load.abortRequested = true;
    EXPECT_TRUE(Search(c)); // an empty file gives the inversion, also after an abort
    c.content = "no term in here";
    EXPECT_FALSE(Search(c)); // stopped: false even when inverted
    load.abortRequested = false;
    EXPECT_FALSE(Search(c, "missing"));
    c.mode = 0; // terms but no mode: passes without opening the file
    EXPECT_TRUE(Search(c, "missing"));
}

TEST_F(ContentSearch, AgreesWithThePlainBlockByBlockSearch) {
    std::mt19937 random(20261123);
    auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    // Both ends of both letter ranges and their neighbours, which no case folding may touch.
    std::string const alphabet("azAZ@[`{\0 \xff\x80", 12);
    auto text = [&](int maxLength, int letters) {
        std::string s(static_cast<std::size_t>(pick(maxLength + 1)), ' ');
        for (char& ch : s)
            ch = alphabet[static_cast<std::size_t>(pick(letters))];
        return s;
    };
    int found = 0;
    for (int round = 0; round < 1500; ++round) {
        ContentCase c;
        int const letters = round % 2 ? 4 : 12; // half the rounds only letters, for more hits
        c.content = text(120, letters);
        c.terms.resize(static_cast<std::size_t>(1 + pick(3)));
        for (auto& term : c.terms)
            term = text(4, letters);
        BYTE const modes[] = {1, 2, 4, 8, 9, 10, 12};
        c.mode = modes[pick(7)];
        c.invert = pick(4) == 0;
        c.readBlockSize = static_cast<DWORD>(pick(3) == 0 ? 0 : 1 + pick(24));
        bool const expected = Reference(c);
        ASSERT_EQ(Search(c), expected) << "round " << round;
        found += expected;
    }
    EXPECT_GT(found, 300);
    EXPECT_LT(found, 1200);
}
