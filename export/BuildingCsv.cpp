// The specific buildings' result tables: segments as the settlement curve cuts them and as
// the user joined them, and the critical values of each building at each vertical offset.
// Every row starts with its table's token, so that several tables can share one file.
#include "document/ZorvoData.h"
#include "export/CCsvRow.h"

namespace Tevra::Data {

namespace {

const wchar_t* const kUncombinedToken = L"BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS";
const wchar_t* const kCombinedToken = L"BDA_SPECIFIC_RESULT_COMBINED_SEGMENTS";
const wchar_t* const kCriticalToken = L"BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES";

// A no-value cell: a quantity that was not found.
const wchar_t* const kNoValue = L"-";

// The cells every row of a specific building starts with: token, stage unless left out,
// building number, name and sub-building name, and the offset numbered from 1.
CCsvRow BuildingRow(const wchar_t* token, const SCSVExportData& data, int stage, int b,
                const CSpecificBuilding& building, int offset) {
    CCsvRow row(token);
    if (!data.leaveOutStage)
        row.Int(stage);
    row.Int(b).Text(building.Name()).Text(building.GetSubBuildingName()).Int(offset + 1);
    return row;
}

} // namespace

void ZorvoData::WriteCSVBDAResults(CStdioFile& file, const CUnit& unit,
                                   const SCSVExportData& data) const {
    if (!data.specificUncombined && !data.specificCombined)
        return;
    CCsvRow::WriteUnitHeading(file, unit);
    const double length = unit.Conversion(CCsvRow::kLength);
    // Segment rows of one store; the combined store only where the user joined segments.
    auto writeStore = [&](int stage, bool combined) {
        const wchar_t* token = combined ? kCombinedToken : kUncombinedToken;
        for (int b = 1; b <= NumSpecificBuildings(); ++b) {
            const CSpecificBuilding& building = GetSpecificBuilding(b);
            const int offsets = building.GetBuildingDamageProperties().NumberOfVerticalOffsets();
            for (int o = 0; o < offsets; ++o) {
                if (combined && !building.CombinedSegmentsExist(stage, o))
                    continue;
                const int segments = building.NumBuildingDamageResults(stage, combined, o);
                for (int seg = 1; seg <= segments; ++seg) {
                    CCsvRow row = BuildingRow(token, data, stage, b, building, o);
                    row.Int(seg)
                        .Point(
                            GetSpecificBuildingSegmentStartCoordinates(stage, b, o, seg, combined),
                            length)
                        .Point(GetSpecificBuildingSegmentEndCoordinates(stage, b, o, seg, combined),
                               length)
                        .Int(building.GetBuildingDamageResult(stage, combined, o, seg)
                                 .GetDamageCategory())
                        .WriteTo(file);
                }
            }
        }
    };
    for (int stage = 0; stage < data.numStages; ++stage) {
        if (!data.StageWanted(stage))
            continue;
        if (data.specificUncombined)
            writeStore(stage, false);
        if (data.specificCombined)
            writeStore(stage, true);
    }
}

void ZorvoData::WriteCSVBDAResults_CritValues(CStdioFile& file, const CUnit& unit,
                                              const SCSVExportData& data) const {
    CCsvRow::WriteUnitHeading(file, unit);
    const double length = unit.Conversion(CCsvRow::kLength);
    const double settlement = unit.Conversion(CCsvRow::kDisplacement);
    const double ratio = unit.Conversion(CCsvRow::kRatio);
    const double gradient = unit.Conversion(CCsvRow::kNoDimension);
    for (int stage = 0; stage < data.numStages; ++stage) {
        if (!data.StageWanted(stage))
            continue;
        for (int b = 1; b <= NumSpecificBuildings(); ++b) {
            const CSpecificBuilding& building = GetSpecificBuilding(b);
            const int offsets = building.GetBuildingDamageProperties().NumberOfVerticalOffsets();
            // Every offset has its row, with or without results.
            for (int o = 0; o < offsets; ++o) {
                CCsvRow row = BuildingRow(kCriticalToken, data, stage, b, building, o);
                row.Real(building.GetMaxDeflnRatio(stage, o) * ratio)
                    .Real(building.GetMaxHorizStrain(stage, o) * ratio)
                    .Real(building.GetMaxGradientOfVDispCurve(stage, o) * gradient)
                    .Real(building.GetMaxSettlement(stage, o) * settlement)
                    .Real(building.GetMaxTensileStrain(stage, o) * ratio);
                if (building.GetMaxGradientOfHDispCurveSet(stage, o))
                    row.Real(building.GetMaxGradientOfHDispCurve(stage, o) * gradient);
                else
                    row.Text(kNoValue);
                if (building.GetMaxGradientOfVDispCurveSet(stage, o))
                    row.Real(building.GetMaxGradientOfVDispCurve(stage, o) * gradient);
                else
                    row.Text(kNoValue);
                // Minimum radii of curvature, hogging then sagging: the inverse of the
                // largest curvature of that sense.
                for (GeoGlobal::ECurvature sense : {GeoGlobal::eHogging, GeoGlobal::eSagging}) {
                    const double curvature = building.GetMaxCurvature(stage, o, sense);
                    if (curvature == 0.0)
                        row.Text(kNoValue);
                    else
                        row.Real(1.0 / curvature * length);
                }
                row.Int(building.GetMaxDamageCategory(stage, o)).WriteTo(file);
            }
        }
    }
}

} // namespace Tevra::Data
