// Specific buildings in the project: whether they can be assessed, their profiles and
// positions on their lines, and their stores of results.
#include "ZorvoData.h"

namespace Tevra::Data {

CBuildingProfile::EStatus ZorvoData::GetVerticalDisplacementsWRTBuilding(
    int stage, int building, int offset, CTableT<double>& table) const {
    const CSpecificBuilding& b = GetSpecificBuilding(building);
    const CDisplacementLine& line = GetDisplacementLine(b.GetLine());
    return CBuildingProfile::VerticalProfile(line.GetPoint1(), line.GetPoint2(),
                                             line.GetIntervalsAlongLine(),
                                             b.GetVerticalMovementResults(stage, offset),
                                             b.GetLineStart(), b.GetLineEnd(), table);
}

CBuildingProfile::EStatus
ZorvoData::GetHorizontalDisplacementsWRTBuilding(int stage, int building,
                                                 CTableT<double>& table) const {
    const CSpecificBuilding& b = GetSpecificBuilding(building);
    const CDisplacementLine& line = GetDisplacementLine(b.GetLine());
    return CBuildingProfile::HorizontalProfile(
        line.GetPoint1(), line.GetPoint2(), line.GetIntervalsAlongLine(),
        GetSpecificBuildingPlanLength(building), b.GetHorizontalMovementResults(stage),
        b.GetLineStart(), b.GetLineEnd(), table);
}

double ZorvoData::GetSpecificBuildingPlanLength(int building) const {
    const CDisplacementLine& line = GetDisplacementLine(GetSpecificBuilding(building).GetLine());
    return CBuildingProfile::PlanLength(line.GetPoint1(), line.GetPoint2());
}

namespace {

Vec3<double> AtDistance(const CDisplacementLine& line, double d) {
    return CBuildingProfile::PointOnLine(line.GetPoint1(), line.GetPoint2(), line.GetLength(false),
                                         d);
}

} // namespace

Vec3<double> ZorvoData::GetSpecificBuildingStart(int building) const {
    const CSpecificBuilding& b = GetSpecificBuilding(building);
    return AtDistance(GetDisplacementLine(b.GetLine()), b.GetLineStart());
}

Vec3<double> ZorvoData::GetSpecificBuildingEnd(int building) const {
    const CSpecificBuilding& b = GetSpecificBuilding(building);
    return AtDistance(GetDisplacementLine(b.GetLine()), b.GetLineEnd());
}

namespace {

const std::vector<CBuildingDamageResult>& SegmentsAt(const CSpecificBuilding& b, int stage,
                                                     int offset, bool combined) {
    static const std::vector<CBuildingDamageResult> none;
    const CSpecificBuilding::SegmentStore& store =
        combined ? b.GetCombinedBuildingDamageResults() : b.GetBuildingDamageResults();
    if (stage < 0 || offset < 0 || static_cast<size_t>(stage) >= store.size() ||
        static_cast<size_t>(offset) >= store[static_cast<size_t>(stage)].size())
        return none;
    return store[static_cast<size_t>(stage)][static_cast<size_t>(offset)];
}

} // namespace

Vec3<double> ZorvoData::GetSpecificBuildingSegmentStartCoordinates(int stage, int building,
                                                                   int offset, int segment,
                                                                   bool combined) const {
    const CSpecificBuilding& b = GetSpecificBuilding(building);
    return AtDistance(GetDisplacementLine(b.GetLine()),
                      CBuildingProfile::SegmentStartDistance(
                          SegmentsAt(b, stage, offset, combined), segment));
}

Vec3<double> ZorvoData::GetSpecificBuildingSegmentEndCoordinates(int stage, int building,
                                                                 int offset, int segment,
                                                                 bool combined) const {
    const CSpecificBuilding& b = GetSpecificBuilding(building);
    return AtDistance(GetDisplacementLine(b.GetLine()),
                      CBuildingProfile::SegmentEndDistance(SegmentsAt(b, stage, offset, combined),
                                                           segment));
}

bool ZorvoData::SpecificBuildingDamageResultsExist(int stage, int building, bool combined) const {
    const int stages = NumStages(true, false);
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        if (building != -1 && b != building)
            continue;
        for (int s = 0; s < stages; ++s)
            if ((stage == -1 || s == stage) &&
                GetSpecificBuilding(b).BuildingDamageResultsExist(s, combined))
                return true;
    }
    return false;
}

int ZorvoData::NumSpecificBuildingResults(int stage, int building, bool combined) const {
    size_t n = 0;
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        if (building != -1 && b != building)
            continue;
        const CSpecificBuilding& sb = GetSpecificBuilding(b);
        const CSpecificBuilding::SegmentStore& store =
            combined ? sb.GetCombinedBuildingDamageResults() : sb.GetBuildingDamageResults();
        for (size_t s = 0; s < store.size(); ++s)
            if (stage == -1 || static_cast<int>(s) == stage)
                for (const auto& segments : store[s])
                    n += segments.size();
    }
    return static_cast<int>(n);
}

void ZorvoData::DeleteSpecificBDResults(int stage, bool combined) {
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        CSpecificBuilding building = GetSpecificBuilding(b);
        building.DeleteBuildingDamageResults(stage, combined);
        SetSpecificBuilding(b, building);
    }
}

void ZorvoData::DeleteSpecificBDResults(int stage) {
    DeleteSpecificBDResults(stage, true);
    DeleteSpecificBDResults(stage, false);
}

void ZorvoData::DeleteBuildingMovementResults(int stage) {
    for (int b = 1; b <= NumSpecificBuildings(); ++b)
        AccessSpecificBuilding(b).DeleteMovementResults(stage);
}

bool ZorvoData::CombinedSegmentsExist_SpecificBuilding(int stage, int building, int offset) const {
    for (int b = 1; b <= NumSpecificBuildings(); ++b)
        if ((building == -1 || b == building) &&
            GetSpecificBuilding(b).CombinedSegmentsExist(stage, offset))
            return true;
    return false;
}

void ZorvoData::CombinedSegmentsSeparate_SpecificBuilding(int stage, int building, int offset) {
    for (int b = 1; b <= NumSpecificBuildings(); ++b)
        if (building == -1 || b == building)
            AccessSpecificBuilding(b).SeparateCombinedSegments(stage, offset);
}

bool ZorvoData::GetSpecificBuildingsWithCombinedSegmentsVisible(bool all) const {
    if (NumSpecificBuildings() == 0)
        return false;
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        const bool has = GetSpecificBuilding(b).BuildingDamageResultsExist(-1, true);
        if (all && !has)
            return false;
        if (!all && has)
            return true;
    }
    return all;
}

} // namespace Tevra::Data
