#include "CSpecificBuilding.h"

namespace Tevra::Data {

CSpecificBuilding::CSpecificBuilding() { Empty(); }

void CSpecificBuilding::Empty() {
    SetName(L"Building #");
    m_subBuildingName = L"Sub #";
    m_line = 1;
    m_lineStart = 0.0;
    m_lineEnd = 0.0;
    m_height = 10.0;
    m_buildingDamageResults.clear();
    m_combinedBuildingDamageResults.clear();
    m_verticalMovementResults.clear();
    m_horizontalMovementResults.clear();
    m_properties.Empty();
    m_show = true;
    m_label = false;
}

bool CSpecificBuilding::operator==(const CSpecificBuilding& o) const {
    return GetName() == o.GetName() && m_subBuildingName == o.m_subBuildingName &&
           m_line == o.m_line && m_lineStart == o.m_lineStart && m_lineEnd == o.m_lineEnd &&
           m_height == o.m_height && m_buildingDamageResults == o.m_buildingDamageResults &&
           m_combinedBuildingDamageResults == o.m_combinedBuildingDamageResults &&
           m_verticalMovementResults == o.m_verticalMovementResults &&
           m_horizontalMovementResults == o.m_horizontalMovementResults &&
           m_properties == o.m_properties && m_show == o.m_show && m_label == o.m_label;
}

} // namespace Tevra::Data
