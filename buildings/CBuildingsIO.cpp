// Model file records of the building inputs and results.
//
// Binary form: each class with a generation writes it first, then its fields one after
// the other; every list stands behind its count. JSON form: the same fields by name,
// lists as arrays (of objects, or of numbers for the strain limits and the vertical
// offsets); a curvature as its text, flags as "YES" and "NO".
#include "base/CDataFile.h"
#include "base/DataFileLists.h"
#include "base/GeoDispResultIO.h"
#include "base/JsonNameID.h"
#include "buildings/CBuildingDamageProperties.h"
#include "buildings/CBuildingDamageResult.h"
#include "buildings/CDamageCategoryStrains.h"
#include "buildings/CSpecificBuilding.h"

#include <algorithm>
#include <string>

namespace Tevra::Data {

using namespace FileIO;

namespace {

// Least number of bytes that one element of each binary list takes: a tagged double is
// 9 bytes, a tagged integer 5, a tagged flag 2 and an empty text 5. A count read from
// the file is held against them before anything is allocated for its elements.
constexpr size_t kOffsetBytes = 9;
// A segment result of the first generation: four numbers, three integers (generation,
// category, curvature) and a flag.
constexpr size_t kResultBytes = 4 * 9 + 3 * 5 + 2;
// An offset's list: its count.
constexpr size_t kListBytes = 5;
// A stage block: the counts of its four lists.
constexpr size_t kStageBytes = 4 * kListBytes;

// Refuses a record generation outside 1 .. newest: its layout is not known, and reading
// on would take the following fields for its own.
void CheckGeneration(const CDataFile& f, const char* what, int generation, int newest) {
    if (generation < 1 || generation > newest)
        f.Fail(std::string(what) + " of generation " + std::to_string(generation) +
               ", which this version reads only from 1 to " + std::to_string(newest));
}

// ---- Samples of the building's line ----

void WriteSamples(CDataFile& f, int name, const std::vector<GeoDispResult>* samples) {
    static const std::vector<GeoDispResult> none;
    WriteGeoDispResults(f, name, samples ? *samples : none);
}

// ---- Segment results of one stage, by offset ----

using StageSegments = std::vector<std::vector<CBuildingDamageResult>>;

void WriteSegments(CDataFile& f, int offsetsName, int segmentsName, const StageSegments* stage) {
    BeginList(f, offsetsName, stage ? stage->size() : 0);
    if (stage) {
        for (const auto& offset : *stage) {
            f.BeginObject(offsetsName);
            BeginList(f, segmentsName, offset.size());
            for (const CBuildingDamageResult& r : offset)
                r.Write(f);
            f.EndArray();
            f.EndObject();
        }
    }
    f.EndArray();
}

void ReadSegments(CDataFile& f, int offsetsName, int segmentsName, StageSegments& stage) {
    const int offsets = EnterList(f, offsetsName, kListBytes);
    stage.assign(static_cast<size_t>(std::max(offsets, 0)), {});
    for (int o = 0; o < offsets; ++o) {
        f.EnterElement(o);
        auto& offset = stage[static_cast<size_t>(o)];
        const int count = EnterList(f, segmentsName, kResultBytes);
        offset.assign(static_cast<size_t>(std::max(count, 0)), CBuildingDamageResult());
        for (int k = 0; k < count; ++k) {
            f.EnterElement(k);
            offset[static_cast<size_t>(k)].Read(f, -1);
            f.LeaveObject();
        }
        LeaveList(f, count);
        f.LeaveObject();
    }
    LeaveList(f, offsets);
}

template <class Store> const typename Store::value_type* StageOf(const Store& store, size_t s) {
    return s < store.size() ? &store[s] : nullptr;
}

} // namespace

// ---- CDamageCategoryStrains -------------------------------------------------------------

void CDamageCategoryStrains::Write(CDataFile& f) const {
    f.BeginObject(jnDamageCategoryStrains);
    f.WriteString(jnName, m_name);
    f.BeginDoubleArray(jnStrainLimits);
    for (double limit : m_strainLimits)
        f.PutDouble(limit);
    f.EndDoubleArray();
    f.EndObject();
}

// Binary: a file of the first generation has an integer before the name, which is
// dropped. The limits must be one for each category.
void CDamageCategoryStrains::Read(CDataFile& f, int generation) {
    const bool json = f.IsJson();
    if (json && !f.EnterObject(jnDamageCategoryStrains, false))
        return;
    if (!json && generation < 2) {
        int dropped = 0;
        f.ReadInt(jnVersion, dropped);
    }
    f.ReadString(jnName, m_name, !json);
    std::vector<double> limits;
    if (f.ReadDoubleArray(jnStrainLimits, limits, !json)) {
        if (limits.size() != NUM_CATEGORIES)
            f.Fail("the strain limits hold " + std::to_string(limits.size()) +
                   " numbers; a damage category strains record holds one for each of the " +
                   std::to_string(NUM_CATEGORIES) + " categories");
        std::copy(limits.begin(), limits.end(), m_strainLimits);
    }
    if (json)
        f.LeaveObject();
}

// ---- CBuildingDamageProperties ------------------------------------------------------------

void CBuildingDamageProperties::Write(CDataFile& f) const {
    const bool json = f.IsJson();
    f.BeginObject(jnBuildingDamageProperties);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteInt(jnDamageCategoryStrains, m_damageCategoryStrains);
    f.WriteDouble(jnPoissonsRatio, m_poissonsRatio);
    f.WriteDouble(jnEOverG, m_eOverG);
    f.WriteBool(jnDefaultProperties, m_defaultProperties);
    // Hogging, then sagging.
    f.BeginArray(jnCurvatures);
    for (int c = 0; c < 2; ++c) {
        f.BeginObject(jnCurvatures);
        f.WriteDouble(jnI, m_section[kIAt + c]);
        f.WriteDouble(jnStrainFromNA, m_section[kStrainFromNAAt + c]);
        f.WriteDouble(jnNAFromTensionEdge, m_section[kNAFromTensionEdgeAt + c]);
        f.EndObject();
    }
    f.EndArray();
    f.WriteDouble(jnEndVDispSensitivity, m_section[kEndVDispSensitivityAt]);
    if (json) {
        f.WriteDoubleArray(jnVerticalOffsets, m_verticalOffsets);
    } else {
        f.WriteInt(jnVerticalOffsets, NumberOfVerticalOffsets());
        for (double offset : m_verticalOffsets)
            f.WriteDouble(jnVerticalOffsets, offset);
    }
    f.EndObject();
}

void CBuildingDamageProperties::ReadCurvature(CDataFile& f, int curvature) {
    const bool required = !f.IsJson();
    f.ReadDouble(jnI, m_section[kIAt + curvature], required);
    f.ReadDouble(jnStrainFromNA, m_section[kStrainFromNAAt + curvature], required);
    f.ReadDouble(jnNAFromTensionEdge, m_section[kNAFromTensionEdgeAt + curvature], required);
}

void CBuildingDamageProperties::Read(CDataFile& f, int) {
    const bool json = f.IsJson();
    if (!f.EnterObject(jnBuildingDamageProperties, false))
        return;
    const bool required = !json;
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "building damage properties", version, m_iVer);
    f.ReadInt(jnDamageCategoryStrains, m_damageCategoryStrains, required);
    f.ReadDouble(jnPoissonsRatio, m_poissonsRatio, required);
    f.ReadDouble(jnEOverG, m_eOverG, required);
    f.ReadBool(jnDefaultProperties, m_defaultProperties, required);
    if (json) {
        const int count = f.EnterArray(jnCurvatures, false);
        if (count >= 0 && count != 2)
            f.Fail("'curvatures' should hold two members, for hogging and for sagging, not " +
                   std::to_string(count));
        for (int c = 0; c < count; ++c) {
            f.EnterElement(c);
            ReadCurvature(f, c);
            f.LeaveObject();
        }
        LeaveList(f, count);
    } else {
        ReadCurvature(f, GeoGlobal::eHogging);
        ReadCurvature(f, GeoGlobal::eSagging);
    }
    f.ReadDouble(jnEndVDispSensitivity, m_section[kEndVDispSensitivityAt], required);
    if (json) {
        f.ReadDoubleArray(jnVerticalOffsets, m_verticalOffsets, false);
    } else {
        int count = 0;
        f.ReadInt(jnVerticalOffsets, count);
        f.CheckCount(jnVerticalOffsets, count, kOffsetBytes);
        m_verticalOffsets.resize(static_cast<size_t>(count));
        for (double& offset : m_verticalOffsets)
            f.ReadDouble(jnVerticalOffsets, offset);
    }
    if (json)
        f.LeaveObject();
}

// ---- CBuildingDamageResult -------------------------------------------------------------

void CBuildingDamageResult::Write(CDataFile& f) const {
    f.BeginObject(jnBuildingDamageResult);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteDouble(jnPlanStart, m_start);
    f.WriteDouble(jnPlanEnd, m_end);
    f.WriteDouble(jnDeflectionRatio, m_deflectionRatio);
    f.WriteDouble(jnMaxSettlement, m_maxSettlement);
    f.WriteDouble(jnHStrain, m_hStrain);
    f.WriteInt(jnDamageCategory, m_damageCategory);
    if (f.IsJson())
        f.WriteString(jnCurvature, GetCurvatureAsString(m_curvature));
    else
        f.WriteInt(jnCurvature, m_curvature);
    f.WriteDouble(jnMaxCurvature, m_maxCurvature);
    f.WriteDouble(jnMinCurvature, m_minCurvature);
    f.WriteBool(jnStartOfCombinedSegment, m_startOfCombinedSegment);
    f.WriteDouble(jnMaxTensileStrain, m_maxTensileStrain);
    f.WriteDouble(jnMaxCompressiveStrain, m_maxCompressiveStrain);
    f.WriteBool(jnMaxGradientOfHDispCurveSet, m_maxGradientOfHDispCurveSet);
    f.WriteDouble(jnMaxGradientOfHDispCurve, m_maxGradientOfHDispCurve);
    f.WriteBool(jnMaxGradientOfVDispCurveSet, m_maxGradientOfVDispCurveSet);
    f.WriteDouble(jnMaxGradientOfVDispCurve, m_maxGradientOfVDispCurve);
    f.EndObject();
}

// In JSON the caller has entered the result's object and every field is optional. In
// binary the result's generation v decides its fields: the maximum settlement from 5,
// the two curvatures from 6, the tensile strain from 2, the compressive strain from 3
// and the gradients from 4. A field the record lacks keeps its default.
void CBuildingDamageResult::Read(CDataFile& f, int) {
    const bool json = f.IsJson();
    int v = m_iVer;
    f.ReadInt(jnVersion, v, !json);
    if (json)
        v = m_iVer;
    CheckGeneration(f, "a segment result", v, m_iVer);
    const bool required = !json;
    int curvature = m_curvature;
    f.ReadDouble(jnPlanStart, m_start, required);
    f.ReadDouble(jnPlanEnd, m_end, required);
    f.ReadDouble(jnDeflectionRatio, m_deflectionRatio, required);
    if (v > 4)
        f.ReadDouble(jnMaxSettlement, m_maxSettlement, required);
    f.ReadDouble(jnHStrain, m_hStrain, required);
    f.ReadInt(jnDamageCategory, m_damageCategory, required);
    if (json) {
        CString text;
        if (f.ReadString(jnCurvature, text, false))
            curvature = GetCurvatureFromCStr(text);
    } else {
        f.ReadInt(jnCurvature, curvature);
    }
    if (v >= 6) {
        f.ReadDouble(jnMaxCurvature, m_maxCurvature, required);
        f.ReadDouble(jnMinCurvature, m_minCurvature, required);
    }
    f.ReadBool(jnStartOfCombinedSegment, m_startOfCombinedSegment, required);
    if (v >= 2)
        f.ReadDouble(jnMaxTensileStrain, m_maxTensileStrain, required);
    if (v > 2)
        f.ReadDouble(jnMaxCompressiveStrain, m_maxCompressiveStrain, required);
    if (v > 3) {
        f.ReadBool(jnMaxGradientOfHDispCurveSet, m_maxGradientOfHDispCurveSet, required);
        f.ReadDouble(jnMaxGradientOfHDispCurve, m_maxGradientOfHDispCurve, required);
        f.ReadBool(jnMaxGradientOfVDispCurveSet, m_maxGradientOfVDispCurveSet, required);
        f.ReadDouble(jnMaxGradientOfVDispCurve, m_maxGradientOfVDispCurve, required);
    }
    if (m_damageCategory < CDamageCategoryStrains::eNegligible ||
        m_damageCategory > CDamageCategoryStrains::eSevere)
        f.Fail("a segment result has damage category " + std::to_string(m_damageCategory) +
               ", which is not one of 0 to 4");
    if (curvature < GeoGlobal::eHogging || curvature > GeoGlobal::eNoCurvature)
        f.Fail("a segment result has curvature " + std::to_string(curvature) +
               ", which is not one of 0 (hogging), 1 (sagging) or 2 (none)");
    m_curvature = static_cast<GeoGlobal::ECurvature>(curvature);
}

// ---- CSpecificBuilding ------------------------------------------------------------------

// The stage blocks run to the longest of the four stores; a store that ends before a
// stage writes a count of 0 there. Every list is written from the store itself, one
// element at a time.
void CSpecificBuilding::Write(CDataFile& f) const {
    const bool json = f.IsJson();
    f.BeginObject(jnSpecificBuilding);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, GetName());
    f.WriteString(jnSubBuildingName, m_subBuildingName);
    f.WriteInt(jnLine, m_line);
    m_properties.Write(f);
    f.WriteDouble(jnLineStart, m_lineStart);
    f.WriteDouble(jnLineEnd, m_lineEnd);
    f.WriteDouble(jnHeight, m_height);

    const size_t stages =
        std::max({m_buildingDamageResults.size(), m_combinedBuildingDamageResults.size(),
                  m_horizontalMovementResults.size(), m_verticalMovementResults.size()});
    BeginList(f, jnStageResults, stages);
    for (size_t s = 0; s < stages; ++s) {
        f.BeginObject(jnStage);
        WriteSegments(f, jnOffsetSegments, jnSegments, StageOf(m_buildingDamageResults, s));
        WriteSegments(f, jnCombinedOffsetSegments, jnBuildingDamageResult,
                      StageOf(m_combinedBuildingDamageResults, s));
        WriteSamples(f, jnHorizontalMovements, StageOf(m_horizontalMovementResults, s));
        const auto* vertical = StageOf(m_verticalMovementResults, s);
        BeginList(f, jnVerticalMovementOffsets, vertical ? vertical->size() : 0);
        if (vertical) {
            for (const auto& offset : *vertical) {
                f.BeginObject(jnVerticalMovementOffsets);
                WriteSamples(f, jnVerticalMovements, &offset);
                f.EndObject();
            }
        }
        f.EndArray();
        f.EndObject();
    }
    f.EndArray();

    if (json) {
        f.WriteBool(jnShow, m_show);
        f.WriteBool(jnLabel, m_label);
    } else {
        f.WriteInt(jnShow, m_show ? 1 : 0);
        f.WriteInt(jnLabel, m_label ? 1 : 0);
    }
    f.EndObject();
}

// Binary: a record of a generation below 5 kept its damage properties elsewhere and goes
// to the older reader. Every store is read at the number of stages of the record.
void CSpecificBuilding::Read(CDataFile& f, int generation) {
    const bool json = f.IsJson();
    if (json && !f.EnterObject(jnSpecificBuilding, false))
        return;
    const bool required = !json;
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    if (!json && version < 5)
        return ReadBuildingWithoutCBDProperties(f, version);
    if (!json)
        CheckGeneration(f, "a specific building", version, m_iVer);
    f.ReadString(jnName, AccessName(), required);
    f.ReadString(jnSubBuildingName, m_subBuildingName, required);
    f.ReadInt(jnLine, m_line, required);
    m_properties.Read(f, generation);
    f.ReadDouble(jnLineStart, m_lineStart, required);
    f.ReadDouble(jnLineEnd, m_lineEnd, required);
    f.ReadDouble(jnHeight, m_height, required);

    const int stages = EnterList(f, jnStageResults, kStageBytes);
    const size_t n = static_cast<size_t>(std::max(stages, 0));
    SegmentStore segments(n), combined(n);
    VerticalMovementStore vertical(n);
    HorizontalMovementStore horizontal(n);
    for (size_t s = 0; s < n; ++s) {
        f.EnterElement(static_cast<int>(s));
        ReadSegments(f, jnOffsetSegments, jnSegments, segments[s]);
        ReadSegments(f, jnCombinedOffsetSegments, jnBuildingDamageResult, combined[s]);
        ReadGeoDispResults(f, jnHorizontalMovements, horizontal[s]);
        const int offsets = EnterList(f, jnVerticalMovementOffsets, kListBytes);
        vertical[s].resize(static_cast<size_t>(std::max(offsets, 0)));
        for (int o = 0; o < offsets; ++o) {
            f.EnterElement(o);
            ReadGeoDispResults(f, jnVerticalMovements, vertical[s][static_cast<size_t>(o)]);
            f.LeaveObject();
        }
        LeaveList(f, offsets);
        f.LeaveObject();
    }
    LeaveList(f, stages);
    m_buildingDamageResults = std::move(segments);
    m_combinedBuildingDamageResults = std::move(combined);
    m_verticalMovementResults = std::move(vertical);
    m_horizontalMovementResults = std::move(horizontal);

    if (json) {
        f.ReadBool(jnShow, m_show, false);
        f.ReadBool(jnLabel, m_label, false);
    } else {
        int show = 1, label = 0;
        f.ReadInt(jnShow, show);
        f.ReadInt(jnLabel, label);
        m_show = show != 0;
        m_label = label != 0;
    }
    if (json)
        f.LeaveObject();
}

// The layout of these records, which held no damage properties of their own, is not
// known here: refused with a clear message rather than read as something else.
void CSpecificBuilding::ReadBuildingWithoutCBDProperties(CDataFile& f, int generation) {
    f.Fail("a specific building of generation " + std::to_string(generation) +
           ", from before buildings held their damage properties, which this version "
           "cannot read");
}

} // namespace Tevra::Data
