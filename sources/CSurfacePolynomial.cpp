#include "sources/CSurfacePolynomial.h"

#include "base/CNumFormat.h"
#include "base/StringFrom.h"

#include <Eigen/Dense>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Tevra::Data {

namespace {

// Machine epsilon of double, the unit of the rank threshold of the LU factorisation.
const double kMachineEpsilon = 2.220446049250313e-16;

// Largest system the fit will form. The normal matrix of a polynomial surface is
// ill-conditioned far before this (a few tens of coefficients already lose most digits),
// so such a system would be reported singular anyway; the bound keeps a wild order from
// sizing an n by n matrix and an n^2 x points fill. The standard curves have 5 at most.
const std::int64_t kMaxFitCoeffs = 1024;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// Scientific number format (3) with the given significant figures.
Util::CNumFormat ScientificFormat(int sigFigs) {
    Util::CNumFormat format;
    format.SetFormat(3);
    format.SetSciSigFig(sigFigs);
    return format;
}

// One variable of a term: nothing for power 0, the bare name for 1, and above that the
// power as a superscript with markup or as "(x^n)" in plain text.
void AppendPower(CString& term, const wchar_t* name, int power, bool markup) {
    if (power == 0)
        return;
    if (power == 1)
        term += name;
    else if (markup)
        term += CString::Formatted(L"%s<sup>%i</sup>", name, power);
    else
        term += CString::Formatted(L"(%s^%i)", name, power);
}

double Pow(double base, int power) { return std::pow(base, static_cast<double>(power)); }

// d = x order + 1, the number of powers of x. The largest int order stays at its own value:
// no coefficient index reaches it, so the split into powers is the same.
int XPowers(int xOrder) { return xOrder < std::numeric_limits<int>::max() ? xOrder + 1 : xOrder; }

} // namespace

void CSurfacePolynomial::SetDataCoord(int n, const Vec3<double>& p) {
    if (n < 1)
        return;
    const Vec3<double> value = p; // p may be an element of the list, moved by the growth
    const auto count = static_cast<size_t>(n);
    if (count > m_dataCoords.size())
        m_dataCoords.resize(count, Vec3<double>(kNaN, kNaN, kNaN));
    m_dataCoords[count - 1] = value;
}

void CSurfacePolynomial::SetDataCoord(int n, const Vec3<float>& p) {
    SetDataCoord(n, Vec3<double>(p.x, p.y, p.z));
}

void CSurfacePolynomial::InsertDataCoord(int before, int count) {
    if (count <= 0)
        return;
    const size_t at = std::min(static_cast<size_t>(std::max(before, 1) - 1), m_dataCoords.size());
    m_dataCoords.insert(m_dataCoords.begin() + static_cast<std::ptrdiff_t>(at),
                        static_cast<size_t>(count), Vec3<double>(kNaN, kNaN, kNaN));
}

void CSurfacePolynomial::DeleteDataCoord(int first, int last) {
    if (last == -1)
        last = first;
    if (last < first || first < 1 || first > NumDataCoords())
        return;
    last = std::min(last, NumDataCoords());
    m_dataCoords.erase(m_dataCoords.begin() + (first - 1), m_dataCoords.begin() + last);
}

double CSurfacePolynomial::GetMinDataX() const {
    double v = m_dataCoords[0].x;
    for (const auto& p : m_dataCoords)
        v = std::min(v, p.x);
    return v;
}

double CSurfacePolynomial::GetMaxDataX() const {
    double v = m_dataCoords[0].x;
    for (const auto& p : m_dataCoords)
        v = std::max(v, p.x);
    return v;
}

double CSurfacePolynomial::GetMinDataY() const {
    double v = m_dataCoords[0].y;
    for (const auto& p : m_dataCoords)
        v = std::min(v, p.y);
    return v;
}

double CSurfacePolynomial::GetMaxDataY() const {
    double v = m_dataCoords[0].y;
    for (const auto& p : m_dataCoords)
        v = std::max(v, p.y);
    return v;
}

double CSurfacePolynomial::GetMinDataZ() const {
    double v = m_dataCoords[0].z;
    for (const auto& p : m_dataCoords)
        v = std::min(v, p.z);
    return v;
}

double CSurfacePolynomial::GetMaxDataZ() const {
    double v = m_dataCoords[0].z;
    for (const auto& p : m_dataCoords)
        v = std::max(v, p.z);
    return v;
}

CSurfacePolynomial::ECalcResultCode CSurfacePolynomial::CalculateCoeffs() {
    return CalculateCoeffs(m_dataCoords, m_xOrder, m_yOrder, m_coeffs);
}

CSurfacePolynomial::ECalcResultCode
CSurfacePolynomial::CalculateCoeffs(const std::vector<Vec3<double>>& data, int xOrder, int yOrder,
                                    std::vector<double>& coefficients) {
    // A failed fit leaves no coefficients.
    coefficients.clear();

    // Each order is tested alone against the number of points; a system with more
    // coefficients than points passes here and is singular below.
    const auto numPoints = static_cast<std::int64_t>(data.size());
    if (xOrder >= numPoints || yOrder >= numPoints)
        return eTooFewPoints;
    if (xOrder < 0 || yOrder < 0)
        return eTooFewPoints;

    for (const auto& p : data)
        if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z))
            return eSingular;

    // n = (y order + 1)(x order + 1) coefficients. With more coefficients than points the
    // normal matrix has rank at most the number of points: singular without forming it.
    const std::int64_t d64 = static_cast<std::int64_t>(xOrder) + 1;
    const std::int64_t n64 = (static_cast<std::int64_t>(yOrder) + 1) * d64;
    if (n64 > numPoints || n64 > kMaxFitCoeffs)
        return eSingular;
    const int d = static_cast<int>(d64);
    const int n = static_cast<int>(n64);

    // Normal equations A c = b, A[r][c] = sum y^(r div d + c div d) x^(r mod d + c mod d),
    // b[r] = sum y^(r div d) x^(r mod d) z, filled row by row over the points in order.
    Eigen::MatrixXd A = Eigen::MatrixXd::Zero(n, n);
    Eigen::VectorXd b = Eigen::VectorXd::Zero(n);
    for (int r = 0; r < n; ++r) {
        for (int c = 0; c < n; ++c)
            for (const auto& p : data)
                A(r, c) += Pow(p.y, r / d + c / d) * Pow(p.x, r % d + c % d);
        for (const auto& p : data)
            b(r) += Pow(p.y, r / d) * Pow(p.x, r % d) * p.z;
    }
    // Powers of large coordinates can overflow; such a system is as good as singular.
    if (!A.allFinite() || !b.allFinite())
        return eSingular;

    // Rank: diagonal entries of U above min(rows, cols) x eps x the largest pivot.
    const Eigen::FullPivLU<Eigen::MatrixXd> lu(A);
    const double threshold = static_cast<double>(std::min(A.rows(), A.cols())) * kMachineEpsilon;
    const double limit = threshold * std::abs(lu.maxPivot());
    const Eigen::MatrixXd& LU = lu.matrixLU();
    int rank = 0;
    for (Eigen::Index i = 0; i < std::min(LU.rows(), LU.cols()); ++i)
        if (std::abs(LU(i, i)) > limit)
            ++rank;
    if (rank != n)
        return eSingular;

    // The explicit inverse from the factorisation, times b.
    const Eigen::VectorXd solution = lu.inverse() * b;
    coefficients.reserve(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i)
        coefficients.push_back(solution(i));
    return eSuccess;
}

double CSurfacePolynomial::GetPolynomialZ(const double& x, const double& y) const {
    return GetPolynomialZ(m_coeffs, x, y, m_xOrder);
}

double CSurfacePolynomial::GetPolynomialZ(const std::vector<double>& coefficients, const double& x,
                                          const double& y, int xOrder) {
    // The terms are summed from the highest coefficient down, each as x^px c y^py, with
    // no Horner scheme: the rounding follows this fixed order.
    if (coefficients.empty() || xOrder < 0)
        return 0.0;
    const int d = XPowers(xOrder);
    double z = 0.0;
    for (int i = static_cast<int>(coefficients.size()) - 1; i >= 0; --i)
        z += Pow(x, i % d) * coefficients[static_cast<size_t>(i)] * Pow(y, i / d);
    return z;
}

double CSurfacePolynomial::GradientWRTX(const double& x, const double& y) const {
    if (m_coeffs.empty() || m_xOrder < 0)
        return 0.0;
    const int d = XPowers(m_xOrder);
    double g = 0.0;
    for (int i = 0; i < static_cast<int>(m_coeffs.size()); ++i) {
        const int a = i % d;
        if (a > 0)
            g += Pow(x, a - 1) * (a * m_coeffs[static_cast<size_t>(i)]) * Pow(y, i / d);
    }
    return g;
}

double CSurfacePolynomial::GradientWRTY(const double& x, const double& y) const {
    if (m_coeffs.empty() || m_xOrder < 0)
        return 0.0;
    const int d = XPowers(m_xOrder);
    double g = 0.0;
    for (int i = 0; i < static_cast<int>(m_coeffs.size()); ++i) {
        const int bPow = i / d;
        if (bPow > 0)
            g += Pow(x, i % d) * (bPow * m_coeffs[static_cast<size_t>(i)]) * Pow(y, bPow - 1);
    }
    return g;
}

bool CSurfacePolynomial::IsPolynomialValid() const {
    return IsPolynomialValid(m_coeffs, m_xOrder, m_yOrder);
}

bool CSurfacePolynomial::IsPolynomialValid(const std::vector<double>& coefficients, int xOrder,
                                           int yOrder) {
    // Both counts are compared as 32-bit numbers; the product is formed wide so that wild
    // orders wrap instead of overflowing.
    const std::int64_t expected =
        (static_cast<std::int64_t>(xOrder) + 1) * (static_cast<std::int64_t>(yOrder) + 1);
    return !coefficients.empty() &&
           static_cast<std::int32_t>(coefficients.size()) == static_cast<std::int32_t>(expected);
}

double CSurfacePolynomial::GetRSquared() const {
    return GetRSquared(m_dataCoords, m_coeffs, m_xOrder);
}

double CSurfacePolynomial::GetRSquared(const std::vector<Vec3<double>>& data,
                                       const std::vector<double>& coefficients, int xOrder) {
    double sumZ = 0.0;
    for (const auto& p : data)
        sumZ += p.z;
    const double mean = sumZ / static_cast<double>(data.size());
    double S = 0.0; // sum of squares about the mean
    double E = 0.0; // sum of squared residuals
    for (const auto& p : data) {
        S += std::pow(mean - p.z, 2.0);
        E += std::pow(p.z - GetPolynomialZ(coefficients, p.x, p.y, xOrder), 2.0);
    }
    // Deliberately unguarded: no spread and an exact fit give 0/0, not a chosen value.
    return (S - E) / S;
}

void CSurfacePolynomial::StringifyEquation(bool markup, CString& out) const {
    StringifyEquation(m_coeffs, m_sigFigs, markup, m_xOrder, out);
}

void CSurfacePolynomial::StringifyEquation(const std::vector<double>& coefficients, int sigFigs,
                                           bool markup, int xOrder, CString& out) {
    out.Empty();
    if (xOrder < 0)
        return;
    const Util::CNumFormat format = ScientificFormat(sigFigs);
    const int d = XPowers(xOrder);
    const int last = static_cast<int>(coefficients.size()) - 1;
    for (int i = last; i >= 0; --i) {
        const double c = coefficients[static_cast<size_t>(i)];
        CString term = Vesk::StringFrom(std::fabs(c), format);
        // The sign goes in front: bare on the first term, spaced on the others.
        if (c < 0)
            term = CString(i == last ? L"-" : L" - ") + term;
        else if (i != last)
            term = CString(L" + ") + term;
        AppendPower(term, L"x", i % d, markup);
        AppendPower(term, L"y", i / d, markup);
        out += term;
    }
}

void CSurfacePolynomial::StringifyRSquared(CString& out) const {
    StringifyRSquared(GetRSquared(), m_sigFigs, out);
}

void CSurfacePolynomial::StringifyRSquared(const double& rSquared, int sigFigs, CString& out) {
    out = Vesk::StringFrom(rSquared, ScientificFormat(sigFigs));
}

} // namespace Tevra::Data
