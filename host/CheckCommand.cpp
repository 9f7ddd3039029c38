#include "host/HostCommands.h"

#include <omp.h>

namespace Tevra {

int CheckCommand(HostSession& session, const std::string& file) {
    Data::ZorvoData doc;
    if (!session.Load(file, doc))
        return eExitUsage;
    switch (session.Check(doc, omp_get_num_procs())) {
    case HostSession::eCancelled:
        session.Out() << file << ": the check was cancelled\n";
        return eExitFindings;
    case HostSession::eErrors:
        session.Out() << file << ": has errors; it cannot be solved\n";
        return eExitFindings;
    default:
        session.Out() << file << ": ready to solve\n";
        return eExitOk;
    }
}

} // namespace Tevra
