#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include "tests/support/Excavations.h"
#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

TextTable kExpected = ReadTexts("validation/GenericUtilityChecks.tsv");

std::vector<std::string> Utf8(const std::vector<CString>& texts) {
    std::vector<std::string> out;
    for (const CString& t : texts)
        out.push_back(t.ToUtf8());
    return out;
}

// Polyline 1 runs 10 m east from the origin and then 15 m north, at level 95; polyline 2
// has one point. Criteria 21, the user's, has a negative rotation factor and a negative
// compressive bending factor.
ZorvoData Site() {
    ZorvoData doc;
    CPolylinePlus route;
    route.SetPoint(0, {0.0, 0.0, 95.0});
    route.SetPoint(1, {10.0, 0.0, 95.0});
    route.SetPoint(2, {10.0, 15.0, 95.0});
    doc.SetPolyline(1, route);
    CPolylinePlus dot;
    dot.SetPoint(0, {0.0, 0.0, 95.0});
    doc.SetPolyline(2, dot);
    CAcceptanceCriteria c(true);
    c.SetRotationFactor(-1.0);
    c.SetBendingFactorCompression(-0.5);
    doc.SetAcceptanceCriteria(doc.NumAcceptanceCriteria() + 1, c);
    return doc;
}

struct SUtility {
    int polyline = 1;
    double interval = 10.0, length = 10.0;
    int points = 11;
    UtilityGlobal::EUtilityType type = UtilityGlobal::eJointed;
    double pipe = 3.0;
    int dimension = 1, criteria = 1;
};

CGenericUtility Utility(const SUtility& s) {
    CGenericUtility g;
    g.SetPolyline(s.polyline);
    g.SetInterval(s.interval);
    g.SetLength(s.length);
    g.SetDispPoints(s.points);
    g.SetUtilityType(s.type);
    g.SetPipeLength(s.pipe);
    g.SetDimension(s.dimension);
    g.SetCriteria(s.criteria);
    return g;
}

SUtility With(std::function<void(SUtility&)> change) {
    SUtility s;
    change(s);
    return s;
}

} // namespace

// With report every fault adds its text in order; the silent form gives the same answer.
TEST(ValidGenericUtility, EveryFaultWithItsText) {
    using UtilityGlobal::eContinuous;
    const struct {
        const char* what;
        bool valid;
        SUtility u;
    } cases[] = {
        {"valid", true, SUtility()},
        // A jointed pipe of 5 mm: short of a specific utility's 10 mm, not of this 1 mm.
        {"valid", true, With([](SUtility& s) { s.pipe = 0.005; })},
        {"polyline not defined", false, With([](SUtility& s) { s.polyline = 3; })},
        {"incomplete polyline", false, With([](SUtility& s) { s.polyline = 2; })},
        {"negative inputs", false, With([](SUtility& s) {
             s.interval = -1.0;
             s.length = -2.0;
             s.points = -1;
         })},
        // A continuous pipe is not held against its pipe length.
        {"zero inputs", false, With([](SUtility& s) {
             s.interval = 0.0009;
             s.length = 0.0;
             s.points = 0;
             s.type = eContinuous;
             s.pipe = -1.0;
         })},
        {"pipe of no length", false, With([](SUtility& s) { s.pipe = 0.0009; })},
        {"negative pipe", false, With([](SUtility& s) { s.pipe = -1.0; })},
        {"records", false, With([](SUtility& s) {
             s.dimension = 0;
             s.criteria = 999;
         })},
        {"negative factors", false, With([](SUtility& s) { s.criteria = 21; })},
    };
    for (const auto& c : cases) {
        ZorvoData doc = Site();
        doc.SetGenericUtility(1, Utility(c.u));
        std::vector<CString> m, silent;
        EXPECT_EQ(doc.ValidGenericUtility(1, true, m), c.valid) << c.what;
        EXPECT_EQ(Utf8(m), kExpected[c.what]) << c.what;
        EXPECT_EQ(doc.ValidGenericUtility(1, false, silent), c.valid) << c.what;
        EXPECT_TRUE(silent.empty()) << c.what;
        EXPECT_EQ(doc.ValidGenericUtilities(), c.valid) << c.what;
        std::vector<CString> pass;
        EXPECT_EQ(doc.GenericUtilityErrors(pass), !c.valid) << c.what;
        EXPECT_EQ(Utf8(pass), kExpected[c.what]) << c.what;
        EXPECT_EQ(doc.ErrorsExist(), !c.valid) << c.what;
    }
}

// Transects of the route at 0, 10 and 20 m, 10 m long. A pit from (5, -5) to (15, 5),
// listed by stage 2, holds the points of the transect at 10 m; a shaft of 4 m at (10, 10),
// listed by no stage, holds the middle of the transect at 20 m.
TEST(GenericUtilityWarnings, TransectsThatCrossAnExcavation) {
    ZorvoData doc = Site();
    doc.SetGenericUtility(1, Utility(SUtility()));
    doc.SetPolygonalExcavation(1, Pit(L"Pit", 5.0, -5.0));
    doc.SetCircularExcavation(1, Shaft(L"Shaft", 10.0, 10.0, 4.0));
    doc.SetStage(1, CStage());
    CStage second;
    CBasicList one;
    one.SetString(L"1", 0);
    second.SetPolygonalExcavations(one);
    doc.SetStage(2, second);
    std::vector<CString> m;
    EXPECT_TRUE(doc.GenericUtilityWarnings(m));
    EXPECT_EQ(Utf8(m), kExpected["warnings"]);
    EXPECT_TRUE(doc.WarningsExist());

    // Without excavations nothing is found; an invalid utility is passed over.
    ZorvoData clear = Site();
    clear.SetGenericUtility(1, Utility(SUtility()));
    EXPECT_FALSE(clear.GenericUtilityWarnings(m));
    EXPECT_TRUE(m.empty());
}
