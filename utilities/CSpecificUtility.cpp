#include "CSpecificUtility.h"

#include "utilities/CAcceptanceCriteria.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tevra::Data {

const wchar_t* const CSpecificUtility::DISPLACEMENT_DATA_TYPE_STRINGS[2] = {
    L"Displacement Line", L"Displacement Polyline"};

CSpecificUtility::CSpecificUtility()
    : CUtility(L"Specific Utility #"), m_subUtilityName(L"Sub #") {}

int CSpecificUtility::GetNumberOfJoints() const {
    return static_cast<int>(std::ceil((m_lineEnd - m_lineStart) / GetPipeLength())) - 1;
}

bool CSpecificUtility::operator==(const CSpecificUtility& o) const {
    return CUtility::operator==(o) && m_subUtilityName == o.m_subUtilityName &&
           m_line == o.m_line && m_displacementPolyline == o.m_displacementPolyline &&
           m_lineStart == o.m_lineStart && m_lineEnd == o.m_lineEnd && m_dataType == o.m_dataType &&
           m_readVersion == o.m_readVersion &&
           m_polySegContinuousPullouts == o.m_polySegContinuousPullouts &&
           m_polySegContinuousStrains == o.m_polySegContinuousStrains &&
           m_results == o.m_results;
}

} // namespace Tevra::Data
