#pragma once

#include "CImportedDisplacement.h"
#include "Vec3.h"

#include <cstddef>
#include <vector>

namespace Tevra::Data {

// Finds the imported displacements of a list that coincide with a sample's point.
//
// Two coordinates a and b (metres) coincide when they are equal, or when |a - b| < t,
// where t is the tolerance T when T >= 0 (an absolute test) and otherwise
// max(1e-6, (|a| + |b|) x 0.01 / 200) (a test relative to the coordinates' size, with a
// floor of a micrometre). A point coincides when X, Y and Z do, tested in that order.
//
// The answer is exactly that of testing every imported point of the list in turn, but
// the points are indexed once, by plan cell across X and by Y within a cell, so that a
// sample costs a few comparisons rather than one per imported point: a set of 10^4
// points over a grid of 10^6 samples stays far from 10^10 tests.
class CImportedDisplacementMatcher {
  public:
    // Indexes the list's points; the list itself is not kept.
    CImportedDisplacementMatcher(const std::vector<CImportedDisplacement>& list, double tolerance);

    // Whether two coordinates (metres) coincide under the tolerance (metres).
    static bool Coincide(double a, double b, double tolerance);
    // Whether a point coincides with an imported point: X, then Y, then Z.
    static bool Coincide(const Vec3<double>& p, const CImportedDisplacement& d, double tolerance);

    // The positions in the list of the imported points that coincide with p, in list
    // order (out is cleared first).
    void Find(const Vec3<double>& p, std::vector<size_t>& out) const;

  private:
    struct SEntry {
        double cell; // floor(x / cell size), a whole number held as a double
        double x, y, z;
        size_t index; // position in the list
    };

    // Half-width (metres) of a window around coordinate a that holds every b that can
    // coincide with it, with room for rounding.
    double Window(double a) const;
    void Scan(const std::vector<SEntry>& entries, const Vec3<double>& p,
              std::vector<size_t>& out) const;

    double m_tolerance;
    double m_cellSize = 1.0; // metres
    // Every candidate is tested, as with an infinite absolute tolerance.
    bool m_scanAll = false;
    // Points with finite X and Y, sorted by cell, then Y, then list order.
    std::vector<SEntry> m_entries;
    // The first entry of each distinct cell, in order, and the end.
    std::vector<size_t> m_cellStarts;
    // Points whose X or Y is not finite: only a sample at the same infinity can meet them.
    std::vector<SEntry> m_odd;
};

} // namespace Tevra::Data
