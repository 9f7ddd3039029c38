#include "solver/ZorvoCal.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

using namespace Tevra;
using Tevra::Data::GeoTunnel;

namespace {

const double kPi = 2.0 * std::asin(1.0);

double NormalCdf(double a) { return 0.5 * std::erfc(-a / std::sqrt(2.0)); }

} // namespace

TEST(ZorvoCal, Tun25NormalProbability) {
    double r = -1.0;
    ZorvoCal::tun25_(0.0, r, 100.0);
    EXPECT_NEAR(r, 0.5, 1e-12);

    // Worked by hand at a = 1: c = 0.5, d = 2.93 c^2 = 0.7325, the denominator
    // 1.604 + 1 + 1.955 + 2.225 + 0.7325 + 0.534725 = 8.051225, p = 1 / 8.051225,
    // Q = (p + 0.7978845 / 2) / (2 e^0.5) and the result 1 - Q; at a = -2.5 Q itself.
    ZorvoCal::tun25_(1.0, r, 100.0);
    EXPECT_NEAR(r, 0.841347667108452, 1e-14);
    ZorvoCal::tun25_(-2.5, r, 100.0);
    EXPECT_NEAR(r, 0.006209632795826656, 1e-16);

    // The rational formula is within 1e-4 of the normal distribution everywhere.
    for (int k = -1000; k <= 1000; ++k) {
        const double a = k / 100.0;
        ZorvoCal::tun25_(a, r, 100.0);
        EXPECT_NEAR(r, NormalCdf(a), 1e-4) << a;
    }

    // At and beyond the limit: exactly 0 or 1, with no formula evaluated.
    struct {
        double a, limit, expected;
    } cases[] = {{100.0, 100.0, 1.0},  {-100.0, 100.0, 0.0}, {1e300, 100.0, 1.0},
                 {-1e300, 100.0, 0.0}, {2.0, 2.0, 1.0},      {-2.0, 2.0, 0.0}};
    for (const auto& c : cases) {
        ZorvoCal::tun25_(c.a, r, c.limit);
        EXPECT_EQ(r, c.expected) << c.a;
    }
}

// Far in the tails the approximation is given without calling exp: the value must be the
// one the formula as written gives, bit for bit, on both sides of each short cut.
TEST(ZorvoCal, Tun25TailAsTheFormulaGivesIt) {
    auto written = [](double a) {
        const double b = std::fabs(a);
        const double c = 0.5 * b * b;
        const double d = 2.93 * c * c;
        const double p = 1.0 / (1.604 * b + 1.0 + 3.91 * c + 4.45 * c * b + d + 0.73 * d * b);
        const double Q = (p + 0.7978845 * b / (2.0 * c + 1.0)) / (2.0 * std::exp(c));
        return a > 0.0 ? 1.0 - Q : Q;
    };
    // |a| near 8.7 (c = 38), where 1 - Q becomes exactly 1, and near 37.7.
    for (int k = 0; k <= 8000; ++k) {
        const double a = k < 4000 ? 8.0 + k * 0.0005 : 36.0 + (k - 4000) * 0.001;
        for (double s : {a, -a}) {
            double r = -1.0;
            ZorvoCal::tun25_(s, r, 100.0);
            EXPECT_EQ(r, written(s)) << s;
        }
    }
    // The Gaussian terms of the trough are given as +0 below -746, as exp rounds them.
    EXPECT_EQ(std::exp(-746.0), 0.0);
    EXPECT_GT(std::exp(-745.0), 0.0);
}

TEST(ZorvoCal, Tun25aErrorFunctionSeries) {
    double r = -1.0;
    ZorvoCal::tun25a_(0.0, r, 30);
    EXPECT_EQ(r, 0.0);

    for (double a : {3.0, 3.5, 50.0}) {
        ZorvoCal::tun25a_(a, r, 30);
        EXPECT_EQ(r, 1.0) << a;
        ZorvoCal::tun25a_(-a, r, 30);
        EXPECT_EQ(r, -1.0) << a;
    }

    // Thirty terms: to rounding up to |a| = 2, within 1e-5 up to 3 where the series
    // has not yet converged (the next term at 2.99 is about 2e-7 of 20-odd summed).
    for (int k = -299; k <= 299; ++k) {
        const double a = k / 100.0;
        ZorvoCal::tun25a_(a, r, 30);
        EXPECT_NEAR(r, std::erf(a), std::fabs(a) <= 2.0 ? 1e-12 : 1e-5) << a;
    }

    // The terms themselves at a = 1: 2/sqrt(pi) (1 - 1/3 + 1/(2! 5)).
    const double twoOverRootPi = 2.0 / std::sqrt(kPi); // 1.1283792
    struct {
        int terms;
        double expected;
    } terms[] = {{1, twoOverRootPi},
                 {2, twoOverRootPi * (2.0 / 3.0)},            // 0.7522528
                 {3, twoOverRootPi * (1.0 - 1.0 / 3 + 0.1)}}; // 0.8650907
    for (const auto& c : terms) {
        ZorvoCal::tun25a_(1.0, r, c.terms);
        EXPECT_NEAR(r, c.expected, 1e-15) << c.terms;
    }
}

TEST(ZorvoCal, FactorialAndIntegerPower) {
    struct {
        int n;
        double expected;
    } facts[] = {{-3, 1.0}, {0, 1.0},   {1, 1.0},
                 {2, 2.0},  {5, 120.0}, {20, 2432902008176640000.0}}; // 20! is exact in a double
    for (const auto& c : facts)
        EXPECT_EQ(ZorvoCal::dfact_(c.n), c.expected) << c.n;
    EXPECT_NEAR(ZorvoCal::dfact_(29) / std::tgamma(30.0), 1.0, 1e-14); // no overflow

    const double inf = std::numeric_limits<double>::infinity();
    struct {
        double x;
        int n;
        double expected;
    } powers[] = {
        {2.0, 0, 1.0},
        {0.0, 0, 1.0},
        {-3.0, 3, -27.0},
        {2.0, -3, 0.125},
        {-2.0, -3, -0.125},
        {0.0, -1, inf},
        {2.0, 62, std::ldexp(1.0, 62)},
        {2.0, 1023, std::ldexp(1.0, 1023)},
        {2.0, 1024, inf},
        {2.0, -1074, std::ldexp(1.0, -1074)}, // smallest subnormal
        {-1.0, INT_MAX, -1.0},
        {1.0, INT_MIN, 1.0},
        {-1.0, 1000000, 1.0},
    };
    for (const auto& c : powers)
        EXPECT_EQ(ZorvoCal::pow_ri(c.x, c.n), c.expected) << c.x << "^" << c.n;

    // (1 + 2^-20)^(2^20) by twenty squarings, each doubling the rounding error so far:
    // e (1 - 2^-21) to first order, within 1e-9.
    const double x = 1.0 + std::ldexp(1.0, -20);
    EXPECT_NEAR(ZorvoCal::pow_ri(x, 1 << 20), std::exp(1.0) * (1.0 - std::ldexp(1.0, -21)), 1e-9);
}

TEST(ZorvoCal, Tun27PrincipalStrains) {
    const double r2 = std::sqrt(2.0);
    struct {
        const char* state;
        double s[3];
        double major, minor, angle;
    } cases[] = {
        // ex alone: the major strain along x.
        {"pure ex", {2.0, 0.0, 0.0}, 2.0, 0.0, 0.0},
        // ey alone: along y, at a right angle.
        {"pure ey", {0.0, 2.0, 0.0}, 2.0, 0.0, kPi / 2.0},
        // Engineering shear 2: principal strains +-1 at 45 degrees.
        {"pure shear", {0.0, 0.0, 2.0}, 1.0, -1.0, kPi / 4.0},
        // Equal ex and ey: every direction is principal; the angle is a right angle.
        {"equal biaxial", {1.0, 1.0, 0.0}, 1.0, 1.0, kPi / 2.0},
        // No strain at all: also a right angle.
        {"none", {0.0, 0.0, 0.0}, 0.0, 0.0, kPi / 2.0},
        // ex 3, ey 1, g 2: centre 2, radius sqrt(1 + 1); tan 2a = 2/2, a = 22.5 degrees.
        {"general", {3.0, 1.0, 2.0}, 2.0 + r2, 2.0 - r2, kPi / 8.0},
    };
    for (const auto& c : cases) {
        double out[6];
        ZorvoCal::tun27_(2, c.s, out);
        EXPECT_NEAR(out[0], c.major, 1e-15) << c.state;
        EXPECT_NEAR(out[1], c.minor, 1e-15) << c.state;
        EXPECT_NEAR(out[2], c.angle, 1e-15) << c.state;
    }
    // The further values of the general case: 2c = 4, 2R = 2 sqrt(2), R/c = sqrt(2)/2.
    double out[6];
    const double general[3] = {3.0, 1.0, 2.0};
    ZorvoCal::tun27_(2, general, out);
    EXPECT_NEAR(out[3], 4.0, 1e-15);
    EXPECT_NEAR(out[4], 2.0 * r2, 1e-15);
    EXPECT_NEAR(out[5], r2 / 2.0, 1e-15);
}

TEST(ZorvoCal, TroughWidthByDerivation) {
    // Surface point h = 20 m above the axis, interface hI = 8 m above it, k = 0.4.
    const GeoTunnel::ESoilType clay = GeoTunnel::eCohesive, sand = GeoTunnel::eGranular;
    struct {
        GeoTunnel::EkDerivation d;
        GeoTunnel::ESoilType soil;
        double hI;
        double i;
    } cases[] = {
        {GeoTunnel::ekOReillyAndNew, clay, 8.0, 9.7},  // 0.43 20 + 1.1
        {GeoTunnel::ekOReillyAndNew, sand, 8.0, 5.48}, // 0.28 20 - 0.12
        {GeoTunnel::ekBoscardin, clay, 8.0, 10.0},     // 0.5 20
        {GeoTunnel::ekBoscardin, sand, 8.0, 5.0},      // 0.25 20
        {GeoTunnel::ekUserSpecified, clay, 8.0, 8.0},  // 0.4 20
        {GeoTunnel::ekUserSpecified, sand, 8.0, 8.0},
        {GeoTunnel::ekSelby, clay, 8.0, 7.9},  // 8 0.43 + 12 0.28 + 1.1
        {GeoTunnel::ekSelby, sand, 8.0, 7.3},  // 12 0.43 + 8 0.28 - 0.1
        {GeoTunnel::ekSelby, clay, 30.0, 9.7}, // interface above: 20 0.43 + 1.1
        {GeoTunnel::ekSelby, sand, 30.0, 5.5}, // 20 0.28 - 0.1
        {GeoTunnel::ekSelby, clay, 20.0, 9.7}, // one layer: hI = h
        {GeoTunnel::ekSelby, sand, 20.0, 5.5},
        {GeoTunnel::ekMair, clay, 8.0, -1.0}, // no surface rule: i untouched
        {GeoTunnel::ekNotUsed, sand, 8.0, -1.0},
    };
    for (const auto& c : cases) {
        double i = -1.0;
        EXPECT_EQ(ZorvoCal::Get_i(c.d, GeoTunnel::ekUserSpecified, GeoTunnel::eNewAndBowers, c.soil,
                                  Data::eSurface, 0.4, 0.5, 6.0, 20.0, c.hI, 60.0, i),
                  0);
        EXPECT_NEAR(i, c.i, 1e-12) << "derivation " << c.d << " soil " << c.soil << " hI " << c.hI;
    }
}
