#pragma once

#include "base/CString.h"
#include "base/GeoDispResult.h"
#include "base/NamedEntity.h"
#include "buildings/CBuildingDamageProperties.h"
#include "buildings/CBuildingDamageResult.h"

#include <memory>
#include <utility>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A building, or a part of one assessed by itself, standing on a displacement line between
// two chainages of the line (metres from its first point). It is assessed as a deep beam
// of its own height at each vertical offset of its properties; its results are kept by
// calculation stage and offset.
class CSpecificBuilding : public NamedEntity {
  public:
    // Segment results by [stage][offset], in segment order.
    using SegmentStore = std::vector<std::vector<std::vector<CBuildingDamageResult>>>;
    // Samples of the line by [stage][offset][point] and by [stage][point].
    using VerticalMovementStore = std::vector<std::vector<std::vector<GeoDispResult>>>;
    using HorizontalMovementStore = std::vector<std::vector<GeoDispResult>>;

    CSpecificBuilding();
    virtual ~CSpecificBuilding() = default;
    CSpecificBuilding(const CSpecificBuilding&) = default;
    CSpecificBuilding& operator=(const CSpecificBuilding&) = default;

    virtual std::unique_ptr<CSpecificBuilding> Clone() const {
        return std::make_unique<CSpecificBuilding>(*this);
    }
    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;
    // Reads a building of a file that kept no damage properties with it.
    virtual void ReadBuildingWithoutCBDProperties(FileIO::CDataFile& file, int generation);

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }

    // Back to the defaults of a new building, without results.
    void Empty();

    const CString& GetSubBuildingName() const { return m_subBuildingName; }
    void SetSubBuildingName(const CString& name) { m_subBuildingName = name; }
    // Number (1-based) of the displacement line that carries the building.
    int GetLine() const { return m_line; }
    void SetLine(int n) { m_line = n; }
    // Chainages of the building's start and end along the line (metres).
    double GetLineStart() const { return m_lineStart; }
    void SetLineStart(double d) { m_lineStart = d; }
    double GetLineEnd() const { return m_lineEnd; }
    void SetLineEnd(double d) { m_lineEnd = d; }
    // Line end - line start (metres).
    double GetLength() const { return m_lineEnd - m_lineStart; }
    // Height H of the beam (metres).
    double GetHeight() const { return m_height; }
    void SetHeight(double h) { m_height = h; }
    const CBuildingDamageProperties& GetBuildingDamageProperties() const { return m_properties; }
    void SetBuildingDamageProperties(const CBuildingDamageProperties& p) { m_properties = p; }
    bool GetShow() const { return m_show; }
    void SetShow(bool b) { m_show = b; }
    bool GetLabel() const { return m_label; }
    void SetLabel(bool b) { m_label = b; }

    // The result stores, whole.
    const SegmentStore& GetBuildingDamageResults() const { return m_buildingDamageResults; }
    void SetBuildingDamageResults(SegmentStore s) { m_buildingDamageResults = std::move(s); }
    const SegmentStore& GetCombinedBuildingDamageResults() const {
        return m_combinedBuildingDamageResults;
    }
    void SetCombinedBuildingDamageResults(SegmentStore s) {
        m_combinedBuildingDamageResults = std::move(s);
    }
    const VerticalMovementStore& GetVerticalMovementResults() const {
        return m_verticalMovementResults;
    }
    void SetVerticalMovementResults(VerticalMovementStore s) {
        m_verticalMovementResults = std::move(s);
    }
    const HorizontalMovementStore& GetHorizontalMovementResults() const {
        return m_horizontalMovementResults;
    }
    void SetHorizontalMovementResults(HorizontalMovementStore s) {
        m_horizontalMovementResults = std::move(s);
    }

    // ---- Segment results --------------------------------------------------------------
    // Stage and offset numbers are 0-based, segment numbers 1-based; a stage of -1 means
    // every stage. combined picks the store of segments joined by the user.

    // Segments at (stage, offset); with stage -1 the sum over stages; 0 for an offset
    // outside the store.
    int NumBuildingDamageResults(int stage, bool combined, int offset) const;
    // Any segment at the stage, at any offset.
    bool BuildingDamageResultsExist(int stage, bool combined) const;
    // Any segment at the stage at an offset of the building's properties.
    bool BuildingDamageResultExists(int stage, bool combined) const;
    bool BuildingDamageResultExists(int stage, bool combined, int offset, int segment) const;
    // Unchecked.
    const CBuildingDamageResult& GetBuildingDamageResult(int stage, bool combined, int offset,
                                                         int segment) const;
    // The segments at (stage, offset); the store grows to hold them.
    std::vector<CBuildingDamageResult>& GetBuildingDamageResults(int stage, bool combined,
                                                                 int offset);
    void SetBuildingDamageResults(int stage, bool combined,
                                  const std::vector<std::vector<CBuildingDamageResult>>& results);
    void SetBuildingDamageResults(int stage, bool combined, int offset,
                                  const std::vector<CBuildingDamageResult>& results);
    // Replaces segment, or appends it when it is one past the end.
    void SetBuildingDamageResult(int stage, bool combined, int offset, int segment,
                                 const CBuildingDamageResult& result);
    // Erases segments first to last (inclusive, cut at the end of the list; -1 means first
    // alone); nothing when last < first or the stage is outside the store.
    void DeleteBuildingDamageResult(int stage, bool combined, int offset, int first, int last);
    void DeleteBuildingDamageResults(int stage, bool combined);
    void DeleteBuildingDamageResults(int stage);
    // Segment results of both stores and the movement samples of the stage.
    void DeleteResults(int stage);
    // Whether some segment from the second on, at a matching stage and offset (-1 matches
    // all), has been joined to the one before it.
    bool CombinedSegmentsExist(int stage, int offset) const;
    // Makes every segment at a matching stage and offset start a run of its own again.
    void SeparateCombinedSegments(int stage, int offset);
    // Highest damage category over the stage's offsets and segments; 0 when there are none.
    int GetMaxBuildingDamageCategory(int stage, bool combined) const;
    // Highest category of the uncombined segments at (stage, offset); -1 when there are none.
    int GetMaxDamageCategory(int stage, int offset) const;

    // Critical values of the uncombined segments at (stage, offset): the value of largest
    // size, with its sign, the later segment winning a tie; 0 with no segments.
    double GetMaxDeflnRatio(int stage, int offset) const;
    double GetMaxHorizStrain(int stage, int offset) const;
    double GetMaxSlope(int stage, int offset) const;
    double GetMaxSettlement(int stage, int offset) const;
    double GetMaxTensileStrain(int stage, int offset) const;
    double GetMaxGradientOfHDispCurve(int stage, int offset) const;
    double GetMaxGradientOfVDispCurve(int stage, int offset) const { return GetMaxSlope(stage, offset); }
    // Largest |curvature| among segments of that sense; 0 with none.
    double GetMaxCurvature(int stage, int offset, GeoGlobal::ECurvature curvature) const;
    bool GetMaxGradientOfHDispCurveSet(int stage, int offset) const;
    bool GetMaxGradientOfVDispCurveSet(int stage, int offset) const;

    // ---- Movement samples of the line --------------------------------------------------
    // Points are 1-based; the setters grow the stores as needed, so that the solver's
    // threads each grow only their own building's.
    void ResizeVerticalMovementResults(int stages, int points);
    void ResizeHorizontalMovementResults(int stages, int points);
    void SetVerticalMovementResult(int stage, int offset, int point, const GeoDispResult& result);
    void SetHorizontalMovementResult(int stage, int point, const GeoDispResult& result);
    // The samples of (stage, offset) or (stage); empty outside the store.
    const std::vector<GeoDispResult>& GetVerticalMovementResults(int stage, int offset) const;
    const std::vector<GeoDispResult>& GetHorizontalMovementResults(int stage) const;
    // Drops the movement samples of the stage (-1: all).
    void DeleteMovementResults(int stage);

    bool operator==(const CSpecificBuilding& o) const;
    bool operator!=(const CSpecificBuilding& o) const { return !(*this == o); }

  private:
    SegmentStore& Store(bool combined) {
        return combined ? m_combinedBuildingDamageResults : m_buildingDamageResults;
    }
    const SegmentStore& Store(bool combined) const {
        return combined ? m_combinedBuildingDamageResults : m_buildingDamageResults;
    }
    // The uncombined segments at (stage, offset), or none.
    const std::vector<CBuildingDamageResult>* Segments(int stage, int offset) const;
    template <class Field> double MaxBySize(int stage, int offset, Field field) const;
    // Calls visit on the segment list of each stage and offset that match (-1 matches
    // all) until it answers true; answers whether it did.
    template <class SegmentStoreT, class Visit>
    static bool AnyMatchingSegments(SegmentStoreT& store, int stage, int offset, Visit visit);

    static constexpr int m_iVer = 7;

    CString m_subBuildingName;
    int m_line = 1;
    double m_lineStart = 0.0;
    double m_lineEnd = 0.0;
    double m_height = 10.0;
    // Segments as the settlement curve cuts them, and as the user has joined them.
    SegmentStore m_buildingDamageResults;
    SegmentStore m_combinedBuildingDamageResults;
    // Samples of the line by [stage][offset][point] (vertical, one list per offset) and
    // [stage][point] (horizontal, from the line at its own level).
    VerticalMovementStore m_verticalMovementResults;
    HorizontalMovementStore m_horizontalMovementResults;
    CBuildingDamageProperties m_properties;
    bool m_show = true;
    bool m_label = false;
};

} // namespace Tevra::Data
