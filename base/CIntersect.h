#pragma once

#include "CPolygon.h"

namespace Tevra::Util {

// Whether two plan rings meet, with a tolerance (metres): they meet when an edge of one
// comes within the tolerance of an edge of the other, or when one ring lies inside the
// other.
class CIntersect {
  public:
    explicit CIntersect(double tolerance) : m_tolerance(tolerance) {}

    // The number of separate outlines that the two rings make together: 2 when they do not
    // meet, 1 when they do. A ring without vertices meets nothing.
    int NumPoly(const Data::CPolygon& a, const Data::CPolygon& b) const;

  private:
    double m_tolerance;
};

} // namespace Tevra::Util
