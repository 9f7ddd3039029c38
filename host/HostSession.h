#pragma once

#include "base/CEvent.h"
#include "document/ZorvoData.h"
#include "host/SanityChecks.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tevra {

// Exit statuses of the zorvo command.
enum EExitStatus {
    eExitOk = 0,       // done
    eExitFindings = 1, // the project has errors, its results are not finite, or a run was cancelled
    eExitUsage = 2,    // a file cannot be read or written, or the command line is wrong
    eExitInternal = 3  // a failure of the program itself, reported in one line
};

// What every command of the host shares: its output streams, the Ctrl-C event, the
// loading of a project and the report of its checks. The library's passes print as
// "error: " and "warning: ", the host's own checks apart from them as "sanity error: "
// and "sanity warning: ".
class HostSession {
  public:
    HostSession(std::ostream& out, std::ostream& err, CEvent* interrupt)
        : m_out(out), m_err(err), m_interrupt(interrupt) {}

    std::ostream& Out() { return m_out; }
    std::ostream& Err() { return m_err; }
    CEvent* Interrupt() { return m_interrupt; }
    bool Interrupted() const { return m_interrupt && m_interrupt->IsSignalled(); }

    // "zorvo: " and the text on the error stream.
    void Fail(const std::string& text);

    // Reads a project, or says why it cannot be read.
    bool Load(const std::string& path, Data::ZorvoData& doc);

    enum ECheck { eClean, eErrors, eCancelled };
    // The library's error and warning passes, then the host's own checks of the inputs
    // and of the run's size on this machine with that many threads; prints every finding.
    // The excavation warnings fill the document's intersection sets.
    ECheck Check(Data::ZorvoData& doc, int threads);

    // Prints the host's own findings; answers whether any is an error.
    bool Report(const std::vector<SanityChecks::SFinding>& findings);

  private:
    std::ostream& m_out;
    std::ostream& m_err;
    CEvent* m_interrupt;
};

} // namespace Tevra
