#include "base/LodraZorvoData.h"

#include <gtest/gtest.h>

#include <cmath>

using Tevra::Data::LodraZorvoData;

TEST(LodraZorvoData, Tun26RotatesAPlaneStrainState) {
    const double pi = 2.0 * std::asin(1.0);
    struct {
        double angle;
        double in[3];
        double out[3];
    } cases[] = {
        // A quarter turn swaps ex and ey and turns the shear round.
        {pi / 2.0, {3.0, 1.0, 0.5}, {1.0, 3.0, -0.5}},
        // Pure shear gxy = 2 seen at 45 degrees: ex' = g sc = 1, ey' = -1, no shear.
        {pi / 4.0, {0.0, 0.0, 2.0}, {1.0, -1.0, 0.0}},
        // Pure ex = 1 at 30 degrees: c^2 = 0.75, s^2 = 0.25, g' = -2 sc = -sqrt(3)/2.
        {pi / 6.0, {1.0, 0.0, 0.0}, {0.75, 0.25, -std::sqrt(3.0) / 2.0}},
        // An equal biaxial state is the same in every axes.
        {0.7, {2.0, 2.0, 0.0}, {2.0, 2.0, 0.0}},
    };
    for (const auto& c : cases) {
        double out[3];
        LodraZorvoData::tun26_(2, c.angle, c.in, out);
        for (int j = 0; j < 3; ++j)
            EXPECT_NEAR(out[j], c.out[j], 1e-14) << "angle " << c.angle << " component " << j;
    }
}
