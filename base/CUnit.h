#pragma once

#include "CString.h"

namespace Tevra {

// The display units of a project. Values are held in SI units throughout and shown in SI
// units: every conversion factor is 1 and the one choice offered per dimension is 0.
// Dimensions in use: 0 none, 2 length, 4 distance along a line, 6 displacement,
// 8 curvature, 11 slope, 202 ratio (deflection ratio, strain).
class CUnit {
  public:
    // Factor from stored to displayed value (always 1).
    double Conversion(int /*dimension*/) const { return 1.0; }
    // The index of the chosen unit of a dimension (always 0, the SI unit).
    int GetCurSel(int /*dimension*/) const { return 0; }
    // The unit's symbol: "m" for lengths and displacements, "1/m" for curvature, "" for
    // dimensionless kinds. With bracketed, "(m)"; with spaced, a blank in front; neither is
    // applied to an empty symbol.
    CString Label(int dimension, bool bracketed = false, bool spaced = false) const;
    // The name of the quantity, such as "Length" or "Displacement".
    CString DimensionString(int dimension) const;
};

} // namespace Tevra
