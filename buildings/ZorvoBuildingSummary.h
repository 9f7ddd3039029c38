#pragma once

#include "base/CString.h"
#include "buildings/CCriticalSegmentInformation.h"

#include <array>
#include <utility>

namespace Tevra::Data {

// A building's critical values for the host to show: for each parameter the segment that
// governs it. The library only keeps the record; the host chooses what goes in it.
class ZorvoBuildingSummary {
  public:
    enum EParameters {
        eMaxSlope = 0,
        eMaxSettlement = 1,
        eMaxTensileStrain = 2,
        eMinRadiusOfCurvatureHogging = 3,
        eMinRadiusOfCurvatureSagging = 4
    };
    static constexpr int NUM_PARAMETERS = 5;
    // Message numbers of the parameters' labels, "Max Slope" to
    // "Min Radius of Curvature (Sagging)", by EParameters.
    static constexpr int PARAMETERS_STRING_IDS[NUM_PARAMETERS] = {3864, 3865, 3854, 3702, 3703};

    const CString& GetBuildingName() const { return m_buildingName; }
    void SetBuildingName(const CString& s) { m_buildingName = s; }
    const CString& GetLog() const { return m_log; }
    void SetLog(const CString& s) { m_log = s; }

    // The parameter's segment, by EParameters; unchecked.
    CCriticalSegmentInformation GetCriticalSegInfo(int parameter) const {
        return m_criticalSegInfo[static_cast<size_t>(parameter)];
    }
    void SetCriticalSegInfo(CCriticalSegmentInformation info, EParameters parameter) {
        m_criticalSegInfo[static_cast<size_t>(parameter)] = std::move(info);
    }

  private:
    CString m_buildingName;
    CString m_log;
    std::array<CCriticalSegmentInformation, NUM_PARAMETERS> m_criticalSegInfo;
};

} // namespace Tevra::Data
