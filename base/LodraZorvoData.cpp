#include "LodraZorvoData.h"

#include "CImportedDisplacementMatcher.h"

#include <cmath>

namespace Tevra::Data {

namespace {

// Bit of the import match that the displacement data step sets.
constexpr int kImportMatchDisplacementData = 1;

// Adds the coinciding imported displacements of the list to the calculated samples of
// one record at the stage; a record with no store at the stage is passed over.
void AddImportedToRecord(int stage, std::vector<CImportedDisplacement>& list,
                         const CImportedDisplacementMatcher& matcher, CDisplacementData& record,
                         std::vector<size_t>& found) {
    if (stage < 0 || stage >= record.NumResultStages())
        return;
    const CDisplacementData::StageResults& rows = record.GetResults(stage);
    for (size_t a = 0; a < rows.size(); ++a) {
        for (size_t b = 0; b < rows[a].size(); ++b) {
            const GeoDispResult& sample = rows[a][b];
            if (!sample.IsCalculated())
                continue;
            matcher.Find(sample.GetPoint(), found);
            if (found.empty())
                continue;
            GeoDispResult r = sample;
            // Each coinciding imported point in the set's order: its displacement plus
            // the sample's own (metres).
            for (size_t k : found) {
                CImportedDisplacement& d = list[k];
                r.SetXdisplacement(d.GetXdisplacement() + r.GetXdisplacement());
                r.SetYdisplacement(d.GetYdisplacement() + r.GetYdisplacement());
                r.SetZdisplacement(d.GetZdisplacement() + r.GetZdisplacement());
                r.SetImportMatch(r.GetImportMatch() | kImportMatchDisplacementData);
                d.SetImportMatch(d.GetImportMatch() | kImportMatchDisplacementData);
            }
            record.SetResult(stage, static_cast<int>(a), static_cast<int>(b), r);
        }
    }
}

} // namespace

LodraZorvoData::LodraZorvoData() { m_polylines.SetPrototype(CPolylinePlus(L"Polyline #")); }

void LodraZorvoData::Empty() { *this = LodraZorvoData(); }

void LodraZorvoData::DeleteResults() {
    for (auto& r : m_points.Items())
        r.DeleteResults();
    for (auto& r : m_lines.Items())
        r.DeleteResults();
    for (auto& r : m_dispPolylines.Items())
        r.DeleteResults();
    for (auto& r : m_grids.Items())
        r.DeleteResults();
}

bool LodraZorvoData::ResultsExist(int) const {
    auto any = [](const auto& list) {
        for (const auto& r : list.Items())
            if (r.ResultsExist(-1))
                return true;
        return false;
    };
    return any(m_points) || any(m_lines) || any(m_dispPolylines) || any(m_grids);
}

double LodraZorvoData::GetLineInterval(int line) const {
    const CDisplacementLine& l = GetDisplacementLine(line);
    return l.GetIntervalsAlongLine() > 0 ? l.GetLength(false) / l.GetIntervalsAlongLine() : 0.0;
}

double LodraZorvoData::GetDisplacementPolylineLength(int polyline) const {
    const int number = GetDisplacementPolyline(polyline).GetPolyline();
    return PolylineExists(number) ? GetPolyline(number).Len(true) : 0.0;
}

double LodraZorvoData::GetDisplacementPolylineInterval(int polyline) const {
    const int j = GetDisplacementPolyline(polyline).GetIntervalsAlongLine();
    return j > 0 ? GetDisplacementPolylineLength(polyline) / j : 0.0;
}

double LodraZorvoData::GetDisplacementLineLengthInPlan(int line) const {
    return GetDisplacementLine(line).GetLength(true);
}

void LodraZorvoData::AddImportedDisplacementsToResults(int stage, int set, double tolerance) {
    if (!ImportedDisplacementsSetExists(set))
        return;
    std::vector<CImportedDisplacement> list = GetImportedDisplacementsSet(set).GetDisplacements();
    const CImportedDisplacementMatcher matcher(list, tolerance);
    std::vector<size_t> found;
    for (auto& r : m_points.Items())
        AddImportedToRecord(stage, list, matcher, r, found);
    for (auto& r : m_lines.Items())
        AddImportedToRecord(stage, list, matcher, r, found);
    for (auto& r : m_dispPolylines.Items())
        AddImportedToRecord(stage, list, matcher, r, found);
    for (auto& r : m_grids.Items())
        AddImportedToRecord(stage, list, matcher, r, found);
    AccessImportedDisplacementsSet(set).SetDisplacements(list);
}

void LodraZorvoData::Add_Imported_Displacements_To_Disp_Lines(
    int stage, std::vector<CImportedDisplacement>& list, std::vector<CDisplacementLine>& lines,
    double tolerance) {
    const CImportedDisplacementMatcher matcher(list, tolerance);
    std::vector<size_t> found;
    for (CDisplacementLine& line : lines)
        AddImportedToRecord(stage, list, matcher, line, found);
}

void LodraZorvoData::tun26_(int, const double& angle, const double* in, double* out) {
    RotateStrains(std::cos(angle), std::sin(angle), in, out);
}

bool LodraZorvoData::SameBase(const LodraZorvoData& o) const {
    return m_points == o.m_points && m_lines == o.m_lines && m_dispPolylines == o.m_dispPolylines &&
           m_grids == o.m_grids && m_polylines == o.m_polylines && m_importedSets == o.m_importedSets &&
           m_graphics == o.m_graphics &&
           m_titles == o.m_titles && m_history == o.m_history;
}

} // namespace Tevra::Data
