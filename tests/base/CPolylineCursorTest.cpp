#include "base/CPolylineCursor.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

using namespace Tevra;
using namespace Tevra::Data;

// Sampling a polyline in one walk along its vertices gives the points of PointAt bit for
// bit: samples of a run must not move by an ulp.
TEST(CPolylineCursor, SamplesExactlyAsPointAt) {
    // A repeated first vertex, a vertical step (no plan length) and a repeated vertex
    // after it, a short segment of awkward length, and a repeated last vertex; the second
    // polyline ends on a real segment, where overshoot is clamped.
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
        auto same = [&](CPolylineCursor& cursor, double d) {
            Vec3<double> expected, got;
            const int segment = polyline->PointAt(d, expected);
            ASSERT_EQ(cursor.PointAt(d, got), segment) << d;
            if (segment >= 0) {
                EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << d;
            }
        };
        // Each J as the solver samples it; one cursor goes on through all of them, so it
        // must walk again from the first vertex at each new J.
        CPolylineCursor reused(*polyline);
        for (int J : {1, 2, 3, 7, 100, 997}) {
            CPolylineCursor cursor(*polyline);
            for (int k = 0; k <= J; ++k) {
                same(cursor, k * (total / J));
                same(reused, k * (total / J));
            }
        }
        // A cursor made at any sample and walked on from there, as a thread's share of a
        // polyline's samples walks, gives the same points.
        for (int k0 : {1, 2, 499, 996, 997}) {
            CPolylineCursor cursor(*polyline);
            for (int k = k0; k <= 997; ++k)
                same(cursor, k * (total / 997));
        }
        // A vertex, the end slack either side, and distances out of order or not numbers.
        CPolylineCursor cursor(*polyline);
        for (double d : {5.0, total * (1.0 + 0.5e-9), total * (1.0 + 2e-9), 2.0, -1e-12,
                         std::numeric_limits<double>::quiet_NaN(), 1.0, total})
            same(cursor, d);
    }
}
