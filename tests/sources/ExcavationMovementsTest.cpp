// Movements behind excavation walls: the curve's conversion to millimetres, the regions
// of a polygonal basement's sides, a circular shaft, and their sum at a point.
#include "base/CLodraZorvoPrefData.h"
#include "document/ZorvoData.h"
#include "solver/ZorvoCal.h"
#include "solver/ZorvoSolver.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;
using GeoGlobal::eHorizontal;
using GeoGlobal::eVertical;

namespace {

constexpr double kS = 100.0;  // surface level of every excavation here (m)
constexpr double kTol = 1e-9; // millimetres
const double kRoot2 = std::sqrt(2.0);

double Degrees(double radians) { return radians * 180.0 / (2.0 * std::asin(1.0)); }

// A straight user curve c0 + c1 x (percent of the wall depth, x = d / H) over
// 0 <= x <= 2, and 0 <= y <= 1 unless surface only.
CGMCurve Straight(GeoGlobal::EDirection dir, double c0, double c1, bool surfaceOnly = false) {
    CGMCurve c(true, dir, CGMCurve::ePolynomial, L"straight");
    std::vector<Vec3<double>> data = {{0.0, 0.0, c0}, {2.0, 0.0, c0 + 2.0 * c1}};
    if (!surfaceOnly) {
        data.push_back({0.0, 1.0, c0});
        data.push_back({2.0, 1.0, c0 + 2.0 * c1});
    }
    c.SetDataCoords(data);
    c.SetXOrder(1);
    c.SetYOrder(0);
    c.SetCoeffs({c0, c1});
    c.SetSurfaceOnly(surfaceOnly);
    return c;
}

// Appends a curve behind the standard ones; answers its 0-based index.
int AddCurve(ZorvoData& doc, GeoGlobal::EDirection dir, const CGMCurve& c) {
    const int n = doc.NumGMCurves(dir) + 1;
    doc.SetGMCurve(dir, n, c);
    return n - 1;
}

// The curves of every wall here: horizontal 0.5 - 0.25 x and vertical 1 - 0.5 x
// (percent). Behind a wall of H = 10 m at d metres:
//   mH = (0.5 - 0.025 d) / 100 * 10 * 1000 = 50 - 2.5 d mm, mV = 100 - 5 d mm,
// reaching 20 m.
struct Site {
    ZorvoData doc;
    int h = 0, v = 0;
    Site() {
        h = AddCurve(doc, eHorizontal, Straight(eHorizontal, 0.5, -0.25));
        v = AddCurve(doc, eVertical, Straight(eVertical, 1.0, -0.5));
    }
    CExcavationCorner Corner() const {
        CExcavationCorner c;
        c.SetGMCurve(eHorizontal, h);
        c.SetGMCurve(eVertical, v);
        return c;
    }
    // A basement of the given outline, base 90 m at every vertex (H = 10 m), one
    // default corner per vertex using the site's curves.
    CPolygonalExcavation Basement(const std::vector<Vec2<double>>& outline) const {
        CPolygonalExcavation e;
        e.SetSurfaceLevel(kS);
        CPolygon p(0.001);
        for (const Vec2<double>& q : outline)
            p.AddPoint(q);
        e.SetPolygon(p);
        e.SetBaseLevels(std::vector<double>(outline.size(), 90.0));
        e.SetExcavationCorners(std::vector<CExcavationCorner>(outline.size(), Corner()));
        return e;
    }
};

double mH(double d) { return 50.0 - 2.5 * d; } // mm at d m behind a 10 m wall
double mV(double d) { return 100.0 - 5.0 * d; }

// The 20 m square from (0, 0), numbered anticlockwise: outside is on the right.
const std::vector<Vec2<double>> kSquare = {{0, 0}, {20, 0}, {20, 20}, {0, 20}};
// Anticlockwise, with a re-entrant corner at vertex 3, (10, 10): side 2 arrives going
// west, side 3 leaves north-west, so that the soil angle there is 135 degrees.
const std::vector<Vec2<double>> kNotched = {{0, 0}, {20, 0}, {20, 10}, {10, 10}, {0, 20}};

std::array<double, 3> Movement(const ZorvoData& doc, const CExcavation& e, int stage, int number,
                               const Vec3<double>& p) {
    std::array<double, 3> m = {0.0, 0.0, 0.0};
    double strain[3] = {0.0, 0.0, 0.0};
    e.PointMovementsAndStrains(doc, stage, number, p, m.data(), strain);
    return m;
}

std::array<double, 3> Basement1(const ZorvoData& doc, int stage, double x, double y) {
    return Movement(doc, doc.GetPolygonalExcavation(1), stage, 1, {x, y, kS});
}

void ExpectMovement(const std::array<double, 3>& got, const std::array<double, 3>& expected,
                    const char* what) {
    for (int c = 0; c < 3; ++c)
        EXPECT_NEAR(got[static_cast<size_t>(c)], expected[static_cast<size_t>(c)], kTol)
            << what << " component " << c;
}

CBasicList List(const wchar_t* text) {
    CBasicList l;
    l.SetString(text);
    return l;
}

// The protected stiffening tables.
struct Tables : CPolygonalExcavation {
    using CPolygonalExcavation::Calc_p1;
    using CPolygonalExcavation::Calc_p2;
    using CPolygonalExcavation::Calc_pa_or_pb;
};

} // namespace

TEST(ExcavationMovements, StiffeningTablesAndSoilAngle) {
    struct {
        double got, expected;
        const char* what;
    } cases[] = {
        // p1: (0, 0), (90, 0.67), (180, 1).
        {Tables::Calc_p1(45.0, 0.67), 0.335, "p1 half way to 90"},
        {Tables::Calc_p1(135.0, 0.67), 0.835, "p1 0.67 + 0.5 (1 - 0.67)"},
        {Tables::Calc_p1(-10.0, 0.67), 0.0, "p1 below the table"},
        {Tables::Calc_p1(200.0, 0.67), 1.0, "p1 beyond the table"},
        // p2: (0, 0), (0.67, 0.25), (1, 0.5).
        {Tables::Calc_p2(0.335, 0.67, 0.25), 0.125, "p2 half way to p1 star"},
        {Tables::Calc_p2(0.835, 0.67, 0.25), 0.375, "p2 0.25 + (0.165 / 0.33) 0.25"},
        {Tables::Calc_p2(1.2, 0.67, 0.25), 0.5, "p2 beyond the table"},
        {Tables::Calc_p2(-0.1, 0.67, 0.25), 0.0, "p2 below the table"},
        // pa, pb at a 60 degree corner: (0, 0.67), (60, 0.25), (120, 0).
        {Tables::Calc_pa_or_pb(60.0, 0.67, 0.25, 30.0), 0.46, "0.67 - 0.5 0.42"},
        {Tables::Calc_pa_or_pb(60.0, 0.67, 0.25, 90.0), 0.125, "0.25 - 0.5 0.25"},
        {Tables::Calc_pa_or_pb(60.0, 0.67, 0.25, -5.0), 0.67, "pa below the table"},
        {Tables::Calc_pa_or_pb(60.0, 0.67, 0.25, 130.0), 0.0, "pa beyond the table"},
        // Soil angle: 270 at a convex square corner either way round; 135 at the notch
        // of kNotched, sides (-10, 0) then (-10, 10), and at the same corner numbered
        // clockwise, sides (10, -10) then (10, 0).
        {CPolygonalExcavation::calcExteriorAngle({20, 0}, {0, 20}, false), 270.0, "convex"},
        {CPolygonalExcavation::calcExteriorAngle({0, 20}, {20, 0}, true), 270.0, "convex cw"},
        {CPolygonalExcavation::calcExteriorAngle({-10, 0}, {-10, 10}, false), 135.0, "notch"},
        {CPolygonalExcavation::calcExteriorAngle({10, -10}, {10, 0}, true), 135.0, "notch cw"},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(c.got, c.expected, 1e-12) << c.what;
}

// Region 1, behind a side: the outside of side 0 of the square is y < 0 and a movement
// towards the excavation is +y there.
TEST(ExcavationMovements, BehindASide) {
    const double alpha = Degrees(std::atan2(3.0, 4.0)); // see ConvexCornerFan
    // Side 0 from (0, 0) to (1, 5): L = sqrt(26) = 5.0990195135927845, and at its end
    // vertex s = 1 ux + 5 uy = 5.0990195135927854, one rounding above L.
    const double L = std::sqrt(26.0);
    ASSERT_GT(1.0 * (1.0 / L) + 5.0 * (5.0 / L), L);
    struct {
        std::vector<Vec2<double>> outline;
        double x, y;
        std::array<double, 3> expected;
        const char* what;
    } cases[] = {
        // d = 4 behind the middle of side 0 alone.
        {kSquare, 10.0, -4.0, {0.0, mH(4), mV(4)}, "middle of a side"},
        // At vertex 1 both sides meet at d = 0 and each gives half: side 0 moves +y by
        // 25, side 1 (outside x > 20) moves -x by 25; 50 + 50 down.
        {kSquare, 20.0, 0.0, {-25.0, 25.0, 100.0}, "vertex, half from each side"},
        // Abreast of vertex 1, d = 4: all of side 0 (the fan starts beyond it).
        {kSquare, 20.0, -4.0, {0.0, mH(4), mV(4)}, "abreast of a convex corner"},
        // Beyond the reach of the curve: d = 20.5 > 10 x 2.
        {kSquare, 10.0, -20.5, {0.0, 0.0, 0.0}, "beyond the curve"},
        // Sides 0 and 1 in line: abreast of their common vertex (10, 0) at d = 4 the point
        // is at the end of one and the start of the other, with unit vectors of cross
        // product 0: half of (40, 80) from each, the whole of one wall.
        {{{0, 0}, {10, 0}, {20, 0}, {20, 20}, {0, 20}},
         10.0,
         -4.0,
         {0.0, mH(4), mV(4)},
         "collinear sides"},
        // Vertex 1 repeated: side 1 has length 0 and is skipped, and the walks to the next
        // side pass over it, so the corner and its fan stay as on the plain square.
        {{{0, 0}, {20, 0}, {20, 0}, {20, 20}, {0, 20}},
         20.0,
         0.0,
         {-25.0, 25.0, 100.0},
         "repeated vertex, at it"},
        {{{0, 0}, {20, 0}, {20, 0}, {20, 20}, {0, 20}},
         23.0,
         -4.0,
         {-alpha / 90.0 * mH(5), (90.0 - alpha) / 90.0 * mH(5), mV(5)},
         "repeated vertex, in the fan"},
        // The end vertex of the sloping side is outside side 0's region (and not in its
        // fan, s2 = 0), and takes only the half of side 1, which starts there: 25 mm
        // towards the wall (-y, side 1 running west) and 50 mm down.
        {{{0, 0}, {1, 5}, {-10, 5}}, 1.0, 5.0, {0.0, -25.0, 50.0}, "sloping end vertex"},
    };
    Site site;
    for (const auto& c : cases) {
        site.doc.SetPolygonalExcavation(1, site.Basement(c.outline));
        ExpectMovement(Basement1(site.doc, 0, c.x, c.y), c.expected, c.what);
    }

    // A negative contribution reverses both components.
    CPolygonalExcavation negative = site.Basement(kSquare);
    negative.SetContribution(CExcavation::eNegative);
    site.doc.SetPolygonalExcavation(1, negative);
    ExpectMovement(Basement1(site.doc, 0, 10.0, -4.0), {0.0, -mH(4), -mV(4)}, "negative");
}

TEST(ExcavationMovements, StageBaseLevelsAndWallsAboveTheSurface) {
    Site site;
    CPolygonalExcavation e = site.Basement(kSquare);
    // Base 90 at vertex 0 and 94 at vertex 1: at s = 10 of 20 along side 0 the base is
    // (94 - 90) 10 / 20 + 90 = 92, H = 8, and at d = 4, x = 0.5:
    // mH = (0.5 - 0.125) / 100 8 1000 = 30, mV = (1 - 0.25) / 100 8 1000 = 60.
    e.SetBaseLevels({90.0, 94.0, 90.0, 90.0});
    site.doc.SetPolygonalExcavation(1, e);
    CStage stage;
    stage.SetPolygonalExcavations(List(L"1"));
    site.doc.SetStage(1, stage);
    // In stage 1 the levels are 86 and 90 (a list of two: vertices 3 and 4 take the
    // last): base (90 - 86) 0.5 + 86 = 88, H = 12, x = 1/3:
    // mH = (0.5 - 1/12) / 100 12 1000 = 50, mV = (1 - 1/6) / 100 12 1000 = 100.
    CStageProperty p;
    p.SetStage(1);
    p.SetElementType(eElementPolygonalExcavation);
    p.SetRefs(List(L"1"));
    p.SetValues({86.0, 90.0});
    site.doc.SetStageProperty(1, p);
    ExpectMovement(Basement1(site.doc, 0, 10.0, -4.0), {0.0, 30.0, 60.0}, "record's levels");
    ExpectMovement(Basement1(site.doc, 1, 10.0, -4.0), {0.0, 50.0, 100.0}, "stage levels");

    // Base levels above the surface: H is raised to 0, which reaches no positive distance.
    e.SetBaseLevels({101.0, 101.0, 101.0, 101.0});
    site.doc.SetPolygonalExcavation(1, e);
    ExpectMovement(Basement1(site.doc, 0, 10.0, -4.0), {0.0, 0.0, 0.0}, "wall above surface");
}

TEST(ExcavationMovements, StiffenedCornerAlongTheWall) {
    // Side 0 from (0, 0) to (20, 0) leaves a corner of 135 degrees, where the side from
    // (-20, 20) arrives: p1 = 0.67 + (135 - 90) / 90 (1 - 0.67) = 0.835. With d = 8 the
    // reach is dN = min(8, 20 / 2) = 8. Behind the wall at d = 4 (40 and 80 mm):
    //   s = 3, linear:    F = 3 (1 - 0.835) / 8 + 0.835        = 0.896875
    //   s = 3, quadratic: F = 1 - (0.165 / 64) (8 - 3) (8 - 3) = 0.935546875
    //   s = 0, d = 0 (no reach): F = p1 = 0.835
    // At the end corner (90 degrees, previous d = 6, p1 star 0.5, so p1 = 0.5), at
    // s = 18, r = 2: linear F = 2 0.5 / 6 + 0.5 = 2/3; quadratic 1 - (0.5 / 36) 16 = 7/9.
    struct {
        bool startStiffened, endStiffened, linear;
        double d, x, F;
        const char* what;
    } cases[] = {
        {true, false, true, 8.0, 3.0, 0.896875, "linear from the start"},
        {true, false, false, 8.0, 3.0, 0.935546875, "quadratic from the start"},
        {true, false, true, 0.0, 0.0, 0.835, "no reach, abreast of the corner"},
        {true, false, true, 8.0, 9.0, 1.0, "beyond the reach"},
        {false, true, true, 8.0, 18.0, 2.0 / 3.0, "linear to the end"},
        {false, true, false, 8.0, 18.0, 7.0 / 9.0, "quadratic to the end"},
    };
    for (const auto& c : cases) {
        Site site;
        CPolygonalExcavation e = site.Basement({{0, 0}, {20, 0}, {20, 20}, {-20, 20}});
        CExcavationCorner start = site.Corner();
        start.SetStiffened(c.startStiffened);
        start.SetLinearStiffening(c.linear);
        start.SetNextEdge_d(c.d);
        e.SetExcavationCorner(1, start);
        CExcavationCorner end = site.Corner();
        end.SetStiffened(c.endStiffened);
        end.SetLinearStiffening(c.linear);
        end.SetPreviousEdge_d(6.0);
        end.SetPreviousEdge_p1Star(0.5);
        e.SetExcavationCorner(2, end);
        site.doc.SetPolygonalExcavation(1, e);
        ExpectMovement(Basement1(site.doc, 0, c.x, -4.0), {0.0, c.F * mH(4), c.F * mV(4)}, c.what);
    }
}

TEST(ExcavationMovements, ConvexCornerFan) {
    // (23, -4) lies in the fan of vertex 1, (20, 0), at r = 5 (37.5 and 75 mm from both
    // walls). It is alpha = atan(3 / 4) = 36.87 degrees past side 0's normal and
    // beta = 90 - alpha short of side 1's normal. Side 0 moves it +y, side 1 -x.
    const double alpha = Degrees(std::atan2(3.0, 4.0));
    const double beta = 90.0 - alpha;
    struct {
        bool stiffened, arc;
        double wA, wB;
        const char* what;
    } cases[] = {
        // Shared by angle: wA = beta / 90, wB = alpha / 90.
        {false, true, beta / 90.0, alpha / 90.0, "plain fan"},
        // Stiffened, previous edge p1* 0.6, p2* 0.2; next edge p1* 0.8, p2* 0.3. At 90
        // degrees p1 is p1 star and p2 is p2 star, so side 0 reads (0, 0.6), (45, 0.2),
        // (90, 0) at alpha and side 1 reads (0, 0.8), (45, 0.3), (90, 0) at beta.
        {true, true, 0.6 - 0.4 * alpha / 45.0, 0.3 - 0.3 * (beta - 45.0) / 45.0, "stiffened"},
        // The fan switched off: a gap.
        {false, false, 0.0, 0.0, "arc disabled"},
    };
    for (const auto& c : cases) {
        Site site;
        CPolygonalExcavation e = site.Basement(kSquare);
        CExcavationCorner corner = site.Corner();
        corner.SetStiffened(c.stiffened);
        corner.SetArcEnabled(c.arc);
        corner.SetPreviousEdge_p1Star(0.6);
        corner.SetPreviousEdge_p2Star(0.2);
        corner.SetNextEdge_p1Star(0.8);
        corner.SetNextEdge_p2Star(0.3);
        e.SetExcavationCorner(2, corner);
        site.doc.SetPolygonalExcavation(1, e);
        ExpectMovement(Basement1(site.doc, 0, 23.0, -4.0),
                       {-c.wB * mH(5), c.wA * mH(5), (c.wA + c.wB) * mV(5)}, c.what);
    }

    // With the fan off, a point abreast of the corner (s = L) takes half of side 0.
    Site site;
    CPolygonalExcavation e = site.Basement(kSquare);
    CExcavationCorner off = site.Corner();
    off.SetArcEnabled(false);
    e.SetExcavationCorner(2, off);
    site.doc.SetPolygonalExcavation(1, e);
    ExpectMovement(Basement1(site.doc, 0, 20.0, -4.0), {0.0, 0.5 * mH(4), 0.5 * mV(4)},
                   "abreast of a corner without fan");
}

TEST(ExcavationMovements, ReEntrantCornerSmoothing) {
    // kNotched with no stages: stage 0 is unsmoothed, stage 1 (> 0 stages) smoothed.
    // Corner 4 (vertex 3, the notch) has previous transition 0.5 (g = 0.5 45 = 22.5
    // degrees, read behind the start of side 3) and next 0.4 (g = 18, read past the end
    // of side 2).
    //
    // Point (14, 12): behind side 2 at d = 2, and in the wedge before side 3's start:
    // psi = atan2(60, -20) = 108.435 degrees from side 3, psi - 90 = 18.435 < 22.5, so
    // w = 1 - 18.435 / 22.5 = 0.180669. From the notch r = sqrt(20). Side 3's normal
    // towards the excavation is (-1, -1) / sqrt(2).
    const double r3 = std::sqrt(20.0);
    const double w3 = 1.0 - (180.0 - Degrees(std::atan(3.0)) - 90.0) / 22.5;
    // Point (9, 14): behind side 3 at d = 3 / sqrt(2), and past the end of side 2 at
    // psi = atan2(40, -10) = 104.036, w = 1 - 14.036 / 18 = 0.220209, r = sqrt(17).
    const double d4 = 3.0 / kRoot2, r4 = std::sqrt(17.0);
    const double w4 = 1.0 - (Degrees(std::atan2(40.0, -10.0)) - 90.0) / 18.0;
    // p1 of the notch, stiffened with next p1* 0.67: 0.67 + 45 / 90 0.33 = 0.835.
    const double p1 = 0.835;

    struct {
        int stage;
        bool stiffened;
        double x, y;
        std::array<double, 3> expected;
        const char* what;
    } cases[] = {
        {0, false, 14.0, 12.0, {0.0, -mH(2), mV(2)}, "region 3 unsmoothed"},
        // Unstiffened the wedge takes the whole of side 3's movement: w only gates it.
        {1,
         false,
         14.0,
         12.0,
         {-mH(r3) / kRoot2, -mH(2) - mH(r3) / kRoot2, mV(2) + mV(r3)},
         "region 3 smoothed"},
        {1,
         true,
         14.0,
         12.0,
         {-p1 * w3 * mH(r3) / kRoot2, -mH(2) - p1 * w3 * mH(r3) / kRoot2, mV(2) + p1 * w3 * mV(r3)},
         "region 3 smoothed, stiffened"},
        {0, true, 9.0, 14.0, {-mH(d4) / kRoot2, -mH(d4) / kRoot2, mV(d4)}, "region 4 unsmoothed"},
        {1,
         true,
         9.0,
         14.0,
         {-mH(d4) / kRoot2, -mH(d4) / kRoot2 - p1 * w4 * mH(r4), mV(d4) + p1 * w4 * mV(r4)},
         "region 4 smoothed, stiffened"},
    };
    for (const auto& c : cases) {
        Site site;
        CPolygonalExcavation e = site.Basement(kNotched);
        CExcavationCorner notch = site.Corner();
        notch.SetStiffened(c.stiffened);
        notch.SetPreviousEdge_TransitionZoneFraction(0.5);
        notch.SetNextEdge_TransitionZoneFraction(0.4);
        e.SetExcavationCorner(4, notch);
        site.doc.SetPolygonalExcavation(1, e);
        ExpectMovement(Basement1(site.doc, c.stage, c.x, c.y), c.expected, c.what);
    }
}

TEST(ExcavationMovements, CurveIndexOutsideTheList) {
    // A side whose horizontal curve does not exist moves nothing across; its vertical
    // curve still acts.
    Site site;
    CPolygonalExcavation e = site.Basement(kSquare);
    CExcavationCorner corner = site.Corner();
    corner.SetGMCurve(eHorizontal, site.doc.NumGMCurves(eHorizontal));
    e.SetExcavationCorner(1, corner);
    site.doc.SetPolygonalExcavation(1, e);
    ExpectMovement(Basement1(site.doc, 0, 10.0, -4.0), {0.0, 0.0, mV(4)}, "missing curve");

    CCircularExcavation shaft;
    shaft.SetGMCurve(eVertical, -1);
    shaft.SetGMCurve(eHorizontal, site.h);
    shaft.SetDiameter(4.0);
    shaft.SetBaseLevel(90.0);
    site.doc.SetCircularExcavation(1, shaft);
    ExpectMovement(Movement(site.doc, shaft, 0, 1, {3.0, 4.0, kS}),
                   {-0.6 * mH(3), -0.8 * mH(3), 0.0}, "missing shaft curve");
}

TEST(ExcavationMovements, CircularShaft) {
    // A 4 m shaft at the origin, base 90: at (3, 4) the wall is d = 5 - 2 = 3 m away,
    // mH = 42.5 and mV = 85, the horizontal along (-0.6, -0.8), towards the centre.
    Site site;
    CCircularExcavation shaft;
    shaft.SetSurfaceLevel(kS);
    shaft.SetDiameter(4.0);
    shaft.SetBaseLevel(90.0);
    shaft.SetGMCurve(eHorizontal, site.h);
    shaft.SetGMCurve(eVertical, site.v);
    site.doc.SetCircularExcavation(1, shaft);
    CStage stage; // shaft 1 not in its list
    site.doc.SetStage(1, stage);
    // In stage 1 a property sets the base at 85: H = 15, x = 3 / 15 = 0.2,
    // mH = (0.5 - 0.05) / 100 15 1000 = 67.5, mV = (1 - 0.1) / 100 15 1000 = 135.
    CStageProperty p;
    p.SetStage(1);
    p.SetElementType(eElementCircularExcavation);
    p.SetRefs(List(L"1"));
    p.SetValues({85.0});
    site.doc.SetStageProperty(1, p);

    ExpectMovement(Movement(site.doc, shaft, 0, 1, {3.0, 4.0, kS}), {-25.5, -34.0, 85.0},
                   "own base");
    ExpectMovement(Movement(site.doc, shaft, 1, 1, {3.0, 4.0, kS}), {-40.5, -54.0, 135.0},
                   "stage property");
    // On the wall line, d = 0: the curve at x = 0, 50 and 100 mm.
    ExpectMovement(Movement(site.doc, shaft, 0, 1, {0.0, -2.0, kS}), {0.0, 50.0, 100.0}, "on wall");
    // Inside the plan circle nothing, whatever the level.
    ExpectMovement(Movement(site.doc, shaft, 0, 1, {1.0, 1.0, 50.0}), {0.0, 0.0, 0.0}, "inside");

    shaft.SetContribution(CExcavation::eNegative);
    ExpectMovement(Movement(site.doc, shaft, 0, 1, {3.0, 4.0, kS}), {25.5, 34.0, -85.0},
                   "negative");
}

TEST(ExcavationMovements, MovementAtDistanceRangeTests) {
    // Surface-only curves: 0.5 - 0.1 x by polynomial, and by interpolation through
    // (0, 1), (1.3, 0.2), whose last x 1.3 times H = 13 rounds to 16.900000000000002
    // while 16.900000000000002 / 13 rounds to 1.3000000000000003, beyond the last x.
    Site site;
    const CGMCurve poly = Straight(eHorizontal, 0.5, -0.1, true);
    CGMCurve linear(true, eVertical, CGMCurve::eLinear, L"linear");
    linear.SetDataCoords({{0.0, 0.0, 1.0}, {1.3, 0.0, 0.2}});
    linear.SetSurfaceOnly(true);
    const CGMCurve deep = Straight(eVertical, 1.0, -0.5); // y from 0 to 1

    CCircularExcavation plain;
    plain.SetSurfaceLevel(kS);
    CCircularExcavation allow = plain;
    allow.SetAllowGMCalcnToLevel(true);
    allow.SetAllowGMCalcnToLevelValue(95.0); // 5 m below the surface

    struct {
        const CExcavation& e;
        const CGMCurve& curve;
        double H, d, depth, expected;
        const char* what;
    } cases[] = {
        // 0.5 - 0.1 0.4 = 0.46 percent of 10 m: 46 mm.
        {plain, poly, 10.0, 4.0, 0.0005, 46.0, "surface only just below the surface"},
        {plain, poly, 10.0, 4.0, 0.001, 0.0, "surface only at 1 mm depth"},
        {plain, poly, 10.0, 4.0, -3.0, 46.0, "above the surface counts as at it"},
        {allow, poly, 10.0, 4.0, 0.001, 46.0, "allow: 1 mm"},
        {allow, poly, 10.0, 4.0, 5.0, 46.0, "allow: at the level"},
        {allow, poly, 10.0, 4.0, 5.0005, 0.0, "allow: below the level"},
        {allow, poly, 10.0, 4.0, 5.001, 0.0, "allow: 1 mm below the level"},
        // The end of the curve: 0.3 percent at x = 2, d = 20.
        {plain, poly, 10.0, 20.0, 0.0, 30.0, "exactly at the end"},
        {plain, poly, 10.0, 20.000001, 0.0, 0.0, "beyond the end"},
        // (1 - 0.8 0.5 / 1.3) = 9/13 percent of 13 m: 90 mm.
        {plain, linear, 13.0, 6.5, 0.0, 90.0, "interpolated"},
        // The last value, 0.2 percent of 13 m = 26 mm, not the last x (169 mm).
        {plain, linear, 13.0, 13.0 * 1.3, 0.0, 26.0, "exactly at the end, rounded above"},
        {plain, linear, 13.0, 16.91, 0.0, 0.0, "interpolated curve beyond the end"},
        // A sub-surface curve reaches down to H times its largest y.
        {plain, deep, 10.0, 4.0, 10.0, 80.0, "sub-surface at the foot of the wall"},
        {plain, deep, 10.0, 4.0, 10.000001, 0.0, "sub-surface below the wall"},
        // No wall: H = 0 reaches no positive distance.
        {plain, deep, 0.0, 4.0, 0.0, 0.0, "no wall depth"},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(c.e.MovementAtDistance(site.doc, c.curve, c.H, c.d, c.depth), c.expected, kTol)
            << c.what;

    // The slope of 0.5 - 0.1 x is -0.1 percent: -0.001, reversed when negative; below the
    // allowed level nothing.
    EXPECT_NEAR(plain.StrainAtDistance(site.doc, poly, 10.0, 4.0, 0.0), -0.001, 1e-15);
    EXPECT_EQ(allow.StrainAtDistance(site.doc, poly, 10.0, 4.0, 5.0005), 0.0);
    CCircularExcavation negative = plain;
    negative.SetContribution(CExcavation::eNegative);
    EXPECT_NEAR(negative.StrainAtDistance(site.doc, poly, 10.0, 4.0, 0.0), 0.001, 1e-15);
}

// The sum at a point through the point calculation, by stage, and in the solver's results.
TEST(ExcavationMovements, ThroughThePointCalculation) {
    Site site;
    site.doc.SetPolygonalExcavation(1, site.Basement(kSquare));
    CCircularExcavation shaft;
    shaft.SetSurfaceLevel(kS);
    shaft.SetDiameter(4.0);
    shaft.SetCentre({10.0, 30.0});
    shaft.SetBaseLevel(90.0);
    shaft.SetGMCurve(eHorizontal, site.h);
    shaft.SetGMCurve(eVertical, site.v);
    site.doc.SetCircularExcavation(1, shaft);
    CStage stage; // the shaft alone
    stage.SetCircularExcavations(List(L"1"));
    site.doc.SetStage(1, stage);

    const auto at = [&](int s, double x, double y, double z) {
        double zDisp = 0.0, xy[2] = {0.0, 0.0}, principal[3];
        ZorvoCal::tun21_(site.doc, s, x, y, z, eSurface, &zDisp, xy, principal);
        return std::array<double, 3>{xy[0], xy[1], zDisp};
    };
    // (10, 24): 4 m behind side 2 of the basement (outside y > 20, moved -y) and 6 - 2 =
    // 4 m from the shaft's wall, moved +y towards its centre: 40 - 40 across, 160 down.
    ExpectMovement(at(0, 10.0, 24.0, kS), {0.0, 0.0, 2.0 * mV(4)}, "both in the base model");
    ExpectMovement(at(1, 10.0, 24.0, kS), {0.0, mH(4), mV(4)}, "the shaft alone in stage 1");
    // In the basement above its base: nothing in the base model; in stage 1, without
    // the basement, the shaft's reach: 20 - 2 = 18 m from its wall, 5 and 10 mm.
    ExpectMovement(at(0, 10.0, 10.0, 95.0), {0.0, 0.0, 0.0}, "inside an excavation");
    ExpectMovement(at(1, 10.0, 10.0, kS), {0.0, mH(18), mV(18)}, "inside one not in the stage");

    // Stored by the solver in metres.
    CDisplacementPoint point;
    point.SetPoint({10.0, 24.0, kS});
    site.doc.SetDisplacementPoint(1, point);
    CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&site.doc, &prefs, nullptr, {});
    ASSERT_TRUE(solver.Solve());
    const GeoDispResult& r = site.doc.GetDisplacementPoint(1).GetResultFromPosition(1, 0, 0);
    EXPECT_NEAR(r.GetYdisplacement(), mH(4) / 1000.0, 1e-12);
    EXPECT_NEAR(r.GetZdisplacement(), mV(4) / 1000.0, 1e-12);
}
