#pragma once

#include "base/CNumberedList.h"
#include "base/CStdioFile.h"
#include "base/CTableD.h"
#include "base/CUnit.h"
#include "base/LodraZorvoData.h"
#include "base/SCSVExportData.h"
#include "base/Vec2.h"
#include "buildings/CBuildingProfile.h"
#include "buildings/CDamageCategoryStrains.h"
#include "buildings/CSpecificBuilding.h"
#include "document/CReEntrantCornerOptions.h"
#include "document/CStage.h"
#include "document/CStageProperty.h"
#include "document/EModuleID.h"
#include "document/GeoZorvoGeneral.h"
#include "sources/CCircularExcavation.h"
#include "sources/CExcavationCorner.h"
#include "sources/CGMCurve.h"
#include "sources/CPolygonalExcavation.h"
#include "sources/GeoMine.h"
#include "sources/GeoTunnel.h"
#include "utilities/CAcceptanceCriteria.h"
#include "buildings/CGenericBuilding.h"
#include "utilities/CGenericUtility.h"
#include "utilities/CSpecificUtility.h"
#include "utilities/CUtilityCalculationOptions.h"
#include "utilities/CUtilityDimension.h"
#include "validation/CCheckPass.h"

#include <functional>
#include <set>
#include <vector>

namespace Tevra::Data {

class CUDAExportCSVDisps;
class CUDAExportCSVPR;
class CUDAExportCSVStrains;

// One project: every input record, every result, and the operations that keep them
// consistent. Records are numbered from 1 and refer to each other by number.
//
// Calculation stage index: with n stages, 0 is the base model and 1 to n the stages;
// with re-entrant corner smoothing on, n + 1 is the base model again and n + 2 to
// 2n + 1 the stages repeated with smoothing.
class ZorvoData : public LodraZorvoData {
  public:
    // Levels of a tunnel at a point (metres), from GetLevelsForTunnelCalcs.
    struct SLevels {
        double groundLevel;              // ground level at the point
        double axisLevel;                // tunnel axis level at the point
        double pointAboveAxis;           // point level less the axis level, h
        double pointAboveAxisPlusRadius; // h + D / 2
        double interfaceAboveAxis;       // soil interface less the axis level, hI
        double groundAboveAxis;          // ground less the axis level, z0
        double interfaceLevel;           // soil interface level at the point
    };

    ZorvoData();

    void Empty() override;
    void DeleteResults() override;
    bool ResultsExist(int stage) const override;
    // Size of a record family; 0 for families that hold no records.
    int NumRecord(int module) const;
    // Resource number of a family's title; 0 for a value that is no family.
    static int TitleID(EModuleID module);

    // Sizes every result store and sets out the transects before a run.
    void ResizeResultsAndSetupTransects();
    // True when a point lies within an excavation that exists in the stage.
    bool IsPointInAnyExcavation(const Vec3<double>& point, int stage) const;

    // General options.
    const GeoZorvoGeneral& GetGeneral() const { return m_general; }
    GeoZorvoGeneral& AccessGeneral() { return m_general; }
    void SetGeneral(const GeoZorvoGeneral& g) { m_general = g; }
    const CReEntrantCornerOptions& GetReEntrantCornerOptions() const { return m_cornerOptions; }
    void SetReEntrantCornerOptions(const CReEntrantCornerOptions& o) { m_cornerOptions = o; }
    bool IsSmoothingOn() const { return m_cornerOptions.GetReEntrantCornerSmoothing(); }

    // Tunnels.
    ZORVO_NUMBERED_FAMILY(Tunnel, Tunnels, GeoTunnel, m_tunnels)
    const GeoTunnel& GetDefaultTunnel() const { return m_tunnels.Prototype(); }
    void SetDefaultTunnel(const GeoTunnel& t) { m_tunnels.SetPrototype(t); }

    // Mine panels, the sources of a mine analysis.
    ZORVO_NUMBERED_FAMILY(Mine, Mines, GeoMine, m_mines)

    // Embedded wall excavations: polygonal basements and circular shafts.
    ZORVO_NUMBERED_FAMILY(PolygonalExcavation, PolygonalExcavations, CPolygonalExcavation,
                          m_polygonalExcavations)
    ZORVO_NUMBERED_FAMILY(CircularExcavation, CircularExcavations, CCircularExcavation,
                          m_circularExcavations)
    const std::vector<CPolygonalExcavation>& GetPolygonalExcavations() const {
        return m_polygonalExcavations.Items();
    }
    const std::vector<CCircularExcavation>& GetCircularExcavations() const {
        return m_circularExcavations.Items();
    }
    const CPolygonalExcavation& GetDefaultPolygonalExcavation() const {
        return m_polygonalExcavations.Prototype();
    }
    void SetDefaultPolygonalExcavation(const CPolygonalExcavation& e) {
        m_polygonalExcavations.SetPrototype(e);
    }
    const CExcavationCorner& GetDefaultCorner() const { return m_defaultCorner; }
    void SetDefaultCorner(const CExcavationCorner& c) { m_defaultCorner = c; }
    // Whether a polygonal excavation has a stiffened corner.
    bool IsAnyPolygonalExcavationCornerStiffened() const;
    // Whether the smoothed repeat of a stage (1 to n) can differ from the stage: smoothing
    // is on and a listed polygonal excavation has a re-entrant corner with a transition
    // zone on either side.
    bool IsSmoothingOptionRelevantForStage(int stage) const;
    bool IsSmoothingOptionRelevantForExcavationList(const CBasicList& polygonal) const;
    // Empties the intersection sets of all excavations.
    void ClearIntersectingExcavations();

    // Ground movement curves, a list per direction: the standard curves first, read-only
    // and never saved, then the user's. Excavations refer to them by 0-based index.
    ZORVO_NUMBERED_DIRECTION_FAMILY(GMCurve, CGMCurve, m_gmCurves)
    // User curves of a direction: those with the editable flag.
    int NumEditableGMCurves(GeoGlobal::EDirection d) const;
    // Whether any excavation refers to curve n (1-based) of a direction; names gets one
    // text per user: "XP%i : %s (Side %i)" for a polygonal side, "XC%i : %s" for a shaft.
    bool IsGMCurveInUse(GeoGlobal::EDirection d, int n, std::vector<CString>& names) const;
    bool IsGMCurveInUse(GeoGlobal::EDirection d, int n) const;
    bool AnyGMCurvesInUse(GeoGlobal::EDirection d) const;
    // Whether a run must triangulate curve n (1-based) of a direction: one in use,
    // interpolated linearly over depth as well as distance.
    bool GMCurveNeedsTriangulation(GeoGlobal::EDirection d, int n) const;
    // Whether a run must triangulate any curve; horizontal curves are asked first.
    bool IsGMCurveTriangulationNeeded() const;

    // Limiting tensile strains of the damage categories. A new project holds one record,
    // "Burland Strain Limits", to which a new building's properties refer as number 1.
    ZORVO_NUMBERED_FAMILY(DamageCategoryStrains, DamageCategoryStrains, CDamageCategoryStrains,
                          m_damageCategoryStrains)
    const CDamageCategoryStrains& GetDefaultDamageCategoryStrains() const {
        return m_damageCategoryStrains.Prototype();
    }

    // Buildings on displacement lines, assessed as deep beams.
    ZORVO_NUMBERED_FAMILY(SpecificBuilding, SpecificBuildings, CSpecificBuilding,
                          m_specificBuildings)
    const CSpecificBuilding& GetDefaultSpecificBuilding() const {
        return m_specificBuildings.Prototype();
    }
    void SetDefaultSpecificBuilding(const CSpecificBuilding& b) {
        m_specificBuildings.SetPrototype(b);
    }
    // Length (characters) of the longest sub-building name; 0 without buildings.
    int GetMaxSubBuildingNameLength() const;

    // Buildings that could stand anywhere along a polyline, assessed on transects across it.
    ZORVO_NUMBERED_FAMILY(GenericBuilding, GenericBuildings, CGenericBuilding, m_genericBuildings)
    // Rebuilds the transects of generic building b (1-based): one at every interval of
    // chainage along its polyline from 0 that the polyline holds, each a row of DispPoints
    // points, Length long, at right angles to the polyline in plan, the first point half a
    // length to one side. Every result set of the document gets the points, and every
    // vertical offset of the properties a copy raised by the offset. A polyline that is
    // missing or has one point, an interval that gives no count (0, not a number) and a
    // count whose samples would not fit in this machine's memory build no transects.
    void PopulateGenericBuildingTransectsAndTheirPoints(int b);
    // floor(length / interval) + 1 over the building's polyline (its length in space),
    // summed over every building for -1; 0 for a building whose polyline holds none. This
    // can be one fewer than the chainages that Populate tries; loops over built transects
    // use the building's NumTransects.
    int NumGenericBuildingTransects(int b) const;
    // End points (metres) of transect t (1-based) of building b without building it; false,
    // with the outputs untouched, when b, its polyline or t does not exist. t runs to
    // ceil(length / interval) + 1, and that last one stands on the polyline's last vertex.
    bool GetGenericBuildingTransectStartAndEnd(int b, int t, Vec3<double>& start,
                                               Vec3<double>& end) const;
    // Whether generic building b (1-based) can be assessed: its polyline exists with two
    // points; interval and length at least 0.001 and disp points above 0; every L/H above
    // 0; the sensitivity at least 0; at least one vertical offset and one L/H.
    bool ValidGenericBuilding(int b) const;
    // Any segment of a matching building (-1: all) at a matching stage (-1: all).
    bool GenericBuildingDamageResultsExist(int stage, int b, bool combined) const;
    int NumGenericBuildingResults(int stage, int b, bool combined) const;
    // Empties the segment lists of every generic building at the stage (-1: all).
    void DeleteGenericBDResults(int stage, bool combined);

    // Profiles along a building (1-based) from the samples of its line at a stage: settlement
    // at an offset (0-based), and horizontal movement along the line, against the distance
    // from the building's start (metres). A profile that cannot be made (no samples, or a
    // building outside its line) is answered by the status, never thrown.
    CBuildingProfile::EStatus GetVerticalDisplacementsWRTBuilding(int stage, int building,
                                                                  int offset,
                                                                  CTableT<double>& table) const;
    CBuildingProfile::EStatus GetHorizontalDisplacementsWRTBuilding(int stage, int building,
                                                                    CTableT<double>& table) const;
    // Plan length of the building's whole displacement line (not of the building).
    double GetSpecificBuildingPlanLength(int building) const;
    // Points on the building's line at its start and end.
    Vec3<double> GetSpecificBuildingStart(int building) const;
    Vec3<double> GetSpecificBuildingEnd(int building) const;
    // Points on the line at the summed lengths of the segments before a segment (1-based),
    // and up to its end. The sums count from the line's first point, not the building's
    // start: drawings rely on it as it stands.
    Vec3<double> GetSpecificBuildingSegmentStartCoordinates(int stage, int building, int offset,
                                                            int segment, bool combined) const;
    Vec3<double> GetSpecificBuildingSegmentEndCoordinates(int stage, int building, int offset,
                                                          int segment, bool combined) const;

    // Segment results of the buildings; -1 as stage or building means all.
    bool SpecificBuildingDamageResultsExist(int stage, int building, bool combined) const;
    int NumSpecificBuildingResults(int stage, int building, bool combined) const;
    void DeleteSpecificBDResults(int stage, bool combined);
    void DeleteSpecificBDResults(int stage);
    // Movement samples of every building at a stage (-1: all).
    void DeleteBuildingMovementResults(int stage);
    bool CombinedSegmentsExist_SpecificBuilding(int stage, int building, int offset) const;
    // Makes every matching segment start a run of its own again.
    void CombinedSegmentsSeparate_SpecificBuilding(int stage, int building, int offset);
    // With all false, whether any building has joined segments; with all true, whether
    // every building has. False without buildings.
    bool GetSpecificBuildingsWithCombinedSegmentsVisible(bool all) const;

    // Result tables of the specific buildings, appended to a text file: rows of comma-
    // separated cells led by the table's token, numbers in the display units. The segment
    // tables, one row per segment as the curve cuts them and as the user joined them, with
    // the segment's ends on the line and its damage category:
    //   BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS and BDA_SPECIFIC_RESULT_COMBINED_SEGMENTS.
    // Nothing at all is written when neither is wanted. Throws what the file throws.
    void WriteCSVBDAResults(CStdioFile& file, const CUnit& unit, const SCSVExportData& data) const;
    // One row of critical values per building and vertical offset, also for an offset
    // without results (zeros and category -1):
    //   BDA_SPECIFIC_RESULT_UNCOMBINED_SEGMENTS_CRITICAL_VALUES.
    // The unit heading is always written.
    void WriteCSVBDAResults_CritValues(CStdioFile& file, const CUnit& unit,
                                       const SCSVExportData& data) const;
    // The specific utilities' tables: the unit heading, then the joints with their
    // pullouts, rotations and verdicts, the strain rows, and what was sampled at each
    // joint. Each table opens with a row naming its columns under its token.
    void WriteCSVUDAResults(CStdioFile& file, const CUnit& unit, const SCSVExportData& data) const;
    void WriteCSVUDAPulloutsRotations(CStdioFile& file, const CUnit& unit,
                                      const SCSVExportData& data) const;
    void WriteCSVUDAStrains(CStdioFile& file, const CUnit& unit, const SCSVExportData& data) const;
    void WriteCSVUDACoodsDisps(CStdioFile& file, const CUnit& unit,
                               const SCSVExportData& data) const;
    // The generic utilities' tables, one row per joint or strain row of every transect,
    // with the columns chosen (nothing at all when none is): the unit heading, then the
    // joints, the strains and what was sampled at each joint. The transect's number and
    // end points follow the polyline.
    void WriteCSVGenericUDAResults(CStdioFile& file, const CUnit& unit,
                                   const SCSVExportData& data, const CUDAExportCSVDisps& disps,
                                   const CUDAExportCSVPR& pullouts,
                                   const CUDAExportCSVStrains& strains) const;
    void WriteCSVGenericUDAPulloutsRotations(CStdioFile& file, const CUnit& unit,
                                             const SCSVExportData& data,
                                             const CUDAExportCSVPR& columns) const;
    void WriteCSVGenericUDAStrains(CStdioFile& file, const CUnit& unit,
                                   const SCSVExportData& data,
                                   const CUDAExportCSVStrains& columns) const;
    void WriteCSVGenericUDACoodsDisps(CStdioFile& file, const CUnit& unit,
                                      const SCSVExportData& data,
                                      const CUDAExportCSVDisps& columns) const;

    // Pipe sections and acceptance criteria that utilities name by number. Each table
    // begins with its standard library, read-only rows that every project holds in the
    // same places, and the user's editable rows follow; only those are saved.
    ZORVO_NUMBERED_FAMILY(UtilityDimension, UtilityDimensions, CUtilityDimension,
                          m_utilityDimensions)
    ZORVO_NUMBERED_FAMILY(AcceptanceCriteria, AcceptanceCriteria, CAcceptanceCriteria,
                          m_acceptanceCriteria)
    int NumStandardUtilityDimensions() const {
        return NumUtilityDimensions() - NumEditableUtilityDimensions();
    }
    int NumEditableUtilityDimensions() const;
    int NumStandardAcceptanceCriteria() const {
        return NumAcceptanceCriteria() - NumEditableAcceptanceCriteria();
    }
    int NumEditableAcceptanceCriteria() const;
    // Empty the table and fill it with the standard library: 114 pipe sections in four
    // families, and 20 criteria.
    void CreateStandardUtilityDimensions();
    void CreateStandardAcceptanceCriteria();

    // Buried pipes: specific ones on a displacement line or polyline, and generic ones
    // whose transects cross a polyline.
    ZORVO_NUMBERED_FAMILY(SpecificUtility, SpecificUtilities, CSpecificUtility, m_specificUtilities)
    ZORVO_NUMBERED_FAMILY(GenericUtility, GenericUtilities, CGenericUtility, m_genericUtilities)
    // External diameter (metres) of the dimension record of specific utility u (1-based).
    double GetSpecificUtilityDiameter(int utility) const;
    // Length (characters) of the longest sub-utility name; 0 without utilities.
    int GetMaxSubUtilityNameLength() const;
    // Whether any utility of the family is shown.
    bool AreSpecificUtilitiesVisible() const;
    bool AreGenericUtilitiesVisible() const;
    const CUtilityCalculationOptions& GetUtilityCalculationOptions() const {
        return m_utilityCalculationOptions;
    }
    void SetUtilityCalculationOptions(const CUtilityCalculationOptions& o) {
        m_utilityCalculationOptions = o;
    }

    // Plan length (metres) of the whole line or displacement polyline of specific utility
    // u (1-based), not of the utility's stretch of it. Throws std::invalid_argument
    // "invalid displacement type" for a data type that is neither.
    double GetSpecificUtilityPlanLength(int utility) const;

    // ---- Movements along a specific utility -----------------------------------------
    // Tables against the distance from the utility's start (metres), built from the
    // samples of a stage slot and clipped to LineStart .. LineEnd: the first row is at 0,
    // the last at the utility's length, the rows between at the samples beyond the start.
    // Values in metres. A lookup outside the samples throws the table's CRange; a slot
    // without samples gives an empty table.
    // Parallel and perpendicular components of the horizontal movement, positive along
    // the line from its start and to its left. Lines only: on a polyline the table is
    // left as it was.
    void GetParallelDisplacementsWRTSpecificUtility(int stage, int utility, CTableD& table) const;
    void GetPerpendicularDisplacementsWRTSpecificUtility(int stage, int utility,
                                                         CTableD& table) const;
    // Vertical movement (settlement positive), lines and polylines.
    void GetVerticalDisplacementsWRTSpecificUtility(int stage, int utility, CTableD& table) const;
    // Both components; on a polyline each sample is resolved on the segment it lies in.
    void GetParallelAndPerpendicularDisplacementsWRTSpecificUtility(int stage, int utility,
                                                                    CTableD& parallel,
                                                                    CTableD& perpendicular) const;
    // Initial and displaced coordinates of the samples (metres).
    void GetInitialAndDisplPositionsWRTUtility(int stage, int utility, CTableD& initialX,
                                               CTableD& initialY, CTableD& initialZ,
                                               CTableD& displacedX, CTableD& displacedY,
                                               CTableD& displacedZ) const;
    // Resolves row (0-based, negative from the end) of the two component tables again on
    // segment (1-based) of a polyline utility, from the displacement that the coordinate
    // tables give at that row; the row keeps its x. Nothing for a utility on a line.
    void ModifyParallelAndPerpendicularDisplacementsWRTSpecificUtility_Polyline(
        int utility, CTableD& parallel, CTableD& perpendicular, int row, int segment,
        const CTableD& initialX, const CTableD& initialY, const CTableD& displacedX,
        const CTableD& displacedY) const;
    // Largest vertical movement as (x, signed value); the first of equal peaks stays.
    // False, with peak untouched, when the table has no rows.
    bool GetMaxVerticalDisplacementsWRTSpecificUtility(int stage, int utility,
                                                       Vec2<double>& peak) const;
    // Largest parallel and perpendicular movements (signed) and their x, in a slot or, with
    // -1, slot by slot over all the document's slots: then the last slot's peaks are
    // answered, not the largest over all. Of equal peaks the last row wins. True when any
    // row was taken.
    bool GetMaxParallelAndPerpendicularDisplacementsWRTUtility(int stage, int utility,
                                                               double& parallel, double& parallelX,
                                                               double& perpendicular,
                                                               double& perpendicularX) const;
    // Whether specific utility u (-1: any) holds samples in the slot (-1: any).
    bool SpecificUtilityHorizontalMovementResultsExist(int stage, int utility) const;
    // Drops the samples of every specific utility in the slot (-1: all).
    void DeleteSpecificUtilityMovementResults(int stage);
    // Joints over every iteration, and strain rows, of specific utility u (-1: all) in
    // the slot (-1: all).
    int NumSpecificUtilityPulloutAndRotations(int stage, int utility) const;
    int NumSpecificUtilityStrains(int stage, int utility) const;
    // Whether specific utility u (-1: any) holds joints, strain rows, or any result
    // (samples included) in the slot (-1: any).
    bool SpecificUtilityPulloutAndRotationsExist(int stage, int utility) const;
    bool SpecificUtilityStrainsExist(int stage, int utility) const;
    bool SpecificUtilityResultsExist(int stage, int utility) const;
    // Drops the assessment results, joints and strains, of every specific utility in the
    // slot (-1: all); the samples stay.
    void DeleteSpecificPulloutAndRotations(int stage);
    // Whether specific utility u (1-based) can be assessed: its line or polyline exists
    // and is calculated, its stretch lies on it in order, its pipe length fits, and its
    // dimension and criteria exist with no negative factor. Without report the first
    // fault answers false and nothing is formatted; with report each fault adds its text
    // and the checks go on.
    bool ValidSpecificUtility(int u, bool report, std::vector<CString>& messages) const;
    // True when there is a specific utility and every one can be assessed.
    bool ValidSpecificUtilities() const;

    // ---- Generic utilities and their transects ----------------------------------------
    // Sets out afresh the transects of every generic building that can be assessed, then
    // of every generic utility (their results go with them).
    void SetupTransects();
    // Rebuilds the transects of generic utility g (1-based): one at every interval of
    // chainage along its polyline from 0, each a row of DispPoints points, Length long,
    // at right angles to the polyline in plan and at the polyline's level, the first point
    // on one side and the crossing in the middle. Every stage slot of the document gets
    // the points. A polyline that is missing or has one point, an interval that gives no
    // count (0, not a number), and a count whose points would not fit in this machine's
    // memory build no transects.
    void PopulateGenericUtilityTransectsAndTheirPoints(int g);
    // Whether that many transects of that many points, in every stage slot, fit in memory.
    bool FitsInMemory(double transects, int points) const;
    // Transects that PopulateGenericUtilityTransectsAndTheirPoints sets out for utility g,
    // floor(plan length / interval) + 1 (0 for a polyline that holds none); the sum over
    // every utility for -1.
    int NumGenericUtilityTransects(int g) const;
    // Where transect t (1-based) of utility g crosses its polyline and its direction across
    // (a plan unit vector), as the transect is built; false for a transect not built.
    bool GetGenericUtilityTransectCrossing(int g, int t, Vec3<double>& point,
                                           Vec3<double>& across) const;
    // Point k (0-based) of a transect of utility g from its crossing and direction.
    Vec3<double> GetGenericUtilityTransectPoint(int g, const Vec3<double>& point,
                                                const Vec3<double>& across, int k) const;
    // End points (metres) of transect t (1-based) of utility g without building it; false,
    // with the outputs untouched, when g, t or the polyline does not exist. The last
    // transect is centred on the polyline's last vertex.
    bool GetGenericUtilityTransectStartAndEnd(int g, int t, Vec3<double>& start,
                                              Vec3<double>& end) const;
    // Tables along transect t of utility g at a slot, against the plan distance from its
    // first point (metres), one row a point, not clipped: horizontal movement along the
    // transect and to its left, vertical movement, and the initial and displaced points.
    void GetParallelAndPerpendicularDisplacementsWRTUtilityTransect(int stage, int g, int t,
                                                                    CTableD& parallel,
                                                                    CTableD& perpendicular) const;
    void GetVerticalDisplacementsWRTUtilityTransect(int stage, int g, int t,
                                                    CTableD& table) const;
    void GetInitialAndDisplPositionsWRTUtilityTransect(int stage, int g, int t, CTableD& initialX,
                                                       CTableD& initialY, CTableD& initialZ,
                                                       CTableD& displacedX, CTableD& displacedY,
                                                       CTableD& displacedZ) const;
    // One row per transect, row t - 1 holding (x, signed value) of the transect's largest
    // movement (the first of equal peaks); with -1 slot by slot, the last slot standing.
    void GetMaxVerticalDisplacementProfileOfGenericUtility(int stage, int g, CTableD& table) const;
    void GetMaxParallelAndPerpendicularDisplacementProfileOfGenericUtility(
        int stage, int g, CTableD& parallel, CTableD& perpendicular) const;
    // The point at distance d (metres) from the first point of transect t towards its last.
    Vec3<double> GetUtilityTransectPointAtADistFromItsStart(int stage, int g, int t,
                                                            double d) const;
    // Counts and questions over the transects of utility g (-1: all) in a slot (-1: all).
    int NumGenericUtilityPulloutAndRotations(int stage, int g) const;
    int NumGenericUtilityStrains(int stage, int g) const;
    bool GenericUtilityHorizontalMovementResultsExist(int stage, int g) const;
    bool GenericUtilityPulloutAndRotationsExist(int stage, int g) const;
    bool GenericUtilityStrainsExist(int stage, int g) const;
    bool GenericUtilityResultsExist(int stage, int g) const;
    // Drops the joints and strains, and the movement samples, of every transect (-1: all
    // slots).
    void DeleteGenericUDResults(int stage);
    void DeleteGenericUtilityMovementResults(int stage);
    // "Generic Utility 2: Gas main" with the number, else "Generic Utility: Gas main".
    void GetGenericUtilityDescription(CString& out, int g, bool number) const;

    // Stages and stage properties.
    ZORVO_NUMBERED_FAMILY(StageProperty, StageProperties, CStageProperty, m_stageProperties)
    // n, plus one with the base; counting only enabled stages with enabledOnly.
    int NumActualStages(bool withBase, bool enabledOnly) const;
    // NumActualStages, doubled with smoothing on: the number of calculation stages
    // is NumStages(true, false).
    int NumStages(bool withBase, bool enabledOnly) const;
    int GetBaseStageIndex() const;
    bool IsBaseStage(int index) const;
    bool StageExists(int index) const;
    // The stage of a calculation index that is not a base index; for an index above n,
    // element index - n - 2, moved on by one with shift.
    const CStage& GetStage(int index, bool shift = false) const;
    void SetStage(int n, const CStage& s) { m_stages.Set(n, s); }
    void InsertStage(int n, int count) { m_stages.Insert(n, count); }
    void InsertStage(int n, const CStage& s) { m_stages.Insert(n, s); }
    void DeleteStage(int first, int last) { m_stages.Delete(first, last); }
    int GetStageIndexFromEnabledStageIndex(int enabledIndex) const;
    CString GetStageName(int index) const;
    void GetStageDescription(CString& out, int index, bool prefix, bool number) const;
    void GetStagesDescriptions(bool fullRange, std::vector<CString>& descriptions, bool prefix,
                               bool number, bool addAll) const;
    int MaxStageNameLength() const;
    bool IsTunnelInStage(int tunnel, int index) const;
    bool IsPolygonalExcavationInStage(int excavation, int index) const;
    bool IsCircularExcavationInStage(int excavation, int index) const;
    // The imported sets (1-based) that a calculation stage adds: all at a base index,
    // otherwise those the stage lists, in ascending order.
    std::vector<int> ImportedSetsToInclude(int index) const;
    // Adds imported set number set (1-based) to the results of the generic buildings,
    // generic utilities and rail tracks at the stage, where a sample lies within
    // kImportedObjectTolerance of an imported point in X, Y and Z; the match bits of the
    // set's points are stored back.
    void AddImportedDisplacementsToUtilsBuildsRails(int stage, int set);
    // Fixed distance (metres) within which an imported point meets a building, utility or
    // rail sample. It is deliberately not the preference that the displacement data use.
    static constexpr double kImportedObjectTolerance = 0.001;
    // Adds d to the sample when each of |dX|, |dY| and |dZ| between their points is below
    // kImportedObjectTolerance, tested in that order, and sets bit on both; answers
    // whether it did.
    static bool AddImportedDisplacementIfCoincident(CImportedDisplacement& d, GeoDispResult& sample,
                                                    int bit);

    // Diameter of a tunnel in a calculation stage (metres): its own in the base model
    // and in the stages that list it, 0 in the others, and the first value of the last
    // stage property of that index that names it.
    double GetTunnelDiameterInStage(int tunnel, int index) const;
    // Value of property 0 of an element (1-based) in a calculation stage (metres): the
    // record's own where the element takes part in the stage and 0 elsewhere, replaced
    // by the values of the stage properties of that index, type and element, the last
    // one standing. A tunnel's value is its diameter; a polygonal excavation's is its
    // base level at position (1-based), the last of a shorter list standing for the
    // positions beyond it. A property other than 0 keeps the record's own value.
    double GetStageDependentProperty(int stage, EElementType type, int element, int property,
                                     int position) const;

    // Levels of tunnel t (1-based) at a point given in the tunnel's local axes.
    SLevels GetLevelsForTunnelCalcs(int tunnel, int index, const Vec2<double>& local,
                                    const double& z) const;
    // A level at xl of L along the tunnel, (v2 - v1) xl / L + v1. Where both ends are at
    // one level other than zero that is v1 to the bit for 0 <= xl <= L, and the division
    // is spared.
    static double Along(double v1, double v2, double xl, double L) {
        return v1 == v2 && v1 != 0.0 ? v1 : (v2 - v1) * xl / L + v1;
    }
    // The same with the plan length and stage diameter already known (metres).
    // Inline: the point loops call it for every tunnel.
    static SLevels LevelsForTunnel(const GeoTunnel& t, double L, double D,
                                   const Vec2<double>& local, double z) {
        const double xl = local.x;
        double axis, interface, ground;
        if (xl < 0.0) { // before the first end: the first end's levels
            axis = t.GetZCentreLine1();
            interface = t.GetSoilInterfaceLevel1();
            ground = t.GetGroundLevel1();
        } else if (xl > L) { // past the second end
            axis = t.GetZCentreLine2();
            interface = t.GetSoilInterfaceLevel2();
            ground = t.GetGroundLevel2();
        } else {
            axis = Along(t.GetZCentreLine1(), t.GetZCentreLine2(), xl, L);
            interface = t.GetNumLayers() == 1
                            ? z
                            : Along(t.GetSoilInterfaceLevel1(), t.GetSoilInterfaceLevel2(), xl, L);
            ground = Along(t.GetGroundLevel1(), t.GetGroundLevel2(), xl, L);
        }
        if (t.GetNumLayers() == 1) // one soil: the interface is at the point itself
            interface = z;
        SLevels lv;
        lv.groundLevel = ground;
        lv.axisLevel = axis;
        lv.pointAboveAxis = z - axis;
        lv.pointAboveAxisPlusRadius = 0.5 * D + lv.pointAboveAxis;
        lv.interfaceAboveAxis = interface - axis;
        lv.groundAboveAxis = ground - axis;
        lv.interfaceLevel = interface;
        return lv;
    }
    // A plan point in the tunnel's axes: x' along the centre line from its first end,
    // y' to the left of it (metres).
    static Vec2<double> LocalXYReTunnelFromGlobalXY(const Vec2<double>& global,
                                                    const GeoTunnel& tunnel);

    // ---- Checks before a run -------------------------------------------------------
    // Each pass fills its list (cleared first) and answers whether it found anything;
    // a pass stopped by the event sets cancelled and answers false.
    bool GeneralErrors(std::vector<CString>& messages, bool& cancelled,
                       const SCheckArgs& args = {}) const;
    bool TunnelErrors(std::vector<CString>& messages, bool& cancelled,
                      const SCheckArgs& args = {}) const;
    bool TunnelWarnings(std::vector<CString>& messages, bool& cancelled,
                        const SCheckArgs& args = {}) const;
    bool StageErrors(std::vector<CString>& messages, bool& cancelled,
                     const SCheckArgs& args = {}) const;
    // Excavations that cannot be analysed: unpaired standard curves, missing or
    // incomplete curves, levels out of order, shafts without a diameter.
    bool ExcavationErrors(std::vector<CString>& messages, bool& cancelled,
                          const SCheckArgs& args = {}) const;
    bool ExcavationErrors(std::vector<CString>& messages) const;
    // What a run will do with the excavations as they stand: summed without interaction,
    // re-entrant corners, displacement data out of reach of their curves. Not const: it
    // fills the intersection sets of the excavations afresh for the host to read after it,
    // and a const document is one that threads may share, so the write is kept in sight
    // rather than hidden in mutable sets.
    bool ExcavationWarnings(std::vector<CString>& messages, bool& cancelled,
                            const SCheckArgs& args = {});
    bool ExcavationWarnings(std::vector<CString>& messages);
    // Whether specific building b (1-based) can be assessed: its line exists and is
    // calculated, its start and end lie on the line in plan and in order, its trough
    // sensitivity is not negative and it has a vertical offset. The first failure ends
    // the test; its text is added only withMessages, so the silent form formats nothing
    // and may be asked for every building in every stage. A line number below 1 or a
    // damage category strains number outside the list fails in silence: the host's own
    // checks name those.
    bool ValidSpecificBuilding(int b, bool withMessages, std::vector<CString>& messages) const;
    // True when there is a specific building and every one can be assessed.
    bool ValidSpecificBuildings() const;
    // Specific buildings that cannot be assessed, and those whose E/G is not above 0.
    bool BuildingErrors(std::vector<CString>& messages, bool& cancelled,
                        const SCheckArgs& args = {}) const;
    bool BuildingErrors(std::vector<CString>& messages) const;
    // Specific buildings whose line passes through an excavation.
    bool BuildingWarnings(std::vector<CString>& messages, bool& cancelled,
                          const SCheckArgs& args = {}) const;
    bool BuildingWarnings(std::vector<CString>& messages) const;
    // Whether an interval point of building b's line lies within any excavation, at any
    // stage; adds one text when it does.
    bool SpecificBuildingCrossesExcavation(int b, std::vector<CString>& messages) const;
    // Specific utilities that cannot be assessed, every fault of each with its text. The
    // answer is whether any utility failed.
    bool UtilityErrors(std::vector<CString>& messages, bool& cancelled,
                       const SCheckArgs& args = {}) const;
    bool UtilityErrors(std::vector<CString>& messages) const;
    // Specific utilities whose results deserve caution: a line through an excavation, and
    // polyline segments treated as continuous for pullout or strain, where bends are not
    // accounted for.
    bool UtilityWarnings(std::vector<CString>& messages, bool& cancelled,
                         const SCheckArgs& args = {}) const;
    bool UtilityWarnings(std::vector<CString>& messages) const;
    // Whether an interval point of the whole displacement line of specific utility u
    // (1-based), within its stretch or not, lies within any excavation, at any stage; adds
    // one text when it does, naming the first stage that lists the excavation hit (0 when
    // none does). False for a utility on a polyline or on a line that does not exist.
    bool UtilityCrossesExcavation(int u, std::vector<CString>& messages) const;
    // Warnings of the stages and stage properties; there are none to find, as everything
    // wrong with them is an error of StageErrors.
    bool StageWarnings(std::vector<CString>& messages, bool& cancelled,
                       const SCheckArgs& args = {}) const;
    // Whether generic utility g (1-based) can be assessed: its polyline exists and has two
    // points, its transect interval, length and points are positive, its pipe length fits
    // the transect, and its dimension and criteria exist with no negative factor. Without
    // report the first fault answers false and nothing is formatted; with report each
    // fault adds its text and the checks go on.
    bool ValidGenericUtility(int g, bool report, std::vector<CString>& messages) const;
    bool ValidGenericUtility(int g) const;
    // True when there is a generic utility and every one can be assessed.
    bool ValidGenericUtilities() const;
    // Generic utilities that cannot be assessed.
    bool GenericUtilityErrors(std::vector<CString>& messages, bool& cancelled,
                              const SCheckArgs& args = {}) const;
    bool GenericUtilityErrors(std::vector<CString>& messages) const;
    // Transects whose points lie within an excavation.
    bool GenericUtilityWarnings(std::vector<CString>& messages, bool& cancelled,
                                const SCheckArgs& args = {}) const;
    bool GenericUtilityWarnings(std::vector<CString>& messages) const;
    // Whether a point of transect t (1-based) of generic utility g lies within any
    // excavation, whatever the stage; adds one text naming the first stage that lists the
    // excavation (0 for none) when one does.
    bool GenericUtilityCrossesExcavation(int g, int t, std::vector<CString>& messages) const;
    // Every error pass but the general one, each with a list of its own; does not stop
    // at a finding.
    bool ErrorsExist() const;
    // Every warning pass; fills the intersection sets of the excavations.
    bool WarningsExist();

    // Whether a point lies outside the range of the Mair et al. sub-surface method for
    // tunnel t in a stage: a z/zo ratio above 0.8, or below the tunnel's crown.
    bool WarningMairZOverZ0(int stage, int tunnel, const Vec3<double>& point) const;
    // The same with the tunnel's diameter in the stage already known (metres): the stage
    // counts through the diameter alone.
    static bool MairZOverZ0OutOfRange(const GeoTunnel& tunnel, double diameter,
                                      const Vec3<double>& point);
    // The first example of the tunnel warnings' z/zo search: for each tunnel of the set
    // in ascending order, each calculation stage that holds it, each displacement record
    // and each of its locations, in that order, the first record with a location for
    // which WarningMairZOverZ0 holds. Answers whether there is one, with its tunnel and
    // record. stop is asked every few thousand steps; when it answers true the search
    // ends with stopped set and nothing found.
    bool FindMairZOverZ0Example(const std::set<int>& tunnels, const std::function<bool()>& stop,
                                int& tunnel, int& data, bool& stopped) const;
    // Numbers of the tunnels with a sub-surface method in a soil.
    void GetTunnelsOfSubSurfaceMethodAndSoil(GeoTunnel::ESubSurfaceMethod method,
                                             GeoTunnel::ESoilType soil, std::set<int>& out) const;

    bool operator==(const ZorvoData& o) const;
    bool operator!=(const ZorvoData& o) const { return !(*this == o); }

  private:
    // Element of the stage list that a non-base calculation index maps to.
    int StageElement(int index) const;

    GeoZorvoGeneral m_general;
    CNumberedList<CStage> m_stages;
    CNumberedList<CStageProperty> m_stageProperties;
    CNumberedList<GeoTunnel> m_tunnels;
    CNumberedList<GeoMine> m_mines;
    CNumberedList<CPolygonalExcavation> m_polygonalExcavations;
    CNumberedList<CCircularExcavation> m_circularExcavations;
    CExcavationCorner m_defaultCorner;
    CNumberedList<CDamageCategoryStrains> m_damageCategoryStrains;
    CNumberedList<CGMCurve> m_gmCurves[2];
    CNumberedList<CSpecificBuilding> m_specificBuildings;
    CNumberedList<CGenericBuilding> m_genericBuildings;
    CNumberedList<CUtilityDimension> m_utilityDimensions;
    CNumberedList<CAcceptanceCriteria> m_acceptanceCriteria;
    CNumberedList<CSpecificUtility> m_specificUtilities;
    CNumberedList<CGenericUtility> m_genericUtilities;
    CUtilityCalculationOptions m_utilityCalculationOptions;
    CReEntrantCornerOptions m_cornerOptions;

    // The standard curves of CIRIA C580 and C760, fitted, in place of both lists.
    void CreateStandardGMCurves();
};

} // namespace Tevra::Data
