#pragma once

#include "buildings/CBuildingDamageResult.h"

#include "base/CString.h"

namespace Tevra::Data {

// One row of the generic building table: a segment's damage result with the building,
// transect, polyline and segment that it belongs to, the L/H ratio and vertical offset it was
// found at, and the ends of the transect. Coordinates and offset in metres.
class CExportBDResult : public CBuildingDamageResult {
  public:
    CExportBDResult() = default;
    CExportBDResult(const CExportBDResult&) = default;
    CExportBDResult& operator=(const CExportBDResult&) = default;
    CExportBDResult(const CBuildingDamageResult& result, const CString& buildingName,
                    const CString& polylineName, int buildingNo, int transectNo, int polylineNo,
                    int segmentNo, double lh, double vertOffset, double startX, double startY,
                    double startZ, double endX, double endY, double endZ)
        : CBuildingDamageResult(result), m_buildingName(buildingName), m_polylineName(polylineName),
          m_buildingNo(buildingNo), m_transectNo(transectNo), m_polylineNo(polylineNo),
          m_segmentNo(segmentNo), m_lh(lh), m_vertOffset(vertOffset), m_startX(startX),
          m_startY(startY), m_startZ(startZ), m_endX(endX), m_endY(endY), m_endZ(endZ) {}

    const CString& GetBuildingName() const { return m_buildingName; }
    const CString& GetPolylineName() const { return m_polylineName; }
    // Numbers from 1.
    int GetBuildingNo() const { return m_buildingNo; }
    int GetTransectNo() const { return m_transectNo; }
    int GetPolylineNo() const { return m_polylineNo; }
    int GetSegmentNo() const { return m_segmentNo; }
    // Length over height of the building (plain ratio).
    double GetLH() const { return m_lh; }
    // Level of the assessment relative to the polyline (metres).
    double GetVertOffset() const { return m_vertOffset; }
    // The first and last points of the transect (metres).
    double GetStartX() const { return m_startX; }
    double GetStartY() const { return m_startY; }
    double GetStartZ() const { return m_startZ; }
    double GetEndX() const { return m_endX; }
    double GetEndY() const { return m_endY; }
    double GetEndZ() const { return m_endZ; }

  private:
    CString m_buildingName;
    CString m_polylineName;
    int m_buildingNo = 0;
    int m_transectNo = 0;
    int m_polylineNo = 0;
    int m_segmentNo = 0;
    double m_lh = 0.0;
    double m_vertOffset = 0.0;
    double m_startX = 0.0;
    double m_startY = 0.0;
    double m_startZ = 0.0;
    double m_endX = 0.0;
    double m_endY = 0.0;
    double m_endZ = 0.0;
};

} // namespace Tevra::Data
