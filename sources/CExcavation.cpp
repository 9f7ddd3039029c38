#include "CExcavation.h"

#include "base/CResourceStrings.h"
#include "sources/CGMCurve.h"

#include <cmath>
#include <iterator>

namespace Tevra::Data {

const int CExcavation::CONTRIBUTION_STRING_IDS[2] = {3808, 3809};

void CExcavation::Empty() {
    m_enabled = true;
    m_surfaceLevel = 100.0;
    m_contribution = ePositive;
    m_allowToLevel = false;
    m_allowLevel = 0.0;
    ClearIntersectingExcavations();
}

CExcavation::EContribution CExcavation::GetContributionFromCStr(const CString& text) {
    return text == CResourceStrings::Load(CONTRIBUTION_STRING_IDS[ePositive]) ? ePositive
                                                                              : eNegative;
}

int CExcavation::GetIntersectingExcavation(EShape shape, int place) const {
    const std::set<int>& s = m_intersects[shape];
    if (place < 0 || place >= static_cast<int>(s.size()))
        return 0;
    return *std::next(s.begin(), place);
}

bool CExcavation::SameExcavation(const CExcavation& o) const {
    return m_name == o.m_name && m_surfaceLevel == o.m_surfaceLevel && m_enabled == o.m_enabled &&
           m_contribution == o.m_contribution && m_show == o.m_show && m_label == o.m_label &&
           m_allowToLevel == o.m_allowToLevel && m_allowLevel == o.m_allowLevel;
}

// The curves give movement as a percentage of the wall depth against the distance
// behind the wall and the depth, both as fractions of the wall depth. The range tests
// stand in this order: a surface-only curve's depth reach, the curve's reach in
// distance, then its reach in depth.
double CExcavation::MovementAtDistance(const ZorvoData&, const CGMCurve& curve,
                                       const double& wallDepth, const double& distance,
                                       const double& depth) const {
    const double z = depth < 0.0 ? 0.0 : depth; // above the surface counts as at it
    const double reach = std::fabs(m_surfaceLevel - m_allowLevel);
    const bool surfaceOnly = curve.GetSurfaceOnly();
    if (surfaceOnly) {
        if (m_allowToLevel) {
            if (z >= std::fabs(m_surfaceLevel - m_allowLevel + 0.001))
                return 0.0;
        } else if (!(z < 0.001)) {
            return 0.0;
        }
    }

    // A curve without data reaches nowhere; the checks before a run report it.
    if (curve.NumDataCoords() == 0)
        return 0.0;
    double x = distance / wallDepth;
    const double y = z / wallDepth;
    const double xMax = curve.GetMaxDataX();

    // Never read a movement beyond the curve's end.
    if (!(wallDepth * xMax >= distance))
        return 0.0;

    if (surfaceOnly) {
        if (m_allowToLevel) {
            if (!(reach >= z))
                return 0.0;
        } else if (!(z < 0.001)) {
            return 0.0;
        }
    } else if (z > wallDepth * curve.GetMaxDataY() || z < wallDepth * curve.GetMinDataY()) {
        return 0.0; // each a scan of the data: only a curve with depth asks
    }

    // d / H can round above the last x although H * Xmax >= d held. The movement is then
    // the curve's last one, which a surface-only curve read by interpolation gives at
    // its last x: beyond it, it would give an x, not a movement. A polynomial is read
    // where it stands.
    if (surfaceOnly && curve.GetInterpolationMethod() != CGMCurve::ePolynomial && x > xMax)
        x = xMax;

    bool found = false; // not asked: outside the triangles the value is 0
    const double value = curve.GetZ(x, y, found);
    double result = value / 100.0 * wallDepth * 1000.0; // percent of the depth, m to mm
    if (m_contribution == eNegative)
        result *= -1.0;
    return result;
}

double CExcavation::StrainAtDistance(const ZorvoData&, const CGMCurve& curve,
                                     const double& wallDepth, const double& distance,
                                     const double& depth) const {
    const double z = depth < 0.0 ? 0.0 : depth;
    const double reach = std::fabs(m_surfaceLevel - m_allowLevel);
    const bool surfaceOnly = curve.GetSurfaceOnly();
    if (surfaceOnly) {
        if (m_allowToLevel) {
            if (z > reach) // no 0.001 margin here, unlike the movement
                return 0.0;
        } else if (!(z < 0.001)) {
            return 0.0;
        }
    }

    if (curve.NumDataCoords() == 0)
        return 0.0;
    const double x = distance / wallDepth;
    const double y = z / wallDepth;
    if (!(wallDepth * curve.GetMaxDataX() >= distance))
        return 0.0;
    if (surfaceOnly) {
        if (m_allowToLevel) {
            if (!(reach >= z))
                return 0.0;
        } else if (!(z < 0.001)) {
            return 0.0;
        }
    } else if (z > wallDepth * curve.GetMaxDataY() || z < wallDepth * curve.GetMinDataY()) {
        return 0.0;
    }

    // The polynomial's slope whatever the curve's method.
    double result = curve.GradientWRTX(x, y) / 100.0;
    if (m_contribution == eNegative)
        result *= -1.0;
    return result;
}

} // namespace Tevra::Data
