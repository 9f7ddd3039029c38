// Imported displacement sets in the model file (their round trip is that of the full
// project): the legacy module of older files, and records that must be refused.
#include "base/CDataFile.h"
#include "base/JsonNameID.h"
#include "modelfile/ZorvoModelFile.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Tevra;
using namespace Tevra::Data;
using namespace Tevra::FileIO;

namespace {

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

} // namespace

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

// (What a set's record must not hold is in the table of ModelFile.BadJsonGivesItsError.)
TEST(ImportedSetsFile, BinaryCountBeyondTheRecordIsRefused) {
    // A binary list whose count claims more numbers than its record holds is refused
    // before anything is allocated for it.
    ZorvoData doc; // its first set was read from "/data/survey 3.csv"
    ZorvoModelFile::Load(std::string(ZORVO_SOURCE_DIR) + "/tests/modelfile/full-project.json", doc);
    std::string bytes = ZorvoModelFile::Write(doc, CDataFile::eBinary).Contents();
    const std::string name = "/data/survey 3.csv";
    const size_t at = bytes.find(name) + name.size();     // the points list follows
    ASSERT_EQ(static_cast<unsigned char>(bytes[at]), 5u); // its tag: a list of numbers
    bytes[at + 4] = '\x7f';                               // a count of about 2^31
    EXPECT_NE(ReadError(bytes).find("numbers runs past the end of its record"), std::string::npos)
        << ReadError(bytes);
}
