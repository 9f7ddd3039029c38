// The excavation records of the model file.
//
// Binary form: each class writes its generation first, then its fields one after the
// other; a polygonal excavation follows its base record with its own generation and
// three lists, each behind its count. JSON form: the shared fields in an "excavation"
// object, the lists as arrays (vertices and corners as objects, base levels as numbers),
// a shaft's centre as an object; enumerations as their texts, flags as "YES" and "NO".
#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "sources/CCircularExcavation.h"
#include "sources/CExcavationCorner.h"
#include "sources/CPolygonalExcavation.h"

#include <limits>

namespace Tevra::Data {

using namespace FileIO;

namespace {

// The texts of the contribution in the JSON form, those of messages 3808 and 3809.
const wchar_t* const kContributionTexts[2] = {L"Positive", L"Negative"};

// Least number of bytes that one element of each binary list takes: a tagged double is
// 9 bytes, a tagged integer 5 and a tagged flag 2. A count read from the file is held
// against them before any element is read.
constexpr size_t kVertexBytes = 2 * 9;
constexpr size_t kBaseLevelBytes = 9;
// Eight numbers, three flags and two curve numbers; a corner of a generation above 5
// has its own generation in front as well.
constexpr size_t kOldCornerBytes = 8 * 9 + 3 * 2 + 2 * 5;
constexpr size_t kCornerBytes = 5 + kOldCornerBytes;

// Curve numbers of files written before curves were inserted into the standard lists:
// at generations 3 and 4 eight vertical curves went in after the eighth and six
// horizontal curves after the seventh; at generation 5 one vertical curve went in
// before the fifteenth. Numbers are 0-based.
// A number too large to move names no curve either way and is left for the checks.
void RenumberOldCurves(int generation, int& vertical, int& horizontal) {
    constexpr int kLargest = std::numeric_limits<int>::max();
    if (generation >= 3 && generation <= 4) {
        if (vertical > 7 && vertical <= kLargest - 8)
            vertical += 8;
        if (horizontal > 6 && horizontal <= kLargest - 6)
            horizontal += 6;
    } else if (generation == 5) {
        if (vertical >= 14 && vertical < kLargest)
            vertical += 1;
    }
}

} // namespace

// ---- CExcavation --------------------------------------------------------------------

void CExcavation::Write(CDataFile& f) const {
    f.BeginObject(jnExcavation);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, m_name);
    f.WriteDouble(jnSurfaceLevel, m_surfaceLevel);
    f.WriteEnum(jnContribution, m_contribution, kContributionTexts, 2);
    f.WriteBool(jnShow, m_show);
    f.WriteBool(jnLabel, m_label);
    f.WriteBool(jnAllowCalculationToLevel, m_allowToLevel);
    f.WriteDouble(jnAllowLevel, m_allowLevel);
    f.EndObject();
}

// Binary: the generation first. Older generations held two curve numbers after the
// surface level (before the corners had their own), a flag that enabled the excavation
// after the contribution (before generation 9), show and label only from generation 7
// and the level option only from generation 8. JSON: every field by name, each optional.
void CExcavation::Read(CDataFile& f, int) {
    int contribution = m_contribution;
    if (f.IsJson()) {
        if (!f.EnterObject(jnExcavation, false))
            return;
        int version = m_iVer;
        f.ReadInt(jnVersion, version, false);
        f.ReadString(jnName, m_name, false);
        f.ReadDouble(jnSurfaceLevel, m_surfaceLevel, false);
        f.ReadEnum(jnContribution, contribution, kContributionTexts, 2, false);
        f.ReadBool(jnShow, m_show, false);
        f.ReadBool(jnLabel, m_label, false);
        f.ReadBool(jnAllowCalculationToLevel, m_allowToLevel, false);
        f.ReadDouble(jnAllowLevel, m_allowLevel, false);
        f.LeaveObject();
    } else {
        int g = m_iVer;
        f.ReadInt(jnVersion, g);
        f.ReadString(jnName, m_name);
        f.ReadDouble(jnSurfaceLevel, m_surfaceLevel);
        if (g < 6) {
            // The excavation's curves of old; each corner now has its own.
            int vertical = 0, horizontal = 0;
            f.ReadInt(jnOldCurve, vertical);
            f.ReadInt(jnOldCurve, horizontal);
        }
        f.ReadEnum(jnContribution, contribution, kContributionTexts, 2);
        if (g < 9)
            f.ReadBool(jnEnabled, m_enabled);
        if (g > 6) {
            f.ReadBool(jnShow, m_show);
            f.ReadBool(jnLabel, m_label);
        }
        if (g > 7) {
            f.ReadBool(jnAllowCalculationToLevel, m_allowToLevel);
            f.ReadDouble(jnAllowLevel, m_allowLevel);
        }
    }
    m_contribution = static_cast<EContribution>(contribution);
}

// ---- CExcavationCorner ----------------------------------------------------------------

// The stiffening of the side that ends at the corner, then of the side that starts
// there, the flag, the two curves (vertical first), arc and linear stiffening, and the
// two transition zone fractions.
void CExcavationCorner::Write(CDataFile& f) const {
    f.BeginObject(jnExcavationCorner);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteDouble(jnPreviousEdgeD, m_previousD);
    f.WriteDouble(jnPreviousEdgeP1Star, m_previousP1Star);
    f.WriteDouble(jnPreviousEdgeP2Star, m_previousP2Star);
    f.WriteDouble(jnNextEdgeD, m_nextD);
    f.WriteDouble(jnNextEdgeP1Star, m_nextP1Star);
    f.WriteDouble(jnNextEdgeP2Star, m_nextP2Star);
    f.WriteBool(jnStiffened, m_stiffened);
    f.WriteInt(jnVerticalCurve, GetGMCurve(GeoGlobal::eVertical));
    f.WriteInt(jnHorizontalCurve, GetGMCurve(GeoGlobal::eHorizontal));
    f.WriteBool(jnArcEnabled, m_arcEnabled);
    f.WriteBool(jnLinearStiffening, m_linearStiffening);
    f.WriteDouble(jnPreviousEdgeTransitionZoneFraction, m_previousTransition);
    f.WriteDouble(jnNextEdgeTransitionZoneFraction, m_nextTransition);
    f.EndObject();
}

// In JSON the caller has entered the corner's object. In binary the generation given
// is that of the excavation: above 5 the corner carries its own, which then rules;
// curve numbers of older generations are moved past the curves inserted since.
void CExcavationCorner::Read(CDataFile& f, int generation) {
    int vertical = GetGMCurve(GeoGlobal::eVertical);
    int horizontal = GetGMCurve(GeoGlobal::eHorizontal);
    const bool json = f.IsJson();
    int g = generation;
    if (json) {
        f.ReadInt(jnVersion, g, false);
        g = m_iVer;
    } else if (generation > 5) {
        f.ReadInt(jnVersion, g);
    }
    const bool required = !json;
    f.ReadDouble(jnPreviousEdgeD, m_previousD, required);
    f.ReadDouble(jnPreviousEdgeP1Star, m_previousP1Star, required);
    f.ReadDouble(jnPreviousEdgeP2Star, m_previousP2Star, required);
    f.ReadDouble(jnNextEdgeD, m_nextD, required);
    f.ReadDouble(jnNextEdgeP1Star, m_nextP1Star, required);
    f.ReadDouble(jnNextEdgeP2Star, m_nextP2Star, required);
    f.ReadBool(jnStiffened, m_stiffened, required);
    f.ReadInt(jnVerticalCurve, vertical, required);
    f.ReadInt(jnHorizontalCurve, horizontal, required);
    f.ReadBool(jnArcEnabled, m_arcEnabled, required);
    f.ReadBool(jnLinearStiffening, m_linearStiffening, required);
    f.ReadDouble(jnPreviousEdgeTransitionZoneFraction, m_previousTransition, required);
    f.ReadDouble(jnNextEdgeTransitionZoneFraction, m_nextTransition, required);
    if (!json)
        RenumberOldCurves(g, vertical, horizontal);
    SetGMCurve(GeoGlobal::eVertical, vertical);
    SetGMCurve(GeoGlobal::eHorizontal, horizontal);
}

// ---- CPolygonalExcavation -------------------------------------------------------------

void CPolygonalExcavation::Write(CDataFile& f) const {
    CExcavation::Write(f);
    f.WriteInt(jnVersion, m_iVer);
    const bool json = f.IsJson();

    if (!json)
        f.WriteInt(jnVertices, NumCoords());
    f.BeginArray(jnVertices);
    for (int n = 1; n <= NumCoords(); ++n) {
        f.BeginObject(jnVertex);
        f.WriteDouble(jnX, GetCoord(n).x);
        f.WriteDouble(jnY, GetCoord(n).y);
        f.EndObject();
    }
    f.EndArray();

    if (json) {
        f.WriteDoubleArray(jnBaseLevels, m_baseLevels);
    } else {
        f.WriteInt(jnBaseLevels, NumBaseLevels());
        for (double level : m_baseLevels)
            f.WriteDouble(jnBaseLevel, level);
    }

    if (!json)
        f.WriteInt(jnCorners, NumExcavationCorners());
    f.BeginArray(jnCorners);
    for (const CExcavationCorner& c : m_corners)
        c.Write(f);
    f.EndArray();
}

// The three lists are read as the file has them, whatever their lengths: the checks
// before a run report lists that differ. A count of the binary form is held against the
// bytes left in the record before any element is read.
void CPolygonalExcavation::Read(CDataFile& f, int generation) {
    CExcavation::Read(f, generation);
    const bool json = f.IsJson();
    int g = m_iVer;
    if (!json)
        f.ReadInt(jnVersion, g);
    else
        f.ReadInt(jnVersion, g, false);

    CPolygon polygon{POLYGON_TOLERANCE};
    int count = 0;
    if (json) {
        count = f.EnterArray(jnVertices, false);
    } else {
        f.ReadInt(jnVertices, count);
        f.CheckCount(jnVertices, count, kVertexBytes);
    }
    for (int k = 0; k < count; ++k) {
        Vec2<double> p;
        f.EnterElement(k);
        f.ReadDouble(jnX, p.x);
        f.ReadDouble(jnY, p.y);
        f.LeaveObject();
        polygon.AddPoint(p);
    }
    if (count >= 0)
        f.LeaveObject();

    std::vector<double> levels;
    if (json) {
        f.ReadDoubleArray(jnBaseLevels, levels, false);
    } else {
        f.ReadInt(jnBaseLevels, count);
        f.CheckCount(jnBaseLevels, count, kBaseLevelBytes);
        levels.resize(static_cast<size_t>(count));
        for (double& level : levels)
            f.ReadDouble(jnBaseLevel, level);
    }

    std::vector<CExcavationCorner> corners;
    if (json) {
        count = f.EnterArray(jnCorners, false);
    } else {
        f.ReadInt(jnCorners, count);
        f.CheckCount(jnCorners, count, g > 5 ? kCornerBytes : kOldCornerBytes);
    }
    for (int k = 0; k < count; ++k) {
        CExcavationCorner c;
        f.EnterElement(k);
        c.Read(f, json ? -1 : g);
        f.LeaveObject();
        corners.push_back(c);
    }
    if (json && count >= 0)
        f.LeaveObject();

    m_polygon = polygon;
    m_baseLevels = std::move(levels);
    m_corners = std::move(corners);
}

// ---- CCircularExcavation --------------------------------------------------------------

void CCircularExcavation::Write(CDataFile& f) const {
    CExcavation::Write(f);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteDouble(jnDiameter, m_diameter);
    f.WriteDouble(jnBaseLevel, m_baseLevel);
    f.BeginObject(jnCentre);
    f.WriteDouble(jnX, m_centre.x);
    f.WriteDouble(jnY, m_centre.y);
    f.EndObject();
    f.WriteInt(jnVerticalCurve, m_verticalCurve);
    f.WriteInt(jnHorizontalCurve, m_horizontalCurve);
}

void CCircularExcavation::Read(CDataFile& f, int generation) {
    CExcavation::Read(f, generation);
    const bool json = f.IsJson();
    int g = m_iVer;
    f.ReadInt(jnVersion, g, !json);
    f.ReadDouble(jnDiameter, m_diameter, !json);
    f.ReadDouble(jnBaseLevel, m_baseLevel, !json);
    if (f.EnterObject(jnCentre, !json)) {
        f.ReadDouble(jnX, m_centre.x);
        f.ReadDouble(jnY, m_centre.y);
        f.LeaveObject();
    }
    f.ReadInt(jnVerticalCurve, m_verticalCurve, !json);
    f.ReadInt(jnHorizontalCurve, m_horizontalCurve, !json);
}

} // namespace Tevra::Data
