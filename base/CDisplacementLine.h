#pragma once

#include "CDisplacementData.h"
#include "Vec3.h"

namespace Tevra::Data {

// A straight line of equally spaced sample locations from the first end to the second:
// intervals + 1 locations (metres).
class CDisplacementLine : public CDisplacementData {
  public:
    explicit CDisplacementLine(const CString& name = CString(L"Line #"))
        : CDisplacementData(name) {}

    const Vec3<double>& GetPoint1() const { return m_p1; }
    const Vec3<double>& GetPoint2() const { return m_p2; }
    void SetPoint1(const Vec3<double>& p) { m_p1 = p; }
    void SetPoint2(const Vec3<double>& p) { m_p2 = p; }
    int GetIntervalsAlongLine() const { return m_intervals; }
    void SetIntervalsAlongLine(int n) { m_intervals = n; }

    // Length between the ends (metres), in plan when inPlan is set.
    double GetLength(bool inPlan) const;
    // A line whose ends are at one level (within a millimetre's thousandth).
    bool IsHorizontal() const;
    Vec3<double> GetUnitVectorForLine() const;
    Vec3<double> GetPointAtDistOnTheLine(double distance) const;
    void MoveBy(const Vec3<double>& offset);

    int NumDisplacementLocations(bool) const override { return NumFirstPositions(); }
    // Location k of the intervals + 1, from the first end; false outside them.
    bool GetDisplacementLocation(int k, Vec3<double>& p, bool) const;
    EPointType GetPointType() const { return eLine; }
    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;
    static int GetVersion() { return 1; }

    bool operator==(const CDisplacementLine& o) const {
        return SameData(o) && m_p1 == o.m_p1 && m_p2 == o.m_p2 && m_intervals == o.m_intervals;
    }

  protected:
    int NumFirstPositions() const override { return PositionsOf(m_intervals); }

  private:
    Vec3<double> m_p1;
    Vec3<double> m_p2{10.0, 0.0, 0.0};
    int m_intervals = 10;
};

} // namespace Tevra::Data
