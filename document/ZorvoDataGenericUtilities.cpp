// Generic utilities: their transects set out across a polyline, the tables of movement
// along a transect, the profiles of peak movement along the polyline, and the questions and
// clearing of their results.
#include "ZorvoData.h"
#include "TransectDirection.h"

#include "base/CDirCos.h"
#include "base/CLine3.h"
#include "base/SystemMemory.h"

#include <cmath>
#include <limits>

namespace Tevra::Data {

namespace {

using Util::CDirCos;

// The polyline of generic utility g, or null when it does not exist.
const CPolylinePlus* UtilityPolyline(const ZorvoData& doc, const CGenericUtility& g) {
    return doc.PolylineExists(g.GetPolyline()) ? &doc.GetPolyline(g.GetPolyline()) : nullptr;
}

// Number of transects, floor(L / interval) + 1, as a double so that a count that no int
// holds can be refused; 0 for a count that is not a finite number (an interval of 0 or
// not a number) or is below 1.
//
// L is the polyline's length in plan, the measure in which PointAt places a chainage:
// on a sloping polyline the length in space is longer, and a count taken from it would
// hold chainages beyond the polyline that no transect can be placed at.
double TransectCount(const CPolylinePlus& polyline, double interval) {
    const double count = std::floor(polyline.Len(true) / interval) + 1.0;
    return std::isfinite(count) && count >= 1.0 ? count : 0.0;
}

// k x spacing (metres) from the first point of a transect. With one point the spacing is
// T / 0; the one point's offset is taken as 0 rather than 0 x infinity.
double Offset(int k, double spacing) { return k == 0 ? 0.0 : k * spacing; }

// Where a transect at a chainage (metres) crosses the polyline, and its direction across;
// false for a chainage that PointAt cannot place.
bool Crossing(const CPolylinePlus& polyline, double chainage, Vec3<double>& point,
              Vec3<double>& across) {
    const int V = polyline.PointAt(chainage, point);
    if (V == -1)
        return false;
    across = TransectAcrossDirection(polyline, point, V);
    return true;
}

// One row of a transect's tables: distance from its first point (metres), initial point
// and displacement (metres).
struct STransectRow {
    double x;
    Vec3<double> initial;
    double dx, dy, dz;
};

// The rows of transect t (1-based) of generic utility g at a slot: row k of m at
// k / (m - 1) of the way from the first point F to the last E, in plan from F. The
// samples hold the movements; the points are placed again from F and E.
struct STransectRows {
    double Dx = 0.0, Dy = 0.0;
    std::vector<STransectRow> rows;
};

STransectRows TransectRows(const ZorvoData& doc, int stage, int g, int t) {
    STransectRows out;
    const CUtilityTransect& transect = doc.GetGenericUtility(g).GetTransect(t);
    const std::vector<GeoDispResult>& samples = transect.GetHorizontalMovementResults(stage);
    const int m = static_cast<int>(samples.size());
    if (m == 0)
        return out;
    const Vec3<double>& F = samples.front().GetPoint();
    const Vec3<double>& E = samples.back().GetPoint();
    out.Dx = E.x - F.x;
    out.Dy = E.y - F.y;
    out.rows.reserve(samples.size());
    for (int k = 0; k < m; ++k) {
        const GeoDispResult& r = samples[static_cast<size_t>(k)];
        // One point: the transect has no length, and its row stands at 0.
        const double fx = m == 1 ? 0.0 : out.Dx * k / (m - 1);
        const double fy = m == 1 ? 0.0 : out.Dy * k / (m - 1);
        const Vec3<double> initial =
            m == 1 ? F
                   : Vec3<double>(F.x + (E.x - F.x) * k / (m - 1), F.y + (E.y - F.y) * k / (m - 1),
                                  F.z + (E.z - F.z) * k / (m - 1));
        out.rows.push_back({std::sqrt(fx * fx + fy * fy), initial, r.GetXdisplacement(),
                            r.GetYdisplacement(), r.GetZdisplacement()});
    }
    return out;
}

// Local y of (dx, dy) in the plan frame whose x axis runs along (Dx, Dy): positive to the
// left looking along the axis. An axis shorter than CDirCos::kMinLength is the zero vector.
double Perpendicular(double Dx, double Dy, double dx, double dy) {
    auto unitOrZero = [](const Vec3<double>& v) {
        const double len = v.Length();
        return len < CDirCos::kMinLength ? Vec3<double>(0.0, 0.0, 0.0) : v * (1.0 / len);
    };
    const CDirCos frame(unitOrZero(Vec3<double>(Dx, Dy, 0.0)),
                        unitOrZero(Vec3<double>(-Dy, Dx, 0.0)), Vec3<double>(0.0, 0.0, 1.0), false);
    return frame.GtoL(Vec3<double>(dx, dy, 0.0)).y;
}

template <class Value> void Table(const STransectRows& rows, Value value, CTableD& out) {
    out.Empty();
    for (const STransectRow& r : rows.rows)
        out.AddPoint(r.x, value(r));
}

// Row of largest absolute value of a table as (x, signed value), from (0, 0), taking
// only strictly larger values: of equal peaks the first stays.
Vec2<double> FirstPeak(const CTableD& table) {
    Vec2<double> peak(0.0, 0.0);
    for (int i = 0; i < table.NumPoint(); ++i)
        if (std::fabs(table.GetY(i)) > std::fabs(peak.y))
            peak = Vec2<double>(table.GetX(i), table.GetY(i));
    return peak;
}

} // namespace

void ZorvoData::SetupTransects() {
    for (int b = 1; b <= NumGenericBuildings(); ++b)
        if (ValidGenericBuilding(b))
            PopulateGenericBuildingTransectsAndTheirPoints(b);
    for (int g = 1; g <= NumGenericUtilities(); ++g)
        PopulateGenericUtilityTransectsAndTheirPoints(g);
}

void ZorvoData::PopulateGenericUtilityTransectsAndTheirPoints(int g) {
    CGenericUtility& utility = AccessGenericUtility(g);
    utility.DeleteTransects();
    const CPolylinePlus* polyline = UtilityPolyline(*this, utility);
    if (!polyline || polyline->NumPoint() < 2)
        return;
    const double I = utility.GetInterval();
    const double T = utility.GetLength();
    const int P = utility.GetDispPoints();
    const double count = TransectCount(*polyline, I);
    const int slots = NumStages(true, false);
    if (count == 0.0 || P < 1 || !FitsInMemory(count, P))
        return;
    const double spacing = T / (P - 1);
    for (int t = 0; t < static_cast<int>(count); ++t) {
        CUtilityTransect transect;
        Vec3<double> point, n;
        if (!Crossing(*polyline, t * I, point, n))
            continue;
        transect.SetPolylineIntersection(point);
        for (int k = 0; k < P; ++k) {
            const double d = T * 0.5 - Offset(k, spacing);
            GeoDispResult result;
            result.SetXpoint(point.x + n.x * d);
            result.SetYpoint(point.y + n.y * d);
            result.SetZpoint(point.z);
            for (int s = 0; s < slots; ++s)
                transect.AddResult(s, result);
        }
        utility.AddTransect(transect);
    }
}

bool ZorvoData::FitsInMemory(double transects, int points) const {
    const double samples = transects * static_cast<double>(points) * NumStages(true, false);
    return samples * sizeof(GeoDispResult) <= SystemMemory::Bytes() &&
           transects <= std::numeric_limits<int>::max();
}

bool ZorvoData::GetGenericUtilityTransectCrossing(int g, int t, Vec3<double>& point,
                                                  Vec3<double>& across) const {
    const CGenericUtility& utility = GetGenericUtility(g);
    const CPolylinePlus* polyline = UtilityPolyline(*this, utility);
    if (!polyline || polyline->NumPoint() < 2 || t < 1 || t > NumGenericUtilityTransects(g))
        return false;
    return Crossing(*polyline, (t - 1) * utility.GetInterval(), point, across);
}

Vec3<double> ZorvoData::GetGenericUtilityTransectPoint(int g, const Vec3<double>& point,
                                                       const Vec3<double>& across, int k) const {
    const CGenericUtility& utility = GetGenericUtility(g);
    const double T = utility.GetLength();
    const double d = T * 0.5 - Offset(k, T / (utility.GetDispPoints() - 1));
    return Vec3<double>(point.x + across.x * d, point.y + across.y * d, point.z);
}

int ZorvoData::NumGenericUtilityTransects(int g) const {
    if (g == -1) {
        long long sum = 0;
        for (int k = 1; k <= NumGenericUtilities(); ++k)
            sum += NumGenericUtilityTransects(k);
        return sum > std::numeric_limits<int>::max() ? std::numeric_limits<int>::max()
                                                     : static_cast<int>(sum);
    }
    const CGenericUtility& utility = GetGenericUtility(g);
    const CPolylinePlus* polyline = UtilityPolyline(*this, utility);
    if (!polyline || polyline->NumPoint() < 2)
        return 0;
    const double count = TransectCount(*polyline, utility.GetInterval());
    return count > std::numeric_limits<int>::max() ? std::numeric_limits<int>::max()
                                                   : static_cast<int>(count);
}

bool ZorvoData::GetGenericUtilityTransectStartAndEnd(int g, int t, Vec3<double>& start,
                                                     Vec3<double>& end) const {
    if (!GenericUtilityExists(g))
        return false;
    const CGenericUtility& utility = GetGenericUtility(g);
    const CPolylinePlus* polyline = UtilityPolyline(*this, utility);
    if (!polyline || polyline->NumPoint() < 2)
        return false;
    const double I = utility.GetInterval();
    const double count = TransectCount(*polyline, I);
    if (t < 1 || t > count)
        return false;
    Vec3<double> point;
    int V = 0;
    if (t < count) {
        V = polyline->PointAt((t - 1) * I, point);
        if (V == -1)
            return false;
    } else {
        // The last transect is centred on the polyline's last vertex, whether or not its
        // chainage reaches it, unlike the transect that is built: kept as it stands.
        V = polyline->NumPoint() - 1;
        point = polyline->Point(V);
    }
    const Vec3<double> n = TransectAcrossDirection(*polyline, point, V);
    const double T = utility.GetLength();
    const int P = utility.GetDispPoints();
    const double spacing = T / (P - 1);
    start = point + n * (T * 0.5);
    end = point + n * (T * 0.5 - Offset(P - 1, spacing));
    return true;
}

void ZorvoData::GetParallelAndPerpendicularDisplacementsWRTUtilityTransect(
    int stage, int g, int t, CTableD& parallel, CTableD& perpendicular) const {
    const STransectRows rows = TransectRows(*this, stage, g, t);
    const double Dx = rows.Dx, Dy = rows.Dy;
    const double c = std::sqrt(Dx * Dx + Dy * Dy);
    Table(
        rows, [&](const STransectRow& r) { return (Dy / c) * r.dy + (Dx / c) * r.dx; }, parallel);
    Table(
        rows, [&](const STransectRow& r) { return Perpendicular(Dx, Dy, r.dx, r.dy); },
        perpendicular);
}

void ZorvoData::GetVerticalDisplacementsWRTUtilityTransect(int stage, int g, int t,
                                                           CTableD& table) const {
    Table(
        TransectRows(*this, stage, g, t), [](const STransectRow& r) { return r.dz; }, table);
}

void ZorvoData::GetInitialAndDisplPositionsWRTUtilityTransect(
    int stage, int g, int t, CTableD& initialX, CTableD& initialY, CTableD& initialZ,
    CTableD& displacedX, CTableD& displacedY, CTableD& displacedZ) const {
    const STransectRows rows = TransectRows(*this, stage, g, t);
    Table(
        rows, [](const STransectRow& r) { return r.initial.x; }, initialX);
    Table(
        rows, [](const STransectRow& r) { return r.initial.y; }, initialY);
    Table(
        rows, [](const STransectRow& r) { return r.initial.z; }, initialZ);
    Table(
        rows, [](const STransectRow& r) { return r.initial.x + r.dx; }, displacedX);
    Table(
        rows, [](const STransectRow& r) { return r.initial.y + r.dy; }, displacedY);
    Table(
        rows, [](const STransectRow& r) { return r.initial.z + r.dz; }, displacedZ);
}

void ZorvoData::GetMaxVerticalDisplacementProfileOfGenericUtility(int stage, int g,
                                                                  CTableD& table) const {
    const int n = GetGenericUtility(g).NumTransects();
    table.Empty();
    if (n > 0)
        table.SetPoint(n - 1, 0.0, 0.0);
    for (int s = 0; s < NumStages(true, false); ++s) {
        if (stage != -1 && s != stage)
            continue;
        // Later slots overwrite: with -1 the last slot stands.
        for (int t = 1; t <= n; ++t) {
            CTableD vertical;
            GetVerticalDisplacementsWRTUtilityTransect(s, g, t, vertical);
            const Vec2<double> peak = FirstPeak(vertical);
            table.SetPoint(t - 1, peak.x, peak.y);
        }
    }
}

void ZorvoData::GetMaxParallelAndPerpendicularDisplacementProfileOfGenericUtility(
    int stage, int g, CTableD& parallel, CTableD& perpendicular) const {
    const int n = GetGenericUtility(g).NumTransects();
    parallel.Empty();
    perpendicular.Empty();
    if (n > 0) {
        parallel.SetPoint(n - 1, 0.0, 0.0);
        perpendicular.SetPoint(n - 1, 0.0, 0.0);
    }
    for (int s = 0; s < NumStages(true, false); ++s) {
        if (stage != -1 && s != stage)
            continue;
        for (int t = 1; t <= n; ++t) {
            CTableD par, perp;
            GetParallelAndPerpendicularDisplacementsWRTUtilityTransect(s, g, t, par, perp);
            const Vec2<double> a = FirstPeak(par);
            const Vec2<double> b = FirstPeak(perp);
            parallel.SetPoint(t - 1, a.x, a.y);
            perpendicular.SetPoint(t - 1, b.x, b.y);
        }
    }
}

Vec3<double> ZorvoData::GetUtilityTransectPointAtADistFromItsStart(int stage, int g, int t,
                                                                   double d) const {
    const CUtilityTransect& transect = GetGenericUtility(g).GetTransect(t);
    const int m = transect.NumberOfPoints(stage);
    if (m == 0)
        return Vec3<double>(0.0, 0.0, 0.0);
    Vec3<double> p;
    CLine3(transect.GetPoint(stage, 1), transect.GetPoint(stage, m)).PointAtADist(d, p);
    return p;
}

namespace {

// Whether the ask holds for utility g (-1: any utility) of the document.
template <class Ask> bool AnyGenericUtility(const ZorvoData& doc, int g, Ask ask) {
    for (int k = 1; k <= doc.NumGenericUtilities(); ++k)
        if ((g == -1 || k == g) && ask(doc.GetGenericUtility(k)))
            return true;
    return false;
}

// The sum of a count over the transects of utility g (-1: every utility).
template <class Count> int SumOverTransects(const ZorvoData& doc, int g, Count count) {
    int sum = 0;
    for (int k = 1; k <= doc.NumGenericUtilities(); ++k)
        if (g == -1 || k == g)
            for (const CUtilityTransect& t : doc.GetGenericUtility(k).GetTransects())
                sum += count(t);
    return sum;
}

} // namespace

int ZorvoData::NumGenericUtilityPulloutAndRotations(int stage, int g) const {
    return SumOverTransects(*this, g, [stage](const CUtilityTransect& t) {
        int n = 0;
        for (int s = 0; s < static_cast<int>(t.GetPulloutAndRotations().size()); ++s)
            if (stage == -1 || s == stage)
                n += t.NumPulloutAndRotations(s);
        return n;
    });
}

int ZorvoData::NumGenericUtilityStrains(int stage, int g) const {
    return SumOverTransects(*this, g, [stage](const CUtilityTransect& t) {
        int n = 0;
        for (int s = 0; s < static_cast<int>(t.Results().GetUtilityStrains().size()); ++s)
            if (stage == -1 || s == stage)
                n += t.NumUtilityStrains(s);
        return n;
    });
}

bool ZorvoData::GenericUtilityHorizontalMovementResultsExist(int stage, int g) const {
    return AnyGenericUtility(*this, g, [stage](const CGenericUtility& u) {
        return u.HorizontalMovementResultsExist(stage);
    });
}

bool ZorvoData::GenericUtilityPulloutAndRotationsExist(int stage, int g) const {
    return AnyGenericUtility(
        *this, g, [stage](const CGenericUtility& u) { return u.PulloutAndRotationsExist(stage); });
}

bool ZorvoData::GenericUtilityStrainsExist(int stage, int g) const {
    return AnyGenericUtility(
        *this, g, [stage](const CGenericUtility& u) { return u.UtilityStrainsExist(stage); });
}

bool ZorvoData::GenericUtilityResultsExist(int stage, int g) const {
    return AnyGenericUtility(*this, g,
                             [stage](const CGenericUtility& u) { return u.ResultsExist(stage); });
}

void ZorvoData::DeleteGenericUDResults(int stage) {
    for (int g = 1; g <= NumGenericUtilities(); ++g)
        AccessGenericUtility(g).DeleteUDResults(stage);
}

void ZorvoData::DeleteGenericUtilityMovementResults(int stage) {
    for (int g = 1; g <= NumGenericUtilities(); ++g)
        AccessGenericUtility(g).DeleteHorizontalMovementResults(stage);
}

void ZorvoData::GetGenericUtilityDescription(CString& out, int g, bool number) const {
    const CString& name = GetGenericUtility(g).GetName();
    if (number)
        out.Format(L"Generic Utility %i: %s", g, name.GetString());
    else
        out.Format(L"Generic Utility: %s", name.GetString());
}

} // namespace Tevra::Data
