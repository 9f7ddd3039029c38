// Generic utilities in a run: every transect point takes the movement of the stage.
#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>
#include <omp.h>

#include <cmath>
#include <cstring>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// A generic utility whose polyline runs north across the long tunnel at level 20, from
// y = -span / 2 to +span / 2: transects every interval metres, 10 m long with 11 points.
ZorvoData AcrossTheTunnel(double span, double interval) {
    ZorvoData doc;
    doc.SetTunnel(1, Testing::LongTunnel());
    CPolylinePlus route;
    route.SetPoint(0, {0.0, -span / 2, 20.0});
    route.SetPoint(1, {0.0, span / 2, 20.0});
    doc.SetPolyline(1, route);
    CGenericUtility g;
    g.SetPolyline(1);
    g.SetInterval(interval);
    doc.SetGenericUtility(1, g);
    return doc;
}

// Every number of every transect sample, as its bits.
std::vector<unsigned char> TransectSamples(const ZorvoData& doc) {
    std::vector<unsigned char> bytes;
    for (const CUtilityTransect& t : doc.GetGenericUtility(1).GetTransects())
        for (const auto& slot : t.Results().GetHorizontalMovementResults())
            for (const GeoDispResult& r : slot) {
                const double v[] = {r.GetPoint().x,
                                    r.GetPoint().y,
                                    r.GetPoint().z,
                                    r.GetXdisplacement(),
                                    r.GetYdisplacement(),
                                    r.GetZdisplacement(),
                                    r.GetMajorPrincipalStrain(),
                                    r.GetMinorPrincipalStrain(),
                                    r.GetPrincipalStrainAngle()};
                const auto* c = reinterpret_cast<const unsigned char*>(v);
                bytes.insert(bytes.end(), c, c + sizeof v);
            }
    return bytes;
}

} // namespace

// Each point of a horizontal transect is a surface point: the movement tun21_ gives there,
// in metres. An imported point on one of them adds its movement and marks it 16.
TEST(ZorvoSolverGenericUtilities, TransectPointsTakeTheStagesMovement) {
    ZorvoData doc = AcrossTheTunnel(20.0, 10.0);
    CImportedDisplacementsSet set(L"Survey");
    CImportedDisplacement d;
    d.SetXpoint(5.0); // the first point of the middle transect, (5, 0, 20)
    d.SetZpoint(20.0);
    d.SetZdisplacement(0.005);
    set.AddDisplacement(d);
    doc.SetImportedDisplacementsSet(1, set);
    const ZorvoData unsolved = doc;

    CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&doc, &prefs, nullptr, {});
    ASSERT_TRUE(solver.Solve());
    const CGenericUtility& g = doc.GetGenericUtility(1);
    ASSERT_EQ(g.NumTransects(), 3);
    for (int t = 1; t <= 3; ++t) {
        for (int k = 1; k <= 11; ++k) {
            const GeoDispResult& r = g.GetTransect(t).GetHorizontalMovementResult(0, k);
            const Vec3<double> p = r.GetPoint();
            const Testing::Movement m = Testing::MovementAt(unsolved, 0, p.x, p.y, p.z, eSurface);
            const bool imported = t == 2 && k == 1;
            EXPECT_EQ(r.GetImportMatch(), imported ? 16 : 0);
            EXPECT_NEAR(r.GetZdisplacement(), m.Sz * 0.001 + (imported ? 0.005 : 0.0),
                        1e-12 * std::fabs(m.Sz));
            EXPECT_NEAR(r.GetYdisplacement(), m.dy * 0.001, 1e-15);
            EXPECT_NEAR(r.GetMajorPrincipalStrain(), m.major, 1e-12 * std::fabs(m.major) + 1e-300);
        }
    }
    // The middle transect lies over the axis: settlement there, largest at the crossing.
    EXPECT_GT(g.GetTransect(2).GetHorizontalMovementResult(0, 6).GetZdisplacement(), 0.0);
    EXPECT_EQ(doc.GetImportedDisplacementsSet(1).GetDisplacements()[0].GetImportMatch(), 16);
}

TEST(ZorvoSolverGenericUtilities, SameResultsWithAnyNumberOfThreads) {
    // 201 transects of 11 points in the base model and one stage without the tunnel.
    ZorvoData doc = AcrossTheTunnel(200.0, 1.0);
    doc.SetStage(1, CStage());
    const int saved = omp_get_max_threads();
    std::vector<unsigned char> reference;
    for (int threads : {1, 2, 8}) {
        omp_set_num_threads(threads);
        ZorvoData run = doc;
        CLodraZorvoPrefData prefs;
        ZorvoSolver solver(&run, &prefs, nullptr, {});
        ASSERT_TRUE(solver.Solve());
        ASSERT_EQ(run.GetGenericUtility(1).NumTransects(), 201);
        const std::vector<unsigned char> bytes = TransectSamples(run);
        if (reference.empty())
            reference = bytes;
        EXPECT_TRUE(bytes == reference) << threads << " threads";
    }
    omp_set_num_threads(saved);
}

// A route along the long tunnel's axis sets out transects across the trough, 40 m long
// with points 1 m apart: each is assessed as a jointed pipe of 3 m pipes in the stage's
// own pass, the same on any number of threads.
TEST(ZorvoSolverGenericUtilities, EveryTransectAssessedAcrossTheTrough) {
    ZorvoData one;
    one.SetTunnel(1, Testing::LongTunnel());
    CPolylinePlus route;
    route.SetPoint(0, {-10.0, 0.0, 20.0});
    route.SetPoint(1, {10.0, 0.0, 20.0});
    one.SetPolyline(1, route);
    CGenericUtility g;
    g.SetPolyline(1);
    g.SetInterval(10.0);
    g.SetLength(40.0);
    g.SetDispPoints(41);
    one.SetGenericUtility(1, g);
    ZorvoData two = one;
    CLodraZorvoPrefData prefs;
    const int threads = omp_get_max_threads();
    omp_set_num_threads(1);
    ZorvoSolver(&one, &prefs, nullptr, {}).Solve();
    omp_set_num_threads(2);
    ZorvoSolver(&two, &prefs, nullptr, {}).Solve();
    omp_set_num_threads(threads);
    EXPECT_TRUE(one.GetGenericUtility(1) == two.GetGenericUtility(1));

    const CGenericUtility& solved = one.GetGenericUtility(1);
    ASSERT_EQ(solved.NumTransects(), 3);
    for (int t = 1; t <= 3; ++t) {
        const CUtilityTransect& transect = solved.GetTransect(t);
        // Strains at rows 1 to 39; joints from 3 m to 37 m in two layouts, starting at 3
        // and 4 m, the first 12 joints 3 m apart.
        EXPECT_EQ(transect.NumUtilityStrains(0), 39) << t;
        ASSERT_EQ(transect.NumPulloutAndRotationIterations(0), 2) << t;
        EXPECT_EQ(transect.NumPulloutAndRotations(0, 1), 12) << t;
        // The joint at 21 m, a metre off the axis, lies where the trough sags.
        const CPulloutAndRotation& middle = transect.GetPulloutAndRotation(0, 1, 7);
        EXPECT_EQ(middle.GetLocation(), 21.0);
        EXPECT_EQ(middle.GetVerticalCurvature(), GeoGlobal::eSagging);
    }
    EXPECT_TRUE(one.GenericUtilityPulloutAndRotationsExist(0, 1));
    one.DeleteResults();
    EXPECT_FALSE(one.GenericUtilityPulloutAndRotationsExist(-1, -1));
    EXPECT_FALSE(one.GenericUtilityStrainsExist(-1, -1));
}
