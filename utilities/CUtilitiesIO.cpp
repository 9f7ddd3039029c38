// Model file records of the utility inputs.
//
// Binary form: the fields one after the other, as the record's Write lays them out; a
// record with a generation of its own writes it first. JSON form: the same fields by name,
// each record as one object; an enumeration as its text, flags as "YES" and "NO". In JSON
// every field may be left out and keeps its default; in binary every field is required.
#include "base/CDataFile.h"
#include "base/DataFileLists.h"
#include "base/GeoDispResultIO.h"
#include "base/JsonNameID.h"
#include "utilities/CAcceptanceCriteria.h"
#include "utilities/CGenericUtility.h"
#include "utilities/CPulloutAndRotation.h"
#include "utilities/CSpecificUtility.h"
#include "utilities/CUtility.h"
#include "utilities/CUtilityCalculationOptions.h"
#include "utilities/CUtilityDimension.h"
#include "utilities/CUtilityResults.h"
#include "utilities/CUtilityStrain.h"
#include "utilities/CUtilityTransect.h"

#include <algorithm>
#include <string>

namespace Tevra::Data {

using namespace FileIO;
using namespace UtilityGlobal;

namespace {

// Least number of bytes of a binary stage slot of samples: its count. The same holds for
// a slot of joint results or of strain rows, and for an iteration of joints.
constexpr size_t kStageBytes = 5;
// Least number of bytes of a binary joint result: its generation, five tagged doubles,
// the curvature, three tagged lists of three doubles and six tagged doubles.
constexpr size_t kJointBytes = 5 + 5 * 9 + 5 + 3 * (5 + 3 * 8) + 6 * 9;
// Least number of bytes of a binary strain row: its generation, five tagged doubles and
// two tagged flags.
constexpr size_t kStrainRowBytes = 5 + 5 * 9 + 2 * 2;
// Least number of bytes of a binary transect: its generation, an empty name, its crossing
// point and the three counts of its result stores.
constexpr size_t kTransectBytes = 5 + 5 + (5 + 3 * 8) + 3 * kStageBytes;

// Refuses a record generation other than the one this version lays out: the layouts of
// the older ones are not known here, and reading one as the current layout would take
// its fields for others. A JSON record names its fields and carries no generation (-1).
void CheckGeneration(const CDataFile& f, const char* what, int generation, int current) {
    if (generation != -1 && generation != current)
        f.Fail(std::string(what) + " of generation " + std::to_string(generation) +
               ", which this version cannot read: it reads generation " + std::to_string(current));
}

// A checked quantity: its value and whether it is used, as one object.
void WriteCriterion(CDataFile& f, int name, double value, bool used) {
    f.BeginObject(name);
    f.WriteDouble(jnValue, value);
    f.WriteBool(jnUsed, used);
    f.EndObject();
}

void ReadCriterion(CDataFile& f, int name, double& value, bool& used) {
    const bool json = f.IsJson();
    if (!f.EnterObject(name, !json))
        return;
    f.ReadDouble(jnValue, value, !json);
    f.ReadBool(jnUsed, used, !json);
    f.LeaveObject();
}

void WriteDisplacement(CDataFile& f, int name, const Vec3<double>& d) {
    f.WriteDoubleArray(name, {d.x, d.y, d.z});
}

void ReadDisplacement(CDataFile& f, int name, Vec3<double>& d,
                      const char* what = "a joint's displacement") {
    std::vector<double> v{d.x, d.y, d.z};
    if (!f.ReadDoubleArray(name, v, !f.IsJson()))
        return;
    if (v.size() != 3)
        f.Fail(std::string(what) + " holds " + std::to_string(v.size()) +
               " numbers where it should hold 3");
    d = Vec3<double>(v[0], v[1], v[2]);
}

} // namespace

// ---- CPulloutAndRotation ----------------------------------------------------------------

void CPulloutAndRotation::Write(CDataFile& f) const {
    f.BeginObject(jnJoints);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteDouble(jnPulloutAxialLeft, m_pulloutAxialLeft);
    f.WriteDouble(jnPulloutAxialRight, m_pulloutAxialRight);
    f.WriteDouble(jnPulloutFlexural, m_pulloutFlexural);
    f.WriteDouble(jnRotation, m_rotation);
    f.WriteInt(jnVerticalCurvature, m_verticalCurvature);
    const CUtilityLocationInfo& i = m_locationInfo;
    f.WriteDouble(jnLocation, i.GetLocation());
    WriteDisplacement(f, jnDisplacementN, i.GetDisplacementN());
    WriteDisplacement(f, jnDisplacementNMinus, i.GetDisplacementNMinus());
    WriteDisplacement(f, jnDisplacementNPlus, i.GetDisplacementNPlus());
    f.WriteDouble(jnParallelN, i.GetParallelN());
    f.WriteDouble(jnPerpendicularN, i.GetPerpendicularN());
    f.WriteDouble(jnParallelNMinus, i.GetParallelNMinus());
    f.WriteDouble(jnPerpendicularNMinus, i.GetPerpendicularNMinus());
    f.WriteDouble(jnParallelNPlus, i.GetParallelNPlus());
    f.WriteDouble(jnPerpendicularNPlus, i.GetPerpendicularNPlus());
    f.EndObject();
}

void CPulloutAndRotation::Read(CDataFile& f) {
    const bool required = !f.IsJson();
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a joint result", version, m_iVer);
    m_readVersion = version;
    f.ReadDouble(jnPulloutAxialLeft, m_pulloutAxialLeft, required);
    f.ReadDouble(jnPulloutAxialRight, m_pulloutAxialRight, required);
    f.ReadDouble(jnPulloutFlexural, m_pulloutFlexural, required);
    f.ReadDouble(jnRotation, m_rotation, required);
    int curvature = m_verticalCurvature;
    f.ReadInt(jnVerticalCurvature, curvature, required);
    if (curvature < GeoGlobal::eHogging || curvature > GeoGlobal::eNoCurvature)
        f.Fail("a joint result has curvature " + std::to_string(curvature) +
               ", which is not one of 0 to 2");
    m_verticalCurvature = static_cast<GeoGlobal::ECurvature>(curvature);
    CUtilityLocationInfo& i = m_locationInfo;
    double v = i.GetLocation();
    f.ReadDouble(jnLocation, v, required);
    i.SetLocation(v);
    Vec3<double> d = i.GetDisplacementN();
    ReadDisplacement(f, jnDisplacementN, d);
    i.SetDisplacementN(d);
    d = i.GetDisplacementNMinus();
    ReadDisplacement(f, jnDisplacementNMinus, d);
    i.SetDisplacementNMinus(d);
    d = i.GetDisplacementNPlus();
    ReadDisplacement(f, jnDisplacementNPlus, d);
    i.SetDisplacementNPlus(d);
    double side[6] = {i.GetParallelN(),           i.GetPerpendicularN(), i.GetParallelNMinus(),
                      i.GetPerpendicularNMinus(), i.GetParallelNPlus(),  i.GetPerpendicularNPlus()};
    const int names[6] = {jnParallelN,           jnPerpendicularN, jnParallelNMinus,
                          jnPerpendicularNMinus, jnParallelNPlus,  jnPerpendicularNPlus};
    for (int k = 0; k < 6; ++k)
        f.ReadDouble(names[k], side[k], required);
    i.SetParallelN(side[0]);
    i.SetPerpendicularN(side[1]);
    i.SetParallelNMinus(side[2]);
    i.SetPerpendicularNMinus(side[3]);
    i.SetParallelNPlus(side[4]);
    i.SetPerpendicularNPlus(side[5]);
}

// ---- CUtilityStrain ---------------------------------------------------------------------

void CUtilityStrain::Write(CDataFile& f) const {
    f.BeginObject(jnStrainRows);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteDouble(jnLocation, m_location);
    f.WriteDouble(jnAxialStrain, m_axialStrain);
    f.WriteDouble(jnFlexuralStrain, m_flexuralStrain);
    f.WriteBool(jnIsOrientationAngle, m_isOrientationAngle);
    f.WriteDouble(jnOrientationAngle, m_orientationAngle);
    f.WriteBool(jnIsRadiusofCurvature, m_isRadiusofCurvature);
    f.WriteDouble(jnRadiusofCurvature, m_radiusofCurvature);
    f.EndObject();
}

void CUtilityStrain::Read(CDataFile& f) {
    const bool required = !f.IsJson();
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a strain row", version, m_iVer);
    m_readVersion = version;
    f.ReadDouble(jnLocation, m_location, required);
    f.ReadDouble(jnAxialStrain, m_axialStrain, required);
    f.ReadDouble(jnFlexuralStrain, m_flexuralStrain, required);
    f.ReadBool(jnIsOrientationAngle, m_isOrientationAngle, required);
    f.ReadDouble(jnOrientationAngle, m_orientationAngle, required);
    f.ReadBool(jnIsRadiusofCurvature, m_isRadiusofCurvature, required);
    f.ReadDouble(jnRadiusofCurvature, m_radiusofCurvature, required);
}

// ---- CUtilityResults ---------------------------------------------------------------------

void CUtilityResults::Write(CDataFile& f) const {
    // Joint results: slots, each a list of iterations, each a list of joints.
    BeginList(f, jnStageResults, m_pulloutAndRotations.size());
    for (const auto& slot : m_pulloutAndRotations) {
        f.BeginObject(jnStage);
        BeginList(f, jnIterations, slot.size());
        for (const auto& joints : slot) {
            f.BeginObject(jnIterations);
            BeginList(f, jnJoints, joints.size());
            for (const CPulloutAndRotation& r : joints)
                r.Write(f);
            f.EndArray();
            f.EndObject();
        }
        f.EndArray();
        f.EndObject();
    }
    f.EndArray();
    // Strain rows: slots, each a list of rows.
    BeginList(f, jnUtilityStrains, m_utilityStrains.size());
    for (const auto& rows : m_utilityStrains) {
        f.BeginObject(jnStage);
        BeginList(f, jnStrainRows, rows.size());
        for (const CUtilityStrain& r : rows)
            r.Write(f);
        f.EndArray();
        f.EndObject();
    }
    f.EndArray();
    const size_t stages = m_horizontalMovementResults.size();
    if (!f.IsJson())
        f.WriteInt(jnUtilityHorizontalMovements, static_cast<int>(stages));
    f.BeginArray(jnUtilityHorizontalMovements);
    for (const auto& slot : m_horizontalMovementResults) {
        f.BeginObject(jnStage);
        WriteGeoDispResults(f, jnHorizontalMovements, slot);
        f.EndObject();
    }
    f.EndArray();
}

void CUtilityResults::Read(CDataFile& f) {
    const bool json = f.IsJson();
    // Every count is checked against the bytes left before its list is sized.
    const int pulloutSlots = EnterList(f, jnStageResults, kStageBytes);
    PulloutStore pullouts(static_cast<size_t>(std::max(pulloutSlots, 0)));
    for (int s = 0; s < pulloutSlots; ++s) {
        f.EnterElement(s);
        auto& slot = pullouts[static_cast<size_t>(s)];
        const int iterations = EnterList(f, jnIterations, kStageBytes);
        slot.resize(static_cast<size_t>(std::max(iterations, 0)));
        for (int it = 0; it < iterations; ++it) {
            f.EnterElement(it);
            auto& joints = slot[static_cast<size_t>(it)];
            const int n = EnterList(f, jnJoints, kJointBytes);
            joints.resize(static_cast<size_t>(std::max(n, 0)));
            for (int k = 0; k < n; ++k) {
                f.EnterElement(k);
                joints[static_cast<size_t>(k)].Read(f);
                f.LeaveObject();
            }
            LeaveList(f, n);
            f.LeaveObject();
        }
        LeaveList(f, iterations);
        f.LeaveObject();
    }
    LeaveList(f, pulloutSlots);
    const int strainSlots = EnterList(f, jnUtilityStrains, kStageBytes);
    StrainStore strains(static_cast<size_t>(std::max(strainSlots, 0)));
    for (int s = 0; s < strainSlots; ++s) {
        f.EnterElement(s);
        auto& rows = strains[static_cast<size_t>(s)];
        const int n = EnterList(f, jnStrainRows, kStrainRowBytes);
        rows.resize(static_cast<size_t>(std::max(n, 0)));
        for (int k = 0; k < n; ++k) {
            f.EnterElement(k);
            rows[static_cast<size_t>(k)].Read(f);
            f.LeaveObject();
        }
        LeaveList(f, n);
        f.LeaveObject();
    }
    LeaveList(f, strainSlots);
    int stages = 0;
    if (json) {
        stages = f.EnterArray(jnUtilityHorizontalMovements, false);
    } else {
        f.ReadInt(jnUtilityHorizontalMovements, stages);
        f.CheckCount(jnUtilityHorizontalMovements, stages, kStageBytes);
    }
    HorizontalMovementStore movements(static_cast<size_t>(std::max(stages, 0)));
    for (int s = 0; s < stages; ++s) {
        f.EnterElement(s);
        ReadGeoDispResults(f, jnHorizontalMovements, movements[static_cast<size_t>(s)]);
        f.LeaveObject();
    }
    if (json && stages >= 0)
        f.LeaveObject();
    m_horizontalMovementResults = std::move(movements);
    m_pulloutAndRotations = std::move(pullouts);
    m_utilityStrains = std::move(strains);
}

// ---- CUtility --------------------------------------------------------------------------

void CUtility::Write(CDataFile& f) const {
    f.BeginObject(jnUtility);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, GetName());
    f.WriteInt(jnDimension, m_dimension);
    f.WriteInt(jnCriteria, m_criteria);
    f.WriteDouble(jnPipeLength, m_pipeLength);
    f.WriteEnum(jnUtilityType, m_utilityType, UTILITY_TYPE_STRINGS, 2);
    f.WriteBool(jnShow, m_show);
    f.WriteBool(jnLabel, m_label);
    f.EndObject();
}

// In JSON the type is read as GetUtilityTypeFromCStr reads it: any text but "Jointed"
// is continuous. In binary the number must be one of the two.
void CUtility::Read(CDataFile& f, int) {
    const bool json = f.IsJson();
    if (!f.EnterObject(jnUtility, !json))
        return;
    const bool required = !json;
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a utility", version, m_iVer);
    f.ReadString(jnName, AccessName(), required);
    f.ReadInt(jnDimension, m_dimension, required);
    f.ReadInt(jnCriteria, m_criteria, required);
    f.ReadDouble(jnPipeLength, m_pipeLength, required);
    if (json) {
        CString text;
        if (f.ReadString(jnUtilityType, text, false))
            m_utilityType = GetUtilityTypeFromCStr(text);
    } else {
        int type = m_utilityType;
        f.ReadEnum(jnUtilityType, type, UTILITY_TYPE_STRINGS, 2);
        m_utilityType = static_cast<EUtilityType>(type);
    }
    f.ReadBool(jnShow, m_show, required);
    f.ReadBool(jnLabel, m_label, required);
    f.LeaveObject();
}

// ---- CSpecificUtility ------------------------------------------------------------------

void CSpecificUtility::Write(CDataFile& f) const {
    f.BeginObject(jnSpecificUtility);
    CUtility::Write(f);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnSubUtilityName, m_subUtilityName);
    f.WriteInt(jnLine, m_line);
    f.WriteDouble(jnLineStart, m_lineStart);
    f.WriteDouble(jnLineEnd, m_lineEnd);
    f.WriteEnum(jnDisplacementDataType, m_dataType, DISPLACEMENT_DATA_TYPE_STRINGS, 2);
    f.WriteInt(jnDisplacementPolyline, m_displacementPolyline);
    f.WriteBool(jnPolySegContinuousPullouts, m_polySegContinuousPullouts);
    f.WriteBool(jnPolySegContinuousStrains, m_polySegContinuousStrains);
    m_results.Write(f);
    f.EndObject();
}

void CSpecificUtility::Read(CDataFile& f, int generation) {
    const bool json = f.IsJson();
    if (!f.EnterObject(jnSpecificUtility, !json))
        return;
    const bool required = !json;
    CUtility::Read(f, generation);
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a specific utility", version, m_iVer);
    m_readVersion = version;
    f.ReadString(jnSubUtilityName, m_subUtilityName, required);
    f.ReadInt(jnLine, m_line, required);
    f.ReadDouble(jnLineStart, m_lineStart, required);
    f.ReadDouble(jnLineEnd, m_lineEnd, required);
    int type = m_dataType;
    f.ReadEnum(jnDisplacementDataType, type, DISPLACEMENT_DATA_TYPE_STRINGS, 2, required);
    m_dataType = static_cast<EDisplacementDataType>(type);
    f.ReadInt(jnDisplacementPolyline, m_displacementPolyline, required);
    f.ReadBool(jnPolySegContinuousPullouts, m_polySegContinuousPullouts, required);
    f.ReadBool(jnPolySegContinuousStrains, m_polySegContinuousStrains, required);
    m_results.Read(f);
    f.LeaveObject();
}

// ---- CGenericUtility -------------------------------------------------------------------

// The JSON object is the base's alone: the generic fields stand beside it in the record,
// and the transects follow them as a list, with their count first in binary. A
// hand-written JSON record may leave the list out.
void CGenericUtility::Write(CDataFile& f) const {
    CUtility::Write(f);
    f.WriteInt(jnPolyline, m_polyline);
    f.WriteDouble(jnInterval, m_interval);
    f.WriteDouble(jnLength, m_length);
    f.WriteInt(jnDispPoints, m_dispPoints);
    BeginList(f, jnTransects, m_transects.size());
    for (const CUtilityTransect& t : m_transects)
        t.Write(f);
    f.EndArray();
}

void CGenericUtility::Read(CDataFile& f, int generation) {
    CheckGeneration(f, "a generic utility", generation, m_iVer);
    const bool required = !f.IsJson();
    CUtility::Read(f, generation);
    f.ReadInt(jnPolyline, m_polyline, required);
    f.ReadDouble(jnInterval, m_interval, required);
    f.ReadDouble(jnLength, m_length, required);
    f.ReadInt(jnDispPoints, m_dispPoints, required);
    // The count is held against the bytes left in the record before the list is sized.
    const int n = EnterList(f, jnTransects, kTransectBytes);
    std::vector<CUtilityTransect> transects(static_cast<size_t>(std::max(n, 0)));
    for (int t = 0; t < n; ++t) {
        f.EnterElement(t);
        transects[static_cast<size_t>(t)].Read(f);
        f.LeaveObject();
    }
    LeaveList(f, n);
    m_transects = std::move(transects);
    m_readVersion = generation == -1 ? m_iVer : generation;
}

// ---- CUtilityTransect ------------------------------------------------------------------

void CUtilityTransect::Write(CDataFile& f) const {
    f.BeginObject(jnTransect);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, m_name);
    f.WriteDoubleArray(jnPolylineIntersection, {m_polylineIntersection.x,
                                                m_polylineIntersection.y,
                                                m_polylineIntersection.z});
    m_results.Write(f);
    f.EndObject();
}

// In JSON the element is entered by the list's reader.
void CUtilityTransect::Read(CDataFile& f) {
    const bool required = !f.IsJson();
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a transect", version, m_iVer);
    m_readVersion = version;
    f.ReadString(jnName, m_name, required);
    ReadDisplacement(f, jnPolylineIntersection, m_polylineIntersection, "a transect's crossing");
    m_results.Read(f);
}

// ---- CUtilityDimension -----------------------------------------------------------------

void CUtilityDimension::Write(CDataFile& f) const {
    f.BeginObject(jnUtilityDimension);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, GetName());
    f.WriteDouble(jnInternalDiameter, m_internalDiameter);
    f.WriteDouble(jnWallThickness, m_wallThickness);
    f.EndObject();
}

void CUtilityDimension::Read(CDataFile& f, int) {
    const bool json = f.IsJson();
    m_editable = true;
    if (!f.EnterObject(jnUtilityDimension, !json))
        return;
    const bool required = !json;
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a utility dimension", version, m_iVer);
    f.ReadString(jnName, AccessName(), required);
    f.ReadDouble(jnInternalDiameter, m_internalDiameter, required);
    f.ReadDouble(jnWallThickness, m_wallThickness, required);
    f.LeaveObject();
}

// ---- CAcceptanceCriteria ---------------------------------------------------------------

// The radius of curvature is stored as a radius, threshold and limit alike, so that it
// comes back to the bit.
void CAcceptanceCriteria::Write(CDataFile& f) const {
    f.BeginObject(jnAcceptanceCriteria);
    f.WriteString(jnName, GetName());
    WriteCriterion(f, jnAllowableStrainTension, m_tension, m_tensionUsed);
    WriteCriterion(f, jnAllowableStrainCompression, m_compression, m_compressionUsed);
    WriteCriterion(f, jnRotationThreshold, m_rotationThreshold, m_rotationThresholdUsed);
    WriteCriterion(f, jnRotationLimit, m_rotationLimit, m_rotationLimitUsed);
    WriteCriterion(f, jnPulloutThreshold, m_pulloutThreshold, m_pulloutThresholdUsed);
    WriteCriterion(f, jnPulloutLimit, m_pulloutLimit, m_pulloutLimitUsed);
    f.WriteDouble(jnAxialStrainRFTension, m_axialStrainRFTension);
    f.WriteDouble(jnAxialStrainRFCompression, m_axialStrainRFCompression);
    f.WriteDouble(jnPulloutRFAxial, m_pulloutRFAxial);
    f.WriteDouble(jnPulloutRFFlexural, m_pulloutRFFlexural);
    WriteCriterion(f, jnRADThreshold, m_radThreshold, m_radThresholdUsed);
    WriteCriterion(f, jnRADLimit, m_radLimit, m_radLimitUsed);
    f.WriteDouble(jnRotationFactor, m_rotationFactor);
    f.WriteDouble(jnBendingFactorTension, m_bendingFactorTension);
    f.WriteDouble(jnBendingFactorCompression, m_bendingFactorCompression);
    f.EndObject();
}

void CAcceptanceCriteria::Read(CDataFile& f, int generation) {
    const bool json = f.IsJson();
    CheckGeneration(f, "acceptance criteria", generation, m_iVer);
    m_editable = true;
    m_readVersion = json ? m_iVer : generation;
    if (!f.EnterObject(jnAcceptanceCriteria, !json))
        return;
    const bool required = !json;
    f.ReadString(jnName, AccessName(), required);
    ReadCriterion(f, jnAllowableStrainTension, m_tension, m_tensionUsed);
    ReadCriterion(f, jnAllowableStrainCompression, m_compression, m_compressionUsed);
    ReadCriterion(f, jnRotationThreshold, m_rotationThreshold, m_rotationThresholdUsed);
    ReadCriterion(f, jnRotationLimit, m_rotationLimit, m_rotationLimitUsed);
    ReadCriterion(f, jnPulloutThreshold, m_pulloutThreshold, m_pulloutThresholdUsed);
    ReadCriterion(f, jnPulloutLimit, m_pulloutLimit, m_pulloutLimitUsed);
    f.ReadDouble(jnAxialStrainRFTension, m_axialStrainRFTension, required);
    f.ReadDouble(jnAxialStrainRFCompression, m_axialStrainRFCompression, required);
    f.ReadDouble(jnPulloutRFAxial, m_pulloutRFAxial, required);
    f.ReadDouble(jnPulloutRFFlexural, m_pulloutRFFlexural, required);
    ReadCriterion(f, jnRADThreshold, m_radThreshold, m_radThresholdUsed);
    ReadCriterion(f, jnRADLimit, m_radLimit, m_radLimitUsed);
    f.ReadDouble(jnRotationFactor, m_rotationFactor, required);
    f.ReadDouble(jnBendingFactorTension, m_bendingFactorTension, required);
    f.ReadDouble(jnBendingFactorCompression, m_bendingFactorCompression, required);
    f.LeaveObject();
}

// ---- CUtilityCalculationOptions --------------------------------------------------------

void CUtilityCalculationOptions::Write(CDataFile& f) const {
    f.BeginObject(jnUtilityCalculationOptions);
    f.WriteBool(jnNeglectBenificialContribution, m_neglectBenificialContribution);
    f.EndObject();
}

// Binary: generation 3 holds the polyline flag after the neglect flag; 4 does not.
void CUtilityCalculationOptions::Read(CDataFile& f, int generation) {
    const bool json = f.IsJson();
    if (generation != kPolylineFlagGeneration)
        CheckGeneration(f, "utility calculation options", generation, m_iVer);
    m_readVersion = json ? m_iVer : generation;
    if (!f.EnterObject(jnUtilityCalculationOptions, !json))
        return;
    f.ReadBool(jnNeglectBenificialContribution, m_neglectBenificialContribution, !json);
    if (m_readVersion == kPolylineFlagGeneration)
        f.ReadBool(jnPolylineSegmentsContinuous, m_polylineSegmentsContinuous);
    f.LeaveObject();
}

} // namespace Tevra::Data
