// Model file layouts of the displacement records and polylines.
#include "CDisplacementGrid.h"
#include "CDisplacementLine.h"
#include "CDisplacementPoint.h"
#include "CDisplacementPolyline.h"
#include "CPolyline.h"
#include "Vec3IO.h"

namespace Tevra::Data {

using namespace FileIO;

namespace {
const wchar_t* const kExtrusionTexts[3] = {L"X", L"Y", L"Z"};
} // namespace

void CDisplacementPoint::Write(CDataFile& f) const {
    CDisplacementData::Write(f);
    WritePoint(f, jnPoint, m_point);
}

void CDisplacementPoint::Read(CDataFile& f, int generation) {
    CDisplacementData::Read(f, generation);
    ReadPoint(f, jnPoint, m_point);
}

void CDisplacementLine::Write(CDataFile& f) const {
    CDisplacementData::Write(f);
    WritePoint(f, jnPoint1, m_p1);
    WritePoint(f, jnPoint2, m_p2);
    f.WriteInt(jnIntervals, m_intervals);
}

void CDisplacementLine::Read(CDataFile& f, int generation) {
    CDisplacementData::Read(f, generation);
    ReadPoint(f, jnPoint1, m_p1);
    ReadPoint(f, jnPoint2, m_p2);
    f.ReadInt(jnIntervals, m_intervals, false);
}

void CDisplacementPolyline::Write(CDataFile& f) const {
    CDisplacementData::Write(f);
    f.WriteInt(jnPolyline, m_polyline);
    f.WriteInt(jnIntervals, m_intervals);
}

void CDisplacementPolyline::Read(CDataFile& f, int generation) {
    CDisplacementData::Read(f, generation);
    f.ReadInt(jnPolyline, m_polyline);
    f.ReadInt(jnIntervals, m_intervals, false);
}

void CDisplacementGrid::Write(CDataFile& f) const {
    CDisplacementData::Write(f);
    WritePoint(f, jnPoint1, m_p1);
    WritePoint(f, jnPoint2, m_p2);
    f.WriteDouble(jnExtrusionDistance, m_extrusion);
    f.WriteEnum(jnExtrusionDirection, m_direction, kExtrusionTexts, 3);
    f.WriteInt(jnIntervals, m_intervalsLine);
    f.WriteInt(jnIntervalsAlongExtrusion, m_intervalsExtrusion);
}

void CDisplacementGrid::Read(CDataFile& f, int generation) {
    CDisplacementData::Read(f, generation);
    ReadPoint(f, jnPoint1, m_p1);
    ReadPoint(f, jnPoint2, m_p2);
    f.ReadDouble(jnExtrusionDistance, m_extrusion);
    int direction = m_direction;
    f.ReadEnum(jnExtrusionDirection, direction, kExtrusionTexts, 3, false);
    m_direction = static_cast<EExtrusionDirection>(direction);
    f.ReadInt(jnIntervals, m_intervalsLine, false);
    f.ReadInt(jnIntervalsAlongExtrusion, m_intervalsExtrusion, false);
}

void CPolyline::Write(CDataFile& f) const {
    f.WriteString(jnName, Name());
    std::vector<double> xyz;
    xyz.reserve(m_points.size() * 3);
    for (const auto& p : m_points) {
        xyz.push_back(p.x);
        xyz.push_back(p.y);
        xyz.push_back(p.z);
    }
    f.WriteDoubleArray(jnPoints, xyz);
}

void CPolyline::Read(CDataFile& f, int) {
    f.ReadString(jnName, AccessName(), false);
    std::vector<double> xyz;
    f.ReadDoubleArray(jnPoints, xyz);
    if (xyz.size() % 3 != 0)
        f.Fail("'points' should hold x, y, z for each vertex: " + std::to_string(xyz.size()) +
               " numbers is not a multiple of 3");
    m_points.clear();
    for (size_t k = 0; k + 2 < xyz.size(); k += 3)
        m_points.emplace_back(xyz[k], xyz[k + 1], xyz[k + 2]);
}

} // namespace Tevra::Data
