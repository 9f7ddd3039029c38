#include "export/CDisplacementCsv.h"

#include "base/CLodraZorvoPrefData.h"
#include "solver/ZorvoSolver.h"
#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <sstream>

using namespace Tevra;
using namespace Tevra::Data;

// Every number is written in full, however large, and values that are not finite in
// one spelling whatever their sign bit. (A fixed buffer once cut 1.2345e70 to 1.2345e62.)
TEST(CDisplacementCsv, NumbersInFullAndNonFiniteSpelledOneWay) {
    ZorvoData doc;
    CDisplacementPoint point;
    point.SetName(L"P");
    doc.SetDisplacementPoint(1, point);
    doc.ResizeResultsAndSetupTransects();
    GeoDispResult r;
    r.SetPointType(ePoint);
    r.SetPoint({1.2345e70, -0.00005, 2.5});
    r.SetXdisplacement(-std::numeric_limits<double>::quiet_NaN());
    r.SetYdisplacement(-std::numeric_limits<double>::infinity());
    r.SetZdisplacement(0.0123456789);
    r.SetMajorPrincipalStrain(std::numeric_limits<double>::infinity());
    r.SetMinorPrincipalStrain(-1.234567891e-7);
    r.SetPrincipalStrainAngle(std::numeric_limits<double>::quiet_NaN());
    doc.AccessDisplacementPoint(1).SetResult(0, 0, 0, r);

    std::ostringstream out;
    CDisplacementCsv::WriteFamily(doc, ePoint, out);
    const std::string row = out.str();
    const size_t x = row.find(",P,0,0,") + 7;
    const size_t comma = row.find(',', x);
    // The fixed-point text of 1.2345e70 reads back as the very same double.
    EXPECT_EQ(std::stod(row.substr(x, comma - x)), 1.2345e70);
    EXPECT_EQ(row.substr(x + 71, 5), ".0000"); // 71 digits, then the decimals
    // -0.00005 is held as a binary value just beyond it, so 4 places give -0.0001.
    EXPECT_EQ(row.substr(comma), ",-0.0001,2.5000,nan,-inf,12.345679,inf,-1.23456789e-07,nan,0\n");
}

// Samples a cancelled run never reached have no rows: they once came out as zeros at
// (0, 0, 0), as if calculated.
TEST(CDisplacementCsv, SamplesNeverCalculatedAreLeftOut) {
    // A grid of 20 rows of 11 samples, (10 to 20, 5 to 24, 20) m, away from the origin.
    // The cancel test answers false 3 times: 3 rows of 11 samples are calculated.
    ZorvoData doc;
    doc.SetTunnel(1, Testing::LongTunnel());
    CDisplacementGrid g;
    g.SetName(L"G");
    g.SetPoint1({10.0, 5.0, 20.0});
    g.SetPoint2({10.0, 24.0, 20.0});
    g.SetExtrusionDirection(eExtrudeX);
    g.SetExtrusionDistance(10.0);
    g.SetIntervalsAlongLine(19);
    g.SetIntervalsAlongExtrusion(10);
    doc.SetDisplacementGrid(1, g);
    std::atomic<int> calls{0};
    CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&doc, &prefs, nullptr, [&calls] { return ++calls > 3; });
    ASSERT_TRUE(solver.Solve());
    ASSERT_TRUE(solver.WasCancelled());

    std::ostringstream out;
    CDisplacementCsv::WriteFamily(doc, eGrid, out);
    std::istringstream rows(out.str());
    std::string row;
    int n = 0;
    while (std::getline(rows, row)) {
        ++n;
        // stage 0, record 1 "G", then the row of the grid: one that was calculated.
        const size_t position = row.find(",G,") + 3;
        const int a = std::stoi(row.substr(position));
        const int b = std::stoi(row.substr(row.find(',', position) + 1));
        EXPECT_EQ(doc.GetDisplacementGrid(1).GetResultFromPosition(0, a, b).GetPointType(), eGrid)
            << row;
        EXPECT_EQ(row.find(",0.0000,0.0000,0.0000,"), std::string::npos) << row;
    }
    EXPECT_EQ(n, 3 * 11);
}
