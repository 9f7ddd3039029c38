#include "CUtilityResults.h"

#include "utilities/CAcceptanceCriteria.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tevra::Data {

bool CUtilityResults::HorizontalMovementResultExists(int stage, int point) const {
    return point >= 1 && point <= NumHorizontalMovementResults(stage);
}

int CUtilityResults::NumHorizontalMovementResults(int stage) const {
    return static_cast<int>(GetHorizontalMovementResults(stage).size());
}

const std::vector<GeoDispResult>& CUtilityResults::GetHorizontalMovementResults(int stage) const {
    static const std::vector<GeoDispResult> none;
    if (stage < 0 || static_cast<size_t>(stage) >= m_horizontalMovementResults.size())
        return none;
    return m_horizontalMovementResults[static_cast<size_t>(stage)];
}

void CUtilityResults::SetHorizontalMovementResult(int stage, int point,
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

void CUtilityResults::AddHorizontalMovementResult(int stage, const GeoDispResult& result) {
    if (stage < 0)
        return;
    if (m_horizontalMovementResults.size() <= static_cast<size_t>(stage))
        m_horizontalMovementResults.resize(static_cast<size_t>(stage) + 1);
    m_horizontalMovementResults[static_cast<size_t>(stage)].push_back(result);
}

void CUtilityResults::DeleteHorizontalMovementResult(int stage, int point) {
    if (!HorizontalMovementResultExists(stage, point))
        return;
    auto& points = m_horizontalMovementResults[static_cast<size_t>(stage)];
    points.erase(points.begin() + (point - 1));
}

void CUtilityResults::DeleteHorizontalMovementResults(int stage) {
    if (stage == -1)
        m_horizontalMovementResults.clear();
    else if (stage >= 0 && static_cast<size_t>(stage) < m_horizontalMovementResults.size())
        m_horizontalMovementResults[static_cast<size_t>(stage)].clear();
}

void CUtilityResults::ResizeHorizontalMovementResults(int stages, int points) {
    m_horizontalMovementResults.assign(
        static_cast<size_t>(std::max(stages, 0)),
        std::vector<GeoDispResult>(static_cast<size_t>(std::max(points, 0))));
}

bool CUtilityResults::HorizontalMovementResultsExist(int stage) const {
    if (stage != -1)
        return NumHorizontalMovementResults(stage) > 0;
    return std::any_of(m_horizontalMovementResults.begin(), m_horizontalMovementResults.end(),
                       [](const std::vector<GeoDispResult>& slot) { return !slot.empty(); });
}

// ---- Joint results ---------------------------------------------------------------------

namespace {

template <class T> bool InSlot(const std::vector<T>& store, int stage) {
    return stage >= 0 && static_cast<size_t>(stage) < store.size();
}

bool AnyJoint(const std::vector<std::vector<CPulloutAndRotation>>& slot) {
    return std::any_of(slot.begin(), slot.end(),
                       [](const std::vector<CPulloutAndRotation>& it) { return !it.empty(); });
}

constexpr double kLowest = std::numeric_limits<double>::lowest();
constexpr double kLargest = std::numeric_limits<double>::max();

} // namespace

bool CUtilityResults::PulloutAndRotationsExist(int stage) const {
    if (stage == -1)
        return std::any_of(m_pulloutAndRotations.begin(), m_pulloutAndRotations.end(), AnyJoint);
    return InSlot(m_pulloutAndRotations, stage) &&
           AnyJoint(m_pulloutAndRotations[static_cast<size_t>(stage)]);
}

bool CUtilityResults::PulloutAndRotationExists(int stage, int iteration) const {
    return iteration >= 1 && iteration <= NumPulloutAndRotationIterations(stage) &&
           !GetPulloutAndRotationIteration(stage, iteration).empty();
}

int CUtilityResults::NumPulloutAndRotationIterations(int stage) const {
    if (!InSlot(m_pulloutAndRotations, stage))
        return 0;
    return static_cast<int>(m_pulloutAndRotations[static_cast<size_t>(stage)].size());
}

int CUtilityResults::NumPulloutAndRotations(int stage, int iteration) const {
    if (iteration < 1 || iteration > NumPulloutAndRotationIterations(stage))
        return 0;
    return static_cast<int>(GetPulloutAndRotationIteration(stage, iteration).size());
}

int CUtilityResults::NumPulloutAndRotations(int stage) const {
    int n = 0;
    for (int it = 1; it <= NumPulloutAndRotationIterations(stage); ++it)
        n += NumPulloutAndRotations(stage, it);
    return n;
}

void CUtilityResults::SetPulloutAndRotationIteration(
    int stage, int iteration, const std::vector<CPulloutAndRotation>& joints) {
    if (stage < 0 || iteration < 1)
        return;
    if (m_pulloutAndRotations.size() <= static_cast<size_t>(stage))
        m_pulloutAndRotations.resize(static_cast<size_t>(stage) + 1);
    auto& slot = m_pulloutAndRotations[static_cast<size_t>(stage)];
    if (slot.size() < static_cast<size_t>(iteration))
        slot.resize(static_cast<size_t>(iteration));
    slot[static_cast<size_t>(iteration - 1)] = joints;
}

void CUtilityResults::SetPulloutAndRotation(int stage, int iteration, int k,
                                            const CPulloutAndRotation& r) {
    if (stage < 0 || iteration < 1 || k < 1)
        return;
    if (m_pulloutAndRotations.size() <= static_cast<size_t>(stage))
        m_pulloutAndRotations.resize(static_cast<size_t>(stage) + 1);
    auto& slot = m_pulloutAndRotations[static_cast<size_t>(stage)];
    if (slot.size() < static_cast<size_t>(iteration))
        slot.resize(static_cast<size_t>(iteration));
    auto& joints = slot[static_cast<size_t>(iteration - 1)];
    if (joints.size() < static_cast<size_t>(k))
        joints.resize(static_cast<size_t>(k));
    joints[static_cast<size_t>(k - 1)] = r;
}

void CUtilityResults::DeletePulloutAndRotation(int stage, int iteration, int k) {
    if (k < 1 || k > NumPulloutAndRotations(stage, iteration))
        return;
    auto& joints =
        m_pulloutAndRotations[static_cast<size_t>(stage)][static_cast<size_t>(iteration - 1)];
    joints.erase(joints.begin() + (k - 1));
}

void CUtilityResults::DeletePulloutAndRotationIteration(int stage, int iteration) {
    if (iteration < 1 || iteration > NumPulloutAndRotationIterations(stage))
        return;
    auto& slot = m_pulloutAndRotations[static_cast<size_t>(stage)];
    slot.erase(slot.begin() + (iteration - 1));
}

int CUtilityResults::GetPulloutAndRotationVersion(int stage) const {
    if (NumPulloutAndRotations(stage, 1) == 0)
        return CPulloutAndRotation::GetVersion();
    return GetPulloutAndRotation(stage, 1, 1).GetReadVersion();
}

// ---- Strain rows ---------------------------------------------------------------------

bool CUtilityResults::UtilityStrainsExist(int stage) const {
    if (stage != -1)
        return NumUtilityStrains(stage) > 0;
    return std::any_of(m_utilityStrains.begin(), m_utilityStrains.end(),
                       [](const std::vector<CUtilityStrain>& slot) { return !slot.empty(); });
}

bool CUtilityResults::UtilityStrainExists(int stage, int k) const {
    return k >= 1 && k < NumUtilityStrains(stage);
}

int CUtilityResults::NumUtilityStrains(int stage) const {
    return static_cast<int>(GetUtilityStrains(stage).size());
}

const std::vector<CUtilityStrain>& CUtilityResults::GetUtilityStrains(int stage) const {
    static const std::vector<CUtilityStrain> none;
    if (!InSlot(m_utilityStrains, stage))
        return none;
    return m_utilityStrains[static_cast<size_t>(stage)];
}

void CUtilityResults::SetUtilityStrain(int stage, int k, const CUtilityStrain& r) {
    if (stage < 0 || k < 1)
        return;
    if (m_utilityStrains.size() <= static_cast<size_t>(stage))
        m_utilityStrains.resize(static_cast<size_t>(stage) + 1);
    auto& rows = m_utilityStrains[static_cast<size_t>(stage)];
    if (rows.size() < static_cast<size_t>(k))
        rows.resize(static_cast<size_t>(k));
    rows[static_cast<size_t>(k - 1)] = r;
}

void CUtilityResults::DeleteUtilityStrain(int stage, int k) {
    if (k < 1 || k > NumUtilityStrains(stage))
        return;
    auto& rows = m_utilityStrains[static_cast<size_t>(stage)];
    rows.erase(rows.begin() + (k - 1));
}

int CUtilityResults::GetUtilityStrainVersion(int stage) const {
    if (NumUtilityStrains(stage) == 0)
        return CUtilityStrain::GetVersion();
    return GetUtilityStrain(stage, 1).GetReadVersion();
}

bool CUtilityResults::ResultsExist(int stage) const {
    return PulloutAndRotationsExist(stage) || UtilityStrainsExist(stage) ||
           HorizontalMovementResultsExist(stage);
}

void CUtilityResults::DeleteResults(int stage) {
    DeletePulloutAndRotations(stage);
    DeleteUtilityStrains(stage);
    DeleteHorizontalMovementResults(stage);
}

void CUtilityResults::DeletePulloutAndRotations(int stage) {
    if (stage == -1)
        m_pulloutAndRotations.clear();
    else if (InSlot(m_pulloutAndRotations, stage))
        m_pulloutAndRotations[static_cast<size_t>(stage)].clear();
}

void CUtilityResults::DeleteUtilityStrains(int stage) {
    if (stage == -1)
        m_utilityStrains.clear();
    else if (InSlot(m_utilityStrains, stage))
        m_utilityStrains[static_cast<size_t>(stage)].clear();
}

const std::vector<std::vector<CPulloutAndRotation>>&
CUtilityResults::GetPulloutAndRotationIterations(int stage) const {
    static const std::vector<std::vector<CPulloutAndRotation>> none;
    if (!InSlot(m_pulloutAndRotations, stage))
        return none;
    return m_pulloutAndRotations[static_cast<size_t>(stage)];
}

// ---- Peaks and verdicts ------------------------------------------------------------------

namespace {

// The largest factored value over the joints of an iteration, with its location; the first
// joint stands until a larger one comes.
template <class Value>
Vec2<double> PeakOverJoints(const CUtilityResults& u, int stage, int iteration, Value value) {
    Vec2<double> peak(kLowest, kLowest);
    for (int k = 1; k <= u.NumPulloutAndRotations(stage, iteration); ++k) {
        const CPulloutAndRotation& r = u.GetPulloutAndRotation(stage, iteration, k);
        const double v = value(r);
        if (k == 1 || v > peak.y)
            peak = Vec2<double>(r.GetLocation(), v);
    }
    return peak;
}

// The largest of the iterations' peaks; iterations without joints take no part.
template <class Peak>
Vec2<double> PeakOverIterations(const CUtilityResults& u, int stage, Peak peakOf) {
    Vec2<double> peak(kLowest, kLowest);
    for (int it = 1; it <= u.NumPulloutAndRotationIterations(stage); ++it) {
        if (u.NumPulloutAndRotations(stage, it) == 0)
            continue;
        const Vec2<double> p = peakOf(it);
        if (it == 1 || p.y > peak.y)
            peak = p;
    }
    return peak;
}

} // namespace

Vec2<double>
CUtilityResults::GetMaximumRotation_Factored(int stage, int iteration,
                                             const CAcceptanceCriteria& criteria) const {
    return PeakOverJoints(*this, stage, iteration, [&criteria](const CPulloutAndRotation& r) {
        return r.GetRotation_Factored(criteria);
    });
}

Vec2<double>
CUtilityResults::GetMaximumPullout_Factored(int stage, int iteration,
                                            const CAcceptanceCriteria& criteria) const {
    return PeakOverJoints(*this, stage, iteration, [&criteria](const CPulloutAndRotation& r) {
        return r.GetPulloutTotal_Factored(criteria);
    });
}

Vec2<double>
CUtilityResults::GetMaximumRotation_Factored(int stage, const CAcceptanceCriteria& criteria) const {
    return PeakOverIterations(
        *this, stage, [&](int it) { return GetMaximumRotation_Factored(stage, it, criteria); });
}

Vec2<double>
CUtilityResults::GetMaximumPullout_Factored(int stage, const CAcceptanceCriteria& criteria) const {
    return PeakOverIterations(
        *this, stage, [&](int it) { return GetMaximumPullout_Factored(stage, it, criteria); });
}

bool CUtilityResults::GetMinRAD(int stage, Vec2<double>& locationAndRadius) const {
    const std::vector<CUtilityStrain>& rows = GetUtilityStrains(stage);
    if (rows.empty())
        return false;
    locationAndRadius = Vec2<double>(rows[0].GetLocation(), rows[0].GetRadiusofCurvature());
    bool found = false;
    for (size_t k = 1; k < rows.size(); ++k) {
        if (!rows[k].GetIsRadiusofCurvature())
            continue;
        found = true;
        if (rows[k].GetRadiusofCurvature() < locationAndRadius.y)
            locationAndRadius = Vec2<double>(rows[k].GetLocation(), rows[k].GetRadiusofCurvature());
    }
    return found;
}

bool CUtilityResults::GetMaximumTensileStrain(int stage, double& value, double& location,
                                              const CAcceptanceCriteria& criteria,
                                              bool neglect) const {
    value = 0.0;
    location = 0.0;
    bool tension = false;
    for (const CUtilityStrain& r : GetUtilityStrains(stage)) {
        const double A = r.GetAxialStrainInMicro();
        const double B = r.GetFlexuralStrainInMicro() * criteria.GetBendingFactorTension();
        const double total =
            neglect && A < 0.0 ? B : B + r.GetAxialStrainInMicro_Factored(criteria);
        if (total > 0.0) {
            tension = true;
            if (std::fabs(total) > value) {
                value = std::fabs(total);
                location = r.GetLocation();
            }
        }
    }
    return tension;
}

bool CUtilityResults::GetMaximumCompressiveStrain(int stage, double& value, double& location,
                                                  const CAcceptanceCriteria& criteria,
                                                  bool neglect) const {
    value = 0.0;
    location = 0.0;
    bool compression = false;
    for (const CUtilityStrain& r : GetUtilityStrains(stage)) {
        const double A = r.GetAxialStrainInMicro();
        const double B = r.GetFlexuralStrainInMicro() * criteria.GetBendingFactorCompression();
        const double base = neglect && A > 0.0 ? 0.0 : r.GetAxialStrainInMicro_Factored(criteria);
        const double total = base - B;
        if (total < 0.0) {
            compression = true;
            if (std::fabs(total) > value) {
                value = std::fabs(total);
                location = r.GetLocation();
            }
        }
    }
    return compression;
}

double CUtilityResults::GetMaxPulloutOrRotationValue(int stage, UtilityGlobal::EUDResultType type,
                                                     const CAcceptanceCriteria& criteria) const {
    double peak = kLowest;
    const size_t first = stage == -1 ? 0 : static_cast<size_t>(stage);
    const size_t end = stage == -1 ? m_pulloutAndRotations.size() : first + 1;
    for (size_t s = first; s < end && s < m_pulloutAndRotations.size(); ++s)
        for (const auto& joints : m_pulloutAndRotations[s])
            for (const CPulloutAndRotation& r : joints)
                peak = std::max(peak, r.GetResult(type, criteria));
    return peak;
}

double CUtilityResults::GetMinPulloutOrRotationValue(int stage, UtilityGlobal::EUDResultType type,
                                                     const CAcceptanceCriteria& criteria) const {
    double least = kLargest;
    const size_t first = stage == -1 ? 0 : static_cast<size_t>(stage);
    const size_t end = stage == -1 ? m_pulloutAndRotations.size() : first + 1;
    for (size_t s = first; s < end && s < m_pulloutAndRotations.size(); ++s)
        for (const auto& joints : m_pulloutAndRotations[s])
            for (const CPulloutAndRotation& r : joints)
                least = std::min(least, r.GetResult(type, criteria));
    return least;
}

UtilityGlobal::EDamageCategory
CUtilityResults::GetPulloutOrRotationCategory(int stage, UtilityGlobal::EUDResultType type,
                                              const CAcceptanceCriteria& criteria) const {
    using namespace UtilityGlobal;
    const double value = GetMaxPulloutOrRotationValue(stage, type, criteria);
    if (type == ePulloutTotalFactored || type == eRotationDegreesFactored) {
        const ECriteriaType c = type == ePulloutTotalFactored ? ePullout : eRotation;
        EDamageCategory verdict =
            criteria.IsThresholdUsed(c) && value > criteria.GetThresholdValue(c) ? eAboveThreshold
                                                                                 : eWithinThreshold;
        if (criteria.IsLimitUsed(c) && value > criteria.GetLimitValue(c))
            verdict = eBeyondLimit;
        return verdict;
    }
    // Any other result is held against the allowable tensile strain, whatever its unit:
    // the comparison is kept as it stands.
    if (criteria.IsLimitUsed(eTension))
        return value > criteria.GetAllowableStrain_Tension() ? eBeyondLimit : eWithinThreshold;
    return eWithinThreshold;
}

UtilityGlobal::EDamageCategory
CUtilityResults::GetStrainCategory(int stage, UtilityGlobal::EStrainType type,
                                   const CAcceptanceCriteria& criteria, bool neglect) const {
    using namespace UtilityGlobal;
    if (type == eTotalTensileStrainFactored || type == eTotalCompressiveStrainFactored) {
        double value = 0.0, location = 0.0;
        ECriteriaType c = eTension;
        if (type == eTotalTensileStrainFactored) {
            GetMaximumTensileStrain(stage, value, location, criteria, neglect);
        } else {
            GetMaximumCompressiveStrain(stage, value, location, criteria, neglect);
            c = eCompression;
        }
        return criteria.IsLimitUsed(c) && value > criteria.GetLimitValue(c) ? eBeyondLimit
                                                                            : eWithinThreshold;
    }
    if (type == eRadiusOfCurvatureResult) {
        Vec2<double> least;
        GetMinRAD(stage, least);
        const double R = least.y;
        EDamageCategory verdict = criteria.IsRAD_Threshold_Used() && criteria.GetRAD_Threshold() > R
                                      ? eAboveThreshold
                                      : eWithinThreshold;
        if (criteria.IsLimitUsed(eRadiusOfCurvature) && criteria.GetRAD_Limit() > R)
            verdict = eBeyondLimit;
        return verdict;
    }
    // Any other type is judged as the largest double against the tensile limit: beyond
    // it whenever that limit is used.
    return criteria.IsLimitUsed(eTension) && kLargest > criteria.GetLimitValue(eTension)
               ? eBeyondLimit
               : eWithinThreshold;
}

} // namespace Tevra::Data
