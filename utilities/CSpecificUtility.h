#pragma once

#include "base/GeoDispResult.h"
#include "base/Vec2.h"
#include "utilities/CPulloutAndRotation.h"
#include "utilities/CUtility.h"
#include "utilities/CUtilityResults.h"
#include "utilities/CUtilityStrain.h"

#include <vector>

namespace Tevra::Data {

// One pipe laid along a displacement line or a displacement polyline, between two
// distances along it (metres from its start). Its movements are the samples of that line
// or polyline.
//
// Besides the inputs it holds, by stage slot, the samples of its line or polyline that the
// solver copies onto it (the horizontal movement results), the joint results of its
// assessment and the strains along it.
class CSpecificUtility : public CUtility {
  public:
    using PulloutStore = CUtilityResults::PulloutStore;
    using StrainStore = CUtilityResults::StrainStore;
    using HorizontalMovementStore = CUtilityResults::HorizontalMovementStore;

    // "Displacement Line" and "Displacement Polyline", by EDisplacementDataType.
    static const wchar_t* const DISPLACEMENT_DATA_TYPE_STRINGS[2];

    CSpecificUtility();

    std::unique_ptr<CUtility> Clone() const override {
        return std::make_unique<CSpecificUtility>(*this);
    }
    // The record: the base's object, then generation, sub-name, line, start, end,
    // displacement data type, polyline and the two continuity flags.
    void Read(FileIO::CDataFile& file, int generation) override;
    void Write(FileIO::CDataFile& file) const override;

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }
    // Generation of the record as it was read (the current one for a new record).
    int GetReadVersion() const { return m_readVersion; }

    // Shown after the name in descriptions.
    const CString& GetSubUtilityName() const { return m_subUtilityName; }
    void SetSubUtilityName(const CString& name) { m_subUtilityName = name; }
    // Number (1-based) of the displacement line, used when the data type is a line.
    int GetDisplacementLine() const { return m_line; }
    void SetLine(int n) { m_line = n; }
    // Number (1-based) of the displacement polyline, used when the data type is a polyline.
    int GetDisplacementPolyline() const { return m_displacementPolyline; }
    void SetDisplacementPolyline(int n) { m_displacementPolyline = n; }
    // Distances of the utility's start and end along its line or polyline (metres).
    double GetLineStart() const { return m_lineStart; }
    void SetLineStart(double d) { m_lineStart = d; }
    double GetLineEnd() const { return m_lineEnd; }
    void SetLineEnd(double d) { m_lineEnd = d; }
    UtilityGlobal::EDisplacementDataType GetDisplacementDataType() const { return m_dataType; }
    void SetDisplacementDataType(UtilityGlobal::EDisplacementDataType t) { m_dataType = t; }
    // Whether the segments of a polyline are taken as one continuous pipe for pullout,
    // and for strain.
    bool GetPolySegContinuousPullouts() const { return m_polySegContinuousPullouts; }
    void SetPolySegContinuousPullouts(bool b) { m_polySegContinuousPullouts = b; }
    bool GetPolySegContinuousStrains() const { return m_polySegContinuousStrains; }
    void SetPolySegContinuousStrains(bool b) { m_polySegContinuousStrains = b; }

    // Line end - line start (metres).
    double GetLength() const { return m_lineEnd - m_lineStart; }
    // On a polyline whose segments are continuous for pullout, and for strain.
    bool IsOnPolylineAndAreSegmentsContinousForPullouts() const {
        return m_dataType == UtilityGlobal::eDisplacementPolyline && m_polySegContinuousPullouts;
    }
    bool IsOnPolylineAndAreSegmentsContinousForStrains() const {
        return m_dataType == UtilityGlobal::eDisplacementPolyline && m_polySegContinuousStrains;
    }
    // Joints between the pipes that the utility's length holds:
    // ceil((end - start) / pipe length) - 1; 10 m of 3 m pipes has 3, 9 m has 2.
    int GetNumberOfJoints() const;

    // ---- Results, by stage slot ----------------------------------------------------
    // The samples of the line or polyline that the solver copies onto the utility, the
    // joint results of its assessment and the strain rows along it, as CUtilityResults
    // keeps them: points, iterations, joints and rows numbered from 1. Get does not test
    // its indices; Set grows the stores as needed, so that the solver's threads each grow
    // only their own utility's store.
    const CUtilityResults& Results() const { return m_results; }
    CUtilityResults& AccessResults() { return m_results; }

    bool HorizontalMovementResultExists(int stage, int point) const {
        return m_results.HorizontalMovementResultExists(stage, point);
    }
    int NumHorizontalMovementResults(int stage) const {
        return m_results.NumHorizontalMovementResults(stage);
    }
    const GeoDispResult& GetHorizontalMovementResult(int stage, int point) const {
        return m_results.GetHorizontalMovementResult(stage, point);
    }
    const std::vector<GeoDispResult>& GetHorizontalMovementResults(int stage) const {
        return m_results.GetHorizontalMovementResults(stage);
    }
    const HorizontalMovementStore& GetHorizontalMovementResults() const {
        return m_results.GetHorizontalMovementResults();
    }
    void SetHorizontalMovementResult(int stage, int point, const GeoDispResult& result) {
        m_results.SetHorizontalMovementResult(stage, point, result);
    }
    void DeleteHorizontalMovementResult(int stage, int point) {
        m_results.DeleteHorizontalMovementResult(stage, point);
    }
    void DeleteHorizontalMovementResults(int stage) {
        m_results.DeleteHorizontalMovementResults(stage);
    }
    void ResizeHorizontalMovementResults(int stages, int points) {
        m_results.ResizeHorizontalMovementResults(stages, points);
    }
    bool HorizontalMovementResultsExist(int stage) const {
        return m_results.HorizontalMovementResultsExist(stage);
    }
    void ClearHorizontalMovementResults() { m_results.ClearHorizontalMovementResults(); }

    bool PulloutAndRotationsExist(int stage) const {
        return m_results.PulloutAndRotationsExist(stage);
    }
    bool PulloutAndRotationExists(int stage, int iteration) const {
        return m_results.PulloutAndRotationExists(stage, iteration);
    }
    int NumPulloutAndRotationIterations(int stage) const {
        return m_results.NumPulloutAndRotationIterations(stage);
    }
    int NumPulloutAndRotations(int stage, int iteration) const {
        return m_results.NumPulloutAndRotations(stage, iteration);
    }
    int NumPulloutAndRotations(int stage) const { return m_results.NumPulloutAndRotations(stage); }
    const std::vector<CPulloutAndRotation>& GetPulloutAndRotationIteration(int stage,
                                                                           int iteration) const {
        return m_results.GetPulloutAndRotationIteration(stage, iteration);
    }
    const CPulloutAndRotation& GetPulloutAndRotation(int stage, int iteration, int k) const {
        return m_results.GetPulloutAndRotation(stage, iteration, k);
    }
    const PulloutStore& GetPulloutAndRotations() const {
        return m_results.GetPulloutAndRotations();
    }
    void SetPulloutAndRotationIteration(int stage, int iteration,
                                        const std::vector<CPulloutAndRotation>& joints) {
        m_results.SetPulloutAndRotationIteration(stage, iteration, joints);
    }
    void SetPulloutAndRotation(int stage, int iteration, int k, const CPulloutAndRotation& r) {
        m_results.SetPulloutAndRotation(stage, iteration, k, r);
    }
    void DeletePulloutAndRotation(int stage, int iteration, int k) {
        m_results.DeletePulloutAndRotation(stage, iteration, k);
    }
    void DeletePulloutAndRotationIteration(int stage, int iteration) {
        m_results.DeletePulloutAndRotationIteration(stage, iteration);
    }
    int GetPulloutAndRotationVersion(int stage) const {
        return m_results.GetPulloutAndRotationVersion(stage);
    }

    bool UtilityStrainsExist(int stage) const { return m_results.UtilityStrainsExist(stage); }
    // True when k is below the row count: the last row answers false, as it is given.
    bool UtilityStrainExists(int stage, int k) const {
        return m_results.UtilityStrainExists(stage, k);
    }
    int NumUtilityStrains(int stage) const { return m_results.NumUtilityStrains(stage); }
    const CUtilityStrain& GetUtilityStrain(int stage, int k) const {
        return m_results.GetUtilityStrain(stage, k);
    }
    const std::vector<CUtilityStrain>& GetUtilityStrains(int stage) const {
        return m_results.GetUtilityStrains(stage);
    }
    const StrainStore& GetUtilityStrains() const { return m_results.GetUtilityStrains(); }
    void SetUtilityStrain(int stage, int k, const CUtilityStrain& r) {
        m_results.SetUtilityStrain(stage, k, r);
    }
    void DeleteUtilityStrain(int stage, int k) { m_results.DeleteUtilityStrain(stage, k); }
    int GetUtilityStrainVersion(int stage) const {
        return m_results.GetUtilityStrainVersion(stage);
    }

    // Whether the slot holds joints, strains or movement samples; -1 asks over all slots.
    bool ResultsExist(int stage) const { return m_results.ResultsExist(stage); }
    // Empties the slot of all three kinds of result; -1 drops every slot.
    void DeleteResults(int stage) { m_results.DeleteResults(stage); }

    // ---- Peaks and verdicts (see CUtilityResults) ------------------------------------
    Vec2<double> GetMaximumRotation_Factored(int stage, int iteration,
                                             const CAcceptanceCriteria& criteria) const {
        return m_results.GetMaximumRotation_Factored(stage, iteration, criteria);
    }
    Vec2<double> GetMaximumPullout_Factored(int stage, int iteration,
                                            const CAcceptanceCriteria& criteria) const {
        return m_results.GetMaximumPullout_Factored(stage, iteration, criteria);
    }
    Vec2<double> GetMaximumRotation_Factored(int stage, const CAcceptanceCriteria& criteria) const {
        return m_results.GetMaximumRotation_Factored(stage, criteria);
    }
    Vec2<double> GetMaximumPullout_Factored(int stage, const CAcceptanceCriteria& criteria) const {
        return m_results.GetMaximumPullout_Factored(stage, criteria);
    }
    bool GetMinRAD(int stage, Vec2<double>& locationAndRadius) const {
        return m_results.GetMinRAD(stage, locationAndRadius);
    }
    bool GetMaximumTensileStrain(int stage, double& value, double& location,
                                 const CAcceptanceCriteria& criteria, bool neglect) const {
        return m_results.GetMaximumTensileStrain(stage, value, location, criteria, neglect);
    }
    bool GetMaximumCompressiveStrain(int stage, double& value, double& location,
                                     const CAcceptanceCriteria& criteria, bool neglect) const {
        return m_results.GetMaximumCompressiveStrain(stage, value, location, criteria, neglect);
    }
    double GetMaxPulloutOrRotationValue(int stage, UtilityGlobal::EUDResultType type,
                                        const CAcceptanceCriteria& criteria) const {
        return m_results.GetMaxPulloutOrRotationValue(stage, type, criteria);
    }
    double GetMinPulloutOrRotationValue(int stage, UtilityGlobal::EUDResultType type,
                                        const CAcceptanceCriteria& criteria) const {
        return m_results.GetMinPulloutOrRotationValue(stage, type, criteria);
    }
    UtilityGlobal::EDamageCategory
    GetPulloutOrRotationCategory(int stage, UtilityGlobal::EUDResultType type,
                                 const CAcceptanceCriteria& criteria) const {
        return m_results.GetPulloutOrRotationCategory(stage, type, criteria);
    }
    UtilityGlobal::EDamageCategory GetStrainCategory(int stage, UtilityGlobal::EStrainType type,
                                                     const CAcceptanceCriteria& criteria,
                                                     bool neglect) const {
        return m_results.GetStrainCategory(stage, type, criteria, neglect);
    }

    bool operator==(const CSpecificUtility& o) const;
    bool operator!=(const CSpecificUtility& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 15;

    CString m_subUtilityName;
    int m_line = 1;
    int m_displacementPolyline = 1;
    double m_lineStart = 0.0;
    double m_lineEnd = 0.0;
    UtilityGlobal::EDisplacementDataType m_dataType = UtilityGlobal::eDisplacementLine;
    int m_readVersion = m_iVer;
    bool m_polySegContinuousPullouts = true;
    bool m_polySegContinuousStrains = true;
    CUtilityResults m_results;
};

} // namespace Tevra::Data
