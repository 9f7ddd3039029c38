#include "CUtilityDimension.h"

namespace Tevra::Data {

CUtilityDimension::CUtilityDimension(bool editable)
    : NamedEntity(0, L"Utility Dimension #"), m_editable(editable) {}

bool CUtilityDimension::operator==(const CUtilityDimension& o) const {
    return GetName() == o.GetName() && m_editable == o.m_editable &&
           m_internalDiameter == o.m_internalDiameter && m_wallThickness == o.m_wallThickness;
}

} // namespace Tevra::Data
