#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include "tests/support/Excavations.h"
#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

const TextTable kExpected = ReadTexts("validation/UtilityChecks.tsv");

std::vector<std::string> Utf8(const std::vector<CString>& texts) {
    std::vector<std::string> out;
    for (const CString& t : texts)
        out.push_back(t.ToUtf8());
    return out;
}

std::vector<std::string> Expected(const std::string& key) {
    const auto it = kExpected.find(key);
    return it == kExpected.end() ? std::vector<std::string>{} : it->second;
}

// Line 1 runs level at z = 95 from (0, 0) to (30, 0) in 10 intervals: points every 3 m.
// Line 2 is the same, not calculated. Displacement polyline 1 follows shape 1, (0, 0) to
// (10, 0) to (10, 10), 20 m long; displacement polyline 2 follows shape 3, one point.
// Criteria 21, after the 20 of the standard library, is a user's record.
ZorvoData Site() {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetPoint1({0.0, 0.0, 95.0});
    line.SetPoint2({30.0, 0.0, 95.0});
    line.SetIntervalsAlongLine(10);
    doc.SetDisplacementLine(1, line);
    line.SetCalculate(false);
    doc.SetDisplacementLine(2, line);
    CPolylinePlus bent;
    bent.SetNumPoint(3);
    bent.SetPoint(0, {0.0, 0.0, 95.0});
    bent.SetPoint(1, {10.0, 0.0, 95.0});
    bent.SetPoint(2, {10.0, 10.0, 95.0});
    doc.SetPolyline(1, bent);
    CPolylinePlus dot;
    dot.SetNumPoint(1);
    dot.SetPoint(0, {0.0, 0.0, 95.0});
    doc.SetPolyline(2, bent);
    doc.SetPolyline(3, dot);
    CDisplacementPolyline dp;
    dp.SetPolyline(1);
    doc.SetDisplacementPolyline(1, dp);
    dp.SetPolyline(3);
    doc.SetDisplacementPolyline(2, dp);
    doc.SetAcceptanceCriteria(21, CAcceptanceCriteria(true));
    return doc;
}

// A jointed pipe of 3 m segments, from start to end (metres) along line n.
CSpecificUtility OnLine(int n, double start, double end, double pipe = 3.0) {
    CSpecificUtility u;
    u.SetLine(n);
    u.SetLineStart(start);
    u.SetLineEnd(end);
    u.SetPipeLength(pipe);
    return u;
}

CSpecificUtility OnPolyline(int n, double start, double end) {
    CSpecificUtility u = OnLine(1, start, end);
    u.SetDisplacementDataType(UtilityGlobal::eDisplacementPolyline);
    u.SetDisplacementPolyline(n);
    return u;
}

} // namespace

// Each case's faults in their order, every one with its text; the silent form gives the
// same answer without formatting anything.
TEST(ValidSpecificUtility, EveryFaultInItsOrder) {
    auto with = [](CSpecificUtility u, auto change) {
        change(u);
        return u;
    };
    const struct {
        const char* what;
        bool valid;
        CSpecificUtility u;
    } cases[] = {
        {"ends at 0 and at the plan length", true, OnLine(1, 0.0, 30.0)},
        // The distances and pipe are not tested without a line; the dimension still is.
        {"line not defined", false,
         with(OnLine(3, 20.0, 10.0, -1.0), [](CSpecificUtility& u) { u.SetDimension(200); })},
        {"line not calculated", false,
         with(OnLine(2, 5.0, 25.0), [](CSpecificUtility& u) { u.SetCriteria(0); })},
        {"polyline not defined", false, OnPolyline(4, 5.0, 25.0)},
        // Its text is no fault of its own, and the checks go on with a length of 0.
        {"polyline of one point", false, OnPolyline(2, 0.0, 0.0)},
        {"end beyond the plan length", false, OnLine(1, 5.0, 30.5)},
        {"negative start", false, OnPolyline(1, -1.0, 5.0)},
        // 95 and not 260, though the start is after the end by less than the tolerance.
        {"ends 0.0005 m apart", false, OnLine(1, 10.0005, 10.0)},
        {"start after end", false, OnLine(1, 20.0, 10.0)},
        {"pipe longer than the stretch", false, OnLine(1, 5.0, 7.0)},
        {"pipe as long as the stretch", true, OnLine(1, 5.0, 8.0)},
        {"jointed pipe of 0.005 m", false, OnLine(1, 5.0, 25.0, 0.005)},
        {"jointed pipe of 0.01 m", true, OnLine(1, 5.0, 25.0, 0.01)},
        {"pipe of -0.005 m", false, OnLine(1, 5.0, 25.0, -0.005)},
        {"a continuous pipe's length is not tested", true,
         with(OnLine(1, 5.0, 6.0, -10.0),
              [](CSpecificUtility& u) { u.SetUtilityType(UtilityGlobal::eContinuous); })},
        {"negative factors", false,
         with(OnLine(1, 5.0, 25.0), [](CSpecificUtility& u) { u.SetCriteria(21); })},
    };
    for (const auto& c : cases) {
        ZorvoData doc = Site();
        // Every factor negative; the compression strain, being unused, is not tested.
        CAcceptanceCriteria criteria(true);
        criteria.SetAllowableStrain_Tension(-1.0);
        criteria.SetAllowableStrain_Compression(-1.0);
        criteria.SetAllowableStrain_Compression_Used(false);
        criteria.SetPulloutRF_Axial(-1.0);
        criteria.SetPulloutRF_Flexural(-1.0);
        criteria.SetRotationFactor(-1.0);
        criteria.SetAxialStrainRF_Tension(-1.0);
        criteria.SetAxialStrainRF_Compression(-1.0);
        criteria.SetBendingFactorTension(-1.0);
        criteria.SetBendingFactorCompression(-1.0);
        doc.SetAcceptanceCriteria(21, criteria);
        doc.SetSpecificUtility(1, c.u);
        std::vector<CString> m, silent;
        EXPECT_EQ(doc.ValidSpecificUtility(1, true, m), c.valid) << c.what;
        EXPECT_EQ(Utf8(m), Expected(c.what)) << c.what;
        EXPECT_EQ(doc.ValidSpecificUtility(1, false, silent), c.valid) << c.what;
        EXPECT_TRUE(silent.empty()) << c.what;
        EXPECT_EQ(doc.ValidSpecificUtilities(), c.valid) << c.what;
    }
}

// Both passes over four utilities on a site with a shaft at x = 27 on line 1, which stage 2
// lists. The answers, the texts in order and the codes sent to the window.
TEST(UtilityChecks, PassesWithTheirCodes) {
    struct Window : CMessageWindow {
        std::vector<long long> sent;
        void SendMessageW(unsigned int, long long, long long code) override {
            sent.push_back(code);
        }
    } window;
    ZorvoData doc = Site();
    doc.SetCircularExcavation(1, Shaft(L"S", 27.0, 0.0, 2.0));
    CStage first, second;
    CBasicList shafts;
    ASSERT_TRUE(shafts.SetString(L"1"));
    second.SetCircularExcavations(shafts);
    doc.SetStage(1, first);
    doc.SetStage(2, second);
    doc.SetSpecificUtility(1, OnLine(1, 5.0, 10.0));
    doc.SetSpecificUtility(2, OnLine(1, 20.0, 10.0));
    doc.SetSpecificUtility(3, OnPolyline(1, 5.0, 15.0));
    CSpecificUtility strainsOnly = OnPolyline(1, 5.0, 15.0);
    strainsOnly.SetPolySegContinuousPullouts(false);
    doc.SetSpecificUtility(4, strainsOnly);

    SCheckArgs args{nullptr, &window, 7u, nullptr};
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.UtilityErrors(m, cancelled, args));
    EXPECT_EQ(Utf8(m), Expected("errors"));
    EXPECT_TRUE(doc.UtilityWarnings(m, cancelled, args));
    EXPECT_EQ(Utf8(m), Expected("warnings"));
    EXPECT_EQ(window.sent, (std::vector<long long>{0, 15, 0, 27}));
    EXPECT_TRUE(doc.ErrorsExist());
    EXPECT_TRUE(doc.WarningsExist());
    EXPECT_FALSE(doc.ValidSpecificUtilities());

    // Without the faulty utility and the polylines' options, both passes find nothing
    // and send no code.
    doc.DeleteSpecificUtility(2, 4);
    doc.DeleteCircularExcavation(1, -1);
    doc.DeleteStage(1, 2);
    window.sent.clear();
    EXPECT_FALSE(doc.UtilityErrors(m, cancelled, args));
    EXPECT_FALSE(doc.UtilityWarnings(m, cancelled, args));
    EXPECT_TRUE(m.empty());
    EXPECT_EQ(window.sent, (std::vector<long long>{0, 0}));
    EXPECT_TRUE(doc.ValidSpecificUtilities());
    EXPECT_FALSE(cancelled);
}

// The error and warning runs include the utility passes: on a site that has nothing else
// to report, one utility's fault or caution alone decides their answer.
TEST(UtilityChecks, JoinTheErrorAndWarningRuns) {
    ZorvoData doc = Site();
    doc.DeleteDisplacementPolyline(2, -1);
    doc.DeleteDisplacementLine(2, -1);
    CSpecificUtility u = OnPolyline(1, 5.0, 15.0);
    doc.SetSpecificUtility(1, u);
    EXPECT_FALSE(doc.ErrorsExist());
    EXPECT_TRUE(doc.WarningsExist());
    u.SetPolySegContinuousPullouts(false);
    u.SetPolySegContinuousStrains(false);
    doc.SetSpecificUtility(1, u);
    EXPECT_FALSE(doc.WarningsExist());
    u.SetLineEnd(4.0);
    doc.SetSpecificUtility(1, u);
    EXPECT_TRUE(doc.ErrorsExist());
}

// A signalled event stops the pass before the first utility.
TEST(UtilityChecks, StoppedByTheEvent) {
    CEvent stop;
    stop.SetEvent();
    ZorvoData doc = Site();
    doc.SetSpecificUtility(1, OnLine(1, 20.0, 10.0));
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_FALSE(doc.UtilityErrors(m, cancelled, {nullptr, nullptr, 0u, &stop}));
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(m.empty());
}

// Line 1's interval points lie at x = 0, 3, ..., 30; the utility covers 5 to 10 m of it.
// The stage named is the first that lists the excavation hit; polygonal excavations are
// asked before circular ones at each point.
TEST(UtilityCrossesExcavation, AnyIntervalPointOfTheWholeLine) {
    CBasicList one;
    ASSERT_TRUE(one.SetString(L"1"));
    CStage listsShaft, listsPit;
    listsShaft.SetCircularExcavations(one);
    listsPit.SetPolygonalExcavations(one);
    const struct {
        const char* what;
        CSpecificUtility u;
        bool shaft, pit, stages, crosses;
        int stage;
    } cases[] = {
        {"x = 27 beyond the stretch, no stages", OnLine(1, 5.0, 10.0), true, false, false, true, 0},
        {"x = 27 in both: the pit's stage", OnLine(1, 5.0, 10.0), true, true, true, true, 2},
        {"x = 27 in the shaft: its stage", OnLine(1, 5.0, 10.0), true, false, true, true, 1},
        {"on a polyline", OnPolyline(1, 5.0, 15.0), true, true, true, false, 0},
        {"on a line not defined", OnLine(5, 5.0, 10.0), true, true, true, false, 0},
    };
    for (const auto& c : cases) {
        ZorvoData doc = Site();
        doc.SetSpecificUtility(1, c.u);
        if (c.shaft)
            doc.SetCircularExcavation(1, Shaft(L"S", 27.0, 0.0, 2.0));
        if (c.pit) // x 26 to 30, y -2 to 2, base 90 m below the line at 95 m
            doc.SetPolygonalExcavation(1, Pit(L"P", 26.0, -2.0, 4.0));
        if (c.stages) {
            doc.SetStage(1, listsShaft);
            doc.SetStage(2, listsPit);
        }
        std::vector<CString> m;
        EXPECT_EQ(doc.UtilityCrossesExcavation(1, m), c.crosses) << c.what;
        const std::string text =
            "Utility 1 crosses at least one excavation in Stage " + std::to_string(c.stage) +
            ". Its utility damage results in that area should be treated with caution.";
        EXPECT_EQ(Utf8(m), c.crosses ? std::vector<std::string>{text} : std::vector<std::string>{})
            << c.what;
    }
}
