#include "document/ZorvoData.h"
#include "base/CResourceStrings.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

GeoTunnel Named(const wchar_t* name) {
    GeoTunnel t;
    t.SetName(name);
    return t;
}

// Names of the tunnels in list order, as one text such as "ABC".
std::wstring Names(const ZorvoData& doc) {
    std::wstring out;
    for (int n = 1; n <= doc.NumTunnels(); ++n)
        out += doc.GetTunnel(n).GetName().Str();
    return out;
}

ZorvoData FiveTunnels() {
    ZorvoData doc;
    for (const wchar_t* name : {L"A", L"B", L"C", L"D", L"E"})
        doc.SetTunnel(doc.NumTunnels() + 1, Named(name));
    return doc;
}

} // namespace

TEST(ZorvoData, NumberedFamilyGrowsFromOne) {
    ZorvoData doc;
    EXPECT_FALSE(doc.TunnelExists(0));
    EXPECT_FALSE(doc.TunnelExists(1));

    doc.SetTunnel(5, Named(L"E"));
    ASSERT_EQ(doc.NumTunnels(), 5);
    for (int n = 1; n <= 4; ++n)
        EXPECT_EQ(doc.GetTunnel(n), GeoTunnel()) << n;
    EXPECT_EQ(doc.GetTunnel(5).GetName(), CString(L"E"));
    EXPECT_TRUE(doc.TunnelExists(5));
    EXPECT_FALSE(doc.TunnelExists(6));
    EXPECT_FALSE(doc.TunnelExists(-1));

    doc.SetTunnel(2, Named(L"B")); // within the list: replaces, does not grow
    EXPECT_EQ(doc.NumTunnels(), 5);
    EXPECT_EQ(doc.GetTunnel(2).GetName(), CString(L"B"));
}

TEST(ZorvoData, NumberedFamilyInsertAndDelete) {
    struct {
        const char* what;
        void (*edit)(ZorvoData&);
        const wchar_t* names;
    } cases[] = {
        {"last below first does nothing", [](ZorvoData& d) { d.DeleteTunnel(3, 2); }, L"ABCDE"},
        {"last -1 removes one", [](ZorvoData& d) { d.DeleteTunnel(3, -1); }, L"ABDE"},
        {"a range, inclusive", [](ZorvoData& d) { d.DeleteTunnel(2, 3); }, L"ADE"},
        {"clamped to the end", [](ZorvoData& d) { d.DeleteTunnel(2, 100); }, L"A"},
        {"insert a copy before 1", [](ZorvoData& d) { d.InsertTunnel(1, Named(L"X")); }, L"XABCDE"},
        {"insert a copy before 3", [](ZorvoData& d) { d.InsertTunnel(3, Named(L"X")); }, L"ABXCDE"},
        {"insert two defaults before 2", [](ZorvoData& d) { d.InsertTunnel(2, 2); },
         L"ATunnel #Tunnel #BCDE"},
    };
    for (const auto& c : cases) {
        ZorvoData doc = FiveTunnels();
        c.edit(doc);
        EXPECT_EQ(Names(doc), c.names) << c.what;
    }
}

TEST(ZorvoData, NumRecordAndTitleOfEachFamily) {
    ZorvoData doc = FiveTunnels();
    doc.SetStage(2, CStage());
    doc.SetPolyline(1, CPolylinePlus());
    struct {
        int module;
        int records;
        const wchar_t* title; // null: no title text
    } cases[] = {
        {1, 0, nullptr}, // the title number exists but has no text
        {2, 0, L"Units"},
        {4, 1, L"Polylines"},
        {12, 5, L"Tunnels"},
        {16, 0, nullptr},
        {21, 0, L"Segment Combinations"},            // a title, though it counts no records
        {24, 114, L"Dimensions"},                    // the standard library
        {25, 20, L"Acceptance Criteria/Parameters"}, // the standard library
        {27, 0, L"Specific Utilities"},
        {31, 2, L"Stages"},
        {33, 0, L"Graphical Input"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(doc.NumRecord(c.module), c.records) << c.module;
        const int id = ZorvoData::TitleID(static_cast<EModuleID>(c.module));
        EXPECT_NE(id, 0) << c.module;
        EXPECT_EQ(CResourceStrings::Exists(id), c.title != nullptr) << c.module;
        if (c.title) {
            EXPECT_EQ(CResourceStrings::Load(id), CString(c.title)) << c.module;
        }
    }
    // Values outside the family range have neither records nor a title.
    for (int module : {0, 34}) {
        EXPECT_EQ(doc.NumRecord(module), 0);
        EXPECT_EQ(ZorvoData::TitleID(static_cast<EModuleID>(module)), 0);
    }
}

TEST(ZorvoData, ResizeResultsForEveryCalculatedRecord) {
    ZorvoData doc;
    doc.SetStage(2, CStage());
    doc.SetDisplacementPoint(1, CDisplacementPoint());
    CDisplacementPoint off;
    off.SetCalculate(false);
    doc.SetDisplacementPoint(2, off);
    CDisplacementLine line;
    line.SetIntervalsAlongLine(4);
    doc.SetDisplacementLine(1, line);
    CDisplacementPolyline polyline;
    polyline.SetIntervalsAlongLine(6);
    doc.SetDisplacementPolyline(1, polyline);
    CDisplacementGrid grid;
    grid.SetIntervalsAlongLine(2);
    grid.SetIntervalsAlongExtrusion(3);
    doc.SetDisplacementGrid(1, grid);
    EXPECT_EQ(doc.NumDisplacementPoints(true), 1);
    EXPECT_EQ(doc.NumDisplacementPoints(false), 2);

    // Two stages: the base model and the stages (3), doubled with smoothing on (6).
    for (bool smoothing : {false, true}) {
        CReEntrantCornerOptions options;
        options.SetReEntrantCornerSmoothing(smoothing);
        doc.SetReEntrantCornerOptions(options);
        doc.ResizeResultsAndSetupTransects();
        const int S = smoothing ? 6 : 3;
        EXPECT_EQ(doc.GetDisplacementPoint(1).NumResultStages(), S);
        EXPECT_EQ(doc.GetDisplacementPoint(2).NumResultStages(), 0); // not calculated
        EXPECT_EQ(doc.GetDisplacementLine(1).NumResultStages(), S);
        EXPECT_EQ(doc.GetDisplacementPolyline(1).NumResultStages(), S);
        EXPECT_EQ(doc.GetDisplacementGrid(1).NumResultStages(), S);
        for (int s = 0; s < S; ++s) {
            EXPECT_EQ(doc.GetDisplacementPoint(1).NumResults(s), 1);
            EXPECT_EQ(doc.GetDisplacementLine(1).NumResults(s), 5); // intervals + 1
            EXPECT_EQ(doc.GetDisplacementPolyline(1).NumResults(s), 7);
            ASSERT_EQ(doc.GetDisplacementGrid(1).NumResults(s), 3);
            EXPECT_EQ(doc.GetDisplacementGrid(1).GetResults(s)[2].size(), 4u);
        }
        EXPECT_EQ(doc.GetDisplacementLine(1).NumResults(S), 0); // beyond the store
    }
    doc.DeleteResults();
    EXPECT_FALSE(doc.ResultsExist(-1));
}

TEST(ZorvoData, LevelsOfATunnelAtAPoint) {
    // A tunnel 100 m long in plan along X, falling from 0 to -10, with the interface from
    // 20 to 30 and the ground from 40 to 50; 6 m in diameter, listed in stage 1 only.
    ZorvoData doc;
    GeoTunnel t;
    t.SetXCentreLine1(0.0);
    t.SetYCentreLine1(0.0);
    t.SetXCentreLine2(100.0);
    t.SetYCentreLine2(0.0);
    t.SetZCentreLine1(0.0);
    t.SetZCentreLine2(-10.0);
    t.SetSoilInterfaceLevel1(20.0);
    t.SetSoilInterfaceLevel2(30.0);
    t.SetGroundLevel1(40.0);
    t.SetGroundLevel2(50.0);
    t.SetDiameter(6.0);
    t.SetNumLayers(2);
    doc.SetTunnel(1, t);
    CBasicList first;
    first.SetString(L"1");
    CStage in;
    in.SetTunnels(first);
    doc.SetStage(1, in);
    doc.SetStage(2, CStage());

    const double z = 45.0;
    struct {
        double xLocal;
        int stage;
        double axis, interface, ground, D;
    } cases[] = {
        {-5.0, 0, 0.0, 20.0, 40.0, 6.0},    // before the first end: its levels
        {25.0, 1, -2.5, 22.5, 42.5, 6.0},   // a quarter of the way along
        {105.0, 0, -10.0, 30.0, 50.0, 6.0}, // past the second end: its levels
        {25.0, 2, -2.5, 22.5, 42.5, 0.0},   // not in stage 2: no diameter
    };
    for (const auto& c : cases) {
        const ZorvoData::SLevels lv = doc.GetLevelsForTunnelCalcs(1, c.stage, {c.xLocal, 7.0}, z);
        EXPECT_DOUBLE_EQ(lv.axisLevel, c.axis) << c.xLocal;
        EXPECT_DOUBLE_EQ(lv.interfaceLevel, c.interface) << c.xLocal;
        EXPECT_DOUBLE_EQ(lv.groundLevel, c.ground) << c.xLocal;
        EXPECT_DOUBLE_EQ(lv.pointAboveAxis, z - c.axis) << c.xLocal;
        EXPECT_DOUBLE_EQ(lv.pointAboveAxisPlusRadius, z - c.axis + 0.5 * c.D) << c.xLocal;
        EXPECT_DOUBLE_EQ(lv.interfaceAboveAxis, c.interface - c.axis) << c.xLocal;
        EXPECT_DOUBLE_EQ(lv.groundAboveAxis, c.ground - c.axis) << c.xLocal;
    }

    // In one soil the interface is at the point itself.
    t.SetNumLayers(1);
    doc.SetTunnel(1, t);
    const ZorvoData::SLevels lv = doc.GetLevelsForTunnelCalcs(1, 0, {25.0, 0.0}, z);
    EXPECT_DOUBLE_EQ(lv.interfaceLevel, z);
    EXPECT_DOUBLE_EQ(lv.interfaceAboveAxis, lv.pointAboveAxis);

    // Local axes of a tunnel heading north-east from (10, 20): x' along it, y' to its left.
    GeoTunnel ne;
    ne.SetXCentreLine1(10.0);
    ne.SetYCentreLine1(20.0);
    ne.SetXCentreLine2(13.0); // direction (0.6, 0.8)
    ne.SetYCentreLine2(24.0);
    // (10, 20) + 5 (0.6, 0.8) + 2 (-0.8, 0.6) = (11.4, 25.2)
    const Vec2<double> local = ZorvoData::LocalXYReTunnelFromGlobalXY({11.4, 25.2}, ne);
    EXPECT_NEAR(local.x, 5.0, 1e-12);
    EXPECT_NEAR(local.y, 2.0, 1e-12);
}
