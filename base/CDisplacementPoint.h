#pragma once

#include "CDisplacementData.h"
#include "Vec3.h"

namespace Tevra::Data {

// A single point where displacements are wanted (metres).
class CDisplacementPoint : public CDisplacementData {
  public:
    explicit CDisplacementPoint(const CString& name = CString(L"Point #"))
        : CDisplacementData(name) {}

    const Vec3<double>& GetPoint() const { return m_point; }
    void SetPoint(const Vec3<double>& p) { m_point = p; }

    int NumDisplacementLocations(bool) const override { return 1; }
    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;
    static int GetVersion() { return 1; }

    bool operator==(const CDisplacementPoint& o) const {
        return SameData(o) && m_point == o.m_point;
    }

  protected:
    int NumFirstPositions() const override { return 1; }

  private:
    Vec3<double> m_point;
};

} // namespace Tevra::Data
