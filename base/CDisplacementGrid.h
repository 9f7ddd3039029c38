#pragma once

#include "CDisplacementData.h"
#include "Vec3.h"

namespace Tevra::Data {

// Direction in which a grid's base line is swept to make the grid.
enum EExtrusionDirection { eExtrudeX = 0, eExtrudeY = 1, eExtrudeZ = 2 };

// A grid of samples: a base line from point 1 to point 2 with its intervals, swept
// along X, Y or Z through the extrusion distance (metres) with intervals of its own.
class CDisplacementGrid : public CDisplacementData {
  public:
    explicit CDisplacementGrid(const CString& name = CString(L"Grid #"))
        : CDisplacementData(name) {}

    const Vec3<double>& GetPoint1() const { return m_p1; }
    const Vec3<double>& GetPoint2() const { return m_p2; }
    void SetPoint1(const Vec3<double>& p) { m_p1 = p; }
    void SetPoint2(const Vec3<double>& p) { m_p2 = p; }
    double GetExtrusionDistance() const { return m_extrusion; }
    void SetExtrusionDistance(double d) { m_extrusion = d; }
    int GetIntervalsAlongLine() const { return m_intervalsLine; }
    void SetIntervalsAlongLine(int n) { m_intervalsLine = n; }
    int GetIntervalsAlongExtrusion() const { return m_intervalsExtrusion; }
    void SetIntervalsAlongExtrusion(int n) { m_intervalsExtrusion = n; }
    EExtrusionDirection GetExtrusionDirection() const { return m_direction; }
    void SetExtrusionDirection(EExtrusionDirection d) { m_direction = d; }

    int NumDisplacementLocations(bool) const override { return NumLocationsInAll(); }
    static int GetVersion() { return 1; }
    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;

    bool operator==(const CDisplacementGrid& o) const {
        return SameData(o) && m_p1 == o.m_p1 && m_p2 == o.m_p2 && m_extrusion == o.m_extrusion &&
               m_intervalsLine == o.m_intervalsLine &&
               m_intervalsExtrusion == o.m_intervalsExtrusion && m_direction == o.m_direction;
    }

  protected:
    int NumFirstPositions() const override { return PositionsOf(m_intervalsLine); }
    int NumSecondPositions() const override { return PositionsOf(m_intervalsExtrusion); }

  private:
    Vec3<double> m_p1;
    Vec3<double> m_p2{10.0, 0.0, 0.0};
    double m_extrusion = 10.0;
    int m_intervalsLine = 10;
    int m_intervalsExtrusion = 10;
    EExtrusionDirection m_direction = eExtrudeY;
};

} // namespace Tevra::Data
