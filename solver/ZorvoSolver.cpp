#include "ZorvoSolver.h"

#include "base/CPolylineCursor.h"
#include "solver/ZorvoCal.h"
#include "solver/ZorvoSolverFamilyLoop.h"

#include <omp.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <memory>
#include <vector>

namespace Tevra {

using namespace Data;

namespace {

// Magnitude at or below which a displacement (mm) or strain counts as none: 1e-10 as
// single precision, held as a double. Exactly this value.
constexpr double kResultThreshold = 1.00000001335e-10;
constexpr double kMmToM = 0.001;
// Samples of a grid row between two cancellation tests, so that a row of millions of
// samples can be stopped too.
constexpr int kRowCancelStride = 4096;

// The name a run of rows gives its samples. A record that one thread calculates whole
// lends its own name, so that all its samples share one text; a record shared between
// threads gives each run a copy of its own, so that the threads do not contend for the
// one count of users of the record's text at every sample.
CString RunName(const CString& name, bool whole) { return whole ? name : CString(name.Str()); }

} // namespace

ZorvoSolver::ZorvoSolver(ZorvoData* document, CLodraZorvoPrefData* preferences,
                         MessageHandler* handler, CancelTest cancel)
    : m_doc(document), m_prefs(preferences), m_handler(handler), m_cancel(std::move(cancel)) {}

ZorvoSolver::ZorvoSolver(const ZorvoSolver& o)
    : m_doc(o.m_doc), m_prefs(o.m_prefs), m_handler(o.m_handler), m_cancelled(o.m_cancelled.load()),
      m_cancel(o.m_cancel), m_notes(o.m_notes), m_sources(o.m_sources) {}

ZorvoSolver& ZorvoSolver::operator=(const ZorvoSolver& o) {
    m_doc = o.m_doc;
    m_prefs = o.m_prefs;
    m_handler = o.m_handler;
    m_cancelled.store(o.m_cancelled.load());
    m_cancel = o.m_cancel;
    m_notes = o.m_notes;
    m_sources = o.m_sources;
    return *this;
}

void ZorvoSolver::SendMsg(const wchar_t* text, long long code) const {
    if (m_handler)
        m_handler->OnMessage(text, code);
}

void ZorvoSolver::SendStageMsg(long long code, int stage) const {
    wchar_t buf[256];
    std::swprintf(buf, 256, L"%i", stage);
    SendMsg(buf, code);
}

bool ZorvoSolver::CheckCancel() {
    if (!m_cancel) {
        m_cancelled.store(false, std::memory_order_relaxed);
        return false;
    }
    const bool stop = m_cancel();
    m_cancelled.store(stop, std::memory_order_relaxed);
    return stop;
}

bool ZorvoSolver::LoopCancelled() {
    if (m_cancelled.load(std::memory_order_relaxed))
        return true;
    if (!m_cancel)
        return false;
    // Only a stop is stored: a thread whose test answered false a moment later must not
    // undo the stop another thread has just seen.
    const bool stop = m_cancel();
    if (stop)
        m_cancelled.store(true, std::memory_order_relaxed);
    return stop;
}

int ZorvoSolver::TickStep(int count) {
    const int q = count / 10;
    const int c = q < 10 ? 10 : (q > 100 ? 100 : q);
    const int step = count / c;
    return step < 2 ? 1 : step;
}

bool ZorvoSolver::Solve() {
    if (!m_doc || !m_prefs)
        return false;

    m_doc->DeleteResults();
    m_doc->ResizeResultsAndSetupTransects();
    m_cancelled.store(false, std::memory_order_relaxed);

    if (m_doc->IsGMCurveTriangulationNeeded()) {
        SendMsg(nullptr, 35);
        SendMsg(nullptr, 37);
        PrepareGMCurves();
        SendMsg(nullptr, 38);
        SendMsg(nullptr, 36);
    }
    SendMsg(nullptr, 33);

    const int S = m_doc->NumStages(true, false);

    // Movements of every stage, with the specific buildings assessed stage by stage
    // (generic utilities and rail tracks join them here as their families arrive).
    for (int s = 0; s < S; ++s) {
        CalcGroundMovements_All(s);
        if (m_cancelled.load(std::memory_order_relaxed))
            break;
        SpecificBuildingDamageAssessment(*m_doc, s, false);
        if (m_cancelled.load(std::memory_order_relaxed))
            break;
        CalculateGenericUtilityDamage(*m_doc, s);
        if (m_cancelled.load(std::memory_order_relaxed))
            break;
    }
    if (S < 1)
        return true;
    // Specific utilities (and generic buildings) are assessed in passes of their own
    // after every stage has its movements. The cancel test stands after each call, so
    // that each pass enters stage 0 even after a cancel; its loops then fall through.
    for (int s = 0; s < S; ++s) {
        CalculateSpecificUtilityDamage(*m_doc, s);
        if (m_cancelled.load(std::memory_order_relaxed))
            break;
    }
    return true;
}

void ZorvoSolver::PrepareGMCurves() {
    for (GeoGlobal::EDirection d : {GeoGlobal::eHorizontal, GeoGlobal::eVertical}) {
        for (int n = 1; n <= m_doc->NumGMCurves(d); ++n) {
            if (!m_doc->GMCurveNeedsTriangulation(d, n))
                continue;
            CGMCurve copy = m_doc->GetGMCurve(d, n);
            copy.Triangulate();
            m_doc->SetGMCurve(d, n, copy);
        }
    }
}

void ZorvoSolver::CalcGroundMovements_All(int stage) {
    m_sources = std::make_shared<const CStageSources>(*m_doc, stage);
    CalcGroundMovements_DisplacementPoints(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    CalcGroundMovements_DisplacementLines(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    CalcGroundMovements_DisplacementPolylines(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    CalcGroundMovements_DisplacementGrids(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    // No cancel test of its own behind this step: the next stands after the specific
    // buildings.
    AddImportedDisplacementsToResults(stage, true, false,
                                      m_prefs->GetImportedDisplacementTolerance());
    CalcGroundMovements_BuildingsSpecific(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    CalcGroundMovements_UtilitiesSpecific(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    CalcGroundMovements_UtilitiesGeneric(stage);
    if (m_cancelled.load(std::memory_order_relaxed))
        return;
    // Generic buildings join before the specific utilities, and rail tracks after the
    // generic utilities, each followed by the cancel test.
    AddImportedDisplacementsToResults(stage, false, true,
                                      m_prefs->GetImportedDisplacementTolerance());
}

void ZorvoSolver::AddImportedDisplacementsToResults(int stage, bool toDisplacementData,
                                                    bool toUtilsBuildsRails, double tolerance) {
    if (m_doc->NumImportedDisplacementsSets() == 0)
        return;
    wchar_t text[256];
    std::swprintf(text, 256, L"%d", stage);
    SendMsg(text, 5);
    for (int set : m_doc->ImportedSetsToInclude(stage)) {
        if (toDisplacementData)
            m_doc->AddImportedDisplacementsToResults(stage, set, tolerance);
        if (toUtilsBuildsRails)
            m_doc->AddImportedDisplacementsToUtilsBuildsRails(stage, set);
    }
    SendMsg(nullptr, 0);
}

void ZorvoSolver::CalcGroundMovements_DisplacementPoints(int stage) {
    ZorvoData& doc = *m_doc;
    auto shape = [&doc](int i) {
        return SObjectRows{doc.GetDisplacementPoint(i).GetCalculate(), 1, 1};
    };
    FamilyLoop(40, stage, doc.NumDisplacementPoints(false), false, shape, [&](int i, int, int) {
        if (LoopCancelled())
            return 0;
        const CDisplacementPoint& point = doc.GetDisplacementPoint(i);
        GeoDispResult result;
        result.SetPoint(point.GetPoint());
        result.SetName(point.Name());
        result.SetPointType(ePoint);
        result.SetPointGroup(i);
        CalcPointResult(result, doc, stage, point.GetSurfaceType(), true);
        doc.AccessDisplacementPoint(i).SetResult(stage, 0, 0, result);
        return 1;
    });
}

void ZorvoSolver::CalcGroundMovements_DisplacementLines(int stage) {
    ZorvoData& doc = *m_doc;
    const int group0 = doc.NumDisplacementPoints(false);
    // Locations 0 to J, as many as the store sized for them before the run; a line
    // whose store does not hold its locations is left alone, never written past.
    auto shape = [&doc, stage](int i) {
        const CDisplacementLine& line = doc.GetDisplacementLine(i);
        const bool wanted = line.GetCalculate();
        return SObjectRows{wanted, wanted && line.StoreMatches(stage) ? line.NumResults(stage) : 0,
                           1};
    };
    FamilyLoop(
        41, stage, doc.NumDisplacementLines(false), false, shape, [&](int i, int k0, int k1) {
            CDisplacementLine& line = doc.AccessDisplacementLine(i);
            const CString name = RunName(line.Name(), k0 == 0 && k1 == line.NumResults(stage));
            for (int k = k0; k < k1; ++k) {
                if (LoopCancelled())
                    return k - k0;
                GeoDispResult result;
                result.SetName(name);
                result.SetPointType(eLine);
                result.SetPointGroup(group0 + i);
                CalculateLinePointResult(result, line, k, stage);
                line.SetResult(stage, k, 0, result);
            }
            return k1 - k0;
        });
}

void ZorvoSolver::CalcGroundMovements_DisplacementPolylines(int stage) {
    ZorvoData& doc = *m_doc;
    const int group0 = doc.NumDisplacementPoints(false) + doc.NumDisplacementLines(false);
    // A reference to a missing polyline is reported by the checks; here it only leaves
    // the record's samples fresh.
    auto shape = [&doc, stage](int i) {
        const CDisplacementPolyline& record = doc.GetDisplacementPolyline(i);
        const bool wanted = record.GetCalculate();
        const bool placed =
            wanted && doc.PolylineExists(record.GetPolyline()) && record.StoreMatches(stage);
        return SObjectRows{wanted, placed ? record.NumResults(stage) : 0, 1}; // J + 1 rows
    };
    FamilyLoop(
        42, stage, doc.NumDisplacementPolylines(false), false, shape, [&](int i, int k0, int k1) {
            CDisplacementPolyline& record = doc.AccessDisplacementPolyline(i);
            const CPolylinePlus& polyline = doc.GetPolyline(record.GetPolyline());
            const int J = record.GetIntervalsAlongLine();
            const double spacing = polyline.Len(true) / J;
            const CString name = RunName(record.Name(), k0 == 0 && k1 == record.NumResults(stage));
            // One walk along the vertices for the run's samples, at rising
            // distances. A cursor that starts at sample k0 walks from the first
            // vertex to it with the same sums of segment lengths as one that came
            // from sample 0, so each run places its samples exactly as a single
            // walk would.
            CPolylineCursor cursor(polyline);
            for (int k = k0; k < k1; ++k) {
                if (LoopCancelled())
                    return k - k0;
                Vec3<double> p;
                if (cursor.PointAt(k * spacing, p) < 0)
                    continue; // a polyline of fewer than two points has no locations
                GeoDispResult result;
                result.SetPoint(p);
                result.SetName(name);
                result.SetPointType(ePolyline);
                result.SetPointGroup(group0 + i);
                CalcPointResult(result, doc, stage, record.GetSurfaceType(), true);
                record.SetResult(stage, k, 0, result);
            }
            return k1 - k0;
        });
}

void ZorvoSolver::CalcGroundMovements_DisplacementGrids(int stage) {
    ZorvoData& doc = *m_doc;
    const int group0 = doc.NumDisplacementPoints(false) + doc.NumDisplacementLines(false) +
                       doc.NumDisplacementPolylines(false);
    // A + 1 rows of B + 1 samples; a store with rows holds a representable grid, so
    // B + 1 cannot overflow there.
    auto shape = [&doc, stage](int i) {
        const CDisplacementGrid& grid = doc.GetDisplacementGrid(i);
        const bool wanted = grid.GetCalculate();
        const int rows = wanted && grid.StoreMatches(stage) ? grid.NumResults(stage) : 0;
        return SObjectRows{wanted, rows, rows > 0 ? grid.GetIntervalsAlongExtrusion() + 1 : 1};
    };
    FamilyLoop(
        43, stage, doc.NumDisplacementGrids(false), false, shape, [&](int i, int a0, int a1) {
            CDisplacementGrid& grid = doc.AccessDisplacementGrid(i);
            const Vec3<double> P1 = grid.GetPoint1();
            const Vec3<double> P2 = grid.GetPoint2();
            const double E = grid.GetExtrusionDistance();
            const int A = grid.GetIntervalsAlongLine();
            const int B = grid.GetIntervalsAlongExtrusion();
            const EExtrusionDirection direction = grid.GetExtrusionDirection();
            const int columns = B + 1;
            const CString name = RunName(grid.Name(), a0 == 0 && a1 == grid.NumResults(stage));
            for (int a = a0; a < a1; ++a) {
                if (LoopCancelled())
                    return a - a0;
                for (int b = 0; b < columns; ++b) {
                    // A row of millions of samples is stopped within it too, and
                    // is then left unfinished.
                    if (b != 0 && b % kRowCancelStride == 0 && LoopCancelled())
                        return a - a0;
                    const double across = b * E / B;
                    Vec3<double> p;
                    if (direction == eExtrudeX)
                        p = {P1.x + across, P1.y + (P2.y - P1.y) * a / A,
                             P1.z + (P2.z - P1.z) * a / A};
                    else if (direction == eExtrudeY)
                        p = {P1.x + (P2.x - P1.x) * a / A, P1.y + across,
                             P1.z + (P2.z - P1.z) * a / A};
                    else
                        p = {P1.x + (P2.x - P1.x) * a / A, P1.y + (P2.y - P1.y) * a / A,
                             P1.z + across};
                    GeoDispResult result;
                    result.SetPoint(p);
                    result.SetName(name);
                    result.SetPointType(eGrid);
                    result.SetPointGroup(group0 + i);
                    CalcPointResult(result, doc, stage, grid.GetSurfaceType(), true);
                    grid.SetResult(stage, a, b, result);
                }
            }
            return a1 - a0;
        });
}

void ZorvoSolver::CalcPointResult(GeoDispResult& result, const ZorvoData& doc, int stage,
                                  ESurfaceType surface, bool) const {
    const Vec3<double> p = result.GetPoint();
    double zDisp = 0.0;
    double xyDisp[2] = {0.0, 0.0};
    double principal[3] = {0.0, 0.0, 0.0};
    if (m_sources && m_sources->Stage() == stage && &m_sources->Document() == &doc) {
        if (m_sources->IsPointInAnyExcavation(p))
            return;
        ZorvoCal::tun21_(*m_sources, p.x, p.y, p.z, surface, &zDisp, xyDisp, principal, true);
    } else {
        if (doc.IsPointInAnyExcavation(p, stage))
            return;
        ZorvoCal::tun21_(doc, stage, p.x, p.y, p.z, surface, &zDisp, xyDisp, principal);
    }

    if (std::fabs(xyDisp[0]) > kResultThreshold)
        result.SetXdisplacement(xyDisp[0] * kMmToM);
    if (std::fabs(xyDisp[1]) > kResultThreshold)
        result.SetYdisplacement(xyDisp[1] * kMmToM);
    if (std::fabs(zDisp) > kResultThreshold)
        result.SetZdisplacement(zDisp * kMmToM);
    if (std::fabs(principal[0]) > kResultThreshold)
        result.SetMajorPrincipalStrain(principal[0]);
    if (std::fabs(principal[1]) > kResultThreshold)
        result.SetMinorPrincipalStrain(principal[1]);
    if (std::fabs(principal[2]) > kResultThreshold)
        result.SetPrincipalStrainAngle(principal[2]);
}

void ZorvoSolver::CalculateLinePointResult(GeoDispResult& result, const CDisplacementLine& line,
                                           int k, int stage) const {
    const Vec3<double>& P1 = line.GetPoint1();
    const Vec3<double>& P2 = line.GetPoint2();
    const int J = line.GetIntervalsAlongLine();
    result.SetXpoint((P2.x - P1.x) * k / J + P1.x);
    result.SetYpoint((P2.y - P1.y) * k / J + P1.y);
    result.SetZpoint((P2.z - P1.z) * k / J + P1.z);

    if (line.IsHorizontal()) {
        CalcPointResult(result, *m_doc, stage, line.GetSurfaceType(), true);
        return;
    }
    CalcSlopingPointResult(result, stage, line.GetSurfaceType());
}

void ZorvoSolver::CalcSlopingPointResult(GeoDispResult& result, int stage,
                                         ESurfaceType surface) const {
    const Vec3<double> p = result.GetPoint();
    const double zero = 0.0;
    double out[4];
    if (m_sources && m_sources->Stage() == stage)
        ZorvoCal::tun28_(*m_sources, p.x, p.y, p.z, surface, zero, zero, out);
    else
        ZorvoCal::tun28_(*m_doc, stage, p.x, p.y, p.z, surface, zero, zero, out);
    result.SetXdisplacement(kMmToM * out[0]);
    result.SetYdisplacement(kMmToM * out[1]);
    result.SetZdisplacement(kMmToM * out[2]);
}

} // namespace Tevra
