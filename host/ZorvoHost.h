#pragma once

#include "document/ZorvoData.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tevra {

// The zorvo command: the arguments after the program name, results on out, progress
// and messages on err. Answers the process exit status.
int RunZorvo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The example project: a 6 m tunnel 20 m deep under a grid of surface points and a
// line of points across it.
Data::ZorvoData MakeExampleDocument();

} // namespace Tevra
