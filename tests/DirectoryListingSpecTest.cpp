#include "support/Records.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// Every field but the lists and the text, as bytes: a copy holds the same.
std::string Plain(DirectoryListingSpec const& spec) {
    std::string bytes;
    auto add = [&](auto const& field) {
        bytes.append(reinterpret_cast<char const*>(&field), sizeof field);
    };
    add(spec.readBlockSize), add(spec.sizeTest), add(spec.writtenTest), add(spec.createdTest);
    add(spec.accessedTest), add(spec.attributeTest), add(spec.invertContaining);
    add(spec.containingMode), add(spec.sizeUpper), add(spec.size), add(spec.attributes);
    add(spec.dateCreated), add(spec.dateLastAccessed), add(spec.dateWritten);
    return bytes + "|" + Shown(spec.textToFind) + "|" + Shown(spec.namePatterns[0]) + "|" +
           Shown(spec.directories[0]);
}

} // namespace

TEST(DirectoryListingSpec, CopiesTakeEveryFieldButTheStreamByte) {
    DirectoryListingSpec source(DName("*.txt"), DName("C:\\data"), 0x20, 100, 1, 2);
    source.textToFind = "needle";
    source.readBlockSize = 99;
    source.writtenTest = 3, source.createdTest = 4, source.accessedTest = 5;
    source.invertContaining = true;
    source.containingMode = 9;
    source.sizeUpper = 200;
    source.dateCreated = Ft(11), source.dateLastAccessed = Ft(12), source.dateWritten = Ft(13);
    source.streamByte = 1;
    DirectoryListingSpec copy(source);
    EXPECT_EQ(Plain(copy), Plain(source));
    EXPECT_EQ(copy.streamByte, 0);

    DirectoryListingSpec target;
    target.streamByte = 7;
    target = source;
    EXPECT_EQ(Plain(target), Plain(source));
    EXPECT_EQ(target.streamByte, 7);
    source.namePatterns.InsertRight(DName("*.doc"));
    source.directories[0] = "C:\\other";
    EXPECT_EQ(target.namePatterns.count, 1u);
    EXPECT_STREQ(&target.directories[0], "C:\\data");

    target.Destroy();
    EXPECT_EQ(target.streamByte, 7);
    EXPECT_EQ(Plain(target), Plain(DirectoryListingSpec()));
}

TEST(DirectoryListingSpec, WhatCountsAsEmpty) {
    EXPECT_TRUE(DirectoryListingSpec(static_cast<char const*>(nullptr)).isEmpty());
    EXPECT_TRUE(DirectoryListingSpec("").isEmpty());
    EXPECT_TRUE(DirectoryListingSpec(DName(), DName()).isEmpty());
    DirectoryListingSpec const bare("C:\\dir\\*.txt"); // one whole pattern, never split
    ASSERT_EQ(bare.namePatterns.count, 1u);
    EXPECT_STREQ(&bare.namePatterns[0], "C:\\dir\\*.txt");
    FILETIME const created{1, 0}, none{0, 0};
    EXPECT_FALSE(DirectoryListingSpec(DName(), DName(), 0, 0, created, none, none).isEmpty());

    DirectoryListingSpec spec(7);
    EXPECT_EQ(spec.attributes, 0u);
    EXPECT_TRUE(!spec);
    spec = 7;
    EXPECT_EQ(spec.attributes, 7u);
    EXPECT_FALSE(spec.isEmpty());
    spec = 0;
    EXPECT_TRUE(spec.isEmpty());
    spec.sizeTest = 1; // selects files of length 0, yet sets nothing a caller names
    spec.sizeUpper = 10;
    spec.readBlockSize = 5;
    spec.containingMode = 1;
    EXPECT_TRUE(spec.isEmpty());
    spec.textToFind = "x";
    EXPECT_FALSE(spec.isEmpty());
}
