#include "CPolylineCursor.h"

namespace Tevra::Data {

CPolylineCursor::CPolylineCursor(const CPolylinePlus& polyline)
    : m_polyline(polyline), m_numPoints(polyline.NumPoint()), m_total(polyline.Len(true)) {
    Restart();
}

void CPolylineCursor::Restart() {
    m_segment = 0;
    m_start = 0.0;
    m_length = m_numPoints >= 2 ? m_polyline.SegmentLength2D(0) : 0.0;
}

int CPolylineCursor::PointAt(double distance, Vec3<double>& p) {
    if (m_numPoints < 2 || distance < 0.0)
        return -1;
    if (distance > m_total * (1.0 + CPolylinePlus::kEndSlack))
        return -1;
    // A smaller distance, or one that is not a number, is looked for from the first
    // vertex, as PointAt would.
    if (!(distance >= m_reached))
        Restart();
    m_reached = distance;
    // The same walk as PointAt's, with the same sums of segment lengths.
    for (;;) {
        const bool last = m_segment + 2 == m_numPoints;
        if (distance <= m_start + m_length || last)
            break;
        m_start += m_length;
        ++m_segment;
        m_length = m_polyline.SegmentLength2D(m_segment);
    }
    p = m_polyline.PointOnSegment(m_segment, distance, m_start, m_length);
    return m_segment;
}

} // namespace Tevra::Data
