// Generic buildings: their transects set out across a polyline, and the questions and
// clearing of their results.
#include "ZorvoData.h"
#include "TransectDirection.h"

#include "base/SystemMemory.h"

#include <cmath>
#include <limits>

namespace Tevra::Data {

namespace {

// The polyline of a generic building when it exists with two points at least, else null.
const CPolylinePlus* BuildingPolyline(const ZorvoData& doc, const CGenericBuilding& b) {
    if (!doc.PolylineExists(b.GetPolyline()))
        return nullptr;
    const CPolylinePlus& polyline = doc.GetPolyline(b.GetPolyline());
    return polyline.NumPoint() < 2 ? nullptr : &polyline;
}

// A count of transects as a double, so that one no int holds can be refused; 0 for a
// count that is not a finite number (an interval of 0 or not a number) or is below 1.
double FiniteCount(double count) { return std::isfinite(count) && count >= 1.0 ? count : 0.0; }

// Transects whose chainages are tried: ceil(W / I) + 1, W the polyline's length in space.
double TriedCount(const CPolylinePlus& polyline, double interval) {
    return FiniteCount(std::ceil(polyline.Len(false) / interval) + 1.0);
}

int ClampToInt(double count) {
    return count > std::numeric_limits<int>::max() ? std::numeric_limits<int>::max()
                                                   : static_cast<int>(count);
}

// Point at distance d (metres) across the polyline from p along the unit direction.
Vec3<double> Across(const Vec3<double>& p, const Vec3<double>& direction, double d) {
    return p + direction * d;
}

// Whether a building can hold that many transects of that many points in each of that
// many result sets, once for the movement along it and once for each vertical offset.
bool SamplesFitInMemory(double transects, int points, int sets, int offsets) {
    const double samples = transects * static_cast<double>(points) * sets * (1.0 + offsets);
    return transects <= std::numeric_limits<int>::max() &&
           samples * sizeof(GeoDispResult) <= SystemMemory::Bytes();
}

} // namespace

void ZorvoData::PopulateGenericBuildingTransectsAndTheirPoints(int b) {
    CGenericBuilding& building = AccessGenericBuilding(b);
    building.DeleteTransects();
    const CPolylinePlus* polyline = BuildingPolyline(*this, building);
    if (!polyline)
        return;
    const double I = building.GetInterval();
    const double Lt = building.GetLength();
    const int n = building.GetDispPoints();
    const double T = TriedCount(*polyline, I);
    const int R = NumStages(true, false);
    std::vector<double> offsets;
    building.GetBuildingDamageProperties().GetVerticalOffsets(offsets);
    if (T == 0.0 || n < 1 || !SamplesFitInMemory(T, n, R, static_cast<int>(offsets.size())))
        return;
    const double spacing = Lt / (n - 1);
    for (int t = 0; t < static_cast<int>(T); ++t) {
        Vec3<double> p;
        const int v = polyline->PointAt(t * I, p);
        // The last chainage lies beyond the polyline's end unless W is a multiple of I.
        if (v == -1)
            continue;
        CBuildingTransect transect;
        transect.SetPolylineIntersection(p);
        const Vec3<double> direction = TransectAcrossDirection(*polyline, p, v);
        std::vector<GeoDispResult> points(static_cast<size_t>(n));
        for (int k = 0; k < n; ++k) {
            const Vec3<double> q = Across(p, direction, Lt * 0.5 - k * spacing);
            GeoDispResult& r = points[static_cast<size_t>(k)];
            r.SetXpoint(q.x);
            r.SetYpoint(q.y);
            r.SetZpoint(q.z);
        }
        for (int s = 0; s < R; ++s)
            for (const GeoDispResult& r : points)
                transect.AddResult(s, r);
        for (size_t o = 0; o < offsets.size(); ++o)
            for (int s = 0; s < R; ++s)
                for (int k = 0; k < n; ++k) {
                    GeoDispResult r = points[static_cast<size_t>(k)];
                    r.SetZpoint(r.GetPoint().z + offsets[o]);
                    transect.SetVerticalMovementResult(s, static_cast<int>(o), k + 1, r);
                }
        building.AddTransect(transect);
    }
}

int ZorvoData::NumGenericBuildingTransects(int b) const {
    double sum = 0.0;
    for (int k = 1; k <= NumGenericBuildings(); ++k) {
        if (b != -1 && k != b)
            continue;
        const CGenericBuilding& building = GetGenericBuilding(k);
        const CPolylinePlus* polyline = BuildingPolyline(*this, building);
        if (polyline)
            sum += FiniteCount(std::floor(polyline->Len(false) / building.GetInterval()) + 1.0);
    }
    return ClampToInt(sum);
}

bool ZorvoData::GetGenericBuildingTransectStartAndEnd(int b, int t, Vec3<double>& start,
                                                      Vec3<double>& end) const {
    if (!GenericBuildingExists(b))
        return false;
    const CGenericBuilding& building = GetGenericBuilding(b);
    const CPolylinePlus* polyline = BuildingPolyline(*this, building);
    if (!polyline)
        return false;
    const double I = building.GetInterval();
    const double T = TriedCount(*polyline, I);
    if (t < 1 || t > T)
        return false;
    // The last one stands on the polyline's last vertex, where Populate builds none
    // unless PointAt places its chainage.
    int v = polyline->NumPoint() - 1;
    Vec3<double> p = polyline->Point(v);
    if (t < T) {
        v = polyline->PointAt((t - 1) * I, p);
        if (v < 0)
            return false;
    }
    const Vec3<double> direction = TransectAcrossDirection(*polyline, p, v);
    const double Lt = building.GetLength();
    const int n = building.GetDispPoints();
    const double last = static_cast<double>(n) - 1.0;
    const double spacing = Lt / last;
    start = Across(p, direction, Lt * 0.5);
    end = Across(p, direction, Lt * 0.5 - last * spacing);
    return true;
}

bool ZorvoData::ValidGenericBuilding(int b) const {
    if (!GenericBuildingExists(b))
        return false;
    const CGenericBuilding& building = GetGenericBuilding(b);
    const CBuildingDamageProperties& properties = building.GetBuildingDamageProperties();
    const double I = building.GetInterval();
    const double Lt = building.GetLength();
    const int n = building.GetDispPoints();
    return BuildingPolyline(*this, building) != nullptr && I >= 0.0 && Lt >= 0.0 && n >= 0 &&
           std::fabs(I) >= 0.001 && std::fabs(Lt) >= 0.001 && n != 0 &&
           !building.IsAnyLOverHZero() && !building.IsAnyLOverHNegative() &&
           properties.GetEndVDispSensitivity() >= 0.0 && properties.AnyVerticalOffset() &&
           building.NumLOverH() > 0;
}

bool ZorvoData::GenericBuildingDamageResultsExist(int stage, int b, bool combined) const {
    for (int k = 1; k <= NumGenericBuildings(); ++k)
        if ((b == -1 || k == b) && GetGenericBuilding(k).BuildingDamageResultsExist(stage, combined))
            return true;
    return false;
}

int ZorvoData::NumGenericBuildingResults(int stage, int b, bool combined) const {
    int sum = 0;
    for (int k = 1; k <= NumGenericBuildings(); ++k)
        if (b == -1 || k == b)
            sum += GetGenericBuilding(k).NumBuildingDamageResults(stage, combined);
    return sum;
}

void ZorvoData::DeleteGenericBDResults(int stage, bool combined) {
    for (int k = 1; k <= NumGenericBuildings(); ++k)
        AccessGenericBuilding(k).DeleteBuildingDamageResults(stage, combined);
}

} // namespace Tevra::Data
