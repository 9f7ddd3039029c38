#include "base/CSplineT.h"
#include "base/CTableD.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

CTableT<double> Table(const std::vector<std::pair<double, double>>& rows) {
    CTableT<double> t(L"Profile", 4, 6);
    for (const auto& r : rows)
        t.AddPoint(r.first, r.second);
    return t;
}

} // namespace

TEST(CTableT, SetPointGrowsOverwritesAndRefusesNegative) {
    CTableT<double> t;
    EXPECT_FALSE(t.SetPoint(-1, 1.0, 1.0));
    EXPECT_EQ(t.NumPoint(), 0);
    EXPECT_TRUE(t.SetPoint(2, 7.0, 8.0)); // rows 0 and 1 are (0, 0)
    ASSERT_EQ(t.NumPoint(), 3);
    EXPECT_EQ(t.GetX(0), 0.0);
    EXPECT_EQ(t.GetY(1), 0.0);
    EXPECT_TRUE(t.SetPoint(0, 1.0, 2.0));
    EXPECT_TRUE(t.SetPoint(3, 9.0, 10.0)); // appends
    ASSERT_EQ(t.NumPoint(), 4);
    EXPECT_EQ(t.GetX(-1), 9.0); // negative rows count from the end
    EXPECT_EQ(t.GetY(-2), 8.0);
    t.DeletePoints(1, 2);
    ASSERT_EQ(t.NumPoint(), 2);
    EXPECT_EQ(t.GetX(0), 1.0);
    EXPECT_EQ(t.GetX(1), 9.0);
    t.DeletePoints(1, 50); // a count beyond the end stops there
    EXPECT_EQ(t.NumPoint(), 1);
}

TEST(CTableT, XRangeByScanAndOfAnEmptyTable) {
    double lo = 0.0, hi = 0.0;
    CTableT<double>().GetXRange(lo, hi);
    EXPECT_EQ(lo, 1.7976931348623157e308);
    EXPECT_EQ(hi, 2.2250738585072014e-308);
    Table({{3.0, 0.0}, {-2.0, 0.0}, {7.0, 0.0}, {1.0, 0.0}}).GetXRange(lo, hi);
    EXPECT_EQ(lo, -2.0);
    EXPECT_EQ(hi, 7.0);
    // Regression: with all x at or below 0 the maximum is the largest row's, not the
    // smallest positive double the empty table gives.
    Table({{-3.0, 0.0}, {-1.0, 0.0}}).GetXRange(lo, hi);
    EXPECT_EQ(lo, -3.0);
    EXPECT_EQ(hi, -1.0);
    EXPECT_EQ(Table({{-3.0, 0.0}, {-1.0, 2.0}}).GetValue(0.0, true), 0.0);
}

TEST(CTableT, ValueByFirstBracketingPair) {
    struct {
        std::vector<std::pair<double, double>> rows;
        double x;
        double y;
    } cases[] = {
        // (0,0)-(2,4): 1 -> 2; at 2 the pair (2,4)-(5,10) brackets: 4; 3.5 -> 4 + 6*1.5/3 = 7.
        {{{0, 0}, {2, 4}, {5, 10}, {5, 99}}, 1.0, 2.0},
        {{{0, 0}, {2, 4}, {5, 10}, {5, 99}}, 2.0, 4.0},
        {{{0, 0}, {2, 4}, {5, 10}, {5, 99}}, 3.5, 7.0},
        // No pair brackets 5 (5 <= 5 < 5 fails): the last row's y, 99, not 10.
        {{{0, 0}, {2, 4}, {5, 10}, {5, 99}}, 5.0, 99.0},
        // Rows out of order: (0,0)-(4,8) comes first and gives 6 at 3, not 2 from (2,0)-(6,4).
        {{{0, 0}, {4, 8}, {2, 0}, {6, 4}}, 3.0, 6.0},
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(Table(c.rows).GetValue(c.x), c.y) << "x = " << c.x;
}

TEST(CTableT, ValueOutsideOrUnbracketedThrowsRangeCodes) {
    struct {
        std::vector<std::pair<double, double>> rows;
        double x;
        int code;
        double value;
    } cases[] = {
        {{{0, 0}, {2, 4}}, -0.5, 1, 0.0}, // below: code 1 with the lowest x
        {{{0, 0}, {2, 4}}, 2.5, 0, 2.0},  // above: code 0 with the highest x
        {{}, 0.0, 1, 1.7976931348623157e308},
        // Descending rows: 2 lies in [0, 2] but no pair has xa <= 2 < xb, and the last x is 1.
        {{{0, 0}, {2, 2}, {1, 1}}, 2.0, 3, 0.0},
        // The bracketing step is 5e-11 wide, under 1e-10.
        {{{0, 0}, {1, 1}, {1 + 5e-11, 2}, {2, 3}}, 1.0, 3, 0.0},
    };
    for (const auto& c : cases) {
        const CTableT<double> t = Table(c.rows);
        try {
            t.GetValue(c.x);
            ADD_FAILURE() << "no throw at x = " << c.x;
        } catch (const Util::CRange<double>& e) {
            EXPECT_EQ(e.code, c.code) << "x = " << c.x;
            EXPECT_EQ(e.value, c.value) << "x = " << c.x;
        }
        if (c.code != 3) {
            EXPECT_EQ(t.GetValue(c.x, true), 0.0); // quiet outside the range
        }
    }
    // Just past the narrow step the next pair answers: 2 + 1 * (1.5 - 1 - 5e-11) / (1 - 5e-11).
    EXPECT_NEAR(Table({{0, 0}, {1, 1}, {1 + 5e-11, 2}, {2, 3}}).GetValue(1.5), 2.5, 1e-9);
}

TEST(CTableT, DerivativeOnUnevenRows) {
    // x = 0, 1, 3, 6; y = 0, 2, 3, 9. Chords: s01 = 2, s12 = 0.5, s23 = 2, s02 = 1, s13 = 1.4.
    const CTableT<double> d = Table({{0, 0}, {1, 2}, {3, 3}, {6, 9}}).Derivative();
    ASSERT_EQ(d.NumPoint(), 4);
    EXPECT_TRUE(d.GetName() == CString(L"Derivative"));
    const double x[] = {0, 1, 3, 6};
    const double slope[] = {
        2.5, // s01 - s12 + s02 = 2 - 0.5 + 1
        1.5, // a=2 b=1 p=1 q=2: (2 * 2/3)/1 + (1 * 1/3)/2 = 4/3 + 1/6
        1.1, // a=1 b=6 p=2 q=3: (1 * 3/5)/2 + (6 * 2/5)/3 = 0.3 + 0.8
        2.9, // s23 - s12 + s13 = 2 - 0.5 + 1.4
    };
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(d.GetX(i), x[i]);
        EXPECT_NEAR(d.GetY(i), slope[i], 1e-14) << "row " << i;
    }
}

TEST(CTableT, DerivativeOfShortTablesAndUnitTags) {
    EXPECT_EQ(Table({{2, 5}}).Derivative().GetY(0), 0.0);
    const CTableT<double> chord = Table({{1, 1}, {3, 5}}).Derivative(); // (5 - 1)/(3 - 1)
    EXPECT_EQ(chord.GetY(0), 2.0);
    EXPECT_EQ(chord.GetY(1), 2.0);
    const CTableT<double> close = Table({{1, 1}, {1 + 5e-11, 5}}).Derivative(); // left as is
    EXPECT_EQ(close.GetY(0), 1.0);
    EXPECT_EQ(close.GetY(1), 5.0);

    struct {
        int x, y, result;
    } units[] = {{4, 6, 11}, {4, 11, 8}, {2, 6, 0}, {4, 8, 0}};
    for (const auto& u : units) {
        CTableT<double> t = Table({{0, 0}, {1, 1}});
        t.SetXUnit(u.x);
        t.SetYUnit(u.y);
        const CTableT<double> d = t.Derivative();
        EXPECT_EQ(d.GetYUnit(), u.result) << u.x << "/" << u.y;
        EXPECT_EQ(d.GetXUnit(), u.x);
    }
}

TEST(CSplineT, CopiesTheTableAndLooksUpOnStraightLines) {
    const CTableD table(Table({{0, 0}, {2, 4}}));
    const CSplineT<double> spline(table);
    EXPECT_TRUE(static_cast<const CTableT<double>&>(spline) == table);
    EXPECT_TRUE(spline.GetCoefficients().empty());
    EXPECT_FALSE(spline.IsFitted());
    EXPECT_EQ(spline.GetValue(1.0), 2.0);
}

TEST(CTableT, RowsInOrderLookUpAsTheScanDoes) {
    // The same rows twice: built in order, and built with a gap first, which the table
    // then reads by scanning. Steps of 1 m, a step below the narrowest slope, a repeated
    // x, and a last step of 0.3 m.
    const std::vector<std::pair<double, double>> rows = {
        {0.0, 1.0}, {1.0, -2.0}, {2.0, 0.5}, {2.0, 7.0}, {3.0, 1e-3}, {3.0 + 1e-11, 5.0},
        {4.0, 4.0}, {4.3, -0.25}};
    CTableT<double> inOrder, scanned;
    for (const auto& r : rows)
        inOrder.AddPoint(r.first, r.second);
    scanned.SetPoint(1, rows[1].first, rows[1].second);
    scanned.SetPoint(0, rows[0].first, rows[0].second);
    for (size_t i = 2; i < rows.size(); ++i)
        scanned.SetPoint(static_cast<int>(i), rows[i].first, rows[i].second);
    ASSERT_TRUE(inOrder == scanned);

    auto lookUp = [](const CTableT<double>& t, double x, bool quiet) {
        try {
            return std::make_pair(t.GetValue(x, quiet), -1);
        } catch (const Util::CRange<double>& e) {
            return std::make_pair(e.value, e.code);
        }
    };
    std::vector<double> xs = {-0.5, 4.5, 3.0 + 5e-12, std::nan(""), 4.3, 0.0, 2.0, 3.0};
    for (int k = 0; k <= 440; ++k)
        xs.push_back(-0.1 + k * 0.01);
    for (double x : xs)
        for (bool quiet : {false, true}) {
            const auto a = lookUp(inOrder, x, quiet);
            const auto b = lookUp(scanned, x, quiet);
            EXPECT_EQ(a.second, b.second) << x;
            EXPECT_TRUE(a.first == b.first || (std::isnan(a.first) && std::isnan(b.first))) << x;
        }
}
