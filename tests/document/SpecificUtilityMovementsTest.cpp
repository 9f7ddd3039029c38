// Movements along a specific utility: components resolved on the line or on each segment
// of a polyline, clipping to the utility's stretch, and the two peak rules.
#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

constexpr double kTol = 1e-12; // metres, on values worked exactly by hand

struct SDisp {
    double dx, dy, dz;
};

// A line from the origin to Q with one interval a metre of plan length, a utility on it
// from start to end, and samples in slot 0 with the displacements given.
ZorvoData OnLine(const Vec3<double>& Q, int intervals, double start, double end,
                 const std::vector<SDisp>& disp) {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetPoint1({0.0, 0.0, 0.0});
    line.SetPoint2(Q);
    line.SetIntervalsAlongLine(intervals);
    doc.SetDisplacementLine(1, line);
    CSpecificUtility u;
    u.SetLine(1);
    u.SetLineStart(start);
    u.SetLineEnd(end);
    for (size_t i = 0; i < disp.size(); ++i) {
        GeoDispResult r;
        r.SetXdisplacement(disp[i].dx);
        r.SetYdisplacement(disp[i].dy);
        r.SetZdisplacement(disp[i].dz);
        u.SetHorizontalMovementResult(0, static_cast<int>(i) + 1, r);
    }
    doc.SetSpecificUtility(1, u);
    return doc;
}

void ExpectRows(const CTableD& t, const std::vector<double>& xs, const std::vector<double>& ys) {
    ASSERT_EQ(t.NumPoint(), static_cast<int>(xs.size()));
    for (int i = 0; i < t.NumPoint(); ++i) {
        EXPECT_NEAR(t.GetX(i), xs[static_cast<size_t>(i)], kTol) << "row " << i;
        EXPECT_NEAR(t.GetY(i), ys[static_cast<size_t>(i)], kTol) << "row " << i;
    }
}

} // namespace

TEST(SpecificUtilityMovements, ComponentsAlongAndAcrossALine) {
    // Parallel = d . (Q - P) / L; perpendicular = d . (-Dy, Dx) / L, positive to the left.
    const struct {
        Vec3<double> Q;
        SDisp d;
        double parallel, perpendicular;
    } cases[] = {
        {{0.0, 2.0, 0.0}, {1.0, 0.0, 0.0}, 0.0, -1.0},  // along +y, moved east: to the right
        {{2.0, 0.0, 0.0}, {0.3, 0.4, 0.0}, 0.3, 0.4},   // along +x
        {{1.2, 1.6, 0.0}, {0.6, 0.8, 0.0}, 1.0, 0.0},   // (0.6·1.2 + 0.8·1.6) / 2 = 1
        {{-1.2, 1.6, 0.0}, {0.6, 0.8, 0.0}, 0.28, -0.96}, // (-0.72 + 1.28) / 2; (-0.48 - 0.48)
    };
    for (const auto& c : cases) {
        const ZorvoData doc = OnLine(c.Q, 2, 0.0, 2.0, {c.d, c.d, c.d});
        CTableD par, perp, alone;
        doc.GetParallelAndPerpendicularDisplacementsWRTSpecificUtility(0, 1, par, perp);
        ExpectRows(par, {0, 1, 2}, {c.parallel, c.parallel, c.parallel});
        ExpectRows(perp, {0, 1, 2}, {c.perpendicular, c.perpendicular, c.perpendicular});
        doc.GetPerpendicularDisplacementsWRTSpecificUtility(0, 1, alone);
        ExpectRows(alone, {0, 1, 2}, {c.perpendicular, c.perpendicular, c.perpendicular});
    }
}

TEST(SpecificUtilityMovements, TablesAreClippedToTheUtilitysStretch) {
    // Ten 1 m intervals along +y with settlement dz = 0.01 i².
    std::vector<SDisp> disp;
    for (int i = 0; i <= 10; ++i)
        disp.push_back({0.0, 0.0, 0.01 * i * i});
    const struct {
        double start, end;
        std::vector<double> xs, ys;
    } cases[] = {
        // The whole line: the raw rows, ends included.
        {0.0, 10.0, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
         {0, 0.01, 0.04, 0.09, 0.16, 0.25, 0.36, 0.49, 0.64, 0.81, 1.0}},
        // Start between points: (0.04 + 0.09) / 2 first, then the points beyond it; the point
        // exactly at the end stops the copying and comes back only as the last row.
        {2.5, 7.0, {0, 0.5, 1.5, 2.5, 3.5, 4.5}, {0.065, 0.09, 0.16, 0.25, 0.36, 0.49}},
    };
    for (const auto& c : cases) {
        const ZorvoData doc = OnLine({0.0, 10.0, 0.0}, 10, c.start, c.end, disp);
        CTableD t;
        doc.GetVerticalDisplacementsWRTSpecificUtility(0, 1, t);
        ExpectRows(t, c.xs, c.ys);
    }
    // An end beyond the samples is the table's range error.
    const ZorvoData beyond = OnLine({0.0, 10.0, 0.0}, 10, 0.0, 10.5, disp);
    CTableD t;
    EXPECT_THROW(beyond.GetVerticalDisplacementsWRTSpecificUtility(0, 1, t), Util::CRange<double>);
}

namespace {

// A polyline bent at a right angle: 4 m east, then 3 m north; 7 samples a metre apart, each
// moved (1, 2) in plan.
ZorvoData Bent() {
    ZorvoData doc;
    CPolylinePlus p;
    p.SetNumPoint(3);
    p.SetPoint(0, {0.0, 0.0, 0.0});
    p.SetPoint(1, {4.0, 0.0, 0.0});
    p.SetPoint(2, {4.0, 3.0, 0.0});
    doc.SetPolyline(1, p);
    CDisplacementPolyline dp;
    dp.SetPolyline(1);
    dp.SetIntervalsAlongLine(7);
    doc.SetDisplacementPolyline(1, dp);
    CSpecificUtility u;
    u.SetDisplacementDataType(UtilityGlobal::eDisplacementPolyline);
    u.SetDisplacementPolyline(1);
    u.SetLineStart(0.0);
    u.SetLineEnd(7.0);
    for (int i = 0; i <= 7; ++i) {
        GeoDispResult r;
        r.SetPoint(i <= 4 ? Vec3<double>(i, 0.0, 0.0) : Vec3<double>(4.0, i - 4.0, 0.0));
        r.SetXdisplacement(1.0);
        r.SetYdisplacement(2.0);
        u.SetHorizontalMovementResult(0, i + 1, r);
    }
    doc.SetSpecificUtility(1, u);
    return doc;
}

} // namespace

TEST(SpecificUtilityMovements, EachPolylineRowIsResolvedOnItsOwnSegment) {
    // East segment: parallel dx = 1, perpendicular dy = 2. North segment: parallel dy = 2,
    // perpendicular -dx = -1. The vertex at x = 4 lies on the first.
    const ZorvoData doc = Bent();
    CTableD par, perp;
    doc.GetParallelAndPerpendicularDisplacementsWRTSpecificUtility(0, 1, par, perp);
    const std::vector<double> xs = {0, 1, 2, 3, 4, 5, 6, 7};
    ExpectRows(par, xs, {1, 1, 1, 1, 1, 2, 2, 2});
    ExpectRows(perp, xs, {2, 2, 2, 2, 2, -1, -1, -1});

    // The line-only forms leave a table on a polyline as it was.
    CTableD kept = par;
    doc.GetParallelDisplacementsWRTSpecificUtility(0, 1, kept);
    EXPECT_TRUE(kept == par);

    // The vertex row read in the north segment's axes, by number and from the end; a row
    // of the north segment read in the east one.
    CTableD iX, iY, iZ, dX, dY, dZ;
    doc.GetInitialAndDisplPositionsWRTUtility(0, 1, iX, iY, iZ, dX, dY, dZ);
    const struct {
        int row, segment, index;
        double parallel, perpendicular;
    } cases[] = {{4, 2, 4, 2.0, -1.0}, {-4, 2, 4, 2.0, -1.0}, {6, 1, 6, 1.0, 2.0}};
    for (const auto& c : cases) {
        CTableD p2 = par, q2 = perp;
        doc.ModifyParallelAndPerpendicularDisplacementsWRTSpecificUtility_Polyline(
            1, p2, q2, c.row, c.segment, iX, iY, dX, dY);
        EXPECT_DOUBLE_EQ(p2.GetY(c.index), c.parallel) << c.row;
        EXPECT_DOUBLE_EQ(q2.GetY(c.index), c.perpendicular) << c.row;
        EXPECT_DOUBLE_EQ(p2.GetX(c.index), xs[static_cast<size_t>(c.index)]);
    }
}

TEST(SpecificUtilityMovements, PeaksKeepTheFirstVerticalAndTheLastHorizontal) {
    // Along +y, 1 m apart: parallel = dy, perpendicular = -dx.
    ZorvoData doc = OnLine({0.0, 3.0, 0.0}, 3, 0.0, 3.0,
                           {{0.0, 0.2, 0.2}, {0.3, -0.5, -0.5}, {-0.3, 0.5, 0.5}, {0.0, 0.1, 0.1}});
    Vec2<double> v;
    ASSERT_TRUE(doc.GetMaxVerticalDisplacementsWRTSpecificUtility(0, 1, v));
    EXPECT_DOUBLE_EQ(v.x, 1.0); // of -0.5 and 0.5 the first stays
    EXPECT_DOUBLE_EQ(v.y, -0.5);
    double par = 0, parX = 0, perp = 0, perpX = 0;
    ASSERT_TRUE(doc.GetMaxParallelAndPerpendicularDisplacementsWRTUtility(0, 1, par, parX, perp,
                                                                           perpX));
    EXPECT_DOUBLE_EQ(par, 0.5); // of -0.5 and 0.5 the last wins
    EXPECT_DOUBLE_EQ(parX, 2.0);
    EXPECT_DOUBLE_EQ(perp, 0.3);
    EXPECT_DOUBLE_EQ(perpX, 2.0);

    // With all slots, the last slot's peaks are answered though slot 0's are larger.
    doc.SetStage(1, CStage());
    CSpecificUtility u = doc.GetSpecificUtility(1);
    for (int k = 1; k <= 4; ++k) {
        GeoDispResult r;
        r.SetYdisplacement(k == 1 ? 0.1 : 0.0);
        u.SetHorizontalMovementResult(1, k, r);
    }
    doc.SetSpecificUtility(1, u);
    ASSERT_TRUE(doc.GetMaxParallelAndPerpendicularDisplacementsWRTUtility(-1, 1, par, parX, perp,
                                                                           perpX));
    EXPECT_DOUBLE_EQ(par, 0.1);
    EXPECT_DOUBLE_EQ(parX, 0.0);
}
