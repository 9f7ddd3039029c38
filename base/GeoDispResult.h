#pragma once

#include "NamedEntity.h"
#include "Vec3.h"

namespace Tevra::Data {

// Kind of displacement record a sample belongs to.
enum EPointType { ePointTypeNone = 0, ePoint = 1, eLine = 2, eGrid = 3, ePolyline = 4 };

// One sample: where it is, how far it moved (metres) and its principal strains.
class GeoDispResult : public NamedEntity {
  public:
    GeoDispResult() = default;

    const Vec3<double>& GetPoint() const { return m_point; }
    void SetPoint(const Vec3<double>& p) { m_point = p; }
    void SetXpoint(double x) { m_point.x = x; }
    void SetYpoint(double y) { m_point.y = y; }
    void SetZpoint(double z) { m_point.z = z; }

    // Displacements (metres): X and Y horizontal, Z vertical with settlement positive.
    double GetXdisplacement() const { return m_disp.x; }
    double GetYdisplacement() const { return m_disp.y; }
    double GetZdisplacement() const { return m_disp.z; }
    void SetXdisplacement(double v) { m_disp.x = v; }
    void SetYdisplacement(double v) { m_disp.y = v; }
    void SetZdisplacement(double v) { m_disp.z = v; }

    // Principal strains in the scaled unit of the calculation, and the angle (radians).
    double GetMajorPrincipalStrain() const { return m_major; }
    double GetMinorPrincipalStrain() const { return m_minor; }
    double GetPrincipalStrainAngle() const { return m_angle; }
    void SetMajorPrincipalStrain(double v) { m_major = v; }
    void SetMinorPrincipalStrain(double v) { m_minor = v; }
    void SetPrincipalStrainAngle(double v) { m_angle = v; }

    EPointType GetPointType() const { return static_cast<EPointType>(m_pointType); }
    void SetPointType(EPointType t) { m_pointType = t; }
    // Whether the solver reached the sample. It gives every sample it calculates the
    // point type of its record before storing it; a sample a cancelled run never reached
    // keeps the fresh sample's none. This costs no memory beside the store.
    bool IsCalculated() const { return m_pointType != ePointTypeNone; }
    int GetPointGroup() const { return m_pointGroup; }
    void SetPointGroup(int g) { m_pointGroup = g; }
    // 1 when the displacement was taken from an imported set.
    int GetImportMatch() const { return m_importMatch; }
    void SetImportMatch(int m) { m_importMatch = m; }

    static int GetVersion() { return 1; }

    bool operator==(const GeoDispResult& o) const {
        return Name() == o.Name() && m_point == o.m_point && m_disp == o.m_disp &&
               m_major == o.m_major && m_minor == o.m_minor && m_angle == o.m_angle &&
               m_pointType == o.m_pointType && m_pointGroup == o.m_pointGroup &&
               m_importMatch == o.m_importMatch;
    }

  private:
    Vec3<double> m_point;
    Vec3<double> m_disp;
    double m_major = 0.0;
    double m_minor = 0.0;
    double m_angle = 0.0;
    int m_pointType = 0;
    int m_pointGroup = 0;
    int m_importMatch = 0;
};

} // namespace Tevra::Data
