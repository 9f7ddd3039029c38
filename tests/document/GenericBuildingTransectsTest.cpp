#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// A route along (0, 0, 0), (10, 0, 0) and (10, north, 0): 10 + north metres long.
ZorvoData Route(double north, double interval = 10.0, int points = 11, double length = 10.0) {
    ZorvoData doc;
    CPolylinePlus route;
    route.SetPoint(0, Vec3<double>(0, 0, 0));
    route.SetPoint(1, Vec3<double>(10, 0, 0));
    route.SetPoint(2, Vec3<double>(10, north, 0));
    doc.SetPolyline(1, route);
    CGenericBuilding b;
    b.SetPolyline(1);
    b.SetInterval(interval);
    b.SetDispPoints(points);
    b.SetLength(length);
    b.SetLOverH({0.5, 2.0});
    CBuildingDamageProperties properties = b.GetBuildingDamageProperties();
    properties.SetVerticalOffsets({0.0, -1.5});
    b.SetBuildingDamageProperties(properties);
    doc.SetGenericBuilding(1, b);
    return doc;
}

void ExpectPoint(const Vec3<double>& p, double x, double y, double z) {
    EXPECT_NEAR(p.x, x, 1e-12);
    EXPECT_NEAR(p.y, y, 1e-12);
    EXPECT_NEAR(p.z, z, 1e-12);
}

} // namespace

// A route of 25 m with an interval of 10: chainages 0, 10, 20 and 30 are tried
// (ceil(2.5) + 1), and 30 lies beyond the end, so three transects are built; the count
// by floor is 3. Length 10 with 11 points puts them 1 m apart from +5 to -5 across:
// - at 0 m the point is vertex 0: vertex 1 is taken and the normal turned round,
//   u = (10, 0), n = (0, 1) turned to (0, -1); first point (0, -5);
// - at 10 m, exactly on vertex 1, the segment before it: u = (-10, 0), n = (0, -1);
//   first point (10, -5), on the same side;
// - at 20 m, (10, 10) on the second segment: u = (0, -10), n = (1, 0); first (15, 10).
TEST(GenericBuildingTransects, SetOutAlongARoute) {
    ZorvoData doc = Route(15.0);
    doc.ResizeResultsAndSetupTransects();
    const CGenericBuilding& b = doc.GetGenericBuilding(1);
    ASSERT_EQ(b.NumTransects(), 3);
    EXPECT_EQ(doc.NumGenericBuildingTransects(1), 3);
    const int sets = doc.NumStages(true, false);
    const struct {
        Vec3<double> crossing, first, last;
    } expected[] = {{{0, 0, 0}, {0, -5, 0}, {0, 5, 0}},
                    {{10, 0, 0}, {10, -5, 0}, {10, 5, 0}},
                    {{10, 10, 0}, {15, 10, 0}, {5, 10, 0}}};
    for (int t = 1; t <= 3; ++t) {
        SCOPED_TRACE(t);
        const CBuildingTransect& tr = b.GetTransect(t);
        const auto& e = expected[t - 1];
        ExpectPoint(tr.GetPolyineIntersection(), e.crossing.x, e.crossing.y, e.crossing.z);
        for (int s = 0; s < sets; ++s) {
            ASSERT_EQ(tr.NumberOfPoints(s), 11);
            ExpectPoint(tr.GetPoint(s, 1), e.first.x, e.first.y, e.first.z);
            ExpectPoint(tr.GetPoint(s, 11), e.last.x, e.last.y, e.last.z);
            ExpectPoint(tr.GetPoint(s, 6), e.crossing.x, e.crossing.y, e.crossing.z);
        }
        // Each vertical offset holds the points raised by the offset.
        const auto& lowered = tr.GetVerticalMovementResults(sets - 1, 1);
        ASSERT_EQ(lowered.size(), 11u);
        ExpectPoint(lowered[0].GetPoint(), e.first.x, e.first.y, -1.5);
        EXPECT_EQ(tr.GetVerticalMovementResults(0, 0)[10].GetPoint().z, 0.0);
    }
    // The end points without building: the same for the built ones, and a fourth on the
    // last vertex (10, 15), where the segment before gives u = (0, -15), n = (1, 0).
    Vec3<double> start, end;
    ASSERT_TRUE(doc.GetGenericBuildingTransectStartAndEnd(1, 2, start, end));
    ExpectPoint(start, 10, -5, 0);
    ExpectPoint(end, 10, 5, 0);
    ASSERT_TRUE(doc.GetGenericBuildingTransectStartAndEnd(1, 4, start, end));
    ExpectPoint(start, 15, 15, 0);
    ExpectPoint(end, 5, 15, 0);
    const Vec3<double> untouched(7, 7, 7);
    start = end = untouched;
    EXPECT_FALSE(doc.GetGenericBuildingTransectStartAndEnd(1, 5, start, end));
    EXPECT_FALSE(doc.GetGenericBuildingTransectStartAndEnd(1, 0, start, end));
    EXPECT_FALSE(doc.GetGenericBuildingTransectStartAndEnd(2, 1, start, end));
    ExpectPoint(start, 7, 7, 7);
}

// A route of 20 m: chainages 0, 10 and 20 by both counts; the third stands on the last
// vertex and takes the segment before it: u = (0, -10), n = (1, 0).
TEST(GenericBuildingTransects, LastChainageOnTheEndVertex) {
    ZorvoData doc = Route(10.0, 10.0, 2, 6.0);
    doc.ResizeResultsAndSetupTransects();
    const CGenericBuilding& b = doc.GetGenericBuilding(1);
    ASSERT_EQ(b.NumTransects(), 3);
    EXPECT_EQ(doc.NumGenericBuildingTransects(-1), 3);
    // Two points, at +3 and -3 across.
    ASSERT_EQ(b.GetTransect(3).NumberOfPoints(0), 2);
    ExpectPoint(b.GetTransect(3).GetPoint(0, 1), 13, 10, 0);
    ExpectPoint(b.GetTransect(3).GetPoint(0, 2), 7, 10, 0);
    Vec3<double> start, end;
    ASSERT_TRUE(doc.GetGenericBuildingTransectStartAndEnd(1, 3, start, end));
    ExpectPoint(start, 13, 10, 0);
    ExpectPoint(end, 7, 10, 0);
}

// Inputs that give no count, no polyline, or more samples than memory holds: no
// transects and no crash.
TEST(GenericBuildingTransects, HazardsBuildNone) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (double interval : {0.0, nan, 1e-300}) {
        ZorvoData doc = Route(15.0, interval);
        doc.PopulateGenericBuildingTransectsAndTheirPoints(1);
        EXPECT_EQ(doc.GetGenericBuilding(1).NumTransects(), 0) << interval;
    }
    ZorvoData missing = Route(15.0);
    CGenericBuilding b = missing.GetGenericBuilding(1);
    b.SetPolyline(9);
    missing.SetGenericBuilding(1, b);
    missing.PopulateGenericBuildingTransectsAndTheirPoints(1);
    EXPECT_EQ(missing.GetGenericBuilding(1).NumTransects(), 0);
    EXPECT_EQ(missing.NumGenericBuildingTransects(1), 0);
    Vec3<double> start, end;
    EXPECT_FALSE(missing.GetGenericBuildingTransectStartAndEnd(1, 1, start, end));

    ZorvoData onePoint = Route(15.0);
    CPolylinePlus dot;
    dot.SetPoint(0, Vec3<double>(1, 2, 3));
    onePoint.SetPolyline(1, dot);
    onePoint.PopulateGenericBuildingTransectsAndTheirPoints(1);
    EXPECT_EQ(onePoint.GetGenericBuilding(1).NumTransects(), 0);
    EXPECT_EQ(onePoint.NumGenericBuildingTransects(1), 0);
}

// Transects are set out only for a building that can be assessed; results of every
// transect, offset and L/H are found and cleared by the document.
TEST(GenericBuildingTransects, ResultsAreFoundAndCleared) {
    ZorvoData invalid = Route(15.0);
    CGenericBuilding b = invalid.GetGenericBuilding(1);
    b.SetLOverH({1.0, 0.0});
    invalid.SetGenericBuilding(1, b);
    invalid.ResizeResultsAndSetupTransects();
    EXPECT_EQ(invalid.GetGenericBuilding(1).NumTransects(), 0);

    ZorvoData doc = Route(15.0);
    doc.ResizeResultsAndSetupTransects();
    EXPECT_FALSE(doc.ResultsExist(-1));
    CBuildingDamageResult r;
    r.SetStartOfCombinedSegment(true);
    CBuildingTransect& t = doc.AccessGenericBuilding(1).AccessTransect(2);
    t.SetBuildingDamageResults(1, false, 1, 1, {r, r, r});
    t.SetBuildingDamageResults(0, true, 0, 0, {r});
    EXPECT_TRUE(doc.GenericBuildingDamageResultsExist(1, 1, false));
    EXPECT_FALSE(doc.GenericBuildingDamageResultsExist(0, 1, false));
    EXPECT_EQ(doc.NumGenericBuildingResults(-1, -1, false), 3);
    EXPECT_EQ(doc.NumGenericBuildingResults(-1, -1, true), 1);
    EXPECT_TRUE(doc.ResultsExist(1));
    EXPECT_TRUE(doc.ResultsExist(0));
    doc.DeleteResults();
    EXPECT_FALSE(doc.ResultsExist(-1));
    EXPECT_EQ(doc.GetGenericBuilding(1).NumTransects(), 3);
}
