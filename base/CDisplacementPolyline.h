#pragma once

#include "CDisplacementData.h"

namespace Tevra::Data {

// Equally spaced sample locations along one of the project's polylines, named by its
// 1-based number: intervals + 1 locations.
class CDisplacementPolyline : public CDisplacementData {
  public:
    explicit CDisplacementPolyline(const CString& name = CString(L"Polyline #"))
        : CDisplacementData(name) {}

    int GetPolyline() const { return m_polyline; }
    void SetPolyline(int number) { m_polyline = number; }
    int GetIntervalsAlongLine() const { return m_intervals; }
    void SetIntervalsAlongLine(int n) { m_intervals = n; }

    int NumDisplacementLocations(bool) const override { return NumFirstPositions(); }
    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;
    static int GetVersion() { return 1; }

    bool operator==(const CDisplacementPolyline& o) const {
        return SameData(o) && m_polyline == o.m_polyline && m_intervals == o.m_intervals;
    }

  protected:
    int NumFirstPositions() const override { return PositionsOf(m_intervals); }

  private:
    int m_polyline = 1;
    int m_intervals = 10;
};

} // namespace Tevra::Data
