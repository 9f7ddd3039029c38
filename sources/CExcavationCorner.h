#pragma once

#include "base/GeoGlobal.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// One corner of a polygonal excavation, at the vertex of the same index. Its previous
// edge is the wall side that ends at the corner, its next edge the side that starts
// there; the two curves belong to the side that starts there.
//
// A stiffened corner reduces the movement behind both walls near it: at the corner the
// movement is p1 times the plain-wall movement, p1 following from the corner angle and
// p1 star, and it rises to the full movement at the distance d along the wall (linearly
// or along a parabola). p2 star shapes the sharing of movement in the fan around a
// stiffened convex corner. The transition zone fractions widen the smoothing fan behind
// a re-entrant corner, in smoothed calculation stages only.
class CExcavationCorner {
  public:
    CExcavationCorner() = default;
    CExcavationCorner(bool stiffened, bool linearStiffening, double previousD, double previousP1Star,
                      double previousP2Star, double previousTransition, double nextD,
                      double nextP1Star, double nextP2Star, double nextTransition, bool arcEnabled,
                      int verticalCurve, int horizontalCurve);
    virtual ~CExcavationCorner() = default;
    CExcavationCorner(const CExcavationCorner&) = default;
    CExcavationCorner& operator=(const CExcavationCorner&) = default;

    static int GetVersion() { return m_iVer; }
    // Back to a new corner: not stiffened, arc enabled, linear stiffening, d 0,
    // p1 star 0.67, p2 star 0.25, no transition zone and the first curve of each list.
    void Empty() { *this = CExcavationCorner(); }

    virtual void Write(FileIO::CDataFile& file) const;
    virtual void Read(FileIO::CDataFile& file, int generation);

    bool GetStiffened() const { return m_stiffened; }
    void SetStiffened(bool on) { m_stiffened = on; }
    bool GetArcEnabled() const { return m_arcEnabled; }
    void SetArcEnabled(bool on) { m_arcEnabled = on; }
    bool IsLinearStiffening() const { return m_linearStiffening; }
    void SetLinearStiffening(bool on) { m_linearStiffening = on; }

    // Stiffening of the side that ends at the corner: the distance along it (metres)
    // over which the movement recovers, p1 star, p2 star and the transition fraction.
    double GetPreviousEdge_d() const { return m_previousD; }
    void SetPreviousEdge_d(double v) { m_previousD = v; }
    double GetPreviousEdge_p1Star() const { return m_previousP1Star; }
    void SetPreviousEdge_p1Star(double v) { m_previousP1Star = v; }
    double GetPreviousEdge_p2Star() const { return m_previousP2Star; }
    void SetPreviousEdge_p2Star(double v) { m_previousP2Star = v; }
    double GetPreviousEdge_TransitionZoneFraction() const { return m_previousTransition; }
    void SetPreviousEdge_TransitionZoneFraction(double v) { m_previousTransition = v; }
    // The same for the side that starts at the corner.
    double GetNextEdge_d() const { return m_nextD; }
    void SetNextEdge_d(double v) { m_nextD = v; }
    double GetNextEdge_p1Star() const { return m_nextP1Star; }
    void SetNextEdge_p1Star(double v) { m_nextP1Star = v; }
    double GetNextEdge_p2Star() const { return m_nextP2Star; }
    void SetNextEdge_p2Star(double v) { m_nextP2Star = v; }
    double GetNextEdge_TransitionZoneFraction() const { return m_nextTransition; }
    void SetNextEdge_TransitionZoneFraction(double v) { m_nextTransition = v; }

    // The curve of a direction for the side that starts here: a 0-based index into the
    // document's list of that direction.
    int GetGMCurve(GeoGlobal::EDirection d) const { return m_curve[d == GeoGlobal::eVertical]; }
    void SetGMCurve(GeoGlobal::EDirection d, int index) { m_curve[d == GeoGlobal::eVertical] = index; }

    bool operator==(const CExcavationCorner& o) const;
    bool operator!=(const CExcavationCorner& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 8;

    bool m_stiffened = false;
    bool m_arcEnabled = true;
    bool m_linearStiffening = true;
    double m_previousD = 0.0;
    double m_previousP1Star = 0.67;
    double m_previousP2Star = 0.25;
    double m_previousTransition = 0.0;
    double m_nextD = 0.0;
    double m_nextP1Star = 0.67;
    double m_nextP2Star = 0.25;
    double m_nextTransition = 0.0;
    // Indexed by direction: [0] horizontal, [1] vertical.
    int m_curve[2] = {0, 0};
};

} // namespace Tevra::Data
