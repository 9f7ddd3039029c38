#include "CGenericBuilding.h"

#include "base/GeoGlobal.h"
#include "base/IntervalsLogScale.h"

#include <algorithm>
#include <sstream>

namespace Tevra::Data {

namespace {

// A list of ratios as "0.1,0.13,...": each value rounded to 2 places and written in its
// shortest form.
CString JoinRatios(const std::vector<double>& list) {
    std::wostringstream out;
    out.precision(15);
    for (size_t k = 0; k < list.size(); ++k) {
        if (k > 0)
            out << L',';
        out << GeoGlobal::CutDownDecimalPlaces(list[k], 2);
    }
    return CString(out.str());
}

} // namespace

CGenericBuilding::CGenericBuilding() : NamedEntity(0, L"Generic Building #") {}

void CGenericBuilding::GetLOverH(CString& out) const { out = JoinRatios(m_lOverH); }

void CGenericBuilding::SetLOverH(int index, double value) {
    if (static_cast<size_t>(index) >= m_lOverH.size())
        m_lOverH.resize(static_cast<size_t>(index) + 1, 0.0);
    m_lOverH[static_cast<size_t>(index)] = value;
}

void CGenericBuilding::GetDefaultLOverH(std::vector<double>& list) {
    list.clear();
    IntervalsLogScale(0.1, 10.0, 10, 10.0, list);
}

void CGenericBuilding::GetDefaultLOverH(CString& out) {
    std::vector<double> list;
    GetDefaultLOverH(list);
    out = JoinRatios(list);
}

bool CGenericBuilding::IsAnyLOverHZero() const {
    return std::any_of(m_lOverH.begin(), m_lOverH.end(), [](double v) { return v == 0.0; });
}

bool CGenericBuilding::IsAnyLOverHNegative() const {
    return std::any_of(m_lOverH.begin(), m_lOverH.end(), [](double v) { return v < 0.0; });
}

void CGenericBuilding::GetLOverHDescription(CString& out, int index, bool words,
                                            bool numbered) const {
    const double v = GetLOverH(index);
    if (words && numbered)
        out.Format(L"L/H %i: %.3f", index + 1, v);
    else if (words)
        out.Format(L"L/H %.3f", v);
    else if (numbered)
        out.Format(L"%i: %.3f", index + 1, v);
    else
        out.Format(L"%.3f", v);
}

void CGenericBuilding::SetTransect(int t, const CBuildingTransect& transect) {
    if (static_cast<size_t>(t) > m_transects.size())
        m_transects.resize(static_cast<size_t>(t));
    m_transects[static_cast<size_t>(t - 1)] = transect;
}

bool CGenericBuilding::BuildingDamageResultsExist(int stage, bool combined) const {
    return std::any_of(m_transects.begin(), m_transects.end(), [&](const CBuildingTransect& t) {
        return t.BuildingDamageResultsExist(stage, combined);
    });
}

int CGenericBuilding::NumBuildingDamageResults(int stage, bool combined) const {
    int sum = 0;
    for (const CBuildingTransect& t : m_transects)
        sum += t.NumBuildingDamageResults(stage, combined, -1);
    return sum;
}

void CGenericBuilding::DeleteBuildingDamageResults(int stage, bool combined) {
    for (CBuildingTransect& t : m_transects)
        t.DeleteBuildingDamageResults(stage, combined);
}

int CGenericBuilding::GetMaxBuildingDamageCategory(int stage, bool combined) const {
    int worst = 0;
    for (const CBuildingTransect& t : m_transects)
        worst = std::max(worst, t.GetMaxBuildingDamageCategory(stage, combined));
    return worst;
}

bool CGenericBuilding::CombinedSegmentsExist(int stage, int transect, int offset) const {
    for (int t = 1; t <= NumTransects(); ++t)
        if ((transect == -1 || t == transect) && GetTransect(t).CombinedSegmentsExist(stage, offset))
            return true;
    return false;
}

double CGenericBuilding::GetMaximumTensileStrain_Offset(int stage, int transect, int offset,
                                                        bool combined) const {
    const CBuildingTransect& t = GetTransect(transect);
    bool any = false;
    double peak = 0.0;
    for (int lh = 0; lh < NumLOverH(); ++lh) {
        if (!t.BuildingDamageResultExists(stage, combined, offset, lh))
            continue;
        const double v = t.GetMaximumTensileStrain(stage, combined, offset, lh);
        if (!any || v > peak)
            peak = v;
        any = true;
    }
    return peak;
}

double CGenericBuilding::GetMaximumTensileStrain_Offset_Height(int stage, int transect, int offset,
                                                               int lh, bool combined) const {
    const CBuildingTransect& t = GetTransect(transect);
    for (int k = 0; k < NumLOverH(); ++k)
        if (t.BuildingDamageResultExists(stage, combined, offset, k))
            return t.BuildingDamageResultExists(stage, combined, offset, lh)
                       ? t.GetMaximumTensileStrain(stage, combined, offset, lh)
                       : 0.0;
    return 0.0;
}

bool CGenericBuilding::operator==(const CGenericBuilding& o) const {
    return GetName() == o.GetName() && m_readVersion == o.m_readVersion &&
           m_polyline == o.m_polyline && m_lOverH == o.m_lOverH && m_transects == o.m_transects &&
           m_properties == o.m_properties && m_length == o.m_length &&
           m_interval == o.m_interval && m_dispPoints == o.m_dispPoints && m_show == o.m_show &&
           m_label == o.m_label;
}

} // namespace Tevra::Data
