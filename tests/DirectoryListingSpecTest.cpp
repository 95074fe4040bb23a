#include <tessik/tessik.h>

#include <gtest/gtest.h>

TEST(DirectoryListingSpec, CopiesShareNoElementAndKeepTheirStreamByte) {
    DirectoryListingSpec source(DName("*.txt"), DName("C:\\data"), 0x20, 100, 1, 2);
    source.textToFind = "needle";
    source.containingMode = 4;
    source.readBlockSize = 99;
    source.streamByte = 1;
    DirectoryListingSpec copy(source);
    EXPECT_EQ(copy.streamByte, 0);
    EXPECT_EQ(copy.readBlockSize, 99u);
    EXPECT_EQ(copy.sizeTest, 2);
    EXPECT_EQ(copy.attributeTest, 1);
    EXPECT_STREQ(&copy.textToFind, "needle");

    DirectoryListingSpec target;
    target.streamByte = 7;
    target = source;
    EXPECT_EQ(target.streamByte, 7);
    source.namePatterns.InsertRight(DName("*.doc"));
    source.directories[0] = "C:\\other";
    EXPECT_EQ(target.namePatterns.count, 1u);
    EXPECT_STREQ(&target.directories[0], "C:\\data");

    target.Destroy();
    EXPECT_EQ(target.streamByte, 7);
    EXPECT_TRUE(target.isEmpty());
    EXPECT_EQ(target.containingMode, 0);
    EXPECT_EQ(target.readBlockSize, 0u);
}

TEST(DirectoryListingSpec, ConstructorsLeaveOutEmptyNames) {
    EXPECT_TRUE(DirectoryListingSpec().isEmpty());
    EXPECT_TRUE(DirectoryListingSpec(static_cast<char const*>(nullptr)).isEmpty());
    EXPECT_TRUE(DirectoryListingSpec("").isEmpty());
    EXPECT_TRUE(DirectoryListingSpec(DName(), DName()).isEmpty());

    DirectoryListingSpec const bare("C:\\dir\\*.txt"); // one whole pattern, never split
    ASSERT_EQ(bare.namePatterns.count, 1u);
    EXPECT_STREQ(&bare.namePatterns[0], "C:\\dir\\*.txt");
    EXPECT_EQ(bare.directories.count, 0u);

    DirectoryListingSpec const attributes("*.*", 0x12, 1);
    EXPECT_EQ(attributes.attributes, 0x12u);
    EXPECT_EQ(attributes.attributeTest, 1);

    Container<DName> patterns, dirs;
    patterns.InsertRight(DName("a*"));
    patterns.InsertRight(DName("b*"));
    dirs.InsertRight(DName("X:\\"));
    DirectoryListingSpec const lists(patterns, dirs);
    EXPECT_EQ(lists.namePatterns.count, 2u);
    EXPECT_STREQ(&lists.namePatterns[1], "b*");
    DirectoryListingSpec const oneAndList(DName("c*"), dirs);
    EXPECT_EQ(oneAndList.namePatterns.count, 1u);
    EXPECT_EQ(oneAndList.directories.count, 1u);

    FILETIME const created{1, 0}, accessed{2, 0}, written{3, 0};
    DirectoryListingSpec const dated(DName(), DName(), 0, 0, created, accessed, written);
    EXPECT_EQ(dated.dateLastAccessed.dwLowDateTime, 2u);
    EXPECT_EQ(dated.writtenTest, 0);
    EXPECT_FALSE(dated.isEmpty());

    DirectoryListingSpec const text(DName("*"), DName("C:\\"), DName("find me"), true);
    EXPECT_TRUE(text.invertContaining);
    EXPECT_EQ(text.containingMode, 0);
    EXPECT_STREQ(&text.textToFind, "find me");
}

TEST(DirectoryListingSpec, WhatCountsAsEmpty) {
    DirectoryListingSpec spec(7);
    EXPECT_EQ(spec.attributes, 0u);
    EXPECT_TRUE(!spec);
    spec = 7;
    EXPECT_EQ(spec.attributes, 7u);
    EXPECT_EQ(spec.attributeTest, 0);
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
