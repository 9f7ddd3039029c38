#include "JsonNameID.h"

namespace Tevra::FileIO {

const char* JsonName(int id) {
    switch (id) {
    case jnCentreLine: return "centreLine";
    case jnCircularExcavations: return "circularExcavations";
    case jnAnglesOfDraw: return "anglesOfDraw";
    case jnPlanEnd: return "end";
    case jnCentreLineEnd: return "end";
    case jnGeneral: return "general";
    case jnImportedDisplacementSets: return "importedDisplacementSets";
    case jnMine: return "mine";
    case jnPolygonalExcavations: return "polygonalExcavations";
    case jnProblemType: return "problemType";
    case jnStage: return "stage";
    case jnStageProperty: return "stageProperty";
    case jnPlanStart: return "start";
    case jnCentreLineStart: return "start";
    case jnTunnel: return "tunnel";
    case jnTunnels: return "tunnels";
    case jnUtilityCalculationOptions: return "utilityCalculationOptions";
    case jnName: return "name";
    case jnX: return "x";
    case jnY: return "y";
    case jnZ: return "z";
    case jnSoilInterfaceLevels: return "soilInterfaceLevels";
    case jnGroundLevels: return "groundLevels";
    case jnDiameter: return "diameter";
    case jnPercentLoss: return "percentLoss";
    case jnSoilType: return "soilType";
    case jnSurface: return "surface";
    case jnSubSurface: return "subSurface";
    case jnK: return "k";
    case jnKDerivation: return "kDerivation";
    case jnSubSurfaceMethod: return "subSurfaceMethod";
    case jnNumLayers: return "numLayers";
    case jnM: return "m";
    case jnShow: return "show";
    case jnLabel: return "label";
    case jnEnabled: return "enabled";
    case jnSmoothedResults: return "smoothedResultsCalculated";
    case jnElementType: return "elementType";
    case jnRefs: return "refs";
    case jnTunnelProperty: return "tunnelProperty";
    case jnExcavationProperty: return "excavationProperty";
    case jnValues: return "values";
    case jnReEntrantCornerSmoothing: return "reEntrantCornerSmoothing";
    case jnSmoothedDisplay: return "smoothedDisplay";
    case jnPoint: return "point";
    case jnPoint1: return "point1";
    case jnPoint2: return "point2";
    case jnSurfaceType: return "surfaceType";
    case jnCalculate: return "calculate";
    case jnIntervals: return "intervals";
    case jnIntervalsAlongExtrusion: return "intervalsAlongExtrusion";
    case jnExtrusionDistance: return "extrusionDistance";
    case jnExtrusionDirection: return "extrusionDirection";
    case jnPolyline: return "polyline";
    case jnPoints: return "points";
    case jnTitles: return "titles";
    case jnTitle: return "title";
    case jnProject: return "project";
    case jnEngineer: return "engineer";
    case jnDateSaved: return "dateSaved";
    case jnComments: return "comments";
    case jnDate: return "date";
    case jnProgram: return "program";
    case jnDescription: return "description";
    case jnFamily: return "family";
    case jnRecord: return "record";
    case jnStages: return "stages";
    case jnSamples: return "samples";
    case jnDisplacement: return "displacement";
    case jnPrincipalStrains: return "principalStrains";
    case jnPointType: return "pointType";
    case jnPointGroup: return "pointGroup";
    case jnImportMatch: return "importMatch";
    case jnFirst: return "first";
    case jnSecond: return "second";
    case jnVersion: return "version";
    case jnClosure: return "closure";
    case jnPanelWidth: return "panelWidth";
    case jnLowerStratumThickness: return "lowerStratumThickness";
    case jnUpperStratumThickness: return "upperStratumThickness";
    case jnLower: return "lower";
    case jnUpper: return "upper";
    }
    return nullptr;
}

} // namespace Tevra::FileIO
