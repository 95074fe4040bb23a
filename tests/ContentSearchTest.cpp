#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
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

bool SameBytes(char const* a, char const* b, std::size_t n, bool ignoreCase) {
    for (std::size_t i = 0; i < n; ++i) {
        char x = a[i], y = b[i];
        if (ignoreCase && x >= 'A' && x <= 'Z')
            x = static_cast<char>(x + 32);
        if (ignoreCase && y >= 'A' && y <= 'Z')
            y = static_cast<char>(y + 32);
        if (x != y)
            return false;
    }
    return true;
}

// The block-by-block search written out plainly: every position, every term, in order.
bool Reference(ContentCase const& c) {
    std::size_t longest = 0;
    for (auto const& term : c.terms)
        longest = std::max(longest, term.size());
    std::size_t block = c.readBlockSize ? c.readBlockSize : 12800;
    block = std::max(block, longest);
    block = std::min<std::size_t>(block, 65534);
    std::vector<bool> found(c.terms.size(), false);
    std::size_t const length = c.content.size();
    std::size_t position = 0, behind = 0, lastRead = 0;
    bool end = length == 0;
    bool result = c.invert;
    while (!end) {
        if (lastRead != 0 && longest < behind && longest < block)
            position = behind - longest;
        lastRead = std::min(block, length - position);
        behind = position + lastRead;
        position = behind;
        end = lastRead < block || position >= length;
        char const* data = c.content.data() + (behind - lastRead);
        for (std::size_t p = 0; p < lastRead; ++p) {
            for (std::size_t t = 0; t < c.terms.size(); ++t) {
                std::string const& term = c.terms[t];
                if (p + term.size() > lastRead ||
                    !SameBytes(data + p, term.data(), term.size(), c.mode & 8))
                    continue;
                if (c.mode & 3)
                    return !c.invert;
                found[t] = true;
                if (std::all_of(found.begin(), found.end(), [](bool f) { return f; }))
                    return !c.invert;
            }
        }
    }
    return result;
}

class ContentSearch : public ::testing::Test {
protected:
    // Runs the filter's content test on a file that holds `c.content`.
    bool Search(ContentCase const& c) {
        tree.MakeFile("file", c.content);
        load.searchTerms.Destroy();
        for (auto const& term : c.terms) {
            DName name;
            name.Namen(term.data(), static_cast<unsigned int>(term.size()));
            load.searchTerms.InsertRight(name);
        }
        DirectoryListingSpec spec("*.*");
        spec.containingMode = c.mode;
        spec.invertContaining = c.invert;
        spec.readBlockSize = c.readBlockSize;
        return load.IsFileSpec(spec, DFile(DName(tree.WinPath("file").c_str())));
    }

    TempTree tree;
    DFileLoad load;
};

} // namespace

TEST_F(ContentSearch, TermsAtTheEdgesOfBlocks) {
    ContentCase c;
    c.content = "needle";
    c.terms = {"needle"};
    EXPECT_TRUE(Search(c)); // the term ends on the last byte
    c.readBlockSize = 10;
    c.content = "xxxxxxxxneedlexxxxxxx"; // crosses from the first block into the second
    EXPECT_TRUE(Search(c));
    c.content = "xxxxneedle"; // ends exactly on the last byte of a block
    EXPECT_TRUE(Search(c));
    c.content = std::string(1000, 'x') + "needl";
    EXPECT_FALSE(Search(c));
}

TEST_F(ContentSearch, ModesCaseAndInversion) {
    ContentCase c;
    c.readBlockSize = 16;
    c.content = "a" + std::string(100, '-') + "b";
    c.terms = {"a", "b"};
    c.mode = 4;
    EXPECT_TRUE(Search(c)); // in different blocks
    c.content = "a" + std::string(100, '-');
    EXPECT_FALSE(Search(c));
    c.mode = 2;
    EXPECT_TRUE(Search(c));

    c.terms = {"abc"};
    c.content = "xxABCxx";
    c.mode = 1;
    EXPECT_FALSE(Search(c));
    c.mode = 9;
    EXPECT_TRUE(Search(c));
    c.mode = 8;
    EXPECT_TRUE(Search(c));

    c.mode = 1;
    c.invert = true;
    c.content = "nothing here";
    EXPECT_TRUE(Search(c));
    c.content = "abc";
    EXPECT_FALSE(Search(c));

    c.terms = {""}; // an empty term is in every file that is not empty
    c.invert = false;
    EXPECT_TRUE(Search(c));
}

TEST_F(ContentSearch, EmptyFilesAbortsAndMissingFiles) {
    ContentCase c;
    c.terms = {"x"};
    c.content = "";
    EXPECT_FALSE(Search(c));
    c.invert = true;
    EXPECT_TRUE(Search(c));
    load.abortRequested = true;
    EXPECT_TRUE(Search(c)); // an empty file gives the inversion, also after an abort
    c.content = "no term in here";
    EXPECT_FALSE(Search(c)); // stopped: false even when inverted
    load.abortRequested = false;

    DirectoryListingSpec spec("*.*");
    spec.containingMode = 1;
    spec.invertContaining = true;
    EXPECT_FALSE(load.IsFileSpec(
        spec, DFile(DName(tree.WinPath("missing").c_str()), 0x20, 0, nullptr, nullptr, nullptr)));
    spec.containingMode = 0; // terms but no mode: passes without opening the file
    EXPECT_TRUE(load.IsFileSpec(
        spec, DFile(DName(tree.WinPath("missing").c_str()), 0x20, 0, nullptr, nullptr, nullptr)));
}

TEST_F(ContentSearch, TermLongerThanTheBlockEnds) {
    ContentCase c;
    c.terms = {std::string(70000, 'q')};
    c.content = std::string(300000, 'q');
    EXPECT_FALSE(Search(c)); // can never lie whole in a block of 65534 bytes
    c.terms = {std::string(20000, 'q')};
    EXPECT_TRUE(Search(c)); // the block grows to the term
    c.content = std::string(19999, 'q') + "x" + std::string(30000, 'q');
    EXPECT_EQ(Search(c), Reference(c));
}

TEST_F(ContentSearch, AgreesWithThePlainBlockByBlockSearch) {
    std::mt19937 random(20261123);
    auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    char const alphabet[] = {'a', 'b', 'A', 'B', '\0', ' '};
    auto text = [&](int maxLength) {
        std::string s(static_cast<std::size_t>(pick(maxLength + 1)), ' ');
        for (char& ch : s)
            ch = alphabet[pick(6)];
        return s;
    };
    int found = 0;
    for (int round = 0; round < 1500; ++round) {
        ContentCase c;
        c.content = text(120);
        c.terms.resize(static_cast<std::size_t>(1 + pick(3)));
        for (auto& term : c.terms)
            term = text(5);
        BYTE const modes[] = {1, 2, 4, 8, 9, 10, 12};
        c.mode = modes[pick(7)];
        c.invert = pick(4) == 0;
        c.readBlockSize = static_cast<DWORD>(pick(3) == 0 ? 0 : 1 + pick(24));
        bool const expected = Reference(c);
        ASSERT_EQ(Search(c), expected) << "round " << round;
        found += expected;
    }
    EXPECT_GT(found, 100);
    EXPECT_LT(found, 1400);
}
