#include "SanityChecks.h"

#include "base/SystemMemory.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>

namespace Tevra {

using namespace Data;

namespace {

// Farther from the origin than any national or UTM grid reaches (metres): a coordinate
// beyond it is a typo or a unit mix-up, and squares of it lose every digit of a trough.
constexpr double kFarthest = 1e8;
// Beyond these the input is legal but out of all experience: a warning.
constexpr double kLargestTunnel = 50.0;     // metres; the largest shields are under 20 m
constexpr double kLargestVolumeLoss = 10.0; // percent; open-face tunnels rarely pass 5%
constexpr double kLargestClosure = 20.0;    // metres of seam extracted
constexpr double kLargestUserK = 5.0;       // trough width factor; clays are about 0.5
// Share of memory that the result store may take: the project itself, the tables, a
// save (which streams through a buffer of about 1 MB) and the operating system need the
// rest.
constexpr double kResultShareOfMemory = 0.8;
// A sample's store: the record, its row's vector and the allocator's overhead (bytes).
constexpr double kBytesPerSample = sizeof(GeoDispResult) + 40.0;
// Point movements one core works out in a second, a tunnel at a point each; one mine
// at a point samples 2,400 ring sectors, about a hundred times the work.
constexpr double kEvaluationsPerCoreSecond = 1e7;
constexpr double kMineCost = 100.0;
// Runs that take longer than this are worth a word before they start (seconds).
constexpr double kLongRun = 3600.0;
// Excavations. Deeper than any embedded wall or shaft built for a basement or tunnel
// (metres): a warning.
constexpr double kDeepestWall = 200.0;
// Wider than any shaft sunk (metres): a warning.
constexpr double kWidestShaft = 200.0;
// Outlines with more vertices than this are not searched for crossing sides, a search
// that grows with the square of the vertices.
constexpr int kMostVerticesSearched = 5000;

std::string Number(double v) {
    if (std::isnan(v))
        return "NaN";
    if (std::isinf(v))
        return v > 0 ? "infinite" : "minus infinite";
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6g", v);
    return buf;
}

std::string Label(const char* family, int n, const CString& name) {
    std::string s = std::string(family) + " " + std::to_string(n);
    if (!name.IsEmpty())
        s += " \"" + name.ToUtf8() + "\"";
    return s;
}

// The findings of one record, each text led by the record's label.
class RecordFindings {
  public:
    RecordFindings(std::vector<SanityChecks::SFinding>& out, std::string record)
        : m_out(out), m_record(std::move(record)) {}

    void Error(const std::string& text) { m_out.push_back({true, m_record + ": " + text}); }
    void Warning(const std::string& text) { m_out.push_back({false, m_record + ": " + text}); }

    // A number that must be finite; false, with an error, when it is not.
    bool Finite(const std::string& field, double v, const char* what) {
        if (std::isfinite(v))
            return true;
        Error(field + " is " + Number(v) + "; give " + what);
        return false;
    }

    // A coordinate or level (metres): finite and on this planet's grids.
    void Coordinate(const std::string& field, double v) {
        if (!Finite(field, v, "a coordinate in metres"))
            return;
        if (std::fabs(v) > kFarthest)
            Error(field + " is " + Number(v) +
                  " m, farther from the origin than any site grid "
                  "reaches (1e8 m); check the coordinate and its unit");
    }

    // A point's coordinates; field leads their names ("point 1 x"), or is empty.
    void Point(const std::string& field, const Vec3<double>& p) {
        const std::string lead = field.empty() ? "" : field + " ";
        Coordinate(lead + "x", p.x);
        Coordinate(lead + "y", p.y);
        Coordinate(lead + "z", p.z);
    }

    // An interval count to which one position more must still be countable.
    void Intervals(const std::string& field, int n) {
        if (n == INT_MAX)
            Error(field + " is " + std::to_string(n) +
                  ": one position more than that cannot be counted; reduce the intervals");
    }

  private:
    std::vector<SanityChecks::SFinding>& m_out;
    std::string m_record;
};

bool WidthMethodDefined(GeoTunnel::EkDerivation d) {
    return d == GeoTunnel::ekOReillyAndNew || d == GeoTunnel::ekBoscardin ||
           d == GeoTunnel::ekUserSpecified || d == GeoTunnel::ekSelby;
}

void CheckTunnel(const GeoTunnel& t, RecordFindings& f) {
    f.Coordinate("X centre line 1", t.GetXCentreLine1());
    f.Coordinate("Y centre line 1", t.GetYCentreLine1());
    f.Coordinate("Z centre line 1", t.GetZCentreLine1());
    f.Coordinate("X centre line 2", t.GetXCentreLine2());
    f.Coordinate("Y centre line 2", t.GetYCentreLine2());
    f.Coordinate("Z centre line 2", t.GetZCentreLine2());
    f.Coordinate("soil interface level 1", t.GetSoilInterfaceLevel1());
    f.Coordinate("soil interface level 2", t.GetSoilInterfaceLevel2());
    f.Coordinate("ground level 1", t.GetGroundLevel1());
    f.Coordinate("ground level 2", t.GetGroundLevel2());

    // The depth of the axis below the ground drives the sub-surface widths.
    const double ends[2][2] = {{t.GetZCentreLine1(), t.GetGroundLevel1()},
                               {t.GetZCentreLine2(), t.GetGroundLevel2()}};
    for (int e = 0; e < 2; ++e) {
        if (ends[e][1] <= ends[e][0])
            f.Warning("at end " + std::to_string(e + 1) + " its axis (" + Number(ends[e][0]) +
                      " m) is not below the ground level (" + Number(ends[e][1]) +
                      " m); check the levels");
    }

    const double D = t.GetDiameter();
    if (f.Finite("the diameter", D, "the excavated diameter in metres")) {
        if (D <= 0.0)
            f.Error("the diameter is " + Number(D) +
                    " m; give the excavated diameter, greater than 0");
        else if (D > kLargestTunnel)
            f.Warning("the diameter is " + Number(D) +
                      " m, larger than any tunnel driven; "
                      "check its unit");
    }
    const double loss = t.GetPercentLoss();
    if (f.Finite("the volume loss", loss, "a percentage of the excavated area")) {
        if (loss == 0.0)
            f.Warning("the volume loss is 0%: the tunnel moves no ground");
        else if (std::fabs(loss) > 100.0)
            f.Error("the volume loss is " + Number(loss) +
                    "%, more than the whole excavated area; give a percentage");
        else if (std::fabs(loss) > kLargestVolumeLoss)
            f.Warning("the volume loss is " + Number(loss) +
                      "%, far above the 0.5 to 3% of "
                      "tunnels driven; check that it is a percentage");
    }

    // The trough width of surface points, and of sub-surface points by New and Bowers,
    // comes from a derivation; one that gives no width leaves every movement undefined.
    const bool newAndBowers = t.GetSubSurfaceMethod() == GeoTunnel::eNewAndBowers;
    struct {
        ESurfaceType type;
        bool used;
        const char* where;
    } widths[] = {{eSurface, true, "surface"}, {eSubSurface, newAndBowers, "sub-surface"}};
    for (const auto& w : widths) {
        if (!w.used)
            continue;
        const GeoTunnel::EkDerivation d = t.GetkDerivation(w.type);
        if (!WidthMethodDefined(d)) {
            f.Error(std::string("the ") + w.where + " k derivation is \"" +
                    CString(GeoTunnel::K_DERIVATION_STRINGS[d]).ToUtf8() +
                    "\", which gives no trough width; choose O'Reilly and New, Boscardin, "
                    "Selby or User-specified k");
        } else if (d == GeoTunnel::ekUserSpecified) {
            const double k = t.Getk(w.type);
            const std::string field = std::string("the ") + w.where + " k";
            if (f.Finite(field, k, "the trough width factor, greater than 0")) {
                if (k <= 0.0)
                    f.Error(field + " is " + Number(k) +
                            ", which gives no trough width; give a factor greater than 0");
                else if (k > kLargestUserK)
                    f.Warning(field + " is " + Number(k) +
                              ", a trough far wider than any ground gives; check it");
            }
        }
    }
    if (t.GetSubSurfaceMethod() == GeoTunnel::eHarrisAndAlvarado)
        f.Finite("the Harris and Alvarado exponent m", t.Getm(), "a number");
}

void CheckMine(const GeoMine& m, RecordFindings& f) {
    f.Coordinate("X centre line 1", m.GetXCentreLine1());
    f.Coordinate("Y centre line 1", m.GetYCentreLine1());
    f.Coordinate("X centre line 2", m.GetXCentreLine2());
    f.Coordinate("Y centre line 2", m.GetYCentreLine2());
    if (std::hypot(m.GetXCentreLine2() - m.GetXCentreLine1(),
                   m.GetYCentreLine2() - m.GetYCentreLine1()) < 0.001)
        f.Error("its centre line is shorter than 0.001 m in plan; give the panel's two ends");

    const double closure = m.GetClosure();
    if (f.Finite("the closure", closure, "the seam thickness extracted in metres")) {
        if (closure < 0.0)
            f.Error("the closure is " + Number(closure) +
                    " m; give the seam thickness extracted, 0 or more");
        else if (closure == 0.0)
            f.Warning("the closure is 0 m: the panel causes no subsidence");
        else if (closure > kLargestClosure)
            f.Warning("the closure is " + Number(closure) +
                      " m, thicker than any seam worked; "
                      "check its unit");
    }
    const double W = m.GetPanelWidth();
    if (f.Finite("the panel width", W, "the panel width in metres") && W <= 0.0)
        f.Error("the panel width is " + Number(W) + " m; give a width greater than 0");

    const double lower = m.GetLowerStratumThickness();
    const double upper = m.GetUpperStratumThickness();
    const bool thicknesses = f.Finite("the lower stratum thickness", lower, "metres") &
                             f.Finite("the upper stratum thickness", upper, "metres");
    if (thicknesses) {
        if (lower < 0.0)
            f.Error("the lower stratum thickness is " + Number(lower) + " m; give 0 or more");
        if (upper < 0.0)
            f.Error("the upper stratum thickness is " + Number(upper) + " m; give 0 or more");
        if (lower >= 0.0 && upper >= 0.0 && lower + upper <= 0.0)
            f.Error("the two strata are 0 m thick together: the seam has no depth; give the "
                    "thickness of the ground over it");
    }
    const double lowerAngle = m.GetLowerAngleOfDraw();
    const double upperAngle = m.GetUpperAngleOfDraw();
    bool angles = true;
    struct {
        const char* field;
        double v;
    } draws[] = {{"the lower angle of draw", lowerAngle}, {"the upper angle of draw", upperAngle}};
    for (const auto& a : draws) {
        if (!f.Finite(a.field, a.v, "degrees from the vertical")) {
            angles = false;
        } else if (a.v < 0.0 || a.v >= 90.0) {
            f.Error(std::string(a.field) + " is " + Number(a.v) +
                    " degrees; give an angle from the vertical, 0 or more and below 90");
            angles = false;
        }
    }
    // The radius of the critical area: with none, every ring divides by zero.
    if (thicknesses && angles && lower >= 0.0 && upper >= 0.0 && lower + upper > 0.0) {
        const double R = std::tan(lowerAngle * M_PI / 180.0) * lower +
                         std::tan(upperAngle * M_PI / 180.0) * upper;
        if (!(R > 0.0))
            f.Error("its angles of draw and strata give no area of influence (radius 0); give "
                    "an angle of draw above 0 to a stratum of some thickness");
    }
}

// The levels every excavation has: the surface level and, when surface curves are taken
// down to a level, that level.
void CheckExcavationLevels(const CExcavation& e, RecordFindings& f) {
    f.Coordinate("the surface level", e.GetSurfaceLevel());
    if (e.GetAllowGMCalcnToLevel())
        f.Coordinate("the level to which surface curves are applied",
                     e.GetAllowGMCalcnToLevelValue());
}

// A wall's depth at its base levels (metres): none at one of them is a fault, since a
// curve is scaled by the depth and a point on the wall line then gets 0 / 0; a wall
// deeper than any built is a warning. The first base level at fault stands for the rest.
void CheckWallDepth(double surface, const std::vector<double>& bases, bool one, RecordFindings& f) {
    if (!(std::fabs(surface) <= kFarthest))
        return; // reported as a level
    auto where = [one](size_t k) {
        return one ? std::string("the base level") : "base level " + std::to_string(k + 1);
    };
    size_t deepest = bases.size();
    for (size_t k = 0; k < bases.size(); ++k) {
        if (bases[k] == surface) {
            f.Error(where(k) + " equals the surface level (" + Number(surface) +
                    " m): the wall there has no depth, and points on its line get no value; "
                    "give a base level below the surface level");
            return;
        }
        if (std::fabs(bases[k]) <= kFarthest &&
            (deepest == bases.size() || bases[k] < bases[deepest]))
            deepest = k;
    }
    if (deepest < bases.size() && surface - bases[deepest] > kDeepestWall)
        f.Warning(where(deepest) + " is " + Number(surface - bases[deepest]) +
                  " m below the surface level, deeper than any embedded wall built; check the "
                  "levels and their unit");
}

double Cross(const Vec2<double>& o, const Vec2<double>& a, const Vec2<double>& b) {
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

// Whether q, known to lie on the line through a and b, lies within their extent.
bool WithinExtent(const Vec2<double>& a, const Vec2<double>& b, const Vec2<double>& q) {
    return std::min(a.x, b.x) <= q.x && q.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= q.y &&
           q.y <= std::max(a.y, b.y);
}

// Whether the sides pq and rs cross or touch.
bool SidesMeet(const Vec2<double>& p, const Vec2<double>& q, const Vec2<double>& r,
               const Vec2<double>& s) {
    const double d1 = Cross(r, s, p), d2 = Cross(r, s, q);
    const double d3 = Cross(p, q, r), d4 = Cross(p, q, s);
    if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0)))
        return true;
    return (d1 == 0 && WithinExtent(r, s, p)) || (d2 == 0 && WithinExtent(r, s, q)) ||
           (d3 == 0 && WithinExtent(p, q, r)) || (d4 == 0 && WithinExtent(p, q, s));
}

// The wall line of a polygonal excavation: coincident vertices, no enclosed area, sides
// that cross. Its vertices are finite and within the site grids.
void CheckOutline(const CPolygonalExcavation& e, RecordFindings& f) {
    const double tol = CPolygonalExcavation::POLYGON_TOLERANCE;
    const std::vector<Vec2<double>>& v = e.GetPolygon().Points();
    const size_t n = v.size();
    auto dist = [](const Vec2<double>& a, const Vec2<double>& b) {
        return std::hypot(b.x - a.x, b.y - a.y);
    };
    // The vertices that make the wall, coincident ones dropped as the crossing test of the
    // library drops them, by their index in the record.
    std::vector<size_t> kept;
    for (size_t i = 0; i < n; ++i)
        if (kept.empty() || dist(v[kept.back()], v[i]) > tol)
            kept.push_back(i);
    while (kept.size() > 1 && dist(v[kept.back()], v[kept.front()]) <= tol)
        kept.pop_back();
    for (size_t i = 0; i < n; ++i) {
        const size_t j = (i + 1) % n;
        const double d = dist(v[i], v[j]);
        if (d <= tol) {
            f.Warning("vertices " + std::to_string(i + 1) + " and " + std::to_string(j + 1) +
                      " are " + Number(d) +
                      " m apart, within the 0.001 m to which the wall line is drawn: side " +
                      std::to_string(i + 1) + " is no real wall; delete one of the two vertices");
            break; // the first stands for the rest
        }
    }

    const size_t m = kept.size();
    double twiceArea = 0.0, perimeter = 0.0;
    for (size_t k = 0; k < m; ++k) {
        const Vec2<double> a = v[kept[k]] - v[kept[0]], b = v[kept[(k + 1) % m]] - v[kept[0]];
        twiceArea += a.x * b.y - a.y * b.x;
        perimeter += dist(a, b);
    }
    // An outline no wider than the tolerance anywhere: twice its area over its perimeter
    // is its width for a thin strip.
    if (m < 3 || std::fabs(twiceArea) <= tol * perimeter) {
        f.Error("its wall line encloses no area (its vertices lie on one line): it has no "
                "inside and its walls have no side to move towards; give the vertices of the "
                "excavation's outline");
        return;
    }
    if (m > static_cast<size_t>(kMostVerticesSearched)) {
        f.Warning("its wall line has " + std::to_string(n) +
                  " vertices, too many to search for sides that cross; check the outline");
        return;
    }
    for (size_t a = 0; a < m; ++a) {
        const Vec2<double>& p = v[kept[a]];
        const Vec2<double>& q = v[kept[(a + 1) % m]];
        for (size_t b = a + 1; b < m; ++b) {
            const Vec2<double>& r = v[kept[b]];
            const Vec2<double>& s = v[kept[(b + 1) % m]];
            bool meet;
            if (b == a + 1 || (a == 0 && b == m - 1)) {
                // Neighbours share a vertex: they meet elsewhere only by turning back.
                const Vec2<double> u = q - p, w = s - r;
                meet = u.x * w.y - u.y * w.x == 0.0 && u.x * w.x + u.y * w.y < 0.0;
            } else {
                meet = SidesMeet(p, q, r, s);
            }
            if (meet) {
                f.Error("sides " + std::to_string(kept[a] + 1) + " and " +
                        std::to_string(kept[b] + 1) +
                        " of its wall line meet: the outline crosses or touches itself, and its "
                        "inside is not one area; give the vertices in order round the excavation");
                return;
            }
        }
    }
}

// The stiffening of one side at a corner: the distance d over which movement recovers
// (metres) and the factors p1* and p2*, read only at a stiffened corner.
void CheckStiffening(const std::string& side, double d, double p1Star, double p2Star,
                     RecordFindings& f) {
    if (f.Finite(side + " d", d, "the distance along the wall in metres") && d < 0.0)
        f.Error(side + " d is " + Number(d) + " m; give a distance of 0 or more");
    // p1* is the movement at a right-angled corner as a fraction of a plain wall's, and
    // the middle point of the table that p2 is read off between 0 and 1.
    if (f.Finite(side + " p1*", p1Star, "a factor from 0 to 1") &&
        !(p1Star >= 0.0 && p1Star <= 1.0))
        f.Error(side + " p1* is " + Number(p1Star) + "; give a factor from 0 to 1");
    if (f.Finite(side + " p2*", p2Star, "a factor from 0 to 1") && (p2Star < 0.0 || p2Star > 1.0))
        f.Warning(side + " p2* is " + Number(p2Star) +
                  ", outside 0 to 1: the fan around the corner takes more than the whole "
                  "movement of a wall, or less than none; check it");
}

void CheckTransitionZone(const std::string& side, double fraction, RecordFindings& f) {
    if (f.Finite(side + " transition zone fraction", fraction, "a fraction from 0 to 1") &&
        (fraction < 0.0 || fraction > 1.0))
        f.Warning(side + " transition zone fraction is " + Number(fraction) +
                  ", outside 0 to 1; check it");
}

void CheckPolygonalExcavation(const ZorvoData& doc, const CPolygonalExcavation& e,
                              RecordFindings& f) {
    const int nv = e.NumCoords(), nb = e.NumBaseLevels(), nc = e.NumExcavationCorners();
    if (nv < 3)
        f.Error("its wall line has " + std::to_string(nv) + (nv == 1 ? " vertex" : " vertices") +
                "; give at least three");
    if (nb != nv || nc != nv)
        f.Error("it has " + std::to_string(nv) + " vertices, " + std::to_string(nb) +
                " base levels and " + std::to_string(nc) +
                " corners; give one base level and one corner per vertex");

    CheckExcavationLevels(e, f);
    bool ordinary = true;
    for (int k = 1; k <= nv; ++k) {
        const Vec2<double>& p = e.GetCoord(k);
        if (!(std::fabs(p.x) <= kFarthest && std::fabs(p.y) <= kFarthest)) {
            f.Coordinate("vertex " + std::to_string(k) + " x", p.x);
            f.Coordinate("vertex " + std::to_string(k) + " y", p.y);
            ordinary = false;
            break; // the first vertex at fault stands for the rest
        }
    }
    for (int k = 1; k <= nb; ++k) {
        const double z = e.GetBaseLevel(k);
        if (!(std::fabs(z) <= kFarthest)) {
            f.Coordinate("base level " + std::to_string(k), z);
            break;
        }
    }
    CheckWallDepth(e.GetSurfaceLevel(), e.GetBaseLevels(), false, f);
    if (ordinary && nv >= 3)
        CheckOutline(e, f);

    // The library's pass tests the curves of every side but the last, which closes the
    // outline; a run reads that one too.
    if (nc >= 1) {
        const CExcavationCorner& last = e.GetExcavationCornerRef(nc);
        for (GeoGlobal::EDirection d : {GeoGlobal::eHorizontal, GeoGlobal::eVertical}) {
            const int index = last.GetGMCurve(d);
            if (index < 0 || index >= doc.NumGMCurves(d)) {
                const char* word = d == GeoGlobal::eVertical ? "vertical" : "horizontal";
                f.Error("side " + std::to_string(nc) + ", which closes the wall line, uses " +
                        word + " curve " + std::to_string(index + 1LL) + ", but there are " +
                        std::to_string(doc.NumGMCurves(d)) + " " + word +
                        " curves; choose one of them");
            }
        }
    }
    for (int c = 1; c <= nc; ++c) {
        const CExcavationCorner& k = e.GetExcavationCornerRef(c);
        const std::string corner = "corner " + std::to_string(c) + ": ";
        if (k.GetStiffened()) {
            CheckStiffening(corner + "the previous side's", k.GetPreviousEdge_d(),
                            k.GetPreviousEdge_p1Star(), k.GetPreviousEdge_p2Star(), f);
            CheckStiffening(corner + "the next side's", k.GetNextEdge_d(), k.GetNextEdge_p1Star(),
                            k.GetNextEdge_p2Star(), f);
        }
        // The transition zones widen the smoothing fan of re-entrant corners, read in
        // smoothed stages alone.
        if (doc.IsSmoothingOn()) {
            CheckTransitionZone(corner + "the previous side's",
                                k.GetPreviousEdge_TransitionZoneFraction(), f);
            CheckTransitionZone(corner + "the next side's", k.GetNextEdge_TransitionZoneFraction(),
                                f);
        }
    }
}

void CheckCircularExcavation(const CCircularExcavation& e, RecordFindings& f) {
    f.Coordinate("centre x", e.GetCentre().x);
    f.Coordinate("centre y", e.GetCentre().y);
    CheckExcavationLevels(e, f);
    f.Coordinate("the base level", e.GetBaseLevel());
    CheckWallDepth(e.GetSurfaceLevel(), {e.GetBaseLevel()}, true, f);
    // A diameter of 0 or below is the library's error.
    const double D = e.GetDiameter();
    if (f.Finite("the diameter", D, "the shaft's diameter in metres") && D > kWidestShaft)
        f.Warning("the diameter is " + Number(D) + " m, wider than any shaft sunk; check its unit");
}

void CheckImportedSet(const CImportedDisplacementsSet& set, RecordFindings& f) {
    const std::vector<CImportedDisplacement>& all = set.GetDisplacements();
    size_t bad = 0, first = 0;
    for (size_t k = 0; k < all.size(); ++k) {
        const CImportedDisplacement& d = all[k];
        const bool finite = std::isfinite(d.GetXpoint()) && std::isfinite(d.GetYpoint()) &&
                            std::isfinite(d.GetZpoint()) && std::isfinite(d.GetXdisplacement()) &&
                            std::isfinite(d.GetYdisplacement()) &&
                            std::isfinite(d.GetZdisplacement());
        if (!finite && bad++ == 0)
            first = k + 1;
    }
    if (bad > 0)
        f.Error(std::to_string(bad) + " of its " + std::to_string(all.size()) +
                " displacements hold a value that is not a finite number, the first number " +
                std::to_string(first) +
                "; they would be added to the results where samples coincide: give their "
                "points and displacements as numbers");
}

// The surface level (metres) of the excavation a stage property names, if it exists.
bool NamedSurfaceLevel(const ZorvoData& doc, const CStageProperty& p, int n, double& level) {
    if (p.GetElementType() == eElementPolygonalExcavation && doc.PolygonalExcavationExists(n)) {
        level = doc.GetPolygonalExcavation(n).GetSurfaceLevel();
        return true;
    }
    if (p.GetElementType() == eElementCircularExcavation && doc.CircularExcavationExists(n)) {
        level = doc.GetCircularExcavation(n).GetSurfaceLevel();
        return true;
    }
    return false;
}

void CheckStageProperty(const ZorvoData& doc, const CStageProperty& p, RecordFindings& f) {
    const std::vector<double>& v = p.GetValues();
    // A base level at or above an excavation's surface level leaves its wall no depth in
    // that stage: a point on the wall line would then take a movement of 0 / 0.
    if (p.GetElementType() != eElementTunnel) {
        const long long count = p.GetElementType() == eElementPolygonalExcavation
                                    ? doc.NumPolygonalExcavations()
                                    : doc.NumCircularExcavations();
        for (const auto& range : p.GetRefs().Ranges()) {
            const long long last = std::min<long long>(range.second, count);
            for (long long n = std::max(range.first, 1); n <= last; ++n) {
                double surface = 0.0;
                if (!NamedSurfaceLevel(doc, p, static_cast<int>(n), surface))
                    continue;
                for (size_t k = 0; k < v.size(); ++k)
                    if (std::isfinite(v[k]) && v[k] >= surface) {
                        f.Error("value " + std::to_string(k + 1) + " gives " +
                                (p.GetElementType() == eElementPolygonalExcavation
                                     ? "polygonal excavation "
                                     : "circular excavation ") +
                                std::to_string(n) + " a base level of " + Number(v[k]) +
                                " m, not below its surface level of " + Number(surface) +
                                " m: the wall has no depth in that stage; give a level below "
                                "the surface level");
                        break;
                    }
            }
        }
    }
    for (size_t k = 0; k < v.size(); ++k) {
        const std::string field = "value " + std::to_string(k + 1);
        if (!f.Finite(field, v[k], "a number in metres"))
            continue;
        if (std::fabs(v[k]) > kFarthest)
            f.Error(field + " is " + Number(v[k]) + " m, beyond any size or level; check it");
        else if (p.GetElementType() == eElementTunnel && k == 0 && v[k] < 0.0)
            f.Error("the diameter it gives is " + Number(v[k]) +
                    " m; give a diameter greater than 0");
        else if (p.GetElementType() == eElementTunnel && k == 0 && v[k] < 0.001)
            f.Warning("the diameter it gives is " + Number(v[k]) +
                      " m: its tunnels move no ground in that stage");
    }
}

// The limiting strains of a damage category strains record. The category of a segment
// is the highest whose limit its strain exceeds, found from category 4 down, and the
// largest tensile strain is searched for below limit 4: both assume limits that rise from
// category 1 to 4. Limit 0 takes part in no comparison and is not tested.
void CheckDamageCategoryStrains(const CDamageCategoryStrains& s, RecordFindings& f) {
    double previous = 0.0;
    bool ordered = true;
    for (int k = 1; k < CDamageCategoryStrains::NUM_CATEGORIES; ++k) {
        const double limit =
            s.GetStrainLimit(static_cast<CDamageCategoryStrains::EDamageCategory>(k));
        const std::string field = "limit " + std::to_string(k);
        if (!f.Finite(field, limit, "a tensile strain as a plain ratio")) {
            ordered = false;
            continue;
        }
        if (limit < 0.0)
            f.Error(field + " is " + Number(limit) + "; give a tensile strain of 0 or more");
        else if (ordered && k > 1 && !(limit > previous)) {
            f.Error(field + " (" + Number(limit) + ") is not above limit " + std::to_string(k - 1) +
                    " (" + Number(previous) +
                    "): the categories must rise with the strain; give limits that increase "
                    "from category 1 to 4");
            ordered = false; // the first pair out of order stands for the rest
        }
        previous = limit;
    }
}

// What the assessment of a specific building reads and the library's errors leave alone:
// references it would follow blindly, and values that are not numbers or give a beam that
// does not exist. The chainages, E/G and trough sensitivity are the library's to test as
// far as their ranges go; here only the values that pass its tests unseen.
void CheckSpecificBuilding(const ZorvoData& doc, const CSpecificBuilding& b, RecordFindings& f) {
    if (b.GetLine() < 1)
        f.Error("its line number is " + std::to_string(b.GetLine()) +
                "; give the number of the displacement line that carries it, 1 or more");
    const CBuildingDamageProperties& p = b.GetBuildingDamageProperties();
    const int strains = p.GetDamageCategoryStrains();
    if (strains < 1 || strains > doc.NumDamageCategoryStrains())
        f.Error("it uses damage category strains " + std::to_string(strains) + ", but there " +
                (doc.NumDamageCategoryStrains() == 1
                     ? "is 1"
                     : "are " + std::to_string(doc.NumDamageCategoryStrains())) +
                "; choose one of them");

    // A chainage that is not a number passes every comparison of the library's test.
    const struct {
        const char* field;
        double v;
    } chainages[] = {{"the line start", b.GetLineStart()}, {"the line end", b.GetLineEnd()}};
    for (const auto& c : chainages)
        if (std::isnan(c.v))
            f.Error(std::string(c.field) + " is NaN; give a distance along the line in metres");

    // Every formula of the beam divides by its height, through L/H or the section.
    const double H = b.GetHeight();
    if (f.Finite("the height", H, "the building's height in metres") && H <= 0.0)
        f.Error("the height is " + Number(H) + " m; give the building's height, greater than 0");

    // The Burland and Wroth formulas take nu only in (1 - nu)/2 and (1 + nu)/2 and divide
    // by neither, so no value breaks them; but the masonry, concrete and steel of a
    // building have nu from 0 to below 0.5 (0.5 is an incompressible solid, and below 0
    // none of them goes): outside that range the category is worked for a material that
    // does not exist.
    const double nu = p.GetPoissonsRatio();
    if (f.Finite("Poisson's ratio", nu, "a ratio from 0 to below 0.5") && !(nu >= 0.0 && nu < 0.5))
        f.Error("Poisson's ratio is " + Number(nu) +
                ", outside the range of building materials; give a ratio from 0 to below 0.5");
    // E/G not above 0, not a number included, is the library's error.
    if (std::isinf(p.GetEOverG()) && p.GetEOverG() > 0.0)
        f.Error("E/G is infinite; give the ratio of Young's to shear modulus");
    // A negative sensitivity, minus infinity included, is the library's error.
    const double sensitivity = p.GetEndVDispSensitivity();
    if (!std::isfinite(sensitivity) && !(sensitivity < 0.0))
        f.Error("the settlement trough limit sensitivity is " + Number(sensitivity) +
                "; give the smallest settlement in metres that counts as the edge of the trough");

    // The section values are read only when the properties are not the rectangle of the
    // building's height; each is a distance or second moment, and 0 divides.
    if (!p.GetDefaultProperties()) {
        const struct {
            const char* name;
            double (CBuildingDamageProperties::*get)(GeoGlobal::ECurvature, double) const;
            const char* unit;
        } section[] = {{"I", &CBuildingDamageProperties::GetI, " m^4/m"},
                       {"the strain distance from the neutral axis",
                        &CBuildingDamageProperties::GetStrainFromNA, " m"},
                       {"the neutral axis distance from the tension edge",
                        &CBuildingDamageProperties::GetNAFromTensionEdge, " m"}};
        for (GeoGlobal::ECurvature c : {GeoGlobal::eHogging, GeoGlobal::eSagging}) {
            const std::string curvature = c == GeoGlobal::eHogging ? "hogging" : "sagging";
            for (const auto& s : section) {
                const double v = (p.*s.get)(c, H);
                const std::string field = std::string(s.name) + " in " + curvature;
                if (f.Finite(field, v, "a value greater than 0") && v <= 0.0)
                    f.Error(field + " is " + Number(v) + s.unit + "; give a value greater than 0");
            }
        }
    }
    // An empty list is the library's error; the first offset at fault stands for the rest.
    for (int k = 1; k <= p.NumberOfVerticalOffsets(); ++k) {
        if (!f.Finite("vertical offset " + std::to_string(k), p.GetVerticalOffset(k),
                      "a level relative to the line in metres"))
            break;
    }
}

// What the library's utility errors leave alone: a pipe whose section has no size, and
// lengths that are not numbers, which pass every comparison of its tests unseen. A
// dimension number outside the table is the library's error.
void CheckUtility(const ZorvoData& doc, const CUtility& u, RecordFindings& f) {
    const int n = u.GetDimension();
    if (n >= 1 && n <= doc.NumUtilityDimensions()) {
        const CUtilityDimension& d = doc.GetUtilityDimension(n);
        const double D = d.GetDiameter();
        const std::string field = "the external diameter of its dimension " + std::to_string(n);
        if (f.Finite(field, D, "a bore and wall thickness in metres") && D <= 0.0)
            f.Error(field + " is " + Number(D) +
                    " m; give the dimension a bore and wall thickness whose diameter is greater "
                    "than 0");
    }
    f.Finite("the pipe length", u.GetPipeLength(), "the length of one pipe in metres");
}

void CheckSpecificUtility(const ZorvoData& doc, const CSpecificUtility& u, RecordFindings& f) {
    f.Finite("the line start", u.GetLineStart(), "a distance along its line in metres");
    f.Finite("the line end", u.GetLineEnd(), "a distance along its line in metres");
    CheckUtility(doc, u, f);
}

// Samples of a displacement record, counted without overflow.
double Samples(const ZorvoData& doc, int d) {
    EPointType type;
    int index = 0;
    doc.GetDisplacementTypeIndex(d, type, index);
    switch (type) {
    case ePoint:
        return 1.0;
    case eLine:
        return static_cast<double>(doc.GetDisplacementLine(index).GetIntervalsAlongLine()) + 1.0;
    case ePolyline:
        return static_cast<double>(doc.GetDisplacementPolyline(index).GetIntervalsAlongLine()) +
               1.0;
    default: {
        const CDisplacementGrid& g = doc.GetDisplacementGrid(index);
        return (static_cast<double>(g.GetIntervalsAlongLine()) + 1.0) *
               (static_cast<double>(g.GetIntervalsAlongExtrusion()) + 1.0);
    }
    }
}

const char* FamilyWord(EPointType t) {
    switch (t) {
    case ePoint:
        return "Point";
    case eLine:
        return "Line";
    case ePolyline:
        return "Polyline";
    default:
        return "Grid";
    }
}

// A count: in full below a million, beyond as 4.0e18.
std::string Scientific(double v) {
    char buf[32];
    if (v < 1e6) {
        std::snprintf(buf, sizeof buf, "%.0f", v);
        return buf;
    }
    const int exponent = static_cast<int>(std::floor(std::log10(v)));
    double mantissa = v / std::pow(10.0, exponent);
    std::snprintf(buf, sizeof buf, "%.1fe%d", mantissa, exponent);
    return buf;
}

std::string Stages(double n) { return Scientific(n) + (n == 1.0 ? " stage" : " stages"); }

} // namespace

std::vector<SanityChecks::SFinding> SanityChecks::Inputs(const ZorvoData& doc) {
    std::vector<SFinding> out;
    const bool mines = doc.GetGeneral().GetProblemType() == eMine;
    // The records of the analysis that runs; the other kind's are kept but unused.
    if (!mines) {
        for (int t = 1; t <= doc.NumTunnels(); ++t) {
            RecordFindings f(out, Label("Tunnel", t, doc.GetTunnel(t).GetName()));
            CheckTunnel(doc.GetTunnel(t), f);
        }
        for (int e = 1; e <= doc.NumPolygonalExcavations(); ++e) {
            const CPolygonalExcavation& x = doc.GetPolygonalExcavation(e);
            RecordFindings f(out, Label("Polygonal excavation", e, x.GetName()));
            CheckPolygonalExcavation(doc, x, f);
        }
        for (int e = 1; e <= doc.NumCircularExcavations(); ++e) {
            const CCircularExcavation& x = doc.GetCircularExcavation(e);
            RecordFindings f(out, Label("Circular excavation", e, x.GetName()));
            CheckCircularExcavation(x, f);
        }
    } else {
        for (int m = 1; m <= doc.NumMines(); ++m) {
            RecordFindings f(out, Label("Mine", m, doc.GetMine(m).GetName()));
            CheckMine(doc.GetMine(m), f);
        }
    }
    for (int n = 1; n <= doc.NumImportedDisplacementsSets(); ++n) {
        RecordFindings f(out, Label("Imported set", n, doc.GetImportedDisplacementsSet(n).Name()));
        CheckImportedSet(doc.GetImportedDisplacementsSet(n), f);
    }
    for (int p = 1; p <= doc.NumStageProperties(); ++p) {
        RecordFindings f(out, Label("Stage property", p, doc.GetStageProperty(p).Name()));
        CheckStageProperty(doc, doc.GetStageProperty(p), f);
    }
    for (int n = 1; n <= doc.NumDisplacementPoints(false); ++n) {
        const CDisplacementPoint& r = doc.GetDisplacementPoint(n);
        RecordFindings f(out, Label("Point", n, r.Name()));
        f.Point("", r.GetPoint());
    }
    for (int n = 1; n <= doc.NumDisplacementLines(false); ++n) {
        const CDisplacementLine& r = doc.GetDisplacementLine(n);
        RecordFindings f(out, Label("Line", n, r.Name()));
        f.Point("point 1", r.GetPoint1());
        f.Point("point 2", r.GetPoint2());
        f.Intervals("the number of intervals", r.GetIntervalsAlongLine());
    }
    for (int n = 1; n <= doc.NumDisplacementPolylines(false); ++n) {
        const CDisplacementPolyline& r = doc.GetDisplacementPolyline(n);
        RecordFindings f(out, Label("Polyline", n, r.Name()));
        f.Intervals("the number of intervals", r.GetIntervalsAlongLine());
    }
    for (int n = 1; n <= doc.NumDisplacementGrids(false); ++n) {
        const CDisplacementGrid& r = doc.GetDisplacementGrid(n);
        RecordFindings f(out, Label("Grid", n, r.Name()));
        f.Point("point 1", r.GetPoint1());
        f.Point("point 2", r.GetPoint2());
        f.Coordinate("the extrusion distance", r.GetExtrusionDistance());
        f.Intervals("the number of intervals along its line", r.GetIntervalsAlongLine());
        f.Intervals("the number of intervals along its extrusion", r.GetIntervalsAlongExtrusion());
    }
    // The user's ground movement curves: a point that is not a number, or a polynomial
    // that cannot be fitted, leaves the curve without values wherever it is used.
    for (GeoGlobal::EDirection d : {GeoGlobal::eHorizontal, GeoGlobal::eVertical}) {
        for (int n = 1; n <= doc.NumGMCurves(d); ++n) {
            const CGMCurve& c = doc.GetGMCurve(d, n);
            if (!c.GetEditable())
                continue;
            RecordFindings f(
                out, Label(d == GeoGlobal::eVertical ? "Vertical curve" : "Horizontal curve", n,
                           c.GetName()));
            const auto& data = c.GetDataCoords();
            for (size_t k = 0; k < data.size(); ++k) {
                if (!(std::isfinite(data[k].x) && std::isfinite(data[k].y) &&
                      std::isfinite(data[k].z))) {
                    f.Warning("data point " + std::to_string(k + 1) +
                              " holds a value that is not a finite number; give its x, y and z");
                    break;
                }
            }
            if (c.GetInterpolationMethod() == CGMCurve::ePolynomial && !c.IsPolynomialValid())
                f.Warning("its polynomial of x order " + std::to_string(c.GetXOrder()) +
                          " and y order " + std::to_string(c.GetYOrder()) +
                          " cannot be fitted to its " + std::to_string(data.size()) +
                          " data points; give more points or lower orders");
        }
    }
    for (int n = 1; n <= doc.NumPolylines(); ++n) {
        const CPolylinePlus& p = doc.GetPolyline(n);
        RecordFindings f(out, Label("Polyline shape", n, p.Name()));
        // The first vertex at fault stands for the rest.
        for (int v = 0; v < p.NumPoint(); ++v) {
            const Vec3<double>& q = p.Point(v);
            const double far = std::max({std::fabs(q.x), std::fabs(q.y), std::fabs(q.z)});
            if (!(far <= kFarthest)) {
                f.Point("vertex " + std::to_string(v + 1), q);
                break;
            }
        }
    }
    for (int n = 1; n <= doc.NumDamageCategoryStrains(); ++n) {
        const CDamageCategoryStrains& s = doc.GetDamageCategoryStrains(n);
        RecordFindings f(out, Label("Damage category strains", n, s.GetName()));
        CheckDamageCategoryStrains(s, f);
    }
    for (int n = 1; n <= doc.NumSpecificBuildings(); ++n) {
        const CSpecificBuilding& b = doc.GetSpecificBuilding(n);
        RecordFindings f(out, Label("Specific Building", n, b.GetName()));
        CheckSpecificBuilding(doc, b, f);
    }
    for (int n = 1; n <= doc.NumSpecificUtilities(); ++n) {
        const CSpecificUtility& u = doc.GetSpecificUtility(n);
        RecordFindings f(out, Label("Specific Utility", n, u.GetName()));
        CheckSpecificUtility(doc, u, f);
    }
    for (int n = 1; n <= doc.NumGenericUtilities(); ++n) {
        const CGenericUtility& u = doc.GetGenericUtility(n);
        RecordFindings f(out, Label("Generic Utility", n, u.GetName()));
        CheckUtility(doc, u, f);
        // A transect interval or length that is not a number passes every comparison of
        // the library's checks, and the run would set out nothing.
        f.Finite("the transect interval", u.GetInterval(), "the chainage between transects in metres");
        f.Finite("the transect length", u.GetLength(), "the length of a transect in metres");
        // One point passes the library's checks, yet a transect of one point has no
        // interval: it takes movements and is never assessed.
        if (u.GetDispPoints() == 1)
            f.Error("its transects have 1 displacement point, so none can be assessed; give at "
                    "least 2");
    }
    return out;
}

std::vector<SanityChecks::SFinding> SanityChecks::RunSize(const ZorvoData& doc, double memoryBytes,
                                                          const std::string& memorySource,
                                                          int cores) {
    std::vector<SFinding> out;
    const double stages = doc.NumStages(true, false);
    const double limit = memoryBytes * kResultShareOfMemory;
    const std::string memory = " of results, more than fits in the " +
                               SystemMemory::Describe(memoryBytes) + " " + memorySource;
    double total = 0.0;
    bool refused = false;
    for (int d = 1; d <= doc.NumDisplacementData(); ++d) {
        if (!doc.GetDisplacementData(d).GetCalculate())
            continue;
        const double samples = Samples(doc, d);
        const double bytes = samples * stages * kBytesPerSample;
        total += samples;
        if (memoryBytes > 0.0 && bytes > limit) {
            refused = true;
            out.push_back({true, DisplacementLabel(doc, d) + " has " + Scientific(samples) +
                                     " samples in " + Stages(stages) + ": about " +
                                     SystemMemory::Describe(bytes) + memory +
                                     "; reduce its intervals"});
        }
    }
    const double bytes = total * stages * kBytesPerSample;
    if (!refused && memoryBytes > 0.0 && bytes > limit) {
        refused = true;
        out.push_back({true, "The displacement records have " + Scientific(total) + " samples in " +
                                 Stages(stages) + ": about " + SystemMemory::Describe(bytes) +
                                 memory + "; reduce their intervals or the stages"});
    }

    // The transects of each generic utility, in every stage slot. The library sets out
    // none for a count that memory cannot hold; here such a count is refused.
    for (int n = 1; !refused && n <= doc.NumGenericUtilities(); ++n) {
        const CGenericUtility& g = doc.GetGenericUtility(n);
        const double transects = doc.NumGenericUtilityTransects(n);
        const double samples = transects * std::max(g.GetDispPoints(), 0);
        const double need = samples * stages * kBytesPerSample;
        if (memoryBytes > 0.0 &&
            (need > limit || !doc.FitsInMemory(transects, g.GetDispPoints()))) {
            refused = true;
            out.push_back({true, Label("Generic Utility", n, g.GetName()) + " sets out " +
                                     Scientific(transects) + " transects of " +
                                     std::to_string(g.GetDispPoints()) + " points in " +
                                     Stages(stages) + ": about " + SystemMemory::Describe(need) +
                                     memory + "; increase its transect interval or reduce its "
                                              "displacement points"});
        }
    }

    const bool mines = doc.GetGeneral().GetProblemType() == eMine;
    const int count = mines ? doc.NumMines() : doc.NumTunnels();
    const double seconds = total * stages * count * (mines ? kMineCost : 1.0) /
                           (kEvaluationsPerCoreSecond * std::max(cores, 1));
    if (!refused && seconds > kLongRun) {
        char hours[32];
        std::snprintf(hours, sizeof hours, "%.1f", seconds / 3600.0);
        out.push_back({false, "The run works out " + Scientific(total * stages) +
                                  " samples under " + std::to_string(count) +
                                  (mines ? (count == 1 ? " mine" : " mines")
                                         : (count == 1 ? " tunnel" : " tunnels")) +
                                  ": about " + hours + " hours on " + std::to_string(cores) +
                                  " cores; Ctrl-C stops it"});
    }
    return out;
}

std::string SanityChecks::DisplacementLabel(const ZorvoData& doc, int d) {
    EPointType type;
    int index = 0;
    doc.GetDisplacementTypeIndex(d, type, index);
    return Label(FamilyWord(type), index, doc.GetDisplacementData(d).Name());
}

bool SanityChecks::IsFinite(const GeoDispResult& r) {
    const Vec3<double>& p = r.GetPoint();
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z) &&
           std::isfinite(r.GetXdisplacement()) && std::isfinite(r.GetYdisplacement()) &&
           std::isfinite(r.GetZdisplacement()) && std::isfinite(r.GetMajorPrincipalStrain()) &&
           std::isfinite(r.GetMinorPrincipalStrain()) && std::isfinite(r.GetPrincipalStrainAngle());
}

std::vector<SanityChecks::SFinding> SanityChecks::Results(const ZorvoData& doc) {
    std::vector<SFinding> out;
    for (int d = 1; d <= doc.NumDisplacementData(); ++d) {
        const CDisplacementData& record = doc.GetDisplacementData(d);
        for (int s = 0; s < record.NumResultStages(); ++s) {
            long long bad = 0, all = 0;
            for (const auto& row : record.GetResults(s)) {
                for (const GeoDispResult& r : row) {
                    if (!r.IsCalculated())
                        continue; // never reached by a cancelled run
                    ++all;
                    bad += IsFinite(r) ? 0 : 1;
                }
            }
            if (bad > 0)
                out.push_back({true, DisplacementLabel(doc, d) + ", stage " + std::to_string(s) +
                                         " (" + doc.GetStageName(s).ToUtf8() + "): " +
                                         std::to_string(bad) + " of " + std::to_string(all) +
                                         " samples hold a value that is not a finite number; "
                                         "they mean nothing: check the inputs of that stage"});
        }
    }
    return out;
}

} // namespace Tevra
