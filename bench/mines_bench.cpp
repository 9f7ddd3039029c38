// Cost of mine subsidence by the influence ring method, over a million surface samples
// and per point, and of the three sub-surface tunnel methods per point.
#include "BenchProject.h"

#include "base/CDisplacementGrid.h"
#include "base/CLodraZorvoPrefData.h"
#include "solver/ZorvoCal.h"
#include "solver/ZorvoSolver.h"

#include <benchmark/benchmark.h>
#include <omp.h>

#include <vector>

namespace {

using namespace Tevra;

// One longwall panel 600 m long and 200 m wide along X, centred on the origin, 250 m
// deep under two strata with 35 degree angles of draw: its reach is
// R = 250 tan 35 = 175 m beyond the panel on every side.
constexpr double kPanelHalfLength = 300.0; // metres
constexpr double kPanelWidth = 200.0;      // metres
constexpr double kReach = 175.0;           // metres, rounded down
// The samples cover the panel and its reach with a margin: 1000 m by 600 m.
constexpr double kSiteHalfX = 500.0; // metres
constexpr double kSiteHalfY = 300.0; // metres

Data::ZorvoData MakeMineProject() {
    Data::ZorvoData doc;
    Data::GeoZorvoGeneral general;
    general.SetProblemType(Data::eMine);
    doc.SetGeneral(general);
    Data::GeoMine mine;
    mine.SetName(L"Panel 1");
    mine.SetXCentreLine1(-kPanelHalfLength);
    mine.SetXCentreLine2(kPanelHalfLength);
    mine.SetPanelWidth(kPanelWidth);
    mine.SetClosure(2.0);
    mine.SetLowerStratumThickness(100.0);
    mine.SetUpperStratumThickness(150.0);
    mine.SetLowerAngleOfDraw(35.0);
    mine.SetUpperAngleOfDraw(35.0);
    doc.SetMine(1, mine);
    return doc;
}

// Points on a side x side lattice over the region, visited in turn.
std::vector<Vec3<double>> Lattice(int side, double halfX, double halfY, double z) {
    std::vector<Vec3<double>> points;
    points.reserve(static_cast<size_t>(side) * static_cast<size_t>(side));
    for (int a = 0; a < side; ++a)
        for (int b = 0; b < side; ++b)
            points.push_back(
                {-halfX + a * 2.0 * halfX / (side - 1), -halfY + b * 2.0 * halfY / (side - 1), z});
    return points;
}

// A million surface samples, 1000 x 1000, over the panel and its reach, solved in
// four strips so that every core has records to work on.
void BM_MineSubsidence_MillionSamples(benchmark::State& state) {
    constexpr int kSamplesPerSide = 1000;
    constexpr int kStrips = 4;
    constexpr int kRowsPerStrip = kSamplesPerSide / kStrips;
    const double spacingY = 2.0 * kSiteHalfY / (kSamplesPerSide - 1); // metres

    Data::ZorvoData doc = MakeMineProject();
    for (int g = 0; g < kStrips; ++g) {
        Data::CDisplacementGrid grid(CString(L"Site"));
        const double y0 = -kSiteHalfY + g * kRowsPerStrip * spacingY;
        grid.SetPoint1({-kSiteHalfX, y0, 0.0});
        grid.SetPoint2({kSiteHalfX, y0, 0.0});
        grid.SetExtrusionDirection(Data::eExtrudeY);
        grid.SetExtrusionDistance((kRowsPerStrip - 1) * spacingY);
        grid.SetIntervalsAlongLine(kSamplesPerSide - 1);
        grid.SetIntervalsAlongExtrusion(kRowsPerStrip - 1);
        grid.SetSurfaceType(Data::eSurface);
        doc.SetDisplacementGrid(g + 1, grid);
    }
    Data::CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&doc, &prefs, nullptr, ZorvoSolver::CancelTest());

    for (auto _ : state) {
        solver.Solve();
        benchmark::ClobberMemory();
    }

    const double samples = static_cast<double>(kSamplesPerSide) * kSamplesPerSide;
    state.SetItemsProcessed(static_cast<int64_t>(samples) * state.iterations());
    state.counters["samples"] = samples;
    state.counters["threads"] = omp_get_max_threads();
    // A check that the run did the work: the settlement at the panel's centre (mm).
    double centre[1], xy[2], principal[3];
    ZorvoCal::tun21_(doc, 0, 0.0, 0.0, 0.0, Data::eSurface, centre, xy, principal);
    state.counters["centre_mm"] = centre[0];
}

BENCHMARK(BM_MineSubsidence_MillionSamples)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// One point at a time on one thread: range(0) 0 samples the panel and its reach,
// 1 only points beyond the reach, where nothing is found.
void BM_Mines_PerPoint(benchmark::State& state) {
    const Data::ZorvoData doc = MakeMineProject();
    const bool beyond = state.range(0) == 1;
    std::vector<Vec3<double>> points = Lattice(64, kSiteHalfX, kSiteHalfY, 0.0);
    if (beyond) // shifted clear of the reach along Y
        for (Vec3<double>& p : points)
            p.y += 2.0 * kSiteHalfY + 0.5 * kPanelWidth + kReach;

    Bench::PointCalls(state, doc, points, Data::eSurface);
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BM_Mines_PerPoint)->ArgName("beyond")->Arg(0)->Arg(1)->Unit(benchmark::kNanosecond);

// Sub-surface points 6 m above the axis of one tunnel of the site, for each method:
// range(0) 0 Mair et al., 1 New and Bowers (user-specified k), 2 Harris and Alvarado.
void BM_SubSurface_PerPoint(benchmark::State& state) {
    Data::ZorvoData doc = Bench::MakeTunnelProject(1);
    Data::GeoTunnel tunnel = doc.GetTunnel(1);
    tunnel.SetSubSurfaceMethod(static_cast<Data::GeoTunnel::ESubSurfaceMethod>(state.range(0)));
    doc.SetTunnel(1, tunnel);
    const double z = tunnel.GetZCentreLine1() + 6.0; // metres
    const std::vector<Vec3<double>> points =
        Lattice(64, Bench::kSiteHalfWidth, Bench::kSiteHalfWidth, z);

    Bench::PointCalls(state, doc, points, Data::eSubSurface);
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BM_SubSurface_PerPoint)
    ->ArgName("method")
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kNanosecond);

} // namespace
