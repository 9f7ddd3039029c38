// Cost of the numerical core at one point: ZorvoCal::tun21_ on a surface point of the
// site, with one tunnel and with ten, as a run calls it and from the document alone.
#include "BenchProject.h"

#include "solver/ZorvoCal.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace Tevra;

void BM_tun21_PerPoint(benchmark::State& state) {
    const int numTunnels = static_cast<int>(state.range(0));
    const bool prepared = state.range(1) != 0;
    const Data::ZorvoData doc = Bench::MakeTunnelProject(numTunnels);

    // Points spread over the site on a 64 x 64 lattice, visited in turn.
    constexpr int kSide = 64;
    std::vector<Vec3<double>> points;
    points.reserve(kSide * kSide);
    const double step = 2.0 * Bench::kSiteHalfWidth / (kSide - 1); // metres
    for (int a = 0; a < kSide; ++a)
        for (int b = 0; b < kSide; ++b)
            points.push_back({-Bench::kSiteHalfWidth + a * step, -Bench::kSiteHalfWidth + b * step,
                              Bench::kGroundLevel});

    Bench::PointCalls(state, doc, points, Data::eSurface, prepared);

    const double calls = static_cast<double>(state.iterations());
    state.SetItemsProcessed(state.iterations());
    state.counters["point_tunnel_evals"] =
        benchmark::Counter(calls * numTunnels, benchmark::Counter::kIsRate);
}

// prepared 1: the stage's sources worked out once, as a run does; 0: from the document at
// every call.
BENCHMARK(BM_tun21_PerPoint)
    ->ArgNames({"tunnels", "prepared"})
    ->Args({1, 1})
    ->Args({10, 1})
    ->Args({10, 0})
    ->Unit(benchmark::kNanosecond);

} // namespace
