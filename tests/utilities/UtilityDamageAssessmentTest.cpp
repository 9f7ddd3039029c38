// The pullout, rotation and strain of a pipe, worked by hand from the movements along it.
#include "utilities/CUtilityDamageAssessment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

using namespace Tevra::Data;
using Assessment = CUtilityDamageAssessment;
using Tevra::Vec3;

namespace {

CSplineT<double> Curve(const std::vector<double>& x, const std::function<double(double)>& y) {
    CSplineT<double> c;
    for (double v : x)
        c.AddPoint(v, y(v));
    return c;
}

std::vector<double> Rows(int n, double step) {
    std::vector<double> x;
    for (int i = 0; i < n; ++i)
        x.push_back(i * step);
    return x;
}

// A straight pipe along X at level 0, rows 1 m apart, moving by the given parallel,
// perpendicular and vertical movements (metres); its displaced X follows the parallel and
// its displaced Y the perpendicular movement.
Assessment::SCurves Pipe(int n, const std::function<double(double)>& parallel,
                         const std::function<double(double)>& perpendicular,
                         const std::function<double(double)>& vertical) {
    const std::vector<double> x = Rows(n, 1.0);
    auto zero = [](double) { return 0.0; };
    return {Curve(x, parallel),
            Curve(x, perpendicular),
            Curve(x, [](double v) { return v; }),
            Curve(x, zero),
            Curve(x, zero),
            Curve(x, [&](double v) { return v + parallel(v); }),
            Curve(x, perpendicular),
            Curve(x, vertical)};
}

struct SWalked {
    std::vector<CPulloutAndRotation> joints;
    std::vector<int> strainNumbers;
    std::vector<CUtilityStrain> strains;
};

SWalked Walk(const Assessment::SPipe& pipe, const Assessment::SPolylinePipe* polyline,
             Assessment::SCurves curves) {
    SWalked w;
    EXPECT_TRUE(Assessment::Walk(
        pipe, polyline, curves, [] { return false; }, w.joints, [&w](int k, const CUtilityStrain& s) {
            w.strainNumbers.push_back(k);
            w.strains.push_back(s);
        }));
    return w;
}

CPolylinePlus Route(const std::vector<Vec3<double>>& points) {
    CPolylinePlus route;
    route.SetNumPoint(static_cast<int>(points.size()));
    for (size_t i = 0; i < points.size(); ++i)
        route.SetPoint(static_cast<int>(i), points[i]);
    return route;
}

std::vector<double> Locations(const std::vector<CPulloutAndRotation>& joints) {
    std::vector<double> x;
    for (const CPulloutAndRotation& j : joints)
        x.push_back(j.GetLocation());
    return x;
}

} // namespace

TEST(UtilityDamageAssessment, AxialPulloutMeansOverOnePipeLength) {
    // y = x^2 on rows 0 to 5.
    const CSplineT<double> c = Curve(Rows(6, 1.0), [](double x) { return x * x; });
    // Left of row 4 over 2.5 m: rows 4 and 3; the row before row 2 lies beyond 2.5 m, so
    // the mean closes with the curve at 1.5 (2.5) in place of row 2.
    EXPECT_DOUBLE_EQ(Assessment::AxialPulloutLeft(4, 2.5, c), (16.0 + 9.0 + 2.5) / 3.0);
    // Right of row 1: rows 1 and 2, closed by the curve at 3.5 (12.5) in place of row 3.
    EXPECT_DOUBLE_EQ(Assessment::AxialPulloutRight(1, 2.5, c), (1.0 + 4.0 + 12.5) / 3.0);
    // At the first row the row before wraps round to the last and fails its test: the
    // mean is the first row's own value; at the last row likewise the last value.
    EXPECT_DOUBLE_EQ(Assessment::AxialPulloutLeft(0, 2.5, c), 0.0);
    EXPECT_DOUBLE_EQ(Assessment::AxialPulloutRight(5, 2.5, c), 25.0);
    // A length beyond the table takes every row on the side.
    EXPECT_DOUBLE_EQ(Assessment::AxialPulloutLeft(2, 10.0, c), (4.0 + 1.0 + 0.0) / 3.0);
    EXPECT_TRUE(std::isnan(Assessment::AxialPulloutLeft(-1, 2.5, c)));
    EXPECT_TRUE(std::isnan(Assessment::AxialPulloutRight(6, 2.5, c)));
}

TEST(UtilityDamageAssessment, AxialStrainOfTheChordAroundARow) {
    // Rows 0 to 4: the pipe stays at X, rises 0.02 per metre and bows sideways by
    // 0.01 x^2. Round row 2 over 1 m: dX 1, dY (0.065 - 0.025), dZ 0.02.
    const std::vector<double> x = Rows(5, 1.0);
    auto zero = [](double) { return 0.0; };
    const CSplineT<double> X = Curve(x, [](double v) { return v; });
    const CSplineT<double> O = Curve(x, zero);
    const CSplineT<double> Y = Curve(x, [](double v) { return 0.01 * v * v; });
    const CSplineT<double> Z = Curve(x, [](double v) { return 0.02 * v; });
    EXPECT_NEAR(Assessment::AxialStrain(2, 1.0, X, O, O, X, Y, Z),
                std::sqrt(1.0 + 0.04 * 0.04 + 0.02 * 0.02) - 1.0, 1e-15);
    EXPECT_EQ(Assessment::AxialStrain(0, 1.0, X, O, O, X, Y, Z), 0.0);
    EXPECT_EQ(Assessment::AxialStrain(4, 1.0, X, O, O, X, Y, Z), 0.0);
}

TEST(UtilityDamageAssessment, KinkedLineJointsAndStrains) {
    // A 6 m pipe of 2 m pipes, rows 1 m apart, stretching by 1 mm per metre, with the
    // row at 3 m pushed 3 mm to the left and settling 4 mm: the kink is 5 mm off the
    // chord both over one pipe length and over one interval.
    const Assessment::SCurves curves =
        Pipe(7, [](double x) { return 0.001 * x; }, [](double x) { return x == 3.0 ? 0.003 : 0.0; },
             [](double x) { return x == 3.0 ? -0.004 : 0.0; });
    Assessment::SPipe pipe;
    pipe.diameter = 0.1;
    pipe.wallThickness = 0.01;
    pipe.pipeLength = 2.0;
    pipe.length = 6.0;
    pipe.interval = 1.0;
    const SWalked w = Walk(pipe, nullptr, curves);

    // Joints where a pipe length fits to either side.
    ASSERT_EQ(Locations(w.joints), (std::vector<double>{2.0, 3.0, 4.0}));
    const CPulloutAndRotation& j = w.joints[1];
    const double phi = std::atan(0.005 / 2.0);
    EXPECT_DOUBLE_EQ(j.GetRotation(), 2.0 * phi);
    EXPECT_EQ(j.GetVerticalCurvature(), Tevra::GeoGlobal::eHogging); // the joint went down
    EXPECT_DOUBLE_EQ(j.GetPullout_Flexural(), std::sin(phi) * 0.12);
    // Means of 3, 2 and (at 1 m) 1 mm to the left; 3, 4 and (at 5 m) 5 mm to the right.
    EXPECT_DOUBLE_EQ(j.GetPullout_Axial_Left(), 0.002);
    EXPECT_DOUBLE_EQ(j.GetPullout_Axial_Right(), 0.004);
    EXPECT_EQ(j.GetReadVersion(), 5);
    const CUtilityLocationInfo& info = j.GetLocationInfo();
    EXPECT_DOUBLE_EQ(info.GetDisplacementN().z, -0.004);
    EXPECT_NEAR(info.GetDisplacementNPlus().x, 0.005, 1e-15);
    EXPECT_DOUBLE_EQ(info.GetParallelNMinus(), 0.001);
    EXPECT_DOUBLE_EQ(info.GetPerpendicularNMinus(), 0.0);
    // "At N+" the perpendicular holds the value at the joint.
    EXPECT_DOUBLE_EQ(info.GetPerpendicularNPlus(), 0.003);

    // Strain rows, numbered from 1, at every row but the first and the one the walk never
    // reaches (x + h past the end).
    ASSERT_EQ(w.strainNumbers, (std::vector<int>{1, 2, 3, 4, 5}));
    const CUtilityStrain& s = w.strains[2];
    EXPECT_DOUBLE_EQ(s.GetLocation(), 3.0);
    const double sine = 2.0 * 0.005 / (1.0 + 0.005 * 0.005); // sin(2 atan 0.005)
    EXPECT_NEAR(s.GetRadiusofCurvature(), 1.0 / sine, 1e-9);
    EXPECT_NEAR(s.GetFlexuralStrain(), 0.06 * sine, 1e-15);
    EXPECT_NEAR(s.GetOrientationAngle(), std::atan2(-0.004, 0.003) + M_PI / 2.0, 1e-15);
    EXPECT_TRUE(s.GetIsOrientationAngle());
    EXPECT_TRUE(s.GetIsRadiusofCurvature());
    EXPECT_NEAR(s.GetAxialStrain(), 0.001, 1e-15);
    EXPECT_EQ(s.GetReadVersion(), 2);
}

TEST(UtilityDamageAssessment, RigidMovementHasNoRotationAngleOrRadius) {
    const Assessment::SCurves curves = Pipe(
        9, [](double) { return 0.002; }, [](double) { return 0.003; }, [](double) { return -0.01; });
    Assessment::SPipe pipe;
    pipe.diameter = 0.2;
    pipe.wallThickness = 0.02;
    pipe.pipeLength = 3.0;
    pipe.length = 8.0;
    pipe.interval = 1.0;
    const SWalked w = Walk(pipe, nullptr, curves);
    ASSERT_EQ(Locations(w.joints), (std::vector<double>{3.0, 4.0, 5.0}));
    for (const CPulloutAndRotation& j : w.joints) {
        EXPECT_EQ(j.GetRotation(), 0.0);
        EXPECT_EQ(j.GetVerticalCurvature(), Tevra::GeoGlobal::eNoCurvature);
        EXPECT_EQ(j.GetPullout_Flexural(), 0.0);
        EXPECT_EQ(j.GetPullout_Axial_Total(), 0.0);
    }
    ASSERT_EQ(w.strains.size(), 7u);
    for (const CUtilityStrain& s : w.strains) {
        EXPECT_FALSE(s.GetIsOrientationAngle());
        EXPECT_FALSE(s.GetIsRadiusofCurvature());
        EXPECT_TRUE(std::isinf(s.GetRadiusofCurvature()));
        EXPECT_EQ(s.GetFlexuralStrain(), 0.0);
        EXPECT_NEAR(s.GetAxialStrain(), 0.0, 1e-15);
    }

    // A continuous pipe has strains only; a pipe longer than half the utility no joints.
    pipe.jointed = false;
    EXPECT_TRUE(Walk(pipe, nullptr, curves).joints.empty());
    EXPECT_EQ(Walk(pipe, nullptr, curves).strains.size(), 7u);
    pipe.jointed = true;
    pipe.pipeLength = 4.5;
    EXPECT_TRUE(Walk(pipe, nullptr, curves).joints.empty());
}

TEST(UtilityDamageAssessment, BendWithAndWithoutContinuousSegments) {
    // Two 6 m segments at a right angle; the pipe runs their whole 12 m, 2 m pipes, rows
    // 1 m apart, and nothing moves.
    const CPolylinePlus route = Route({{0.0, 0.0, 0.0}, {6.0, 0.0, 0.0}, {6.0, 6.0, 0.0}});
    const Assessment::SCurves curves =
        Pipe(13, [](double) { return 0.0; }, [](double) { return 0.0; }, [](double) { return 0.0; });
    Assessment::SPipe pipe;
    pipe.diameter = 0.1;
    pipe.pipeLength = 2.0;
    pipe.length = 12.0;
    pipe.interval = 1.0;
    std::vector<std::pair<int, int>> resolved;
    Assessment::SPolylinePipe along;
    along.polyline = &route;
    along.lineStart = 0.0;
    along.lineEnd = 12.0;
    along.reResolve = [&resolved](int row, int segment, Assessment::SCurves&) {
        resolved.emplace_back(row, segment);
    };

    const SWalked continuous = Walk(pipe, &along, curves);
    EXPECT_EQ(Locations(continuous.joints),
              (std::vector<double>{2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0}));
    EXPECT_EQ(continuous.strains.size(), 11u); // rows 1 to 11
    // Entering the second segment at 7 m resolves the row before along it.
    EXPECT_EQ(resolved, (std::vector<std::pair<int, int>>{{6, 2}}));

    // Segment by segment, each measured from its own start: a pipe length clear of both
    // ends of its segment for a joint, an interval for a strain; 6 m, at the vertex,
    // belongs to the first segment.
    along.continuousPullouts = false;
    along.continuousStrains = false;
    const SWalked apart = Walk(pipe, &along, curves);
    EXPECT_EQ(Locations(apart.joints), (std::vector<double>{2.0, 3.0, 4.0, 8.0, 9.0, 10.0}));
    std::vector<double> strainAt;
    for (const CUtilityStrain& s : apart.strains)
        strainAt.push_back(s.GetLocation());
    EXPECT_EQ(strainAt, (std::vector<double>{1, 2, 3, 4, 5, 7, 8, 9, 10, 11}));
    EXPECT_EQ(apart.strainNumbers.back(), 10);
}

TEST(UtilityDamageAssessment, CancelStopsTheWalkBeforeARow) {
    const Assessment::SCurves curves =
        Pipe(9, [](double) { return 0.0; }, [](double) { return 0.0; }, [](double) { return 0.0; });
    Assessment::SPipe pipe;
    pipe.pipeLength = 1.0;
    pipe.length = 8.0;
    pipe.interval = 1.0;
    Assessment::SCurves c = curves;
    std::vector<CPulloutAndRotation> joints;
    int asked = 0;
    EXPECT_FALSE(Assessment::Walk(
        pipe, nullptr, c, [&asked] { return ++asked > 3; }, joints,
        [](int, const CUtilityStrain&) {}));
    EXPECT_EQ(Locations(joints), (std::vector<double>{1.0, 2.0}));
}

TEST(UtilityDamageAssessment, JointLayouts) {
    // Route of two segments meeting at 3 m, for the layouts of a pipe on a polyline.
    const CPolylinePlus route = Route({{0.0, 0.0, 0.0}, {3.0, 0.0, 0.0}, {3.0, 10.0, 0.0}});
    const struct {
        std::vector<double> joints;
        double pipeLength;
        double tolerance;
        bool onRoute;
        std::vector<std::vector<double>> layouts;
    } cases[] = {
        {{}, 3.0, 1e-5, false, {}},
        {{5.0}, 3.0, 1e-5, false, {{5.0}}},
        // Two joints: one layout, the second joint taken when a pipe length away within
        // the tolerance; a transect takes no tolerance.
        {{0.0, 2.999995}, 3.0, 1e-5, false, {{0.0, 2.999995}}},
        {{0.0, 2.999995}, 3.0, 0.0, false, {{0.0}}},
        {{0.0, 1.0}, 3.0, 1e-5, false, {{0.0}}},
        // First joints closer than a pipe length to the first candidate, each its layout.
        {{0.0, 1.0, 2.0, 3.0, 4.0}, 2.0, 1e-5, false, {{0.0, 2.0, 4.0}}},
        {{0.0, 1.0, 2.0, 3.0, 4.0}, 3.0, 1e-5, false, {{0.0, 3.0}, {1.0, 4.0}}},
        {{0.0, 1.0, 2.0, 3.0}, 10.0, 1e-5, false, {{0.0}, {1.0}, {2.0}}},
        // On the route the first layout reaches the second segment and remembers it, so
        // the second layout meets no new segment and does not restart at the vertex.
        {{0.5, 1.0, 1.5, 3.5, 4.0, 4.5}, 1.2, 1e-5, true, {{0.5, 3.5}, {1.0, 3.5}}},
    };
    for (const auto& c : cases) {
        std::vector<CPulloutAndRotation> joints;
        for (double x : c.joints) {
            joints.emplace_back();
            joints.back().SetLocation(x);
        }
        std::vector<std::vector<double>> layouts;
        for (const auto& layout : Assessment::FormIterations(joints, c.pipeLength, c.tolerance,
                                                             c.onRoute ? &route : nullptr))
            layouts.push_back(Locations(layout));
        EXPECT_EQ(layouts, c.layouts) << c.joints.size() << " joints, L " << c.pipeLength;
    }
}
