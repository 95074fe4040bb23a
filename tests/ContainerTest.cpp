#include "support/Records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<std::string> Paths(Container<DFile> const& list) {
    std::vector<std::string> paths;
    for (DFile* file = list.head; file; file = file->next)
        paths.push_back(&file->fullPath);
    return paths;
}

} // namespace

// Random operations against a plain vector of the same paths.
TEST(Container, AgreesWithAPlainSequence) {
    std::mt19937 random(99);
    for (int round = 0; round < 300; ++round) {
        Container<DFile> list;
        std::vector<std::string> model;
        for (int step = 0; step < 40; ++step) {
            unsigned const n = static_cast<unsigned>(model.size());
            unsigned const pos = static_cast<unsigned>(random() % (n + 2));
            std::string const path = std::to_string(step);
            bool const inside = pos < n;
            unsigned const op = static_cast<unsigned>(random() % 9);
            DFile const record = Record(path.c_str());
            if (op < 3) { // at the head, at the end, before a position (past the end: appended)
                unsigned const at = op == 0 ? 0 : (op == 1 ? n : std::min(pos, n));
                ASSERT_TRUE(op == 0   ? list.InsertLeft(record)
                            : op == 1 ? list.InsertRight(record)
                                      : list.InsertPos(pos, record));
                model.insert(model.begin() + at, path);
            } else if (op < 6) { // the head, the end, a position
                unsigned const at = op == 3 ? 0 : (op == 4 ? n - 1 : pos);
                bool const done =
                    op == 3 ? list.DelLeft() : (op == 4 ? list.DelRight() : list.DelPos(pos));
                ASSERT_EQ(done, n > 0 && at < n);
                if (done)
                    model.erase(model.begin() + at);
            } else if (op == 6) { // contents, not links, between positions
                unsigned const from = static_cast<unsigned>(random() % (n + 1));
                ASSERT_EQ(list.CopyPos(pos, from), inside && from < n && from != pos);
                if (inside && from < n)
                    model[pos] = model[from];
            } else if (op == 7) {
                ASSERT_EQ(list.ReplacePos(pos, record), inside);
                if (inside)
                    model[pos] = path;
            } else { // past the count: the first; the last position reached must not mislead
                ASSERT_STREQ(&list[pos], n == 0 ? "" : (inside ? model[pos] : model[0]).c_str());
                ASSERT_EQ(list(pos), n == 0 ? nullptr : std::addressof(list[pos]));
            }
            ASSERT_EQ(list.count, model.size());
            ASSERT_EQ(Paths(list), model);
        }
        list.InsertRight(Record("end")); // the end is known after every kind of change
        ASSERT_STREQ(&list[list.count - 1], "end");
        Container<DFile> copy;
        copy.InsertRight(Record("old"));
        Container<DFile> const& same = copy;
        EXPECT_TRUE((copy = list) && (copy = same)); // onto itself: unchanged
        EXPECT_EQ(Paths(copy), Paths(list));
        EXPECT_NE(copy.head, list.head);
    }
    Container<DFile> target, empty;
    target.InsertRight(Record("old"));
    EXPECT_FALSE(target = empty);
    EXPECT_EQ(target.head, nullptr);
}

TEST(Container, ForeignElementsAndHandMadeChains) {
    Container<DFile> one, two;
    for (char const* path : {"a", "b", "c"})
        one.InsertRight(Record(path));
    two.InsertRight(*one.head); // its link points into `one`
    two.InsertRight(Record("z"));
    EXPECT_EQ(Paths(two), (std::vector<std::string>{"a", "z"}));
    EXPECT_EQ(Paths(one), (std::vector<std::string>{"a", "b", "c"}));

    DFile* previous = nullptr; // reverse the chain by hand
    for (DFile* file = one.head; file;) {
        DFile* following = file->next;
        file->next = previous;
        previous = file;
        file = following;
    }
    one.head = previous;
    one.Relinked();
    one.InsertRight(Record("d"));
    EXPECT_EQ(Paths(one), (std::vector<std::string>{"c", "b", "a", "d"}));
    EXPECT_STREQ(&one[3], "d");
}

TEST(Link, AppendReplaceAndCopy) {
    Link<bool> flags;
    EXPECT_EQ(flags(0), nullptr);
    EXPECT_FALSE(flags.DelLeft());
    for (int i = 0; i < 3; ++i)
        flags.InsertRight(false);
    EXPECT_TRUE(flags.ReplacePos(2, true) && flags.ReplacePos(0, true));
    EXPECT_FALSE(flags.ReplacePos(3, true));
    EXPECT_TRUE(*flags(0) && !*flags(1) && *flags(2));
    EXPECT_EQ(flags(3), nullptr);
    Link<bool> copy(flags);
    EXPECT_TRUE(flags.DelLeft());
    flags.InsertRight(false);
    EXPECT_TRUE(copy.count == 3 && *copy(0));
    EXPECT_FALSE(*flags(0) || *flags(2));
}
