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

    bool operator==(const CSpecificBuilding& o) const;
    bool operator!=(const CSpecificBuilding& o) const { return !(*this == o); }

  private:
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
