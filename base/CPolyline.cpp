#include "CPolyline.h"

namespace Tevra::Data {

void CPolyline::SetPoint(int i, const Vec3<double>& p) {
    if (i < 0)
        return;
    const Vec3<double> value = p; // p may be a vertex of the line, moved by the growth
    if (static_cast<size_t>(i) >= m_points.size())
        m_points.resize(static_cast<size_t>(i) + 1);
    m_points[static_cast<size_t>(i)] = value;
}

void CPolyline::SetNumPoint(int n) { m_points.resize(n > 0 ? static_cast<size_t>(n) : 0); }

double CPolyline::Len(bool inPlan) const {
    double total = 0.0;
    for (size_t i = 1; i < m_points.size(); ++i) {
        const Vec3<double> d = m_points[i] - m_points[i - 1];
        total += inPlan ? d.LengthInPlan() : d.Length();
    }
    return total;
}

} // namespace Tevra::Data
