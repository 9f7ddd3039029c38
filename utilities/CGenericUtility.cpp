#include "CGenericUtility.h"

#include <algorithm>

namespace Tevra::Data {

namespace {

// Dimension of a distance along a line, in which chainages are shown.
constexpr int kDistanceAlongLine = 4;

template <class Ask> bool AnyTransect(const std::vector<CUtilityTransect>& transects, Ask ask) {
    return std::any_of(transects.begin(), transects.end(), ask);
}

// The largest verdict over the transects, ending at the first beyond the limit.
template <class Verdict>
UtilityGlobal::EDamageCategory Worst(const std::vector<CUtilityTransect>& transects,
                                     Verdict verdict) {
    UtilityGlobal::EDamageCategory worst = UtilityGlobal::eWithinThreshold;
    for (const CUtilityTransect& t : transects) {
        worst = std::max(worst, verdict(t));
        if (worst == UtilityGlobal::eBeyondLimit)
            break;
    }
    return worst;
}

} // namespace

CGenericUtility::CGenericUtility() : CUtility(L"Generic Utility #") {}

bool CGenericUtility::operator==(const CGenericUtility& o) const {
    return CUtility::operator==(o) && m_readVersion == o.m_readVersion &&
           m_polyline == o.m_polyline && m_length == o.m_length && m_interval == o.m_interval &&
           m_dispPoints == o.m_dispPoints && m_transects == o.m_transects;
}

void CGenericUtility::SetTransect(int t, const CUtilityTransect& transect) {
    if (t < 1)
        return;
    if (m_transects.size() < static_cast<size_t>(t))
        m_transects.resize(static_cast<size_t>(t));
    m_transects[static_cast<size_t>(t - 1)] = transect;
}

void CGenericUtility::ResizeHorizontalMovementResults(int stages) {
    for (CUtilityTransect& t : m_transects)
        t.AccessResults().ResizeHorizontalMovementSlots(stages);
}

bool CGenericUtility::HorizontalMovementResultsExist(int stage) const {
    return AnyTransect(m_transects, [stage](const CUtilityTransect& t) {
        return t.HorizontalMovementResultsExist(stage);
    });
}

bool CGenericUtility::PulloutAndRotationsExist(int stage) const {
    return AnyTransect(m_transects, [stage](const CUtilityTransect& t) {
        return t.PulloutAndRotationsExist(stage);
    });
}

bool CGenericUtility::UtilityStrainsExist(int stage) const {
    return AnyTransect(m_transects,
                       [stage](const CUtilityTransect& t) { return t.UtilityStrainsExist(stage); });
}

bool CGenericUtility::ResultsExist(int stage) const {
    return AnyTransect(m_transects,
                       [stage](const CUtilityTransect& t) { return t.ResultsExist(stage); });
}

void CGenericUtility::DeleteUDResults(int stage) {
    for (CUtilityTransect& t : m_transects) {
        t.DeletePulloutAndRotations(stage);
        t.DeleteUtilityStrains(stage);
    }
}

void CGenericUtility::DeleteHorizontalMovementResults(int stage) {
    for (CUtilityTransect& t : m_transects)
        t.DeleteHorizontalMovementResults(stage);
}

void CGenericUtility::GetTransectDescription(CString& out, int t, const CUnit& unit, bool prefix,
                                             bool number) const {
    const double chainage = GetTransectChainage(t) * unit.Conversion(kDistanceAlongLine);
    const CString symbol = unit.Label(kDistanceAlongLine);
    if (prefix && number)
        out.Format(L"Transect %i: %.2f %s", t, chainage, symbol.GetString());
    else if (prefix)
        out.Format(L"Transect %.2f %s", chainage, symbol.GetString());
    else if (number)
        out.Format(L"%i: %.2f %s", t, chainage, symbol.GetString());
    else
        out.Format(L"%.2f %s", chainage, symbol.GetString());
}

void CGenericUtility::GetTransectsDescriptions(std::vector<CString>& out, const CUnit& unit,
                                               bool prefix, bool number) const {
    out.clear();
    for (int t = 1; t <= NumTransects(); ++t) {
        CString text;
        GetTransectDescription(text, t, unit, prefix, number);
        out.push_back(text);
    }
}

UtilityGlobal::EDamageCategory
CGenericUtility::GetPulloutOrRotationCategory(int stage, UtilityGlobal::EUDResultType type,
                                              const CAcceptanceCriteria& criteria) const {
    return Worst(m_transects, [&](const CUtilityTransect& t) {
        return t.GetPulloutOrRotationCategory(stage, type, criteria);
    });
}

UtilityGlobal::EDamageCategory
CGenericUtility::GetStrainCategory(int stage, UtilityGlobal::EStrainType type,
                                   const CAcceptanceCriteria& criteria, bool neglect) const {
    return Worst(m_transects, [&](const CUtilityTransect& t) {
        return t.GetStrainCategory(stage, type, criteria, neglect);
    });
}

} // namespace Tevra::Data
