// Mine subsidence by the influence ring method: its tables, hand-worked cases, the
// dispatch by problem type, and the kernel against the method's steps as written.
#include "base/CLodraZorvoPrefData.h"
#include "solver/ZorvoCal.h"
#include "solver/ZorvoSolver.h"

#include "tests/solver/PointMovement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace Tevra {

// The private steps of the mine kernel, for these tests.
struct MineKernelTestAccess {
    static double Edge(double r) {
        double e = -1.0;
        ZorvoCal::tun43_(r, e);
        return e;
    }
    static double MaxFactor(double r) {
        double a = -1.0;
        ZorvoCal::tun44_(r, a);
        return a;
    }
    static void RingWeights(double* table) { ZorvoCal::tun24_(table, 2.0 * std::asin(1.0)); }
    static const double* RingTable() { return ZorvoCal::MineRingTable(); }
    static void Mines(const ZorvoData& doc, double x, double y, double* disp, double* strain,
                      double* volumeTerm) {
        ZorvoCal::Mines(doc, x, y, disp, strain, volumeTerm, ZorvoCal::MineRingTable(),
                        2.0 * std::asin(1.0));
    }
};

} // namespace Tevra

namespace {

using Access = MineKernelTestAccess;

const double kPi = 2.0 * std::asin(1.0);

GeoMine Panel(double x1, double y1, double x2, double y2, double width, double closure,
              double lower, double lowerAngle, double upper, double upperAngle) {
    GeoMine m;
    m.SetXCentreLine1(x1);
    m.SetYCentreLine1(y1);
    m.SetXCentreLine2(x2);
    m.SetYCentreLine2(y2);
    m.SetPanelWidth(width);
    m.SetClosure(closure);
    m.SetLowerStratumThickness(lower);
    m.SetLowerAngleOfDraw(lowerAngle);
    m.SetUpperStratumThickness(upper);
    m.SetUpperAngleOfDraw(upperAngle);
    return m;
}

ZorvoData MineProject(const std::vector<GeoMine>& mines) {
    ZorvoData doc;
    GeoZorvoGeneral general;
    general.SetProblemType(eMine);
    doc.SetGeneral(general);
    for (const GeoMine& m : mines)
        doc.SetMine(doc.NumMines() + 1, m);
    return doc;
}

// A panel 4000 m long along X from the origin and 2000 m wide, closure 1.5 m, under two
// strata of 50 m at 45 degrees: H = 100 m, R = 100 m, r = W / H = 20, so e = 0.14,
// E = 14 m, a = 1 and M = 900 x 1.5 = 1350 mm. Its effective area, measured from the
// reference corner (14, -986), is x from 28 to 4000 and y from -972 to 1000.
GeoMine WidePanel() { return Panel(0.0, 0.0, 4000.0, 0.0, 2000.0, 1.5, 50.0, 45.0, 50.0, 45.0); }

// The influence ring method exactly as its steps are written, every ring and sector
// tested and the sector directions worked at every call; the ring weights and the edge
// and subsidence factors are the kernel's own, pinned by the tables above.
// pi comes through a volatile so that the compiler cannot work exp, cos and sin of
// constants itself: they come from the run-time library, as in the solver.
void LiteralMines(const ZorvoData& doc, double x, double y, double* disp, double* strain,
                  double* volumeTerm) {
    volatile double halfTurn = 2.0 * std::asin(1.0);
    const double pi = halfTurn;
    double table[40];
    Access::RingWeights(table);
    for (int j = 0; j < 3; ++j)
        disp[j] = strain[j] = 0.0;
    *volumeTerm = 0.0;

    for (int n = 1; n <= doc.NumMines(); ++n) {
        const GeoMine& mine = doc.GetMine(n);
        const double H = mine.GetLowerStratumThickness() + mine.GetUpperStratumThickness();
        const double W = mine.GetPanelWidth();
        const double r = W / H;
        const double dx = mine.GetXCentreLine2() - mine.GetXCentreLine1();
        const double dy = mine.GetYCentreLine2() - mine.GetYCentreLine1();
        const double L = std::sqrt(dx * dx + dy * dy);
        const double c = dx / L, s = dy / L, phi = std::atan2(dy, dx);

        const double e = Access::Edge(r);
        const double E = e * H;
        const double Cx = E * c + mine.GetXCentreLine1() + (0.5 * W - E) * s;
        const double Cy = E * s + mine.GetYCentreLine1() - (0.5 * W - E) * c;

        const double a = Access::MaxFactor(r);
        const double M = a * 900 * mine.GetClosure();

        const double R =
            std::tan(pi * mine.GetLowerAngleOfDraw() / 180) * mine.GetLowerStratumThickness() +
            std::tan(pi * mine.GetUpperAngleOfDraw() / 180) * mine.GetUpperStratumThickness();

        double hx = 0.0, hy = 0.0, tx = 0.0, ty = 0.0, tz = 0.0, sum = 0.0;
        for (int k = 0; k <= 39; ++k) {
            const double rho = (k + 0.5) * R / 40;
            const double q = -pi * (rho * rho);
            int count = 0;
            for (int j = 1; j <= 119; j += 2) {
                const double t = j * pi / 60;
                const double ct = std::cos(t), st = std::sin(t);
                const double px = ct * rho + x - Cx;
                const double py = st * rho + y - Cy;
                const double u = py * s + px * c;
                const double v = py * c - px * s;
                if (u >= E && u <= L - E && v >= E && v <= W - E) {
                    const double g = M * table[k] / 60 * rho / H;
                    hx += g * ct;
                    hy += g * st;
                    count += 1;
                    const double w = std::exp(q / (R * R)) * M * rho * 0.025 * pi / 30;
                    tx +=
                        -(1 - ((ct * rho) * (ct * rho) + (ct * rho) * (ct * rho)) * pi / (R * R)) *
                        w / H / R;
                    ty +=
                        -(1 - ((st * rho) * (st * rho) + (st * rho) * (st * rho)) * pi / (R * R)) *
                        w / H / R;
                    tz += -((rho * rho) * ct * st * 4 * pi / (R * R)) * w / H / R;
                }
            }
            sum += count * table[k] / 60;
        }
        disp[0] += hx;
        disp[1] += hy;
        disp[2] += sum * M;
        const double tilt[3] = {tx, ty, tz};
        double rotated[3];
        ZorvoData::tun26_(2, -phi, tilt, rotated);
        for (int j = 0; j < 3; ++j)
            strain[j] += 0.1 * rotated[j];
    }
}

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

Movement At(const ZorvoData& doc, double x, double y) {
    return MovementAt(doc, 0, x, y, 0.0, eSurface);
}

} // namespace

TEST(MineSubsidence, EdgeOffsetByWidthToDepthRatio) {
    // Straight lines between (0.4, 0), (0.7, 0.11), (1.0, 0.136), (1.2, 0.14); flat outside.
    struct {
        double r, e;
    } cases[] = {
        {0.0, 0.0},    {0.4, 0.0},    // the first row takes its end point
        {0.55, 0.055},                // 0.15 x 0.11 / 0.3
        {0.7, 0.11},   {0.85, 0.123}, // 0.15 x 0.026 / 0.3 + 0.11
        {1.0, 0.136},  {1.1, 0.138},  // 0.1 x 0.004 / 0.2 + 0.136
        {1.2, 0.14},                  // the last row from 1.2 on
        {20.0, 0.14},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(Access::Edge(c.r), c.e, 1e-15) << c.r;
    // At the ends of the sloping part exactly: none at 0.4, and the last row's 0.14.
    EXPECT_EQ(Access::Edge(0.4), 0.0);
    EXPECT_EQ(Access::Edge(1.2), 0.14);
    EXPECT_GT(Access::Edge(0.4 + 1e-9), 0.0);
}

TEST(MineSubsidence, MaximumSubsidenceFactorByWidthToDepthRatio) {
    // Through (0.25, 0.28), (0.5, 0.8), (0.75, 1.18), (1.25, 1.04), (2, 1); flat outside.
    struct {
        double r, a;
    } cases[] = {
        {0.1, 0.28},  {0.25, 0.28},  {0.375, 0.54}, // 0.125 x 0.52 x 4 + 0.28
        {0.5, 0.8},   {0.625, 0.99},                // 0.125 x 0.38 x 4 + 0.8
        {0.75, 1.18}, {1.0, 1.11},                  // 1.18 - 0.25 x 0.28
        {1.25, 1.04}, {1.625, 1.02},                // 1.04 - 0.375 x 0.04 / 0.75
        {2.0, 1.0},   {3.0, 1.0},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(Access::MaxFactor(c.r), c.a, 1e-15) << c.r;
    EXPECT_EQ(Access::MaxFactor(0.25), 0.28);
    EXPECT_EQ(Access::MaxFactor(2.5), 1.0);
}

TEST(MineSubsidence, RingWeights) {
    // exp(-pi a^2) - exp(-pi b^2) + 0.00108 with a = (j - 1)/40, b = j/40.
    double table[40];
    Access::RingWeights(table);
    struct {
        int j;
        double weight;
    } cases[] = {
        {1, 0.0030415690124136},  // 1 - exp(-pi 0.025^2) + 0.00108
        {20, 0.0373656453588351}, // exp(-pi 0.475^2) - exp(-pi 0.5^2) + 0.00108
        {40, 0.0083310179471211}, // exp(-pi 0.975^2) - exp(-pi) + 0.00108
    };
    for (const auto& c : cases)
        EXPECT_NEAR(table[c.j - 1], c.weight, 1e-15) << c.j;
    // Together 1 - exp(-pi) + 40 x 0.00108 = 0.9999860817.
    double sum = 0.0;
    for (double w : table)
        sum += w;
    EXPECT_NEAR(sum, 0.9999860817362277, 1e-14);
    // The table worked once for the runs is the same table.
    for (int j = 0; j < 40; ++j)
        EXPECT_TRUE(SameBits(Access::RingTable()[j], table[j])) << j;
}

TEST(MineSubsidence, WidePanelAtItsCentre) {
    // Every one of the 2400 samples of the point (2000, 0) lies in the effective area:
    // Sz = M x sum of the weights = 1350 x 0.9999860817 mm. Sum cos^2 = sum sin^2 = 30
    // over the sectors and sum cos sin = 0, so each tilt is
    //   tx = ty = -sum_k 60 (1 - pi rho_k^2 / R^2) w_k / (H R),
    //   w_k = exp(-pi rho_k^2 / R^2) M rho_k 0.025 pi / 30,  rho_k = (k + 0.5) R / 40,
    // = -1.8344969243, and both principal strains are 0.1 of it.
    const ZorvoData doc = MineProject({WidePanel()});
    const Movement m = At(doc, 2000.0, 0.0);
    EXPECT_NEAR(m.Sz, 1349.9812103439074, 1e-9);
    EXPECT_NEAR(m.dx, 0.0, 1e-9); // samples in opposite sectors cancel
    EXPECT_NEAR(m.dy, 0.0, 1e-9);
    EXPECT_NEAR(m.major, -0.18344969242752862, 1e-12);
    EXPECT_NEAR(m.minor, -0.18344969242752862, 1e-12);
}

TEST(MineSubsidence, NothingBeyondTheReach) {
    const ZorvoData doc = MineProject({WidePanel()});
    // R = 100 m from the panel's sides and ends: nothing at all, exactly.
    struct {
        double x, y;
    } beyond[] = {{2000.0, 1100.001}, {2000.0, -1100.001}, {4100.001, 0.0},
                  {-100.001, 0.0},    {4071.0, 1071.0},    {1e6, 1e6}};
    for (const auto& p : beyond) {
        double disp[3], strain[3], volume;
        Access::Mines(doc, p.x, p.y, disp, strain, &volume);
        for (int j = 0; j < 3; ++j) {
            EXPECT_EQ(disp[j], 0.0) << p.x << ", " << p.y;
            EXPECT_EQ(strain[j], 0.0) << p.x << ", " << p.y;
        }
    }

    // 0.98 R beyond the effective edge y = 1000: only the outer ring (rho = 98.75 m)
    // reaches, through its sectors at 267 and 273 degrees (98.75 sin 87 = 98.61 m;
    // those at 261 and 279 degrees reach 97.53 m). Sz = M x 2 x weight_40 / 60, and
    // each sample moves the point towards the panel by g sin 87 with
    // g = M weight_40 / 60 x rho / H = 0.1851048 mm.
    const Movement edge = At(doc, 2000.0, 1098.0);
    EXPECT_NEAR(edge.Sz, 0.37489580762044983, 1e-12);
    EXPECT_NEAR(edge.dy, -0.36970225062113193, 1e-12);
    EXPECT_NEAR(edge.dx, 0.0, 1e-12);
}

TEST(MineSubsidence, ProblemTypeChoosesMinesOrTunnels) {
    // The wide panel, and a tunnel far from it whose trough would move a point over it.
    ZorvoData doc = MineProject({WidePanel()});
    GeoTunnel tunnel;
    tunnel.SetXCentreLine1(-6000.0);
    tunnel.SetYCentreLine1(0.0);
    tunnel.SetXCentreLine2(-5000.0);
    tunnel.SetYCentreLine2(0.0);
    doc.SetTunnel(1, tunnel);
    doc.SetStage(1, CStage()); // a stage that lists nothing: mines take no stage
    CDisplacementPoint centre, overTunnel;
    centre.SetPoint({2000.0, 0.0, 0.0});
    overTunnel.SetPoint({-5500.0, 0.0, 100.0});
    doc.SetDisplacementPoint(1, centre);
    doc.SetDisplacementPoint(2, overTunnel);

    CLodraZorvoPrefData prefs;
    ASSERT_TRUE(ZorvoSolver(&doc, &prefs, nullptr, ZorvoSolver::CancelTest()).Solve());
    for (int stage = 0; stage <= 1; ++stage) {
        // 1349.98 mm of the panel, in metres; the tunnel is not looked at.
        EXPECT_NEAR(
            doc.GetDisplacementPoint(1).GetResultFromPosition(stage, 0, 0).GetZdisplacement(),
            1.3499812103439074, 1e-12)
            << stage;
        EXPECT_EQ(doc.GetDisplacementPoint(2).GetResultFromPosition(stage, 0, 0).GetZdisplacement(),
                  0.0)
            << stage;
    }

    // A ground movement analysis of the same project: the tunnel moves its point and
    // the panel is not looked at.
    GeoZorvoGeneral general;
    general.SetProblemType(eGroundMovement);
    doc.SetGeneral(general);
    ASSERT_TRUE(ZorvoSolver(&doc, &prefs, nullptr, ZorvoSolver::CancelTest()).Solve());
    EXPECT_EQ(doc.GetDisplacementPoint(1).GetResultFromPosition(0, 0, 0).GetZdisplacement(), 0.0);
    EXPECT_GT(doc.GetDisplacementPoint(2).GetResultFromPosition(0, 0, 0).GetZdisplacement(), 0.0);
}

TEST(MineKernel, SameBitsAsTheMethodWrittenOut) {
    // Panels of every row of the two tables, turned to various bearings, two in one
    // project, one far from the origin, one small under deep strata, degenerate ones; points spread
    // over each panel and its reach, with its corners, centre and the corners of its effective
    // area. Displacements and strains must agree to the bit.
    const std::vector<std::vector<GeoMine>> projects = {
        {Panel(0, 0, 400 * std::cos(0.5), 400 * std::sin(0.5), 80, 1.2, 120, 30, 180, 25)},
        {Panel(100, 50, -200, -250, 165, 2.0, 150, 35, 150, 35)},
        {Panel(0, 0, 600, 0, 170, 3.0, 80, 20, 120, 40)},
        {Panel(0, 0, 0, 500, 220, 1.0, 100, 45, 100, 45)},
        {Panel(-300, 0, 300, 0, 600, 1.5, 100, 30, 100, 30),
         Panel(-100, -400, 100, 400, 90, 0.0, 60, 10, 140, 50)},
        {Panel(412345.6, 5612345.6, 412845.6, 5612045.6, 210, 2.4, 90, 35, 110, 35)},
        {Panel(0, 0, 60, 0, 40, 1.0, 150, 45, 150, 45)},  // outer rings ring the whole panel
        {Panel(10, 10, 10, 10, 100, 1.0, 50, 35, 50, 35), // no length
         Panel(0, 0, 300, 0, 100, 1.0, 0, 35, 0, 35)},    // no depth
    };
    std::mt19937 random(20240611u);
    auto uniform = [&random](double lo, double hi) {
        return lo + (hi - lo) * (static_cast<double>(random()) / 4294967296.0);
    };

    int points = 0;
    for (size_t p = 0; p < projects.size(); ++p) {
        const ZorvoData doc = MineProject(projects[p]);
        std::vector<Vec2<double>> at;
        for (const GeoMine& m : projects[p]) {
            const double R =
                std::tan(kPi * m.GetLowerAngleOfDraw() / 180) * m.GetLowerStratumThickness() +
                std::tan(kPi * m.GetUpperAngleOfDraw() / 180) * m.GetUpperStratumThickness();
            const double pad = (std::isfinite(R) ? R : 0.0) + 20.0;
            const double x0 = m.GetXMin(GeoMine::ePanelLevel) - pad;
            const double x1 = m.GetXMax(GeoMine::ePanelLevel) + pad;
            const double y0 = m.GetYMin(GeoMine::ePanelLevel) - pad;
            const double y1 = m.GetYMax(GeoMine::ePanelLevel) + pad;
            for (int i = 0; i < 600; ++i)
                at.push_back({uniform(x0, x1), uniform(y0, y1)});
            for (int c = 0; c < GeoMine::NUM_CORNERS; ++c) {
                const Vec3<double> k = m.GetCornerCoords(GeoMine::ePanelLevel, c);
                at.push_back({k.x, k.y});
                const Vec3<double> s = m.GetCornerCoords(GeoMine::eSurfaceLevel, c);
                at.push_back({s.x, s.y});
            }
            at.push_back({0.5 * (m.GetXCentreLine1() + m.GetXCentreLine2()),
                          0.5 * (m.GetYCentreLine1() + m.GetYCentreLine2())});
        }
        for (const Vec2<double>& q : at) {
            double disp[3], strain[3], volume, literalDisp[3], literalStrain[3], literalVolume;
            Access::Mines(doc, q.x, q.y, disp, strain, &volume);
            LiteralMines(doc, q.x, q.y, literalDisp, literalStrain, &literalVolume);
            for (int j = 0; j < 3; ++j) {
                ASSERT_TRUE(SameBits(disp[j], literalDisp[j]))
                    << "project " << p << " at " << q.x << ", " << q.y << " displacement " << j
                    << ": " << disp[j] << " against " << literalDisp[j];
                ASSERT_TRUE(SameBits(strain[j], literalStrain[j]))
                    << "project " << p << " at " << q.x << ", " << q.y << " strain " << j << ": "
                    << strain[j] << " against " << literalStrain[j];
            }
            ASSERT_TRUE(SameBits(volume, literalVolume));
            ++points;
        }
    }
    EXPECT_GT(points, 5000);
}

TEST(MineKernel, PointEntryGivesTheKernelsResult) {
    // tun21_ and tun28_ hand the kernel's movement on unchanged, with the principal
    // strains of its strain state.
    const ZorvoData doc = MineProject({Panel(0, 0, 500, 200, 150, 2.0, 100, 35, 120, 30)});
    for (double x = -150.0; x <= 650.0; x += 50.0) {
        for (double y = -150.0; y <= 350.0; y += 50.0) {
            double disp[3], strain[3], volume, principal[6];
            LiteralMines(doc, x, y, disp, strain, &volume);
            ZorvoCal::tun27_(2, strain, principal);
            const Movement m = At(doc, x, y);
            EXPECT_EQ(m.Sz, disp[2]);
            EXPECT_EQ(m.dx, disp[0]);
            EXPECT_EQ(m.dy, disp[1]);
            EXPECT_EQ(m.major, principal[0]);
            EXPECT_EQ(m.minor, principal[1]);
            EXPECT_EQ(m.angle, principal[2]);
            double out[4];
            ZorvoCal::tun28_(doc, 0, x, y, 0.0, eSurface, 0.0, 0.0, out);
            EXPECT_EQ(out[0], disp[0]);
            EXPECT_EQ(out[1], disp[1]);
            EXPECT_EQ(out[2], disp[2]);
            EXPECT_NEAR(out[3], disp[1], 1e-12); // along pi / 2: the Y displacement
        }
    }
}
