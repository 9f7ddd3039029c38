#include "base/CPolygon.h"
#include "base/CAxis.h"
#include "base/CIntersect.h"
#include "base/CLine3.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

CPolygon Ring(const std::vector<Vec2<double>>& points, double tolerance = 0.001) {
    CPolygon p(tolerance);
    for (const auto& v : points)
        p.AddPoint(v);
    return p;
}

// An L anticlockwise: the 4 x 4 square less its 2 x 2 top-right quarter, area 12; the
// re-entrant corner is vertex 3, (2, 2).
const std::vector<Vec2<double>> kL = {{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}};

Vec2<double> Reflect(const Vec2<double>& v) { return {v.x, -v.y}; }

} // namespace

TEST(CPolygon, SenseCentroidExtentAndReEntrantCorners) {
    const CPolygon l = Ring(kL);
    EXPECT_FALSE(l.IsClockwise());
    EXPECT_DOUBLE_EQ(l.SignedArea(), 12.0);
    // Rectangles 4 x 2 at (2, 1) and 2 x 2 at (1, 3): ((8*2 + 4*1)/12, (8*1 + 4*3)/12).
    const Vec2<double> c = l.Centroid();
    EXPECT_NEAR(c.x, 5.0 / 3.0, 1e-14);
    EXPECT_NEAR(c.y, 5.0 / 3.0, 1e-14);
    double x0, x1, y0, y1;
    l.MinMax(x0, x1, y0, y1);
    EXPECT_EQ(x0, 0.0);
    EXPECT_EQ(x1, 4.0);
    EXPECT_EQ(y0, 0.0);
    EXPECT_EQ(y1, 4.0);
    std::vector<int> corners;
    EXPECT_TRUE(l.ReEntrantCorners(corners));
    EXPECT_EQ(corners, std::vector<int>{3});
    EXPECT_FALSE(l.IsConvex());

    // Mirrored in y the L runs clockwise; its re-entrant corner is still vertex 3.
    std::vector<Vec2<double>> mirrored;
    for (const auto& v : kL)
        mirrored.push_back(Reflect(v));
    const CPolygon m = Ring(mirrored);
    EXPECT_TRUE(m.IsClockwise());
    EXPECT_TRUE(m.ReEntrantCorners(corners));
    EXPECT_EQ(corners, std::vector<int>{3});

    EXPECT_TRUE(Ring({{0, 0}, {4, 0}, {4, 4}, {0, 4}}).IsConvex());
    CPolygon empty;
    empty.MinMax(x0, x1, y0, y1);
    EXPECT_EQ(x0, DBL_MAX);
    EXPECT_EQ(x1, -DBL_MAX);
}

TEST(CPolygon, StraightAndSlightKinksAreNoCornersWithinTheTolerance) {
    // A vertex 0.0005 m inside the bottom edge of a square turns against the ring's sense.
    struct {
        Vec2<double> extra;
        double tolerance;
        bool reEntrant;
    } cases[] = {
        {{2, 0}, 0.001, false},       // on the straight line
        {{1, 0.0005}, 0.001, false},  // within the tolerance of the line (0, 0)-(4, 0)
        {{1, 0.0005}, 0.0001, true},  // beyond it
        {{1, -0.0005}, 0.0001, false} // bulging outwards: a convex corner
    };
    for (const auto& c : cases) {
        const CPolygon p = Ring({{0, 0}, c.extra, {4, 0}, {4, 4}, {0, 4}}, c.tolerance);
        std::vector<int> corners;
        EXPECT_EQ(p.ReEntrantCorners(corners), c.reEntrant) << c.extra.y << " " << c.tolerance;
        EXPECT_EQ(p.IsConvex(), !c.reEntrant);
    }
    // A repeated vertex does not hide the corner: its neighbours are passed over.
    std::vector<int> corners;
    EXPECT_TRUE(
        Ring({{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 2}, {2, 4}, {0, 4}}).ReEntrantCorners(corners));
    EXPECT_EQ(corners, (std::vector<int>{3, 4}));
}

TEST(CPolygon, PointOnEdgeAndInsideAtTheToleranceBoundary) {
    // Square 0..40 with a tolerance of 5 m: distances worked exactly in binary.
    const CPolygon sq = Ring({{0, 0}, {40, 0}, {40, 40}, {0, 40}}, 5.0);
    struct {
        Vec2<double> p;
        bool onEdge, inside, insideOrOnEdge;
    } cases[] = {
        {{20, 20}, false, true, true},
        {{20, 5}, true, false, true},     // 5 from the bottom edge: on it
        {{20, 5.001}, false, true, true}, // just beyond the tolerance, inside
        {{20, -5}, true, false, true},    // outside but within the tolerance
        {{20, -5.001}, false, false, false},
        {{43, 44}, true, false, true}, // 5 from the corner (40, 40): 3-4-5
        {{43, 44.01}, false, false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(sq.PointOnEdge(c.p), c.onEdge) << c.p.x << "," << c.p.y;
        EXPECT_EQ(sq.PointInside(c.p, false), c.inside) << c.p.x << "," << c.p.y;
        EXPECT_EQ(sq.PointInside(c.p, true), c.insideOrOnEdge) << c.p.x << "," << c.p.y;
    }
    // The L's notch is outside, its arm inside.
    EXPECT_FALSE(Ring(kL).PointInside({3, 3}, true));
    EXPECT_TRUE(Ring(kL).PointInside({1, 3}, false));
    EXPECT_FALSE(CPolygon().PointInside({0, 0}, true));
}

TEST(CPolygon, EditingAndRemovingCoincidentVertices) {
    CPolygon p = Ring({{0, 0}, {4, 0}, {4.0005, 0}, {4, 4}, {4, 4.002}, {0.0009, 0}}, 0.001);
    p.RemoveCoincident(); // (4.0005, 0) is within 0.001 of (4, 0), the last within it of the first
    ASSERT_EQ(p.NumPoint(), 4);
    EXPECT_EQ(p.Point(2), Vec2<double>(4, 4));
    EXPECT_EQ(p.Point(3), Vec2<double>(4, 4.002));

    EXPECT_FALSE(p.SetPoint(4, {1, 1}));
    EXPECT_TRUE(p.InsertPoint(4, 2)); // appends two (0, 0)
    EXPECT_FALSE(p.InsertPoint(7, 1));
    ASSERT_EQ(p.NumPoint(), 6);
    EXPECT_TRUE(p.SetPoint(5, {1, 1}));
    p.DeletePoint(3, 2);
    ASSERT_EQ(p.NumPoint(), 4);
    EXPECT_EQ(p.Point(3), Vec2<double>(1, 1));
    const CEdge closing = p.Edge(3); // back to vertex 0
    EXPECT_EQ(closing.End(), Vec2<double>(0, 0));
    EXPECT_DOUBLE_EQ(closing.Length(), std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(CEdge({1, 1}, {1, -2}).UnitVector().y, -1.0);
    EXPECT_EQ(CEdge({1, 1}, {1, 1}).UnitVector(), Vec2<double>(0, 0));
}

TEST(CIntersect, RingsMeetWithinTheTolerance) {
    auto square = [](double x0, double size) {
        return Ring({{x0, 0}, {x0 + size, 0}, {x0 + size, size}, {x0, size}});
    };
    const Util::CIntersect cut(0.001);
    const CPolygon a = square(0, 4);
    struct {
        CPolygon b;
        int numPoly;
    } cases[] = {
        {square(5, 4), 2},      // apart
        {square(4.002, 4), 2},  // 0.002 apart
        {square(4.0005, 4), 1}, // 0.0005 apart: they touch
        {square(2, 4), 1},      // edges cross
        {square(1, 2), 1},      // wholly inside
        {CPolygon(), 2},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(cut.NumPoly(a, c.b), c.numPoly);
        EXPECT_EQ(cut.NumPoly(c.b, a), c.numPoly);
    }
    // Only the intersection's tolerance counts, not the rings' own: a ring with a 0.5 m
    // tolerance 0.01 m from a vertex of the other is still apart at 0.001 m.
    CPolygon coarse = square(4.01, 4);
    CPolygon wide(0.5);
    for (const auto& v : coarse.Points())
        wide.AddPoint(v);
    EXPECT_EQ(cut.NumPoly(Ring({{4, 0}, {4, 4}, {0, 4}, {0, 0}}), wide), 2);
}

TEST(CDirCos, FramesFromAxesAndFromAnAxis) {
    // Local x along (3, 4): global (1, 0) is 0.6 along it and -0.8 along local y (-0.8, 0.6).
    const Util::CDirCos f({3, 4, 0}, {-4, 3, 0}, {0, 0, 1}, true);
    const Vec3<double> l = f.GtoL({1, 0, 0});
    EXPECT_NEAR(l.x, 0.6, 1e-15);
    EXPECT_NEAR(l.y, -0.8, 1e-15);
    const Vec3<double> g = f.LtoG(l);
    EXPECT_NEAR(g.x, 1.0, 1e-15);
    EXPECT_NEAR(g.y, 0.0, 1e-15);

    // x along global y, (-1, 5) on its left: z = x cross y = (0, 0, 1), local y = (-1, 0, 0).
    const CAxis axis(L"Side", 0, {10, 0, 0}, {0, 2, 0}, {-1, 5, 0});
    const Vec3<double> a = axis.Global2User({10, 3, 2});
    EXPECT_NEAR(a.x, 3.0, 1e-15);
    EXPECT_NEAR(a.y, 0.0, 1e-15);
    EXPECT_NEAR(a.z, 2.0, 1e-15);
    const Vec3<double> b = axis.Global2User({7, 0, 0});
    EXPECT_NEAR(b.y, 3.0, 1e-15);
}
