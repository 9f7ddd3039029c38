#pragma once

#include "base/CPolygon.h"
#include "base/GeoGlobal.h"
#include "sources/CSurfacePolynomial.h"

#include <map>
#include <vector>

namespace Tevra::Data {

// A ground movement curve beside an excavation wall: movement as a percentage of the
// wall depth (z) against distance behind the wall (x) and depth (y), both over the wall
// depth. Evaluated by its polynomial fit, or by straight-line interpolation between its
// points: along x alone for a surface-only curve, otherwise over a Delaunay
// triangulation of the scattered points. The document holds the standard curves of
// CIRIA C580 and C760 read-only, then the user's own.
class CGMCurve : public CSurfacePolynomial {
  public:
    enum EInterpolationMethod { eLinear = 0, ePolynomial = 1 };

    // One triangle of the linear route: its outline (tolerance 0.001) and the z of its
    // three corners, in the order of the corners.
    struct SDelaunayTriangle {
        CPolygon polygon{0.001};
        double z[3] = {0.0, 0.0, 0.0};
    };

    static const wchar_t* const INTERPOLATION_METHOD_STRINGS[2];
    static const wchar_t* const DIRECTION_STRINGS[2];
    static const wchar_t* const STD_HORZ_GM_CURVE_NAMES[13];
    static const wchar_t* const STD_VERT_GM_CURVE_NAMES[16];

    // A user's curve by default: editable, horizontal, fitted by a polynomial.
    explicit CGMCurve(bool editable = true,
                      GeoGlobal::EDirection direction = GeoGlobal::eHorizontal,
                      EInterpolationMethod method = ePolynomial, const CString& name = CString());

    static int GetVersion() { return m_iVer; }

    // The record in the model file. Only the user's curves are saved; a reader fits a
    // polynomial curve again.
    void Write(FileIO::CDataFile& file) const override;
    void Read(FileIO::CDataFile& file, int generation) override;

    // The same inputs: the fit and the triangles follow from them.
    bool operator==(const CGMCurve& o) const;
    bool operator!=(const CGMCurve& o) const { return !(*this == o); }

    // The movement at (x, y) (percent of wall depth). found is true on the polynomial
    // route; the linear route leaves it false.
    double GetZ(const double& x, const double& y, bool& found) const;
    // Rebuilds the triangles of the linear route from the data coordinates.
    void Triangulate();

    EInterpolationMethod GetInterpolationMethod() const { return m_method; }
    void SetInterpolationMethod(EInterpolationMethod m) { m_method = m; }
    GeoGlobal::EDirection GetDirection() const { return m_direction; }
    void SetDirection(GeoGlobal::EDirection d) { m_direction = d; }
    bool GetEditable() const { return m_editable; }
    void SetEditable(bool on) { m_editable = on; }
    bool GetSurfaceOnly() const { return m_surfaceOnly; }
    void SetSurfaceOnly(bool on) { m_surfaceOnly = on; }
    const std::vector<SDelaunayTriangle>& GetDelaunayTriangles() const { return m_triangles; }

    // Chart titles of the three axes.
    CString GetXTitle() const;
    CString GetYTitle() const;
    CString GetZTitle() const;

    // "Linear Interpolation" is linear, any other text polynomial; "Vertical" is
    // vertical, any other text horizontal. Both compare with case.
    static EInterpolationMethod GetInterpolationMethodFromCStr(const CString& text);
    static GeoGlobal::EDirection GetDirectionFromCStr(const CString& text);

    // Whether a curve of the map has this name, case aside.
    static bool NameExists(const CString& name, const std::map<int, CGMCurve>& curves);
    // "Copy of name", or "Copy 2 of name" and on, the first no curve of the map has.
    static CString CopyName(const CString& name, const std::map<int, CGMCurve>& curves);

    // Standard curves come in pairs of a horizontal and a vertical one from the same
    // figure: horizontal 1 to 6 with vertical 1 to 6, horizontal 7 to 12 with vertical
    // 8 to 13. The Get forms answer 0 for a curve without a partner.
    static bool HasHorzStdPartnerCurve(int vertical);
    static bool HasVertStdPartnerCurve(int horizontal);
    static int GetHorzStdPartnerCurve(int vertical);
    static int GetVertStdPartnerCurve(int horizontal);

  private:
    static const int m_iVer = 6;

    double LinearInterpolation(const double& x, const double& y, bool& found) const;
    double LinearInterpolationSurfaceOnly(const double& x) const;
    CString Title(int horizontalMessage, const wchar_t* suffix) const;

    EInterpolationMethod m_method;
    bool m_editable;
    bool m_surfaceOnly = false;
    GeoGlobal::EDirection m_direction;
    std::vector<SDelaunayTriangle> m_triangles;
};

} // namespace Tevra::Data
