#pragma once

#include "base/GeoDispResult.h"
#include "base/Vec2.h"
#include "utilities/CPulloutAndRotation.h"
#include "utilities/CUtilityStrain.h"
#include "utilities/UtilityGlobal.h"

#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

class CAcceptanceCriteria;

// The results of one pipe, by stage slot: the movement samples along it, the joint results
// of its assessment and the strain rows along it, with the peaks and verdicts read off
// them. A specific utility holds one; so does each transect of a generic utility.
class CUtilityResults {
  public:
    // Joint results by [stage slot][iteration - 1][joint - 1]. Each iteration is one
    // layout of the joints, assuming another first joint.
    using PulloutStore = std::vector<std::vector<std::vector<CPulloutAndRotation>>>;
    // Strain rows by [stage slot][row - 1].
    using StrainStore = std::vector<std::vector<CUtilityStrain>>;
    // Samples by [stage slot][point - 1].
    using HorizontalMovementStore = std::vector<std::vector<GeoDispResult>>;

    // ---- Movement samples, by stage slot ---------------------------------------------
    // Points are numbered from 1. Get does not test its indices: ask Exists first.
    // Set grows the slots and the points as needed.
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
    // Appends a sample to a slot, growing the slots as needed.
    void AddHorizontalMovementResult(int stage, const GeoDispResult& result);
    // Removes one sample; the later ones move up by one. Nothing outside the store.
    void DeleteHorizontalMovementResult(int stage, int point);
    // Empties a slot (-1: drops every slot).
    void DeleteHorizontalMovementResults(int stage);
    // Sizes the store to that many slots of that many fresh samples.
    void ResizeHorizontalMovementResults(int stages, int points);
    // Gives the store that many slots, keeping the samples of those it keeps.
    void ResizeHorizontalMovementSlots(int stages) {
        m_horizontalMovementResults.resize(static_cast<size_t>(stages < 0 ? 0 : stages));
    }
    // Whether the slot holds a sample; -1 asks whether any slot does.
    bool HorizontalMovementResultsExist(int stage) const;
    void ClearHorizontalMovementResults() { m_horizontalMovementResults.clear(); }

    // ---- Joint results, by stage slot and iteration -----------------------------------
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
    // The iterations of a slot; empty outside the store.
    const std::vector<std::vector<CPulloutAndRotation>>&
    GetPulloutAndRotationIterations(int stage) const;
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
    // Empties a slot of its joints (-1: drops every slot).
    void DeletePulloutAndRotations(int stage);
    // 5 for an empty slot, else the generation of the first joint of the first iteration.
    int GetPulloutAndRotationVersion(int stage) const;

    // ---- Strain rows, by stage slot ---------------------------------------------------
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
    // Empties a slot of its rows (-1: drops every slot).
    void DeleteUtilityStrains(int stage);
    // 2 for an empty slot, else the generation of the first row.
    int GetUtilityStrainVersion(int stage) const;

    // Whether the slot holds joints, strains or movement samples; -1 asks over all slots.
    bool ResultsExist(int stage) const;
    // Empties the slot of all three kinds of result; -1 drops every slot.
    void DeleteResults(int stage);

    // ---- Peaks and verdicts -------------------------------------------------------------
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

    // ---- Model file -----------------------------------------------------------------
    // The three stores in the order joints, strains, samples, each a list of slots with
    // its count ahead of it in binary. A read store replaces the held one only once it is
    // whole; every count is held against the bytes left in the record first. In JSON an
    // absent list reads as empty.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file);

    bool operator==(const CUtilityResults& o) const {
        return m_horizontalMovementResults == o.m_horizontalMovementResults &&
               m_pulloutAndRotations == o.m_pulloutAndRotations &&
               m_utilityStrains == o.m_utilityStrains;
    }
    bool operator!=(const CUtilityResults& o) const { return !(*this == o); }

  private:
    HorizontalMovementStore m_horizontalMovementResults;
    PulloutStore m_pulloutAndRotations;
    StrainStore m_utilityStrains;
};

} // namespace Tevra::Data
