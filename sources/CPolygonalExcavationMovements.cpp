#include "CPolygonalExcavation.h"

#include "document/ZorvoData.h"

#include <algorithm>
#include <cmath>

// Movements behind the walls of a polygonal excavation.
//
// The curves of CIRIA C580/C760 give the movement at right angles behind one straight
// wall. Around the outline every side adds its own: behind the side itself (Region 1),
// in the fan around a convex corner shared with the next side (Region 2), and, in
// smoothed stages only, in the wedges behind a re-entrant corner where one wall's
// region ends (Regions 3 and 4). Stiffened corners reduce the movement near them.

namespace Tevra::Data {

namespace {

using GeoGlobal::EDirection;

// A side shorter than this (metres) has no direction: its unit vector is (0, 0).
constexpr double kShortestDirectedSide = 2.220446049250313e-16;
// A full turn in radians, for angles in degrees (360 / 2 pi).
constexpr double kTwoPi = 6.283185307179586;
// Degrees in a radian, for the angle round the fan of a convex corner.
constexpr double kDegreesPerRadian = 57.29577951308232;
// Angle round the fan (degrees) given to a point exactly at the corner: the middle of a
// right-angled fan, from 90 to 180.
constexpr double kFanAngleAtCorner = 135.0;
// How near a corner whose fan is switched off a point along the side counts as at the
// corner (metres): there the side gives half, as the neighbouring side does.
constexpr double kArcDisabledReach = 1e-06;

double Cross(const Vec2<double>& u, const Vec2<double>& v) { return u.x * v.y - u.y * v.x; }
double Dot(const Vec2<double>& u, const Vec2<double>& v) { return u.x * v.x + u.y * v.y; }
Vec2<double> Reversed(const Vec2<double>& v) { return {-v.x, -v.y}; }
// Length (metres) of a plan vector.
double Length(const Vec2<double>& v) { return std::sqrt(v.x * v.x + v.y * v.y); }

// Signed angle (degrees) between p turned round and q: at a corner where side p arrives
// and side q leaves, the angle between the two walls, signed by the sense of the turn.
double SignedAngle(const Vec2<double>& p, const Vec2<double>& q) {
    const Vec2<double> back = Reversed(p);
    return std::atan2(Cross(back, q), Dot(back, q)) * 360.0 / kTwoPi;
}
double Angle(const Vec2<double>& p, const Vec2<double>& q) { return std::fabs(SignedAngle(p, q)); }

// A table of three (x, value) points read by straight-line interpolation on the first
// pair that brackets x (xa <= x < xb); below the first x the first value, above the
// last x the last value, and at the last x its value.
double ReadThreePointTable(const double (&x)[3], const double (&value)[3], const double& at) {
    if (at < x[0])
        return value[0];
    if (at > x[2])
        return value[2];
    for (int r = 0; r < 2; ++r)
        if (x[r] <= at && at < x[r + 1])
            return (at - x[r]) / (x[r + 1] - x[r]) * (value[r + 1] - value[r]) + value[r];
    return value[2];
}

// One side of the outline: its vector from start to end vertex, its length (metres) and
// its unit vector.
struct SSide {
    Vec2<double> v;
    double L;
    Vec2<double> u;
};

} // namespace

double CPolygonalExcavation::Calc_p1(const double& angle, const double& p1Star) {
    const double x[3] = {0.0, 90.0, 180.0};
    const double value[3] = {0.0, p1Star, 1.0};
    return ReadThreePointTable(x, value, angle);
}

double CPolygonalExcavation::Calc_p2(const double& p1, const double& p1Star, const double& p2Star) {
    const double x[3] = {0.0, p1Star, 1.0};
    const double value[3] = {0.0, p2Star, 0.5};
    return ReadThreePointTable(x, value, p1);
}

double CPolygonalExcavation::Calc_pa_or_pb(const double& angle, const double& p1, const double& p2,
                                           const double& x) {
    const double table[3] = {0.0, (180.0 - angle) * 0.5, 180.0 - angle};
    const double value[3] = {p1, p2, 0.0};
    return ReadThreePointTable(table, value, x);
}

double CPolygonalExcavation::calcExteriorAngle(Vec2<double> a, Vec2<double> b, bool clockwise) {
    // The signed turn from a to b; the soil lies on the side the outline does not turn to.
    const double D = SignedAngle(a, b);
    const double A = std::fabs(D);
    if ((D < 0.0 && clockwise) || (D > 0.0 && !clockwise))
        return A;
    return 360.0 - A;
}

void CPolygonalExcavation::PointMovementsAndStrains(const ZorvoData& data, int stage, int number,
                                                    const Vec3<double>& point, double* movement,
                                                    double*) const {
    const int n = m_polygon.NumPoint();
    // A record with fewer corners than vertices has sides without curves: it adds nothing
    // rather than read past its corner list.
    if (n < 1 || NumExcavationCorners() < n)
        return;

    const bool clockwise = m_polygon.IsClockwise();
    const double S = GetSurfaceLevel(); // metres
    const double depth = S - point.z;   // metres below the surface level
    const Vec2<double> P(point.x, point.y);
    // Stages above the number of stages repeat the stages with re-entrant corners smoothed.
    const bool smoothed = stage > data.NumActualStages(false, false);

    const auto side = [this, n](int i) {
        const Vec2<double> v = m_polygon.Point(i == n - 1 ? 0 : i + 1) - m_polygon.Point(i);
        const double L = Length(v);
        const Vec2<double> u =
            L >= kShortestDirectedSide ? Vec2<double>(v.x / L, v.y / L) : Vec2<double>(0.0, 0.0);
        return SSide{v, L, u};
    };
    // Base level (metres) at a 0-based vertex in this stage, after stage properties.
    const auto baseLevel = [&](int vertex) {
        return data.GetStageDependentProperty(stage, eElementPolygonalExcavation, number, 0,
                                              vertex + 1);
    };
    // Movement (millimetres) that a corner's curve of a direction gives behind a wall of
    // depth H at a distance (metres). A curve index outside the document's list gives
    // none: the checks before a run report it.
    const auto curveMovement = [&](const CExcavationCorner& corner, EDirection d, double H,
                                   double distance) {
        const int index = corner.GetGMCurve(d);
        if (index < 0 || index >= data.NumGMCurves(d))
            return 0.0;
        return MovementAtDistance(data, data.GetGMCurve(d, index + 1), H, distance, depth);
    };
    // Moves the point by m across the side of unit vector u, a positive m towards the
    // excavation (millimetres), and adds v to the vertical movement (millimetres).
    const auto moveOnSide = [&](const Vec2<double>& u, double m, double v) {
        const Vec2<double> N(u.y, -u.x); // right-hand normal
        const double mm = clockwise ? m : -m;
        movement[0] += mm * N.x;
        movement[1] += mm * N.y;
        movement[2] += v;
    };
    // The stiffening factor at distance s (metres) along a wall from a stiffened corner
    // whose influence reaches dS: p1 at the corner, rising to 1 at dS, in a straight line
    // or along a parabola.
    const auto stiffening = [](double p1, double s, double dS, bool linear) {
        if (dS == 0.0)
            return p1;
        if (linear)
            return (s * (1.0 - p1)) / dS + p1;
        return 1.0 - ((1.0 - p1) / (dS * dS)) * (dS - s) * (dS - s);
    };
    const auto outside = [clockwise](double t) { return clockwise ? t <= 0.0 : t >= 0.0; };

    // The previous and next sides of each side are those of non-zero length, passing over
    // repeated vertices so that these do not break the corner angles; side i itself ends
    // each walk. The walks roll round with the loop: the previous side of side i is the
    // last side of non-zero length before it, and its next side is usually side i + 1.
    int prev = n - 1;
    SSide aSide = side(prev);
    while (aSide.L == 0.0 && prev > 0)
        aSide = side(--prev);
    SSide bSide = side(0);
    for (int i = 0; i < n; ++i) {
        const int j = i == n - 1 ? 0 : i + 1;
        if (bSide.L == 0.0) { // a repeated vertex: no wall
            bSide = side(j);
            continue;
        }
        int k = j;
        SSide cSide = side(k);
        while (cSide.L == 0.0) {
            k = k == n - 1 ? 0 : k + 1;
            cSide = side(k);
        }
        const SSide thisSide = bSide, previousSide = aSide;
        aSide = bSide;
        bSide = k == j ? cSide : side(j);

        const Vec2<double>& a = previousSide.v;
        const Vec2<double>& b = thisSide.v;
        const double L = thisSide.L;
        const Vec2<double>& u = thisSide.u;
        const Vec2<double>& c = cSide.v;
        const double Ln = cSide.L;
        const Vec2<double>& uc = cSide.u;
        const Vec2<double>& Vi = m_polygon.Point(i);
        const Vec2<double>& Vj = m_polygon.Point(j);
        const Vec2<double>& Vk = m_polygon.Point(k);

        const CExcavationCorner& cornerI = m_corners[static_cast<size_t>(i)];
        const CExcavationCorner& cornerJ = m_corners[static_cast<size_t>(j)];
        const CExcavationCorner& cornerK = m_corners[static_cast<size_t>(k)];

        // The point along (s) and across (t) side i from its start, and along (s2) and
        // across (t2) the next side from its start (metres).
        const Vec2<double> fromI = P - Vi;
        const double s = Dot(fromI, u);
        const double t = fromI.x * u.y - fromI.y * u.x;
        const Vec2<double> fromK = P - Vk;
        const double s2 = Dot(fromK, uc);
        const double t2 = fromK.x * uc.y - fromK.y * uc.x;

        // Region 1: behind side i, at right angles to it. On a sloping side s is worked
        // from the rounded unit vector, and at the end vertex it can round above L (for
        // a side of (1, 5) it is L + 9e-16): that vertex then falls outside this region
        // and takes only the half of the next side. Kept: L and s are worked as they
        // always have been.
        if (0.0 <= s && s <= L && outside(t)) {
            const double d = std::fabs(t);
            const double zi = baseLevel(i);
            const double zj = baseLevel(j);
            // Wall depth (metres) where the point stands abreast of the wall, the base
            // sloping straight from vertex to vertex; a base above the surface is none.
            double H = S - ((zj - zi) * s / L + zi);
            if (H < 0.0)
                H = 0.0;
            double mH = curveMovement(cornerI, GeoGlobal::eHorizontal, H, d);
            double mV = curveMovement(cornerI, GeoGlobal::eVertical, H, d);

            // Near a stiffened corner at the start, within its reach along the side (at
            // most half the side).
            const double dN = std::min(cornerI.GetNextEdge_d(), L * 0.5);
            if (cornerI.GetStiffened() && s <= dN) {
                const double p1 = Calc_p1(Angle(a, b), cornerI.GetNextEdge_p1Star());
                const double F = stiffening(p1, s, dN, cornerI.IsLinearStiffening());
                mH *= F;
                mV *= F;
            }
            // Near a stiffened corner at the end, by the distance back from it.
            const double dP = std::min(cornerJ.GetPreviousEdge_d(), L * 0.5);
            const double r = L - s;
            if (cornerJ.GetStiffened() && s >= L - dP) {
                const double p1 = Calc_p1(Angle(b, c), cornerJ.GetPreviousEdge_p1Star());
                const double F = stiffening(p1, r, dP, cornerJ.IsLinearStiffening());
                mH *= F;
                mV *= F;
            }

            // Half on a line that this region shares with a neighbouring side's, so that
            // a point there is not counted twice: at a vertex, abreast of the common
            // vertex of two sides in line, and at a corner whose fan is switched off.
            const Vec2<double>& ua = previousSide.u;
            const bool shared = P == Vi || P == Vj || (s == 0.0 && Cross(ua, u) == 0.0) ||
                                (s == L && Cross(uc, u) == 0.0) ||
                                (!cornerI.GetArcEnabled() && std::fabs(s) <= kArcDisabledReach) ||
                                (!cornerJ.GetArcEnabled() && std::fabs(s - L) <= kArcDisabledReach);
            const double w = shared ? 0.5 : 1.0;
            moveOnSide(u, w * mH, w * mV);
        }

        // Region 2: the fan around the convex corner at the end of side i, shared
        // between side i and the next side by the angle round the corner.
        if (cornerJ.GetArcEnabled() && s > L && s2 < 0.0 &&
            (clockwise ? (t < 0.0 || t2 < 0.0) : (t > 0.0 || t2 > 0.0))) {
            const double dx = P.x - Vj.x, dy = P.y - Vj.y;
            const double r = std::sqrt(std::pow(dy, 2.0) + std::pow(dx, 2.0));
            // Wall depths (metres) at the two ends of the corner, as they stand.
            const double H1 = S - baseLevel(j);
            const double H2 = S - baseLevel(k);
            const double mH1 = curveMovement(cornerI, GeoGlobal::eHorizontal, H1, r);
            const double mV1 = curveMovement(cornerI, GeoGlobal::eVertical, H1, r);
            const double mH2 = curveMovement(cornerK, GeoGlobal::eHorizontal, H2, r);
            const double mV2 = curveMovement(cornerK, GeoGlobal::eVertical, H2, r);

            // Angle of the point round the corner (degrees), from side i reversed and
            // measured through the soil.
            double theta = kFanAngleAtCorner;
            if (r != 0.0) {
                const Vec2<double> back = Reversed(b);
                const Vec2<double> toP(dx, dy);
                theta = std::atan2(Cross(back, toP), Dot(back, toP)) * kDegreesPerRadian;
            }
            if (!clockwise) {
                if (theta < 0.0)
                    theta += 360.0;
            } else if (theta > 0.0) {
                theta = 360.0 - theta;
            } else if (theta < 0.0) {
                theta = -theta;
            }
            // Interior angle of the corner (degrees).
            double I = SignedAngle(b, c);
            if (!clockwise)
                I *= -1.0;
            if (I < 0.0)
                I += 360.0;

            // alpha: past the normal of side i; beta: short of the normal of the next side.
            const double alpha = theta - 90.0;
            const double beta = (180.0 - I) - alpha;
            double wA = beta / (alpha + beta);
            double wB = alpha / (alpha + beta);
            if (cornerJ.GetStiffened()) {
                const double p1 = Calc_p1(I, cornerJ.GetPreviousEdge_p1Star());
                const double p2 =
                    Calc_p2(p1, cornerJ.GetPreviousEdge_p1Star(), cornerJ.GetPreviousEdge_p2Star());
                wA = Calc_pa_or_pb(I, p1, p2, alpha);
            }
            if (cornerK.GetStiffened()) {
                const double p1 = Calc_p1(I, cornerK.GetNextEdge_p1Star());
                const double p2 =
                    Calc_p2(p1, cornerK.GetNextEdge_p1Star(), cornerK.GetNextEdge_p2Star());
                wB = Calc_pa_or_pb(I, p1, p2, beta);
            }
            moveOnSide(u, wA * mH1, wA * mV1);
            moveOnSide(uc, wB * mH2, wB * mV2);
        }

        // Regions 3 and 4: behind a re-entrant corner both walls add up by Region 1; in
        // a smoothed stage the edge of each wall's region is faded over a wedge whose
        // half-angle is the transition zone fraction of the soil angle beyond 90
        // degrees. In other stages the fraction counts as 0 and they add nothing: they are
        // not worked out.
        if (!smoothed)
            continue;
        const bool outsideBoth = clockwise ? (t <= 0.0 && t2 <= 0.0) : (t >= 0.0 && t2 >= 0.0);
        const bool region3 = Ln != 0.0 && s2 < 0.0 && 0.0 < s && s < L && outsideBoth;
        const bool region4 = s > L && Ln != 0.0 && 0.0 < s2 && s2 < Ln && outsideBoth;
        if (!region3 && !region4)
            continue;
        const double A = calcExteriorAngle(b, c, clockwise); // soil angle, degrees
        if (!(A < 180.0))
            continue;
        const double dx = P.x - Vj.x, dy = P.y - Vj.y;
        // One wedge: the wall on side unit vector onSide, whose curves are those of the
        // corner curves, at depth H below the base at vertex baseVertex, faded by weight w
        // at psi degrees round from the wall (0 outside the wedge of half-angle
        // fraction x (A - 90)). Only a stiffened corner applies w, with its p1 at the
        // soil angle; unstiffened, the wall moves whole: this asymmetry is kept.
        const auto wedge = [&](double fraction, double psi, const CExcavationCorner& stiffness,
                               const CExcavationCorner& curves, int baseVertex,
                               const Vec2<double>& onSide) {
            const double g = fraction * (A - 90.0);
            if (clockwise)
                psi = std::fabs(psi);
            if (!(g > 0.0 && psi - 90.0 < g))
                return;
            const double w = 1.0 - (psi - 90.0) / g;
            if (!(w > 0.0))
                return;
            const double F =
                stiffness.GetStiffened() ? Calc_p1(A, stiffness.GetNextEdge_p1Star()) * w : 1.0;
            const double r = std::sqrt(std::pow(dy, 2.0) + std::pow(dx, 2.0));
            const double H = S - baseLevel(baseVertex);
            const double mH = curveMovement(curves, GeoGlobal::eHorizontal, H, r);
            const double mV = curveMovement(curves, GeoGlobal::eVertical, H, r);
            moveOnSide(onSide, F * mH, F * mV);
        };

        // Region 3: past the start of the next side, fading the next side's wall.
        if (region3)
            wedge(cornerK.GetPreviousEdge_TransitionZoneFraction(),
                  std::atan2(Cross(fromK, c), Dot(fromK, c)) * 360.0 / kTwoPi, cornerK, cornerK,
                  k, uc);
        // Region 4: past the end of side i, fading side i's wall.
        if (region4) {
            const Vec2<double> back = Reversed(b);
            const Vec2<double> toP(dx, dy);
            wedge(cornerJ.GetNextEdge_TransitionZoneFraction(),
                  std::atan2(Cross(back, toP), Dot(back, toP)) * 360.0 / kTwoPi, cornerJ, cornerI,
                  j, u);
        }
    }
}

} // namespace Tevra::Data
