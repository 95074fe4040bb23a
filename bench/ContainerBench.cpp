// Appending records to a listing and reading them back by position.
#include <tessik/tessik.h>

#include <benchmark/benchmark.h>

namespace {

void AppendAndReadByPosition(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFile const record(DName("Z:\\some\\directory\\file.txt"), 0x20, 1234, nullptr, nullptr,
                       nullptr);
    for (auto _ : state) {
        DFileLoad load;
        for (unsigned i = 0; i < count; ++i)
            load.InsertRight(record);
        std::uint64_t total = 0;
        for (unsigned i = 0; i < load.Size(); ++i)
            total += load[i].GetFileSize();
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * count);
}

} // namespace

BENCHMARK(AppendAndReadByPosition)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
