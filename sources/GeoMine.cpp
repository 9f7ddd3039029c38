#include "GeoMine.h"

#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "base/Vec3IO.h"

#include <algorithm>
#include <cmath>

namespace Tevra::Data {

namespace {

// Radians in a full turn, for angles of draw given in degrees.
constexpr double kTwoPi = 6.283185307179586;
// A centre line shorter than this has no direction.
constexpr double kShortestLine = 2.220446049250313e-16;

double TanOfDegrees(double angle) { return std::tan(angle * kTwoPi / 360.0); }

} // namespace

void GeoMine::Empty() {
    m_name = L"Mine #";
    m_closure = 0.0;
    m_panelWidth = 0.0;
    m_lowerThickness = 0.0;
    m_upperThickness = 0.0;
    m_lowerAngle = 0.0;
    m_upperAngle = 0.0;
    m_x1 = m_x2 = m_y1 = m_y2 = 0.0;
    m_show = true;
    m_label = false;
}

double GeoMine::SpreadAt(EMineLevel level) const {
    double spread = 0.0;
    if (level >= eIntermediateLevel)
        spread += m_lowerThickness * TanOfDegrees(m_lowerAngle);
    if (level >= eSurfaceLevel)
        spread += m_upperThickness * TanOfDegrees(m_upperAngle);
    return spread;
}

Vec3<double> GeoMine::GetCornerCoords(EMineLevel level, int corner) const {
    const double dx = m_x2 - m_x1, dy = m_y2 - m_y1;
    const double len = std::sqrt(dx * dx + dy * dy);
    double ax = 0.0, ay = 0.0; // unit vector along the centre line
    if (len >= kShortestLine) {
        ax = dx / len;
        ay = dy / len;
    }
    // The unit normal to the left of the line is (-ay, ax).
    const double spread = SpreadAt(level);
    const double half = 0.5 * m_panelWidth + spread;
    const bool atEnd = corner == 1 || corner == 2;
    const double side = (corner == 2 || corner == 3) ? half : -half;
    const double along = atEnd ? spread : -spread;
    const double x0 = atEnd ? m_x2 : m_x1;
    const double y0 = atEnd ? m_y2 : m_y1;

    double z = 0.0; // the ground surface
    if (level == ePanelLevel)
        z = -(m_lowerThickness + m_upperThickness);
    else if (level == eIntermediateLevel)
        z = -m_upperThickness;
    return {x0 + ax * along - ay * side, y0 + ay * along + ax * side, z};
}

namespace {

template <class Coordinate>
double Extreme(const GeoMine& mine, GeoMine::EMineLevel level, Coordinate coordinate,
               bool largest) {
    double value = coordinate(mine.GetCornerCoords(level, 0));
    for (int c = 1; c < GeoMine::NUM_CORNERS; ++c) {
        const double v = coordinate(mine.GetCornerCoords(level, c));
        value = largest ? std::max(value, v) : std::min(value, v);
    }
    return value;
}

double X(const Vec3<double>& p) { return p.x; }
double Y(const Vec3<double>& p) { return p.y; }
double Z(const Vec3<double>& p) { return p.z; }

} // namespace

double GeoMine::GetXMin(EMineLevel level) const { return Extreme(*this, level, X, false); }
double GeoMine::GetXMax(EMineLevel level) const { return Extreme(*this, level, X, true); }
double GeoMine::GetYMin(EMineLevel level) const { return Extreme(*this, level, Y, false); }
double GeoMine::GetYMax(EMineLevel level) const { return Extreme(*this, level, Y, true); }
double GeoMine::GetZMin(EMineLevel level) const { return Extreme(*this, level, Z, false); }
double GeoMine::GetZMax(EMineLevel level) const { return Extreme(*this, level, Z, true); }

// Closure, panel width and the two strata thicknesses; the two angles of draw (nested in
// the JSON form); the centre line ends in plan (nested as start and end in JSON); the
// name, show and label.
void GeoMine::Write(FileIO::CDataFile& f) const {
    using namespace FileIO;
    f.WriteDouble(jnClosure, m_closure);
    f.WriteDouble(jnPanelWidth, m_panelWidth);
    f.WriteDouble(jnLowerStratumThickness, m_lowerThickness);
    f.WriteDouble(jnUpperStratumThickness, m_upperThickness);
    f.BeginObject(jnAnglesOfDraw);
    f.WriteDouble(jnLower, m_lowerAngle);
    f.WriteDouble(jnUpper, m_upperAngle);
    f.EndObject();
    if (f.IsJson()) {
        f.BeginObject(jnCentreLine);
        WritePlanPoint(f, jnPlanStart, m_x1, m_y1);
        WritePlanPoint(f, jnPlanEnd, m_x2, m_y2);
        f.EndObject();
    } else {
        for (double v : {m_x1, m_x2, m_y1, m_y2})
            f.WriteDouble(jnX, v);
    }
    f.WriteString(jnName, m_name);
    f.WriteBool(jnShow, m_show);
    f.WriteBool(jnLabel, m_label);
}

void GeoMine::Read(FileIO::CDataFile& f, int) {
    using namespace FileIO;
    f.ReadDouble(jnClosure, m_closure);
    f.ReadDouble(jnPanelWidth, m_panelWidth);
    f.ReadDouble(jnLowerStratumThickness, m_lowerThickness);
    f.ReadDouble(jnUpperStratumThickness, m_upperThickness);
    f.EnterObject(jnAnglesOfDraw);
    f.ReadDouble(jnLower, m_lowerAngle);
    f.ReadDouble(jnUpper, m_upperAngle);
    f.LeaveObject();
    if (f.IsJson()) {
        f.EnterObject(jnCentreLine);
        ReadPlanPoint(f, jnPlanStart, m_x1, m_y1);
        ReadPlanPoint(f, jnPlanEnd, m_x2, m_y2);
        f.LeaveObject();
    } else {
        for (double* v : {&m_x1, &m_x2, &m_y1, &m_y2})
            f.ReadDouble(jnX, *v);
    }
    f.ReadString(jnName, m_name, false);
    f.ReadBool(jnShow, m_show, false);
    f.ReadBool(jnLabel, m_label, false);
}

bool GeoMine::operator==(const GeoMine& o) const {
    return m_name == o.m_name && m_closure == o.m_closure && m_panelWidth == o.m_panelWidth &&
           m_lowerThickness == o.m_lowerThickness && m_upperThickness == o.m_upperThickness &&
           m_lowerAngle == o.m_lowerAngle && m_upperAngle == o.m_upperAngle && m_x1 == o.m_x1 &&
           m_x2 == o.m_x2 && m_y1 == o.m_y1 && m_y2 == o.m_y2 && m_show == o.m_show &&
           m_label == o.m_label;
}

} // namespace Tevra::Data
