#include "CPolygonalExcavation.h"

#include <algorithm>
#include <array>

namespace Tevra::Data {

namespace {

// The list rule of base levels and corners: last = -1 is first alone, a last below
// first nothing, otherwise first to last cut to the end.
template <class T> void DeleteRange(std::vector<T>& list, int first, int last) {
    if (last == -1)
        last = first;
    const int n = static_cast<int>(list.size());
    if (last < first || first < 1 || first > n)
        return;
    last = std::min(last, n);
    list.erase(list.begin() + (first - 1), list.begin() + last);
}

template <class T> void InsertAt(std::vector<T>& list, int before, int count, const T& value) {
    if (count < 1)
        return;
    const int at = std::clamp(before - 1, 0, static_cast<int>(list.size()));
    list.insert(list.begin() + at, static_cast<size_t>(count), value);
}

} // namespace

std::array<double, 4> CPolygonalExcavation::Extent() const {
    std::array<double, 4> e{};
    m_polygon.MinMax(e[0], e[1], e[2], e[3]);
    return e;
}

double CPolygonalExcavation::GetXMin() const { return Extent()[0]; }
double CPolygonalExcavation::GetXMax() const { return Extent()[1]; }
double CPolygonalExcavation::GetYMin() const { return Extent()[2]; }
double CPolygonalExcavation::GetYMax() const { return Extent()[3]; }

double CPolygonalExcavation::GetMinBaseLevel() const {
    return *std::min_element(m_baseLevels.begin(), m_baseLevels.end());
}

double CPolygonalExcavation::GetMaxBaseLevel() const {
    return *std::max_element(m_baseLevels.begin(), m_baseLevels.end());
}

bool CPolygonalExcavation::IsPointInExcavation(const Vec3<double>& point) const {
    if (!IsEnabled() || m_baseLevels.empty())
        return false;
    const Vec2<double> p(point.x, point.y);
    return !m_polygon.PointOnEdge(p) && m_polygon.PointInside(p, false) &&
           point.z > GetMinBaseLevel();
}

void CPolygonalExcavation::SetCoord(int n, const Vec2<double>& p) {
    if (n < 1)
        return;
    const Vec2<double> value = p; // p may be a vertex of the ring, moved by the growth
    if (n > NumCoords())
        m_polygon.SetNumPoint(n);
    m_polygon.SetPoint(n - 1, value);
}

void CPolygonalExcavation::DeleteCoord(int first, int last) {
    if (last == -1)
        m_polygon.DeletePoint(first - 1, 1);
    else if (last >= first)
        m_polygon.DeletePoint(first - 1, last - first);
}

void CPolygonalExcavation::SetBaseLevel(int n, const double& level) {
    if (n < 1)
        return;
    const double value = level; // level may be an element of the list, moved by the growth
    if (n > NumBaseLevels())
        m_baseLevels.resize(static_cast<size_t>(n), 0.0);
    m_baseLevels[static_cast<size_t>(n - 1)] = value;
}

void CPolygonalExcavation::InsertBaseLevel(int before, int count) {
    InsertAt(m_baseLevels, before, count, 0.0);
}

void CPolygonalExcavation::InsertBaseLevel(int before, const double& level) {
    InsertAt(m_baseLevels, before, 1, level);
}

void CPolygonalExcavation::DeleteBaseLevel(int first, int last) {
    DeleteRange(m_baseLevels, first, last);
}

void CPolygonalExcavation::SetExcavationCorner(int n, const CExcavationCorner& corner) {
    if (n < 1)
        return;
    const CExcavationCorner copy = corner; // may be an element of the list
    if (n > NumExcavationCorners())
        m_corners.resize(static_cast<size_t>(n));
    m_corners[static_cast<size_t>(n - 1)] = copy;
}

void CPolygonalExcavation::InsertExcavationCorner(int before, int count) {
    InsertAt(m_corners, before, count, CExcavationCorner());
}

void CPolygonalExcavation::InsertExcavationCorner(int before, const CExcavationCorner& corner) {
    InsertAt(m_corners, before, 1, corner);
}

void CPolygonalExcavation::DeleteExcavationCorner(int first, int last) {
    DeleteRange(m_corners, first, last);
}

void CPolygonalExcavation::NumberClockwise() {
    if (m_polygon.IsClockwise())
        return;
    // Pairwise swaps from both ends, (n + 1) / 2 of them: the middle vertex of an odd
    // ring swaps with itself.
    const int n = NumCoords();
    const bool levels = NumBaseLevels() == n;
    for (int i = 0; i < (n + 1) / 2; ++i) {
        const int j = n - 1 - i;
        const Vec2<double> a = m_polygon.Point(i);
        m_polygon.SetPoint(i, m_polygon.Point(j));
        m_polygon.SetPoint(j, a);
        if (levels)
            std::swap(m_baseLevels[static_cast<size_t>(i)], m_baseLevels[static_cast<size_t>(j)]);
    }
}

bool CPolygonalExcavation::GetReEntrantCorners(std::vector<int>& corners) const {
    m_polygon.ReEntrantCorners(corners);
    return !corners.empty();
}

bool CPolygonalExcavation::GetStiffenedReEntrantCorners(std::vector<int>& corners) const {
    std::vector<int> all;
    GetReEntrantCorners(all);
    corners.clear();
    for (int c : all)
        if (c < NumExcavationCorners() && m_corners[static_cast<size_t>(c)].GetStiffened())
            corners.push_back(c + 1);
    return !corners.empty();
}

bool CPolygonalExcavation::operator==(const CPolygonalExcavation& o) const {
    return SameExcavation(o) && m_polygon.Points() == o.m_polygon.Points() &&
           m_baseLevels == o.m_baseLevels && m_corners == o.m_corners;
}

} // namespace Tevra::Data
