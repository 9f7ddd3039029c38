#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoDataElement.h"
#include "modelfile/ZorvoDataHelpers.h"
#include "modelfile/ZorvoModelFile.h"
#include "solver/ZorvoSolver.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <dirent.h>
#include <fstream>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;

namespace {

// A project with every field away from its default, solved so that it has results.
ZorvoData FullDocument() {
    ZorvoData doc;
    GeoTunnel t;
    t.SetName(L"Westbound \u00e9");
    t.SetXCentreLine1(-3.25);
    t.SetXCentreLine2(41.5);
    t.SetYCentreLine1(-60.125);
    t.SetYCentreLine2(70.0);
    t.SetZCentreLine1(72.5);
    t.SetZCentreLine2(74.0);
    t.SetSoilInterfaceLevel1(88.0);
    t.SetSoilInterfaceLevel2(87.5);
    t.SetGroundLevel1(101.0);
    t.SetGroundLevel2(99.5);
    t.SetDiameter(6.2);
    t.SetPercentLoss(1.35);
    t.Setk(eSurface, 0.45);
    t.Setk(eSubSurface, 0.55);
    t.Setm(0.65);
    t.SetSoilType(GeoTunnel::eGranular);
    t.SetNumLayers(2);
    t.SetkDerivation(eSurface, GeoTunnel::ekSelby);
    t.SetkDerivation(eSubSurface, GeoTunnel::ekBoscardin);
    t.SetSubSurfaceMethod(GeoTunnel::eHarrisAndAlvarado);
    t.SetShow(false);
    t.SetLabel(true);
    doc.SetTunnel(1, t);
    t.SetName(L"Eastbound");
    t.SetXCentreLine1(10.0);
    t.SetSubSurfaceMethod(GeoTunnel::eMair);
    doc.SetTunnel(2, t);

    GeoMine mine;
    mine.SetName(L"Panel 401");
    mine.SetClosure(1.8);
    mine.SetPanelWidth(180.0);
    mine.SetLowerStratumThickness(250.0);
    mine.SetUpperStratumThickness(90.0);
    mine.SetLowerAngleOfDraw(35.0);
    mine.SetUpperAngleOfDraw(20.0);
    mine.SetXCentreLine1(-5.0);
    mine.SetXCentreLine2(15.0);
    mine.SetYCentreLine1(-300.0);
    mine.SetYCentreLine2(310.0);
    mine.SetShow(false);
    mine.SetLabel(true);
    doc.SetMine(1, mine);

    CDisplacementPoint p(L"Well head");
    p.SetPoint({1.5, 2.5, 95.0});
    p.SetSurfaceType(eSubSurface);
    doc.SetDisplacementPoint(1, p);
    CDisplacementPoint off(L"Unused");
    off.SetCalculate(false);
    doc.SetDisplacementPoint(2, off);

    CDisplacementLine line(L"Section A");
    line.SetPoint1({-30.0, 5.0, 100.0});
    line.SetPoint2({30.0, 6.0, 90.0});
    line.SetIntervalsAlongLine(7);
    doc.SetDisplacementLine(1, line);

    CPolylinePlus poly(L"Kerb line");
    poly.SetPoint(0, {-20.0, -20.0, 100.0});
    poly.SetPoint(1, {0.0, -10.0, 100.5});
    poly.SetPoint(2, {25.0, 15.0, 101.0});
    doc.SetPolyline(1, poly);
    CDisplacementPolyline dp(L"Kerb");
    dp.SetPolyline(1);
    dp.SetIntervalsAlongLine(5);
    doc.SetDisplacementPolyline(1, dp);

    CDisplacementGrid grid(L"Site");
    grid.SetPoint1({-10.0, -10.0, 100.0});
    grid.SetPoint2({10.0, -5.0, 100.0});
    grid.SetExtrusionDirection(eExtrudeX);
    grid.SetExtrusionDistance(12.5);
    grid.SetIntervalsAlongLine(4);
    grid.SetIntervalsAlongExtrusion(3);
    doc.SetDisplacementGrid(1, grid);

    CStage s1;
    s1.SetName(L"First drive");
    CBasicList l;
    l.SetString(L"1", 0);
    s1.SetTunnels(l);
    l.SetString(L"2 to 4", 0);
    s1.SetPolygonalExcavations(l);
    l.SetString(L"7", 0);
    s1.SetCircularExcavations(l);
    l.SetString(L"1 3", 0);
    s1.SetImportedDisplacementSets(l);
    s1.SetEnabled(false);
    s1.SetSmoothedResults(true);
    doc.SetStage(1, s1);
    CStage s2;
    s2.SetName(L"Both");
    l.SetString(L"1 to 2", 0);
    s2.SetTunnels(l);
    doc.SetStage(2, s2);

    CStageProperty sp;
    sp.SetName(L"Larger shield");
    sp.SetStage(2);
    l.SetString(L"2", 0);
    sp.SetRefs(l);
    sp.SetValues({6.5, 7.0});
    doc.SetStageProperty(1, sp);

    CReEntrantCornerOptions corner;
    corner.SetReEntrantCornerSmoothing(true);
    doc.SetReEntrantCornerOptions(corner);
    doc.AccessGraphicSettings().SetSmoothed(true);
    doc.AccessTitles().SetTitle(L"Crossrail box");
    doc.AccessTitles().SetProject(L"P-1234");
    doc.AccessTitles().SetEngineer(L"A. Engineer");
    doc.AccessTitles().SetDateSaved(L"2026-11-23");
    doc.AccessTitles().SetComments(L"Line one\nline two, \"quoted\"");
    doc.AccessHistory().Add({L"2026-11-01", L"zorvo 0.1", L"Created"});
    doc.AccessHistory().Add({L"2026-11-23", L"zorvo 0.1", L"Solved"});

    CLodraZorvoPrefData prefs;
    ZorvoSolver solver(&doc, &prefs, nullptr, {});
    solver.Solve();

    GeoZorvoGeneral general;
    general.SetProblemType(eMine);
    doc.SetGeneral(general);
    return doc;
}

ZorvoData RoundTrip(const ZorvoData& doc, CDataFile::EForm form) {
    CDataFile out = ZorvoModelFile::Write(doc, form);
    CDataFile in = CDataFile::FromBytes(out.Contents(), "memory");
    ZorvoData back;
    ZorvoModelFile::Read(in, back, nullptr);
    return back;
}

// The message of the read error a text gives, or "" when it reads.
std::string ReadError(const std::string& text) {
    try {
        CDataFile in = CDataFile::FromBytes(text, "model.json");
        ZorvoData doc;
        ZorvoModelFile::Read(in, doc, nullptr);
    } catch (const CDataFileError& e) {
        return e.what();
    }
    return "";
}

std::string TunnelJson(const std::string& body) {
    return R"({"modules": [{"description": "Tunnels", "records": [{)" + body + "}]}]}";
}

const char* kMinimalTunnel =
    R"("centreLine": {"start": {"x": 0, "y": 0, "z": 80}, "end": {"x": 0, "y": 100, "z": 80}},
       "diameter": 6, "percentLoss": 1.5)";

} // namespace

TEST(ModelFile, RoundTripsEveryFieldInBothForms) {
    const ZorvoData doc = FullDocument();
    ASSERT_TRUE(doc.ResultsExist(-1));
    EXPECT_TRUE(RoundTrip(doc, CDataFile::eJson) == doc);
    EXPECT_TRUE(RoundTrip(doc, CDataFile::eBinary) == doc);
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

TEST(ModelFile, BadJsonGivesItsError) {
    struct Case {
        std::string text;
        std::string expected; // a piece of the message
    };
    const Case cases[] = {
        {"{\"modules\": [", "model.json: line 1, column 14: not valid JSON"},
        {"[1, 2]", "neither a binary model file nor a JSON object"},
        {"{\"modules\": 3}", "needs a \"modules\" array"},
        {TunnelJson(R"("diameter": 6, "percentLoss": 1.5)"),
         "modules[0].records[0] (module 'Tunnels'): missing member 'centreLine'"},
        {TunnelJson(std::string(kMinimalTunnel) + R"(, "numLayers": "two")"),
         "'numLayers' should be an integer, not a text"},
        {TunnelJson(std::string(kMinimalTunnel) + R"(, "soilType": "Clay")"),
         "'soilType' is \"Clay\"; it should be one of \"Not used\", \"Cohesive\", \"Granular\""},
        {TunnelJson(std::string(kMinimalTunnel) + R"(, "show": "maybe")"),
         "'show' should be \"YES\" or \"NO\""},
        {TunnelJson(std::string(kMinimalTunnel) + R"(, "groundLevels": [100])"),
         "'groundLevels' should hold the two ends' levels"},
        {R"({"modules": [{"description": "Tunnels", "count": 2, "records": [{}]}]})",
         "\"count\" is 2 but the module holds 1 records"},
        {R"({"modules": [{"description": "Bridges", "records": []}]})",
         "unknown module \"Bridges\""},
        {R"({"modules": [{"description": "Tunnels", "key": 5, "records": []}]})",
         "has key 5 where 202010 belongs"},
        {R"({"modules": [{"description": "Stages", "records": [{"tunnels": "1 to"}]}]})",
         "'tunnels' is \"1 to\", which is not a list of numbers"},
        {R"({"modules": [{"description": "Parameters", "records": [{"general": {"problemType": "DAM"}}]}]})",
         "it should be \"TUNNEL\" or \"MINE\""},
    };
    for (const Case& c : cases) {
        const std::string message = ReadError(c.text);
        EXPECT_NE(message.find(c.expected), std::string::npos)
            << "input: " << c.text << "\nmessage: " << message;
    }
}

TEST(ModelFile, FailedLoadLeavesTheDocumentAlone) {
    ZorvoData doc = FullDocument();
    const ZorvoData before = doc;
    CDataFile in = CDataFile::FromBytes(TunnelJson("\"diameter\": 6"), "bad.json");
    EXPECT_THROW(ZorvoModelFile::Read(in, doc, nullptr), CDataFileError);
    EXPECT_TRUE(doc == before);
}

TEST(ModelFile, EveryTruncationOfABinaryFileIsReported) {
    const std::string bytes = ZorvoModelFile::Write(FullDocument(), CDataFile::eBinary).Contents();
    for (size_t n = 0; n < bytes.size(); n += (n < 400 ? 1 : 97)) {
        const std::string cut = bytes.substr(0, n);
        try {
            CDataFile in = CDataFile::FromBytes(cut, "cut.zorvo");
            ZorvoData doc;
            ZorvoModelFile::Read(in, doc, nullptr);
            // Only a cut at a module boundary can read: then the file is a shorter project.
        } catch (const CDataFileError& e) {
            EXPECT_NE(std::string(e.what()).find("cut.zorvo"), std::string::npos);
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

TEST(ModelFile, RandomCorruptionNeverCrashes) {
    const std::string good = ZorvoModelFile::Write(FullDocument(), CDataFile::eBinary).Contents();
    unsigned seed = 12345;
    for (int trial = 0; trial < 300; ++trial) {
        std::string bytes = good;
        for (int k = 0; k < 4; ++k) {
            seed = seed * 1103515245u + 12345u;
            const size_t at = 12 + (seed >> 8) % (bytes.size() - 12);
            bytes[at] = static_cast<char>(seed >> 3);
        }
        try {
            CDataFile in = CDataFile::FromBytes(bytes, "x.zorvo");
            ZorvoData doc;
            ZorvoModelFile::Read(in, doc, nullptr);
        } catch (const CDataFileError&) {
        }
    }
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

TEST(ModelFile, SaveReplacesOnlyWhenComplete) {
    char dirTemplate[] = "/tmp/zorvo-save-XXXXXX";
    const std::string dir = mkdtemp(dirTemplate);
    const std::string path = dir + "/project.json";
    const ZorvoData doc = FullDocument();
    ZorvoModelFile::Save(path, doc);
    ZorvoData back;
    ZorvoModelFile::Load(path, back);
    EXPECT_TRUE(back == doc);

    // A target that cannot be replaced (here a directory) fails and leaves it alone,
    // with no temporary file left behind.
    const std::string blocked = dir + "/blocked.json";
    mkdir(blocked.c_str(), 0755);
    EXPECT_THROW(ZorvoModelFile::Save(blocked, doc), CDataFileError);
    struct stat st {};
    ASSERT_EQ(stat(blocked.c_str(), &st), 0);
    EXPECT_TRUE(S_ISDIR(st.st_mode));
    int entries = 0;
    DIR* d = opendir(dir.c_str());
    while (dirent* e = readdir(d)) // temporaries are hidden files: count those too
        entries += std::string(e->d_name) != "." && std::string(e->d_name) != "..";
    closedir(d);
    EXPECT_EQ(entries, 2); // project.json and blocked.json only
    EXPECT_THROW(ZorvoModelFile::Save(dir + "/project.txt", doc), CDataFileError);
    std::remove(path.c_str());
    rmdir(blocked.c_str());
    rmdir(dir.c_str());
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
        {202110, L"Graphic Settings"},
        {202290, L"ReEntrantCornerOptions"},
        {202220, L"Polylines"},
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
