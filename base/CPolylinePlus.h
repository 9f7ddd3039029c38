#pragma once

#include "CPolyline.h"

namespace Tevra::Data {

// A polyline with distance queries along it. Distances run in plan from the first
// vertex (metres); levels are interpolated along each segment.
class CPolylinePlus : public CPolyline {
  public:
    explicit CPolylinePlus(const CString& name = CString()) : CPolyline(name) {}

    // Length of segment i (from vertex i to i + 1, 0-based), in space and in plan.
    double SegmentLength(int i) const;
    double SegmentLength2D(int i) const;

    // The 1-based segment holding the plan distance, or -1 when the distance lies
    // more than tolerance before the start or beyond the end.
    int Segment(double distance, double tolerance) const;

    // Fills the point at a plan distance and answers the 0-based first vertex of the
    // segment holding it, or -1 when the distance lies beyond the polyline. A distance
    // past the end by no more than a rounding error (1e-9 of the length) is the end.
    int PointAt(double distance, Vec3<double>& p) const;
};

} // namespace Tevra::Data
