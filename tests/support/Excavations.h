#pragma once

// Excavations the tests of the checks share.
#include "document/ZorvoData.h"

namespace Tevra::Testing {

// A square pit of side a (metres) from (x, y), surface 100 m, base 90 m, each side with
// the "no movement" curves (index 0, complete and not surface-only).
inline Data::CPolygonalExcavation Pit(const wchar_t* name, double x, double y, double a = 10.0) {
    Data::CPolygonalExcavation e;
    e.SetName(name);
    const Vec2<double> v[4] = {{x, y}, {x + a, y}, {x + a, y + a}, {x, y + a}};
    for (int k = 1; k <= 4; ++k) {
        e.SetCoord(k, v[k - 1]);
        e.SetBaseLevel(k, 90.0);
        e.SetExcavationCorner(k, Data::CExcavationCorner());
    }
    return e;
}

// An L-shaped pit: re-entrant at (5, 5).
inline Data::CPolygonalExcavation LPit(const wchar_t* name, double x) {
    Data::CPolygonalExcavation e = Pit(name, x, 0.0);
    const Vec2<double> v[6] = {{x, 0}, {x + 10, 0}, {x + 10, 5}, {x + 5, 5}, {x + 5, 10}, {x, 10}};
    for (int k = 1; k <= 6; ++k) {
        e.SetCoord(k, v[k - 1]);
        e.SetBaseLevel(k, 90.0);
        e.SetExcavationCorner(k, Data::CExcavationCorner());
    }
    return e;
}

inline Data::CCircularExcavation Shaft(const wchar_t* name, double x, double y, double D) {
    Data::CCircularExcavation e;
    e.SetName(name);
    e.SetCentre({x, y});
    e.SetDiameter(D);
    e.SetBaseLevel(80.0);
    return e;
}
} // namespace Tevra::Testing
