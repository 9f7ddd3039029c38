// Imported displacement sets in a run: added to the displacement data of the stages that
// include them, after the calculated movements, with message 5 and a tick twice a stage.
#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

#include <string>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

struct Trace : MessageHandler {
    std::string text;
    void OnMessage(const wchar_t* t, long long code) override {
        text += text.empty() ? "" : " ";
        text += code == 0 && !t ? std::string("t") : std::to_string(code);
        if (t)
            text += ":" + CString(t).ToUtf8();
    }
};

// The long tunnel under a grid of 2 x 2 samples at level 20: (0 or 10, 5 or 15, 20).
// Stage 1 includes the imported set, stage 2 does not; both drive the tunnel.
ZorvoData Project(bool withSet) {
    ZorvoData doc;
    doc.SetTunnel(1, Testing::LongTunnel());
    CDisplacementGrid g(L"G");
    g.SetPoint1({0.0, 5.0, 20.0});
    g.SetPoint2({0.0, 15.0, 20.0});
    g.SetExtrusionDirection(eExtrudeX);
    g.SetExtrusionDistance(10.0);
    g.SetIntervalsAlongLine(1);
    g.SetIntervalsAlongExtrusion(1);
    doc.SetDisplacementGrid(1, g);
    CBasicList tunnels, sets;
    tunnels.SetString(L"1");
    sets.SetString(L"1");
    CStage s1, s2;
    s1.SetTunnels(tunnels);
    s1.SetImportedDisplacementSets(sets);
    s2.SetTunnels(tunnels);
    doc.SetStage(1, s1);
    doc.SetStage(2, s2);
    if (withSet) {
        CImportedDisplacementsSet set(L"Monitoring");
        CImportedDisplacement d;
        d.SetXpoint(10.0009); // 0.9 mm from the sample at (10, 15, 20)
        d.SetYpoint(15.0);
        d.SetZpoint(20.0);
        d.SetXdisplacement(0.001);
        d.SetZdisplacement(0.005);
        set.AddDisplacement(d);
        d.SetXpoint(0.002); // 2 mm from the sample at (0, 5, 20)
        d.SetYpoint(5.0);
        set.AddDisplacement(d);
        doc.SetImportedDisplacementsSet(1, set);
    }
    return doc;
}

} // namespace

TEST(ZorvoSolverImports, AddedInTheStagesThatIncludeTheSet) {
    ZorvoData plain = Project(false);
    ZorvoData doc = Project(true);
    CLodraZorvoPrefData prefs;
    prefs.SetImportedDisplacementTolerance(0.001);
    Trace plainTrace, trace;
    ASSERT_TRUE(ZorvoSolver(&plain, &prefs, &plainTrace, {}).Solve());
    ASSERT_TRUE(ZorvoSolver(&doc, &prefs, &trace, {}).Solve());
    EXPECT_EQ(plainTrace.text, "33 43:0 t 43:1 t 43:2 t");
    EXPECT_EQ(trace.text, "33 43:0 t 5:0 t 5:0 t 43:1 t 5:1 t 5:1 t 43:2 t 5:2 t 5:2 t");

    const CDisplacementGrid& g = doc.GetDisplacementGrid(1);
    const CDisplacementGrid& p = plain.GetDisplacementGrid(1);
    for (int stage = 0; stage <= 2; ++stage) {
        const bool included = stage != 2; // the base model and stage 1
        for (int a = 0; a <= 1; ++a) {
            for (int b = 0; b <= 1; ++b) {
                const GeoDispResult& r = g.GetResultFromPosition(stage, a, b);
                const GeoDispResult& q = p.GetResultFromPosition(stage, a, b);
                const bool matched = included && a == 1 && b == 1;
                EXPECT_NE(q.GetZdisplacement(), 0.0); // the tunnel moves every sample
                EXPECT_EQ(r.GetXdisplacement(),
                          matched ? 0.001 + q.GetXdisplacement() : q.GetXdisplacement());
                EXPECT_EQ(r.GetZdisplacement(),
                          matched ? 0.005 + q.GetZdisplacement() : q.GetZdisplacement());
                EXPECT_EQ(r.GetMajorPrincipalStrain(), q.GetMajorPrincipalStrain());
                EXPECT_EQ(r.GetImportMatch(), matched ? 1 : 0)
                    << "stage " << stage << " at " << a << ", " << b;
            }
        }
    }
    const auto& d = doc.GetImportedDisplacementsSet(1).GetDisplacements();
    EXPECT_EQ(d[0].GetImportMatch(), 1);
    EXPECT_EQ(d[1].GetImportMatch(), 0);

    // The tolerance is the preference's: at 2.5 mm the second point meets its sample too.
    prefs.SetImportedDisplacementTolerance(0.0025);
    ZorvoData wide = Project(true);
    ASSERT_TRUE(ZorvoSolver(&wide, &prefs, nullptr, {}).Solve());
    EXPECT_EQ(wide.GetDisplacementGrid(1).GetResultFromPosition(1, 0, 0).GetImportMatch(), 1);
    EXPECT_EQ(wide.GetDisplacementGrid(1).GetResultFromPosition(2, 0, 0).GetImportMatch(), 0);
}
