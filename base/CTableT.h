#pragma once

#include "CRange.h"
#include "CString.h"
#include "NamedEntity.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace Tevra::Data {

// A named table of (x, y) rows kept in the order they were set, never sorted, with a unit
// tag (display dimension) for each of x and y. Lookups interpolate on straight lines.
template <class T> class CTableT : public NamedEntity {
  public:
    // A step in x narrower than this has no slope: the lookup refuses it, the derivative of
    // a two-row table leaves it alone.
    static constexpr double kMinStep = 1e-10;

    explicit CTableT(const CString& name = CString(), int xUnit = 0, int yUnit = 0)
        : NamedEntity(0, name), m_xUnit(xUnit), m_yUnit(yUnit) {}

    int NumPoint() const { return static_cast<int>(m_rows.size()); }
    void Empty() {
        m_rows.clear();
        m_ascending = true;
    }

    int GetXUnit() const { return m_xUnit; }
    int GetYUnit() const { return m_yUnit; }
    void SetXUnit(int unit) { m_xUnit = unit; }
    void SetYUnit(int unit) { m_yUnit = unit; }

    // Sets row i: overwrites a row within the table, appends at the end and, beyond the end,
    // first grows the table by (0, 0) rows. A negative i is refused with false.
    bool SetPoint(int i, const T& x, const T& y) {
        if (i < 0)
            return false;
        const std::pair<T, T> row(x, y); // x or y may be in a row that the growth moves
        const auto n = static_cast<std::size_t>(i);
        if (n >= m_rows.size()) {
            // Rows of (0, 0) filling a gap seldom keep x in order: the table is scanned.
            if (n > m_rows.size())
                m_ascending = false;
            m_rows.resize(n + 1, std::pair<T, T>(T{}, T{}));
        }
        m_rows[n] = row;
        if (m_ascending)
            m_ascending = InOrderAt(n);
        return true;
    }
    // Appends a row.
    void AddPoint(const T& x, const T& y) {
        m_rows.emplace_back(x, y);
        if (m_ascending)
            m_ascending = InOrderAt(m_rows.size() - 1);
    }

    // Deletes count rows from row first on; rows outside the table are ignored.
    void DeletePoints(int first, int count = 1) {
        const int n = NumPoint();
        if (first < 0 || first >= n || count <= 0)
            return;
        const int last = count > n - first ? n : first + count;
        // Rows left of rows in order stay in order.
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last);
    }

    // x and y of row i; a negative i counts from the end (-1 is the last row). The caller
    // keeps i in range.
    const T& GetX(int i) const { return Row(i).first; }
    const T& GetY(int i) const { return Row(i).second; }

    // Smallest and largest x, by scanning all rows. An empty table gives the largest double
    // as its minimum and the smallest normal double as its maximum. A table with rows is
    // scanned from its first row: seeded with the smallest positive double, the maximum of
    // a table whose x are all at or below 0 would come out positive.
    void GetXRange(T& xMin, T& xMax) const {
        xMin = static_cast<T>(1.7976931348623157e308);
        xMax = static_cast<T>(2.2250738585072014e-308);
        if (!m_rows.empty()) {
            xMin = m_rows.front().first;
            xMax = m_rows.front().first;
        }
        for (const auto& r : m_rows) {
            if (r.first < xMin)
                xMin = r.first;
            if (r.first > xMax)
                xMax = r.first;
        }
    }

    // y at x by straight-line interpolation on the first pair of neighbouring rows, in
    // storage order, with xa <= x < xb. Outside the x range: 0 when quiet, otherwise
    // CRange code 1 (below, lowest x) or 0 (above, highest x). A bracketing step narrower
    // than kMinStep, or no bracketing pair, throws code 3; x equal to the last row's x and
    // bracketed by no pair gives the last row's y.
    T GetValue(const T& x, bool quiet = false) const {
        if (m_ascending && !m_rows.empty())
            return GetValueInOrder(x, quiet);
        T xMin, xMax;
        GetXRange(xMin, xMax);
        if (Outside(x, xMin, xMax, quiet))
            return T{};
        for (std::size_t k = 1; k < m_rows.size(); ++k)
            if (m_rows[k - 1].first <= x && x < m_rows[k].first)
                return Interpolate(m_rows[k - 1], m_rows[k], x);
        if (!m_rows.empty() && x == m_rows.back().first)
            return m_rows.back().second;
        throw Util::CRange<T>(3, T{});
    }

    // The slope dy/dx at every row, as a new table named "Derivative" with the same x.
    // Interior rows take the three-point formula for unequal spacing; the two end rows a
    // one-sided three-point form. Unit tags: displacement (6) over length (4) gives slope
    // (11), slope over length gives curvature (8), anything else none (0).
    CTableT Derivative() const;

    bool operator==(const CTableT& o) const {
        return Name() == o.Name() && m_xUnit == o.m_xUnit && m_yUnit == o.m_yUnit &&
               m_rows == o.m_rows;
    }

  private:
    // Whether x lies outside [xMin, xMax]: true when quiet, otherwise the range exception,
    // code 1 below and 0 above.
    static bool Outside(const T& x, const T& xMin, const T& xMax, bool quiet) {
        if (!(x < xMin || x > xMax))
            return false;
        if (quiet)
            return true;
        if (x < xMin)
            throw Util::CRange<T>(1, xMin);
        throw Util::CRange<T>(0, xMax);
    }

    // The straight line through rows a and b at x; a step narrower than kMinStep has no
    // slope and throws code 3.
    static T Interpolate(const std::pair<T, T>& a, const std::pair<T, T>& b, const T& x) {
        const T d = b.first - a.first;
        if (std::fabs(d) < kMinStep)
            throw Util::CRange<T>(3, T{});
        return (b.second - a.second) * (x - a.first) / d + a.second;
    }

    // Whether row n keeps x in order with its neighbours: never decreasing, no NaN.
    bool InOrderAt(std::size_t n) const {
        const T& x = m_rows[n].first;
        if (!(x == x))
            return false;
        if (n > 0 && !(m_rows[n - 1].first <= x))
            return false;
        return n + 1 >= m_rows.size() || x <= m_rows[n + 1].first;
    }

    // GetValue of a table whose x never decrease, by bisection: the first pair in storage
    // order with xa <= x < xb is the pair ending at the first row beyond x, so the value,
    // and every exception, is the scan's to the bit.
    T GetValueInOrder(const T& x, bool quiet) const {
        if (Outside(x, m_rows.front().first, m_rows.back().first, quiet))
            return T{};
        const auto beyond = std::upper_bound(
            m_rows.begin(), m_rows.end(), x,
            [](const T& v, const std::pair<T, T>& row) { return v < row.first; });
        if (beyond != m_rows.begin() && beyond != m_rows.end())
            return Interpolate(*(beyond - 1), *beyond, x);
        if (x == m_rows.back().first)
            return m_rows.back().second;
        throw Util::CRange<T>(3, T{});
    }

    const std::pair<T, T>& Row(int i) const {
        const int n = i < 0 ? NumPoint() + i : i;
        return m_rows[static_cast<std::size_t>(n)];
    }

    std::vector<std::pair<T, T>> m_rows;
    // x never decreases from row to row and holds no NaN: lookups bisect.
    bool m_ascending = true;
    int m_xUnit = 0;
    int m_yUnit = 0;
};

template <class T> CTableT<T> CTableT<T>::Derivative() const {
    CTableT d(*this);
    d.SetName(L"Derivative");
    if (m_yUnit == 6 && m_xUnit == 4)
        d.m_yUnit = 11;
    else if (m_yUnit == 11 && m_xUnit == 4)
        d.m_yUnit = 8;
    else
        d.m_yUnit = 0;

    const std::size_t n = m_rows.size();
    auto x = [this](std::size_t i) { return m_rows[i].first; };
    auto y = [this](std::size_t i) { return m_rows[i].second; };
    // Chord slope between rows i and j.
    auto s = [&](std::size_t i, std::size_t j) { return (y(j) - y(i)) / (x(j) - x(i)); };

    if (n == 1) {
        d.m_rows[0].second = T{};
    } else if (n == 2) {
        // Rows closer than kMinStep in x keep their copied y.
        if (std::fabs(x(1) - x(0)) >= kMinStep) {
            const T slope = s(0, 1);
            d.m_rows[0].second = slope;
            d.m_rows[1].second = slope;
        }
    } else if (n >= 3) {
        d.m_rows[0].second = s(0, 1) - s(1, 2) + s(0, 2);
        for (std::size_t i = 1; i + 1 < n; ++i) {
            const T a = y(i) - y(i - 1);
            const T b = y(i + 1) - y(i);
            const T p = x(i) - x(i - 1);
            const T q = x(i + 1) - x(i);
            // The span is taken as p + q, not x[i+1] - x[i-1]: the two may differ in the
            // last bit, and p + q is the established form.
            d.m_rows[i].second = (a * (q / (p + q))) / p + (b * (p / (p + q))) / q;
        }
        d.m_rows[n - 1].second = s(n - 2, n - 1) - s(n - 3, n - 2) + s(n - 3, n - 1);
    }
    return d;
}

} // namespace Tevra::Data
