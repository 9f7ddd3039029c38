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
    // To sample a polyline from end to end, CPolylineCursor gives the same points
    // without walking from the first vertex for each.
    int PointAt(double distance, Vec3<double>& p) const;

    // Relative slack on the plan length within which a distance past the end is the
    // end, so that k (length / k) lands on it.
    static constexpr double kEndSlack = 1e-9;

    // The point at a plan distance on segment i (0-based), which begins at plan
    // distance start and is len long in plan (metres): the level follows the plan
    // fraction, held at the segment's end; a segment of no plan length gives its start.
    Vec3<double> PointOnSegment(int i, double distance, double start, double len) const;
};

} // namespace Tevra::Data
