#pragma once

#include "utilities/CUtility.h"

namespace Tevra::Data {

// A pipe that could lie anywhere across an alignment: at equal chainages along a
// polyline, transects are set out at right angles to it, each of which is assessed as a
// straight pipe of the utility's dimension and criteria.
//
// Only the inputs are held here. The transects, which hold the points and results, join
// the class with their assessment; their list goes at the end of the record, where a
// reader of this generation passes over it.
class CGenericUtility : public CUtility {
  public:
    CGenericUtility();

    std::unique_ptr<CUtility> Clone() const override {
        return std::make_unique<CGenericUtility>(*this);
    }
    // The record: the base's object, then polyline, interval, length and displacement
    // points. It has no generation of its own: the module's stands for it.
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

    bool operator==(const CGenericUtility& o) const;
    bool operator!=(const CGenericUtility& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 8;

    int m_readVersion = m_iVer;
    int m_polyline = 1;
    double m_length = 10.0;
    double m_interval = 10.0;
    int m_dispPoints = 11;
};

} // namespace Tevra::Data
