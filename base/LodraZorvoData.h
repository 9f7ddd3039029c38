#pragma once

#include "BaseEntity.h"
#include "CDisplacementGrid.h"
#include "CDisplacementLine.h"
#include "CDisplacementPoint.h"
#include "CDisplacementPolyline.h"
#include "CHistory.h"
#include "CImportedDisplacementsSet.h"
#include "CNumberedList.h"
#include "CPolylineCursor.h"
#include "CPolylinePlus.h"
#include "CTitles.h"

#include <set>
#include <vector>

namespace Tevra::Data {

// Display settings of the document that the calculation reads.
class CGraphicSettings {
  public:
    bool GetSmoothed() const { return m_smoothed; }
    void SetSmoothed(bool on) { m_smoothed = on; }
    bool operator==(const CGraphicSettings& o) const { return m_smoothed == o.m_smoothed; }

  private:
    bool m_smoothed = false;
};

// The base document: the displacement records (points, lines, polylines and grids) and
// the project's polylines, each a numbered family.
class LodraZorvoData : public BaseEntity {
  public:
    LodraZorvoData();
    virtual ~LodraZorvoData() = default;
    LodraZorvoData(const LodraZorvoData&) = default;
    LodraZorvoData& operator=(const LodraZorvoData&) = default;

    virtual void Empty();
    virtual void DeleteResults();
    // Whether any displacement record holds results; the stage is not looked at.
    virtual bool ResultsExist(int stage) const;

    // Record counts; with calcOnly, only those whose calculate flag is set.
    int NumDisplacementPoints(bool calcOnly) const { return Count(m_points, calcOnly); }
    int NumDisplacementLines(bool calcOnly) const { return Count(m_lines, calcOnly); }
    int NumDisplacementPolylines(bool calcOnly) const { return Count(m_dispPolylines, calcOnly); }
    int NumDisplacementGrids(bool calcOnly) const { return Count(m_grids, calcOnly); }
    ZORVO_NUMBERED_ACCESS(DisplacementPoint, CDisplacementPoint, m_points)
    ZORVO_NUMBERED_ACCESS(DisplacementLine, CDisplacementLine, m_lines)
    ZORVO_NUMBERED_ACCESS(DisplacementPolyline, CDisplacementPolyline, m_dispPolylines)
    ZORVO_NUMBERED_ACCESS(DisplacementGrid, CDisplacementGrid, m_grids)
    ZORVO_NUMBERED_FAMILY(Polyline, Polylines, CPolylinePlus, m_polylines)
    // Displacements measured or calculated elsewhere, added where samples coincide.
    ZORVO_NUMBERED_FAMILY(ImportedDisplacementsSet, ImportedDisplacementsSets,
                          CImportedDisplacementsSet, m_importedSets)

    // Adds imported set number set (1-based) to every calculated sample of the stage in
    // the displacement points, lines, polylines and grids: where the sample's point
    // coincides with an imported point (X, Y and Z within the tolerance, metres, as
    // CImportedDisplacementMatcher tests them), the imported displacements are added to
    // the sample's, and bit 1 of the import match is set on the sample and on the
    // imported point, which is stored back in the set. Every imported point that
    // coincides adds, in the set's order. Samples never calculated are left alone.
    void AddImportedDisplacementsToResults(int stage, int set, double tolerance);
    // The same for a list of imported displacements over a list of displacement lines,
    // such as the copies of a building's line at its vertical offsets; the match bits
    // are set on the list given.
    static void Add_Imported_Displacements_To_Disp_Lines(int stage,
                                                         std::vector<CImportedDisplacement>& list,
                                                         std::vector<CDisplacementLine>& lines,
                                                         double tolerance);

    // Interval between sample locations of a line, and a displacement polyline's
    // plan length and interval (metres).
    double GetLineInterval(int line) const;
    double GetDisplacementPolylineLength(int polyline) const;
    double GetDisplacementPolylineInterval(int polyline) const;
    double GetDisplacementLineLengthInPlan(int line) const;

    // Any family: the displacement records in order points, lines, polylines, grids,
    // numbered from 1 across them.
    int NumDisplacementData() const;
    const CDisplacementData& GetDisplacementData(int n) const;
    // The family of a record of NumDisplacementData and its number within the family.
    void GetDisplacementTypeIndex(int n, EPointType& type, int& index) const;
    // Location l (1-based) of record index of a family; false outside its locations. A
    // polyline's is found by walking its vertices from the first: to go through all the
    // locations of a record, VisitDisplacementLocations walks them once.
    bool GetDisplacementLocation(EPointType type, int index, int l, Vec3<double>& p, bool) const;
    // Visits the locations of record n of NumDisplacementData in order, l from 1, each
    // the point that GetDisplacementLocation gives, without holding them all: a polyline
    // is walked once along its vertices. visit(l, point) answers true to end the visit;
    // the answer is whether it was ended. A record none of whose locations can be
    // placed is not walked at all.
    template <class Visit> bool VisitDisplacementLocations(int n, Visit visit) const;
    // Numbers of the records of a surface type (calculated ones only with calcOnly).
    void GetPointsOfSurfaceType(bool calcOnly, ESurfaceType t, std::set<int>& out) const;
    void GetLinesOfSurfaceType(bool calcOnly, ESurfaceType t, std::set<int>& out) const;
    void GetPolylinesOfSurfaceType(bool calcOnly, ESurfaceType t, std::set<int>& out) const;
    void GetGridsOfSurfaceType(bool calcOnly, ESurfaceType t, std::set<int>& out) const;

    // Checks of the displacement records: each fills the list and answers whether it
    // added anything. Only records whose displacements are calculated are checked.
    bool DisplacementPointErrors(std::vector<CString>& messages) const;
    bool DisplacementLineErrors(std::vector<CString>& messages) const;
    bool DisplacementPolylineErrors(std::vector<CString>& messages) const;
    bool DisplacementGridErrors(std::vector<CString>& messages) const;
    bool DisplacementPointWarnings(std::vector<CString>& messages) const;
    bool DisplacementLineWarnings(std::vector<CString>& messages) const;
    bool DisplacementPolylineWarnings(std::vector<CString>& messages) const;
    bool DisplacementGridWarnings(std::vector<CString>& messages) const;

    const CTitles& GetTitles() const { return m_titles; }
    CTitles& AccessTitles() { return m_titles; }
    const CHistory& GetHistory() const { return m_history; }
    CHistory& AccessHistory() { return m_history; }

    const CGraphicSettings& GetGraphicSettings() const { return m_graphics; }
    CGraphicSettings& AccessGraphicSettings() { return m_graphics; }

    // Rotates a plane strain state (ex, ey, gxy with gxy the engineering shear) into
    // axes turned by angle (radians). Only n = 2 is meaningful.
    static void tun26_(int n, const double& angle, const double* in, double* out);
    // The same with the cosine and sine of the angle already worked out (inline: the
    // point loops call it for every source).
    static void RotateStrains(double c, double s, const double* in, double* out) {
        const double ex = in[0], ey = in[1], g = in[2];
        out[0] = ex * c * c + ey * s * s + g * s * c;
        out[1] = ex * s * s + ey * c * c - g * s * c;
        out[2] = (ey - ex) * 2.0 * s * c + g * (c * c - s * s);
    }

  protected:
    bool SameBase(const LodraZorvoData& o) const;

  private:
    template <class T> static int Count(const CNumberedList<T>& list, bool calcOnly) {
        if (!calcOnly)
            return list.Num();
        int n = 0;
        for (const T& r : list.Items())
            n += r.GetCalculate() ? 1 : 0;
        return n;
    }

    CNumberedList<CDisplacementPoint> m_points;
    CNumberedList<CDisplacementLine> m_lines;
    CNumberedList<CDisplacementPolyline> m_dispPolylines;
    CNumberedList<CDisplacementGrid> m_grids;
    CNumberedList<CPolylinePlus> m_polylines;
    CNumberedList<CImportedDisplacementsSet> m_importedSets;
    CGraphicSettings m_graphics;
    CTitles m_titles;
    CHistory m_history;
};

template <class Visit> bool LodraZorvoData::VisitDisplacementLocations(int n, Visit visit) const {
    EPointType type;
    int index;
    GetDisplacementTypeIndex(n, type, index);
    if (type == ePointTypeNone)
        return false;
    const int count = GetDisplacementData(n).NumDisplacementLocations(true);
    Vec3<double> p;
    switch (type) {
    case ePolyline: {
        const CDisplacementPolyline& r = GetDisplacementPolyline(index);
        const int J = r.GetIntervalsAlongLine();
        if (!PolylineExists(r.GetPolyline()) || J < 1 ||
            GetPolyline(r.GetPolyline()).NumPoint() < 2)
            return false;
        const CPolylinePlus& polyline = GetPolyline(r.GetPolyline());
        const double spacing = polyline.Len(true) / J;
        CPolylineCursor cursor(polyline);
        for (int k = 0; k < count; ++k)
            if (cursor.PointAt(k * spacing, p) >= 0 && visit(k + 1, p))
                return true;
        return false;
    }
    case eLine:
        if (GetDisplacementLine(index).GetIntervalsAlongLine() < 1)
            return false;
        break;
    case eGrid:
        if (GetDisplacementGrid(index).GetIntervalsAlongLine() < 1 ||
            GetDisplacementGrid(index).GetIntervalsAlongExtrusion() < 1)
            return false;
        break;
    default:
        break;
    }
    for (int k = 0; k < count; ++k)
        if (GetDisplacementLocation(type, index, k + 1, p, true) && visit(k + 1, p))
            return true;
    return false;
}

} // namespace Tevra::Data
