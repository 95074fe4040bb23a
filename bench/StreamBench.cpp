// Records to and from a stream, and the operations over a whole listing: thinning, the figures
// over its records, and copying.
#include <tessik/tessik.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

DFileLoad* Build(unsigned count) {
    auto* listing = new DFileLoad;
    FILETIME const date = {0x89ABCDEF, 0x01D00000};
    char path[64];
    for (unsigned i = 0; i < count; ++i) {
        std::snprintf(path, sizeof path, "Z:\\data\\dir%u\\file%u.txt", i / 100, i);
        DWORD const attributes = i % 3 == 0 ? 0x10 : 0x20;
        listing->InsertRight(DFile(DName(path), attributes, i, &date, &date, &date));
    }
    return listing;
}

// The listings of 1M and 2M records, both built at the first call, before anything else has
// churned the heap, and kept to the end: their records lie in memory as in a listing built in
// one go. Every third record is a directory; paths are about 40 bytes.
DFileLoad& Listing(unsigned count) {
    static std::unique_ptr<DFileLoad> const small(Build(1000000));
    static std::unique_ptr<DFileLoad> const large(Build(2000000));
    return count == small->Size() ? *small : *large;
}

// A write leaves its key in the record; the shared listings go back to records without one.
void DropKeys(DFileLoad& load) {
    for (DFile* record = load.files.head; record; record = record->next)
        record->hashKey.Destroy();
}

std::string StreamPath() {
    return (std::filesystem::temp_directory_path() /
            ("tessik-stream-bench-" + std::to_string(getpid())))
        .string();
}

void StreamWrite(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad& load = Listing(count);
    std::string const path = StreamPath();
    for (auto _ : state) {
        FileOper file(path.c_str(), true);
        for (DFile* record = load.files.head; record; record = record->next)
            benchmark::DoNotOptimize(record->Write(file));
    }
    std::remove(path.c_str());
    DropKeys(load);
    state.SetItemsProcessed(state.iterations() * count);
}

void StreamRead(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    std::string const path = StreamPath();
    {
        FileOper file(path.c_str(), true);
        for (DFile* record = Listing(count).files.head; record; record = record->next)
            record->Write(file);
    }
    DropKeys(Listing(count));
    for (auto _ : state) {
        FileOper file(path.c_str(), false);
        DFile record;
        unsigned read = 0;
        while (record.Read(file))
            ++read;
        if (read != count)
            state.SkipWithError("short stream");
    }
    std::remove(path.c_str());
    state.SetItemsProcessed(state.iterations() * count);
}

// Each round thins a copy of its own, made while the clock stands. The copies are kept to the
// end, so that each is laid out afresh instead of in the freed records of the one before.
template <bool (DFileLoad::*Remove)()> void Thinning(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad const& source = Listing(count);
    std::vector<std::unique_ptr<DFileLoad>> copies;
    for (auto _ : state) {
        state.PauseTiming();
        copies.push_back(std::make_unique<DFileLoad>(source));
        state.ResumeTiming();
        benchmark::DoNotOptimize(((*copies.back()).*Remove)());
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void ListingRemDirs(benchmark::State& state) {
    Thinning<&DFileLoad::RemDirs>(state);
}

void ListingRemFiles(benchmark::State& state) {
    Thinning<&DFileLoad::RemFiles>(state);
}

template <class Figure> void Figures(benchmark::State& state, Figure figure) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad const& load = Listing(count);
    for (auto _ : state)
        benchmark::DoNotOptimize(figure(load));
    state.SetItemsProcessed(state.iterations() * count);
}

void ListingGetTotalDirs(benchmark::State& state) {
    DName const dir("z:\\DATA\\dir1");
    Figures(state, [&](DFileLoad const& load) { return load.GetTotalDirs(dir); });
}

void ListingGetTotalFiles(benchmark::State& state) {
    Figures(state, [](DFileLoad const& load) { return load.GetTotalFiles(); });
}

void ListingGetTotalFileSizes(benchmark::State& state) {
    Figures(state, [](DFileLoad const& load) { return load.GetTotalFileSizes(); });
}

void ListingGetTotalAllocationSizes(benchmark::State& state) {
    Figures(state, [](DFileLoad const& load) { return load.GetTotalAllocationSizes(); });
}

void ListingCopy(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad const& source = Listing(count);
    for (auto _ : state) {
        auto copy = std::make_unique<DFileLoad>(source);
        benchmark::DoNotOptimize(copy->Size());
        state.PauseTiming();
        copy.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

} // namespace

// The walks first, while the heap holds little but the two listings.
BENCHMARK(ListingGetTotalDirs)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingGetTotalFiles)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingGetTotalFileSizes)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingGetTotalAllocationSizes)
    ->Arg(1000000)
    ->Arg(2000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ListingCopy)->Arg(1000000)->Arg(2000000)->MinTime(2)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingRemDirs)->Arg(1000000)->Arg(2000000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingRemFiles)
    ->Arg(1000000)
    ->Arg(2000000)
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(StreamWrite)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(StreamRead)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
