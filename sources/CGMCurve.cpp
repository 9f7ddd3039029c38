#include "CGMCurve.h"

#include "base/CDelaunay.h"
#include "base/CResourceStrings.h"

namespace Tevra::Data {

using GeoGlobal::EDirection;

const wchar_t* const CGMCurve::INTERPOLATION_METHOD_STRINGS[2] = {L"Linear Interpolation",
                                                                  L"Polynomial Interpolation"};
const wchar_t* const CGMCurve::DIRECTION_STRINGS[2] = {L"Horizontal", L"Vertical"};

// The standard curves, in the order of their numbers; "Inst." is the installation of the
// wall, "Exc." the excavation in front of it.
const wchar_t* const CGMCurve::STD_HORZ_GM_CURVE_NAMES[13] = {
    L"No horizontal ground movement",
    L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(a))",
    L"Inst. of secant bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(a))",
    L"Inst. of planar diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(a))",
    L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(a))",
    L"Exc. in front of high stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(a))",
    L"Exc. in front of low stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(a))",
    L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(a))",
    L"Inst. of secant bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(a))",
    L"Inst. of planar diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(a))",
    L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(a))",
    L"Exc. in front of high stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(a))",
    L"Exc. in front of low stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(a))",
};
const wchar_t* const CGMCurve::STD_VERT_GM_CURVE_NAMES[16] = {
    L"No vertical ground movement",
    L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(b))",
    L"Inst. of secant bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(b))",
    L"Inst. of planar diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(b))",
    L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(b))",
    L"Exc. in front of high stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(b))",
    L"Exc. in front of low stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(b))",
    L"Exc. in front of wall in sand (CIRIA C580 Fig. 2.12)",
    L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(b))",
    L"Inst. of secant bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(b))",
    L"Inst. of planar diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(b))",
    L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(b))",
    L"Exc. in front of high stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(b))",
    L"Exc. in front of low stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(b))",
    L"Exc. in front of wall in clay (CIRIA C760 Fig. 6.15(c))",
    L"Exc. in front of wall in sand (CIRIA C760 Fig. 6.16)",
};

CGMCurve::CGMCurve(bool editable, EDirection direction, EInterpolationMethod method,
                   const CString& name)
    : m_method(method), m_editable(editable), m_direction(direction) {
    SetName(name);
}

double CGMCurve::GetZ(const double& x, const double& y, bool& found) const {
    found = false;
    if (m_method != ePolynomial)
        return LinearInterpolation(x, y, found);
    const double z = GetPolynomialZ(x, y);
    found = true;
    return z;
}

double CGMCurve::LinearInterpolation(const double& x, const double& y, bool& found) const {
    found = false;
    double result = 0.0;
    if (m_surfaceOnly) {
        result = LinearInterpolationSurfaceOnly(x);
        found = true;
    }
    // Every triangle that holds the point, edge included, replaces the value: on an edge
    // shared by two triangles the later one decides.
    for (const SDelaunayTriangle& t : m_triangles) {
        if (!t.polygon.PointInside({x, y}, true))
            continue;
        const Vec2<double>& p1 = t.polygon.Point(0);
        const Vec2<double>& p2 = t.polygon.Point(1);
        const Vec2<double>& p3 = t.polygon.Point(2);
        const double x1 = p1.x, y1 = p1.y, z1 = t.z[0];
        const double x2 = p2.x, y2 = p2.y, z2 = t.z[1];
        const double x3 = p3.x, y3 = p3.y, z3 = t.z[2];
        // The plane through the three corners, by Cramer's rule; corners in a line end
        // the search with the value found so far.
        const double D = (y2 - y3) * x1 - (x2 - x3) * y1 + (y3 * x2 - x3 * y2);
        if (D == 0.0)
            return result;
        const double A = ((y2 - y3) * z1 - (y1 - y3) * z2 + (y1 - y2) * z3) / D;
        const double B = (-(x2 - x3) * z1 + (x1 - x3) * z2 - (x1 - x2) * z3) / D;
        const double C =
            ((y3 * x2 - x3 * y2) * z1 - (y3 * x1 - x3 * y1) * z2 + (y2 * x1 - x2 * y1) * z3) / D;
        result = A * x + B * y + C;
    }
    return result;
}

double CGMCurve::LinearInterpolationSurfaceOnly(const double& x) const {
    const std::vector<Vec3<double>>& data = GetDataCoords();
    if (data.size() == 1)
        return data[0].z;
    // One pass sorts the points into those at x, the nearest below and the nearest above;
    // repeated x values are kept together, a vertical step whose mean is taken.
    std::vector<Vec3<double>> exact, lower, upper;
    for (const Vec3<double>& p : data) {
        if (p.x == x) {
            exact.push_back(p);
        } else if (p.x < x) {
            if (lower.empty() || p.x > lower.front().x) {
                lower.assign(1, p);
            } else if (p.x == lower.front().x) {
                lower.push_back(p);
            }
        } else {
            if (upper.empty() || p.x < upper.front().x) {
                upper.assign(1, p);
            } else if (p.x == upper.front().x) {
                upper.push_back(p);
            }
        }
    }
    auto meanZ = [](const std::vector<Vec3<double>>& group) {
        double sum = 0.0;
        for (const Vec3<double>& p : group)
            sum += p.z;
        return sum / static_cast<double>(group.size());
    };
    if (!exact.empty())
        return meanZ(exact);
    if (!lower.empty() && !upper.empty()) {
        const double L = meanZ(lower), U = meanZ(upper);
        const double xl = lower.front().x, xu = upper.front().x;
        return (x - xl) / (xu - xl) * (U - L) + L;
    }
    // Beyond the data the nearest point's x, not its z: kept as it stands, since callers
    // reject distances beyond the curve before they get here.
    if (!lower.empty())
        return lower.front().x;
    if (!upper.empty())
        return upper.front().x;
    return 0.0; // no data at all
}

void CGMCurve::Triangulate() {
    m_triangles.clear();
    const std::vector<Vec3<double>>& data = GetDataCoords();
    std::vector<Vec2<double>> points;
    points.reserve(data.size());
    for (const Vec3<double>& p : data)
        points.emplace_back(p.x, p.y);
    for (const Mesh::CTriangle& t : Mesh::CDelaunay().triangulate(points)) {
        SDelaunayTriangle triangle;
        triangle.polygon.SetNumPoint(3);
        for (int k = 0; k < 3; ++k) {
            const Vec2<double> corner = t.Corner(k);
            triangle.polygon.SetPoint(k, corner);
            // The z of the corner: the last data point at exactly that place.
            for (const Vec3<double>& p : data)
                if (p.x == corner.x && p.y == corner.y)
                    triangle.z[k] = p.z;
        }
        m_triangles.push_back(triangle);
    }
}

CString CGMCurve::Title(int horizontalMessage, const wchar_t* suffix) const {
    const int message = horizontalMessage + (m_direction == GeoGlobal::eVertical ? 3 : 0);
    return CString::Formatted(CResourceStrings::Load(message).GetString(), suffix);
}

CString CGMCurve::GetXTitle() const { return Title(3630, L" (x)"); }
CString CGMCurve::GetYTitle() const { return Title(3631, L" (y)"); }
CString CGMCurve::GetZTitle() const { return Title(3632, L" (z)"); }

CGMCurve::EInterpolationMethod CGMCurve::GetInterpolationMethodFromCStr(const CString& text) {
    return text == CString(INTERPOLATION_METHOD_STRINGS[eLinear]) ? eLinear : ePolynomial;
}

EDirection CGMCurve::GetDirectionFromCStr(const CString& text) {
    return text == CString(DIRECTION_STRINGS[GeoGlobal::eVertical]) ? GeoGlobal::eVertical
                                                                    : GeoGlobal::eHorizontal;
}

bool CGMCurve::NameExists(const CString& name, const std::map<int, CGMCurve>& curves) {
    for (const auto& entry : curves)
        if (entry.second.GetName().CompareNoCase(name) == 0)
            return true;
    return false;
}

CString CGMCurve::CopyName(const CString& name, const std::map<int, CGMCurve>& curves) {
    CString candidate = CString(L"Copy of ") + name;
    for (int counter = 1; NameExists(candidate, curves);)
        candidate = CString::Formatted(L"Copy %i of ", ++counter) + name;
    return candidate;
}

bool CGMCurve::HasHorzStdPartnerCurve(int vertical) {
    return (vertical >= 1 && vertical <= 6) || (vertical >= 8 && vertical <= 13);
}

bool CGMCurve::HasVertStdPartnerCurve(int horizontal) {
    return horizontal >= 1 && horizontal <= 12;
}

int CGMCurve::GetHorzStdPartnerCurve(int vertical) {
    if (vertical >= 1 && vertical <= 6)
        return vertical;
    if (vertical >= 8 && vertical <= 13)
        return vertical - 1;
    return 0;
}

int CGMCurve::GetVertStdPartnerCurve(int horizontal) {
    if (horizontal >= 1 && horizontal <= 6)
        return horizontal;
    if (horizontal >= 7 && horizontal <= 12)
        return horizontal + 1;
    return 0;
}

} // namespace Tevra::Data
