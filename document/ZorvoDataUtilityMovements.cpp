// Movements along the specific utilities: the samples of a utility's line or polyline
// turned into tables against the distance from the utility's start, with the horizontal
// movement resolved along and across the pipe.
#include "ZorvoData.h"

#include "base/CDirCos.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace Tevra::Data {

namespace {

using Util::CDirCos;

// One sample of a utility's line or polyline: its distance from the line's or polyline's
// start (metres), its initial point and its displacement (metres).
struct SRawRow {
    double x;
    Vec3<double> initial;
    double dx, dy, dz;
};

// An axis scaled to length 1, or the zero vector when shorter than CDirCos::kMinLength.
Vec3<double> UnitOrZero(const Vec3<double>& v) {
    const double len = v.Length();
    return len < CDirCos::kMinLength ? Vec3<double>(0.0, 0.0, 0.0) : v * (1.0 / len);
}

// Local y of (dx, dy) in the frame whose x axis runs along (Dx, Dy) in plan: positive to
// the left looking along the axis.
double Perpendicular(double Dx, double Dy, double dx, double dy) {
    const CDirCos frame(UnitOrZero(Vec3<double>(Dx, Dy, 0.0)),
                        UnitOrZero(Vec3<double>(-Dy, Dx, 0.0)), Vec3<double>(0.0, 0.0, 1.0),
                        false);
    return frame.GtoL(Vec3<double>(dx, dy, 0.0)).y;
}

// Parallel and perpendicular components of (dx, dy) on segment s (1-based, from vertex
// s - 1 to vertex s) of a polyline.
void ResolveOnSegment(const CPolylinePlus& polyline, int s, double dx, double dy,
                      double& parallel, double& perpendicular) {
    const Vec3<double>& A = polyline.Point(s - 1);
    const Vec3<double>& B = polyline.Point(s);
    const double S = polyline.SegmentLength2D(s - 1);
    parallel = ((B.y - A.y) / S) * dy + ((B.x - A.x) / S) * dx;
    perpendicular = Perpendicular(B.x - A.x, B.y - A.y, dx, dy);
}

// The segment (1-based) holding a plan distance along a polyline. A distance more than the
// tolerance beyond either end is taken on the end segment, so that a sample is never
// resolved on a segment that does not exist.
int SegmentAt(const CPolylinePlus& polyline, double distance) {
    constexpr double kSegmentTolerance = 0.002; // metres
    const int s = polyline.Segment(distance, kSegmentTolerance);
    if (s >= 1)
        return s;
    return distance < 0.0 ? 1 : polyline.NumPoint() - 1;
}

// The table's rows clipped to the utility's stretch: (0, C(start)), the rows with
// 0 < x - start < end - start at x - start, and (end - start, C(end)). A row exactly at
// the end stops the copying and is reached only through the last row.
void Clip(const CTableD& raw, double start, double end, CTableD& out) {
    const CTableD C(raw);
    out.Empty();
    if (C.NumPoint() == 0)
        return;
    out.AddPoint(0.0, C.GetValue(start));
    for (int i = 0; i < C.NumPoint(); ++i) {
        const double r = C.GetX(i) - start;
        if (r >= end - start)
            break;
        if (r > 0.0)
            out.AddPoint(r, C.GetValue(C.GetX(i)));
    }
    out.AddPoint(end - start, C.GetValue(end));
}

bool OnPolyline(const CSpecificUtility& u) {
    return u.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline;
}

} // namespace

double ZorvoData::GetSpecificUtilityPlanLength(int utility) const {
    const CSpecificUtility& u = GetSpecificUtility(utility);
    switch (u.GetDisplacementDataType()) {
    case UtilityGlobal::eDisplacementLine:
        return GetDisplacementLine(u.GetDisplacementLine()).GetLength(true);
    case UtilityGlobal::eDisplacementPolyline:
        return GetDisplacementPolylineLength(u.GetDisplacementPolyline());
    }
    throw std::invalid_argument("invalid displacement type");
}

namespace {

// The samples of a utility at a slot, each at its distance along the line or polyline.
// A line's sample points are placed again from its ends; a polyline's are read from the
// samples. Nothing when the line or polyline does not exist.
std::vector<SRawRow> RawRows(const ZorvoData& doc, int stage, int utility) {
    const CSpecificUtility& u = doc.GetSpecificUtility(utility);
    const std::vector<GeoDispResult>& samples = u.GetHorizontalMovementResults(stage);
    std::vector<SRawRow> rows;
    rows.reserve(samples.size());
    const int m = static_cast<int>(samples.size());
    if (!OnPolyline(u)) {
        if (u.GetDisplacementLine() < 1 || u.GetDisplacementLine() > doc.NumDisplacementLines(false))
            return rows;
        const CDisplacementLine& line = doc.GetDisplacementLine(u.GetDisplacementLine());
        const Vec3<double>& P = line.GetPoint1();
        const Vec3<double>& Q = line.GetPoint2();
        const double n = line.GetIntervalsAlongLine();
        for (int i = 0; i < m; ++i) {
            const GeoDispResult& r = samples[static_cast<size_t>(i)];
            const double X = (Q.x - P.x) * i / n + P.x;
            const double Y = (Q.y - P.y) * i / n + P.y;
            const double Z = (Q.z - P.z) * i / n + P.z;
            const double x = std::sqrt((Y - P.y) * (Y - P.y) + (X - P.x) * (X - P.x));
            rows.push_back({x, Vec3<double>(X, Y, Z), r.GetXdisplacement(), r.GetYdisplacement(),
                            r.GetZdisplacement()});
        }
        return rows;
    }
    const int d = u.GetDisplacementPolyline();
    if (d < 1 || d > doc.NumDisplacementPolylines(false) ||
        !doc.PolylineExists(doc.GetDisplacementPolyline(d).GetPolyline()))
        return rows;
    const CDisplacementPolyline& dp = doc.GetDisplacementPolyline(d);
    const double h = doc.GetPolyline(dp.GetPolyline()).Len(false) / dp.GetIntervalsAlongLine();
    for (int i = 0; i < m; ++i) {
        const GeoDispResult& r = samples[static_cast<size_t>(i)];
        rows.push_back({i * h, r.GetPoint(), r.GetXdisplacement(), r.GetYdisplacement(),
                        r.GetZdisplacement()});
    }
    return rows;
}

// The polyline a polyline utility lies on; null when it does not exist.
const CPolylinePlus* UtilityPolyline(const ZorvoData& doc, const CSpecificUtility& u) {
    const int d = u.GetDisplacementPolyline();
    if (d < 1 || d > doc.NumDisplacementPolylines(false))
        return nullptr;
    const int p = doc.GetDisplacementPolyline(d).GetPolyline();
    return doc.PolylineExists(p) ? &doc.GetPolyline(p) : nullptr;
}

// A table of one value per raw row, clipped to the utility's stretch.
template <class Value>
void ClippedTable(const CSpecificUtility& u, const std::vector<SRawRow>& rows, Value value,
                  CTableD& out) {
    CTableD raw;
    for (const SRawRow& r : rows)
        raw.AddPoint(r.x, value(r));
    Clip(raw, u.GetLineStart(), u.GetLineEnd(), out);
}

} // namespace

void ZorvoData::GetParallelDisplacementsWRTSpecificUtility(int stage, int utility,
                                                           CTableD& table) const {
    const CSpecificUtility& u = GetSpecificUtility(utility);
    if (OnPolyline(u))
        return;
    const CDisplacementLine& line = GetDisplacementLine(u.GetDisplacementLine());
    const double Dx = line.GetPoint2().x - line.GetPoint1().x;
    const double Dy = line.GetPoint2().y - line.GetPoint1().y;
    const double L = GetSpecificUtilityPlanLength(utility);
    ClippedTable(u, RawRows(*this, stage, utility),
                 [&](const SRawRow& r) { return r.dy * Dy / L + r.dx * Dx / L; }, table);
}

void ZorvoData::GetPerpendicularDisplacementsWRTSpecificUtility(int stage, int utility,
                                                                CTableD& table) const {
    const CSpecificUtility& u = GetSpecificUtility(utility);
    if (OnPolyline(u))
        return;
    const CDisplacementLine& line = GetDisplacementLine(u.GetDisplacementLine());
    const double Dx = line.GetPoint2().x - line.GetPoint1().x;
    const double Dy = line.GetPoint2().y - line.GetPoint1().y;
    ClippedTable(u, RawRows(*this, stage, utility),
                 [&](const SRawRow& r) { return Perpendicular(Dx, Dy, r.dx, r.dy); }, table);
}

void ZorvoData::GetVerticalDisplacementsWRTSpecificUtility(int stage, int utility,
                                                           CTableD& table) const {
    ClippedTable(GetSpecificUtility(utility), RawRows(*this, stage, utility),
                 [](const SRawRow& r) { return r.dz; }, table);
}

void ZorvoData::GetParallelAndPerpendicularDisplacementsWRTSpecificUtility(
    int stage, int utility, CTableD& parallel, CTableD& perpendicular) const {
    const CSpecificUtility& u = GetSpecificUtility(utility);
    if (!OnPolyline(u)) {
        GetParallelDisplacementsWRTSpecificUtility(stage, utility, parallel);
        GetPerpendicularDisplacementsWRTSpecificUtility(stage, utility, perpendicular);
        return;
    }
    const std::vector<SRawRow> rows = RawRows(*this, stage, utility);
    const CPolylinePlus* polyline = UtilityPolyline(*this, u);
    CTableD rawParallel, rawPerpendicular;
    if (polyline && polyline->NumPoint() >= 2) {
        for (const SRawRow& r : rows) {
            double par = 0.0, perp = 0.0;
            ResolveOnSegment(*polyline, SegmentAt(*polyline, r.x), r.dx, r.dy, par, perp);
            rawParallel.AddPoint(r.x, par);
            rawPerpendicular.AddPoint(r.x, perp);
        }
    }
    Clip(rawParallel, u.GetLineStart(), u.GetLineEnd(), parallel);
    Clip(rawPerpendicular, u.GetLineStart(), u.GetLineEnd(), perpendicular);
}

void ZorvoData::GetInitialAndDisplPositionsWRTUtility(int stage, int utility, CTableD& initialX,
                                                      CTableD& initialY, CTableD& initialZ,
                                                      CTableD& displacedX, CTableD& displacedY,
                                                      CTableD& displacedZ) const {
    const CSpecificUtility& u = GetSpecificUtility(utility);
    const std::vector<SRawRow> rows = RawRows(*this, stage, utility);
    ClippedTable(u, rows, [](const SRawRow& r) { return r.initial.x; }, initialX);
    ClippedTable(u, rows, [](const SRawRow& r) { return r.initial.y; }, initialY);
    ClippedTable(u, rows, [](const SRawRow& r) { return r.initial.z; }, initialZ);
    ClippedTable(u, rows, [](const SRawRow& r) { return r.initial.x + r.dx; }, displacedX);
    ClippedTable(u, rows, [](const SRawRow& r) { return r.initial.y + r.dy; }, displacedY);
    ClippedTable(u, rows, [](const SRawRow& r) { return r.initial.z + r.dz; }, displacedZ);
}

void ZorvoData::ModifyParallelAndPerpendicularDisplacementsWRTSpecificUtility_Polyline(
    int utility, CTableD& parallel, CTableD& perpendicular, int row, int segment,
    const CTableD& initialX, const CTableD& initialY, const CTableD& displacedX,
    const CTableD& displacedY) const {
    const CSpecificUtility& u = GetSpecificUtility(utility);
    if (!OnPolyline(u))
        return;
    const CPolylinePlus* polyline = UtilityPolyline(*this, u);
    if (!polyline || segment < 1 || segment >= polyline->NumPoint())
        return;
    const double dx = displacedX.GetY(row) - initialX.GetY(row);
    const double dy = displacedY.GetY(row) - initialY.GetY(row);
    double par = 0.0, perp = 0.0;
    ResolveOnSegment(*polyline, segment, dx, dy, par, perp);
    const int kPar = row < 0 ? parallel.NumPoint() + row : row;
    const int kPerp = row < 0 ? perpendicular.NumPoint() + row : row;
    parallel.SetPoint(kPar, parallel.GetX(kPar), par);
    perpendicular.SetPoint(kPerp, perpendicular.GetX(kPerp), perp);
}

bool ZorvoData::GetMaxVerticalDisplacementsWRTSpecificUtility(int stage, int utility,
                                                              Vec2<double>& peak) const {
    CTableD table;
    GetVerticalDisplacementsWRTSpecificUtility(stage, utility, table);
    if (table.NumPoint() == 0)
        return false;
    // Strictly larger: of equal peaks the first row stays.
    int best = 0;
    for (int i = 1; i < table.NumPoint(); ++i)
        if (std::fabs(table.GetY(i)) > std::fabs(table.GetY(best)))
            best = i;
    peak = Vec2<double>(table.GetX(best), table.GetY(best));
    return true;
}

bool ZorvoData::GetMaxParallelAndPerpendicularDisplacementsWRTUtility(
    int stage, int utility, double& parallel, double& parallelX, double& perpendicular,
    double& perpendicularX) const {
    // At least as large: of equal peaks the last row wins, unlike the vertical peak.
    auto peakOf = [](const CTableD& t, double& value, double& x) {
        value = 0.0;
        x = 0.0;
        bool taken = false;
        for (int i = 0; i < t.NumPoint(); ++i)
            if (std::fabs(t.GetY(i)) >= std::fabs(value)) {
                value = t.GetY(i);
                x = t.GetX(i);
                taken = true;
            }
        return taken;
    };
    bool any = false;
    const int slots = NumStages(true, false);
    for (int s = 0; s < slots; ++s) {
        if (stage != -1 && s != stage)
            continue;
        CTableD par, perp;
        GetParallelAndPerpendicularDisplacementsWRTSpecificUtility(s, utility, par, perp);
        // The peaks are taken afresh for each slot: with -1 the last slot's stand.
        any = peakOf(par, parallel, parallelX) || any;
        any = peakOf(perp, perpendicular, perpendicularX) || any;
    }
    return any;
}

bool ZorvoData::SpecificUtilityHorizontalMovementResultsExist(int stage, int utility) const {
    for (int u = 1; u <= NumSpecificUtilities(); ++u)
        if ((utility == -1 || u == utility) &&
            GetSpecificUtility(u).HorizontalMovementResultsExist(stage))
            return true;
    return false;
}

namespace {

// Sum over the utilities asked for (-1: all) and the slots asked for (-1: all) of what
// count answers for one utility and slot.
template <class Count>
int SumOverUtilities(const ZorvoData& doc, int stage, int utility, Count count) {
    int total = 0;
    for (int u = 1; u <= doc.NumSpecificUtilities(); ++u) {
        if (utility != -1 && u != utility)
            continue;
        const CSpecificUtility& su = doc.GetSpecificUtility(u);
        const int slots = static_cast<int>(
            std::max(su.GetUtilityStrains().size(), su.GetPulloutAndRotations().size()));
        for (int s = 0; s < slots; ++s)
            if (stage == -1 || s == stage)
                total += count(su, s);
    }
    return total;
}

} // namespace

int ZorvoData::NumSpecificUtilityPulloutAndRotations(int stage, int utility) const {
    return SumOverUtilities(*this, stage, utility, [](const CSpecificUtility& u, int s) {
        return u.NumPulloutAndRotations(s);
    });
}

int ZorvoData::NumSpecificUtilityStrains(int stage, int utility) const {
    return SumOverUtilities(*this, stage, utility,
                            [](const CSpecificUtility& u, int s) { return u.NumUtilityStrains(s); });
}

bool ZorvoData::SpecificUtilityPulloutAndRotationsExist(int stage, int utility) const {
    for (int u = 1; u <= NumSpecificUtilities(); ++u)
        if ((utility == -1 || u == utility) && GetSpecificUtility(u).PulloutAndRotationsExist(stage))
            return true;
    return false;
}

bool ZorvoData::SpecificUtilityStrainsExist(int stage, int utility) const {
    for (int u = 1; u <= NumSpecificUtilities(); ++u)
        if ((utility == -1 || u == utility) && GetSpecificUtility(u).UtilityStrainsExist(stage))
            return true;
    return false;
}

bool ZorvoData::SpecificUtilityResultsExist(int stage, int utility) const {
    for (int u = 1; u <= NumSpecificUtilities(); ++u)
        if ((utility == -1 || u == utility) && GetSpecificUtility(u).ResultsExist(stage))
            return true;
    return false;
}

void ZorvoData::DeleteSpecificPulloutAndRotations(int stage) {
    // The assessment's results, joints and strains alike; the movement samples stay.
    for (int u = 1; u <= NumSpecificUtilities(); ++u) {
        CSpecificUtility& su = AccessSpecificUtility(u);
        const int slots = static_cast<int>(std::max(su.GetPulloutAndRotations().size(),
                                                    su.GetUtilityStrains().size()));
        for (int s = slots - 1; s >= 0; --s) {
            if (stage != -1 && s != stage)
                continue;
            for (int t = su.NumPulloutAndRotationIterations(s); t >= 1; --t)
                su.DeletePulloutAndRotationIteration(s, t);
            for (int k = su.NumUtilityStrains(s); k >= 1; --k)
                su.DeleteUtilityStrain(s, k);
        }
    }
}

void ZorvoData::DeleteSpecificUtilityMovementResults(int stage) {
    for (int u = 1; u <= NumSpecificUtilities(); ++u)
        AccessSpecificUtility(u).DeleteHorizontalMovementResults(stage);
}

} // namespace Tevra::Data
