#include "base/CImportedDisplacementsCsv.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <stdlib.h>
#include <unistd.h>

using namespace Tevra;
using namespace Tevra::Data;

// A header, blanks around values, a blank line, a + sign, a CRLF line end and a byte
// order mark all read; the values stand as written (metres).
TEST(CImportedDisplacementsCsv, ReadsPointsWithAHeader) {
    CImportedDisplacementsSet set(L"Kept");
    std::string error;
    ASSERT_TRUE(CImportedDisplacementsCsv::Parse(
        "\xEF\xBB\xBFX,Y,Z,dX,dY,dZ\r\n 10.5, -2 ,100,0.001,-0.0005,+0.012\r\n\n"
        "1e2,0,0,0,0,-1.5E-3\n",
        "survey.csv", set, error))
        << error;
    ASSERT_EQ(set.NumDisplacements(), 2);
    const CImportedDisplacement& a = set.GetDisplacements()[0];
    EXPECT_EQ(a.GetXpoint(), 10.5);
    EXPECT_EQ(a.GetYpoint(), -2.0);
    EXPECT_EQ(a.GetZpoint(), 100.0);
    EXPECT_EQ(a.GetXdisplacement(), 0.001);
    EXPECT_EQ(a.GetYdisplacement(), -0.0005);
    EXPECT_EQ(a.GetZdisplacement(), 0.012);
    EXPECT_EQ(set.GetDisplacements()[1].GetXpoint(), 100.0);
    EXPECT_EQ(set.GetDisplacements()[1].GetZdisplacement(), -0.0015);
    EXPECT_EQ(set.Name(), CString(L"Kept"));

    // Without a header the first line is a point.
    ASSERT_TRUE(CImportedDisplacementsCsv::Parse("1,2,3,4,5,6", "a.csv", set, error));
    EXPECT_EQ(set.NumDisplacements(), 1);
}

TEST(CImportedDisplacementsCsv, FaultsNameTheFileLineAndValue) {
    struct {
        const char* text;
        const char* message;
    } cases[] = {
        {"", "s.csv: the file holds no points; each line should give X, Y, Z, dX, dY, dZ (m)"},
        {"X,Y,Z,dX,dY,dZ\n\n",
         "s.csv: the file holds no points; each line should give X, Y, Z, dX, dY, dZ (m)"},
        {"X,Y,Z,dX,dY,dZ\n1,2,3,4,5\n",
         "s.csv: line 2: 5 values where a point takes 6 (X, Y, Z, dX, dY, dZ)"},
        {"1,2,3,4,5,6,\n", "s.csv: line 1: 7 values where a point takes 6 (X, Y, Z, dX, dY, dZ)"},
        // One slip in a first line of numbers is a fault, not a header.
        {"1,2,3,4,0.0o5,6\n", "s.csv: line 1: dY is \"0.0o5\", which is not a number"},
        {"1,2,3,4,5,6\n1,2,,4,5,6\n", "s.csv: line 2: Z is \"\", which is not a number"},
        {"1,2,3,4,5,6\nX,Y,Z,dX,dY,dZ\n", "s.csv: line 2: X is \"X\", which is not a number"},
        {"1,2,3,4,5,nan\n", "s.csv: line 1: dZ is \"nan\", which is not a finite number"},
        {"1,-inf,3,4,5,6\n", "s.csv: line 1: Y is \"-inf\", which is not a finite number"},
        {"1,2,3,1e999,5,6\n", "s.csv: line 1: dX is \"1e999\", which is not a finite number"},
    };
    for (const auto& c : cases) {
        CImportedDisplacementsSet set;
        set.AddDisplacement(CImportedDisplacement());
        std::string error;
        EXPECT_FALSE(CImportedDisplacementsCsv::Parse(c.text, "s.csv", set, error)) << c.text;
        EXPECT_EQ(error, c.message);
        EXPECT_EQ(set.NumDisplacements(), 1) << "a refused file leaves the set alone";
    }
}

TEST(CImportedDisplacementsCsv, FilesThatCannotBeRead) {
    char dir[] = "/tmp/zorvo-csv-XXXXXX";
    ASSERT_NE(mkdtemp(dir), nullptr);
    const std::string folder = dir;
    CImportedDisplacementsSet set;
    std::string error;
    EXPECT_FALSE(CImportedDisplacementsCsv::Read(folder + "/missing.csv", set, error));
    EXPECT_EQ(error, folder + "/missing.csv: cannot read the file: No such file or directory");
    EXPECT_FALSE(CImportedDisplacementsCsv::Read(folder, set, error));
    EXPECT_EQ(error, folder + ": cannot read the file: it is a folder");

    std::ofstream(folder + "/long.csv") << std::string(70000, '1') << ",2,3,4,5,6\n";
    EXPECT_FALSE(CImportedDisplacementsCsv::Read(folder + "/long.csv", set, error));
    EXPECT_EQ(error, folder + "/long.csv: line 1 is longer than 65536 characters; each line "
                              "should give X, Y, Z, dX, dY, dZ (m)");

    std::ofstream(folder + "/ok.csv") << "0,0,0,0,0,0.01\n";
    ASSERT_TRUE(CImportedDisplacementsCsv::Read(folder + "/ok.csv", set, error)) << error;
    EXPECT_EQ(set.ReadFileName(), CString::FromUtf8(folder + "/ok.csv"));
    std::system(("rm -rf '" + folder + "'").c_str());
}
