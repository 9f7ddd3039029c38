#include "CBuildingSegmentation.h"

#include <cmath>
#include <cstddef>

namespace Tevra::Data {

void CBuildingSegmentation::SegmentsStartAndEnd(const CTableT<double>& table, double sensitivity,
                                                double& start, double& end, bool& found) {
    found = false;
    const double limit = std::fabs(sensitivity);
    const int n = table.NumPoint();
    for (int i = 0; i < n; ++i) {
        if (std::fabs(table.GetY(i)) >= limit) {
            start = table.GetX(i);
            found = true;
            break;
        }
    }
    if (!found)
        return;
    for (int i = n - 1; i >= 0; --i) {
        if (std::fabs(table.GetY(i)) >= limit) {
            end = table.GetX(i);
            break;
        }
    }
}

bool CBuildingSegmentation::LookupHitsCloseStep(const CTableT<double>& table, double x) {
    // The same first bracketing pair xa <= x < xb that the lookup takes.
    for (int k = 1; k < table.NumPoint(); ++k) {
        const double xa = table.GetX(k - 1);
        const double xb = table.GetX(k);
        if (xa <= x && x < xb)
            return std::fabs(xb - xa) < CTableT<double>::kMinStep;
    }
    return false;
}

CBuildingSegmentation::EStatus CBuildingSegmentation::SplinesAndSegments(
    bool combined, const std::vector<CBuildingDamageResult>& existingResults,
    const CTableT<double>& hProfile, const CTableT<double>& vProfile, const double& sensitivity,
    CTableT<double>& hTable, CTableT<double>& vTable, CSplineT<double>& hCurve,
    CSplineT<double>& chainageMap, CSplineT<double>& vCurve, CTableT<double>& curvatureTable,
    std::vector<double>& boundaries) {
    hTable.Empty();
    vTable.Empty();
    hCurve.Empty();
    chainageMap.Empty();
    vCurve.Empty();
    curvatureTable.Empty();
    boundaries.clear();

    // 1. Deformed chainage x' = x + h. The profiles come from the same line or transect and
    // are paired by index; the x of the vertical profile is not read.
    CTableT<double> map;
    for (int i = 0; i < hProfile.NumPoint() && i < vProfile.NumPoint(); ++i) {
        const double x = hProfile.GetX(i);
        const double h = hProfile.GetY(i);
        const double v = vProfile.GetY(i);
        const double xd = x + h;
        vTable.SetPoint(i, xd, v);
        hTable.SetPoint(i, xd, h);
        map.SetPoint(i, xd, x);
    }

    // 2. and 3. The trough's limits; without them the building has no movement of note.
    double start = 0.0;
    double end = 0.0;
    bool found = false;
    SegmentsStartAndEnd(vTable, sensitivity, start, end, found);
    if (!found)
        return eNoTrough;
    hCurve = CSplineT<double>(hProfile);
    vCurve = CSplineT<double>(vTable);
    chainageMap = CSplineT<double>(map);

    // 4. Curvature: the derivative of the slope, both three-point, without smoothing.
    curvatureTable = vCurve.Derivative().Derivative();

    // 5. to 8. Boundaries in the order found. A curvature of exactly zero at a row takes part
    // in two pairs and gives the same x twice: a segment of zero length, left so. Far-field
    // tails and rounding can add short segments where the computed curvature changes sign;
    // the rule stands as it is.
    boundaries.push_back(start);
    if (combined) {
        // The user's cuts are undeformed starts among deformed boundaries: the difference
        // is the point's horizontal movement, and it is left so.
        if (existingResults.size() >= 2)
            for (std::size_t k = 1; k < existingResults.size(); ++k)
                if (existingResults[k].GetStartOfCombinedSegment())
                    boundaries.push_back(existingResults[k].GetStart());
    } else {
        for (int k = 1; k < curvatureTable.NumPoint(); ++k) {
            const double xa = curvatureTable.GetX(k - 1);
            const double ca = curvatureTable.GetY(k - 1);
            const double xb = curvatureTable.GetX(k);
            const double cb = curvatureTable.GetY(k);
            if (0.0 >= ca * cb && ca != cb) {
                const double x = std::fabs((0.0 - ca) / (cb - ca)) * (xb - xa) + xa;
                if (start < x && x < end)
                    boundaries.push_back(x);
            }
        }
    }
    boundaries.push_back(end);

    // Two profile points closer than the smallest step (a building starting just below a
    // sample, or a last chainage rounding just below the line's end) make every lookup
    // between them a range error. Found here so that the assessment reports it for this
    // building and stage instead of throwing on a worker thread.
    // The chainage map and the curvature table share the vertical curve's x'; the
    // horizontal curve is read at the undeformed chainage, held to its own x range.
    for (const double b : boundaries) {
        if (LookupHitsCloseStep(vCurve, b))
            return eCloseProfilePoints;
        double x = chainageMap.GetValue(b, true);
        if (hCurve.NumPoint() > 0) {
            if (x > hCurve.GetX(-1))
                x = hCurve.GetX(-1);
            if (x < hCurve.GetX(0))
                x = hCurve.GetX(0);
        }
        if (LookupHitsCloseStep(hCurve, x))
            return eCloseProfilePoints;
    }
    return eSegmentsFound;
}

CString CBuildingSegmentation::CloseProfilePointsMessage(const CString& building, int stage) {
    return CString::Formatted(
        L"Building %s, stage %i: two points of the settlement profile lie less than 1e-10 m "
        L"apart with a segment boundary between them; no results for this assessment.",
        building.GetString(), stage);
}

} // namespace Tevra::Data
