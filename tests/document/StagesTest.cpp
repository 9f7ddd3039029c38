// Calculation stage indices and their stages, names and descriptions, and the values
// that stage properties override.
#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

CBasicList List(const wchar_t* text) {
    CBasicList l;
    l.SetString(text);
    return l;
}

CStage Stage(const wchar_t* name, bool enabled, const wchar_t* tunnels) {
    CStage s;
    s.SetName(name);
    s.SetEnabled(enabled);
    s.SetTunnels(List(tunnels));
    return s;
}

// Three stages, the second one disabled. With smoothing on, the calculation indices
// are 0 base, 1 to 3 the stages, 4 base again, 5 to 7 the stages smoothed.
ZorvoData ThreeStages(bool smoothing, bool smoothedDisplay = false) {
    ZorvoData doc;
    doc.SetStage(1, Stage(L"Excavate", true, L"1"));
    doc.SetStage(2, Stage(L"Line", false, L"2"));
    doc.SetStage(3, Stage(L"Grout", true, L"1 to 2"));
    CReEntrantCornerOptions options;
    options.SetReEntrantCornerSmoothing(smoothing);
    doc.SetReEntrantCornerOptions(options);
    doc.AccessGraphicSettings().SetSmoothed(smoothedDisplay);
    return doc;
}

std::wstring Str(const CString& s) { return s.Str(); }

} // namespace

TEST(Stages, CountsAndIndicesWithSmoothingOffAndOn) {
    struct {
        bool smoothing, display;
        int all, withoutBase, enabledWithBase, baseIndex, lastStage;
    } cases[] = {
        // off: n + 1 = 4 calculation stages; the display flag alone changes nothing
        {false, false, 4, 3, 3, 0, 3},
        {false, true, 4, 3, 3, 0, 3},
        // on: doubled, 2n + 2 = 8; the smoothed base is shown only with the display flag
        {true, false, 8, 6, 6, 0, 6},
        {true, true, 8, 6, 6, 4, 6},
    };
    for (const auto& c : cases) {
        const ZorvoData doc = ThreeStages(c.smoothing, c.display);
        const std::string what = std::string(c.smoothing ? "on" : "off") + (c.display ? "+" : "");
        EXPECT_EQ(doc.NumStages(true, false), c.all) << what;
        EXPECT_EQ(doc.NumStages(false, false), c.withoutBase) << what;
        EXPECT_EQ(doc.NumStages(true, true), c.enabledWithBase) << what;
        EXPECT_EQ(doc.NumActualStages(true, false), 4) << what; // smoothing not counted
        EXPECT_EQ(doc.NumActualStages(false, true), 2) << what;
        EXPECT_EQ(doc.GetBaseStageIndex(), c.baseIndex) << what;
        // 0 and n + 1 are base indices whether smoothing is on or not.
        EXPECT_TRUE(doc.IsBaseStage(0)) << what;
        EXPECT_TRUE(doc.IsBaseStage(4)) << what;
        EXPECT_FALSE(doc.IsBaseStage(5)) << what;
        EXPECT_FALSE(doc.StageExists(0)) << what;
        EXPECT_TRUE(doc.StageExists(1)) << what;
        EXPECT_TRUE(doc.StageExists(c.lastStage)) << what;
        EXPECT_FALSE(doc.StageExists(c.lastStage + 1)) << what;
    }
}

TEST(Stages, StageOfAnIndexWithAndWithoutShift) {
    const ZorvoData doc = ThreeStages(true);
    struct {
        int index;
        bool shift;
        const wchar_t* name;
    } cases[] = {
        {1, false, L"Excavate"}, {3, false, L"Grout"}, {3, true, L"Grout"}, // no shift up to n
        {5, false, L"Excavate"}, // above n: element 5 - 3 - 2 = 0
        {5, true, L"Line"},      // moved on by one
        {7, false, L"Grout"},    {6, true, L"Grout"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Str(doc.GetStage(c.index, c.shift).Name()), c.name)
            << c.index << (c.shift ? " shifted" : "");

    // Tunnel lists read through the same mapping; a base index has every tunnel.
    EXPECT_TRUE(doc.IsTunnelInStage(1, 5)); // stage 1 smoothed lists 1
    EXPECT_FALSE(doc.IsTunnelInStage(2, 5));
    EXPECT_TRUE(doc.IsTunnelInStage(2, 6));
    EXPECT_TRUE(doc.IsTunnelInStage(9, 0));
    EXPECT_TRUE(doc.IsTunnelInStage(9, 4));
}

TEST(Stages, NamesAndDescriptions) {
    const ZorvoData on = ThreeStages(true);
    const ZorvoData off = ThreeStages(false);
    EXPECT_EQ(Str(on.GetStageName(0)), L"Base Model");
    EXPECT_EQ(Str(on.GetStageName(2)), L"Line");
    EXPECT_EQ(Str(on.GetStageName(4)), L"Base Model");
    EXPECT_EQ(Str(on.GetStageName(5)), L"Excavate(Smoothed)"); // no blank before it
    EXPECT_EQ(Str(on.GetStageName(7)), L"Grout(Smoothed)");
    EXPECT_EQ(Str(off.GetStageName(4)), L"Base Model"); // n + 1, even without smoothing
    EXPECT_EQ(Str(off.GetStageName(5)), L"");           // no such calculation stage

    struct {
        int index;
        bool prefix, number;
        const wchar_t* text;
    } cases[] = {
        {2, false, false, L"Line"},
        {2, false, true, L"2: Line"},
        {2, true, false, L"Stage: Line"},
        {2, true, true, L"Stage 2: Line"},
        {6, true, true, L"Stage 2: Line(Smoothed)"}, // numbered as stage 6 - (n + 1)
        {6, false, true, L"2: Line(Smoothed)"},
        {0, true, true, L"Stage: Base Model"}, // a base index is never numbered
        {4, true, false, L"Stage: Base Model"},
        {4, false, true, L"Base Model"},
    };
    for (const auto& c : cases) {
        CString out(L"stale");
        on.GetStageDescription(out, c.index, c.prefix, c.number);
        EXPECT_EQ(Str(out), c.text) << c.index << c.prefix << c.number;
    }
}

TEST(Stages, ListsOfDescriptions) {
    auto texts = [](const ZorvoData& doc, bool fullRange, bool addAll) {
        std::vector<CString> list{CString(L"stale")};
        doc.GetStagesDescriptions(fullRange, list, true, true, addAll);
        std::vector<std::wstring> out;
        for (const CString& s : list)
            out.push_back(s.Str());
        return out;
    };
    using V = std::vector<std::wstring>;
    // Without the full range: the base and the stages, 0 to n...
    EXPECT_EQ(texts(ThreeStages(false), false, true),
              (V{L"Stage: Base Model", L"Stage 1: Excavate", L"Stage 2: Line", L"Stage 3: Grout",
                 L"All"}));
    EXPECT_EQ(texts(ThreeStages(true, false), false, false),
              (V{L"Stage: Base Model", L"Stage 1: Excavate", L"Stage 2: Line", L"Stage 3: Grout"}));
    // ...or n + 1 to 2n + 1 when the smoothed results are shown.
    EXPECT_EQ(texts(ThreeStages(true, true), false, false),
              (V{L"Stage: Base Model", L"Stage 1: Excavate(Smoothed)", L"Stage 2: Line(Smoothed)",
                 L"Stage 3: Grout(Smoothed)"}));
    // The full range is every calculation stage.
    EXPECT_EQ(texts(ThreeStages(true, true), true, true).size(), 9u);
    EXPECT_EQ(texts(ThreeStages(false, true), true, false).size(), 4u);
}

TEST(Stages, EnabledStageIndexAndLongestName) {
    // Stage 2 is disabled; the count runs over stages 1 to n - 1 only.
    const ZorvoData doc = ThreeStages(false);
    struct {
        int enabled, stage;
    } cases[] = {{0, 0}, {1, 1}, {2, 0}, {4, 0}};
    for (const auto& c : cases)
        EXPECT_EQ(doc.GetStageIndexFromEnabledStageIndex(c.enabled), c.stage) << c.enabled;

    EXPECT_EQ(doc.MaxStageNameLength(), 18); // "Excavate" + 10
    EXPECT_EQ(ZorvoData().MaxStageNameLength(), 10);
}

TEST(Stages, StagePropertyOverridesAValueInItsStageOnly) {
    // Tunnel 1 of 6 m in stages 1 and 3, tunnel 2 of 5 m in stages 2 and 3; smoothing on.
    ZorvoData doc = ThreeStages(true);
    GeoTunnel t1, t2;
    t1.SetDiameter(6.0);
    t2.SetDiameter(5.0);
    doc.SetTunnel(1, t1);
    doc.SetTunnel(2, t2);

    auto property = [](int stage, EElementType type, const wchar_t* refs,
                       std::vector<double> values) {
        CStageProperty p;
        p.SetStage(stage);
        p.SetElementType(type);
        p.SetRefs(List(refs));
        p.SetValues(values);
        return p;
    };
    doc.SetStageProperty(1, property(3, eElementTunnel, L"1", {7.0}));
    doc.SetStageProperty(2, property(3, eElementTunnel, L"1 to 2", {7.5, 1.0})); // later wins
    doc.SetStageProperty(3, property(1, eElementTunnel, L"2", {9.0}));           // not in stage 1
    doc.SetStageProperty(4, property(-1, eElementTunnel, L"1 to 2", {2.0}));     // never applies
    doc.SetStageProperty(5, property(2, eElementCircularExcavation, L"2", {3.0}));
    doc.SetStageProperty(6, property(2, eElementPolygonalExcavation, L"1", {-4.0, -6.0}));

    struct {
        int stage, tunnel, property;
        double diameter;
    } cases[] = {
        {0, 1, 0, 6.0}, // the base model: its own
        {1, 1, 0, 6.0}, // listed, no property here
        {2, 1, 0, 0.0}, // not in stage 2
        {3, 1, 0, 7.5}, // the later of two properties of stage 3
        {3, 2, 0, 7.5},
        {1, 2, 0, 9.0}, // a property gives a value even where the tunnel is not listed
        {3, 1, 1, 6.0}, // another property than the diameter keeps the tunnel's own
        {4, 1, 0, 6.0}, // the base again
        {7, 1, 0, 6.0}, // stage 3 smoothed: index 7 meets no property
        {2, 2, 0, 5.0}, // the circular excavation property of stage 2 is not a tunnel's
    };
    for (const auto& c : cases)
        EXPECT_EQ(doc.GetStageDependentProperty(c.stage, eElementTunnel, c.tunnel, c.property, 1),
                  c.diameter)
            << "stage " << c.stage << " tunnel " << c.tunnel << " property " << c.property;
    EXPECT_EQ(doc.GetTunnelDiameterInStage(1, 3), 7.5);
    EXPECT_EQ(doc.GetTunnelDiameterInStage(1, 2), 0.0);

    // Base levels of a polygonal excavation go by position; a shorter list's last value
    // stands for the positions beyond it.
    EXPECT_EQ(doc.GetStageDependentProperty(2, eElementPolygonalExcavation, 1, 0, 1), -4.0);
    EXPECT_EQ(doc.GetStageDependentProperty(2, eElementPolygonalExcavation, 1, 0, 2), -6.0);
    EXPECT_EQ(doc.GetStageDependentProperty(2, eElementPolygonalExcavation, 1, 0, 5), -6.0);
    EXPECT_EQ(doc.GetStageDependentProperty(2, eElementCircularExcavation, 2, 0, 4), 3.0);
}

// Guards the run that never ended on a stage listing one tunnel 500,000 times: a
// repeated entry is kept once, and the stage means what it meant.
TEST(Stages, RepeatedEntriesOfAStageListAreKeptOnce) {
    ZorvoData doc;
    doc.SetTunnel(1, GeoTunnel());
    doc.SetStage(1, Stage(L"Drive", true, L"3 1 3 3 2 to 3 1 -2 -2 2 to 3"));
    const CBasicList& tunnels = doc.GetStage(1, false).GetTunnels();
    // The entries in the order they first stand; the text, as saved, is theirs.
    EXPECT_EQ(tunnels.Ranges(),
              (std::vector<std::pair<int, int>>{{3, 3}, {1, 1}, {2, 3}, {-2, -2}}));
    EXPECT_EQ(Str(tunnels.String()), L"3 1 2 to 3 -2");
    // The text as typed holds -2, 1, 2 and 3.
    for (int t = -3; t <= 5; ++t)
        EXPECT_EQ(doc.IsTunnelInStage(t, 1), t == -2 || (t >= 1 && t <= 3)) << t;

    // Tunnels 2 and 3 do not exist: each is reported once, 3 where it first stands, though
    // the range 2 to 3 holds it again; -2 is a special entry and passes.
    std::vector<CString> m;
    bool cancelled = false;
    EXPECT_TRUE(doc.StageErrors(m, cancelled));
    EXPECT_EQ(m, (std::vector<CString>{L"Stage: Drive refers to Tunnel  3 which does not exist.",
                                       L"Stage: Drive refers to Tunnel  2 which does not exist."}));
}
