#include "CUtilityStrain.h"

#include "utilities/CAcceptanceCriteria.h"

#include <cmath>

namespace Tevra::Data {

namespace {

bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

double AxialFactor(double strain, const CAcceptanceCriteria& c) {
    return strain < 0.0 ? c.GetAxialStrainRF_Compression() : c.GetAxialStrainRF_Tension();
}

double BendingFactor(const CAcceptanceCriteria& c, bool tension) {
    return tension ? c.GetBendingFactorTension() : c.GetBendingFactorCompression();
}

} // namespace

double CUtilityStrain::GetAxialStrain_Factored(const CAcceptanceCriteria& criteria) const {
    return m_axialStrain * AxialFactor(m_axialStrain, criteria);
}

double CUtilityStrain::GetAxialStrainInMicro_Factored(const CAcceptanceCriteria& criteria) const {
    const double micro = GetAxialStrainInMicro();
    return micro * AxialFactor(micro, criteria);
}

double CUtilityStrain::GetFlexuralStrain_Factored(const CAcceptanceCriteria& criteria,
                                                  bool tension) const {
    return m_flexuralStrain * BendingFactor(criteria, tension);
}

double CUtilityStrain::GetFlexuralStrainInMicro_Factored(const CAcceptanceCriteria& criteria,
                                                         bool tension) const {
    return GetFlexuralStrainInMicro() * BendingFactor(criteria, tension);
}

double CUtilityStrain::GetTotalTensileStrainInMicro(const CAcceptanceCriteria& criteria,
                                                    bool neglect, bool factored) const {
    const double A = factored ? GetAxialStrainInMicro_Factored(criteria) : GetAxialStrainInMicro();
    const double B =
        factored ? GetFlexuralStrainInMicro_Factored(criteria, true) : GetFlexuralStrainInMicro();
    if (A > 0.0)
        return B + A;
    return neglect ? B : B + A;
}

double CUtilityStrain::GetTotalCompressiveStrainInMicro(const CAcceptanceCriteria& criteria,
                                                        bool neglect, bool factored) const {
    const double A = factored ? GetAxialStrainInMicro_Factored(criteria) : GetAxialStrainInMicro();
    const double B =
        factored ? GetFlexuralStrainInMicro_Factored(criteria, false) : GetFlexuralStrainInMicro();
    if (!(A > 0.0))
        return A - B;
    return neglect ? -B : A - B;
}

double CUtilityStrain::GetResult(UtilityGlobal::EStrainType type,
                                 const CAcceptanceCriteria& criteria, bool neglect) const {
    using namespace UtilityGlobal;
    switch (type) {
    case eAxialStrain:
        return m_axialStrain;
    case eAxialStrainFactored:
        return GetAxialStrain_Factored(criteria);
    case eFlexuralStrain:
        return m_flexuralStrain;
    case eFlexuralStrainFactored:
        // The one flag this operation has picks the side: set, the tensile bending factor.
        return GetFlexuralStrain_Factored(criteria, neglect);
    case eTotalTensileStrain:
        return GetTotalTensileStrainInMicro(criteria, neglect, false);
    case eTotalTensileStrainFactored:
        return GetTotalTensileStrainInMicro(criteria, neglect, true);
    case eTotalCompressiveStrain:
        return GetTotalCompressiveStrainInMicro(criteria, neglect, false);
    case eTotalCompressiveStrainFactored:
        return GetTotalCompressiveStrainInMicro(criteria, neglect, true);
    case eRadiusOfCurvatureResult:
        return m_radiusofCurvature;
    }
    return 0.0;
}

bool CUtilityStrain::operator==(const CUtilityStrain& o) const {
    return Same(m_location, o.m_location) && Same(m_axialStrain, o.m_axialStrain) &&
           Same(m_flexuralStrain, o.m_flexuralStrain) &&
           m_isOrientationAngle == o.m_isOrientationAngle &&
           Same(m_orientationAngle, o.m_orientationAngle) && m_readVersion == o.m_readVersion &&
           m_isRadiusofCurvature == o.m_isRadiusofCurvature &&
           Same(m_radiusofCurvature, o.m_radiusofCurvature);
}

} // namespace Tevra::Data
