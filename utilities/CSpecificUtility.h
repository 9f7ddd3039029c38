#pragma once

#include "base/GeoDispResult.h"
#include "base/Vec2.h"
#include "utilities/CPulloutAndRotation.h"
#include "utilities/CUtility.h"
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
    // Joint results by [stage slot][iteration - 1][joint - 1]. Each iteration is one
    // layout of the joints, assuming another first joint.
    using PulloutStore = std::vector<std::vector<std::vector<CPulloutAndRotation>>>;
    // Strain rows by [stage slot][row - 1].
    using StrainStore = std::vector<std::vector<CUtilityStrain>>;

    // Samples by [stage slot][point - 1].
    using HorizontalMovementStore = std::vector<std::vector<GeoDispResult>>;

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

    // ---- Samples of the line or polyline, by stage slot ----------------------------
    // Points are numbered from 1. Get does not test its indices: ask Exists first.
    // Set grows the slots and the points as needed, so that the solver's threads each
    // grow only their own utility's store.
    bool HorizontalMovementResultExists(int stage, int point) const;
    int NumHorizontalMovementResults(int stage) const;
    const GeoDispResult& GetHorizontalMovementResult(int stage, int point) const {
        return m_horizontalMovementResults[static_cast<size_t>(stage)]
                                          [static_cast<size_t>(point - 1)];
    }
    // The samples of a slot; empty outside the store.
    const std::vector<GeoDispResult>& GetHorizontalMovementResults(int stage) const;
    const HorizontalMovementStore& GetHorizontalMovementResults() const {
        return m_horizontalMovementResults;
    }
    void SetHorizontalMovementResult(int stage, int point, const GeoDispResult& result);
    // Removes one sample; the later ones move up by one. Nothing outside the store.
    void DeleteHorizontalMovementResult(int stage, int point);
    // Empties a slot (-1: drops every slot).
    void DeleteHorizontalMovementResults(int stage);
    // Sizes the store to that many slots of that many fresh samples.
    void ResizeHorizontalMovementResults(int stages, int points);
    // Whether the slot holds a sample; -1 asks whether any slot does.
    bool HorizontalMovementResultsExist(int stage) const;
    void ClearHorizontalMovementResults() { m_horizontalMovementResults.clear(); }

    // ---- Joint results, by stage slot and iteration --------------------------------
    // Iterations and joints are numbered from 1. Get does not test its indices: ask
    // Exists first. Set grows the store as needed, new rows being default records.
    // Whether the slot holds a joint in any iteration; -1 asks over every slot.
    bool PulloutAndRotationsExist(int stage) const;
    // The iteration is in range and holds a joint.
    bool PulloutAndRotationExists(int stage, int iteration) const;
    int NumPulloutAndRotationIterations(int stage) const;
    int NumPulloutAndRotations(int stage, int iteration) const;
    // Joints of every iteration of the slot.
    int NumPulloutAndRotations(int stage) const;
    const std::vector<CPulloutAndRotation>& GetPulloutAndRotationIteration(int stage,
                                                                           int iteration) const {
        return m_pulloutAndRotations[static_cast<size_t>(stage)]
                                    [static_cast<size_t>(iteration - 1)];
    }
    const CPulloutAndRotation& GetPulloutAndRotation(int stage, int iteration, int k) const {
        return GetPulloutAndRotationIteration(stage, iteration)[static_cast<size_t>(k - 1)];
    }
    const PulloutStore& GetPulloutAndRotations() const { return m_pulloutAndRotations; }
    void SetPulloutAndRotationIteration(int stage, int iteration,
                                        const std::vector<CPulloutAndRotation>& joints);
    void SetPulloutAndRotation(int stage, int iteration, int k, const CPulloutAndRotation& r);
    // Removes one joint of an iteration; the later ones move up. Nothing outside the store.
    void DeletePulloutAndRotation(int stage, int iteration, int k);
    // Removes one iteration; the later ones move up. Nothing outside the store.
    void DeletePulloutAndRotationIteration(int stage, int iteration);
    // 5 for an empty slot, else the generation of the first joint of the first iteration.
    int GetPulloutAndRotationVersion(int stage) const;

    // ---- Strain rows, by stage slot ------------------------------------------------
    // Whether the slot holds a row; -1 asks over every slot.
    bool UtilityStrainsExist(int stage) const;
    // Rows are numbered from 1, and a row exists when its number is below the row count:
    // the last row answers false here, a reading kept as it is given.
    bool UtilityStrainExists(int stage, int k) const;
    int NumUtilityStrains(int stage) const;
    const CUtilityStrain& GetUtilityStrain(int stage, int k) const {
        return m_utilityStrains[static_cast<size_t>(stage)][static_cast<size_t>(k - 1)];
    }
    // The rows of a slot; empty outside the store.
    const std::vector<CUtilityStrain>& GetUtilityStrains(int stage) const;
    const StrainStore& GetUtilityStrains() const { return m_utilityStrains; }
    void SetUtilityStrain(int stage, int k, const CUtilityStrain& r);
    // Removes one row; the later ones move up. Nothing outside the store.
    void DeleteUtilityStrain(int stage, int k);
    // 2 for an empty slot, else the generation of the first row.
    int GetUtilityStrainVersion(int stage) const;

    // Whether the slot holds joints, strains or movement samples; -1 asks over all slots.
    bool ResultsExist(int stage) const;
    // Empties the slot of all three kinds of result; -1 drops every slot.
    void DeleteResults(int stage);

    // ---- Peaks and verdicts ----------------------------------------------------------
    // (location metres, factored rotation radians) of the joint of largest factored
    // rotation in one iteration; the first of equal peaks wins.
    Vec2<double> GetMaximumRotation_Factored(int stage, int iteration,
                                             const CAcceptanceCriteria& criteria) const;
    // (location, factored total pullout) of the largest in one iteration (metres).
    Vec2<double> GetMaximumPullout_Factored(int stage, int iteration,
                                            const CAcceptanceCriteria& criteria) const;
    // The same over all iterations; (lowest double, lowest double) when there is none.
    Vec2<double> GetMaximumRotation_Factored(int stage, const CAcceptanceCriteria& criteria) const;
    Vec2<double> GetMaximumPullout_Factored(int stage, const CAcceptanceCriteria& criteria) const;
    // (location, radius) of the smallest radius of curvature (metres). It starts from the
    // first row whatever its flag and takes later flagged rows when strictly smaller;
    // true only if such a later flagged row exists.
    bool GetMinRAD(int stage, Vec2<double>& locationAndRadius) const;
    // Largest total strain of the tensile fibre (microstrain) and its location (metres);
    // true if any row is in tension.
    bool GetMaximumTensileStrain(int stage, double& value, double& location,
                                 const CAcceptanceCriteria& criteria, bool neglect) const;
    // Largest magnitude of total strain of the compressive fibre (microstrain) and its
    // location; true if any row is in compression.
    bool GetMaximumCompressiveStrain(int stage, double& value, double& location,
                                     const CAcceptanceCriteria& criteria, bool neglect) const;
    // Largest and smallest joint result of a type over every iteration of the slot (all
    // slots for -1); the lowest, and the largest, double when there is none.
    double GetMaxPulloutOrRotationValue(int stage, UtilityGlobal::EUDResultType type,
                                        const CAcceptanceCriteria& criteria) const;
    double GetMinPulloutOrRotationValue(int stage, UtilityGlobal::EUDResultType type,
                                        const CAcceptanceCriteria& criteria) const;
    // The verdict on the joints: the factored pullout (type 6) and the factored rotation
    // in degrees (type 8) against their threshold and limit; any other type against the
    // allowable tensile strain.
    UtilityGlobal::EDamageCategory
    GetPulloutOrRotationCategory(int stage, UtilityGlobal::EUDResultType type,
                                 const CAcceptanceCriteria& criteria) const;
    // The verdict on the strains: factored total tension (type 5) and compression (type 7)
    // against their limits, the least radius (type 8) against its threshold and limit.
    UtilityGlobal::EDamageCategory GetStrainCategory(int stage, UtilityGlobal::EStrainType type,
                                                     const CAcceptanceCriteria& criteria,
                                                     bool neglect) const;

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
    HorizontalMovementStore m_horizontalMovementResults;
    PulloutStore m_pulloutAndRotations;
    StrainStore m_utilityStrains;
};

} // namespace Tevra::Data
