#pragma once

#include "CDirCos.h"
#include "CString.h"
#include "Vec3.h"

namespace Tevra::Data {

// A named local axis system: an origin (metres), the direction of local x and a vector in
// the local x-y plane that fixes local y.
class CAxis {
  public:
    CAxis(const CString& name, int type, const Vec3<double>& origin, const Vec3<double>& xVector,
          const Vec3<double>& yVector)
        : m_name(name), m_type(type), m_origin(origin), m_xVector(xVector), m_yVector(yVector) {}

    const CString& GetName() const { return m_name; }
    int GetType() const { return m_type; }
    const Vec3<double>& Origin() const { return m_origin; }

    // The right-handed orthonormal frame of the axis: x along xVector, z along
    // xVector x yVector, y = z x x. So yVector need only lie on the positive-y side of x.
    Util::CDirCos DirCos() const {
        const Vec3<double> x = Util::CDirCos::Unit(m_xVector);
        const Vec3<double> z = Util::CDirCos::Unit(Util::CDirCos::Cross(x, m_yVector));
        const Vec3<double> y = Util::CDirCos::Cross(z, x);
        return Util::CDirCos(x, y, z, false);
    }
    // A global point in the axis' local coordinates (metres).
    Vec3<double> Global2User(const Vec3<double>& p) const { return DirCos().GtoL(p - m_origin); }

  private:
    CString m_name;
    int m_type = 0;
    Vec3<double> m_origin;
    Vec3<double> m_xVector;
    Vec3<double> m_yVector;
};

} // namespace Tevra::Data
