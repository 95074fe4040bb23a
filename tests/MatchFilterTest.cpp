#include "support/Records.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

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

// The rules written out plainly: a test byte lets an outcome through by its bits, equal 0x01,
// less 0x02, greater 0x04; size test 6 is a range, both ends included; attributes are tested for
// any (0x01) or all of the bits, 0x04 inverting the answer; dates compare to the second.
bool Lets(char test, std::int64_t value, std::int64_t against) {
    return test & (value == against ? 1 : value < against ? 2 : 4);
}

TEST(MatchFilter, SizesAttributesAndDatesFollowTheRules) {
    TempTree tree; // fixes the time zone
    std::mt19937 random(5);
    auto pick = [&](unsigned n) { return static_cast<int>(random() % n); };
    std::int64_t const second = 1100000000, steps[] = {-40000000, -1, 0, 1, 40000000};
    DFileLoad load;
    int passed = 0;
    for (int round = 0; round < 4000; ++round) {
        DirectoryListingSpec spec("*.*");
        spec.sizeTest = static_cast<char>(pick(9)), spec.size = pick(6), spec.sizeUpper = pick(6);
        spec.attributeTest = static_cast<char>(pick(8)), spec.attributes = pick(2) ? 0x12 : 0x01;
        DWORD const low = static_cast<DWORD>(pick(6)); // the low half counts
        DFile file = Record("f", 0x20 | pick(2) * 0x10 | pick(2) * 0x02 | pick(2),
                            (static_cast<std::uint64_t>(pick(2)) << 32) + low);
        bool expected = spec.sizeTest == 6 ? spec.size <= low && low <= spec.sizeUpper
                                           : !spec.sizeTest || Lets(spec.sizeTest, low, spec.size);
        DWORD const held = file.GetAttribute() & spec.attributes;
        bool const has = spec.attributeTest & 1 ? held != 0 : held == spec.attributes;
        expected = expected && (!spec.attributeTest || has != bool(spec.attributeTest & 4));
        struct {
            char& test;
            FILETIME& date;
            void (DFile::*set)(FILETIME const&);
        } const dates[] = {{spec.createdTest, spec.dateCreated, &DFile::SetDateCreated},
                           {spec.accessedTest, spec.dateLastAccessed, &DFile::SetDateLastAccessed},
                           {spec.writtenTest, spec.dateWritten, &DFile::SetDateWritten}};
        for (auto const& date : dates) {
            std::int64_t const step = steps[pick(5)];
            date.test = static_cast<char>(pick(3) ? 0 : pick(8));
            date.date = At(second);
            (file.*date.set)(At(second + step, pick(10000000))); // within the second
            expected = expected && (!date.test || Lets(date.test, step, 0));
        }
        ASSERT_EQ(load.IsFileSpec(spec, file), expected) << round;
        passed += expected;
    }
    EXPECT_TRUE(passed > 400 && passed < 3600) << passed;
}
