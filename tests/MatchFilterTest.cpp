#include "support/Records.h"

#include <gtest/gtest.h>

#include <cstdio>

TEST(MatchFilter, NamesAndDots) {
    DFileLoad load;
    DirectoryListingSpec spec;
    EXPECT_FALSE(load.IsFileSpec(spec, Record("C:\\a.txt"))); // no pattern: nothing passes
    spec.namePatterns.InsertRight(DName("*.doc"));
    spec.namePatterns.InsertRight(DName("C:\\dir\\*"));
    EXPECT_TRUE(load.IsFileSpec(spec, Record("C:\\x\\report.DOC")));
    EXPECT_TRUE(load.IsFileSpec(spec, Record("C:\\dir\\anything"))); // against the whole path
    EXPECT_FALSE(load.IsFileSpec(spec, Record("C:\\x\\a.txt")));
    EXPECT_FALSE(load.IsFileSpec(spec, Record("C:\\dir\\..", 0x10)));

    DirectoryListingSpec all("*.*");
    EXPECT_TRUE(load.IsFileSpec(all, Record("no extension")));
    EXPECT_FALSE(load.IsFileSpec(all, Record(".")));
    all.namePatterns[0] = "";
    all.namePatterns.InsertLeft(DName("*.none"));
    EXPECT_TRUE(load.IsFileSpec(all, Record("C:\\x\\y.z"))); // the empty pattern lets all pass

    WIN32_FIND_DATAA data = {};
    std::snprintf(data.cFileName, sizeof data.cFileName, "%s", "..");
    EXPECT_FALSE(load.IsFileSpec(DirectoryListingSpec("*.*"), data));
    std::snprintf(data.cFileName, sizeof data.cFileName, "%s", "b.doc");
    EXPECT_TRUE(load.IsFileSpec(spec, data));
}

TEST(MatchFilter, SizesAttributesAndDates) {
    TempTree tree; // fixes the time zone
    struct Row {
        char sizeTest;
        DWORD size, upper;
        char attributeTest;
        DWORD attributes;
        char writtenTest;
        std::uint64_t fileSize;
        DWORD fileAttributes;
        FILETIME written;
        bool passes;
    };
    FILETIME const second = At(1100000000), halfLater = At(1100000000, 5000000),
                   before = At(1000000000), after = At(1200000000);
    Row const rows[] = {
        {6, 10, 20, 0, 0, 0, 10, 0x20, {}, true}, // a range, both ends included
        {6, 10, 20, 0, 0, 0, 20, 0x20, {}, true},
        {6, 10, 20, 0, 0, 0, 9, 0x20, {}, false},
        {6, 10, 20, 0, 0, 0, 21, 0x20, {}, false},
        {6, 30, 20, 0, 0, 0, 25, 0x20, {}, false}, // upside down: nothing
        {5, 10, 0, 0, 0, 0, 10, 0x20, {}, true},
        {5, 10, 0, 0, 0, 0, 11, 0x20, {}, true},
        {5, 10, 0, 0, 0, 0, 9, 0x20, {}, false},
        {1, 5, 0, 0, 0, 0, (1ull << 32) + 5, 0x20, {}, true}, // the low half only
        {8, 5, 0, 0, 0, 0, 5, 0x20, {}, false},               // none of the three bits
        {7, 5, 0, 0, 0, 0, 123, 0x20, {}, true},
        {0, 0, 0, 1, 0x12, 0, 0, 0x02, {}, true},  // any
        {0, 0, 0, 2, 0x12, 0, 0, 0x02, {}, false}, // all
        {0, 0, 0, 2, 0x12, 0, 0, 0x12, {}, true},
        {0, 0, 0, 5, 0x12, 0, 0, 0x02, {}, false}, // any, inverted
        {0, 0, 0, 5, 0x12, 0, 0, 0x20, {}, true},
        {0, 0, 0, 0, 0, 1, 0, 0x20, halfLater, true}, // dates to the second
        {0, 0, 0, 0, 0, 3, 0, 0x20, before, true},
        {0, 0, 0, 0, 0, 3, 0, 0x20, after, false},
        {0, 0, 0, 0, 0, 6, 0, 0x20, after, true},
        {0, 0, 0, 0, 0, 6, 0, 0x20, second, false},
    };
    DFileLoad load;
    for (Row const& row : rows) {
        DirectoryListingSpec spec("*.*");
        spec.sizeTest = row.sizeTest, spec.size = row.size, spec.sizeUpper = row.upper;
        spec.attributeTest = row.attributeTest, spec.attributes = row.attributes;
        spec.writtenTest = row.writtenTest, spec.dateWritten = second;
        DFile file = Record("f", row.fileAttributes, row.fileSize);
        file.SetDateWritten(row.written);
        EXPECT_EQ(load.IsFileSpec(spec, file), row.passes) << &row - rows;
    }

    // The created and accessed dates are tested against their own fields.
    DirectoryListingSpec spec("*.*");
    spec.createdTest = 4, spec.dateCreated = second;
    DFile file = Record("f");
    file.SetDateCreated(At(1100000001));
    EXPECT_TRUE(load.IsFileSpec(spec, file));
    spec.accessedTest = 2, spec.dateLastAccessed = second;
    file.SetDateLastAccessed(second);
    EXPECT_FALSE(load.IsFileSpec(spec, file));
    file.SetDateLastAccessed(before);
    EXPECT_TRUE(load.IsFileSpec(spec, file));
}
