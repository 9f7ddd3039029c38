#include "IntervalsLogScale.h"

#include <cmath>

namespace Tevra {

void IntervalsLogScale(const double& start, const double& end, int intervals, const double& base,
                       std::vector<double>& values) {
    values.clear();
    if (!(start > 0.0) || !(end > 0.0) || intervals < 1 || !(base > 0.0) || base == 1.0)
        return;
    const double lnBase = std::log(base);
    const double from = std::log(start) / lnBase; // exponents of the base
    const double to = std::log(end) / lnBase;
    values.reserve(static_cast<size_t>(intervals) + 1);
    values.push_back(start);
    for (int k = 1; k < intervals; ++k)
        values.push_back(std::pow(base, from + (to - from) * k / intervals));
    values.push_back(end);
}

} // namespace Tevra
