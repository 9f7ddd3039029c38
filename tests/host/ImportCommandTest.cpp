// zorvo import: a set of imported displacements from a CSV file into a project.
#include "host/ZorvoHost.h"
#include "modelfile/ZorvoModelFile.h"
#include "solver/ZorvoSolver.h"

#include <gtest/gtest.h>

#include "tests/support/Host.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdlib.h>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::Testing;

namespace {

// Three stages over a grid of 25 x 25 samples 5 m apart, from (-60, -60) at level 100.
const std::string kStaged = kSource + "/examples/staged-tunnels.json";

} // namespace

TEST(ImportCommand, AddsTheSetToTheStagesNamedAndSaves) {
    TempDir dir;
    const std::string csv = dir.path + "/round 4.csv";
    // (0, 0, 100) is grid sample (12, 12); the second point meets no sample.
    std::ofstream(csv) << "X,Y,Z,dX,dY,dZ\n0.0004,0,100,0,0,0.003\n2.5,0,100,0,0,1\n";
    const std::string out = dir.path + "/with-set.json";
    const Outcome r =
        Zorvo({"import", kStaged, "--csv", csv, "--stages", "2 to 3", "--output", out});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "imported set 1 \"round 4\": 2 points from " + csv +
                         ", in the base model and stages 2, 3\nsaved " + out + "\n");

    ZorvoData doc, plain;
    FileIO::ZorvoModelFile::Load(out, doc);
    FileIO::ZorvoModelFile::Load(kStaged, plain);
    ASSERT_EQ(doc.NumImportedDisplacementsSets(), 1);
    EXPECT_EQ(doc.GetImportedDisplacementsSet(1).ReadFileName(), CString::FromUtf8(csv));
    EXPECT_EQ(doc.GetStage(1).GetImportedDisplacementSets().String(), CString(L""));
    EXPECT_EQ(doc.GetStage(3).GetImportedDisplacementSets().String(), CString(L"1"));

    CLodraZorvoPrefData prefs;
    ASSERT_TRUE(ZorvoSolver(&doc, &prefs, nullptr, {}).Solve());
    ASSERT_TRUE(ZorvoSolver(&plain, &prefs, nullptr, {}).Solve());
    for (int stage = 0; stage <= 3; ++stage) {
        const GeoDispResult& r1 = doc.GetDisplacementGrid(1).GetResultFromPosition(stage, 12, 12);
        const GeoDispResult& r0 = plain.GetDisplacementGrid(1).GetResultFromPosition(stage, 12, 12);
        const bool included = stage != 1;
        EXPECT_EQ(r1.GetZdisplacement(),
                  included ? 0.003 + r0.GetZdisplacement() : r0.GetZdisplacement());
        EXPECT_EQ(r1.GetImportMatch(), included ? 1 : 0) << "stage " << stage;
    }

    // A second set named on the command line joins the lists already there.
    const Outcome again =
        Zorvo({"import", out, "--csv", csv, "--name", "Again", "--stages", "3", "--output", out});
    ASSERT_EQ(again.status, 0) << again.err;
    FileIO::ZorvoModelFile::Load(out, doc);
    EXPECT_EQ(doc.GetStage(3).GetImportedDisplacementSets().String(), CString(L"1 2"));
    const Outcome info = Zorvo({"info", out});
    EXPECT_NE(info.out.find("  imported displacement sets: 2\n  imported set 1 \"round 4\": 2 "
                            "points from " +
                            csv + "\n  imported set 2 \"Again\": 2 points from " + csv + "\n"),
              std::string::npos)
        << info.out;
}

TEST(ImportCommand, RefusesWhatItCannotUse) {
    TempDir dir;
    const std::string good = dir.path + "/good.csv";
    std::ofstream(good) << "1,2,3,4,5,6\n";
    const std::string bad = dir.path + "/bad.csv";
    std::ofstream(bad) << "1,2,3,4,5,6\n1,2,3\n";
    const std::string out = dir.path + "/out.json";
    const struct {
        std::vector<std::string> args;
        int status;
        std::string message;
    } cases[] = {
        {{"import", kStaged, "--csv", bad, "--output", out},
         2,
         "zorvo: " + bad + ": line 2: 3 values where a point takes 6 (X, Y, Z, dX, dY, dZ)\n"},
        {{"import", kStaged, "--csv", dir.path + "/none.csv", "--output", out},
         2,
         "zorvo: " + dir.path + "/none.csv: cannot read the file: No such file or directory\n"},
        {{"import", kStaged, "--csv", good, "--stages", "2 to 4", "--output", out},
         2,
         "zorvo: --stages names stage 4, but " + kStaged + " has 3 stages\n"},
        {{"import", kStaged, "--csv", good, "--stages", "two", "--output", out},
         2,
         "zorvo: --stages takes stage numbers such as \"1 to 3 5\", not \"two\"\n"},
        {{"import", kStaged, "--csv", good, "--output", dir.path + "/out.txt"},
         2,
         "zorvo: " + dir.path +
             "/out.txt: the file name should end in .json (JSON form) or "
             ".zorvo (binary form)\n"},
    };
    for (const auto& c : cases) {
        const Outcome r = Zorvo(c.args);
        EXPECT_EQ(r.status, c.status) << c.message;
        EXPECT_EQ(r.err, c.message);
        EXPECT_EQ(r.out, "");
    }
    EXPECT_EQ(Zorvo({"import", kStaged, "--csv", good}).status, 2); // no --output
    std::ifstream saved(out);
    EXPECT_FALSE(saved.good()) << "nothing is saved after a refusal";
}
