// Which imported sets a calculation stage adds, and the fixed test by which they meet the
// samples of buildings, utilities and rail tracks.
#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

TEST(ImportedSets, SetsToIncludeByStage) {
    ZorvoData doc;
    for (int n = 1; n <= 3; ++n)
        doc.SetImportedDisplacementsSet(n, CImportedDisplacementsSet());
    CBasicList l;
    CStage s1, s2;
    l.SetString(L"3 1");
    s1.SetImportedDisplacementSets(l);
    doc.SetStage(1, s1);
    doc.SetStage(2, s2); // none
    CReEntrantCornerOptions smoothing;
    smoothing.SetReEntrantCornerSmoothing(true);
    doc.SetReEntrantCornerOptions(smoothing);
    // With 2 stages and smoothing: 0 and 3 are base indices, 4 is stage 1 smoothed.
    const struct {
        int index;
        std::vector<int> sets;
    } cases[] = {{0, {1, 2, 3}}, {1, {1, 3}}, {2, {}}, {3, {1, 2, 3}}, {4, {1, 3}}, {5, {}}};
    for (const auto& c : cases)
        EXPECT_EQ(doc.ImportedSetsToInclude(c.index), c.sets) << "index " << c.index;
}

// The tolerance is a fixed 1 mm, below which each difference must lie: 0.0009 passes,
// 0.001 (the very double, from 0) does not.
TEST(ImportedSets, FixedToleranceForBuildingsUtilitiesAndRail) {
    const struct {
        double x, y, z;
        bool added;
    } cases[] = {{0.0009, -0.0009, 0.0009, true},
                 {0.001, 0.0, 0.0, false},
                 {0.0, -0.001, 0.0, false},
                 {0.0, 0.0, 0.001, false}};
    for (const auto& c : cases) {
        CImportedDisplacement d;
        d.SetXpoint(c.x);
        d.SetYpoint(c.y);
        d.SetZpoint(c.z);
        d.SetZdisplacement(0.004);
        d.SetImportMatch(1);
        GeoDispResult r;
        r.SetZdisplacement(0.002);
        r.SetImportMatch(16);
        EXPECT_EQ(ZorvoData::AddImportedDisplacementIfCoincident(d, r, 64), c.added);
        EXPECT_EQ(r.GetZdisplacement(), c.added ? 0.004 + 0.002 : 0.002);
        EXPECT_EQ(r.GetImportMatch(), c.added ? 16 | 64 : 16);
        EXPECT_EQ(d.GetImportMatch(), c.added ? 1 | 64 : 1);
    }
}
