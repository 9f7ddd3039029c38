#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include "tests/support/ModelFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;
using namespace Tevra::Testing;

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();

// A building with two transects carrying samples and segment results in both stores,
// with values that only an exact copy keeps: a third, -0, infinities and not-a-number.
ZorvoData BuildingWithResults() {
    ZorvoData doc;
    CGenericBuilding b;
    b.SetName(L"Terrace");
    b.SetPolyline(2);
    b.SetInterval(7.5);
    b.SetLength(1.0 / 3.0);
    b.SetDispPoints(5);
    b.SetLOverH({0.25, 4.0});
    b.SetShow(true);
    CBuildingDamageProperties properties;
    properties.SetVerticalOffsets({0.0, -2.25});
    b.SetBuildingDamageProperties(properties);
    CBuildingTransect first;
    first.SetName(L"T1");
    first.SetPolylineIntersection(Vec3<double>(1.0 / 7.0, -0.0, inf));
    GeoDispResult sample;
    sample.SetPoint(Vec3<double>(1.5, 2.5, std::nan("")));
    sample.SetXdisplacement(-inf);
    first.AddResult(2, sample);
    first.SetVerticalMovementResult(1, 1, 2, sample);
    CBuildingDamageResult segment;
    segment.SetStart(0.1);
    segment.SetEnd(std::nan(""));
    segment.SetMaxTensileStrain(-inf);
    segment.SetStartOfCombinedSegment(true);
    first.SetBuildingDamageResults(1, false, 1, 1, {segment, segment});
    first.SetBuildingDamageResults(0, true, 0, 0, {segment});
    b.AddTransect(first);
    b.AddTransect(CBuildingTransect());
    doc.SetGenericBuilding(1, b);
    return doc;
}

} // namespace

// Both forms give back the building, its transects and their results to the bit.
TEST(GenericBuildingRecords, RoundTripToTheBit) {
    const ZorvoData doc = BuildingWithResults();
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        SCOPED_TRACE(form);
        const ZorvoData back = RoundTrip(doc, form);
        ASSERT_EQ(back.NumGenericBuildings(), 1);
        // Written again, the file is the same to the byte: not-a-number compares unequal
        // to itself, so the bytes stand for the values.
        EXPECT_EQ(ZorvoModelFile::Write(back, form).Contents(),
                  ZorvoModelFile::Write(doc, form).Contents());
        const CBuildingTransect& t = back.GetGenericBuilding(1).GetTransect(1);
        EXPECT_TRUE(std::signbit(t.GetPolyineIntersection().y));
        EXPECT_EQ(t.GetPolyineIntersection().z, inf);
        EXPECT_TRUE(std::isnan(t.GetPoint(2, 1).z));
        EXPECT_EQ(t.NumBuildingDamageResults(1, false, 1, 1), 2);
        EXPECT_EQ(t.GetBuildingDamageResult(1, false, 1, 1, 2).GetMaxTensileStrain(), -inf);
        EXPECT_TRUE(std::isnan(t.GetBuildingDamageResult(0, true, 0, 0, 1).GetEnd()));
        EXPECT_TRUE(back.GetGenericBuilding(1).GetTransect(2) == CBuildingTransect());
    }
}

// A hand-written record may leave out the transects and every other field.
TEST(GenericBuildingRecords, HandWrittenJsonMayOmitTransects) {
    const std::string text = ZorvoModelFile::Write(ZorvoData(), CDataFile::eJson).Contents();
    const std::string module =
        R"({"key": 202200, "description": "Generic Buildings", "generation": 7, "records": [)"
        R"({"genericBuilding": {"name": "Row", "interval": 5.0, "lOverHRatios": [1.5]}}]})";
    const size_t at = text.find("\"modules\": [");
    ASSERT_NE(at, std::string::npos) << text.substr(0, 200);
    std::string edited = text;
    edited.insert(at + 12, module + ",");
    CDataFile in = CDataFile::FromBytes(edited, "b.json");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);
    ASSERT_EQ(doc.NumGenericBuildings(), 1);
    const CGenericBuilding& b = doc.GetGenericBuilding(1);
    EXPECT_EQ(b.GetName(), CString(L"Row"));
    EXPECT_EQ(b.GetInterval(), 5.0);
    EXPECT_EQ(b.GetLength(), 10.0);
    EXPECT_EQ(b.GetDispPoints(), 11);
    EXPECT_EQ(b.NumTransects(), 0);
    ASSERT_EQ(b.NumLOverH(), 1);
}

// An older generation, and a transect count the record cannot hold, are refused with a
// message rather than read as something else.
TEST(GenericBuildingRecords, OlderGenerationsAndImpossibleCountsAreRefused) {
    ZorvoData doc = BuildingWithResults();
    std::string bytes = ZorvoModelFile::Write(doc, CDataFile::eBinary).Contents();
    CDataFile older(CDataFile::eBinary);
    CKeyParam h;
    h.key = 202200;
    h.description = L"Generic Buildings";
    h.count = 1;
    h.generation = 6;
    older.WriteModuleHeader(h);
    older.BeginRecord(0);
    CGenericBuilding().Write(older);
    older.EndRecord();
    older.EndModule();
    std::string message = ReadError(older.Contents(), "b.zorvo");
    EXPECT_NE(message.find("a generic building of generation 6"), std::string::npos) << message;

    CDataFile huge(CDataFile::eBinary);
    h.generation = 7;
    huge.WriteModuleHeader(h);
    huge.BeginRecord(0);
    huge.WriteString(jnName, L"B");
    huge.WriteInt(jnPolyline, 1);
    huge.WriteDouble(jnInterval, 10.0);
    huge.WriteDouble(jnLength, 10.0);
    huge.WriteInt(jnDispPoints, 11);
    huge.WriteInt(jnLOverHRatios, 0);
    CBuildingDamageProperties().Write(huge);
    huge.WriteInt(jnTransects, 2000000000);
    huge.EndRecord();
    huge.EndModule();
    message = ReadError(huge.Contents(), "b.zorvo");
    EXPECT_NE(message.find("counts 2000000000 elements"), std::string::npos) << message;
}
