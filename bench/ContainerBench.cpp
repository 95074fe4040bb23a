// Appending records to a listing, and reading them back by position.
#include <tessik/tessik.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

DFile const record(DName("Z:\\some\\directory\\file.txt"), 0x20, 1234, nullptr, nullptr, nullptr);

void AppendRecords(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    for (auto _ : state) {
        auto load = std::make_unique<DFileLoad>();
        for (unsigned i = 0; i < count; ++i)
            load->InsertRight(record);
        state.PauseTiming();
        load.reset(); // freeing the records is no part of appending
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void ReadByPosition(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad load;
    for (unsigned i = 0; i < count; ++i)
        load.InsertRight(record);
    for (auto _ : state) {
        std::uint64_t total = 0;
        for (unsigned i = 0; i < load.Size(); ++i)
            total += load[i].GetFileSize();
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * count);
}

} // namespace

BENCHMARK(AppendRecords)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(ReadByPosition)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
