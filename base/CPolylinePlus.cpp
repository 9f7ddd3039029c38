#include "CPolylinePlus.h"

#include <cmath>

namespace Tevra::Data {

double CPolylinePlus::SegmentLength(int i) const { return (Point(i + 1) - Point(i)).Length(); }

double CPolylinePlus::SegmentLength2D(int i) const {
    return (Point(i + 1) - Point(i)).LengthInPlan();
}

int CPolylinePlus::Segment(double distance, double tolerance) const {
    if (distance < -tolerance)
        return -1;
    double start = 0.0;
    for (int i = 0; i + 1 < NumPoint(); ++i) {
        const double end = start + SegmentLength2D(i);
        if (distance <= end + tolerance)
            return i + 1;
        start = end;
    }
    return -1;
}

int CPolylinePlus::PointAt(double distance, Vec3<double>& p) const {
    const int n = NumPoint();
    if (n < 2 || distance < 0.0)
        return -1;
    const double total = Len(true);
    if (distance > total * (1.0 + kEndSlack))
        return -1;
    double start = 0.0;
    for (int i = 0; i + 1 < n; ++i) {
        const double len = SegmentLength2D(i);
        const bool last = i + 2 == n;
        if (distance <= start + len || last) {
            p = PointOnSegment(i, distance, start, len);
            return i;
        }
        start += len;
    }
    return -1;
}

Vec3<double> CPolylinePlus::PointOnSegment(int i, double distance, double start, double len) const {
    double t = len > 0.0 ? (distance - start) / len : 0.0;
    if (t > 1.0)
        t = 1.0;
    const Vec3<double>& a = Point(i);
    const Vec3<double>& b = Point(i + 1);
    return a + (b - a) * t;
}

} // namespace Tevra::Data
