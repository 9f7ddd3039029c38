#pragma once

#include "export/CExportItemsCSV.h"
#include "export/CExportTransectInfo.h"

#include <array>
#include <cstddef>

namespace Tevra::Data {

// The choice of columns of the generic building table, under the section "BDAExportColumns".
// Its cells run name, polyline, L/H, the transect block, vertical offset, then the segment's
// results; the columns are read and saved in that order.
// The getters and setters of the deflection ratio and of the average horizontal strain differ
// in name (GetDeflectionRatio, SetDeflnRatio; GetAvgHorzStrain, SetAvgHorizStrain); hosts
// call them by these names.
class CBDAExportItems : public CExportItemsCSV {
  public:
    // The columns in the order of the table's cells; the transect block comes before the
    // column at kTransectBlockAt.
    static const std::array<SColumn<CBDAExportItems>, 15>& Columns();
    static constexpr std::size_t kTransectBlockAt = 3;
    static constexpr const wchar_t* kSection = L"BDAExportColumns";

    void SaveToRegistry() override { Save(kSection, *this); }
    void RestoreFromRegistry() override { Restore(kSection, *this); }
    bool None() const override { return NoneOn(*this); }

    // Calls f(key, on) for every column in the order of the table's cells, the transect
    // block in its place; on is a bool& that f may change, or a const bool& on a const object.
    template <class F> void ForEachColumn(F&& f) { WalkColumns(*this, m_transectInfo, f); }
    template <class F> void ForEachColumn(F&& f) const { WalkColumns(*this, m_transectInfo, f); }

    const CExportTransectInfo& GetTransectInfo() const { return m_transectInfo; }
    void SetTransectInfo(const CExportTransectInfo& info) { m_transectInfo = info; }

    bool GetVertOffset() const { return m_bColumn3; }
    void SetVertOffset(bool b) { m_bColumn3 = b; }
    bool GetLH() const { return m_bColumn4; }
    void SetLH(bool b) { m_bColumn4 = b; }
    bool GetSegment() const { return m_bSegment; }
    void SetSegment(bool b) { m_bSegment = b; }
    bool GetSegmentStart() const { return m_bSegmentStart; }
    void SetSegmentStart(bool b) { m_bSegmentStart = b; }
    bool GetSegmentLength() const { return m_bSegmentLength; }
    void SetSegmentLength(bool b) { m_bSegmentLength = b; }
    bool GetCurvature() const { return m_bCurvature; }
    void SetCurvature(bool b) { m_bCurvature = b; }
    bool GetDeflectionRatio() const { return m_bDeflectionRatio; }
    void SetDeflnRatio(bool b) { m_bDeflectionRatio = b; }
    bool GetAvgHorzStrain() const { return m_bAvgHorzStrain; }
    void SetAvgHorizStrain(bool b) { m_bAvgHorzStrain = b; }
    bool GetMaxTensileStrain() const { return m_bMaxTensileStrain; }
    void SetMaxTensileStrain(bool b) { m_bMaxTensileStrain = b; }
    bool GetGradHorzDispCurve() const { return m_bGradHorzDispCurve; }
    void SetGradHorzDispCurve(bool b) { m_bGradHorzDispCurve = b; }
    bool GetGradVertDispCurve() const { return m_bGradVertDispCurve; }
    void SetGradVertDispCurve(bool b) { m_bGradVertDispCurve = b; }
    bool GetMinRadCurv() const { return m_bMinRadCurv; }
    void SetMinRadCurv(bool b) { m_bMinRadCurv = b; }
    bool GetDamageCat() const { return m_bDamageCat; }
    void SetDamageCat(bool b) { m_bDamageCat = b; }

  private:
    bool m_bSegment = true;
    bool m_bSegmentStart = true;
    bool m_bSegmentLength = true;
    bool m_bCurvature = true;
    bool m_bDeflectionRatio = true;
    bool m_bAvgHorzStrain = true;
    bool m_bMaxTensileStrain = true;
    bool m_bGradHorzDispCurve = true;
    bool m_bGradVertDispCurve = true;
    bool m_bMinRadCurv = true;
    bool m_bDamageCat = true;
    CExportTransectInfo m_transectInfo;
};

} // namespace Tevra::Data
