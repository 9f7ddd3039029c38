// Specific buildings in a run: samples of the building's line at each vertical offset,
// the assessment of every building per stage, joined segments, and imported points.
#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>
#include <omp.h>

#include <string>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

struct Trace : MessageHandler {
    std::string text;
    void OnMessage(const wchar_t* t, long long code) override {
        if (code == 0 && !t)
            return;
        text += text.empty() ? "" : " ";
        text += std::to_string(code);
    }
};

// The long tunnel (axis at level 0 along X, i = 9.7 m at level 20) under a line across it
// from y = -30 to 30 at level 20, 60 intervals of 1 m; a 10 m high building on the line
// from chainage 15 to 45 (y = -15 to 15), assessed at its own level and 5 m below it.
ZorvoData Street() {
    ZorvoData doc;
    doc.SetTunnel(1, Testing::LongTunnel());
    CDisplacementLine line(L"Across");
    line.SetPoint1({0.0, -30.0, 20.0});
    line.SetPoint2({0.0, 30.0, 20.0});
    line.SetIntervalsAlongLine(60);
    doc.SetDisplacementLine(1, line);
    CSpecificBuilding b;
    b.SetName(L"Terrace");
    b.SetLine(1);
    b.SetLineStart(15.0);
    b.SetLineEnd(45.0);
    CBuildingDamageProperties p = b.GetBuildingDamageProperties();
    p.SetVerticalOffsets({0.0, -5.0});
    b.SetBuildingDamageProperties(p);
    doc.SetSpecificBuilding(1, b);
    return doc;
}

ZorvoSolver SolveIt(ZorvoData& doc, CLodraZorvoPrefData& prefs, MessageHandler* handler = nullptr) {
    ZorvoSolver solver(&doc, &prefs, handler, {});
    EXPECT_TRUE(solver.Solve());
    return solver;
}

} // namespace

TEST(ZorvoSolverBuildings, SamplesAtEachOffsetAndSegmentsOfTheTrough) {
    ZorvoData doc = Street();
    CLodraZorvoPrefData prefs;
    Trace trace;
    SolveIt(doc, prefs, &trace);
    EXPECT_EQ(trace.text, "33 41 44 52");

    const CSpecificBuilding& b = doc.GetSpecificBuilding(1);
    const CDisplacementLine& line = doc.GetDisplacementLine(1);
    ASSERT_EQ(b.GetVerticalMovementResults(0, 0).size(), 61u);
    ASSERT_EQ(b.GetHorizontalMovementResults(0).size(), 61u);
    for (int k = 0; k <= 60; ++k) {
        // At offset 0 the copy of the line is the line itself.
        EXPECT_EQ(b.GetVerticalMovementResults(0, 0)[k], line.GetResultFromPosition(0, k, 0));
        EXPECT_EQ(b.GetHorizontalMovementResults(0)[k], line.GetResultFromPosition(0, k, 0));
        // 5 m lower the sample stands at level 15.
        const GeoDispResult& low = b.GetVerticalMovementResults(0, 1)[k];
        const double y = -30.0 + k;
        EXPECT_EQ(low.GetPoint(), Vec3<double>(0.0, y, 15.0));
        const double Sz = Testing::MovementAt(doc, 0, 0.0, y, 15.0, eSurface).Sz;
        EXPECT_DOUBLE_EQ(low.GetZdisplacement(), std::fabs(Sz) > 1e-10 ? Sz * 0.001 : 0.0) << k;
    }

    // Over the tunnel the building sags between the inflection points at y = +-9.7 and
    // hogs beyond them: three segments cut within a sample spacing of chainages 20.3 and
    // 39.7 less the building's start. The middle one sags by far more than the millimetre
    // that counts; the 5 m ends bow less than that from their chords, so have none.
    ASSERT_EQ(b.NumBuildingDamageResults(0, false, 0), 3);
    const CBuildingDamageResult& middle = b.GetBuildingDamageResult(0, false, 0, 2);
    EXPECT_EQ(middle.GetCurvature(), GeoGlobal::eSagging);
    EXPECT_NEAR(middle.GetStart(), 5.3, 1.0);
    EXPECT_NEAR(middle.GetEnd(), 24.7, 1.0);
    EXPECT_EQ(b.GetBuildingDamageResult(0, false, 0, 1).GetCurvature(), GeoGlobal::eNoCurvature);
    EXPECT_EQ(b.GetBuildingDamageResult(0, false, 0, 3).GetCurvature(), GeoGlobal::eNoCurvature);
    EXPECT_GT(b.NumBuildingDamageResults(0, false, 1), 0);
    EXPECT_TRUE(doc.ResultsExist(0));
    EXPECT_EQ(doc.NumSpecificBuildingResults(-1, -1, false),
              b.NumBuildingDamageResults(-1, false, 0) + b.NumBuildingDamageResults(-1, false, 1));
}

TEST(ZorvoSolverBuildings, SameResultsWithAnyNumberOfThreads) {
    ZorvoData one = Street();
    // A second building shares the line, so that two threads have a building each.
    CSpecificBuilding other = one.GetSpecificBuilding(1);
    other.SetLineStart(5.5);
    other.SetLineEnd(33.25);
    one.SetSpecificBuilding(2, other);
    ZorvoData two = one;
    CLodraZorvoPrefData prefs;
    const int threads = omp_get_max_threads();
    omp_set_num_threads(1);
    SolveIt(one, prefs);
    omp_set_num_threads(2);
    SolveIt(two, prefs);
    omp_set_num_threads(threads);
    EXPECT_GT(one.NumSpecificBuildingResults(-1, 2, false), 0);
    EXPECT_TRUE(one.GetSpecificBuilding(1) == two.GetSpecificBuilding(1));
    EXPECT_TRUE(one.GetSpecificBuilding(2) == two.GetSpecificBuilding(2));
}

TEST(ZorvoSolverBuildings, BuildingsPassedOverGetNothing) {
    CLodraZorvoPrefData prefs;
    {
        // The line is not calculated: the assessment passes over the building in silence.
        ZorvoData doc = Street();
        CDisplacementLine line = doc.GetDisplacementLine(1);
        line.SetCalculate(false);
        doc.SetDisplacementLine(1, line);
        Trace trace;
        SolveIt(doc, prefs, &trace);
        EXPECT_EQ(trace.text, "33 41 44 52");
        EXPECT_FALSE(doc.SpecificBuildingDamageResultsExist(-1, -1, false));
    }
    {
        // The whole trough lies under a sensitivity of 1 m: no segments at either offset.
        ZorvoData doc = Street();
        CSpecificBuilding b = doc.GetSpecificBuilding(1);
        CBuildingDamageProperties p = b.GetBuildingDamageProperties();
        p.SetEndVDispSensitivity(1.0);
        b.SetBuildingDamageProperties(p);
        doc.SetSpecificBuilding(1, b);
        SolveIt(doc, prefs);
        const CSpecificBuilding& done = doc.GetSpecificBuilding(1);
        EXPECT_EQ(done.NumBuildingDamageResults(0, false, 0), 0);
        EXPECT_EQ(done.GetMaxDamageCategory(0, 0), -1);
        EXPECT_EQ(done.GetMaxBuildingDamageCategory(0, false), 0);
    }
    {
        // A line number beyond the lines: no samples, no results, and the run goes on.
        ZorvoData doc = Street();
        CSpecificBuilding b = doc.GetSpecificBuilding(1);
        b.SetLine(7);
        doc.SetSpecificBuilding(2, b);
        SolveIt(doc, prefs);
        EXPECT_TRUE(doc.GetSpecificBuilding(2).GetVerticalMovementResults().empty() ||
                    doc.GetSpecificBuilding(2).GetVerticalMovementResults(0, 0).empty());
        EXPECT_FALSE(doc.SpecificBuildingDamageResultsExist(-1, 2, false));
        EXPECT_TRUE(doc.SpecificBuildingDamageResultsExist(-1, 1, false));
    }
}

TEST(ZorvoSolverBuildings, JoinedSegmentsAreAssessedTogether) {
    ZorvoData doc = Street();
    CLodraZorvoPrefData prefs;
    ZorvoSolver solver = SolveIt(doc, prefs);
    const std::vector<CBuildingDamageResult> cut =
        doc.AccessSpecificBuilding(1).GetBuildingDamageResults(0, false, 0);
    ASSERT_EQ(cut.size(), 3u);

    // A combined run before any joining leaves the combined store as it was.
    solver.SpecificBuildingDamageAssessment(doc, 0, true);
    EXPECT_FALSE(doc.SpecificBuildingDamageResultsExist(-1, -1, true));

    // The third segment joins the second: two segments, the second from the start of the
    // old second to the end of the trough.
    CBuildingDamageResult third = cut[2];
    third.SetStartOfCombinedSegment(false);
    doc.AccessSpecificBuilding(1).SetBuildingDamageResult(0, false, 0, 3, third);
    EXPECT_TRUE(doc.CombinedSegmentsExist_SpecificBuilding(0, 1, 0));
    EXPECT_FALSE(doc.CombinedSegmentsExist_SpecificBuilding(0, 1, 1));
    solver.SpecificBuildingDamageAssessment(doc, 0, true);
    const CSpecificBuilding& b = doc.GetSpecificBuilding(1);
    ASSERT_EQ(b.NumBuildingDamageResults(0, true, 0), 2);
    EXPECT_EQ(b.NumBuildingDamageResults(0, true, 1), 0); // nothing joined at that level
    EXPECT_DOUBLE_EQ(b.GetBuildingDamageResult(0, true, 0, 2).GetEnd(), cut[2].GetEnd());
    EXPECT_TRUE(doc.GetSpecificBuildingsWithCombinedSegmentsVisible(true));

    doc.CombinedSegmentsSeparate_SpecificBuilding(-1, -1, -1);
    EXPECT_FALSE(doc.CombinedSegmentsExist_SpecificBuilding(-1, -1, -1));
    EXPECT_EQ(doc.NumSpecificBuildingResults(0, 1, true), 2); // kept until deleted
    doc.DeleteSpecificBDResults(-1, true);
    EXPECT_FALSE(doc.GetSpecificBuildingsWithCombinedSegmentsVisible(false));
}

TEST(ZorvoSolverBuildings, ImportedPointsMeetTheSamplesAtAnOffset) {
    // A monitoring point 5 m below the line's sample at y = 0 adds 2 mm of settlement
    // there, and only at that offset; both the sample and the point carry bit 32.
    ZorvoData doc = Street();
    CBasicList tunnels, sets;
    tunnels.SetString(L"1");
    sets.SetString(L"1");
    CStage stage;
    stage.SetTunnels(tunnels);
    stage.SetImportedDisplacementSets(sets);
    doc.SetStage(1, stage);
    CImportedDisplacementsSet set(L"Monitoring");
    CImportedDisplacement d;
    d.SetXpoint(0.0);
    d.SetYpoint(0.0005);
    d.SetZpoint(15.0);
    d.SetZdisplacement(-0.002);
    set.AddDisplacement(d);
    doc.SetImportedDisplacementsSet(1, set);
    CLodraZorvoPrefData prefs;
    SolveIt(doc, prefs);

    const CSpecificBuilding& b = doc.GetSpecificBuilding(1);
    const GeoDispResult& low = b.GetVerticalMovementResults(1, 1)[30];
    const GeoDispResult& high = b.GetVerticalMovementResults(1, 0)[30];
    EXPECT_EQ(low.GetImportMatch(), 32);
    EXPECT_EQ(high.GetImportMatch(), 0);
    const double Sz = Testing::MovementAt(doc, 1, 0.0, 0.0, 15.0, eSurface).Sz;
    EXPECT_DOUBLE_EQ(low.GetZdisplacement(), -0.002 + Sz * 0.001);
    EXPECT_EQ(doc.GetImportedDisplacementsSet(1).GetDisplacements()[0].GetImportMatch() & 32, 32);
}
