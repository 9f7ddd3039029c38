#include "CSpecificUtility.h"

#include <algorithm>
#include <cmath>

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
           m_horizontalMovementResults == o.m_horizontalMovementResults;
}

bool CSpecificUtility::HorizontalMovementResultExists(int stage, int point) const {
    return point >= 1 && point <= NumHorizontalMovementResults(stage);
}

int CSpecificUtility::NumHorizontalMovementResults(int stage) const {
    return static_cast<int>(GetHorizontalMovementResults(stage).size());
}

const std::vector<GeoDispResult>& CSpecificUtility::GetHorizontalMovementResults(int stage) const {
    static const std::vector<GeoDispResult> none;
    if (stage < 0 || static_cast<size_t>(stage) >= m_horizontalMovementResults.size())
        return none;
    return m_horizontalMovementResults[static_cast<size_t>(stage)];
}

void CSpecificUtility::SetHorizontalMovementResult(int stage, int point,
                                                   const GeoDispResult& result) {
    if (stage < 0 || point < 1)
        return;
    if (m_horizontalMovementResults.size() <= static_cast<size_t>(stage))
        m_horizontalMovementResults.resize(static_cast<size_t>(stage) + 1);
    auto& points = m_horizontalMovementResults[static_cast<size_t>(stage)];
    if (points.size() < static_cast<size_t>(point))
        points.resize(static_cast<size_t>(point));
    points[static_cast<size_t>(point - 1)] = result;
}

void CSpecificUtility::DeleteHorizontalMovementResult(int stage, int point) {
    if (!HorizontalMovementResultExists(stage, point))
        return;
    auto& points = m_horizontalMovementResults[static_cast<size_t>(stage)];
    points.erase(points.begin() + (point - 1));
}

void CSpecificUtility::DeleteHorizontalMovementResults(int stage) {
    if (stage == -1)
        m_horizontalMovementResults.clear();
    else if (stage >= 0 && static_cast<size_t>(stage) < m_horizontalMovementResults.size())
        m_horizontalMovementResults[static_cast<size_t>(stage)].clear();
}

void CSpecificUtility::ResizeHorizontalMovementResults(int stages, int points) {
    m_horizontalMovementResults.assign(
        static_cast<size_t>(std::max(stages, 0)),
        std::vector<GeoDispResult>(static_cast<size_t>(std::max(points, 0))));
}

bool CSpecificUtility::HorizontalMovementResultsExist(int stage) const {
    if (stage != -1)
        return NumHorizontalMovementResults(stage) > 0;
    return std::any_of(m_horizontalMovementResults.begin(), m_horizontalMovementResults.end(),
                       [](const std::vector<GeoDispResult>& slot) { return !slot.empty(); });
}

} // namespace Tevra::Data
