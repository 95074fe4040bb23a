#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

namespace {

DFile Record(char const* path, DWORD attributes = 0x20, std::uint64_t size = 0) {
    DFile file(DName(path), attributes, 0, nullptr, nullptr, nullptr);
    file.SetFileSize(static_cast<DWORD>(size), static_cast<DWORD>(size >> 32));
    return file;
}

// 100 ns ticks since 1601 of a time in seconds since 1970 (UTC).
FILETIME At(std::int64_t seconds, std::int64_t extraTicks = 0) {
    std::uint64_t const ticks =
        static_cast<std::uint64_t>((seconds + 11644473600LL) * 10000000LL + extraTicks);
    return FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

} // namespace

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

TEST(MatchFilter, SizesUseTheLowHalf) {
    DFileLoad load;
    DirectoryListingSpec spec("*.*");
    spec.sizeTest = 6;
    spec.size = 10;
    spec.sizeUpper = 20;
    for (std::uint64_t size : {10u, 15u, 20u})
        EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x20, size))) << size;
    for (std::uint64_t size : {9u, 21u})
        EXPECT_FALSE(load.IsFileSpec(spec, Record("f", 0x20, size))) << size;
    spec.size = 30; // a range upside down lets nothing pass
    EXPECT_FALSE(load.IsFileSpec(spec, Record("f", 0x20, 25)));

    spec.sizeTest = 5;
    spec.size = 10;
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x20, 10)));
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x20, 11)));
    EXPECT_FALSE(load.IsFileSpec(spec, Record("f", 0x20, 9)));
    spec.sizeTest = 1;
    spec.size = 5;
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x20, (1ull << 32) + 5)));
    spec.sizeTest = 8; // none of the three bits
    EXPECT_FALSE(load.IsFileSpec(spec, Record("f", 0x20, 5)));
    spec.sizeTest = 7;
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x20, 123)));
}

TEST(MatchFilter, AttributesAnyAllAndInverted) {
    DFileLoad load;
    DirectoryListingSpec spec("*.*", 0x12, 1);
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x02)));
    spec.attributeTest = 2; // all of them
    EXPECT_FALSE(load.IsFileSpec(spec, Record("f", 0x02)));
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x12)));
    spec.attributeTest = 5; // any of them, inverted
    EXPECT_FALSE(load.IsFileSpec(spec, Record("f", 0x02)));
    EXPECT_TRUE(load.IsFileSpec(spec, Record("f", 0x20)));
}

TEST(MatchFilter, DatesToTheSecond) {
    TempTree tree; // fixes the time zone
    DFileLoad load;
    DirectoryListingSpec spec("*.*");
    spec.dateWritten = At(1100000000);
    DFile file = Record("f");
    file.SetDateWritten(At(1100000000, 5000000)); // half a second later: the same second
    spec.writtenTest = 1;
    EXPECT_TRUE(load.IsFileSpec(spec, file));
    spec.writtenTest = 3;
    file.SetDateWritten(At(1000000000));
    EXPECT_TRUE(load.IsFileSpec(spec, file));
    file.SetDateWritten(At(1200000000));
    EXPECT_FALSE(load.IsFileSpec(spec, file));
    spec.writtenTest = 6; // any date but the same second
    EXPECT_TRUE(load.IsFileSpec(spec, file));

    spec.writtenTest = 0;
    spec.createdTest = 4;
    spec.dateCreated = At(1100000000);
    file.SetDateCreated(At(1100000001));
    EXPECT_TRUE(load.IsFileSpec(spec, file));
    spec.accessedTest = 2;
    spec.dateLastAccessed = At(1100000000);
    file.SetDateLastAccessed(At(1100000000));
    EXPECT_FALSE(load.IsFileSpec(spec, file));
}
