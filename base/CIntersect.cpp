#include "CIntersect.h"

#include <algorithm>

namespace Tevra::Util {

namespace {

double Cross(const Vec2<double>& o, const Vec2<double>& a, const Vec2<double>& b) {
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

// True when the segments pq and rs cross or come within tol of each other.
bool SegmentsMeet(const Vec2<double>& p, const Vec2<double>& q, const Vec2<double>& r,
                  const Vec2<double>& s, double tol) {
    const double d1 = Cross(p, q, r);
    const double d2 = Cross(p, q, s);
    const double d3 = Cross(r, s, p);
    const double d4 = Cross(r, s, q);
    if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0)))
        return true;
    // Otherwise the nearest approach is at one of the four ends.
    using Data::CPolygon;
    return std::min({CPolygon::DistanceToSegment(p, r, s), CPolygon::DistanceToSegment(q, r, s),
                     CPolygon::DistanceToSegment(r, p, q), CPolygon::DistanceToSegment(s, p, q)}) <=
           tol;
}

} // namespace

int CIntersect::NumPoly(const Data::CPolygon& a, const Data::CPolygon& b) const {
    if (a.NumPoint() == 0 || b.NumPoint() == 0)
        return 2;
    for (int i = 0; i < a.NumPoint(); ++i) {
        const Data::CEdge ea = a.Edge(i);
        for (int j = 0; j < b.NumPoint(); ++j) {
            const Data::CEdge eb = b.Edge(j);
            if (SegmentsMeet(ea.Start(), ea.End(), eb.Start(), eb.End(), m_tolerance))
                return 1;
        }
    }
    // No edges meet: the rings are apart unless one encloses the other.
    if (Data::CPolygon::EvenOddInside(b.Points(), a.Point(0)) ||
        Data::CPolygon::EvenOddInside(a.Points(), b.Point(0)))
        return 1;
    return 2;
}

} // namespace Tevra::Util
