#include "support/RecordFields.h"
#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

std::string Word(DWORD value) {
    return std::string{static_cast<char>(value), static_cast<char>(value >> 8),
                       static_cast<char>(value >> 16), static_cast<char>(value >> 24)};
}

std::string Name(std::string const& text) {
    return Word(static_cast<DWORD>(text.size())) + text;
}

std::string Stored(TempTree const& tree, DirectoryListingSpec& spec) {
    std::string const path = FreshPath(tree);
    {
        FileOper out(path.c_str(), true);
        EXPECT_TRUE(spec.Write(out));
    }
    return FileBytes(path);
}

bool Load(TempTree const& tree, std::string const& bytes, DirectoryListingSpec& spec) {
    FileOper in(PutFileBytes(tree, bytes).c_str(), false);
    return spec.Read(in);
}

} // namespace

TEST(StoredCriteria, LayoutIsPinned) {
    TempTree tree;
    DirectoryListingSpec spec("*.txt", 0x33, 5);
    spec.streamByte = 7;
    spec.textToFind = "Hi";
    spec.readBlockSize = 0x01020304;
    spec.sizeTest = 1, spec.writtenTest = 2, spec.createdTest = 3, spec.accessedTest = 4;
    spec.invertContaining = true, spec.containingMode = 9, spec.sizeUpper = 0x11, spec.size = 0x22;
    spec.dateCreated = {1, 2}, spec.dateLastAccessed = {3, 4}, spec.dateWritten = {5, 6};
    std::string const lists = Word(0x28018293) + Word(1) + Name("*.txt") + Word(0);
    std::string const bytes = Stored(tree, spec);
    EXPECT_EQ(bytes, lists + "\x07" + Name("4869") + Word(0x01020304) +
                         std::string("\x01\x02\x03\x04\x05\x01\x09") + Word(0x11) + Word(0x22) +
                         Word(0x33) + Word(1) + Word(2) + Word(3) + Word(4) + Word(5) + Word(6));

    // Cut anywhere: false. Before the magic is whole nothing changes; behind the lists they
    // are new and the text to find is still the old one.
    ForEachCut(tree, bytes, [&](std::string const& part, std::size_t cut) {
        DirectoryListingSpec read("old", DName("dir"), DName("old text"), false);
        FileOper in(part.c_str(), false);
        EXPECT_FALSE(read.Read(in));
        EXPECT_EQ(read.namePatterns.count == 1 && read.namePatterns[0] == "old", cut < 4) << cut;
        EXPECT_EQ(read.directories.count, cut < lists.size() - 4 ? 1u : 0u);
        EXPECT_EQ(read.readBlockSize, cut >= lists.size() + 13 ? 0x01020304u : 0u);
        EXPECT_EQ(read.textToFind, DName("old text"));
    });
    DirectoryListingSpec read("old");
    EXPECT_FALSE(Load(tree, "\x28\x01\x82\x93" + bytes.substr(4), read)); // magic the wrong way
    EXPECT_FALSE(Load(tree, lists.substr(0, 4) + Word(0xFFFFFFFF) + Name("a") + Name("b"), read));
    EXPECT_EQ(read.namePatterns.count, 0u);
}

TEST(StoredCriteria, RoundTripsEveryField) {
    TempTree tree;
    std::mt19937 random(3);
    auto text = [&] {
        std::string bytes(random() % 4 ? random() % 20 : 0, '\0');
        for (char& c : bytes)
            c = static_cast<char>(random());
        DName name;
        name.Namen(bytes.data(), static_cast<unsigned>(bytes.size()));
        return name;
    };
    for (int round = 0; round < 20; ++round) {
        DirectoryListingSpec spec;
        for (unsigned n = random() % 4; n > 0; --n)
            spec.namePatterns.InsertRight(text());
        for (unsigned n = random() % 4; n > 0; --n)
            spec.directories.InsertRight(text());
        spec.textToFind = text();
        spec.streamByte = static_cast<BYTE>(random());
        spec.readBlockSize = random() % 2 ? 0 : static_cast<DWORD>(random());
        spec.invertContaining = random() % 2;
        spec.sizeTest = static_cast<char>(random());
        spec.dateWritten.dwHighDateTime = static_cast<DWORD>(random());
        std::string const bytes = Stored(tree, spec);
        DirectoryListingSpec read("old", DName("dir"), DName("old text"), true);
        ASSERT_TRUE(Load(tree, bytes, read));
        EXPECT_EQ(Stored(tree, read), bytes);
        EXPECT_EQ(read.textToFind, spec.textToFind);
        EXPECT_EQ(read.streamByte, spec.streamByte);
    }
}
