#pragma once

#include "base/BaseEntity.h"
#include "base/CString.h"
#include "base/Vec3.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A longwall-like mine panel: a centre line in plan, the panel width either side of
// it, the seam thickness extracted (the closure), and the two strata over the seam,
// each with the thickness and the angle of draw through which the subsidence spreads
// outwards as it rises. Lengths in metres, angles in degrees.
class GeoMine : public BaseEntity {
  public:
    // The outline asked of GetCornerCoords and the extents: the panel at the seam, the
    // top of the lower stratum, and the ground surface.
    enum EMineLevel { ePanelLevel = 0, eIntermediateLevel = 1, eSurfaceLevel = 2 };
    // Each outline is a rectangle of four corners.
    static constexpr int NUM_CORNERS = 4;

    GeoMine() { Empty(); }
    // Back to a new panel: every number 0, shown and not labelled.
    void Empty();

    static int GetVersion() { return m_iVer; }

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    // Seam thickness extracted (metres).
    double GetClosure() const { return m_closure; }
    void SetClosure(double v) { m_closure = v; }
    // Panel width across the centre line (metres).
    double GetPanelWidth() const { return m_panelWidth; }
    void SetPanelWidth(double v) { m_panelWidth = v; }
    // Thickness of the stratum next to the seam and of the one above it (metres).
    double GetLowerStratumThickness() const { return m_lowerThickness; }
    void SetLowerStratumThickness(double v) { m_lowerThickness = v; }
    double GetUpperStratumThickness() const { return m_upperThickness; }
    void SetUpperStratumThickness(double v) { m_upperThickness = v; }
    // Angles of draw of the two strata, from the vertical (degrees).
    double GetLowerAngleOfDraw() const { return m_lowerAngle; }
    void SetLowerAngleOfDraw(double v) { m_lowerAngle = v; }
    double GetUpperAngleOfDraw() const { return m_upperAngle; }
    void SetUpperAngleOfDraw(double v) { m_upperAngle = v; }
    // Ends of the centre line in plan (metres).
    double GetXCentreLine1() const { return m_x1; }
    double GetXCentreLine2() const { return m_x2; }
    double GetYCentreLine1() const { return m_y1; }
    double GetYCentreLine2() const { return m_y2; }
    void SetXCentreLine1(double v) { m_x1 = v; }
    void SetXCentreLine2(double v) { m_x2 = v; }
    void SetYCentreLine1(double v) { m_y1 = v; }
    void SetYCentreLine2(double v) { m_y2 = v; }
    bool GetShow() const { return m_show; }
    void SetShow(bool on) { m_show = on; }
    bool GetLabel() const { return m_label; }
    void SetLabel(bool on) { m_label = on; }

    // Corner 0 to 3 of the outline at a level (metres), counter-clockwise from the
    // right-hand side of the first end when looking along the centre line. The panel
    // is the centre line's length and the panel width; each level above it lies
    // outwards on all sides by thickness x tan(angle of draw) of every stratum below
    // it. The level z is taken from the ground surface at 0, downwards negative. A
    // centre line shorter than the smallest double step has no direction: its outline
    // collapses onto the line's ends.
    Vec3<double> GetCornerCoords(EMineLevel level, int corner) const;
    // Extent of the outline at a level (metres).
    double GetXMin(EMineLevel level) const;
    double GetXMax(EMineLevel level) const;
    double GetYMin(EMineLevel level) const;
    double GetYMax(EMineLevel level) const;
    double GetZMin(EMineLevel level) const;
    double GetZMax(EMineLevel level) const;

    // The record in the model file.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);

    bool operator==(const GeoMine& o) const;
    bool operator!=(const GeoMine& o) const { return !(*this == o); }

  private:
    static const int m_iVer = 4;

    // How far the outline at a level lies outside the panel (metres).
    double SpreadAt(EMineLevel level) const;

    CString m_name;
    double m_closure;
    double m_panelWidth;
    double m_lowerThickness;
    double m_upperThickness;
    double m_lowerAngle;
    double m_upperAngle;
    double m_x1, m_x2, m_y1, m_y2;
    bool m_show;
    bool m_label;
};

} // namespace Tevra::Data
