#pragma once

#include "base/BaseEntity.h"
#include "base/CDisplacementData.h"
#include "base/CString.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A straight tunnel heading between two centre line ends, with its levels, its size and
// the volume loss that drives its settlement trough. Lengths and levels in metres.
class GeoTunnel : public BaseEntity {
  public:
    enum ESoilType { eSoilNotUsed = 0, eCohesive = 1, eGranular = 2 };
    // Method that gives the trough width i.
    enum EkDerivation {
        ekNotUsed = 0,
        ekOReillyAndNew = 1,
        ekBoscardin = 2,
        ekMair = 3,
        ekUserSpecified = 4,
        ekSelby = 5
    };
    // Method for points below the surface.
    enum ESubSurfaceMethod { eMair = 0, eNewAndBowers = 1, eHarrisAndAlvarado = 2 };

    static const wchar_t* const SOIL_TYPE_STRINGS[3];
    static const wchar_t* const K_DERIVATION_STRINGS[6];
    static const wchar_t* const SUB_SURFACE_METHOD_STRINGS[3];
    static const EkDerivation SURFACE_K_DERIVATIONS[4];
    static const EkDerivation SUB_SURFACE_K_DERIVATIONS[4];
    static ESoilType GetSoilTypeFromCStr(const CString& text);
    static EkDerivation GetKDerivationFromCStr(const CString& text);
    static ESubSurfaceMethod GetSubSurfaceMethodFromCStr(const CString& text);

    GeoTunnel() { Empty(); }
    void Empty();

    static int GetVersion() { return m_iVer; }

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    double GetXCentreLine1() const { return m_x1; }
    double GetXCentreLine2() const { return m_x2; }
    double GetYCentreLine1() const { return m_y1; }
    double GetYCentreLine2() const { return m_y2; }
    double GetZCentreLine1() const { return m_z1; }
    double GetZCentreLine2() const { return m_z2; }
    void SetXCentreLine1(double v) { m_x1 = v; }
    void SetXCentreLine2(double v) { m_x2 = v; }
    void SetYCentreLine1(double v) { m_y1 = v; }
    void SetYCentreLine2(double v) { m_y2 = v; }
    void SetZCentreLine1(double v) { m_z1 = v; }
    void SetZCentreLine2(double v) { m_z2 = v; }
    double GetSoilInterfaceLevel1() const { return m_interface1; }
    double GetSoilInterfaceLevel2() const { return m_interface2; }
    void SetSoilInterfaceLevel1(double v) { m_interface1 = v; }
    void SetSoilInterfaceLevel2(double v) { m_interface2 = v; }
    double GetGroundLevel1() const { return m_ground1; }
    double GetGroundLevel2() const { return m_ground2; }
    void SetGroundLevel1(double v) { m_ground1 = v; }
    void SetGroundLevel2(double v) { m_ground2 = v; }
    // Excavated diameter (metres).
    double GetDiameter() const { return m_diameter; }
    void SetDiameter(double v) { m_diameter = v; }
    // Volume loss (percent of the excavated area).
    double GetPercentLoss() const { return m_percentLoss; }
    void SetPercentLoss(double v) { m_percentLoss = v; }
    // Trough width factor k for a surface or a sub-surface point.
    double Getk(ESurfaceType t) const { return m_k[t]; }
    void Setk(ESurfaceType t, double v) { m_k[t] = v; }
    // Exponent m of the Harris and Alvarado width.
    double Getm() const { return m_m; }
    void Setm(double v) { m_m = v; }
    ESoilType GetSoilType() const { return m_soilType; }
    void SetSoilType(ESoilType t) { m_soilType = t; }
    int GetNumLayers() const { return m_numLayers; }
    void SetNumLayers(int n) { m_numLayers = n; }
    EkDerivation GetkDerivation(ESurfaceType t) const { return m_kDerivation[t]; }
    void SetkDerivation(ESurfaceType t, EkDerivation d) { m_kDerivation[t] = d; }
    ESubSurfaceMethod GetSubSurfaceMethod() const { return m_subSurfaceMethod; }
    void SetSubSurfaceMethod(ESubSurfaceMethod m) { m_subSurfaceMethod = m; }
    bool GetShow() const { return m_show; }
    void SetShow(bool on) { m_show = on; }
    bool GetLabel() const { return m_label; }
    void SetLabel(bool on) { m_label = on; }

    // Distance between the centre line ends, in space and in plan (metres).
    double GetLength() const;
    double GetPlanLength() const;
    // Extent of the tunnel's outline in plan: each end offset by half the diameter
    // either side of the centre line.
    double GetXMin() const;
    double GetXMax() const;
    double GetYMin() const;
    double GetYMax() const;
    double GetZMin() const;
    double GetZMax() const;

    // The record in the model file.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);

    bool operator==(const GeoTunnel& o) const;
    bool operator!=(const GeoTunnel& o) const { return !(*this == o); }

  private:
    static const int m_iVer = 10;

    void Corners(double xs[4], double ys[4]) const;

    CString m_name;
    double m_x1, m_x2, m_y1, m_y2, m_z1, m_z2;
    double m_interface1, m_interface2;
    double m_ground1, m_ground2;
    double m_diameter;
    double m_percentLoss;
    double m_k[2];
    double m_m;
    ESoilType m_soilType;
    int m_numLayers;
    EkDerivation m_kDerivation[2];
    ESubSurfaceMethod m_subSurfaceMethod;
    bool m_show;
    bool m_label;
};

} // namespace Tevra::Data
