#include "CUtilityDamageAssessment.h"

#include <cmath>

namespace Tevra::Data {

namespace {

constexpr double kPi = 3.14159265358979323846;
// A joint rotation (radians) below this bends neither way.
constexpr double kNoRotation = 1e-6;
// Offsets (metres) and sines below this give no direction of bending and no radius.
constexpr double kNoBend = 1e-10;
// Generation of the joint and strain records the calculation makes.
constexpr int kJointVersion = 5;
constexpr int kStrainVersion = 2;

// Displaced minus initial coordinate at x, each curve read by itself.
double Movement(const CSplineT<double>& displaced, const CSplineT<double>& initial, double x) {
    return displaced.GetValue(x) - initial.GetValue(x);
}

Vec3<double> Movement(const CUtilityDamageAssessment::SCurves& c, double x) {
    return Vec3<double>(Movement(c.displacedX, c.initialX, x), Movement(c.displacedY, c.initialY, x),
                        Movement(c.displacedZ, c.initialZ, x));
}

// How far row x stands off the chord between x - span and x + span: across the pipe in
// plan (a) and in level (b), metres.
void OffsetsFromChord(const CUtilityDamageAssessment::SCurves& c, double x, double span,
                      double& a, double& b) {
    const CSplineT<double>& P = c.perpendicular;
    a = P.GetValue(x) - (P.GetValue(x + span) + P.GetValue(x - span)) * 0.5;
    b = Movement(c.displacedZ, c.initialZ, x) -
        (Movement(c.displacedZ, c.initialZ, x + span) +
         Movement(c.displacedZ, c.initialZ, x - span)) *
            0.5;
}

// 3-D distance between the points of three curves at xa and at xb.
double Chord(const CSplineT<double>& X, const CSplineT<double>& Y, const CSplineT<double>& Z,
             double xa, double xb) {
    const double dx = X.GetValue(xa) - X.GetValue(xb);
    const double dy = Y.GetValue(xa) - Y.GetValue(xb);
    const double dz = Z.GetValue(xa) - Z.GetValue(xb);
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

} // namespace

double CUtilityDamageAssessment::AxialPulloutLeft(int row, const double& length,
                                                  const CSplineT<double>& curve) {
    double sum = 0.0;
    int count = 0;
    const int n = curve.NumPoint();
    if (row < 0 || row >= n)
        return sum / count;
    const double xi = curve.GetX(row);
    for (int j = row; j >= 0; --j) {
        // Before the first row the row before wraps round to the last, whose distance is
        // negative, so the mean closes on the first row's own value.
        const double xBefore = curve.GetX(j > 0 ? j - 1 : n - 1);
        if (xi - xBefore > length) {
            sum += curve.GetValue(xi - length);
            ++count;
            break;
        }
        sum += curve.GetY(j);
        ++count;
    }
    return sum / count;
}

double CUtilityDamageAssessment::AxialPulloutRight(int row, const double& length,
                                                   const CSplineT<double>& curve) {
    double sum = 0.0;
    int count = 0;
    const int n = curve.NumPoint();
    if (row < 0 || row >= n)
        return sum / count;
    const double xi = curve.GetX(row);
    for (int j = row; j < n; ++j) {
        if (j + 1 != n && curve.GetX(j + 1) - xi > length) {
            sum += curve.GetValue(xi + length);
            ++count;
            break;
        }
        sum += curve.GetY(j);
        ++count;
    }
    return sum / count;
}

double CUtilityDamageAssessment::AxialStrain(int row, const double& interval,
                                             const CSplineT<double>& initialX,
                                             const CSplineT<double>& initialY,
                                             const CSplineT<double>& initialZ,
                                             const CSplineT<double>& displacedX,
                                             const CSplineT<double>& displacedY,
                                             const CSplineT<double>& displacedZ) {
    // The end rows have no chord centred on them; a row before the table has none either.
    if (row <= 0 || row >= initialX.NumPoint() - 1)
        return 0.0;
    const double xa = initialX.GetX(row) + interval * 0.5;
    const double xb = initialX.GetX(row) - interval * 0.5;
    const double L0 = Chord(initialX, initialY, initialZ, xa, xb);
    const double L1 = Chord(displacedX, displacedY, displacedZ, xa, xb);
    return (L1 - L0) / L0;
}

CPulloutAndRotation CUtilityDamageAssessment::Joint(int row, double x, const SPipe& pipe,
                                                    const SCurves& curves) {
    const double L = pipe.pipeLength;
    // The joint opens by the angle between the two pipes that meet at it, each a chord
    // from the joint to its neighbour one pipe length away: half the joint's offset from
    // the chord over both pipes, across and in level, over one pipe length.
    double a = 0.0, b = 0.0;
    OffsetsFromChord(curves, x, L, a, b);
    const double phi = std::atan(std::sqrt(a * a + b * b) / L);
    const double rotation = 2.0 * phi;
    GeoGlobal::ECurvature curvature = GeoGlobal::eNoCurvature;
    if (!(std::fabs(rotation) < kNoRotation))
        curvature = b > 0.0 ? GeoGlobal::eSagging : GeoGlobal::eHogging;

    CUtilityLocationInfo info;
    info.SetLocation(x);
    info.SetDisplacementN(Movement(curves, x));
    info.SetDisplacementNMinus(Movement(curves, x - L));
    info.SetDisplacementNPlus(Movement(curves, x + L));
    info.SetParallelN(curves.parallel.GetValue(x));
    info.SetPerpendicularN(curves.perpendicular.GetValue(x));
    info.SetParallelNMinus(curves.parallel.GetValue(x - L));
    info.SetPerpendicularNMinus(curves.perpendicular.GetValue(x - L));
    info.SetParallelNPlus(curves.parallel.GetValue(x + L));
    // The value at the joint, as the result file has always shown it.
    info.SetPerpendicularNPlus(curves.perpendicular.GetValue(x));

    CPulloutAndRotation joint;
    joint.SetPullout_Axial_Left(AxialPulloutLeft(row, L, curves.parallel));
    joint.SetPullout_Axial_Right(AxialPulloutRight(row, L, curves.parallel));
    // The outer fibre of the spigot moves out of the socket by the rotation of half the
    // angle over the outside diameter.
    joint.SetPullout_Flexural(std::sin(phi) * (pipe.diameter + 2.0 * pipe.wallThickness));
    joint.SetRotation(rotation);
    joint.SetVerticalCurvature(curvature);
    joint.SetReadVersion(kJointVersion);
    joint.SetLocationInfo(info);
    return joint;
}

CUtilityStrain CUtilityDamageAssessment::Strain(int row, double x, const SPipe& pipe,
                                                const SCurves& curves) {
    const double h = pipe.interval;
    CUtilityStrain strain;
    strain.SetLocation(x);
    strain.SetAxialStrain(AxialStrain(row, h, curves.initialX, curves.initialY, curves.initialZ,
                                      curves.displacedX, curves.displacedY, curves.displacedZ));
    // The circle through the row and its neighbours one interval away: with its offset
    // from their chord at angle phi over h, the chord of length h subtends 2 phi at the
    // centre, so R = h / sin(2 phi).
    double a = 0.0, b = 0.0;
    OffsetsFromChord(curves, x, h, a, b);
    const double s = std::sin(2.0 * std::atan(std::sqrt(a * a + b * b) / h));
    // Kept even where the radius is flagged absent: infinite for a straight pipe.
    const double R = h / s;
    strain.SetOrientationAngle(std::atan2(b, a) + kPi / 2.0);
    strain.SetIsOrientationAngle(!(std::fabs(b) < kNoBend && std::fabs(a) < kNoBend));
    strain.SetIsRadiusofCurvature(!(std::fabs(s) < kNoBend));
    strain.SetRadiusofCurvature(R);
    // Bending strain of the outer fibre of the pipe wall.
    strain.SetFlexuralStrain((0.5 * pipe.diameter + pipe.wallThickness) / R);
    strain.SetReadVersion(kStrainVersion);
    return strain;
}

bool CUtilityDamageAssessment::Walk(
    const SPipe& pipe, const SPolylinePipe* polyline, SCurves& curves,
    const std::function<bool()>& cancelled, std::vector<CPulloutAndRotation>& joints,
    const std::function<void(int, const CUtilityStrain&)>& storeStrain) {
    const int n = curves.initialX.NumPoint();
    if (n == 0)
        return true;
    const double L = pipe.pipeLength;
    const double U = pipe.length;
    const double h = pipe.interval;
    const double last = curves.initialX.GetX(n - 1);
    int strainRows = 0;
    int remembered = 1;
    for (int i = 0; i < n; ++i) {
        if (cancelled())
            return false;
        const double x = curves.initialX.GetX(i);
        if (x + h > last)
            break;
        bool jointHere = pipe.jointed && x >= L && U - x >= L;
        bool strainHere = true;
        if (polyline) {
            // Distances along the segment that holds the row, for the segments that are
            // not taken as one continuous pipe. Segment lengths are in space while x is
            // in plan, each measure as it has always been taken.
            const CPolylinePlus& p = *polyline->polyline;
            const int seg = p.Segment(x + polyline->lineStart, SEGMENT_TOLERANCE);
            const double segLen = seg >= 1 ? p.SegmentLength(seg - 1) : 0.0;
            double done = 0.0;
            for (int k = 1; k <= seg - 1; ++k)
                done += p.SegmentLength(k - 1);
            const double xp = polyline->continuousPullouts ? x : x + polyline->lineStart - done;
            const double xs = polyline->continuousStrains ? x : x + polyline->lineStart - done;
            // Entering a new segment: the row before is resolved again along it, so that
            // the pullout means on either side of a bend read the movement along the pipe
            // that holds the joint.
            if (seg > remembered)
                polyline->reResolve(i - 1, seg, curves);
            remembered = seg;

            if (!polyline->continuousPullouts)
                jointHere = jointHere && xp >= L && segLen - xp >= L;
            // The continuous test measures from the polyline's LineEnd, not from the
            // utility's length: that asymmetry is how the strain reach has always been set.
            if (h > x)
                strainHere = false;
            else if (polyline->continuousStrains)
                strainHere = !(h > polyline->lineEnd - xs);
            else
                strainHere = !(h > segLen - xs || h > xs);
        }
        if (jointHere)
            joints.push_back(Joint(i, x, pipe, curves));
        if (strainHere && i != 0 && i < n - 1 && !(h > x))
            storeStrain(++strainRows, Strain(i, x, pipe, curves));
    }
    return true;
}

CUtilityDamageAssessment::SCurves
CUtilityDamageAssessment::Curves(const CTableD& parallel, const CTableD& perpendicular,
                                 const CTableD& initialX, const CTableD& initialY,
                                 const CTableD& initialZ, const CTableD& displacedX,
                                 const CTableD& displacedY, const CTableD& displacedZ) {
    return {CSplineT<double>(parallel),   CSplineT<double>(perpendicular),
            CSplineT<double>(initialX),   CSplineT<double>(initialY),
            CSplineT<double>(initialZ),   CSplineT<double>(displacedX),
            CSplineT<double>(displacedY), CSplineT<double>(displacedZ)};
}

bool CUtilityDamageAssessment::Assess(const SPipe& pipe, const SPolylinePipe* polyline,
                                      SCurves& curves, double tolerance,
                                      const std::function<bool()>& cancelled,
                                      CUtilityResults& results, int stage) {
    std::vector<CPulloutAndRotation> joints;
    if (!Walk(pipe, polyline, curves, cancelled, joints,
              [&](int k, const CUtilityStrain& row) { results.SetUtilityStrain(stage, k, row); }))
        return false;
    const std::vector<std::vector<CPulloutAndRotation>> layouts = FormIterations(
        joints, pipe.pipeLength, tolerance, polyline ? polyline->polyline : nullptr);
    for (size_t t = 0; t < layouts.size(); ++t)
        results.SetPulloutAndRotationIteration(stage, static_cast<int>(t) + 1, layouts[t]);
    return true;
}

void CUtilityDamageAssessment::DeleteAssessment(CUtilityResults& results, int stage) {
    results.DeletePulloutAndRotations(stage);
    results.DeleteUtilityStrains(stage);
}

std::vector<std::vector<CPulloutAndRotation>>
CUtilityDamageAssessment::FormIterations(const std::vector<CPulloutAndRotation>& joints,
                                         double pipeLength, double tolerance,
                                         const CPolylinePlus* polyline) {
    std::vector<std::vector<CPulloutAndRotation>> iterations;
    const int m = static_cast<int>(joints.size());
    if (m == 0)
        return iterations;
    auto location = [&joints](int e) { return joints[static_cast<size_t>(e)].GetLocation(); };
    // K candidates for the first joint: those closer to the first candidate than one pipe
    // length, since a later first joint repeats a layout already formed.
    int K = m;
    if (m > 2)
        for (int c = 2; c < m; ++c)
            if (location(c) + tolerance >= location(0) + pipeLength) {
                K = c;
                break;
            }
    const int lastFirst = K == 1 ? 1 : K - 1;
    // Not reset between layouts: once the first layout has reached the last segment no
    // later layout meets a new one, so the restart at a vertex acts for the first only.
    int remembered = 1;
    for (int t = 1; t <= lastFirst; ++t) {
        std::vector<CPulloutAndRotation> layout;
        for (int e = t; e <= m; ++e) {
            if (polyline) {
                const int seg = polyline->Segment(location(e - 1), SEGMENT_TOLERANCE);
                if (seg > remembered) {
                    // Restart the pattern at the vertex.
                    e += t - 1;
                    if (e > m)
                        break;
                    remembered = seg;
                }
            }
            const CPulloutAndRotation& joint = joints[static_cast<size_t>(e - 1)];
            if (layout.empty() ||
                !(layout.back().GetLocation() + pipeLength > joint.GetLocation() + tolerance))
                layout.push_back(joint);
        }
        iterations.push_back(std::move(layout));
    }
    return iterations;
}

} // namespace Tevra::Data
