// Imported displacement sets in the model file: both forms, the legacy module of older
// files, and records that must be refused.
#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;

namespace {

ZorvoData WithSets() {
    ZorvoData doc;
    CImportedDisplacementsSet a(L"Monitoring \u00e9");
    a.SetReadFileName(L"/data/survey 3.csv");
    CImportedDisplacement d;
    d.SetXpoint(101.125);
    d.SetYpoint(-0.1);
    d.SetZpoint(99.0);
    d.SetXdisplacement(1e-7);
    d.SetYdisplacement(-0.0031);
    d.SetZdisplacement(0.0125);
    d.SetImportMatch(1 | 32 | 512);
    a.AddDisplacement(d);
    d.SetXpoint(0.3);
    d.SetImportMatch(0);
    a.AddDisplacement(d);
    doc.SetImportedDisplacementsSet(1, a);
    doc.SetImportedDisplacementsSet(2, CImportedDisplacementsSet(L"Typed in, empty"));
    return doc;
}

ZorvoData Read(const std::string& bytes, std::vector<std::string>* notes = nullptr) {
    CDataFile in = CDataFile::FromBytes(bytes, "m");
    ZorvoData doc;
    ZorvoModelFile::Read(in, doc, notes);
    return doc;
}

std::string ReadError(const std::string& bytes) {
    try {
        Read(bytes);
    } catch (const CDataFileError& e) {
        return e.what();
    }
    return "";
}

// A binary file with one module of imported sets, each record as the first generation
// wrote it: name, file name, points, displacements.
std::string LegacyBinary(int generation) {
    CDataFile f(CDataFile::eBinary);
    CKeyParam key;
    key.key = 202120;
    key.description = L"Imported Displacements";
    key.count = 1;
    key.generation = generation;
    f.WriteModuleHeader(key);
    f.BeginRecord(0);
    f.WriteString(jnName, L"Old survey");
    f.WriteString(jnFileName, L"old.csv");
    f.WriteDoubleArray(jnPoints, {1.0, 2.0, 3.0});
    f.WriteDoubleArray(jnDisplacements, {0.0, 0.0, 0.02});
    f.EndRecord();
    f.EndModule();
    CKeyParam stages;
    stages.key = 202240;
    stages.description = L"Stages";
    stages.count = 1;
    stages.generation = 1;
    f.WriteModuleHeader(stages);
    f.BeginRecord(0);
    CStage().Write(f);
    f.EndRecord();
    f.EndModule();
    return f.Contents();
}

std::string SetJson(const std::string& body) {
    return R"({"modules": [{"description": "Imported Displacements Sets", "records": [{)" + body +
           "}]}]}";
}

} // namespace

TEST(ImportedSetsFile, RoundTripInBothForms) {
    const ZorvoData doc = WithSets();
    for (CDataFile::EForm form : {CDataFile::eJson, CDataFile::eBinary}) {
        CDataFile out = ZorvoModelFile::Write(doc, form);
        const std::string bytes = out.Contents();
        EXPECT_TRUE(Read(bytes) == doc) << (form == CDataFile::eJson ? "JSON" : "binary");
        // The sets go to their own module only: the legacy one is never written.
        EXPECT_NE(bytes.find("Imported Displacements Sets"), std::string::npos);
        EXPECT_EQ(bytes.find("Imported Displacements\""), std::string::npos);
    }
}

// Older files hold the sets in the legacy module, without match bits, in either form; a
// generation later than the legacy module knows is left out with a note.
TEST(ImportedSetsFile, LegacyModuleOfOlderFiles) {
    for (const std::string& bytes :
         {LegacyBinary(1),
          std::string(R"({"modules": [{"description": "Imported Displacements", "generation": 1,
                "records": [{"name": "Old survey", "fileName": "old.csv", "points": [1, 2, 3],
                "displacements": [0, 0, 0.02]}]}]})")}) {
        const ZorvoData doc = Read(bytes);
        ASSERT_EQ(doc.NumImportedDisplacementsSets(), 1);
        const CImportedDisplacementsSet& s = doc.GetImportedDisplacementsSet(1);
        EXPECT_EQ(s.Name(), CString(L"Old survey"));
        EXPECT_EQ(s.ReadFileName(), CString(L"old.csv"));
        ASSERT_EQ(s.NumDisplacements(), 1);
        EXPECT_EQ(s.GetDisplacements()[0].GetZpoint(), 3.0);
        EXPECT_EQ(s.GetDisplacements()[0].GetZdisplacement(), 0.02);
        EXPECT_EQ(s.GetDisplacements()[0].GetImportMatch(), 0);
    }
    std::vector<std::string> notes;
    const ZorvoData later = Read(LegacyBinary(2), &notes);
    EXPECT_EQ(later.NumImportedDisplacementsSets(), 0);
    EXPECT_EQ(later.NumActualStages(false, false), 1); // the next module still loads
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0], "The Imported Displacements format in this file is a later generation "
                        "than that with which this version of Zorvo is familiar. Imported "
                        "Displacements will be skipped.");
}

TEST(ImportedSetsFile, BadRecordsAreRefused) {
    const struct {
        std::string body;
        const char* message; // the end of the message
    } cases[] = {
        {R"("points": [1, 2], "displacements": [1, 2])",
         "'points' should hold x, y, z for each imported point: 2 numbers is not a multiple "
         "of 3"},
        {R"("points": [1, 2, 3], "displacements": [0, 0])",
         "'displacements' holds 2 numbers where the 1 imported points take 3"},
        {R"("points": [1, 2, 3], "displacements": [0, 0, 0], "importMatch": [0, 1])",
         "'importMatch' holds 2 values where the 1 imported points take one each"},
        {R"("points": [1, 2, 3, 4, "NaN", 6], "displacements": [0, 0, 0, 0, 0, 0])",
         "imported point 2 has y = NaN, which is not a finite number"},
        {R"("points": [1, 2, 3], "displacements": [0, 0, "-Infinity"])",
         "imported point 1 has a displacement in z of -Infinity, which is not a finite number"},
        {R"("points": [1, 2, 3], "displacements": [0, 0, 0], "importMatch": [2.5])",
         "imported point 1 has an import match of 2.5, which is not a set of match bits (a "
         "whole number from 0 to 1023)"},
        {R"("points": [1, 2, 3], "displacements": [0, 0, 0], "importMatch": [-1])",
         "imported point 1 has an import match of -1, which is not a set of match bits (a "
         "whole number from 0 to 1023)"},
        {R"("displacements": [])", "missing member 'points'"},
    };
    for (const auto& c : cases) {
        const std::string message = ReadError(SetJson(c.body));
        const std::string tail = c.message;
        EXPECT_TRUE(message.size() >= tail.size() &&
                    message.compare(message.size() - tail.size(), tail.size(), tail) == 0)
            << c.body << "\n"
            << message;
    }

    // A binary list whose count claims more numbers than its record holds is refused
    // before anything is allocated for it.
    ZorvoData doc = WithSets();
    std::string bytes = ZorvoModelFile::Write(doc, CDataFile::eBinary).Contents();
    const std::string name = "/data/survey 3.csv";
    const size_t at = bytes.find(name) + name.size();     // the points list follows
    ASSERT_EQ(static_cast<unsigned char>(bytes[at]), 5u); // its tag: a list of numbers
    bytes[at + 4] = '\x7f';                               // a count of about 2^31
    EXPECT_NE(ReadError(bytes).find("numbers runs past the end of its record"), std::string::npos)
        << ReadError(bytes);
}
