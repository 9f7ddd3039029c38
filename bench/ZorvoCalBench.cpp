// Cost of the numerical core at one point: ZorvoCal::tun21_ on a surface point of the
// site, with one tunnel and with ten.
#include "BenchProject.h"

#include "solver/ZorvoCal.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace Tevra;

void BM_tun21_PerPoint(benchmark::State& state) {
    const int numTunnels = static_cast<int>(state.range(0));
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

    Bench::PointCalls(state, doc, points, Data::eSurface);

    const double calls = static_cast<double>(state.iterations());
    state.SetItemsProcessed(state.iterations());
    state.counters["point_tunnel_evals"] =
        benchmark::Counter(calls * numTunnels, benchmark::Counter::kIsRate);
}

BENCHMARK(BM_tun21_PerPoint)->Arg(1)->Arg(10)->Unit(benchmark::kNanosecond);

} // namespace
