// Model file records of the generic buildings and their transects.
//
// Binary form: fields one after the other, every list behind its count, each count held
// against what is left of the record before anything is sized by it. JSON form: the same
// fields by name, lists as arrays; a hand-written record may leave out the transects and
// any other field, which then keeps its default.
#include "base/CDataFile.h"
#include "base/DataFileLists.h"
#include "base/GeoDispResultIO.h"
#include "base/JsonNameID.h"
#include "buildings/CGenericBuilding.h"

#include <algorithm>
#include <string>

namespace Tevra::Data {

using namespace FileIO;

namespace {

// Least bytes of one element of each binary list: a tagged integer is 5 bytes, a tagged
// double 9 and an empty text 5.
constexpr size_t kCountBytes = 5;
// A segment result of the first generation: four numbers, three integers and a flag.
constexpr size_t kResultBytes = 4 * 9 + 3 * 5 + 2;
// A stage of movement samples: the counts of its horizontal and vertical lists.
constexpr size_t kMovementStageBytes = 2 * kCountBytes;
// A transect: two generations, a name, the crossing and three stage counts.
constexpr size_t kTransectBytes = 2 * 5 + 5 + 3 * 9 + 3 * kCountBytes;
constexpr size_t kRatioBytes = 9;

// Refuses a generation outside first .. newest: its layout is not known here.
void CheckGeneration(const CDataFile& f, const char* what, int generation, int first,
                     int newest) {
    if (generation < first || generation > newest)
        f.Fail(std::string(what) + " of generation " + std::to_string(generation) +
               ", which this version reads only from " + std::to_string(first) + " to " +
               std::to_string(newest));
}

// Segments by [stage][offset][L/H]: counts and arrays, one level inside the other.
void WriteSegmentStore(CDataFile& f, int stagesName, int offsetName,
                       const CBuildingTransect::SegmentStore& store) {
    BeginList(f, stagesName, store.size());
    for (const auto& stage : store) {
        f.BeginObject(jnStage);
        BeginList(f, jnOffsetSegments, stage.size());
        for (const auto& offset : stage) {
            f.BeginObject(offsetName);
            BeginList(f, jnLOverHSegments, offset.size());
            for (const auto& list : offset) {
                f.BeginObject(jnLOverHSegmentList);
                BeginList(f, jnSegments, list.size());
                for (const CBuildingDamageResult& r : list)
                    r.Write(f);
                f.EndArray();
                f.EndObject();
            }
            f.EndArray();
            f.EndObject();
        }
        f.EndArray();
        f.EndObject();
    }
    f.EndArray();
}

void ReadSegmentStore(CDataFile& f, int stagesName, CBuildingTransect::SegmentStore& store) {
    const int stages = EnterList(f, stagesName, kCountBytes);
    CBuildingTransect::SegmentStore read(static_cast<size_t>(std::max(stages, 0)));
    for (int s = 0; s < stages; ++s) {
        f.EnterElement(s);
        const int offsets = EnterList(f, jnOffsetSegments, kCountBytes);
        auto& stage = read[static_cast<size_t>(s)];
        stage.resize(static_cast<size_t>(std::max(offsets, 0)));
        for (int o = 0; o < offsets; ++o) {
            f.EnterElement(o);
            const int ratios = EnterList(f, jnLOverHSegments, kCountBytes);
            auto& offset = stage[static_cast<size_t>(o)];
            offset.resize(static_cast<size_t>(std::max(ratios, 0)));
            for (int l = 0; l < ratios; ++l) {
                f.EnterElement(l);
                const int count = EnterList(f, jnSegments, kResultBytes);
                auto& list = offset[static_cast<size_t>(l)];
                list.assign(static_cast<size_t>(std::max(count, 0)), CBuildingDamageResult());
                for (int k = 0; k < count; ++k) {
                    f.EnterElement(k);
                    list[static_cast<size_t>(k)].Read(f, -1);
                    f.LeaveObject();
                }
                LeaveList(f, count);
                f.LeaveObject();
            }
            LeaveList(f, ratios);
            f.LeaveObject();
        }
        LeaveList(f, offsets);
        f.LeaveObject();
    }
    LeaveList(f, stages);
    store = std::move(read);
}

} // namespace

// ---- CBuildingTransect -------------------------------------------------------------------

// The movement samples follow the results as a specific building's do: for each stage
// the horizontal list, then the vertical lists by offset.
void CBuildingTransect::Write(CDataFile& f) const {
    f.BeginObject(jnBuildingTransect);
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, m_name);
    f.BeginObject(jnTransectIntersection);
    f.WriteDouble(jnIntersectionX, m_polylineIntersection.x);
    f.WriteDouble(jnIntersectionY, m_polylineIntersection.y);
    f.WriteDouble(jnIntersectionZ, m_polylineIntersection.z);
    f.EndObject();
    WriteSegmentStore(f, jnStageResults, jnLOverHOffset, m_buildingDamageResults);
    WriteSegmentStore(f, jnCombinedStageResults, jnCombinedLOverHOffset,
                      m_combinedBuildingDamageResults);
    static const std::vector<GeoDispResult> none;
    const size_t stages =
        std::max(m_horizontalMovementResults.size(), m_verticalMovementResults.size());
    BeginList(f, jnMovementStages, stages);
    for (size_t s = 0; s < stages; ++s) {
        f.BeginObject(jnStage);
        WriteGeoDispResults(f, jnHorizontalMovements, s < m_horizontalMovementResults.size()
                                                          ? m_horizontalMovementResults[s]
                                                          : none);
        const size_t offsets =
            s < m_verticalMovementResults.size() ? m_verticalMovementResults[s].size() : 0;
        BeginList(f, jnVerticalMovementOffsets, offsets);
        for (size_t o = 0; o < offsets; ++o) {
            f.BeginObject(jnVerticalMovementOffsets);
            WriteGeoDispResults(f, jnVerticalMovements, m_verticalMovementResults[s][o]);
            f.EndObject();
        }
        f.EndArray();
        f.EndObject();
    }
    f.EndArray();
    f.EndObject();
}

// In JSON the element is entered by the list's reader. The transect is read whole into a
// new one and taken only once complete.
void CBuildingTransect::Read(CDataFile& f) {
    const bool json = f.IsJson();
    const bool required = !json;
    CBuildingTransect read;
    int version = m_iVer;
    f.ReadInt(jnVersion, version, required);
    CheckGeneration(f, "a building transect", version, m_iVer, m_iVer);
    f.ReadString(jnName, read.m_name, required);
    if (f.EnterObject(jnTransectIntersection, required)) {
        f.ReadDouble(jnIntersectionX, read.m_polylineIntersection.x, required);
        f.ReadDouble(jnIntersectionY, read.m_polylineIntersection.y, required);
        f.ReadDouble(jnIntersectionZ, read.m_polylineIntersection.z, required);
        if (json)
            f.LeaveObject();
    }
    ReadSegmentStore(f, jnStageResults, read.m_buildingDamageResults);
    ReadSegmentStore(f, jnCombinedStageResults, read.m_combinedBuildingDamageResults);
    const int stages = EnterList(f, jnMovementStages, kMovementStageBytes);
    const size_t n = static_cast<size_t>(std::max(stages, 0));
    read.m_horizontalMovementResults.resize(n);
    read.m_verticalMovementResults.resize(n);
    for (size_t s = 0; s < n; ++s) {
        f.EnterElement(static_cast<int>(s));
        ReadGeoDispResults(f, jnHorizontalMovements, read.m_horizontalMovementResults[s]);
        const int offsets = EnterList(f, jnVerticalMovementOffsets, kCountBytes);
        auto& vertical = read.m_verticalMovementResults[s];
        vertical.resize(static_cast<size_t>(std::max(offsets, 0)));
        for (int o = 0; o < offsets; ++o) {
            f.EnterElement(o);
            ReadGeoDispResults(f, jnVerticalMovements, vertical[static_cast<size_t>(o)]);
            f.LeaveObject();
        }
        LeaveList(f, offsets);
        f.LeaveObject();
    }
    LeaveList(f, stages);
    *this = std::move(read);
}

// ---- CGenericBuilding --------------------------------------------------------------------

// In binary each transect stands behind the transect generation, and its own record
// repeats it.
void CGenericBuilding::Write(CDataFile& f) const {
    const bool json = f.IsJson();
    f.BeginObject(jnGenericBuilding);
    f.WriteString(jnName, GetName());
    f.WriteInt(jnPolyline, m_polyline);
    f.WriteDouble(jnInterval, m_interval);
    f.WriteDouble(jnLength, m_length);
    f.WriteInt(jnDispPoints, m_dispPoints);
    if (json) {
        f.WriteDoubleArray(jnLOverHRatios, m_lOverH);
    } else {
        f.WriteInt(jnLOverHRatios, NumLOverH());
        for (double v : m_lOverH)
            f.WriteDouble(jnLOverHRatios, v);
    }
    m_properties.Write(f);
    BeginList(f, jnTransects, m_transects.size());
    for (const CBuildingTransect& t : m_transects) {
        if (!json)
            f.WriteInt(jnVersion, CBuildingTransect::GetVersion());
        t.Write(f);
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

// generation is the module's: records of earlier generations, laid out otherwise, are
// refused. The record is read whole into a new building and taken only once complete.
void CGenericBuilding::Read(CDataFile& f, int generation) {
    const bool json = f.IsJson();
    if (!json)
        CheckGeneration(f, "a generic building", generation, m_iVer, m_iVer);
    if (json && !f.EnterObject(jnGenericBuilding, false))
        return;
    const bool required = !json;
    CGenericBuilding read;
    f.ReadString(jnName, read.AccessName(), required);
    f.ReadInt(jnPolyline, read.m_polyline, required);
    f.ReadDouble(jnInterval, read.m_interval, required);
    f.ReadDouble(jnLength, read.m_length, required);
    f.ReadInt(jnDispPoints, read.m_dispPoints, required);
    if (json) {
        f.ReadDoubleArray(jnLOverHRatios, read.m_lOverH, false);
    } else {
        int count = 0;
        f.ReadInt(jnLOverHRatios, count);
        f.CheckCount(jnLOverHRatios, count, kRatioBytes);
        read.m_lOverH.resize(static_cast<size_t>(count));
        for (double& v : read.m_lOverH)
            f.ReadDouble(jnLOverHRatios, v);
    }
    read.m_properties.Read(f, generation);
    const int n = EnterList(f, jnTransects, kTransectBytes);
    read.m_transects.resize(static_cast<size_t>(std::max(n, 0)));
    for (int t = 0; t < n; ++t) {
        f.EnterElement(t);
        if (!json) {
            int version = 0;
            f.ReadInt(jnVersion, version);
            CheckGeneration(f, "a building transect", version, CBuildingTransect::GetVersion(),
                            CBuildingTransect::GetVersion());
        }
        read.m_transects[static_cast<size_t>(t)].Read(f);
        f.LeaveObject();
    }
    LeaveList(f, n);
    if (json) {
        f.ReadBool(jnShow, read.m_show, false);
        f.ReadBool(jnLabel, read.m_label, false);
    } else {
        int show = 0, label = 0;
        f.ReadInt(jnShow, show);
        f.ReadInt(jnLabel, label);
        read.m_show = show != 0;
        read.m_label = label != 0;
    }
    if (json)
        f.LeaveObject();
    read.m_readVersion = m_iVer;
    *this = std::move(read);
}

} // namespace Tevra::Data
