#pragma once

#include "base/CString.h"
#include "base/GeoDispResult.h"
#include "base/Vec3.h"
#include "buildings/CBuildingDamageResult.h"

#include <limits>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// One transect of a generic building: a straight sample line set out across the building's
// polyline. Its points are the points of its horizontal movement samples, placed when the
// transect is built, so that a sample holds its point before the solver adds its movement.
// It is assessed as a deep beam for each L/H of the building at each vertical offset, and
// keeps its segment results by [stage][offset][L/H].
class CBuildingTransect {
  public:
    // Segments by [stage][offset][L/H], in segment order.
    using SegmentStore = std::vector<std::vector<std::vector<std::vector<CBuildingDamageResult>>>>;
    // Samples by [stage][offset][point] and by [stage][point].
    using VerticalMovementStore = std::vector<std::vector<std::vector<GeoDispResult>>>;
    using HorizontalMovementStore = std::vector<std::vector<GeoDispResult>>;

    CBuildingTransect() = default;
    virtual ~CBuildingTransect() = default;
    CBuildingTransect(const CBuildingTransect&) = default;
    CBuildingTransect& operator=(const CBuildingTransect&) = default;

    // The record: generation, name, the crossing point and the results of every stage.
    virtual void Read(FileIO::CDataFile& file);
    virtual void Write(FileIO::CDataFile& file) const;
    static int GetVersion() { return m_iVer; }

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    // Where the transect crosses the polyline (metres); not-a-number until it is built.
    const Vec3<double>& GetPolyineIntersection() const { return m_polylineIntersection; }
    void SetPolylineIntersection(const Vec3<double>& p) { m_polylineIntersection = p; }

    // ---- Geometry of a stage: the points of its horizontal samples, numbered from 1 ----
    int NumberOfPoints(int stage) const {
        return static_cast<int>(GetHorizontalMovementResults(stage).size());
    }
    double GetX(int stage, int point) const { return GetPoint(stage, point).x; }
    double GetY(int stage, int point) const { return GetPoint(stage, point).y; }
    double GetZ(int stage, int point) const { return GetPoint(stage, point).z; }
    // Unchecked.
    const Vec3<double>& GetPoint(int stage, int point) const {
        return m_horizontalMovementResults[static_cast<size_t>(stage)]
                                          [static_cast<size_t>(point - 1)]
                                              .GetPoint();
    }
    // Moves the point of horizontal sample k (0-based) of the stage by v; unchecked.
    void MoveBy(int stage, int k, const Vec3<double>& v);
    // Moves every point of every sample, horizontal and vertical, of every stage by v.
    void MoveAllBy(const Vec3<double>& v);
    // One point, or the first and last points within 0.0001 m of one level.
    bool IsHorizontal(int stage) const;
    // Distance in space from the first point to the last (metres); 0 for fewer than two.
    double GetLength(int stage) const;
    // Distance in plan from the first point to the last (metres); 0 for fewer than two.
    double GetTransectPlanLength(int stage) const;

    // ---- Movement samples ------------------------------------------------------------
    // Appends a horizontal sample to the stage, growing the store to hold it.
    void AddResult(int stage, const GeoDispResult& result);
    // Sample point (1-based) of (stage, offset); the store grows to hold it.
    void SetVerticalMovementResult(int stage, int offset, int point, const GeoDispResult& result);
    // Sample point (1-based) of the stage; the store grows to hold it.
    void SetHorizontalMovementResult(int stage, int point, const GeoDispResult& result);
    // The samples of (stage, offset) or (stage); empty outside the store.
    const std::vector<GeoDispResult>& GetVerticalMovementResults(int stage, int offset) const;
    const std::vector<GeoDispResult>& GetHorizontalMovementResults(int stage) const;
    const VerticalMovementStore& GetVerticalMovementStore() const { return m_verticalMovementResults; }
    const HorizontalMovementStore& GetHorizontalMovementStore() const {
        return m_horizontalMovementResults;
    }
    // Peaks of the settlement of (stage, offset): from the lowest and highest double, which
    // are what an empty list gives (metres).
    double GetMaxDisplacementVertical(int stage, int offset) const;
    double GetMinDisplacementVertical(int stage, int offset) const;

    // ---- Segment results -------------------------------------------------------------
    // Stage, offset and L/H numbers are 0-based, segments 1-based; a stage of -1 means
    // every stage. combined picks the store of segments joined by the user.
    const SegmentStore& GetSegmentStore(bool combined) const { return Store(combined); }
    int NumBuildingDamageResults(int stage, bool combined, int offset, int lh) const;
    // Sum over the L/H lists of (stage, offset).
    int NumBuildingDamageResults(int stage, bool combined, int offset) const;
    bool BuildingDamageResultExists(int stage, bool combined, int offset, int lh,
                                    int segment) const;
    bool BuildingDamageResultExists(int stage, bool combined, int offset, int lh) const;
    // Any segment at the stage (-1: any), at any offset and L/H.
    bool BuildingDamageResultsExist(int stage, bool combined) const;
    // Unchecked.
    const CBuildingDamageResult& GetBuildingDamageResult(int stage, bool combined, int offset,
                                                         int lh, int segment) const;
    // The segments of (stage, offset, L/H); empty outside the store.
    const std::vector<CBuildingDamageResult>& GetBuildingDamageResults(int stage, bool combined,
                                                                       int offset, int lh) const;
    // The store grows to hold (stage, offset, L/H).
    void SetBuildingDamageResults(int stage, bool combined, int offset, int lh,
                                  const std::vector<CBuildingDamageResult>& results);
    // Replaces segment, or appends it when it is one past the end.
    void SetBuildingDamageResult(int stage, bool combined, int offset, int lh, int segment,
                                 const CBuildingDamageResult& result);
    // Erases segments first to last (inclusive, cut at the end; -1 means first alone);
    // nothing when last < first or the list does not exist.
    void DeleteBuildingDamageResult(int stage, bool combined, int offset, int lh, int first,
                                    int last);
    // Empties every list of the stage (-1: all stages).
    void DeleteBuildingDamageResults(int stage, bool combined);
    bool AnyBuildingDamageResultExistsForAnOffset(int stage, bool combined, int offset,
                                                  int lh) const;
    void DeleteBuildingDamageResultsForAnOffset(int stage, bool combined, int offset);
    // Whether some uncombined segment from the second on, at a matching stage and offset
    // (-1 matches all) and any L/H, has been joined to the one before it.
    bool CombinedSegmentsExist(int stage, int offset) const;
    // Largest MaxTensileStrain of the segments by plain comparison; the list must not be
    // empty.
    double GetMaximumTensileStrain(int stage, bool combined, int offset, int lh) const;
    // Highest damage category of the stage (-1: all); 0 without results.
    int GetMaxBuildingDamageCategory(int stage, bool combined) const;

    bool operator==(const CBuildingTransect& o) const;
    bool operator!=(const CBuildingTransect& o) const { return !(*this == o); }

  private:
    SegmentStore& Store(bool combined) {
        return combined ? m_combinedBuildingDamageResults : m_buildingDamageResults;
    }
    const SegmentStore& Store(bool combined) const {
        return combined ? m_combinedBuildingDamageResults : m_buildingDamageResults;
    }
    const std::vector<CBuildingDamageResult>* Segments(int stage, bool combined, int offset,
                                                       int lh) const;
    std::vector<CBuildingDamageResult>& GrowTo(int stage, bool combined, int offset, int lh);

    static constexpr int m_iVer = 3;

    CString m_name;
    VerticalMovementStore m_verticalMovementResults;
    HorizontalMovementStore m_horizontalMovementResults;
    SegmentStore m_buildingDamageResults;
    SegmentStore m_combinedBuildingDamageResults;
    Vec3<double> m_polylineIntersection{std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::quiet_NaN()};
};

} // namespace Tevra::Data
