#pragma once

#include "base/CSplineT.h"
#include "base/CString.h"
#include "base/CTableT.h"
#include "buildings/CBuildingDamageResult.h"

#include <vector>

namespace Tevra::Data {

// Cutting a building's settlement curve into segments that are each wholly hogging or
// wholly sagging: at the limits of the settlement trough (where |settlement| first and
// last reaches the building's end sensitivity) and at the curve's points of inflection, or
// where the user has joined segments. The same cut serves a specific building and a
// transect of a generic building; ZorvoSolver calls these under the same names.
//
// Distances x (undeformed) and x' = x + h (deformed, moved by the point's own horizontal
// movement h) along the building, settlement v and h in metres.
class CBuildingSegmentation {
  public:
    enum EStatus {
        // Boundaries found: boundaries.size() - 1 segments follow.
        eSegmentsFound = 0,
        // No settlement reaches the sensitivity: no segments, no results.
        eNoTrough = 1,
        // A boundary falls between two profile points less than the table's smallest step
        // apart, where every lookup of the curves raises a range error: the assessment of
        // this building, stage and offset has no results.
        eCloseProfilePoints = 2,
    };

    // Fills the working tables and curves from the horizontal profile (x, h) and vertical
    // profile (x, v), paired by index, and finds the boundaries (in x', in the order found,
    // not sorted). Outputs, all emptied first: horizontal table (x', h), vertical table
    // (x', v), horizontal curve (x, h), chainage map (x', x), vertical curve (x', v),
    // curvature table d2v/dx'2 (1/m). The two tables are always filled; the rest only when
    // a trough is found. combined true takes the cuts of existingResults flagged as starts
    // of combined segments (their undeformed starts, left so) instead of the inflections.
    // sensitivity in metres; its absolute value is used. Never throws.
    static EStatus SplinesAndSegments(bool combined,
                                      const std::vector<CBuildingDamageResult>& existingResults,
                                      const CTableT<double>& hProfile,
                                      const CTableT<double>& vProfile, const double& sensitivity,
                                      CTableT<double>& hTable, CTableT<double>& vTable,
                                      CSplineT<double>& hCurve, CSplineT<double>& chainageMap,
                                      CSplineT<double>& vCurve, CTableT<double>& curvatureTable,
                                      std::vector<double>& boundaries);

    // The trough's limits in a table: start the x of the first row, end the x of the last
    // row, with |y| >= |sensitivity| (metres). found is set false first; when no row
    // qualifies, start and end are left as they came.
    static void SegmentsStartAndEnd(const CTableT<double>& table, double sensitivity, double& start,
                                    double& end, bool& found);

    // True when a lookup of table at x would find its first bracketing pair narrower than
    // the table's smallest step (the range error of code 3).
    static bool LookupHitsCloseStep(const CTableT<double>& table, double x);

    // The host's text for eCloseProfilePoints: building name and stage (0-based).
    static CString CloseProfilePointsMessage(const CString& building, int stage);
};

} // namespace Tevra::Data
