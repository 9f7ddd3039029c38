#include "CImportedDisplacementMatcher.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace Tevra::Data {

namespace {

// Floor of the relative test's distance (metres), and its share of the coordinates'
// size: 0.01 / 200, half of a hundredth of a percent of |a| + |b|.
constexpr double kRelativeFloor = 1e-6;
constexpr double kRelativeShare = 0.01 / 200.0;

} // namespace

bool CImportedDisplacementMatcher::Coincide(double a, double b, double tolerance) {
    if (a == b)
        return true;
    const double t = tolerance >= 0.0
                         ? tolerance
                         : std::max(kRelativeFloor, (std::fabs(a) + std::fabs(b)) * 0.01 / 200.0);
    return std::fabs(a - b) < t;
}

bool CImportedDisplacementMatcher::Coincide(const Vec3<double>& p, const CImportedDisplacement& d,
                                            double tolerance) {
    return Coincide(p.x, d.GetXpoint(), tolerance) && Coincide(p.y, d.GetYpoint(), tolerance) &&
           Coincide(p.z, d.GetZpoint(), tolerance);
}

CImportedDisplacementMatcher::CImportedDisplacementMatcher(
    const std::vector<CImportedDisplacement>& list, double tolerance)
    : m_tolerance(tolerance) {
    // An infinite absolute tolerance lets every finite pair pass: no window can narrow
    // the search, so every point is a candidate.
    m_scanAll = tolerance >= 0.0 && !std::isfinite(tolerance);

    double largest = 0.0; // largest |x| of the indexed points (metres)
    for (size_t k = 0; k < list.size(); ++k) {
        const CImportedDisplacement& d = list[k];
        const SEntry e{0.0, d.GetXpoint(), d.GetYpoint(), d.GetZpoint(), k};
        if (std::isfinite(e.x) && std::isfinite(e.y) && !m_scanAll) {
            m_entries.push_back(e);
            largest = std::max(largest, std::fabs(e.x));
        } else {
            m_odd.push_back(e);
        }
    }
    // Cells about as wide as a window, so that a sample looks into two or three of them.
    // The width matters for speed only: any positive width gives the same answers.
    const double width = tolerance >= 0.0
                             ? 2.0 * tolerance
                             : 2.0 * std::max(kRelativeFloor, 2.0 * kRelativeShare * largest);
    if (!std::isfinite(width))
        m_cellSize = std::numeric_limits<double>::max();
    else
        m_cellSize = std::max(width, 1e-9);
    for (SEntry& e : m_entries)
        e.cell = std::floor(e.x / m_cellSize);
    std::sort(m_entries.begin(), m_entries.end(), [](const SEntry& a, const SEntry& b) {
        return std::tie(a.cell, a.y, a.index) < std::tie(b.cell, b.y, b.index);
    });
    for (size_t k = 0; k < m_entries.size(); ++k)
        if (k == 0 || m_entries[k].cell != m_entries[k - 1].cell)
            m_cellStarts.push_back(k);
    m_cellStarts.push_back(m_entries.size());
}

double CImportedDisplacementMatcher::Window(double a) const {
    // Absolute: |a - b| < T. Relative: |a - b| < (|a| + |b|) k with k = 5e-5, and since
    // |b| <= |a| + |a - b|, |a - b| < 2k |a| / (1 - k) = 1.00005e-4 |a|; or below the
    // floor. A millionth more, and a margin for the rounding of a - b and of a +- w,
    // keep every b that passes inside.
    const double t = m_tolerance >= 0.0
                         ? m_tolerance
                         : std::max(kRelativeFloor, 2.0 * kRelativeShare * 1.0001 * std::fabs(a));
    return t * 1.000001 + 1e-12 * std::fabs(a) + 1e-300;
}

void CImportedDisplacementMatcher::Scan(const std::vector<SEntry>& entries, const Vec3<double>& p,
                                        std::vector<size_t>& out) const {
    for (const SEntry& e : entries)
        if (Coincide(p.x, e.x, m_tolerance) && Coincide(p.y, e.y, m_tolerance) &&
            Coincide(p.z, e.z, m_tolerance))
            out.push_back(e.index);
}

void CImportedDisplacementMatcher::Find(const Vec3<double>& p, std::vector<size_t>& out) const {
    out.clear();
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) {
        // A coordinate that is not finite equals only the same infinity (a NaN nothing),
        // and differs from any finite one by more than any finite tolerance.
        Scan(m_odd, p, out);
    } else {
        // With finite X and Y only the indexed points can pass: the others differ by an
        // infinite or undefined distance, unless every point is a candidate.
        if (m_scanAll)
            Scan(m_odd, p, out);
        const double wx = Window(p.x);
        const double wy = Window(p.y);
        const double firstCell = std::floor((p.x - wx) / m_cellSize);
        const double lastCell = std::floor((p.x + wx) / m_cellSize);
        const double ylo = p.y - wy;
        const double yhi = p.y + wy;
        // The cells from firstCell to lastCell that hold points.
        auto cell = std::lower_bound(
            m_cellStarts.begin(), m_cellStarts.end() - 1, firstCell,
            [this](size_t start, double key) { return m_entries[start].cell < key; });
        for (; cell != m_cellStarts.end() - 1 && m_entries[*cell].cell <= lastCell; ++cell) {
            const auto begin = m_entries.begin() + static_cast<std::ptrdiff_t>(*cell);
            const auto end = m_entries.begin() + static_cast<std::ptrdiff_t>(*(cell + 1));
            auto e = std::lower_bound(begin, end, ylo,
                                      [](const SEntry& a, double y) { return a.y < y; });
            for (; e != end && e->y <= yhi; ++e)
                if (Coincide(p.x, e->x, m_tolerance) && Coincide(p.y, e->y, m_tolerance) &&
                    Coincide(p.z, e->z, m_tolerance))
                    out.push_back(e->index);
        }
    }
    std::sort(out.begin(), out.end());
}

} // namespace Tevra::Data
