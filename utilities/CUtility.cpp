#include "CUtility.h"

namespace Tevra::Data {

const wchar_t* const CUtility::UTILITY_TYPE_STRINGS[2] = {L"Jointed", L"Continuous"};

CUtility::CUtility(const CString& name) : NamedEntity(0, name) { DefaultValues(); }

UtilityGlobal::EUtilityType CUtility::GetUtilityTypeFromCStr(const CString& text) {
    return text == CString(UTILITY_TYPE_STRINGS[UtilityGlobal::eJointed])
               ? UtilityGlobal::eJointed
               : UtilityGlobal::eContinuous;
}

void CUtility::DefaultValues() {
    m_dimension = 1;
    m_criteria = 1;
    m_pipeLength = 3.0;
    m_utilityType = UtilityGlobal::eJointed;
}

bool CUtility::operator==(const CUtility& o) const {
    return GetName() == o.GetName() && m_dimension == o.m_dimension && m_criteria == o.m_criteria &&
           m_pipeLength == o.m_pipeLength && m_utilityType == o.m_utilityType &&
           m_show == o.m_show && m_label == o.m_label && m_leverArm == o.m_leverArm;
}

} // namespace Tevra::Data
