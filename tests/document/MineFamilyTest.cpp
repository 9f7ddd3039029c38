// The mine panels of a project as a numbered family.
#include "document/ZorvoData.h"

#include <gtest/gtest.h>

using namespace Tevra;
using namespace Tevra::Data;

TEST(MineFamily, NumberedFromOneAndCounted) {
    ZorvoData doc;
    EXPECT_FALSE(doc.MineExists(1));
    EXPECT_EQ(doc.NumRecord(eModuleMines), 0);

    GeoMine named;
    named.SetName(L"Panel C");
    doc.SetMine(3, named); // grows with new panels
    ASSERT_EQ(doc.NumMines(), 3);
    EXPECT_EQ(doc.NumRecord(eModuleMines), 3);
    EXPECT_EQ(doc.GetMine(1), GeoMine());
    EXPECT_EQ(doc.GetMine(3).GetName(), CString(L"Panel C"));
    EXPECT_TRUE(doc.MineExists(3));
    EXPECT_FALSE(doc.MineExists(0));
    EXPECT_FALSE(doc.MineExists(4));

    doc.InsertMine(1, 2);
    EXPECT_EQ(doc.NumMines(), 5);
    EXPECT_EQ(doc.GetMine(5).GetName(), CString(L"Panel C"));
    doc.DeleteMine(2, 100);
    EXPECT_EQ(doc.NumMines(), 1);
    doc.DeleteMine(1, -1);
    EXPECT_EQ(doc.NumMines(), 0);
    // Tunnels are not mines.
    doc.SetTunnel(1, GeoTunnel());
    EXPECT_EQ(doc.NumRecord(eModuleMines), 0);
}

TEST(MineFamily, PartOfTheProjectsEquality) {
    ZorvoData a;
    a.SetMine(1, GeoMine());
    ZorvoData b = a;
    EXPECT_EQ(a, b);
    GeoMine wider;
    wider.SetPanelWidth(150.0);
    b.SetMine(1, wider);
    EXPECT_NE(a, b);
    b.SetMine(1, GeoMine());
    b.SetMine(2, GeoMine());
    EXPECT_NE(a, b);
}
