#include "GeoTunnel.h"

#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "base/Vec3IO.h"

#include <algorithm>
#include <cmath>

namespace Tevra::Data {

const wchar_t* const GeoTunnel::SOIL_TYPE_STRINGS[3] = {L"Not used", L"Cohesive", L"Granular"};
const wchar_t* const GeoTunnel::K_DERIVATION_STRINGS[6] = {
    L"Not used", L"O'Reilly and New", L"Boscardin", L"Mair et al.", L"User-specified k", L"Selby"};
const wchar_t* const GeoTunnel::SUB_SURFACE_METHOD_STRINGS[3] = {L"Mair et al.", L"New and Bowers",
                                                                 L"Harris and Alvarado"};
const GeoTunnel::EkDerivation GeoTunnel::SURFACE_K_DERIVATIONS[4] = {
    ekUserSpecified, ekOReillyAndNew, ekBoscardin, ekSelby};
const GeoTunnel::EkDerivation GeoTunnel::SUB_SURFACE_K_DERIVATIONS[4] = {
    ekUserSpecified, ekOReillyAndNew, ekBoscardin, ekNotUsed};

GeoTunnel::ESoilType GeoTunnel::GetSoilTypeFromCStr(const CString& text) {
    return text == CString(SOIL_TYPE_STRINGS[eCohesive]) ? eCohesive : eGranular;
}

GeoTunnel::EkDerivation GeoTunnel::GetKDerivationFromCStr(const CString& text) {
    for (EkDerivation d : {ekSelby, ekBoscardin, ekMair, ekOReillyAndNew})
        if (text == CString(K_DERIVATION_STRINGS[d]))
            return d;
    return ekUserSpecified;
}

GeoTunnel::ESubSurfaceMethod GeoTunnel::GetSubSurfaceMethodFromCStr(const CString& text) {
    if (text == CString(SUB_SURFACE_METHOD_STRINGS[eMair]))
        return eMair;
    if (text == CString(SUB_SURFACE_METHOD_STRINGS[eNewAndBowers]))
        return eNewAndBowers;
    return eHarrisAndAlvarado;
}

void GeoTunnel::Empty() {
    m_name = L"Tunnel #";
    m_x1 = 0.0;
    m_x2 = 10.0;
    m_y1 = 0.0;
    m_y2 = 10.0;
    m_z1 = 0.0;
    m_z2 = 0.0;
    m_interface1 = m_interface2 = 50.0;
    m_ground1 = m_ground2 = 100.0;
    m_diameter = 5.0;
    m_percentLoss = 1.0;
    m_k[eSurface] = m_k[eSubSurface] = 0.4;
    m_m = 0.5;
    m_soilType = eCohesive;
    m_numLayers = 1;
    m_kDerivation[eSurface] = ekOReillyAndNew;
    m_kDerivation[eSubSurface] = ekUserSpecified;
    m_subSurfaceMethod = eNewAndBowers;
    m_show = true;
    m_label = false;
}

double GeoTunnel::GetLength() const {
    const double dx = m_x2 - m_x1, dy = m_y2 - m_y1, dz = m_z2 - m_z1;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

double GeoTunnel::GetPlanLength() const {
    const double dx = m_x2 - m_x1, dy = m_y2 - m_y1;
    return std::sqrt(dx * dx + dy * dy);
}

void GeoTunnel::Corners(double xs[4], double ys[4]) const {
    const double len = GetPlanLength();
    double nx = 0.0, ny = 0.0; // horizontal unit normal to the centre line
    if (len >= 2.220446049250313e-16) {
        nx = -(m_y2 - m_y1) / len;
        ny = (m_x2 - m_x1) / len;
    }
    const double r = 0.5 * m_diameter;
    xs[0] = m_x1 + nx * r, ys[0] = m_y1 + ny * r;
    xs[1] = m_x1 - nx * r, ys[1] = m_y1 - ny * r;
    xs[2] = m_x2 + nx * r, ys[2] = m_y2 + ny * r;
    xs[3] = m_x2 - nx * r, ys[3] = m_y2 - ny * r;
}

double GeoTunnel::GetXMin() const {
    double xs[4], ys[4];
    Corners(xs, ys);
    return *std::min_element(xs, xs + 4);
}

double GeoTunnel::GetXMax() const {
    double xs[4], ys[4];
    Corners(xs, ys);
    return *std::max_element(xs, xs + 4);
}

double GeoTunnel::GetYMin() const {
    double xs[4], ys[4];
    Corners(xs, ys);
    return *std::min_element(ys, ys + 4);
}

double GeoTunnel::GetYMax() const {
    double xs[4], ys[4];
    Corners(xs, ys);
    return *std::max_element(ys, ys + 4);
}

double GeoTunnel::GetZMin() const { return std::min(m_z1, m_z2); }
double GeoTunnel::GetZMax() const { return std::max(m_z1, m_z2); }

// Binary: the centre line ends, levels, size and loss, soil, the two k values (sub-surface
// first) and derivations, the method, layers, name, m, show and label, one after another.
// JSON: the centre line nested as start and end points, the levels as pairs, each k with
// its derivation, enumerations as their texts.
void GeoTunnel::Write(FileIO::CDataFile& f) const {
    using namespace FileIO;
    if (f.IsJson()) {
        f.BeginObject(jnCentreLine);
        WritePoint(f, jnCentreLineStart, {m_x1, m_y1, m_z1});
        WritePoint(f, jnCentreLineEnd, {m_x2, m_y2, m_z2});
        f.EndObject();
        f.WriteDoubleArray(jnSoilInterfaceLevels, {m_interface1, m_interface2});
        f.WriteDoubleArray(jnGroundLevels, {m_ground1, m_ground2});
        f.WriteDouble(jnDiameter, m_diameter);
        f.WriteDouble(jnPercentLoss, m_percentLoss);
        f.WriteEnum(jnSoilType, m_soilType, SOIL_TYPE_STRINGS, 3);
        f.BeginObject(jnSubSurface);
        f.WriteDouble(jnK, m_k[eSubSurface]);
        f.WriteEnum(jnKDerivation, m_kDerivation[eSubSurface], K_DERIVATION_STRINGS, 6);
        f.EndObject();
        f.BeginObject(jnSurface);
        f.WriteDouble(jnK, m_k[eSurface]);
        f.WriteEnum(jnKDerivation, m_kDerivation[eSurface], K_DERIVATION_STRINGS, 6);
        f.EndObject();
    } else {
        for (double v : {m_x1, m_x2, m_y1, m_y2, m_z1, m_z2, m_interface1, m_interface2, m_ground1,
                         m_ground2, m_diameter, m_percentLoss})
            f.WriteDouble(jnX, v);
        f.WriteInt(jnSoilType, m_soilType);
        f.WriteDouble(jnK, m_k[eSubSurface]);
        f.WriteDouble(jnK, m_k[eSurface]);
        f.WriteInt(jnKDerivation, m_kDerivation[eSurface]);
        f.WriteInt(jnKDerivation, m_kDerivation[eSubSurface]);
    }
    f.WriteEnum(jnSubSurfaceMethod, m_subSurfaceMethod, SUB_SURFACE_METHOD_STRINGS, 3);
    f.WriteInt(jnNumLayers, m_numLayers);
    f.WriteString(jnName, m_name);
    f.WriteDouble(jnM, m_m);
    f.WriteBool(jnShow, m_show);
    f.WriteBool(jnLabel, m_label);
}

void GeoTunnel::Read(FileIO::CDataFile& f, int) {
    using namespace FileIO;
    int soil = m_soilType, method = m_subSurfaceMethod;
    int der[2] = {m_kDerivation[0], m_kDerivation[1]};
    if (f.IsJson()) {
        f.EnterObject(jnCentreLine);
        Vec3<double> start, end;
        ReadPoint(f, jnCentreLineStart, start);
        ReadPoint(f, jnCentreLineEnd, end);
        f.LeaveObject();
        m_x1 = start.x, m_y1 = start.y, m_z1 = start.z;
        m_x2 = end.x, m_y2 = end.y, m_z2 = end.z;
        auto pair = [&](int name, double& a, double& b) {
            std::vector<double> v;
            if (!f.ReadDoubleArray(name, v, false))
                return;
            if (v.size() != 2)
                f.Fail(std::string("'") + JsonName(name) + "' should hold the two ends' levels");
            a = v[0];
            b = v[1];
        };
        pair(jnSoilInterfaceLevels, m_interface1, m_interface2);
        pair(jnGroundLevels, m_ground1, m_ground2);
        f.ReadDouble(jnDiameter, m_diameter);
        f.ReadDouble(jnPercentLoss, m_percentLoss);
        f.ReadEnum(jnSoilType, soil, SOIL_TYPE_STRINGS, 3, false);
        for (ESurfaceType t : {eSubSurface, eSurface}) {
            if (f.EnterObject(t == eSurface ? jnSurface : jnSubSurface, false)) {
                f.ReadDouble(jnK, m_k[t], false);
                f.ReadEnum(jnKDerivation, der[t], K_DERIVATION_STRINGS, 6, false);
                f.LeaveObject();
            }
        }
    } else {
        for (double* v : {&m_x1, &m_x2, &m_y1, &m_y2, &m_z1, &m_z2, &m_interface1, &m_interface2,
                          &m_ground1, &m_ground2, &m_diameter, &m_percentLoss})
            f.ReadDouble(jnX, *v);
        f.ReadEnum(jnSoilType, soil, SOIL_TYPE_STRINGS, 3);
        f.ReadDouble(jnK, m_k[eSubSurface]);
        f.ReadDouble(jnK, m_k[eSurface]);
        f.ReadEnum(jnKDerivation, der[eSurface], K_DERIVATION_STRINGS, 6);
        f.ReadEnum(jnKDerivation, der[eSubSurface], K_DERIVATION_STRINGS, 6);
    }
    f.ReadEnum(jnSubSurfaceMethod, method, SUB_SURFACE_METHOD_STRINGS, 3, false);
    f.ReadInt(jnNumLayers, m_numLayers, false);
    f.ReadString(jnName, m_name, false);
    f.ReadDouble(jnM, m_m, false);
    f.ReadBool(jnShow, m_show, false);
    f.ReadBool(jnLabel, m_label, false);
    m_soilType = static_cast<ESoilType>(soil);
    m_subSurfaceMethod = static_cast<ESubSurfaceMethod>(method);
    m_kDerivation[eSurface] = static_cast<EkDerivation>(der[eSurface]);
    m_kDerivation[eSubSurface] = static_cast<EkDerivation>(der[eSubSurface]);
}

bool GeoTunnel::operator==(const GeoTunnel& o) const {
    return m_name == o.m_name && m_x1 == o.m_x1 && m_x2 == o.m_x2 && m_y1 == o.m_y1 &&
           m_y2 == o.m_y2 && m_z1 == o.m_z1 && m_z2 == o.m_z2 && m_interface1 == o.m_interface1 &&
           m_interface2 == o.m_interface2 && m_ground1 == o.m_ground1 && m_ground2 == o.m_ground2 &&
           m_diameter == o.m_diameter && m_percentLoss == o.m_percentLoss && m_k[0] == o.m_k[0] &&
           m_k[1] == o.m_k[1] && m_m == o.m_m && m_soilType == o.m_soilType &&
           m_numLayers == o.m_numLayers && m_kDerivation[0] == o.m_kDerivation[0] &&
           m_kDerivation[1] == o.m_kDerivation[1] && m_subSurfaceMethod == o.m_subSurfaceMethod &&
           m_show == o.m_show && m_label == o.m_label;
}

} // namespace Tevra::Data
