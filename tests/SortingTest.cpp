#include "support/RecordFields.h"

#include <algorithm>
#include <map>
#include <memory>
#include <random>

namespace {

// The sorts as plainly described: value copies between positions of the chain.
void PlainSortRecursive(DFileLoad& load, int first, int last) {
    DFile pivot;
    pivot = load[static_cast<unsigned>(first)];
    int l = first;
    int r = last;
    auto path = [&](int position) { return load[static_cast<unsigned>(position)].fullPath; };
    while (l < r) {
        while (path(r) >= pivot.fullPath && l < r)
            --r;
        if (l != r)
            load[static_cast<unsigned>(l++)] = load[static_cast<unsigned>(r)];
        while (path(l) <= pivot.fullPath && l < r)
            ++l;
        if (l != r)
            load[static_cast<unsigned>(r--)] = load[static_cast<unsigned>(l)];
    }
    load[static_cast<unsigned>(l)] = pivot;
    if (first < l)
        PlainSortRecursive(load, first, l - 1);
    if (last > l)
        PlainSortRecursive(load, l + 1, last);
}

// Then the directories go before the files, each kind in its order: nodes relinked.
void PlainSort(DFileLoad& load) {
    if (load.Size() == 0)
        return;
    PlainSortRecursive(load, 0, static_cast<int>(load.Size() - 1));
    std::vector<DFile*> nodes;
    for (DFile* node = load.files.head; node; node = node->next)
        nodes.push_back(node);
    std::stable_partition(nodes.begin(), nodes.end(), [](DFile* node) { return node->isDir(); });
    load.files.head = nodes[0];
    for (std::size_t i = 0; i < nodes.size(); ++i)
        nodes[i]->next = i + 1 < nodes.size() ? nodes[i + 1] : nullptr;
    load.files.Relinked();
}

// The column order written out from its rules, apart from the library's own.
bool PlainGreater(DFile const& left, DFile const& right, unsigned column) {
    auto order = [](auto const& a, auto const& b) { return a == b ? 0 : (a > b ? 1 : -1); };
    int const byValue =
        column == 8     ? order(left.GetFileSize64(), right.GetFileSize64())
        : column == 16  ? order(left.FormatAttributes(false, -1), right.FormatAttributes(false, -1))
        : column == 32  ? left.CompDateCreated(right.dateCreated)
        : column == 64  ? left.CompDateLastAccessed(right.dateLastAccessed)
        : column == 128 ? left.CompDateWritten(right.dateWritten)
                        : 2;
    if (byValue != 2) // the value first, then the path
        return byValue != 0 ? byValue > 0 : left.fullPath > right.fullPath;
    if (column == 2 || column == 4)
        return left.fullPath > right.fullPath;
    return left.GetFileName() > right.GetFileName(); // also numbers that name no column
}

void PlainSortAlpha(DFileLoad& load, unsigned column, bool descending) {
    unsigned const n = load.Size();
    if (n < 2)
        return;
    for (unsigned gap : {3u, 1u}) {
        for (unsigned i = 0; i < n; ++i) {
            DFile held(load[i]);
            unsigned j = i;
            while (j >= gap) {
                unsigned const k = j - gap;
                EXPECT_EQ(load.CompareColumn(k, held, column), PlainGreater(load[k], held, column));
                if (!PlainGreater(load[k], held, column))
                    break;
                load[j] = load[k];
                j = k;
            }
            if (j != i)
                load[j] = held;
        }
    }
    if (!descending)
        return;
    for (unsigned a = 0, b = n - 1; a < b; ++a, --b) {
        DFile held(load[a]);
        load.files.CopyPos(a, b);
        load.files.ReplacePos(b, held);
    }
}

unsigned Pick(std::mt19937& random, unsigned n) {
    return static_cast<unsigned>(random() % n);
}

// A few seconds in 2010, some of them the same second with other fractions.
FILETIME Date(std::mt19937& random) {
    return At(1262304000 + Pick(random, 4), Pick(random, 3));
}

void Fill(DFileLoad& load, std::mt19937& random, unsigned count) {
    // Names that begin others, also beyond the first sixteen bytes.
    std::string const more = " name of more than 16 bytes";
    std::string const names[] = {
        "Z:\\a",       "Z:\\a\\b", "Z:\\B",           "Z:\\b",
        "Z:\\a.txt",   "Z:\\c\\a", "Z:\\c\\a" + more, "Z:\\c\\a" + more + ".txt",
        "Z:\\a" + more};
    for (unsigned i = 0; i < count; ++i) {
        FILETIME const created = Date(random), accessed = Date(random), written = Date(random);
        DFile record(DName(names[Pick(random, 9)].c_str()),
                     (Pick(random, 3) == 0 ? 0x10 : 0x20) | Pick(random, 2) |
                         (Pick(random, 5) == 0 ? 0x400 : 0) | (Pick(random, 5) == 0 ? 0x40 : 0),
                     0, &created, &accessed, &written);
        record.SetFileSize(Pick(random, 3), Pick(random, 4) == 0 ? 1 : 0);
        record.SetIndex(DName(std::to_string(i).c_str())); // tells equal records apart
        load.InsertRight(record);
        load[i].dataEncrypted = Pick(random, 5) == 0; // stays with the node
    }
}

// Everything a sort can change: each node's place in the chain, and what each position holds.
auto Picture(DFileLoad const& load, std::map<DFile const*, unsigned>& nodes) {
    std::vector<std::pair<unsigned, decltype(Fields(DFile()))>> picture;
    for (DFile const* file = load.files.head; file; file = file->next) {
        if (nodes.size() < load.Size()) // the first picture numbers the nodes
            nodes[file] = static_cast<unsigned>(nodes.size());
        picture.emplace_back(nodes[file], Fields(*file));
    }
    EXPECT_EQ(picture.size(), load.Size());
    return picture;
}

template <class Plain, class Fast> void Agree(unsigned rounds, Plain plain, Fast fast) {
    TempTree tree; // fixes the time zone for the date columns
    std::mt19937 random(4242);
    for (unsigned round = 0; round < rounds; ++round) {
        unsigned const count = Pick(random, 40);
        unsigned const seed = static_cast<unsigned>(random());
        std::mt19937 same(seed), copy(seed);
        DFileLoad expected, actual;
        Fill(expected, same, count);
        Fill(actual, copy, count);
        std::map<DFile const*, unsigned> expectedNodes, actualNodes;
        Picture(expected, expectedNodes), Picture(actual, actualNodes); // numbers the nodes
        unsigned const choice = static_cast<unsigned>(random());
        plain(expected, choice);
        fast(actual, choice);
        ASSERT_EQ(Picture(actual, actualNodes), Picture(expected, expectedNodes))
            << "round " << round << ", " << count << " records";
        actual.InsertRight(DFile(DName("Z:\\end"), 0, 0, nullptr, nullptr, nullptr));
        ASSERT_STREQ(&actual[actual.Size() - 1], "Z:\\end"); // the chain's end is known
    }
}

} // namespace

// Odd choices sort the whole listing, even ones a stretch of it.
TEST(Sorting, SortAndSortRecursiveOnPartsAgreeWithThePlainSteps) {
    auto sort = [](bool plain) {
        return [plain](DFileLoad& load, unsigned choice) {
            if (choice % 2 || load.Size() < 2)
                return plain ? PlainSort(load) : (void)load.Sort();
            int const first = static_cast<int>(choice / 2 % load.Size());
            int const last = first + static_cast<int>((choice / 128) % (load.Size() - first));
            if (!plain)
                load.SortRecursive(first, last);
            else if (first < last)
                PlainSortRecursive(load, first, last);
        };
    };
    Agree(5000, sort(true), sort(false));
}

TEST(Sorting, SortAlphaAgreesWithThePlainSteps) {
    unsigned const columns[] = {0, 1, 2, 3, 4, 8, 16, 32, 64, 128, 129};
    Agree(
        4000,
        [&](DFileLoad& load, unsigned choice) {
            PlainSortAlpha(load, columns[choice % 11], (choice / 16) % 2);
        },
        [&](DFileLoad& load, unsigned choice) {
            load.SortAlpha(columns[choice % 11], (choice / 16) % 2);
        });
}

// Listings of every size from 0 are sorted above; these are the answers and the bounds.
TEST(Sorting, EmptyListingsAndPositionsOutsideTheListing) {
    DFileLoad load;
    EXPECT_FALSE(load.Sort());
    load.SortAlpha(4, true);
    load.InsertRight(Record("Z:\\b"));
    load.InsertRight(Record("Z:\\a"));
    EXPECT_TRUE(load.Sort());
    load.SortRecursive(1, 0);
    load.SortRecursive(-1, 5); // positions that do not exist: nothing happens
    EXPECT_EQ(std::string(&load[0]) + &load[1], "Z:\\aZ:\\b");
}
