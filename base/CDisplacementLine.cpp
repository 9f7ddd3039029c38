#include "CDisplacementLine.h"

#include <cmath>

namespace Tevra::Data {

namespace {
// Difference of end levels below which a line counts as horizontal (metres).
constexpr double kLevelTolerance = 1e-6;
} // namespace

double CDisplacementLine::GetLength(bool inPlan) const {
    const Vec3<double> d = m_p2 - m_p1;
    return inPlan ? d.LengthInPlan() : d.Length();
}

bool CDisplacementLine::IsHorizontal() const {
    return std::fabs(m_p2.z - m_p1.z) < kLevelTolerance;
}

Vec3<double> CDisplacementLine::GetUnitVectorForLine() const {
    const double len = GetLength(false);
    if (len <= 0.0)
        return {};
    return (m_p2 - m_p1) * (1.0 / len);
}

Vec3<double> CDisplacementLine::GetPointAtDistOnTheLine(double distance) const {
    return m_p1 + GetUnitVectorForLine() * distance;
}

void CDisplacementLine::MoveBy(const Vec3<double>& offset) {
    m_p1 += offset;
    m_p2 += offset;
}

bool CDisplacementLine::GetDisplacementLocation(int k, Vec3<double>& p, bool) const {
    if (k < 0 || k > m_intervals || m_intervals < 1)
        return false;
    const double f = static_cast<double>(k) / m_intervals;
    p = {(m_p2.x - m_p1.x) * f + m_p1.x, (m_p2.y - m_p1.y) * f + m_p1.y,
         (m_p2.z - m_p1.z) * f + m_p1.z};
    return true;
}

} // namespace Tevra::Data
