#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

CBuildingDamageResult Segment(double start, double end, int category) {
    CBuildingDamageResult r;
    r.SetStart(start);
    r.SetEnd(end);
    r.SetDamageCategory(category);
    return r;
}

// Line 1 runs 50 m from (0, 0, 10) to (30, 40, 10), so a distance d along it is the
// point (0.6 d, 0.8 d, 10). Building 1 "Terrace" / "Sub A" has two vertical offsets,
// building 2 "Shed" one and no results at all.
//   stage 0, offset 1: segment 1 over 0 to 20 m (ends (0, 0) and (12, 16)), category 1,
//                      hogging; segment 2 over 20 to 50 m ((12, 16) to (30, 40)),
//                      category 2, sagging, joined to segment 1; the joined store holds
//                      one segment over 0 to 50 m, category 2.
//   stage 1, offset 1: one segment over 5 to 10 m, category 3, no curvature, no
//                      gradients; its sums count from the line's start: 0 to 5 m, (0, 0)
//                      to (3, 4). A joined store without a join: never written.
ZorvoData TwoBuildings() {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetPoint1({0.0, 0.0, 10.0});
    line.SetPoint2({30.0, 40.0, 10.0});
    doc.SetDisplacementLine(1, line);

    CSpecificBuilding terrace;
    terrace.SetName(L"Terrace");
    terrace.SetSubBuildingName(L"Sub A");
    terrace.SetLineEnd(50.0);
    CBuildingDamageProperties properties;
    properties.SetVerticalOffsets({0.0, -2.0});
    terrace.SetBuildingDamageProperties(properties);

    // start, end, deflection ratio, settlement, horizontal strain, curvature, max and min
    // curvature, horizontal gradient found and its value, vertical the same, run start
    CBuildingDamageResult hog(0.0, 20.0, 1e-4, -0.012, 2e-5, GeoGlobal::eHogging, -0.002, 0.0, true,
                              0.001, true, -0.0025, true);
    hog.SetMaxTensileStrain(0.0006);
    hog.SetDamageCategory(1);
    // Its vertical gradient is larger than none but the first's, and is not flagged.
    CBuildingDamageResult sag(20.0, 50.0, -3e-4, -0.015, -5e-5, GeoGlobal::eSagging, 0.004, 0.0,
                              false, 0.0, false, 0.002, false);
    sag.SetMaxTensileStrain(0.0009);
    sag.SetDamageCategory(2);
    terrace.SetBuildingDamageResults(0, false, 0, {hog, sag});
    terrace.SetBuildingDamageResults(0, true, 0, {Segment(0.0, 50.0, 2)});

    CBuildingDamageResult flat = Segment(5.0, 10.0, 3);
    flat.SetCurvature(GeoGlobal::eNoCurvature);
    flat.SetMaxSettlement(-0.004);
    flat.SetMaxTensileStrain(0.0016);
    terrace.SetBuildingDamageResults(1, false, 0, {flat});
    terrace.SetBuildingDamageResults(1, true, 0, {Segment(0.0, 5.0, 1)});
    doc.SetSpecificBuilding(1, terrace);

    CSpecificBuilding shed;
    shed.SetName(L"Shed");
    shed.SetSubBuildingName(L"");
    doc.SetSpecificBuilding(2, shed);
    return doc;
}

const char* const kHeading = "Displacement,0\nLength,0\n";

const char* const kSegmentsStage0 =
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,0,1,Terrace,Sub A,1,1,0,0,10,12,16,10,1\n"
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,0,1,Terrace,Sub A,1,2,12,16,10,30,40,10,2\n"
    "BDA_SPECIFIC_RESULT_COMBINED_SEGMENTS,0,1,Terrace,Sub A,1,1,0,0,10,30,40,10,2\n";
const char* const kSegmentsStage1 =
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,1,1,Terrace,Sub A,1,1,0,0,10,3,4,10,3\n";

// Offset 1 of stage 0, by size with its sign: deflection ratio -3e-4, horizontal strain
// -5e-5, slope -0.0025, settlement -0.015, tensile strain 0.0009; horizontal gradient
// 0.001 and vertical -0.0025, both flagged by segment 1; radii 1 / 0.002 = 500 m hogging
// and 1 / 0.004 = 250 m sagging; worst category 2. An offset without segments has zeros,
// "-" and -1; so has stage 1's offset 1 in its flags and radii.
const char* const kCriticalStage0 =
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,0,1,Terrace,Sub A,1,"
    "-0.0003,-5e-05,-0.0025,-0.015,0.0009,0.001,-0.0025,500,250,2\n"
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,0,1,Terrace,Sub A,2,"
    "0,0,0,0,0,-,-,-,-,-1\n"
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,0,2,Shed,,1,0,0,0,0,0,-,-,-,-,-1\n";
const char* const kCriticalStage1 =
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,1,1,Terrace,Sub A,1,"
    "0,0,0,-0.004,0.0016,-,-,-,-,3\n"
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,1,1,Terrace,Sub A,2,"
    "0,0,0,0,0,-,-,-,-,-1\n"
    "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,1,2,Shed,,1,0,0,0,0,0,-,-,-,-,-1\n";

std::string Written(const ZorvoData& doc, const SCSVExportData& data, bool critical) {
    std::ostringstream out;
    CStdioFile file(out);
    if (critical)
        doc.WriteCSVBDAResults_CritValues(file, CUnit(), data);
    else
        doc.WriteCSVBDAResults(file, CUnit(), data);
    return out.str();
}

SCSVExportData Export(int stage, bool uncombined, bool combined, bool leaveOutStage = false,
                      int numStages = 2) {
    SCSVExportData data;
    data.stage = stage;
    data.numStages = numStages;
    data.specificUncombined = uncombined;
    data.specificCombined = combined;
    data.leaveOutStage = leaveOutStage;
    return data;
}

} // namespace

TEST(BuildingCsv, TablesByteForByte) {
    const ZorvoData doc = TwoBuildings();
    const std::string all0 = kSegmentsStage0, all1 = kSegmentsStage1;
    // Stage 0's uncombined rows alone: the two rows before the combined one.
    const std::string uncombined0 = all0.substr(0, all0.rfind("BDA_SPECIFIC_RESULT_COMBINED"));
    const struct {
        const char* name;
        SCSVExportData data;
        std::string segments, critical;
    } cases[] = {
        {"every stage, both tables", Export(-1, true, true), kHeading + all0 + all1,
         kHeading + std::string(kCriticalStage0) + kCriticalStage1},
        {"stage 1 only", Export(1, true, true), kHeading + all1,
         kHeading + std::string(kCriticalStage1)},
        {"uncombined only", Export(0, true, false), kHeading + uncombined0,
         kHeading + std::string(kCriticalStage0)},
        {"combined only", Export(0, false, true), kHeading + all0.substr(uncombined0.size()),
         kHeading + std::string(kCriticalStage0)},
        // No segment table: not even a heading. The critical values have no switch.
        {"all tables off", Export(-1, false, false), "",
         kHeading + std::string(kCriticalStage0) + kCriticalStage1},
        {"no stages", Export(-1, true, true, false, 0), kHeading, kHeading},
        {"stage column left out", Export(1, true, false, true),
         kHeading + std::string("BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS,1,Terrace,Sub A,1,1,0,0,"
                                "10,3,4,10,3\n"),
         kHeading + std::string("BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,1,Terrace,"
                                "Sub A,1,0,0,0,-0.004,0.0016,-,-,-,-,3\n"
                                "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,1,Terrace,"
                                "Sub A,2,0,0,0,0,0,-,-,-,-,-1\n"
                                "BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES,2,Shed,,1,"
                                "0,0,0,0,0,-,-,-,-,-1\n")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Written(doc, c.data, false), c.segments) << c.name;
        EXPECT_EQ(Written(doc, c.data, true), c.critical) << c.name;
    }
}

TEST(BuildingCsv, AFailedWriteThrows) {
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    CStdioFile file(out);
    EXPECT_THROW(TwoBuildings().WriteCSVBDAResults(file, CUnit(), Export(-1, true, true)),
                 std::runtime_error);
    EXPECT_THROW(CStdioFile("/nonexistent/buildings.csv"), std::runtime_error);
}
