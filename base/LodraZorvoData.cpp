#include "LodraZorvoData.h"

#include <cmath>

namespace Tevra::Data {

LodraZorvoData::LodraZorvoData() { m_polylines.SetPrototype(CPolylinePlus(L"Polyline #")); }

void LodraZorvoData::Empty() { *this = LodraZorvoData(); }

void LodraZorvoData::DeleteResults() {
    for (auto& r : m_points.Items())
        r.DeleteResults();
    for (auto& r : m_lines.Items())
        r.DeleteResults();
    for (auto& r : m_dispPolylines.Items())
        r.DeleteResults();
    for (auto& r : m_grids.Items())
        r.DeleteResults();
}

bool LodraZorvoData::ResultsExist(int) const {
    auto any = [](const auto& list) {
        for (const auto& r : list.Items())
            if (r.ResultsExist(-1))
                return true;
        return false;
    };
    return any(m_points) || any(m_lines) || any(m_dispPolylines) || any(m_grids);
}

double LodraZorvoData::GetLineInterval(int line) const {
    const CDisplacementLine& l = GetDisplacementLine(line);
    return l.GetIntervalsAlongLine() > 0 ? l.GetLength(false) / l.GetIntervalsAlongLine() : 0.0;
}

double LodraZorvoData::GetDisplacementPolylineLength(int polyline) const {
    const int number = GetDisplacementPolyline(polyline).GetPolyline();
    return PolylineExists(number) ? GetPolyline(number).Len(true) : 0.0;
}

double LodraZorvoData::GetDisplacementPolylineInterval(int polyline) const {
    const int j = GetDisplacementPolyline(polyline).GetIntervalsAlongLine();
    return j > 0 ? GetDisplacementPolylineLength(polyline) / j : 0.0;
}

double LodraZorvoData::GetDisplacementLineLengthInPlan(int line) const {
    return GetDisplacementLine(line).GetLength(true);
}

void LodraZorvoData::tun26_(int, const double& angle, const double* in, double* out) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double ex = in[0], ey = in[1], g = in[2];
    out[0] = ex * c * c + ey * s * s + g * s * c;
    out[1] = ex * s * s + ey * c * c - g * s * c;
    out[2] = (ey - ex) * 2.0 * s * c + g * (c * c - s * s);
}

bool LodraZorvoData::SameBase(const LodraZorvoData& o) const {
    return m_points == o.m_points && m_lines == o.m_lines && m_dispPolylines == o.m_dispPolylines &&
           m_grids == o.m_grids && m_polylines == o.m_polylines && m_importedSets == o.m_importedSets &&
           m_graphics == o.m_graphics &&
           m_titles == o.m_titles && m_history == o.m_history;
}

} // namespace Tevra::Data
