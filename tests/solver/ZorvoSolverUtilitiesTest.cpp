// Specific utilities in a run: each holds the samples of its line as the stage left them.
#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>
#include <omp.h>

#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

TEST(ZorvoSolverUtilities, UtilityHoldsItsLinesSamplesMarkedAsItsOwnImports) {
    // The long tunnel under a line across it, 4 intervals of 5 m at level 20; an imported
    // point on the sample at (0, 5, 20) marks it 1 on the line and 8 on the utility.
    ZorvoData doc;
    doc.SetTunnel(1, Testing::LongTunnel());
    CDisplacementLine line(L"Across");
    line.SetPoint1({0.0, -10.0, 20.0});
    line.SetPoint2({0.0, 10.0, 20.0});
    line.SetIntervalsAlongLine(4);
    doc.SetDisplacementLine(1, line);
    CImportedDisplacementsSet set(L"Monitoring");
    CImportedDisplacement d;
    d.SetYpoint(5.0);
    d.SetZpoint(20.0);
    d.SetZdisplacement(0.005);
    set.AddDisplacement(d);
    doc.SetImportedDisplacementsSet(1, set);
    CSpecificUtility u;
    u.SetLine(1);
    u.SetLineStart(0.0);
    u.SetLineEnd(20.0);
    doc.SetSpecificUtility(1, u);
    // A utility on a line that does not exist is passed over.
    u.SetLine(2);
    doc.SetSpecificUtility(2, u);

    CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&doc, &prefs, nullptr, {});
    ASSERT_TRUE(solver.Solve());

    const CSpecificUtility& on = doc.GetSpecificUtility(1);
    const CDisplacementLine& solved = doc.GetDisplacementLine(1);
    ASSERT_EQ(on.NumHorizontalMovementResults(0), 5);
    for (int k = 0; k < 5; ++k) {
        GeoDispResult expected = solved.GetResultFromPosition(0, k, 0);
        EXPECT_EQ(expected.GetImportMatch(), k == 3 ? 1 : 0) << k;
        if (k == 3)
            expected.SetImportMatch(8);
        EXPECT_TRUE(on.GetHorizontalMovementResult(0, k + 1) == expected) << k;
    }
    EXPECT_GT(on.GetHorizontalMovementResult(0, 3).GetZdisplacement(), 0.0); // over the axis
    EXPECT_FALSE(doc.GetSpecificUtility(2).HorizontalMovementResultsExist(-1));
    EXPECT_TRUE(doc.SpecificUtilityHorizontalMovementResultsExist(0, 1));

    doc.DeleteResults();
    EXPECT_FALSE(doc.SpecificUtilityHorizontalMovementResultsExist(-1, -1));
}

namespace {

// The long tunnel under a line across it, 60 intervals of 1 m at level 20, and a jointed
// main of 3 m pipes on the line from chainage 10 to 50, centred over the tunnel.
ZorvoData MainAcrossTheTunnel() {
    ZorvoData doc;
    doc.SetTunnel(1, Testing::LongTunnel());
    CDisplacementLine line(L"Across");
    line.SetPoint1({0.0, -30.0, 20.0});
    line.SetPoint2({0.0, 30.0, 20.0});
    line.SetIntervalsAlongLine(60);
    doc.SetDisplacementLine(1, line);
    CSpecificUtility u;
    u.SetLine(1);
    u.SetLineStart(10.0);
    u.SetLineEnd(50.0);
    doc.SetSpecificUtility(1, u);
    return doc;
}

struct Codes : MessageHandler {
    std::vector<long long> codes;
    void OnMessage(const wchar_t*, long long code) override {
        if (code != 0)
            codes.push_back(code);
    }
};

} // namespace

TEST(ZorvoSolverUtilities, AssessedInAPassOfTheirOwnOnEveryThreadCount) {
    ZorvoData one = MainAcrossTheTunnel();
    // A second, continuous main on the same line, so that two threads have one each.
    CSpecificUtility continuous = one.GetSpecificUtility(1);
    continuous.SetUtilityType(UtilityGlobal::eContinuous);
    one.SetSpecificUtility(2, continuous);
    ZorvoData two = one;
    CLodraZorvoPrefData prefs;
    const int threads = omp_get_max_threads();
    omp_set_num_threads(1);
    Codes codes;
    ZorvoSolver(&one, &prefs, &codes, {}).Solve();
    omp_set_num_threads(2);
    ZorvoSolver(&two, &prefs, nullptr, {}).Solve();
    omp_set_num_threads(threads);
    EXPECT_EQ(codes.codes, (std::vector<long long>{33, 41, 45, 50}));
    EXPECT_TRUE(one.GetSpecificUtility(1) == two.GetSpecificUtility(1));
    EXPECT_TRUE(one.GetSpecificUtility(2) == two.GetSpecificUtility(2));

    // 41 rows, 0 to 40 m along the main, 1 m apart: strains at rows 1 to 39; joints from
    // 3 m to 37 m, in the layouts starting at 3 and 4 m (5 m would repeat the first)...
    const CSpecificUtility& jointed = one.GetSpecificUtility(1);
    EXPECT_EQ(jointed.NumUtilityStrains(0), 39);
    ASSERT_EQ(jointed.NumPulloutAndRotationIterations(0), 2);
    EXPECT_EQ(jointed.NumPulloutAndRotations(0, 1), 12); // 3, 6, ..., 36
    EXPECT_EQ(jointed.GetPulloutAndRotation(0, 2, 1).GetLocation(), 4.0);
    // ... the middle joint of the first layout at 21 m sits over the axis, where the
    // trough sags and draws the pipes towards it.
    const CPulloutAndRotation& middle = jointed.GetPulloutAndRotation(0, 1, 7);
    EXPECT_EQ(middle.GetLocation(), 21.0);
    EXPECT_EQ(middle.GetVerticalCurvature(), GeoGlobal::eSagging);
    EXPECT_GT(middle.GetRotation(), 0.0);
    EXPECT_EQ(one.GetSpecificUtility(2).NumPulloutAndRotations(0), 0);
    EXPECT_EQ(one.NumSpecificUtilityStrains(-1, -1), 78);
    EXPECT_TRUE(one.SpecificUtilityPulloutAndRotationsExist(0, 1));
    EXPECT_FALSE(one.SpecificUtilityPulloutAndRotationsExist(0, 2));

    // A new run starts from nothing; the document's delete leaves no joint or strain.
    one.DeleteResults();
    EXPECT_FALSE(one.SpecificUtilityResultsExist(-1, -1));
    EXPECT_FALSE(one.ResultsExist(-1));
}

TEST(ZorvoSolverUtilities, CancelledRunStillEntersTheFirstStageOfTheAssessment) {
    ZorvoData doc = MainAcrossTheTunnel();
    CLodraZorvoPrefData prefs;
    Codes codes;
    ZorvoSolver solver(&doc, &prefs, &codes, [] { return true; });
    EXPECT_TRUE(solver.Solve());
    // The first family loop falls through and ends the movement pass.
    EXPECT_EQ(codes.codes, (std::vector<long long>{33, 41, 50}));
    EXPECT_FALSE(doc.SpecificUtilityResultsExist(-1, -1));
}
