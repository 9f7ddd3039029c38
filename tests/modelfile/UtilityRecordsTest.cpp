#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include "tests/support/ModelFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;
using namespace Tevra::Testing;
using namespace Tevra::UtilityGlobal;

namespace {

// A binary file of one module, of a generation, with one record laid out by the writer.
std::string OneModule(const wchar_t* description, int key, int generation,
                      const std::function<void(CDataFile&)>& fields) {
    CDataFile f(CDataFile::eBinary);
    CKeyParam h;
    h.key = key;
    h.description = description;
    h.count = 1;
    h.generation = generation;
    f.WriteModuleHeader(h);
    f.BeginRecord(0);
    fields(f);
    f.EndRecord();
    f.EndModule();
    return f.Contents();
}

std::string Modules(const std::string& modules) { return R"({"modules": [)" + modules + "]}"; }

} // namespace

// The library is never saved; the user's rows come back behind it at the numbers they
// had, editable, so the numbers that utilities hold still name them.
TEST(UtilityRecords, UserRowsAloneAreSavedAndFollowTheLibrary) {
    ZorvoData doc;
    CUtilityDimension section;
    section.SetName(L"Relined main");
    section.SetInternalDiameter(0.5);
    doc.SetUtilityDimension(115, section);
    CAcceptanceCriteria limits;
    limits.SetName(L"Owner's limits");
    limits.SetAllowableStrain_Compression_Used(false);
    doc.SetAcceptanceCriteria(21, limits);
    doc.SetAcceptanceCriteria(22, CAcceptanceCriteria());
    CSpecificUtility u;
    u.SetDimension(115);
    u.SetCriteria(22);
    doc.SetSpecificUtility(1, u);

    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const std::string text = ZorvoModelFile::Write(doc, form).Contents();
        EXPECT_EQ(text.find("Steel - OD"), std::string::npos); // no library row
        EXPECT_EQ(text.find("Concrete"), std::string::npos);
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_TRUE(back == doc);
        ASSERT_EQ(back.NumUtilityDimensions(), 115);
        ASSERT_EQ(back.NumAcceptanceCriteria(), 22);
        EXPECT_EQ(back.GetUtilityDimension(115).GetName(), CString(L"Relined main"));
        EXPECT_TRUE(back.GetUtilityDimension(115).GetEditable());
        EXPECT_EQ(back.GetAcceptanceCriteria(21).GetName(), CString(L"Owner's limits"));
        EXPECT_TRUE(back.GetAcceptanceCriteria(22).GetEditable());
    }
    // With the library alone neither module is written; the options always are.
    const std::string plain = ZorvoModelFile::Write(ZorvoData(), CDataFile::eJson).Contents();
    EXPECT_EQ(plain.find("Utility Dimensions"), std::string::npos);
    EXPECT_EQ(plain.find("\"Acceptance Criteria\""), std::string::npos);
    EXPECT_NE(plain.find("Utility Calculation Options"), std::string::npos);
}

TEST(UtilityRecords, HandWrittenJsonTakesDefaultsForFieldsLeftOut) {
    const std::string file = Modules(
        R"({"description": "Utility Dimensions", "records": [{"utilityDimension": {"name": "D"}}]},
           {"description": "Acceptance Criteria", "records": [{"acceptanceCriteria":
               {"pulloutLimit": {"used": "NO"}, "rotationFactor": 2}}]},
           {"description": "Specific Utilities", "records": [{"specificUtility":
               {"utility": {"name": "Cable", "utilityType": "continuous"},
                "displacementDataType": "Displacement Polyline"}}]},
           {"description": "Generic Utilities", "records": [{"utility": {}, "dispPoints": 5}]})");
    CDataFile in = CDataFile::FromBytes(file, "hand.json");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);

    const CUtilityDimension& d = doc.GetUtilityDimension(115);
    EXPECT_EQ(d.GetName(), CString(L"D"));
    EXPECT_EQ(d.GetInternalDiameter(), 1.0);
    EXPECT_EQ(d.GetWallThickness(), 0.005);
    EXPECT_TRUE(d.GetEditable());

    const CAcceptanceCriteria& c = doc.GetAcceptanceCriteria(21);
    EXPECT_EQ(c.GetName(), CString(L"Acceptance Criteria #"));
    EXPECT_EQ(c.GetPullout_Limit(), 0.4);
    EXPECT_FALSE(c.IsPullout_Limit_Used());
    EXPECT_EQ(c.GetRotationFactor(), 2.0);
    EXPECT_EQ(c.GetAllowableStrain_Tension(), 98.0);

    // Any text but "Jointed" is continuous.
    const CSpecificUtility& s = doc.GetSpecificUtility(1);
    EXPECT_EQ(s.GetName(), CString(L"Cable"));
    EXPECT_EQ(s.GetUtilityType(), eContinuous);
    EXPECT_EQ(s.GetDisplacementDataType(), eDisplacementPolyline);
    EXPECT_EQ(s.GetSubUtilityName(), CString(L"Sub #"));
    EXPECT_EQ(s.GetPipeLength(), 3.0);

    const CGenericUtility& g = doc.GetGenericUtility(1);
    EXPECT_EQ(g.GetName(), CString(L"Generic Utility #"));
    EXPECT_EQ(g.GetDispPoints(), 5);
    EXPECT_EQ(g.GetInterval(), 10.0);
}

// Options of generation 3 held the project's choice of continuous polyline segments, which
// each specific utility now holds for itself.
TEST(UtilityRecords, OptionsOfGeneration3GiveTheirPolylineChoiceToEachUtility) {
    CSpecificUtility u;
    u.SetDisplacementDataType(eDisplacementPolyline);
    const std::string utilities =
        OneModule(L"Specific Utilities", 202180, 15, [&](CDataFile& f) { u.Write(f); });
    const std::string magic = utilities.substr(0, 12); // a module follows the file header
    for (bool continuous : {false, true}) {
        const std::string options =
            OneModule(L"Utility Calculation Options", 202230, 3, [&](CDataFile& f) {
                f.WriteBool(jnNeglectBenificialContribution, true);
                f.WriteBool(jnPolylineSegmentsContinuous, continuous);
            });
        CDataFile in = CDataFile::FromBytes(options + utilities.substr(magic.size()), "old.zorvo");
        ZorvoData doc;
        ZorvoModelFile::Read(in, doc, nullptr);
        EXPECT_TRUE(doc.GetUtilityCalculationOptions().GetNeglectBenificialContribution());
        EXPECT_EQ(doc.GetUtilityCalculationOptions().GetPolylineSegmentsContinuous(), continuous);
        EXPECT_EQ(doc.GetSpecificUtility(1).GetPolySegContinuousPullouts(), continuous);
        EXPECT_EQ(doc.GetSpecificUtility(1).GetPolySegContinuousStrains(), continuous);
    }
    // Options of the current generation leave the utility's own flags alone.
    CDataFile in =
        CDataFile::FromBytes(ZorvoModelFile::Write(ZorvoData(), CDataFile::eBinary).Contents() +
                                 utilities.substr(magic.size()),
                             "new.zorvo");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);
    EXPECT_FALSE(doc.GetUtilityCalculationOptions().GetPolylineSegmentsContinuous().has_value());
    EXPECT_TRUE(doc.GetSpecificUtility(1).GetPolySegContinuousPullouts());
}

// Binary records whose layout this version does not know are refused by name, never read
// as something else.
TEST(UtilityRecords, UnknownBinaryGenerationsAreRefused) {
    const struct {
        std::string bytes;
        const char* message;
    } cases[] = {
        {OneModule(L"Acceptance Criteria", 202170, 5,
                   [](CDataFile& f) { CAcceptanceCriteria().Write(f); }),
         "(module 'Acceptance Criteria', record 1): acceptance criteria of generation 5, which "
         "this version cannot read: it reads generation 6"},
        {OneModule(L"Utility Dimensions", 202160, 2,
                   [](CDataFile& f) {
                       f.WriteInt(jnVersion, 1);
                       f.WriteString(jnName, L"Old");
                   }),
         "a utility dimension of generation 1, which this version cannot read: it reads "
         "generation 2"},
        {OneModule(L"Generic Utilities", 202210, 9,
                   [](CDataFile& f) { CGenericUtility().Write(f); }),
         "a generic utility of generation 9, which this version cannot read"},
        {OneModule(L"Utility Calculation Options", 202230, 2,
                   [](CDataFile& f) { f.WriteBool(jnNeglectBenificialContribution, true); }),
         "utility calculation options of generation 2"},
    };
    for (const auto& c : cases) {
        const std::string message = ReadError(c.bytes, "u.zorvo");
        EXPECT_NE(message.find(c.message), std::string::npos) << message;
    }
}

// The samples a run left on a specific utility come back slot by slot, empty slots kept.
TEST(UtilityRecords, SpecificUtilityMovementsRoundTrip) {
    ZorvoData doc;
    CSpecificUtility u;
    GeoDispResult r;
    r.SetName(L"Across");
    r.SetPoint({1.5, -2.0, 20.0});
    r.SetXdisplacement(0.001);
    r.SetZdisplacement(-0.0125);
    r.SetMajorPrincipalStrain(3e-4);
    r.SetPointType(eLine);
    r.SetPointGroup(2);
    r.SetImportMatch(8);
    u.SetHorizontalMovementResult(0, 2, r);
    u.SetHorizontalMovementResult(2, 1, r);
    doc.SetSpecificUtility(1, u);
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_TRUE(back == doc);
        const CSpecificUtility& b = back.GetSpecificUtility(1);
        EXPECT_EQ(b.NumHorizontalMovementResults(0), 2);
        EXPECT_EQ(b.NumHorizontalMovementResults(1), 0);
        EXPECT_TRUE(b.GetHorizontalMovementResult(2, 1) == r);
    }
}

// Joint results and strain rows come back to the bit in both forms, not-a-numbers and
// infinities included, with empty iterations and slots kept in place.
TEST(UtilityRecords, SpecificUtilityJointsAndStrainsRoundTripToTheBit) {
    const double inf = std::numeric_limits<double>::infinity();
    ZorvoData doc;
    CSpecificUtility u;
    CPulloutAndRotation joint;
    joint.SetPullout_Axial_Left(-0.0);
    joint.SetPullout_Axial_Right(1.0 / 3.0);
    joint.SetPullout_Flexural(2.5e-7);
    joint.SetRotation(-inf);
    joint.SetVerticalCurvature(GeoGlobal::eSagging);
    CUtilityLocationInfo info;
    info.SetLocation(12.125);
    info.SetDisplacementNPlus({0.1, -0.2, inf});
    info.SetPerpendicularNPlus(std::nan(""));
    joint.SetLocationInfo(info);
    u.SetPulloutAndRotation(1, 2, 1, joint);
    CUtilityStrain row;
    row.SetLocation(3.0);
    row.SetAxialStrain(-1.0 / 7.0);
    row.SetIsOrientationAngle(false);
    row.SetOrientationAngle(std::nan(""));
    row.SetIsRadiusofCurvature(false);
    row.SetRadiusofCurvature(inf);
    u.SetUtilityStrain(0, 2, row);
    doc.SetSpecificUtility(1, u);
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_TRUE(back == doc);
        const CSpecificUtility& b = back.GetSpecificUtility(1);
        EXPECT_EQ(b.NumPulloutAndRotationIterations(0), 0);
        EXPECT_EQ(b.NumPulloutAndRotationIterations(1), 2);
        const CPulloutAndRotation& j = b.GetPulloutAndRotation(1, 2, 1);
        EXPECT_TRUE(std::signbit(j.GetPullout_Axial_Left()));
        EXPECT_EQ(j.GetPullout_Axial_Right(), 1.0 / 3.0);
        EXPECT_EQ(j.GetRotation(), -inf);
        EXPECT_TRUE(std::isnan(j.GetLocationInfo().GetDisplacementN().y));
        EXPECT_TRUE(std::isnan(j.GetLocationInfo().GetPerpendicularNPlus()));
        EXPECT_EQ(b.NumUtilityStrains(0), 2);
        EXPECT_EQ(b.GetUtilityStrain(0, 2).GetRadiusofCurvature(), inf);
        EXPECT_FALSE(b.GetUtilityStrain(0, 2).GetIsOrientationAngle());
    }
}

// A count of joint slots that the record cannot hold is refused before anything is sized.
TEST(UtilityRecords, JointSlotCountBeyondTheRecordIsRefused) {
    const CSpecificUtility u;
    const std::string bytes = OneModule(L"Specific Utilities", 202180, 15, [&](CDataFile& f) {
        u.CUtility::Write(f);
        f.WriteInt(jnVersion, 15);
        f.WriteString(jnSubUtilityName, L"Sub");
        f.WriteInt(jnLine, 1);
        f.WriteDouble(jnLineStart, 0.0);
        f.WriteDouble(jnLineEnd, 10.0);
        f.WriteInt(jnDisplacementDataType, 0);
        f.WriteInt(jnDisplacementPolyline, 1);
        f.WriteBool(jnPolySegContinuousPullouts, true);
        f.WriteBool(jnPolySegContinuousStrains, true);
        f.WriteInt(jnStageResults, 2000000000);
    });
    const std::string message = ReadError(bytes, "u.zorvo");
    EXPECT_NE(message.find("field 'stageResults' counts 2000000000 elements, more than the"),
              std::string::npos)
        << message;
}
