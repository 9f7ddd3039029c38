#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/Excavations.h"
#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

TextTable kExpected = ReadTexts("validation/BuildingChecks.tsv");

std::vector<std::string> Utf8(const std::vector<CString>& texts) {
    std::vector<std::string> out;
    for (const CString& t : texts)
        out.push_back(t.ToUtf8());
    return out;
}

// Line 1 falls from (0, 0, 100) to (30, 0, 90) in 10 intervals: 30 m in plan, 31.62 m in
// space, interval points every 3 m in plan. Line 2 is the same, not calculated.
ZorvoData Site() {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetPoint1({0.0, 0.0, 100.0});
    line.SetPoint2({30.0, 0.0, 90.0});
    doc.SetDisplacementLine(1, line);
    line.SetCalculate(false);
    doc.SetDisplacementLine(2, line);
    return doc;
}

CSpecificBuilding Building(int line, double start, double end, double sensitivity = 0.0,
                           bool offsets = true, double eOverG = 2.6) {
    CSpecificBuilding b;
    b.SetLine(line);
    b.SetLineStart(start);
    b.SetLineEnd(end);
    CBuildingDamageProperties p;
    p.SetEndVDispSensitivity(sensitivity);
    p.SetEOverG(eOverG);
    if (!offsets)
        p.SetVerticalOffsets({});
    b.SetBuildingDamageProperties(p);
    return b;
}

} // namespace

// One failure a row, each stacked on faults of later tests: only the first is reported.
// The silent form gives the same answer and no text.
TEST(ValidSpecificBuilding, FirstFailureInItsOrder) {
    const struct {
        const char* what;
        bool valid;
        CSpecificBuilding b;
    } cases[] = {
        {"ends at 0 and at the plan length", true, Building(1, 0.0, 30.0)},
        {"line not defined", false, Building(3, 20.0, 10.0)},
        {"line not calculated", false, Building(2, 5.0, 25.0, -1.0)},
        // Within the line's 31.62 m in space, beyond its 30 m in plan.
        {"end beyond the plan length", false, Building(1, 30.5, 30.5)},
        {"identical ends", false, Building(1, 10.0, 10.0, 0.0, false)},
        {"start after end", false, Building(1, 20.0, 10.0, -1.0)},
        {"negative sensitivity", false, Building(1, 5.0, 25.0, -0.0001, false)},
        {"no offsets", false, Building(1, 5.0, 25.0, 0.0, false)},
        {"line 0 fails in silence: the host names it", false, Building(0, 5.0, 25.0)},
    };
    for (const auto& c : cases) {
        ZorvoData doc = Site();
        doc.SetSpecificBuilding(1, c.b);
        std::vector<CString> m, silent;
        EXPECT_EQ(doc.ValidSpecificBuilding(1, true, m), c.valid) << c.what;
        EXPECT_EQ(Utf8(m), kExpected[c.what]) << c.what;
        EXPECT_EQ(doc.ValidSpecificBuilding(1, false, silent), c.valid) << c.what;
        EXPECT_EQ(silent.size(), 0u) << c.what;
        EXPECT_EQ(doc.ValidSpecificBuildings(), c.valid) << c.what;
    }
}

// E/G is tested beside the first failure; not a number is not above 0. Both buildings
// stand on line 1, whose last point is the centre of a shaft.
TEST(BuildingChecks, PassesWithTheirCodes) {
    struct Window : CMessageWindow {
        std::vector<long long> sent;
        void SendMessageW(unsigned int, long long, long long code) override {
            sent.push_back(code);
        }
    } window;
    ZorvoData doc = Site();
    doc.SetSpecificBuilding(1, Building(1, 5.0, 25.0, 0.0, true, 0.0));
    doc.SetSpecificBuilding(
        2, Building(1, 20.0, 10.0, 0.0, true, std::numeric_limits<double>::quiet_NaN()));
    doc.SetCircularExcavation(1, Shaft(L"S", 30.0, 0.0, 2.0));
    SCheckArgs args{nullptr, &window, 7u, nullptr};
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.BuildingErrors(m, cancelled, args));
    EXPECT_EQ(Utf8(m), kExpected["errors"]);
    EXPECT_TRUE(doc.BuildingWarnings(m, cancelled, args));
    EXPECT_EQ(Utf8(m), kExpected["warnings"]);
    EXPECT_EQ(window.sent, (std::vector<long long>{0, 13, 0, 25}));
    EXPECT_TRUE(doc.ErrorsExist());
}

// Line 1's interval points lie at x = 0, 3, ..., 30 with z falling from 100 to 90. A
// shaft at its last point is in the passes' test above.
TEST(SpecificBuildingCrossesExcavation, AnIntervalPointWithinAPit) {
    CPolygonalExcavation raised = Pit(L"P", 10.0, -5.0);
    raised.SetBaseLevels({99.0, 99.0, 99.0, 99.0});
    const struct {
        const char* what;
        bool crosses;
        CPolygonalExcavation pit;
    } cases[] = {
        {"x = 12 to 18 within, above the base at 90 m", true, Pit(L"P", 10.0, -5.0)},
        {"the same points below a base at 99 m", false, raised},
        {"a pit between the points at 12 and 15", false, Pit(L"P", 12.5, -1.0, 2.0)},
    };
    for (const auto& c : cases) {
        ZorvoData doc = Site();
        doc.SetSpecificBuilding(1, Building(1, 5.0, 25.0));
        doc.SetPolygonalExcavation(1, c.pit);
        std::vector<CString> m;
        EXPECT_EQ(doc.SpecificBuildingCrossesExcavation(1, m), c.crosses) << c.what;
        EXPECT_EQ(m.size(), c.crosses ? 1u : 0u) << c.what;
    }
}
