#include "buildings/CBuildingProfile.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

using P = CBuildingProfile;

// A 3-4-5 line: S = (0, 0), E = (30, 40), 50 m in plan, J = 10, so sample k lies at
// chainage 5k exactly (x_k = 3k, y_k = 4k, sqrt(16k^2 + 9k^2) = 5k).
const Vec3<double> kS(0.0, 0.0, 0.0);
const Vec3<double> kE(30.0, 40.0, 0.0);
constexpr int kJ = 10;

// Samples k = 0..10 with displacement (ux k, uy k, uz k).
std::vector<GeoDispResult> Samples(double ux, double uy, double uz) {
    std::vector<GeoDispResult> r(kJ + 1);
    for (int k = 0; k <= kJ; ++k) {
        r[static_cast<std::size_t>(k)].SetXdisplacement(ux * k);
        r[static_cast<std::size_t>(k)].SetYdisplacement(uy * k);
        r[static_cast<std::size_t>(k)].SetZdisplacement(uz * k);
    }
    return r;
}

} // namespace

// Settlement z = chainage / 5 (sample k settles k metres), so a profile value at building
// distance d from start a is (a + d) / 5.
TEST(CBuildingProfile, VerticalSliceInBuildingCoordinates) {
    struct {
        double a, b;
        std::vector<std::pair<double, double>> rows;
    } cases[] = {
        // Ends between samples: interpolated ends, samples 10, 15, 20 inside.
        {7.0, 23.0, {{0, 1.4}, {3, 2}, {8, 3}, {13, 4}, {16, 4.6}}},
        // End on sample 20: one point at x = 13, not doubled.
        {7.0, 20.0, {{0, 1.4}, {3, 2}, {8, 3}, {13, 4}}},
        // Start on sample 10: the sample itself is passed over (d <= 0).
        {10.0, 17.0, {{0, 2}, {5, 3}, {7, 3.4}}},
        // Start and end between samples 10 and 15: exactly two points.
        {11.0, 14.0, {{0, 2.2}, {3, 2.8}}},
        // Runs to the line's end: the last lookup is the last sample itself.
        {42.0, 50.0, {{0, 8.4}, {3, 9}, {8, 10}}},
    };
    for (const auto& c : cases) {
        CTableT<double> t;
        ASSERT_EQ(P::VerticalProfile(kS, kE, kJ, Samples(0, 0, 1), c.a, c.b, t), P::eProfileOk);
        ASSERT_EQ(t.NumPoint(), static_cast<int>(c.rows.size())) << c.a << " " << c.b;
        for (int i = 0; i < t.NumPoint(); ++i) {
            EXPECT_NEAR(t.GetX(i), c.rows[static_cast<std::size_t>(i)].first, 1e-12) << c.a;
            EXPECT_NEAR(t.GetY(i), c.rows[static_cast<std::size_t>(i)].second, 1e-12) << c.a;
        }
    }
}

// Ux = k, Uy = 2k: along the line (0.6, 0.8) the movement is 0.6 k + 1.6 k = 2.2 k. At a = 7
// (k = 1.4) 3.08; at chainage 10 (k = 2) 4.4; at b = 12 (k = 2.4) 5.28.
TEST(CBuildingProfile, HorizontalAlongTheLineAndItsFailures) {
    CTableT<double> t;
    ASSERT_EQ(
        P::HorizontalProfile(kS, kE, kJ, P::PlanLength(kS, kE), Samples(1, 2, 99), 7.0, 12.0, t),
        P::eProfileOk);
    ASSERT_EQ(t.NumPoint(), 3);
    EXPECT_NEAR(t.GetY(0), 3.08, 1e-12);
    EXPECT_NEAR(t.GetY(1), 4.4, 1e-12);
    EXPECT_NEAR(t.GetX(2), 5.0, 1e-12);
    EXPECT_NEAR(t.GetY(2), 5.28, 1e-12);

    EXPECT_EQ(P::HorizontalProfile(kS, kE, kJ, 50.0, {}, 7.0, 12.0, t), P::eProfileEmptyHorizontal);
    EXPECT_EQ(t.NumPoint(), 0);
    EXPECT_TRUE(P::EmptyHorizontalMessage(2, 3) ==
                CString(L"cSplieHDispTemp.NumPoint() == 0 for Stage 2, Specific Building 3"));
    // An end beyond the line is read at the last sample: (48, 10).
    ASSERT_EQ(P::VerticalProfile(kS, kE, kJ, Samples(0, 0, 1), 7.0, 55.0, t), P::eProfileOk);
    EXPECT_EQ(t.GetX(-1), 48.0);
    EXPECT_EQ(t.GetY(-1), 10.0);
    // A start off the line, or a stage with no stored samples, is reported, not thrown.
    EXPECT_EQ(P::VerticalProfile(kS, kE, kJ, Samples(0, 0, 1), -1.0, 12.0, t),
              P::eProfileOutOfRange);
    EXPECT_EQ(P::VerticalProfile(kS, kE, kJ, {}, 7.0, 12.0, t), P::eProfileOutOfRange);
}

// A building that starts 5e-11 m below sample 2 (chainage 10) has its first two profile
// points 5e-11 apart.
TEST(CBuildingProfile, StartJustBelowASampleGivesACloseStep) {
    CTableT<double> t;
    ASSERT_EQ(P::VerticalProfile(kS, kE, kJ, Samples(0, 0, 1), 10.0 - 5e-11, 17.0, t),
              P::eProfileOk);
    EXPECT_EQ(P::FirstCloseStep(t), 0);
    ASSERT_EQ(P::VerticalProfile(kS, kE, kJ, Samples(0, 0, 1), 7.0, 17.0, t), P::eProfileOk);
    EXPECT_EQ(P::FirstCloseStep(t), -1);
}

// Segment ends are drawn at the running sum of segment lengths from the line's start: with
// lengths 2, 3, 5, segment 2 runs from 2 to 5. On the 3-4-5 line (length 50) at d = 5:
// (3, 4, 0.1) with a level change of 1 m over the line.
TEST(CBuildingProfile, SegmentPositionsOnTheLine) {
    const std::vector<CBuildingDamageResult> r = {
        CBuildingDamageResult(1, 3, 0, 0, 0, GeoGlobal::eNoCurvature, 0, 0, false, 0, false, 0,
                              true),
        CBuildingDamageResult(3, 6, 0, 0, 0, GeoGlobal::eNoCurvature, 0, 0, false, 0, false, 0,
                              true),
        CBuildingDamageResult(6, 11, 0, 0, 0, GeoGlobal::eNoCurvature, 0, 0, false, 0, false, 0,
                              true)};
    const struct {
        int segment;
        double start, end;
    } cases[] = {{0, 0, 0}, {1, 0, 2}, {2, 2, 5}, {3, 5, 10}};
    for (const auto& c : cases) {
        EXPECT_EQ(P::SegmentStartDistance(r, c.segment), c.start) << c.segment;
        EXPECT_EQ(P::SegmentEndDistance(r, c.segment), c.end) << c.segment;
    }
    const Vec3<double> E(30.0, 40.0, 1.0);
    const Vec3<double> p = P::PointOnLine(kS, E, 50.0, 5.0);
    EXPECT_NEAR(p.x, 3.0, 1e-12);
    EXPECT_NEAR(p.y, 4.0, 1e-12);
    EXPECT_NEAR(p.z, 0.1, 1e-12);
}
