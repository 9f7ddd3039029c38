#pragma once

#include "base/CEvent.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tevra {

// The zorvo command: the arguments after the program name, results on out, progress,
// warnings and errors on err. interrupt, when given, is signalled by the host's Ctrl-C
// handler and stops a check or a run. Answers the process exit status: 0 done, 1 the
// project has errors, its results are not finite or a run was cancelled, 2 a file
// cannot be read or written or the command line is wrong, 3 a failure of the program
// itself (any exception, reported in one line).
//
//   zorvo check FILE
//   zorvo solve FILE [--output FILE] [--csv DIR] [--threads N] [--join B/O/S ...]
//   zorvo convert IN OUT
//   zorvo info FILE
//   zorvo import MODEL --csv FILE [--name NAME] [--stages LIST] --output OUT
int RunZorvo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             CEvent* interrupt = nullptr);

} // namespace Tevra
