#include "CPulloutAndRotation.h"

#include "utilities/CAcceptanceCriteria.h"

#include <cmath>

namespace Tevra::Data {

namespace {

constexpr double kPi = 3.14159265358979323846;

bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

} // namespace

void CPulloutAndRotation::Empty() {
    m_pulloutAxialLeft = 0.0;
    m_pulloutAxialRight = 0.0;
    m_pulloutFlexural = 0.0;
    m_rotation = 0.0;
    m_verticalCurvature = GeoGlobal::eNoCurvature;
}

double CPulloutAndRotation::GetRotation_Factored(const CAcceptanceCriteria& criteria) const {
    return criteria.GetRotationFactor() * m_rotation;
}

double CPulloutAndRotation::GetPulloutTotal() const {
    const double a = m_pulloutAxialRight - m_pulloutAxialLeft;
    const double f = 2.0 * m_pulloutFlexural;
    return a < 0.0 ? f : a + f;
}

double CPulloutAndRotation::GetPulloutTotal_Factored(const CAcceptanceCriteria& criteria) const {
    const double a = m_pulloutAxialRight - m_pulloutAxialLeft;
    const double F = 2.0 * m_pulloutFlexural * criteria.GetPulloutRF_Flexural();
    return a < 0.0 ? F : a * criteria.GetPulloutRF_Axial() + F;
}

double CPulloutAndRotation::GetResult(UtilityGlobal::EUDResultType type,
                                      const CAcceptanceCriteria& criteria) const {
    using namespace UtilityGlobal;
    switch (type) {
    case ePulloutAxialLeft:
        return m_pulloutAxialLeft;
    case ePulloutAxialRight:
        return m_pulloutAxialRight;
    case ePulloutAxialTotal:
        return m_pulloutAxialRight - m_pulloutAxialLeft;
    case ePulloutFlexural:
        return m_pulloutFlexural;
    case ePulloutFlexuralTotal:
        return 2.0 * m_pulloutFlexural;
    case ePulloutTotal:
        return GetPulloutTotal();
    case ePulloutTotalFactored:
        return GetPulloutTotal_Factored(criteria);
    case eRotationDegrees:
        return m_rotation * 180.0 / kPi;
    case eRotationDegreesFactored:
        return criteria.GetRotationFactor() * m_rotation * 180.0 / kPi;
    case ePulloutAxialLeftAgain:
        // The last type reads the left pullout once more; it is kept so deliberately.
        return m_pulloutAxialLeft;
    }
    return 0.0;
}

bool CPulloutAndRotation::operator==(const CPulloutAndRotation& o) const {
    return Same(m_pulloutAxialLeft, o.m_pulloutAxialLeft) &&
           Same(m_pulloutAxialRight, o.m_pulloutAxialRight) &&
           Same(m_pulloutFlexural, o.m_pulloutFlexural) && Same(m_rotation, o.m_rotation) &&
           m_verticalCurvature == o.m_verticalCurvature && m_readVersion == o.m_readVersion &&
           m_locationInfo == o.m_locationInfo;
}

} // namespace Tevra::Data
