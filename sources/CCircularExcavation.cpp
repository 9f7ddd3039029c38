#include "CCircularExcavation.h"

#include "document/ZorvoData.h"

#include <cmath>

namespace Tevra::Data {

void CCircularExcavation::Empty() {
    CExcavation::Empty();
    m_diameter = 2.0;
    m_baseLevel = 0.0;
    m_centre = Vec2<double>(0.0, 0.0);
    m_verticalCurve = 0;
    m_horizontalCurve = 0;
}

bool CCircularExcavation::IsPointInExcavation(const Vec3<double>& point) const {
    const double dx = point.x - m_centre.x;
    const double dy = point.y - m_centre.y;
    return m_diameter * 0.5 > std::sqrt(std::pow(dy, 2.0) + std::pow(dx, 2.0));
}

void CCircularExcavation::PointMovementsAndStrains(const ZorvoData& data, int stage, int number,
                                                   const Vec3<double>& point, double* movement,
                                                   double*) const {
    if (IsPointInExcavation(point))
        return;
    const double dx = point.x - m_centre.x;
    const double dy = point.y - m_centre.y;
    // Distance from the wall; a point on it is outside, at 0.
    const double d = std::sqrt(std::pow(dx, 2.0) + std::pow(dy, 2.0)) - m_diameter * 0.5;

    // Base level in the stage: the shaft's own where it takes part, then the last stage
    // property of the stage that names it.
    const double base =
        data.GetStageDependentProperty(stage, eElementCircularExcavation, number, 0, 1);

    const double S = GetSurfaceLevel();
    const double H = S - base; // not clamped
    const double depth = S - point.z;
    // A curve index outside the document's list gives no movement: the checks before a
    // run report it.
    const auto curveMovement = [&](GeoGlobal::EDirection dir, int index) {
        if (index < 0 || index >= data.NumGMCurves(dir))
            return 0.0;
        return MovementAtDistance(data, data.GetGMCurve(dir, index + 1), H, d, depth);
    };
    const double mH = curveMovement(GeoGlobal::eHorizontal, m_horizontalCurve);
    const double mV = curveMovement(GeoGlobal::eVertical, m_verticalCurve);

    // Horizontal movement along the radius, a positive one towards the shaft.
    const double r = std::sqrt(dx * dx + dy * dy);
    const double ex = dx / r, ey = dy / r;
    movement[0] += -mH * ex;
    movement[1] += -mH * ey;
    movement[2] += mV;
}

bool CCircularExcavation::operator==(const CCircularExcavation& o) const {
    return SameExcavation(o) && m_diameter == o.m_diameter && m_baseLevel == o.m_baseLevel &&
           m_centre == o.m_centre && m_verticalCurve == o.m_verticalCurve &&
           m_horizontalCurve == o.m_horizontalCurve;
}

} // namespace Tevra::Data
