// Stored listings and comparisons: writing and reading a listing's stream, looking a path up in a
// stream and in a listing, and the differences of two listings.
#include <tessik/tessik.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// A listing as a search of a large tree gives it: directories of 50 entries, paths about 45
// bytes, sizes and dates that differ from record to record.
DName EntryPath(unsigned i) {
    char path[96];
    std::snprintf(path, sizeof path, "Z:\\projects\\tree%u\\folder%u\\entry-%u.dat", i / 5000,
                  i / 50, i);
    return DName(path);
}

void Fill(DFileLoad& listing, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
        FILETIME const date = {0x2C7B6000u + i * 7919u, 0x01D00000};
        listing.InsertRight(
            DFile(EntryPath(i), i % 50 == 0 ? 0x10 : 0x20, i * 37u, &date, &date, &date));
    }
}

// One listing per process and size (bench/ratios.sh runs each size in a process of its own).
DFileLoad& Listing(unsigned count) {
    static std::unique_ptr<DFileLoad> listing;
    if (!listing || listing->Size() != count) {
        listing = std::make_unique<DFileLoad>();
        Fill(*listing, count);
    }
    return *listing;
}

// Streams go to memory where the system has a file system there, so that a write measures the
// way to the page cache and not the disk, which the machine shares.
std::string StreamPath(char const* what) {
    std::error_code error;
    bool const shm = std::filesystem::is_directory("/dev/shm", error);
    return ((shm ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path()) /
            ("tessik-storage-bench-" + std::to_string(getpid()) + "-" + what))
        .string();
}

// The stored listing of `count` records, written once for the readers by a child process, so
// that a reader's heap is as fresh as that of a host that loads a stored listing.
std::string const& StoredListing(unsigned count) {
    // The file goes when the process ends.
    static struct Stream {
        std::string const path = StreamPath("listing");
        ~Stream() { std::remove(path.c_str()); }
    } const stream;
    std::string const& path = stream.path;
    static unsigned stored = 0;
    if (stored != count) {
        pid_t const child = fork();
        if (child == 0) {
            DFileLoad listing;
            Fill(listing, count);
            FileOper out(path.c_str(), true);
            bool const written = listing.Write(out) && out.Flush();
            _exit(written ? 0 : 1);
        }
        int status = 1;
        waitpid(child, &status, 0);
        stored = count;
    }
    return path;
}

// Wall and processor time since a start. The machine is shared, so a wall time may include
// waits for a processor; the processor time of the process (user and system) does not.
struct Clocks {
    std::chrono::steady_clock::time_point wall = std::chrono::steady_clock::now();
    std::clock_t cpu = std::clock();

    double WallSeconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - wall).count();
    }
    double CpuSeconds() const { return double(std::clock() - cpu) / CLOCKS_PER_SEC; }
};

struct Best {
    double wall = 1e9;
    double cpu = 1e9;

    void Take(Clocks const& since) {
        wall = std::min(wall, since.WallSeconds());
        cpu = std::min(cpu, since.CpuSeconds());
    }
};

// The same number of bytes as a listing's stream, in blocks of 1 MiB.
void PlainWrite(std::string const& path, std::uint64_t bytes, Best& best) {
    std::vector<char> const block(1 << 20, 'x');
    std::remove(path.c_str());
    FileOper out(path.c_str(), true);
    Clocks const start;
    for (std::uint64_t left = bytes; left > 0;) {
        DWORD const n = static_cast<DWORD>(std::min<std::uint64_t>(left, block.size()));
        out.Write(block.data(), n);
        left -= n;
    }
    out.Close();
    best.Take(start);
}

// Each round writes the listing to a new file (a truncated one would free its blocks inside the
// clock), then, outside the clock, as many plain bytes. The counters compare the best write with
// the best plain write of the run, both measured in turn: `vsPlain` by wall time, `vsPlainCpu`
// by processor time.
void ListingWrite(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad& listing = Listing(count);
    std::string const path = StreamPath("write"), plain = StreamPath("plain");
    Best write, plainWrite;
    for (auto _ : state) {
        state.PauseTiming();
        std::remove(path.c_str());
        FileOper out(path.c_str(), true);
        Clocks const start;
        state.ResumeTiming();
        benchmark::DoNotOptimize(listing.Write(out));
        out.Close();
        state.PauseTiming();
        write.Take(start);
        PlainWrite(plain, std::filesystem::file_size(path), plainWrite);
        state.ResumeTiming();
    }
    state.counters["vsPlain"] = write.wall / plainWrite.wall;
    state.counters["vsPlainCpu"] = write.cpu / plainWrite.cpu;
    state.counters["plainMs"] = plainWrite.wall * 1000;
    state.counters["plainCpuMs"] = plainWrite.cpu * 1000;
    std::remove(path.c_str());
    std::remove(plain.c_str());
    state.SetItemsProcessed(state.iterations() * count);
}

void ListingRead(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    std::string const& path = StoredListing(count);
    for (auto _ : state) {
        auto listing = std::make_unique<DFileLoad>();
        FileOper in(path.c_str(), false);
        if (!listing->Read(in) || listing->Size() != count)
            state.SkipWithError("short stream");
        state.PauseTiming();
        listing.reset(); // freeing the records is no part of reading
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

// The last record's path: the whole stream is read.
void ListingReadFind(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    std::string const& path = StoredListing(count);
    DName const last = EntryPath(count - 1);
    DFileLoad any;
    for (auto _ : state) {
        FileOper in(path.c_str(), false);
        DFile record;
        if (!any.ReadFind(in, last, record))
            state.SkipWithError("not found");
    }
    state.SetItemsProcessed(state.iterations() * count);
}

// `other` holds the same records in another order, every hundredth changed by one second.
void ListingFindDifferences(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad& mine = Listing(count);
    DFileLoad other, differences;
    for (DFile const* record = mine.files.head; record; record = record->next)
        other.InsertLeft(*record);
    unsigned i = 0;
    for (DFile* record = other.files.head; record; record = record->next)
        if (i++ % 100 == 0)
            record->dateWritten.dwLowDateTime += 10000000;
    for (auto _ : state) {
        benchmark::DoNotOptimize(mine.FindDifferences(other, differences));
        state.PauseTiming();
        if (differences.Size() != count / 100)
            state.SkipWithError("wrong differences");
        differences.Destroy();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

// Each look-up finds the last record, so it walks the whole listing.
template <int (DFileLoad::*Find)(DName const&) const> void Lookup(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFileLoad const& listing = Listing(count);
    DName const last = listing[count - 1].GetFullPath();
    for (auto _ : state)
        if ((listing.*Find)(last) != static_cast<int>(count - 1))
            state.SkipWithError("not found last");
    state.SetItemsProcessed(state.iterations() * count);
}

void ListingFindPos(benchmark::State& state) {
    Lookup<&DFileLoad::FindPos>(state);
}

void ListingFindByLong(benchmark::State& state) {
    Lookup<&DFileLoad::FindByLong>(state);
}

void ListingFindByFilename(benchmark::State& state) {
    Lookup<&DFileLoad::FindByFilename>(state);
}

// The keys of a listing's write alone: one key a record, into a name that held the last one.
void ListingKeys(benchmark::State& state) {
    unsigned const count = static_cast<unsigned>(state.range(0));
    DFile record;
    DName key;
    for (auto _ : state)
        for (unsigned i = 0; i < count; ++i)
            benchmark::DoNotOptimize(record.CreateHashKey(key));
    state.SetItemsProcessed(state.iterations() * count);
}

} // namespace

BENCHMARK(ListingKeys)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingWrite)->Arg(1000000)->Arg(2000000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingRead)->Arg(1000000)->Arg(2000000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingReadFind)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingFindDifferences)
    ->Arg(1000000)
    ->Arg(2000000)
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ListingFindPos)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingFindByLong)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListingFindByFilename)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond);
