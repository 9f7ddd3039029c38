#include "sources/SStdGMCurve.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Tevra::Data;

// The C760 figures repeat the C580 ones: horizontal curves 7 to 12 are 1 to 6 again, and
// vertical 8 to 13 are 1 to 6 again but for 13, whose tail beyond x = 2.5 was redrawn.
TEST(SStdGMCurve, LaterGuidanceRepeatsTheEarlierCurves) {
    const auto& h = SStdGMCurve::Horizontal();
    const auto& v = SStdGMCurve::Vertical();
    ASSERT_EQ(h.size(), 13u);
    ASSERT_EQ(v.size(), 16u);
    for (size_t n = 1; n <= 6; ++n) {
        EXPECT_EQ(h[n].data, h[n + 6].data) << n;
        EXPECT_EQ(h[n].xOrder, h[n + 6].xOrder) << n;
        EXPECT_EQ(h[n].sigFigs, h[n + 6].sigFigs) << n;
        if (n < 6) {
            EXPECT_EQ(v[n].data, v[n + 7].data) << n;
        }
    }
    for (size_t k = 0; k <= 25; ++k) // x = 0 to 2.5
        EXPECT_EQ(v[6].data[k], v[13].data[k]) << k;
    EXPECT_EQ(v[13].data.size(), 36u);
    EXPECT_EQ(v[13].data[26].z, 0.068);
    // Both sand curves are one list, interpolated, as is the clay curve of C760 Fig. 6.15(c).
    EXPECT_EQ(v[7].data, v[15].data);
    EXPECT_TRUE(v[7].linear && v[14].linear && v[15].linear);
    EXPECT_EQ(v[14].xOrder, -1);
}

// Every digitised list starts at the wall, steps evenly away from it and ends with no
// movement; a slip in a typed number shows as a break in the steps.
TEST(SStdGMCurve, DigitisedListsStepEvenlyToNoMovement) {
    for (const auto* curves : {&SStdGMCurve::Horizontal(), &SStdGMCurve::Vertical()}) {
        for (const SStdGMCurve& c : *curves) {
            if (c.data.size() <= 3 || !c.surfaceOnly)
                continue;
            const double step = c.data[1].x;
            for (size_t k = 0; k < c.data.size(); ++k) {
                EXPECT_NEAR(c.data[k].x, step * static_cast<double>(k), 1e-12) << k;
                EXPECT_EQ(c.data[k].y, 0.0);
            }
            EXPECT_EQ(c.data.back().z, 0.0);
        }
    }
}
