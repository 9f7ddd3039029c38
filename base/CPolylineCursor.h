#pragma once

#include "CPolylinePlus.h"

namespace Tevra::Data {

// Points at rising plan distances along a polyline, for sampling it from end to end.
// Each answer is the one CPolylinePlus::PointAt gives for the distance, but the walk
// over the vertices goes on from the segment last reached instead of starting again at
// the first vertex: sampling a polyline of V vertices at N distances costs N + V steps,
// not N times V. A distance below the previous one walks again from the first vertex.
// The cursor borrows the polyline, which must outlive it unchanged.
class CPolylineCursor {
  public:
    explicit CPolylineCursor(const CPolylinePlus& polyline);

    // As CPolylinePlus::PointAt: fills the point at the plan distance (metres) and
    // answers the 0-based first vertex of its segment, or -1 beyond the polyline.
    int PointAt(double distance, Vec3<double>& p);

  private:
    void Restart();

    const CPolylinePlus& m_polyline;
    int m_numPoints;
    double m_total; // plan length (metres)
    int m_segment = 0;
    double m_start = 0.0;  // plan distance at the start of the segment (metres)
    double m_length = 0.0; // plan length of the segment (metres)
    // The distance the walk was last moved to: every segment before the current one
    // ends before it, and so before any greater distance.
    double m_reached = 0.0;
};

} // namespace Tevra::Data
