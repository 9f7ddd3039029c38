#pragma once

#include "base/CPolylinePlus.h"
#include "base/Vec3.h"

namespace Tevra::Data {

// The direction across a polyline at point p, placed by PointAt on the segment that
// begins at vertex V (0-based): the plan normal of the segment, of length 1, or zero on a
// segment too short to give one. A point within 0.001 m of vertex V in x, y and z takes
// the segment before it; at the first vertex it takes the segment after it, turned round,
// so that the first point of every transect lies on the same side of the polyline.
// Transects of generic buildings and of generic utilities are set out alike.
Vec3<double> TransectAcrossDirection(const CPolylinePlus& polyline, const Vec3<double>& p, int V);

} // namespace Tevra::Data
