#include "ZorvoHost.h"

#include "host/ConsoleProgress.h"
#include "solver/ZorvoCal.h"
#include "solver/ZorvoSolver.h"

#include <cmath>
#include <iomanip>

namespace Tevra {

using namespace Data;

ZorvoData MakeExampleDocument() {
    ZorvoData doc;

    GeoTunnel tunnel;
    tunnel.SetName(L"Running tunnel");
    tunnel.SetXCentreLine1(0.0);
    tunnel.SetYCentreLine1(-200.0);
    tunnel.SetXCentreLine2(0.0);
    tunnel.SetYCentreLine2(200.0);
    tunnel.SetZCentreLine1(80.0);
    tunnel.SetZCentreLine2(80.0);
    tunnel.SetGroundLevel1(100.0);
    tunnel.SetGroundLevel2(100.0);
    tunnel.SetDiameter(6.0);
    tunnel.SetPercentLoss(1.5);
    tunnel.SetSoilType(GeoTunnel::eCohesive);
    tunnel.SetkDerivation(eSurface, GeoTunnel::ekOReillyAndNew);
    doc.SetTunnel(1, tunnel);

    CDisplacementGrid grid(L"Surface grid");
    grid.SetPoint1({-60.0, -60.0, 100.0});
    grid.SetPoint2({60.0, -60.0, 100.0});
    grid.SetExtrusionDirection(eExtrudeY);
    grid.SetExtrusionDistance(120.0);
    grid.SetIntervalsAlongLine(60);
    grid.SetIntervalsAlongExtrusion(60);
    doc.SetDisplacementGrid(1, grid);

    CDisplacementLine line(L"Cross-section");
    line.SetPoint1({-40.0, 0.0, 100.0});
    line.SetPoint2({40.0, 0.0, 100.0});
    line.SetIntervalsAlongLine(16);
    doc.SetDisplacementLine(1, line);
    return doc;
}

namespace {

int RunExample(std::ostream& out, std::ostream& err) {
    ZorvoData doc = MakeExampleDocument();
    CLodraZorvoPrefData prefs;
    ConsoleProgress progress(err, doc);
    ZorvoSolver solver(&doc, &prefs, &progress, {});
    solver.Solve();
    progress.Finish();

    const GeoTunnel& t = doc.GetTunnel(1);
    const double z0 = t.GetGroundLevel1() - t.GetZCentreLine1();
    double i = 0.0;
    ZorvoCal::Get_i(t.GetkDerivation(eSurface), t.GetkDerivation(eSubSurface),
                    t.GetSubSurfaceMethod(), t.GetSoilType(), eSurface, t.Getk(eSurface), t.Getm(),
                    t.GetDiameter(), z0, z0, z0, i);

    double peak = 0.0;
    const CDisplacementGrid& grid = doc.GetDisplacementGrid(1);
    for (const auto& row : grid.GetResults(0))
        for (const GeoDispResult& r : row)
            peak = std::max(peak, r.GetZdisplacement());

    out << std::fixed << std::setprecision(3);
    out << "Tunnel: " << t.GetName().ToUtf8() << ", diameter " << t.GetDiameter()
        << " m, axis " << z0 << " m below ground, volume loss " << t.GetPercentLoss() << " %\n";
    out << "Trough width i (" << CString(GeoTunnel::K_DERIVATION_STRINGS[t.GetkDerivation(eSurface)]).ToUtf8()
        << "): " << i << " m\n";
    out << "Peak settlement on the grid: " << peak * 1000.0 << " mm\n";
    out << "Settlement profile across the tunnel (" << doc.GetDisplacementLine(1).Name().ToUtf8()
        << "):\n";
    out << "  offset (m)  settlement (mm)  horizontal (mm)\n";
    for (const auto& position : doc.GetDisplacementLine(1).GetResults(0)) {
        const GeoDispResult& r = position[0];
        out << std::setw(12) << r.GetPoint().x << std::setw(17) << r.GetZdisplacement() * 1000.0
            << std::setw(17) << r.GetXdisplacement() * 1000.0 << '\n';
    }
    return 0;
}

} // namespace

int RunZorvo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty() || args[0] == "example")
        return RunExample(out, err);
    err << "usage: zorvo [example]\n";
    return 2;
}

} // namespace Tevra
