#include "support/RecordFields.h"

#include <cstddef>
#include <random>

#if defined(__SANITIZE_ADDRESS__)
#define WATCH_ALLOCATIONS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WATCH_ALLOCATIONS 1
#endif
#endif

#if WATCH_ALLOCATIONS
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*mallocHook)(void const volatile*,
                                                                            std::size_t),
                                                         void (*freeHook)(void const volatile*));
#endif

namespace {

std::size_t largestAllocation = 0;
bool watching = false;

// The largest single allocation that `run` makes; 0 when the build cannot watch allocations.
template <class Run> std::size_t LargestAllocation(Run run) {
#if WATCH_ALLOCATIONS
    static int const installed = __sanitizer_install_malloc_and_free_hooks(
        [](void const volatile*, std::size_t size) {
            if (watching && size > largestAllocation)
                largestAllocation = size;
        },
        [](void const volatile*) {});
    (void)installed;
#endif
    largestAllocation = 0;
    watching = true;
    run();
    watching = false;
    return largestAllocation;
}

std::string Name(std::string const& text) {
    return Word(static_cast<DWORD>(text.size())) + text;
}

// The nine numbers of a record in their stored order.
std::vector<DWORD> Numbers(DFile const& f) {
    std::vector<DWORD> numbers;
    for (FILETIME const* date : {&f.dateWritten, &f.dateLastAccessed, &f.dateCreated})
        numbers.insert(numbers.end(), {date->dwLowDateTime, date->dwHighDateTime});
    numbers.insert(numbers.end(), {f.attributes, f.sizeLow, f.sizeHigh});
    return numbers;
}

// Every field different, the path with a zero byte and bytes above 127.
DFile Sample() {
    FILETIME const created = {0x10203040, 0x01C00001}, accessed = {0x50607080, 0x01D00002},
                   written = {0x90A0B0C0, 0x01E00003};
    DFile file(DName(), 0x821, 0x89ABCDEF, &created, &accessed, &written);
    file.fullPath = Raw(std::string("C:\\dir\0\xE9\xFF\\name.txt", 18));
    file.sizeHigh = 0x01234567;
    return file;
}

// Equal in every field but the key and the link.
bool Same(DFile const& a, DFile const& b) {
    return a == b && a.CompDates(a.dateLastAccessed, b.dateLastAccessed);
}

} // namespace

TEST(DFileStream, RoundTripsWithANewKeyEachWrite) {
    TempTree tree;
    DFile file = Sample();
    file.SetIndex(DName("index text"));
    ASSERT_TRUE(Store(file, tree.Path("first")));
    DName const firstKey = file.GetKey();
    ASSERT_TRUE(Store(file, tree.Path("second")));
    EXPECT_TRUE(firstKey != DName("index text") && file.GetKey() != firstKey);
    EXPECT_TRUE(!file.isDataEncrypted() && Same(file, Sample()));
    EXPECT_NE(FileBytes(tree.Path("first")), FileBytes(tree.Path("second")));
    DFile first, second;
    ASSERT_TRUE(Load(first, tree.Path("first")) && Load(second, tree.Path("second")));
    EXPECT_TRUE(Same(first, Sample()) && Same(second, Sample()));
    EXPECT_TRUE(first.GetKey() == firstKey && second.GetKey() == file.GetKey());

    // Scrambled by the caller: it goes out with its own key and is plain afterwards.
    ASSERT_TRUE(file.Encrypt());
    DName const key = file.GetKey();
    ASSERT_TRUE(Store(file, tree.Path("s")));
    EXPECT_TRUE(Same(file, Sample()) && Load(first, tree.Path("s")));
    EXPECT_TRUE(Same(first, Sample()) && first.GetKey() == key);
    FileOper closed, readOnly(tree.Path("s").c_str(), false); // a failing write, plain as well
    EXPECT_FALSE(file.Write(closed) || file >> readOnly);
    EXPECT_TRUE(Same(file, Sample()));
}

TEST(DFileStream, StreamLayoutIsPinned) {
    TempTree tree;
    std::string const path = tree.Path("s");
    // From its first state the Windows generator draws 41, 18467, 6334: a key of two
    // characters, 73 and 25, which replaces what the name held.
    DName key("old text");
    msvcrt_srand(1);
    ASSERT_TRUE(DFile().CreateHashKey(key));
    EXPECT_EQ(key, DName("\x49\x19"));

    // A path of one character, scrambled to "(", moves the position on by one: 25, 73, 25, 73.
    msvcrt_srand(1);
    DFile named = Sample();
    named.fullPath = "a";
    ASSERT_TRUE(Store(named, path));
    std::string expected = std::string("\x01", 1) + Name("\x49\x19") + Word(1) + "(";
    for (DWORD number : Numbers(Sample()))
        expected += Word(number ^ (25 * 2 + 73 * 256 + 25 + 73));
    EXPECT_EQ(FileBytes(path), expected);

    // Flag 0: taken as stored, key included.
    std::string stored = std::string("\x00", 1) + Name("key") + Name("C:\\plain");
    for (DWORD number = 1; number <= 9; ++number)
        stored += Word(number);
    DFile plain;
    ASSERT_TRUE(Load(plain, PutFileBytes(tree, stored)));
    EXPECT_FALSE(plain.isDataEncrypted());
    EXPECT_EQ(Shown(plain.GetKey()) + "|" + Shown(plain.GetFullPath()), "key|C:\\plain");
    EXPECT_EQ(Numbers(plain), (std::vector<DWORD>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(DFileStream, ScramblingKnownAnswers) {
    // Characters add up, shifted by 1, 8, 0 and 0; the position runs on across words; 128 and
    // 129 are negative and subtract; one character: every step comes back to it.
    auto mask = [](std::string const& key, unsigned& position) {
        DWORD word = 0;
        DFile().IncWord(word, Raw(key), position);
        return word;
    };
    std::string const six("\1\2\3\4\5\6");
    DWORD const at0 = 1 * 2 + 2 * 256 + 3 + 4, at4 = 5 * 2 + 6 * 256 + 1 + 2,
                at2 = 3 * 2 + 4 * 256 + 5 + 6;
    unsigned position = 0, single = 5, negative = 0;
    EXPECT_EQ(std::vector<DWORD>({mask(six, position), mask(six, position), position,
                                  mask("A", single), single, mask("\x80\x81\x10\x20", negative)}),
              std::vector<DWORD>({at0, at4, 2, 0x41u * 2 + 0x41 * 256 + 0x41 + 0x41, 1,
                                  static_cast<DWORD>(-128 * 2 - 127 * 256 + 48)}));

    // A record: the path of two characters first, then the words in the record's field order
    // (sizeLow, sizeHigh, attributes, created, accessed, written) take at2, at0, at4 in turn.
    DFile file = Sample();
    file.fullPath = "ab", file.hashKey = Raw(six), file.dataEncrypted = true;
    ASSERT_TRUE(file.Decrypt());
    DWORD const masks[] = {at0, at4, at4, at2, at2, at0, at4, at2, at0}; // in stored order
    for (unsigned i = 0; i < 9; ++i)
        EXPECT_EQ(Numbers(file)[i], Numbers(Sample())[i] ^ masks[i]) << i;
    EXPECT_FALSE(file.Decrypt()); // only once either way
    msvcrt_srand(1);
    DFile twice = Sample();
    ASSERT_TRUE(twice.Encrypt());
    DFile const scrambled(twice);
    EXPECT_TRUE(twice.isDataEncrypted() && twice.fullPath != Sample().fullPath);
    EXPECT_FALSE(twice.Encrypt());
    EXPECT_TRUE(Same(twice, scrambled) && twice.Decrypt() && Same(twice, Sample()));
}

TEST(DFileStream, DamagedStreamsGiveFalse) {
    // Records cut at every byte are read in StoredListingTest.
    TempTree tree;
    DFile read;
    // Cut inside the numbers: the whole fields before the cut are taken, no further.
    DFile partial = Sample();
    std::string const cut = PutFileBytes(tree, std::string("\x00", 1) + Name("") + Name("p") +
                                                   Word(1) + Word(2) + Word(3) + "xy");
    FileOper stream(cut.c_str(), false);
    EXPECT_FALSE(partial << stream); // the stream operator reads
    EXPECT_EQ(Shown(partial.GetFullPath()), "p");
    EXPECT_EQ(Ticks(partial.dateWritten), 2ull << 32 | 1);
    EXPECT_EQ(partial.dateLastAccessed.dwLowDateTime, 0x50607080u);

    // Random bytes: a record read takes at least its flag, two lengths and 36 bytes.
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string noise(random() % 300, '\0');
        for (char& c : noise)
            c = static_cast<char>(random() % 4 ? random() : random() % 4);
        FileOper in(PutFileBytes(tree, noise).c_str(), false);
        unsigned records = 0;
        while (records <= noise.size() && read.Read(in))
            ++records;
        EXPECT_LE(records, noise.size() / 45);
    }

    // Lengths that claim gigabytes fail before anything of that size is allocated.
    for (std::string const& lie :
         {std::string("\x01", 1) + Word(0xFFFFFFF0) + "abcdefgh",
          std::string("\x01", 1) + Name("ab") + Word(0x7FFFFFFF) + std::string(40, 'x')}) {
        std::string const path = PutFileBytes(tree, lie);
        bool result = true;
        std::size_t const largest = LargestAllocation([&] { result = Load(read, path); });
        EXPECT_FALSE(result);
        EXPECT_LT(largest, 1u << 20); // the stream's own buffer at most
    }
    EXPECT_STREQ(&read.GetKey(), "ab");
}
