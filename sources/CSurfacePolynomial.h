#pragma once

#include "base/CString.h"
#include "base/Vec3.h"

#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A named list of scattered points (x, y, z) and the least-squares polynomial surface
// z = f(x, y) through them. Ground movement curves build on it: x is the distance behind
// the wall and y the depth, both as a fraction of the wall depth, and z the movement as a
// percentage of the wall depth.
//
// The polynomial has (x order + 1)(y order + 1) coefficients. With d = x order + 1,
// coefficient i multiplies x^(i mod d) y^(i div d): the powers of x run fastest.
// Powers are taken with pow, so 0^0 = 1.
class CSurfacePolynomial {
  public:
    // Result of a fit, used by number: 0 the normal matrix is singular (rank below its
    // size), 1 too few data coordinates for the orders, 2 the fit succeeded.
    enum ECalcResultCode { eSingular = 0, eTooFewPoints = 1, eSuccess = 2 };

    CSurfacePolynomial() = default;
    CSurfacePolynomial(const CSurfacePolynomial&) = default;
    CSurfacePolynomial& operator=(const CSurfacePolynomial&) = default;
    virtual ~CSurfacePolynomial() = default;

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }

    const std::vector<Vec3<double>>& GetDataCoords() const { return m_dataCoords; }
    void SetDataCoords(const std::vector<Vec3<double>>& coords) { m_dataCoords = coords; }

    // Data coordinates are numbered from 1.
    int NumDataCoords() const { return static_cast<int>(m_dataCoords.size()); }
    bool DataCoordExist(int n) const { return n >= 1 && n <= NumDataCoords(); }
    // No test of n: the caller keeps it in 1..NumDataCoords.
    Vec3<double>& GetDataCoord(int n) { return m_dataCoords[static_cast<size_t>(n - 1)]; }
    const Vec3<double>& GetDataCoord(int n) const {
        return m_dataCoords[static_cast<size_t>(n - 1)];
    }
    // Beyond the list's end the list first grows to n with coordinates that are all NaN.
    // A number below 1 is ignored.
    void SetDataCoord(int n, const Vec3<double>& p);
    void SetDataCoord(int n, const Vec3<float>& p);
    // Inserts count NaN coordinates before number `before` (past the end: appended).
    void InsertDataCoord(int before, int count);
    // last = -1 erases number first alone; a last below first does nothing; otherwise
    // first to last, last cut to the list's end.
    void DeleteDataCoord(int first, int last);

    // Extents of the data (metres or fractions, as the data). A plain scan from the first
    // element: not to be called on an empty list.
    double GetMinDataX() const;
    double GetMaxDataX() const;
    double GetMinDataY() const;
    double GetMaxDataY() const;
    double GetMinDataZ() const;
    double GetMaxDataZ() const;

    void SetCoeffs(const std::vector<double>& coeffs) { m_coeffs = coeffs; }
    const std::vector<double>& GetCoeffs() const { return m_coeffs; }
    // Coefficient of x^i y^j, no bounds check.
    double GetCoefficient(int i, int j) const {
        return m_coeffs[static_cast<size_t>((m_xOrder + 1) * j + i)];
    }

    // Digits shown when the equation and R² are written as text.
    int GetSigFigs() const { return m_sigFigs; }
    void SetSigFigs(int n) { m_sigFigs = n; }
    int GetXOrder() const { return m_xOrder; }
    void SetXOrder(int n) { m_xOrder = n; }
    int GetYOrder() const { return m_yOrder; }
    void SetYOrder(int n) { m_yOrder = n; }

    // Fits the object's own data with its own orders into its own coefficients.
    ECalcResultCode CalculateCoeffs();
    // Least-squares fit through the normal equations, factored by LU with complete
    // pivoting. The coefficients are emptied first and filled only on success.
    // Never throws: negative orders report 1, and non-finite data or a normal matrix
    // whose sums overflow report 0, as does a system with more coefficients than points
    // or than kMaxFitCoeffs (see the .cpp).
    static ECalcResultCode CalculateCoeffs(const std::vector<Vec3<double>>& data, int xOrder,
                                           int yOrder, std::vector<double>& coefficients);

    // f(x, y); 0.0 with no coefficients.
    double GetPolynomialZ(const double& x, const double& y) const;
    static double GetPolynomialZ(const std::vector<double>& coefficients, const double& x,
                                 const double& y, int xOrder);
    // df/dx and df/dy at (x, y); 0.0 with no coefficients.
    double GradientWRTX(const double& x, const double& y) const;
    double GradientWRTY(const double& x, const double& y) const;

    // True when the coefficient count is not zero and equals (x order + 1)(y order + 1).
    // Stale coefficients of the same orders are not detected.
    bool IsPolynomialValid() const;
    static bool IsPolynomialValid(const std::vector<double>& coefficients, int xOrder, int yOrder);

    // Coefficient of determination (S - E) / S, S the sum of squares about the mean of z,
    // E the sum of squared residuals. 0/0 (NaN) is returned as it falls out for an empty
    // list or an exact fit of constant z.
    double GetRSquared() const;
    static double GetRSquared(const std::vector<Vec3<double>>& data,
                              const std::vector<double>& coefficients, int xOrder);

    // The equation as text, highest power first and the constant last, each coefficient
    // in scientific form with the significant figures, e.g. "4.00e+00xy + 3.00e+00y -
    // 2.00e+00x + 1.00e+00". Powers above 1 are "x<sup>2</sup>" with markup and "(x^2)"
    // without. Zero coefficients are written, not skipped. out is emptied first.
    void StringifyEquation(bool markup, CString& out) const;
    static void StringifyEquation(const std::vector<double>& coefficients, int sigFigs, bool markup,
                                  int xOrder, CString& out);
    // R² in scientific form with the significant figures; the object's form computes it.
    void StringifyRSquared(CString& out) const;
    static void StringifyRSquared(const double& rSquared, int sigFigs, CString& out);

    // The record in the model file: name, data, orders and significant figures. The
    // coefficients are not kept: a reader fits them again.
    virtual void Write(FileIO::CDataFile& file) const;
    virtual void Read(FileIO::CDataFile& file, int generation);

    // The same name, data, orders and figures; coefficients follow from these.
    bool SameSurface(const CSurfacePolynomial& o) const;

  private:
    CString m_name;
    std::vector<Vec3<double>> m_dataCoords;
    std::vector<double> m_coeffs;
    int m_sigFigs = 6;
    int m_xOrder = 1;
    int m_yOrder = 1;
};

} // namespace Tevra::Data
