#include "host/HostCommands.h"

#include "base/CImportedDisplacementsCsv.h"
#include "modelfile/ZorvoModelFile.h"

namespace Tevra {

using namespace Data;

namespace {

// The file's name without its folder and its last extension: the set's name when the
// command gives none.
std::string Stem(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    const size_t dot = name.find_last_of('.');
    if (dot != std::string::npos && dot > 0)
        name.erase(dot);
    return name;
}

// The stages of --stages, which must all exist; false with the reason said.
bool StagesOf(HostSession& session, const SImportOptions& o, const ZorvoData& doc,
              CBasicList& stages) {
    if (!stages.SetString(CString::FromUtf8(o.stages), 0)) {
        session.Fail("--stages takes stage numbers such as \"1 to 3 5\", not \"" + o.stages + "\"");
        return false;
    }
    const int n = doc.NumActualStages(false, false);
    for (const auto& range : stages.Ranges()) {
        const int bad = range.first < 1 ? range.first : range.second;
        if (range.first < 1 || range.second > n) {
            session.Fail("--stages names stage " + std::to_string(bad) + ", but " + o.model +
                         " has " +
                         (n == 0   ? std::string("no stages")
                          : n == 1 ? std::string("1 stage")
                                   : std::to_string(n) + " stages"));
            return false;
        }
    }
    return true;
}

} // namespace

int ImportCommand(HostSession& session, const SImportOptions& o) {
    try {
        FileIO::ZorvoModelFile::FormForPath(o.output); // before any reading
    } catch (const FileIO::CDataFileError& e) {
        session.Fail(e.what());
        return eExitUsage;
    }
    ZorvoData doc;
    if (!session.Load(o.model, doc))
        return eExitUsage;
    CBasicList stages;
    if (!StagesOf(session, o, doc, stages))
        return eExitUsage;
    CImportedDisplacementsSet set(CString::FromUtf8(o.name.empty() ? Stem(o.csv) : o.name));
    std::string error;
    if (!CImportedDisplacementsCsv::Read(o.csv, set, error)) {
        session.Fail(error);
        return eExitUsage;
    }

    const int number = doc.NumImportedDisplacementsSets() + 1;
    doc.SetImportedDisplacementsSet(number, set);
    std::string listed;
    for (int s = 1; s <= doc.NumActualStages(false, false); ++s) {
        if (!stages.IsIncluded(s))
            continue;
        CStage stage = doc.GetStage(s);
        CBasicList sets = stage.GetImportedDisplacementSets();
        CString text = sets.String();
        if (!text.IsEmpty())
            text += L" ";
        text += CString::FromUtf8(std::to_string(number));
        sets.SetString(text, 0);
        stage.SetImportedDisplacementSets(sets);
        doc.SetStage(s, stage);
        listed += (listed.empty() ? "" : ", ") + std::to_string(s);
    }
    // Results worked out without the set no longer belong to the project.
    const bool hadResults = doc.ResultsExist(-1);
    doc.DeleteResults();

    try {
        FileIO::ZorvoModelFile::Save(o.output, doc);
    } catch (const FileIO::CDataFileError& e) {
        session.Fail(e.what());
        return eExitUsage;
    }
    std::ostream& out = session.Out();
    out << "imported set " << number << " \"" << set.Name().ToUtf8()
        << "\": " << set.NumDisplacements() << (set.NumDisplacements() == 1 ? " point" : " points")
        << " from " << o.csv << ", "
        << (listed.empty() ? "in the base model only" : "in the base model and stages " + listed)
        << '\n';
    if (hadResults)
        out << "the results of " << o.model << " are left out: solve " << o.output << " again\n";
    out << "saved " << o.output << '\n';
    return eExitOk;
}

} // namespace Tevra
