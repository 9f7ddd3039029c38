#pragma once

#include "Vec3.h"

namespace Tevra::Util {

// Direction cosines of a local frame: the global components of its three axes. GtoL and
// LtoG are each other's inverse when the axes are orthonormal; the frame does not make
// them so.
class CDirCos {
  public:
    // Below this length an axis is the zero vector and is not normalised.
    static constexpr double kMinLength = 2.220446049250313e-16;

    CDirCos() : m_x(1.0, 0.0, 0.0), m_y(0.0, 1.0, 0.0), m_z(0.0, 0.0, 1.0) {}
    // A frame from three axes given in global components; with normalise each is scaled
    // to length 1 first.
    CDirCos(const Vec3<double>& x, const Vec3<double>& y, const Vec3<double>& z, bool normalise)
        : m_x(normalise ? Unit(x) : x), m_y(normalise ? Unit(y) : y), m_z(normalise ? Unit(z) : z) {
    }

    const Vec3<double>& XAxis() const { return m_x; }
    const Vec3<double>& YAxis() const { return m_y; }
    const Vec3<double>& ZAxis() const { return m_z; }

    // Local components of a global vector: its projections on the three axes.
    Vec3<double> GtoL(const Vec3<double>& g) const {
        return {Dot(g, m_x), Dot(g, m_y), Dot(g, m_z)};
    }
    // Global components of a local vector.
    Vec3<double> LtoG(const Vec3<double>& l) const { return m_x * l.x + m_y * l.y + m_z * l.z; }

    static double Dot(const Vec3<double>& a, const Vec3<double>& b) {
        return a.x * b.x + a.y * b.y + a.z * b.z;
    }
    static Vec3<double> Cross(const Vec3<double>& a, const Vec3<double>& b) {
        return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    }
    static Vec3<double> Unit(const Vec3<double>& v) {
        const double len = v.Length();
        return len < kMinLength ? v : v * (1.0 / len);
    }

  private:
    Vec3<double> m_x, m_y, m_z;
};

} // namespace Tevra::Util
