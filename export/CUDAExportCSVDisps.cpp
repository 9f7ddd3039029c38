#include "CUDAExportCSVDisps.h"

namespace Tevra::Data {

const std::array<CExportItemsCSV::SColumn<CUDAExportCSVDisps>, 22>& CUDAExportCSVDisps::Columns() {
    static const std::array<SColumn<CUDAExportCSVDisps>, 22> columns = {{
        {L"Name", &CUDAExportCSVDisps::m_bName},
        {L"Polyline", &CUDAExportCSVDisps::m_bPolyline},
        {L"IterationNo", &CUDAExportCSVDisps::m_bColumn3},
        {L"Location", &CUDAExportCSVDisps::m_bColumn4},
        {L"X", &CUDAExportCSVDisps::m_bX},
        {L"Y", &CUDAExportCSVDisps::m_bY},
        {L"Z", &CUDAExportCSVDisps::m_bZ},
        {L"DispXN", &CUDAExportCSVDisps::m_bDispXN},
        {L"DispYN", &CUDAExportCSVDisps::m_bDispYN},
        {L"DispZN", &CUDAExportCSVDisps::m_bDispZN},
        {L"DispHorizN", &CUDAExportCSVDisps::m_bDispHorizN},
        {L"DispPerpN", &CUDAExportCSVDisps::m_bDispPerpN},
        {L"DispXNminus", &CUDAExportCSVDisps::m_bDispXNminus},
        {L"DispYNminus", &CUDAExportCSVDisps::m_bDispYNminus},
        {L"DispZNminus", &CUDAExportCSVDisps::m_bDispZNminus},
        {L"DispHorizNminus", &CUDAExportCSVDisps::m_bDispHorizNminus},
        {L"DispPerpNminus", &CUDAExportCSVDisps::m_bDispPerpNminus},
        {L"DispXNplus", &CUDAExportCSVDisps::m_bDispXNplus},
        {L"DispYNplus", &CUDAExportCSVDisps::m_bDispYNplus},
        {L"DispZNplus", &CUDAExportCSVDisps::m_bDispZNplus},
        {L"DispHorizNplus", &CUDAExportCSVDisps::m_bDispHorizNplus},
        {L"DispPerpNplus", &CUDAExportCSVDisps::m_bDispPerpNplus},
    }};
    return columns;
}

} // namespace Tevra::Data
