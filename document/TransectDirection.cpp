#include "TransectDirection.h"

#include "base/CLine3.h"

#include <cmath>

namespace Tevra::Data {

namespace {

// A point within this distance (metres) of a vertex in x, y and z is on it.
constexpr double kOnVertex = 0.001;

} // namespace

Vec3<double> TransectAcrossDirection(const CPolylinePlus& polyline, const Vec3<double>& p, int V) {
    const Vec3<double>& onV = polyline.Point(V);
    bool flipped = false;
    if (std::fabs(p.x - onV.x) < kOnVertex && std::fabs(p.y - onV.y) < kOnVertex &&
        std::fabs(p.z - onV.z) < kOnVertex) {
        if (V == 0) {
            V = 1;
            flipped = true;
        } else {
            V = V - 1;
        }
    }
    const Vec3<double> v = CLine3(p, polyline.Point(V)).Vector();
    Vec3<double> n(-v.y, v.x, 0.0);
    const double len = n.Length();
    n = len < CLine3::kMinLength ? Vec3<double>(0.0, 0.0, 0.0) : n * (1.0 / len);
    if (flipped) {
        n.x = -n.x;
        n.y = -n.y;
    }
    return n;
}

} // namespace Tevra::Data
