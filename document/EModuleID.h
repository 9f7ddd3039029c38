#pragma once

namespace Tevra::Data {

// The family of a record, as the document, the model file and reference keeping name it.
enum EModuleID {
    eModuleGeneral = 1,
    eModuleUnits = 2,
    eModuleSpecification = 3,
    eModulePolylines = 4,
    eModuleDisplacementData = 5,
    eModuleDisplacementPoints = 6,
    eModuleDisplacementLines = 7,
    eModuleDisplacementPolylines = 8,
    eModuleDisplacementGrids = 9,
    eModuleImportedDisplacements = 10,
    eModuleBackgroundData = 11,
    eModuleTunnels = 12,
    eModuleMines = 13,
    eModulePolygonalExcavations = 14,
    eModuleCircularExcavations = 15,
    eModuleGMCurves = 16,
    eModuleHorizontalGMCurves = 17,
    eModuleVerticalGMCurves = 18,
    eModuleDamageCategoryStrains = 19,
    eModuleSpecificBuildings = 20,
    eModuleSpecificBuildingSegmentCombinations = 21,
    eModuleGenericBuildings = 22,
    eModuleGenericBuildingSegmentCombinations = 23,
    eModuleUtilityDimensions = 24,
    eModuleAcceptanceCriteria = 25,
    eModuleUtilityCalculationOptions = 26,
    eModuleSpecificUtilities = 27,
    eModuleGenericUtilities = 28,
    eModuleRailAcceptanceCriteria = 29,
    eModuleRailTracks = 30,
    eModuleStages = 31,
    eModuleStageProperties = 32,
    eModuleGraphicalInput = 33
};

} // namespace Tevra::Data
