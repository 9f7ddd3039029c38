// Surface settlement trough of tunnels, through the point calculation tun21_.
#include "solver/ZorvoCal.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

const double kPi = 2.0 * std::asin(1.0);

// Throughout: D = 6 m, volume loss 1.5 %, a surface point h = 20 m above the axis, so
// A0 = pi 6^2 / 4 = 28.274334 m2 and the peak settlement is
//   Smax = A0 VL 10 / (i sqrt(2 pi)) = 424.115008 / (2.5066283 i) = 169.197409 / i  (mm).
const double kSmaxTimesI = 169.19740853759254;

// Millimetres and strains to rounding of the hand arithmetic.
const double kMm = 1e-6;
const double kStrain = 1e-9;

// 2 km along X, centred on the origin: at x = 0 both ends are over 100 widths away.
GeoTunnel Tunnel(double x1, double y1, double x2, double y2) {
    return StraightTunnel(x1, y1, x2, y2);
}

Movement At(const ZorvoData& doc, int stage, double x, double y, double z) {
    return MovementAt(doc, stage, x, y, z, eSurface);
}

CBasicList List(const wchar_t* text) {
    CBasicList l;
    l.SetString(text);
    return l;
}

} // namespace

// The widths of every derivation are pinned by ZorvoCal.TroughWidthByDerivation; here a
// few of them, with the levels and layers they take from the document, shape the trough.
TEST(Tunnels, PeakSettlementAndTroughShapeByDerivation) {
    struct {
        const char* method;
        GeoTunnel::EkDerivation d;
        GeoTunnel::ESoilType soil;
        int layers; // two layers: the interface 8 m above the axis
        double i, Smax;
    } cases[] = {
        {"O'Reilly and New, clay", GeoTunnel::ekOReillyAndNew, GeoTunnel::eCohesive, 1, 9.7,
         17.44303181}, // i = 0.43 20 + 1.1
        {"user k 0.4", GeoTunnel::ekUserSpecified, GeoTunnel::eGranular, 1, 8.0,
         21.14967607}, // i = 0.4 20
        {"Selby, clay, two layers", GeoTunnel::ekSelby, GeoTunnel::eCohesive, 2, 7.9,
         21.41739349}, // i = 8 0.43 + 12 0.28 + 1.1
        {"Selby, sand, one layer", GeoTunnel::ekSelby, GeoTunnel::eGranular, 1, 5.5,
         30.76316519}, // i = 20 0.28 - 0.1
    };
    for (const auto& c : cases) {
        GeoTunnel t = LongTunnel();
        t.SetkDerivation(eSurface, c.d);
        t.SetSoilType(c.soil);
        t.SetNumLayers(c.layers);
        t.SetSoilInterfaceLevel1(8.0);
        t.SetSoilInterfaceLevel2(8.0);
        const ZorvoData doc = OneTunnel(t);
        EXPECT_NEAR(c.Smax, kSmaxTimesI / c.i, kMm) << c.method; // the table itself

        // Over the axis: the peak, no horizontal movement; the transverse strain
        // -Smax/h, scaled by 0.1, is the minor one and lies across the tunnel.
        const Movement axis = At(doc, 0, 0.0, 0.0, 20.0);
        EXPECT_NEAR(axis.Sz, c.Smax, kMm) << c.method;
        EXPECT_NEAR(axis.dx, 0.0, kMm) << c.method;
        EXPECT_NEAR(axis.dy, 0.0, kMm) << c.method;
        EXPECT_NEAR(axis.minor, -0.1 * c.Smax / 20.0, kStrain) << c.method;
        EXPECT_NEAR(axis.major, 0.0, kStrain) << c.method;
        EXPECT_NEAR(axis.angle, 0.0, kStrain) << c.method;

        // One trough width to the side (left of the heading, +Y): exp(-1/2) of the peak,
        // and Sy = -Sz y'/h towards the axis. Sz i is the same for every width, so
        // Sy = -169.197409 0.6065307 / 20 = -5.1311708 mm for all of them.
        const Movement side = At(doc, 0, 0.0, c.i, 20.0);
        EXPECT_NEAR(side.Sz, c.Smax * std::exp(-0.5), kMm) << c.method;
        EXPECT_NEAR(side.dy, -5.13117079, kMm) << c.method;
        EXPECT_NEAR(side.dx, 0.0, kMm) << c.method;
        // The inflection point: (y'/i)^2 - 1 = 0, no transverse strain.
        EXPECT_NEAR(side.minor, 0.0, kStrain) << c.method;

        const Movement right = At(doc, 0, 0.0, -c.i, 20.0);
        EXPECT_NEAR(right.dy, 5.13117079, kMm) << c.method;
    }
}

TEST(Tunnels, HorizontalMovementTurnedToGlobalAxes) {
    // Heading (0.6, 0.8), 2 km long, centred on the origin; O'Reilly and New in clay,
    // i = 9.7. One width to its left lies at 9.7 (-0.8, 0.6) = (-7.76, 5.82).
    const ZorvoData doc = OneTunnel(Tunnel(-600.0, -800.0, 600.0, 800.0));
    // Sy = -17.443032 0.6065307 9.7 / 20 = -5.1311708 mm across the tunnel, none along;
    // globally dX = -cy Sy = 4.1049366, dY = cx Sy = -3.0787025: towards the axis.
    const Movement side = At(doc, 0, -7.76, 5.82, 20.0);
    EXPECT_NEAR(side.Sz, 17.44303181 * std::exp(-0.5), kMm);
    EXPECT_NEAR(side.dx, 4.10493663, kMm);
    EXPECT_NEAR(side.dy, -3.07870247, kMm);

    // Over the axis the minor strain -0.1 Smax / h lies across the tunnel, so the major
    // (none) lies along it: at atan2(0.8, 0.6) = 0.927295218 rad.
    const Movement axis = At(doc, 0, 0.0, 0.0, 20.0);
    EXPECT_NEAR(axis.Sz, 17.44303181, kMm);
    EXPECT_NEAR(axis.minor, -0.08721516, kStrain);
    EXPECT_NEAR(axis.major, 0.0, kStrain);
    EXPECT_NEAR(axis.angle, 0.927295218, kStrain);
}

TEST(Tunnels, SettlementFallsAwayBeyondTheEnd) {
    // From x = 0 at axis level 0 to x = 1000 at -10. Past the end the end's levels hold:
    // a point at level 10 is h = 20 above the axis (i = 9.7) wherever it is beyond.
    GeoTunnel t = Tunnel(0.0, 0.0, 1000.0, 0.0);
    t.SetZCentreLine2(-10.0);
    const ZorvoData doc = OneTunnel(t);
    // Sz = (F1 - F2) Smax with F1 = 1 and F2 the normal probability of a = (x' - L)/i;
    // Sx = i B (E1 - E2) = -i Smax exp(-a^2/2) / (h sqrt(2 pi)), which at a = 0 is
    // -A0 VL 10 / (2 pi h) = -3.375 mm: back towards the face.
    struct {
        double a;
        double Sz, Sx;
    } cases[] = {
        {0.0, 8.72151590, -3.375},      // 0.5 Smax
        {1.0, 2.76742864, -2.04704098}, // (1 - 0.8413447) Smax
        {3.0, 0.02354631, -0.03749286}, // (1 - 0.9986501) Smax
        {8.0, 0.0, 0.0},
    };
    for (const auto& c : cases) {
        const Movement m = At(doc, 0, 1000.0 + c.a * 9.7, 0.0, 10.0);
        // The longitudinal factor is a rational approximation good to 1e-4.
        EXPECT_NEAR(m.Sz, c.Sz, 1e-4 * 17.44303181) << c.a;
        EXPECT_NEAR(m.dx, c.Sx, kMm) << c.a;
    }
}

TEST(Tunnels, TwinTunnelsAddTheirTroughs) {
    ZorvoData doc;
    doc.SetTunnel(1, Tunnel(-1000.0, 10.0, 1000.0, 10.0));
    doc.SetTunnel(2, Tunnel(-1000.0, -10.0, 1000.0, -10.0));
    // Midway: 2 Smax exp(-0.5 (10/9.7)^2) = 2 17.443032 0.5877779; the pulls cancel.
    const Movement m = At(doc, 0, 0.0, 0.0, 20.0);
    EXPECT_NEAR(m.Sz, 20.50525768, kMm);
    EXPECT_NEAR(m.dy, 0.0, kMm);
}

TEST(Tunnels, GuardsThatMakeATunnelAddNothing) {
    struct {
        const char* what;
        double D, VL, z;
        double Sz; // mm over the axis
    } cases[] = {
        {"diameter below a millimetre", 0.0009, 1.5, 20.0, 0.0},
        {"diameter of a millimetre", 0.001, 1.5, 20.0, 4.8452866e-7}, // Smax (0.001/6)^2
        {"zero diameter", 0.0, 1.5, 20.0, 0.0},
        {"loss below 1e-6 %", 6.0, 0.0000005, 20.0, 0.0},
        {"loss of 1e-6 %", 6.0, 1e-6, 20.0, 1.16286879e-5}, // Smax 1e-6 / 1.5
        {"no loss", 6.0, 0.0, 20.0, 0.0},
        {"negative loss heaves", 6.0, -1.5, 20.0, -17.44303181},
        {"point below the axis", 6.0, 1.5, -5.0, 0.0},
        {"point at axis level", 6.0, 1.5, 0.0, 0.0},
    };
    for (const auto& c : cases) {
        GeoTunnel t = LongTunnel();
        t.SetDiameter(c.D);
        t.SetPercentLoss(c.VL);
        const ZorvoData doc = OneTunnel(t);
        const Movement axis = At(doc, 0, 0.0, 0.0, c.z);
        EXPECT_NEAR(axis.Sz, c.Sz, std::fabs(c.Sz) * 1e-7) << c.what;
        if (c.Sz == 0.0) { // no displacement whatever
            const Movement side = At(doc, 0, 0.0, 5.0, c.z);
            EXPECT_EQ(side.Sz, 0.0) << c.what;
            EXPECT_EQ(side.dx, 0.0) << c.what;
            EXPECT_EQ(side.dy, 0.0) << c.what;
        }
    }

    // A negative loss is the same movement in the opposite sense, strains too.
    GeoTunnel t = LongTunnel();
    const Movement settle = At(OneTunnel(t), 0, 30.0, 7.0, 20.0);
    t.SetPercentLoss(-1.5);
    const Movement heave = At(OneTunnel(t), 0, 30.0, 7.0, 20.0);
    EXPECT_EQ(heave.Sz, -settle.Sz);
    EXPECT_EQ(heave.dx, -settle.dx);
    EXPECT_EQ(heave.dy, -settle.dy);
    EXPECT_NEAR(heave.major, -settle.minor, 1e-15);
    EXPECT_NEAR(heave.minor, -settle.major, 1e-15);
}

TEST(Tunnels, ReachOfOneHundredTroughWidths) {
    const ZorvoData doc = OneTunnel(LongTunnel());
    // 37 widths aside the Gaussian is still a number: Smax exp(-684.5); beyond 100
    // widths the tunnel is not looked at.
    const Movement far = At(doc, 0, 0.0, 37.0 * 9.7, 20.0);
    EXPECT_GT(far.Sz, 0.0);
    EXPECT_NEAR(far.Sz / (17.44303181 * std::exp(-684.5)), 1.0, 1e-7);
    const Movement beyond = At(doc, 0, 0.0, 101.0 * 9.7, 20.0);
    EXPECT_EQ(beyond.Sz, 0.0);
    EXPECT_EQ(beyond.dy, 0.0);
    EXPECT_EQ(beyond.minor, 0.0);

    // At axis level (h = 0, i = 1.1) the strain terms divide by h as the method has them
    // and are not finite wherever the tunnel is looked at. That shows the cut-off exactly:
    // just inside 100 widths along or aside the strains are not finite, just outside they
    // are nothing.
    struct {
        double x, y;
        bool looked;
    } cases[] = {
        {1000.0 + 99.9 * 1.1, 0.0, true},  {1000.0 + 100.1 * 1.1, 0.0, false},
        {-1000.0 - 99.9 * 1.1, 0.0, true}, {-1000.0 - 100.1 * 1.1, 0.0, false},
        {0.0, 99.9 * 1.1, true},           {0.0, -100.1 * 1.1, false},
    };
    for (const auto& c : cases) {
        const Movement m = At(doc, 0, c.x, c.y, 0.0);
        EXPECT_EQ(m.Sz, 0.0);
        EXPECT_EQ(std::isfinite(m.minor), !c.looked) << c.x << ", " << c.y;
    }
}

TEST(Tunnels, OnlyInTheStagesThatListThem) {
    // One stage that lists no tunnel, smoothing on: indices 0 (base), 1 (stage 1),
    // 2 (base again) and 3 (stage 1 smoothed).
    ZorvoData doc = OneTunnel(LongTunnel());
    doc.SetStage(1, CStage());
    CReEntrantCornerOptions smoothing;
    smoothing.SetReEntrantCornerSmoothing(true);
    doc.SetReEntrantCornerOptions(smoothing);
    const double expected[] = {17.44303181, 0.0, 17.44303181, 0.0};
    for (int s = 0; s < 4; ++s) {
        const Movement m = At(doc, s, 0.0, 0.0, 20.0);
        EXPECT_NEAR(m.Sz, expected[s], kMm) << s;
        if (expected[s] == 0.0) {
            EXPECT_EQ(m.Sz, 0.0) << s;
            EXPECT_EQ(m.minor, 0.0) << s;
        }
    }
}

TEST(Tunnels, StagePropertyOverridesTheDiameterInItsStage) {
    // Two stages, both listing the tunnel; smoothing on: indices 0 to 5.
    ZorvoData doc = OneTunnel(LongTunnel());
    CStage both;
    both.SetTunnels(List(L"1"));
    doc.SetStage(1, both);
    doc.SetStage(2, both);
    CReEntrantCornerOptions smoothing;
    smoothing.SetReEntrantCornerSmoothing(true);
    doc.SetReEntrantCornerOptions(smoothing);

    // Which property applies where is the document's (Stages.StagePropertyOverrides...);
    // here the kernel takes the diameter it gives.
    CStageProperty p;
    p.SetStage(2);
    p.SetElementType(eElementTunnel);
    p.SetRefs(List(L"1"));
    p.SetValues({3.0});
    doc.SetStageProperty(1, p);

    // Smax grows with D^2 (the width does not depend on D): with 3 m, 17.443032 / 4.
    // Index 5, stage 2 smoothed, meets no property and keeps the tunnel's own 6 m.
    const double expected[] = {17.44303181, 17.44303181, 4.36075795,
                               17.44303181, 17.44303181, 17.44303181};
    for (int s = 0; s < 6; ++s)
        EXPECT_NEAR(At(doc, s, 0.0, 0.0, 20.0).Sz, expected[s], kMm) << s;
}
