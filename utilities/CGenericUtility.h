#pragma once

#include "base/CUnit.h"
#include "utilities/CUtility.h"
#include "utilities/CUtilityTransect.h"

#include <vector>

namespace Tevra::Data {

// A pipe that could lie anywhere across an alignment: at equal chainages along a
// polyline, transects are set out at right angles to it, each of which is assessed as a
// straight pipe of the utility's dimension and criteria.
//
// Besides the inputs it holds its transects, which hold the points and results; they are
// built afresh before each run from the inputs, and kept with the record in the model
// file, after its inputs.
class CGenericUtility : public CUtility {
  public:
    CGenericUtility();

    std::unique_ptr<CUtility> Clone() const override {
        return std::make_unique<CGenericUtility>(*this);
    }
    // The record: the base's object, then polyline, interval, length and displacement
    // points, then the transects. It has no generation of its own: the module's stands
    // for it.
    void Read(FileIO::CDataFile& file, int generation) override;
    void Write(FileIO::CDataFile& file) const override;

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }
    // Generation of the record as it was read (the current one for a new record).
    int GetReadVersion() const { return m_readVersion; }

    // Number (1-based) of the polyline along which the transects are set out.
    int GetPolyline() const { return m_polyline; }
    void SetPolyline(int n) { m_polyline = n; }
    // Length of each transect (metres).
    double GetLength() const { return m_length; }
    void SetLength(double length) { m_length = length; }
    // Chainage between transects (metres).
    double GetInterval() const { return m_interval; }
    void SetInterval(double interval) { m_interval = interval; }
    // Number of displacement points on a transect.
    int GetDispPoints() const { return m_dispPoints; }
    void SetDispPoints(int n) { m_dispPoints = n; }
    // Chainage of transect t (1-based) along the polyline (metres): (t - 1) x interval.
    double GetTransectChainage(int t) const { return (t - 1) * m_interval; }

    // ---- Transects, numbered from 1 ----------------------------------------------------
    int NumTransects() const { return static_cast<int>(m_transects.size()); }
    bool TransectExists(int t) const { return t >= 1 && t <= NumTransects(); }
    const CUtilityTransect& GetTransect(int t) const {
        return m_transects[static_cast<size_t>(t - 1)];
    }
    CUtilityTransect& AccessTransect(int t) { return m_transects[static_cast<size_t>(t - 1)]; }
    const std::vector<CUtilityTransect>& GetTransects() const { return m_transects; }
    // Grows the list with default transects to hold t.
    void SetTransect(int t, const CUtilityTransect& transect);
    void AddTransect(const CUtilityTransect& transect) { m_transects.push_back(transect); }
    void DeleteTransects() { m_transects.clear(); }
    // Gives every transect that many stage slots, keeping those it has.
    void ResizeHorizontalMovementResults(int stages);

    // Whether any transect holds results of the kind in the slot (-1: any slot).
    bool HorizontalMovementResultsExist(int stage) const;
    bool PulloutAndRotationsExist(int stage) const;
    bool UtilityStrainsExist(int stage) const;
    bool ResultsExist(int stage) const;
    // Empties the joints and strains of every transect in the slot (-1: all slots), and
    // the movement samples, which are the transects' points.
    void DeleteUDResults(int stage);
    void DeleteHorizontalMovementResults(int stage);

    // "Transect 2: 10.00 m" with prefix and number, "Transect 10.00 m" with prefix alone,
    // "2: 10.00 m" with the number alone and "10.00 m" with neither: the transect's number
    // (1-based) and its chainage in the display unit of distances along a line.
    void GetTransectDescription(CString& out, int t, const CUnit& unit, bool prefix,
                                bool number) const;
    // The descriptions of every transect in order.
    void GetTransectsDescriptions(std::vector<CString>& out, const CUnit& unit, bool prefix,
                                  bool number) const;

    // The worst verdict over the transects: the largest, found as soon as a transect gives
    // 2 (beyond the limit); 0 without transects.
    UtilityGlobal::EDamageCategory
    GetPulloutOrRotationCategory(int stage, UtilityGlobal::EUDResultType type,
                                 const CAcceptanceCriteria& criteria) const;
    UtilityGlobal::EDamageCategory GetStrainCategory(int stage, UtilityGlobal::EStrainType type,
                                                     const CAcceptanceCriteria& criteria,
                                                     bool neglect) const;

    bool operator==(const CGenericUtility& o) const;
    bool operator!=(const CGenericUtility& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 8;

    int m_readVersion = m_iVer;
    int m_polyline = 1;
    double m_length = 10.0;
    double m_interval = 10.0;
    int m_dispPoints = 11;
    std::vector<CUtilityTransect> m_transects;
};

} // namespace Tevra::Data
