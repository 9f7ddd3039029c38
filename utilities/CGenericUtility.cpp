#include "CGenericUtility.h"

namespace Tevra::Data {

CGenericUtility::CGenericUtility() : CUtility(L"Generic Utility #") {}

bool CGenericUtility::operator==(const CGenericUtility& o) const {
    return CUtility::operator==(o) && m_readVersion == o.m_readVersion &&
           m_polyline == o.m_polyline && m_length == o.m_length && m_interval == o.m_interval &&
           m_dispPoints == o.m_dispPoints;
}

} // namespace Tevra::Data
