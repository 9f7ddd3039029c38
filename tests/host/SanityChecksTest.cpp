#include "host/SanityChecks.h"
#include "host/HostSession.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <sstream>

#include "tests/support/Excavations.h"
#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The findings as "E text" and "W text" lines.
std::string Lines(const std::vector<SanityChecks::SFinding>& findings) {
    std::string s;
    for (const auto& f : findings)
        s += (f.error ? "E " : "W ") + f.text + "\n";
    return s;
}

const TextTable kExpected = ReadTexts("host/SanityChecks.tsv");

// The findings of a case of the table, as Lines gives them.
std::string Expected(const std::string& key) {
    std::string s;
    const auto it = kExpected.find(key);
    for (const std::string& line : it == kExpected.end() ? std::vector<std::string>{} : it->second)
        s += line + "\n";
    return s;
}

GeoTunnel Tunnel() {
    GeoTunnel t;
    t.SetName(L"T");
    return t;
}

GeoMine Mine() {
    GeoMine m;
    m.SetName(L"M");
    m.SetClosure(2.0);
    m.SetPanelWidth(200.0);
    m.SetLowerStratumThickness(300.0);
    m.SetUpperStratumThickness(100.0);
    m.SetLowerAngleOfDraw(35.0);
    m.SetUpperAngleOfDraw(25.0);
    m.SetYCentreLine2(400.0);
    return m;
}

// Replaces the vertices of a pit, with a base level and a corner for each.
void Outline(CPolygonalExcavation& e, const std::vector<Vec2<double>>& v) {
    CPolygon p;
    for (const auto& q : v)
        p.AddPoint(q);
    e.SetPolygon(p);
    e.SetBaseLevels(std::vector<double>(v.size(), 90.0));
    e.SetExcavationCorners(std::vector<CExcavationCorner>(v.size()));
}

} // namespace

// Each field at the edge of its range: what is an error, what a warning (in the table),
// what passes.
TEST(SanityChecks, InputFieldsAtTheEdgesOfTheirRanges) {
    const struct {
        const char* what;
        std::function<void(GeoTunnel&)> tunnel;
        std::function<void(GeoMine&)> mine;
    } cases[] = {
        {"defaults", [](GeoTunnel&) {}, nullptr},
        {"zero diameter", [](GeoTunnel& t) { t.SetDiameter(0.0); }, nullptr},
        {"thin diameter passes", [](GeoTunnel& t) { t.SetDiameter(0.0005); }, nullptr},
        {"vast diameter", [](GeoTunnel& t) { t.SetDiameter(60.0); }, nullptr},
        {"zero volume loss", [](GeoTunnel& t) { t.SetPercentLoss(0.0); }, nullptr},
        {"negative loss is the library's warning", [](GeoTunnel& t) { t.SetPercentLoss(-1.0); },
         nullptr},
        {"whole area lost", [](GeoTunnel& t) { t.SetPercentLoss(100.0); }, nullptr},
        {"more than the area", [](GeoTunnel& t) { t.SetPercentLoss(100.5); }, nullptr},
        {"user k of zero",
         [](GeoTunnel& t) {
             t.SetkDerivation(eSurface, GeoTunnel::ekUserSpecified);
             t.Setk(eSurface, 0.0);
         },
         nullptr},
        // A k that no derivation reads is left alone.
        {"unused k", [](GeoTunnel& t) { t.Setk(eSurface, kNaN); }, nullptr},
        // New and Bowers widens sub-surface troughs by the sub-surface derivation.
        {"sub-surface width",
         [](GeoTunnel& t) { t.SetkDerivation(eSubSurface, GeoTunnel::ekMair); }, nullptr},
        {"far coordinate", [](GeoTunnel& t) { t.SetGroundLevel2(1.5e8); }, nullptr},
        {"axis at the ground", [](GeoTunnel& t) { t.SetZCentreLine2(100.0); }, nullptr},
        {"mine defaults", nullptr, [](GeoMine&) {}},
        {"no closure", nullptr, [](GeoMine& m) { m.SetClosure(0.0); }},
        {"vertical draw", nullptr, [](GeoMine& m) { m.SetUpperAngleOfDraw(90.0); }},
        {"no reach", nullptr,
         [](GeoMine& m) {
             m.SetLowerAngleOfDraw(0.0);
             m.SetUpperAngleOfDraw(0.0);
         }},
        {"no depth", nullptr,
         [](GeoMine& m) {
             m.SetLowerStratumThickness(0.0);
             m.SetUpperStratumThickness(0.0);
         }},
        {"a point of a centre line", nullptr, [](GeoMine& m) { m.SetYCentreLine2(0.0009); }},
    };
    for (const auto& c : cases) {
        ZorvoData doc;
        if (c.tunnel) {
            GeoTunnel t = Tunnel();
            c.tunnel(t);
            doc.SetTunnel(1, t);
        } else {
            doc.AccessGeneral().SetProblemType(eMine);
            GeoMine m = Mine();
            c.mine(m);
            doc.SetMine(1, m);
        }
        EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), Expected(std::string("inputs: ") + c.what))
            << c.what;
    }
}

// 41 x 51 samples in 3 calculation stages against a given memory.
TEST(SanityChecks, ResultStoreAgainstMemory) {
    ZorvoData doc;
    doc.SetTunnel(1, Tunnel());
    CDisplacementGrid grid;
    grid.SetName(L"Site");
    grid.SetIntervalsAlongLine(40);
    grid.SetIntervalsAlongExtrusion(50);
    doc.SetDisplacementGrid(1, grid);
    doc.InsertStage(1, 2);
    const double bytes = 41.0 * 51.0 * 3.0 * (sizeof(GeoDispResult) + 40.0);

    EXPECT_EQ(Lines(SanityChecks::RunSize(doc, bytes / 0.8, "this machine has", 2)), "");
    const std::string refused =
        Lines(SanityChecks::RunSize(doc, bytes / 0.8 - 1.0, "this machine has", 2));
    EXPECT_EQ(refused.rfind("E Grid 1 \"Site\" has 2091 samples in 3 stages: about ", 0), 0u)
        << refused;
    EXPECT_NE(refused.find("this machine has; reduce its intervals\n"), std::string::npos);
    // Unknown memory: no test.
    EXPECT_EQ(Lines(SanityChecks::RunSize(doc, 0.0, "", 2)), "");

    // 2091 samples in 2000 stages under 1 tunnel (4.2e6 point movements) take a second;
    // under 4000 tunnels about 4.2e6 x 4000 / (1e7 a second x 2 cores) = 836 s, and
    // under 20000 tunnels 4182 s: worth a word before the run.
    doc.InsertStage(1, 1997);
    doc.InsertTunnel(1, 3999);
    EXPECT_EQ(Lines(SanityChecks::RunSize(doc, 0.0, "", 2)), "");
    doc.InsertTunnel(1, 16000);
    EXPECT_EQ(Lines(SanityChecks::RunSize(doc, 0.0, "", 2)),
              "W The run works out 4.2e6 samples under 20000 tunnels: about 1.2 hours on 2 "
              "cores; Ctrl-C stops it\n");
}

TEST(SanityChecks, ResultsThatAreNotFiniteAreCountedByRecordAndStage) {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetName(L"Section");
    line.SetIntervalsAlongLine(3);
    doc.SetDisplacementLine(1, line);
    doc.ResizeResultsAndSetupTransects();
    // Samples the run reached carry their record's point type; one it never reached
    // (position 0 here) is left out of the count.
    GeoDispResult good;
    good.SetPointType(eLine);
    doc.AccessDisplacementLine(1).SetResult(0, 1, 0, good);
    GeoDispResult bad = good;
    bad.SetPrincipalStrainAngle(kNaN);
    doc.AccessDisplacementLine(1).SetResult(0, 2, 0, bad);
    bad = good;
    bad.SetXpoint(-std::numeric_limits<double>::infinity());
    doc.AccessDisplacementLine(1).SetResult(0, 3, 0, bad);
    EXPECT_EQ(Lines(SanityChecks::Results(doc)),
              "E Line 1 \"Section\", stage 0 (Base Model): 2 of 3 samples hold a value that is "
              "not a finite number; they mean nothing: check the inputs of that stage\n");
}

// Faults of excavations and imported sets that the library's passes leave alone, one
// record per row.
TEST(SanityChecks, ExcavationsAndImportedSets) {
    const struct {
        const char* what;
        std::function<void(ZorvoData&, CPolygonalExcavation&, CCircularExcavation&)> change;
    } cases[] = {
        {"sound pit and shaft", [](ZorvoData&, CPolygonalExcavation&, CCircularExcavation&) {}},
        {"two vertices",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {10, 0}});
         }},
        {"a base level short",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             e.SetBaseLevels({90.0, 90.0, 90.0});
         }},
        {"coincident vertices",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {10, 0}, {10, 0.0005}, {10, 10}, {0, 10}});
         }},
        {"vertices on one line",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {5, 0}, {10, 0}});
         }},
        // Side 2 from (10, 0) to (0, 10) and side 4 from (4, 10) to (0, 0) cross at
        // (2.86, 7.14); the outline still encloses 30 m².
        {"a crossing outline",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {10, 0}, {0, 10}, {4, 10}});
         }},
        // 13 horizontal curves, numbered 1 to 13: index 13 is curve 14.
        {"the closing side's curve",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             CExcavationCorner c;
             c.SetGMCurve(GeoGlobal::eHorizontal, 13);
             e.SetExcavationCorner(4, c);
         }},
        {"walls of no depth, then too deep",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation& s) {
             e.SetBaseLevels({90.0, 100.0, 90.0, -150.0});
             s.SetBaseLevel(-120.0);
         }},
        {"values that are no numbers or too far",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation& s) {
             e.SetCoord(2, {kNaN, 0.0});
             e.SetSurfaceLevel(1.5e8);
             s.SetDiameter(kNaN);
         }},
        // Stiffening is read at a stiffened corner alone, transition zones with smoothing on.
        {"stiffening and transition zones",
         [](ZorvoData& d, CPolygonalExcavation& e, CCircularExcavation& s) {
             CExcavationCorner c;
             c.SetPreviousEdge_d(-1.0);
             c.SetPreviousEdge_p1Star(1.2);
             c.SetNextEdge_p2Star(1.5);
             c.SetNextEdge_TransitionZoneFraction(kNaN);
             e.SetExcavationCorner(1, c);
             c.SetStiffened(true);
             e.SetExcavationCorner(2, c);
             CReEntrantCornerOptions smoothing;
             smoothing.SetReEntrantCornerSmoothing(true);
             d.SetReEntrantCornerOptions(smoothing);
             s.SetDiameter(300.0);
         }},
        {"a shaft of no depth; one of no diameter is the library's error",
         [](ZorvoData&, CPolygonalExcavation&, CCircularExcavation& s) {
             s.SetBaseLevel(100.0);
             s.SetDiameter(0.0);
         }},
        {"a stage that raises the shaft's base to its surface",
         [](ZorvoData& d, CPolygonalExcavation&, CCircularExcavation&) {
             CStageProperty raise;
             raise.SetElementType(eElementCircularExcavation);
             CBasicList refs;
             refs.SetString(L"1 to 3");
             raise.SetRefs(refs);
             raise.SetValues({101.0});
             d.SetStageProperty(1, raise);
         }},
        {"an imported set",
         [](ZorvoData& d, CPolygonalExcavation&, CCircularExcavation&) {
             CImportedDisplacementsSet set(L"Survey");
             CImportedDisplacement v;
             set.AddDisplacement(v);
             v.SetZdisplacement(kNaN);
             set.AddDisplacement(v);
             v.SetZdisplacement(0.0);
             v.SetXpoint(std::numeric_limits<double>::infinity());
             set.AddDisplacement(v);
             d.SetImportedDisplacementsSet(1, set);
         }},
    };
    for (const auto& c : cases) {
        ZorvoData doc;
        CPolygonalExcavation pit = Pit(L"P", 0, 0);
        CCircularExcavation shaft = Shaft(L"S", 50, 50, 6);
        c.change(doc, pit, shaft);
        doc.SetPolygonalExcavation(1, pit);
        doc.SetCircularExcavation(1, shaft);
        EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), Expected(std::string("excavations: ") + c.what))
            << c.what;
    }
}

// The library's texts come first and unchanged, the excavation passes in their places
// among the others, and the host's own after them.
TEST(SanityChecks, HostPrintsThemAfterTheLibrarysPasses) {
    ZorvoData doc;
    CCircularExcavation a = Shaft(L"S", 0, 0, 6);
    a.SetDiameter(0.0);
    doc.SetCircularExcavation(1, a);
    CCircularExcavation b = Shaft(L"S", 20, 0, 6); // apart from the first
    b.SetBaseLevel(100.0);
    doc.SetCircularExcavation(2, b);
    CDisplacementPoint p;
    p.SetPoint({50.0, 50.0, 101.0});
    doc.SetDisplacementPoint(1, p);
    std::ostringstream out, err;
    HostSession session(out, err, nullptr);
    EXPECT_EQ(session.Check(doc, 1), HostSession::eErrors);
    EXPECT_EQ(err.str(), Expected("host output"));
}

namespace {

// Line 1 runs 30 m from (0, 0, 100) along x in 10 intervals; building "B" stands on it
// from 5 m to 25 m.
ZorvoData BuildingSite() {
    ZorvoData doc;
    CDisplacementLine line;
    line.SetPoint1({0.0, 0.0, 100.0});
    line.SetPoint2({30.0, 0.0, 100.0});
    doc.SetDisplacementLine(1, line);
    CSpecificBuilding b;
    b.SetName(L"B");
    b.SetLineStart(5.0);
    b.SetLineEnd(25.0);
    doc.SetSpecificBuilding(1, b);
    return doc;
}

} // namespace

// Faults of a specific building or a strains record that the library's passes leave alone.
TEST(SanityChecks, SpecificBuildingsAndTheirStrains) {
    using B = CSpecificBuilding;
    using P = CBuildingDamageProperties;
    using S = CDamageCategoryStrains;
    constexpr double inf = std::numeric_limits<double>::infinity();
    const struct {
        const char* what;
        std::function<void(B&, P&, S&)> change;
    } cases[] = {
        {"sound", [](B&, P&, S&) {}},
        {"line 0", [](B& b, P&, S&) { b.SetLine(0); }},
        {"strains record 0 of 1", [](B&, P& p, S&) { p.SetDamageCategoryStrains(0); }},
        {"no height", [](B& b, P&, S&) { b.SetHeight(0.0); }},
        // An infinite end is beyond the line: the library's error.
        {"a start that is not a number",
         [](B& b, P&, S&) {
             b.SetLineStart(kNaN);
             b.SetLineEnd(inf);
         }},
        {"Poisson's ratio of 0.5", [](B&, P& p, S&) { p.SetPoissonsRatio(0.5); }},
        {"Poisson's ratio just below 0.5 passes", [](B&, P& p, S&) { p.SetPoissonsRatio(0.499); }},
        {"section values",
         [](B&, P& p, S&) {
             p.SetDefaultProperties(false);
             p.SetNAFromTensionEdge(GeoGlobal::eHogging, kNaN);
             p.SetI(GeoGlobal::eSagging, 0.0);
         }},
        {"offsets that are not numbers",
         [](B&, P& p, S&) {
             p.SetVerticalOffsets({0, kNaN, inf});
         }},
        // Limit 0 takes part in no comparison.
        {"limits negative and not rising",
         [](B&, P&, S& s) {
             s.SetStrainLimit(S::eNegligible, -1.0);
             s.SetStrainLimit(S::eVerySlight, -0.0005);
             s.SetStrainLimit(S::eSevere, 0.0015);
         }},
    };
    for (const auto& c : cases) {
        ZorvoData doc = BuildingSite();
        B b = doc.GetSpecificBuilding(1);
        P p = b.GetBuildingDamageProperties();
        S s = doc.GetDamageCategoryStrains(1);
        c.change(b, p, s);
        b.SetBuildingDamageProperties(p);
        doc.SetSpecificBuilding(1, b);
        doc.SetDamageCategoryStrains(1, s);
        EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), Expected(std::string("buildings: ") + c.what))
            << c.what;
    }
}

// A building on line 0 is the host's to report, after the library's passes have run past
// it; the building warnings are printed once.
TEST(SanityChecks, HostReportsABuildingTheLibraryPassesOver) {
    ZorvoData doc = BuildingSite();
    doc.SetTunnel(1, Tunnel());
    CSpecificBuilding b = doc.GetSpecificBuilding(1);
    b.SetLine(0);
    doc.SetSpecificBuilding(1, b);
    b.SetLine(1);
    b.SetLineStart(20.0);
    b.SetLineEnd(10.0);
    doc.SetSpecificBuilding(2, b);
    doc.SetCircularExcavation(1, Shaft(L"S", 30.0, 0.0, 6.0)); // around the line's end
    std::ostringstream out, err;
    HostSession session(out, err, nullptr);
    EXPECT_EQ(session.Check(doc, 1), HostSession::eErrors);
    EXPECT_EQ(err.str(), Expected("building output"));
}

// Faults of a utility that the library's passes leave alone: a section of no size and
// lengths that are not numbers. A dimension outside the table is the library's error.
TEST(SanityChecks, UtilitiesAndTheirDimensions) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    const struct {
        const char* what;
        std::function<void(CSpecificUtility&, CUtilityDimension&)> change;
    } cases[] = {
        {"sound", [](CSpecificUtility&, CUtilityDimension&) {}},
        {"a section of no size",
         [](CSpecificUtility&, CUtilityDimension& d) {
             d.SetInternalDiameter(0.01);
             d.SetWallThickness(-0.005);
         }},
        {"a bore that is not a number",
         [](CSpecificUtility&, CUtilityDimension& d) { d.SetInternalDiameter(kNaN); }},
        {"lengths that are not numbers",
         [](CSpecificUtility& u, CUtilityDimension&) {
             u.SetLineStart(kNaN);
             u.SetLineEnd(inf);
             u.SetPipeLength(-inf);
         }},
        {"a dimension beyond the table",
         [](CSpecificUtility& u, CUtilityDimension& d) {
             d.SetInternalDiameter(0.0);
             u.SetDimension(116);
         }},
    };
    for (const auto& c : cases) {
        ZorvoData doc = BuildingSite();
        // Dimension 115 is the user's, after the 114 of the standard library.
        CUtilityDimension d(true);
        CSpecificUtility u;
        u.SetName(L"U");
        u.SetLineStart(5.0);
        u.SetLineEnd(25.0);
        u.SetDimension(115);
        c.change(u, d);
        doc.SetUtilityDimension(115, d);
        doc.SetSpecificUtility(1, u);
        EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), Expected(std::string("utilities: ") + c.what))
            << c.what;
    }

    ZorvoData doc;
    CGenericUtility g;
    g.SetName(L"G");
    g.SetPipeLength(kNaN);
    doc.SetGenericUtility(1, g);
    EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), Expected("utilities: generic"));
}

// The utility passes print in their places, the errors before the stage errors and the
// warnings after the building warnings; a utility whose start is not a number passes the
// library's tests and is the host's to report.
TEST(SanityChecks, HostRunsTheUtilityPassesInTheirPlaces) {
    ZorvoData doc = BuildingSite();
    doc.DeleteSpecificBuilding(1, -1);
    doc.SetTunnel(1, Tunnel());
    CStage stage;
    stage.SetName(L"Drive");
    CBasicList l;
    ASSERT_TRUE(l.SetString(L"2"));
    stage.SetTunnels(l);
    doc.SetStage(1, stage);
    CSpecificUtility u;
    u.SetName(L"U");
    u.SetLineStart(kNaN);
    u.SetLineEnd(25.0);
    doc.SetSpecificUtility(1, u);
    u.SetLineStart(20.0);
    u.SetLineEnd(10.0);
    doc.SetSpecificUtility(2, u);
    doc.SetCircularExcavation(1, Shaft(L"S", 30.0, 0.0, 6.0)); // around the line's end
    std::ostringstream out, err;
    HostSession session(out, err, nullptr);
    EXPECT_EQ(session.Check(doc, 1), HostSession::eErrors);
    EXPECT_EQ(err.str(), Expected("utility output"));
}

// A generic utility whose transects memory cannot hold is refused before the run, as the
// library would set out none of them; an interval that is not a number is an error.
TEST(SanityChecks, GenericUtilityTransectsAgainstMemory) {
    ZorvoData doc;
    CPolylinePlus route;
    route.SetPoint(0, {0.0, 0.0, 0.0});
    route.SetPoint(1, {100.0, 0.0, 0.0});
    doc.SetPolyline(1, route);
    CGenericUtility g;
    g.SetName(L"Sewer");
    g.SetInterval(1e-9); // 1e11 + 1 transects of 11 points
    doc.SetGenericUtility(1, g);
    const std::string refused = Lines(SanityChecks::RunSize(doc, 8e9, "this machine has", 2));
    EXPECT_EQ(refused.rfind("E Generic Utility 1 \"Sewer\" sets out ", 0), 0u) << refused;
    EXPECT_NE(refused.find("; increase its transect interval or reduce its displacement points\n"),
              std::string::npos)
        << refused;
    g.SetInterval(10.0);
    doc.SetGenericUtility(1, g);
    EXPECT_EQ(Lines(SanityChecks::RunSize(doc, 8e9, "this machine has", 2)), "");
    g.SetInterval(kNaN);
    doc.SetGenericUtility(1, g);
    EXPECT_EQ(Lines(SanityChecks::Inputs(doc)),
              "E Generic Utility 1 \"Sewer\": the transect interval is NaN; give the chainage "
              "between transects in metres\n");
    g.SetInterval(10.0);
    g.SetDispPoints(1);
    doc.SetGenericUtility(1, g);
    EXPECT_EQ(Lines(SanityChecks::Inputs(doc)),
              "E Generic Utility 1 \"Sewer\": its transects have 1 displacement point, so none "
              "can be assessed; give at least 2\n");
}
