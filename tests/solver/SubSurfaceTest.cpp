// Sub-surface movements of tunnels by the methods of Mair et al., New and Bowers, and
// Harris and Alvarado, through the point calculation tun21_ with ESurfaceType 1.
#include "solver/ZorvoCal.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

// Throughout: one tunnel along X from (-1000, 0) to (1000, 0), L = 2000 m, axis at
// level 0, ground at 30 m (z0 = 30), D = 6 m, volume loss 1.5 %, one layer of clay, so
// A0 = 9 pi = 28.274334 m2. Points 10 m above the axis (h = 10, r = 0.5 D + h = 13) and
// 4 m to the side (y' = 4): at mid-length (x' = 1000) the longitudinal factors are
// F1 - F2 = 1 and E1 = E2 = 0; at the far end face (x' = L) F1 - F2 = 1 - 0.5,
// E1 = 0 and E2 = 1 (u2 = 0). The tunnel's axes are the global ones.
const double kMm = 1e-9;      // millimetres
const double kStrain = 1e-12; // scaled strain
const double kAngle = 1e-9;   // radians

GeoTunnel Tunnel(GeoTunnel::ESubSurfaceMethod method) {
    GeoTunnel t;
    t.SetXCentreLine1(-1000.0);
    t.SetYCentreLine1(0.0);
    t.SetXCentreLine2(1000.0);
    t.SetYCentreLine2(0.0);
    t.SetZCentreLine1(0.0);
    t.SetZCentreLine2(0.0);
    t.SetGroundLevel1(30.0);
    t.SetGroundLevel2(30.0);
    t.SetDiameter(6.0);
    t.SetPercentLoss(1.5);
    t.SetSoilType(GeoTunnel::eCohesive);
    t.SetNumLayers(1);
    t.SetSubSurfaceMethod(method);
    t.Setk(eSubSurface, 0.5);
    t.SetkDerivation(eSubSurface, GeoTunnel::ekUserSpecified);
    t.Setm(0.5);
    return t;
}

Movement At(const ZorvoData& doc, double x, double y, double z) {
    return MovementAt(doc, 0, x, y, z, eSubSurface);
}

void ExpectMovement(const Movement& m, const Movement& e, const char* what) {
    EXPECT_NEAR(m.Sz, e.Sz, kMm) << what;
    EXPECT_NEAR(m.dx, e.dx, kMm) << what;
    EXPECT_NEAR(m.dy, e.dy, kMm) << what;
    EXPECT_NEAR(m.major, e.major, kStrain) << what;
    EXPECT_NEAR(m.minor, e.minor, kStrain) << what;
    EXPECT_NEAR(m.angle, e.angle, kAngle) << what;
}

} // namespace

TEST(SubSurface, MethodsAboveTheAxis) {
    // The strains: e1 = -B Ey P, e2 = Q Sz / h, e3 = ((E1 - E2) B Ey + Sx / i)(-y') / i,
    // scaled by 0.1, reduced to principal values. At mid-length e1 = e3 = 0, so the
    // major strain is 0 and the minor 0.1 e2 with Q = (y'/i)^2 - 1.
    const auto kMair = GeoTunnel::eMair, kNewBowers = GeoTunnel::eNewAndBowers,
               kHarris = GeoTunnel::eHarrisAndAlvarado;
    const auto kUser = GeoTunnel::ekUserSpecified, kOReilly = GeoTunnel::ekOReillyAndNew;
    // Each row: the method, the width's derivation, the ground level, x (0 at mid-length,
    // 1000 at the end face), then Sz, Sx, Sy (mm), the major and minor strains and the angle.
    struct {
        GeoTunnel::ESubSurfaceMethod method;
        GeoTunnel::EkDerivation derivation;
        double ground, x, Sz, dx, dy, major, minor, angle;
    } cases[] = {
        // Mair et al.: i = 10 x 0.325 + 30 x 0.175 = 8.5;
        // Smax = A0 x 10 x 1.5 / (8.5 sqrt(2 pi)) = 19.905577 mm.
        // Mid: Sz = Smax exp(-0.5 (4/8.5)^2) = 17.819143; Sy = 4 (-0.325) Sz / 8.5.
        {kMair, kUser, 30.0, 0.0, 17.819142913282985, 0.0, -2.725280680855045, 0.0,
         -0.13873035140099207, 0.0},
        // Face: Sz halves; Sx = -i B Ey with B = Smax / (10 sqrt(2 pi)), scaled by
        // (z0 - d) / (z0 / 0.65 - d) with d = 30 - 10 = 20: 10 / 26.153846.
        {kMair, kUser, 30.0, 1000.0, 8.909571456641492, -2.3103630903028467, -1.3626403404275225,
         0.0070008915440039066, -0.07636606724449994, 0.2940048362662633},
        // New and Bowers with user-specified k = 0.5: Get_i gives k h = 5, reset to
        // i = r k = 6.5. V = A0 x 0.015 = 0.424115 m3/m. W = erf(+-108.8) = 2,
        // U = erf(2 / 18.384776) - erf(14 / 18.384776) = 0.122190 - 0.718754;
        // Sz = V / 24 x (-1000) W U; C = 0.5 V / (12 sqrt(2 pi));
        // Sy = (exp(-14^2 / 338) - exp(-2^2 / 338)) x 1000 C W. B and Ey keep i = 5.
        {kNewBowers, kUser, 30.0, 0.0, 21.072027267427405, 0.0, -6.038525792201192, 0.0,
         -0.1309208794721821, 0.0},
        // Face: W = 1; Sx = (0 - 1)(-1000 C) U; e3 with the new i = 6.5 and the old
        // B = Smax(i = 5) / (10 sqrt(2 pi)), Ey = exp(-0.5 (4/5)^2).
        {kNewBowers, kUser, 30.0, 1000.0, 10.536013633713702, -4.20326130537433, -3.019262896100596,
         0.02708024573910619, -0.09254068547519723, 0.4958712098732036},
        // New and Bowers with O'Reilly and New: i = 0.43 x 10 + 1.1 = 5.4 stays, and the
        // effective k = 5.4 / 13 enters C.
        {kNewBowers, kOReilly, 30.0, 0.0, 23.263074514360778, 0.0, -6.45858515355272, 0.0,
         -0.10498698923490668, 0.0},
        {kNewBowers, kOReilly, 30.0, 1000.0, 11.631537257180389, -3.855028429069286,
         -3.22929257677636, 0.04073835019021295, -0.09323184480766629, 0.5840884529419765},
        // Harris and Alvarado, z0 = 30: the second factor (1 - 0/30)^0.8 is 1, so
        // i = 12.5 (13/33)^0.5 = 7.845574. Mid: Sz = Smax exp(-16 / (2 i^2)),
        // Sy = -0.5 Smax (4/13) exp(-16 / (2 i^2)).
        {kHarris, kUser, 30.0, 0.0, 18.93756201546292, 0.0, -2.9134710793019876, 0.0,
         -0.14014961279874283, 0.0},
        // Face: Sx = -exp(-16 / (2 i^2)) x 0.5 x 1000 A0 x 1.5 / (200 pi 13).
        {kHarris, kUser, 30.0, 1000.0, 9.46878100773146, -2.2797409750715336, -1.4567355396509938,
         0.008993610644029398, -0.07906841704340081, 0.3252808579223159},
        // Ground at 20 m: i = 12.5 (2/3)^0.8 (13/23)^0.5 = 6.794301.
        {kHarris, kUser, 20.0, 0.0, 20.940419647896267, 0.0, -3.221603022753272, 0.0,
         -0.13682438504109656, 0.0},
        {kHarris, kUser, 20.0, 1000.0, 10.470209823948133, -2.1830659833231536, -1.610801511376636,
         0.0140579755202931, -0.08247016804084138, 0.3915514298600151},
    };
    for (const auto& c : cases) {
        GeoTunnel t = Tunnel(c.method);
        t.SetkDerivation(eSubSurface, c.derivation);
        t.SetGroundLevel1(c.ground);
        t.SetGroundLevel2(c.ground);
        ExpectMovement(At(OneTunnel(t), c.x, 4.0, 10.0),
                       {c.Sz, c.dx, c.dy, c.major, c.minor, c.angle},
                       ("row " + std::to_string(&c - cases)).c_str());
    }
}

TEST(SubSurface, GuardsThatSkipATunnel) {
    // A skipped tunnel leaves the point as a project without it would.
    const Movement none = At(ZorvoData(), 1000.0, 4.0, 0.0);
    struct {
        const char* what;
        GeoTunnel::ESubSurfaceMethod method;
        double z; // metres, the axis at 0 and D / 2 = 3
        bool skipped;
    } cases[] = {
        {"Harris and Alvarado at the axis", GeoTunnel::eHarrisAndAlvarado, 0.0, true},
        {"Harris and Alvarado below the axis", GeoTunnel::eHarrisAndAlvarado, -1.0, true},
        {"Harris and Alvarado just above the axis", GeoTunnel::eHarrisAndAlvarado, 0.01, false},
        {"Mair et al. at the invert", GeoTunnel::eMair, -3.0, true},
        {"Mair et al. below the invert", GeoTunnel::eMair, -3.5, true},
        {"Mair et al. just above the invert", GeoTunnel::eMair, -2.9, false},
        // No guard for New and Bowers: below the axis with O'Reilly and New's
        // i = 0.43 (-0.5) + 1.1 = 0.885 m it still contributes.
        {"New and Bowers below the axis", GeoTunnel::eNewAndBowers, -0.5, false},
    };
    for (const auto& c : cases) {
        GeoTunnel t = Tunnel(c.method);
        t.SetkDerivation(eSubSurface, GeoTunnel::ekOReillyAndNew);
        const Movement m = At(OneTunnel(t), 1000.0, 4.0, c.z);
        if (c.skipped) {
            EXPECT_EQ(m.Sz, none.Sz) << c.what;
            EXPECT_EQ(m.dx, none.dx) << c.what;
            EXPECT_EQ(m.dy, none.dy) << c.what;
            EXPECT_EQ(m.major, none.major) << c.what;
            EXPECT_EQ(m.minor, none.minor) << c.what;
            EXPECT_EQ(m.angle, none.angle) << c.what;
        } else {
            EXPECT_NE(m.major, none.major) << c.what;
        }
    }

    // Mair et al. 2.9 m below the axis is not skipped but has h <= 0: no displacement,
    // and the strain of the division. At the face e1 = e2 = 0 and
    // e3 = -B Ey (-4 / i) with i = -2.9 x 0.325 + 5.25 = 4.3075 and
    // B = Smax / (-2.9 sqrt(2 pi)): principal strains +-0.1 |e3| / 2 at -45 degrees.
    const Movement below = At(OneTunnel(Tunnel(GeoTunnel::eMair)), 1000.0, 4.0, -2.9);
    ExpectMovement(below,
                   {0.0, 0.0, 0.0, 0.16301755655957045, -0.16301755655957045, -0.7853981633974483},
                   "Mair et al. 2.9 m below the axis");
}

TEST(SubSurface, ErrorFunctionSeriesAtItsEnds) {
    // erf by thirty terms of its series, and exactly +-1 from |a| = 3.
    struct {
        double a, expected, tolerance;
    } cases[] = {
        {0.0, 0.0, 0.0},
        {0.5, 0.5204998778130465, 1e-15},
        {-1.2, -0.9103139782296353, 1e-15},
        {2.5, 0.9995930479825550, 1e-9},
        {2.99, 0.9999764743969194, 1e-5}, // the series has not settled this far out
        {3.0, 1.0, 0.0},
        {-3.0, -1.0, 0.0},
        {7.0, 1.0, 0.0},
    };
    for (const auto& c : cases) {
        double r = 99.0;
        ZorvoCal::tun25a_(c.a, r, 30);
        if (c.tolerance == 0.0) {
            EXPECT_EQ(r, c.expected) << c.a;
        } else {
            EXPECT_NEAR(r, c.expected, c.tolerance) << c.a;
        }
    }
}

TEST(SubSurface, MairRangeWarning) {
    // Tunnel as above with method 0: axis 0, ground 30 (z0 = 30), crown at D / 2 = 3.
    // Warned when (ground level - h) / z0 > 0.8, or when the point is below the crown.
    const ZorvoData doc = OneTunnel(Tunnel(GeoTunnel::eMair));
    struct {
        double z;
        bool warned;
    } cases[] = {
        {10.0, false}, // (30 - 10) / 30 = 0.667, above the crown
        {6.0, false},  // (30 - 6) / 30 = 0.8 is not above 0.8
        {5.0, true},   // (30 - 5) / 30 = 0.833
        {2.0, true},   // below the crown (and 0.933)
    };
    for (const auto& c : cases)
        EXPECT_EQ(doc.WarningMairZOverZ0(0, 1, {0.0, 4.0, c.z}), c.warned) << c.z;

    // Only the Mair et al. method is looked at.
    EXPECT_FALSE(OneTunnel(Tunnel(GeoTunnel::eNewAndBowers)).WarningMairZOverZ0(0, 1, {0, 4, 2}));

    // The numerator is a level less a height: with the axis at 100 and the ground at 130,
    // a point 10 m above the axis gives (130 - 10) / 30 = 4, and is warned.
    GeoTunnel deep = Tunnel(GeoTunnel::eMair);
    deep.SetZCentreLine1(100.0);
    deep.SetZCentreLine2(100.0);
    deep.SetGroundLevel1(130.0);
    deep.SetGroundLevel2(130.0);
    EXPECT_TRUE(OneTunnel(deep).WarningMairZOverZ0(0, 1, {0.0, 4.0, 110.0}));

    // The crown of the stage's diameter: 14 m in stage 1 puts it at 7, over a point at
    // 6.5 ((30 - 6.5) / 30 = 0.783); the base model's 6 m leaves the point above it.
    ZorvoData staged = OneTunnel(Tunnel(GeoTunnel::eMair));
    CStage stage;
    CBasicList tunnels;
    tunnels.SetString(L"1");
    stage.SetTunnels(tunnels);
    staged.SetStage(1, stage);
    CStageProperty larger;
    larger.SetStage(1);
    larger.SetRefs(tunnels);
    larger.SetValues({14.0});
    staged.SetStageProperty(1, larger);
    EXPECT_FALSE(staged.WarningMairZOverZ0(0, 1, {0.0, 4.0, 6.5}));
    EXPECT_TRUE(staged.WarningMairZOverZ0(1, 1, {0.0, 4.0, 6.5}));
}
