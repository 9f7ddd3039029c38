#include "CUDAExportCSVPR.h"

namespace Tevra::Data {

const std::array<CExportItemsCSV::SColumn<CUDAExportCSVPR>, 28>& CUDAExportCSVPR::Columns() {
    static const std::array<SColumn<CUDAExportCSVPR>, 28> columns = {{
        {L"Name", &CUDAExportCSVPR::m_bName},
        {L"Polyline", &CUDAExportCSVPR::m_bPolyline},
        {L"IterationNo", &CUDAExportCSVPR::m_bColumn3},
        {L"Location", &CUDAExportCSVPR::m_bColumn4},
        {L"X", &CUDAExportCSVPR::m_bX},
        {L"Y", &CUDAExportCSVPR::m_bY},
        {L"Z", &CUDAExportCSVPR::m_bZ},
        {L"AxialUnfactLeft", &CUDAExportCSVPR::m_bAxialUnfactLeft},
        {L"AxialFactLeft", &CUDAExportCSVPR::m_bAxialFactLeft},
        {L"FlexuralUnfactLeft", &CUDAExportCSVPR::m_bFlexuralUnfactLeft},
        {L"FlexuralFactLeft", &CUDAExportCSVPR::m_bFlexuralFactLeft},
        {L"AxialUnfactRight", &CUDAExportCSVPR::m_bAxialUnfactRight},
        {L"AxialFactRight", &CUDAExportCSVPR::m_bAxialFactRight},
        {L"FlexuralUnfactRight", &CUDAExportCSVPR::m_bFlexuralUnfactRight},
        {L"FlexuralFactRight", &CUDAExportCSVPR::m_bFlexuralFactRight},
        {L"AxialUnfact", &CUDAExportCSVPR::m_bAxialUnfact},
        {L"AxialFact", &CUDAExportCSVPR::m_bAxialFact},
        {L"FlexuralUnfact", &CUDAExportCSVPR::m_bFlexuralUnfact},
        {L"FlexuralFact", &CUDAExportCSVPR::m_bFlexuralFact},
        {L"TotalUnfact", &CUDAExportCSVPR::m_bTotalUnfact},
        {L"TotalFact", &CUDAExportCSVPR::m_bTotalFact},
        {L"POThresholdCheck", &CUDAExportCSVPR::m_bPOThreshCheck},
        {L"POLimitCheck", &CUDAExportCSVPR::m_bPOLimitCheck},
        {L"RotationUnfact", &CUDAExportCSVPR::m_bRotationUnfact},
        {L"RotationFact", &CUDAExportCSVPR::m_bRotationFact},
        {L"RotationThresh", &CUDAExportCSVPR::m_bRotationThresh},
        {L"RotationLimit", &CUDAExportCSVPR::m_bRotationLimit},
        {L"VerticalSagHog", &CUDAExportCSVPR::m_bVerticalSagHog},
    }};
    return columns;
}

} // namespace Tevra::Data
