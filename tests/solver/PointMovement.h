#pragma once

// What the tests of the point calculation share: one tunnel's project, the long tunnel
// of the hand-worked cases, and the movement tun21_ gives at a point.
#include "solver/ZorvoCal.h"

namespace Tevra::Testing {

struct Movement {
    double Sz, dx, dy;          // mm
    double major, minor, angle; // scaled strain, radians
};

inline Movement MovementAt(const Data::ZorvoData& doc, int stage, double x, double y, double z,
                           Data::ESurfaceType surface) {
    Movement m{};
    double xy[2], principal[3];
    ZorvoCal::tun21_(doc, stage, x, y, z, surface, &m.Sz, xy, principal);
    m.dx = xy[0];
    m.dy = xy[1];
    m.major = principal[0];
    m.minor = principal[1];
    m.angle = principal[2];
    return m;
}

inline Data::ZorvoData OneTunnel(const Data::GeoTunnel& t) {
    Data::ZorvoData doc;
    doc.SetTunnel(1, t);
    return doc;
}

// A 6 m tunnel with 1.5 % volume loss in clay, its axis at level 0, O'Reilly and New
// widths, between two plan points (metres).
inline Data::GeoTunnel StraightTunnel(double x1, double y1, double x2, double y2) {
    Data::GeoTunnel t;
    t.SetXCentreLine1(x1);
    t.SetYCentreLine1(y1);
    t.SetXCentreLine2(x2);
    t.SetYCentreLine2(y2);
    t.SetZCentreLine1(0.0);
    t.SetZCentreLine2(0.0);
    t.SetDiameter(6.0);
    t.SetPercentLoss(1.5);
    t.SetSoilType(Data::GeoTunnel::eCohesive);
    t.SetkDerivation(Data::eSurface, Data::GeoTunnel::ekOReillyAndNew);
    return t;
}

// 2 km along X, centred on the origin: at x = 0 both ends lie over 100 widths away.
inline Data::GeoTunnel LongTunnel() { return StraightTunnel(-1000.0, 0.0, 1000.0, 0.0); }

} // namespace Tevra::Testing
