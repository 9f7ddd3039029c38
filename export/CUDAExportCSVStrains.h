#pragma once

#include "export/CExportItemsCSV.h"
#include "export/CExportTransectInfo.h"

#include <array>
#include <cstddef>

namespace Tevra::Data {

// The choice of columns of the generic utility strains table, under the section
// "GenericUDAStrainsExportSettings": the utility, its polyline, the location and its
// coordinates, the axial, tension and compression strains unfactored and factored, their
// totals and checks, the relative angular distortion (RAD) and its checks, and the peak
// flexural tensile strain. The transect block follows.
// The unfactored compression is GetCompressionUnFact, under the key "CompressionUnfact".
class CUDAExportCSVStrains : public CExportItemsCSV {
  public:
    // The columns in the order of the table's cells; the transect block comes before the
    // column at kTransectBlockAt (here: after them all).
    static const std::array<SColumn<CUDAExportCSVStrains>, 22>& Columns();
    static constexpr std::size_t kTransectBlockAt = 22;
    static constexpr const wchar_t* kSection = L"GenericUDAStrainsExportSettings";

    void SaveToRegistry() override { Save(kSection, *this); }
    void RestoreFromRegistry() override { Restore(kSection, *this); }
    bool None() const override { return NoneOn(*this); }

    // Calls f(key, on) for every column in the order of the table's cells, the transect
    // block in its place; on is a bool& that f may change, or a const bool& on a const object.
    template <class F> void ForEachColumn(F&& f) { WalkColumns(*this, m_transectInfo, f); }
    template <class F> void ForEachColumn(F&& f) const { WalkColumns(*this, m_transectInfo, f); }

    const CExportTransectInfo& GetTransectInfo() const { return m_transectInfo; }
    void SetTransectInfo(const CExportTransectInfo& info) { m_transectInfo = info; }

    bool GetLocation() const { return m_bColumn3; }
    void SetLocation(bool b) { m_bColumn3 = b; }
    bool GetX() const { return m_bColumn4; }
    void SetX(bool b) { m_bColumn4 = b; }
    bool GetY() const { return m_bY; }
    void SetY(bool b) { m_bY = b; }
    bool GetZ() const { return m_bZ; }
    void SetZ(bool b) { m_bZ = b; }
    bool GetAxialUnfact() const { return m_bAxialUnfact; }
    void SetAxialUnfact(bool b) { m_bAxialUnfact = b; }
    bool GetAxialFact() const { return m_bAxialFact; }
    void SetAxialFact(bool b) { m_bAxialFact = b; }
    bool GetTensionUnfact() const { return m_bTensionUnfact; }
    void SetTensionUnfact(bool b) { m_bTensionUnfact = b; }
    bool GetTensionFact() const { return m_bTensionFact; }
    void SetTensionFact(bool b) { m_bTensionFact = b; }
    bool GetCompressionUnFact() const { return m_bCompressionUnFact; }
    void SetCompressionUnFact(bool b) { m_bCompressionUnFact = b; }
    bool GetCompressionFact() const { return m_bCompressionFact; }
    void SetCompressionFact(bool b) { m_bCompressionFact = b; }
    bool GetTotalTensionUnfact() const { return m_bTotalTensionUnfact; }
    void SetTotalTensionUnfact(bool b) { m_bTotalTensionUnfact = b; }
    bool GetTotalTensionFact() const { return m_bTotalTensionFact; }
    void SetTotalTensionFact(bool b) { m_bTotalTensionFact = b; }
    bool GetTotalTensionCheck() const { return m_bTotalTensionCheck; }
    void SetTotalTensionCheck(bool b) { m_bTotalTensionCheck = b; }
    bool GetTotalCompressionUnfact() const { return m_bTotalCompressionUnfact; }
    void SetTotalCompressionUnfact(bool b) { m_bTotalCompressionUnfact = b; }
    bool GetTotalCompressionFact() const { return m_bTotalCompressionFact; }
    void SetTotalCompressionFact(bool b) { m_bTotalCompressionFact = b; }
    bool GetTotalCompressionCheck() const { return m_bTotalCompressionCheck; }
    void SetTotalCompressionCheck(bool b) { m_bTotalCompressionCheck = b; }
    bool GetRAD() const { return m_bRAD; }
    void SetRAD(bool b) { m_bRAD = b; }
    bool GetRADThreshCheck() const { return m_bRADThreshCheck; }
    void SetRADThreshCheck(bool b) { m_bRADThreshCheck = b; }
    bool GetRADLimitCheck() const { return m_bRADLimitCheck; }
    void SetRADLimitCheck(bool b) { m_bRADLimitCheck = b; }
    bool GetPeakFlexTensStrain() const { return m_bPeakFlexTensStrain; }
    void SetPeakFlexTensStrain(bool b) { m_bPeakFlexTensStrain = b; }

  private:
    bool m_bY = true;
    bool m_bZ = true;
    bool m_bAxialUnfact = true;
    bool m_bAxialFact = true;
    bool m_bTensionUnfact = true;
    bool m_bTensionFact = true;
    bool m_bCompressionUnFact = true;
    bool m_bCompressionFact = true;
    bool m_bTotalTensionUnfact = true;
    bool m_bTotalTensionFact = true;
    bool m_bTotalTensionCheck = true;
    bool m_bTotalCompressionUnfact = true;
    bool m_bTotalCompressionFact = true;
    bool m_bTotalCompressionCheck = true;
    bool m_bRAD = true;
    bool m_bRADThreshCheck = true;
    bool m_bRADLimitCheck = true;
    bool m_bPeakFlexTensStrain = true;
    CExportTransectInfo m_transectInfo;
};

} // namespace Tevra::Data
