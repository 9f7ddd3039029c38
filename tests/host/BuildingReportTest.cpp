#include "host/BuildingReport.h"
#include "modelfile/ZorvoModelFile.h"
#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

#include "tests/support/Host.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

// The long tunnel under a 120 m line across it at level 20, and a building over the
// whole line: its settlement trough (i about 10 m) is cut hogging, sagging, hogging.
std::string BuildingOverTunnel(const std::string& dir) {
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    CDisplacementLine line;
    line.SetName(L"Across");
    line.SetPoint1({0.0, -60.0, 20.0});
    line.SetPoint2({0.0, 60.0, 20.0});
    line.SetIntervalsAlongLine(120);
    doc.SetDisplacementLine(1, line);
    CSpecificBuilding building;
    building.SetName(L"Terrace");
    building.SetLine(1);
    building.SetLineStart(0.0);
    building.SetLineEnd(120.0);
    building.SetHeight(8.0);
    doc.SetSpecificBuilding(1, building);
    const std::string path = dir + "/building.json";
    FileIO::ZorvoModelFile::Save(path, doc);
    return path;
}

size_t Count(const std::string& text, const std::string& what) {
    size_t n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++n;
    return n;
}

} // namespace

TEST(BuildingReport, CsvHoldsTheTablesAndJoinedSegmentsAreAssessed) {
    const TempDir scratch;
    const std::string model = BuildingOverTunnel(scratch.path);
    const std::string csv = scratch.path + "/tables";

    const Outcome plain = Zorvo({"solve", model, "--csv", csv, "--threads", "1"});
    ASSERT_EQ(plain.status, 0) << plain.err;
    EXPECT_NE(plain.out.find("wrote " + csv + "/buildings.csv\n"), std::string::npos);
    EXPECT_NE(plain.out.find("Building 1 (Terrace, "), std::string::npos) << plain.out;
    EXPECT_NE(plain.out.find("  stage 0, offset 1: category "), std::string::npos) << plain.out;
    std::string table = ReadFile(csv + "/buildings.csv");
    EXPECT_EQ(table.rfind("Displacement,0\nLength,0\nBDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,0,1,"
                          "Terrace,",
                          0),
              0u)
        << table;
    EXPECT_EQ(Count(table, "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,0,1,Terrace,"), 3u) << table;
    EXPECT_EQ(Count(table, "BDA_SPECIFIC_RESULT_COMBINED_SEGMENTS"), 0u);
    EXPECT_EQ(Count(table, "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,0,1,"), 1u);

    // Segment 2 joined to segment 1: two joined segments, the second the third as cut.
    const Outcome joined =
        Zorvo({"solve", model, "--join", "1/1/2", "--csv", csv, "--threads", "1"});
    ASSERT_EQ(joined.status, 0) << joined.err;
    EXPECT_NE(joined.out.find("; joined: category "), std::string::npos) << joined.out;
    table = ReadFile(csv + "/buildings.csv");
    EXPECT_EQ(Count(table, "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,0,1,Terrace,"), 3u) << table;
    EXPECT_EQ(Count(table, "BDA_SPECIFIC_RESULT_COMBINED_SEGMENTS,0,1,Terrace,"), 2u) << table;

    // A segment past the last is no usage error: nothing is joined, and the user is told.
    const Outcome past = Zorvo({"solve", model, "--join", "1/1/9", "--threads", "1"});
    EXPECT_EQ(past.status, 0) << past.err;
    EXPECT_NE(past.err.find("note: --join 1/1/9: building 1 has no segment 9 at offset 1 at any "
                            "stage; nothing is joined\n"),
              std::string::npos)
        << past.err;
}

TEST(BuildingReport, BadJoinsAreUsageErrors) {
    const TempDir scratch;
    const std::string model = BuildingOverTunnel(scratch.path);
    const struct {
        const char* join;
        const char* message;
    } cases[] = {
        {"2/1/2", "--join 2/1/2: there is no building 2 (the project has 1)"},
        {"1/2/2", "--join 1/2/2: building 1 has no vertical offset 2 (it has 1)"},
        {"1/1/1", "--join 1/1/1: segment 1 has no segment before it to be joined to; give 2 or "
                  "more"},
        {"1/x/2", "--join 1/x/2: expected BUILDING/OFFSET/SEGMENT, three whole numbers such as "
                  "1/1/2"},
        // Four numbers once passed as building 0.
        {"1/1/2/3", "--join 1/1/2/3: expected BUILDING/OFFSET/SEGMENT"},
    };
    for (const auto& c : cases) {
        const Outcome r = Zorvo({"solve", model, "--join", c.join});
        EXPECT_EQ(r.status, 2) << c.join;
        EXPECT_NE(r.err.find(std::string("zorvo: ") + c.message), std::string::npos)
            << c.join << ": " << r.err;
    }
}

// Each parameter names the segment of largest size, the later of equal sizes; a radius
// only a segment of that curvature. An offset without segments keeps the defaults.
TEST(BuildingReport, SummaryNamesTheCriticalSegments) {
    ZorvoData doc;
    CSpecificBuilding building;
    building.SetSubBuildingName(L"East");
    CBuildingDamageProperties properties;
    properties.SetVerticalOffsets({0.0, 3.0});
    building.SetBuildingDamageProperties(properties);
    // settlement, tensile strain, slope, curvature with its sense
    const struct {
        double settlement, strain, slope, curvature;
        GeoGlobal::ECurvature sense;
    } segments[] = {{-0.010, 0.0005, 0.002, -0.003, GeoGlobal::eHogging},
                    {0.010, 0.0004, -0.001, 0.001, GeoGlobal::eSagging},
                    {-0.002, 0.0005, 0.0, 0.0, GeoGlobal::eNoCurvature}};
    std::vector<CBuildingDamageResult> results;
    for (const auto& g : segments) {
        CBuildingDamageResult r;
        r.SetStart(10.0 * static_cast<double>(results.size()));
        r.SetMaxSettlement(g.settlement);
        r.SetMaxTensileStrain(g.strain);
        r.SetMaxGradientOfVDispCurve(g.slope);
        r.SetMaxCurvature(g.curvature);
        r.SetCurvature(g.sense);
        results.push_back(r);
    }
    building.SetBuildingDamageResults(0, false, 0, results);
    doc.SetSpecificBuilding(1, building);

    const ZorvoBuildingSummary summary = BuildingReport::Summary(doc, 0, 1, 0);
    const struct {
        ZorvoBuildingSummary::EParameters parameter;
        int segment;
        const wchar_t* curvature;
    } expected[] = {{ZorvoBuildingSummary::eMaxSlope, 1, L"Hogging"},
                    {ZorvoBuildingSummary::eMaxSettlement, 2, L"Sagging"},
                    {ZorvoBuildingSummary::eMaxTensileStrain, 3, L"None"},
                    {ZorvoBuildingSummary::eMinRadiusOfCurvatureHogging, 1, L"Hogging"},
                    {ZorvoBuildingSummary::eMinRadiusOfCurvatureSagging, 2, L"Sagging"}};
    for (const auto& e : expected) {
        const CCriticalSegmentInformation info = summary.GetCriticalSegInfo(e.parameter);
        EXPECT_EQ(info.GetCriticalSegment(), e.segment) << e.parameter;
        EXPECT_EQ(info.GetCriticalVerticalOffset(), 1) << e.parameter;
        EXPECT_EQ(info.GetCriticalCurvature(), CString(e.curvature)) << e.parameter;
        EXPECT_EQ(info.GetStart(), 10.0 * (e.segment - 1)) << e.parameter;
        EXPECT_EQ(info.GetMaxCurvature(), segments[e.segment - 1].curvature) << e.parameter;
    }
    EXPECT_EQ(summary.GetCriticalSegInfo(ZorvoBuildingSummary::eMaxSlope).GetCriticalSubBuilding(),
              CString(L"East"));

    const CCriticalSegmentInformation none =
        BuildingReport::Summary(doc, 0, 1, 1).GetCriticalSegInfo(ZorvoBuildingSummary::eMaxSlope);
    EXPECT_EQ(none.GetCriticalSegment(), -1);
    EXPECT_EQ(none.GetCriticalCurvature(), CString(L"-"));
    EXPECT_EQ(none.GetMaxSlope(), -1.0);
}
