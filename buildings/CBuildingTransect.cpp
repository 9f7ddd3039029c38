#include "CBuildingTransect.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tevra::Data {

namespace {

// Two levels closer than this (metres) make a transect horizontal.
constexpr double kLevelTolerance = 0.0001;

bool SameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

const std::vector<GeoDispResult>& NoSamples() {
    static const std::vector<GeoDispResult> none;
    return none;
}

const std::vector<CBuildingDamageResult>& NoSegments() {
    static const std::vector<CBuildingDamageResult> none;
    return none;
}

template <class V> V& Grow(std::vector<V>& v, int index) {
    if (static_cast<size_t>(index) >= v.size())
        v.resize(static_cast<size_t>(index) + 1);
    return v[static_cast<size_t>(index)];
}

// Calls visit on each (offset, L/H) list of the stages that match (-1: all) until it
// answers true; answers whether it did.
template <class Store, class Visit> bool AnyList(Store& store, int stage, int offset, Visit visit) {
    for (size_t s = 0; s < store.size(); ++s) {
        if (stage != -1 && static_cast<size_t>(stage) != s)
            continue;
        for (size_t o = 0; o < store[s].size(); ++o) {
            if (offset != -1 && static_cast<size_t>(offset) != o)
                continue;
            for (auto& list : store[s][o])
                if (visit(list))
                    return true;
        }
    }
    return false;
}

} // namespace

void CBuildingTransect::MoveBy(int stage, int k, const Vec3<double>& v) {
    GeoDispResult& r = m_horizontalMovementResults[static_cast<size_t>(stage)][static_cast<size_t>(k)];
    const Vec3<double> p = r.GetPoint() + v;
    r.SetXpoint(p.x);
    r.SetYpoint(p.y);
    r.SetZpoint(p.z);
}

void CBuildingTransect::MoveAllBy(const Vec3<double>& v) {
    auto move = [&v](GeoDispResult& r) {
        const Vec3<double> p = r.GetPoint() + v;
        r.SetXpoint(p.x);
        r.SetYpoint(p.y);
        r.SetZpoint(p.z);
    };
    for (auto& stage : m_horizontalMovementResults)
        for (GeoDispResult& r : stage)
            move(r);
    for (auto& stage : m_verticalMovementResults)
        for (auto& offset : stage)
            for (GeoDispResult& r : offset)
                move(r);
}

bool CBuildingTransect::IsHorizontal(int stage) const {
    const int m = NumberOfPoints(stage);
    return m == 1 || (m > 1 && std::fabs(GetZ(stage, 1) - GetZ(stage, m)) < kLevelTolerance);
}

double CBuildingTransect::GetLength(int stage) const {
    const int m = NumberOfPoints(stage);
    return m < 2 ? 0.0 : (GetPoint(stage, m) - GetPoint(stage, 1)).Length();
}

double CBuildingTransect::GetTransectPlanLength(int stage) const {
    const int m = NumberOfPoints(stage);
    if (m < 2)
        return 0.0;
    const double dx = GetX(stage, m) - GetX(stage, 1);
    const double dy = GetY(stage, m) - GetY(stage, 1);
    return std::sqrt(dx * dx + dy * dy);
}

void CBuildingTransect::AddResult(int stage, const GeoDispResult& result) {
    Grow(m_horizontalMovementResults, stage).push_back(result);
}

void CBuildingTransect::SetVerticalMovementResult(int stage, int offset, int point,
                                                  const GeoDispResult& result) {
    Grow(Grow(Grow(m_verticalMovementResults, stage), offset), point - 1) = result;
}

void CBuildingTransect::SetHorizontalMovementResult(int stage, int point,
                                                    const GeoDispResult& result) {
    Grow(Grow(m_horizontalMovementResults, stage), point - 1) = result;
}

const std::vector<GeoDispResult>& CBuildingTransect::GetVerticalMovementResults(int stage,
                                                                                int offset) const {
    if (stage < 0 || static_cast<size_t>(stage) >= m_verticalMovementResults.size())
        return NoSamples();
    const auto& offsets = m_verticalMovementResults[static_cast<size_t>(stage)];
    if (offset < 0 || static_cast<size_t>(offset) >= offsets.size())
        return NoSamples();
    return offsets[static_cast<size_t>(offset)];
}

const std::vector<GeoDispResult>& CBuildingTransect::GetHorizontalMovementResults(int stage) const {
    if (stage < 0 || static_cast<size_t>(stage) >= m_horizontalMovementResults.size())
        return NoSamples();
    return m_horizontalMovementResults[static_cast<size_t>(stage)];
}

double CBuildingTransect::GetMaxDisplacementVertical(int stage, int offset) const {
    double peak = std::numeric_limits<double>::lowest();
    for (const GeoDispResult& r : GetVerticalMovementResults(stage, offset))
        peak = std::max(peak, r.GetZdisplacement());
    return peak;
}

double CBuildingTransect::GetMinDisplacementVertical(int stage, int offset) const {
    double peak = std::numeric_limits<double>::max();
    for (const GeoDispResult& r : GetVerticalMovementResults(stage, offset))
        peak = std::min(peak, r.GetZdisplacement());
    return peak;
}

const std::vector<CBuildingDamageResult>*
CBuildingTransect::Segments(int stage, bool combined, int offset, int lh) const {
    const SegmentStore& store = Store(combined);
    if (stage < 0 || offset < 0 || lh < 0 || static_cast<size_t>(stage) >= store.size())
        return nullptr;
    const auto& offsets = store[static_cast<size_t>(stage)];
    if (static_cast<size_t>(offset) >= offsets.size())
        return nullptr;
    const auto& lists = offsets[static_cast<size_t>(offset)];
    if (static_cast<size_t>(lh) >= lists.size())
        return nullptr;
    return &lists[static_cast<size_t>(lh)];
}

std::vector<CBuildingDamageResult>& CBuildingTransect::GrowTo(int stage, bool combined, int offset,
                                                             int lh) {
    return Grow(Grow(Grow(Store(combined), stage), offset), lh);
}

int CBuildingTransect::NumBuildingDamageResults(int stage, bool combined, int offset,
                                                int lh) const {
    const auto* list = Segments(stage, combined, offset, lh);
    return list ? static_cast<int>(list->size()) : 0;
}

int CBuildingTransect::NumBuildingDamageResults(int stage, bool combined, int offset) const {
    int sum = 0;
    AnyList(Store(combined), stage, offset, [&sum](const auto& list) {
        sum += static_cast<int>(list.size());
        return false;
    });
    return sum;
}

bool CBuildingTransect::BuildingDamageResultExists(int stage, bool combined, int offset, int lh,
                                                   int segment) const {
    return segment >= 1 && segment <= NumBuildingDamageResults(stage, combined, offset, lh);
}

bool CBuildingTransect::BuildingDamageResultExists(int stage, bool combined, int offset,
                                                   int lh) const {
    return NumBuildingDamageResults(stage, combined, offset, lh) > 0;
}

bool CBuildingTransect::BuildingDamageResultsExist(int stage, bool combined) const {
    return AnyList(Store(combined), stage, -1, [](const auto& list) { return !list.empty(); });
}

const CBuildingDamageResult& CBuildingTransect::GetBuildingDamageResult(int stage, bool combined,
                                                                        int offset, int lh,
                                                                        int segment) const {
    return Store(combined)[static_cast<size_t>(stage)][static_cast<size_t>(offset)]
                          [static_cast<size_t>(lh)][static_cast<size_t>(segment - 1)];
}

const std::vector<CBuildingDamageResult>&
CBuildingTransect::GetBuildingDamageResults(int stage, bool combined, int offset, int lh) const {
    const auto* list = Segments(stage, combined, offset, lh);
    return list ? *list : NoSegments();
}

void CBuildingTransect::SetBuildingDamageResults(int stage, bool combined, int offset, int lh,
                                                 const std::vector<CBuildingDamageResult>& results) {
    GrowTo(stage, combined, offset, lh) = results;
}

void CBuildingTransect::SetBuildingDamageResult(int stage, bool combined, int offset, int lh,
                                                int segment, const CBuildingDamageResult& result) {
    auto& list = GrowTo(stage, combined, offset, lh);
    if (segment == static_cast<int>(list.size()) + 1)
        list.push_back(result);
    else
        list[static_cast<size_t>(segment - 1)] = result;
}

void CBuildingTransect::DeleteBuildingDamageResult(int stage, bool combined, int offset, int lh,
                                                   int first, int last) {
    if (!Segments(stage, combined, offset, lh))
        return;
    auto& list = GrowTo(stage, combined, offset, lh);
    if (last == -1)
        last = first;
    if (last < first || first < 1 || first > static_cast<int>(list.size()))
        return;
    last = std::min(last, static_cast<int>(list.size()));
    list.erase(list.begin() + (first - 1), list.begin() + last);
}

void CBuildingTransect::DeleteBuildingDamageResults(int stage, bool combined) {
    AnyList(Store(combined), stage, -1, [](auto& list) {
        list.clear();
        return false;
    });
}

bool CBuildingTransect::AnyBuildingDamageResultExistsForAnOffset(int stage, bool combined,
                                                                 int offset, int lh) const {
    return BuildingDamageResultExists(stage, combined, offset, lh);
}

void CBuildingTransect::DeleteBuildingDamageResultsForAnOffset(int stage, bool combined,
                                                               int offset) {
    AnyList(Store(combined), stage, offset, [](auto& list) {
        list.clear();
        return false;
    });
}

bool CBuildingTransect::CombinedSegmentsExist(int stage, int offset) const {
    return AnyList(m_buildingDamageResults, stage, offset, [](const auto& segments) {
        // The first segment starts a run whatever its flag says.
        for (size_t k = 1; k < segments.size(); ++k)
            if (!segments[k].GetStartOfCombinedSegment())
                return true;
        return false;
    });
}

double CBuildingTransect::GetMaximumTensileStrain(int stage, bool combined, int offset,
                                                  int lh) const {
    const auto& list = GetBuildingDamageResults(stage, combined, offset, lh);
    double peak = list.front().GetMaxTensileStrain();
    for (const CBuildingDamageResult& r : list)
        if (r.GetMaxTensileStrain() > peak)
            peak = r.GetMaxTensileStrain();
    return peak;
}

int CBuildingTransect::GetMaxBuildingDamageCategory(int stage, bool combined) const {
    int worst = 0;
    AnyList(Store(combined), stage, -1, [&worst](const auto& list) {
        for (const CBuildingDamageResult& r : list)
            worst = std::max(worst, r.GetDamageCategory());
        return false;
    });
    return worst;
}

bool CBuildingTransect::operator==(const CBuildingTransect& o) const {
    return m_name == o.m_name && m_verticalMovementResults == o.m_verticalMovementResults &&
           m_horizontalMovementResults == o.m_horizontalMovementResults &&
           m_buildingDamageResults == o.m_buildingDamageResults &&
           m_combinedBuildingDamageResults == o.m_combinedBuildingDamageResults &&
           SameNumber(m_polylineIntersection.x, o.m_polylineIntersection.x) &&
           SameNumber(m_polylineIntersection.y, o.m_polylineIntersection.y) &&
           SameNumber(m_polylineIntersection.z, o.m_polylineIntersection.z);
}

} // namespace Tevra::Data
