#include "CBuildingDamageResult.h"

#include "base/CResourceStrings.h"

namespace Tevra::Data {

namespace {
// Message numbers of the curvature labels.
constexpr int kHoggingID = 3810;
constexpr int kSaggingID = 3811;
constexpr int kNoneID = 3675;
} // namespace

CBuildingDamageResult::CBuildingDamageResult(
    double start, double end, double deflectionRatio, double maxSettlement, double hStrain,
    GeoGlobal::ECurvature curvature, double maxCurvature, double minCurvature,
    bool maxGradientOfHDispCurveSet, double maxGradientOfHDispCurve,
    bool maxGradientOfVDispCurveSet, double maxGradientOfVDispCurve, bool startOfCombinedSegment)
    : m_start(start), m_end(end), m_deflectionRatio(deflectionRatio),
      m_maxSettlement(maxSettlement), m_hStrain(hStrain),
      m_maxGradientOfHDispCurve(maxGradientOfHDispCurve),
      m_maxGradientOfVDispCurve(maxGradientOfVDispCurve), m_curvature(curvature),
      m_maxCurvature(maxCurvature), m_minCurvature(minCurvature),
      m_maxGradientOfHDispCurveSet(maxGradientOfHDispCurveSet),
      m_maxGradientOfVDispCurveSet(maxGradientOfVDispCurveSet),
      m_startOfCombinedSegment(startOfCombinedSegment) {}

CString CBuildingDamageResult::GetCurvatureAsString(GeoGlobal::ECurvature c) {
    switch (c) {
    case GeoGlobal::eHogging:
        return CResourceStrings::Load(kHoggingID);
    case GeoGlobal::eSagging:
        return CResourceStrings::Load(kSaggingID);
    default:
        return CResourceStrings::Load(kNoneID);
    }
}

GeoGlobal::ECurvature CBuildingDamageResult::GetCurvatureFromCStr(const CString& text) {
    if (text == CResourceStrings::Load(kHoggingID))
        return GeoGlobal::eHogging;
    if (text == CResourceStrings::Load(kSaggingID))
        return GeoGlobal::eSagging;
    return GeoGlobal::eNoCurvature;
}

bool CBuildingDamageResult::operator==(const CBuildingDamageResult& o) const {
    return m_start == o.m_start && m_end == o.m_end && m_deflectionRatio == o.m_deflectionRatio &&
           m_maxSettlement == o.m_maxSettlement && m_hStrain == o.m_hStrain &&
           m_maxGradientOfHDispCurve == o.m_maxGradientOfHDispCurve &&
           m_maxGradientOfVDispCurve == o.m_maxGradientOfVDispCurve &&
           m_maxTensileStrain == o.m_maxTensileStrain &&
           m_maxCompressiveStrain == o.m_maxCompressiveStrain && m_curvature == o.m_curvature &&
           m_maxCurvature == o.m_maxCurvature && m_minCurvature == o.m_minCurvature &&
           m_damageCategory == o.m_damageCategory &&
           m_maxGradientOfHDispCurveSet == o.m_maxGradientOfHDispCurveSet &&
           m_maxGradientOfVDispCurveSet == o.m_maxGradientOfVDispCurveSet &&
           m_startOfCombinedSegment == o.m_startOfCombinedSegment;
}

} // namespace Tevra::Data
