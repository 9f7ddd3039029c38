#pragma once

#include "base/CTriangle.h"
#include "base/Vec2.h"

#include <vector>

namespace Tevra::Mesh {

// Delaunay triangulation of scattered points in plan, for the linear route of ground
// movement curves. The result depends on the points alone, never on the machine, the
// thread count or the order in which the points are given:
//
// 1. Points with a non-finite coordinate are left out. The rest are sorted by x, then y,
//    then input number; of points with equal x and y only the first in that order (the
//    lowest input number) is kept.
// 2. A sweep in that order builds a first triangulation of the convex hull: the first
//    points along one line are fanned to the first point off it, and each later point is
//    joined to every hull edge it sees.
// 3. Edges are flipped (Lawson) while the far corner lies inside the circumcircle of a
//    triangle by more than a relative tolerance. A tie (four or more points on one
//    circle, as on any regular grid) is not flipped, so the sweep's diagonal stays: a
//    unit square gives the diagonal from (0, 1) to (1, 0).
// 4. Each triangle is written counter-clockwise starting at its corner that comes first in
//    the sort of step 1, and the triangles are listed in the order of their three corners'
//    places in that sort. A point on an edge shared by two triangles lies in both; callers
//    that let the later triangle decide get the one later in this order.
//
// Fewer than three distinct points, or all points on one line, give no triangle.
// Collinearity is judged with a relative tolerance of 1e-12; a point within it of the
// hull's boundary line when the sweep reaches it is left out.
class CDelaunay {
  public:
    std::vector<CTriangle> triangulate(const std::vector<Vec2<double>>& points) const;
};

} // namespace Tevra::Mesh
