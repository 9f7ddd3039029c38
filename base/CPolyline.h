#pragma once

#include "NamedEntity.h"
#include "Vec3.h"

#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A named chain of points in space (metres).
class CPolyline : public NamedEntity {
  public:
    explicit CPolyline(const CString& name = CString()) : NamedEntity(0, name) {}

    int NumPoint() const { return static_cast<int>(m_points.size()); }
    // Vertex i, 0-based; the caller keeps i in range.
    const Vec3<double>& Point(int i) const { return m_points[static_cast<size_t>(i)]; }
    // Sets vertex i, growing the chain when i lies beyond its end; a negative i does nothing.
    void SetPoint(int i, const Vec3<double>& p);
    void SetNumPoint(int n);
    const std::vector<Vec3<double>>& Points() const { return m_points; }

    // Total length (metres), in plan when inPlan is set, otherwise in space.
    double Len(bool inPlan) const;

    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);

    bool operator==(const CPolyline& o) const {
        return Name() == o.Name() && m_points == o.m_points;
    }

  private:
    std::vector<Vec3<double>> m_points;
};

} // namespace Tevra::Data
