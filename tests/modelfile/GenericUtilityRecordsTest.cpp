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

// A generic utility as a run leaves it: two transects, the second with samples, a joint
// and a strain row holding a negative zero, thirds, not-a-number and infinities.
ZorvoData Solved() {
    const double inf = std::numeric_limits<double>::infinity();
    ZorvoData doc;
    CGenericUtility g;
    g.SetInterval(2.5);
    g.SetDispPoints(2);
    CUtilityTransect first;
    first.SetName(L"T1");
    g.AddTransect(first);
    CUtilityTransect t;
    t.SetPolylineIntersection({1.0 / 3.0, -0.0, 100.25});
    GeoDispResult r;
    r.SetPoint({-1.0 / 7.0, 2.0, 100.25});
    r.SetZdisplacement(std::nan(""));
    r.SetXdisplacement(-inf);
    r.SetImportMatch(16);
    t.AddResult(0, r);
    t.AddResult(1, r);
    CPulloutAndRotation joint;
    joint.SetRotation(1.0 / 3.0);
    joint.SetPullout_Axial_Left(-0.0);
    t.SetPulloutAndRotation(1, 2, 1, joint);
    CUtilityStrain row;
    row.SetRadiusofCurvature(inf);
    row.SetAxialStrain(std::nan(""));
    t.SetUtilityStrain(1, 1, row);
    g.AddTransect(t);
    doc.SetGenericUtility(1, g);
    return doc;
}

} // namespace

// Saved and loaded in either form the transects come back to the bit: written again,
// the file is the same byte for byte.
TEST(GenericUtilityRecords, TransectsRoundTripToTheBit) {
    const ZorvoData doc = Solved();
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_EQ(ZorvoModelFile::Write(back, form).Contents(),
                  ZorvoModelFile::Write(doc, form).Contents());
        const CGenericUtility& g = back.GetGenericUtility(1);
        ASSERT_EQ(g.NumTransects(), 2);
        EXPECT_EQ(g.GetTransect(1).GetName(), CString(L"T1"));
        EXPECT_TRUE(std::isnan(g.GetTransect(1).GetPolyineIntersection().x));
        const CUtilityTransect& t = g.GetTransect(2);
        EXPECT_EQ(t.GetPolyineIntersection().x, 1.0 / 3.0);
        EXPECT_TRUE(std::signbit(t.GetPolyineIntersection().y));
        ASSERT_EQ(t.NumberOfPoints(1), 1);
        EXPECT_TRUE(std::isnan(t.GetHorizontalMovementResult(1, 1).GetZdisplacement()));
        EXPECT_EQ(t.GetHorizontalMovementResult(1, 1).GetXdisplacement(),
                  -std::numeric_limits<double>::infinity());
        EXPECT_EQ(t.GetHorizontalMovementResult(1, 1).GetImportMatch(), 16);
        EXPECT_EQ(t.NumPulloutAndRotationIterations(1), 2);
        EXPECT_TRUE(std::signbit(t.GetPulloutAndRotation(1, 2, 1).GetPullout_Axial_Left()));
        EXPECT_EQ(t.GetUtilityStrain(1, 1).GetRadiusofCurvature(),
                  std::numeric_limits<double>::infinity());
        EXPECT_TRUE(std::isnan(t.GetUtilityStrain(1, 1).GetAxialStrain()));
    }
}

// A record written by hand may leave the transects out; a run sets them out.
TEST(GenericUtilityRecords, HandWrittenRecordMayOmitTransects) {
    const std::string json = R"({"modules": [{"description": "Generic Utilities", "records": [
        {"utility": {"name": "Sewer"}, "polyline": 1, "interval": 5.0, "length": 8.0,
         "dispPoints": 9}]}]})";
    CDataFile in = CDataFile::FromBytes(json, "g.json");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);
    ASSERT_EQ(doc.NumGenericUtilities(), 1);
    EXPECT_EQ(doc.GetGenericUtility(1).NumTransects(), 0);
    EXPECT_EQ(doc.GetGenericUtility(1).GetDispPoints(), 9);
}

// A count of transects that the record cannot hold is refused before anything is sized.
TEST(GenericUtilityRecords, TransectCountBeyondTheRecordIsRefused) {
    const CGenericUtility g;
    CDataFile f(CDataFile::eBinary);
    CKeyParam h;
    h.key = 202210;
    h.description = L"Generic Utilities";
    h.count = 1;
    h.generation = 8;
    f.WriteModuleHeader(h);
    f.BeginRecord(0);
    g.CUtility::Write(f);
    f.WriteInt(jnPolyline, 1);
    f.WriteDouble(jnInterval, 10.0);
    f.WriteDouble(jnLength, 10.0);
    f.WriteInt(jnDispPoints, 11);
    f.WriteInt(jnTransects, 2000000000);
    f.EndRecord();
    f.EndModule();
    const std::string message = ReadError(f.Contents(), "g.zorvo");
    EXPECT_NE(message.find("field 'transects' counts 2000000000 elements, more than the"),
              std::string::npos)
        << message;
}
