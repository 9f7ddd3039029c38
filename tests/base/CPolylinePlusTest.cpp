#include "base/CPolylinePlus.h"

#include <gtest/gtest.h>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// Two segments: a 3-4-5 triangle in plan rising 12 m (13 m in space), then 6 m due north
// on the level. Plan length 11 m, length in space 19 m.
CPolylinePlus Bend() {
    CPolylinePlus p(L"Bend");
    p.SetPoint(0, {0.0, 0.0, 0.0});
    p.SetPoint(1, {3.0, 4.0, 12.0});
    p.SetPoint(2, {3.0, 10.0, 12.0});
    return p;
}

} // namespace

TEST(CPolylinePlus, LengthsInPlanAndInSpace) {
    const CPolylinePlus p = Bend();
    EXPECT_DOUBLE_EQ(p.SegmentLength(0), 13.0);
    EXPECT_DOUBLE_EQ(p.SegmentLength2D(0), 5.0);
    EXPECT_DOUBLE_EQ(p.SegmentLength2D(1), 6.0);
    EXPECT_DOUBLE_EQ(p.Len(true), 11.0);
    EXPECT_DOUBLE_EQ(p.Len(false), 19.0);
}

TEST(CPolylinePlus, PointAtAPlanDistance) {
    const CPolylinePlus p = Bend();
    // Levels are interpolated by the plan fraction of the segment: 2.5 of 5 m is half way
    // up the 12 m rise.
    struct {
        double distance;
        int segment;
        Vec3<double> point;
    } cases[] = {
        {0.0, 0, {0.0, 0.0, 0.0}},  {2.5, 0, {1.5, 2.0, 6.0}},    {5.0, 0, {3.0, 4.0, 12.0}},
        {8.0, 1, {3.0, 7.0, 12.0}}, {11.0, 1, {3.0, 10.0, 12.0}},
    };
    for (const auto& c : cases) {
        Vec3<double> q;
        EXPECT_EQ(p.PointAt(c.distance, q), c.segment) << c.distance;
        EXPECT_NEAR(q.x, c.point.x, 1e-12) << c.distance;
        EXPECT_NEAR(q.y, c.point.y, 1e-12) << c.distance;
        EXPECT_NEAR(q.z, c.point.z, 1e-12) << c.distance;
    }
    Vec3<double> q;
    EXPECT_EQ(p.PointAt(-0.001, q), -1);
    EXPECT_EQ(p.PointAt(11.001, q), -1);
    EXPECT_EQ(CPolylinePlus().PointAt(0.0, q), -1); // no segment at all

    // One-based segment at a distance, with a tolerance at both ends.
    struct {
        double distance, tolerance;
        int segment;
    } segments[] = {{-0.05, 0.1, 1}, {-0.2, 0.1, -1}, {5.0, 0.0, 1},
                    {5.5, 0.0, 2},   {11.05, 0.1, 2}, {11.2, 0.1, -1}};
    for (const auto& c : segments)
        EXPECT_EQ(p.Segment(c.distance, c.tolerance), c.segment) << c.distance;
}
