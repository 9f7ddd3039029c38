#pragma once

#include "Vec2.h"

#include <cmath>

namespace Tevra::Data {

// One side of a plan polygon, from its start vertex to its end vertex (metres).
class CEdge {
  public:
    // Below this length an edge has no direction: its unit vector is (0, 0).
    static constexpr double kMinLength = 2.220446049250313e-16;

    CEdge() = default;
    CEdge(const Vec2<double>& start, const Vec2<double>& end) : m_start(start), m_end(end) {}

    const Vec2<double>& Start() const { return m_start; }
    const Vec2<double>& End() const { return m_end; }
    // Length in plan (metres).
    double Length() const { return std::hypot(m_end.x - m_start.x, m_end.y - m_start.y); }
    // Direction from start to end, of length 1, or (0, 0) for an edge shorter than kMinLength.
    Vec2<double> UnitVector() const {
        const double len = Length();
        if (len < kMinLength)
            return {0.0, 0.0};
        return {(m_end.x - m_start.x) / len, (m_end.y - m_start.y) / len};
    }

  private:
    Vec2<double> m_start;
    Vec2<double> m_end;
};

} // namespace Tevra::Data
