#include "buildings/CBuildingDamageAssessment.h"
#include "buildings/CSpecificBuilding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;
using GeoGlobal::ECurvature;

namespace {

using A = CBuildingDamageAssessment;

// Default section of a 10 m high building (metres, m^4/m).
constexpr double kIHog = 1000.0 / 3.0;  // H^3/3
constexpr double kISag = 1000.0 / 12.0; // H^3/12
const double kNaN = std::numeric_limits<double>::quiet_NaN();

CTableT<double> Table(const std::vector<std::pair<double, double>>& rows) {
    CTableT<double> t;
    for (const auto& r : rows)
        t.AddPoint(r.first, r.second);
    return t;
}

CSplineT<double> Spline(const std::vector<std::pair<double, double>>& rows) {
    return CSplineT<double>(Table(rows));
}

} // namespace

// The two zone formulas at points where every term counts. Factors for H = 10, E/G = 2.6:
//  hogging (t = y = 10, I = 1000/3), L = 20: diagonal H L L/(18 I)/(E/G) + 1 = 0.6667/2.6 + 1
//  = 1.25641; bending I 3/(2 y L H) E/G + L/(12 t) = 0.25 * 2.6 + 20/120 = 0.816667.
//  hogging, L = 2: diagonal 1 + 0.006667/2.6 = 1.002564; bending 2.5 * 2.6 + 2/120 = 6.516667.
// Root (eps - (1 - nu) h/2)^2 - ((1 + nu)/2)^2 h^2 = (eps - h)(eps + nu h), nu = 0.3:
//  eps 0.00075, h 0.0002: 0.00055 * 0.00081 = 4.455e-7, root 6.674579e-4;
//    L = 20: D = 8.386009e-4, B = 0.816667 * 0.00055 = 4.491667e-4 -> B (bending governs);
//    L = 2:  D = 6.691693e-4, B = 6.516667 * 0.00055 = 3.584167e-3 -> D (shear governs).
//  eps 0.00075, h -0.001 (compression): 0.00175 * 0.00045 = 7.875e-7, root 8.874120e-4;
//    L = 2: D = 8.896874e-4, B = 6.516667 * 0.00175 = 0.011404 -> D.
//  eps 0.00075, h -0.003, below -eps/nu = -0.0025: root's argument < 0, raised to 0 -> 0.
//  eps 0.00075, h 0.001 above eps (tension): argument < 0, D not a number, so
//    B = 0.816667 * (0.00075 - 0.001) = -2.041667e-4 stands.
TEST(BuildingDamageZones, AllowableDeflectionRatio) {
    struct {
        bool tension;
        double L, t, y, I, h, expected;
    } cases[] = {
        {true, 20, 10, 10, kIHog, 0.0002, 4.4916666666666667e-4},
        {true, 2, 10, 10, kIHog, 0.0002, 6.691692942587087e-4},
        {false, 2, 10, 10, kIHog, -0.001, 8.896873827661346e-4},
        {false, 2, 10, 10, kIHog, -0.003, 0.0},
        {true, 20, 10, 10, kIHog, 0.001, -2.0416666666666668e-4},
    };
    for (const auto& c : cases) {
        const double got =
            c.tension ? A::TensionZoneDeflectionRatio(c.L, 10, 2.6, 0.3, c.t, c.y, c.I, 0.00075,
                                                      c.h, GeoGlobal::eHogging)
                      : A::CompressionZoneDeflectionRatio(c.L, 10, 2.6, 0.3, c.t, c.y, c.I, 0.00075,
                                                          c.h, GeoGlobal::eHogging);
        EXPECT_NEAR(got, c.expected, 1e-15) << c.L << " " << c.h;
    }
}

// With h = 0 the allowable deflection ratio of limit k is eps_k * min(1.25641, 0.816667) =
// eps_k * 49/60 (hogging, L = 20, H = 10, E/G = 2.6, nu = 0.3): 4.083333e-4, 6.125e-4,
// 1.225e-3, 2.45e-3. A deflection ratio just above A_k is category k, just below k - 1.
TEST(BuildingDamageCategory, JustAboveAndBelowEachLimit) {
    const CDamageCategoryStrains burland;
    struct {
        double deflectionRatio;
        int category;
    } cases[] = {
        {0.0, 0},
        {4.0833333333333333e-4 * (1 - 1e-9), 0},
        {4.0833333333333333e-4 * (1 + 1e-9), 1},
        {6.125e-4 * (1 - 1e-9), 1},
        {6.125e-4 * (1 + 1e-9), 2},
        {1.225e-3 * (1 - 1e-9), 2},
        {1.225e-3 * (1 + 1e-9), 3},
        {2.45e-3 * (1 - 1e-9), 3},
        {2.45e-3 * (1 + 1e-9), 4},
        {1.0, 4}, // never above 4
    };
    for (const auto& c : cases) {
        CBuildingDamageResult r;
        r.SetDeflectionRatio(c.deflectionRatio);
        A::BuildingDamageCategory(burland, 0.0, 20, 10, 2.6, 0.3, 10, 10, kIHog,
                                  GeoGlobal::eHogging, r);
        EXPECT_EQ(r.GetDamageCategory(), c.category) << c.deflectionRatio;
    }
}

// Horizontal strains that decide the category by themselves:
//  - h = 0.001 lies above limits 1 and 2 (0.0005, 0.00075): the bending part of limit 2 is
//    negative, so even no deflection is category 2;
//  - h = -0.02 lies below -eps/nu for every limit (-0.01 for limit 4 at nu = 0.3): each
//    allowable ratio is 0, so any positive deflection is category 4 and none is 0;
//  - h not a number: no formula is tried and the category stays as it was.
TEST(BuildingDamageCategory, HorizontalStrainBeyondTheLimits) {
    const CDamageCategoryStrains burland;
    struct {
        double h, deflectionRatio;
        int category;
    } cases[] = {
        {0.001, 0.0, 2},
        {-0.02, 1e-12, 4},
        {-0.02, 0.0, 0},
        {kNaN, 1.0, 0},
    };
    for (const auto& c : cases) {
        CBuildingDamageResult r;
        r.SetDeflectionRatio(c.deflectionRatio);
        A::BuildingDamageCategory(burland, c.h, 20, 10, 2.6, 0.3, 10, 10, kIHog,
                                  GeoGlobal::eHogging, r);
        EXPECT_EQ(r.GetDamageCategory(), c.category) << c.h << " " << c.deflectionRatio;
    }
}

// The strain at which the allowable ratio equals the actual one (hogging, L = 20, H = 10,
// E/G = 2.6, nu = 0.3), to the bisection's resolution of 1e-9:
//  h = 0: eps = T * 60/49; T = 1e-3 -> 1.2244898e-3 (no doubling of 0.003), T = 0.01 ->
//    0.012244898 (0.003 doubled three times);
//  h = 0.0002, T = 1e-3, bending governs: eps = T / 0.816667 + h = 1.4244898e-3 (the
//    diagonal part there is 1.694e-3, above T).
// The compressive strain with that eps as limit is where the root's factor eps + nu h falls
// to zero, h = -eps/nu: -1.2244898e-3/0.3 = -4.0816327e-3.
TEST(BuildingDamageStrains, BisectionsReachTheWorkedStrain) {
    const CDamageCategoryStrains burland;
    struct {
        double h, T, tensile;
    } cases[] = {
        {0.0, 1e-3, 1.2244897959183675e-3},
        {0.0, 0.01, 1.2244897959183675e-2},
        {0.0002, 1e-3, 1.4244897959183676e-3},
    };
    for (const auto& c : cases) {
        EXPECT_NEAR(A::MaxTensileStrain(burland, GeoGlobal::eHogging, 20, 10, 2.6, 0.3, 10, 10,
                                        kIHog, c.h, c.T),
                    c.tensile, 1e-9)
            << c.h << " " << c.T;
    }
    EXPECT_NEAR(A::MaxCompressiveStrain(burland, GeoGlobal::eHogging, 20, 10, 2.6, 0.3, 10, 10,
                                        kIHog, 0.0, 1e-3),
                -4.081632653061225e-3, 1e-8);
}

// Strain searches end whatever the inputs, where the loops as written would turn for ever.
//  - Poisson's ratio 0: the compression formula's root is eps (eps + s), never 0 in exact
//    arithmetic; in doubles the doubling stops only where the root's argument is lost to
//    rounding, at a compressive strain far beyond any physical one, where the halving
//    stalls on neighbouring doubles. Never a NaN.
//  - Poisson's ratio -0.1: the root is (eps + s)(eps + 0.1 s), never 0; the doubling stops
//    where s^2 overflows (s about 1e154), and the halving stalls there.
//  - A deflection ratio of 1e10: near eps = 1.22e10 neighbouring doubles lie 2e-6 apart,
//    above the 1e-9 width, and the halving stalls; the result is still T * 60/49 to the
//    precision of a double.
TEST(BuildingDamageStrains, SearchesAlwaysEnd) {
    const CDamageCategoryStrains burland;
    const double tensile = A::MaxTensileStrain(burland, GeoGlobal::eHogging, 20, 10, 2.6, 0.0, 10,
                                               10, kIHog, 0.0, 1e-3);
    EXPECT_NEAR(tensile, 1.2244897959183675e-3, 1e-9); // min(1.25641, 0.816667) as nu = 0.3
    struct {
        double nu, h, T;
    } cases[] = {
        {0.0, 0.0, 1e-3},  {0.0, 1e-4, 0.0},   {0.0, -1e-4, 1e-6},
        {-0.1, 0.0, 1e-3}, {-0.1, -1e-4, 0.0},
    };
    for (const auto& c : cases) {
        const double compressive = A::MaxCompressiveStrain(burland, GeoGlobal::eHogging, 20, 10,
                                                           2.6, c.nu, 10, 10, kIHog, c.h, c.T);
        EXPECT_FALSE(std::isnan(compressive)) << c.nu << " " << c.h << " " << c.T;
        EXPECT_LT(compressive, -1e6) << c.nu << " " << c.h << " " << c.T;
    }

    const double huge = A::MaxTensileStrain(burland, GeoGlobal::eHogging, 20, 10, 2.6, 0.3, 10, 10,
                                            kIHog, 0.0, 1e10);
    EXPECT_NEAR(huge / 12244897959.183674, 1.0, 1e-12);
}

// Section values: with default properties a rectangle of H (10 m): hogging I = H^3/3 =
// 333.33, t = y = 10; sagging and no curvature I = H^3/12 = 83.33, t = y = 5, whatever is
// stored. With stored values, a curvature of 2 reads the fields that follow the two-entry
// arrays: I the first strain from NA, y the first NA from tension edge, t the sensitivity.
TEST(BuildingDamageSection, DefaultAndStoredValues) {
    CBuildingDamageProperties p;
    p.SetI(GeoGlobal::eHogging, 1.0);
    p.SetI(GeoGlobal::eSagging, 2.0);
    p.SetStrainFromNA(GeoGlobal::eHogging, 3.0);
    p.SetStrainFromNA(GeoGlobal::eSagging, 4.0);
    p.SetNAFromTensionEdge(GeoGlobal::eHogging, 5.0);
    p.SetNAFromTensionEdge(GeoGlobal::eSagging, 6.0);
    p.SetEndVDispSensitivity(7.0);
    struct {
        bool defaults;
        ECurvature c;
        double t, y, I;
    } cases[] = {
        {true, GeoGlobal::eHogging, 10, 10, 1000.0 / 3},
        {true, GeoGlobal::eSagging, 5, 5, 1000.0 / 12},
        {true, GeoGlobal::eNoCurvature, 5, 5, 1000.0 / 12},
        {false, GeoGlobal::eHogging, 5, 3, 1},
        {false, GeoGlobal::eSagging, 6, 4, 2},
        {false, GeoGlobal::eNoCurvature, 7, 5, 3},
    };
    for (const auto& c : cases) {
        p.SetDefaultProperties(c.defaults);
        double t = 0, y = 0, I = 0;
        A::SectionValues(p, c.c, 10.0, t, y, I);
        EXPECT_DOUBLE_EQ(t, c.t) << c.defaults << c.c;
        EXPECT_DOUBLE_EQ(y, c.y) << c.defaults << c.c;
        EXPECT_DOUBLE_EQ(I, c.I) << c.defaults << c.c;
    }
}

// Steepest chord g = (ya - yb)/(xb - xa) over pairs with an end in [from, to]:
// rows (0,0) (1,1) (2,4) (3,4) (4,0) give g = -1, -3, 0, 4.
TEST(BuildingDamageGradient, PairsWithAnEndInTheInterval) {
    const CTableT<double> t = Table({{0, 0}, {1, 1}, {2, 4}, {3, 4}, {4, 0}});
    struct {
        double from, to, start;
        bool found;
        double gradient;
    } cases[] = {
        {0, 4, 0, true, 4},      // the largest in size, sign kept
        {0, 1, 0, true, -3},     // (1, 2) counts through its first end
        {2.5, 2.7, 9, false, 9}, // (2, 3) only straddles: nothing, value left as it came
        {3, 3, 0, true, 4},      // (2, 3) gives 0, then (3, 4) gives 4
        {1, 1, 0, true, -3},
    };
    for (const auto& c : cases) {
        bool found = !c.found;
        double g = c.start;
        A::MaximumGradientOfCurve(t, c.from, c.to, found, g);
        EXPECT_EQ(found, c.found) << c.from << " " << c.to;
        EXPECT_EQ(g, c.gradient) << c.from << " " << c.to;
    }
    // Equal sizes: the first stays.
    bool found = false;
    double g = 0;
    A::MaximumGradientOfCurve(Table({{0, 0}, {1, 1}, {2, 0}}), 0, 2, found, g);
    EXPECT_EQ(g, -1.0);
}

// A straight segment under a uniform settlement of 10 mm: no deflection, no curvature, no
// horizontal strain, category 0, and the tensile strain search ends at its resolution.
TEST(BuildingDamageResults, UniformSettlementIsOneUndamagedSegment) {
    const CSplineT<double> v = Spline({{0, 0.01}, {10, 0.01}, {20, 0.01}});
    const CSplineT<double> zero = Spline({{0, 0}, {20, 0}});
    const CSplineT<double> map = Spline({{0, 0}, {20, 20}});
    std::vector<CBuildingDamageResult> results(3);
    A::BuildingDamageResults(true, CDamageCategoryStrains(), CBuildingDamageProperties(), 10.0,
                             zero, v, zero, map, v, zero, {0.0, 20.0}, results);
    ASSERT_EQ(results.size(), 1u);
    const CBuildingDamageResult& r = results[0];
    EXPECT_EQ(r.GetCurvature(), GeoGlobal::eNoCurvature);
    EXPECT_EQ(r.GetDeflectionRatio(), 0.0);
    EXPECT_EQ(r.GetHStrain(), 0.0);
    EXPECT_EQ(r.GetMaxSettlement(), 0.01);
    EXPECT_EQ(r.GetDamageCategory(), 0);
    EXPECT_EQ(r.GetStart(), 0.0);
    EXPECT_EQ(r.GetEnd(), 20.0);
    EXPECT_TRUE(r.GetMaxGradientOfVDispCurveSet());
    EXPECT_EQ(r.GetMaxGradientOfVDispCurve(), 0.0);
    EXPECT_GE(r.GetMaxTensileStrain(), 0.0);
    EXPECT_LT(r.GetMaxTensileStrain(), 1e-9);
    EXPECT_TRUE(r.GetStartOfCombinedSegment());
}

// A hogging then a sagging segment, with horizontal movement, so that deformed and
// undeformed distances differ. Undeformed x = 0, 5, 10, 15, 20 with h = 0, 0.5, 1, 0.5, 0 mm,
// so x' = x + h = 0, 5.0005, 10.001, 15.0005, 20; settlement v = 10, 4, 9, 16, 6 mm at those
// x'; curvature table -1e-4, -3e-4, 2e-4 at x' = 0, 10.001, 20; boundaries 0, 10.001, 20.
// Properties: defaults (nu 0.2, E/G 2.6, H 10).
//
// Segment 1, [0, 10.001]: va = 10, vb = 9 mm, chord at mid-segment 9.5 > 4 + 1 mm:
//  hogging. h strain (1 - 0)/10 mm/m = 1e-4. Samples x_i = 10.001 i/99; the largest distance
//  from the chord is at i = 49 and 50 (either side of the kink at 5.0005): 6 * 98/99 -
//  1 * 49/99 = 53.9/99 mm = 5.444444e-3 m; deflection ratio over the deformed length
//  5.444444e-3/10.001 = 5.443900e-4. Largest |v| 10 mm (i = 0). |curvature| 1e-4 to 3e-4.
//  Gradients: h pairs -0.5/5.0005, -0.5/5.0005, +0.5/4.9995 mm/m -> 1.0001e-4 (the pair
//  from 10.001 counts by its first end); v pairs 6/5.0005, -5/5.0005, -7/4.9995 ->
//  -1.4001400e-3. Start 0, end 10, L = 10.
//  Hogging section t = y = 10, I = 333.33; tension (h > 0): diagonal factor 1.0641026,
//  bending 1.3833333; allowable at limit 1: min(1.0641026 sqrt((0.0005 - 4e-5)^2 -
//  0.36e-8), 1.3833333 * 0.0004) = 4.853054e-4, at limit 2: 7.528103e-4: category 1.
//  Tensile strain (diagonal governs): eps = 4e-5 + sqrt((T/1.0641026)^2 + 0.36e-8) =
//  5.551018e-4; compressive -eps/nu = -2.775509e-3.
// Segment 2, [10.001, 20]: va = 9, vb = 6, mid 16 > 7.5 + 1: sagging. h strain (0 - 1)/10 =
//  -1e-4. Largest distance from the chord 7 * 98/99 + 3 * 49/99 = 83.3/99 mm =
//  8.414141e-3 m, over 9.999: 8.414983e-4. Largest |v| 9 + 7 * 98/99 = 15.929293 mm.
//  Curvature -3e-4 to 2e-4, zero at i = 59.4: min |c| = 5e-4 * 0.4/99 = 2.020202e-6, max 3e-4.
//  Gradients: v pairs -5/5.0005, -7/4.9995, +10/4.9995 -> 2.0002e-3; h -> 1.0001e-4.
//  Start 10, end 20. Sagging section t = y = 5, I = 83.33; compression (h < 0): diagonal
//  factor 1.2564103, bending 0.8166667; allowable at limit 2: min(1.2564103
//  sqrt(8.5e-4 * 7.3e-4), 0.8166667 * 8.5e-4) = 6.941667e-4, at limit 3: 1.306667e-3:
//  category 2. Tensile strain (bending governs): T/0.8166667 - 1e-4 = 9.304061e-4;
//  compressive -4.652030e-3.
TEST(BuildingDamageResults, HoggingThenSaggingSegment) {
    const std::vector<double> xd = {0, 5.0005, 10.001, 15.0005, 20};
    const std::vector<double> xu = {0, 5, 10, 15, 20};
    const std::vector<double> h = {0, 0.0005, 0.001, 0.0005, 0};
    const std::vector<double> v = {0.010, 0.004, 0.009, 0.016, 0.006};
    CSplineT<double> hCurve, map, vCurve;
    CTableT<double> hTable;
    for (size_t k = 0; k < xd.size(); ++k) {
        hCurve.AddPoint(xu[k], h[k]);
        hTable.AddPoint(xd[k], h[k]);
        map.AddPoint(xd[k], xu[k]);
        vCurve.AddPoint(xd[k], v[k]);
    }
    const CTableT<double> curvature = Table({{0, -1e-4}, {10.001, -3e-4}, {20, 2e-4}});
    std::vector<CBuildingDamageResult> results;
    A::BuildingDamageResults(true, CDamageCategoryStrains(), CBuildingDamageProperties(), 10.0,
                             hTable, vCurve, hCurve, map, vCurve, curvature, {0.0, 10.001, 20.0},
                             results);
    ASSERT_EQ(results.size(), 2u);

    struct {
        ECurvature curvature;
        double hStrain, deflectionRatio, maxSettlement, maxCurvature, minCurvature, hGradient,
            vGradient, start, end;
        int category;
        double tensile, compressive;
    } expected[] = {
        {GeoGlobal::eHogging, 1e-4, 5.443900054439001e-4, 0.010, 3e-4, 1e-4, 1.0001000100010001e-4,
         -1.4001400140014003e-3, 0, 10, 1, 5.551018158824895e-4, -2.7755090794124473e-3},
        {GeoGlobal::eSagging, -1e-4, 8.414982912432657e-4, 0.01592929292929293, 3e-4,
         2.02020202020202e-06, 1.0001000100010001e-4, 2.000200020002e-3, 10, 20, 2,
         9.304060709101212e-4, -4.652030354550606e-3},
    };
    for (size_t k = 0; k < 2; ++k) {
        const CBuildingDamageResult& r = results[k];
        const auto& e = expected[k];
        SCOPED_TRACE(k);
        EXPECT_EQ(r.GetCurvature(), e.curvature);
        EXPECT_NEAR(r.GetHStrain(), e.hStrain, 1e-16);
        EXPECT_NEAR(r.GetDeflectionRatio(), e.deflectionRatio, 1e-15);
        EXPECT_NEAR(r.GetMaxSettlement(), e.maxSettlement, 1e-15);
        EXPECT_NEAR(r.GetMaxCurvature(), e.maxCurvature, 1e-17);
        EXPECT_NEAR(r.GetMinCurvature(), e.minCurvature, 1e-17);
        EXPECT_TRUE(r.GetMaxGradientOfHDispCurveSet());
        EXPECT_NEAR(r.GetMaxGradientOfHDispCurve(), e.hGradient, 1e-16);
        EXPECT_TRUE(r.GetMaxGradientOfVDispCurveSet());
        EXPECT_NEAR(r.GetMaxGradientOfVDispCurve(), e.vGradient, 1e-15);
        EXPECT_NEAR(r.GetStart(), e.start, 1e-12);
        EXPECT_NEAR(r.GetEnd(), e.end, 1e-12);
        EXPECT_EQ(r.GetDamageCategory(), e.category);
        EXPECT_NEAR(r.GetMaxTensileStrain(), e.tensile, 2e-9);
        EXPECT_NEAR(r.GetMaxCompressiveStrain(), e.compressive, 1e-8);
        EXPECT_TRUE(r.GetStartOfCombinedSegment());
    }

    // A generic building with L/H = 1 has H = L = 10 in each segment: the same results.
    std::vector<CBuildingDamageResult> generic;
    A::BuildingDamageResults(false, CDamageCategoryStrains(), CBuildingDamageProperties(), 1.0,
                             hTable, vCurve, hCurve, map, vCurve, curvature, {0.0, 10.001, 20.0},
                             generic);
    EXPECT_EQ(generic, results);
}

// A segment of zero length (two equal boundaries): no deflection, no horizontal strain,
// category 0; and a run with a Poisson's ratio of 0 ends, with no strain that is not a
// number.
TEST(BuildingDamageResults, ZeroLengthSegmentAndPoissonsRatioZero) {
    const CSplineT<double> v = Spline({{0, 0.01}, {10, 0.02}, {20, 0.01}});
    const CSplineT<double> hCurve = Spline({{0, 0}, {20, 0.002}});
    const CSplineT<double> map = Spline({{0, 0}, {20, 20}});
    const CTableT<double> curvature = Table({{0, -2e-4}, {20, -2e-4}});
    CBuildingDamageProperties p;
    p.SetPoissonsRatio(0.0);
    std::vector<CBuildingDamageResult> results;
    A::BuildingDamageResults(true, CDamageCategoryStrains(), p, 10.0, hCurve, v, hCurve, map, v,
                             curvature, {5.0, 5.0, 20.0}, results);
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].GetDeflectionRatio(), 0.0);
    EXPECT_EQ(results[0].GetHStrain(), 0.0);
    EXPECT_EQ(results[0].GetDamageCategory(), 0);
    for (const auto& r : results) {
        EXPECT_FALSE(std::isnan(r.GetMaxTensileStrain()));
        EXPECT_LT(r.GetMaxCompressiveStrain(), -1e6);
    }
}

// Bending and diagonal strains of a specific building's hogging segment, L = 20, H = 10,
// default properties (nu 0.2, E/G 2.6), deflection ratio 1e-3, h = 2e-4:
//  bending = 1e-3 / (333.33 * 3/(2 * 10 * 20 * 10) * 2.6 + 20/120) = 1e-3/0.816667 =
//    1.2244898e-3; with h: 1.4244898e-3;
//  diagonal = 1e-3 / (20 * 10 * 20/(333.33 * 18 * 2.6) + 1) = 1e-3/1.2564103 = 7.9591837e-4;
//    with h: sqrt(4e-8 * 0.36 + 6.3348605e-7) + 0.4 * 2e-4 = 8.8491369e-4.
TEST(BuildingDamageStrains, BendingDiagonalComponents) {
    CSpecificBuilding building;
    CBuildingDamageResult r;
    r.SetStart(5);
    r.SetEnd(25);
    r.SetCurvature(GeoGlobal::eHogging);
    struct {
        bool withH;
        double bending, diagonal;
    } cases[] = {
        {false, 1.2244897959183675e-3, 7.959183673469388e-4},
        {true, 1.4244897959183676e-3, 8.849136894600667e-4},
    };
    for (const auto& c : cases) {
        double bending = 0, diagonal = 0;
        A::BendingDiagonalComponents(building, r, 2e-4, 1e-3, bending, diagonal, c.withH);
        EXPECT_NEAR(bending, c.bending, 1e-18) << c.withH;
        EXPECT_NEAR(diagonal, c.diagonal, 1e-18) << c.withH;
    }
}
