#pragma once

#include "export/CExportItemsCSV.h"
#include "export/CExportTransectInfo.h"

#include <array>
#include <cstddef>

namespace Tevra::Data {

// The choice of columns of the generic utility pullout and rotation table, under the section
// "GenericUDAPRExportSettings": the utility, its polyline, the iteration, the location and its
// coordinates, the axial and flexural pullout left and right of the joint and in total,
// unfactored and factored, the pullout checks, the rotations and their checks, and whether the
// pipe sags or hogs. The transect block follows.
// The pullout threshold check is GetPOThreshCheck, under the key "POThresholdCheck".
class CUDAExportCSVPR : public CExportItemsCSV {
  public:
    // The columns in the order of the table's cells; the transect block comes before the
    // column at kTransectBlockAt (here: after them all).
    static const std::array<SColumn<CUDAExportCSVPR>, 28>& Columns();
    static constexpr std::size_t kTransectBlockAt = 28;
    static constexpr const wchar_t* kSection = L"GenericUDAPRExportSettings";

    void SaveToRegistry() override { Save(kSection, *this); }
    void RestoreFromRegistry() override { Restore(kSection, *this); }
    bool None() const override { return NoneOn(*this); }

    // Calls f(key, on) for every column in the order of the table's cells, the transect
    // block in its place; on is a bool& that f may change, or a const bool& on a const object.
    template <class F> void ForEachColumn(F&& f) { WalkColumns(*this, m_transectInfo, f); }
    template <class F> void ForEachColumn(F&& f) const { WalkColumns(*this, m_transectInfo, f); }

    const CExportTransectInfo& GetTransectInfo() const { return m_transectInfo; }
    void SetTransectInfo(const CExportTransectInfo& info) { m_transectInfo = info; }

    bool GetIterationNo() const { return m_bColumn3; }
    void SetIterationNo(bool b) { m_bColumn3 = b; }
    bool GetLocation() const { return m_bColumn4; }
    void SetLocation(bool b) { m_bColumn4 = b; }
    bool GetX() const { return m_bX; }
    void SetX(bool b) { m_bX = b; }
    bool GetY() const { return m_bY; }
    void SetY(bool b) { m_bY = b; }
    bool GetZ() const { return m_bZ; }
    void SetZ(bool b) { m_bZ = b; }
    bool GetAxialUnfactLeft() const { return m_bAxialUnfactLeft; }
    void SetAxialUnfactLeft(bool b) { m_bAxialUnfactLeft = b; }
    bool GetAxialFactLeft() const { return m_bAxialFactLeft; }
    void SetAxialFactLeft(bool b) { m_bAxialFactLeft = b; }
    bool GetFlexuralUnfactLeft() const { return m_bFlexuralUnfactLeft; }
    void SetFlexuralUnfactLeft(bool b) { m_bFlexuralUnfactLeft = b; }
    bool GetFlexuralFactLeft() const { return m_bFlexuralFactLeft; }
    void SetFlexuralFactLeft(bool b) { m_bFlexuralFactLeft = b; }
    bool GetAxialUnfactRight() const { return m_bAxialUnfactRight; }
    void SetAxialUnfactRight(bool b) { m_bAxialUnfactRight = b; }
    bool GetAxialFactRight() const { return m_bAxialFactRight; }
    void SetAxialFactRight(bool b) { m_bAxialFactRight = b; }
    bool GetFlexuralUnfactRight() const { return m_bFlexuralUnfactRight; }
    void SetFlexuralUnfactRight(bool b) { m_bFlexuralUnfactRight = b; }
    bool GetFlexuralFactRight() const { return m_bFlexuralFactRight; }
    void SetFlexuralFactRight(bool b) { m_bFlexuralFactRight = b; }
    bool GetAxialUnfact() const { return m_bAxialUnfact; }
    void SetAxialUnfact(bool b) { m_bAxialUnfact = b; }
    bool GetAxialFact() const { return m_bAxialFact; }
    void SetAxialFact(bool b) { m_bAxialFact = b; }
    bool GetFlexuralUnfact() const { return m_bFlexuralUnfact; }
    void SetFlexuralUnfact(bool b) { m_bFlexuralUnfact = b; }
    bool GetFlexuralFact() const { return m_bFlexuralFact; }
    void SetFlexuralFact(bool b) { m_bFlexuralFact = b; }
    bool GetTotalUnfact() const { return m_bTotalUnfact; }
    void SetTotalUnfact(bool b) { m_bTotalUnfact = b; }
    bool GetTotalFact() const { return m_bTotalFact; }
    void SetTotalFact(bool b) { m_bTotalFact = b; }
    bool GetPOThreshCheck() const { return m_bPOThreshCheck; }
    void SetPOThreshCheck(bool b) { m_bPOThreshCheck = b; }
    bool GetPOLimitCheck() const { return m_bPOLimitCheck; }
    void SetPOLimitCheck(bool b) { m_bPOLimitCheck = b; }
    bool GetRotationUnfact() const { return m_bRotationUnfact; }
    void SetRotationUnfact(bool b) { m_bRotationUnfact = b; }
    bool GetRotationFact() const { return m_bRotationFact; }
    void SetRotationFact(bool b) { m_bRotationFact = b; }
    bool GetRotationThresh() const { return m_bRotationThresh; }
    void SetRotationThresh(bool b) { m_bRotationThresh = b; }
    bool GetRotationLimit() const { return m_bRotationLimit; }
    void SetRotationLimit(bool b) { m_bRotationLimit = b; }
    bool GetVerticalSagHog() const { return m_bVerticalSagHog; }
    void SetVerticalSagHog(bool b) { m_bVerticalSagHog = b; }

  private:
    bool m_bX = true;
    bool m_bY = true;
    bool m_bZ = true;
    bool m_bAxialUnfactLeft = true;
    bool m_bAxialFactLeft = true;
    bool m_bFlexuralUnfactLeft = true;
    bool m_bFlexuralFactLeft = true;
    bool m_bAxialUnfactRight = true;
    bool m_bAxialFactRight = true;
    bool m_bFlexuralUnfactRight = true;
    bool m_bFlexuralFactRight = true;
    bool m_bAxialUnfact = true;
    bool m_bAxialFact = true;
    bool m_bFlexuralUnfact = true;
    bool m_bFlexuralFact = true;
    bool m_bTotalUnfact = true;
    bool m_bTotalFact = true;
    bool m_bPOThreshCheck = true;
    bool m_bPOLimitCheck = true;
    bool m_bRotationUnfact = true;
    bool m_bRotationFact = true;
    bool m_bRotationThresh = true;
    bool m_bRotationLimit = true;
    bool m_bVerticalSagHog = true;
    CExportTransectInfo m_transectInfo;
};

} // namespace Tevra::Data
