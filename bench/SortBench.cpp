// Sorting listings of a million records and more: by path with directories first, and by
// columns, each on a fresh listing in search order and once more on the sorted result.
#include <tessik/tessik.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <string>

namespace {

// Records with the paths and dates a search of a large tree gives, in no particular order.
void FillLikeASearch(DFileLoad& load, unsigned count) {
    std::mt19937 random(7);
    for (unsigned i = 0; i < count; ++i) {
        // Unique names, as a search gives them, in a random order.
        std::string const path = "Z:\\data\\dir" + std::to_string(random() % 5000) + "\\file" +
                                 std::to_string(random() % 1000000) + "-" + std::to_string(i) +
                                 ".txt";
        std::uint64_t const ticks = (13000000000ull + random() % 100000000) * 10000000ull;
        FILETIME const date{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        DWORD const attributes = random() % 10 == 0 ? 0x10 : 0x20;
        load.InsertRight(
            DFile(DName(path.c_str()), attributes, random() % 100000, &date, &date, &date));
    }
}

template <class SortOnce> void SortTwice(benchmark::State& state, SortOnce sort) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto load = std::make_unique<DFileLoad>();
        FillLikeASearch(*load, count);
        state.ResumeTiming();
        sort(*load);
        sort(*load);
        state.PauseTiming();
        load.reset(); // freeing the records is no part of sorting
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count * 2);
}

void SortByPath(benchmark::State& state) {
    SortTwice(state, [](DFileLoad& load) { load.Sort(); });
}

void SortAlphaBySize(benchmark::State& state) {
    SortTwice(state, [](DFileLoad& load) { load.SortAlpha(ColumnSize, false); });
}

void SortAlphaByWriteDateDescending(benchmark::State& state) {
    SortTwice(state, [](DFileLoad& load) { load.SortAlpha(ColumnWritten, true); });
}

} // namespace

BENCHMARK(SortByPath)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(SortAlphaBySize)
    ->Arg(1000000)
    ->Arg(2000000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK(SortAlphaByWriteDateDescending)
    ->Arg(1000000)
    ->Arg(2000000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
