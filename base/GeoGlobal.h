#pragma once

#include <cmath>

namespace Tevra::GeoGlobal {

// value rounded to the given number of decimal places, halves away from zero. The
// rounding works on the binary value: 1.005 is stored just below and goes to 1.0 at 2
// places.
inline double CutDownDecimalPlaces(double value, int places) {
    const double scale = std::pow(10.0, places);
    return std::round(value * scale) / scale;
}

} // namespace Tevra::GeoGlobal
