#include "base/StringFrom.h"
#include "base/GeoGlobal.h"
#include "base/IntervalsLogScale.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tevra;

namespace {

std::wstring Text(double v, const Util::CNumFormat& f) {
    return Vesk::StringFrom(v, f).GetString();
}

} // namespace

TEST(StringFrom, ScientificWithSignificantFigures) {
    struct {
        double value;
        int sigFigs;
        const wchar_t* text;
    } cases[] = {
        {1234.5678, 6, L"1.23457e+03"},      // 1.2345678e3 rounds up at the sixth figure
        {0.000123456789, 6, L"1.23457e-04"}, // 1.23456789e-4
        {-1234.5678, 6, L"-1.23457e+03"},    // sign kept in front
        {0.0, 6, L"0.00000e+00"},            // zero still shows its six figures
        {1234.5678, 1, L"1e+03"},            // one figure: no point
        {9.99996, 5, L"1.0000e+01"},         // rounding carries into the exponent
        {6.02214076e23, 3, L"6.02e+23"},     //
        {1.5e-300, 2, L"1.5e-300"},          // three exponent digits when needed
        {0.5, 0, L"5e-01"},                  // figures below 1 are taken as 1
    };
    for (const auto& c : cases) {
        Util::CNumFormat f;
        f.SetFormat(3);
        f.SetSciSigFig(c.sigFigs);
        EXPECT_EQ(Text(c.value, f), c.text) << c.value << " at " << c.sigFigs;
    }
}

TEST(IntervalsLogScale, DefaultLOverHList) {
    // 0.1 * 10^(k/10), k = 0..20, each cut to two decimals: the R10 series over two
    // decades, e.g. 10^0.1 = 1.2589.., 10^0.5 = 3.1622.., 10^0.7 = 5.0118..
    std::vector<double> list;
    IntervalsLogScale(0.1, 10.0, 10, 10.0, list);
    const double expected[] = {0.1,  0.13, 0.16, 0.2,  0.25, 0.32, 0.4,  0.5,  0.63, 0.79, 1.0,
                               1.26, 1.58, 2.0,  2.51, 3.16, 3.98, 5.01, 6.31, 7.94, 10.0};
    ASSERT_EQ(list.size(), 21u);
    EXPECT_EQ(list.front(), 0.1);
    EXPECT_EQ(list.back(), 10.0);
    EXPECT_NEAR(list[1], 0.12589254117941673, 1e-15);
    for (size_t k = 0; k < list.size(); ++k)
        EXPECT_EQ(GeoGlobal::CutDownDecimalPlaces(list[k], 2), expected[k]) << k;

    // An end off the scale closes the list after the last step below it: 1, 2, 4, then 5.
    IntervalsLogScale(1.0, 5.0, 1, 2.0, list);
    EXPECT_EQ(list, (std::vector<double>{1.0, 2.0, 4.0, 5.0}));
    IntervalsLogScale(0.0, 10.0, 10, 10.0, list); // no logarithm of 0
    EXPECT_TRUE(list.empty());
    IntervalsLogScale(0.1, 10.0, 0, 10.0, list);
    EXPECT_TRUE(list.empty());
}

TEST(GeoGlobal, CutDownDecimalPlaces) {
    EXPECT_EQ(GeoGlobal::CutDownDecimalPlaces(2.345678, 2), 2.35);
    EXPECT_EQ(GeoGlobal::CutDownDecimalPlaces(-2.345678, 2), -2.35); // halves away from zero
    EXPECT_EQ(GeoGlobal::CutDownDecimalPlaces(0.125, 2), 0.13);      // 12.5 exactly: away
    EXPECT_EQ(GeoGlobal::CutDownDecimalPlaces(1234.5, 0), 1235.0);
}
