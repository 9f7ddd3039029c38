#pragma once

#include "base/CPolylinePlus.h"
#include "base/CSplineT.h"
#include "base/CTableD.h"
#include "utilities/CPulloutAndRotation.h"
#include "utilities/CUtilityResults.h"
#include "utilities/CUtilityStrain.h"

#include <functional>
#include <vector>

namespace Tevra::Data {

// The assessment of one pipe for one stage from the movements along it: at each candidate
// joint of a jointed pipe the axial pullout to either side, the flexural opening and the
// rotation; at each row the axial strain, the radius of curvature and the flexural strain
// of the pipe wall. Specific utilities and the transects of generic utilities share it;
// ZorvoSolver calls it under the same names.
//
// Every table is a function of x, the distance along the pipe from its start (metres),
// and is read by straight-line interpolation between its rows. A lookup outside a table
// throws the table's CRange.
class CUtilityDamageAssessment {
  public:
    // Tolerance (metres) of the joint spacing test when the joint layouts are formed
    // along a specific utility; a transect of a generic utility takes none.
    static constexpr double JOINT_SPACING_TOLERANCE = 1e-5;
    // Segments of a polyline are found to this tolerance (metres).
    static constexpr double SEGMENT_TOLERANCE = 0.002;

    // The pipe: internal diameter D and wall thickness t of its dimension, pipe length L,
    // the length U of the utility and the interval h between its samples (metres).
    struct SPipe {
        double diameter = 0.0;
        double wallThickness = 0.0;
        double pipeLength = 0.0;
        double length = 0.0;
        double interval = 0.0;
        bool jointed = true;
    };

    // The movements along the pipe: horizontal movement parallel and perpendicular to it
    // (positive to the left), and the initial and displaced coordinates of its samples.
    struct SCurves {
        CSplineT<double> parallel;
        CSplineT<double> perpendicular;
        CSplineT<double> initialX, initialY, initialZ;
        CSplineT<double> displacedX, displacedY, displacedZ;
    };

    // A specific utility on a displacement polyline: the polyline, the utility's start and
    // end along it (metres), whether its segments count as one continuous pipe for the
    // joints and for the strains, and how a row is resolved again on another segment.
    struct SPolylinePipe {
        const CPolylinePlus* polyline = nullptr;
        double lineStart = 0.0;
        double lineEnd = 0.0;
        bool continuousPullouts = true;
        bool continuousStrains = true;
        // Resolves row (0-based, negative from the end) of the parallel and perpendicular
        // curves again on a segment (1-based).
        std::function<void(int row, int segment, SCurves& curves)> reResolve;
    };

    // The curves of the eight tables along a pipe.
    static SCurves Curves(const CTableD& parallel, const CTableD& perpendicular,
                          const CTableD& initialX, const CTableD& initialY,
                          const CTableD& initialZ, const CTableD& displacedX,
                          const CTableD& displacedY, const CTableD& displacedZ);

    // The whole assessment of one pipe at a stage: the walk, whose strain rows go to the
    // results as they are found, then the joint layouts with the spacing tolerance
    // (metres). False when cancelled part way: the results are left as they stand. A
    // lookup outside a table throws CRange with the results part written.
    static bool Assess(const SPipe& pipe, const SPolylinePipe* polyline, SCurves& curves,
                       double tolerance, const std::function<bool()>& cancelled,
                       CUtilityResults& results, int stage);
    // Drops the joints and strain rows of a slot, keeping the movement samples.
    static void DeleteAssessment(CUtilityResults& results, int stage);

    // Walks the rows of the coordinate tables and appends the joint found at each
    // eligible row to joints, in walking order, and hands each strain row to storeStrain
    // with its number (from 1). polyline is null for a pipe on a line or a transect.
    // cancelled is asked before each row; false when it stopped the walk.
    static bool Walk(const SPipe& pipe, const SPolylinePipe* polyline, SCurves& curves,
                     const std::function<bool()>& cancelled,
                     std::vector<CPulloutAndRotation>& joints,
                     const std::function<void(int, const CUtilityStrain&)>& storeStrain);

    // The joint layouts (iterations) from the joints found, each assuming another first
    // joint and taking the later ones at least a pipe length apart, within tolerance
    // (metres). On a polyline, polyline names it for the segment test; else null.
    static std::vector<std::vector<CPulloutAndRotation>>
    FormIterations(const std::vector<CPulloutAndRotation>& joints, double pipeLength,
                   double tolerance, const CPolylinePlus* polyline);

    // The joint at row i, at x: rotation, opening and pullouts with what was sampled.
    static CPulloutAndRotation Joint(int row, double x, const SPipe& pipe, const SCurves& curves);
    // The strain row at row i, at x.
    static CUtilityStrain Strain(int row, double x, const SPipe& pipe, const SCurves& curves);

    // Mean of the curve's table values over one length to the left of row i, each row
    // weighing the same, closed by the curve at x_i - length when the next row lies
    // beyond it. A negative row gives 0 / 0.
    static double AxialPulloutLeft(int row, const double& length, const CSplineT<double>& curve);
    // The mirror to the right; a row at or beyond the table's end gives 0 / 0.
    static double AxialPulloutRight(int row, const double& length, const CSplineT<double>& curve);
    // Engineering strain of the chord one interval long centred at row i, from its length
    // between the initial and between the displaced points; 0 at the first and last rows.
    static double AxialStrain(int row, const double& interval, const CSplineT<double>& initialX,
                              const CSplineT<double>& initialY, const CSplineT<double>& initialZ,
                              const CSplineT<double>& displacedX,
                              const CSplineT<double>& displacedY,
                              const CSplineT<double>& displacedZ);
};

} // namespace Tevra::Data
