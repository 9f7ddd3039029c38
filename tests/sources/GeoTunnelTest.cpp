#include "sources/GeoTunnel.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Tevra;
using namespace Tevra::Data;

TEST(GeoTunnel, OutlineExtentInPlan) {
    // Each end of the centre line offset by half the diameter along the horizontal normal.
    struct {
        double x1, y1, z1, x2, y2, z2, D;
        double xmin, xmax, ymin, ymax, zmin, zmax;
    } cases[] = {
        // Along X: the outline is 2.5 m either side in Y.
        {0, 0, 5, 10, 0, -5, 5.0, 0, 10, -2.5, 2.5, -5, 5},
        // Heading (0.6, 0.8), 10 m in plan, D = 5: normal (-0.8, 0.6) x 2.5 = (-2, 1.5).
        {0, 0, 0, 6, 8, 0, 5.0, -2, 8, -1.5, 9.5, 0, 0},
        // Vertical: no normal, the centre line's own extent.
        {3, 4, 0, 3, 4, 20, 5.0, 3, 3, 4, 4, 0, 20},
    };
    for (const auto& c : cases) {
        GeoTunnel t;
        t.SetXCentreLine1(c.x1);
        t.SetYCentreLine1(c.y1);
        t.SetZCentreLine1(c.z1);
        t.SetXCentreLine2(c.x2);
        t.SetYCentreLine2(c.y2);
        t.SetZCentreLine2(c.z2);
        t.SetDiameter(c.D);
        EXPECT_NEAR(t.GetXMin(), c.xmin, 1e-12);
        EXPECT_NEAR(t.GetXMax(), c.xmax, 1e-12);
        EXPECT_NEAR(t.GetYMin(), c.ymin, 1e-12);
        EXPECT_NEAR(t.GetYMax(), c.ymax, 1e-12);
        EXPECT_DOUBLE_EQ(t.GetZMin(), c.zmin);
        EXPECT_DOUBLE_EQ(t.GetZMax(), c.zmax);
    }

    GeoTunnel t; // default: (0, 0, 0) to (10, 10, 0)
    t.SetZCentreLine2(10.0);
    EXPECT_DOUBLE_EQ(t.GetPlanLength(), std::sqrt(200.0));
    EXPECT_DOUBLE_EQ(t.GetLength(), std::sqrt(300.0));
}

TEST(GeoTunnel, TextsOfTheEnumerationsAndTheirFallbacks) {
    EXPECT_EQ(GeoTunnel::GetSoilTypeFromCStr(L"Cohesive"), GeoTunnel::eCohesive);
    EXPECT_EQ(GeoTunnel::GetSoilTypeFromCStr(L"Granular"), GeoTunnel::eGranular);
    EXPECT_EQ(GeoTunnel::GetSoilTypeFromCStr(L"Not used"), GeoTunnel::eGranular);

    struct {
        const wchar_t* text;
        GeoTunnel::EkDerivation d;
    } k[] = {{L"O'Reilly and New", GeoTunnel::ekOReillyAndNew},
             {L"Boscardin", GeoTunnel::ekBoscardin},
             {L"Mair et al.", GeoTunnel::ekMair},
             {L"Selby", GeoTunnel::ekSelby},
             {L"User-specified k", GeoTunnel::ekUserSpecified},
             {L"Not used", GeoTunnel::ekUserSpecified},
             {L"", GeoTunnel::ekUserSpecified}};
    for (const auto& c : k)
        EXPECT_EQ(GeoTunnel::GetKDerivationFromCStr(c.text), c.d) << CString(c.text).ToUtf8();

    EXPECT_EQ(GeoTunnel::GetSubSurfaceMethodFromCStr(L"Mair et al."), GeoTunnel::eMair);
    EXPECT_EQ(GeoTunnel::GetSubSurfaceMethodFromCStr(L"New and Bowers"), GeoTunnel::eNewAndBowers);
    EXPECT_EQ(GeoTunnel::GetSubSurfaceMethodFromCStr(L"anything"), GeoTunnel::eHarrisAndAlvarado);
}
