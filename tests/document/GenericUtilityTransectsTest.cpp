#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// A route of 25 m in plan: 10 m east from the origin, then 15 m north.
ZorvoData Route(double interval = 10.0, int points = 11, double length = 10.0) {
    ZorvoData doc;
    CPolylinePlus route;
    route.SetPoint(0, Vec3<double>(0, 0, 0));
    route.SetPoint(1, Vec3<double>(10, 0, 0));
    route.SetPoint(2, Vec3<double>(10, 15, 0));
    doc.SetPolyline(1, route);
    CGenericUtility g;
    g.SetPolyline(1);
    g.SetInterval(interval);
    g.SetDispPoints(points);
    g.SetLength(length);
    doc.SetGenericUtility(1, g);
    return doc;
}

void ExpectPoint(const Vec3<double>& p, double x, double y, double z) {
    EXPECT_NEAR(p.x, x, 1e-12);
    EXPECT_NEAR(p.y, y, 1e-12);
    EXPECT_NEAR(p.z, z, 1e-12);
}

GeoDispResult Sample(const Vec3<double>& p, double dx, double dy, double dz) {
    GeoDispResult r;
    r.SetPoint(p);
    r.SetXdisplacement(dx);
    r.SetYdisplacement(dy);
    r.SetZdisplacement(dz);
    return r;
}

} // namespace

// Chainages 0, 10 and 20 m. With Length 10 and 11 points the points are 1 m apart, from
// +5 to -5 along the cross direction n:
// - at 0 m the point is vertex 0, so vertex 1 is taken and n turned round: v = (10, 0),
//   n = (0, 1) turned to (0, -1); the first point is (0, -5);
// - at 10 m the chainage is exactly vertex 1, which PointAt gives on the segment before:
//   v = (0, 0) - (10, 0), n = (0, -1), so the first point is (10, -5), on the same side;
// - at 20 m, on the second segment from (10, 10): v = (0, -10), n = (1, 0), first point
//   (15, 10), last (5, 10).
TEST(GenericUtilityTransects, SetOutAlongARoute) {
    ZorvoData doc = Route();
    doc.ResizeResultsAndSetupTransects();
    const CGenericUtility& g = doc.GetGenericUtility(1);
    ASSERT_EQ(g.NumTransects(), 3);
    EXPECT_EQ(doc.NumGenericUtilityTransects(1), 3);
    EXPECT_EQ(doc.NumGenericUtilityTransects(-1), 3);
    const struct {
        int t;
        double crossX, crossY, firstX, firstY, lastX, lastY;
    } cases[] = {{1, 0, 0, 0, -5, 0, 5}, {2, 10, 0, 10, -5, 10, 5}, {3, 10, 10, 15, 10, 5, 10}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.t);
        const CUtilityTransect& t = g.GetTransect(c.t);
        ExpectPoint(t.GetPolyineIntersection(), c.crossX, c.crossY, 0);
        ASSERT_EQ(t.NumberOfPoints(0), 11);
        ExpectPoint(t.GetPoint(0, 1), c.firstX, c.firstY, 0);
        ExpectPoint(t.GetPoint(0, 11), c.lastX, c.lastY, 0);
        ExpectPoint(t.GetPoint(0, 6), c.crossX, c.crossY, 0); // the crossing is the middle
        EXPECT_NEAR(t.GetInterval(0), 1.0, 1e-12);
        EXPECT_EQ(t.NumberOfPoints(doc.NumStages(true, false) - 1), 11);
    }

    // Without building: the last transect is centred on the polyline's end at 25 m, on
    // the segment before that vertex, n = (1, 0).
    Vec3<double> start, end;
    ASSERT_TRUE(doc.GetGenericUtilityTransectStartAndEnd(1, 3, start, end));
    ExpectPoint(start, 15, 15, 0);
    ExpectPoint(end, 5, 15, 0);
    ASSERT_TRUE(doc.GetGenericUtilityTransectStartAndEnd(1, 1, start, end));
    ExpectPoint(start, 0, -5, 0);
    ExpectPoint(end, 0, 5, 0);
    const Vec3<double> untouched(7, 7, 7);
    start = end = untouched;
    EXPECT_FALSE(doc.GetGenericUtilityTransectStartAndEnd(1, 4, start, end));
    EXPECT_FALSE(doc.GetGenericUtilityTransectStartAndEnd(2, 1, start, end));
    ExpectPoint(start, 7, 7, 7);
}

// On a polyline rising 40 m over 30 m in plan the transects are counted in plan: 4 at
// 10 m (50 m in space would count 6), each at the polyline's level: at 10 m,
// z = 40 x 10 / 30.
TEST(GenericUtilityTransects, SlopingPolylineIsCountedInPlan) {
    ZorvoData doc;
    CPolylinePlus p;
    p.SetPoint(0, Vec3<double>(0, 0, 0));
    p.SetPoint(1, Vec3<double>(30, 0, 40));
    doc.SetPolyline(1, p);
    CGenericUtility g;
    g.SetPolyline(1);
    g.SetDispPoints(3);
    doc.SetGenericUtility(1, g);
    doc.SetupTransects();
    EXPECT_EQ(doc.NumGenericUtilityTransects(1), 4);
    ASSERT_EQ(doc.GetGenericUtility(1).NumTransects(), 4);
    const CUtilityTransect& t = doc.GetGenericUtility(1).GetTransect(2);
    // v = (0, 0, 0) - (10, 0, 13.3), n = (0, -1): the first point 5 m to the right.
    ExpectPoint(t.GetPoint(0, 1), 10, -5, 40.0 * 10.0 / 30.0);
    ExpectPoint(t.GetPoint(0, 3), 10, 5, 40.0 * 10.0 / 30.0);
}

// Inputs that give nothing to set out, and one displacement point, which stands at the
// transect's start (T / 2 along n) as the offset 0 x (T / 0) is taken as 0.
TEST(GenericUtilityTransects, InputsThatSetOutNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* what;
        double interval;
        int points;
        int polyline;
        int expected;
    } cases[] = {{"interval 0", 0.0, 11, 1, 0},
                 {"interval not a number", nan, 11, 1, 0},
                 {"count beyond memory", 1e-12, 11, 1, 0},
                 {"no displacement points", 10.0, 0, 1, 0},
                 {"missing polyline", 10.0, 11, 2, 0},
                 {"one displacement point", 10.0, 1, 1, 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ZorvoData doc = Route(c.interval, c.points);
        CGenericUtility g = doc.GetGenericUtility(1);
        g.SetPolyline(c.polyline);
        doc.SetGenericUtility(1, g);
        doc.SetupTransects();
        EXPECT_EQ(doc.GetGenericUtility(1).NumTransects(), c.expected);
    }
    ZorvoData one = Route(10.0, 1);
    one.SetupTransects();
    const CUtilityTransect& t = one.GetGenericUtility(1).GetTransect(2);
    ASSERT_EQ(t.NumberOfPoints(0), 1);
    ExpectPoint(t.GetPoint(0, 1), 10, -5, 0);

    ZorvoData single = Route();
    CPolylinePlus dot;
    dot.SetPoint(0, Vec3<double>(1, 1, 0));
    single.SetPolyline(1, dot);
    single.SetupTransects();
    EXPECT_EQ(single.GetGenericUtility(1).NumTransects(), 0);
    EXPECT_EQ(single.NumGenericUtilityTransects(1), 0);
}

// A transect sloping from F = (0, 0, 0) through (3, 4, 1) to E = (6, 8, 2): Dx = 6,
// Dy = 8, c = 10, rows at plan distances 0, 5 and 10. The middle sample moves
// (0.01, 0.02, -0.03): parallel 0.8 x 0.02 + 0.6 x 0.01 = 0.022, perpendicular (local y
// in axes (0.6, 0.8), (-0.8, 0.6)) -0.8 x 0.01 + 0.6 x 0.02 = 0.004.
TEST(GenericUtilityTransects, TablesOfASlopingTransect) {
    ZorvoData doc = Route();
    CUtilityTransect t;
    t.AddResult(0, Sample(Vec3<double>(0, 0, 0), 0, 0, 0));
    t.AddResult(0, Sample(Vec3<double>(3, 4, 1), 0.01, 0.02, -0.03));
    t.AddResult(0, Sample(Vec3<double>(6, 8, 2), 0, 0, 0.004));
    CGenericUtility g = doc.GetGenericUtility(1);
    g.AddTransect(t);
    doc.SetGenericUtility(1, g);

    CTableD par, perp, vertical;
    doc.GetParallelAndPerpendicularDisplacementsWRTUtilityTransect(0, 1, 1, par, perp);
    doc.GetVerticalDisplacementsWRTUtilityTransect(0, 1, 1, vertical);
    ASSERT_EQ(par.NumPoint(), 3);
    EXPECT_DOUBLE_EQ(par.GetX(1), 5.0);
    EXPECT_DOUBLE_EQ(par.GetX(2), 10.0);
    EXPECT_NEAR(par.GetY(1), 0.022, 1e-15);
    EXPECT_NEAR(perp.GetY(1), 0.004, 1e-15);
    EXPECT_EQ(vertical.GetY(1), -0.03);

    CTableD ix, iy, iz, dx, dy, dz;
    doc.GetInitialAndDisplPositionsWRTUtilityTransect(0, 1, 1, ix, iy, iz, dx, dy, dz);
    EXPECT_DOUBLE_EQ(iz.GetY(1), 1.0);
    EXPECT_DOUBLE_EQ(dx.GetY(1), 3.01);
    EXPECT_DOUBLE_EQ(dy.GetY(1), 4.02);
    EXPECT_DOUBLE_EQ(dz.GetY(1), 0.97);

    // The profile's row: the largest vertical movement, -0.03 at 5 m.
    CTableD profile;
    doc.GetMaxVerticalDisplacementProfileOfGenericUtility(0, 1, profile);
    ASSERT_EQ(profile.NumPoint(), 1);
    EXPECT_EQ(profile.GetX(0), 5.0);
    EXPECT_EQ(profile.GetY(0), -0.03);
    ExpectPoint(doc.GetUtilityTransectPointAtADistFromItsStart(0, 1, 1, std::sqrt(104.0) / 2), 3, 4,
                1);
}

TEST(GenericUtilityTransects, ResultsQuestionsAndDeletes) {
    ZorvoData doc = Route();
    EXPECT_FALSE(doc.ResultsExist(-1));
    doc.ResizeResultsAndSetupTransects();
    EXPECT_TRUE(doc.GenericUtilityHorizontalMovementResultsExist(0, 1));
    CGenericUtility g = doc.GetGenericUtility(1);
    g.AccessTransect(2).SetUtilityStrain(0, 1, CUtilityStrain());
    g.AccessTransect(3).SetUtilityStrain(0, 2, CUtilityStrain());
    doc.SetGenericUtility(1, g);
    EXPECT_EQ(doc.NumGenericUtilityStrains(0, -1), 3);
    EXPECT_EQ(doc.NumGenericUtilityStrains(1, 1), 0);
    EXPECT_TRUE(doc.GenericUtilityStrainsExist(-1, 1));
    EXPECT_FALSE(doc.GenericUtilityPulloutAndRotationsExist(-1, -1));
    doc.DeleteGenericUDResults(-1);
    EXPECT_FALSE(doc.GenericUtilityStrainsExist(-1, -1));
    doc.DeleteResults();
    EXPECT_FALSE(doc.ResultsExist(-1));

    CString text;
    doc.GetGenericUtilityDescription(text, 1, true);
    EXPECT_EQ(text, CString(L"Generic Utility 1: Generic Utility #"));
}

// The profiles take each transect's first row of largest magnitude; with -1 each slot in
// turn overwrites, so the last slot's peaks stand. A transect along +x from (0, 0) to
// (2, 0): a movement of (0, 0.01) is 0 along it and 0.01 to its left.
TEST(GenericUtilityTransects, ProfilesKeepTheFirstPeakAndTheLastSlot) {
    ZorvoData doc = Route();
    doc.SetStage(1, CStage());
    CUtilityTransect t;
    const double dy0[3] = {0.01, -0.01, 0.005}; // slot 0: two equal peaks
    const double dy1[3] = {0.0, 0.002, -0.003}; // slot 1
    for (int k = 0; k < 3; ++k) {
        t.AddResult(0, Sample(Vec3<double>(k, 0, 0), 0.0, dy0[k], -dy0[k]));
        t.AddResult(1, Sample(Vec3<double>(k, 0, 0), dy1[k], dy1[k], 0.0));
    }
    CGenericUtility g = doc.GetGenericUtility(1);
    g.AddTransect(t);
    g.AddTransect(t);
    doc.SetGenericUtility(1, g);

    CTableD par, perp, vertical;
    doc.GetMaxParallelAndPerpendicularDisplacementProfileOfGenericUtility(0, 1, par, perp);
    doc.GetMaxVerticalDisplacementProfileOfGenericUtility(0, 1, vertical);
    ASSERT_EQ(perp.NumPoint(), 2);
    EXPECT_EQ(perp.GetX(1), 0.0); // the first of 0.01 and -0.01
    EXPECT_EQ(perp.GetY(1), 0.01);
    EXPECT_EQ(par.GetY(0), 0.0); // nothing along the transect: the start (0, 0) stands
    EXPECT_EQ(vertical.GetY(1), -0.01);

    doc.GetMaxParallelAndPerpendicularDisplacementProfileOfGenericUtility(-1, 1, par, perp);
    EXPECT_EQ(par.GetX(0), 2.0);
    EXPECT_EQ(par.GetY(0), -0.003);
    EXPECT_EQ(perp.GetY(0), -0.003);
}
