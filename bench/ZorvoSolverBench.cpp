// Whole-run speed and memory of the solver on a million surface samples under ten
// tunnels, base model only.
#include "BenchProject.h"

#include "base/CLodraZorvoPrefData.h"
#include "solver/ZorvoSolver.h"

#include <benchmark/benchmark.h>
#include <omp.h>
#include <unistd.h>

#include <cstdio>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using namespace Tevra;

constexpr int kTunnels = 10;
constexpr int kSamplesPerSide = 1000; // 1000 x 1000 samples over the site

// Resident set of the process (bytes), from /proc/self/statm; 0 where it cannot be read.
double ResidentBytes() {
    std::FILE* f = std::fopen("/proc/self/statm", "r");
    if (!f)
        return 0.0;
    long size = 0, resident = 0;
    const int read = std::fscanf(f, "%ld %ld", &size, &resident);
    std::fclose(f);
    if (read != 2)
        return 0.0;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// Bytes a record's result store holds: the sample records and the row vectors that
// carry them, by capacity. The sample names share one text buffer and are left out.
double StoreBytes(const Data::CDisplacementData& record) {
    double bytes = 0.0;
    for (const Data::CDisplacementData::StageResults& stage : record.AllResults()) {
        bytes += static_cast<double>(stage.capacity() * sizeof(stage[0]));
        for (const std::vector<Data::GeoDispResult>& row : stage)
            bytes += static_cast<double>(row.capacity() * sizeof(Data::GeoDispResult));
    }
    return bytes;
}

// The site's million samples as range(0) grids, each a strip of the site 1000
// samples long and 1000 / range(0) samples wide, solved on range(1) threads. The
// threads share out the samples of each grid, so one grid should take as long as
// four.
void BM_SolveTenTunnels(benchmark::State& state) {
    const int numGrids = static_cast<int>(state.range(0));
    const int threads = static_cast<int>(state.range(1));
    const int savedThreads = omp_get_max_threads();
    omp_set_num_threads(threads);
    const int rowsPerGrid = kSamplesPerSide / numGrids;
    const double spacing = 2.0 * Bench::kSiteHalfWidth / (kSamplesPerSide - 1); // metres

    Data::ZorvoData doc = Bench::MakeTunnelProject(kTunnels);
    for (int g = 0; g < numGrids; ++g)
        doc.SetDisplacementGrid(
            g + 1, Bench::MakeSiteGrid(kSamplesPerSide - 1, rowsPerGrid - 1,
                                       -Bench::kSiteHalfWidth + g * rowsPerGrid * spacing,
                                       (rowsPerGrid - 1) * spacing));
    if (doc.ErrorsExist()) {
        omp_set_num_threads(savedThreads);
        state.SkipWithError("the benchmark project has errors");
        return;
    }
    Data::CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&doc, &prefs, nullptr, ZorvoSolver::CancelTest());

    // Start the thread team on a small run first, so that the first large run's
    // growth of the resident set is the result store and not the threads' stacks.
    {
        Data::ZorvoData small = Bench::MakeTunnelProject(kTunnels);
        small.SetDisplacementGrid(1, Bench::MakeSiteGrid(9));
        small.SetDisplacementGrid(2, Bench::MakeSiteGrid(9));
        ZorvoSolver(&small, &prefs, nullptr, ZorvoSolver::CancelTest()).Solve();
    }

    // First run, untimed: the growth of the resident set over it. Free pages are handed
    // back first, so that memory freed by earlier benchmarks counts again once reused.
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    const double rssBefore = ResidentBytes();
    solver.Solve();
    const double rssAfter = ResidentBytes();
    double rssTrimmed = rssAfter;
#ifdef __GLIBC__
    // What is still resident once the allocator hands back the pages it has free.
    malloc_trim(0);
    rssTrimmed = ResidentBytes();
#endif

    double samples = 0.0, storeBytes = 0.0;
    for (int g = 1; g <= numGrids; ++g) {
        samples += doc.GetDisplacementGrid(g).NumDisplacementLocations(false);
        storeBytes += StoreBytes(doc.GetDisplacementGrid(g));
    }

    for (auto _ : state) {
        solver.Solve();
        benchmark::ClobberMemory();
    }

    const double runs = static_cast<double>(state.iterations());
    state.SetItemsProcessed(static_cast<int64_t>(samples * runs));
    state.counters["samples"] = samples;
    state.counters["threads"] = omp_get_max_threads();
    // Each sample visits every tunnel: point-tunnel evaluations per second.
    state.counters["point_tunnel_evals"] =
        benchmark::Counter(samples * kTunnels * runs, benchmark::Counter::kIsRate);
    // Measured: resident set growth over the first run, per sample, as left by the run
    // and after the allocator's free pages are returned (0 where unreadable).
    state.counters["rss_growth_B_per_sample"] = (rssAfter - rssBefore) / samples;
    state.counters["rss_trimmed_B_per_sample"] = (rssTrimmed - rssBefore) / samples;
    // Accounted: sizeof of the records and rows the store holds, per sample.
    state.counters["store_B_per_sample"] = storeBytes / samples;
    state.counters["record_B"] = static_cast<double>(sizeof(Data::GeoDispResult));
    omp_set_num_threads(savedThreads);
}

// A fixed count keeps each case to one invocation, so the resident set is measured
// once per case; the wall clock is what counts with the parallel loops.
BENCHMARK(BM_SolveTenTunnels)
    ->ArgNames({"grids", "threads"})
    ->ArgsProduct({{1, 4}, {1, 2}})
    ->Iterations(3)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
