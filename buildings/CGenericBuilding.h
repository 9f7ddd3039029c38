#pragma once

#include "base/CString.h"
#include "base/NamedEntity.h"
#include "buildings/CBuildingDamageProperties.h"
#include "buildings/CBuildingTransect.h"

#include <memory>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A building that could stand anywhere along a route: transects are set out across a
// polyline at a fixed interval, and each is assessed as a deep beam for every
// length-to-height ratio (L/H) of a list, at each vertical offset of the properties. The
// beam's height follows from each segment's length through its L/H.
//
// Besides the inputs it holds its transects, which hold the points and results; they are
// built afresh before each run, and kept with the record in the model file.
class CGenericBuilding : public NamedEntity {
  public:
    CGenericBuilding();
    virtual ~CGenericBuilding() = default;
    CGenericBuilding(const CGenericBuilding&) = default;
    CGenericBuilding& operator=(const CGenericBuilding&) = default;

    virtual std::unique_ptr<CGenericBuilding> Clone() const {
        return std::make_unique<CGenericBuilding>(*this);
    }
    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }
    // Generation of the record as it was read (the current one for a new record).
    int GetReadVersion() const { return m_readVersion; }

    // Number (1-based) of the polyline that the building follows.
    int GetPolyline() const { return m_polyline; }
    void SetPolyline(int n) { m_polyline = n; }
    // Length of each transect (metres).
    double GetLength() const { return m_length; }
    void SetLength(double length) { m_length = length; }
    // Spacing of transects along the polyline (metres).
    double GetInterval() const { return m_interval; }
    void SetInterval(double interval) { m_interval = interval; }
    // Number of sample points on a transect.
    int GetDispPoints() const { return m_dispPoints; }
    void SetDispPoints(int n) { m_dispPoints = n; }
    // Chainage of transect t (1-based) along the polyline (metres): (t - 1) x interval.
    double GetTransectChainage(int t) const { return (t - 1) * m_interval; }
    const CBuildingDamageProperties& GetBuildingDamageProperties() const { return m_properties; }
    void SetBuildingDamageProperties(const CBuildingDamageProperties& p) { m_properties = p; }
    bool GetShow() const { return m_show; }
    void SetShow(bool b) { m_show = b; }
    bool GetLabel() const { return m_label; }
    void SetLabel(bool b) { m_label = b; }

    // ---- L/H list, numbered from 0 --------------------------------------------------
    int NumLOverH() const { return static_cast<int>(m_lOverH.size()); }
    double GetLOverH(int index) const { return m_lOverH[static_cast<size_t>(index)]; }
    const std::vector<double>& GetLOverH() const { return m_lOverH; }
    // The list joined with ",", each value rounded to 2 decimal places.
    void GetLOverH(CString& out) const;
    void SetLOverH(const std::vector<double>& list) { m_lOverH = list; }
    // Grows the list to hold index.
    void SetLOverH(int index, double value);
    // The suggested list: 0.1 to 10 on the R10 scale of preferred numbers.
    static void GetDefaultLOverH(std::vector<double>& list);
    static void GetDefaultLOverH(CString& out);
    bool IsAnyLOverHZero() const;
    bool IsAnyLOverHNegative() const;
    // "%.3f", "%i: %.3f", "L/H %.3f" or "L/H %i: %.3f" with the number index + 1.
    void GetLOverHDescription(CString& out, int index, bool words, bool numbered) const;

    // ---- Transects, numbered from 1 --------------------------------------------------
    int NumTransects() const { return static_cast<int>(m_transects.size()); }
    bool TransectExists(int t) const { return t >= 1 && t <= NumTransects(); }
    const CBuildingTransect& GetTransect(int t) const {
        return m_transects[static_cast<size_t>(t - 1)];
    }
    CBuildingTransect& AccessTransect(int t) { return m_transects[static_cast<size_t>(t - 1)]; }
    const std::vector<CBuildingTransect>& GetTransects() const { return m_transects; }
    // Grows the list with default transects to hold t.
    void SetTransect(int t, const CBuildingTransect& transect);
    void AddTransect(const CBuildingTransect& transect) { m_transects.push_back(transect); }
    void DeleteTransects() { m_transects.clear(); }

    // ---- Results over the transects ---------------------------------------------------
    // Any segment of the stage (-1: any) at any transect, offset and L/H.
    bool BuildingDamageResultsExist(int stage, bool combined) const;
    int NumBuildingDamageResults(int stage, bool combined) const;
    // Empties the segment lists of the stage (-1: all) on every transect.
    void DeleteBuildingDamageResults(int stage, bool combined);
    // Highest damage category over the transects; 0 without results.
    int GetMaxBuildingDamageCategory(int stage, bool combined) const;
    // As the transect's, with a transect of -1 matching all.
    bool CombinedSegmentsExist(int stage, int transect, int offset) const;
    // Highest MaxTensileStrain over the L/H lists, or of one L/H, of (stage, offset) of a
    // transect; 0.0 unless some L/H of that stage and offset has results.
    double GetMaximumTensileStrain_Offset(int stage, int transect, int offset, bool combined) const;
    double GetMaximumTensileStrain_Offset_Height(int stage, int transect, int offset, int lh,
                                                 bool combined) const;
    // Peaks of the settlement of a transect (metres), forwarded to it.
    double GetMaxDisplacementVertical(int stage, int transect, int offset) const {
        return GetTransect(transect).GetMaxDisplacementVertical(stage, offset);
    }
    double GetMinDisplacementVertical(int stage, int transect, int offset) const {
        return GetTransect(transect).GetMinDisplacementVertical(stage, offset);
    }

    bool operator==(const CGenericBuilding& o) const;
    bool operator!=(const CGenericBuilding& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 7;

    int m_readVersion = m_iVer;
    int m_polyline = 1;
    std::vector<double> m_lOverH;
    std::vector<CBuildingTransect> m_transects;
    CBuildingDamageProperties m_properties;
    double m_length = 10.0;
    double m_interval = 10.0;
    int m_dispPoints = 11;
    bool m_show = false;
    bool m_label = false;
};

} // namespace Tevra::Data
