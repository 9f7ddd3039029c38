#pragma once

#include "base/CString.h"
#include "base/NamedEntity.h"
#include "utilities/UtilityGlobal.h"

#include <memory>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// What a utility's results are judged against: allowable axial strain in tension and in
// compression (microstrain), joint rotation (degrees), joint pullout (metres) and the
// minimum radius of curvature (metres), each with a flag that says whether it is checked,
// and the factors applied to the calculated quantities before they are judged. The
// standard library's rows are read-only; a user's rows are editable.
class CAcceptanceCriteria : public NamedEntity {
  public:
    explicit CAcceptanceCriteria(bool editable = true);
    virtual ~CAcceptanceCriteria() = default;
    CAcceptanceCriteria(const CAcceptanceCriteria&) = default;
    CAcceptanceCriteria& operator=(const CAcceptanceCriteria&) = default;

    virtual std::unique_ptr<CAcceptanceCriteria> Clone() const {
        return std::make_unique<CAcceptanceCriteria>(*this);
    }
    // The record: name, the six checked quantities (each a value and its flag), the
    // strain and pullout factors, the radius threshold and limit, the rotation and
    // bending factors. It has no generation of its own: the module's stands for it.
    // Only the user's rows are written, so a row read is editable.
    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }
    // Generation of the record as it was read (the current one for a new record).
    int GetReadVersion() const { return m_readVersion; }

    // Every value to its default and every flag on; name and editable stay. The default
    // pullouts, 0.1 and 0.4 m, are a thousand times those of the library's rows: they
    // stand as they are, deliberately unscaled.
    void DefaultValues();

    bool GetEditable() const { return m_editable; }
    void SetEditable(bool b) { m_editable = b; }

    // Allowable axial strain (microstrain).
    double GetAllowableStrain_Tension() const { return m_tension; }
    void SetAllowableStrain_Tension(double v) { m_tension = v; }
    bool IsAllowableStrain_Tension_Used() const { return m_tensionUsed; }
    void SetAllowableStrain_Tension_Used(bool b) { m_tensionUsed = b; }
    double GetAllowableStrain_Compression() const { return m_compression; }
    void SetAllowableStrain_Compression(double v) { m_compression = v; }
    bool IsAllowableStrain_Compression_Used() const { return m_compressionUsed; }
    void SetAllowableStrain_Compression_Used(bool b) { m_compressionUsed = b; }
    // Joint rotation (degrees).
    double GetRotation_Threshold() const { return m_rotationThreshold; }
    void SetRotation_Threshold(double v) { m_rotationThreshold = v; }
    bool IsRotation_Threshold_Used() const { return m_rotationThresholdUsed; }
    void SetRotation_Threshold_Used(bool b) { m_rotationThresholdUsed = b; }
    double GetRotation_Limit() const { return m_rotationLimit; }
    void SetRotation_Limit(double v) { m_rotationLimit = v; }
    bool IsRotation_Limit_Used() const { return m_rotationLimitUsed; }
    void SetRotation_Limit_Used(bool b) { m_rotationLimitUsed = b; }
    // Joint pullout (metres).
    double GetPullout_Threshold() const { return m_pulloutThreshold; }
    void SetPullout_Threshold(double v) { m_pulloutThreshold = v; }
    bool IsPullout_Threshold_Used() const { return m_pulloutThresholdUsed; }
    void SetPullout_Threshold_Used(bool b) { m_pulloutThresholdUsed = b; }
    double GetPullout_Limit() const { return m_pulloutLimit; }
    void SetPullout_Limit(double v) { m_pulloutLimit = v; }
    bool IsPullout_Limit_Used() const { return m_pulloutLimitUsed; }
    void SetPullout_Limit_Used(bool b) { m_pulloutLimitUsed = b; }
    // Minimum radius of curvature (metres).
    double GetRAD_Threshold() const { return m_radThreshold; }
    void SetRAD_Threshold(double v) { m_radThreshold = v; }
    bool IsRAD_Threshold_Used() const { return m_radThresholdUsed; }
    void SetRAD_Threshold_Used(bool b) { m_radThresholdUsed = b; }
    double GetRAD_Limit() const { return m_radLimit; }
    void SetRAD_Limit(double v) { m_radLimit = v; }
    bool IsRAD_Limit_Used() const { return m_radLimitUsed; }
    void SetRAD_Limit_Used(bool b) { m_radLimitUsed = b; }
    // Curvature (1/metres): the inverse of the radius, checked by the radius's flag.
    double GetCurvature_Threshold() const { return 1.0 / m_radThreshold; }
    double GetCurvature_Limit() const { return 1.0 / m_radLimit; }
    bool IsCurvature_Threshold_Used() const { return m_radThresholdUsed; }
    bool IsCurvature_Limit_Used() const { return m_radLimitUsed; }

    // Factors on axial strain when it is tensile, and when it is compressive.
    double GetAxialStrainRF_Tension() const { return m_axialStrainRFTension; }
    void SetAxialStrainRF_Tension(double v) { m_axialStrainRFTension = v; }
    double GetAxialStrainRF_Compression() const { return m_axialStrainRFCompression; }
    void SetAxialStrainRF_Compression(double v) { m_axialStrainRFCompression = v; }
    // Factors on axial and on flexural pullout.
    double GetPulloutRF_Axial() const { return m_pulloutRFAxial; }
    void SetPulloutRF_Axial(double v) { m_pulloutRFAxial = v; }
    double GetPulloutRF_Flexural() const { return m_pulloutRFFlexural; }
    void SetPulloutRF_Flexural(double v) { m_pulloutRFFlexural = v; }
    // Factor on rotation.
    double GetRotationFactor() const { return m_rotationFactor; }
    void SetRotationFactor(double v) { m_rotationFactor = v; }
    // Factors on flexural strain on the tensile and on the compressive side.
    double GetBendingFactorTension() const { return m_bendingFactorTension; }
    void SetBendingFactorTension(double v) { m_bendingFactorTension = v; }
    double GetBendingFactorCompression() const { return m_bendingFactorCompression; }
    void SetBendingFactorCompression(double v) { m_bendingFactorCompression = v; }

    // The criteria by quantity. Tension and compression have a limit only: their
    // threshold is the lowest double and never used. A type outside 0 to 5 gives the
    // lowest double and false.
    double GetLimitValue(UtilityGlobal::ECriteriaType type) const;
    bool IsLimitUsed(UtilityGlobal::ECriteriaType type) const;
    double GetThresholdValue(UtilityGlobal::ECriteriaType type) const;
    bool IsThresholdUsed(UtilityGlobal::ECriteriaType type) const;

    // The words naming each factor or used allowable strain below 0, in the order the
    // checks report them: "allowable strain in tension", "allowable strain in
    // compression", then the pullout, rotation, axial strain and bending factors.
    std::vector<const wchar_t*> NegativeFactorWords() const;

    bool operator==(const CAcceptanceCriteria& o) const;
    bool operator!=(const CAcceptanceCriteria& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 6;

    bool m_editable;
    double m_tension = 0.0;
    bool m_tensionUsed = true;
    double m_compression = 0.0;
    bool m_compressionUsed = true;
    double m_rotationThreshold = 0.0;
    bool m_rotationThresholdUsed = true;
    double m_rotationLimit = 0.0;
    bool m_rotationLimitUsed = true;
    double m_pulloutThreshold = 0.0;
    bool m_pulloutThresholdUsed = true;
    double m_pulloutLimit = 0.0;
    bool m_pulloutLimitUsed = true;
    double m_radThreshold = 0.0;
    bool m_radThresholdUsed = true;
    double m_radLimit = 0.0;
    bool m_radLimitUsed = true;
    double m_axialStrainRFTension = 1.0;
    double m_axialStrainRFCompression = 1.0;
    double m_pulloutRFAxial = 1.0;
    double m_pulloutRFFlexural = 1.0;
    double m_rotationFactor = 1.0;
    double m_bendingFactorTension = 1.0;
    double m_bendingFactorCompression = 1.0;
    int m_readVersion = m_iVer;
};

} // namespace Tevra::Data
