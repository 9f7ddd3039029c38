#pragma once

#include "base/CString.h"
#include "base/GeoDispResult.h"
#include "base/Vec2.h"
#include "base/Vec3.h"
#include "utilities/CUtilityResults.h"

#include <limits>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

class CAcceptanceCriteria;

// One transect of a generic utility: a straight pipe set out at right angles across the
// utility's polyline, with its own row of displacement points. The points are the
// movement samples of each stage slot, placed when the transect is built, so that a
// sample holds its point's coordinates before the solver fills in its movement. It is
// assessed as a specific utility is and keeps the same kinds of result.
class CUtilityTransect {
  public:
    CUtilityTransect() = default;
    virtual ~CUtilityTransect() = default;
    CUtilityTransect(const CUtilityTransect&) = default;
    CUtilityTransect& operator=(const CUtilityTransect&) = default;

    // The record: generation, name, the crossing point and the results of every slot.
    virtual void Read(FileIO::CDataFile& file);
    virtual void Write(FileIO::CDataFile& file) const;
    static int GetVersion() { return m_iVer; }
    int GetReadVersion() const { return m_readVersion; }

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    // Where the transect crosses the polyline (metres); not-a-number until it is built.
    const Vec3<double>& GetPolyineIntersection() const { return m_polylineIntersection; }
    void SetPolylineIntersection(const Vec3<double>& p) { m_polylineIntersection = p; }

    // ---- Geometry of a stage slot: its points, numbered from 1 ----------------------
    int NumberOfPoints(int stage) const { return m_results.NumHorizontalMovementResults(stage); }
    double GetX(int stage, int k) const { return GetPoint(stage, k).x; }
    double GetY(int stage, int k) const { return GetPoint(stage, k).y; }
    double GetZ(int stage, int k) const { return GetPoint(stage, k).z; }
    const Vec3<double>& GetPoint(int stage, int k) const {
        return m_results.GetHorizontalMovementResult(stage, k).GetPoint();
    }
    // Distance in space from the first point to the last (metres); 0 with fewer than two.
    double GetLength(int stage) const;
    // Distance in plan from the first point to the last (metres); 0 with fewer than two.
    double GetTransectPlanLength(int stage) const;
    // Distance in space between the first two points (metres); 0 with fewer than two.
    double GetInterval(int stage) const;
    // One point, or the first and last points within 0.0001 m of one level.
    bool IsHorizontal(int stage) const;
    // Appends a point (a sample holding it) to a slot.
    void AddResult(int stage, const GeoDispResult& result) {
        m_results.AddHorizontalMovementResult(stage, result);
    }

    // ---- Results: the accessors of CUtilityResults -----------------------------------
    const CUtilityResults& Results() const { return m_results; }
    CUtilityResults& AccessResults() { return m_results; }

    bool HorizontalMovementResultExists(int stage, int point) const {
        return m_results.HorizontalMovementResultExists(stage, point);
    }
    bool HorizontalMovementResultsExist(int stage) const {
        return m_results.HorizontalMovementResultsExist(stage);
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

    bool PulloutAndRotationExists(int stage, int iteration) const {
        return m_results.PulloutAndRotationExists(stage, iteration);
    }
    bool PulloutAndRotationsExist(int stage) const {
        return m_results.PulloutAndRotationsExist(stage);
    }
    int NumPulloutAndRotations(int stage, int iteration) const {
        return m_results.NumPulloutAndRotations(stage, iteration);
    }
    int NumPulloutAndRotations(int stage) const { return m_results.NumPulloutAndRotations(stage); }
    int NumPulloutAndRotationIterations(int stage) const {
        return m_results.NumPulloutAndRotationIterations(stage);
    }
    const CPulloutAndRotation& GetPulloutAndRotation(int stage, int iteration, int k) const {
        return m_results.GetPulloutAndRotation(stage, iteration, k);
    }
    const CUtilityResults::PulloutStore& GetPulloutAndRotations() const {
        return m_results.GetPulloutAndRotations();
    }
    const std::vector<CPulloutAndRotation>& GetPulloutAndRotationIteration(int stage,
                                                                           int iteration) const {
        return m_results.GetPulloutAndRotationIteration(stage, iteration);
    }
    const std::vector<std::vector<CPulloutAndRotation>>&
    GetPulloutAndRotationIterations(int stage) const {
        return m_results.GetPulloutAndRotationIterations(stage);
    }
    void SetPulloutAndRotation(int stage, int iteration, int k, const CPulloutAndRotation& r) {
        m_results.SetPulloutAndRotation(stage, iteration, k, r);
    }
    void SetPulloutAndRotationIteration(int stage, int iteration,
                                        const std::vector<CPulloutAndRotation>& joints) {
        m_results.SetPulloutAndRotationIteration(stage, iteration, joints);
    }
    void DeletePulloutAndRotation(int stage, int iteration, int k) {
        m_results.DeletePulloutAndRotation(stage, iteration, k);
    }
    void DeletePulloutAndRotations(int stage) { m_results.DeletePulloutAndRotations(stage); }
    void DeletePulloutAndRotationIteration(int stage, int iteration) {
        m_results.DeletePulloutAndRotationIteration(stage, iteration);
    }

    bool UtilityStrainExists(int stage, int k) const {
        return m_results.UtilityStrainExists(stage, k);
    }
    bool UtilityStrainsExist(int stage) const { return m_results.UtilityStrainsExist(stage); }
    int NumUtilityStrains(int stage) const { return m_results.NumUtilityStrains(stage); }
    const CUtilityStrain& GetUtilityStrain(int stage, int k) const {
        return m_results.GetUtilityStrain(stage, k);
    }
    const std::vector<CUtilityStrain>& GetUtilityStrains(int stage) const {
        return m_results.GetUtilityStrains(stage);
    }
    void SetUtilityStrain(int stage, int k, const CUtilityStrain& r) {
        m_results.SetUtilityStrain(stage, k, r);
    }
    void DeleteUtilityStrain(int stage, int k) { m_results.DeleteUtilityStrain(stage, k); }
    void DeleteUtilityStrains(int stage) { m_results.DeleteUtilityStrains(stage); }

    bool ResultsExist(int stage) const { return m_results.ResultsExist(stage); }
    void DeleteResults(int stage) { m_results.DeleteResults(stage); }
    int GetPulloutAndRotationVersion(int stage) const {
        return m_results.GetPulloutAndRotationVersion(stage);
    }
    int GetUtilityStrainVersion(int stage) const {
        return m_results.GetUtilityStrainVersion(stage);
    }

    // ---- Peaks over the transect; a stage of -1 selects every slot --------------------
    // Joints: as a specific utility's (first of equal peaks; lowest doubles for none).
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
    // (location, radius) of the least radius of curvature (metres): each selected slot
    // starts anew from its first row and takes later flagged rows when strictly smaller,
    // so with -1 the last slot with rows decides. True when such a flagged row was met.
    bool GetMinRAD(int stage, Vec2<double>& locationAndRadius) const;
    // The same with y turned into the curvature, 1 / radius (1/metres).
    bool GetMaxCurvature(int stage, Vec2<double>& locationAndCurvature) const;
    // Factored axial microstrain of largest magnitude in tension (A >= 0) and in
    // compression (A <= 0, negative), from value 0 and location the lowest double; of
    // equal peaks the later row stays. True when a row was taken.
    bool GetMaximumAxialStrainInTension_Factored(int stage, double& value, double& location,
                                                 const CAcceptanceCriteria& criteria) const;
    bool GetMaximumAxialStrainInCompression_Factored(int stage, double& value, double& location,
                                                     const CAcceptanceCriteria& criteria) const;
    // Flexural microstrain with its bending factor, on the tensile side (positive) and the
    // compressive side (negative); of equal peaks the later row stays.
    bool GetMaximumFlexuralStrainInTension_Factored(int stage, double& value, double& location,
                                                    const CAcceptanceCriteria& criteria) const;
    bool GetMaximumFlexuralStrainInCompression_Factored(int stage, double& value, double& location,
                                                        const CAcceptanceCriteria& criteria) const;
    // Largest total tensile and compressive strains (microstrain, as magnitudes) over the
    // selected slots, from value and location 0; the first of equal peaks stays. True when
    // any row is in tension, or in compression.
    bool GetMaximumTensileStrain_Factored(int stage, double& value, double& location,
                                          const CAcceptanceCriteria& criteria, bool neglect) const;
    bool GetMaximumCompressiveStrain_Factored(int stage, double& value, double& location,
                                              const CAcceptanceCriteria& criteria,
                                              bool neglect) const;
    // Total tensile strain of row k (1-based) of a slot (microstrain): the flexural part
    // with the tensile bending factor, plus the factored axial part unless neglect drops
    // a compressive one. True when it is above 0.
    bool GetTensileStrain(int stage, int k, double& value, const CAcceptanceCriteria& criteria,
                          bool neglect) const;
    // Total compressive strain of row k: the factored axial part (left out by neglect when
    // tensile) less the flexural part with the compressive bending factor. True below 0.
    bool GetCompressiveStrain(int stage, int k, double& value, const CAcceptanceCriteria& criteria,
                              bool neglect) const;

    // Verdicts over the transect's own results, as for a specific utility.
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

    bool operator==(const CUtilityTransect& o) const;
    bool operator!=(const CUtilityTransect& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 1;

    // The row's total strain of the tensile, and of the compressive, fibre (microstrain);
    // true when the fibre is in tension, or in compression.
    static bool TensileTotal(const CUtilityStrain& r, double& value,
                             const CAcceptanceCriteria& criteria, bool neglect);
    static bool CompressiveTotal(const CUtilityStrain& r, double& value,
                                 const CAcceptanceCriteria& criteria, bool neglect);

    CString m_name;
    CUtilityResults m_results;
    int m_readVersion = m_iVer;
    Vec3<double> m_polylineIntersection{std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::quiet_NaN()};
};

} // namespace Tevra::Data
