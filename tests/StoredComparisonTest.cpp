#include "support/RecordFields.h"
#include "support/TempTree.h"

#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

char const* const paths[] = {"", "C:\\a\\x.txt", "D:\\b\\x.txt", "C:\\a\\y", "y", "C:\\a\\X.txt"};

// Few values in each field, so that records repeat, and paths and file names meet.
DFile RandomRecord(std::mt19937& random) {
    FILETIME const date = {static_cast<DWORD>(random() % 2), 1}, seen = {0, 2};
    DFile file(DName(paths[random() % 6]), random() % 2 ? 0x20 : 0x10,
               static_cast<DWORD>(random() % 2), &date, &seen, &date);
    file.dateCreated.dwHighDateTime = random() % 8 ? 1 : 5;
    file.dateLastAccessed.dwLowDateTime = static_cast<DWORD>(random() % 3); // no difference
    file.sizeHigh = random() % 8 ? 0 : 1;
    file.hashKey = random() % 2 ? "key" : ""; // no difference either
    return file;
}

std::set<std::string> Names(DFileLoad const& load) {
    std::set<std::string> names;
    for (DFile const* f = load.files.head; f; f = f->next)
        names.insert(f->GetFileName().operator&());
    return names;
}

} // namespace

TEST(ListingLookup, AgreesWithARecordByRecordScan) {
    std::mt19937 random(17);
    for (int round = 0; round < 300; ++round) {
        DFileLoad mine, other, differences;
        for (auto n = random() % 12; n > 0; --n)
            mine.InsertRight(RandomRecord(random));
        for (auto n = random() % 12; n > 0; --n)
            other.InsertRight(RandomRecord(random));
        differences.InsertRight(RandomRecord(random)); // gone, whatever the result
        DFileLoad expected;
        for (DFile const* r = other.files.head; r; r = r->next) {
            bool held = false;
            for (DFile const* m = mine.files.head; m; m = m->next)
                held = held || *m == *r;
            if (!held)
                expected.InsertRight(*r);
        }
        EXPECT_EQ(mine.FindDifferences(other, differences), !expected.isEmpty());
        EXPECT_EQ(AllFields(differences), AllFields(expected));

        DName const name(paths[random() % 6]);
        DName file(name);
        file.RemDir();
        int at = -1, byName = -1, position = 0;
        for (DFile const* m = mine.files.head; m; m = m->next, ++position) {
            if (at < 0 && m->fullPath == name)
                at = position;
            if (byName < 0 && m->GetFileName() == file)
                byName = position;
        }
        EXPECT_EQ(mine.FindPos(name), at);
        EXPECT_EQ(mine.FindByLong(name), at);
        EXPECT_EQ(mine.FindByFilename(name), byName);
    }
}

TEST(ListingLookup, DifferencesOfATreeAfterChanges) {
    TempTree tree;
    tree.MakeDir("t");
    tree.MakeDir("t/sub");
    for (char const* name : {"t/a.txt", "t/b.txt", "t/sub/c.txt", "t/sub/d.txt"})
        tree.MakeFile(name, name);
    tree.SetTimes("t/sub/c.txt", 1000000000);
    DirectoryListingSpec const spec(DName("*"), DName(tree.WinPath("t").c_str()));
    DFileLoad searched, stored, fresh, differences;
    ASSERT_TRUE(searched.LoadAllDirListings(spec, true));
    {
        FileOper out(tree.Path("stored").c_str(), true);
        ASSERT_TRUE(searched.Write(out));
    }
    FileOper in(tree.Path("stored").c_str(), false);
    ASSERT_TRUE(stored.Read(in));

    tree.SetTimes("t/sub/c.txt", 1000000001); // one second later
    tree.MakeFile("t/new.txt");
    std::remove(tree.Path("t/b.txt").c_str());
    ASSERT_TRUE(fresh.LoadAllDirListings(spec, true));
    EXPECT_TRUE(stored.FindDifferences(fresh, differences));
    EXPECT_EQ(Names(differences), (std::set<std::string>{"c.txt", "new.txt"}));
    EXPECT_EQ(differences.Size(), 2u);
    EXPECT_TRUE(fresh.FindDifferences(stored, differences));
    EXPECT_EQ(Names(differences), (std::set<std::string>{"b.txt", "c.txt"}));
    EXPECT_EQ(differences.Size(), 2u);
    EXPECT_FALSE(fresh.FindDifferences(fresh, differences));
}
