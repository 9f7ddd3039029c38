#pragma once

#include "export/CExportItemsCSV.h"
#include "export/CExportTransectInfo.h"

#include <array>
#include <cstddef>

namespace Tevra::Data {

// The choice of columns of the generic utility movements table, under the section
// "GenericUDADispsExportSettings": the utility, its polyline, the iteration, the location and
// its coordinates, then the movements X, Y, Z, horizontal and perpendicular to the pipe at
// the joint (N), before it (Nminus) and after it (Nplus). The transect block follows.
class CUDAExportCSVDisps : public CExportItemsCSV {
  public:
    // The columns in the order of the table's cells; the transect block comes before the
    // column at kTransectBlockAt (here: after them all).
    static const std::array<SColumn<CUDAExportCSVDisps>, 22>& Columns();
    static constexpr std::size_t kTransectBlockAt = 22;
    static constexpr const wchar_t* kSection = L"GenericUDADispsExportSettings";

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
    bool GetDispXN() const { return m_bDispXN; }
    void SetDispXN(bool b) { m_bDispXN = b; }
    bool GetDispYN() const { return m_bDispYN; }
    void SetDispYN(bool b) { m_bDispYN = b; }
    bool GetDispZN() const { return m_bDispZN; }
    void SetDispZN(bool b) { m_bDispZN = b; }
    bool GetDispHorizN() const { return m_bDispHorizN; }
    void SetDispHorizN(bool b) { m_bDispHorizN = b; }
    bool GetDispPerpN() const { return m_bDispPerpN; }
    void SetDispPerpN(bool b) { m_bDispPerpN = b; }
    bool GetDispXNminus() const { return m_bDispXNminus; }
    void SetDispXNminus(bool b) { m_bDispXNminus = b; }
    bool GetDispYNminus() const { return m_bDispYNminus; }
    void SetDispYNminus(bool b) { m_bDispYNminus = b; }
    bool GetDispZNminus() const { return m_bDispZNminus; }
    void SetDispZNminus(bool b) { m_bDispZNminus = b; }
    bool GetDispHorizNminus() const { return m_bDispHorizNminus; }
    void SetDispHorizNminus(bool b) { m_bDispHorizNminus = b; }
    bool GetDispPerpNminus() const { return m_bDispPerpNminus; }
    void SetDispPerpNminus(bool b) { m_bDispPerpNminus = b; }
    bool GetDispXNplus() const { return m_bDispXNplus; }
    void SetDispXNplus(bool b) { m_bDispXNplus = b; }
    bool GetDispYNplus() const { return m_bDispYNplus; }
    void SetDispYNplus(bool b) { m_bDispYNplus = b; }
    bool GetDispZNplus() const { return m_bDispZNplus; }
    void SetDispZNplus(bool b) { m_bDispZNplus = b; }
    bool GetDispHorizNplus() const { return m_bDispHorizNplus; }
    void SetDispHorizNplus(bool b) { m_bDispHorizNplus = b; }
    bool GetDispPerpNplus() const { return m_bDispPerpNplus; }
    void SetDispPerpNplus(bool b) { m_bDispPerpNplus = b; }

  private:
    bool m_bX = true;
    bool m_bY = true;
    bool m_bZ = true;
    bool m_bDispXN = true;
    bool m_bDispYN = true;
    bool m_bDispZN = true;
    bool m_bDispHorizN = true;
    bool m_bDispPerpN = true;
    bool m_bDispXNminus = true;
    bool m_bDispYNminus = true;
    bool m_bDispZNminus = true;
    bool m_bDispHorizNminus = true;
    bool m_bDispPerpNminus = true;
    bool m_bDispXNplus = true;
    bool m_bDispYNplus = true;
    bool m_bDispZNplus = true;
    bool m_bDispHorizNplus = true;
    bool m_bDispPerpNplus = true;
    CExportTransectInfo m_transectInfo;
};

} // namespace Tevra::Data
