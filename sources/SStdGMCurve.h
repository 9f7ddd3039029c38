#pragma once

#include "base/Vec3.h"

#include <vector>

namespace Tevra::Data {

// A standard ground movement curve beside an excavation wall, digitised from CIRIA C580
// (2003) and CIRIA C760 (2017): what the document's read-only curves are made of. The
// polynomial ones are fitted when the document is made, never stored.
// Its name is CGMCurve's STD_HORZ_GM_CURVE_NAMES or STD_VERT_GM_CURVE_NAMES at its number.
struct SStdGMCurve {
    bool linear;      // interpolated between its points; otherwise the polynomial fit
    bool surfaceOnly; // the movement at the surface: a function of x alone
    int xOrder;       // order of the fit in x (the y order is 0); -1: never fitted
    int sigFigs;      // significant figures of the fitted equation's text
    // (x, y, z): distance behind the wall and depth, over the wall depth; movement as a
    // percentage of the wall depth.
    std::vector<Vec3<double>> data;

    // The 13 horizontal curves and the 16 vertical ones, in the order of their numbers.
    static const std::vector<SStdGMCurve>& Horizontal();
    static const std::vector<SStdGMCurve>& Vertical();
};

} // namespace Tevra::Data
