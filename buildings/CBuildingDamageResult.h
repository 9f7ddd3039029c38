#pragma once

#include "base/CString.h"
#include "base/GeoGlobal.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// The assessment of one segment of a building: where it lies, how it bends and strains,
// and its damage category. Lengths in metres along the building from its start, in the
// undeformed position; displacements in metres; strains and ratios plain.
class CBuildingDamageResult {
  public:
    CBuildingDamageResult() = default;
    // A result of measured fields, category 0 and the strains 0.
    CBuildingDamageResult(double start, double end, double deflectionRatio, double maxSettlement,
                          double hStrain, GeoGlobal::ECurvature curvature, double maxCurvature,
                          double minCurvature, bool maxGradientOfHDispCurveSet,
                          double maxGradientOfHDispCurve, bool maxGradientOfVDispCurveSet,
                          double maxGradientOfVDispCurve, bool startOfCombinedSegment);
    virtual ~CBuildingDamageResult() = default;
    CBuildingDamageResult(const CBuildingDamageResult&) = default;
    CBuildingDamageResult& operator=(const CBuildingDamageResult&) = default;

    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    static int GetVersion() { return m_iVer; }

    // Label of a curvature: "Hogging" (3810), "Sagging" (3811), "None" (3675) for any
    // other value.
    static CString GetCurvatureAsString(GeoGlobal::ECurvature c);
    // Exact match with the hogging label gives 0, with the sagging label 1, anything
    // else, the empty text included, 2.
    static GeoGlobal::ECurvature GetCurvatureFromCStr(const CString& text);

    // End - Start (metres).
    double GetLength() const { return m_end - m_start; }

    double GetStart() const { return m_start; }
    void SetStart(double v) { m_start = v; }
    double GetEnd() const { return m_end; }
    void SetEnd(double v) { m_end = v; }
    // Largest distance of the settlement curve from its chord over the chord's length.
    double GetDeflectionRatio() const { return m_deflectionRatio; }
    void SetDeflectionRatio(double v) { m_deflectionRatio = v; }
    // Largest absolute vertical movement (metres).
    double GetMaxSettlement() const { return m_maxSettlement; }
    void SetMaxSettlement(double v) { m_maxSettlement = v; }
    // Average horizontal strain over the segment, extension positive.
    double GetHStrain() const { return m_hStrain; }
    void SetHStrain(double v) { m_hStrain = v; }
    double GetMaxGradientOfHDispCurve() const { return m_maxGradientOfHDispCurve; }
    void SetMaxGradientOfHDispCurve(double v) { m_maxGradientOfHDispCurve = v; }
    // Steepest chord of the settlement curve, with the sign of (v1 - v2)/(x2 - x1).
    double GetMaxGradientOfVDispCurve() const { return m_maxGradientOfVDispCurve; }
    void SetMaxGradientOfVDispCurve(double v) { m_maxGradientOfVDispCurve = v; }
    double GetMaxTensileStrain() const { return m_maxTensileStrain; }
    void SetMaxTensileStrain(double v) { m_maxTensileStrain = v; }
    // Negative.
    double GetMaxCompressiveStrain() const { return m_maxCompressiveStrain; }
    void SetMaxCompressiveStrain(double v) { m_maxCompressiveStrain = v; }
    GeoGlobal::ECurvature GetCurvature() const { return m_curvature; }
    void SetCurvature(GeoGlobal::ECurvature c) { m_curvature = c; }
    // Largest and smallest absolute second derivative of settlement (1/metres).
    double GetMaxCurvature() const { return m_maxCurvature; }
    void SetMaxCurvature(double v) { m_maxCurvature = v; }
    double GetMinCurvature() const { return m_minCurvature; }
    void SetMinCurvature(double v) { m_minCurvature = v; }
    // 0 to 4.
    int GetDamageCategory() const { return m_damageCategory; }
    void SetDamageCategory(int c) { m_damageCategory = c; }
    // Whether the gradients were found; a gradient is not to be read while its flag is false.
    bool GetMaxGradientOfHDispCurveSet() const { return m_maxGradientOfHDispCurveSet; }
    void SetMaxGradientOfHDispCurveSet(bool b) { m_maxGradientOfHDispCurveSet = b; }
    bool GetMaxGradientOfVDispCurveSet() const { return m_maxGradientOfVDispCurveSet; }
    void SetMaxGradientOfVDispCurveSet(bool b) { m_maxGradientOfVDispCurveSet = b; }
    // This segment begins a segment of the user's combination.
    bool GetStartOfCombinedSegment() const { return m_startOfCombinedSegment; }
    void SetStartOfCombinedSegment(bool b) { m_startOfCombinedSegment = b; }

    bool operator==(const CBuildingDamageResult& o) const;
    bool operator!=(const CBuildingDamageResult& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 6;

    double m_start = 0.0;
    double m_end = 0.0;
    double m_deflectionRatio = 0.0;
    double m_maxSettlement = 0.0;
    double m_hStrain = 0.0;
    double m_maxGradientOfHDispCurve = 0.0;
    double m_maxGradientOfVDispCurve = 0.0;
    double m_maxTensileStrain = 0.0;
    double m_maxCompressiveStrain = 0.0;
    GeoGlobal::ECurvature m_curvature = GeoGlobal::eSagging;
    double m_maxCurvature = 0.0;
    double m_minCurvature = 0.0;
    int m_damageCategory = 0;
    bool m_maxGradientOfHDispCurveSet = false;
    bool m_maxGradientOfVDispCurveSet = false;
    bool m_startOfCombinedSegment = true;
};

} // namespace Tevra::Data
