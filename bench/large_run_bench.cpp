// A city-block run: ten million surface samples under ten tunnels, solved on every core,
// saved in both forms of the model file and loaded back, with the wall time and the
// peak resident memory of each step.
#include "BenchProject.h"

#include "base/CLodraZorvoPrefData.h"
#include "modelfile/ZorvoModelFile.h"
#include "solver/ZorvoSolver.h"

#include <benchmark/benchmark.h>
#include <omp.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

namespace {

using namespace Tevra;

constexpr int kTunnels = 10;
constexpr int kIntervals = 3161; // 3162 x 3162 samples, ten million

// Peak resident set of the process (bytes) since the last ResetPeak, from
// /proc/self/status; 0 where it cannot be read.
double PeakBytes() {
    std::ifstream in("/proc/self/status");
    std::string line;
    while (std::getline(in, line))
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stod(line.substr(6)) * 1024.0;
    return 0.0;
}

double ResidentBytes() {
    std::ifstream in("/proc/self/status");
    std::string line;
    while (std::getline(in, line))
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stod(line.substr(6)) * 1024.0;
    return 0.0;
}

// Starts a new peak at the present resident set.
void ResetPeak() {
    std::ofstream clear("/proc/self/clear_refs");
    clear << "5";
}

template <class Step> double Seconds(Step step) {
    const auto t0 = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

void BM_TenMillionSamples(benchmark::State& state) {
    const int threads = static_cast<int>(state.range(0));
    const int savedThreads = omp_get_max_threads();
    omp_set_num_threads(threads);
    const std::string dir = "/tmp/zorvo-bench-" + std::to_string(getpid());
    const std::string json = dir + ".json", binary = dir + ".zorvo";

    for (auto _ : state) {
        Data::ZorvoData doc = Bench::MakeTunnelProject(kTunnels);
        doc.SetDisplacementGrid(1, Bench::MakeSiteGrid(kIntervals));
        Data::CLodraZorvoPrefData prefs;
        ZorvoSolver solver(&doc, &prefs, nullptr, ZorvoSolver::CancelTest());

        const double before = ResidentBytes();
        ResetPeak();
        state.counters["solve_s"] = Seconds([&] { solver.Solve(); });
        const double solved = ResidentBytes();
        state.counters["solve_peak_MB"] = (PeakBytes() - before) / 1e6;

        ResetPeak();
        state.counters["save_json_s"] =
            Seconds([&] { FileIO::ZorvoModelFile::Save(json, doc); });
        state.counters["save_json_peak_MB"] = (PeakBytes() - solved) / 1e6;
        ResetPeak();
        state.counters["save_binary_s"] =
            Seconds([&] { FileIO::ZorvoModelFile::Save(binary, doc); });
        state.counters["save_binary_peak_MB"] = (PeakBytes() - solved) / 1e6;

        const double samples = doc.GetDisplacementGrid(1).NumDisplacementLocations(false);
        state.counters["samples"] = samples;
        state.counters["point_tunnel_evals_per_s"] =
            samples * kTunnels / state.counters["solve_s"].value;
        doc = Data::ZorvoData(); // the solved project goes before the loads

        for (const std::string* path : {&json, &binary}) {
            const double idle = ResidentBytes();
            ResetPeak();
            Data::ZorvoData back;
            const double s = Seconds([&] { FileIO::ZorvoModelFile::Load(*path, back); });
            const std::string form = path == &json ? "json" : "binary";
            state.counters["load_" + form + "_s"] = s;
            state.counters["load_" + form + "_peak_MB"] = (PeakBytes() - idle) / 1e6;
        }
    }
    std::remove(json.c_str());
    std::remove(binary.c_str());
    omp_set_num_threads(savedThreads);
}

BENCHMARK(BM_TenMillionSamples)
    ->ArgName("threads")
    ->Arg(2)
    ->Iterations(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();

} // namespace
