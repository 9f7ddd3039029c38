#include "host/HostCommands.h"

namespace Tevra {

using namespace Data;

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
        {"displacement points", doc.NumDisplacementPoints(false)},
        {"displacement lines", doc.NumDisplacementLines(false)},
        {"displacement polylines", doc.NumDisplacementPolylines(false)},
        {"displacement grids", doc.NumDisplacementGrids(false)},
        {"polylines", doc.NumPolylines()},
        {"stages", doc.NumActualStages(false, false)},
        {"stage properties", doc.NumStageProperties()},
    };
    for (const auto& r : rows)
        out << "  " << r.label << ": " << r.count << '\n';
    out << "  calculation stages: " << doc.NumStages(true, false)
        << (doc.IsSmoothingOn() ? " (with re-entrant corner smoothing)" : "") << '\n';
    out << "  results: " << (doc.ResultsExist(-1) ? "yes" : "none") << '\n';
    return eExitOk;
}

} // namespace Tevra
