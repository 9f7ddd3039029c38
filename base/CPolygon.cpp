#include "CPolygon.h"

#include <cfloat>
#include <cmath>

namespace Tevra::Data {

namespace {

double Cross(const Vec2<double>& a, const Vec2<double>& b) { return a.x * b.y - a.y * b.x; }
double Dist(const Vec2<double>& a, const Vec2<double>& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

} // namespace

bool CPolygon::SetPoint(int i, const Vec2<double>& p) {
    if (i < 0 || i >= NumPoint())
        return false;
    m_points[static_cast<size_t>(i)] = p;
    return true;
}

void CPolygon::SetNumPoint(int n) { m_points.resize(n < 0 ? 0 : static_cast<size_t>(n)); }

bool CPolygon::InsertPoint(int before, int count) {
    if (before < 0 || before > NumPoint() || count < 1)
        return false;
    m_points.insert(m_points.begin() + before, static_cast<size_t>(count), Vec2<double>());
    return true;
}

void CPolygon::DeletePoint(int first, int count) {
    const int n = NumPoint();
    if (first < 0 || first >= n || count < 1)
        return;
    const int last = count > n - first ? n : first + count;
    m_points.erase(m_points.begin() + first, m_points.begin() + last);
}

void CPolygon::RemoveCoincident() {
    std::vector<Vec2<double>> kept;
    kept.reserve(m_points.size());
    for (const auto& p : m_points)
        if (kept.empty() || Dist(kept.back(), p) > m_tolerance)
            kept.push_back(p);
    while (kept.size() > 1 && Dist(kept.back(), kept.front()) <= m_tolerance)
        kept.pop_back();
    m_points.swap(kept);
}

CEdge CPolygon::Edge(int i) const {
    const int j = i + 1 < NumPoint() ? i + 1 : 0;
    return CEdge(Point(i), Point(j));
}

void CPolygon::MinMax(double& xMin, double& xMax, double& yMin, double& yMax) const {
    xMin = yMin = DBL_MAX;
    xMax = yMax = -DBL_MAX;
    for (const auto& p : m_points) {
        xMin = p.x < xMin ? p.x : xMin;
        xMax = p.x > xMax ? p.x : xMax;
        yMin = p.y < yMin ? p.y : yMin;
        yMax = p.y > yMax ? p.y : yMax;
    }
}

double CPolygon::SignedArea() const {
    double twice = 0.0;
    const size_t n = m_points.size();
    for (size_t i = 0; i < n; ++i)
        twice += Cross(m_points[i], m_points[(i + 1) % n]);
    return 0.5 * twice;
}

Vec2<double> CPolygon::Centroid() const {
    const size_t n = m_points.size();
    if (n == 0)
        return {0.0, 0.0};
    // Taken relative to vertex 0, so that far-off survey coordinates keep their digits.
    const Vec2<double> o = m_points[0];
    double twiceArea = 0.0, cx = 0.0, cy = 0.0;
    for (size_t i = 0; i < n; ++i) {
        const Vec2<double> a = m_points[i] - o;
        const Vec2<double> b = m_points[(i + 1) % n] - o;
        const double c = Cross(a, b);
        twiceArea += c;
        cx += (a.x + b.x) * c;
        cy += (a.y + b.y) * c;
    }
    if (twiceArea == 0.0) {
        Vec2<double> sum;
        for (const auto& p : m_points)
            sum += p - o;
        return o + sum * (1.0 / static_cast<double>(n));
    }
    return o + Vec2<double>(cx, cy) * (1.0 / (3.0 * twiceArea));
}

bool CPolygon::ReEntrantCorners(std::vector<int>& corners) const {
    corners.clear();
    const int n = NumPoint();
    const double area = SignedArea();
    if (n < 3 || area == 0.0)
        return false;
    for (int j = 0; j < n; ++j) {
        const Vec2<double>& v = Point(j);
        // The nearest vertices before and after j that are not coincident with it.
        int prev = (j + n - 1) % n;
        while (prev != j && Dist(Point(prev), v) <= m_tolerance)
            prev = (prev + n - 1) % n;
        int next = (j + 1) % n;
        while (next != j && Dist(Point(next), v) <= m_tolerance)
            next = (next + 1) % n;
        if (prev == j || next == j)
            continue;
        const Vec2<double> b = v - Point(prev);
        const Vec2<double> c = Point(next) - v;
        // A vertex on the straight line between its neighbours is no corner.
        if (DistanceToSegment(v, Point(prev), Point(next)) <= m_tolerance)
            continue;
        const double turn = Cross(b, c);
        if ((area > 0.0 && turn < 0.0) || (area < 0.0 && turn > 0.0))
            corners.push_back(j);
    }
    return !corners.empty();
}

bool CPolygon::IsConvex() const {
    std::vector<int> corners;
    return !ReEntrantCorners(corners);
}

double CPolygon::DistanceToSegment(const Vec2<double>& p, const Vec2<double>& a,
                                   const Vec2<double>& b) {
    const Vec2<double> ab = b - a;
    const Vec2<double> ap = p - a;
    const double len2 = ab.x * ab.x + ab.y * ab.y;
    if (len2 == 0.0)
        return Dist(a, p);
    double t = (ap.x * ab.x + ap.y * ab.y) / len2;
    t = t < 0.0 ? 0.0 : (t > 1.0 ? 1.0 : t);
    return Dist(a + ab * t, p);
}

bool CPolygon::PointOnEdge(const Vec2<double>& p) const {
    const int n = NumPoint();
    for (int i = 0; i < n; ++i) {
        const CEdge e = Edge(i);
        if (DistanceToSegment(p, e.Start(), e.End()) <= m_tolerance)
            return true;
    }
    return false;
}

bool CPolygon::PointInside(const Vec2<double>& p, bool includeEdge) const {
    if (PointOnEdge(p))
        return includeEdge;
    return EvenOddInside(m_points, p);
}

bool CPolygon::EvenOddInside(const std::vector<Vec2<double>>& ring, const Vec2<double>& p) {
    // Count the edges that a ray towards +x crosses. An edge counts when its ends lie on
    // either side of the ray's line, one end above it and the other at or below.
    bool inside = false;
    const size_t n = ring.size();
    for (size_t i = 0, j = n - 1; i < n; j = i++) {
        const Vec2<double>& a = ring[i];
        const Vec2<double>& b = ring[j];
        if ((a.y > p.y) != (b.y > p.y)) {
            const double x = a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y);
            if (p.x < x)
                inside = !inside;
        }
    }
    return inside;
}

} // namespace Tevra::Data
