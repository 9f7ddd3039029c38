#pragma once

#include <vector>

namespace Tevra {

// Fills values with a list from start to end, evenly spaced on a logarithmic scale with
// intervals steps for every factor of base: start * base^(k / intervals), k = 0, 1, ...
// The list closes with end exactly: in place of the last step when end lies on the scale
// (to 1e-9 of a step), otherwise after the last step below it. With base 10 and 10
// intervals this is the R10 series of preferred numbers (1, 1.26, 1.58, 2, 2.51, ...);
// (0.1, 10.0, 10, 10.0) gives 21 values. values is left empty unless 0 < start < end,
// intervals is at least 1 and base exceeds 1.
void IntervalsLogScale(const double& start, const double& end, int intervals, const double& base,
                       std::vector<double>& values);

} // namespace Tevra
