#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>

#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

const TextTable kTexts = ReadTexts("validation/Checks.tsv");

// The one text of a case of the table.
std::string Text(const char* key) { return kTexts.at(key).at(0); }

std::vector<std::string> Utf8(const std::vector<CString>& texts) {
    std::vector<std::string> out;
    for (const CString& t : texts)
        out.push_back(t.ToUtf8());
    return out;
}

GeoTunnel Tunnel(const wchar_t* name, double x1, double y1, double x2, double y2) {
    GeoTunnel t;
    t.SetName(name);
    t.SetXCentreLine1(x1);
    t.SetYCentreLine1(y1);
    t.SetXCentreLine2(x2);
    t.SetYCentreLine2(y2);
    t.SetZCentreLine1(80.0);
    t.SetZCentreLine2(80.0);
    return t;
}

struct RecordingWindow : CMessageWindow {
    std::vector<std::pair<unsigned, long long>> sent;
    void SendMessageW(unsigned int message, long long, long long lParam) override {
        sent.emplace_back(message, lParam);
    }
};

struct RecordingDialog : CDlgProgress {
    CString text;
    void SetMessage(const CString& t) override { text = t; }
};

} // namespace

TEST(GeneralErrors, NeedsASourceOfMovement) {
    ZorvoData doc;
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.GeneralErrors(m, cancelled));
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0].ToUtf8(), Text("no source in a tunnel analysis"));

    GeoZorvoGeneral mine;
    mine.SetProblemType(eMine);
    doc.SetGeneral(mine);
    doc.SetTunnel(1, GeoTunnel()); // tunnels do not count in a mine analysis
    EXPECT_TRUE(doc.GeneralErrors(m, cancelled));
    EXPECT_EQ(m[0].ToUtf8(), Text("no source in a mine analysis"));

    doc.SetGeneral(GeoZorvoGeneral());
    EXPECT_FALSE(doc.GeneralErrors(m, cancelled));
    EXPECT_TRUE(m.empty());
}

TEST(TunnelErrors, VerticalBelowAMillimetreOfPlanLength) {
    ZorvoData doc;
    doc.SetTunnel(1, Tunnel(L"A", 0.0, 0.0, 0.0009, 0.0));
    doc.SetTunnel(2, Tunnel(L"B", 0.0, 0.0, 0.001, 0.0));
    doc.SetTunnel(3, Tunnel(L"C", 5.0, 5.0, 5.0, 5.0));
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.TunnelErrors(m, cancelled));
    EXPECT_EQ(Utf8(m), kTexts.at("vertical tunnels"));
}

TEST(CheckPass, FrameTellsDialogWindowAndStopsOnTheEvent) {
    ZorvoData doc;
    doc.SetTunnel(1, Tunnel(L"A", 0.0, 0.0, 0.0, 0.0));
    doc.SetTunnel(2, Tunnel(L"B", 0.0, 0.0, 0.0, 0.0));
    RecordingWindow window;
    RecordingDialog dialog;
    CEvent event;
    SCheckArgs args{&dialog, &window, 1234u, &event};
    std::vector<CString> m{L"left over from before"};
    bool cancelled = false;
    EXPECT_TRUE(doc.TunnelErrors(m, cancelled, args));
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(m.size(), 2u);
    EXPECT_EQ(dialog.text, CString(L"Checking for errors..."));
    ASSERT_EQ(window.sent.size(), 2u);
    EXPECT_EQ(window.sent[0], std::make_pair(1234u, 0LL));
    EXPECT_EQ(window.sent[1], std::make_pair(1234u, 7LL)); // the tunnel errors' code

    // Nothing found: one message only.
    window.sent.clear();
    ZorvoData clean;
    clean.SetTunnel(1, Tunnel(L"A", 0.0, 0.0, 10.0, 0.0));
    EXPECT_FALSE(clean.TunnelErrors(m, cancelled, args));
    EXPECT_EQ(window.sent.size(), 1u);

    // A signalled event stops the pass: false, cancelled, and no end messages.
    window.sent.clear();
    event.SetEvent();
    EXPECT_FALSE(doc.TunnelErrors(m, cancelled, args));
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(window.sent.empty());
}

TEST(TunnelWarnings, NegativeLossAndSameNames) {
    ZorvoData doc;
    // 27 tunnels with one name: 351 pairs, of which 25 are listed before the closing note.
    for (int t = 1; t <= 27; ++t)
        doc.SetTunnel(t, Tunnel(L"Twin", 0.0, t, 100.0, t));
    GeoTunnel negative = doc.GetTunnel(2);
    negative.SetPercentLoss(-0.5);
    doc.SetTunnel(2, negative);
    doc.SetTunnel(28, Tunnel(L"twin", 0.0, 0.0, 100.0, 0.0)); // case differs: not a pair

    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.TunnelWarnings(m, cancelled));
    ASSERT_EQ(m.size(), 1u + 25u + 1u);
    EXPECT_EQ(m[0].ToUtf8(), Text("negative loss"));
    EXPECT_EQ(m[1].ToUtf8(), Text("same names, first"));
    EXPECT_EQ(m[25].ToUtf8(), Text("same names, last"));
    EXPECT_EQ(m[26].ToUtf8(), Text("same names, closing note"));
}

TEST(TunnelWarnings, SubSurfaceMethodMessages) {
    struct Case {
        GeoTunnel::ESubSurfaceMethod method;
        GeoTunnel::ESoilType soil;
        const char* expected; // the case in the table; null: no sub-surface message
    };
    const Case cases[] = {
        {GeoTunnel::eNewAndBowers, GeoTunnel::eCohesive, nullptr},
        {GeoTunnel::eMair, GeoTunnel::eCohesive, "sub-surface: Mair et al., cohesive"},
        {GeoTunnel::eMair, GeoTunnel::eGranular, "sub-surface: Mair et al., granular"},
        {GeoTunnel::eNewAndBowers, GeoTunnel::eGranular, "sub-surface: New and Bowers, granular"},
    };
    for (const Case& c : cases) {
        ZorvoData doc;
        GeoTunnel t = Tunnel(L"T", 0.0, 0.0, 100.0, 0.0);
        t.SetSubSurfaceMethod(c.method);
        t.SetSoilType(c.soil);
        doc.SetTunnel(1, t);
        // A sub-surface line beside the tunnel; the z/zo message that may follow is the
        // subject of the next test.
        CDisplacementLine line;
        line.SetSurfaceType(eSubSurface);
        line.SetPoint1({0.0, 30.0, 99.0});
        line.SetPoint2({10.0, 30.0, 99.0});
        doc.SetDisplacementLine(1, line);
        std::vector<CString> m;
        bool cancelled = false;
        doc.TunnelWarnings(m, cancelled);
        if (!c.expected) {
            EXPECT_TRUE(m.empty());
            continue;
        }
        ASSERT_GE(m.size(), 1u);
        EXPECT_EQ(m[0].ToUtf8(), Text(c.expected));
    }
}

TEST(TunnelWarnings, MairZOverZ0IsReportedOnceForTheFirstExample) {
    ZorvoData doc;
    GeoTunnel t = Tunnel(L"T", 0.0, 0.0, 100.0, 0.0); // axis 80, ground 100: z0 = 20
    t.SetSubSurfaceMethod(GeoTunnel::eMair);
    doc.SetTunnel(1, t);
    t.SetName(L"U");
    doc.SetTunnel(2, t);
    // Ground 100 less h: for a point at 95, h = 15 and (100 - 15) / 20 = 4.25 > 0.8.
    CDisplacementPoint p;
    p.SetSurfaceType(eSubSurface);
    p.SetPoint({50.0, 5.0, 95.0});
    doc.SetDisplacementPoint(1, p);
    doc.SetDisplacementPoint(2, p);
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.TunnelWarnings(m, cancelled));
    ASSERT_EQ(m.size(), 2u);
    EXPECT_EQ(m[1].ToUtf8(), Text("Mair z/zo"));
}

namespace {

// The z/zo search as the warning states it: every tunnel, stage, record and location.
bool EveryLocation(const ZorvoData& doc, const std::set<int>& tunnels, int& tunnel, int& data) {
    for (int t : tunnels)
        for (int s = 0; s < doc.NumStages(true, false); ++s) {
            if (!doc.IsTunnelInStage(t, s))
                continue;
            for (int d = 1; d <= doc.NumDisplacementData(); ++d) {
                EPointType type;
                int index;
                doc.GetDisplacementTypeIndex(d, type, index);
                const int n = doc.GetDisplacementData(d).NumDisplacementLocations(true);
                for (int l = 1; l <= n; ++l) {
                    Vec3<double> p;
                    if (doc.GetDisplacementLocation(type, index, l, p, true) &&
                        doc.WarningMairZOverZ0(s, t, p)) {
                        tunnel = t;
                        data = d;
                        return true;
                    }
                }
            }
        }
    return false;
}

} // namespace

// The search tests only the ends of runs of locations where the answer cannot change
// between them; it must name the tunnel and record that testing every location names.
TEST(TunnelWarnings, MairZOverZ0SearchFindsWhatEveryLocationWould) {
    std::mt19937 random(20240611);
    auto uniform = [&](double a, double b) {
        return std::uniform_real_distribution<double>(a, b)(random);
    };
    auto plan = [&] { return uniform(-80.0, 80.0); };
    int found = 0;
    for (int c = 0; c < 1000; ++c) {
        // Tunnels whose test changes at level 165 where the axis is level: ground above
        // the axis (80 under 100); ground below it (84.5 over 64.5), where the ratio rises
        // with the point; ground at it (82.5); and a sloping axis.
        ZorvoData doc;
        for (int t = 1; t <= 2; ++t) {
            const double angle = uniform(0.0, 6.3), c50 = 50.0 * std::cos(angle),
                         s50 = 50.0 * std::sin(angle);
            GeoTunnel tunnel = Tunnel(L"T", -c50, -s50, c50, s50);
            tunnel.SetSubSurfaceMethod(GeoTunnel::eMair);
            const int kind = static_cast<int>(random() % 4);
            const double axis[] = {80.0, 84.5, 82.5, 80.0}, ground[] = {100.0, 64.5, 82.5, 100.0};
            tunnel.SetZCentreLine1(axis[kind]);
            tunnel.SetZCentreLine2(kind == 3 ? uniform(70.0, 90.0) : axis[kind]);
            tunnel.SetGroundLevel1(ground[kind]);
            tunnel.SetGroundLevel2(ground[kind]);
            doc.SetTunnel(t, tunnel);
        }
        // Stage 2 enlarges tunnel 1 so that its crown may reach the record.
        CBasicList list;
        list.SetString(L"1 to 2");
        CStage stage;
        stage.SetTunnels(list);
        doc.SetStage(1, stage);
        CStageProperty larger;
        larger.SetStage(1);
        larger.SetRefs(list);
        larger.SetValues({uniform(5.0, 200.0)});
        doc.SetStageProperty(1, larger);

        // A line, a grid swept any way, or a polyline, rising or falling about 165.
        const double base = uniform(130.0, 200.0);
        auto at = [&] { return Vec3<double>(plan(), plan(), base + uniform(-15.0, 15.0)); };
        const int intervals = 1 + static_cast<int>(random() % 6), kind = c % 3;
        if (kind == 0) {
            CDisplacementLine l;
            l.SetPoint1(at());
            l.SetPoint2(at());
            l.SetIntervalsAlongLine(intervals);
            doc.SetDisplacementLine(1, l);
        } else if (kind == 1) {
            CDisplacementGrid g;
            g.SetPoint1(at());
            g.SetPoint2(at());
            g.SetExtrusionDirection(static_cast<EExtrusionDirection>(c % 9 / 3));
            g.SetExtrusionDistance(uniform(-30.0, 30.0));
            g.SetIntervalsAlongLine(intervals);
            g.SetIntervalsAlongExtrusion(1 + intervals % 4);
            doc.SetDisplacementGrid(1, g);
        } else {
            CPolylinePlus polyline;
            for (int v = 0; v < 4; ++v)
                polyline.SetPoint(v, at());
            doc.SetPolyline(1, polyline);
            CDisplacementPolyline dp;
            dp.SetIntervalsAlongLine(intervals);
            doc.SetDisplacementPolyline(1, dp);
        }

        const std::set<int> tunnels = c % 4 == 0 ? std::set<int>{2} : std::set<int>{1, 2};
        int expectedTunnel = 0, expectedData = 0, tunnel = 0, data = 0;
        bool stopped = true;
        const bool expected = EveryLocation(doc, tunnels, expectedTunnel, expectedData);
        ASSERT_EQ(doc.FindMairZOverZ0Example(tunnels, {}, tunnel, data, stopped), expected) << c;
        EXPECT_FALSE(stopped);
        EXPECT_EQ(tunnel, expected ? expectedTunnel : 0) << c;
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 250); // both answers well represented
    EXPECT_LT(found, 750);

    // Ground at -0 over an axis at +0, on the level: beyond the tunnel's ends the ratio
    // divides by -0 and is +infinity, alongside it by +0 and is -infinity. Of a level
    // grid reaching past the tunnel's end at one corner, that corner alone is out of
    // range: the first and last locations, alongside, must not speak for it.
    ZorvoData doc;
    GeoTunnel zero = Tunnel(L"T", -50.0, -50.0, 50.0, 50.0); // alongside it: |x + y| <= 100
    zero.SetZCentreLine1(0.0);
    zero.SetZCentreLine2(0.0);
    zero.SetGroundLevel1(-0.0);
    zero.SetGroundLevel2(-0.0);
    zero.SetDiameter(1.0);
    zero.SetSubSurfaceMethod(GeoTunnel::eMair);
    doc.SetTunnel(1, zero);
    // From (40, 40) to (0, 40) along X, swept 30 m along Y: only the corner (40, 70) lies
    // beyond the tunnel's end.
    CDisplacementGrid grid;
    grid.SetPoint1({40.0, 40.0, 10.0});
    grid.SetPoint2({0.0, 40.0, 10.0});
    grid.SetExtrusionDirection(eExtrudeY);
    grid.SetExtrusionDistance(30.0);
    grid.SetIntervalsAlongLine(2);
    grid.SetIntervalsAlongExtrusion(2);
    doc.SetDisplacementGrid(1, grid);
    EXPECT_TRUE(doc.WarningMairZOverZ0(0, 1, {40.0, 70.0, 10.0}));
    EXPECT_FALSE(doc.WarningMairZOverZ0(0, 1, {40.0, 40.0, 10.0}));
    EXPECT_FALSE(doc.WarningMairZOverZ0(0, 1, {0.0, 70.0, 10.0}));
    int tunnel = 0, data = 0;
    bool stopped = false;
    EXPECT_TRUE(doc.FindMairZOverZ0Example({1}, {}, tunnel, data, stopped));
}

// Guards the check that ran for minutes and could not be stopped: a grid of 46,001 x
// 46,001 locations, none out of range, under a sloping tunnel so that each location
// must be tested. The search asks to stop every few thousand locations.
TEST(TunnelWarnings, MairZOverZ0SearchStopsWhenAsked) {
    ZorvoData doc;
    GeoTunnel t = Tunnel(L"T", 0.0, -100.0, 0.0, 100.0);
    t.SetZCentreLine1(0.0);
    t.SetZCentreLine2(0.5);
    t.SetGroundLevel1(25.0);
    t.SetGroundLevel2(25.0);
    t.SetSubSurfaceMethod(GeoTunnel::eMair);
    doc.SetTunnel(1, t);
    // At level 10 the ratio is at most (25 - 9.5) / 24.5 < 0.8, above a crown below 4.
    CDisplacementGrid grid;
    grid.SetPoint1({-50.0, -50.0, 10.0});
    grid.SetPoint2({50.0, -50.0, 10.0});
    grid.SetExtrusionDistance(100.0);
    grid.SetIntervalsAlongLine(46000);
    grid.SetIntervalsAlongExtrusion(46000);
    doc.SetDisplacementGrid(1, grid);

    int asked = 0, tunnel = 0, data = 0;
    bool stopped = false;
    EXPECT_FALSE(doc.FindMairZOverZ0Example(
        {1}, [&asked] { return ++asked == 3; }, tunnel, data, stopped));
    EXPECT_TRUE(stopped);
    EXPECT_EQ(asked, 3);
}

TEST(StageErrors, ReferencesThatDoNotExist) {
    ZorvoData doc;
    doc.SetTunnel(1, Tunnel(L"T", 0.0, 0.0, 100.0, 0.0));
    CStage stage;
    stage.SetName(L"Drive");
    CBasicList l;
    // Each number that names no tunnel is reported, -3 and -2 excepted.
    ASSERT_TRUE(l.SetString(L"1 -2 -3 -4 to -1 2 to 3", 0));
    stage.SetTunnels(l);
    ASSERT_TRUE(l.SetString(L"1", 0));
    stage.SetPolygonalExcavations(l);
    doc.SetStage(1, stage);

    CStageProperty sp;
    sp.SetStage(3);
    ASSERT_TRUE(l.SetString(L"1 to 2", 0));
    sp.SetRefs(l);
    doc.SetStageProperty(1, sp);

    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.StageErrors(m, cancelled));
    EXPECT_EQ(Utf8(m), kTexts.at("stage references"));

    // A range far past the records is reported by its first thousand numbers.
    ASSERT_TRUE(l.SetString(L"2 to 2000000000", 0));
    stage.SetTunnels(l);
    doc.SetStage(1, stage);
    doc.DeleteStageProperty(1, -1);
    EXPECT_TRUE(doc.StageErrors(m, cancelled));
    ASSERT_EQ(m.size(), 1001u); // and the polygonal excavation 1
    EXPECT_EQ(m[999].ToUtf8(), "Stage: Drive refers to Tunnel  1001 which does not exist.");
}

TEST(DisplacementChecks, RecordsWithoutExtentOrReference) {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetPoint2(line.GetPoint1());
    line.SetIntervalsAlongLine(0);
    doc.SetDisplacementLine(1, line);
    CDisplacementPolyline dp;
    dp.SetPolyline(4);
    doc.SetDisplacementPolyline(1, dp);
    CDisplacementGrid grid;
    grid.SetExtrusionDistance(0.0);
    doc.SetDisplacementGrid(1, grid);
    CDisplacementGrid off = grid; // not calculated: not checked, but warned of
    off.SetCalculate(false);
    doc.SetDisplacementGrid(2, off);

    std::vector<CString> m;
    EXPECT_TRUE(doc.DisplacementLineErrors(m));
    EXPECT_EQ(m, (std::vector<CString>{L"Displacement Line 1 has zero length.",
                                       L"Displacement Line 1 needs at least one interval."}));
    EXPECT_TRUE(doc.DisplacementPolylineErrors(m));
    EXPECT_EQ(m, (std::vector<CString>{
                     L"Displacement Polyline 1 refers to Polyline 4, which does not exist."}));
    EXPECT_TRUE(doc.DisplacementGridErrors(m));
    EXPECT_EQ(m.size(), 1u);
    EXPECT_TRUE(doc.DisplacementGridWarnings(m));
    EXPECT_EQ(m,
              (std::vector<CString>{L"Displacements are not calculated for Displacement Grid 2."}));
    EXPECT_TRUE(doc.ErrorsExist());
}
