#include "support/Records.h"

#include <climits>
#include <functional>
#include <memory>
#include <random>
#include <utility>

namespace {

// What an edit answered and left: "+text" or "-text".
template <class Edit> std::string Edited(char const* path, Edit edit) {
    DName name(path);
    bool done = std::invoke(edit, name);
    return std::string(done ? "+" : "-") + &name;
}

// The same for an edit that hands a part out: "+text|part".
std::string Parted(char const* path, bool (DName::*edit)(DName&)) {
    DName name(path), part("old");
    bool done = (name.*edit)(part);
    return std::string(done ? "+" : "-") + &name + "|" + &part;
}

std::string const kZeros("a\0b", 3);

} // namespace

TEST(DName, HoldsBytesAndKeepsItsLink) {
    DName fromNull("x");
    EXPECT_TRUE(fromNull.Namen(nullptr, 5) && fromNull.isEmpty());
    DName zeros = Raw(kZeros);
    EXPECT_TRUE(zeros.Size() == 3 && zeros.Char(2) == 'b' && zeros[1000] == 0 && (&zeros)[3] == 0);
    DName other("y");
    zeros.link = std::addressof(other);
    DName copy(zeros);
    EXPECT_TRUE(copy.link == nullptr && Shown(copy) == kZeros);
    zeros = other;
    EXPECT_TRUE(zeros.Copy(copy) && zeros.link == std::addressof(other));
    DName inner("abcdef");
    inner = &inner + 2; // a text inside the name itself
    inner = inner;
    EXPECT_TRUE(inner == "cdef" && DName(0).isEmpty());
    EXPECT_EQ(DName(INT_MIN), "-2147483648");
    EXPECT_TRUE(DName() == static_cast<char const*>(nullptr) &&
                DName("a") != static_cast<char const*>(nullptr));
    EXPECT_TRUE(Raw(kZeros) != "a" && Raw(kZeros) != DName("a"));
    EXPECT_FALSE(ShortName("abc") == ShortName("abd"));
}

// Unsigned bytes, a text before any longer text it begins: the order of std::string.
TEST(DName, OrdersAsPlainByteStrings) {
    std::mt19937 random(5);
    std::string const alphabet("aAz\0\x7f\x80\xff", 7);
    auto text = [&] {
        std::string s(random() % 5, ' ');
        for (char& c : s)
            c = alphabet[random() % alphabet.size()];
        return s;
    };
    for (int round = 0; round < 3000; ++round) {
        std::string const a = text(), b = text();
        DName const x = Raw(a), y = Raw(b);
        int const expected = a < b ? -1 : (a > b ? 1 : 0);
        ASSERT_EQ(x.Comp(y), expected) << round;
        ASSERT_EQ(std::vector<bool>({x == y, x != y, x<y, x> y, x <= y, x >= y}),
                  std::vector<bool>({a == b, a != b, a<b, a> b, a <= b, a >= b}))
            << round;
    }
}

TEST(DName, EditsAndNumbers) {
    DName s("b");
    EXPECT_TRUE(s.InsertLeft(DName("a")) && s.InsertRight(DName("c")));
    s += s;
    EXPECT_TRUE(s.InsertLeft(s));
    EXPECT_EQ(s, "abcabcabcabc");
    EXPECT_TRUE(s.DelRight(9));
    s += "de";
    s += static_cast<char const*>(nullptr);
    EXPECT_EQ(s, "abcde");
    DName t("x");
    EXPECT_TRUE(t.InsertRight('-', 3));
    EXPECT_FALSE(t.ModPos(4, 'z') || t.Replace('-', '-'));
    EXPECT_TRUE(t.FindFirstChar('-', 3) == 3 && t.FindFirstChar('q') == 4);
    EXPECT_EQ(Shown(Raw(kZeros) + Raw(kZeros)), kZeros + kZeros);
    EXPECT_EQ(Shown(DName("x") + std::uint64_t{0}) + Shown(DName() + UINT64_MAX),
              "x018446744073709551615");

    auto number = [](std::uint64_t value, int commas) {
        DName n;
        return Shown(n.FromLong64(value, commas));
    };
    EXPECT_EQ(number(0, 1) + "|" + number(1000, 1) + "|" + number(1234567, 0) + "|" +
                  number(UINT64_MAX, 1),
              "0|1,000|1234567|18,446,744,073,709,551,615");
    EXPECT_EQ(std::vector<DWORD>(
                  {DName(" \t42abc").ToWord(), DName("-5").ToWord(), DName("4294967297").ToWord()}),
              std::vector<DWORD>({42, 0, 1}));
    DName version("v1.22-333");
    unsigned int end = 0, end3 = 0;
    EXPECT_TRUE(version.GetNumber(1, &end) == 22 && end == 5);
    EXPECT_TRUE(version.GetNumber(3, &end3) == 0 && end3 == 9);
}

TEST(DName, TakesPathsApartAndJoinsThem) {
    bool (DName::*remDir)() = &DName::RemDir;
    bool (DName::*remFilename)() = &DName::RemFilename;
    auto home = [](char const* where, bool forward) {
        return [=](DName& name) { return name.AddHome(DName(where), forward); };
    };
    auto attach = [](DName& name) { return name.AttachSlash(false); };
    auto chopOne = [](DName& name) { return name.ChopPath(false); };
    auto chopAll = [](DName& name) { return name.ChopPath(true); };
    bool (DName::*dirOut)(DName&) = &DName::RemDir;
    bool (DName::*fileOut)(DName&) = &DName::RemFilename;
    // clang-format off
    std::pair<std::string, char const*> const cases[] = {
        {Edited("C:\\a\\b\\", remDir), "+b"}, {Edited("C:a", remDir), "+a"},
        {Edited("C:\\", remDir), "-"}, {Edited("C:\\a\\b.txt", remFilename), "+C:\\a"},
        {Edited("C:\\a.txt", remFilename), "+C:\\"}, {Edited("a//b", remFilename), "+a"},
        {Edited("C:\\a\\", remFilename), "+C:\\a"}, {Edited("\\", remFilename), "-\\"},
        {Parted("C:\\a\\b\\\\", dirOut), "+C:\\a\\b|b"}, {Parted("C:\\", dirOut), "+C:\\|"},
        {Parted("", dirOut), "-|old"}, {Parted("C:\\a\\b.txt", fileOut), "+C:\\a|b.txt"},
        {Parted("C:\\x", &DName::RemDrive), "+\\x|C:"},
        {Parted("1:\\x", &DName::RemDrive), "-1:\\x|old"},
        {Parted("\\\\a\\b/c", &DName::RemIndexDir), "+b/c|a"},
        {Parted("//", &DName::RemIndexDir), "-//|old"},
        {Edited("x.txt", home("C:\\d", false)), "+C:\\d\\x.txt"},
        {Edited("x", home("/d/", true)), "+/d/x"}, {Edited("x", home("", true)), "+x"},
        {Edited("C:", attach), "+C:\\"}, {Edited("", attach), "+\\"},
        {Edited("C:\\a\\\\", chopOne), "+C:\\a\\"}, {Edited("C:\\a\\/", chopAll), "+C:\\a"},
        {Edited("C:\\", chopAll), "-C:\\"},
    }; // clang-format on
    for (auto const& c : cases)
        EXPECT_EQ(c.first, c.second) << &c - cases;

    DName self("C:\\a\\b");
    EXPECT_TRUE(self.RemDir(self) && self == "b");
    DName dir("/");
    EXPECT_TRUE(dir.AddFile(DName("x"), true) && dir.AddFile(dir, false));
    EXPECT_EQ(dir, "/x\\/x");
}

// The stream form is read and written with every record, in DFileStreamTest and StoredListingTest.
TEST(DName, RadixFormSurvivesARoundTrip) {
    DName all;
    for (int value = 0; value < 256; ++value) // not `byte`, a type of <windows.h>
        all.InsertRight(static_cast<char>(value), 1);
    for (unsigned int radix = 2; radix <= 36; ++radix) {
        DName form = all.ToRadix(radix);
        EXPECT_TRUE(form.FromRadix(radix) == all) << radix;
        EXPECT_TRUE(form.FromRadix(radix).ToRadix(radix) == form) << radix;
    }
    EXPECT_EQ(Shown(Raw(std::string("\x0f\xa0")).ToRadix(16)) + Shown(DName("\x05").ToRadix(2)) +
                  Shown(DName("\xff").ToRadix(36)),
              "0fa00000010173");

    EXPECT_TRUE(all.ToRadix(1).isEmpty() && all.ToRadix(37).isEmpty());
    for (char const* bad : {"0fa", "0g", "0F", "256"})
        EXPECT_TRUE(DName(bad).FromRadix(bad[0] == '0' ? 16 : 10).isEmpty()) << bad;
}

// Pinned with the records' scrambling in DFileStreamTest. Without a key it only moves on by the
// length; a position that wraps past 2^32 inside the text goes on as one that starts at 0.
TEST(DName, DetWithoutAKeyAndAcrossTheWrap) {
    DName const plain = Raw(std::string("secret\0text", 11));
    DName text = plain, across = plain, head("sec"), tail = Raw(std::string("ret\0text", 8));
    unsigned int position = 3, end = 0u - 3, start = 0u - 3, zero = 0;
    text.det(DName(), position);
    EXPECT_TRUE(text == plain && position == 14);
    DName const key("k3y");
    across.det(key, end);
    head.det(key, start);
    tail.det(key, zero);
    EXPECT_TRUE(end == 8 && across == head + tail);
}
