#include "BuildingReport.h"

#include "host/HostText.h"
#include "host/TableFile.h"

#include "base/CResourceStrings.h"
#include "base/CStdioFile.h"
#include "base/CUnit.h"
#include "base/SCSVExportData.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <unistd.h>

namespace Tevra {

using namespace Data;

namespace {

// A whole number of at most 6 digits, or -1.
int SmallNumber(const std::string& text) {
    if (text.empty() || text.size() > 6 ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return -1;
    return std::stoi(text);
}

std::string CategoryLabel(int category) {
    if (category < 0 || category >= CDamageCategoryStrains::NUM_CATEGORIES)
        return std::to_string(category);
    return CResourceStrings::Load(CDamageCategoryStrains::DAMAGE_CATEGORY_STRING_IDS[category])
        .ToUtf8();
}

// The segment's place and values as a summary keeps them.
CCriticalSegmentInformation Info(const CSpecificBuilding& building, int offset, int segment,
                                 const CBuildingDamageResult& r) {
    CCriticalSegmentInformation info;
    info.SetCriticalSubBuilding(building.GetSubBuildingName());
    info.SetCriticalCurvature(CBuildingDamageResult::GetCurvatureAsString(r.GetCurvature()));
    info.SetStart(r.GetStart());
    info.SetEnd(r.GetEnd());
    info.SetCriticalVerticalOffset(offset + 1);
    info.SetCriticalSegment(segment);
    info.SetDamageCategory(r.GetDamageCategory());
    info.SetMaxSettlement(r.GetMaxSettlement());
    info.SetMaxSlope(r.GetMaxGradientOfVDispCurve());
    info.SetMaxTensileStrain(r.GetMaxTensileStrain());
    info.SetMaxCurvature(r.GetMaxCurvature());
    return info;
}

// The worst category of the joined segments at (stage, offset); -1 with none.
int JoinedCategory(const CSpecificBuilding& building, int stage, int offset) {
    int category = -1;
    for (int seg = 1; seg <= building.NumBuildingDamageResults(stage, true, offset); ++seg)
        category = std::max(
            category,
            building.GetBuildingDamageResult(stage, true, offset, seg).GetDamageCategory());
    return category;
}

} // namespace

std::string BuildingReport::ParseJoin(const std::string& text, const ZorvoData& doc, SJoin& join) {
    join = SJoin{};
    join.text = text;
    const size_t a = text.find('/');
    const size_t b = a == std::string::npos ? a : text.find('/', a + 1);
    const bool three = b != std::string::npos && text.find('/', b + 1) == std::string::npos;
    if (three) {
        join.building = SmallNumber(text.substr(0, a));
        join.offset = SmallNumber(text.substr(a + 1, b - a - 1));
        join.segment = SmallNumber(text.substr(b + 1));
    }
    const std::string what = "--join " + text + ": ";
    if (!three || join.building < 0 || join.offset < 0 || join.segment < 0)
        return what + "expected BUILDING/OFFSET/SEGMENT, three whole numbers such as 1/1/2";
    if (!doc.SpecificBuildingExists(join.building))
        return what + "there is no building " + std::to_string(join.building) +
               " (the project has " + std::to_string(doc.NumSpecificBuildings()) + ")";
    const int offsets = doc.GetSpecificBuilding(join.building)
                            .GetBuildingDamageProperties()
                            .NumberOfVerticalOffsets();
    if (join.offset < 1 || join.offset > offsets)
        return what + "building " + std::to_string(join.building) + " has no vertical offset " +
               std::to_string(join.offset) + " (it has " + std::to_string(offsets) + ")";
    if (join.segment < 2)
        return what + "segment " + std::to_string(join.segment) +
               " has no segment before it to be joined to; give 2 or more";
    return {};
}

std::vector<std::string> BuildingReport::Join(ZorvoData& doc, ZorvoSolver& solver,
                                              const std::vector<SJoin>& joins) {
    std::vector<std::string> notFound;
    if (joins.empty())
        return notFound;
    const int stages = doc.NumStages(true, false);
    for (const SJoin& j : joins) {
        const int o = j.offset - 1;
        bool found = false;
        for (int s = 0; s < stages; ++s) {
            CSpecificBuilding& building = doc.AccessSpecificBuilding(j.building);
            if (building.NumBuildingDamageResults(s, false, o) < j.segment)
                continue;
            CBuildingDamageResult r = building.GetBuildingDamageResult(s, false, o, j.segment);
            r.SetStartOfCombinedSegment(false);
            building.SetBuildingDamageResult(s, false, o, j.segment, r);
            found = true;
        }
        if (!found)
            notFound.push_back("--join " + j.text + ": building " + std::to_string(j.building) +
                               " has no segment " + std::to_string(j.segment) + " at offset " +
                               std::to_string(j.offset) + " at any stage; nothing is joined");
    }
    for (int s = 0; s < stages; ++s)
        solver.SpecificBuildingDamageAssessment(doc, s, true);
    return notFound;
}

ZorvoBuildingSummary BuildingReport::Summary(const ZorvoData& doc, int stage, int building,
                                             int offset) {
    const CSpecificBuilding& b = doc.GetSpecificBuilding(building);
    ZorvoBuildingSummary summary;
    summary.SetBuildingName(b.Name());
    const int segments = b.NumBuildingDamageResults(stage, false, offset);
    // The segment chosen for each parameter, and the size that chose it.
    int chosen[ZorvoBuildingSummary::NUM_PARAMETERS] = {0, 0, 0, 0, 0};
    double size[ZorvoBuildingSummary::NUM_PARAMETERS] = {0.0, 0.0, 0.0, 0.0, 0.0};
    for (int seg = 1; seg <= segments; ++seg) {
        const CBuildingDamageResult& r = b.GetBuildingDamageResult(stage, false, offset, seg);
        const double curvature = std::fabs(r.GetMaxCurvature());
        const double sizes[ZorvoBuildingSummary::NUM_PARAMETERS] = {
            std::fabs(r.GetMaxGradientOfVDispCurve()), std::fabs(r.GetMaxSettlement()),
            std::fabs(r.GetMaxTensileStrain()),
            r.GetCurvature() == GeoGlobal::eHogging ? curvature : 0.0,
            r.GetCurvature() == GeoGlobal::eSagging ? curvature : 0.0};
        for (int p = 0; p < ZorvoBuildingSummary::NUM_PARAMETERS; ++p) {
            // A radius needs a curvature: a segment of none names no radius.
            const bool radius = p >= ZorvoBuildingSummary::eMinRadiusOfCurvatureHogging;
            if (radius && sizes[p] == 0.0)
                continue;
            if (sizes[p] >= size[p]) {
                size[p] = sizes[p];
                chosen[p] = seg;
            }
        }
    }
    for (int p = 0; p < ZorvoBuildingSummary::NUM_PARAMETERS; ++p)
        if (chosen[p] > 0)
            summary.SetCriticalSegInfo(
                Info(b, offset, chosen[p],
                     b.GetBuildingDamageResult(stage, false, offset, chosen[p])),
                static_cast<ZorvoBuildingSummary::EParameters>(p));
    return summary;
}

void BuildingReport::Print(const ZorvoData& doc, std::ostream& out) {
    const int stages = doc.NumStages(true, false);
    for (int b = 1; b <= doc.NumSpecificBuildings(); ++b) {
        const CSpecificBuilding& building = doc.GetSpecificBuilding(b);
        out << "Building " << b << " (" << building.Name().ToUtf8() << ", "
            << building.GetSubBuildingName().ToUtf8() << ")\n";
        const int offsets = building.GetBuildingDamageProperties().NumberOfVerticalOffsets();
        for (int s = 0; s < stages; ++s) {
            for (int o = 0; o < offsets; ++o) {
                out << "  stage " << s << ", offset " << o + 1 << ": ";
                const int segments = building.NumBuildingDamageResults(s, false, o);
                if (segments == 0) {
                    out << "no results\n";
                    continue;
                }
                const ZorvoBuildingSummary summary = Summary(doc, s, b, o);
                const CCriticalSegmentInformation settlement =
                    summary.GetCriticalSegInfo(ZorvoBuildingSummary::eMaxSettlement);
                const CCriticalSegmentInformation strain =
                    summary.GetCriticalSegInfo(ZorvoBuildingSummary::eMaxTensileStrain);
                out << "category " << CategoryLabel(building.GetMaxDamageCategory(s, o))
                    << ", max settlement "
                    << Printed("%.3f", settlement.GetMaxSettlement() * 1000.0) << " mm (segment "
                    << settlement.GetCriticalSegment() << "), max tensile strain "
                    << Printed("%.4f", strain.GetMaxTensileStrain() * 100.0) << " % (segment "
                    << strain.GetCriticalSegment() << "), " << segments
                    << (segments == 1 ? " segment" : " segments");
                if (building.CombinedSegmentsExist(s, o)) {
                    const int joined = building.NumBuildingDamageResults(s, true, o);
                    out << "; joined: ";
                    if (joined == 0)
                        out << "no results";
                    else
                        out << "category " << CategoryLabel(JoinedCategory(building, s, o)) << ", "
                            << joined << (joined == 1 ? " segment" : " segments");
                }
                out << '\n';
            }
        }
    }
}

std::string BuildingReport::WriteCsv(const ZorvoData& doc, const std::string& dir) {
    SCSVExportData data;
    data.numStages = doc.NumStages(true, false);
    return WriteTableFile(dir + "/buildings.csv", [&](CStdioFile& file) {
        const CUnit unit;
        doc.WriteCSVBDAResults(file, unit, data);
        doc.WriteCSVBDAResults_CritValues(file, unit, data);
    });
}

} // namespace Tevra
