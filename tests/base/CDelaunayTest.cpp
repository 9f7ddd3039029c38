#include "base/CDelaunay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using namespace Tevra;
using namespace Tevra::Mesh;

namespace {

using Pts = std::vector<Vec2<double>>;

struct Corners {
    double x0, y0, x1, y1, x2, y2;
};

void ExpectTriangles(const std::vector<CTriangle>& got, const std::vector<Corners>& want,
                     const char* what) {
    ASSERT_EQ(got.size(), want.size()) << what;
    for (size_t t = 0; t < got.size(); ++t) {
        const Corners& w = want[t];
        const double xy[3][2] = {{w.x0, w.y0}, {w.x1, w.y1}, {w.x2, w.y2}};
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(got[t].Corner(i).x, xy[i][0]) << what << " triangle " << t << " corner " << i;
            EXPECT_EQ(got[t].Corner(i).y, xy[i][1]) << what << " triangle " << t << " corner " << i;
        }
    }
}

// Every triangle counter-clockwise, and no point strictly inside any circumcircle
// (tolerance 1e-9 of the radius, metres).
void ExpectDelaunay(const std::vector<CTriangle>& tris, const Pts& pts) {
    for (const auto& t : tris) {
        const auto &a = t.Corner(0), &b = t.Corner(1), &c = t.Corner(2);
        const double cross = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
        ASSERT_GT(cross, 0.0);
        // Circumcentre from the perpendicular bisectors.
        const double d = 2 * cross;
        const double bb = (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
        const double cc = (c.x - a.x) * (c.x - a.x) + (c.y - a.y) * (c.y - a.y);
        const double ux = a.x + ((c.y - a.y) * bb - (b.y - a.y) * cc) / d;
        const double uy = a.y + ((b.x - a.x) * cc - (c.x - a.x) * bb) / d;
        const double r = std::hypot(a.x - ux, a.y - uy);
        for (const auto& p : pts)
            EXPECT_GE(std::hypot(p.x - ux, p.y - uy), r * (1 - 1e-9))
                << "(" << p.x << ", " << p.y << ") inside circle of triangle at (" << a.x << ", "
                << a.y << ")";
    }
}

} // namespace

TEST(Delaunay, DocumentedTriangles) {
    const CDelaunay mesh;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // Unit square, four co-circular corners: no flip, the sweep's diagonal (0, 1)-(1, 0)
    // stays. Corners in (x, y) order are 0 (0,0), 1 (0,1), 2 (1,0), 3 (1,1); triangles
    // {0, 2, 1} then {1, 2, 3}, each counter-clockwise from its first corner. A query on
    // the diagonal takes the second.
    const std::vector<Corners> square = {{0, 0, 1, 0, 0, 1}, {0, 1, 1, 0, 1, 1}};
    ExpectTriangles(mesh.triangulate({{1, 1}, {0, 0}, {1, 0}, {0, 1}}), square, "square");
    // Repeated points and a NaN point are left out; the result is the same.
    ExpectTriangles(mesh.triangulate({{0, 0}, {1, 1}, {0, 0}, {nan, 0}, {1, 0}, {0, 1}, {1, 1}}),
                    square, "square with repeats");
    // Kite (0,0), (1,-3), (1,3), (2,0): the sweep's diagonal (1,-3)-(1,3) has (2,0) inside
    // the circumcircle of the other three (centre (5,0), radius 5, distance 3), so it is
    // flipped to the short diagonal (0,0)-(2,0).
    ExpectTriangles(mesh.triangulate({{1, 3}, {2, 0}, {1, -3}, {0, 0}}),
                    {{0, 0, 1, -3, 2, 0}, {0, 0, 2, 0, 1, 3}}, "kite");
    // A first run of collinear points is fanned to the first point off the line.
    ExpectTriangles(mesh.triangulate({{0, 0}, {0, 1}, {0, 2}, {3, 1}}),
                    {{0, 0, 3, 1, 0, 1}, {0, 1, 3, 1, 0, 2}}, "fan");
    // No triangle: too few distinct points, or all on one line (also at a slant with
    // decimal steps).
    for (const Pts& none :
         {Pts{}, Pts{{0, 0}, {1, 1}}, Pts{{0, 0}, {1, 1}, {0, 0}, {1, 1}},
          Pts{{0, 0}, {0.1, 0.3}, {0.2, 0.6}, {0.3, 0.9}, {0.7, 2.1}}, Pts{{5, 2}, {5, 2}, {5, 2}}})
        EXPECT_TRUE(mesh.triangulate(none).empty()) << none.size() << " points";
}

TEST(Delaunay, InputIndicesPointToFirstOfRepeats) {
    const auto tris = CDelaunay().triangulate({{0, 0}, {1, 1}, {0, 0}, {1, 0}, {0, 1}});
    ASSERT_EQ(tris.size(), 2u);
    // First triangle (0,0), (1,0), (0,1): inputs 0 (not the repeat 2), 3 and 4.
    EXPECT_EQ(tris[0].Index(0), 0);
    EXPECT_EQ(tris[0].Index(1), 3);
    EXPECT_EQ(tris[0].Index(2), 4);
}

TEST(Delaunay, GridIsStableAndValid) {
    // 3 x 3 grid at 0.05 spacing (rounded decimals, co-circular in fours): 2 x 9 - 2 - 8
    // = 8 triangles (8 points on the hull), each with an empty circumcircle, and the same
    // list for the points given in reverse or interleaved order.
    Pts grid;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            grid.push_back({0.05 * i, 0.05 * j});
    const CDelaunay mesh;
    const auto tris = mesh.triangulate(grid);
    ASSERT_EQ(tris.size(), 8u);
    ExpectDelaunay(tris, grid);

    Pts reversed(grid.rbegin(), grid.rend());
    Pts interleaved;
    for (size_t i = 0; i < grid.size(); ++i)
        interleaved.push_back(grid[(i * 4) % grid.size()]);
    for (const Pts& other : {reversed, interleaved}) {
        const auto again = mesh.triangulate(other);
        ASSERT_EQ(again.size(), tris.size());
        for (size_t t = 0; t < tris.size(); ++t)
            for (int i = 0; i < 3; ++i)
                EXPECT_TRUE(again[t].Corner(i) == tris[t].Corner(i)) << t << " " << i;
    }
}

TEST(Delaunay, ScatteredPointsAreDelaunay) {
    // 300 points from a fixed linear congruential sequence over a 10 m square.
    Pts pts;
    unsigned long long s = 12345;
    auto next = [&s]() {
        s = (s * 6364136223846793005ULL + 1442695040888963407ULL);
        return static_cast<double>(s >> 11) / 9007199254740992.0 * 10.0;
    };
    for (int i = 0; i < 300; ++i) {
        const double x = next();
        pts.push_back({x, next()});
    }
    const auto tris = CDelaunay().triangulate(pts);
    // Euler: 2n - 2 - h triangles, so between n - 2 and 2n - 5.
    EXPECT_GE(tris.size(), 298u);
    EXPECT_LE(tris.size(), 595u);
    ExpectDelaunay(tris, pts);
}
