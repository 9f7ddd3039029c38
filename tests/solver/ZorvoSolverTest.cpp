#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>
#include <omp.h>

#include <atomic>
#include <climits>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

// Every message as one word: "t" for a tick, "33" for a code without text, "40:1" for a
// code with its text.
struct Recorder : MessageHandler {
    std::string trace;
    int ticks = 0;
    void OnMessage(const wchar_t* text, long long code) override {
        if (!trace.empty())
            trace += ' ';
        if (code == 0 && !text) {
            trace += 't';
            ++ticks;
            return;
        }
        trace += std::to_string(code);
        if (text)
            trace += ':' + CString(text).ToUtf8();
    }
};

// A 2 km tunnel along X centred on the origin: D = 6 m, 1.5 % loss, O'Reilly and New in
// clay. At 20 m above the axis i = 0.43 20 + 1.1 = 9.7 and the peak settlement is
// Smax = (pi 36 / 4) 1.5 10 / (9.7 sqrt(2 pi)) = 17.443032 mm.

CDisplacementPoint PointAt(double x, double y, double z) {
    CDisplacementPoint p;
    p.SetPoint({x, y, z});
    return p;
}

CDisplacementLine Line(Vec3<double> p1, Vec3<double> p2, int intervals) {
    CDisplacementLine l;
    l.SetPoint1(p1);
    l.SetPoint2(p2);
    l.SetIntervalsAlongLine(intervals);
    return l;
}

void SetSmoothing(ZorvoData& doc, bool on) {
    CReEntrantCornerOptions o;
    o.SetReEntrantCornerSmoothing(on);
    doc.SetReEntrantCornerOptions(o);
}

// Runs the document through a solver with a recording handler; answers the messages.
std::string Solve(ZorvoData& doc) {
    CLodraZorvoPrefData prefs;
    Recorder r;
    ZorvoSolver solver(&doc, &prefs, &r, {});
    EXPECT_TRUE(solver.Solve());
    return r.trace;
}

const GeoDispResult kFresh;

} // namespace

TEST(ZorvoSolver, MessagesByStageAndFamily) {
    ZorvoData doc;
    doc.SetStage(1, CStage());
    doc.SetDisplacementPoint(2, CDisplacementPoint());
    doc.SetDisplacementLine(1, CDisplacementLine());
    doc.SetDisplacementGrid(1, CDisplacementGrid());
    // No polylines: their message is not sent. Fewer than 10 objects: every one ticks.
    EXPECT_EQ(Solve(doc), "33 40:0 t t 41:0 t 43:0 t 40:1 t t 41:1 t 43:1 t");

    ZorvoData empty;
    EXPECT_EQ(Solve(empty), "33");
}

TEST(ZorvoSolver, ProgressTicksAreRationed) {
    // step = N / c with c = N / 10 held within 10 to 100, and at least 1.
    struct {
        int objects, step, ticks;
    } cases[] = {
        {9, 1, 9},       // q = 0, c = 10, step 0 lifted to 1
        {150, 10, 15},   // q = 15, c = 15, step 10
        {1000, 10, 100}, // q = 100, c = 100
        {5000, 50, 100}, // q = 500, c = 100
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ZorvoSolver::TickStep(c.objects), c.step) << c.objects;
        ZorvoData doc;
        doc.SetDisplacementPoint(c.objects, CDisplacementPoint());
        CLodraZorvoPrefData prefs;
        Recorder r;
        ZorvoSolver solver(&doc, &prefs, &r, {});
        ASSERT_TRUE(solver.Solve());
        EXPECT_EQ(r.ticks, c.ticks) << c.objects;
        EXPECT_EQ(r.trace.rfind("33 40:0 t", 0), 0u) << c.objects;
    }
}

TEST(ZorvoSolver, CancelledOnTheFirstCallOfTheTest) {
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    doc.SetStage(1, CStage());
    for (int n = 1; n <= 3; ++n)
        doc.SetDisplacementPoint(n, PointAt(n, 0.0, 20.0));
    doc.SetDisplacementLine(1, CDisplacementLine());

    std::atomic<int> calls{0};
    CLodraZorvoPrefData prefs;
    Recorder r;
    ZorvoSolver solver(&doc, &prefs, &r, [&calls] {
        ++calls;
        return true;
    });
    EXPECT_TRUE(solver.Solve());
    EXPECT_TRUE(solver.WasCancelled());
    EXPECT_GE(calls.load(), 1);
    // The points' loop starts and falls through; nothing further is begun.
    EXPECT_EQ(r.trace, "33 40:0");
    for (int s = 0; s < 2; ++s) {
        for (int n = 1; n <= 3; ++n)
            EXPECT_EQ(doc.GetDisplacementPoint(n).GetResultFromPosition(s, 0, 0), kFresh);
        for (const auto& sample : doc.GetDisplacementLine(1).GetResults(s))
            EXPECT_EQ(sample[0], kFresh);
    }

    // Solve again without a cancel test: a full run, the flag cleared.
    ZorvoSolver again(&doc, &prefs, nullptr, {});
    EXPECT_TRUE(again.Solve());
    EXPECT_FALSE(again.WasCancelled());
    EXPECT_GT(doc.GetDisplacementPoint(1).GetResultFromPosition(0, 0, 0).GetZdisplacement(), 0.0);
}

TEST(ZorvoSolver, NullDocumentOrPreferencesDoNothing) {
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    doc.SetDisplacementPoint(1, PointAt(0.0, 0.0, 20.0));
    Solve(doc);
    const ZorvoData before = doc;

    CLodraZorvoPrefData prefs;
    Recorder r;
    EXPECT_FALSE(ZorvoSolver(nullptr, &prefs, &r, {}).Solve());
    EXPECT_FALSE(ZorvoSolver(&doc, nullptr, &r, {}).Solve());
    EXPECT_EQ(r.trace, "");
    EXPECT_TRUE(doc == before); // the earlier results stand
}

TEST(ZorvoSolver, BaseModelAloneWithoutStages) {
    for (bool smoothing : {false, true}) {
        ZorvoData doc;
        doc.SetTunnel(1, LongTunnel());
        doc.SetDisplacementPoint(1, PointAt(0.0, 0.0, 20.0));
        SetSmoothing(doc, smoothing);
        // S = n + 1 = 1, or 2n + 2 = 2 with smoothing: the base model twice.
        EXPECT_EQ(Solve(doc), smoothing ? "33 40:0 t 40:1 t" : "33 40:0 t");
        const CDisplacementPoint& p = doc.GetDisplacementPoint(1);
        ASSERT_EQ(p.NumResultStages(), smoothing ? 2 : 1);
        for (int s = 0; s < p.NumResultStages(); ++s) {
            const GeoDispResult& r = p.GetResultFromPosition(s, 0, 0);
            EXPECT_NEAR(r.GetZdisplacement(), 0.017443032, 1e-9) << s; // Smax in metres
            EXPECT_EQ(r.GetPointType(), ePoint);
            EXPECT_EQ(r.GetPointGroup(), 1);
        }
    }
}

TEST(ZorvoSolver, RecordsWithTheirCalculateFlagClear) {
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    for (int n = 1; n <= 10; ++n) {
        CDisplacementPoint p = PointAt(n, 0.0, 20.0);
        p.SetCalculate(n % 3 != 0); // 3, 6 and 9 are not wanted
        doc.SetDisplacementPoint(n, p);
    }
    CDisplacementLine off = Line({0.0, -10.0, 20.0}, {0.0, 10.0, 20.0}, 4);
    off.SetCalculate(false);
    doc.SetDisplacementLine(1, off);

    // The line family is still announced, but no record ticks or gets results.
    EXPECT_EQ(Solve(doc), "33 40:0 t t t t t t t 41:0");
    EXPECT_EQ(doc.GetDisplacementLine(1).NumResultStages(), 0);
    EXPECT_FALSE(doc.GetDisplacementLine(1).ResultsExist(-1));
    EXPECT_EQ(doc.GetDisplacementPoint(3).NumResultStages(), 0);
    EXPECT_GT(doc.GetDisplacementPoint(4).GetResultFromPosition(0, 0, 0).GetZdisplacement(), 0.0);
}

TEST(ZorvoSolver, TinyMovementsAreStoredAsNone) {
    // D = 0.01 m and 1e-6 % loss, user k, 10 m above the axis:
    // Smax = (pi 1e-4 / 4) 1e-6 10 / (i sqrt(2 pi)) = 3.1332853e-10 / i mm. With k = 0.5,
    // i = 5 and Smax = 6.27e-11 mm, below 1.00000001335e-10: stored as exactly nothing.
    // With k = 0.1, i = 1: 3.1332853e-10 mm passes. The strain -0.1 Smax / h stays below.
    struct {
        double k;
        double Z; // metres
    } cases[] = {{0.5, 0.0}, {0.1, 3.1332853e-13}};
    for (const auto& c : cases) {
        GeoTunnel t = LongTunnel();
        t.SetDiameter(0.01);
        t.SetPercentLoss(1e-6);
        t.SetkDerivation(eSurface, GeoTunnel::ekUserSpecified);
        t.Setk(eSurface, c.k);
        ZorvoData doc;
        doc.SetTunnel(1, t);
        doc.SetDisplacementPoint(1, PointAt(0.0, 0.0, 10.0));
        Solve(doc);
        const GeoDispResult& r = doc.GetDisplacementPoint(1).GetResultFromPosition(0, 0, 0);
        EXPECT_NEAR(r.GetZdisplacement(), c.Z, 1e-19) << c.k;
        if (c.Z == 0.0) {
            EXPECT_EQ(r.GetZdisplacement(), 0.0);
        }
        EXPECT_EQ(r.GetXdisplacement(), 0.0) << c.k;
        EXPECT_EQ(r.GetYdisplacement(), 0.0) << c.k;
        EXPECT_EQ(r.GetMinorPrincipalStrain(), 0.0) << c.k;
        EXPECT_EQ(r.GetMajorPrincipalStrain(), 0.0) << c.k;
    }
}

TEST(ZorvoSolver, SlopingLineHasDisplacementsAndNoStrains) {
    // Across the tunnel from (0, -10, 20) to (0, 10, 24) in 4 intervals. At location 2,
    // (0, 0, 22): h = 22, i = 0.43 22 + 1.1 = 10.56, Smax = 169.197409 / 10.56
    // = 16.0224819 mm.
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    doc.SetDisplacementLine(1, Line({0.0, -10.0, 20.0}, {0.0, 10.0, 24.0}, 4));
    doc.SetDisplacementLine(2, Line({0.0, -10.0, 20.0}, {0.0, 10.0, 20.0}, 4));
    Solve(doc);

    const CDisplacementLine& sloping = doc.GetDisplacementLine(1);
    for (int k = 0; k <= 4; ++k) {
        const GeoDispResult& r = sloping.GetResultFromPosition(0, k, 0);
        EXPECT_DOUBLE_EQ(r.GetPoint().z, 20.0 + k) << k;
        EXPECT_GT(r.GetZdisplacement(), 0.0) << k;
        EXPECT_EQ(r.GetMajorPrincipalStrain(), 0.0) << k;
        EXPECT_EQ(r.GetMinorPrincipalStrain(), 0.0) << k;
        EXPECT_EQ(r.GetPrincipalStrainAngle(), 0.0) << k;
    }
    EXPECT_NEAR(sloping.GetResultFromPosition(0, 2, 0).GetZdisplacement(), 0.0160224819, 1e-9);
    // The movement pulls both sides towards the axis.
    EXPECT_GT(sloping.GetResultFromPosition(0, 0, 0).GetYdisplacement(), 0.0);
    EXPECT_LT(sloping.GetResultFromPosition(0, 4, 0).GetYdisplacement(), 0.0);

    // The same line on the level has its strains: over the axis -0.1 Smax / 20.
    const GeoDispResult& level = doc.GetDisplacementLine(2).GetResultFromPosition(0, 2, 0);
    EXPECT_NEAR(level.GetZdisplacement(), 0.017443032, 1e-9);
    EXPECT_NEAR(level.GetMinorPrincipalStrain(), -0.08721516, 1e-8);
}

TEST(ZorvoSolver, WhereTheSamplesAre) {
    ZorvoData doc;
    doc.SetDisplacementPoint(2, CDisplacementPoint());
    CDisplacementLine line = Line({1.0, 2.0, 3.0}, {11.0, 7.0, 3.0}, 5);
    line.SetName(L"L");
    doc.SetDisplacementLine(1, line);
    // Plan length 1.6 + 1.5 = 3.1 m in 3 intervals: 3 (3.1 / 3) rounds to just past the
    // end, and the last sample is still the last vertex.
    CPolylinePlus bend;
    bend.SetPoint(0, {0.0, 0.0, 0.0});
    bend.SetPoint(1, {1.6, 0.0, 0.0});
    bend.SetPoint(2, {1.6, 1.5, 3.0});
    doc.SetPolyline(1, bend);
    CDisplacementPolyline dp;
    dp.SetPolyline(1);
    dp.SetIntervalsAlongLine(3);
    doc.SetDisplacementPolyline(1, dp);
    // P1 (1, 2, 3), P2 (5, 10, 7), swept 6 m in 3 intervals, 2 intervals along.
    for (int d = 0; d < 3; ++d) {
        CDisplacementGrid g;
        g.SetPoint1({1.0, 2.0, 3.0});
        g.SetPoint2({5.0, 10.0, 7.0});
        g.SetExtrusionDistance(6.0);
        g.SetIntervalsAlongLine(2);
        g.SetIntervalsAlongExtrusion(3);
        g.SetExtrusionDirection(static_cast<EExtrusionDirection>(d));
        doc.SetDisplacementGrid(d + 1, g);
    }
    Solve(doc);

    // Line: (1, 2, 3) + k (2, 1, 0); group after the 2 points.
    for (int k = 0; k <= 5; ++k) {
        const GeoDispResult& r = doc.GetDisplacementLine(1).GetResultFromPosition(0, k, 0);
        EXPECT_EQ(r.GetPoint(), Vec3<double>(1.0 + 2 * k, 2.0 + k, 3.0)) << k;
        EXPECT_EQ(r.GetPointType(), eLine);
        EXPECT_EQ(r.GetPointGroup(), 3);
        EXPECT_EQ(r.Name(), CString(L"L"));
    }

    // Polyline: every 1.0333 m in plan; the level follows the plan fraction of a segment.
    const Vec3<double> along[] = {
        {0.0, 0.0, 0.0},
        {3.1 / 3.0, 0.0, 0.0},
        {1.6, 6.2 / 3.0 - 1.6, 3.0 * (6.2 / 3.0 - 1.6) / 1.5}, // (1.6, 0.46667, 0.93333)
    };
    for (int k = 0; k <= 3; ++k) {
        const GeoDispResult& r = doc.GetDisplacementPolyline(1).GetResultFromPosition(0, k, 0);
        EXPECT_EQ(r.GetPointType(), ePolyline);
        EXPECT_EQ(r.GetPointGroup(), 4);
        if (k == 3) {
            EXPECT_EQ(r.GetPoint(), Vec3<double>(1.6, 1.5, 3.0));
            continue;
        }
        EXPECT_NEAR(r.GetPoint().x, along[k].x, 1e-12) << k;
        EXPECT_NEAR(r.GetPoint().y, along[k].y, 1e-12) << k;
        EXPECT_NEAR(r.GetPoint().z, along[k].z, 1e-12) << k;
    }

    // Grids: along the base line by a, swept by b = 2 m a step in X, Y or Z.
    for (int d = 0; d < 3; ++d) {
        const CDisplacementGrid& g = doc.GetDisplacementGrid(d + 1);
        for (int a = 0; a <= 2; ++a) {
            for (int b = 0; b <= 3; ++b) {
                const Vec3<double> base(1.0 + 2 * a, 2.0 + 4 * a, 3.0 + 2 * a);
                Vec3<double> expected = base;
                if (d == 0)
                    expected.x = 1.0 + 2 * b;
                else if (d == 1)
                    expected.y = 2.0 + 2 * b;
                else
                    expected.z = 3.0 + 2 * b;
                const GeoDispResult& r = g.GetResultFromPosition(0, a, b);
                EXPECT_EQ(r.GetPoint(), expected) << "direction " << d << " a " << a << " b " << b;
                EXPECT_EQ(r.GetPointType(), eGrid);
                EXPECT_EQ(r.GetPointGroup(), 4 + d + 1);
            }
        }
    }
}

namespace {

struct RestoreThreads {
    int saved = omp_get_max_threads();
    ~RestoreThreads() { omp_set_num_threads(saved); }
};

// Every stored field of every sample of the displacement records, numbers as their bits.
std::vector<unsigned char> Samples(const ZorvoData& d) {
    std::vector<unsigned char> bytes;
    auto add = [&bytes](const void* p, size_t n) {
        const auto* c = static_cast<const unsigned char*>(p);
        bytes.insert(bytes.end(), c, c + n);
    };
    for (int n = 1; n <= d.NumDisplacementData(); ++n) {
        for (const auto& stage : d.GetDisplacementData(n).AllResults()) {
            for (const auto& row : stage) {
                for (const GeoDispResult& r : row) {
                    const double v[] = {r.GetPoint().x,
                                        r.GetPoint().y,
                                        r.GetPoint().z,
                                        r.GetXdisplacement(),
                                        r.GetYdisplacement(),
                                        r.GetZdisplacement(),
                                        r.GetMajorPrincipalStrain(),
                                        r.GetMinorPrincipalStrain(),
                                        r.GetPrincipalStrainAngle()};
                    const int w[] = {r.GetPointType(), r.GetPointGroup(), r.GetImportMatch()};
                    add(v, sizeof v);
                    add(w, sizeof w);
                    add(r.Name().GetString(), sizeof(wchar_t) * size_t(r.Name().GetLength()));
                }
            }
        }
    }
    return bytes;
}

} // namespace

TEST(ZorvoSolver, SameResultsWithAnyNumberOfThreads) {
    // A grid of 401 x 401 samples and a polyline of 30001 samples over two crossing
    // tunnels, in the base model and one stage, beside 40 points: the threads share the
    // samples of each large record and the points between them.
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    GeoTunnel cross = LongTunnel();
    cross.SetXCentreLine1(-30.0);
    cross.SetYCentreLine1(-40.0);
    cross.SetXCentreLine2(30.0);
    cross.SetYCentreLine2(40.0);
    doc.SetTunnel(2, cross);
    CStage second;
    CBasicList two;
    two.SetString(L"2");
    second.SetTunnels(two);
    doc.SetStage(1, second);
    CDisplacementGrid g;
    g.SetName(L"G");
    g.SetPoint1({-30.0, -30.0, 20.0});
    g.SetPoint2({30.0, -30.0, 20.0});
    g.SetExtrusionDistance(60.0);
    g.SetIntervalsAlongLine(400);
    g.SetIntervalsAlongExtrusion(400);
    doc.SetDisplacementGrid(1, g);
    // A zigzag of 12 vertices with segments of awkward lengths, some climbing.
    CPolylinePlus zigzag;
    for (int v = 0; v < 12; ++v)
        zigzag.SetPoint(v, {-40.0 + 7.3 * v, (v % 2 ? 11.0 : -9.0) + 0.1 * v, 20.0 + 0.7 * v});
    doc.SetPolyline(1, zigzag);
    CDisplacementPolyline dp;
    dp.SetName(L"Z");
    dp.SetPolyline(1);
    dp.SetIntervalsAlongLine(30000);
    doc.SetDisplacementPolyline(1, dp);
    for (int n = 1; n <= 40; ++n)
        doc.SetDisplacementPoint(n, PointAt(n - 20.0, 0.5 * n, 15.0));

    RestoreThreads restore;
    std::vector<unsigned char> reference;
    std::string referenceTrace;
    for (int threads : {1, 2, 8}) {
        omp_set_num_threads(threads);
        ZorvoData run = doc;
        // The same messages and ticks: each record ticks once, whichever thread ends it.
        const std::string trace = Solve(run);
        const std::vector<unsigned char> bytes = Samples(run);
        if (reference.empty()) {
            reference = bytes;
            referenceTrace = trace;
            EXPECT_EQ(trace.rfind("33 40:0 t t", 0), 0u);
            EXPECT_NE(trace.find("42:0 t 43:0 t 40:1"), std::string::npos) << trace;
            EXPECT_GT(
                run.GetDisplacementGrid(1).GetResultFromPosition(1, 200, 200).GetZdisplacement(),
                0.0);
            // Each polyline sample where PointAt puts it, bit for bit: the runs that start
            // in the middle of the polyline walk to the same points.
            const double spacing = zigzag.Len(true) / 30000;
            for (int k = 0; k <= 30000; ++k) {
                Vec3<double> p;
                ASSERT_GE(zigzag.PointAt(k * spacing, p), 0) << k;
                const Vec3<double> got =
                    run.GetDisplacementPolyline(1).GetResultFromPosition(0, k, 0).GetPoint();
                ASSERT_EQ(std::memcmp(&got, &p, sizeof p), 0) << k;
            }
            continue;
        }
        EXPECT_EQ(trace, referenceTrace) << threads << " threads";
        ASSERT_EQ(bytes.size(), reference.size());
        EXPECT_TRUE(bytes == reference) << threads << " threads";
    }
}

TEST(ZorvoSolver, CancelledGridStopsWithinItsRow) {
    // The cancel test answers false 4 times and then true: each false answer lets one
    // thread go on to its next test, so exactly 4 rows of 301 samples are finished
    // whatever the thread count, and no row is begun after the stop. A row of 10001
    // samples is tested every 4096 samples as well: the 2 false answers give 2 x 4096.
    struct {
        int rows, columns, falseAnswers, samples;
    } cases[] = {{60, 301, 4, 4 * 301}, {2, 10001, 2, 2 * 4096}};
    RestoreThreads restore;
    for (const auto& c : cases) {
        for (int threads : {1, 2, 8}) {
            omp_set_num_threads(threads);
            ZorvoData doc;
            doc.SetTunnel(1, LongTunnel());
            CDisplacementGrid g;
            g.SetPoint1({-30.0, -30.0, 20.0});
            g.SetPoint2({30.0, -30.0, 20.0});
            g.SetExtrusionDistance(60.0);
            g.SetIntervalsAlongLine(c.rows - 1);
            g.SetIntervalsAlongExtrusion(c.columns - 1);
            doc.SetDisplacementGrid(1, g);

            std::atomic<int> calls{0};
            CLodraZorvoPrefData prefs;
            Recorder r;
            ZorvoSolver solver(&doc, &prefs, &r, [&calls, &c] { return ++calls > c.falseAnswers; });
            EXPECT_TRUE(solver.Solve());
            EXPECT_TRUE(solver.WasCancelled());
            EXPECT_EQ(r.trace, "33 43:0") << "an unfinished grid does not tick";

            int computed = 0, rowsBegun = 0;
            for (const auto& row : doc.GetDisplacementGrid(1).GetResults(0)) {
                int inRow = 0;
                for (const GeoDispResult& sample : row)
                    inRow += sample.GetPointType() == eGrid ? 1 : 0;
                // Samples are calculated from the start of a row on.
                for (int b = 0; b < inRow; ++b)
                    EXPECT_EQ(row[size_t(b)].GetPointType(), eGrid);
                computed += inRow;
                rowsBegun += inRow > 0 ? 1 : 0;
            }
            EXPECT_EQ(computed, c.samples) << c.columns << " columns, " << threads << " threads";
            EXPECT_LE(rowsBegun, c.falseAnswers) << threads << " threads";
        }
    }
}

// Guards the crash where INT_MAX intervals overflowed the location count, the store was
// sized to nothing and the loops wrote past it.
TEST(ZorvoSolver, RecordsWhoseLocationsCannotBeCountedGetNoSamples) {
    ZorvoData doc;
    doc.SetTunnel(1, LongTunnel());
    CDisplacementLine line = Line({0.0, 0.0, 20.0}, {10.0, 0.0, 20.0}, INT_MAX);
    doc.SetDisplacementLine(1, line);
    CPolylinePlus polyline;
    polyline.SetPoint(0, {0.0, 0.0, 20.0});
    polyline.SetPoint(1, {10.0, 0.0, 20.0});
    doc.SetPolyline(1, polyline);
    CDisplacementPolyline dp;
    dp.SetIntervalsAlongLine(INT_MAX);
    doc.SetDisplacementPolyline(1, dp);
    CDisplacementGrid grid;
    grid.SetIntervalsAlongLine(2000000000);
    grid.SetIntervalsAlongExtrusion(2000000000);
    doc.SetDisplacementGrid(1, grid);
    doc.SetDisplacementPoint(1, PointAt(0.0, 0.0, 20.0)); // the run goes on around them
    Solve(doc);
    EXPECT_EQ(doc.GetDisplacementLine(1).NumResults(0), 0);
    EXPECT_EQ(doc.GetDisplacementPolyline(1).NumResults(0), 0);
    EXPECT_EQ(doc.GetDisplacementGrid(1).NumResults(0), 0);
    EXPECT_GT(doc.GetDisplacementPoint(1).GetResultFromPosition(0, 0, 0).GetZdisplacement(), 0.0);
}

TEST(ZorvoSolver, DegenerateDocumentsRunThrough) {
    // Each case has a point over the tunnel's axis that must not move.
    struct {
        const char* what;
        void (*build)(ZorvoData&);
    } cases[] = {
        {"empty document", [](ZorvoData&) {}},
        {"no stages",
         [](ZorvoData& d) {
             d.DeleteStage(1, -1);
             d.SetDisplacementLine(1, CDisplacementLine());
             d.SetDisplacementGrid(1, CDisplacementGrid());
         }},
        {"tunnel of no diameter", [](ZorvoData& d) { d.AccessTunnel(1).SetDiameter(0.0); }},
        {"tunnel of no loss", [](ZorvoData& d) { d.AccessTunnel(1).SetPercentLoss(0.0); }},
        {"every record off",
         [](ZorvoData& d) {
             d.DeleteTunnel(1, -1);
             d.AccessDisplacementPoint(1).SetCalculate(false);
             CDisplacementGrid g;
             g.SetCalculate(false);
             d.SetDisplacementGrid(1, g);
             CDisplacementPolyline p;
             p.SetCalculate(false);
             d.SetDisplacementPolyline(1, p);
         }},
        {"missing polyline",
         [](ZorvoData& d) {
             d.DeleteTunnel(1, -1);
             CDisplacementPolyline p;
             p.SetPolyline(3);
             d.SetDisplacementPolyline(1, p);
         }},
        {"polyline of one vertex",
         [](ZorvoData& d) {
             d.DeleteTunnel(1, -1);
             CPolylinePlus one;
             one.SetPoint(0, {0.0, 0.0, 20.0});
             d.SetPolyline(1, one);
             d.SetDisplacementPolyline(1, CDisplacementPolyline());
         }},
    };
    for (const auto& c : cases) {
        ZorvoData doc;
        if (std::string(c.what) != "empty document") {
            doc.SetTunnel(1, LongTunnel());
            doc.SetStage(1, CStage());
            doc.SetDisplacementPoint(1, PointAt(0.0, 0.0, 20.0));
        }
        c.build(doc);
        Solve(doc);
        const int S = doc.NumStages(true, false);
        const bool moves = std::string(c.what) == "no stages";
        for (int n = 1; n <= doc.NumDisplacementPoints(false); ++n) {
            const CDisplacementPoint& p = doc.GetDisplacementPoint(n);
            EXPECT_EQ(p.NumResultStages(), p.GetCalculate() ? S : 0) << c.what;
            for (int s = 0; s < p.NumResultStages(); ++s)
                EXPECT_EQ(p.GetResultFromPosition(s, 0, 0).GetZdisplacement() > 0.0, moves)
                    << c.what;
        }
        // Samples that cannot be placed stay fresh.
        for (int n = 1; n <= doc.NumDisplacementPolylines(false); ++n)
            for (int s = 0; s < doc.GetDisplacementPolyline(n).NumResultStages(); ++s)
                for (const auto& row : doc.GetDisplacementPolyline(n).GetResults(s))
                    EXPECT_EQ(row[0], kFresh) << c.what;
    }
}
