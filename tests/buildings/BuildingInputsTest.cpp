#include "base/CResourceStrings.h"
#include "buildings/CBuildingDamageProperties.h"
#include "buildings/CBuildingDamageResult.h"
#include "buildings/CDamageCategoryStrains.h"
#include "document/ZorvoData.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

// A new project holds one strains record, Burland's limits, at number 1, which a new
// building's properties name; emptying the project brings it back.
TEST(BuildingInputs, NewProjectHasBurlandStrainLimits) {
    ZorvoData doc;
    doc.SetDamageCategoryStrains(2, CDamageCategoryStrains());
    doc.Empty();
    ASSERT_EQ(doc.NumDamageCategoryStrains(), 1);
    EXPECT_EQ(doc.NumRecord(eModuleDamageCategoryStrains), 1);
    const CDamageCategoryStrains& burland = doc.GetDamageCategoryStrains(1);
    EXPECT_EQ(burland.GetName(), CString(L"Burland Strain Limits"));
    const double limits[] = {0.0, 0.0005, 0.00075, 0.0015, 0.003};
    for (int k = 0; k < 5; ++k)
        EXPECT_EQ(burland.GetStrainLimit(static_cast<CDamageCategoryStrains::EDamageCategory>(k)),
                  limits[k]);
    EXPECT_EQ(CBuildingDamageProperties().GetDamageCategoryStrains(), 1);
    // Records made by growing the list are the unnamed prototype.
    doc.SetDamageCategoryStrains(3, burland);
    EXPECT_EQ(doc.GetDamageCategoryStrains(2).GetName(), CString());
}

// Labels go out by value and come back by exact text; anything else is no curvature.
TEST(BuildingInputs, CurvatureTextBothWays) {
    struct {
        const wchar_t* text;
        GeoGlobal::ECurvature curvature;
    } cases[] = {
        {L"Hogging", GeoGlobal::eHogging},     {L"Sagging", GeoGlobal::eSagging},
        {L"None", GeoGlobal::eNoCurvature},    {L"", GeoGlobal::eNoCurvature},
        {L"hogging", GeoGlobal::eNoCurvature}, {L"Sagging ", GeoGlobal::eNoCurvature},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CBuildingDamageResult::GetCurvatureFromCStr(c.text), c.curvature) << c.text;
    EXPECT_EQ(CBuildingDamageResult::GetCurvatureAsString(static_cast<GeoGlobal::ECurvature>(3)),
              CString(L"None"));
}

// The getter of an offset counts from 1, the setter from 0 and grows the list with zeros.
TEST(BuildingInputs, VerticalOffsetIndexing) {
    CBuildingDamageProperties p;
    ASSERT_EQ(p.NumberOfVerticalOffsets(), 1);
    double v = 1.5;
    p.SetVerticalOffset(0, v);
    EXPECT_EQ(p.GetVerticalOffset(1), 1.5);
    v = -2.25;
    p.SetVerticalOffset(2, v);
    std::vector<double> all;
    p.GetVerticalOffsets(all);
    EXPECT_EQ(all, (std::vector<double>{1.5, 0.0, -2.25}));
    EXPECT_EQ(p.GetVerticalOffset(3), -2.25);
}

// The offsets as text: three fixed decimals without a format; a format that trims zeros
// and forces a point leaves "0." for 0, of which the point is cut.
TEST(BuildingInputs, VerticalOffsetsAsText) {
    CBuildingDamageProperties p;
    p.SetVerticalOffsets({0.0, 1.5, -2.25});
    const CUnit unit;
    CString text;
    p.GetVerticalOffsets(text, unit, nullptr);
    EXPECT_EQ(text, CString(L"0.000,1.500,-2.250"));
    Util::CNumFormat trimmed;
    trimmed.SetFormat(2);
    trimmed.SetDecDecPla(2, true);
    trimmed.SetForceDec(true);
    p.GetVerticalOffsets(text, unit, &trimmed);
    EXPECT_EQ(text, CString(L"0,1.5,-2.25"));

    std::vector<CString> headings;
    p.GetVerticalOffsetsDescriptions(headings, unit, true);
    EXPECT_EQ(headings, (std::vector<CString>{L"1: 0.000m", L"2: 1.500m", L"3: -2.250m"}));
    p.GetVerticalOffsetsDescriptions(headings, unit, false);
    EXPECT_EQ(headings[2], CString(L"-2.250m"));
}

// With default properties the section follows the height passed, whatever is stored;
// without, the stored value stands whatever the height.
TEST(BuildingInputs, DefaultSectionFollowsTheHeight) {
    CBuildingDamageProperties p;
    p.SetI(GeoGlobal::eHogging, 1.0);
    EXPECT_NEAR(p.GetI(GeoGlobal::eHogging, 10.0), 333.33333333333333, 1e-12);
    EXPECT_NEAR(p.GetI(GeoGlobal::eSagging, 10.0), 83.333333333333333, 1e-12);
    EXPECT_EQ(p.GetNAFromTensionEdge(GeoGlobal::eSagging, 6.0), 3.0);
    p.SetDefaultProperties(false);
    EXPECT_EQ(p.GetI(GeoGlobal::eHogging, 6.0), 1.0);
    EXPECT_NEAR(p.GetI(GeoGlobal::eSagging, 6.0), 83.333333333333333, 1e-12); // stored default
}
