#include "sources/CGMCurve.h"
#include "document/ZorvoData.h"

#include <gtest/gtest.h>

using namespace Tevra;
using namespace Tevra::Data;
using GeoGlobal::eHorizontal;
using GeoGlobal::eVertical;

namespace {

CGMCurve Linear(const std::vector<Vec3<double>>& points, bool surfaceOnly) {
    CGMCurve c(true, eVertical, CGMCurve::eLinear, L"C");
    c.SetDataCoords(points);
    c.SetSurfaceOnly(surfaceOnly);
    return c;
}

double Z(const CGMCurve& c, double x, double y = 0.0) {
    bool found = false;
    return c.GetZ(x, y, found);
}

} // namespace

// Along the surface: 1 up to 0.75, then straight down to 0 at 3.5, so 0.5 at 2.125;
// points sharing an x give their mean; beyond the data the nearest x comes back.
TEST(CGMCurve, SurfaceOnlyInterpolation) {
    const CGMCurve clay = Linear({{0, 0, 1}, {0.75, 0, 1}, {3.5, 0, 0}}, true);
    const struct {
        double x, z;
    } cases[] = {{0.0, 1.0}, {0.5, 1.0}, {0.75, 1.0}, {2.125, 0.5}, {3.5, 0.0}, {4.0, 3.5}};
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(Z(clay, c.x), c.z) << c.x;

    // A step at x = 1 from 2 to 4: 3 at the step, and a quarter of the way from 0 at
    // x = 0 towards that mean at x = 0.25.
    const CGMCurve step = Linear({{1, 0, 2}, {0, 0, 0}, {1, 0, 4}, {2, 0, 0}}, true);
    EXPECT_DOUBLE_EQ(Z(step, 1.0), 3.0);
    EXPECT_DOUBLE_EQ(Z(step, 0.25), 0.75);
    // A curve that begins at x = 0.2 gives 0.2 nearer the wall.
    EXPECT_DOUBLE_EQ(Z(Linear({{0.2, 0, 5}, {1, 0, 0}}, true), 0.1), 0.2);
    EXPECT_DOUBLE_EQ(Z(Linear({{0.2, 0, 5}}, true), 9.0), 5.0);
    EXPECT_DOUBLE_EQ(Z(Linear({}, true), 1.0), 0.0);
}

// Over a triangulated unit square the diagonal belongs to both triangles, and within
// the outline tolerance of 0.001 of it the later one, the upper right, decides.
TEST(CGMCurve, TriangulatedInterpolationTakesTheLaterTriangle) {
    CGMCurve c = Linear({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 1}}, false);
    c.Triangulate();
    ASSERT_EQ(c.GetDelaunayTriangles().size(), 2u);
    // Lower left: z = 0. Upper right, through (1, 0, 0), (0, 1, 0), (1, 1, 1): z = x + y - 1.
    EXPECT_DOUBLE_EQ(Z(c, 0.2, 0.3), 0.0);
    EXPECT_NEAR(Z(c, 0.8, 0.9), 0.7, 1e-15);
    // 0.00028 m inside the lower triangle, within tolerance of the upper: -0.0004.
    EXPECT_NEAR(Z(c, 0.4996, 0.5), -0.0004, 1e-15);
    EXPECT_EQ(Z(c, 2.0, 2.0), 0.0); // outside the data
    // Points in a line give no triangle, and so no value.
    CGMCurve line = Linear({{0, 0, 1}, {1, 1, 1}, {2, 2, 1}}, false);
    line.Triangulate();
    EXPECT_TRUE(line.GetDelaunayTriangles().empty());
    EXPECT_EQ(Z(line, 1.0, 1.0), 0.0);
}

TEST(CGMCurve, NamesPartnersAndTitles) {
    std::map<int, CGMCurve> curves;
    EXPECT_EQ(CGMCurve::CopyName(L"A", curves), CString(L"Copy of A"));
    curves[0].SetName(L"a");
    curves[1].SetName(L"COPY OF A");
    EXPECT_TRUE(CGMCurve::NameExists(L"A", curves));
    EXPECT_EQ(CGMCurve::CopyName(L"A", curves), CString(L"Copy 2 of A"));

    // Horizontal n pairs with vertical n up to 6, and with vertical n + 1 from 7 to 12.
    const struct { int horizontal, vertical; } pairs[] = {{1, 1}, {6, 6}, {7, 8}, {12, 13}};
    for (const auto& p : pairs) {
        EXPECT_EQ(CGMCurve::GetVertStdPartnerCurve(p.horizontal), p.vertical);
        EXPECT_EQ(CGMCurve::GetHorzStdPartnerCurve(p.vertical), p.horizontal);
    }
    for (int lonely : {0, 7, 14, 15}) {
        EXPECT_FALSE(CGMCurve::HasHorzStdPartnerCurve(lonely)) << lonely;
        EXPECT_EQ(CGMCurve::GetHorzStdPartnerCurve(lonely), 0) << lonely;
    }
    EXPECT_FALSE(CGMCurve::HasVertStdPartnerCurve(0));
    EXPECT_FALSE(CGMCurve::HasVertStdPartnerCurve(13));

    EXPECT_EQ(CGMCurve(true, eHorizontal).GetXTitle(),
              CString(L"Distance from wall / wall depth or max. excavation depth (x)"));
    EXPECT_EQ(CGMCurve(true, eVertical).GetZTitle(),
              CString(L"Settlement / wall depth or max. excavation depth (z)"));
    EXPECT_EQ(CGMCurve::GetDirectionFromCStr(L"vertical"), eHorizontal); // with case
    EXPECT_EQ(CGMCurve::GetInterpolationMethodFromCStr(L"Linear Interpolation"), CGMCurve::eLinear);
}

// Every new project holds the standard curves, fitted, in their order and read-only.
TEST(CGMCurve, StandardCurvesOfANewProject) {
    const ZorvoData doc;
    ASSERT_EQ(doc.NumGMCurves(eHorizontal), 13);
    ASSERT_EQ(doc.NumGMCurves(eVertical), 16);
    EXPECT_EQ(doc.NumEditableGMCurves(eHorizontal) + doc.NumEditableGMCurves(eVertical), 0);
    EXPECT_EQ(doc.GetGMCurve(eVertical, 16).GetName(),
              CString(L"Exc. in front of wall in sand (CIRIA C760 Fig. 6.16)"));
    // Horizontal 3 is the line from 0.05% at the wall to 0 at 1.5: 0.025% at 0.75.
    EXPECT_NEAR(Z(doc.GetGMCurve(eHorizontal, 4), 0.75), 0.025, 1e-15);
    // Vertical 14 and 7 interpolate their points: 0.5% at 2.125, 0.268% at 0.1.
    EXPECT_DOUBLE_EQ(Z(doc.GetGMCurve(eVertical, 15), 2.125), 0.5);
    EXPECT_DOUBLE_EQ(Z(doc.GetGMCurve(eVertical, 8), 0.1), 0.268);
    // Vertical 14 is never fitted; a cubic through P1 (31 points) is.
    EXPECT_FALSE(doc.GetGMCurve(eVertical, 15).IsPolynomialValid());
    EXPECT_TRUE(doc.GetGMCurve(eHorizontal, 2).IsPolynomialValid());
    EXPECT_EQ(Z(doc.GetGMCurve(eVertical, 1), 0.3, 0.4), 0.0); // "No vertical ground movement"
    EXPECT_FALSE(doc.IsGMCurveTriangulationNeeded());
}
