#pragma once

#include "base/CSplineT.h"
#include "base/CTableT.h"
#include "base/GeoGlobal.h"
#include "buildings/CBuildingDamageProperties.h"
#include "buildings/CBuildingDamageResult.h"
#include "buildings/CDamageCategoryStrains.h"

#include <vector>

namespace Tevra::Data {

class CSpecificBuilding;

// The damage assessment of a building's settlement curve once it is cut into segments:
// each segment's deflection, curvature and horizontal strain, and its damage category by
// the deep-beam model of Burland and Wroth (1974) with horizontal strain added (Boscardin
// and Cording 1989; Burland 1995). The same code serves specific and generic buildings;
// ZorvoSolver calls it under the same names.
//
// Symbols: L segment length, H height (metres); I second moment of area per unit width
// (m^4/m); t distance of the neutral axis from the tension edge and y from the neutral
// axis to the fibre of the strain (metres); nu Poisson's ratio; EOverG Young's over shear
// modulus; h average horizontal strain, extension positive; strains and deflection ratios
// plain ratios.
class CBuildingDamageAssessment {
  public:
    // Samples of the settlement curve along each segment.
    static constexpr int NR_POINTS = 100;
    // One millimetre (in metres) between the curve at mid-segment and its chord: a smaller
    // difference is no curvature.
    static constexpr double CURVATURE_TOLERANCE = 0.001;
    // Width of strain (plain ratio) at which both bisections stop, and the size of the
    // compression zone formula taken as zero.
    static constexpr double STRAIN_RESOLUTION = 1e-9;
    // Most steps of each doubling and each halving loop of the two strain searches. Doubling
    // brings any double to a value that doubling no longer changes (0, an infinity or NaN)
    // within 2098 steps, after which its test cannot change; halving narrows any finite
    // interval below the resolution within about 1100 steps unless its ends are
    // neighbouring doubles more than the resolution apart (strains above about 1e7), where
    // the midpoint is one of them and the loop would turn for ever. A loop that ends by its
    // own test therefore ends well inside this limit, which changes no such result; a loop
    // that has stalled stays as it is, so what it returns does not depend on the limit.
    // The compressive search stalls so with a Poisson's ratio of 0 or below: the
    // compression zone formula never falls to zero in exact arithmetic, the doubling ends
    // only where rounding or overflow loses the root's argument, at a strain of 1e6 or more,
    // and the halving then stalls on neighbouring doubles. The tensile search stalls for a
    // deflection ratio of about 1e7 or more.
    static constexpr int MAX_SEARCH_STEPS = 4096;

    // The whole assessment of one curve, one result per pair of neighbouring boundaries,
    // in order. heightIsH true: height is H (a specific building); false: height is L/H
    // and H = L / height segment by segment (a generic building). Tables and curves are
    // those that cut the curve: horizontal table (x', h), vertical table (x', v),
    // horizontal curve (x, h), chainage map (x', x), vertical curve (x', v) and curvature
    // table (x', d2v/dx'2), x' deformed and x undeformed distance along the building
    // (metres), v settlement and h horizontal movement (metres). The boundaries are in x'.
    // results is emptied first. A lookup outside its table throws Util::CRange<double>.
    static void BuildingDamageResults(bool heightIsH, const CDamageCategoryStrains& strains,
                                      const CBuildingDamageProperties& properties,
                                      const double& height, const CTableT<double>& hTable,
                                      const CTableT<double>& vTable, const CSplineT<double>& hCurve,
                                      const CSplineT<double>& chainageMap,
                                      const CSplineT<double>& vCurve,
                                      const CTableT<double>& curvatureTable,
                                      const std::vector<double>& boundaries,
                                      std::vector<CBuildingDamageResult>& results);

    // Sets the result's category: the highest k of 4, 3, 2, 1 whose limiting strain gives
    // an allowable deflection ratio below the result's, else leaves it as it is.
    static void BuildingDamageCategory(const CDamageCategoryStrains& strains, const double& hStrain,
                                       const double& L, const double& H, const double& EOverG,
                                       const double& nu, const double& t, const double& y,
                                       const double& I, GeoGlobal::ECurvature curvature,
                                       CBuildingDamageResult& result);

    // The limiting strain at which the allowable deflection ratio equals the actual one,
    // by bisection.
    static double MaxTensileStrain(const CDamageCategoryStrains& strains,
                                   GeoGlobal::ECurvature curvature, const double& L,
                                   const double& H, const double& EOverG, const double& nu,
                                   const double& t, const double& y, const double& I,
                                   const double& hStrain, const double& deflectionRatio);
    // The least compressive horizontal strain (negative) at which the compression zone
    // formula falls to zero with the maximum tensile strain as its limit, by bisection.
    static double MaxCompressiveStrain(const CDamageCategoryStrains& strains,
                                       GeoGlobal::ECurvature curvature, const double& L,
                                       const double& H, const double& EOverG, const double& nu,
                                       const double& t, const double& y, const double& I,
                                       const double& hStrain, const double& deflectionRatio);

    // Allowable deflection ratio of a beam under horizontal extension h at the limiting
    // strain limit: the smaller of the diagonal (shear) and bending parts. The curvature
    // takes no part.
    static double TensionZoneDeflectionRatio(const double& L, const double& H, const double& EOverG,
                                             const double& nu, const double& t, const double& y,
                                             const double& I, const double& limit,
                                             const double& hStrain,
                                             GeoGlobal::ECurvature curvature);
    // The same for horizontal compression: the root's argument is not allowed below 0.
    static double CompressionZoneDeflectionRatio(const double& L, const double& H,
                                                 const double& EOverG, const double& nu,
                                                 const double& t, const double& y, const double& I,
                                                 const double& limit, const double& hStrain,
                                                 GeoGlobal::ECurvature curvature);

    // Bending and diagonal strains of a specific building's segment at a deflection ratio,
    // with the horizontal strain h added when withHStrain is true.
    static void BendingDiagonalComponents(const CSpecificBuilding& building,
                                          const CBuildingDamageResult& result,
                                          const double& hStrain, const double& deflectionRatio,
                                          double& bending, double& diagonal, bool withHStrain);

    // Steepest chord of a table over pairs of neighbouring rows with either end in
    // [from, to]: g = (ya - yb)/(xb - xa), the first taken as it stands, a later one only
    // if larger in size (a tie keeps the earlier). found tells whether any pair counted;
    // when none does, gradient is left as it came.
    static void MaximumGradientOfCurve(const CTableT<double>& table, const double& from,
                                       const double& to, bool& found, double& gradient);

    // t, y and I of a section of height H (metres) for a curvature, from the properties.
    static void SectionValues(const CBuildingDamageProperties& properties,
                              GeoGlobal::ECurvature curvature, double H, double& t, double& y,
                              double& I);
};

} // namespace Tevra::Data
