#pragma once

#include <vector>

namespace Tevra {

// Fills values with intervals + 1 numbers from start to end, evenly spaced on a logarithmic
// scale of the given base: start * (end / start)^(k / intervals), k = 0 .. intervals, the
// two ends exactly as given. (0.1, 10.0, 10, 10.0) gives five steps a decade, 0.1 to 10.
// values is left empty unless start and end are positive, intervals at least 1 and the
// base positive and not 1.
void IntervalsLogScale(const double& start, const double& end, int intervals, const double& base,
                       std::vector<double>& values);

} // namespace Tevra
