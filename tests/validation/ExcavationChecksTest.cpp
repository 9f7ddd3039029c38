#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/Excavations.h"
#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

using Texts = std::vector<CString>;
const GeoGlobal::EDirection H = GeoGlobal::eHorizontal, V = GeoGlobal::eVertical;

void SetCurves(CPolygonalExcavation& e, int corner, int vertical, int horizontal) {
    CExcavationCorner c =
        e.ExcavationCornerExists(corner) ? e.GetExcavationCorner(corner) : CExcavationCorner();
    c.SetGMCurve(V, vertical);
    c.SetGMCurve(H, horizontal);
    e.SetExcavationCorner(corner, c);
}

CDisplacementPoint PointAt(double z) {
    CDisplacementPoint p;
    p.SetPoint({50.0, 50.0, z});
    return p;
}

// The texts a pass gives, in brackets, one a line.
std::string Show(const Texts& texts) {
    std::vector<std::string> utf8;
    for (const CString& t : texts)
        utf8.push_back(t.ToUtf8());
    return Bracketed(utf8);
}

const TextTable kExpected = ReadTexts("validation/ExcavationChecks.tsv");

std::string Expected(const std::string& key) {
    const auto it = kExpected.find(key);
    return it == kExpected.end() ? "" : Bracketed(it->second);
}

} // namespace

// One faulty document per row; every text the errors pass gives for it is in the table.
TEST(ExcavationErrors, EachFaultWithItsText) {
    const struct {
        const char* what;
        std::function<void(ZorvoData&)> build;
    } cases[] = {
        {"a sound pit and shaft",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"Pit", 0, 0));
             d.SetCircularExcavation(1, Shaft(L"S", 50, 50, 6));
         }},
        // (v, h): (5, 0) fails the vertical test; (0, 7) fails the horizontal one (7
        // pairs with vertical 8); (8, 7) is a pair; vertical 7 has no partner. (5, 7)
        // fails both tests and is reported once.
        {"standard curves out of their pairs",
         [](ZorvoData& d) {
             CPolygonalExcavation e = Pit(L"Pit", 0, 0);
             e.SetCoord(5, {-5.0, 5.0});
             e.SetBaseLevel(5, 90.0);
             SetCurves(e, 1, 5, 0);
             SetCurves(e, 2, 0, 7);
             SetCurves(e, 3, 8, 7);
             SetCurves(e, 4, 7, 0);
             SetCurves(e, 5, 5, 7);
             d.SetPolygonalExcavation(1, e);
             CCircularExcavation s = Shaft(L"S", 50, 50, 6);
             s.SetGMCurve(V, 1);
             s.SetGMCurve(H, 2);
             d.SetCircularExcavation(1, s);
         }},
        // Horizontal 99 does not exist, and has no points either; user curve 17 of one point
        // is incomplete; the fourth side is not tested here.
        {"missing and incomplete curves of sides",
         [](ZorvoData& d) {
             CGMCurve one(true, V);
             one.SetDataCoords({{0.0, 0.0, 1.0}});
             d.SetGMCurve(V, 17, one);
             CPolygonalExcavation e = Pit(L"Pit", 0, 0);
             SetCurves(e, 1, 0, 99);
             SetCurves(e, 2, 16, 0);
             SetCurves(e, 4, 99, 99);
             d.SetPolygonalExcavation(1, e);
         }},
        {"a pit of one corner is not tested for curves",
         [](ZorvoData& d) {
             CPolygonalExcavation e;
             e.SetName(L"Dot");
             e.SetCoord(1, {0.0, 0.0});
             e.SetBaseLevel(1, 90.0);
             CExcavationCorner c;
             c.SetGMCurve(H, 99);
             e.SetExcavationCorner(1, c);
             d.SetPolygonalExcavation(1, e);
         }},
        // Horizontal 1 and vertical 1 are a surface-only pair. An allow level equal to the
        // surface level passes; one above it does not.
        {"levels of a pit",
         [](ZorvoData& d) {
             CPolygonalExcavation e = Pit(L"Low", 0, 0);
             e.SetBaseLevel(3, 100.001);
             d.SetPolygonalExcavation(1, e);
             e = Pit(L"Level", 20, 0);
             SetCurves(e, 4, 1, 1);
             e.SetAllowGMCalcnToLevel(true);
             e.SetAllowGMCalcnToLevelValue(100.0);
             d.SetPolygonalExcavation(2, e);
             e.SetName(L"Above");
             e.SetAllowGMCalcnToLevelValue(100.5);
             d.SetPolygonalExcavation(3, e);
             e.SetName(L"Sub-surface curves");
             SetCurves(e, 4, 0, 0);
             d.SetPolygonalExcavation(4, e);
         }},
        {"a shaft's curves",
         [](ZorvoData& d) {
             CCircularExcavation s = Shaft(L"S", 0, 0, 6);
             s.SetGMCurve(H, 13);
             d.SetCircularExcavation(1, s);
         }},
        // A diameter within 1e-10 of 0 is zero; a negative one within it is both.
        {"diameters, then levels, of shafts",
         [](ZorvoData& d) {
             d.SetCircularExcavation(1, Shaft(L"A", 0, 0, 0.0));
             d.SetCircularExcavation(2, Shaft(L"B", 0, 0, -1.0));
             d.SetCircularExcavation(3, Shaft(L"C", 0, 0, -5e-11));
             d.SetCircularExcavation(4, Shaft(L"D", 0, 0, 2e-10));
             CCircularExcavation s = Shaft(L"E", 0, 0, 6);
             s.SetBaseLevel(100.5);
             s.SetGMCurve(H, 1);
             s.SetGMCurve(V, 1);
             s.SetAllowGMCalcnToLevel(true);
             s.SetAllowGMCalcnToLevelValue(101.0);
             d.SetCircularExcavation(5, s);
         }},
    };
    for (const auto& c : cases) {
        ZorvoData doc;
        c.build(doc);
        Texts m{L"left over"};
        bool cancelled = false;
        const std::string expected = Expected(std::string("errors: ") + c.what);
        EXPECT_EQ(doc.ExcavationErrors(m, cancelled), !expected.empty()) << c.what;
        EXPECT_EQ(Show(m), expected) << c.what;
        EXPECT_EQ(doc.ErrorsExist(), !expected.empty()) << c.what;
    }
}

// One document per row; every text the warnings pass gives for it is in the table.
TEST(ExcavationWarnings, EachFindingWithItsText) {
    const struct {
        const char* what;
        std::function<void(ZorvoData&)> build;
    } cases[] = {
        {"one pit", [](ZorvoData& d) { d.SetPolygonalExcavation(1, Pit(L"P", 0, 0)); }},
        {"two apart",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"P", 0, 0));
             d.SetCircularExcavation(1, Shaft(L"S", 100, 100, 6));
         }},
        // Centres 10 m apart, radii 5 m each.
        {"touching shafts do not intersect",
         [](ZorvoData& d) {
             d.SetCircularExcavation(1, Shaft(L"A", 0, 0, 10));
             d.SetCircularExcavation(2, Shaft(L"B", 10, 0, 10));
         }},
        {"overlapping shafts",
         [](ZorvoData& d) {
             d.SetCircularExcavation(1, Shaft(L"A", 0, 0, 10));
             d.SetCircularExcavation(2, Shaft(L"B", 9.999, 0, 10));
         }},
        // Vertex (0, 0) is sqrt(3² + 4²) = 5 m from the centre, one radius; the sides
        // from it pass abreast of the centre nowhere (along = -3 and 14 of 10).
        {"a vertex one radius away",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"P", 0, 0));
             d.SetCircularExcavation(1, Shaft(L"S", -3, -4, 10));
         }},
        // Side 1 from (0, 0) to (10, 0): along 5, across 5 = the radius.
        {"a side one radius away",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"P", 0, 0));
             d.SetCircularExcavation(1, Shaft(L"S", 5, -5, 10));
         }},
        {"a shaft inside a pit, far from its walls",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"P", 0, 0, 100));
             d.SetCircularExcavation(1, Shaft(L"S", 50, 50, 10));
         }},
        // A and B overlap, A and C, B and C (in 8..10 both ways); S crosses A's side
        // x = 0 (along 5, across 2 < 3) and comes 3.6 m from C's vertex (0, 8).
        {"lists of what meets what",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"A", 0, 0));
             d.SetPolygonalExcavation(2, Pit(L"B", 8, 0));
             d.SetPolygonalExcavation(3, Pit(L"C", 0, 8));
             d.SetCircularExcavation(1, Shaft(L"S", -2, 5, 6));
         }},
        {"re-entrant corners",
         [](ZorvoData& d) {
             d.SetPolygonalExcavation(1, Pit(L"Square", 0, 0));
             d.SetPolygonalExcavation(2, LPit(L"L", 100));
             d.SetPolygonalExcavation(3, LPit(L"L", 200));
         }},
        // Horizontal curve 1 acts at the surface alone, vertical curve 0 below it too: one
        // walk of each. 0.00005 m below the surface level is at it; 0.0002 m is not.
        {"a point just below a surface curve's level",
         [](ZorvoData& d) {
             CCircularExcavation s = Shaft(L"S", 0, 0, 6);
             s.SetGMCurve(H, 1);
             d.SetCircularExcavation(1, s);
             d.SetDisplacementPoint(1, PointAt(99.99995));
             d.SetDisplacementPoint(2, PointAt(99.9998));
         }},
        {"the same point with the curve taken down to a level below it",
         [](ZorvoData& d) {
             CCircularExcavation s = Shaft(L"S", 0, 0, 6);
             s.SetGMCurve(H, 1);
             s.SetAllowGMCalcnToLevel(true);
             s.SetAllowGMCalcnToLevelValue(99.0);
             d.SetCircularExcavation(1, s);
             d.SetDisplacementPoint(1, PointAt(99.9998));
             d.SetDisplacementPoint(2, PointAt(100.0));
         }},
        {"the point below the level of a surface curve",
         [](ZorvoData& d) {
             CCircularExcavation s = Shaft(L"S", 0, 0, 6);
             s.SetGMCurve(H, 1);
             s.SetAllowGMCalcnToLevel(true);
             s.SetAllowGMCalcnToLevelValue(99.9999);
             d.SetCircularExcavation(1, s);
             d.SetDisplacementPoint(1, PointAt(99.9998));
         }},
        // Both curves of the shaft reach below the surface: a point above it fails twice.
        {"a point above a sub-surface curve's level",
         [](ZorvoData& d) {
             d.SetCircularExcavation(1, Shaft(L"S", 0, 0, 6));
             d.SetDisplacementPoint(1, PointAt(100.0));
             d.SetDisplacementPoint(2, PointAt(100.5));
         }},
        // Every side of the pit has surface curves: a line with an end at 95 m fails for 4
        // sides and 2 directions; the grid at the surface and a line that is not calculated
        // do not count. Grids are walked before lines.
        {"surface curves of a pit's sides",
         [](ZorvoData& d) {
             CPolygonalExcavation e = Pit(L"P", 0, 0);
             for (int c = 1; c <= 4; ++c)
                 SetCurves(e, c, 1, 1);
             d.SetPolygonalExcavation(1, e);
             CDisplacementGrid g;
             g.SetPoint1({0.0, 20.0, 100.0});
             g.SetPoint2({10.0, 20.0, 100.0});
             d.SetDisplacementGrid(1, g);
             CDisplacementLine off;
             off.SetPoint1({0.0, 30.0, 50.0});
             off.SetCalculate(false);
             d.SetDisplacementLine(1, off);
             CDisplacementLine l;
             l.SetPoint1({0.0, 30.0, 100.0});
             l.SetPoint2({10.0, 30.0, 95.0});
             d.SetDisplacementLine(2, l);
         }},
    };
    for (const auto& c : cases) {
        ZorvoData doc;
        c.build(doc);
        Texts m{L"left over"};
        bool cancelled = false;
        const std::string expected = Expected(std::string("warnings: ") + c.what);
        EXPECT_EQ(doc.ExcavationWarnings(m, cancelled), !expected.empty()) << c.what;
        EXPECT_EQ(Show(m), expected) << c.what;
    }
}

// The sets are filled by the pass, both ways, and a second pass fills them anew.
TEST(ExcavationWarnings, SecondPassGivesTheSameTextsAndSets) {
    ZorvoData doc;
    doc.SetPolygonalExcavation(1, Pit(L"A", 0, 0));
    doc.SetPolygonalExcavation(2, Pit(L"B", 8, 0));
    doc.SetCircularExcavation(1, Shaft(L"S", -2, 5, 6));
    Texts first, second;
    EXPECT_TRUE(doc.ExcavationWarnings(first));
    EXPECT_TRUE(doc.WarningsExist());
    EXPECT_TRUE(doc.ExcavationWarnings(second));
    EXPECT_EQ(Show(first), Show(second));
    const CPolygonalExcavation& a = doc.GetPolygonalExcavation(1);
    EXPECT_EQ(a.NumIntersectingExcavations(CExcavation::ePolygonal), 1);
    EXPECT_EQ(a.NumIntersectingExcavations(CExcavation::eCircular), 1);
    EXPECT_EQ(doc.GetPolygonalExcavation(2).NumIntersectingExcavations(CExcavation::eCircular), 0);
    EXPECT_TRUE(doc.GetCircularExcavation(1).GetIntersectsExcavation(CExcavation::ePolygonal, 1));

    // Moved apart, the sets follow the last pass.
    doc.AccessCircularExcavation(1).SetCentre({-50.0, 5.0});
    EXPECT_TRUE(doc.ExcavationWarnings(second));
    EXPECT_EQ(doc.GetPolygonalExcavation(1).NumIntersectingExcavations(CExcavation::eCircular), 0);
    EXPECT_EQ(doc.GetCircularExcavation(1).NumIntersectingExcavations(CExcavation::ePolygonal), 0);
}

TEST(ExcavationChecks, FrameCodesAndCancel) {
    struct Window : CMessageWindow {
        std::vector<long long> sent;
        void SendMessageW(unsigned int, long long, long long lParam) override {
            sent.push_back(lParam);
        }
    } window;
    ZorvoData doc;
    doc.SetCircularExcavation(1, Shaft(L"A", 0, 0, 0.0));
    doc.SetCircularExcavation(2, Shaft(L"B", 0, 0, 6));
    CEvent event;
    SCheckArgs args{nullptr, &window, 7u, &event};
    Texts m;
    bool cancelled = false;
    EXPECT_TRUE(doc.ExcavationErrors(m, cancelled, args));
    EXPECT_TRUE(doc.ExcavationWarnings(m, cancelled, args));
    EXPECT_EQ(window.sent, (std::vector<long long>{0, 8, 0, 20}));
    EXPECT_FALSE(cancelled);

    event.SetEvent();
    window.sent.clear();
    EXPECT_FALSE(doc.ExcavationErrors(m, cancelled, args));
    EXPECT_TRUE(cancelled);
    cancelled = false;
    EXPECT_FALSE(doc.ExcavationWarnings(m, cancelled, args));
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(window.sent.empty());
    // Stopped before the first pair: the shafts overlap, but nothing was entered.
    EXPECT_EQ(doc.GetCircularExcavation(1).NumIntersectingExcavations(CExcavation::eCircular), 0);
}

// Excavations are sources of movement, and stages may list them.
TEST(ExcavationChecks, ExcavationsCountAsSourcesAndStageMembers) {
    ZorvoData doc;
    doc.SetCircularExcavation(1, Shaft(L"S", 0, 0, 6));
    CStage stage;
    stage.SetName(L"Sink");
    CBasicList l;
    ASSERT_TRUE(l.SetString(L"1", 0));
    stage.SetCircularExcavations(l);
    doc.SetStage(1, stage);
    Texts m;
    bool cancelled = false;
    EXPECT_FALSE(doc.GeneralErrors(m, cancelled));
    EXPECT_FALSE(doc.StageErrors(m, cancelled)) << Show(m);
    ASSERT_TRUE(l.SetString(L"2", 0));
    stage.SetCircularExcavations(l);
    doc.SetStage(1, stage);
    EXPECT_TRUE(doc.StageErrors(m, cancelled));
    EXPECT_EQ(Show(m), "[Stage: Sink refers to Circular Excavation 2 which does not exist.]\n");
}
