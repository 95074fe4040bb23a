// The pieces of the Windows C runtime that the library relies on: _memicmp and the rand
// generator, both the same on every system.
#include <tessik/platform.h>

namespace {

struct FoldTable {
    unsigned char lower[256];
    constexpr FoldTable() : lower() {
        for (unsigned i = 0; i < 256; ++i)
            lower[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
    }
};

constexpr FoldTable fold;

// One generator per thread, each starting at 1, as the Windows runtime keeps it.
thread_local DWORD randState = 1;

} // namespace

// Folds to lower case, as the Windows runtime does: '_' sorts before letters.
int _memicmp(void const* a, void const* b, std::size_t n) {
    unsigned char const* left = static_cast<unsigned char const*>(a);
    unsigned char const* right = static_cast<unsigned char const*>(b);
    if (n != 0 && (!left || !right))
        return 0x7FFFFFFF; // the runtime's error value
    for (std::size_t i = 0; i < n; ++i) {
        if (left[i] == right[i])
            continue;
        int const difference = fold.lower[left[i]] - fold.lower[right[i]];
        if (difference != 0)
            return difference;
    }
    return 0;
}

int msvcrt_rand() {
    randState = randState * 214013u + 2531011u;
    return static_cast<int>(randState >> 16 & 0x7FFF);
}

void msvcrt_srand(unsigned seed) {
    randState = seed;
}
