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
// distance, then its reach in depth. The movement's first test keeps 1 mm of margin
// below the allow level; the strain's has none.
bool CExcavation::CurveReaches(const CGMCurve& curve, const double& wallDepth,
                               const double& distance, double z, bool movement) const {
    const double reach = std::fabs(m_surfaceLevel - m_allowLevel);
    const bool surfaceOnly = curve.GetSurfaceOnly();
    if (surfaceOnly) {
        if (m_allowToLevel) {
            if (movement ? z >= std::fabs(m_surfaceLevel - m_allowLevel + 0.001) : z > reach)
                return false;
        } else if (!(z < 0.001)) {
            return false;
        }
    }

    // A curve without data reaches nowhere; the checks before a run report it.
    if (curve.NumDataCoords() == 0)
        return false;
    // Never read a movement beyond the curve's end.
    if (!(wallDepth * curve.GetMaxDataX() >= distance))
        return false;

    if (surfaceOnly) {
        if (m_allowToLevel)
            return reach >= z;
        return z < 0.001;
    }
    // Each a scan of the data: only a curve with depth asks.
    return !(z > wallDepth * curve.GetMaxDataY() || z < wallDepth * curve.GetMinDataY());
}

double CExcavation::MovementAtDistance(const ZorvoData&, const CGMCurve& curve,
                                       const double& wallDepth, const double& distance,
                                       const double& depth) const {
    const double z = depth < 0.0 ? 0.0 : depth; // above the surface counts as at it
    if (!CurveReaches(curve, wallDepth, distance, z, true))
        return 0.0;
    double x = distance / wallDepth;
    const double y = z / wallDepth;

    // d / H can round above the last x although H * Xmax >= d held. The movement is then
    // the curve's last one, which a surface-only curve read by interpolation gives at
    // its last x: beyond it, it would give an x, not a movement. A polynomial is read
    // where it stands.
    if (curve.GetSurfaceOnly() && curve.GetInterpolationMethod() != CGMCurve::ePolynomial) {
        const double xMax = curve.GetMaxDataX();
        if (x > xMax)
            x = xMax;
    }

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
    if (!CurveReaches(curve, wallDepth, distance, z, false))
        return 0.0;
    const double x = distance / wallDepth;
    const double y = z / wallDepth;
    // The polynomial's slope whatever the curve's method.
    double result = curve.GradientWRTX(x, y) / 100.0;
    if (m_contribution == eNegative)
        result *= -1.0;
    return result;
}

} // namespace Tevra::Data
