// Imported displacements added where a sample coincides with an imported point: the
// tolerance rules, the index that finds the points, and the additions to the records.
#include "base/CImportedDisplacementMatcher.h"
#include "base/LodraZorvoData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

CImportedDisplacement Imported(double x, double y, double z, double dx, double dy, double dz) {
    CImportedDisplacement d;
    d.SetXpoint(x);
    d.SetYpoint(y);
    d.SetZpoint(z);
    d.SetXdisplacement(dx);
    d.SetYdisplacement(dy);
    d.SetZdisplacement(dz);
    return d;
}

// A calculated sample at a point with displacements (metres).
GeoDispResult Sample(Vec3<double> p, double dx, double dy, double dz) {
    GeoDispResult r;
    r.SetPoint(p);
    r.SetPointType(ePoint);
    r.SetXdisplacement(dx);
    r.SetYdisplacement(dy);
    r.SetZdisplacement(dz);
    return r;
}

} // namespace

TEST(ImportedDisplacements, TwoCoordinatesCoincide) {
    struct {
        double a, b, T;
        bool pass;
    } cases[] = {
        // Absolute, T = 1 mm. 0.001 from 0 is the very double 0.001, so the test is
        // |a - b| = 0.001 < 0.001: false. (Above 0 the difference would round.)
        {0.0, 0.0009, 0.001, true},
        {0.0, 0.001, 0.001, false},
        {0.0, -0.0009, 0.001, true},
        {0.0, -0.001, 0.001, false},
        {0.0, 0.0, 0.0, true}, // T = 0: equal values only
        {0.0, 1e-300, 0.0, false},
        // Relative, T < 0: t = (|a| + |b|) 0.01 / 200.
        // a = 1000, b = 1000.09: t = 2000.09 x 5e-5 = 0.1000045 > 0.09.
        {1000.0, 1000.09, -1.0, true},
        // b = 1000.11: t = 0.1000055 < 0.11.
        {1000.0, 1000.11, -1.0, false},
        {-1000.0, -1000.09, -0.5, true},
        // Near 0 the floor of 1e-6 m holds: (0 + 9e-7) 5e-5 = 4.5e-11 is lifted to 1e-6.
        {0.0, 9e-7, -1.0, true},
        {0.0, 1.1e-6, -1.0, false},
        // Equal values pass whatever the tolerance, the same infinity too; NaN never.
        {kInf, kInf, 0.001, true},
        {kInf, 1e300, 0.001, false},
        {kNaN, kNaN, 0.001, false},
        {kNaN, 0.0, -1.0, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CImportedDisplacementMatcher::Coincide(c.a, c.b, c.T), c.pass)
            << c.a << " " << c.b << " T = " << c.T;
        EXPECT_EQ(CImportedDisplacementMatcher::Coincide(c.b, c.a, c.T), c.pass)
            << c.b << " " << c.a << " T = " << c.T;
    }
}

// The index answers exactly what a test of every imported point in turn answers, for
// any tolerance: points in columns of one X (as a survey grid gives), repeated points,
// points far apart, and a few that are not finite.
TEST(ImportedDisplacements, IndexFindsWhatTheFullScanFinds) {
    std::mt19937_64 random(42);
    std::uniform_int_distribution<int> pick(0, 19);
    std::uniform_real_distribution<double> jitter(-0.003, 0.003);
    std::vector<CImportedDisplacement> list;
    for (int k = 0; k < 400; ++k) {
        const double x = 5000.0 + pick(random) * 0.5; // 20 columns
        const double y = -200.0 + pick(random) * 0.25;
        const double z = pick(random) < 10 ? 100.0 : 100.0 + jitter(random);
        list.push_back(Imported(x, y, z, 0, 0, 0));
    }
    list.push_back(list[7]); // a repeat
    list.push_back(Imported(0.0, 0.0, 0.0, 0, 0, 0));
    list.push_back(Imported(kInf, 1.0, 2.0, 0, 0, 0));
    list.push_back(Imported(kNaN, 1.0, 2.0, 0, 0, 0));
    list.push_back(Imported(3.0, -kInf, 2.0, 0, 0, 0));

    std::vector<Vec3<double>> samples;
    for (int k = 0; k < 3000; ++k) {
        const CImportedDisplacement& d = list[static_cast<size_t>(k) % list.size()];
        samples.push_back({d.GetXpoint() + jitter(random) * (k % 3),
                           d.GetYpoint() + jitter(random) * (k % 2), d.GetZpoint()});
    }
    // At the edges of the rules: imported points at (v, v, 0), samples just inside and
    // just outside the relative bound 1.00005e-4 |v|, the floor and the absolute ones.
    for (double v : {1e-3, 7.5, 5000.25, 5e5, -3e5}) {
        list.push_back(Imported(v, v, 0.0, 0, 0, 0));
        for (double delta : {1.00004e-4 * std::fabs(v), 1.00006e-4 * std::fabs(v), 0.999e-6,
                             1.001e-6, 0.001, std::nextafter(0.001, 0.0), 0.004, 0.0039999}) {
            samples.push_back({v + delta, v, 0.0});
            samples.push_back({v, v - delta, 0.0});
        }
    }
    samples.push_back({kInf, 1.0, 2.0});
    samples.push_back({3.0, -kInf, 2.0});
    samples.push_back({kNaN, 0.0, 0.0});
    samples.push_back({1e-7, -1e-7, 0.0});

    for (double T : {0.001, 0.0, 1e-9, 0.004, -1.0, 1e6, kInf, kNaN}) {
        const CImportedDisplacementMatcher matcher(list, T);
        std::vector<size_t> found;
        for (const Vec3<double>& p : samples) {
            std::vector<size_t> expected;
            for (size_t k = 0; k < list.size(); ++k)
                if (CImportedDisplacementMatcher::Coincide(p, list[k], T))
                    expected.push_back(k);
            matcher.Find(p, found);
            ASSERT_EQ(found, expected) << "T = " << T << " at " << p.x << ", " << p.y;
        }
    }
}

// Samples of all four families take the imported displacements that coincide, in the
// set's order; samples never calculated and imported points that meet nothing keep
// their values and a match of 0.
TEST(ImportedDisplacements, AddedToTheDisplacementDataOfAStage) {
    LodraZorvoData doc;
    doc.SetDisplacementPoint(1, CDisplacementPoint());
    CDisplacementLine line;
    line.SetIntervalsAlongLine(1);
    doc.SetDisplacementLine(1, line);
    CDisplacementGrid grid;
    grid.SetIntervalsAlongLine(1);
    grid.SetIntervalsAlongExtrusion(1);
    doc.SetDisplacementGrid(1, grid);
    doc.AccessDisplacementPoint(1).ResizeResults(2);
    doc.AccessDisplacementLine(1).ResizeResults(2);
    doc.AccessDisplacementGrid(1).ResizeResults(2); // 2 x 2 samples
    const GeoDispResult point = Sample({10.0, 20.0, 100.0}, 0.001, -0.002, 0.004);
    doc.AccessDisplacementPoint(1).SetResult(1, 0, 0, point);
    // The line's second location was never reached: it keeps a fresh sample even where
    // an imported point lies.
    doc.AccessDisplacementLine(1).SetResult(1, 0, 0, Sample({30.0, 0.0, 100.0}, 0, 0, 0.01));
    GeoDispResult fresh;
    fresh.SetPoint({40.0, 0.0, 100.0});
    doc.AccessDisplacementLine(1).SetResult(1, 1, 0, fresh);
    doc.AccessDisplacementGrid(1).SetResult(1, 1, 1, Sample({50.0, 5.0, 99.0}, 0, 0, 0));
    // Stage 0 holds the same point: only the stage asked for is changed.
    doc.AccessDisplacementPoint(1).SetResult(0, 0, 0, point);

    CImportedDisplacementsSet set(L"Survey");
    set.AddDisplacement(Imported(10.0, 20.0, 100.0, 0.0005, 0.0, 0.003));
    set.AddDisplacement(Imported(30.0009, -0.0009, 100.0, -0.001, 0.0, 0.002)); // within 1 mm
    set.AddDisplacement(Imported(10.0, 20.0, 100.0, 0.0, 0.001, 0.0002));       // again
    set.AddDisplacement(Imported(40.0, 0.0, 100.0, 1.0, 1.0, 1.0));             // never reached
    set.AddDisplacement(Imported(50.0, 5.0, 99.0, 0.0, 0.0, -0.0005));
    set.AddDisplacement(Imported(77.0, 0.0, 0.0, 1.0, 1.0, 1.0)); // meets nothing
    doc.SetImportedDisplacementsSet(1, set);

    doc.AddImportedDisplacementsToResults(1, 1, 0.001);

    const GeoDispResult& p = doc.GetDisplacementPoint(1).GetResultFromPosition(1, 0, 0);
    // 0.001 + 0.0005 + 0.0 ; -0.002 + 0.0 + 0.001 ; 0.004 + 0.003 + 0.0002, each in order.
    EXPECT_EQ(p.GetXdisplacement(), 0.0 + (0.0005 + 0.001));
    EXPECT_EQ(p.GetYdisplacement(), 0.001 + (0.0 + -0.002));
    EXPECT_EQ(p.GetZdisplacement(), 0.0002 + (0.003 + 0.004));
    EXPECT_EQ(p.GetImportMatch(), 1);
    const GeoDispResult& l = doc.GetDisplacementLine(1).GetResultFromPosition(1, 0, 0);
    EXPECT_EQ(l.GetXdisplacement(), -0.001);
    EXPECT_EQ(l.GetZdisplacement(), 0.002 + 0.01);
    EXPECT_EQ(l.GetImportMatch(), 1);
    EXPECT_TRUE(doc.GetDisplacementLine(1).GetResultFromPosition(1, 1, 0) == fresh);
    const GeoDispResult& g = doc.GetDisplacementGrid(1).GetResultFromPosition(1, 1, 1);
    EXPECT_EQ(g.GetZdisplacement(), -0.0005);
    EXPECT_EQ(g.GetImportMatch(), 1);
    EXPECT_EQ(doc.GetDisplacementGrid(1).GetResultFromPosition(1, 0, 0).GetImportMatch(), 0);
    EXPECT_TRUE(doc.GetDisplacementPoint(1).GetResultFromPosition(0, 0, 0) == point);

    const auto& d = doc.GetImportedDisplacementsSet(1).GetDisplacements();
    const int matches[] = {1, 1, 1, 0, 1, 0};
    for (size_t k = 0; k < d.size(); ++k)
        EXPECT_EQ(d[k].GetImportMatch(), matches[k]) << "imported point " << k + 1;
    EXPECT_EQ(d[3].GetXdisplacement(), 1.0); // the set's values stay as they were
}

// The lines given (a building's line at its offsets) take the list's displacements; the
// list given carries the match bits.
TEST(ImportedDisplacements, AddedToAListOfLines) {
    CDisplacementLine line;
    line.SetIntervalsAlongLine(2);
    line.ResizeResults(1);
    for (int k = 0; k <= 2; ++k)
        line.SetResult(0, k, 0, Sample({k * 5.0, 0.0, 95.0}, 0.0, 0.0, 0.001 * k));
    std::vector<CDisplacementLine> lines{line, line};
    std::vector<CImportedDisplacement> list{Imported(5.0, 0.0, 95.0, 0.0, 0.0, 0.01),
                                            Imported(5.0, 0.0, 96.0, 0.0, 0.0, 0.01)};
    LodraZorvoData::Add_Imported_Displacements_To_Disp_Lines(0, list, lines, 0.001);
    for (const CDisplacementLine& l : lines) {
        EXPECT_EQ(l.GetResultFromPosition(0, 1, 0).GetZdisplacement(), 0.01 + 0.001);
        EXPECT_EQ(l.GetResultFromPosition(0, 1, 0).GetImportMatch(), 1);
        EXPECT_EQ(l.GetResultFromPosition(0, 2, 0).GetImportMatch(), 0);
    }
    EXPECT_EQ(list[0].GetImportMatch(), 1);
    EXPECT_EQ(list[1].GetImportMatch(), 0);
}
