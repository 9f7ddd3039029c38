#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;
using GeoGlobal::eHorizontal;
using GeoGlobal::eVertical;

namespace {

CExcavationCorner Corner(bool stiffened, double d, double transition, int vertical,
                         int horizontal) {
    // stiffened, linear, previous d, p1*, p2*, transition, next d, p1*, p2*, transition,
    // arc, vertical curve, horizontal curve.
    return CExcavationCorner(stiffened, !stiffened, d, 0.55, 0.3, transition, d + 1.5, 0.6, 0.35,
                             transition / 2.0, stiffened, vertical, horizontal);
}

// Two basements, one L-shaped with stiffened corners, transition zones, a user curve and a
// negative contribution, and a shaft; every field away from its default.
ZorvoData ExcavationDocument() {
    ZorvoData doc;
    CGMCurve user(true, eVertical, CGMCurve::eLinear, L"Site wall");
    user.SetDataCoords({{0, 0, 0.2}, {2, 0, 0}, {0, 1, 0.1}});
    doc.SetGMCurve(eVertical, doc.NumGMCurves(eVertical) + 1, user);
    const int userIndex = doc.NumGMCurves(eVertical) - 1; // 0-based

    CPolygonalExcavation l;
    l.SetName(L"L-shaped basement \u00e9");
    l.SetSurfaceLevel(101.25);
    l.SetContribution(CExcavation::eNegative);
    l.SetShow(false);
    l.SetLabel(true);
    l.SetAllowGMCalcnToLevel(true);
    l.SetAllowGMCalcnToLevelValue(95.5);
    const Vec2<double> pts[] = {{0, 0}, {0, 30}, {20, 30}, {20, 12.5}, {45, 12.5}, {45, 0}};
    for (int n = 1; n <= 6; ++n) {
        l.SetCoord(n, pts[n - 1]);
        l.SetBaseLevel(n, 88.0 - 0.125 * n);
        l.SetExcavationCorner(n, Corner(n % 2 == 0, 2.0 * n, 0.1 * n, n == 4 ? userIndex : n,
                                        n - 1));
    }
    doc.SetPolygonalExcavation(1, l);

    CPolygonalExcavation box;
    box.SetName(L"Plant room");
    for (int n = 1; n <= 4; ++n) {
        box.SetCoord(n, {60.0 + 10.0 * (n / 3), 10.0 * ((n / 2) % 2)});
        box.SetBaseLevel(n, 96.0);
        box.SetExcavationCorner(n, CExcavationCorner());
    }
    doc.SetPolygonalExcavation(2, box);

    CCircularExcavation shaft;
    shaft.SetName(L"Access shaft");
    shaft.SetSurfaceLevel(100.5);
    shaft.SetDiameter(9.75);
    shaft.SetBaseLevel(71.0);
    shaft.SetCentre({-25.5, 14.0});
    shaft.SetGMCurve(eVertical, userIndex);
    shaft.SetGMCurve(eHorizontal, 3);
    shaft.SetLabel(true);
    doc.SetCircularExcavation(1, shaft);
    return doc;
}

ZorvoData RoundTrip(const ZorvoData& doc, CDataFile::EForm form) {
    CDataFile out = ZorvoModelFile::Write(doc, form);
    CDataFile in = CDataFile::FromBytes(out.Contents(), "memory");
    ZorvoData back;
    ZorvoModelFile::Read(in, back, nullptr);
    return back;
}

std::string ReadError(const std::string& bytes, const std::string& name) {
    try {
        CDataFile in = CDataFile::FromBytes(bytes, name);
        ZorvoData doc;
        ZorvoModelFile::Read(in, doc, nullptr);
    } catch (const CDataFileError& e) {
        return e.what();
    }
    return "";
}

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

TEST(ExcavationRecords, RoundTripInBothForms) {
    const ZorvoData doc = ExcavationDocument();
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_TRUE(back == doc) << (form == CDataFile::eJson ? "JSON" : "binary");
        ASSERT_EQ(back.NumPolygonalExcavations(), 2);
        ASSERT_EQ(back.NumCircularExcavations(), 1);
        // The user's curve keeps its number behind the standard curves.
        const CExcavationCorner& c = back.GetPolygonalExcavation(1).GetExcavationCornerRef(4);
        EXPECT_EQ(c.GetGMCurve(eVertical), back.NumGMCurves(eVertical) - 1);
        EXPECT_EQ(back.GetPolygonalExcavation(1).GetContribution(), CExcavation::eNegative);
        EXPECT_EQ(back.GetPolygonalExcavation(1).GetAllowGMCalcnToLevelValue(), 95.5);
    }
    // JSON to binary and back gives the same JSON text.
    EXPECT_EQ(ZorvoModelFile::Write(RoundTrip(RoundTrip(doc, CDataFile::eJson), CDataFile::eBinary),
                                    CDataFile::eJson)
                  .Contents(),
              ZorvoModelFile::Write(doc, CDataFile::eJson).Contents());
}

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

TEST(ExcavationRecords, ModulesStandAfterTheCurvesWithTheirGenerations) {
    const std::string json = ZorvoModelFile::Write(ExcavationDocument(), CDataFile::eJson).Contents();
    const size_t curves = json.find("\"Vertical Ground Movement Curves\"");
    const size_t polygonal = json.find("\"Polygonal Excavations\"");
    const size_t circular = json.find("\"Circular Excavations\"");
    ASSERT_NE(polygonal, std::string::npos);
    ASSERT_NE(circular, std::string::npos);
    EXPECT_LT(curves, polygonal);
    EXPECT_LT(polygonal, circular);
    EXPECT_NE(json.find("\"key\": 202130"), std::string::npos);
    EXPECT_NE(json.find("\"key\": 202140"), std::string::npos);
    EXPECT_NE(json.find("\"generation\": 7"), std::string::npos);
    EXPECT_NE(json.find("\"generation\": 5"), std::string::npos);
    // No excavation, no module.
    const std::string none = ZorvoModelFile::Write(ZorvoData(), CDataFile::eJson).Contents();
    EXPECT_EQ(none.find("Excavations"), std::string::npos);
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
        {4, 0, 7, 6, 7, 6},    {4, 0, 8, 7, 16, 13}, {3, 0, 20, 12, 28, 18},
        {5, 0, 13, 7, 13, 7},  {5, 0, 14, 9, 15, 9}, {7, 4, 8, 7, 16, 13},
        {7, 5, 14, 7, 15, 7},  {7, 8, 14, 7, 14, 7}, {9, 8, 30, 20, 30, 20},
        // Numbers that cannot move stay as they are, for the checks to report.
        {4, 0, kMax, kMax - 2, kMax, kMax - 2}, {5, 0, kMax, 0, kMax, 0},
    };
    for (const auto& r : rows) {
        CDataFile in = CDataFile::FromBytes(OldPolygonFile(r.g, r.cornerVersion, r.vertical,
                                                           r.horizontal),
                                            "old.zorvo");
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

TEST(ExcavationRecords, HandWrittenJsonTakesDefaultsAndRefusesWrongTypes) {
    const std::string head = R"({"modules": [{"description": "Polygonal Excavations", "records": [)";
    const std::string tail = "]}]}";
    CDataFile in = CDataFile::FromBytes(
        head + R"({"excavation": {"name": "Pit"}, "vertices": [{"x": 0, "y": 0}],
                   "corners": [{"stiffened": "YES", "verticalCurve": 2}]})" + tail,
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

    struct {
        const char* record;
        const char* message;
    } const rows[] = {
        {R"({"vertices": 4})", "records[0] (module 'Polygonal Excavations'): 'vertices' should be an array of objects, not an integer"},
        {R"({"vertices": [[0, 0]]})", "records[0].vertices[0] (module 'Polygonal Excavations'): an element should be an object, not an array"},
        {R"({"vertices": [{"x": 0}]})", "records[0].vertices[0] (module 'Polygonal Excavations'): missing member 'y'"},
        {R"({"baseLevels": [90, "deep"]})", "'baseLevels'[1] should be a number, not a text"},
        {R"({"corners": [{"stiffened": 1}]})", "records[0].corners[0] (module 'Polygonal Excavations'): 'stiffened' should be \"YES\" or \"NO\""},
        {R"({"corners": [{"verticalCurve": 1.5}]})", "'verticalCurve' should be an integer, not a number"},
        {R"({"excavation": {"contribution": "positive"}})",
         "'contribution' is \"positive\"; it should be one of \"Positive\", \"Negative\""},
        {R"({"excavation": []})", "'excavation' should be an object, not an array"},
    };
    for (const auto& r : rows) {
        const std::string message = ReadError(head + r.record + tail, "bad.json");
        EXPECT_NE(message.find(r.message), std::string::npos) << r.record << "\n" << message;
    }
    const std::string circular = R"({"modules": [{"description": "Circular Excavations", "records": [)";
    EXPECT_NE(ReadError(circular + R"({"centre": {"x": 1}})" + tail, "c.json")
                  .find("records[0].centre (module 'Circular Excavations'): missing member 'y'"),
              std::string::npos);
}

// Every cut of a binary file with excavations, and random damage to it, is either a
// shorter project or a read error that names the file: never a crash or an allocation
// the file's bytes cannot back.
TEST(ExcavationRecords, DamagedBinaryFilesAreReportedNeverOverrun) {
    const std::string good =
        ZorvoModelFile::Write(ExcavationDocument(), CDataFile::eBinary).Contents();
    for (size_t n = 0; n < good.size(); n += 3) {
        try {
            CDataFile in = CDataFile::FromBytes(good.substr(0, n), "cut.zorvo");
            ZorvoData doc;
            ZorvoModelFile::Read(in, doc, nullptr);
        } catch (const CDataFileError& e) {
            EXPECT_NE(std::string(e.what()).find("cut.zorvo"), std::string::npos);
        }
    }
    unsigned seed = 777;
    for (int trial = 0; trial < 300; ++trial) {
        std::string bytes = good;
        for (int k = 0; k < 3; ++k) {
            seed = seed * 1103515245u + 12345u;
            bytes[12 + (seed >> 8) % (bytes.size() - 12)] = static_cast<char>(seed >> 3);
        }
        try {
            CDataFile in = CDataFile::FromBytes(bytes, "x.zorvo");
            ZorvoData doc;
            ZorvoModelFile::Read(in, doc, nullptr);
        } catch (const CDataFileError&) {
        }
    }
}
