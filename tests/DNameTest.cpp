#include <tessik/DName.h>
#include <tessik/FileOper.h>
#include <tessik/ShortName.h>

#include "support/Backend.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <memory>
#include <string>

namespace {

std::string Bytes(DName const& name) {
    return std::string(&name, name.Size());
}

DName Raw(std::string const& bytes) {
    DName name;
    name.Namen(bytes.data(), static_cast<unsigned int>(bytes.size()));
    return name;
}

// What a path edit answered and left: "+text" or "-text".
template <class Edit> std::string Edited(char const* path, Edit edit) {
    DName name(path);
    bool done = std::invoke(edit, name);
    return std::string(done ? "+" : "-") + &name;
}

// The same for an edit that hands a part out: "+text|part".
std::string Parted(char const* path, bool (DName::*edit)(DName&)) {
    DName name(path);
    DName part("old");
    bool done = (name.*edit)(part);
    return std::string(done ? "+" : "-") + &name + "|" + &part;
}

std::string const kZeros("a\0b", 3);

} // namespace

TEST(DName, HoldsBytesAndKeepsItsLink) {
    DName empty;
    EXPECT_STREQ(&empty, "");
    DName fromNull("x");
    EXPECT_TRUE(fromNull.Namen(nullptr, 5));
    EXPECT_TRUE(fromNull.isEmpty());

    DName zeros = Raw(kZeros);
    EXPECT_EQ(zeros.Size(), 3u);
    EXPECT_EQ(zeros.Char(2), 'b');
    EXPECT_EQ(zeros[1000], 0);
    EXPECT_EQ((&zeros)[3], 0);

    DName other("y");
    DName* const otherAddress = std::addressof(other);
    zeros.link = otherAddress;
    DName copy(zeros);
    EXPECT_EQ(copy.link, nullptr);
    EXPECT_EQ(Bytes(copy), kZeros);
    zeros = other;
    EXPECT_TRUE(zeros.Copy(copy));
    EXPECT_EQ(zeros.link, otherAddress);

    DName inner("abcdef");
    inner = &inner + 2; // a text inside the name itself
    inner = inner;
    EXPECT_EQ(inner, "cdef");

    EXPECT_TRUE(DName(0).isEmpty());
    EXPECT_EQ(DName(INT_MIN), "-2147483648");
}

TEST(DName, OrdersUnsignedBytesCaseSensitivelyPrefixFirst) {
    EXPECT_TRUE(DName("a") < DName("ab"));
    EXPECT_TRUE(DName("A") < DName("a"));
    EXPECT_TRUE(DName("\xff") > DName("z"));
    EXPECT_EQ(DName("b").Comp(DName("a")), 1);

    char const* none = nullptr;
    EXPECT_TRUE(DName() == none);
    EXPECT_TRUE(DName("a") != none);
    EXPECT_TRUE(DName("abc") != "ab");
    EXPECT_TRUE(Raw(kZeros) != "a");
    EXPECT_TRUE(Raw(kZeros) != DName("a"));
}

TEST(DName, Edits) {
    DName s("b");
    EXPECT_TRUE(s.InsertLeft(DName("a")));
    EXPECT_TRUE(s.InsertRight(DName("c")));
    s += s;
    EXPECT_TRUE(s.InsertLeft(s));
    EXPECT_EQ(s, "abcabcabcabc");
    EXPECT_TRUE(s.DelRight(9));
    s += "de";
    s += static_cast<char const*>(nullptr);
    EXPECT_EQ(s, "abcde");

    DName t("x");
    EXPECT_TRUE(t.InsertRight('-', 3));
    EXPECT_FALSE(t.ModPos(4, 'z'));
    EXPECT_FALSE(t.Replace('-', '-'));
    EXPECT_EQ(t.FindFirstChar('-', 3), 3u);
    EXPECT_EQ(t.FindFirstChar('q'), 4u);

    EXPECT_EQ(Bytes(Raw(kZeros) + Raw(kZeros)), kZeros + kZeros);
}

TEST(DName, Numbers) {
    DName n;
    EXPECT_STREQ(&n.FromLong64(0, 1), "0");
    EXPECT_STREQ(&n.FromLong64(1000, 1), "1,000");
    EXPECT_STREQ(&n.FromLong64(1234567, 0), "1234567");
    EXPECT_STREQ(&n.FromLong64(UINT64_MAX, 1), "18,446,744,073,709,551,615");

    EXPECT_EQ(DName(" \t42abc").ToWord(), 42u);
    EXPECT_EQ(DName("-5").ToWord(), 0u);
    EXPECT_EQ(DName("4294967297").ToWord(), 1u);

    DName version("v1.22-333");
    unsigned int end = 0;
    EXPECT_EQ(version.GetNumber(1, &end), 22u);
    EXPECT_EQ(end, 5u);
    EXPECT_EQ(version.GetNumber(3, &end), 0u);
    EXPECT_EQ(end, 9u);
}

TEST(DName, TakesPathsApart) {
    bool (DName::*remDir)() = &DName::RemDir;
    bool (DName::*remFilename)() = &DName::RemFilename;
    EXPECT_EQ(Edited("C:\\a\\b\\", remDir), "+b");
    EXPECT_EQ(Edited("C:a", remDir), "+a");
    EXPECT_EQ(Edited("C:\\", remDir), "-");
    EXPECT_EQ(Edited("C:\\a\\b.txt", remFilename), "+C:\\a");
    EXPECT_EQ(Edited("C:\\a.txt", remFilename), "+C:\\");
    EXPECT_EQ(Edited("a//b", remFilename), "+a");
    EXPECT_EQ(Edited("C:\\a\\", remFilename), "+C:\\a");
    EXPECT_EQ(Edited("\\", remFilename), "-\\");

    EXPECT_EQ(Parted("C:\\a\\b\\\\", &DName::RemDir), "+C:\\a\\b|b");
    EXPECT_EQ(Parted("C:\\", &DName::RemDir), "+C:\\|");
    EXPECT_EQ(Parted("", &DName::RemDir), "-|old");
    EXPECT_EQ(Parted("C:\\a\\b.txt", &DName::RemFilename), "+C:\\a|b.txt");
    EXPECT_EQ(Parted("C:\\x", &DName::RemDrive), "+\\x|C:");
    EXPECT_EQ(Parted("1:\\x", &DName::RemDrive), "-1:\\x|old");
    EXPECT_EQ(Parted("\\\\a\\b/c", &DName::RemIndexDir), "+b/c|a");
    EXPECT_EQ(Parted("//", &DName::RemIndexDir), "-//|old");

    DName self("C:\\a\\b");
    EXPECT_TRUE(self.RemDir(self));
    EXPECT_EQ(self, "b");
}

TEST(DName, JoinsPaths) {
    auto home = [](char const* where, bool forward) {
        return [=](DName& name) { return name.AddHome(DName(where), forward); };
    };
    EXPECT_EQ(Edited("x.txt", home("C:\\d", false)), "+C:\\d\\x.txt");
    EXPECT_EQ(Edited("x", home("/d/", true)), "+/d/x");
    EXPECT_EQ(Edited("x", home("", true)), "+x");

    DName dir("/");
    EXPECT_TRUE(dir.AddFile(DName("x"), true));
    EXPECT_TRUE(dir.AddFile(dir, false));
    EXPECT_EQ(dir, "/x\\/x");

    auto attach = [](DName& name) { return name.AttachSlash(false); };
    EXPECT_EQ(Edited("C:", attach), "+C:\\");
    EXPECT_EQ(Edited("", attach), "+\\");

    auto chopOne = [](DName& name) { return name.ChopPath(false); };
    auto chopAll = [](DName& name) { return name.ChopPath(true); };
    EXPECT_EQ(Edited("C:\\a\\\\", chopOne), "+C:\\a\\");
    EXPECT_EQ(Edited("C:\\a\\/", chopAll), "+C:\\a");
    EXPECT_EQ(Edited("C:\\", chopAll), "-C:\\");
}

TEST(DName, StreamFormSurvivesARoundTripAndRefusesDamage) {
    TempTree tree;
    std::string path = tree.Path("names.bin");
    {
        FileOper out(path.c_str(), true);
        EXPECT_TRUE(DName("plain").Write(out));
        EXPECT_TRUE(DName().Write(out));
        EXPECT_TRUE(Raw(kZeros).Write(out));
        EXPECT_EQ(out.GetLength(), 4u + 5 + 4 + 4 + 3);
    }
    FileOper in(path.c_str(), false);
    DName name("before");
    EXPECT_TRUE(name.Read(in));
    EXPECT_EQ(name, "plain");
    EXPECT_TRUE(name.Read(in));
    EXPECT_TRUE(name.isEmpty());
    EXPECT_TRUE(name.Read(in));
    EXPECT_FALSE(name.Read(in));
    EXPECT_EQ(Bytes(name), kZeros);

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
    DName key("k3y");
    DName plain = Raw(std::string("secret\0text", 11));
    DName scrambled(plain);
    unsigned int position = 5;
    scrambled.det(key, position);
    EXPECT_EQ(position, 16u);
    EXPECT_TRUE(scrambled != plain);

    // In pieces as at once, and another start gives other bytes.
    DName head("secret");
    DName tail = Raw(std::string("\0text", 5));
    unsigned int piecewise = 5;
    head.det(key, piecewise);
    tail.det(key, piecewise);
    EXPECT_TRUE(head + tail == scrambled);
    DName elsewhere(plain);
    unsigned int other = 6;
    elsewhere.det(key, other);
    EXPECT_TRUE(elsewhere != scrambled);

    position = 5;
    scrambled.det(key, position);
    EXPECT_TRUE(scrambled == plain);
    unsigned int unkeyed = 3;
    scrambled.det(DName(), unkeyed);
    EXPECT_TRUE(scrambled == plain);
    EXPECT_EQ(unkeyed, 14u);
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

TEST(DName, ShortNameStandsForItsText) {
    ShortName abc("abc");
    EXPECT_TRUE(abc == ShortName("abc"));
    EXPECT_FALSE(abc == ShortName("abd"));
    EXPECT_EQ(abc.Length(), 3u);
    EXPECT_TRUE(ShortName() == ShortName(""));
}
