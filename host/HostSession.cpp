#include "HostSession.h"

#include "base/SystemMemory.h"
#include "modelfile/ZorvoModelFile.h"
#include "validation/CCheckPass.h"

#include <algorithm>

namespace Tevra {

using namespace Data;

void HostSession::Fail(const std::string& text) { m_err << "zorvo: " << text << '\n'; }

bool HostSession::Load(const std::string& path, ZorvoData& doc) {
    std::vector<std::string> notes;
    try {
        FileIO::ZorvoModelFile::Load(path, doc, &notes);
    } catch (const FileIO::CDataFileError& e) {
        Fail(e.what());
        return false;
    }
    for (const std::string& note : notes)
        m_err << "note: " << note << '\n';
    return true;
}

bool HostSession::Report(const std::vector<SanityChecks::SFinding>& findings) {
    bool errors = false;
    for (const SanityChecks::SFinding& f : findings) {
        m_err << (f.error ? "sanity error: " : "sanity warning: ") << f.text << '\n';
        errors |= f.error;
    }
    return errors;
}

HostSession::ECheck HostSession::Check(ZorvoData& doc, int threads) {
    SCheckArgs args;
    args.event = m_interrupt;
    std::vector<CString> m;
    bool cancelled = false;
    bool errors = false;
    // Each prints its pass's findings and answers whether the next pass may run.
    auto print = [&](const char* kind) {
        for (const CString& text : m)
            m_err << kind << ": " << text.ToUtf8() << '\n';
        return !cancelled && !Interrupted();
    };
    auto error = [&](bool found) {
        errors |= found;
        return print("error");
    };
    auto warning = [&](bool) { return print("warning"); };
    // The run's size on this machine, reported after the inputs' checks below, decides
    // first whether the result stores may be sized for the passes that need transects.
    const std::vector<SanityChecks::SFinding> size =
        SanityChecks::RunSize(doc, SystemMemory::Bytes(), SystemMemory::Source(), threads);
    const bool sizeFits = std::none_of(size.begin(), size.end(),
                                       [](const SanityChecks::SFinding& f) { return f.error; });
    // The library's passes in the order of its own error and warning runs, the general
    // pass first, as the host calls that one itself. The building warnings, which the
    // library's run repeats at its end with the same texts, are printed once.
    bool ran = error(doc.GeneralErrors(m, cancelled, args)) &&
               error(doc.TunnelErrors(m, cancelled, args)) &&
               error(doc.DisplacementPointErrors(m)) && error(doc.DisplacementLineErrors(m)) &&
               error(doc.DisplacementPolylineErrors(m)) && error(doc.DisplacementGridErrors(m)) &&
               error(doc.ExcavationErrors(m, cancelled, args)) &&
               error(doc.BuildingErrors(m, cancelled, args));
    // The passes from here on see the document as a run sees it, its result stores sized
    // and its transects set up, as the solver does first. That sizing trusts the records
    // the passes above have cleared, and memory enough for the results: with an error so
    // far, or a run too large, it is left out and the later passes see no transects.
    if (ran && !errors && sizeFits)
        doc.ResizeResultsAndSetupTransects();
    ran = ran && error(doc.UtilityErrors(m, cancelled, args)) &&
          error(doc.GenericUtilityErrors(m, cancelled, args)) &&
          error(doc.StageErrors(m, cancelled, args)) &&
          warning(doc.TunnelWarnings(m, cancelled, args)) &&
          warning(doc.DisplacementPointWarnings(m)) && warning(doc.DisplacementLineWarnings(m)) &&
          warning(doc.DisplacementPolylineWarnings(m)) &&
          warning(doc.DisplacementGridWarnings(m)) &&
          warning(doc.ExcavationWarnings(m, cancelled, args)) &&
          warning(doc.BuildingWarnings(m, cancelled, args)) &&
          warning(doc.UtilityWarnings(m, cancelled, args)) &&
          warning(doc.GenericUtilityWarnings(m, cancelled, args));
    if (!ran)
        return eCancelled;

    errors |= Report(SanityChecks::Inputs(doc));
    errors |= Report(size);
    return errors ? eErrors : eClean;
}

} // namespace Tevra
