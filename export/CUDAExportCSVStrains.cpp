#include "CUDAExportCSVStrains.h"

namespace Tevra::Data {

const std::array<CExportItemsCSV::SColumn<CUDAExportCSVStrains>, 22>&
CUDAExportCSVStrains::Columns() {
    static const std::array<SColumn<CUDAExportCSVStrains>, 22> columns = {{
        {L"Name", &CUDAExportCSVStrains::m_bName},
        {L"Polyline", &CUDAExportCSVStrains::m_bPolyline},
        {L"Location", &CUDAExportCSVStrains::m_bColumn3},
        {L"X", &CUDAExportCSVStrains::m_bColumn4},
        {L"Y", &CUDAExportCSVStrains::m_bY},
        {L"Z", &CUDAExportCSVStrains::m_bZ},
        {L"AxialUnfact", &CUDAExportCSVStrains::m_bAxialUnfact},
        {L"AxialFact", &CUDAExportCSVStrains::m_bAxialFact},
        {L"TensionUnfact", &CUDAExportCSVStrains::m_bTensionUnfact},
        {L"TensionFact", &CUDAExportCSVStrains::m_bTensionFact},
        {L"CompressionUnfact", &CUDAExportCSVStrains::m_bCompressionUnFact},
        {L"CompressionFact", &CUDAExportCSVStrains::m_bCompressionFact},
        {L"TotalTensionUnfact", &CUDAExportCSVStrains::m_bTotalTensionUnfact},
        {L"TotalTensionFact", &CUDAExportCSVStrains::m_bTotalTensionFact},
        {L"TotalTensionCheck", &CUDAExportCSVStrains::m_bTotalTensionCheck},
        {L"TotalCompressionUnfact", &CUDAExportCSVStrains::m_bTotalCompressionUnfact},
        {L"TotalCompressionFact", &CUDAExportCSVStrains::m_bTotalCompressionFact},
        {L"TotalCompressionCheck", &CUDAExportCSVStrains::m_bTotalCompressionCheck},
        {L"RAD", &CUDAExportCSVStrains::m_bRAD},
        {L"RADThreshCheck", &CUDAExportCSVStrains::m_bRADThreshCheck},
        {L"RADLimitCheck", &CUDAExportCSVStrains::m_bRADLimitCheck},
        {L"PeakFlexTensStrain", &CUDAExportCSVStrains::m_bPeakFlexTensStrain},
    }};
    return columns;
}

} // namespace Tevra::Data
