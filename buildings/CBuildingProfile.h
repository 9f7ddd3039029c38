#pragma once

#include "base/CString.h"
#include "base/CTableT.h"
#include "base/GeoDispResult.h"
#include "base/Vec3.h"
#include "buildings/CBuildingDamageResult.h"

#include <vector>

namespace Tevra::Data {

// The settlement and horizontal movement profiles along a building on a displacement line,
// built from the line's stored samples, and the positions on the line of the building and
// of its segments. Distances along the line and the building are in metres; the line runs
// from its start S to its end E over J equal intervals, sample k (0-based) lying at the
// fraction k / J of the line.
//
// Nothing here throws: a lookup outside a table, which the table raises, is turned into a
// status, as the profiles are built on the worker threads of the building assessment.
class CBuildingProfile {
  public:
    enum EStatus {
        eProfileOk = 0,
        // The horizontal samples are empty for this stage: the profile cannot be built.
        eProfileEmptyHorizontal = 1,
        // A chainage of the building lies outside the sampled part of the line (the line
        // start lies off the line, or no samples are stored for this stage). An end beyond
        // the line is read at the last sample.
        eProfileOutOfRange = 2,
    };

    // Plan chainage (metres) of sample k of J from S: sqrt((y_k - S.y)^2 + (x_k - S.x)^2)
    // with x_k = (E.x - S.x) k / J + S.x and likewise y_k.
    static double SampleChainage(const Vec3<double>& S, const Vec3<double>& E, int k, int J);

    // Plan length (metres) between the line's ends, sqrt(dx^2 + dy^2).
    static double PlanLength(const Vec3<double>& S, const Vec3<double>& E);

    // Settlement profile (distance from the building's start, Z displacement as stored,
    // metres) of a building from lineStart to lineEnd on the line, from the vertical samples
    // of one stage and offset. table is emptied first; on eProfileOutOfRange it holds what
    // was built before the failing lookup.
    static EStatus VerticalProfile(const Vec3<double>& S, const Vec3<double>& E, int J,
                                   const std::vector<GeoDispResult>& samples, double lineStart,
                                   double lineEnd, CTableT<double>& table);

    // Horizontal profile (distance from the building's start, movement parallel to the line
    // Ux cx + Uy cy, metres), with (cx, cy) the line's plan direction over planLength. An
    // empty list of samples gives eProfileEmptyHorizontal and an empty table.
    static EStatus HorizontalProfile(const Vec3<double>& S, const Vec3<double>& E, int J,
                                     double planLength, const std::vector<GeoDispResult>& samples,
                                     double lineStart, double lineEnd, CTableT<double>& table);

    // The slice of a working table of (chainage, value) in building coordinates, a and b
    // the building's start and end chainages (metres): a first point at x = 0 interpolated
    // at a, every working point strictly between a and b at x = c - a, and a last point at
    // x = b - a taken at the smaller of b and the last working chainage (so a point at b is
    // not doubled). Throws Util::CRange<double> where a lookup falls outside the table.
    static void Slice(const CTableT<double>& working, double a, double b, CTableT<double>& table);

    // The text shown when a stage has no horizontal samples for a building (1-based).
    static CString EmptyHorizontalMessage(int stage, int building);

    // The point at distance d (metres) from S along the line of length lineLength (metres,
    // not in plan): S + (E - S) (d / lineLength), component by component.
    static Vec3<double> PointOnLine(const Vec3<double>& S, const Vec3<double>& E, double lineLength,
                                    double d);

    // Distance from the line's start used for the drawn start of a 1-based segment: the
    // sum of End - Start of results 1 to segment - 1, 0 for a segment of 1 or less. Neither
    // the building's line start nor the stretch before the first segment is added, so the
    // drawn point lies short of the segment's true position; the drawing relies on it.
    static double SegmentStartDistance(const std::vector<CBuildingDamageResult>& results,
                                       int segment);
    // The same over results 1 to segment, 0 for a segment of 0 or less.
    static double SegmentEndDistance(const std::vector<CBuildingDamageResult>& results,
                                     int segment);

    // Index i of the first pair of neighbouring rows (i, i + 1) whose x lie closer than the
    // table's smallest step, or -1. Such a pair arises where a building starts just below a
    // sample or where the last chainage rounds just below the line's end.
    static int FirstCloseStep(const CTableT<double>& table);
};

} // namespace Tevra::Data
