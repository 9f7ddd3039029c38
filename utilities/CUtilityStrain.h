#pragma once

#include "utilities/UtilityGlobal.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

class CAcceptanceCriteria;

// The strain at one row along a utility: axial strain (ratio, tension positive), the
// peak fibre strain of the pipe wall from bending (ratio), the orientation of the bending
// (radians) and the radius of curvature (metres), each of the last two with a flag saying
// whether it exists. Totals are in microstrain.
class CUtilityStrain {
  public:
    CUtilityStrain() = default;
    virtual ~CUtilityStrain() = default;
    CUtilityStrain(const CUtilityStrain&) = default;
    CUtilityStrain& operator=(const CUtilityStrain&) = default;

    // The record: generation, location, the two strains, the angle and the radius each
    // with its flag.
    virtual void Read(FileIO::CDataFile& file);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file, and of a record the calculation makes.
    static int GetVersion() { return m_iVer; }
    int GetReadVersion() const { return m_readVersion; }
    void SetReadVersion(int v) { m_readVersion = v; }

    // Every field back to its default.
    void Empty() { *this = CUtilityStrain(); }

    // Distance of the row along the utility (metres).
    double GetLocation() const { return m_location; }
    void SetLocation(double x) { m_location = x; }
    double GetAxialStrain() const { return m_axialStrain; }
    void SetAxialStrain(double v) { m_axialStrain = v; }
    double GetFlexuralStrain() const { return m_flexuralStrain; }
    void SetFlexuralStrain(double v) { m_flexuralStrain = v; }
    bool GetIsOrientationAngle() const { return m_isOrientationAngle; }
    void SetIsOrientationAngle(bool b) { m_isOrientationAngle = b; }
    // Radians.
    double GetOrientationAngle() const { return m_orientationAngle; }
    void SetOrientationAngle(double v) { m_orientationAngle = v; }
    bool GetIsRadiusofCurvature() const { return m_isRadiusofCurvature; }
    void SetIsRadiusofCurvature(bool b) { m_isRadiusofCurvature = b; }
    // Metres.
    double GetRadiusofCurvature() const { return m_radiusofCurvature; }
    void SetRadiusofCurvature(double v) { m_radiusofCurvature = v; }
    // 1 / radius (1/metres).
    double GetCurvature() const { return 1.0 / m_radiusofCurvature; }

    // Microstrain: the ratios x 1e6.
    double GetAxialStrainInMicro() const { return m_axialStrain * 1e6; }
    double GetFlexuralStrainInMicro() const { return m_flexuralStrain * 1e6; }

    // Axial strain times the compression factor when it is negative, else the tension
    // factor; as a ratio and in microstrain.
    double GetAxialStrain_Factored(const CAcceptanceCriteria& criteria) const;
    double GetAxialStrainInMicro_Factored(const CAcceptanceCriteria& criteria) const;
    // Flexural strain times the bending factor of the tensile side (tension true) or of
    // the compressive side; as a ratio and in microstrain.
    double GetFlexuralStrain_Factored(const CAcceptanceCriteria& criteria, bool tension) const;
    double GetFlexuralStrainInMicro_Factored(const CAcceptanceCriteria& criteria,
                                             bool tension) const;
    // Total strain of the tensile fibre (microstrain): flexural plus axial, the axial part
    // left out when it is not tensile and neglect is set.
    double GetTotalTensileStrainInMicro(const CAcceptanceCriteria& criteria, bool neglect,
                                        bool factored) const;
    // Total strain of the compressive fibre (microstrain, negative in compression): axial
    // minus flexural, the axial part left out when it is tensile and neglect is set.
    double GetTotalCompressiveStrainInMicro(const CAcceptanceCriteria& criteria, bool neglect,
                                            bool factored) const;
    // One result by type; 0 for a type above 8. Type 3 takes the tensile bending
    // factor when the flag is set, else the compressive one.
    double GetResult(UtilityGlobal::EStrainType type, const CAcceptanceCriteria& criteria,
                     bool neglect) const;

    bool operator==(const CUtilityStrain& o) const;
    bool operator!=(const CUtilityStrain& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 2;

    double m_location = 0.0;
    double m_axialStrain = 0.0;
    double m_flexuralStrain = 0.0;
    bool m_isOrientationAngle = true;
    double m_orientationAngle = 0.0;
    int m_readVersion = m_iVer;
    bool m_isRadiusofCurvature = true;
    double m_radiusofCurvature = 0.0;
};

} // namespace Tevra::Data
