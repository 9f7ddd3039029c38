#pragma once

#include "base/CString.h"

namespace Tevra::Data {

// The segment of a building that governs one critical value, as a summary shows it: where
// the segment lies and what it holds. A field never filled keeps its default: -1 for
// numbers, "-" for the curvature, the empty text for the sub-building. Lengths in metres
// along the building from its start, settlement in metres, strains and slopes plain,
// curvature in 1/metres.
class CCriticalSegmentInformation {
  public:
    const CString& GetCriticalSubBuilding() const { return m_criticalSubBuilding; }
    void SetCriticalSubBuilding(const CString& s) { m_criticalSubBuilding = s; }
    // "Hogging", "Sagging" or "None"; "-" while no segment is named.
    const CString& GetCriticalCurvature() const { return m_criticalCurvature; }
    void SetCriticalCurvature(const CString& s) { m_criticalCurvature = s; }
    double GetStart() const { return m_start; }
    void SetStart(double v) { m_start = v; }
    double GetEnd() const { return m_end; }
    void SetEnd(double v) { m_end = v; }
    int GetCriticalVerticalOffset() const { return m_criticalVerticalOffset; }
    void SetCriticalVerticalOffset(int n) { m_criticalVerticalOffset = n; }
    int GetCriticalSegment() const { return m_criticalSegment; }
    void SetCriticalSegment(int n) { m_criticalSegment = n; }
    int GetDamageCategory() const { return m_damageCategory; }
    void SetDamageCategory(int c) { m_damageCategory = c; }
    double GetMaxSettlement() const { return m_maxSettlement; }
    void SetMaxSettlement(double v) { m_maxSettlement = v; }
    double GetMaxSlope() const { return m_maxSlope; }
    void SetMaxSlope(double v) { m_maxSlope = v; }
    double GetMaxTensileStrain() const { return m_maxTensileStrain; }
    void SetMaxTensileStrain(double v) { m_maxTensileStrain = v; }
    double GetMaxCurvature() const { return m_maxCurvature; }
    void SetMaxCurvature(double v) { m_maxCurvature = v; }

  private:
    CString m_criticalSubBuilding;
    CString m_criticalCurvature = L"-";
    double m_start = -1.0;
    double m_end = -1.0;
    int m_criticalVerticalOffset = -1;
    int m_criticalSegment = -1;
    int m_damageCategory = -1;
    double m_maxSettlement = -1.0;
    double m_maxSlope = -1.0;
    double m_maxTensileStrain = -1.0;
    double m_maxCurvature = -1.0;
};

} // namespace Tevra::Data
