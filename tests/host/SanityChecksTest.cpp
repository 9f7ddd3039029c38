#include "host/SanityChecks.h"
#include "host/HostSession.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <sstream>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The findings as "E text" and "W text" lines.
std::string Lines(const std::vector<SanityChecks::SFinding>& findings) {
    std::string s;
    for (const auto& f : findings)
        s += (f.error ? "E " : "W ") + f.text + "\n";
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

// A square pit of 10 m with its lists complete: surface 100 m, base 90 m.
CPolygonalExcavation Pit() {
    CPolygonalExcavation e;
    e.SetName(L"P");
    const Vec2<double> v[4] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    for (int k = 1; k <= 4; ++k) {
        e.SetCoord(k, v[k - 1]);
        e.SetBaseLevel(k, 90.0);
        e.SetExcavationCorner(k, CExcavationCorner());
    }
    return e;
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

CCircularExcavation Shaft() {
    CCircularExcavation e;
    e.SetName(L"S");
    e.SetDiameter(6.0);
    e.SetBaseLevel(80.0);
    return e;
}

} // namespace

// Each field at the edge of its range: what is an error, what a warning, what passes.
TEST(SanityChecks, InputFieldsAtTheEdgesOfTheirRanges) {
    const struct {
        const char* what;
        std::function<void(GeoTunnel&)> tunnel;
        std::function<void(GeoMine&)> mine;
        const char* expected; // "" for no finding
    } cases[] = {
        {"defaults", [](GeoTunnel&) {}, nullptr, ""},
        {"zero diameter", [](GeoTunnel& t) { t.SetDiameter(0.0); }, nullptr,
         "E Tunnel 1 \"T\": the diameter is 0 m; give the excavated diameter, greater than 0\n"},
        {"thin diameter passes", [](GeoTunnel& t) { t.SetDiameter(0.0005); }, nullptr, ""},
        {"vast diameter", [](GeoTunnel& t) { t.SetDiameter(60.0); }, nullptr,
         "W Tunnel 1 \"T\": the diameter is 60 m, larger than any tunnel driven; check its "
         "unit\n"},
        {"zero volume loss", [](GeoTunnel& t) { t.SetPercentLoss(0.0); }, nullptr,
         "W Tunnel 1 \"T\": the volume loss is 0%: the tunnel moves no ground\n"},
        {"negative loss is the library's warning", [](GeoTunnel& t) { t.SetPercentLoss(-1.0); },
         nullptr, ""},
        {"whole area lost", [](GeoTunnel& t) { t.SetPercentLoss(100.0); }, nullptr,
         "W Tunnel 1 \"T\": the volume loss is 100%, far above the 0.5 to 3% of tunnels "
         "driven; check that it is a percentage\n"},
        {"more than the area", [](GeoTunnel& t) { t.SetPercentLoss(100.5); }, nullptr,
         "E Tunnel 1 \"T\": the volume loss is 100.5%, more than the whole excavated area; "
         "give a percentage\n"},
        {"user k of zero",
         [](GeoTunnel& t) {
             t.SetkDerivation(eSurface, GeoTunnel::ekUserSpecified);
             t.Setk(eSurface, 0.0);
         },
         nullptr,
         "E Tunnel 1 \"T\": the surface k is 0, which gives no trough width; give a factor "
         "greater than 0\n"},
        // A k that no derivation reads is left alone.
        {"unused k", [](GeoTunnel& t) { t.Setk(eSurface, kNaN); }, nullptr, ""},
        // New and Bowers widens sub-surface troughs by the sub-surface derivation.
        {"sub-surface width",
         [](GeoTunnel& t) { t.SetkDerivation(eSubSurface, GeoTunnel::ekMair); }, nullptr,
         "E Tunnel 1 \"T\": the sub-surface k derivation is \"Mair et al.\", which gives no "
         "trough width; choose O'Reilly and New, Boscardin, Selby or User-specified k\n"},
        {"far coordinate", [](GeoTunnel& t) { t.SetGroundLevel2(1.5e8); }, nullptr,
         "E Tunnel 1 \"T\": ground level 2 is 1.5e+08 m, farther from the origin than any "
         "site grid reaches (1e8 m); check the coordinate and its unit\n"},
        {"axis at the ground", [](GeoTunnel& t) { t.SetZCentreLine2(100.0); }, nullptr,
         "W Tunnel 1 \"T\": at end 2 its axis (100 m) is not below the ground level (100 m); "
         "check the levels\n"},
        {"mine defaults", nullptr, [](GeoMine&) {}, ""},
        {"no closure", nullptr, [](GeoMine& m) { m.SetClosure(0.0); },
         "W Mine 1 \"M\": the closure is 0 m: the panel causes no subsidence\n"},
        {"vertical draw", nullptr, [](GeoMine& m) { m.SetUpperAngleOfDraw(90.0); },
         "E Mine 1 \"M\": the upper angle of draw is 90 degrees; give an angle from the "
         "vertical, 0 or more and below 90\n"},
        {"no reach", nullptr,
         [](GeoMine& m) {
             m.SetLowerAngleOfDraw(0.0);
             m.SetUpperAngleOfDraw(0.0);
         },
         "E Mine 1 \"M\": its angles of draw and strata give no area of influence (radius 0); "
         "give an angle of draw above 0 to a stratum of some thickness\n"},
        {"no depth", nullptr,
         [](GeoMine& m) {
             m.SetLowerStratumThickness(0.0);
             m.SetUpperStratumThickness(0.0);
         },
         "E Mine 1 \"M\": the two strata are 0 m thick together: the seam has no depth; give "
         "the thickness of the ground over it\n"},
        {"a point of a centre line", nullptr, [](GeoMine& m) { m.SetYCentreLine2(0.0009); },
         "E Mine 1 \"M\": its centre line is shorter than 0.001 m in plan; give the panel's "
         "two ends\n"},
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
        EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), c.expected) << c.what;
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
    const std::string P = "Polygonal excavation 1 \"P\": ";
    const std::string S = "Circular excavation 1 \"S\": ";
    const struct {
        const char* what;
        std::function<void(ZorvoData&, CPolygonalExcavation&, CCircularExcavation&)> change;
        std::string expected;
    } cases[] = {
        {"sound pit and shaft", [](ZorvoData&, CPolygonalExcavation&, CCircularExcavation&) {}, ""},
        {"two vertices",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {10, 0}});
         },
         "E " + P + "its wall line has 2 vertices; give at least three\n"},
        {"a base level short",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             e.SetBaseLevels({90.0, 90.0, 90.0});
         },
         "E " + P +
             "it has 4 vertices, 3 base levels and 4 corners; give one base level and "
             "one corner per vertex\n"},
        {"coincident vertices",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {10, 0}, {10, 0.0005}, {10, 10}, {0, 10}});
         },
         "W " + P +
             "vertices 2 and 3 are 0.0005 m apart, within the 0.001 m to which the wall "
             "line is drawn: side 2 is no real wall; delete one of the two vertices\n"},
        {"vertices on one line",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {5, 0}, {10, 0}});
         },
         "E " + P +
             "its wall line encloses no area (its vertices lie on one line): it has no "
             "inside and its walls have no side to move towards; give the vertices of "
             "the excavation's outline\n"},
        // Side 2 from (10, 0) to (0, 10) and side 4 from (4, 10) to (0, 0) cross at
        // (2.86, 7.14); the outline still encloses 30 m².
        {"a crossing outline",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             Outline(e, {{0, 0}, {10, 0}, {0, 10}, {4, 10}});
         },
         "E " + P +
             "sides 2 and 4 of its wall line meet: the outline crosses or touches "
             "itself, and its inside is not one area; give the vertices in order round "
             "the excavation\n"},
        // 13 horizontal curves, numbered 1 to 13: index 13 is curve 14.
        {"the closing side's curve",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation&) {
             CExcavationCorner c;
             c.SetGMCurve(GeoGlobal::eHorizontal, 13);
             e.SetExcavationCorner(4, c);
         },
         "E " + P +
             "side 4, which closes the wall line, uses horizontal curve 14, but there "
             "are 13 horizontal curves; choose one of them\n"},
        {"walls of no depth, then too deep",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation& s) {
             e.SetBaseLevels({90.0, 100.0, 90.0, -150.0});
             s.SetBaseLevel(-120.0);
         },
         "E " + P +
             "base level 2 equals the surface level (100 m): the wall there has no "
             "depth, and points on its line get no value; give a base level below the "
             "surface level\n"
             "W " +
             S +
             "the base level is 220 m below the surface level, deeper than any embedded "
             "wall built; check the levels and their unit\n"},
        {"values that are no numbers or too far",
         [](ZorvoData&, CPolygonalExcavation& e, CCircularExcavation& s) {
             e.SetCoord(2, {kNaN, 0.0});
             e.SetSurfaceLevel(1.5e8);
             s.SetDiameter(kNaN);
         },
         "E " + P +
             "the surface level is 1.5e+08 m, farther from the origin than any site grid "
             "reaches (1e8 m); check the coordinate and its unit\n"
             "E " +
             P +
             "vertex 2 x is NaN; give a coordinate in metres\n"
             "E " +
             S + "the diameter is NaN; give the shaft's diameter in metres\n"},
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
         },
         "E " + P +
             "corner 1: the next side's transition zone fraction is NaN; give a "
             "fraction from 0 to 1\n"
             "E " +
             P +
             "corner 2: the previous side's d is -1 m; give a distance of 0 or more\n"
             "E " +
             P +
             "corner 2: the previous side's p1* is 1.2; give a factor from 0 to 1\n"
             "W " +
             P +
             "corner 2: the next side's p2* is 1.5, outside 0 to 1: the fan around the "
             "corner takes more than the whole movement of a wall, or less than none; "
             "check it\n"
             "E " +
             P +
             "corner 2: the next side's transition zone fraction is NaN; give a "
             "fraction from 0 to 1\n"
             "W " +
             S + "the diameter is 300 m, wider than any shaft sunk; check its unit\n"},
        {"a shaft of no depth; one of no diameter is the library's error",
         [](ZorvoData&, CPolygonalExcavation&, CCircularExcavation& s) {
             s.SetBaseLevel(100.0);
             s.SetDiameter(0.0);
         },
         "E " + S +
             "the base level equals the surface level (100 m): the wall there has no "
             "depth, and points on its line get no value; give a base level below the "
             "surface level\n"},
        {"a stage that raises the shaft's base to its surface",
         [](ZorvoData& d, CPolygonalExcavation&, CCircularExcavation&) {
             CStageProperty raise;
             raise.SetElementType(eElementCircularExcavation);
             CBasicList refs;
             refs.SetString(L"1 to 3");
             raise.SetRefs(refs);
             raise.SetValues({101.0});
             d.SetStageProperty(1, raise);
         },
         "E Stage property 1 \"Stage Property #\": value 1 gives circular excavation 1 a base level of 101 m, not below its "
         "surface level of 100 m: the wall has no depth in that stage; give a level below the "
         "surface level\n"},
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
         },
         "E Imported set 1 \"Survey\": 2 of its 3 displacements hold a value that is not a "
         "finite number, the first number 2; they would be added to the results where samples "
         "coincide: give their points and displacements as numbers\n"},
    };
    for (const auto& c : cases) {
        ZorvoData doc;
        CPolygonalExcavation pit = Pit();
        CCircularExcavation shaft = Shaft();
        shaft.SetCentre({50.0, 50.0});
        c.change(doc, pit, shaft);
        doc.SetPolygonalExcavation(1, pit);
        doc.SetCircularExcavation(1, shaft);
        EXPECT_EQ(Lines(SanityChecks::Inputs(doc)), c.expected) << c.what;
    }
}

// The library's texts come first and unchanged, the excavation passes in their places
// among the others, and the host's own after them.
TEST(SanityChecks, HostPrintsThemAfterTheLibrarysPasses) {
    ZorvoData doc;
    CCircularExcavation a = Shaft();
    a.SetDiameter(0.0);
    doc.SetCircularExcavation(1, a);
    CCircularExcavation b = Shaft();
    b.SetBaseLevel(100.0);
    b.SetCentre({20.0, 0.0}); // apart from the first
    doc.SetCircularExcavation(2, b);
    CDisplacementPoint p;
    p.SetPoint({50.0, 50.0, 101.0});
    doc.SetDisplacementPoint(1, p);
    std::ostringstream out, err;
    HostSession session(out, err, nullptr);
    EXPECT_EQ(session.Check(doc, 1), HostSession::eErrors);
    EXPECT_EQ(err.str(),
              "error: Circular Excavation 1 : S - Diameter cannot be zero. \n"
              "warning: Multiple excavations have been specified.  Displacements resulting from "
              "each  excavation are summed with no account taken of the interactions between "
              "excavations (e.g. overlapping zones of influence or 'shielding' of one excavation "
              "by another).\n"
              "warning: If an embedded wall excavation is assigned a 'sub-surface' ground "
              "movement curve then displacements induced by it can only be calculated for those "
              "points that are level with or below the embedded wall excavation's 'surface "
              "level'. Others are ignored.  An example of such a combination, for which "
              "displacements will not be calculated is Excavation XC1/Point 1/Horizontal. This "
              "is an example only. There are 3 others.\n"
              "sanity error: Circular excavation 2 \"S\": the base level equals the surface level "
              "(100 m): the wall there has no depth, and points on its line get no value; give a "
              "base level below the surface level\n");
}
