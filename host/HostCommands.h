#pragma once

#include "host/HostSession.h"

#include <string>

namespace Tevra {

// The commands of zorvo, one file each, over one HostSession. Each answers the exit
// status (EExitStatus).

// Errors and warnings of a project, the library's and the host's own.
int CheckCommand(HostSession& session, const std::string& file);

struct SSolveOptions {
    std::string file;
    std::string output; // the solved project, when given
    std::string csvDir; // the result tables, when given
    int threads = 0;    // 0: every core
};
// Checks and solves a project, prints a summary, writes its tables and saves it.
int SolveCommand(HostSession& session, const SSolveOptions& options);

// A project from one form of the model file into the other.
int ConvertCommand(HostSession& session, const std::string& in, const std::string& out);

// What a project holds.
int InfoCommand(HostSession& session, const std::string& file);

} // namespace Tevra
