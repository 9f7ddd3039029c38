// The assessment of one long jointed main: the walk along its rows, each row reading the
// movement curves some thirty times at and around it.
#include "BenchProject.h"

#include "base/CLodraZorvoPrefData.h"
#include "solver/ZorvoSolver.h"
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

namespace {

// A generic utility along a 999 m route over the ten tunnels of the site, transects every
// metre, 101 points each, over three stages and the base model: the movements of 404,404
// points and the assessment of 4,000 transects.
void BM_GenericUtilityRun(benchmark::State& state) {
    using namespace Tevra;
    Data::ZorvoData project = Bench::MakeTunnelProject(10);
    Data::CPolylinePlus route(L"Route");
    route.SetPoint(0, {-250.0, -200.0, Bench::kGroundLevel});
    route.SetPoint(1, {250.0, 200.0, Bench::kGroundLevel});
    route.SetPoint(2, {250.0 + 999.0 - std::hypot(500.0, 400.0), 200.0, Bench::kGroundLevel});
    project.SetPolyline(1, route);
    Data::CGenericUtility g;
    g.SetPolyline(1);
    g.SetInterval(1.0);
    g.SetLength(50.0);
    g.SetDispPoints(101);
    project.SetGenericUtility(1, g);
    for (int s = 1; s <= 3; ++s) {
        Data::CStage stage;
        CBasicList tunnels;
        tunnels.SetString(CString::Formatted(L"1-%d", s * 3));
        stage.SetTunnels(tunnels);
        project.SetStage(s, stage);
    }
    Data::CLodraZorvoPrefData prefs;
    for (auto _ : state) {
        Data::ZorvoData doc = project;
        ZorvoSolver solver(&doc, &prefs, nullptr, {});
        solver.Solve();
        benchmark::DoNotOptimize(doc.NumGenericUtilityStrains(-1, 1));
    }
    state.counters["transects"] = project.NumGenericUtilityTransects(1);
}

} // namespace

BENCHMARK(BM_GenericUtilityRun)->Unit(benchmark::kMillisecond)->Iterations(1);
