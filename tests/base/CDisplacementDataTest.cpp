#include "base/LodraZorvoData.h"

#include <gtest/gtest.h>

#include <climits>

using namespace Tevra;
using namespace Tevra::Data;

// Guards the crash where INT_MAX intervals made intervals + 1 overflow and the result
// store was sized to nothing: a count that an int cannot hold means no locations.
TEST(CDisplacementData, LocationCountsAtTheEdgeOfAnInt) {
    struct {
        const char* what;
        int along, across; // across < 0: a line or a displacement polyline
        int locations;
    } cases[] = {
        {"line of no interval", 0, -1, 1},
        {"line of negative intervals", -5, -1, 0},
        {"line one short of the limit", INT_MAX - 1, -1, INT_MAX},
        {"line at the limit", INT_MAX, -1, 0},
        {"grid", 2, 3, 12},
        // 46340 x 46341 = 2147441940 fits; 46341 x 46341 = 2147488281 does not.
        {"largest square-ish grid", 46339, 46340, 2147441940},
        {"grid just past the limit", 46340, 46340, 0},
        {"grid of INT_MAX intervals", INT_MAX, 1, 0},
        {"grid of 2e9 by 2e9", 2000000000, 2000000000, 0},
    };
    for (const auto& c : cases) {
        if (c.across < 0) {
            CDisplacementLine line;
            line.SetIntervalsAlongLine(c.along);
            EXPECT_EQ(line.NumDisplacementLocations(true), c.locations) << c.what;
            CDisplacementPolyline polyline;
            polyline.SetIntervalsAlongLine(c.along);
            EXPECT_EQ(polyline.NumDisplacementLocations(true), c.locations) << c.what;
            continue;
        }
        CDisplacementGrid grid;
        grid.SetIntervalsAlongLine(c.along);
        grid.SetIntervalsAlongExtrusion(c.across);
        EXPECT_EQ(grid.NumDisplacementLocations(true), c.locations) << c.what;
    }

    // Nor a location to ask for.
    LodraZorvoData doc;
    CDisplacementGrid grid;
    grid.SetIntervalsAlongLine(46340);
    grid.SetIntervalsAlongExtrusion(46340);
    doc.SetDisplacementGrid(1, grid);
    CDisplacementPolyline polyline;
    polyline.SetIntervalsAlongLine(INT_MAX);
    doc.SetDisplacementPolyline(1, polyline);
    Vec3<double> p;
    EXPECT_FALSE(doc.GetDisplacementLocation(eGrid, 1, INT_MAX, p, true));
    EXPECT_FALSE(doc.GetDisplacementLocation(ePolyline, 1, INT_MAX, p, true));
}
