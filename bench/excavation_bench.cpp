// Cost of excavation movements at one point: a large basement of many sides under a
// dense surface grid, through ZorvoCal::tun21_ as the solver calls it.
#include "BenchProject.h"

#include "document/ZorvoData.h"
#include "solver/ZorvoCal.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

using namespace Tevra;

// A basement of numSides sides round the origin, its vertices alternately 100 m and 92 m
// from the centre, so that every other corner is re-entrant, with a 20 m wall (surface
// at ground level, base 20 m below) and the standard curves for excavation in front of
// a high stiffness wall in stiff clay (C760), which reach 4 wall depths: 80 m.
Data::ZorvoData MakeBasementProject(int numSides) {
    Data::ZorvoData doc;
    const double pi = 2.0 * std::asin(1.0);
    Data::CPolygonalExcavation e;
    e.SetName(L"Basement");
    e.SetSurfaceLevel(Bench::kGroundLevel);
    Data::CPolygon outline(Data::CPolygonalExcavation::POLYGON_TOLERANCE);
    for (int v = 0; v < numSides; ++v) {
        const double angle = 2.0 * pi * v / numSides;
        const double radius = v % 2 == 0 ? 100.0 : 92.0; // metres
        outline.AddPoint({radius * std::cos(angle), radius * std::sin(angle)});
    }
    e.SetPolygon(outline);
    e.SetBaseLevels(std::vector<double>(static_cast<size_t>(numSides), Bench::kGroundLevel - 20.0));
    Data::CExcavationCorner corner;
    corner.SetGMCurve(GeoGlobal::eHorizontal, 11);
    corner.SetGMCurve(GeoGlobal::eVertical, 12);
    e.SetExcavationCorners(
        std::vector<Data::CExcavationCorner>(static_cast<size_t>(numSides), corner));
    doc.SetPolygonalExcavation(1, e);
    return doc;
}

void BM_ExcavationPerPoint(benchmark::State& state) {
    const int numSides = static_cast<int>(state.range(0));
    const Data::ZorvoData doc = MakeBasementProject(numSides);

    // A 200 x 200 lattice over the basement and its reach, 400 m square, at the surface:
    // about a quarter of the points lie inside the basement.
    constexpr int kSide = 200;
    constexpr double kHalf = 200.0; // metres
    std::vector<Vec3<double>> points;
    points.reserve(kSide * kSide);
    const double step = 2.0 * kHalf / (kSide - 1);
    for (int a = 0; a < kSide; ++a)
        for (int b = 0; b < kSide; ++b)
            points.push_back({-kHalf + a * step, -kHalf + b * step, Bench::kGroundLevel});

    Bench::PointCalls(state, doc, points, Data::eSurface);

    const double calls = static_cast<double>(state.iterations());
    state.SetItemsProcessed(state.iterations());
    state.counters["side_evals"] =
        benchmark::Counter(calls * numSides, benchmark::Counter::kIsRate);
}

BENCHMARK(BM_ExcavationPerPoint)->Arg(4)->Arg(200)->Unit(benchmark::kMicrosecond);

} // namespace
