#include "CBDAExportItems.h"

namespace Tevra::Data {

const std::array<CExportItemsCSV::SColumn<CBDAExportItems>, 15>& CBDAExportItems::Columns() {
    static const std::array<SColumn<CBDAExportItems>, 15> columns = {{
        {L"Name", &CBDAExportItems::m_bName},
        {L"Polyline", &CBDAExportItems::m_bPolyline},
        {L"L/H", &CBDAExportItems::m_bColumn4},
        {L"Vertical Offset", &CBDAExportItems::m_bColumn3},
        {L"Segment", &CBDAExportItems::m_bSegment},
        {L"SegmentStart", &CBDAExportItems::m_bSegmentStart},
        {L"SegmentLength", &CBDAExportItems::m_bSegmentLength},
        {L"Curvature", &CBDAExportItems::m_bCurvature},
        {L"Deflection Ratio", &CBDAExportItems::m_bDeflectionRatio},
        {L"Avg Horiz Strain", &CBDAExportItems::m_bAvgHorzStrain},
        {L"Max Tensile Strain", &CBDAExportItems::m_bMaxTensileStrain},
        {L"Max Grad Horiz Disp Curve", &CBDAExportItems::m_bGradHorzDispCurve},
        {L"Max Grad Vert Disp Curve", &CBDAExportItems::m_bGradVertDispCurve},
        {L"Min Rad Curv", &CBDAExportItems::m_bMinRadCurv},
        {L"Damage Cat", &CBDAExportItems::m_bDamageCat},
    }};
    return columns;
}

} // namespace Tevra::Data
