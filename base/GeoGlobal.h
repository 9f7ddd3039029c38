#pragma once

#include <cmath>

namespace Tevra::GeoGlobal {

// The direction of a movement: along the ground or down into it.
enum EDirection { eHorizontal = 0, eVertical = 1 };

// The sense in which a segment of a building bends under settlement: hogging (convex
// upwards, tension at the top), sagging (concave upwards, tension at the bottom), or
// none where the curve lies within a millimetre of its chord.
enum ECurvature { eHogging = 0, eSagging = 1, eNoCurvature = 2 };

// value rounded to the given number of decimal places, halves away from zero. The
// rounding works on the binary value: 1.005 is stored just below and goes to 1.0 at 2
// places.
inline double CutDownDecimalPlaces(double value, int places) {
    const double scale = std::pow(10.0, places);
    return std::round(value * scale) / scale;
}

} // namespace Tevra::GeoGlobal
