// The assessment of one long jointed main: the walk along its rows, each row reading the
// movement curves some thirty times at and around it.
#include "utilities/CUtilityDamageAssessment.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

using namespace Tevra::Data;
using Assessment = CUtilityDamageAssessment;

// A main of intervals + 1 rows 1 m apart under a trough 30 m wide: settlement, a pull
// towards the trough's centre and a little sideways movement.
Assessment::SCurves Trough(int intervals) {
    Assessment::SCurves c;
    const double centre = intervals * 0.5;
    for (int i = 0; i <= intervals; ++i) {
        const double x = i;
        const double u = (x - centre) / 15.0;
        const double settlement = -0.02 * std::exp(-0.5 * u * u);
        const double along = 0.004 * u * std::exp(-0.5 * u * u);
        c.parallel.AddPoint(x, along);
        c.perpendicular.AddPoint(x, 0.1 * along);
        c.initialX.AddPoint(x, x);
        c.initialY.AddPoint(x, 0.0);
        c.initialZ.AddPoint(x, 99.0);
        c.displacedX.AddPoint(x, x + along);
        c.displacedY.AddPoint(x, 0.1 * along);
        c.displacedZ.AddPoint(x, 99.0 + settlement);
    }
    return c;
}

void BM_UtilityWalk(benchmark::State& state) {
    const int intervals = static_cast<int>(state.range(0));
    Assessment::SPipe pipe;
    pipe.diameter = 0.15;
    pipe.wallThickness = 0.011;
    pipe.pipeLength = 3.66;
    pipe.length = intervals;
    pipe.interval = 1.0;
    const Assessment::SCurves trough = Trough(intervals);
    for (auto _ : state) {
        Assessment::SCurves curves = trough;
        std::vector<CPulloutAndRotation> joints;
        int strains = 0;
        Assessment::Walk(
            pipe, nullptr, curves, [] { return false; }, joints,
            [&strains](int, const CUtilityStrain&) { ++strains; });
        benchmark::DoNotOptimize(joints.data());
        benchmark::DoNotOptimize(strains);
    }
    state.SetItemsProcessed(state.iterations() * intervals);
}

} // namespace

// Rows a second: a lookup that scans its table makes the walk quadratic in its length.
BENCHMARK(BM_UtilityWalk)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
