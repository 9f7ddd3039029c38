#include "CAcceptanceCriteria.h"

#include <limits>

namespace Tevra::Data {

using namespace UtilityGlobal;

namespace {
// What a quantity without a threshold, or a type that is none, answers as a value.
constexpr double kLowest = std::numeric_limits<double>::lowest();
} // namespace

CAcceptanceCriteria::CAcceptanceCriteria(bool editable)
    : NamedEntity(0, L"Acceptance Criteria #"), m_editable(editable) {
    DefaultValues();
}

void CAcceptanceCriteria::DefaultValues() {
    m_tension = 98.0;
    m_tensionUsed = true;
    m_compression = 1200.0;
    m_compressionUsed = true;
    m_rotationThreshold = 0.025;
    m_rotationThresholdUsed = true;
    m_rotationLimit = 0.15;
    m_rotationLimitUsed = true;
    m_pulloutThreshold = 0.1;
    m_pulloutThresholdUsed = true;
    m_pulloutLimit = 0.4;
    m_pulloutLimitUsed = true;
    m_radThreshold = 25000.0;
    m_radThresholdUsed = true;
    m_radLimit = 25000.0;
    m_radLimitUsed = true;
    m_axialStrainRFTension = 1.0;
    m_axialStrainRFCompression = 1.0;
    m_pulloutRFAxial = 1.0;
    m_pulloutRFFlexural = 1.0;
    m_rotationFactor = 1.0;
    m_bendingFactorTension = 1.0;
    m_bendingFactorCompression = 1.0;
}

double CAcceptanceCriteria::GetLimitValue(ECriteriaType type) const {
    switch (type) {
    case eTension:
        return m_tension;
    case eCompression:
        return m_compression;
    case eRotation:
        return m_rotationLimit;
    case ePullout:
        return m_pulloutLimit;
    case eRadiusOfCurvature:
        return m_radLimit;
    case eCurvature:
        return 1.0 / m_radLimit;
    }
    return kLowest;
}

bool CAcceptanceCriteria::IsLimitUsed(ECriteriaType type) const {
    switch (type) {
    case eTension:
        return m_tensionUsed;
    case eCompression:
        return m_compressionUsed;
    case eRotation:
        return m_rotationLimitUsed;
    case ePullout:
        return m_pulloutLimitUsed;
    case eRadiusOfCurvature:
    case eCurvature:
        return m_radLimitUsed;
    }
    return false;
}

double CAcceptanceCriteria::GetThresholdValue(ECriteriaType type) const {
    switch (type) {
    case eRotation:
        return m_rotationThreshold;
    case ePullout:
        return m_pulloutThreshold;
    case eRadiusOfCurvature:
        return m_radThreshold;
    case eCurvature:
        return 1.0 / m_radThreshold;
    case eTension:
    case eCompression:
        break;
    }
    return kLowest;
}

bool CAcceptanceCriteria::IsThresholdUsed(ECriteriaType type) const {
    switch (type) {
    case eRotation:
        return m_rotationThresholdUsed;
    case ePullout:
        return m_pulloutThresholdUsed;
    case eRadiusOfCurvature:
    case eCurvature:
        return m_radThresholdUsed;
    case eTension:
    case eCompression:
        break;
    }
    return false;
}

bool CAcceptanceCriteria::operator==(const CAcceptanceCriteria& o) const {
    return GetName() == o.GetName() && m_editable == o.m_editable && m_tension == o.m_tension &&
           m_tensionUsed == o.m_tensionUsed && m_compression == o.m_compression &&
           m_compressionUsed == o.m_compressionUsed &&
           m_rotationThreshold == o.m_rotationThreshold &&
           m_rotationThresholdUsed == o.m_rotationThresholdUsed &&
           m_rotationLimit == o.m_rotationLimit && m_rotationLimitUsed == o.m_rotationLimitUsed &&
           m_pulloutThreshold == o.m_pulloutThreshold &&
           m_pulloutThresholdUsed == o.m_pulloutThresholdUsed &&
           m_pulloutLimit == o.m_pulloutLimit && m_pulloutLimitUsed == o.m_pulloutLimitUsed &&
           m_radThreshold == o.m_radThreshold && m_radThresholdUsed == o.m_radThresholdUsed &&
           m_radLimit == o.m_radLimit && m_radLimitUsed == o.m_radLimitUsed &&
           m_axialStrainRFTension == o.m_axialStrainRFTension &&
           m_axialStrainRFCompression == o.m_axialStrainRFCompression &&
           m_pulloutRFAxial == o.m_pulloutRFAxial && m_pulloutRFFlexural == o.m_pulloutRFFlexural &&
           m_rotationFactor == o.m_rotationFactor &&
           m_bendingFactorTension == o.m_bendingFactorTension &&
           m_bendingFactorCompression == o.m_bendingFactorCompression &&
           m_readVersion == o.m_readVersion;
}

std::vector<const wchar_t*> CAcceptanceCriteria::NegativeFactorWords() const {
    const struct {
        bool negative;
        const wchar_t* words;
    } factors[] = {
        {m_tensionUsed && m_tension < 0.0, L"allowable strain in tension"},
        {m_compressionUsed && m_compression < 0.0, L"allowable strain in compression"},
        {m_pulloutRFAxial < 0.0, L"axial pullout factor"},
        {m_pulloutRFFlexural < 0.0, L"flexural pullout factor"},
        {m_rotationFactor < 0.0, L"rotation factor"},
        {m_axialStrainRFTension < 0.0, L"factor for axial strain in tension"},
        {m_axialStrainRFCompression < 0.0, L"factor for axial strain in compression"},
        {m_bendingFactorTension < 0.0, L"factor for flexural strain in tension"},
        {m_bendingFactorCompression < 0.0, L"factor for flexural strain in compression"},
    };
    std::vector<const wchar_t*> words;
    for (const auto& f : factors)
        if (f.negative)
            words.push_back(f.words);
    return words;
}

} // namespace Tevra::Data
