#include "sources/CSurfacePolynomial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

using Points = std::vector<Vec3<double>>;
const double kTol = 1e-12; // coefficients and values of small exact fits
const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(SurfacePolynomial, FitsAndCodes) {
    struct Case {
        const char* what;
        Points data;
        int xOrder, yOrder;
        int code;
        std::vector<double> coeffs;
    };
    const Case cases[] = {
        // Line through (0, 1) and (2, 5): A = [[2, 2], [2, 4]], b = [6, 10], c = [1, 2].
        {"two points, x order 1", {{0, 0, 1}, {2, 0, 5}}, 1, 0, 2, {1, 2}},
        // z = 1 + 2x + 3y + 4xy at the unit square's corners: z = 1, 3, 4, 10. Powers
        // of x run fastest, so c = [1, 2, 3, 4].
        {"bilinear, exact", {{0, 0, 1}, {1, 0, 3}, {0, 1, 4}, {1, 1, 10}}, 1, 1, 2, {1, 2, 3, 4}},
        // Orders 0: the mean, (1 + 2 + 6) / 3 = 3.
        {"zero order is the mean", {{0, 0, 1}, {1, 0, 2}, {5, 3, 6}}, 0, 0, 2, {3}},
        {"standard zero curve", {{1, 0, 0}, {0, 1, 0}, {1, 1, 0}}, 0, 0, 2, {0}},
        // Four coefficients, three points: rank 3 at most.
        {"3 points, orders 1 and 1", {{0, 0, 1}, {1, 0, 2}, {0, 1, 3}}, 1, 1, 0, {}},
        // y = x on all four points: the columns of x and y coincide, the 4 x 4 normal
        // matrix has rank 3 (1, x, x^2), caught by the pivot threshold.
        {"rank-deficient 4 x 4", {{0, 0, 1}, {1, 1, 2}, {2, 2, 0}, {3, 3, 5}}, 1, 1, 0, {}},
        {"x order 2, two points", {{0, 0, 1}, {2, 0, 5}}, 2, 0, 1, {}},
        {"y order 2, two points", {{0, 0, 1}, {2, 0, 5}}, 0, 2, 1, {}},
        {"no points", {}, 0, 0, 1, {}},
        {"negative x order", {{0, 0, 1}, {2, 0, 5}}, -1, 0, 1, {}},
        {"negative y order", {{0, 0, 1}, {2, 0, 5}}, 0, -5, 1, {}},
        // Each order below the count, but 21 x 21 coefficients for 30 points.
        {"huge system", Points(30, Vec3<double>(1, 2, 3)), 20, 20, 0, {}},
        {"NaN coordinate", {{0, 0, 1}, {kNaN, 0, 5}}, 1, 0, 0, {}},
        {"infinite level", {{0, 0, 1}, {2, 0, kInf}}, 1, 0, 0, {}},
        // x^2 = 1e400 overflows the normal matrix.
        {"powers overflow", {{0, 0, 1}, {1e200, 0, 5}}, 1, 0, 0, {}},
    };
    for (const auto& c : cases) {
        std::vector<double> coeffs = {99.0}; // emptied by every call
        EXPECT_EQ(CSurfacePolynomial::CalculateCoeffs(c.data, c.xOrder, c.yOrder, coeffs), c.code)
            << c.what;
        ASSERT_EQ(coeffs.size(), c.coeffs.size()) << c.what;
        for (size_t i = 0; i < coeffs.size(); ++i)
            EXPECT_NEAR(coeffs[i], c.coeffs[i], kTol) << c.what << " c" << i;
    }
}

TEST(SurfacePolynomial, EvaluationAndGradients) {
    // x order 2: f = 1 + 2x + 3x^2 + 4y + 5xy + 6x^2 y.
    CSurfacePolynomial s;
    s.SetXOrder(2);
    s.SetYOrder(1);
    s.SetCoeffs({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(s.GetCoefficient(2, 1), 6.0);
    EXPECT_EQ(s.GetCoefficient(0, 1), 4.0);
    // At (2, 3): 1 + 4 + 12 + 12 + 30 + 72 = 131.
    EXPECT_EQ(s.GetPolynomialZ(2, 3), 131.0);
    // 0^0 = 1: only the constant survives at the origin.
    EXPECT_EQ(s.GetPolynomialZ(0, 0), 1.0);
    // df/dx = 2 + 6x + 5y + 12xy = 2 + 12 + 15 + 72 = 101 at (2, 3).
    EXPECT_EQ(s.GradientWRTX(2, 3), 101.0);
    // df/dy = 4 + 5x + 6x^2 = 4 + 10 + 24 = 38 at (2, 3).
    EXPECT_EQ(s.GradientWRTY(2, 3), 38.0);

    // x order 0: f = 7 + 8y, no positive power of x.
    CSurfacePolynomial t;
    t.SetXOrder(0);
    t.SetCoeffs({7, 8});
    EXPECT_EQ(t.GradientWRTX(2, 3), 0.0);
    EXPECT_EQ(t.GradientWRTY(2, 3), 8.0);

    EXPECT_EQ(CSurfacePolynomial::GetPolynomialZ({}, 2, 3, 1), 0.0);
    // Wild x orders do not trap: the largest int is all powers of x (1 + 2 x 2 = 5), a
    // negative one evaluates to nothing.
    EXPECT_EQ(CSurfacePolynomial::GetPolynomialZ({1, 2}, 2, 3, std::numeric_limits<int>::max()),
              5.0);
    EXPECT_EQ(CSurfacePolynomial::GetPolynomialZ({1, 2}, 2, 3, -1), 0.0);
    EXPECT_EQ(CSurfacePolynomial().GradientWRTX(2, 3), 0.0);
}

TEST(SurfacePolynomial, RSquared) {
    // Perfect line through (0, 1), (2, 5): E = 0, R^2 = 1.
    EXPECT_NEAR(CSurfacePolynomial::GetRSquared({{0, 0, 1}, {2, 0, 5}}, {1, 2}, 1), 1.0, kTol);
    // (0, 0), (1, 0), (2, 3): least squares z = -0.5 + 1.5x (slope 3/2 about the means 1
    // and 1). Residuals 0.5, -1, 0.5: E = 1.5; S = 1 + 1 + 4 = 6; R^2 = 4.5 / 6 = 0.75.
    const Points pts = {{0, 0, 0}, {1, 0, 0}, {2, 0, 3}};
    std::vector<double> c;
    ASSERT_EQ(CSurfacePolynomial::CalculateCoeffs(pts, 1, 0, c), 2);
    EXPECT_NEAR(c[0], -0.5, kTol);
    EXPECT_NEAR(c[1], 1.5, kTol);
    EXPECT_NEAR(CSurfacePolynomial::GetRSquared(pts, c, 1), 0.75, kTol);
    // 0/0 is left as it falls out: no points, or constant z fitted exactly.
    EXPECT_TRUE(std::isnan(CSurfacePolynomial::GetRSquared({}, {1, 2}, 1)));
    EXPECT_TRUE(std::isnan(CSurfacePolynomial::GetRSquared({{0, 0, 2}, {1, 0, 2}}, {2}, 0)));
}

TEST(SurfacePolynomial, LargeFitRecoversSurface) {
    // 10,000 points of z = 0.05 - 0.1x + 0.03x^2 - 0.002x^3 + y (0.01 + 0.02x) on
    // x in [0, 1.5], y in [0, 1]: an exact cubic-by-linear surface is recovered.
    const std::vector<double> truth = {0.05, -0.1, 0.03, -0.002, 0.01, 0.02, 0, 0};
    Points pts;
    for (int i = 0; i < 100; ++i)
        for (int j = 0; j < 100; ++j) {
            const double x = 1.5 * i / 99.0, y = j / 99.0;
            pts.push_back({x, y, CSurfacePolynomial::GetPolynomialZ(truth, x, y, 3)});
        }
    std::vector<double> c;
    ASSERT_EQ(CSurfacePolynomial::CalculateCoeffs(pts, 3, 1, c), 2);
    ASSERT_EQ(c.size(), truth.size());
    for (size_t i = 0; i < c.size(); ++i)
        EXPECT_NEAR(c[i], truth[i], 1e-9) << "c" << i;
}

TEST(SurfacePolynomial, DataCoordEdits) {
    CSurfacePolynomial s;
    s.SetDataCoords({{1, 1, 1}, {2, 2, 2}});
    s.SetDataCoord(5, Vec3<double>(5, 5, 5));
    ASSERT_EQ(s.NumDataCoords(), 5);
    EXPECT_TRUE(std::isnan(s.GetDataCoord(3).x) && std::isnan(s.GetDataCoord(4).z));
    EXPECT_EQ(s.GetDataCoord(5).y, 5.0);
    EXPECT_TRUE(s.DataCoordExist(5));
    EXPECT_FALSE(s.DataCoordExist(6));

    struct Case {
        int first, last;
        int left;
    };
    // From the five above: -1 erases one, a last below first nothing, a last past the
    // end is cut to it.
    for (const Case& c : {Case{2, -1, 4}, Case{3, 2, 5}, Case{2, 99, 1}, Case{1, 5, 0}}) {
        CSurfacePolynomial t = s;
        t.DeleteDataCoord(c.first, c.last);
        EXPECT_EQ(t.NumDataCoords(), c.left) << c.first << ".." << c.last;
    }
    s.InsertDataCoord(1, 2);
    EXPECT_EQ(s.NumDataCoords(), 7);
    EXPECT_TRUE(std::isnan(s.GetDataCoord(2).x));
    EXPECT_EQ(s.GetDataCoord(3).x, 1.0);
}

TEST(SurfacePolynomial, EquationAndRSquaredText) {
    struct Case {
        std::vector<double> coeffs;
        int xOrder, sigFigs;
        const wchar_t* plain;
        const wchar_t* markup;
    };
    const Case cases[] = {
        // 1 + 2x + 3y + 4xy, highest term first, the constant last.
        {{1, 2, 3, 4},
         1,
         3,
         L"4.00e+00xy + 3.00e+00y + 2.00e+00x + 1.00e+00",
         L"4.00e+00xy + 3.00e+00y + 2.00e+00x + 1.00e+00"},
        // -1 + 2.5x^2 - 3x^2 y: a negative first term takes a bare "-", zeros are written.
        {{-1, 0, 2.5, 0, 0, -3},
         2,
         2,
         L"-3.0e+00(x^2)y + 0.0e+00xy + 0.0e+00y + 2.5e+00(x^2) + 0.0e+00x - 1.0e+00",
         L"-3.0e+00x<sup>2</sup>y + 0.0e+00xy + 0.0e+00y + 2.5e+00x<sup>2</sup> + 0.0e+00x - "
         L"1.0e+00"},
        // x order 0: powers of y alone.
        {{1, -2, 7},
         0,
         2,
         L"7.0e+00(y^2) - 2.0e+00y + 1.0e+00",
         L"7.0e+00y<sup>2</sup> - 2.0e+00y + 1.0e+00"},
        {{}, 1, 6, L"", L""},
    };
    for (const auto& c : cases) {
        CString out(L"stale");
        CSurfacePolynomial::StringifyEquation(c.coeffs, c.sigFigs, false, c.xOrder, out);
        EXPECT_EQ(std::wstring(out.GetString()), c.plain);
        CSurfacePolynomial::StringifyEquation(c.coeffs, c.sigFigs, true, c.xOrder, out);
        EXPECT_EQ(std::wstring(out.GetString()), c.markup);
    }

    // The object's forms use its own figures (6 by default) and its own R^2: the fit of
    // (0, 0), (1, 0), (2, 3) has R^2 = 0.75 (worked in RSquared above).
    CSurfacePolynomial s;
    s.SetDataCoords({{0, 0, 0}, {1, 0, 0}, {2, 0, 3}});
    s.SetYOrder(0);
    ASSERT_EQ(s.CalculateCoeffs(), CSurfacePolynomial::eSuccess);
    CString text;
    s.StringifyRSquared(text);
    EXPECT_EQ(std::wstring(text.GetString()), L"7.50000e-01");
    s.SetSigFigs(2);
    s.StringifyEquation(false, text);
    EXPECT_EQ(std::wstring(text.GetString()), L"1.5e+00x - 5.0e-01");
}
