// Model file records of the polynomial surface and of ground movement curves.
#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "sources/CGMCurve.h"

namespace Tevra::Data {

using namespace FileIO;

namespace {
// Generation of the nested polynomial record in the binary form.
constexpr int kPolynomialVersion = 6;
} // namespace

// In JSON a nested object: name, the data as x, y, z per point in one list, the orders
// and the significant figures. In binary the same fields flat, behind a generation.
void CSurfacePolynomial::Write(CDataFile& f) const {
    f.BeginObject(jnPolynomial);
    if (!f.IsJson())
        f.WriteInt(jnVersion, kPolynomialVersion);
    f.WriteString(jnName, m_name);
    std::vector<double> xyz;
    xyz.reserve(m_dataCoords.size() * 3);
    for (const Vec3<double>& p : m_dataCoords)
        xyz.insert(xyz.end(), {p.x, p.y, p.z});
    f.WriteDoubleArray(jnDataCoords, xyz);
    f.WriteInt(jnXOrder, m_xOrder);
    f.WriteInt(jnYOrder, m_yOrder);
    f.WriteInt(jnSigFigs, m_sigFigs);
    f.EndObject();
}

void CSurfacePolynomial::Read(CDataFile& f, int) {
    f.EnterObject(jnPolynomial);
    if (!f.IsJson()) {
        int version = 0;
        f.ReadInt(jnVersion, version);
        if (version != kPolynomialVersion)
            f.Fail("the polynomial of a curve has generation " + std::to_string(version) +
                   ", which this program does not read");
    }
    f.ReadString(jnName, m_name, false);
    std::vector<double> xyz;
    f.ReadDoubleArray(jnDataCoords, xyz, false);
    if (xyz.size() % 3 != 0)
        f.Fail("'dataCoords' should hold x, y, z for each point: " + std::to_string(xyz.size()) +
               " numbers is not a multiple of 3");
    m_dataCoords.clear();
    m_dataCoords.reserve(xyz.size() / 3);
    for (size_t k = 0; k + 2 < xyz.size(); k += 3)
        m_dataCoords.emplace_back(xyz[k], xyz[k + 1], xyz[k + 2]);
    f.ReadInt(jnXOrder, m_xOrder, false);
    f.ReadInt(jnYOrder, m_yOrder, false);
    f.ReadInt(jnSigFigs, m_sigFigs, false);
    m_coeffs.clear();
    f.LeaveObject();
}

bool CSurfacePolynomial::SameSurface(const CSurfacePolynomial& o) const {
    return m_name == o.m_name && m_dataCoords == o.m_dataCoords && m_xOrder == o.m_xOrder &&
           m_yOrder == o.m_yOrder && m_sigFigs == o.m_sigFigs;
}

// The polynomial, then editable, direction, surface only and the method.
void CGMCurve::Write(CDataFile& f) const {
    CSurfacePolynomial::Write(f);
    f.WriteBool(jnEditable, m_editable);
    f.WriteEnum(jnDirection, m_direction, DIRECTION_STRINGS, 2);
    f.WriteBool(jnSurfaceOnly, m_surfaceOnly);
    f.WriteEnum(jnInterpolationMethod, m_method, INTERPOLATION_METHOD_STRINGS, 2);
}

void CGMCurve::Read(CDataFile& f, int generation) {
    CSurfacePolynomial::Read(f, generation);
    f.ReadBool(jnEditable, m_editable, false);
    int direction = m_direction;
    f.ReadEnum(jnDirection, direction, DIRECTION_STRINGS, 2, false);
    m_direction = static_cast<GeoGlobal::EDirection>(direction);
    f.ReadBool(jnSurfaceOnly, m_surfaceOnly, false);
    int method = m_method;
    f.ReadEnum(jnInterpolationMethod, method, INTERPOLATION_METHOD_STRINGS, 2, false);
    m_method = static_cast<EInterpolationMethod>(method);
}

bool CGMCurve::operator==(const CGMCurve& o) const {
    return SameSurface(o) && m_method == o.m_method && m_editable == o.m_editable &&
           m_surfaceOnly == o.m_surfaceOnly && m_direction == o.m_direction;
}

} // namespace Tevra::Data
