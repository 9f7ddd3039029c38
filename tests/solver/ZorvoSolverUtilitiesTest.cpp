// Specific utilities in a run: each holds the samples of its line as the stage left them.
#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

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
