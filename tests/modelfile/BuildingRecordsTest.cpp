#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include "tests/support/ModelFiles.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;
using namespace Tevra::FileIO;

namespace {

// A binary file of one module with one record, laid out by the given writer, opened at
// the start of that record.
CDataFile OneRecord(const std::function<void(CDataFile&)>& fields) {
    CDataFile f(CDataFile::eBinary);
    CKeyParam h;
    h.key = 1;
    h.description = L"Test";
    h.count = 1;
    h.generation = 1;
    f.WriteModuleHeader(h);
    f.BeginRecord(0);
    fields(f);
    f.EndRecord();
    f.EndModule();
    CDataFile in = CDataFile::FromBytes(f.Contents(), "old.zorvo");
    in.NextModule(h);
    in.BeginReadRecord(0);
    return in;
}

} // namespace

TEST(BuildingRecords, StrainsRecordsKeepTheirNumbersThroughSaveAndLoad) {
    // The new document makes "Burland Strain Limits" as record 1 before the file is
    // read: the file's list must replace it, not follow it, or a building that names
    // record 3 would find record 2 after a load.
    ZorvoData doc;
    CDamageCategoryStrains masonry, timber;
    masonry.SetName(L"Masonry");
    masonry.SetStrainLimit(CDamageCategoryStrains::eSlight, 0.0009);
    timber.SetName(L"Timber");
    doc.SetDamageCategoryStrains(2, masonry);
    doc.SetDamageCategoryStrains(3, timber);
    CSpecificBuilding b;
    CBuildingDamageProperties p = b.GetBuildingDamageProperties();
    p.SetDamageCategoryStrains(3);
    b.SetBuildingDamageProperties(p);
    doc.SetSpecificBuilding(1, b);
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        for (const ZorvoData& start : {doc, ZorvoData()}) {
            const ZorvoData back = RoundTrip(RoundTrip(start, form), form);
            ASSERT_EQ(back.NumDamageCategoryStrains(), start.NumDamageCategoryStrains());
            for (int n = 1; n <= start.NumDamageCategoryStrains(); ++n)
                EXPECT_TRUE(back.GetDamageCategoryStrains(n) == start.GetDamageCategoryStrains(n));
        }
        const ZorvoData back = RoundTrip(doc, form);
        const int n =
            back.GetSpecificBuilding(1).GetBuildingDamageProperties().GetDamageCategoryStrains();
        EXPECT_EQ(back.GetDamageCategoryStrains(n).GetName(), CString(L"Timber"));
    }
    // A file without the module keeps the new document's own record.
    ZorvoData none;
    CDataFile empty = CDataFile::FromBytes(R"({"modules": []})", "m.json");
    ZorvoModelFile::Read(empty, none, nullptr);
    ASSERT_EQ(none.NumDamageCategoryStrains(), 1);
    EXPECT_EQ(none.GetDamageCategoryStrains(1).GetName(), CString(L"Burland Strain Limits"));
}

TEST(BuildingRecords, OlderGenerationsReadTheFieldsTheyHeld) {
    // A strains record of generation 1 has a number before its name, which is dropped.
    CDataFile f = OneRecord([](CDataFile& o) {
        o.WriteInt(jnVersion, 7);
        o.WriteString(jnName, L"Old limits");
        o.WriteDoubleArray(jnStrainLimits, {0.0, 0.001, 0.002, 0.003, 0.004});
    });
    CDamageCategoryStrains s;
    s.Read(f, 1);
    EXPECT_EQ(s.GetName(), CString(L"Old limits"));
    EXPECT_EQ(s.GetStrainLimit(CDamageCategoryStrains::eSevere), 0.004);

    // A segment result of generation v holds: the settlement from 5, the curvatures
    // from 6, the tensile strain from 2, the compressive from 3, the gradients from 4.
    // Each field written is 1 + its place; a field the record lacks keeps its default.
    for (int v = 1; v <= 6; ++v) {
        CDataFile r = OneRecord([v](CDataFile& o) {
            o.WriteInt(jnVersion, v);
            o.WriteDouble(jnPlanStart, 2.0);
            o.WriteDouble(jnPlanEnd, 3.0);
            o.WriteDouble(jnDeflectionRatio, 4.0);
            if (v > 4)
                o.WriteDouble(jnMaxSettlement, 5.0);
            o.WriteDouble(jnHStrain, 6.0);
            o.WriteInt(jnDamageCategory, 4);
            o.WriteInt(jnCurvature, GeoGlobal::eHogging);
            if (v >= 6) {
                o.WriteDouble(jnMaxCurvature, 9.0);
                o.WriteDouble(jnMinCurvature, 10.0);
            }
            o.WriteBool(jnStartOfCombinedSegment, false);
            if (v >= 2)
                o.WriteDouble(jnMaxTensileStrain, 12.0);
            if (v > 2)
                o.WriteDouble(jnMaxCompressiveStrain, 13.0);
            if (v > 3) {
                o.WriteBool(jnMaxGradientOfHDispCurveSet, true);
                o.WriteDouble(jnMaxGradientOfHDispCurve, 15.0);
                o.WriteBool(jnMaxGradientOfVDispCurveSet, true);
                o.WriteDouble(jnMaxGradientOfVDispCurve, 17.0);
            }
        });
        CBuildingDamageResult res;
        res.Read(r, -1);
        r.EndReadRecord();
        SCOPED_TRACE(v);
        EXPECT_EQ(res.GetLength(), 1.0);
        EXPECT_EQ(res.GetDeflectionRatio(), 4.0);
        EXPECT_EQ(res.GetMaxSettlement(), v > 4 ? 5.0 : 0.0);
        EXPECT_EQ(res.GetHStrain(), 6.0);
        EXPECT_EQ(res.GetDamageCategory(), 4);
        EXPECT_EQ(res.GetCurvature(), GeoGlobal::eHogging);
        EXPECT_EQ(res.GetMaxCurvature() + res.GetMinCurvature(), v >= 6 ? 19.0 : 0.0);
        EXPECT_FALSE(res.GetStartOfCombinedSegment());
        EXPECT_EQ(res.GetMaxTensileStrain(), v >= 2 ? 12.0 : 0.0);
        EXPECT_EQ(res.GetMaxCompressiveStrain(), v > 2 ? 13.0 : 0.0);
        EXPECT_EQ(res.GetMaxGradientOfVDispCurveSet(), v > 3);
        EXPECT_EQ(res.GetMaxGradientOfVDispCurve(), v > 3 ? 17.0 : 0.0);
    }
}

TEST(BuildingRecords, HostileRecordsGetAClearReadError) {
    // Each JSON building record below is wrong in one place.
    const auto file = [](const std::string& building) {
        return R"({"modules": [{"description": "Specific Buildings", "records": [{"specificBuilding": )" +
               building + "}]}]}";
    };
    const std::string where =
        "b.json: modules[0].records[0].specificBuilding (module 'Specific Buildings'): ";
    const struct {
        std::string building, message;
    } cases[] = {
        {R"({"buildingDamageProperties": {"curvatures": [{}]}})",
         "b.json: modules[0].records[0].specificBuilding.buildingDamageProperties.curvatures "
         "(module 'Specific Buildings'): 'curvatures' should hold two members, for hogging and "
         "for sagging, not 1"},
        {R"({"stageResults": 3})",
         where + "'stageResults' should be an array of objects, not an integer"},
        {R"({"stageResults": [{"offsets": [{"segments": [{"damageCategory": 5}]}]}]})",
         "b.json: modules[0].records[0].specificBuilding.stageResults[0].offsets[0].segments[0] "
         "(module 'Specific Buildings'): a segment result has damage category 5, which is not "
         "one of 0 to 4"},
        {R"({"stageResults": [{"horizontalMovements": [{"pointType": 9}]}]})",
         "b.json: modules[0].records[0].specificBuilding.stageResults[0].horizontalMovements[0] "
         "(module 'Specific Buildings'): a movement sample has point type 9, which is not one "
         "of 0 to 4"},
        {R"({"stageResults": [{"verticalMovementOffsets": [[]]}]})",
         "b.json: "
         "modules[0].records[0].specificBuilding.stageResults[0].verticalMovementOffsets[0] "
         "(module 'Specific Buildings'): an element should be an object, not an array"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ReadError(file(c.building), "b.json"), "Error reading data - " + c.message)
            << c.building;

    const std::string strains =
        R"({"modules": [{"description": "Damage Category Strains", "records": [)"
        R"({"damageCategoryStrains": {"name": "Short", "strainLimits": [0.0, 0.001]}}]}]})";
    EXPECT_EQ(ReadError(strains, "s.json"),
              "Error reading data - s.json: modules[0].records[0].damageCategoryStrains (module "
              "'Damage Category "
              "Strains'): the strain limits hold 2 numbers; a damage category strains record "
              "holds one for each of the 5 categories");

    // Binary: a building of a generation before its damage properties, and a stage count
    // that the record cannot hold, checked before anything is allocated.
    ZorvoData doc;
    CSpecificBuilding b;
    b.SetBuildingDamageResults(CSpecificBuilding::SegmentStore(1));
    doc.SetSpecificBuilding(1, b);
    const std::string bytes = ZorvoModelFile::Write(doc, CDataFile::eBinary).Contents();
    // The generation's value stands before the name's tag and length.
    const size_t version = bytes.find("Building #") - 5 - 4;
    std::string old = bytes;
    ASSERT_EQ(old[version], 7);
    old[version] = 4;
    EXPECT_NE(ReadError(old, "b.zorvo")
                  .find("a specific building of generation 4, from before "
                        "buildings held their damage properties, which "
                        "this version cannot read"),
              std::string::npos)
        << ReadError(old, "b.zorvo");
    // The stage count follows the height, 10.0, the last 10.0 of the record.
    const double height = 10.0;
    const size_t at = bytes.rfind(std::string(reinterpret_cast<const char*>(&height), 8)) + 8;
    ASSERT_EQ(bytes[at], 1); // the tag of an integer
    std::string huge = bytes;
    huge[at + 4] = '\x7f';
    EXPECT_NE(ReadError(huge, "b.zorvo")
                  .find("field 'stageResults' counts 2130706433 elements, "
                        "more than the"),
              std::string::npos)
        << ReadError(huge, "b.zorvo");
}

TEST(BuildingRecords, StoresOfDifferentLengthsComeBackAtTheLongest) {
    // Segments for two stages, movements for one: every store is written to the second
    // stage, the shorter ones with empty lists there, and comes back at two stages with
    // its own first stage unchanged.
    CBuildingDamageResult r;
    r.SetEnd(7.5);
    r.SetCurvature(GeoGlobal::eNoCurvature);
    GeoDispResult sample;
    sample.SetZdisplacement(0.0125);
    CSpecificBuilding b;
    b.SetBuildingDamageResults({{{r, r}}, {{r}, {}}});
    b.SetHorizontalMovementResults({{sample}});
    ZorvoData doc;
    doc.SetSpecificBuilding(1, b);
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData read = RoundTrip(doc, form);
        const CSpecificBuilding& back = read.GetSpecificBuilding(1);
        EXPECT_EQ(back.GetBuildingDamageResults(), b.GetBuildingDamageResults());
        EXPECT_EQ(back.GetHorizontalMovementResults(),
                  CSpecificBuilding::HorizontalMovementStore({{sample}, {}}));
        EXPECT_EQ(back.GetCombinedBuildingDamageResults(), CSpecificBuilding::SegmentStore(2));
        EXPECT_EQ(back.GetVerticalMovementResults(), CSpecificBuilding::VerticalMovementStore(2));
    }
}
