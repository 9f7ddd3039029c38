#pragma once

#include "base/GeoGlobal.h"
#include "sources/CExcavation.h"

namespace Tevra::Data {

// A round shaft: one wall all round, one base level and one pair of curves. Its
// movement at a point depends only on the distance from the wall, and its horizontal
// movement points at the centre.
class CCircularExcavation : public CExcavation {
  public:
    CCircularExcavation() = default;

    static int GetVersion() { return m_iVer; }

    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;
    // Diameter 2, base level 0, centre (0, 0) and the first curves, as well as the
    // shared defaults.
    void Empty() override;
    EShape GetShape() const override { return eCircular; }
    CString GetPrefix() const override { return L"CE"; }
    Vec2<double> GetCentroid() const override { return m_centre; }
    double GetXMin() const override { return m_centre.x - m_diameter * 0.5; }
    double GetXMax() const override { return m_centre.x + m_diameter * 0.5; }
    double GetYMin() const override { return m_centre.y - m_diameter * 0.5; }
    double GetYMax() const override { return m_centre.y + m_diameter * 0.5; }
    double GetZMin() const override { return GetMinBaseLevel(); }
    double GetZMax() const override { return GetSurfaceLevel(); }
    double GetMinBaseLevel() const override { return m_baseLevel; }
    double GetMaxBaseLevel() const override { return m_baseLevel; }
    // Strictly within the circle in plan, at any level, enabled or not.
    bool IsPointInExcavation(const Vec3<double>& point) const override;
    void PointMovementsAndStrains(const ZorvoData& data, int stage, int number,
                                  const Vec3<double>& point, double* movement,
                                  double* strain) const override;

    double GetDiameter() const { return m_diameter; }
    void SetDiameter(double d) { m_diameter = d; }
    double GetBaseLevel() const { return m_baseLevel; }
    void SetBaseLevel(double level) { m_baseLevel = level; }
    const Vec2<double>& GetCentre() const { return m_centre; }
    void SetCentre(const Vec2<double>& c) { m_centre = c; }
    // 0-based curve index; vertical for direction 1, horizontal for anything else.
    int GetGMCurve(GeoGlobal::EDirection d) const {
        return d == GeoGlobal::eVertical ? m_verticalCurve : m_horizontalCurve;
    }
    void SetGMCurve(GeoGlobal::EDirection d, int index) {
        (d == GeoGlobal::eVertical ? m_verticalCurve : m_horizontalCurve) = index;
    }

    bool operator==(const CCircularExcavation& o) const;
    bool operator!=(const CCircularExcavation& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 5;

    double m_diameter = 2.0;
    double m_baseLevel = 0.0;
    Vec2<double> m_centre{0.0, 0.0};
    int m_verticalCurve = 0;
    int m_horizontalCurve = 0;
};

} // namespace Tevra::Data
