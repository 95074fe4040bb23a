#include "support/RecordFields.h"

namespace {

// The stored form holds every field, the whole lists and the stream byte included.
std::string Stored(DirectoryListingSpec& spec) {
    TempTree tree;
    std::string const path = FreshPath(tree);
    EXPECT_TRUE(Store(spec, path));
    return FileBytes(path);
}

} // namespace

TEST(DirectoryListingSpec, CopiesTakeEveryFieldButTheStreamByte) {
    DirectoryListingSpec source(DName("*.txt"), DName("C:\\data"), 0x20, 100, 1, 2);
    source.textToFind = "needle";
    source.readBlockSize = 99, source.writtenTest = 3, source.createdTest = 4;
    source.accessedTest = 5, source.invertContaining = true, source.containingMode = 9;
    source.sizeUpper = 200, source.streamByte = 1;
    source.dateCreated = Ft(11), source.dateLastAccessed = Ft(12), source.dateWritten = Ft(13);
    DirectoryListingSpec copy(source);
    EXPECT_EQ(copy.streamByte, 0);
    copy.streamByte = 1;
    EXPECT_EQ(Stored(copy), Stored(source));

    DirectoryListingSpec target;
    target.streamByte = 7;
    target = source;
    EXPECT_EQ(target.streamByte, 7);
    target.streamByte = 1;
    EXPECT_EQ(Stored(target), Stored(source));
    source.namePatterns.InsertRight(DName("*.doc"));
    source.directories[0] = "C:\\other";
    EXPECT_EQ(target.namePatterns.count, 1u);
    EXPECT_STREQ(&target.directories[0], "C:\\data");

    target.Destroy();
    EXPECT_EQ(target.streamByte, 1);
    DirectoryListingSpec fresh;
    fresh.streamByte = 1;
    EXPECT_EQ(Stored(target), Stored(fresh));
}

TEST(DirectoryListingSpec, WhatCountsAsEmpty) {
    EXPECT_TRUE(DirectoryListingSpec(static_cast<char const*>(nullptr)).isEmpty() &&
                DirectoryListingSpec("").isEmpty() &&
                DirectoryListingSpec(DName(), DName()).isEmpty());
    DirectoryListingSpec const bare("C:\\dir\\*.txt"); // one whole pattern, never split
    ASSERT_EQ(bare.namePatterns.count, 1u);
    EXPECT_STREQ(&bare.namePatterns[0], "C:\\dir\\*.txt");
    FILETIME const created{1, 0}, none{0, 0};
    EXPECT_FALSE(DirectoryListingSpec(DName(), DName(), 0, 0, created, none, none).isEmpty());

    DirectoryListingSpec spec(7);
    EXPECT_TRUE(spec.attributes == 0 && !spec);
    spec = 7;
    EXPECT_TRUE(spec.attributes == 7 && !spec.isEmpty());
    spec = 0;
    // A size test selects files of length 0, yet sets nothing a caller names.
    spec.sizeTest = 1, spec.sizeUpper = 10, spec.readBlockSize = 5, spec.containingMode = 1;
    EXPECT_TRUE(spec.isEmpty());
    spec.textToFind = "x";
    EXPECT_FALSE(spec.isEmpty());
}
