#pragma once

#include "base/GeoGlobal.h"
#include "utilities/CUtilityLocationInfo.h"
#include "utilities/UtilityGlobal.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

class CAcceptanceCriteria;

// The result at one joint of a jointed pipe: the axial pullout to the left and to the
// right (mean parallel movement over one pipe length on that side, metres), the flexural
// opening at one side of the joint (metres), the joint rotation (radians) and the sense
// of the vertical curvature there, with what was sampled to find them.
class CPulloutAndRotation {
  public:
    CPulloutAndRotation() = default;
    virtual ~CPulloutAndRotation() = default;
    CPulloutAndRotation(const CPulloutAndRotation&) = default;
    CPulloutAndRotation& operator=(const CPulloutAndRotation&) = default;

    // The record: generation, the four results, the curvature, then the sampled values.
    virtual void Read(FileIO::CDataFile& file);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file, and of a record the calculation makes.
    static int GetVersion() { return m_iVer; }
    int GetReadVersion() const { return m_readVersion; }
    void SetReadVersion(int v) { m_readVersion = v; }

    // Zeroes the four results and sets the curvature to none; the sampled values stay.
    void Empty();

    double GetPullout_Axial_Left() const { return m_pulloutAxialLeft; }
    void SetPullout_Axial_Left(double v) { m_pulloutAxialLeft = v; }
    double GetPullout_Axial_Right() const { return m_pulloutAxialRight; }
    void SetPullout_Axial_Right(double v) { m_pulloutAxialRight = v; }
    double GetPullout_Flexural() const { return m_pulloutFlexural; }
    void SetPullout_Flexural(double v) { m_pulloutFlexural = v; }
    // Joint rotation (radians).
    double GetRotation() const { return m_rotation; }
    void SetRotation(double v) { m_rotation = v; }
    GeoGlobal::ECurvature GetVerticalCurvature() const { return m_verticalCurvature; }
    void SetVerticalCurvature(GeoGlobal::ECurvature c) { m_verticalCurvature = c; }
    const CUtilityLocationInfo& GetLocationInfo() const { return m_locationInfo; }
    void SetLocationInfo(const CUtilityLocationInfo& info) { m_locationInfo = info; }
    // Distance of the joint along the utility (metres).
    double GetLocation() const { return m_locationInfo.GetLocation(); }
    void SetLocation(double x) { m_locationInfo.SetLocation(x); }

    // Right - left (metres).
    double GetPullout_Axial_Total() const { return m_pulloutAxialRight - m_pulloutAxialLeft; }
    // Opening of both sides of the joint: 2 x flexural (metres).
    double GetPullout_Flexural_Total() const { return 2.0 * m_pulloutFlexural; }
    // Rotation factor x rotation (radians).
    double GetRotation_Factored(const CAcceptanceCriteria& criteria) const;
    // Axial plus flexural opening (metres); a closing joint (right - left < 0) adds no
    // axial part.
    double GetPulloutTotal() const;
    // The same with the axial and flexural factors applied (metres).
    double GetPulloutTotal_Factored(const CAcceptanceCriteria& criteria) const;
    // One result by type (metres, rotation in degrees); 0 for a type above 9.
    double GetResult(UtilityGlobal::EUDResultType type, const CAcceptanceCriteria& criteria) const;

    bool operator==(const CPulloutAndRotation& o) const;
    bool operator!=(const CPulloutAndRotation& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 5;

    double m_pulloutAxialLeft = 0.0;
    double m_pulloutAxialRight = 0.0;
    double m_pulloutFlexural = 0.0;
    double m_rotation = 0.0;
    GeoGlobal::ECurvature m_verticalCurvature = GeoGlobal::eNoCurvature;
    int m_readVersion = m_iVer;
    CUtilityLocationInfo m_locationInfo;
};

} // namespace Tevra::Data
