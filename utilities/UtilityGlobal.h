#pragma once

namespace Tevra::UtilityGlobal {

// How a pipe takes the ground's movement: as lengths between joints that pull out and
// rotate, or as one continuous pipe that strains.
enum EUtilityType { eJointed = 0, eContinuous = 1 };

// What a specific utility lies on: a displacement line or a displacement polyline. Other
// values can be set; the plan length refuses them.
enum EDisplacementDataType { eDisplacementLine = 0, eDisplacementPolyline = 1 };

// A lever arm that a utility carries with it: copied and compared, never stored in the
// model file nor used by any calculation.
enum ELeverArm { eLeverArmNone = 0 };

// The quantities that acceptance criteria judge: axial strain in tension and in
// compression (microstrain, limit only), joint rotation (degrees), joint pullout
// (metres), the minimum radius of curvature (metres) and its inverse, the curvature
// (1/metres).
enum ECriteriaType {
    eTension = 0,
    eCompression = 1,
    eRotation = 2,
    ePullout = 3,
    eRadiusOfCurvature = 4,
    eCurvature = 5
};

// The verdict of a utility or rail result against its criteria.
enum EDamageCategory { eWithinThreshold = 0, eAboveThreshold = 1, eBeyondLimit = 2 };

// The joint results that can be read off a pullout and rotation record, and judged:
// left and right axial pullout, their difference, the flexural pullout at one side and its
// double, the total pullout and its factored value (metres), the rotation and its factored
// value (degrees), and once more the left axial pullout.
enum EUDResultType {
    ePulloutAxialLeft = 0,
    ePulloutAxialRight = 1,
    ePulloutAxialTotal = 2,
    ePulloutFlexural = 3,
    ePulloutFlexuralTotal = 4,
    ePulloutTotal = 5,
    ePulloutTotalFactored = 6,
    eRotationDegrees = 7,
    eRotationDegreesFactored = 8,
    ePulloutAxialLeftAgain = 9
};

// The strain results of a utility row: axial strain and its factored value, flexural
// strain and its factored value (ratios), the total tensile and compressive strains,
// unfactored and factored (microstrain), and the radius of curvature (metres).
enum EStrainType {
    eAxialStrain = 0,
    eAxialStrainFactored = 1,
    eFlexuralStrain = 2,
    eFlexuralStrainFactored = 3,
    eTotalTensileStrain = 4,
    eTotalTensileStrainFactored = 5,
    eTotalCompressiveStrain = 6,
    eTotalCompressiveStrainFactored = 7,
    eRadiusOfCurvatureResult = 8
};

} // namespace Tevra::UtilityGlobal
