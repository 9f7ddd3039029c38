#include "utilities/CAcceptanceCriteria.h"
#include "utilities/CSpecificUtility.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::UtilityGlobal;

namespace {

constexpr double kPi = 3.14159265358979323846;

CPulloutAndRotation Joint(double left, double right, double flexural, double rotation,
                          double location = 0.0) {
    CPulloutAndRotation r;
    r.SetPullout_Axial_Left(left);
    r.SetPullout_Axial_Right(right);
    r.SetPullout_Flexural(flexural);
    r.SetRotation(rotation);
    r.SetLocation(location);
    return r;
}

CUtilityStrain Row(double axial, double flexural, double radius = 0.0, bool radiusFlag = true,
                   double location = 0.0) {
    CUtilityStrain r;
    r.SetAxialStrain(axial);
    r.SetFlexuralStrain(flexural);
    r.SetRadiusofCurvature(radius);
    r.SetIsRadiusofCurvature(radiusFlag);
    r.SetLocation(location);
    return r;
}

// Factors that differ from each other, so that a factor taken for another shows.
CAcceptanceCriteria Factored() {
    CAcceptanceCriteria c;
    c.SetPulloutRF_Axial(2.0);
    c.SetPulloutRF_Flexural(3.0);
    c.SetRotationFactor(1.5);
    c.SetAxialStrainRF_Tension(2.0);
    c.SetAxialStrainRF_Compression(4.0);
    c.SetBendingFactorTension(3.0);
    c.SetBendingFactorCompression(5.0);
    return c;
}

} // namespace

// Joint results by type, with the factors above: left 1 mm, right 4 mm, flexural 0.5 mm,
// rotation 0.01 rad; and a closing joint, whose axial part adds nothing.
TEST(UtilityResults, JointResultsByType) {
    const CAcceptanceCriteria c = Factored();
    const CPulloutAndRotation open = Joint(0.001, 0.004, 0.0005, 0.01);
    const CPulloutAndRotation closing = Joint(0.002, 0.001, 0.001, 0.0);
    const double deg = 0.01 * 180.0 / kPi; // 0.5729577951308232 degrees
    const struct {
        const CPulloutAndRotation& joint;
        int type;
        double expected;
    } cases[] = {
        {open, 0, 0.001},    {open, 1, 0.004},     {open, 2, 0.003}, // 4 - 1 mm
        {open, 3, 0.0005},   {open, 4, 0.001},                       // 2 x 0.5 mm
        {open, 5, 0.004},                                            // 3 + 1 mm
        {open, 6, 0.009},                                            // 3 x 2 + 1 x 3 mm
        {open, 7, deg},      {open, 8, 1.5 * deg}, {open, 9, 0.001}, // the left pullout once more
        {open, 10, 0.0},     {closing, 5, 0.002}, // right - left = -1 mm: 2 x 1 mm alone
        {closing, 6, 0.006},                      // 2 mm x 3
    };
    for (const auto& k : cases)
        EXPECT_NEAR(k.joint.GetResult(static_cast<EUDResultType>(k.type), c), k.expected, 1e-15)
            << "type " << k.type;
    // With factors of 1: right - left = -1 mm and a flexural pullout of 2 mm give 4 mm.
    EXPECT_NEAR(Joint(0.003, 0.002, 0.002, 0.0).GetPulloutTotal_Factored(CAcceptanceCriteria()),
                0.004, 1e-15);
}

// Strain results by type, with and without the neglect flag, for a row in compression
// (-100 and 50 microstrain) and one in tension (+100 and 50).
TEST(UtilityResults, StrainResultsByType) {
    const CAcceptanceCriteria c = Factored();
    const CUtilityStrain comp = Row(-1e-4, 5e-5, 250.0);
    const CUtilityStrain tens = Row(1e-4, 5e-5, 250.0);
    const struct {
        const CUtilityStrain& row;
        int type;
        bool neglect;
        double expected;
    } cases[] = {
        {comp, 0, false, -1e-4},  {comp, 1, false, -4e-4}, // compression factor 4
        {comp, 2, false, 5e-5},   {comp, 3, true, 1.5e-4}, // flag set: tensile bending factor 3
        {comp, 3, false, 2.5e-4}, // flag clear: compressive bending factor 5
        {comp, 4, true, 50.0},    // axial not tensile, left out
        {comp, 4, false, -50.0},  // 50 - 100
        {comp, 5, true, 150.0},   // 50 x 3
        {comp, 5, false, -250.0}, // 150 - 400
        {comp, 6, true, -150.0},  // -100 - 50, whatever the flag
        {comp, 7, false, -650.0}, // -400 - 250
        {comp, 8, false, 250.0},  {comp, 9, false, 0.0},
        {tens, 1, false, 2e-4},                            // tension factor 2
        {tens, 4, true, 150.0},   {tens, 5, true, 350.0},  // 150 + 200
        {tens, 6, true, -50.0},                            // tensile axial left out
        {tens, 6, false, 50.0},                            // 100 - 50
        {tens, 7, true, -250.0},  {tens, 7, false, -50.0}, // 200 - 250
    };
    for (const auto& k : cases)
        EXPECT_NEAR(k.row.GetResult(static_cast<EStrainType>(k.type), c, k.neglect), k.expected,
                    1e-9 * std::max(1.0, std::fabs(k.expected)))
            << "type " << k.type << " neglect " << k.neglect;
}

// The joint verdict at and just above each threshold and limit, with flags off, for the
// factored pullout (5 and 10 mm), the factored rotation (0.5 and 1 degree) and another
// type, which is held against the allowable tensile strain (3 here, in its own units).
TEST(UtilityResults, JointVerdictAtThresholdsAndLimits) {
    const struct {
        int type;
        double value; // the joint's result of that type
        bool thresholdUsed, limitUsed, tensionUsed;
        int expected;
    } cases[] = {
        {6, 0.005, true, true, true, 0},    {6, 0.0051, true, true, true, 1},
        {6, 0.01, true, true, true, 1},     {6, 0.0101, true, true, true, 2},
        {6, 0.0051, false, true, true, 0},  {6, 0.0101, true, false, true, 1},
        {6, 0.0101, false, false, true, 0}, {8, 0.5, true, true, true, 0},
        {8, 0.51, true, true, true, 1},     {8, 1.0, true, true, true, 1},
        {8, 1.01, true, true, true, 2},     {8, 1.01, false, false, true, 0},
        {0, 3.0, true, true, true, 0},      {0, 3.01, true, true, true, 2},
        {0, 3.01, true, true, false, 0},    {7, 3.01, false, false, true, 2},
    };
    for (const auto& k : cases) {
        CAcceptanceCriteria c;
        c.SetPullout_Threshold(0.005);
        c.SetPullout_Limit(0.01);
        c.SetRotation_Threshold(0.5);
        c.SetRotation_Limit(1.0);
        c.SetAllowableStrain_Tension(3.0);
        c.SetPullout_Threshold_Used(k.thresholdUsed);
        c.SetRotation_Threshold_Used(k.thresholdUsed);
        c.SetPullout_Limit_Used(k.limitUsed);
        c.SetRotation_Limit_Used(k.limitUsed);
        c.SetAllowableStrain_Tension_Used(k.tensionUsed);
        CSpecificUtility u;
        // Rotations in degrees; the pullout as right - left; the left pullout itself.
        if (k.type == 8 || k.type == 7)
            u.SetPulloutAndRotation(0, 1, 1, Joint(0.0, 0.0, 0.0, k.value * kPi / 180.0));
        else if (k.type == 6)
            u.SetPulloutAndRotation(0, 1, 1, Joint(0.0, k.value, 0.0, 0.0));
        else
            u.SetPulloutAndRotation(0, 1, 1, Joint(k.value, k.value, 0.0, 0.0));
        EXPECT_EQ(u.GetPulloutOrRotationCategory(0, static_cast<EUDResultType>(k.type), c),
                  k.expected)
            << "type " << k.type << " value " << k.value;
    }
}

// The strain verdict. Strains of 2^-10 and 2^-11 are 976.5625 and 488.28125 microstrain
// exactly, so that a total can sit on its limit: 1464.84375 in tension (type 5) and in
// compression (type 7); 488.28125 in compression when a tensile axial part is neglected.
// Radii 100 (unflagged, first), 200 and 50 give a least radius of 50 (type 8).
TEST(UtilityResults, StrainVerdictAtLimits) {
    const double a = std::ldexp(1.0, -10), b = std::ldexp(1.0, -11);
    const struct {
        int type;
        double axial;
        bool neglect;
        double limit, threshold;
        bool used;
        int expected;
    } cases[] = {
        {5, a, false, 1464.84375, 0, true, 0}, {5, a, false, 1464.8, 0, true, 2},
        {5, a, false, 1464.8, 0, false, 0},    {7, -a, false, 1464.84375, 0, true, 0},
        {7, -a, false, 1464.8, 0, true, 2},    {7, a, true, 488.28125, 0, true, 0},
        {7, a, true, 488.0, 0, true, 2},       {7, a, false, 488.0, 0, true, 0},
        {8, a, false, 50.0, 50.0, true, 0},    {8, a, false, 50.0, 60.0, true, 1},
        {8, a, false, 51.0, 60.0, true, 2},    {8, a, false, 51.0, 60.0, false, 0},
        {0, a, false, 1e300, 0, true, 2},      {0, a, false, 1e300, 0, false, 0},
    };
    for (const auto& k : cases) {
        CAcceptanceCriteria c;
        c.SetAllowableStrain_Tension(k.limit);
        c.SetAllowableStrain_Compression(k.limit);
        c.SetRAD_Limit(k.limit);
        c.SetRAD_Threshold(k.threshold);
        c.SetAllowableStrain_Tension_Used(k.used);
        c.SetAllowableStrain_Compression_Used(k.used);
        c.SetRAD_Limit_Used(k.used);
        c.SetRAD_Threshold_Used(k.used);
        CSpecificUtility u;
        u.SetUtilityStrain(0, 1, Row(k.axial, b, 100.0, false));
        u.SetUtilityStrain(0, 2, Row(k.axial, b, 200.0));
        u.SetUtilityStrain(0, 3, Row(k.axial, b, 50.0));
        EXPECT_EQ(u.GetStrainCategory(0, static_cast<EStrainType>(k.type), c, k.neglect),
                  k.expected)
            << "type " << k.type << " limit " << k.limit;
    }
}

// The stores grow on Set with default rows, count by slot and over all slots, and say what
// they hold; the peaks of an empty slot are the lowest double.
TEST(UtilityResults, StoresGrowCountAndDelete) {
    const CAcceptanceCriteria c;
    CSpecificUtility u;
    EXPECT_FALSE(u.ResultsExist(-1));
    EXPECT_EQ(u.GetPulloutAndRotationVersion(0), 5);
    EXPECT_EQ(u.GetUtilityStrainVersion(0), 2);
    const double lowest = std::numeric_limits<double>::lowest();
    EXPECT_EQ(u.GetMaximumRotation_Factored(0, c), Vec2<double>(lowest, lowest));

    u.SetPulloutAndRotation(1, 2, 3, Joint(0.0, 0.002, 0.0, 0.03, 7.0));
    u.SetPulloutAndRotationIteration(1, 3, {Joint(0.0, 0.0, 0.0, 0.05, 9.0)});
    EXPECT_FALSE(u.PulloutAndRotationsExist(0));
    EXPECT_TRUE(u.PulloutAndRotationsExist(-1));
    EXPECT_FALSE(u.PulloutAndRotationExists(1, 1)); // grown, empty
    EXPECT_TRUE(u.PulloutAndRotationExists(1, 2));
    EXPECT_FALSE(u.PulloutAndRotationExists(1, 4));
    EXPECT_EQ(u.NumPulloutAndRotationIterations(1), 3);
    EXPECT_EQ(u.NumPulloutAndRotations(1, 2), 3);
    EXPECT_EQ(u.NumPulloutAndRotations(1), 4);
    EXPECT_TRUE(u.GetPulloutAndRotation(1, 2, 1) == CPulloutAndRotation());
    // Iteration 3 holds the larger rotation: 0.05 rad at 9 m.
    EXPECT_EQ(u.GetMaximumRotation_Factored(1, c), Vec2<double>(9.0, 0.05));
    EXPECT_EQ(u.GetMaxPulloutOrRotationValue(-1, ePulloutAxialRight, c), 0.002);
    EXPECT_EQ(u.GetMinPulloutOrRotationValue(1, ePulloutAxialRight, c), 0.0);

    u.SetUtilityStrain(2, 2, Row(1e-4, 0.0));
    EXPECT_EQ(u.NumUtilityStrains(2), 2);
    EXPECT_TRUE(u.UtilityStrainExists(2, 1));
    EXPECT_FALSE(u.UtilityStrainExists(2, 2)); // the count bounds the row from below
    Vec2<double> least;
    EXPECT_TRUE(u.GetMinRAD(2, least)); // the second row is flagged
    EXPECT_TRUE(u.ResultsExist(2));

    u.DeletePulloutAndRotationIteration(1, 1);
    EXPECT_EQ(u.NumPulloutAndRotations(1, 1), 3);
    u.DeletePulloutAndRotation(1, 1, 1);
    EXPECT_EQ(u.NumPulloutAndRotations(1), 3);
    u.DeleteUtilityStrain(2, 1);
    EXPECT_EQ(u.NumUtilityStrains(2), 1);
    u.DeleteResults(1);
    EXPECT_FALSE(u.PulloutAndRotationsExist(-1));
    EXPECT_TRUE(u.UtilityStrainsExist(-1));
    u.DeleteResults(-1);
    EXPECT_FALSE(u.ResultsExist(-1));
}
