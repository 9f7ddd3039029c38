#pragma once

#include "base/CLodraZorvoPrefData.h"
#include "base/CString.h"
#include "buildings/CBuildingDamageAssessment.h"
#include "utilities/CUtilityDamageAssessment.h"
#include "document/ZorvoData.h"
#include "solver/CStageSources.h"
#include "solver/MessageHandler.h"

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace Tevra {

// Runs one complete analysis of a project: every calculation stage, every family of
// records, results written into the document. Made for one run on the host's stack;
// the document, the preferences, the message handler and the cancel test are
// borrowed.
//
// Messages sent to the handler (text is the stage index where noted, else null):
//   0 progress tick; 5 imported displacements (stage); 33 stage passes start;
//   35/36 ground movement curve preparation begins/ends; 37/38 triangulation
//   begins/ends; 40 points, 41 lines, 42 polylines, 43 grids of the stage begin;
//   44 to 53 the building, utility and rail families of the stage begin.
//
// Every sample the solver stores carries its record's point type; a sample that a
// cancelled run never reached keeps the fresh sample's none, and the result tables
// leave it out by that.
class ZorvoSolver {
  public:
    using CancelTest = std::function<bool()>;

    // Samples per building profile used by the building assessment.
    static constexpr int NR_POINTS = Data::CBuildingDamageAssessment::NR_POINTS;

    ZorvoSolver(Data::ZorvoData* document, Data::CLodraZorvoPrefData* preferences,
                MessageHandler* handler, CancelTest cancel);
    ZorvoSolver(const ZorvoSolver& other);
    ZorvoSolver& operator=(const ZorvoSolver& other);
    ~ZorvoSolver() = default;

    // False only for a null document or null preferences. True otherwise, also when
    // the run was cancelled: the document then holds partial results.
    bool Solve();

    // Objects per progress tick in a family of count objects: about 10 to 100 ticks
    // per family whatever its size.
    static int TickStep(int count);

    // Whether the last run was stopped by the cancel test.
    bool WasCancelled() const { return m_cancelled.load(std::memory_order_relaxed); }

    // Allowable deflection ratios of a building segment (Burland and Wroth), for the host's
    // charts of a result; see CBuildingDamageAssessment.
    static double TensionZoneDeflectionRatio(const double& L, const double& H, const double& EOverG,
                                             const double& nu, const double& t, const double& y,
                                             const double& I, const double& limit,
                                             const double& hStrain,
                                             GeoGlobal::ECurvature curvature) {
        return Data::CBuildingDamageAssessment::TensionZoneDeflectionRatio(
            L, H, EOverG, nu, t, y, I, limit, hStrain, curvature);
    }
    static double CompressionZoneDeflectionRatio(const double& L, const double& H,
                                                 const double& EOverG, const double& nu,
                                                 const double& t, const double& y, const double& I,
                                                 const double& limit, const double& hStrain,
                                                 GeoGlobal::ECurvature curvature) {
        return Data::CBuildingDamageAssessment::CompressionZoneDeflectionRatio(
            L, H, EOverG, nu, t, y, I, limit, hStrain, curvature);
    }
    static void BendingDiagonalComponents(const Data::CSpecificBuilding& building,
                                          const Data::CBuildingDamageResult& result,
                                          const double& hStrain, const double& deflectionRatio,
                                          double& bending, double& diagonal, bool withHStrain) {
        Data::CBuildingDamageAssessment::BendingDiagonalComponents(
            building, result, hStrain, deflectionRatio, bending, diagonal, withHStrain);
    }

    // Damage assessment of the specific buildings of a stage, in parallel, one building a
    // thread. Solve runs it uncombined; the host runs it again combined once the user has
    // joined segments. A building the run cannot assess is passed over in silence.
    void SpecificBuildingDamageAssessment(Data::ZorvoData& doc, int stage, bool combined);
    // One building (1-based) at one vertical offset (0-based).
    void SpecificBuildingDamageAssessment(Data::ZorvoData& doc, int stage, int building,
                                          int offset, bool combined);

    // What the run could not do, one text each, by stage and building: assessments left
    // without results because a profile could not be read. Sorted, without repeats.
    std::vector<CString> Notes() const;

  private:
    void SendMsg(const wchar_t* text, long long code) const;
    void SendStageMsg(long long code, int stage) const;
    bool CheckCancel();
    // The cancel test as every row of a family loop runs it: true means stop the run.
    bool LoopCancelled();

    // How one object of a family is shared out: whether it is wanted at all (an object
    // that is not sends no tick), and its rows of samples, each row a unit of work with a
    // cancel test before it. A row of a grid holds the samples across it; a line or a
    // polyline has one sample a row.
    struct SObjectRows {
        bool wanted = false;
        int rows = 0;    // none for an object that has nothing to calculate
        int columns = 1; // samples a row
    };

    // The frame shared by the family loops: the family's message, then the rows of all
    // its objects, first object to last, shared out between the threads in contiguous
    // runs of about equal numbers of samples (a static schedule, one run a thread), so
    // that the samples of one large object keep every thread busy. shape(i) answers an
    // object's SObjectRows; body(i, firstRow, endRow) calculates rows [firstRow, endRow)
    // of object i, tests the cancel test before each row and answers how many rows it
    // finished. An object ticks, as the frame counts ticks, once all its rows are done,
    // from whichever thread finishes its last run.
    template <class Shape, class Body>
    void FamilyLoop(long long code, int stage, int count, bool zeroBased, Shape shape, Body body);

    // Triangulates the ground movement curves a run interpolates over depth as well as
    // distance, each on a copy that then replaces the document's curve.
    void PrepareGMCurves();

    void CalcGroundMovements_All(int stage);
    void CalcGroundMovements_DisplacementPoints(int stage);
    void CalcGroundMovements_DisplacementLines(int stage);
    void CalcGroundMovements_DisplacementPolylines(int stage);
    void CalcGroundMovements_DisplacementGrids(int stage);
    void CalcGroundMovements_BuildingsSpecific(int stage);
    // Copies the samples of each specific utility's line or displacement polyline at the
    // stage onto the utility; no calculation of its own.
    void CalcGroundMovements_UtilitiesSpecific(int stage);
    // Pullouts, rotations and strains of the specific utilities of a stage, in parallel,
    // one utility a thread. A utility that fails its check's silent form is passed over.
    void CalculateSpecificUtilityDamage(Data::ZorvoData& doc, int stage);
    // One utility (1-based); false when the cancel test stopped it part way.
    bool SpecificUtilityDamage(Data::ZorvoData& doc, int stage, int utility);
    // The pullout and strain formulas of one pipe (see CUtilityDamageAssessment).
    static double AxialPulloutLeft(int row, const double& length,
                                   const Data::CSplineT<double>& curve) {
        return Data::CUtilityDamageAssessment::AxialPulloutLeft(row, length, curve);
    }
    static double AxialPulloutRight(int row, const double& length,
                                    const Data::CSplineT<double>& curve) {
        return Data::CUtilityDamageAssessment::AxialPulloutRight(row, length, curve);
    }
    static double AxialStrain(int row, const double& interval,
                              const Data::CSplineT<double>& initialX,
                              const Data::CSplineT<double>& initialY,
                              const Data::CSplineT<double>& initialZ,
                              const Data::CSplineT<double>& displacedX,
                              const Data::CSplineT<double>& displacedY,
                              const Data::CSplineT<double>& displacedZ) {
        return Data::CUtilityDamageAssessment::AxialStrain(row, interval, initialX, initialY,
                                                           initialZ, displacedX, displacedY,
                                                           displacedZ);
    }
    // Movements at the points of every transect of each generic utility, worked out
    // afresh: a horizontal transect's points as surface points, a sloping one's as the
    // points of a sloping line. A transect's row of points is one unit of work.
    void CalcGroundMovements_UtilitiesGeneric(int stage);
    // Pullouts, rotations and strains along every transect of the generic utilities of a
    // stage, in parallel, one utility a thread, its transects in turn. A utility that
    // fails its check's silent form is passed over.
    void CalculateGenericUtilityDamage(Data::ZorvoData& doc, int stage);
    // Samples of a building's line at each vertical offset and along the line itself;
    // false when cancelled part way.
    bool SpecificBuildingMovements(int stage, int building);
    // Marks the imported points that a building's samples took up, serially after the
    // building loop.
    void WriteExactVerticalImportMatchesToImportedDisplacementsForSpecificBuilding(
        const Data::CSpecificBuilding& building, int stage, int numOffsets, int numIntervals);
    // Families whose assessments can leave a note, in the order the notes are listed.
    enum ENoteFamily { eNoteBuilding = 0, eNoteSpecificUtility = 1, eNoteGenericUtility = 2 };
    void AddNote(int stage, int building, int offset, const CString& text) {
        AddNote(stage, eNoteBuilding, building, offset, text);
    }
    void AddNote(int stage, ENoteFamily family, int object, int offset, const CString& text);

    // Adds the imported sets of the stage: to the displacement data with the tolerance
    // (metres), and to the buildings, utilities and rail tracks. Message 5 with the stage
    // goes first and a tick last; a project without imported sets sends nothing.
    void AddImportedDisplacementsToResults(int stage, bool toDisplacementData,
                                           bool toUtilsBuildsRails, double tolerance);

    // Movement and principal strains at the sample's point, stored on it in metres
    // above the threshold; a point inside an excavation of the stage stays untouched.
    void CalcPointResult(Data::GeoDispResult& result, const Data::ZorvoData& doc, int stage,
                         Data::ESurfaceType surface, bool) const;
    // The damage assessment of one cut settlement curve (see CBuildingDamageAssessment).
    static void BuildingDamageResults(
        bool heightIsH, const Data::CDamageCategoryStrains& strains,
        const Data::CBuildingDamageProperties& properties, const double& height,
        const Data::CTableT<double>& hTable, const Data::CTableT<double>& vTable,
        const Data::CSplineT<double>& hCurve, const Data::CSplineT<double>& chainageMap,
        const Data::CSplineT<double>& vCurve, const Data::CTableT<double>& curvatureTable,
        const std::vector<double>& boundaries, std::vector<Data::CBuildingDamageResult>& results) {
        Data::CBuildingDamageAssessment::BuildingDamageResults(
            heightIsH, strains, properties, height, hTable, vTable, hCurve, chainageMap, vCurve,
            curvatureTable, boundaries, results);
    }

    // Movement at a point of a sloping line or transect, in metres with no threshold and
    // no strains, whether or not the point lies in an excavation.
    void CalcSlopingPointResult(Data::GeoDispResult& result, int stage,
                                Data::ESurfaceType surface) const;
    // Location k of a line; a sloping line gets displacements and no strains.
    void CalculateLinePointResult(Data::GeoDispResult& result, const Data::CDisplacementLine& line,
                                  int k, int stage) const;

    Data::ZorvoData* m_doc;
    Data::CLodraZorvoPrefData* m_prefs;
    MessageHandler* m_handler;
    // Written by every loop thread; only its settling to true matters.
    std::atomic<bool> m_cancelled{false};
    CancelTest m_cancel;
    struct SNote {
        int stage;
        int family;
        int object;
        int offset;
        CString text;
    };
    std::vector<SNote> m_notes;
    // The sources of the stage whose movements are being worked out, prepared once for
    // all its points.
    std::shared_ptr<const CStageSources> m_sources;
};

} // namespace Tevra
