#include "base/CBasicList.h"

#include <gtest/gtest.h>

#include <climits>

using Tevra::CBasicList;
using Tevra::CString;

TEST(CBasicList, NumbersAndRanges) {
    CBasicList list;
    ASSERT_TRUE(list.SetString(L"1 to 3 7"));
    EXPECT_EQ(list.String(), CString(L"1 to 3 7"));
    struct {
        int number;
        bool included;
    } cases[] = {{0, false}, {1, true}, {2, true},  {3, true},  {4, false},
                 {6, false}, {7, true}, {8, false}, {-1, false}};
    for (const auto& c : cases)
        EXPECT_EQ(list.IsIncluded(c.number, 0), c.included) << c.number;
    EXPECT_EQ(list.MaxItem(0), 7);

    ASSERT_TRUE(list.SetString(L"9 2 to 4"));
    EXPECT_EQ(list.MaxItem(0), 9); // the highest, not the last

    ASSERT_TRUE(list.SetString(L""));
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_FALSE(list.IsIncluded(1, 0));
}

TEST(CBasicList, RejectsMalformedTextAndKeepsTheOldList) {
    const wchar_t* bad[] = {L"1 to", L"to 3", L"3 to 1", L"abc", L"1 2x", L"1 to to 3"};
    for (const wchar_t* text : bad) {
        CBasicList list;
        ASSERT_TRUE(list.SetString(L"5"));
        EXPECT_FALSE(list.SetString(text)) << CString(text).ToUtf8();
        EXPECT_TRUE(list.IsIncluded(5, 0));
        EXPECT_EQ(list.String(), CString(L"5"));
    }

    // The limit is the highest value a range may reach.
    CBasicList list;
    EXPECT_TRUE(list.SetString(L"1 to 10", 10));
    EXPECT_FALSE(list.SetString(L"1 to 11", 10));
    EXPECT_TRUE(list.SetString(L"1 to 11", 0)); // 0: no limit
    EXPECT_TRUE(list.IsIncluded(11, 0));
}

TEST(CBasicList, LooksUpUnsortedOverlappingRanges) {
    CBasicList list;
    ASSERT_TRUE(list.SetString(L"9, 2 to 4 3 to 6 -3 -2 8 2147483646 to 2147483647"));
    EXPECT_EQ(list.String(), CString(L"9, 2 to 4 3 to 6 -3 -2 8 2147483646 to 2147483647"));
    for (int n : {INT_MIN, -4, -1, 1, 7, 10, INT_MAX - 2})
        EXPECT_FALSE(list.IsIncluded(n, 0)) << n;
    for (int n : {-3, -2, 2, 5, 6, 8, 9, INT_MAX - 1, INT_MAX})
        EXPECT_TRUE(list.IsIncluded(n, 0)) << n;
    EXPECT_EQ(list.MaxItem(0), INT_MAX);

    // Repeats are dropped and the text written out again from what is kept.
    ASSERT_TRUE(list.SetString(L"7 7,7  1 to 2 7 1 to 2 1 to 3"));
    EXPECT_EQ(list.String(), CString(L"7 1 to 2 1 to 3"));
    EXPECT_EQ(list.Ranges().size(), 3u);
}
