// The specific buildings of a run: samples of each building's line at its vertical offsets,
// and the damage assessment of each building, stage by stage.
#include "ZorvoSolver.h"

#include "base/CImportedDisplacementMatcher.h"
#include "base/CRange.h"
#include "buildings/CBuildingSegmentation.h"
#include "solver/ZorvoSolverFamilyLoop.h"

#include <algorithm>
#include <tuple>

namespace Tevra {

using namespace Data;

namespace {

// Import match of a sample that an imported displacement was added to, and the mark it
// carries on a building.
constexpr int kImportMatched = 1;
constexpr int kImportBuildingVertical = 32;

CString OutsideLineNote(int building, int stage) {
    return CString::Formatted(L"Building %i, stage %i: its start or end lies outside the samples "
                              L"of its line; no results for this assessment.",
                              building, stage);
}

CString LookupNote(const CString& building, int stage, int code) {
    return CString::Formatted(L"Building %s, stage %i: a profile was read outside its points "
                              L"(range code %i); no results for this assessment.",
                              building.GetString(), stage, code);
}

} // namespace

void ZorvoSolver::CalcGroundMovements_BuildingsSpecific(int stage) {
    ZorvoData& doc = *m_doc;
    const int lines = doc.NumDisplacementLines(false);
    // A building on a line that does not exist is refused by the checks; a run leaves it
    // alone. Each building is one unit of work, so that one thread writes its stores.
    auto shape = [&doc, lines](int b) {
        const int l = doc.GetSpecificBuilding(b + 1).GetLine();
        return SObjectRows{l >= 1 && l <= lines, 1, 1};
    };
    FamilyLoop(44, stage, doc.NumSpecificBuildings(), true, shape,
               [&](int b, int, int) { return SpecificBuildingMovements(stage, b + 1) ? 1 : 0; });

    for (int b = 1; b <= doc.NumSpecificBuildings(); ++b) {
        const CSpecificBuilding& building = doc.GetSpecificBuilding(b);
        if (building.GetLine() < 1 || building.GetLine() > lines)
            continue;
        WriteExactVerticalImportMatchesToImportedDisplacementsForSpecificBuilding(
            building, stage, building.GetBuildingDamageProperties().NumberOfVerticalOffsets(),
            doc.GetDisplacementLine(building.GetLine()).GetIntervalsAlongLine());
    }
}

bool ZorvoSolver::SpecificBuildingMovements(int stage, int b) {
    ZorvoData& doc = *m_doc;
    CSpecificBuilding& building = doc.AccessSpecificBuilding(b);
    const CDisplacementLine& line = doc.GetDisplacementLine(building.GetLine());
    const int J = line.GetIntervalsAlongLine();
    const CBuildingDamageProperties& properties = building.GetBuildingDamageProperties();
    const int group = doc.NumDisplacementPoints(false) + building.GetLine();

    // The line moved to each vertical offset, sampled there.
    std::vector<CDisplacementLine> copies;
    copies.reserve(static_cast<size_t>(properties.NumberOfVerticalOffsets()));
    for (int o = 1; o <= properties.NumberOfVerticalOffsets(); ++o) {
        CDisplacementLine copy = line;
        copy.DeleteResults();
        copy.MoveBy(Vec3<double>(0.0, 0.0, properties.GetVerticalOffset(o)));
        copy.ResizeResults(stage + 1);
        for (int k = 0; k <= J && k < copy.NumResults(stage); ++k) {
            if (LoopCancelled())
                return false;
            GeoDispResult result;
            result.SetName(line.Name());
            result.SetPointType(eLine);
            result.SetPointGroup(group);
            CalculateLinePointResult(result, copy, k, stage);
            copy.SetResult(stage, k, 0, result);
        }
        copies.push_back(std::move(copy));
    }

    if (doc.NumImportedDisplacementsSets() > 0)
        for (int set : doc.ImportedSetsToInclude(stage)) {
            std::vector<CImportedDisplacement> list =
                doc.GetImportedDisplacementsSet(set).GetDisplacements();
            LodraZorvoData::Add_Imported_Displacements_To_Disp_Lines(
                stage, list, copies, m_prefs->GetImportedDisplacementTolerance());
        }

    for (size_t v = 0; v < copies.size(); ++v)
        for (int k = 0; k < copies[v].NumResults(stage); ++k) {
            GeoDispResult result = copies[v].GetResultFromPosition(stage, k, 0);
            if (result.GetImportMatch() == kImportMatched)
                result.SetImportMatch(kImportBuildingVertical);
            building.SetVerticalMovementResult(stage, static_cast<int>(v), k + 1, result);
        }

    // The horizontal profile reads the line at its own level; a line not calculated has
    // no samples for it.
    if (line.StoreMatches(stage))
        for (int k = 0; k <= J && k < line.NumResults(stage); ++k)
            building.SetHorizontalMovementResult(stage, k + 1,
                                                 line.GetResultFromPosition(stage, k, 0));
    return true;
}

void ZorvoSolver::WriteExactVerticalImportMatchesToImportedDisplacementsForSpecificBuilding(
    const CSpecificBuilding& building, int stage, int numOffsets, int numIntervals) {
    if (m_doc->NumImportedDisplacementsSets() == 0)
        return;
    const double T = m_prefs->GetImportedDisplacementTolerance();
    for (int set : m_doc->ImportedSetsToInclude(stage)) {
        std::vector<CImportedDisplacement> list =
            m_doc->GetImportedDisplacementsSet(set).GetDisplacements();
        for (int j = 0; j < numOffsets; ++j) {
            const std::vector<GeoDispResult>& samples = building.GetVerticalMovementResults(stage, j);
            for (int k = 0; k <= numIntervals && k < static_cast<int>(samples.size()); ++k) {
                const GeoDispResult& r = samples[static_cast<size_t>(k)];
                if (!(r.GetImportMatch() & kImportBuildingVertical))
                    continue;
                // Every imported point is tried: one sample can mark several.
                for (CImportedDisplacement& d : list)
                    if (CImportedDisplacementMatcher::Coincide(r.GetPoint(), d, T))
                        d.SetImportMatch(d.GetImportMatch() | kImportBuildingVertical);
            }
        }
        m_doc->AccessImportedDisplacementsSet(set).SetDisplacements(list);
    }
}

void ZorvoSolver::SpecificBuildingDamageAssessment(ZorvoData& doc, int stage, bool combined) {
    // A building that cannot be assessed is passed over without a word or a tick.
    auto shape = [&doc](int b) {
        std::vector<CString> unused;
        return SObjectRows{doc.ValidSpecificBuilding(b, false, unused), 1, 1};
    };
    FamilyLoop(52, stage, doc.NumSpecificBuildings(), false, shape, [&](int b, int, int) {
        if (LoopCancelled())
            return 0;
        const int offsets =
            doc.GetSpecificBuilding(b).GetBuildingDamageProperties().NumberOfVerticalOffsets();
        for (int o = 0; o < offsets; ++o) {
            if (LoopCancelled())
                return 0;
            SpecificBuildingDamageAssessment(doc, stage, b, o, combined);
        }
        return 1;
    });
}

void ZorvoSolver::SpecificBuildingDamageAssessment(ZorvoData& doc, int stage, int building,
                                                   int offset, bool combined) {
    CSpecificBuilding& b = doc.AccessSpecificBuilding(building);
    const CBuildingDamageProperties& properties = b.GetBuildingDamageProperties();
    try {
        CTableT<double> hProfile;
        CTableT<double> vProfile;
        // The horizontal profile comes first, before a combined run may find nothing to do.
        const CBuildingProfile::EStatus h =
            doc.GetHorizontalDisplacementsWRTBuilding(stage, building, hProfile);
        if (h == CBuildingProfile::eProfileEmptyHorizontal) {
            AddNote(stage, building, offset, CBuildingProfile::EmptyHorizontalMessage(stage, building));
            return;
        }
        if (h == CBuildingProfile::eProfileOutOfRange) {
            AddNote(stage, building, offset, OutsideLineNote(building, stage));
            return;
        }
        if (combined && !b.CombinedSegmentsExist(stage, offset))
            return;
        if (doc.GetVerticalDisplacementsWRTBuilding(stage, building, offset, vProfile) !=
            CBuildingProfile::eProfileOk) {
            AddNote(stage, building, offset, OutsideLineNote(building, stage));
            return;
        }
        const std::vector<CBuildingDamageResult> existing =
            b.GetBuildingDamageResults(stage, false, offset);

        CTableT<double> hTable;
        CTableT<double> vTable;
        CSplineT<double> hCurve;
        CSplineT<double> chainageMap;
        CSplineT<double> vCurve;
        CTableT<double> curvatureTable;
        std::vector<double> boundaries;
        std::vector<CBuildingDamageResult> results;
        const CBuildingSegmentation::EStatus cut = CBuildingSegmentation::SplinesAndSegments(
            combined, existing, hProfile, vProfile, properties.GetEndVDispSensitivity(), hTable,
            vTable, hCurve, chainageMap, vCurve, curvatureTable, boundaries);
        if (cut == CBuildingSegmentation::eCloseProfilePoints) {
            AddNote(stage, building, offset,
                    CBuildingSegmentation::CloseProfilePointsMessage(b.Name(), stage));
        } else if (doc.DamageCategoryStrainsExists(properties.GetDamageCategoryStrains())) {
            const CDamageCategoryStrains& strains =
                doc.GetDamageCategoryStrains(properties.GetDamageCategoryStrains());
            BuildingDamageResults(true, strains, properties, b.GetHeight(), hTable, vTable,
                                  hCurve, chainageMap, vCurve, curvatureTable, boundaries,
                                  results);
        }
        b.SetBuildingDamageResults(stage, combined, offset, results);
    } catch (const Util::CRange<double>& e) {
        // Two profile points closer than the table can tell apart, with a segment boundary
        // between them, or a lookup past a profile's end: this assessment has no results,
        // and the run goes on with the next.
        AddNote(stage, building, offset, LookupNote(b.Name(), stage, e.code));
        b.SetBuildingDamageResults(stage, combined, offset, {});
    }
}

void ZorvoSolver::AddNote(int stage, ENoteFamily family, int object, int offset,
                          const CString& text) {
#pragma omp critical(ZorvoSolverNotes)
    m_notes.push_back(SNote{stage, family, object, offset, text});
}

std::vector<CString> ZorvoSolver::Notes() const {
    std::vector<SNote> notes = m_notes;
    // Threads add notes in no fixed order: order them by where they arose.
    std::sort(notes.begin(), notes.end(), [](const SNote& a, const SNote& b) {
        return std::tie(a.stage, a.family, a.object, a.offset) <
               std::tie(b.stage, b.family, b.object, b.offset);
    });
    std::vector<CString> texts;
    for (const SNote& n : notes)
        if (texts.empty() || texts.back() != n.text)
            texts.push_back(n.text);
    return texts;
}

} // namespace Tevra
