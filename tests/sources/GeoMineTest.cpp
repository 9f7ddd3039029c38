#include "sources/GeoMine.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// Outline offsets to rounding of the degree to radian conversion.
const double kM = 1e-12; // metres

GeoMine Panel(double x1, double y1, double x2, double y2, double width) {
    GeoMine m;
    m.SetXCentreLine1(x1);
    m.SetYCentreLine1(y1);
    m.SetXCentreLine2(x2);
    m.SetYCentreLine2(y2);
    m.SetPanelWidth(width);
    return m;
}

} // namespace

TEST(MineRecord, OutlineAtEachLevel) {
    // Along X from (0, 0) to (100, 0), 40 m wide, under 30 m at 45 degrees and 20 m at
    // 30 degrees: the top of the lower stratum lies 30 tan 45 = 30 m outside the panel,
    // the surface 30 + 20 tan 30 = 41.547005 m outside it.
    GeoMine m = Panel(0.0, 0.0, 100.0, 0.0, 40.0);
    m.SetLowerStratumThickness(30.0);
    m.SetLowerAngleOfDraw(45.0);
    m.SetUpperStratumThickness(20.0);
    m.SetUpperAngleOfDraw(30.0);
    const double s = 41.547005383792516;
    struct {
        GeoMine::EMineLevel level;
        double z;
        double corners[4][2]; // from the right of the first end, counter-clockwise
    } cases[] = {
        {GeoMine::ePanelLevel, -50.0, {{0, -20}, {100, -20}, {100, 20}, {0, 20}}},
        {GeoMine::eIntermediateLevel, -20.0, {{-30, -50}, {130, -50}, {130, 50}, {-30, 50}}},
        {GeoMine::eSurfaceLevel,
         0.0,
         {{-s, -20 - s}, {100 + s, -20 - s}, {100 + s, 20 + s}, {-s, 20 + s}}},
    };
    for (const auto& c : cases) {
        for (int k = 0; k < GeoMine::NUM_CORNERS; ++k) {
            const Vec3<double> p = m.GetCornerCoords(c.level, k);
            EXPECT_NEAR(p.x, c.corners[k][0], kM) << c.level << " corner " << k;
            EXPECT_NEAR(p.y, c.corners[k][1], kM) << c.level << " corner " << k;
            EXPECT_EQ(p.z, c.z) << c.level << " corner " << k;
        }
        EXPECT_NEAR(m.GetXMin(c.level), c.corners[0][0], kM);
        EXPECT_NEAR(m.GetXMax(c.level), c.corners[1][0], kM);
        EXPECT_NEAR(m.GetYMin(c.level), c.corners[0][1], kM);
        EXPECT_NEAR(m.GetYMax(c.level), c.corners[2][1], kM);
        EXPECT_EQ(m.GetZMin(c.level), c.z);
        EXPECT_EQ(m.GetZMax(c.level), c.z);
    }
}

TEST(MineRecord, ExtentOfTurnedPanels) {
    struct {
        const char* what;
        GeoMine mine;
        double xMin, xMax, yMin, yMax;
    } cases[] = {
        // Along Y, 60 m wide about x = 10.
        {"north", Panel(10, 0, 10, 200, 60), -20, 40, 0, 200},
        // Along (0.6, 0.8) for 50 m, 10 m wide: the normal (-0.8, 0.6) times 5 puts the
        // corners at (4, -3), (34, 37), (26, 43) and (-4, 3).
        {"diagonal", Panel(0, 0, 30, 40, 10), -4, 34, -3, 43},
        // A line of no length has no direction: every corner is its end.
        {"no length", Panel(5, 5, 5, 5, 10), 5, 5, 5, 5},
    };
    for (const auto& c : cases) {
        EXPECT_NEAR(c.mine.GetXMin(GeoMine::ePanelLevel), c.xMin, kM) << c.what;
        EXPECT_NEAR(c.mine.GetXMax(GeoMine::ePanelLevel), c.xMax, kM) << c.what;
        EXPECT_NEAR(c.mine.GetYMin(GeoMine::ePanelLevel), c.yMin, kM) << c.what;
        EXPECT_NEAR(c.mine.GetYMax(GeoMine::ePanelLevel), c.yMax, kM) << c.what;
    }
    const Vec3<double> first = Panel(0, 0, 30, 40, 10).GetCornerCoords(GeoMine::ePanelLevel, 0);
    EXPECT_NEAR(first.x, 4.0, kM);
    EXPECT_NEAR(first.y, -3.0, kM);
}

TEST(MineRecord, EqualityLooksAtEveryField) {
    // What a saved and reloaded panel is compared by: each field on its own makes a
    // difference.
    const std::function<void(GeoMine&)> edits[] = {
        [](GeoMine& m) { m.SetName(L"Panel 7"); },
        [](GeoMine& m) { m.SetClosure(1.0); },
        [](GeoMine& m) { m.SetPanelWidth(1.0); },
        [](GeoMine& m) { m.SetLowerStratumThickness(1.0); },
        [](GeoMine& m) { m.SetUpperStratumThickness(1.0); },
        [](GeoMine& m) { m.SetLowerAngleOfDraw(1.0); },
        [](GeoMine& m) { m.SetUpperAngleOfDraw(1.0); },
        [](GeoMine& m) { m.SetXCentreLine1(1.0); },
        [](GeoMine& m) { m.SetXCentreLine2(1.0); },
        [](GeoMine& m) { m.SetYCentreLine1(1.0); },
        [](GeoMine& m) { m.SetYCentreLine2(1.0); },
        [](GeoMine& m) { m.SetShow(false); },
        [](GeoMine& m) { m.SetLabel(true); },
    };
    int n = 0;
    for (const auto& edit : edits) {
        GeoMine m;
        edit(m);
        EXPECT_NE(m, GeoMine()) << "edit " << n;
        EXPECT_EQ(m, GeoMine(m)) << "edit " << n;
        ++n;
    }
}
