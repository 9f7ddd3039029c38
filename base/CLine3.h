#pragma once

#include "Vec3.h"

namespace Tevra::Data {

// A straight line in space from a start point to an end point (metres).
class CLine3 {
  public:
    // Below this length a line has no direction: its unit vector is (0, 0, 0).
    static constexpr double kMinLength = 2.220446049250313e-16;

    CLine3() = default;
    CLine3(const Vec3<double>& start, const Vec3<double>& end) : m_start(start), m_end(end) {}

    const Vec3<double>& Start() const { return m_start; }
    const Vec3<double>& End() const { return m_end; }
    // End minus start (metres).
    Vec3<double> Vector() const { return m_end - m_start; }
    // Length in space (metres).
    double Length() const { return Vector().Length(); }
    // Direction from start to end, of length 1, or (0, 0, 0) for a line shorter than
    // kMinLength.
    Vec3<double> UnitVector() const {
        const double len = Length();
        if (len < kMinLength)
            return {0.0, 0.0, 0.0};
        return Vector() * (1.0 / len);
    }
    // The point at distance d (metres) from the start towards the end; d may be negative or
    // pass the end. A line without direction gives its start and false.
    bool PointAtADist(double d, Vec3<double>& p) const {
        const Vec3<double> u = UnitVector();
        p = m_start + u * d;
        return Length() >= kMinLength;
    }

  private:
    Vec3<double> m_start;
    Vec3<double> m_end;
};

} // namespace Tevra::Data
