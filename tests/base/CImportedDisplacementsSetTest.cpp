#include "base/CImportedDisplacementsSet.h"

#include <gtest/gtest.h>

using namespace Tevra;
using namespace Tevra::Data;

TEST(CImportedDisplacementsSet, CloneKeepsOrderMatchesAndFileName) {
    CImportedDisplacementsSet set(L"Survey 3");
    set.SetReadFileName(L"survey3.csv");
    for (int k = 0; k < 3; ++k) {
        CImportedDisplacement d;
        d.SetXpoint(1.0 * k);
        d.SetZdisplacement(-0.001 * k);
        d.SetImportMatch(k == 1 ? 32 | 8 : 0);
        set.AddDisplacement(d);
    }
    const auto copy = set.Clone();
    ASSERT_EQ(copy->NumDisplacements(), 3);
    EXPECT_TRUE(*copy == set);
    EXPECT_EQ(copy->GetDisplacements()[1].GetImportMatch(), 40);
    EXPECT_EQ(copy->GetDisplacements()[2].GetZdisplacement(), -0.002);

    // The solver works on a copy of the list and puts it back.
    auto work = set.GetDisplacements();
    work[0].SetImportMatch(work[0].GetImportMatch() | 64);
    set.SetDisplacements(work);
    EXPECT_EQ(set.GetDisplacements()[0].GetImportMatch(), 64);
    EXPECT_FALSE(*copy == set);
}
