#pragma once

#include "base/Vec2.h"

namespace Tevra::Mesh {

// One triangle of a triangulation: three corners in plan, counter-clockwise, with the
// 0-based number of each corner in the list of points that was triangulated.
class CTriangle {
  public:
    CTriangle() = default;
    CTriangle(const Vec2<double>& a, const Vec2<double>& b, const Vec2<double>& c, int ia, int ib,
              int ic)
        : m_corner{a, b, c}, m_index{ia, ib, ic} {}

    // Corner 0, 1 or 2 (metres, as the points given).
    const Vec2<double>& Corner(int i) const { return m_corner[i]; }
    // Number of that corner in the input list (0-based).
    int Index(int i) const { return m_index[i]; }

  private:
    Vec2<double> m_corner[3];
    int m_index[3] = {0, 0, 0};
};

} // namespace Tevra::Mesh
