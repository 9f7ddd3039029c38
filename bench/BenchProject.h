#pragma once

#include "base/CDisplacementGrid.h"
#include "document/ZorvoData.h"
#include "solver/ZorvoCal.h"
#include "sources/GeoTunnel.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace Tevra::Bench {

// A site 600 m square at ground level 100 m, crossed by up to ten tunnels of different
// sizes, depths, soils and bearings. Every tunnel passes through the site, and every
// sample lies within reach of every trough but for a corner of the site that the
// shallow granular tunnel 3 does not reach (0.3 % of the samples).
inline constexpr double kSiteHalfWidth = 300.0; // metres either side of the origin
inline constexpr double kGroundLevel = 100.0;   // metres

inline Data::ZorvoData MakeTunnelProject(int numTunnels) {
    Data::ZorvoData doc;
    const double pi = 2.0 * std::asin(1.0);
    for (int t = 1; t <= numTunnels; ++t) {
        const double f = static_cast<double>(t - 1);
        // Bearing turned 17 degrees per tunnel, centre lines offset from the origin.
        const double bearing = f * 17.0 * pi / 180.0;
        const double cx = -120.0 + 25.0 * f, cy = 90.0 - 20.0 * f; // metres
        const double half = 450.0; // half the tunnel's plan length (metres)
        Data::GeoTunnel tun;
        tun.SetName(CString::Formatted(L"Tunnel %d", t));
        tun.SetXCentreLine1(cx - half * std::cos(bearing));
        tun.SetYCentreLine1(cy - half * std::sin(bearing));
        tun.SetXCentreLine2(cx + half * std::cos(bearing));
        tun.SetYCentreLine2(cy + half * std::sin(bearing));
        // Axis 12 to 30 m below ground at the start, 2 m deeper at the end.
        tun.SetZCentreLine1(kGroundLevel - 12.0 - 2.0 * f);
        tun.SetZCentreLine2(kGroundLevel - 14.0 - 2.0 * f);
        tun.SetGroundLevel1(kGroundLevel);
        tun.SetGroundLevel2(kGroundLevel);
        tun.SetDiameter(3.5 + 0.6 * f);     // 3.5 to 8.9 m
        tun.SetPercentLoss(0.8 + 0.15 * f); // 0.8 to 2.15 percent
        tun.SetSoilType(t % 3 == 0 ? Data::GeoTunnel::eGranular : Data::GeoTunnel::eCohesive);
        tun.SetkDerivation(Data::eSurface, Data::GeoTunnel::ekOReillyAndNew);
        doc.SetTunnel(t, tun);
    }
    return doc;
}

// A surface grid over the site from west to east edge, swept north through width
// (metres) from y0 (metres): (intervals + 1) x (intervalsAcross + 1) samples.
inline Data::CDisplacementGrid MakeSiteGrid(int intervals, int intervalsAcross, double y0,
                                            double width) {
    Data::CDisplacementGrid grid(CString(L"Site"));
    grid.SetPoint1({-kSiteHalfWidth, y0, kGroundLevel});
    grid.SetPoint2({kSiteHalfWidth, y0, kGroundLevel});
    grid.SetExtrusionDirection(Data::eExtrudeY);
    grid.SetExtrusionDistance(width);
    grid.SetIntervalsAlongLine(intervals);
    grid.SetIntervalsAlongExtrusion(intervalsAcross);
    grid.SetSurfaceType(Data::eSurface);
    return grid;
}

// The whole site as one grid of (intervals + 1) squared samples.
inline Data::CDisplacementGrid MakeSiteGrid(int intervals) {
    return MakeSiteGrid(intervals, intervals, -kSiteHalfWidth, 2.0 * kSiteHalfWidth);
}

// One point calculation per iteration, at the points in turn, with the stage's sources
// prepared once as a run prepares them, or (prepared false) from the document at every
// call as a single point is worked out.
inline void PointCalls(benchmark::State& state, const Data::ZorvoData& doc,
                       const std::vector<Vec3<double>>& points, Data::ESurfaceType surface,
                       bool prepared = true) {
    const CStageSources sources(doc, 0);
    size_t next = 0;
    double zDisp[1], xyDisp[2], principal[3];
    for (auto _ : state) {
        const Vec3<double>& p = points[next];
        next = next + 1 == points.size() ? 0 : next + 1;
        if (prepared)
            ZorvoCal::tun21_(sources, p.x, p.y, p.z, surface, zDisp, xyDisp, principal, false);
        else
            ZorvoCal::tun21_(doc, 0, p.x, p.y, p.z, surface, zDisp, xyDisp, principal);
        benchmark::DoNotOptimize(zDisp);
        benchmark::DoNotOptimize(xyDisp);
        benchmark::DoNotOptimize(principal);
    }
}

} // namespace Tevra::Bench
