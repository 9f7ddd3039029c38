#include "buildings/CBuildingSegmentation.h"
#include "buildings/CBuildingDamageAssessment.h"
#include "buildings/CBuildingProfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

using S = CBuildingSegmentation;
using Rows = std::vector<std::pair<double, double>>;

CTableT<double> Table(const Rows& rows) {
    CTableT<double> t;
    for (const auto& r : rows)
        t.AddPoint(r.first, r.second);
    return t;
}

// The outputs of one cut.
struct Cut {
    CTableT<double> hTable, vTable, curvature;
    CSplineT<double> hCurve, map, vCurve;
    std::vector<double> boundaries;
    S::EStatus status = S::eNoTrough;

    Cut(const CTableT<double>& h, const CTableT<double>& v, double sensitivity,
        bool combined = false, const std::vector<CBuildingDamageResult>& existing = {}) {
        status = S::SplinesAndSegments(combined, existing, h, v, sensitivity, hTable, vTable,
                                       hCurve, map, vCurve, curvature, boundaries);
    }
};

CBuildingDamageResult Existing(double start, bool startOfCombined) {
    return CBuildingDamageResult(start, start + 1, 0, 0, 0, GeoGlobal::eNoCurvature, 0, 0, false, 0,
                                 false, 0, startOfCombined);
}

// x = -2..2 at 1 m.
Rows Cubic(double shift, double add) {
    Rows r;
    for (int k = -2; k <= 2; ++k) {
        const double u = k - shift;
        r.emplace_back(k, u * u * u + add);
    }
    return r;
}

Rows Constant(const Rows& like, double h) {
    Rows r = like;
    for (auto& p : r)
        p.second = h;
    return r;
}

} // namespace

// Boundaries by hand. The cubic v = (x - 1/4)^3 at x = -2..2 (values -11.390625, -1.953125,
// -0.015625, 0.421875, 5.359375): first derivative 13.1875 (9.4375 - 1.9375 + 5.6875),
// 5.6875, 1.1875, 2.6875, 7.1875 (4.9375 - 0.4375 + 2.6875); second -9 (-7.5 + 4.5 - 6), -6,
// -1.5, 3, 6 (4.5 - 1.5 + 3). The sign changes between x = 0 and 1: x = |1.5/4.5| 1 + 0 = 1/3.
// v = x^3 + 10 has curvature -7.5, -4.5, 0, 4.5, 7.5: the zero at x = 0 takes part in two
// pairs and gives 0 twice, a segment of zero length.
TEST(CBuildingSegmentation, BoundariesByHand) {
    const Rows cubic = Cubic(0.25, 0.0);
    const Rows zero = Cubic(0.0, 10.0);
    const struct {
        const char* name;
        Rows v;
        double h;
        double sensitivity;
        S::EStatus status;
        std::vector<double> boundaries;
    } cases[] = {
        // Uniform settlement: no curvature anywhere, one segment over the whole building.
        {"uniform", {{0, 0.01}, {5, 0.01}, {10, 0.01}}, 0.0, 0.001, S::eSegmentsFound, {0, 10}},
        // Wholly below the sensitivity: no segments.
        {"below", {{0, 0.0005}, {5, -0.0009}, {10, 0.0005}}, 0.0, 0.001, S::eNoTrough, {}},
        // Only the middle point reaches |-0.001|: start = end, one segment of zero length.
        {"one point",
         {{0, 0.0005}, {5, 0.001}, {10, 0.0005}},
         0.0,
         -0.001,
         S::eSegmentsFound,
         {5, 5}},
        {"inflection", cubic, 0.0, 0.0, S::eSegmentsFound, {-2, 1.0 / 3.0, 2}},
        // Moved 0.5 m sideways: every boundary in deformed chainage x' = x + 0.5.
        {"deformed", cubic, 0.5, 0.0, S::eSegmentsFound, {-1.5, 1.0 / 3.0 + 0.5, 2.5}},
        {"zero curvature", zero, 0.0, 0.0, S::eSegmentsFound, {-2, 0, 0, 2}},
        // Start from the first |v| >= 9 (x = -1, v = 9), end from the last (x = 2); the
        // inflection lies strictly inside.
        {"limits", zero, 0.0, 9.0, S::eSegmentsFound, {-1, 0, 0, 2}},
    };
    for (const auto& c : cases) {
        const Cut cut(Table(Constant(c.v, c.h)), Table(c.v), c.sensitivity);
        EXPECT_EQ(cut.status, c.status) << c.name;
        ASSERT_EQ(cut.boundaries.size(), c.boundaries.size()) << c.name;
        for (std::size_t k = 0; k < c.boundaries.size(); ++k)
            EXPECT_DOUBLE_EQ(cut.boundaries[k], c.boundaries[k]) << c.name << " " << k;
        // The two tables are filled in every case, the curves only with a trough.
        EXPECT_EQ(cut.vTable.NumPoint(), static_cast<int>(c.v.size())) << c.name;
        EXPECT_EQ(cut.vCurve.NumPoint(), c.status == S::eNoTrough ? 0 : cut.vTable.NumPoint());
    }
}

// With the user's combination the cuts are the undeformed starts of the flagged results after
// the first; the first result's flag is never read.
TEST(CBuildingSegmentation, CombinedBoundariesFromTheUsersFlags) {
    const Rows v = Cubic(0.25, 0.0);
    const struct {
        std::vector<CBuildingDamageResult> existing;
        std::vector<double> boundaries;
    } cases[] = {
        {{Existing(-2, true), Existing(-1, false), Existing(0.5, true)}, {-1.5, 0.5, 2.5}},
        {{Existing(-2, true), Existing(-1, false)}, {-1.5, 2.5}},
        {{Existing(-2, true)}, {-1.5, 2.5}},
    };
    for (const auto& c : cases) {
        const Cut cut(Table(Constant(v, 0.5)), Table(v), 0.0, true, c.existing);
        EXPECT_EQ(cut.boundaries, c.boundaries);
    }
}

// A Gaussian trough S exp(-u^2/2), u = (x - 30)/i, i = K z0 = 0.5 x 20 = 10 m, Smax = 50 mm,
// sampled every 0.5 m over a building from x = 0 to 30 (the trough centre). v >= 1 mm where
// u^2 <= 2 ln 50, |x - 30| <= 27.97, so the first sample in it is x = 2.5; the last is x = 30.
// The curve inflects at u = -1, x = 20: hogging over [2.5, 20] (mid-segment chord 15.7 mm
// above the curve's 8.6 mm), sagging over [20, 30] (chord 40.2 mm, curve 44.1 mm). The
// sampled curvature, a central difference of step 2h taken twice, moves the inflection by
// about (2h)^2 / (12 i) = 8 mm away from the centre (19.991); 20 mm is allowed.
TEST(CBuildingSegmentation, GaussianTroughHoggingThenSagging) {
    const double i = 0.5 * 20.0;
    Rows v, h;
    for (int k = 0; k <= 60; ++k) {
        const double x = 0.5 * k;
        const double u = (x - 30.0) / i;
        v.emplace_back(x, 0.05 * std::exp(-u * u / 2.0));
        h.emplace_back(x, 0.0);
    }
    const Cut cut(Table(h), Table(v), 0.001);
    ASSERT_EQ(cut.status, S::eSegmentsFound);
    ASSERT_EQ(cut.boundaries.size(), 3u);
    EXPECT_EQ(cut.boundaries[0], 2.5);
    EXPECT_NEAR(cut.boundaries[1], 30.0 - i, 0.02);
    EXPECT_EQ(cut.boundaries[2], 30.0);

    std::vector<CBuildingDamageResult> results;
    CBuildingDamageAssessment::BuildingDamageResults(
        true, CDamageCategoryStrains(), CBuildingDamageProperties(), 10.0, cut.hTable, cut.vTable,
        cut.hCurve, cut.map, cut.vCurve, cut.curvature, cut.boundaries, results);
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].GetCurvature(), GeoGlobal::eHogging);
    EXPECT_EQ(results[1].GetCurvature(), GeoGlobal::eSagging);
}

// Regression: a building starting 5e-11 m below a sample has two profile points closer than
// the lookup's smallest step; the trough starts at the first of them, and every lookup
// there raises range code 3. The cut reports it instead.
TEST(CBuildingSegmentation, CloseProfilePointsAreReportedNotThrown) {
    std::vector<GeoDispResult> samples(11);
    for (std::size_t k = 0; k < samples.size(); ++k)
        samples[k].SetZdisplacement(0.01 * static_cast<double>(k * k));
    const Vec3<double> start(0, 0, 0), end(30, 40, 0); // sample k at chainage 5k
    CTableT<double> v, h;
    ASSERT_EQ(CBuildingProfile::VerticalProfile(start, end, 10, samples, 10.0 - 5e-11, 30.0, v),
              CBuildingProfile::eProfileOk);
    ASSERT_EQ(
        CBuildingProfile::HorizontalProfile(start, end, 10, 50.0, samples, 10.0 - 5e-11, 30.0, h),
        CBuildingProfile::eProfileOk);

    Cut cut(h, v, 0.0);
    EXPECT_EQ(cut.status, S::eCloseProfilePoints);
    try {
        cut.vCurve.GetValue(cut.boundaries.front());
        ADD_FAILURE() << "the lookup at the close step should raise code 3";
    } catch (const Util::CRange<double>& r) {
        EXPECT_EQ(r.code, 3);
    }
    EXPECT_TRUE(S::CloseProfilePointsMessage(CString(L"B1"), 2) ==
                CString(L"Building B1, stage 2: two points of the settlement profile lie less "
                        L"than 1e-10 m apart with a segment boundary between them; no results "
                        L"for this assessment."));
}

// Curvature through the uneven interior weights: x = 0, 1, 3 (p = 1, q = 2), v = 0, 1, 5.
// Slope: first 1 - 2 + 5/3 = 2/3; middle (1 (2/3))/1 + (4 (1/3))/2 = 4/3 (the weights
// swapped would give 5/3); last 2 - 1 + 5/3 = 8/3. Curvature: chords 2/3 and 2/3, over 3 m
// 2/3: first 2/3 - 2/3 + 2/3 = 2/3; middle (2/3)(2/3) + (4/3)(1/3)/2 = 2/3; last 2/3.
TEST(CBuildingSegmentation, CurvatureAtUnevenSpacing) {
    const Rows v = {{0, 0}, {1, 1}, {3, 5}};
    const Cut cut(Table(Constant(v, 0.0)), Table(v), 0.0);
    const CTableT<double> slope = cut.vCurve.Derivative();
    const double expectSlope[] = {2.0 / 3.0, 4.0 / 3.0, 8.0 / 3.0};
    for (int k = 0; k < 3; ++k) {
        EXPECT_NEAR(slope.GetY(k), expectSlope[k], 1e-14) << k;
        EXPECT_NEAR(cut.curvature.GetY(k), 2.0 / 3.0, 1e-14) << k;
    }
}
