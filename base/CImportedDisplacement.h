#pragma once

namespace Tevra::Data {

// One imported displacement: a point (metres) and the displacement measured or calculated
// elsewhere at it (metres, as the results), with the import match bits that record which
// kinds of result took the value (1 displacement data, 4 generic building horizontal,
// 8 specific utility, 16 generic utility, 32 specific building vertical, 64 generic
// building vertical, 128/256/512 rail track main and side lists).
class CImportedDisplacement {
  public:
    double GetXpoint() const { return m_x; }
    double GetYpoint() const { return m_y; }
    double GetZpoint() const { return m_z; }
    void SetXpoint(const double& x) { m_x = x; }
    void SetYpoint(const double& y) { m_y = y; }
    void SetZpoint(const double& z) { m_z = z; }

    double GetXdisplacement() const { return m_dx; }
    double GetYdisplacement() const { return m_dy; }
    double GetZdisplacement() const { return m_dz; }
    void SetXdisplacement(const double& dx) { m_dx = dx; }
    void SetYdisplacement(const double& dy) { m_dy = dy; }
    void SetZdisplacement(const double& dz) { m_dz = dz; }

    int GetImportMatch() const { return m_importMatch; }
    // Replaces the match bits; to add one bit, pass GetImportMatch() | bit.
    void SetImportMatch(int match) { m_importMatch = match; }

    static int GetVersion() { return 1; }

    bool operator==(const CImportedDisplacement& o) const {
        return m_x == o.m_x && m_y == o.m_y && m_z == o.m_z && m_dx == o.m_dx && m_dy == o.m_dy &&
               m_dz == o.m_dz && m_importMatch == o.m_importMatch;
    }

  private:
    double m_x = 0.0, m_y = 0.0, m_z = 0.0;
    double m_dx = 0.0, m_dy = 0.0, m_dz = 0.0;
    int m_importMatch = 0;
};

} // namespace Tevra::Data
