// The result stores of a specific building: counting, deleting, joined segments and the
// critical values read by the tables.
#include "buildings/CSpecificBuilding.h"

#include <gtest/gtest.h>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

CBuildingDamageResult Segment(double start, double end, double deflection, int category,
                              GeoGlobal::ECurvature c, double curvature) {
    CBuildingDamageResult r;
    r.SetStart(start);
    r.SetEnd(end);
    r.SetDeflectionRatio(deflection);
    r.SetDamageCategory(category);
    r.SetCurvature(c);
    r.SetMaxCurvature(curvature);
    return r;
}

// Stage 1, offset 0: three segments; stage 0 and offset 1 of stage 1 hold none.
CSpecificBuilding ThreeSegments() {
    CSpecificBuilding b;
    b.SetBuildingDamageResults(1, false, 0,
                               {Segment(0, 4, -2e-4, 1, GeoGlobal::eHogging, -3e-4),
                                Segment(4, 9, 3e-4, 2, GeoGlobal::eSagging, 5e-4),
                                Segment(9, 12, -3e-4, 0, GeoGlobal::eHogging, 7e-4)});
    b.GetBuildingDamageResults(1, false, 1);
    return b;
}

} // namespace

TEST(CSpecificBuilding, CountsAndCriticalValues) {
    const CSpecificBuilding b = ThreeSegments();
    EXPECT_EQ(b.NumBuildingDamageResults(1, false, 0), 3);
    EXPECT_EQ(b.NumBuildingDamageResults(-1, false, 0), 3);
    EXPECT_EQ(b.NumBuildingDamageResults(1, false, 5), 0);
    EXPECT_EQ(b.NumBuildingDamageResults(1, false, -1), 0);
    EXPECT_EQ(b.NumBuildingDamageResults(7, false, 0), 0);
    EXPECT_TRUE(b.BuildingDamageResultExists(1, false, 0, 3));
    EXPECT_FALSE(b.BuildingDamageResultExists(1, false, 0, 4));
    EXPECT_FALSE(b.BuildingDamageResultsExist(0, false));
    EXPECT_FALSE(b.BuildingDamageResultsExist(1, true));

    // Equal sizes of opposite sign: the later segment wins and keeps its sign.
    EXPECT_EQ(b.GetMaxDeflnRatio(1, 0), -3e-4);
    EXPECT_EQ(b.GetMaxDeflnRatio(1, 1), 0.0);
    EXPECT_EQ(b.GetMaxDamageCategory(1, 0), 2);
    EXPECT_EQ(b.GetMaxDamageCategory(1, 1), -1);
    EXPECT_EQ(b.GetMaxBuildingDamageCategory(0, false), 0);
    EXPECT_EQ(b.GetMaxCurvature(1, 0, GeoGlobal::eHogging), 7e-4);
    EXPECT_EQ(b.GetMaxCurvature(1, 0, GeoGlobal::eSagging), 5e-4);
    EXPECT_EQ(b.GetMaxCurvature(1, 0, GeoGlobal::eNoCurvature), 0.0);
}

TEST(CSpecificBuilding, DeletingSegments) {
    const struct {
        int first, last;
        std::vector<double> startsLeft;
    } cases[] = {
        {2, 2, {0, 9}},  {2, -1, {0, 9}}, {2, 9, {0}},      {1, 3, {}},
        {3, 2, {0, 4, 9}}, {0, 1, {0, 4, 9}}, {4, 4, {0, 4, 9}},
    };
    for (const auto& c : cases) {
        CSpecificBuilding b = ThreeSegments();
        b.DeleteBuildingDamageResult(1, false, 0, c.first, c.last);
        b.DeleteBuildingDamageResult(9, false, 0, 1, 3); // a stage beyond the store
        std::vector<double> starts;
        for (const CBuildingDamageResult& r : b.GetBuildingDamageResults(1, false, 0))
            starts.push_back(r.GetStart());
        EXPECT_EQ(starts, c.startsLeft) << c.first << ".." << c.last;
    }
}

TEST(CSpecificBuilding, JoinedSegmentsCountFromTheSecond) {
    CSpecificBuilding b = ThreeSegments();
    CBuildingDamageResult first = b.GetBuildingDamageResult(1, false, 0, 1);
    first.SetStartOfCombinedSegment(false);
    b.SetBuildingDamageResult(1, false, 0, 1, first);
    EXPECT_FALSE(b.CombinedSegmentsExist(-1, -1));

    CBuildingDamageResult third = b.GetBuildingDamageResult(1, false, 0, 3);
    third.SetStartOfCombinedSegment(false);
    b.SetBuildingDamageResult(1, false, 0, 3, third);
    EXPECT_TRUE(b.CombinedSegmentsExist(1, 0));
    EXPECT_TRUE(b.CombinedSegmentsExist(-1, -1));
    EXPECT_FALSE(b.CombinedSegmentsExist(1, 1));
    EXPECT_FALSE(b.CombinedSegmentsExist(0, -1));

    // A fourth segment is appended; the stores of both kinds go with DeleteResults.
    b.SetBuildingDamageResult(1, false, 0, 9, third);
    EXPECT_EQ(b.NumBuildingDamageResults(1, false, 0), 4);
    b.SetBuildingDamageResults(1, true, 0, {third});
    b.DeleteResults(1);
    EXPECT_FALSE(b.BuildingDamageResultsExist(-1, false));
    EXPECT_FALSE(b.BuildingDamageResultsExist(-1, true));
}
