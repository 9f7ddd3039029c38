#include "sources/CVMath.h"

#include <gtest/gtest.h>

using namespace Tevra;

namespace {

// Four data points in plan at the corners of a 10 m square, with two value columns:
// a plane f = 2 + 0.3 x - 0.5 y, and the numbers 1 to 4 of the corners.
double g_coords[] = {0, 0, 0, 10, 0, 0, 0, 10, 0, 10, 10, 0};
double g_values[] = {2.0, 1.0, 5.0, 2.0, -3.0, 3.0, 0.0, 4.0};

struct Interpolated {
    double f, corner;
    int error;
};

Interpolated At(double x, double y, int count = 4) {
    int dim = 3, columns = 2, error = -1;
    double point[3] = {x, y, 0.0};
    double result[2] = {-99.0, -99.0};
    CVMath::interpolate_(0, &dim, point, result, &columns, g_coords, g_values, &count, &error);
    return {result[0], result[1], error};
}

} // namespace

TEST(CVMath, InterpolatesOnThePlaneOfTheNearestThree) {
    struct {
        const char* what;
        double x, y;
        double f, corner; // expected values
    } cases[] = {
        // At a data point: its own values.
        {"at (10, 0)", 10.0, 0.0, 5.0, 2.0},
        {"at (10, 10)", 10.0, 10.0, 0.0, 4.0},
        // (2, 3): nearest (0, 0), (0, 10), (10, 0); (2, 3) = 0.3 (0, 10) + 0.2 (10, 0), so
        // r = 0.3, s = 0.2 and the corner numbers give 0.5 x 1 + 0.3 x 3 + 0.2 x 2. The
        // plane gives 2 + 0.6 - 1.5.
        {"inside a triangle", 2.0, 3.0, 1.1, 1.8},
        // Far off, beyond r + s = 1.5: the mean of the nearest three, (10, 10) first with
        // 1 - 2 x 0.333333333333, then (10, 0) and (0, 10) with 0.333333333333 each:
        // corners 4, 2, 3 give 3.000000000001, and f = 0, 5, -3 gives 0.666666666666.
        {"far off", 100.0, 100.0, 0.666666666666, 3.000000000001},
    };
    for (const auto& c : cases) {
        const Interpolated v = At(c.x, c.y);
        EXPECT_EQ(v.error, 0) << c.what;
        EXPECT_NEAR(v.f, c.f, 1e-12) << c.what;
        EXPECT_NEAR(v.corner, c.corner, 1e-12) << c.what;
    }

    // Fewer than three data points: an error, and no result.
    const Interpolated two = At(2.0, 3.0, 2);
    EXPECT_EQ(two.error, 1);
    EXPECT_EQ(two.f, -99.0);
}
