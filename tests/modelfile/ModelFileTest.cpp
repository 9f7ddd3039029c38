#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoDataElement.h"
#include "modelfile/ZorvoDataHelpers.h"
#include "modelfile/ZorvoModelFile.h"
#include "solver/ZorvoSolver.h"

#include "tests/support/ModelFiles.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/Texts.h"

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;
using namespace Tevra::Testing;

namespace {

// A project with every field away from its default: two tunnels, a mine, every kind of
// displacement record, stages and a stage property, two basements (one L-shaped with
// stiffened corners, transition zones and a negative contribution) and a shaft, a user
// curve, imported sets with match bits, two strains records, a building with results by
// stage and offset, a user pipe section and criteria record, a specific utility on the
// polyline that uses them and a generic utility, titles and history; as the writer lays
// it out.
const std::string kFullProject =
    std::string(ZORVO_SOURCE_DIR) + "/tests/modelfile/full-project.json";

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), {});
}

// The full project, solved (as the mine analysis it is) so that it has results.
ZorvoData FullDocument() {
    ZorvoData doc;
    ZorvoModelFile::Load(kFullProject, doc);
    CLodraZorvoPrefData prefs;
    ZorvoSolver(&doc, &prefs, nullptr, {}).Solve();
    return doc;
}

std::string TunnelJson(const std::string& body) {
    return R"({"modules": [{"description": "Tunnels", "records": [{)" + body + "}]}]}";
}

const char* kMinimalTunnel =
    R"("centreLine": {"start": {"x": 0, "y": 0, "z": 80}, "end": {"x": 0, "y": 100, "z": 80}},
       "diameter": 6, "percentLoss": 1.5)";

} // namespace

TEST(ModelFile, RoundTripsEveryFieldInBothForms) {
    // Read and written again, the file keeps every byte: no field is lost either way.
    ZorvoData unsolved;
    ZorvoModelFile::Load(kFullProject, unsolved);
    EXPECT_EQ(ZorvoModelFile::Write(unsolved, CDataFile::eJson).Contents(), ReadFile(kFullProject));

    const ZorvoData doc = FullDocument();
    ASSERT_TRUE(doc.ResultsExist(-1));
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        EXPECT_TRUE(RoundTrip(doc, form) == doc);
        // Imported sets go to their own module only: the legacy one is never written.
        EXPECT_EQ(ZorvoModelFile::Write(doc, form).Contents().find("Imported Displacements\""),
                  std::string::npos);
    }
    // Across forms: JSON to binary to JSON gives the same JSON text.
    const ZorvoData viaBinary = RoundTrip(RoundTrip(doc, CDataFile::eJson), CDataFile::eBinary);
    EXPECT_TRUE(viaBinary == doc);
    EXPECT_EQ(ZorvoModelFile::Write(viaBinary, CDataFile::eJson).Contents(),
              ZorvoModelFile::Write(doc, CDataFile::eJson).Contents());
}

TEST(ModelFile, EmptyFamiliesWriteNoModule) {
    ZorvoData doc;
    const std::string json = ZorvoModelFile::Write(doc, CDataFile::eJson).Contents();
    EXPECT_EQ(json.find("\"Tunnels\""), std::string::npos);
    EXPECT_EQ(json.find("Excavations"), std::string::npos);
    EXPECT_EQ(json.find("\"Results\""), std::string::npos);
    EXPECT_NE(json.find("\"Parameters\""), std::string::npos);
    EXPECT_TRUE(RoundTrip(doc, CDataFile::eBinary) == doc);
}

TEST(ModelFile, HandWrittenTunnelTakesDefaultsForOptionalFields) {
    CDataFile in = CDataFile::FromBytes(TunnelJson(kMinimalTunnel), "t.json");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);
    ASSERT_EQ(doc.NumTunnels(), 1);
    const GeoTunnel& t = doc.GetTunnel(1);
    EXPECT_EQ(t.GetDiameter(), 6.0);
    EXPECT_EQ(t.GetYCentreLine2(), 100.0);
    EXPECT_EQ(t.GetGroundLevel1(), 100.0); // default
    EXPECT_EQ(t.GetkDerivation(eSurface), GeoTunnel::ekOReillyAndNew);
}

// Hand-written files of every module that must not load, each with its message.
TEST(ModelFile, BadJsonGivesItsError) {
    for (const auto& [text, pieces] : ReadTexts("modelfile/ReadErrors.tsv")) {
        const std::string message = ReadError(text);
        EXPECT_NE(message.find(pieces.at(0)), std::string::npos)
            << "input: " << text << "\nmessage: " << message;
    }
}

TEST(ModelFile, FailedLoadLeavesTheDocumentAlone) {
    ZorvoData doc = FullDocument();
    const ZorvoData before = doc;
    CDataFile in = CDataFile::FromBytes(TunnelJson("\"diameter\": 6"), "bad.json");
    EXPECT_THROW(ZorvoModelFile::Read(in, doc, nullptr), CDataFileError);
    EXPECT_TRUE(doc == before);
}

// Every cut of the binary file, and random damage to it, is either a shorter project or a
// read error that names the file: never a crash or an allocation its bytes cannot back.
TEST(ModelFile, DamagedBinaryFilesAreReportedNeverOverrun) {
    const std::string good = ZorvoModelFile::Write(FullDocument(), CDataFile::eBinary).Contents();
    // Every third byte up to the end of the excavations' modules, which the graphic
    // settings follow, then a cut every 97 bytes through the results.
    const size_t fine = good.find("Graphic Settings");
    for (size_t n = 0; n < good.size(); n += (n < fine ? 3 : 97)) {
        try {
            CDataFile in = CDataFile::FromBytes(good.substr(0, n), "cut.zorvo");
            ZorvoData doc;
            ZorvoModelFile::Read(in, doc, nullptr);
        } catch (const CDataFileError& e) {
            EXPECT_NE(std::string(e.what()).find("cut.zorvo"), std::string::npos);
        }
    }
    unsigned seed = 12345;
    for (int trial = 0; trial < 600; ++trial) {
        std::string bytes = good;
        for (int k = 0; k < 4; ++k) {
            seed = seed * 1103515245u + 12345u;
            bytes[12 + (seed >> 8) % (bytes.size() - 12)] = static_cast<char>(seed >> 3);
        }
        try {
            CDataFile in = CDataFile::FromBytes(bytes, "x.zorvo");
            ZorvoData doc;
            ZorvoModelFile::Read(in, doc, nullptr);
        } catch (const CDataFileError&) {
        }
    }
}

TEST(ModelFile, BinaryFaultsNameTheirPlace) {
    const std::string good = ZorvoModelFile::Write(FullDocument(), CDataFile::eBinary).Contents();
    // Header: magic (8), container version (4); the first module's key follows.
    std::string badVersion = good;
    badVersion[8] = 9;
    EXPECT_NE(ReadError(badVersion).find("container version 9"), std::string::npos);

    // A field of the wrong type: the first module is the file history, whose first
    // field is a text; turn its tag into a number's.
    const std::string text = "File history";
    const size_t moduleStart = 12;
    const size_t firstField = moduleStart + 4 + 4 + text.size() + 4 + 4 + 8 + 4;
    std::string badTag = good;
    badTag[firstField] = 2;
    const std::string message = ReadError(badTag);
    EXPECT_NE(message.find("byte " + std::to_string(firstField)), std::string::npos) << message;
    EXPECT_NE(message.find("module 'File history', record 1"), std::string::npos) << message;
    EXPECT_NE(message.find("should be a text but the file holds a number"), std::string::npos);

    // A record count larger than the records present.
    std::string badCount = good;
    const size_t countAt = moduleStart + 4 + 4 + text.size();
    badCount[countAt] = 3;
    EXPECT_NE(ReadError(badCount).find("holds 2 records but its header counts 3"),
              std::string::npos);
    badCount[countAt] = 1;
    EXPECT_NE(ReadError(badCount).find("holds more data than its 1 records"), std::string::npos);

    // A record count that the module's bytes cannot hold is refused before the records
    // are walked.
    badCount[countAt + 3] = '\x7f';
    EXPECT_NE(ReadError(badCount).find("more than its"), std::string::npos);

    // A huge text length must be refused before anything is allocated.
    std::string hugeText = good;
    hugeText[moduleStart + 4] = '\xff';
    hugeText[moduleStart + 5] = '\xff';
    hugeText[moduleStart + 6] = '\xff';
    hugeText[moduleStart + 7] = '\x7f';
    EXPECT_NE(ReadError(hugeText).find("the file ends before the module description"),
              std::string::npos);
}

TEST(ModelFile, LaterGenerationIsRefusedByAHelperThatSaysSo) {
    // A helper that refuses records newer than it knows, as the background-data and
    // legacy imported-displacement modules do.
    class Strict : public ZorvoDataElement {
      public:
        using ZorvoDataElement::ZorvoDataElement;
        CString GetDataDescription() const override { return L"Background Data Polyline"; }
        int GetDataKey() const override { return 200060; }
        int GetNumDataItems() const override { return 0; }
        int GetDataBinary() const override { return 2; }
        bool RefusesLaterGeneration() const override { return true; }
    };
    ZorvoData doc;
    Strict helper(doc);
    CDataFile file(CDataFile::eBinary);
    EXPECT_EQ(helper.ReadData(file, 1, 3), 0);
    ASSERT_EQ(helper.Messages().size(), 1u);
    EXPECT_EQ(helper.Messages()[0].text,
              CString(L"The Background Data Polyline format in this file is a later generation "
                      L"than that with which this version of Zorvo is familiar. Background Data "
                      L"Polyline will be skipped."));
    EXPECT_EQ(helper.Messages()[0].style, DataItemHelper::eBoxInformation);
}

TEST(ModelFile, SavedProjectStreamsAndLoadsBackEqual) {
    // A grid whose results pass the 1 MB that a save gathers before each write to the
    // disk, so that record and module lengths are patched in bytes already written:
    // 2 stages of 120 x 60 samples, 104 bytes each in binary (about 1.5 MB).
    ZorvoData doc = FullDocument();
    doc.SetDisplacementGrid(1, CDisplacementGrid(L"Large"));
    std::vector<CDisplacementData::StageResults> all(2);
    for (size_t k = 0; k < all.size(); ++k) {
        all[k].assign(120, std::vector<GeoDispResult>(60));
        for (size_t i = 0; i < 120; ++i)
            for (size_t j = 0; j < 60; ++j) {
                GeoDispResult& r = all[k][i][j];
                r.SetPoint({0.1 * static_cast<double>(i), -2.5 * static_cast<double>(j), 100.0});
                r.SetZdisplacement(-1e-3 / (1.0 + static_cast<double>(i * j + k)));
                r.SetMajorPrincipalStrain(i == j ? std::numeric_limits<double>::infinity() : 3e-5);
                r.SetPointGroup(static_cast<int>(k));
            }
    }
    doc.AccessDisplacementGrid(1).SetAllResults(all);

    char dirTemplate[] = "/tmp/zorvo-stream-XXXXXX";
    const std::string dir = mkdtemp(dirTemplate);
    for (const char* name : {"/project.json", "/project.zorvo"}) {
        const std::string path = dir + name;
        ZorvoModelFile::Save(path, doc);
        ZorvoData back;
        ZorvoModelFile::Load(path, back);
        EXPECT_TRUE(back == doc) << name;
        std::ifstream in(path, std::ios::binary);
        const std::string saved((std::istreambuf_iterator<char>(in)), {});
        EXPECT_EQ(saved, ZorvoModelFile::Write(doc, ZorvoModelFile::FormForPath(path)).Contents())
            << name;
        if (ZorvoModelFile::FormForPath(path) == CDataFile::eJson) {
            // Written event by event, the text is laid out as the whole document would be:
            // files saved before keep their bytes.
            EXPECT_EQ(saved, CDataFile::FromBytes(saved, "again").Contents());
        }
        std::remove(path.c_str());
    }
    // A name of neither form is refused, and a target that cannot be replaced (here a
    // directory) is left as it was. (What a failed save leaves is CDataFile's to test.)
    EXPECT_THROW(ZorvoModelFile::Save(dir + "/project.txt", doc), CDataFileError);
    const std::string blocked = dir + "/blocked.json";
    mkdir(blocked.c_str(), 0755);
    EXPECT_THROW(ZorvoModelFile::Save(blocked, doc), CDataFileError);
    struct stat st {};
    EXPECT_TRUE(stat(blocked.c_str(), &st) == 0 && S_ISDIR(st.st_mode));
    rmdir(blocked.c_str());
    rmdir(dir.c_str());
}

// Stages of "N x 0" samples once made a 343 KB file allocate without bound: each stage
// took N empty rows for two numbers of the file.
TEST(ModelFile, ResultsStageWithPositionsButNoSamplesIsRefused) {
    // Stage 0 is 0 x 0; stage 1 claims 1 x 0, which the 13 numbers after it could hold.
    const std::string file =
        R"({"modules": [{"description": "Displacement Points", "records": [{"point": )"
        R"({"x": 0, "y": 0, "z": 100}}]}, {"description": "Results", "records": [{"family": 6, )"
        R"("record": 1, "stages": 2, "samples": [0, 0, 1, 0, )"
        R"(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]}]}]})";
    EXPECT_NE(ReadError(file).find("(module 'Results'): the results of displacement point 1 hold "
                                   "1 x 0 samples at calculation stage 1; a stage without "
                                   "samples should be 0 x 0"),
              std::string::npos)
        << ReadError(file);

    // Stages of rows without samples, as a store filled by hand may hold, are written
    // 0 x 0, so that the saved file reads.
    ZorvoData doc;
    doc.SetDisplacementGrid(1, CDisplacementGrid(L"Edge"));
    doc.AccessDisplacementGrid(1).SetAllResults(
        std::vector<CDisplacementData::StageResults>(2, CDisplacementData::StageResults(5)));
    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_EQ(back.GetDisplacementGrid(1).NumResultStages(), 2);
        EXPECT_EQ(back.GetDisplacementGrid(1).NumResults(1), 0);
    }
}

// Found by fuzzing: a name with a lone surrogate escape loaded, but was written back as
// bytes that are not UTF-8, so the saved file could not be read again.
TEST(ModelFile, NamesWithNoCharactersStillRoundTrip) {
    CDataFile in = CDataFile::FromBytes(
        TunnelJson(std::string(kMinimalTunnel) + R"(, "name": "A\udc00B")"), "s.json");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, nullptr);
    EXPECT_EQ(doc.GetTunnel(1).GetName(), CString(L"A\uFFFDB"));
    EXPECT_TRUE(RoundTrip(doc, CDataFile::eJson) == doc);
}

TEST(ModelFile, HelpersStandInTheFileOrderWithTheirKeys) {
    ZorvoData doc;
    ZorvoDataHelpers helpers(doc);
    const std::vector<std::pair<int, std::wstring>> expected = {
        {10, L"File history"},
        {202001, L"Parameters"},
        {200011, L"Displacement Points"},
        {200012, L"Displacement Lines"},
        {200013, L"Displacement Polylines"},
        {200014, L"Displacement Grids"},
        {202120, L"Imported Displacements"},
        {202280, L"Imported Displacements Sets"},
        {202010, L"Tunnels"},
        {202020, L"Mine Seams"},
        {202040, L"Vertical Ground Movement Curves"},
        {202050, L"Horizontal Ground Movement Curves"},
        {202130, L"Polygonal Excavations"},
        {202140, L"Circular Excavations"},
        {202080, L"Damage Category Strains"},
        {202070, L"Specific Buildings"},
        {202110, L"Graphic Settings"},
        {202160, L"Utility Dimensions"},
        {202170, L"Acceptance Criteria"},
        {202230, L"Utility Calculation Options"},
        {202290, L"ReEntrantCornerOptions"},
        {202180, L"Specific Utilities"},
        {202220, L"Polylines"},
        {202200, L"Generic Buildings"},
        {202210, L"Generic Utilities"},
        {202240, L"Stages"},
        {202250, L"Stage Properties"},
        {202100, L"Results"},
    };
    ASSERT_EQ(helpers.Helpers().size(), expected.size());
    for (size_t k = 0; k < expected.size(); ++k) {
        EXPECT_EQ(helpers.Helpers()[k]->GetDataKey(), expected[k].first);
        EXPECT_EQ(helpers.Helpers()[k]->GetDataDescription().Str(), expected[k].second);
    }
    EXPECT_EQ(helpers.KeyFromHelpers(L"Tunnels")->GetDataBinary(), 10);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Mine Seams")->GetDataBinary(), 4);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Polygonal Excavations")->GetDataBinary(), 7);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Circular Excavations")->GetDataBinary(), 5);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Utility Dimensions")->GetDataBinary(), 2);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Acceptance Criteria")->GetDataBinary(), 6);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Utility Calculation Options")->GetDataBinary(), 4);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Specific Utilities")->GetDataBinary(), 15);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Generic Utilities")->GetDataBinary(), 8);
    EXPECT_EQ(helpers.KeyFromHelpers(L"Bridges"), nullptr);
}

// Only the user's curves reach the file; they come back behind the standard curves, at
// the same numbers, refitted, and a curve the fit refuses loads all the same.
TEST(ModelFile, UserCurvesFollowTheStandardOnes) {
    using GeoGlobal::eHorizontal;
    using GeoGlobal::eVertical;
    ZorvoData doc;
    CGMCurve settlement(true, eVertical, CGMCurve::ePolynomial, L"Basement settlement");
    settlement.SetDataCoords({{0, 0, 0.3}, {1, 0, 0.2}, {2, 0, 0}});
    settlement.SetYOrder(0);
    settlement.CalculateCoeffs();
    doc.SetGMCurve(eVertical, 17, settlement);
    CGMCurve empty(true, eHorizontal, CGMCurve::ePolynomial, L"No points yet");
    doc.SetGMCurve(eHorizontal, 14, empty);
    CGMCurve scattered(true, eHorizontal, CGMCurve::eLinear, L"Scattered");
    scattered.SetDataCoords({{0, 0, 0.1}, {1, 0, 0}, {0, 1, 0.05}});
    doc.SetGMCurve(eHorizontal, 15, scattered);

    for (auto form : {CDataFile::eJson, CDataFile::eBinary}) {
        const std::string text = ZorvoModelFile::Write(doc, form).Contents();
        EXPECT_EQ(text.find("CIRIA"), std::string::npos); // no standard curve is written
        const ZorvoData back = RoundTrip(doc, form);
        EXPECT_TRUE(back == doc);
        ASSERT_EQ(back.NumGMCurves(eVertical), 17);
        ASSERT_EQ(back.NumGMCurves(eHorizontal), 15);
        EXPECT_EQ(back.GetGMCurve(eVertical, 17).GetCoeffs(), settlement.GetCoeffs());
        EXPECT_TRUE(back.GetGMCurve(eHorizontal, 14).GetCoeffs().empty());
        EXPECT_EQ(back.GetGMCurve(eHorizontal, 15).GetInterpolationMethod(), CGMCurve::eLinear);
    }
}
