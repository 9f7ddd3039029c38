#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include "tests/support/ModelFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;
using namespace Tevra::FileIO;
using GeoGlobal::eHorizontal;
using GeoGlobal::eVertical;

namespace {

// One binary module holding a polygonal excavation as a file of an older generation
// wrote it: the base record of generation g, the polygon's own number g, four vertices,
// base levels and corners; each corner has its own number (cornerVersion) only when g
// is above 5.
std::string OldPolygonFile(int g, int cornerVersion, int vertical, int horizontal) {
    CDataFile f(CDataFile::eBinary);
    CKeyParam h;
    h.key = 202130;
    h.description = L"Polygonal Excavations";
    h.count = 1;
    h.generation = g;
    f.WriteModuleHeader(h);
    f.BeginRecord(0);
    f.WriteInt(jnVersion, g);
    f.WriteString(jnName, L"Old");
    f.WriteDouble(jnSurfaceLevel, 100.0);
    if (g < 6) {
        f.WriteInt(jnOldCurve, 3);
        f.WriteInt(jnOldCurve, 2);
    }
    f.WriteInt(jnContribution, 0);
    if (g < 9)
        f.WriteBool(jnEnabled, true);
    if (g > 6) {
        f.WriteBool(jnShow, true);
        f.WriteBool(jnLabel, false);
    }
    if (g > 7) {
        f.WriteBool(jnAllowCalculationToLevel, false);
        f.WriteDouble(jnAllowLevel, 0.0);
    }
    f.WriteInt(jnVersion, g);
    f.WriteInt(jnVertices, 4);
    for (double xy : {0.0, 0.0, 0.0, 10.0, 10.0, 10.0, 10.0, 0.0})
        f.WriteDouble(jnX, xy);
    f.WriteInt(jnBaseLevels, 4);
    for (int k = 0; k < 4; ++k)
        f.WriteDouble(jnBaseLevel, 90.0);
    f.WriteInt(jnCorners, 4);
    for (int k = 0; k < 4; ++k) {
        if (g > 5)
            f.WriteInt(jnVersion, cornerVersion);
        for (int d = 0; d < 6; ++d)
            f.WriteDouble(jnPreviousEdgeD, 0.5);
        f.WriteBool(jnStiffened, false);
        f.WriteInt(jnVerticalCurve, vertical);
        f.WriteInt(jnHorizontalCurve, horizontal);
        f.WriteBool(jnArcEnabled, true);
        f.WriteBool(jnLinearStiffening, true);
        f.WriteDouble(jnPreviousEdgeTransitionZoneFraction, 0.0);
        f.WriteDouble(jnNextEdgeTransitionZoneFraction, 0.0);
    }
    f.EndRecord();
    f.EndModule();
    return f.Contents();
}

} // namespace

// The lists of a polygon are kept as the file has them, of different lengths or empty,
// and non-finite numbers pass through to the checks, as for every other record.
TEST(ExcavationRecords, UnevenListsAndNonFiniteNumbersRoundTrip) {
    ZorvoData doc;
    CPolygonalExcavation e;
    e.SetCoord(3, {1.0, std::numeric_limits<double>::infinity()});
    e.SetBaseLevel(1, std::numeric_limits<double>::quiet_NaN());
    doc.SetPolygonalExcavation(1, e);
    doc.SetPolygonalExcavation(2, CPolygonalExcavation());
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData back = RoundTrip(doc, form);
        ASSERT_EQ(back.NumPolygonalExcavations(), 2);
        const CPolygonalExcavation& r = back.GetPolygonalExcavation(1);
        EXPECT_EQ(r.NumCoords(), 3);
        EXPECT_EQ(r.NumBaseLevels(), 1);
        EXPECT_EQ(r.NumExcavationCorners(), 0);
        EXPECT_TRUE(std::isinf(r.GetCoord(3).y));
        EXPECT_TRUE(std::isnan(r.GetBaseLevel(1)));
        EXPECT_EQ(back.GetPolygonalExcavation(2).NumCoords(), 0);
    }
}

// Curve numbers of older corners move past the curves inserted into the standard lists
// since: at generations 3 and 4, vertical numbers above 7 by 8 and horizontal numbers
// above 6 by 6; at generation 5, vertical numbers of 14 or more by 1. A corner of a
// polygon above generation 5 carries its own number, which rules.
TEST(ExcavationRecords, OlderCornerCurveNumbersAreRenumbered) {
    constexpr int kMax = std::numeric_limits<int>::max();
    struct {
        int g, cornerVersion, vertical, horizontal, expectVertical, expectHorizontal;
    } const rows[] = {
        {4, 0, 7, 6, 7, 6},
        {4, 0, 8, 7, 16, 13},
        {3, 0, 20, 12, 28, 18},
        {5, 0, 13, 7, 13, 7},
        {5, 0, 14, 9, 15, 9},
        {7, 4, 8, 7, 16, 13},
        {7, 5, 14, 7, 15, 7},
        {7, 8, 14, 7, 14, 7},
        {9, 8, 30, 20, 30, 20},
        // Numbers that cannot move stay as they are, for the checks to report.
        {4, 0, kMax, kMax - 2, kMax, kMax - 2},
        {5, 0, kMax, 0, kMax, 0},
    };
    for (const auto& r : rows) {
        CDataFile in = CDataFile::FromBytes(
            OldPolygonFile(r.g, r.cornerVersion, r.vertical, r.horizontal), "old.zorvo");
        ZorvoData doc;
        ZorvoModelFile::Read(in, doc, nullptr);
        ASSERT_EQ(doc.NumPolygonalExcavations(), 1) << r.g;
        const CPolygonalExcavation& e = doc.GetPolygonalExcavation(1);
        ASSERT_EQ(e.NumExcavationCorners(), 4);
        EXPECT_EQ(e.NumCoords(), 4);
        EXPECT_EQ(e.GetName(), CString(L"Old"));
        for (int n = 1; n <= 4; ++n) {
            EXPECT_EQ(e.GetExcavationCornerRef(n).GetGMCurve(eVertical), r.expectVertical)
                << "g " << r.g << " corner " << r.cornerVersion;
            EXPECT_EQ(e.GetExcavationCornerRef(n).GetGMCurve(eHorizontal), r.expectHorizontal)
                << "g " << r.g << " corner " << r.cornerVersion;
        }
    }
}

// Counts of the binary form are held against the bytes of the record before anything is
// allocated; a record cut short says so.
TEST(ExcavationRecords, AbsurdCountsAndShortRecordsAreRefused) {
    ZorvoData doc;
    CPolygonalExcavation e;
    e.SetName(L"A");
    for (int n = 1; n <= 3; ++n) {
        e.SetCoord(n, {n * 1.0, n * 2.0});
        e.SetBaseLevel(n, 90.0);
        e.SetExcavationCorner(n, CExcavationCorner());
    }
    doc.SetPolygonalExcavation(1, e);
    const std::string good = ZorvoModelFile::Write(doc, CDataFile::eBinary).Contents();
    // The vertex count is the integer that follows the polygon's generation, 7: the
    // tagged 7 and then the tagged 3.
    const std::string vertexCount("\x01\x07\x00\x00\x00\x01\x03\x00\x00\x00", 10);
    const size_t at = good.find(vertexCount);
    ASSERT_NE(at, std::string::npos);
    struct {
        int32_t count;
        const char* message;
    } const rows[] = {
        {std::numeric_limits<int32_t>::max(),
         "field 'vertices' counts 2147483647 elements, more than the"},
        {-1, "field 'vertices' counts -1 elements, which is negative"},
        // A fourth vertex would take the count of the base levels as its x.
        {4, "field 'x' should be a number but the file holds an integer"},
    };
    for (const auto& r : rows) {
        std::string bad = good;
        bad.replace(at + 6, 4, reinterpret_cast<const char*>(&r.count), 4);
        const std::string message = ReadError(bad, "bad.zorvo");
        EXPECT_NE(message.find("(module 'Polygonal Excavations', record 1): "), std::string::npos)
            << message;
        EXPECT_NE(message.find(r.message), std::string::npos) << message;
    }
}

// (What such records must not hold is in the table of ModelFile.BadJsonGivesItsError.)
TEST(ExcavationRecords, HandWrittenJsonTakesDefaults) {
    const std::string head =
        R"({"modules": [{"description": "Polygonal Excavations", "records": [)";
    const std::string tail = "]}]}";
    CDataFile in = CDataFile::FromBytes(
        head + R"({"excavation": {"name": "Pit"}, "vertices": [{"x": 0, "y": 0}],
                   "corners": [{"stiffened": "YES", "verticalCurve": 2}]})" +
            tail,
        "pit.json");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);
    const CPolygonalExcavation& e = doc.GetPolygonalExcavation(1);
    EXPECT_EQ(e.GetName(), CString(L"Pit"));
    EXPECT_EQ(e.GetSurfaceLevel(), 100.0);
    EXPECT_EQ(e.NumBaseLevels(), 0);
    const CExcavationCorner& c = e.GetExcavationCornerRef(1);
    EXPECT_TRUE(c.GetStiffened());
    EXPECT_EQ(c.GetGMCurve(eVertical), 2);
    EXPECT_EQ(c.GetNextEdge_p1Star(), 0.67);
}
