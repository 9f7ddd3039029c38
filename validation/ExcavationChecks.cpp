// The check passes of the embedded wall excavations: polygonal basements and circular
// shafts, their curves and levels, and how they meet each other and the displacement
// data.
#include "document/ZorvoData.h"

#include "base/CIntersect.h"
#include "base/CResourceStrings.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace Tevra::Data {

namespace {

// Pass codes sent to the host window when a pass found something.
constexpr long long kExcavationErrorsCode = 8;
constexpr long long kExcavationWarningsCode = 20;

// Below this absolute value (metres) a shaft has no diameter.
constexpr double kZeroDiameter = 1e-10;
// Tolerance (metres) within which two wall lines meet: the outline is drawn to the
// millimetre.
constexpr double kWallLineTolerance = 0.001;
// How far (metres) a displacement record may lie from the surface level of an excavation
// whose curve acts at the surface alone and still count as at the surface.
constexpr double kAtSurfaceLevel = 0.0001;

const GeoGlobal::EDirection kDirections[2] = {GeoGlobal::eHorizontal, GeoGlobal::eVertical};
// The direction as the errors name it, and as the warnings' examples name it.
const wchar_t* const kDirectionWord[2] = {L"horizontal", L"vertical"};
const wchar_t* const kDirectionTitle[2] = {L"Horizontal", L"Vertical"};

CString Message(int id) { return CResourceStrings::Load(id); }

// The curve of a 0-based index of a direction, or null when the list has none there.
const CGMCurve* Curve(const ZorvoData& doc, GeoGlobal::EDirection d, int index) {
    return index >= 0 && index < doc.NumGMCurves(d) ? &doc.GetGMCurve(d, index + 1) : nullptr;
}

// Whether a curve exists and acts at the surface alone. A missing curve is neither
// surface-only nor sub-surface: the errors pass reports it.
bool SurfaceOnly(const CGMCurve* curve) { return curve && curve->GetSurfaceOnly(); }

// Whether any side of a polygonal excavation has a curve that acts at the surface alone.
bool IsThereAnyCurveWith_SurfaceMovementsOnly(const ZorvoData& doc, const CPolygonalExcavation& e) {
    for (const CExcavationCorner& c : e.GetExcavationCorners())
        for (GeoGlobal::EDirection d : kDirections)
            if (SurfaceOnly(Curve(doc, d, c.GetGMCurve(d))))
                return true;
    return false;
}

// The standard curves of CIRIA C580 and C760 come in pairs of one figure: a standard
// curve of one direction must have its partner in the other. A failure of the vertical
// test passes over the horizontal one.
bool StandardCurvesPaired(int vertical, int horizontal) {
    if (vertical >= 1 && vertical <= 13 && vertical != 7 &&
        CGMCurve::GetHorzStdPartnerCurve(vertical) != horizontal)
        return false;
    if (horizontal >= 1 && horizontal <= 12 &&
        CGMCurve::GetVertStdPartnerCurve(horizontal) != vertical)
        return false;
    return true;
}

// The two tests of a curve that an excavation uses: that it exists, and that it has the
// two points a curve needs. A missing curve has no points, so it is reported as
// incomplete as well.
void TestCurve(const ZorvoData& doc, CCheckPass& pass, int direction, int index,
               const CString& missing, const CString& incomplete) {
    const GeoGlobal::EDirection d = kDirections[direction];
    if (index >= doc.NumGMCurves(d))
        pass.Add(missing);
    const CGMCurve* curve = Curve(doc, d, index);
    if (!curve || curve->NumDataCoords() < 2)
        pass.Add(incomplete);
}

// Plan distance between two points (metres).
double PlanDistance(const Vec2<double>& a, const Vec2<double>& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

// The displacement records that a curve of an excavation cannot reach, counted by kind
// with the first of each kind as the example: kind 0 for a surface curve (or any
// sub-surface curve), kind 1 for a surface curve taken down to a level.
struct SOutOfReach {
    long long count[2] = {0, 0};
    CString example[2];
    // The others beside the example, as the texts count them.
    int Others(int kind) const {
        return static_cast<int>(std::min<long long>(count[kind] - 1, INT_MAX));
    }
};

// The levels (metres) of an excavation against which the records are tested.
struct SReach {
    bool surfaceOnly;
    double S;   // surface level
    bool allow; // surface curves taken down to a level
    double A;   // that level
    // The kind of failure, or -1 when the record's level is within reach.
    int Fails(double z) const {
        if (!surfaceOnly)
            return z <= S ? -1 : 0;
        if (!allow)
            return z == S || std::fabs(z - S) <= kAtSurfaceLevel ? -1 : 0;
        return z >= A && z <= S ? -1 : 1;
    }
};

// Walks the calculated displacement grids, lines and points, in that order, counting
// those with a level out of reach. label gives the example from the record's family
// word and number. Answers false when the event stopped the walk.
template <class Label>
bool WalkRecords(const ZorvoData& doc, CCheckPass& pass, const SReach& reach, Label label,
                 SOutOfReach& out) {
    auto count = [&](int kind, const wchar_t* family, int n) {
        if (kind < 0)
            return;
        if (out.count[kind]++ == 0)
            out.example[kind] = label(family, n);
    };
    for (int n = 1; n <= doc.NumDisplacementGrids(false); ++n) {
        if (pass.Stopped())
            return false;
        const CDisplacementGrid& g = doc.GetDisplacementGrid(n);
        if (!g.GetCalculate())
            continue;
        int kind = reach.Fails(g.GetPoint1().z);
        if (kind < 0)
            kind = reach.Fails(g.GetPoint2().z);
        count(kind, L"Grid", n);
    }
    for (int n = 1; n <= doc.NumDisplacementLines(false); ++n) {
        if (pass.Stopped())
            return false;
        const CDisplacementLine& l = doc.GetDisplacementLine(n);
        if (!l.GetCalculate())
            continue;
        int kind = reach.Fails(l.GetPoint1().z);
        if (kind < 0)
            kind = reach.Fails(l.GetPoint2().z);
        count(kind, L"Line", n);
    }
    for (int n = 1; n <= doc.NumDisplacementPoints(false); ++n) {
        if (pass.Stopped())
            return false;
        const CDisplacementPoint& p = doc.GetDisplacementPoint(n);
        if (p.GetCalculate())
            count(reach.Fails(p.GetPoint().z), L"Point", n);
    }
    return true;
}

// The walk of every side and shaft whose curve of a direction is surface-only
// (surfaceOnly) or not: polygonal excavations corner by corner, then circular ones.
// Answers false when the event stopped it.
bool WalkExcavations(const ZorvoData& doc, CCheckPass& pass, bool surfaceOnly, SOutOfReach& out) {
    for (int e = 1; e <= doc.NumPolygonalExcavations(); ++e) {
        if (pass.Stopped())
            return false;
        const CPolygonalExcavation& x = doc.GetPolygonalExcavation(e);
        const SReach reach{surfaceOnly, x.GetSurfaceLevel(), x.GetAllowGMCalcnToLevel(),
                           x.GetAllowGMCalcnToLevelValue()};
        for (int c = 1; c <= x.NumExcavationCorners(); ++c) {
            for (int d = 0; d < 2; ++d) {
                const CGMCurve* curve = Curve(
                    doc, kDirections[d], x.GetExcavationCornerRef(c).GetGMCurve(kDirections[d]));
                if (!curve || curve->GetSurfaceOnly() != surfaceOnly)
                    continue;
                auto label = [&](const wchar_t* family, int n) {
                    return CString::Formatted(L"Excavation XP%i/Side %i/%s %i/%s", e, c, family, n,
                                              kDirectionTitle[d]);
                };
                if (!WalkRecords(doc, pass, reach, label, out))
                    return false;
            }
        }
    }
    for (int e = 1; e <= doc.NumCircularExcavations(); ++e) {
        if (pass.Stopped())
            return false;
        const CCircularExcavation& x = doc.GetCircularExcavation(e);
        const SReach reach{surfaceOnly, x.GetSurfaceLevel(), x.GetAllowGMCalcnToLevel(),
                           x.GetAllowGMCalcnToLevelValue()};
        for (int d = 0; d < 2; ++d) {
            const CGMCurve* curve = Curve(doc, kDirections[d], x.GetGMCurve(kDirections[d]));
            if (!curve || curve->GetSurfaceOnly() != surfaceOnly)
                continue;
            auto label = [&](const wchar_t* family, int n) {
                return CString::Formatted(L"Excavation XC%i/%s %i/%s", e, family, n,
                                          kDirectionTitle[d]);
            };
            if (!WalkRecords(doc, pass, reach, label, out))
                return false;
        }
    }
    return true;
}

} // namespace

bool ZorvoData::ExcavationErrors(std::vector<CString>& messages) const {
    bool cancelled = false;
    return ExcavationErrors(messages, cancelled);
}

bool ZorvoData::ExcavationErrors(std::vector<CString>& messages, bool& cancelled,
                                 const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kExcavationErrorsCode);
    const int NP = NumPolygonalExcavations(), NC = NumCircularExcavations();

    // Standard curves in their pairs, side by side.
    for (int e = 1; e <= NP; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CPolygonalExcavation& x = GetPolygonalExcavation(e);
        for (int c = 1; c <= x.NumExcavationCorners(); ++c) {
            const CExcavationCorner& k = x.GetExcavationCornerRef(c);
            if (!StandardCurvesPaired(k.GetGMCurve(GeoGlobal::eVertical),
                                      k.GetGMCurve(GeoGlobal::eHorizontal)))
                pass.Add(CString::Formatted(L"CIRIA ground movement curves must be applied in "
                                            L"pairs. Side %i of Polygonal Excavation %i fails "
                                            L"this requirement.",
                                            c, e));
        }
    }
    for (int e = 1; e <= NC; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CCircularExcavation& x = GetCircularExcavation(e);
        if (!StandardCurvesPaired(x.GetGMCurve(GeoGlobal::eVertical),
                                  x.GetGMCurve(GeoGlobal::eHorizontal)))
            pass.Add(CString::Formatted(L"CIRIA ground movement curves must be applied in pairs. "
                                        L"Circular Excavation %i fails this requirement.",
                                        e));
    }

    // The curves of the sides. The last corner's side is not tested here; the host's own
    // checks cover it.
    for (int e = 1; e <= NP; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CPolygonalExcavation& x = GetPolygonalExcavation(e);
        const int corners = x.NumExcavationCorners();
        if (corners <= 1)
            continue;
        for (int c = 1; c <= corners - 1; ++c) {
            for (int d = 0; d < 2; ++d) {
                const wchar_t* name = x.GetName().GetString();
                TestCurve(*this, pass, d, x.GetExcavationCornerRef(c).GetGMCurve(kDirections[d]),
                          CString::Formatted(L"A %s ground movement curve does not exist for "
                                             L"side %i of polygonal excavation XP%i : %s.",
                                             kDirectionWord[d], c, e, name),
                          CString::Formatted(L"The %s ground movement curve defined for side %i "
                                             L"of polygonal excavation XP%i : %s is incomplete. "
                                             L"It should have atleast two coordinates.",
                                             kDirectionWord[d], c, e, name));
            }
        }
    }

    // Levels of the polygonal excavations. A record without base levels has no highest
    // one; the host's own checks report its lists.
    for (int e = 1; e <= NP; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CPolygonalExcavation& x = GetPolygonalExcavation(e);
        if (x.NumBaseLevels() > 0 && x.GetMaxBaseLevel() > x.GetSurfaceLevel())
            pass.Add(CString::Formatted(L"Polygonal Excavation %i : %s - The surface level of the "
                                        L"excavation must not be lower than the base level.",
                                        e, x.GetName().GetString()));
    }
    for (int e = 1; e <= NP; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CPolygonalExcavation& x = GetPolygonalExcavation(e);
        if (IsThereAnyCurveWith_SurfaceMovementsOnly(*this, x) && x.GetAllowGMCalcnToLevel() &&
            x.GetAllowGMCalcnToLevelValue() > x.GetSurfaceLevel())
            pass.Add(CString::Formatted(L"Polygonal Excavation %i : %s - The surface level should "
                                        L"be greater than the level up to which, the surface "
                                        L"movement curves are applied.",
                                        e, x.GetName().GetString()));
    }

    // The curves, diameter and levels of the shafts.
    for (int e = 1; e <= NC; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CCircularExcavation& x = GetCircularExcavation(e);
        const wchar_t* name = x.GetName().GetString();
        for (int d = 0; d < 2; ++d)
            TestCurve(*this, pass, d, x.GetGMCurve(kDirections[d]),
                      CString::Formatted(L"A %s ground movement curve does not exist for "
                                         L"circular excavation XC%i : %s.",
                                         kDirectionWord[d], e, name),
                      CString::Formatted(L"The %s ground movement curve defined for circular "
                                         L"excavation XC%i : %s is incomplete. It should have "
                                         L"atleast two coordinates.",
                                         kDirectionWord[d], e, name));
    }
    for (int e = 1; e <= NC; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CCircularExcavation& x = GetCircularExcavation(e);
        const wchar_t* name = x.GetName().GetString();
        if (std::fabs(x.GetDiameter()) < kZeroDiameter)
            pass.Add(CString::Formatted(L"Circular Excavation %i : %s - Diameter cannot be zero. ",
                                        e, name));
        if (x.GetDiameter() < 0.0)
            pass.Add(CString::Formatted(
                L"Circular Excavation %i : %s - Diameter cannot be negative. ", e, name));
    }
    for (int e = 1; e <= NC; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CCircularExcavation& x = GetCircularExcavation(e);
        const wchar_t* name = x.GetName().GetString();
        if (x.GetBaseLevel() > x.GetSurfaceLevel())
            pass.Add(CString::Formatted(L"Circular Excavation %i : %s - The surface level of the "
                                        L"excavation must not be lower than the base level. ",
                                        e, name));
        const bool surfaceOnly =
            SurfaceOnly(
                Curve(*this, GeoGlobal::eHorizontal, x.GetGMCurve(GeoGlobal::eHorizontal))) ||
            SurfaceOnly(Curve(*this, GeoGlobal::eVertical, x.GetGMCurve(GeoGlobal::eVertical)));
        if (surfaceOnly && x.GetAllowGMCalcnToLevel() &&
            x.GetAllowGMCalcnToLevelValue() > x.GetSurfaceLevel())
            pass.Add(CString::Formatted(L"Circular Excavation %i : %s - The surface level should "
                                        L"be greater than the level up to which, the surface "
                                        L"movement curves are applied.",
                                        e, name));
    }
    return pass.Finish();
}

bool ZorvoData::ExcavationWarnings(std::vector<CString>& messages) {
    bool cancelled = false;
    return ExcavationWarnings(messages, cancelled);
}

bool ZorvoData::ExcavationWarnings(std::vector<CString>& messages, bool& cancelled,
                                   const SCheckArgs& args) {
    CCheckPass pass(messages, cancelled, args, L"warnings", kExcavationWarningsCode);
    // The intersection sets always reflect the last pass.
    ClearIntersectingExcavations();
    const int NP = NumPolygonalExcavations(), NC = NumCircularExcavations();
    if (NP + NC > 1)
        pass.Add(L"Multiple excavations have been specified.  Displacements resulting from each  "
                 L"excavation are summed with no account taken of the interactions between "
                 L"excavations (e.g. overlapping zones of influence or 'shielding' of one "
                 L"excavation by another).");

    // Which excavations meet in plan, entered both ways. Polygons are compared without
    // their coincident vertices; any answer of the crossing test but 2 outlines counts
    // as meeting.
    const Util::CIntersect intersect(kWallLineTolerance);
    auto meet = [](CExcavation& a, CExcavation& b, int aNumber, int bNumber) {
        a.SetIntersectsExcavation(b.GetShape(), bNumber);
        b.SetIntersectsExcavation(a.GetShape(), aNumber);
    };
    for (int i = 1; i <= NP; ++i) {
        for (int j = i + 1; j <= NP; ++j) {
            if (pass.Stopped())
                return pass.Cancelled();
            CPolygon a = GetPolygonalExcavation(i).GetPolygon();
            CPolygon b = GetPolygonalExcavation(j).GetPolygon();
            a.RemoveCoincident();
            b.RemoveCoincident();
            if (intersect.NumPoly(a, b) != 2 &&
                !GetPolygonalExcavation(i).GetIntersectsExcavation(CExcavation::ePolygonal, j))
                meet(AccessPolygonalExcavation(i), AccessPolygonalExcavation(j), i, j);
        }
    }
    // Shafts that overlap: touching walls are no intersection.
    for (int i = 1; i <= NC; ++i) {
        for (int j = i + 1; j <= NC; ++j) {
            if (pass.Stopped())
                return pass.Cancelled();
            const CCircularExcavation& a = GetCircularExcavation(i);
            const CCircularExcavation& b = GetCircularExcavation(j);
            if (PlanDistance(a.GetCentre(), b.GetCentre()) <
                    0.5 * a.GetDiameter() + 0.5 * b.GetDiameter() &&
                !a.GetIntersectsExcavation(CExcavation::eCircular, j))
                meet(AccessCircularExcavation(i), AccessCircularExcavation(j), i, j);
        }
    }
    // A vertex of a polygon strictly inside a shaft.
    for (int c = 1; c <= NC; ++c) {
        for (int p = 1; p <= NP; ++p) {
            if (pass.Stopped())
                return pass.Cancelled();
            const CCircularExcavation& shaft = GetCircularExcavation(c);
            if (shaft.GetIntersectsExcavation(CExcavation::ePolygonal, p))
                continue;
            for (const Vec2<double>& v : GetPolygonalExcavation(p).GetPolygon().Points()) {
                if (PlanDistance(v, shaft.GetCentre()) < 0.5 * shaft.GetDiameter()) {
                    meet(AccessCircularExcavation(c), AccessPolygonalExcavation(p), c, p);
                    break;
                }
            }
        }
    }
    // A side of a polygon that passes within a shaft's radius, abreast of the centre.
    for (int p = 1; p <= NP; ++p) {
        for (int c = 1; c <= NC; ++c) {
            if (pass.Stopped())
                return pass.Cancelled();
            const CPolygonalExcavation& pit = GetPolygonalExcavation(p);
            if (pit.GetIntersectsExcavation(CExcavation::eCircular, c))
                continue;
            const CCircularExcavation& shaft = GetCircularExcavation(c);
            for (int i = 0; i < pit.GetNumEdges(); ++i) {
                const CEdge edge = pit.GetEdge(i);
                const double dx = shaft.GetCentre().x - edge.Start().x;
                const double dy = shaft.GetCentre().y - edge.Start().y;
                const Vec2<double> u = edge.UnitVector();
                const double along = dx * u.x + dy * u.y;
                const double across = std::fabs(dx * u.y - dy * u.x);
                if (0.0 < along && along < edge.Length() && across <= 0.5 * shaft.GetDiameter()) {
                    meet(AccessPolygonalExcavation(p), AccessCircularExcavation(c), p, c);
                    break;
                }
            }
        }
    }

    // One text per excavation that meets others: "Embedded Wall Excavation PE1 : A
    // intersects  PE2 : B, and  CE1 : C." The blank that leads each item is kept as the
    // texts have always had it; "and " comes before the last of each shape's list.
    auto item = [this](CExcavation::EShape shape, int n) {
        const CExcavation& x = shape == CExcavation::ePolygonal
                                   ? static_cast<const CExcavation&>(GetPolygonalExcavation(n))
                                   : GetCircularExcavation(n);
        return CString::Formatted(L" %s%i : %s", x.GetPrefix().GetString(), n,
                                  x.GetName().GetString());
    };
    for (CExcavation::EShape shape : {CExcavation::ePolygonal, CExcavation::eCircular}) {
        const int count = shape == CExcavation::ePolygonal ? NP : NC;
        for (int e = 1; e <= count; ++e) {
            if (pass.Stopped())
                return pass.Cancelled();
            const CExcavation& x = shape == CExcavation::ePolygonal
                                       ? static_cast<const CExcavation&>(GetPolygonalExcavation(e))
                                       : GetCircularExcavation(e);
            if (x.NumIntersectingExcavations(CExcavation::ePolygonal) +
                    x.NumIntersectingExcavations(CExcavation::eCircular) ==
                0)
                continue;
            CString text = Message(356) + item(shape, e) + L" " + Message(3671) + L" ";
            bool first = true;
            for (CExcavation::EShape other : {CExcavation::ePolygonal, CExcavation::eCircular}) {
                const int n = x.NumIntersectingExcavations(other);
                for (int k = 0; k < n; ++k) {
                    if (!first) {
                        text += L", ";
                        if (k == n - 1)
                            text += L"and ";
                    }
                    text += item(other, x.GetIntersectingExcavation(other, k));
                    first = false;
                }
            }
            text += L".";
            pass.Add(text);
        }
    }

    // Re-entrant corners, all excavations in one text.
    CString reEntrant;
    for (int e = 1; e <= NP; ++e) {
        if (pass.Stopped())
            return pass.Cancelled();
        if (GetPolygonalExcavation(e).GetPolygon().IsConvex())
            continue;
        if (!reEntrant.IsEmpty())
            reEntrant += L", ";
        reEntrant += CString::Formatted(L"%i", e);
    }
    if (!reEntrant.IsEmpty())
        pass.Add(CString::Formatted(Message(3904).GetString(), reEntrant.GetString()) +
                 Message(3905));

    // Displacement data out of reach of the curves: surface curves reach the surface
    // level alone, or the levels down to the allow level; other curves reach every level
    // at or below the surface.
    SOutOfReach surface;
    if (!WalkExcavations(*this, pass, true, surface))
        return pass.Cancelled();
    if (surface.count[0] > 0)
        pass.Add(CString::Formatted(
            L"If an embedded wall excavation is assigned a 'surface' ground movement curve then "
            L"displacements induced by it can only be calculated for those points that are "
            L"level with the embedded wall excavation's 'surface level'. Others are ignored.  An "
            L"example of such a combination, for which displacements will not be calculated is "
            L"%s. This is an example only. There are %i others.",
            surface.example[0].GetString(), surface.Others(0)));
    if (surface.count[1] > 0)
        pass.Add(CString::Formatted(
            L"If an embedded wall excavation is assigned a 'surface' ground movement curve and "
            L"if the 'allow movement calculation to level' option is checked for the excavation "
            L"then displacements induced by it are calculated for points at the surface, and "
            L"points below the surface to the level specified. Others are ignored.  An example "
            L"of such a combination, for which displacements will not be calculated is %s. This "
            L"is an example only. There are %i others.",
            surface.example[1].GetString(), surface.Others(1)));
    SOutOfReach subSurface;
    if (!WalkExcavations(*this, pass, false, subSurface))
        return pass.Cancelled();
    if (subSurface.count[0] > 0)
        pass.Add(CString::Formatted(
            L"If an embedded wall excavation is assigned a 'sub-surface' ground movement curve "
            L"then displacements induced by it can only be calculated for those points that are "
            L"level with or below the embedded wall excavation's 'surface level'. Others are "
            L"ignored.  An example of such a combination, for which displacements will not be "
            L"calculated is %s. This is an example only. There are %i others.",
            subSurface.example[0].GetString(), subSurface.Others(0)));
    return pass.Finish();
}

} // namespace Tevra::Data
