#include "CUtilityTransect.h"

#include "utilities/CAcceptanceCriteria.h"

#include <cmath>
#include <limits>

namespace Tevra::Data {

namespace {

// Two levels closer than this (metres) make a transect horizontal.
constexpr double kLevelTolerance = 0.0001;
constexpr double kLowest = std::numeric_limits<double>::lowest();

bool SameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// The strain rows of the selected slots, slot by slot: one slot, or every slot for -1.
template <class Visit>
void ForSelectedSlots(const CUtilityResults& results, int stage, Visit visit) {
    const auto& store = results.GetUtilityStrains();
    for (size_t s = 0; s < store.size(); ++s)
        if (stage == -1 || static_cast<size_t>(stage) == s)
            visit(store[s]);
}

// A peak of one signed quantity per row, taken when |v| is at least the peak's, so that
// of equal peaks the later row stays; value starts at 0, location at the lowest double.
template <class Quantity>
bool LaterPeak(const CUtilityResults& results, int stage, double& value, double& location,
               Quantity quantity) {
    value = 0.0;
    location = kLowest;
    bool taken = false;
    ForSelectedSlots(results, stage, [&](const std::vector<CUtilityStrain>& rows) {
        for (const CUtilityStrain& r : rows) {
            double v = 0.0;
            if (quantity(r, v) && std::fabs(v) >= std::fabs(value)) {
                value = v;
                location = r.GetLocation();
                taken = true;
            }
        }
    });
    return taken;
}

} // namespace

bool CUtilityTransect::operator==(const CUtilityTransect& o) const {
    return m_name == o.m_name && m_results == o.m_results && m_readVersion == o.m_readVersion &&
           SameNumber(m_polylineIntersection.x, o.m_polylineIntersection.x) &&
           SameNumber(m_polylineIntersection.y, o.m_polylineIntersection.y) &&
           SameNumber(m_polylineIntersection.z, o.m_polylineIntersection.z);
}

double CUtilityTransect::GetLength(int stage) const {
    const int m = NumberOfPoints(stage);
    return m < 2 ? 0.0 : (GetPoint(stage, m) - GetPoint(stage, 1)).Length();
}

double CUtilityTransect::GetTransectPlanLength(int stage) const {
    const int m = NumberOfPoints(stage);
    return m < 2 ? 0.0 : (GetPoint(stage, m) - GetPoint(stage, 1)).LengthInPlan();
}

double CUtilityTransect::GetInterval(int stage) const {
    return NumberOfPoints(stage) < 2 ? 0.0 : (GetPoint(stage, 2) - GetPoint(stage, 1)).Length();
}

bool CUtilityTransect::IsHorizontal(int stage) const {
    const int m = NumberOfPoints(stage);
    return m < 2 || std::fabs(GetZ(stage, 1) - GetZ(stage, m)) < kLevelTolerance;
}

bool CUtilityTransect::GetMinRAD(int stage, Vec2<double>& locationAndRadius) const {
    bool found = false;
    ForSelectedSlots(m_results, stage, [&](const std::vector<CUtilityStrain>& rows) {
        if (rows.empty())
            return;
        // Each slot begins anew from its first row, whatever that row's flag.
        locationAndRadius = Vec2<double>(rows[0].GetLocation(), rows[0].GetRadiusofCurvature());
        for (size_t k = 1; k < rows.size(); ++k) {
            if (!rows[k].GetIsRadiusofCurvature())
                continue;
            found = true;
            if (rows[k].GetRadiusofCurvature() < locationAndRadius.y)
                locationAndRadius =
                    Vec2<double>(rows[k].GetLocation(), rows[k].GetRadiusofCurvature());
        }
    });
    return found;
}

bool CUtilityTransect::GetMaxCurvature(int stage, Vec2<double>& locationAndCurvature) const {
    const bool found = GetMinRAD(stage, locationAndCurvature);
    locationAndCurvature.y = 1.0 / locationAndCurvature.y;
    return found;
}

bool CUtilityTransect::GetMaximumAxialStrainInTension_Factored(
    int stage, double& value, double& location, const CAcceptanceCriteria& criteria) const {
    return LaterPeak(m_results, stage, value, location, [&](const CUtilityStrain& r, double& v) {
        v = r.GetAxialStrainInMicro_Factored(criteria);
        return v >= 0.0;
    });
}

bool CUtilityTransect::GetMaximumAxialStrainInCompression_Factored(
    int stage, double& value, double& location, const CAcceptanceCriteria& criteria) const {
    return LaterPeak(m_results, stage, value, location, [&](const CUtilityStrain& r, double& v) {
        v = r.GetAxialStrainInMicro_Factored(criteria);
        return v <= 0.0;
    });
}

bool CUtilityTransect::GetMaximumFlexuralStrainInTension_Factored(
    int stage, double& value, double& location, const CAcceptanceCriteria& criteria) const {
    return LaterPeak(m_results, stage, value, location, [&](const CUtilityStrain& r, double& v) {
        v = r.GetFlexuralStrainInMicro() * criteria.GetBendingFactorTension();
        return true;
    });
}

bool CUtilityTransect::GetMaximumFlexuralStrainInCompression_Factored(
    int stage, double& value, double& location, const CAcceptanceCriteria& criteria) const {
    return LaterPeak(m_results, stage, value, location, [&](const CUtilityStrain& r, double& v) {
        v = -(r.GetFlexuralStrainInMicro() * criteria.GetBendingFactorCompression());
        return true;
    });
}

bool CUtilityTransect::GetMaximumTensileStrain_Factored(int stage, double& value, double& location,
                                                        const CAcceptanceCriteria& criteria,
                                                        bool neglect) const {
    value = 0.0;
    location = 0.0;
    bool tension = false;
    ForSelectedSlots(m_results, stage, [&](const std::vector<CUtilityStrain>& rows) {
        for (size_t k = 0; k < rows.size(); ++k) {
            double total = 0.0;
            if (!TensileTotal(rows[k], total, criteria, neglect))
                continue;
            tension = true;
            if (std::fabs(total) > value) { // strictly larger: the first of equal peaks stays
                value = std::fabs(total);
                location = rows[k].GetLocation();
            }
        }
    });
    return tension;
}

bool CUtilityTransect::GetMaximumCompressiveStrain_Factored(int stage, double& value,
                                                            double& location,
                                                            const CAcceptanceCriteria& criteria,
                                                            bool neglect) const {
    value = 0.0;
    location = 0.0;
    bool compression = false;
    ForSelectedSlots(m_results, stage, [&](const std::vector<CUtilityStrain>& rows) {
        for (size_t k = 0; k < rows.size(); ++k) {
            double total = 0.0;
            if (!CompressiveTotal(rows[k], total, criteria, neglect))
                continue;
            compression = true;
            if (std::fabs(total) > value) {
                value = std::fabs(total);
                location = rows[k].GetLocation();
            }
        }
    });
    return compression;
}

bool CUtilityTransect::TensileTotal(const CUtilityStrain& r, double& value,
                                    const CAcceptanceCriteria& criteria, bool neglect) {
    const double A = r.GetAxialStrainInMicro();
    const double B = r.GetFlexuralStrainInMicro() * criteria.GetBendingFactorTension();
    value = neglect && A < 0.0 ? B : B + r.GetAxialStrainInMicro_Factored(criteria);
    return value > 0.0;
}

bool CUtilityTransect::CompressiveTotal(const CUtilityStrain& r, double& value,
                                        const CAcceptanceCriteria& criteria, bool neglect) {
    const double A = r.GetAxialStrainInMicro();
    const double B = r.GetFlexuralStrainInMicro() * criteria.GetBendingFactorCompression();
    const double base = neglect && A > 0.0 ? 0.0 : r.GetAxialStrainInMicro_Factored(criteria);
    value = base - B;
    return value < 0.0;
}

bool CUtilityTransect::GetTensileStrain(int stage, int k, double& value,
                                        const CAcceptanceCriteria& criteria, bool neglect) const {
    return TensileTotal(GetUtilityStrain(stage, k), value, criteria, neglect);
}

bool CUtilityTransect::GetCompressiveStrain(int stage, int k, double& value,
                                            const CAcceptanceCriteria& criteria,
                                            bool neglect) const {
    return CompressiveTotal(GetUtilityStrain(stage, k), value, criteria, neglect);
}

} // namespace Tevra::Data
