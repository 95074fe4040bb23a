// The pieces of the Windows C runtime that the library relies on: _memicmp and the rand
// generator, both the same on every system.
#include <tessik/platform.h>

#include <cstring>

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

std::uint16_t RandValue(DWORD state) {
    return static_cast<std::uint16_t>(state >> 16 & 0x7FFF);
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

namespace {

// The generator in lanes: four vectors of eight states, lane j holding the state of value i + j,
// all stepped 32 values on at a time (the generator taken n times is again one multiply-add), so
// the multiply-adds of a round do not wait for each other. Written with the compiler's vector
// types; on x86-64 a second copy, built for AVX2, serves when the processor has it.
constexpr unsigned randWidth = 8, randVectors = 4, randLanes = randWidth * randVectors;

// The steps from a state to the first `randLanes` values after it.
struct RandStarts {
    DWORD multiplier[randLanes];
    DWORD increment[randLanes];
};

constexpr RandStarts MakeRandStarts() {
    RandStarts starts = {};
    for (unsigned j = 0; j < randLanes; ++j) {
        starts.multiplier[j] = RandSteps(j + 1).multiplier;
        starts.increment[j] = RandSteps(j + 1).increment;
    }
    return starts;
}

constexpr RandStarts randStarts = MakeRandStarts();

inline __attribute__((always_inline)) void DrawLanes(std::uint16_t* values, std::size_t count) {
    typedef DWORD States __attribute__((vector_size(randWidth * sizeof(DWORD))));
    typedef std::uint16_t Values __attribute__((vector_size(randWidth * sizeof(std::uint16_t))));
    constexpr RandStep round = RandSteps(randLanes);
    if (count == 0)
        return;
    States lane[randVectors];
    for (unsigned v = 0; v < randVectors; ++v) {
        States multiplier, increment;
        std::memcpy(&multiplier, randStarts.multiplier + v * randWidth, sizeof multiplier);
        std::memcpy(&increment, randStarts.increment + v * randWidth, sizeof increment);
        lane[v] = randState * multiplier + increment;
    }
    for (std::size_t i = 0;; i += randLanes) {
        Values out[randVectors];
        for (unsigned v = 0; v < randVectors; ++v)
            out[v] = __builtin_convertvector(lane[v] >> 16 & 0x7FFF, Values);
        if (count - i <= randLanes) { // the last round: its first values, and the state behind
            std::size_t const last = count - i - 1;
            std::memcpy(values + i, out, (last + 1) * sizeof(std::uint16_t));
            randState = lane[last / randWidth][last % randWidth];
            return;
        }
        std::memcpy(values + i, out, sizeof out);
        for (unsigned v = 0; v < randVectors; ++v)
            lane[v] = lane[v] * round.multiplier + round.increment;
    }
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) void DrawLanesAvx2(std::uint16_t* values, std::size_t count) {
    DrawLanes(values, count);
}
#endif

} // namespace

void msvcrt_rand_many(std::uint16_t* values, std::size_t count) {
#if defined(__x86_64__)
    static bool const avx2 = __builtin_cpu_supports("avx2");
    if (avx2)
        return DrawLanesAvx2(values, count);
#endif
    DrawLanes(values, count);
}

void msvcrt_srand(unsigned seed) {
    randState = seed;
}
