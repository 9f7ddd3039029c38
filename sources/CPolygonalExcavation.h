#pragma once

#include "base/CPolygon.h"
#include "sources/CExcavation.h"
#include "sources/CExcavationCorner.h"

#include <array>
#include <vector>

namespace Tevra::Data {

// A basement or cutting: a wall line in plan, with the level of the excavation's base
// at each vertex and a corner record at each vertex. Side i runs from vertex i to
// vertex i + 1 and the last side closes the polygon. Lists are addressed by 1-based
// number; the three lists have the same length in a valid excavation.
class CPolygonalExcavation : public CExcavation {
  public:
    // Tolerance of the wall line (metres): vertices within it coincide, a point within
    // it of a side lies on the wall. The outline is drawn to the millimetre.
    static constexpr double POLYGON_TOLERANCE = 0.001;

    CPolygonalExcavation() = default;

    static int GetVersion() { return m_iVer; }

    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;
    EShape GetShape() const override { return ePolygonal; }
    CString GetPrefix() const override { return L"PE"; }
    Vec2<double> GetCentroid() const override { return m_polygon.Centroid(); }
    // The extents read the lists without a test: they must not be empty.
    double GetXMin() const override;
    double GetXMax() const override;
    double GetYMin() const override;
    double GetYMax() const override;
    double GetZMin() const override { return GetMinBaseLevel(); }
    double GetZMax() const override { return GetSurfaceLevel(); }
    double GetMinBaseLevel() const override;
    double GetMaxBaseLevel() const override;
    // Strictly inside the wall line (a point on it is outside) and strictly above the
    // lowest base level of the record itself, whatever the stage; never when disabled.
    bool IsPointInExcavation(const Vec3<double>& point) const override;
    void PointMovementsAndStrains(const ZorvoData& data, int stage, int number,
                                  const Vec3<double>& point, double* movement,
                                  double* strain) const override;

    const CPolygon& GetPolygon() const { return m_polygon; }
    void SetPolygon(const CPolygon& polygon) { m_polygon = polygon; }
    int GetNumEdges() const { return m_polygon.NumPoint(); }
    CEdge GetEdge(int i) const { return m_polygon.Edge(i); }

    // Vertices, forwarded to the polygon.
    bool CoordExists(int n) const { return n >= 1 && n <= NumCoords(); }
    int NumCoords() const { return m_polygon.NumPoint(); }
    const Vec2<double>& GetCoord(int n) const { return m_polygon.Point(n - 1); }
    void SetCoord(int n, const Vec2<double>& p);
    void InsertCoord(int before, int count) { m_polygon.InsertPoint(before - 1, count); }
    // last = -1 deletes vertex first; a last below first does nothing; otherwise
    // last - first vertices from first on, one fewer than the other lists delete for
    // the same numbers: kept as the record has always done it.
    void DeleteCoord(int first, int last);

    // Base levels (metres), one per vertex.
    const std::vector<double>& GetBaseLevels() const { return m_baseLevels; }
    void SetBaseLevels(const std::vector<double>& levels) { m_baseLevels = levels; }
    bool BaseLevelExists(int n) const { return n >= 1 && n <= NumBaseLevels(); }
    int NumBaseLevels() const { return static_cast<int>(m_baseLevels.size()); }
    double GetBaseLevel(int n) const { return m_baseLevels[static_cast<size_t>(n - 1)]; }
    // Grows the list with zeros up to n first.
    void SetBaseLevel(int n, const double& level);
    void InsertBaseLevel(int before, int count);
    void InsertBaseLevel(int before, const double& level);
    // last = -1 deletes number first alone; a last below first does nothing; otherwise
    // first to last, last cut to the list's end.
    void DeleteBaseLevel(int first, int last);

    // Corners, one per vertex.
    const std::vector<CExcavationCorner>& GetExcavationCorners() const { return m_corners; }
    void SetExcavationCorners(const std::vector<CExcavationCorner>& c) { m_corners = c; }
    bool ExcavationCornerExists(int n) const { return n >= 1 && n <= NumExcavationCorners(); }
    int NumExcavationCorners() const { return static_cast<int>(m_corners.size()); }
    CExcavationCorner GetExcavationCorner(int n) const { return m_corners[static_cast<size_t>(n - 1)]; }
    const CExcavationCorner& GetExcavationCornerRef(int n) const {
        return m_corners[static_cast<size_t>(n - 1)];
    }
    // Grows the list with default corners up to n first.
    void SetExcavationCorner(int n, const CExcavationCorner& corner);
    void InsertExcavationCorner(int before, int count);
    void InsertExcavationCorner(int before, const CExcavationCorner& corner);
    void DeleteExcavationCorner(int first, int last);

    // Makes the vertex order clockwise, turning vertices and base levels round together;
    // the corners keep their order.
    void NumberClockwise();
    // The re-entrant corners, by 0-based vertex index; true when there is one.
    bool GetReEntrantCorners(std::vector<int>& corners) const;
    // Of those, the 1-based numbers of the stiffened ones; true when there is one.
    bool GetStiffenedReEntrantCorners(std::vector<int>& corners) const;
    // The angle in the soil between side vectors a (into the corner) and b (out of it),
    // in degrees: below 180 at a re-entrant corner.
    static double calcExteriorAngle(Vec2<double> a, Vec2<double> b, bool clockwise);

    bool operator==(const CPolygonalExcavation& o) const;
    bool operator!=(const CPolygonalExcavation& o) const { return !(*this == o); }

  protected:
    // The stiffening factors, each read off a three-point table by linear interpolation,
    // holding the end values beyond the table. p1 at a corner of an angle (degrees):
    // 0 at 0, p1 star at 90, 1 at 180.
    static double Calc_p1(const double& angle, const double& p1Star);
    // p2 from p1: 0 at 0, p2 star at p1 star, 0.5 at 1.
    static double Calc_p2(const double& p1, const double& p1Star, const double& p2Star);
    // The share of a wall in the fan of a stiffened corner of an angle, at x degrees past
    // the wall's normal: p1 at 0, p2 half way, 0 at 180 - angle.
    static double Calc_pa_or_pb(const double& angle, const double& p1, const double& p2,
                                const double& x);

  private:
    static constexpr int m_iVer = 7;

    // The outline's x min, x max, y min, y max (metres).
    std::array<double, 4> Extent() const;

    CPolygon m_polygon{POLYGON_TOLERANCE};
    std::vector<double> m_baseLevels;
    std::vector<CExcavationCorner> m_corners;
};

} // namespace Tevra::Data
