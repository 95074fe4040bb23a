#include "support/Records.h"

#include <tessik/ShortName.h>

#include "support/Backend.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

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
    EXPECT_EQ(copy.link, nullptr);
    EXPECT_EQ(Shown(copy), kZeros);
    zeros = other;
    EXPECT_TRUE(zeros.Copy(copy));
    EXPECT_EQ(zeros.link, std::addressof(other));

    DName inner("abcdef");
    inner = &inner + 2; // a text inside the name itself
    inner = inner;
    EXPECT_EQ(inner, "cdef");
    EXPECT_TRUE(DName(0).isEmpty());
    EXPECT_EQ(DName(INT_MIN), "-2147483648");
    EXPECT_TRUE(DName() == static_cast<char const*>(nullptr));
    EXPECT_TRUE(DName("a") != static_cast<char const*>(nullptr));
    EXPECT_TRUE(Raw(kZeros) != "a" && Raw(kZeros) != DName("a"));
    EXPECT_TRUE(ShortName("abc") == ShortName("abc") && !(ShortName("abc") == ShortName("abd")));
    EXPECT_EQ(ShortName("abc").Length(), 3u);
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
    std::pair<std::string, char const*> const cases[] = {
        {Edited("C:\\a\\b\\", remDir), "+b"},
        {Edited("C:a", remDir), "+a"},
        {Edited("C:\\", remDir), "-"},
        {Edited("C:\\a\\b.txt", remFilename), "+C:\\a"},
        {Edited("C:\\a.txt", remFilename), "+C:\\"},
        {Edited("a//b", remFilename), "+a"},
        {Edited("C:\\a\\", remFilename), "+C:\\a"},
        {Edited("\\", remFilename), "-\\"},
        {Parted("C:\\a\\b\\\\", &DName::RemDir), "+C:\\a\\b|b"},
        {Parted("C:\\", &DName::RemDir), "+C:\\|"},
        {Parted("", &DName::RemDir), "-|old"},
        {Parted("C:\\a\\b.txt", &DName::RemFilename), "+C:\\a|b.txt"},
        {Parted("C:\\x", &DName::RemDrive), "+\\x|C:"},
        {Parted("1:\\x", &DName::RemDrive), "-1:\\x|old"},
        {Parted("\\\\a\\b/c", &DName::RemIndexDir), "+b/c|a"},
        {Parted("//", &DName::RemIndexDir), "-//|old"},
        {Edited("x.txt", home("C:\\d", false)), "+C:\\d\\x.txt"},
        {Edited("x", home("/d/", true)), "+/d/x"},
        {Edited("x", home("", true)), "+x"},
        {Edited("C:", attach), "+C:\\"},
        {Edited("", attach), "+\\"},
        {Edited("C:\\a\\\\", chopOne), "+C:\\a\\"},
        {Edited("C:\\a\\/", chopAll), "+C:\\a"},
        {Edited("C:\\", chopAll), "-C:\\"}};
    for (auto const& c : cases)
        EXPECT_EQ(c.first, c.second) << &c - cases;

    DName self("C:\\a\\b");
    EXPECT_TRUE(self.RemDir(self));
    EXPECT_EQ(self, "b");
    DName dir("/");
    EXPECT_TRUE(dir.AddFile(DName("x"), true) && dir.AddFile(dir, false));
    EXPECT_EQ(dir, "/x\\/x");
}

TEST(DName, StreamFormSurvivesARoundTripAndRefusesDamage) {
    TempTree tree;
    std::string path = tree.Path("names.bin");
    {
        FileOper out(path.c_str(), true);
        EXPECT_TRUE(DName("plain").Write(out) && DName().Write(out) && Raw(kZeros).Write(out));
        EXPECT_EQ(out.GetLength(), 4u + 5 + 4 + 4 + 3);
    }
    FileOper in(path.c_str(), false);
    DName name("before"), empty("before");
    EXPECT_TRUE(name.Read(in) && name == "plain" && empty.Read(in) && empty.isEmpty());
    EXPECT_TRUE(name.Read(in));
    EXPECT_FALSE(name.Read(in));
    EXPECT_EQ(Shown(name), kZeros);

    // A length behind which the bytes are missing, one far beyond the file, a cut header.
    for (std::string damaged : {std::string("\x0a\0\0\0abc", 7), std::string("\xf0\xff\xff\xff"),
                                std::string("\x01\0", 2)}) {
        tree.MakeFile("damaged.bin", damaged);
        FileOper file(tree.Path("damaged.bin").c_str(), false);
        DName kept("kept");
        EXPECT_FALSE(kept.Read(file));
        EXPECT_EQ(kept, "kept");
    }
}

TEST(DName, RadixFormSurvivesARoundTrip) {
    DName all;
    for (int value = 0; value < 256; ++value) // not `byte`, a type of <windows.h>
        all.InsertRight(static_cast<char>(value), 1);
    for (unsigned int radix = 2; radix <= 36; ++radix) {
        DName form = all.ToRadix(radix);
        EXPECT_TRUE(form.FromRadix(radix) == all) << radix;
        EXPECT_TRUE(form.FromRadix(radix).ToRadix(radix) == form) << radix;
    }
    EXPECT_EQ(Raw(std::string("\x0f\xa0")).ToRadix(16), "0fa0");
    EXPECT_EQ(DName("\x05").ToRadix(2), "00000101");
    EXPECT_EQ(DName("\xff").ToRadix(36), "73");

    EXPECT_TRUE(all.ToRadix(1).isEmpty());
    EXPECT_TRUE(all.ToRadix(37).isEmpty());
    for (char const* bad : {"0fa", "0g", "0F"})
        EXPECT_TRUE(DName(bad).FromRadix(16).isEmpty()) << bad;
    EXPECT_TRUE(DName("256").FromRadix(10).isEmpty());
}

TEST(DName, DetUndoesItselfFromTheSameStart) {
    DName const key("k3y"), plain = Raw(std::string("secret\0text", 11));
    auto det = [&](DName text, unsigned int start, DName const& with, unsigned int* end = nullptr) {
        text.det(with, start);
        if (end)
            *end = start;
        return text;
    };
    unsigned int end = 0, piece = 0, unkeyed = 0;
    DName const scrambled = det(plain, 5, key, &end);
    EXPECT_TRUE(end == 16 && scrambled != plain && det(scrambled, 5, key) == plain);
    EXPECT_TRUE(det(plain, 6, key) != scrambled);            // another start, other bytes
    DName const head = det(DName("secret"), 5, key, &piece); // in pieces as at once
    EXPECT_TRUE(head + det(Raw(std::string("\0text", 5)), piece, key) == scrambled);
    EXPECT_TRUE(det(plain, 3, DName(), &unkeyed) == plain && unkeyed == 14);
}

TEST(Wildcard, MatchesStarsAndQuestionMarksInAnyCase) {
    ONLY_ON_POSIX_BACKEND("PathMatchSpecA as emulated (Wine's: abc is not abc.*, null crashes)");
    char const* const matching[][2] = {{"README.TXT", "*.txt"},
                                       {"abxbcd", "*b?d"},
                                       {"mississippi", "m*iss*ppi"},
                                       {"abc", "abc.*"},
                                       {"noext", "*.*"},
                                       {"a.b.c", "*.C"},
                                       {"", "*"}};
    char const* const failing[][2] = {
        {"readme.txt", "*.doc"}, {"", "?"},        {"abc", "a?"},    {"mississippi", "m*iss*ppx"},
        {"abcd", "abc.*"},       {"a.b.c", "*.b"}, {"ab", "*?*?*?*"}};
    for (auto const& c : matching)
        EXPECT_TRUE(DName(c[0]).isFileSpec(DName(c[1]))) << c[0] << " ~ " << c[1];
    for (auto const& c : failing)
        EXPECT_FALSE(DName(c[0]).isFileSpec(DName(c[1]))) << c[0] << " ~ " << c[1];
    EXPECT_FALSE(PathMatchSpecA(nullptr, "*"));

    // Would take ages with a matcher that tries every split.
    std::string many(5000, 'a');
    EXPECT_FALSE(PathMatchSpecA(many.c_str(), "*a*a*a*a*a*a*a*a*a*a*b"));
}
