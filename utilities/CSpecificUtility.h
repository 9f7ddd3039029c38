#pragma once

#include "base/GeoDispResult.h"
#include "utilities/CUtility.h"

#include <vector>

namespace Tevra::Data {

// One pipe laid along a displacement line or a displacement polyline, between two
// distances along it (metres from its start). Its movements are the samples of that line
// or polyline.
//
// Besides the inputs it holds, by stage slot, the samples of its line or polyline that the
// solver copies onto it (the horizontal movement results). The pullout, rotation and strain
// stores join with the assessment; their places in the record are kept as empty lists.
class CSpecificUtility : public CUtility {
  public:
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
};

} // namespace Tevra::Data
