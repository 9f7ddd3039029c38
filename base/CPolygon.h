#pragma once

#include "CEdge.h"
#include "Vec2.h"

#include <vector>

namespace Tevra::Data {

// A closed ring of plan vertices (metres); the last vertex joins the first. Edge i runs
// from vertex i to vertex i + 1, the last edge back to vertex 0. Clockwise is the usual
// sense with x east and y north: a negative shoelace area.
//
// The tolerance given at construction (metres) decides three things, each with "within"
// meaning a distance of at most the tolerance:
//  - a point within the tolerance of an edge is on that edge;
//  - a vertex within the tolerance of the vertex before it is coincident with it;
//  - a vertex within the tolerance of the straight line between its neighbours is no
//    corner at all: neither convex nor re-entrant.
class CPolygon {
  public:
    explicit CPolygon(double tolerance = 0.001) : m_tolerance(tolerance) {}

    double GetTolerance() const { return m_tolerance; }

    int NumPoint() const { return static_cast<int>(m_points.size()); }
    // Vertex i, 0-based; the caller keeps i in range.
    const Vec2<double>& Point(int i) const { return m_points[static_cast<size_t>(i)]; }
    const std::vector<Vec2<double>>& Points() const { return m_points; }
    // Sets vertex i; false, and nothing changes, when i is not a vertex.
    bool SetPoint(int i, const Vec2<double>& p);
    void AddPoint(const Vec2<double>& p) { m_points.push_back(p); }
    // Makes the ring n vertices long, new vertices at (0, 0).
    void SetNumPoint(int n);
    // Inserts count vertices at (0, 0) before vertex before (before = NumPoint appends);
    // false, and nothing changes, when before is outside 0 .. NumPoint or count below 1.
    bool InsertPoint(int before, int count);
    // Deletes count vertices from vertex first on, stopping at the end of the ring.
    void DeletePoint(int first, int count);
    // Drops every vertex coincident with the vertex kept before it, and a last vertex
    // coincident with the first. The first of a run of coincident vertices stays.
    void RemoveCoincident();

    // Edge i, from vertex i to the next, the last edge closing the ring.
    CEdge Edge(int i) const;
    // The extent of the vertices (metres). An empty ring gives the largest double as its
    // minima and its negative as its maxima.
    void MinMax(double& xMin, double& xMax, double& yMin, double& yMax) const;
    // The centroid of the enclosed area; for a ring of no area, the mean of its vertices;
    // (0, 0) for an empty ring.
    Vec2<double> Centroid() const;
    // Signed area by the shoelace formula (square metres), negative when clockwise.
    double SignedArea() const;
    bool IsClockwise() const { return SignedArea() < 0.0; }
    // True when the ring has no re-entrant corner.
    bool IsConvex() const;
    // The 0-based vertices where the ring turns against its own sense, so that the
    // enclosed angle exceeds 180 degrees; true if there is any. Coincident neighbours are
    // passed over to find the sides that meet at a vertex, so each vertex of a coincident
    // run at a re-entrant corner is listed.
    bool ReEntrantCorners(std::vector<int>& corners) const;

    // True when p lies within the tolerance of an edge.
    bool PointOnEdge(const Vec2<double>& p) const;
    // True when p is inside the ring and not on an edge, or, with includeEdge, on an edge.
    // Inside is decided by the even-odd rule.
    bool PointInside(const Vec2<double>& p, bool includeEdge) const;

    // True when p lies inside the ring of points by the even-odd rule, with no tolerance.
    static bool EvenOddInside(const std::vector<Vec2<double>>& ring, const Vec2<double>& p);
    // Distance in plan (metres) from p to the segment from a to b.
    static double DistanceToSegment(const Vec2<double>& p, const Vec2<double>& a,
                                    const Vec2<double>& b);

  private:
    double m_tolerance;
    std::vector<Vec2<double>> m_points;
};

} // namespace Tevra::Data
