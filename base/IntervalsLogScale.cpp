#include "IntervalsLogScale.h"

#include <cmath>

namespace Tevra {

void IntervalsLogScale(const double& start, const double& end, int intervals, const double& base,
                       std::vector<double>& values) {
    values.clear();
    if (!(start > 0.0) || !(end > start) || intervals < 1 || !(base > 1.0))
        return;
    // Number of steps from start to end, as a real number.
    const double steps = intervals * std::log(end / start) / std::log(base);
    const double whole = std::round(steps);
    const bool endOnScale = std::fabs(steps - whole) < 1e-9;
    const double last = endOnScale ? whole : std::floor(steps);
    if (!(last < 1e6)) // a list a million long is no scale
        return;
    const int n = static_cast<int>(last);
    values.reserve(static_cast<size_t>(n) + 2);
    for (int k = 0; k < (endOnScale ? n : n + 1); ++k)
        values.push_back(start * std::pow(base, static_cast<double>(k) / intervals));
    values.push_back(end);
}

} // namespace Tevra
