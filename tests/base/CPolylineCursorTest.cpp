#include "base/CPolylineCursor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// Bit for bit: the samples of a run must not move by an ulp, nor a zero change its sign.
bool Same(const Vec3<double>& a, const Vec3<double>& b) {
    return std::memcmp(&a.x, &b.x, sizeof(double)) == 0 &&
           std::memcmp(&a.y, &b.y, sizeof(double)) == 0 &&
           std::memcmp(&a.z, &b.z, sizeof(double)) == 0;
}

} // namespace

// Sampling a polyline once along its vertices gives exactly the points of PointAt.
TEST(CPolylineCursor, SamplesExactlyAsPointAt) {
    // A repeated first vertex, a vertical step (no plan length), a repeated vertex after
    // it, a short segment of awkward length, and a repeated last vertex; the second
    // polyline ends on a real segment so that overshoot is clamped on it.
    CPolylinePlus awkward;
    const Vec3<double> vertices[] = {{0.0, 0.0, 5.0},   {0.0, 0.0, 5.0},  {3.0, 4.0, 6.0},
                                     {3.0, 4.0, 9.0},   {3.0, 4.0, 9.0},  {3.1, 4.2, 9.0},
                                     {10.0, -2.7, 1.3}, {10.0, -2.7, 1.3}};
    for (int i = 0; i < 8; ++i)
        awkward.SetPoint(i, vertices[i]);
    CPolylinePlus clamped = awkward;
    clamped.SetNumPoint(7);

    for (const CPolylinePlus* polyline : {&awkward, &clamped}) {
        const double total = polyline->Len(true);
        CPolylineCursor reused(*polyline); // goes back to 0 for each J: walks again
        for (int J : {1, 2, 3, 7, 100, 997}) {
            CPolylineCursor cursor(*polyline);
            const double spacing = total / J;
            for (int k = 0; k <= J; ++k) {
                Vec3<double> expected, got, again;
                const int segment = polyline->PointAt(k * spacing, expected);
                EXPECT_EQ(cursor.PointAt(k * spacing, got), segment) << J << " " << k;
                EXPECT_EQ(reused.PointAt(k * spacing, again), segment) << J << " " << k;
                EXPECT_TRUE(Same(got, expected)) << J << " " << k;
                EXPECT_TRUE(Same(again, expected)) << J << " " << k;
            }
        }

        // Vertex distances, the end slack either side, and distances out of order.
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const std::vector<double> distances = {0.0,
                                               5.0, // end of the first real segment
                                               5.0 + std::hypot(0.1, 0.2),
                                               total,
                                               total * (1.0 + 0.5e-9), // within the slack
                                               total * (1.0 + 2e-9),   // beyond it
                                               2.0,
                                               -1e-12,
                                               nan,
                                               1.0,
                                               total};
        CPolylineCursor cursor(*polyline);
        for (double d : distances) {
            Vec3<double> expected, got;
            const int segment = polyline->PointAt(d, expected);
            ASSERT_EQ(cursor.PointAt(d, got), segment) << d;
            if (segment >= 0) {
                EXPECT_TRUE(Same(got, expected)) << d;
            }
        }
    }

    // Too few vertices: no point anywhere.
    CPolylinePlus one;
    one.SetPoint(0, {1.0, 1.0, 1.0});
    CPolylineCursor cursor(one);
    Vec3<double> p;
    EXPECT_EQ(cursor.PointAt(0.0, p), -1);
}
