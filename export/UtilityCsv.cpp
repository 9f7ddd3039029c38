// The utilities' result tables: the joints of every joint layout with their pullouts,
// rotations and verdicts; the strain rows with their totals, radius and verdicts; and
// what was sampled at each joint and one pipe length to either side. Every row starts
// with its table's token, so that several tables can share one file, and each table
// opens with a row naming its columns.
#include "document/ZorvoData.h"
#include "export/CCsvRow.h"
#include "export/CUDAExportCSVDisps.h"
#include "export/CUDAExportCSVPR.h"
#include "export/CUDAExportCSVStrains.h"

#include <array>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Tevra::Data {

namespace {

const wchar_t* const kPulloutsToken = L"UDA_SPECIFIC_RESULT_PULLOUTS_ROTATIONS";
const wchar_t* const kStrainsToken = L"UDA_SPECIFIC_RESULT_STRAINS";
const wchar_t* const kCoordsToken = L"UDA_SPECIFIC_RESULT_COODS_DISPS";
const wchar_t* const kGenericPulloutsToken = L"UDA_GENERIC_RESULT_PULLOUTS_ROTATIONS";
const wchar_t* const kGenericStrainsToken = L"UDA_GENERIC_RESULT_STRAINS";
const wchar_t* const kGenericCoordsToken = L"UDA_GENERIC_RESULT_COODS_DISPS";

// Cells of a verdict and of a quantity that does not exist.
const wchar_t* const kPasses = L"OK";
const wchar_t* const kFails = L"Fails";
const wchar_t* const kNoValue = L"-";

// Whether a column is written, by its key.
using ColumnOn = std::function<bool(const wchar_t*)>;

// Conversions to the display units of a table.
struct SUnits {
    double length;
    double displacement;
};

// One joint of a layout, where it lies, and the criteria it is judged by.
struct SJointCell {
    int iteration;
    const CPulloutAndRotation& joint;
    Vec3<double> point;
    const CAcceptanceCriteria& criteria;
    SUnits units;
};

// One strain row, where it lies, and how it is judged.
struct SStrainCell {
    const CUtilityStrain& strain;
    Vec3<double> point;
    const CAcceptanceCriteria& criteria;
    bool neglect;
    SUnits units;
};

// A verdict against one threshold or limit: "-" when it is not used.
const wchar_t* Verdict(bool used, bool exceeded) {
    if (!used)
        return kNoValue;
    return exceeded ? kFails : kPasses;
}

template <class Cell> struct SColumn {
    const wchar_t* key;
    void (*write)(CCsvRow&, const Cell&);
};

// Joint columns after the name and polyline: pullouts in displacement units, rotations
// in degrees, the pullout verdicts on the factored total and the rotation verdicts on the
// factored rotation.
const SColumn<SJointCell> kJointColumns[] = {
    {L"IterationNo", [](CCsvRow& r, const SJointCell& c) { r.Int(c.iteration); }},
    {L"Location",
     [](CCsvRow& r, const SJointCell& c) { r.Real(c.joint.GetLocation() * c.units.length); }},
    {L"X", [](CCsvRow& r, const SJointCell& c) { r.Real(c.point.x * c.units.length); }},
    {L"Y", [](CCsvRow& r, const SJointCell& c) { r.Real(c.point.y * c.units.length); }},
    {L"Z", [](CCsvRow& r, const SJointCell& c) { r.Real(c.point.z * c.units.length); }},
    {L"AxialUnfactLeft",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Axial_Left() * c.units.displacement);
     }},
    {L"AxialFactLeft",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Axial_Left() * c.criteria.GetPulloutRF_Axial() *
                c.units.displacement);
     }},
    {L"FlexuralUnfactLeft",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Flexural() * c.units.displacement);
     }},
    {L"FlexuralFactLeft",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Flexural() * c.criteria.GetPulloutRF_Flexural() *
                c.units.displacement);
     }},
    {L"AxialUnfactRight",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Axial_Right() * c.units.displacement);
     }},
    {L"AxialFactRight",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Axial_Right() * c.criteria.GetPulloutRF_Axial() *
                c.units.displacement);
     }},
    {L"FlexuralUnfactRight",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Flexural() * c.units.displacement);
     }},
    {L"FlexuralFactRight",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Flexural() * c.criteria.GetPulloutRF_Flexural() *
                c.units.displacement);
     }},
    {L"AxialUnfact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Axial_Total() * c.units.displacement);
     }},
    {L"AxialFact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Axial_Total() * c.criteria.GetPulloutRF_Axial() *
                c.units.displacement);
     }},
    {L"FlexuralUnfact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Flexural_Total() * c.units.displacement);
     }},
    {L"FlexuralFact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPullout_Flexural_Total() * c.criteria.GetPulloutRF_Flexural() *
                c.units.displacement);
     }},
    {L"TotalUnfact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPulloutTotal() * c.units.displacement);
     }},
    {L"TotalFact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetPulloutTotal_Factored(c.criteria) * c.units.displacement);
     }},
    {L"POThresholdCheck",
     [](CCsvRow& r, const SJointCell& c) {
         r.Text(Verdict(c.criteria.IsPullout_Threshold_Used(),
                        c.joint.GetPulloutTotal_Factored(c.criteria) >
                            c.criteria.GetPullout_Threshold()));
     }},
    {L"POLimitCheck",
     [](CCsvRow& r, const SJointCell& c) {
         r.Text(Verdict(c.criteria.IsPullout_Limit_Used(),
                        c.joint.GetPulloutTotal_Factored(c.criteria) >
                            c.criteria.GetPullout_Limit()));
     }},
    {L"RotationUnfact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetResult(UtilityGlobal::eRotationDegrees, c.criteria));
     }},
    {L"RotationFact",
     [](CCsvRow& r, const SJointCell& c) {
         r.Real(c.joint.GetResult(UtilityGlobal::eRotationDegreesFactored, c.criteria));
     }},
    {L"RotationThresh",
     [](CCsvRow& r, const SJointCell& c) {
         r.Text(Verdict(c.criteria.IsRotation_Threshold_Used(),
                        c.joint.GetResult(UtilityGlobal::eRotationDegreesFactored, c.criteria) >
                            c.criteria.GetRotation_Threshold()));
     }},
    {L"RotationLimit",
     [](CCsvRow& r, const SJointCell& c) {
         r.Text(Verdict(c.criteria.IsRotation_Limit_Used(),
                        c.joint.GetResult(UtilityGlobal::eRotationDegreesFactored, c.criteria) >
                            c.criteria.GetRotation_Limit()));
     }},
    {L"VerticalSagHog",
     [](CCsvRow& r, const SJointCell& c) {
         r.Text(CBuildingDamageResult::GetCurvatureAsString(c.joint.GetVerticalCurvature()));
     }},
};

// Strain columns after the name and polyline, in microstrain: the flexural strain of the
// tensile fibre and (negative) of the compressive fibre, each unfactored and factored;
// the totals with the option that neglects a beneficial axial strain; the radius in
// length units, "-" where the pipe does not bend.
const SColumn<SStrainCell> kStrainColumns[] = {
    {L"Location",
     [](CCsvRow& r, const SStrainCell& c) { r.Real(c.strain.GetLocation() * c.units.length); }},
    {L"X", [](CCsvRow& r, const SStrainCell& c) { r.Real(c.point.x * c.units.length); }},
    {L"Y", [](CCsvRow& r, const SStrainCell& c) { r.Real(c.point.y * c.units.length); }},
    {L"Z", [](CCsvRow& r, const SStrainCell& c) { r.Real(c.point.z * c.units.length); }},
    {L"AxialUnfact", [](CCsvRow& r, const SStrainCell& c) { r.Real(c.strain.GetAxialStrainInMicro()); }},
    {L"AxialFact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetAxialStrainInMicro_Factored(c.criteria));
     }},
    {L"TensionUnfact",
     [](CCsvRow& r, const SStrainCell& c) { r.Real(c.strain.GetFlexuralStrainInMicro()); }},
    {L"TensionFact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetFlexuralStrainInMicro_Factored(c.criteria, true));
     }},
    {L"CompressionUnfact",
     [](CCsvRow& r, const SStrainCell& c) { r.Real(-c.strain.GetFlexuralStrainInMicro()); }},
    {L"CompressionFact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(-c.strain.GetFlexuralStrainInMicro_Factored(c.criteria, false));
     }},
    {L"TotalTensionUnfact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetTotalTensileStrainInMicro(c.criteria, c.neglect, false));
     }},
    {L"TotalTensionFact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetTotalTensileStrainInMicro(c.criteria, c.neglect, true));
     }},
    {L"TotalTensionCheck",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Text(Verdict(c.criteria.IsAllowableStrain_Tension_Used(),
                        c.strain.GetTotalTensileStrainInMicro(c.criteria, c.neglect, true) >
                            c.criteria.GetAllowableStrain_Tension()));
     }},
    {L"TotalCompressionUnfact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetTotalCompressiveStrainInMicro(c.criteria, c.neglect, false));
     }},
    {L"TotalCompressionFact",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetTotalCompressiveStrainInMicro(c.criteria, c.neglect, true));
     }},
    {L"TotalCompressionCheck",
     [](CCsvRow& r, const SStrainCell& c) {
         // Compression is negative: its magnitude is judged, as the verdict judges it.
         const double total = c.strain.GetTotalCompressiveStrainInMicro(c.criteria, c.neglect, true);
         r.Text(Verdict(c.criteria.IsAllowableStrain_Compression_Used(),
                        total < 0.0 && -total > c.criteria.GetAllowableStrain_Compression()));
     }},
    {L"RAD",
     [](CCsvRow& r, const SStrainCell& c) {
         if (c.strain.GetIsRadiusofCurvature())
             r.Real(c.strain.GetRadiusofCurvature() * c.units.length);
         else
             r.Text(kNoValue);
     }},
    {L"RADThreshCheck",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Text(Verdict(c.criteria.IsRAD_Threshold_Used() && c.strain.GetIsRadiusofCurvature(),
                        c.criteria.GetRAD_Threshold() > c.strain.GetRadiusofCurvature()));
     }},
    {L"RADLimitCheck",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Text(Verdict(c.criteria.IsRAD_Limit_Used() && c.strain.GetIsRadiusofCurvature(),
                        c.criteria.GetRAD_Limit() > c.strain.GetRadiusofCurvature()));
     }},
    // The strain the tensile fibre sees, flexure plus the factored axial strain, whether
    // or not the option neglects a beneficial axial strain in the totals.
    {L"PeakFlexTensStrain",
     [](CCsvRow& r, const SStrainCell& c) {
         r.Real(c.strain.GetTotalTensileStrainInMicro(c.criteria, false, true));
     }},
};

// What was sampled at a joint: displacement in X, Y and Z, along the pipe and across it,
// at the joint and one pipe length behind and ahead.
struct SSampleColumn {
    const wchar_t* key;
    double (*value)(const CUtilityLocationInfo&);
};

const SSampleColumn kSampleColumns[] = {
    {L"DispXN", [](const CUtilityLocationInfo& i) { return i.GetDisplacementN().x; }},
    {L"DispYN", [](const CUtilityLocationInfo& i) { return i.GetDisplacementN().y; }},
    {L"DispZN", [](const CUtilityLocationInfo& i) { return i.GetDisplacementN().z; }},
    {L"DispHorizN", [](const CUtilityLocationInfo& i) { return i.GetParallelN(); }},
    {L"DispPerpN", [](const CUtilityLocationInfo& i) { return i.GetPerpendicularN(); }},
    {L"DispXNminus", [](const CUtilityLocationInfo& i) { return i.GetDisplacementNMinus().x; }},
    {L"DispYNminus", [](const CUtilityLocationInfo& i) { return i.GetDisplacementNMinus().y; }},
    {L"DispZNminus", [](const CUtilityLocationInfo& i) { return i.GetDisplacementNMinus().z; }},
    {L"DispHorizNminus", [](const CUtilityLocationInfo& i) { return i.GetParallelNMinus(); }},
    {L"DispPerpNminus", [](const CUtilityLocationInfo& i) { return i.GetPerpendicularNMinus(); }},
    {L"DispXNplus", [](const CUtilityLocationInfo& i) { return i.GetDisplacementNPlus().x; }},
    {L"DispYNplus", [](const CUtilityLocationInfo& i) { return i.GetDisplacementNPlus().y; }},
    {L"DispZNplus", [](const CUtilityLocationInfo& i) { return i.GetDisplacementNPlus().z; }},
    {L"DispHorizNplus", [](const CUtilityLocationInfo& i) { return i.GetParallelNPlus(); }},
    {L"DispPerpNplus", [](const CUtilityLocationInfo& i) { return i.GetPerpendicularNPlus(); }},
};

// The leading columns of every row: the object's name and the line or polyline it lies on.
const wchar_t* const kName = L"Name";
const wchar_t* const kPolyline = L"Polyline";

// One pipe's results at a stage as the tables read them: the cells that name it and the
// point at a distance along it.
struct SPipeRows {
    CString name;
    CString polyline;
    // A transect's number and end points, by their keys: written after the polyline.
    std::vector<std::pair<const wchar_t*, CString>> transect;
    std::function<Vec3<double>(double)> pointAt;
};

CCsvRow LeadingCells(const wchar_t* token, const SCSVExportData& data, int stage,
                     const SPipeRows& pipe, const ColumnOn& on) {
    CCsvRow row(token);
    if (!data.leaveOutStage)
        row.Int(stage);
    if (on(kName))
        row.Text(pipe.name);
    if (on(kPolyline))
        row.Text(pipe.polyline);
    for (const auto& cell : pipe.transect)
        if (on(cell.first))
            row.Text(cell.second);
    return row;
}

// The keys of a table's columns after the name and polyline, in order.
template <class Column, size_t N> std::vector<const wchar_t*> Keys(const Column (&columns)[N]) {
    std::vector<const wchar_t*> keys;
    for (const Column& c : columns)
        keys.push_back(c.key);
    return keys;
}

// The transect block of the generic tables, after the polyline.
const wchar_t* const kTransectKeys[] = {L"Transect",     L"TransectStartX", L"TransectStartY",
                                        L"TransectStartZ", L"TransectEndX",  L"TransectEndY",
                                        L"TransectEndZ"};

// The row naming a table's columns, under the table's own token; withTransect for the
// generic tables.
void WriteColumnNames(CStdioFile& file, const wchar_t* token, const SCSVExportData& data,
                      const std::vector<const wchar_t*>& keys, const ColumnOn& on,
                      bool withTransect = false) {
    CCsvRow row(token);
    if (!data.leaveOutStage)
        row.Text(L"Stage");
    for (const wchar_t* key : {kName, kPolyline})
        if (on(key))
            row.Text(key);
    if (withTransect)
        for (const wchar_t* key : kTransectKeys)
            if (on(key))
                row.Text(key);
    for (const wchar_t* key : keys)
        if (on(key))
            row.Text(key);
    row.WriteTo(file);
}

// The columns of the sampled-movement table before the samples.
const wchar_t* const kSamplePlaceKeys[] = {L"IterationNo", L"Location", L"X", L"Y", L"Z"};

std::vector<const wchar_t*> SampleKeys() {
    std::vector<const wchar_t*> keys(std::begin(kSamplePlaceKeys), std::end(kSamplePlaceKeys));
    for (const SSampleColumn& c : kSampleColumns)
        keys.push_back(c.key);
    return keys;
}

template <class Holder>
void WriteJointRows(CStdioFile& file, const wchar_t* token, const SCSVExportData& data, int stage,
                    const Holder& holder, const SPipeRows& pipe,
                    const CAcceptanceCriteria& criteria, SUnits units, const ColumnOn& on) {
    for (int t = 1; t <= holder.NumPulloutAndRotationIterations(stage); ++t)
        for (const CPulloutAndRotation& joint : holder.GetPulloutAndRotationIteration(stage, t)) {
            const SJointCell cell{t, joint, pipe.pointAt(joint.GetLocation()), criteria, units};
            CCsvRow row = LeadingCells(token, data, stage, pipe, on);
            for (const SColumn<SJointCell>& c : kJointColumns)
                if (on(c.key))
                    c.write(row, cell);
            row.WriteTo(file);
        }
}

template <class Holder>
void WriteSampleRows(CStdioFile& file, const wchar_t* token, const SCSVExportData& data, int stage,
                     const Holder& holder, const SPipeRows& pipe, SUnits units,
                     const ColumnOn& on) {
    for (int t = 1; t <= holder.NumPulloutAndRotationIterations(stage); ++t)
        for (const CPulloutAndRotation& joint : holder.GetPulloutAndRotationIteration(stage, t)) {
            CCsvRow row = LeadingCells(token, data, stage, pipe, on);
            const Vec3<double> p = pipe.pointAt(joint.GetLocation());
            const double place[] = {joint.GetLocation(), p.x, p.y, p.z};
            if (on(kSamplePlaceKeys[0]))
                row.Int(t);
            for (int k = 0; k < 4; ++k)
                if (on(kSamplePlaceKeys[k + 1]))
                    row.Real(place[k] * units.length);
            for (const SSampleColumn& c : kSampleColumns)
                if (on(c.key))
                    row.Real(c.value(joint.GetLocationInfo()) * units.displacement);
            row.WriteTo(file);
        }
}

template <class Holder>
void WriteStrainRows(CStdioFile& file, const wchar_t* token, const SCSVExportData& data, int stage,
                     const Holder& holder, const SPipeRows& pipe,
                     const CAcceptanceCriteria& criteria, bool neglect, SUnits units,
                     const ColumnOn& on) {
    for (const CUtilityStrain& strain : holder.GetUtilityStrains(stage)) {
        const SStrainCell cell{strain, pipe.pointAt(strain.GetLocation()), criteria, neglect,
                               units};
        CCsvRow row = LeadingCells(token, data, stage, pipe, on);
        for (const SColumn<SStrainCell>& c : kStrainColumns)
            if (on(c.key))
                c.write(row, cell);
        row.WriteTo(file);
    }
}

bool AllColumns(const wchar_t*) { return true; }

} // namespace

// ---- Specific utilities ---------------------------------------------------------------

namespace {

// A specific utility's cells and its initial points, read from its coordinate tables of
// the stage; null when its line, dimension or criteria do not exist.
bool SpecificPipe(const ZorvoData& doc, int stage, int u, SPipeRows& pipe) {
    const CSpecificUtility& utility = doc.GetSpecificUtility(u);
    if (utility.GetCriteria() < 1 || utility.GetCriteria() > doc.NumAcceptanceCriteria())
        return false;
    const bool onPolyline =
        utility.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline;
    const int index = onPolyline ? utility.GetDisplacementPolyline() : utility.GetDisplacementLine();
    if (index < 1 ||
        index > (onPolyline ? doc.NumDisplacementPolylines(false) : doc.NumDisplacementLines(false)))
        return false;
    pipe.name = CString::Formatted(L"Specific Utility %i : %s", u, utility.Name().GetString());
    pipe.polyline =
        onPolyline ? CString::Formatted(L"Polyline %i : %s", index,
                                        doc.GetDisplacementPolyline(index).Name().GetString())
                   : CString::Formatted(L"Line %i : %s", index,
                                        doc.GetDisplacementLine(index).Name().GetString());
    auto tables = std::make_shared<std::array<CTableD, 6>>();
    auto& t = *tables;
    doc.GetInitialAndDisplPositionsWRTUtility(stage, u, t[0], t[1], t[2], t[3], t[4], t[5]);
    pipe.pointAt = [tables](double x) {
        const auto& c = *tables;
        return Vec3<double>(c[0].GetValue(x, true), c[1].GetValue(x, true), c[2].GetValue(x, true));
    };
    return true;
}

} // namespace

void ZorvoData::WriteCSVUDAResults(CStdioFile& file, const CUnit& unit,
                                   const SCSVExportData& data) const {
    CCsvRow::WriteUnitHeading(file, unit);
    WriteCSVUDAPulloutsRotations(file, unit, data);
    WriteCSVUDAStrains(file, unit, data);
    WriteCSVUDACoodsDisps(file, unit, data);
}

void ZorvoData::WriteCSVUDAPulloutsRotations(CStdioFile& file, const CUnit& unit,
                                             const SCSVExportData& data) const {
    const SUnits units{unit.Conversion(CCsvRow::kLength), unit.Conversion(CCsvRow::kDisplacement)};
    WriteColumnNames(file, kPulloutsToken, data, Keys(kJointColumns), AllColumns);
    for (int stage = 0; stage < data.numStages; ++stage) {
        if (!data.StageWanted(stage))
            continue;
        for (int u = 1; u <= NumSpecificUtilities(); ++u) {
            const CSpecificUtility& utility = GetSpecificUtility(u);
            SPipeRows pipe;
            if (!utility.PulloutAndRotationsExist(stage) || !SpecificPipe(*this, stage, u, pipe))
                continue;
            WriteJointRows(file, kPulloutsToken, data, stage, utility, pipe,
                           GetAcceptanceCriteria(utility.GetCriteria()), units, AllColumns);
        }
    }
}

void ZorvoData::WriteCSVUDAStrains(CStdioFile& file, const CUnit& unit,
                                   const SCSVExportData& data) const {
    const SUnits units{unit.Conversion(CCsvRow::kLength), unit.Conversion(CCsvRow::kDisplacement)};
    const bool neglect = GetUtilityCalculationOptions().GetNeglectBenificialContribution();
    WriteColumnNames(file, kStrainsToken, data, Keys(kStrainColumns), AllColumns);
    for (int stage = 0; stage < data.numStages; ++stage) {
        if (!data.StageWanted(stage))
            continue;
        for (int u = 1; u <= NumSpecificUtilities(); ++u) {
            const CSpecificUtility& utility = GetSpecificUtility(u);
            SPipeRows pipe;
            if (!utility.UtilityStrainsExist(stage) || !SpecificPipe(*this, stage, u, pipe))
                continue;
            WriteStrainRows(file, kStrainsToken, data, stage, utility, pipe,
                            GetAcceptanceCriteria(utility.GetCriteria()), neglect, units,
                            AllColumns);
        }
    }
}

void ZorvoData::WriteCSVUDACoodsDisps(CStdioFile& file, const CUnit& unit,
                                      const SCSVExportData& data) const {
    const SUnits units{unit.Conversion(CCsvRow::kLength), unit.Conversion(CCsvRow::kDisplacement)};
    WriteColumnNames(file, kCoordsToken, data, SampleKeys(), AllColumns);
    for (int stage = 0; stage < data.numStages; ++stage) {
        if (!data.StageWanted(stage))
            continue;
        for (int u = 1; u <= NumSpecificUtilities(); ++u) {
            const CSpecificUtility& utility = GetSpecificUtility(u);
            SPipeRows pipe;
            if (!utility.PulloutAndRotationsExist(stage) || !SpecificPipe(*this, stage, u, pipe))
                continue;
            WriteSampleRows(file, kCoordsToken, data, stage, utility, pipe, units, AllColumns);
        }
    }
}

// ---- Generic utilities ----------------------------------------------------------------

namespace {

// Whether each column of a table is on, by key.
template <class Items> ColumnOn ChosenColumns(const Items& items) {
    auto chosen = std::make_shared<std::map<std::wstring, bool>>();
    items.ForEachColumn([&chosen](const wchar_t* key, bool on) { (*chosen)[key] = on; });
    return [chosen](const wchar_t* key) {
        const auto it = chosen->find(key);
        return it != chosen->end() && it->second;
    };
}

// Walks the transects of every generic utility with criteria at each wanted stage: write
// gets the transect, its cells and its utility's criteria.
template <class Write>
void ForEachTransect(const ZorvoData& doc, const SCSVExportData& data, const CUnit& unit,
                     Write write) {
    const double length = unit.Conversion(CCsvRow::kLength);
    for (int stage = 0; stage < data.numStages; ++stage) {
        if (!data.StageWanted(stage))
            continue;
        for (int g = 1; g <= doc.NumGenericUtilities(); ++g) {
            const CGenericUtility& utility = doc.GetGenericUtility(g);
            if (utility.GetCriteria() < 1 || utility.GetCriteria() > doc.NumAcceptanceCriteria())
                continue;
            const CAcceptanceCriteria& criteria = doc.GetAcceptanceCriteria(utility.GetCriteria());
            const int p = utility.GetPolyline();
            SPipeRows pipe;
            pipe.name = CString::Formatted(L"Generic Utility %i : %s", g, utility.Name().GetString());
            pipe.polyline = CString::Formatted(
                L"Polyline %i : %s", p,
                doc.PolylineExists(p) ? doc.GetPolyline(p).Name().GetString() : L"");
            for (int t = 1; t <= utility.NumTransects(); ++t) {
                const CUtilityTransect& transect = utility.GetTransect(t);
                const int points = transect.NumberOfPoints(stage);
                if (points == 0)
                    continue;
                const Vec3<double> first = transect.GetPoint(stage, 1);
                const Vec3<double> last = transect.GetPoint(stage, points);
                const double ends[] = {first.x, first.y, first.z, last.x, last.y, last.z};
                pipe.transect = {{kTransectKeys[0], CString::Formatted(L"%i", t)}};
                for (int k = 0; k < 6; ++k)
                    pipe.transect.emplace_back(kTransectKeys[k + 1],
                                               CString::Formatted(L"%.14g", ends[k] * length));
                pipe.pointAt = [&doc, stage, g, t](double x) {
                    return doc.GetUtilityTransectPointAtADistFromItsStart(stage, g, t, x);
                };
                write(stage, transect, pipe, criteria);
            }
        }
    }
}

} // namespace

void ZorvoData::WriteCSVGenericUDAResults(CStdioFile& file, const CUnit& unit,
                                          const SCSVExportData& data,
                                          const CUDAExportCSVDisps& disps,
                                          const CUDAExportCSVPR& pullouts,
                                          const CUDAExportCSVStrains& strains) const {
    CCsvRow::WriteUnitHeading(file, unit);
    WriteCSVGenericUDAPulloutsRotations(file, unit, data, pullouts);
    WriteCSVGenericUDAStrains(file, unit, data, strains);
    WriteCSVGenericUDACoodsDisps(file, unit, data, disps);
}

void ZorvoData::WriteCSVGenericUDAPulloutsRotations(CStdioFile& file, const CUnit& unit,
                                                    const SCSVExportData& data,
                                                    const CUDAExportCSVPR& columns) const {
    if (columns.None())
        return;
    const ColumnOn on = ChosenColumns(columns);
    const SUnits units{unit.Conversion(CCsvRow::kLength), unit.Conversion(CCsvRow::kDisplacement)};
    WriteColumnNames(file, kGenericPulloutsToken, data, Keys(kJointColumns), on, true);
    ForEachTransect(*this, data, unit,
                    [&](int stage, const CUtilityTransect& transect, const SPipeRows& pipe,
                        const CAcceptanceCriteria& criteria) {
                        WriteJointRows(file, kGenericPulloutsToken, data, stage, transect, pipe,
                                       criteria, units, on);
                    });
}

void ZorvoData::WriteCSVGenericUDAStrains(CStdioFile& file, const CUnit& unit,
                                          const SCSVExportData& data,
                                          const CUDAExportCSVStrains& columns) const {
    if (columns.None())
        return;
    const ColumnOn on = ChosenColumns(columns);
    const SUnits units{unit.Conversion(CCsvRow::kLength), unit.Conversion(CCsvRow::kDisplacement)};
    const bool neglect = GetUtilityCalculationOptions().GetNeglectBenificialContribution();
    WriteColumnNames(file, kGenericStrainsToken, data, Keys(kStrainColumns), on, true);
    ForEachTransect(*this, data, unit,
                    [&](int stage, const CUtilityTransect& transect, const SPipeRows& pipe,
                        const CAcceptanceCriteria& criteria) {
                        WriteStrainRows(file, kGenericStrainsToken, data, stage, transect, pipe,
                                        criteria, neglect, units, on);
                    });
}

void ZorvoData::WriteCSVGenericUDACoodsDisps(CStdioFile& file, const CUnit& unit,
                                             const SCSVExportData& data,
                                             const CUDAExportCSVDisps& columns) const {
    if (columns.None())
        return;
    const ColumnOn on = ChosenColumns(columns);
    const SUnits units{unit.Conversion(CCsvRow::kLength), unit.Conversion(CCsvRow::kDisplacement)};
    WriteColumnNames(file, kGenericCoordsToken, data, SampleKeys(), on, true);
    ForEachTransect(*this, data, unit,
                    [&](int stage, const CUtilityTransect& transect, const SPipeRows& pipe,
                        const CAcceptanceCriteria&) {
                        WriteSampleRows(file, kGenericCoordsToken, data, stage, transect, pipe,
                                        units, on);
                    });
}

} // namespace Tevra::Data
