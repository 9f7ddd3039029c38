#include "export/CDisplacementCsv.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(row.substr(comma), ",-0.0001,2.5000,nan,-inf,12.345679,inf,-1.23456789e-07,nan\n");
}
