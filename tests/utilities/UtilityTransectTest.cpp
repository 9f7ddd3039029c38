#include "utilities/CAcceptanceCriteria.h"
#include "utilities/CGenericUtility.h"
#include "utilities/CUtilityTransect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::UtilityGlobal;

namespace {

constexpr double kLowest = std::numeric_limits<double>::lowest();

CUtilityStrain Row(double axial, double flexural, double location, double radius = 100.0,
                   bool radiusFlag = true) {
    CUtilityStrain r;
    r.SetAxialStrain(axial);
    r.SetFlexuralStrain(flexural);
    r.SetLocation(location);
    r.SetRadiusofCurvature(radius);
    r.SetIsRadiusofCurvature(radiusFlag);
    return r;
}

GeoDispResult At(double x, double y, double z) {
    GeoDispResult r;
    r.SetPoint(Vec3<double>(x, y, z));
    return r;
}

// Axial factors 2 in tension and 4 in compression, bending factors 3 and 5.
CAcceptanceCriteria Factored() {
    CAcceptanceCriteria c;
    c.SetAxialStrainRF_Tension(2.0);
    c.SetAxialStrainRF_Compression(4.0);
    c.SetBendingFactorTension(3.0);
    c.SetBendingFactorCompression(5.0);
    return c;
}

} // namespace

// Points (0, 0, 0), (3, 4, 0.00005), (12, 16, 15): 25 m in space end to end, 20 m in
// plan, 5 m between the first two, and 15 m of rise, so not horizontal; one point is.
TEST(UtilityTransect, GeometryOfASlot) {
    CUtilityTransect t;
    t.AddResult(1, At(0, 0, 0));
    t.AddResult(1, At(3, 4, 0.00005));
    EXPECT_TRUE(t.IsHorizontal(1)); // 0.00005 m of fall is below 0.0001 m
    t.AddResult(1, At(12, 16, 15));
    EXPECT_EQ(t.NumberOfPoints(1), 3);
    EXPECT_EQ(t.NumberOfPoints(0), 0);
    EXPECT_DOUBLE_EQ(t.GetLength(1), 25.0);
    EXPECT_DOUBLE_EQ(t.GetTransectPlanLength(1), 20.0);
    EXPECT_DOUBLE_EQ(t.GetInterval(1), std::sqrt(25.0 + 0.00005 * 0.00005));
    EXPECT_FALSE(t.IsHorizontal(1));
    EXPECT_DOUBLE_EQ(t.GetY(1, 2), 4.0);

    CUtilityTransect one;
    one.AddResult(0, At(1, 2, 3));
    EXPECT_TRUE(one.IsHorizontal(0));
    EXPECT_EQ(one.GetLength(0), 0.0);
    EXPECT_EQ(one.GetInterval(0), 0.0);
}

// The axial and flexural peaks keep the later of equal rows; the total strains keep the
// first; the least radius is taken slot by slot, so with -1 the last slot decides.
TEST(UtilityTransect, PeakTieRules) {
    const CAcceptanceCriteria c = Factored();
    CUtilityTransect t;
    // Slot 0: axial 1e-6 twice (2 microstrain factored), at 1 m and 2 m; flexural 2e-6 at
    // both (6 microstrain with factor 3 in tension, -10 with 5 in compression).
    t.SetUtilityStrain(0, 1, Row(1e-6, 2e-6, 1.0, 50.0));
    t.SetUtilityStrain(0, 2, Row(1e-6, 2e-6, 2.0, 40.0));
    // Slot 1: axial -1e-6 twice (-4 microstrain factored), radius 70 then 80.
    t.SetUtilityStrain(1, 1, Row(-1e-6, 0.0, 3.0, 70.0));
    t.SetUtilityStrain(1, 2, Row(-1e-6, 0.0, 4.0, 80.0));

    double value = -1.0, location = -1.0;
    EXPECT_TRUE(t.GetMaximumAxialStrainInTension_Factored(0, value, location, c));
    EXPECT_DOUBLE_EQ(value, 2.0);
    EXPECT_EQ(location, 2.0);
    EXPECT_FALSE(t.GetMaximumAxialStrainInTension_Factored(1, value, location, c));
    EXPECT_EQ(value, 0.0);
    EXPECT_EQ(location, kLowest);
    EXPECT_TRUE(t.GetMaximumAxialStrainInCompression_Factored(-1, value, location, c));
    EXPECT_DOUBLE_EQ(value, -4.0);
    EXPECT_EQ(location, 4.0);
    EXPECT_TRUE(t.GetMaximumFlexuralStrainInTension_Factored(0, value, location, c));
    EXPECT_DOUBLE_EQ(value, 6.0);
    EXPECT_EQ(location, 2.0);
    EXPECT_TRUE(t.GetMaximumFlexuralStrainInCompression_Factored(0, value, location, c));
    EXPECT_DOUBLE_EQ(value, -10.0);
    EXPECT_EQ(location, 2.0);

    // Total tension of slot 0 rows: 6 + 2 = 8 at both; the first stays.
    EXPECT_TRUE(t.GetMaximumTensileStrain_Factored(-1, value, location, c, false));
    EXPECT_DOUBLE_EQ(value, 8.0);
    EXPECT_EQ(location, 1.0);
    // Total compression: slot 0, 2 - 10 = -8; slot 1, -4 - 0 = -4; the largest is 8 at 1 m.
    EXPECT_TRUE(t.GetMaximumCompressiveStrain_Factored(-1, value, location, c, false));
    EXPECT_DOUBLE_EQ(value, 8.0);
    EXPECT_EQ(location, 1.0);
    // With neglect the tensile axial part of slot 0 is left out: 0 - 10.
    EXPECT_TRUE(t.GetCompressiveStrain(0, 1, value, c, true));
    EXPECT_DOUBLE_EQ(value, -10.0);
    // A compressive axial part neglected on the tensile side: 0 flexural, so no tension.
    EXPECT_FALSE(t.GetTensileStrain(1, 1, value, c, true));
    EXPECT_EQ(value, 0.0);

    Vec2<double> least;
    EXPECT_TRUE(t.GetMinRAD(0, least));
    EXPECT_EQ(least.x, 2.0);
    EXPECT_EQ(least.y, 40.0);
    // Slot 1 begins again from its 70 m, and 80 m is not smaller.
    EXPECT_TRUE(t.GetMinRAD(-1, least));
    EXPECT_EQ(least.x, 3.0);
    EXPECT_EQ(least.y, 70.0);
    EXPECT_TRUE(t.GetMaxCurvature(-1, least));
    EXPECT_DOUBLE_EQ(least.y, 1.0 / 70.0);
}

// The family's verdict is the worst of its transects' verdicts, 0 without transects.
// Rotation criteria: threshold 0.025 and limit 0.15 degrees.
TEST(UtilityTransect, GenericVerdictIsTheWorstTransect) {
    const CAcceptanceCriteria c;
    auto transect = [](double rotationRadians) {
        CUtilityTransect t;
        CPulloutAndRotation r;
        r.SetRotation(rotationRadians);
        t.SetPulloutAndRotation(0, 1, 1, r);
        return t;
    };
    const double deg = 3.14159265358979323846 / 180.0;
    CGenericUtility g;
    EXPECT_EQ(g.GetPulloutOrRotationCategory(0, eRotationDegreesFactored, c), eWithinThreshold);
    g.AddTransect(transect(0.01 * deg));
    g.AddTransect(transect(0.1 * deg));
    EXPECT_EQ(g.GetPulloutOrRotationCategory(0, eRotationDegreesFactored, c), eAboveThreshold);
    g.AddTransect(transect(0.2 * deg));
    g.AddTransect(transect(0.01 * deg));
    EXPECT_EQ(g.GetPulloutOrRotationCategory(0, eRotationDegreesFactored, c), eBeyondLimit);
    EXPECT_EQ(g.GetStrainCategory(0, eTotalTensileStrainFactored, c, false), eWithinThreshold);
}

TEST(UtilityTransect, Descriptions) {
    CGenericUtility g;
    g.SetInterval(12.5);
    const CUnit unit;
    const struct {
        bool prefix, number;
        const wchar_t* text;
    } cases[] = {{true, true, L"Transect 3: 25.00 m"},
                 {true, false, L"Transect 25.00 m"},
                 {false, true, L"3: 25.00 m"},
                 {false, false, L"25.00 m"}};
    for (const auto& k : cases) {
        CString text;
        g.GetTransectDescription(text, 3, unit, k.prefix, k.number);
        EXPECT_EQ(text, CString(k.text));
    }
    g.AddTransect(CUtilityTransect());
    g.AddTransect(CUtilityTransect());
    std::vector<CString> all;
    g.GetTransectsDescriptions(all, unit, false, true);
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[1], CString(L"2: 12.50 m"));
}
