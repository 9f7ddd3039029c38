#include "CSpecificBuilding.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

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

namespace {

// Two result stores hold the same results when they agree stage by stage, a stage (or an
// offset of a stage) that one store has not grown to counting as an empty one: the
// accessors answer alike for both, and a saved file keeps every store at one length.
template <class T> bool SameResults(const std::vector<T>& a, const std::vector<T>& b) {
    return a == b;
}

template <class T>
bool SameResults(const std::vector<std::vector<T>>& a, const std::vector<std::vector<T>>& b) {
    static const std::vector<T> none;
    for (size_t i = 0; i < std::max(a.size(), b.size()); ++i)
        if (!SameResults(i < a.size() ? a[i] : none, i < b.size() ? b[i] : none))
            return false;
    return true;
}

} // namespace

bool CSpecificBuilding::operator==(const CSpecificBuilding& o) const {
    return GetName() == o.GetName() && m_subBuildingName == o.m_subBuildingName &&
           m_line == o.m_line && m_lineStart == o.m_lineStart && m_lineEnd == o.m_lineEnd &&
           m_height == o.m_height &&
           SameResults(m_buildingDamageResults, o.m_buildingDamageResults) &&
           SameResults(m_combinedBuildingDamageResults, o.m_combinedBuildingDamageResults) &&
           SameResults(m_verticalMovementResults, o.m_verticalMovementResults) &&
           SameResults(m_horizontalMovementResults, o.m_horizontalMovementResults) &&
           m_properties == o.m_properties && m_show == o.m_show && m_label == o.m_label;
}

namespace {

template <class T> void GrowTo(std::vector<T>& v, size_t n) {
    if (v.size() < n)
        v.resize(n);
}

} // namespace

const std::vector<CBuildingDamageResult>* CSpecificBuilding::Segments(int stage, int offset) const {
    if (stage < 0 || offset < 0 || static_cast<size_t>(stage) >= m_buildingDamageResults.size())
        return nullptr;
    const auto& offsets = m_buildingDamageResults[static_cast<size_t>(stage)];
    if (static_cast<size_t>(offset) >= offsets.size())
        return nullptr;
    return &offsets[static_cast<size_t>(offset)];
}

int CSpecificBuilding::NumBuildingDamageResults(int stage, bool combined, int offset) const {
    const SegmentStore& store = Store(combined);
    if (offset < 0)
        return 0;
    int n = 0;
    for (size_t s = 0; s < store.size(); ++s) {
        if (stage != -1 && static_cast<int>(s) != stage)
            continue;
        if (static_cast<size_t>(offset) < store[s].size())
            n += static_cast<int>(store[s][static_cast<size_t>(offset)].size());
    }
    return n;
}

bool CSpecificBuilding::BuildingDamageResultsExist(int stage, bool combined) const {
    const SegmentStore& store = Store(combined);
    for (size_t s = 0; s < store.size(); ++s) {
        if (stage != -1 && static_cast<int>(s) != stage)
            continue;
        for (const auto& segments : store[s])
            if (!segments.empty())
                return true;
    }
    return false;
}

bool CSpecificBuilding::BuildingDamageResultExists(int stage, bool combined) const {
    for (int o = 0; o < m_properties.NumberOfVerticalOffsets(); ++o)
        if (NumBuildingDamageResults(stage, combined, o) > 0)
            return true;
    return false;
}

bool CSpecificBuilding::BuildingDamageResultExists(int stage, bool combined, int offset,
                                                   int segment) const {
    return segment >= 1 && segment <= NumBuildingDamageResults(stage, combined, offset);
}

const CBuildingDamageResult& CSpecificBuilding::GetBuildingDamageResult(int stage, bool combined,
                                                                        int offset,
                                                                        int segment) const {
    return Store(combined)[static_cast<size_t>(stage)][static_cast<size_t>(offset)]
                          [static_cast<size_t>(segment - 1)];
}

std::vector<CBuildingDamageResult>& CSpecificBuilding::GetBuildingDamageResults(int stage,
                                                                                bool combined,
                                                                                int offset) {
    SegmentStore& store = Store(combined);
    GrowTo(store, static_cast<size_t>(stage) + 1);
    auto& offsets = store[static_cast<size_t>(stage)];
    GrowTo(offsets, static_cast<size_t>(offset) + 1);
    return offsets[static_cast<size_t>(offset)];
}

void CSpecificBuilding::SetBuildingDamageResults(
    int stage, bool combined, const std::vector<std::vector<CBuildingDamageResult>>& results) {
    SegmentStore& store = Store(combined);
    GrowTo(store, static_cast<size_t>(stage) + 1);
    store[static_cast<size_t>(stage)] = results;
}

void CSpecificBuilding::SetBuildingDamageResults(int stage, bool combined, int offset,
                                                 const std::vector<CBuildingDamageResult>& results) {
    GetBuildingDamageResults(stage, combined, offset) = results;
}

void CSpecificBuilding::SetBuildingDamageResult(int stage, bool combined, int offset, int segment,
                                                const CBuildingDamageResult& result) {
    std::vector<CBuildingDamageResult>& segments = GetBuildingDamageResults(stage, combined, offset);
    if (segment >= 1 && static_cast<size_t>(segment) <= segments.size())
        segments[static_cast<size_t>(segment - 1)] = result;
    else
        segments.push_back(result);
}

void CSpecificBuilding::DeleteBuildingDamageResult(int stage, bool combined, int offset, int first,
                                                   int last) {
    SegmentStore& store = Store(combined);
    if (last == -1)
        last = first;
    if (last < first || first < 1 || stage < 0 || static_cast<size_t>(stage) >= store.size())
        return;
    auto& offsets = store[static_cast<size_t>(stage)];
    if (offset < 0 || static_cast<size_t>(offset) >= offsets.size())
        return;
    auto& segments = offsets[static_cast<size_t>(offset)];
    const size_t from = static_cast<size_t>(first - 1);
    const size_t to = std::min(static_cast<size_t>(last), segments.size());
    if (from < to)
        segments.erase(segments.begin() + static_cast<std::ptrdiff_t>(from),
                       segments.begin() + static_cast<std::ptrdiff_t>(to));
}

void CSpecificBuilding::DeleteBuildingDamageResults(int stage, bool combined) {
    SegmentStore& store = Store(combined);
    if (stage == -1)
        store.clear();
    else if (stage >= 0 && static_cast<size_t>(stage) < store.size())
        store[static_cast<size_t>(stage)].clear();
}

void CSpecificBuilding::DeleteBuildingDamageResults(int stage) {
    DeleteBuildingDamageResults(stage, false);
    DeleteBuildingDamageResults(stage, true);
}

void CSpecificBuilding::DeleteResults(int stage) {
    DeleteBuildingDamageResults(stage);
    DeleteMovementResults(stage);
}

template <class SegmentStoreT, class Visit>
bool CSpecificBuilding::AnyMatchingSegments(SegmentStoreT& store, int stage, int offset, Visit visit) {
    for (size_t s = 0; s < store.size(); ++s) {
        if (stage != -1 && static_cast<int>(s) != stage)
            continue;
        for (size_t o = 0; o < store[s].size(); ++o)
            if ((offset == -1 || static_cast<int>(o) == offset) && visit(store[s][o]))
                return true;
    }
    return false;
}

bool CSpecificBuilding::CombinedSegmentsExist(int stage, int offset) const {
    return AnyMatchingSegments(m_buildingDamageResults, stage, offset, [](const auto& segments) {
        // The first segment starts a run whatever its flag says.
        for (size_t k = 1; k < segments.size(); ++k)
            if (!segments[k].GetStartOfCombinedSegment())
                return true;
        return false;
    });
}

void CSpecificBuilding::SeparateCombinedSegments(int stage, int offset) {
    AnyMatchingSegments(m_buildingDamageResults, stage, offset, [](auto& segments) {
        for (CBuildingDamageResult& r : segments)
            r.SetStartOfCombinedSegment(true);
        return false;
    });
}

int CSpecificBuilding::GetMaxBuildingDamageCategory(int stage, bool combined) const {
    const SegmentStore& store = Store(combined);
    int category = 0;
    for (size_t s = 0; s < store.size(); ++s) {
        if (stage != -1 && static_cast<int>(s) != stage)
            continue;
        for (const auto& segments : store[s])
            for (const CBuildingDamageResult& r : segments)
                category = std::max(category, r.GetDamageCategory());
    }
    return category;
}

int CSpecificBuilding::GetMaxDamageCategory(int stage, int offset) const {
    int category = -1;
    if (const auto* segments = Segments(stage, offset))
        for (const CBuildingDamageResult& r : *segments)
            category = std::max(category, r.GetDamageCategory());
    return category;
}

template <class Field>
double CSpecificBuilding::MaxBySize(int stage, int offset, Field field) const {
    double value = 0.0;
    if (const auto* segments = Segments(stage, offset))
        for (const CBuildingDamageResult& r : *segments) {
            const double v = field(r);
            if (std::fabs(v) >= std::fabs(value))
                value = v;
        }
    return value;
}

double CSpecificBuilding::GetMaxDeflnRatio(int stage, int offset) const {
    return MaxBySize(stage, offset, [](const auto& r) { return r.GetDeflectionRatio(); });
}
double CSpecificBuilding::GetMaxHorizStrain(int stage, int offset) const {
    return MaxBySize(stage, offset, [](const auto& r) { return r.GetHStrain(); });
}
double CSpecificBuilding::GetMaxSlope(int stage, int offset) const {
    return MaxBySize(stage, offset, [](const auto& r) { return r.GetMaxGradientOfVDispCurve(); });
}
double CSpecificBuilding::GetMaxSettlement(int stage, int offset) const {
    return MaxBySize(stage, offset, [](const auto& r) { return r.GetMaxSettlement(); });
}
double CSpecificBuilding::GetMaxTensileStrain(int stage, int offset) const {
    return MaxBySize(stage, offset, [](const auto& r) { return r.GetMaxTensileStrain(); });
}
double CSpecificBuilding::GetMaxGradientOfHDispCurve(int stage, int offset) const {
    return MaxBySize(stage, offset, [](const auto& r) { return r.GetMaxGradientOfHDispCurve(); });
}

double CSpecificBuilding::GetMaxCurvature(int stage, int offset,
                                          GeoGlobal::ECurvature curvature) const {
    double largest = 0.0;
    if (const auto* segments = Segments(stage, offset))
        for (const CBuildingDamageResult& r : *segments)
            if (r.GetCurvature() == curvature)
                largest = std::max(largest, std::fabs(r.GetMaxCurvature()));
    return largest;
}

bool CSpecificBuilding::GetMaxGradientOfHDispCurveSet(int stage, int offset) const {
    if (const auto* segments = Segments(stage, offset))
        for (const CBuildingDamageResult& r : *segments)
            if (r.GetMaxGradientOfHDispCurveSet())
                return true;
    return false;
}

bool CSpecificBuilding::GetMaxGradientOfVDispCurveSet(int stage, int offset) const {
    if (const auto* segments = Segments(stage, offset))
        for (const CBuildingDamageResult& r : *segments)
            if (r.GetMaxGradientOfVDispCurveSet())
                return true;
    return false;
}

void CSpecificBuilding::ResizeVerticalMovementResults(int stages, int points) {
    m_verticalMovementResults.assign(
        static_cast<size_t>(std::max(stages, 0)),
        std::vector<std::vector<GeoDispResult>>(
            static_cast<size_t>(m_properties.NumberOfVerticalOffsets()),
            std::vector<GeoDispResult>(static_cast<size_t>(std::max(points, 0)))));
}

void CSpecificBuilding::ResizeHorizontalMovementResults(int stages, int points) {
    m_horizontalMovementResults.assign(
        static_cast<size_t>(std::max(stages, 0)),
        std::vector<GeoDispResult>(static_cast<size_t>(std::max(points, 0))));
}

void CSpecificBuilding::SetVerticalMovementResult(int stage, int offset, int point,
                                                  const GeoDispResult& result) {
    GrowTo(m_verticalMovementResults, static_cast<size_t>(stage) + 1);
    auto& offsets = m_verticalMovementResults[static_cast<size_t>(stage)];
    GrowTo(offsets, static_cast<size_t>(offset) + 1);
    auto& points = offsets[static_cast<size_t>(offset)];
    GrowTo(points, static_cast<size_t>(point));
    points[static_cast<size_t>(point - 1)] = result;
}

void CSpecificBuilding::SetHorizontalMovementResult(int stage, int point,
                                                    const GeoDispResult& result) {
    GrowTo(m_horizontalMovementResults, static_cast<size_t>(stage) + 1);
    auto& points = m_horizontalMovementResults[static_cast<size_t>(stage)];
    GrowTo(points, static_cast<size_t>(point));
    points[static_cast<size_t>(point - 1)] = result;
}

const std::vector<GeoDispResult>& CSpecificBuilding::GetVerticalMovementResults(int stage,
                                                                               int offset) const {
    static const std::vector<GeoDispResult> none;
    if (stage < 0 || offset < 0 || static_cast<size_t>(stage) >= m_verticalMovementResults.size())
        return none;
    const auto& offsets = m_verticalMovementResults[static_cast<size_t>(stage)];
    return static_cast<size_t>(offset) < offsets.size() ? offsets[static_cast<size_t>(offset)]
                                                        : none;
}

const std::vector<GeoDispResult>& CSpecificBuilding::GetHorizontalMovementResults(int stage) const {
    static const std::vector<GeoDispResult> none;
    if (stage < 0 || static_cast<size_t>(stage) >= m_horizontalMovementResults.size())
        return none;
    return m_horizontalMovementResults[static_cast<size_t>(stage)];
}

void CSpecificBuilding::DeleteMovementResults(int stage) {
    if (stage == -1) {
        m_verticalMovementResults.clear();
        m_horizontalMovementResults.clear();
        return;
    }
    if (stage >= 0 && static_cast<size_t>(stage) < m_verticalMovementResults.size())
        m_verticalMovementResults[static_cast<size_t>(stage)].clear();
    if (stage >= 0 && static_cast<size_t>(stage) < m_horizontalMovementResults.size())
        m_horizontalMovementResults[static_cast<size_t>(stage)].clear();
}

} // namespace Tevra::Data
