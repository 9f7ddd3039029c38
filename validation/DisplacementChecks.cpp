// Checks of the displacement records, and the queries across their families.
#include "base/LodraZorvoData.h"

#include <cmath>

namespace Tevra::Data {

namespace {

// Length (metres) below which a line, polyline or grid side has no extent.
constexpr double kMinExtent = 0.001;

template <class Get>
void OfSurfaceType(int count, Get get, bool calcOnly, ESurfaceType t, std::set<int>& out) {
    for (int n = 1; n <= count; ++n) {
        const auto& r = get(n);
        if (r.GetSurfaceType() == t && (!calcOnly || r.GetCalculate()))
            out.insert(n);
    }
}

CString Text(const wchar_t* format, int a) { return CString::Formatted(format, a); }
CString Text(const wchar_t* format, int a, int b) { return CString::Formatted(format, a, b); }

} // namespace

int LodraZorvoData::NumDisplacementData() const {
    return NumDisplacementPoints(false) + NumDisplacementLines(false) +
           NumDisplacementPolylines(false) + NumDisplacementGrids(false);
}

void LodraZorvoData::GetDisplacementTypeIndex(int n, EPointType& type, int& index) const {
    const int counts[4] = {NumDisplacementPoints(false), NumDisplacementLines(false),
                           NumDisplacementPolylines(false), NumDisplacementGrids(false)};
    const EPointType types[4] = {ePoint, eLine, ePolyline, eGrid};
    for (int f = 0; f < 4; ++f) {
        if (n <= counts[f]) {
            type = types[f];
            index = n;
            return;
        }
        n -= counts[f];
    }
    type = ePointTypeNone;
    index = 0;
}

const CDisplacementData& LodraZorvoData::GetDisplacementData(int n) const {
    EPointType type;
    int index;
    GetDisplacementTypeIndex(n, type, index);
    switch (type) {
    case ePoint:
        return GetDisplacementPoint(index);
    case eLine:
        return GetDisplacementLine(index);
    case ePolyline:
        return GetDisplacementPolyline(index);
    default:
        return GetDisplacementGrid(index);
    }
}

bool LodraZorvoData::GetDisplacementLocation(EPointType type, int index, int l, Vec3<double>& p,
                                             bool) const {
    switch (type) {
    case ePoint:
        if (!DisplacementPointExists(index) || l != 1)
            return false;
        p = GetDisplacementPoint(index).GetPoint();
        return true;
    case eLine:
        return DisplacementLineExists(index) &&
               GetDisplacementLine(index).GetDisplacementLocation(l - 1, p, true);
    case ePolyline: {
        if (!DisplacementPolylineExists(index))
            return false;
        const CDisplacementPolyline& r = GetDisplacementPolyline(index);
        const int J = r.GetIntervalsAlongLine();
        if (!PolylineExists(r.GetPolyline()) || J < 1 || l < 1 || l - 1 > J)
            return false;
        const CPolylinePlus& poly = GetPolyline(r.GetPolyline());
        return poly.PointAt((l - 1) * (poly.Len(true) / J), p) >= 0;
    }
    case eGrid: {
        if (!DisplacementGridExists(index))
            return false;
        const CDisplacementGrid& g = GetDisplacementGrid(index);
        const int A = g.GetIntervalsAlongLine(), B = g.GetIntervalsAlongExtrusion();
        // A grid whose locations cannot be numbered in an int has none.
        if (A < 1 || B < 1 || l < 1 || l > g.NumDisplacementLocations(true))
            return false;
        const int a = (l - 1) / (B + 1), b = (l - 1) % (B + 1);
        const Vec3<double> P1 = g.GetPoint1(), P2 = g.GetPoint2();
        const double across = b * g.GetExtrusionDistance() / B;
        p = {P1.x + (P2.x - P1.x) * a / A, P1.y + (P2.y - P1.y) * a / A,
             P1.z + (P2.z - P1.z) * a / A};
        if (g.GetExtrusionDirection() == eExtrudeX)
            p.x = P1.x + across;
        else if (g.GetExtrusionDirection() == eExtrudeY)
            p.y = P1.y + across;
        else
            p.z = P1.z + across;
        return true;
    }
    default:
        return false;
    }
}

void LodraZorvoData::GetPointsOfSurfaceType(bool calcOnly, ESurfaceType t,
                                            std::set<int>& out) const {
    OfSurfaceType(
        NumDisplacementPoints(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementPoint(n); }, calcOnly, t,
        out);
}

void LodraZorvoData::GetLinesOfSurfaceType(bool calcOnly, ESurfaceType t,
                                           std::set<int>& out) const {
    OfSurfaceType(
        NumDisplacementLines(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementLine(n); }, calcOnly, t,
        out);
}

void LodraZorvoData::GetPolylinesOfSurfaceType(bool calcOnly, ESurfaceType t,
                                               std::set<int>& out) const {
    OfSurfaceType(
        NumDisplacementPolylines(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementPolyline(n); }, calcOnly,
        t, out);
}

void LodraZorvoData::GetGridsOfSurfaceType(bool calcOnly, ESurfaceType t,
                                           std::set<int>& out) const {
    OfSurfaceType(
        NumDisplacementGrids(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementGrid(n); }, calcOnly, t,
        out);
}

bool LodraZorvoData::DisplacementPointErrors(std::vector<CString>& messages) const {
    messages.clear();
    for (int n = 1; n <= NumDisplacementPoints(false); ++n) {
        const Vec3<double>& p = GetDisplacementPoint(n).GetPoint();
        if (GetDisplacementPoint(n).GetCalculate() &&
            !(std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z)))
            messages.push_back(
                Text(L"Displacement Point %i has a coordinate that is not a number.", n));
    }
    return !messages.empty();
}

bool LodraZorvoData::DisplacementLineErrors(std::vector<CString>& messages) const {
    messages.clear();
    for (int n = 1; n <= NumDisplacementLines(false); ++n) {
        const CDisplacementLine& l = GetDisplacementLine(n);
        if (!l.GetCalculate())
            continue;
        if (!(l.GetLength(false) >= kMinExtent))
            messages.push_back(Text(L"Displacement Line %i has zero length.", n));
        if (l.GetIntervalsAlongLine() < 1)
            messages.push_back(Text(L"Displacement Line %i needs at least one interval.", n));
    }
    return !messages.empty();
}

bool LodraZorvoData::DisplacementPolylineErrors(std::vector<CString>& messages) const {
    messages.clear();
    for (int n = 1; n <= NumDisplacementPolylines(false); ++n) {
        const CDisplacementPolyline& r = GetDisplacementPolyline(n);
        if (!r.GetCalculate())
            continue;
        const int p = r.GetPolyline();
        if (!PolylineExists(p))
            messages.push_back(Text(L"Displacement Polyline %i refers to Polyline %i, which does "
                                    L"not exist.",
                                    n, p));
        else if (GetPolyline(p).NumPoint() < 2)
            messages.push_back(Text(L"Displacement Polyline %i refers to Polyline %i, which has "
                                    L"fewer than 2 points.",
                                    n, p));
        else if (!(GetPolyline(p).Len(true) >= kMinExtent))
            messages.push_back(Text(L"Displacement Polyline %i refers to Polyline %i, which has "
                                    L"zero length in plan.",
                                    n, p));
        if (r.GetIntervalsAlongLine() < 1)
            messages.push_back(Text(L"Displacement Polyline %i needs at least one interval.", n));
    }
    return !messages.empty();
}

bool LodraZorvoData::DisplacementGridErrors(std::vector<CString>& messages) const {
    messages.clear();
    for (int n = 1; n <= NumDisplacementGrids(false); ++n) {
        const CDisplacementGrid& g = GetDisplacementGrid(n);
        if (!g.GetCalculate())
            continue;
        if (!((g.GetPoint2() - g.GetPoint1()).Length() >= kMinExtent) ||
            !(std::fabs(g.GetExtrusionDistance()) >= kMinExtent))
            messages.push_back(Text(L"Displacement Grid %i has no extent: its base line and its "
                                    L"extrusion distance must both be longer than 0.001 m.",
                                    n));
        if (g.GetIntervalsAlongLine() < 1 || g.GetIntervalsAlongExtrusion() < 1)
            messages.push_back(Text(L"Displacement Grid %i needs at least one interval along its "
                                    L"line and along its extrusion.",
                                    n));
    }
    return !messages.empty();
}

namespace {

template <class Get>
bool NotCalculated(int count, Get get, const wchar_t* format, std::vector<CString>& messages) {
    messages.clear();
    for (int n = 1; n <= count; ++n)
        if (!get(n).GetCalculate())
            messages.push_back(Text(format, n));
    return !messages.empty();
}

} // namespace

bool LodraZorvoData::DisplacementPointWarnings(std::vector<CString>& messages) const {
    return NotCalculated(
        NumDisplacementPoints(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementPoint(n); },
        L"Displacements are not calculated for Displacement Point %i.", messages);
}

bool LodraZorvoData::DisplacementLineWarnings(std::vector<CString>& messages) const {
    return NotCalculated(
        NumDisplacementLines(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementLine(n); },
        L"Displacements are not calculated for Displacement Line %i.", messages);
}

bool LodraZorvoData::DisplacementPolylineWarnings(std::vector<CString>& messages) const {
    return NotCalculated(
        NumDisplacementPolylines(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementPolyline(n); },
        L"Displacements are not calculated for Displacement Polyline %i.", messages);
}

bool LodraZorvoData::DisplacementGridWarnings(std::vector<CString>& messages) const {
    return NotCalculated(
        NumDisplacementGrids(false),
        [this](int n) -> const CDisplacementData& { return GetDisplacementGrid(n); },
        L"Displacements are not calculated for Displacement Grid %i.", messages);
}

} // namespace Tevra::Data
