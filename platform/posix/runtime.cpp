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

constexpr DWORD randMultiplier = 214013u;
constexpr DWORD randIncrement = 2531011u;

// The step state * multiplier + increment, taken `steps` times, is itself one step
// state * multiplier' + increment' (all modulo 2^32).
struct RandStep {
    DWORD multiplier;
    DWORD increment;
};

constexpr RandStep RandSteps(unsigned steps) {
    RandStep step = {1, 0};
    for (unsigned i = 0; i < steps; ++i)
        step = {step.multiplier * randMultiplier, step.increment * randMultiplier + randIncrement};
    return step;
}

int RandValue(DWORD state) {
    return static_cast<int>(state >> 16 & 0x7FFF);
}

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
    randState = randState * randMultiplier + randIncrement;
    return RandValue(randState);
}

// Eight lanes, each eight steps of the generator at a time: lane j holds the state of value
// i + j, so the eight multiply-adds of a round are independent of each other.
void msvcrt_rand_many(int* values, std::size_t count) {
    constexpr unsigned lanes = 8;
    constexpr RandStep round = RandSteps(lanes);
    DWORD state = randState;
    std::size_t i = 0;
    if (count >= lanes) {
        DWORD lane[lanes];
        for (unsigned j = 0; j < lanes; ++j)
            lane[j] = state = state * randMultiplier + randIncrement;
        for (;; i += lanes) {
            for (unsigned j = 0; j < lanes; ++j)
                values[i + j] = RandValue(lane[j]);
            state = lane[lanes - 1];
            if (count - i < 2 * lanes)
                break;
            for (unsigned j = 0; j < lanes; ++j)
                lane[j] = lane[j] * round.multiplier + round.increment;
        }
        i += lanes;
    }
    for (; i < count; ++i)
        values[i] = RandValue(state = state * randMultiplier + randIncrement);
    randState = state;
}

void msvcrt_srand(unsigned seed) {
    randState = seed;
}
