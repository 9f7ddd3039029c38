#include "buildings/CGenericBuilding.h"

#include <gtest/gtest.h>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

CBuildingDamageResult Segment(double tensile, int category, bool startsRun) {
    CBuildingDamageResult r;
    r.SetMaxTensileStrain(tensile);
    r.SetDamageCategory(category);
    r.SetStartOfCombinedSegment(startsRun);
    return r;
}

} // namespace

// Peaks by plain comparison (a negative strain is below 0), per L/H and over the L/H
// list; joined segments; deletes cut at the end of the list.
TEST(CGenericBuilding, SegmentResultsByOffsetAndLOverH) {
    CGenericBuilding b;
    b.SetLOverH({0.5, 1.0, 2.0});
    CBuildingTransect t;
    t.SetBuildingDamageResults(1, false, 0, 0, {Segment(-3.0, 1, true), Segment(-2.0, 3, true)});
    t.SetBuildingDamageResults(1, false, 0, 2, {Segment(-5.0, 0, true), Segment(-4.0, 0, false)});
    b.AddTransect(t);
    b.AddTransect(CBuildingTransect());

    EXPECT_EQ(b.GetTransect(1).GetMaximumTensileStrain(1, false, 0, 0), -2.0);
    EXPECT_EQ(b.GetMaximumTensileStrain_Offset(1, 1, 0, false), -2.0);
    EXPECT_EQ(b.GetMaximumTensileStrain_Offset_Height(1, 1, 0, 2, false), -4.0);
    // No L/H of that offset has results: 0.0, and none for an L/H without a list.
    EXPECT_EQ(b.GetMaximumTensileStrain_Offset(1, 1, 1, false), 0.0);
    EXPECT_EQ(b.GetMaximumTensileStrain_Offset_Height(1, 1, 0, 1, false), 0.0);
    EXPECT_EQ(b.GetMaxBuildingDamageCategory(-1, false), 3);
    EXPECT_EQ(b.GetMaxBuildingDamageCategory(0, false), 0);
    EXPECT_EQ(b.GetTransect(1).NumBuildingDamageResults(1, false, 0), 4);
    EXPECT_TRUE(b.CombinedSegmentsExist(1, -1, 0));
    EXPECT_FALSE(b.CombinedSegmentsExist(1, 2, 0));

    CBuildingTransect& edited = b.AccessTransect(1);
    edited.DeleteBuildingDamageResult(1, false, 0, 2, 2, 9);
    EXPECT_FALSE(b.CombinedSegmentsExist(-1, -1, -1));
    edited.DeleteBuildingDamageResult(1, false, 0, 0, 2, 1);
    EXPECT_EQ(edited.NumBuildingDamageResults(1, false, 0, 0), 2);
    EXPECT_EQ(b.NumBuildingDamageResults(-1, false), 3);
    b.DeleteBuildingDamageResults(-1, false);
    EXPECT_FALSE(b.BuildingDamageResultsExist(-1, false));
}

// Settlement peaks of an empty list are the extreme doubles.
TEST(CGenericBuilding, EmptySettlementPeaksAreTheExtremes) {
    CGenericBuilding b;
    b.AddTransect(CBuildingTransect());
    EXPECT_EQ(b.GetMaxDisplacementVertical(0, 1, 0), -1.7976931348623157e308);
    EXPECT_EQ(b.GetMinDisplacementVertical(0, 1, 0), 1.7976931348623157e308);
    EXPECT_EQ(b.GetName(), CString(L"Generic Building #"));
}
