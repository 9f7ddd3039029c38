#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::UtilityGlobal;

namespace {

// The rows of a tab-separated table under tests/utilities, each as its cells; comment
// lines ('#') and blank lines are left out.
std::vector<std::vector<std::string>> ReadRows(const std::string& file) {
    std::ifstream in(std::string(ZORVO_SOURCE_DIR) + "/tests/utilities/" + file);
    if (!in)
        throw std::runtime_error("cannot read tests/utilities/" + file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::vector<std::string> cells;
        std::stringstream s(line);
        std::string cell;
        while (std::getline(s, cell, '\t'))
            cells.push_back(cell);
        rows.push_back(cells);
    }
    return rows;
}

double Num(const std::string& text) { return std::stod(text); }
bool Flag(const std::string& text) { return text == "Y"; }

} // namespace

// The defaults that are worked rather than set: a generic utility's transect chainage, a
// dimension's outside diameter, and the criteria's pullouts a thousand times the library's.
TEST(UtilityInputs, WorkedDefaults) {
    EXPECT_EQ(CGenericUtility().GetTransectChainage(3), 20.0); // (3 - 1) x 10 m
    EXPECT_DOUBLE_EQ(CUtilityDimension().GetDiameter(), 1.01); // 1.0 + 2 x 0.005 m
    const CAcceptanceCriteria c;
    EXPECT_EQ(c.GetPullout_Threshold(), 0.1);
    EXPECT_EQ(c.GetPullout_Limit(), 0.4);
    EXPECT_FALSE(CAcceptanceCriteria(false).GetEditable());
}

TEST(UtilityInputs, OnlyJointedReadsAsJointed) {
    const struct {
        const wchar_t* text;
        EUtilityType type;
    } cases[] = {{L"Jointed", eJointed},       {L"Continuous", eContinuous},
                 {L"continuous", eContinuous}, {L"jointed", eContinuous},
                 {L"abc", eContinuous},        {L"", eContinuous}};
    for (const auto& c : cases)
        EXPECT_EQ(CUtility::GetUtilityTypeFromCStr(c.text), c.type) << CString(c.text).ToUtf8();
    EXPECT_EQ(CUtility::StringifyUtilityType(eJointed), CString(L"Jointed"));
    EXPECT_EQ(CUtility::StringifyUtilityType(eContinuous), CString(L"Continuous"));
}

TEST(UtilityInputs, CriteriaByTypeGiveTheirQuantity) {
    CAcceptanceCriteria c;
    c.SetRotation_Threshold_Used(false);
    c.SetPullout_Limit_Used(false);
    c.SetRAD_Threshold(20000.0);
    c.SetRAD_Limit_Used(false);
    const double lowest = std::numeric_limits<double>::lowest();
    const struct {
        int type;
        double limit;
        bool limitUsed;
        double threshold;
        bool thresholdUsed;
    } cases[] = {
        {eTension, 98.0, true, lowest, false},
        {eCompression, 1200.0, true, lowest, false},
        {eRotation, 0.15, true, 0.025, false},
        {ePullout, 0.4, false, 0.1, true},
        {eRadiusOfCurvature, 25000.0, false, 20000.0, true},
        // 1 / 25000 m = 0.00004 /m; 1 / 20000 m = 0.00005 /m.
        {eCurvature, 0.00004, false, 0.00005, true},
        {6, lowest, false, lowest, false},
        {-1, lowest, false, lowest, false},
    };
    for (const auto& k : cases) {
        const auto type = static_cast<ECriteriaType>(k.type);
        EXPECT_DOUBLE_EQ(c.GetLimitValue(type), k.limit) << "type " << k.type;
        EXPECT_EQ(c.IsLimitUsed(type), k.limitUsed) << "type " << k.type;
        EXPECT_DOUBLE_EQ(c.GetThresholdValue(type), k.threshold) << "type " << k.type;
        EXPECT_EQ(c.IsThresholdUsed(type), k.thresholdUsed) << "type " << k.type;
    }
    EXPECT_TRUE(c.IsCurvature_Threshold_Used());
    EXPECT_FALSE(c.IsCurvature_Limit_Used());
}

TEST(UtilityInputs, JointsAndContinuityFollowTheUtilitysLength) {
    // ceil(length / pipe length) - 1: 10 m of 3 m pipes make 4 pipes and 3 joints.
    const struct {
        double start, end, pipe;
        int joints;
    } cases[] = {{0.0, 10.0, 3.0, 3},
                 {0.0, 9.0, 3.0, 2},
                 {5.0, 14.0, 3.0, 2},
                 {2.0, 4.5, 3.0, 0},
                 {0.0, 3.0, 3.0, 0}};
    for (const auto& c : cases) {
        CSpecificUtility u;
        u.SetLineStart(c.start);
        u.SetLineEnd(c.end);
        u.SetPipeLength(c.pipe);
        EXPECT_EQ(u.GetLength(), c.end - c.start);
        EXPECT_EQ(u.GetNumberOfJoints(), c.joints) << c.start << " to " << c.end;
    }

    CSpecificUtility u;
    u.SetPolySegContinuousStrains(false);
    EXPECT_FALSE(u.IsOnPolylineAndAreSegmentsContinousForPullouts()); // on a line
    u.SetDisplacementDataType(eDisplacementPolyline);
    EXPECT_TRUE(u.IsOnPolylineAndAreSegmentsContinousForPullouts());
    EXPECT_FALSE(u.IsOnPolylineAndAreSegmentsContinousForStrains());
}

// Every row of the library of pipe sections, in its place, read-only.
TEST(UtilityStandardTables, DimensionsHoldTheLibraryInOrder) {
    const ZorvoData doc;
    const auto rows = ReadRows("StandardDimensions.tsv");
    ASSERT_EQ(rows.size(), 114u);
    ASSERT_EQ(doc.NumUtilityDimensions(), 114);
    EXPECT_EQ(doc.NumStandardUtilityDimensions(), 114);
    EXPECT_EQ(doc.NumEditableUtilityDimensions(), 0);
    for (const auto& row : rows) {
        const int n = std::stoi(row.at(0));
        const CUtilityDimension& d = doc.GetUtilityDimension(n);
        EXPECT_EQ(d.GetName().ToUtf8(), row.at(1)) << "row " << n;
        EXPECT_EQ(d.GetInternalDiameter(), Num(row.at(2))) << "row " << n;
        EXPECT_EQ(d.GetWallThickness(), Num(row.at(3))) << "row " << n;
        EXPECT_FALSE(d.GetEditable()) << "row " << n;
    }
    // Row 4's bore of 7 mm: external diameter 0.007 + 2 x 0.006 = 0.019 m.
    EXPECT_NEAR(doc.GetUtilityDimension(4).GetDiameter(), 0.019, 1e-15);
}

// Every row of the library of criteria, with the values and flags that earlier rows
// leave behind.
TEST(UtilityStandardTables, CriteriaCarryWhatEarlierRowsLeft) {
    const ZorvoData doc;
    const auto rows = ReadRows("StandardCriteria.tsv");
    ASSERT_EQ(rows.size(), 20u);
    ASSERT_EQ(doc.NumAcceptanceCriteria(), 20);
    EXPECT_EQ(doc.NumStandardAcceptanceCriteria(), 20);
    for (const auto& row : rows) {
        const int n = std::stoi(row.at(0));
        const CAcceptanceCriteria& c = doc.GetAcceptanceCriteria(n);
        const std::string at = "row " + row.at(0);
        EXPECT_EQ(c.GetName().ToUtf8(), row.at(1)) << at;
        EXPECT_EQ(c.GetAllowableStrain_Tension(), Num(row.at(2))) << at;
        EXPECT_EQ(c.IsAllowableStrain_Tension_Used(), Flag(row.at(3))) << at;
        EXPECT_EQ(c.GetAllowableStrain_Compression(), Num(row.at(4))) << at;
        EXPECT_EQ(c.IsAllowableStrain_Compression_Used(), Flag(row.at(5))) << at;
        EXPECT_EQ(c.GetRotation_Threshold(), Num(row.at(6))) << at;
        EXPECT_EQ(c.IsRotation_Threshold_Used(), Flag(row.at(7))) << at;
        EXPECT_EQ(c.GetRotation_Limit(), Num(row.at(8))) << at;
        EXPECT_EQ(c.IsRotation_Limit_Used(), Flag(row.at(9))) << at;
        EXPECT_EQ(c.GetPullout_Threshold(), Num(row.at(10))) << at;
        EXPECT_EQ(c.IsPullout_Threshold_Used(), Flag(row.at(11))) << at;
        EXPECT_EQ(c.GetPullout_Limit(), Num(row.at(12))) << at;
        EXPECT_EQ(c.IsPullout_Limit_Used(), Flag(row.at(13))) << at;
        EXPECT_EQ(c.GetAxialStrainRF_Tension(), Num(row.at(14))) << at;
        EXPECT_EQ(c.GetAxialStrainRF_Compression(), Num(row.at(15))) << at;
        EXPECT_EQ(c.GetPulloutRF_Axial(), Num(row.at(16))) << at;
        EXPECT_EQ(c.GetPulloutRF_Flexural(), 1.0) << at;
        EXPECT_EQ(c.GetRotationFactor(), 1.0) << at;
        EXPECT_EQ(c.GetBendingFactorTension(), 1.0) << at;
        EXPECT_EQ(c.GetBendingFactorCompression(), 1.0) << at;
        EXPECT_EQ(c.GetRAD_Threshold(), 25000.0) << at;
        EXPECT_EQ(c.GetRAD_Limit(), 25000.0) << at;
        EXPECT_TRUE(c.IsRAD_Threshold_Used() && c.IsRAD_Limit_Used()) << at;
        EXPECT_FALSE(c.GetEditable()) << at;
    }
}

TEST(UtilityStandardTables, CreationReplacesTheTableAndUserRowsFollowIt) {
    ZorvoData doc;
    CUtilityDimension mine;
    mine.SetName(L"Trunk main");
    doc.SetUtilityDimension(doc.NumUtilityDimensions() + 1, mine);
    doc.SetAcceptanceCriteria(doc.NumAcceptanceCriteria() + 1, CAcceptanceCriteria());
    EXPECT_EQ(doc.NumStandardUtilityDimensions(), 114);
    EXPECT_EQ(doc.NumEditableUtilityDimensions(), 1);
    EXPECT_EQ(doc.NumEditableAcceptanceCriteria(), 1);
    EXPECT_EQ(doc.NumRecord(eModuleUtilityDimensions), 115);
    EXPECT_EQ(doc.NumRecord(eModuleAcceptanceCriteria), 21);

    // A utility of the user's section: 1.0 + 2 x 0.005 m.
    CSpecificUtility u;
    u.SetDimension(115);
    doc.SetSpecificUtility(1, u);
    doc.SetGenericUtility(2, CGenericUtility());
    EXPECT_DOUBLE_EQ(doc.GetSpecificUtilityDiameter(1), 1.01);
    EXPECT_EQ(doc.NumRecord(eModuleSpecificUtilities), 1);
    EXPECT_EQ(doc.NumRecord(eModuleGenericUtilities), 2);

    doc.CreateStandardUtilityDimensions();
    doc.CreateStandardAcceptanceCriteria();
    EXPECT_EQ(doc.NumUtilityDimensions(), 114);
    EXPECT_EQ(doc.NumAcceptanceCriteria(), 20);

    // Empty gives back the new project: the libraries and no utilities.
    doc.Empty();
    EXPECT_TRUE(doc == ZorvoData());
    EXPECT_EQ(doc.NumSpecificUtilities(), 0);
}
