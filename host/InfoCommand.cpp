#include "host/HostCommands.h"

namespace Tevra {

using namespace Data;

namespace {

// The user's curves and the standard curves in use: method, and for a polynomial curve
// its fitted equation and R², or why it has none.
void PrintCurves(const ZorvoData& doc, std::ostream& out) {
    for (GeoGlobal::EDirection d : {GeoGlobal::eHorizontal, GeoGlobal::eVertical}) {
        for (int n = 1; n <= doc.NumGMCurves(d); ++n) {
            const CGMCurve& c = doc.GetGMCurve(d, n);
            if (!c.GetEditable() && !doc.IsGMCurveInUse(d, n))
                continue;
            out << "  " << (d == GeoGlobal::eVertical ? "vertical" : "horizontal") << " curve " << n
                << " \"" << c.GetName().ToUtf8() << "\": "
                << CString(CGMCurve::INTERPOLATION_METHOD_STRINGS[c.GetInterpolationMethod()])
                       .ToUtf8();
            if (c.GetInterpolationMethod() == CGMCurve::ePolynomial) {
                std::vector<double> coeffs;
                const auto code = CSurfacePolynomial::CalculateCoeffs(
                    c.GetDataCoords(), c.GetXOrder(), c.GetYOrder(), coeffs);
                if (code == CSurfacePolynomial::eSuccess) {
                    CString equation, r2;
                    c.StringifyEquation(false, equation);
                    c.StringifyRSquared(r2);
                    out << ", z = " << equation.ToUtf8() << ", R² = " << r2.ToUtf8();
                } else {
                    const bool negative = c.GetXOrder() < 0 || c.GetYOrder() < 0;
                    out << "; no fit: "
                        << (negative ? "its orders should be 0 or more"
                            : code == CSurfacePolynomial::eTooFewPoints
                                ? "fewer data points than its orders need"
                                : "its points do not determine the polynomial (singular)");
                }
            }
            out << '\n';
        }
    }
}

// Each excavation with its name, size and levels (metres): a polygon's corners and the
// range of its base levels, a shaft's diameter and base level.
void PrintExcavations(const ZorvoData& doc, std::ostream& out) {
    for (int n = 1; n <= doc.NumPolygonalExcavations(); ++n) {
        const CPolygonalExcavation& e = doc.GetPolygonalExcavation(n);
        out << "  polygonal excavation " << n << " \"" << e.GetName().ToUtf8()
            << "\": " << e.NumCoords() << (e.NumCoords() == 1 ? " corner" : " corners")
            << ", surface level " << e.GetSurfaceLevel() << " m, ";
        if (e.NumBaseLevels() == 0)
            out << "no base levels";
        else if (e.GetMinBaseLevel() == e.GetMaxBaseLevel())
            out << "base level " << e.GetMinBaseLevel() << " m";
        else
            out << "base levels " << e.GetMinBaseLevel() << " to " << e.GetMaxBaseLevel() << " m";
        out << '\n';
    }
    for (int n = 1; n <= doc.NumCircularExcavations(); ++n) {
        const CCircularExcavation& e = doc.GetCircularExcavation(n);
        out << "  circular excavation " << n << " \"" << e.GetName().ToUtf8() << "\": diameter "
            << e.GetDiameter() << " m, surface level " << e.GetSurfaceLevel() << " m, base level "
            << e.GetBaseLevel() << " m\n";
    }
}

// One line per imported set: its name, its points and the file they came from.
void PrintImportedSets(const ZorvoData& doc, std::ostream& out) {
    for (int n = 1; n <= doc.NumImportedDisplacementsSets(); ++n) {
        const CImportedDisplacementsSet& set = doc.GetImportedDisplacementsSet(n);
        out << "  imported set " << n << " \"" << set.Name().ToUtf8()
            << "\": " << set.NumDisplacements()
            << (set.NumDisplacements() == 1 ? " point" : " points");
        if (set.ReadFileName().IsEmpty())
            out << ", typed in\n";
        else
            out << " from " << set.ReadFileName().ToUtf8() << '\n';
    }
}

// One line per generic utility: the transects a run sets out along its polyline.
void PrintGenericUtilities(const ZorvoData& doc, std::ostream& out) {
    for (int n = 1; n <= doc.NumGenericUtilities(); ++n) {
        const CGenericUtility& g = doc.GetGenericUtility(n);
        const int transects = doc.NumGenericUtilityTransects(n);
        out << "  generic utility " << n << " \"" << g.GetName().ToUtf8() << "\": " << transects
            << (transects == 1 ? " transect" : " transects") << " of " << g.GetDispPoints()
            << " points, " << g.GetLength() << " m long, every " << g.GetInterval()
            << " m along polyline " << g.GetPolyline() << '\n';
    }
}

} // namespace

int InfoCommand(HostSession& session, const std::string& file) {
    ZorvoData doc;
    if (!session.Load(file, doc))
        return eExitUsage;
    std::ostream& out = session.Out();
    const GeoZorvoGeneral& g = doc.GetGeneral();
    out << file << '\n';
    if (!doc.GetTitles().GetTitle().IsEmpty())
        out << "  title: " << doc.GetTitles().GetTitle().ToUtf8() << '\n';
    out << "  problem type: "
        << (g.GetProblemType() == eMine ? "mine subsidence" : "tunnels and excavations") << '\n';
    const struct {
        const char* label;
        int count;
    } rows[] = {
        {"tunnels", doc.NumTunnels()},
        {"polygonal excavations", doc.NumPolygonalExcavations()},
        {"circular excavations", doc.NumCircularExcavations()},
        {"displacement points", doc.NumDisplacementPoints(false)},
        {"displacement lines", doc.NumDisplacementLines(false)},
        {"displacement polylines", doc.NumDisplacementPolylines(false)},
        {"displacement grids", doc.NumDisplacementGrids(false)},
        {"polylines", doc.NumPolylines()},
        {"stages", doc.NumActualStages(false, false)},
        {"stage properties", doc.NumStageProperties()},
        {"imported displacement sets", doc.NumImportedDisplacementsSets()},
    };
    for (const auto& r : rows)
        out << "  " << r.label << ": " << r.count << '\n';
    PrintImportedSets(doc, out);
    out << "  specific buildings: " << doc.NumSpecificBuildings() << '\n'
        << "  damage category strains records: " << doc.NumDamageCategoryStrains() << '\n';
    out << "  specific utilities: " << doc.NumSpecificUtilities() << '\n'
        << "  generic utilities: " << doc.NumGenericUtilities() << '\n'
        << "  utility dimensions: " << doc.NumUtilityDimensions() << " ("
        << doc.NumStandardUtilityDimensions() << " standard)\n"
        << "  acceptance criteria: " << doc.NumAcceptanceCriteria() << " ("
        << doc.NumStandardAcceptanceCriteria() << " standard)\n";
    PrintGenericUtilities(doc, out);
    out << "  calculation stages: " << doc.NumStages(true, false)
        << (doc.IsSmoothingOn() ? " (with re-entrant corner smoothing)" : "") << '\n';
    PrintExcavations(doc, out);
    PrintCurves(doc, out);
    out << "  results: " << (doc.ResultsExist(-1) ? "yes" : "none") << '\n';
    return eExitOk;
}

} // namespace Tevra
