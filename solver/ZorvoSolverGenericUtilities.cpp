// The generic utilities of a run: the points of each transect, set out before the run,
// take the movements of the stage.
#include "ZorvoSolver.h"

#include "base/CRange.h"
#include "solver/ZorvoSolverFamilyLoop.h"

namespace Tevra {

using namespace Data;

namespace {

// Import match of a sample that an imported displacement was added to, and the mark it
// carries on a generic utility.
constexpr int kImportMatched = 1;
constexpr int kImportGenericUtility = 16;

CString LookupNote(int utility, const CString& name, int transect, int stage, int code) {
    return CString::Formatted(L"Generic Utility %i (%s), transect %i, stage %i: its movements "
                              L"were read outside their points (range code %i); no pullouts, "
                              L"rotations or strains for this transect and stage.",
                              utility, name.GetString(), transect, stage, code);
}

} // namespace

void ZorvoSolver::CalculateGenericUtilityDamage(ZorvoData& doc, int stage) {
    auto shape = [&doc](int g) { return SObjectRows{doc.ValidGenericUtility(g), 1, 1}; };
    FamilyLoop(51, stage, doc.NumGenericUtilities(), false, shape, [&](int g, int, int) {
        if (LoopCancelled())
            return 0;
        CGenericUtility& utility = doc.AccessGenericUtility(g);
        const CUtilityDimension& dimension = doc.GetUtilityDimension(utility.GetDimension());
        for (int t = 1; t <= utility.NumTransects(); ++t) {
            if (LoopCancelled())
                return 0;
            CUtilityTransect& transect = utility.AccessTransect(t);
            // A transect of one point has no interval: its movements are all it has.
            if (transect.NumberOfPoints(stage) < 2)
                continue;
            CUtilityDamageAssessment::SPipe pipe;
            pipe.diameter = dimension.GetInternalDiameter();
            pipe.wallThickness = dimension.GetWallThickness();
            pipe.pipeLength = utility.GetPipeLength();
            pipe.length = transect.GetLength(stage);
            pipe.interval = transect.GetInterval(stage);
            pipe.jointed = utility.GetUtilityType() == UtilityGlobal::eJointed;
            CTableD parallel, perpendicular, initialX, initialY, initialZ, displacedX, displacedY,
                displacedZ;
            doc.GetParallelAndPerpendicularDisplacementsWRTUtilityTransect(stage, g, t, parallel,
                                                                           perpendicular);
            doc.GetInitialAndDisplPositionsWRTUtilityTransect(stage, g, t, initialX, initialY,
                                                              initialZ, displacedX, displacedY,
                                                              displacedZ);
            CUtilityDamageAssessment::SCurves curves =
                CUtilityDamageAssessment::Curves(parallel, perpendicular, initialX, initialY,
                                                 initialZ, displacedX, displacedY, displacedZ);
            try {
                // A transect takes no tolerance in the spacing of its joints, and has no
                // segments.
                if (!CUtilityDamageAssessment::Assess(pipe, nullptr, curves, 0.0,
                                                      [this] { return LoopCancelled(); },
                                                      transect.AccessResults(), stage))
                    return 0;
            } catch (const Util::CRange<double>& e) {
                // Points of a transect that coincide (a route with a repeated vertex sets
                // out a transect of no length): this transect has no damage results at
                // this stage, and the run goes on with the next.
                AddNote(stage, eNoteGenericUtility, g, t,
                        LookupNote(g, utility.Name(), t, stage, e.code));
                CUtilityDamageAssessment::DeleteAssessment(transect.AccessResults(), stage);
            }
        }
        return 1;
    });
}

void ZorvoSolver::CalcGroundMovements_UtilitiesGeneric(int stage) {
    ZorvoData& doc = *m_doc;
    // A transect is a row, weighed by its points; rows of one utility may go to different
    // threads, each writing only its own transect's samples, whose slots were all sized
    // when the transects were set out.
    auto shape = [&doc, stage](int g) {
        const CGenericUtility& utility = doc.GetGenericUtility(g + 1);
        const int transects = utility.NumTransects();
        const int points = transects > 0 ? utility.GetTransect(1).NumberOfPoints(stage) : 1;
        return SObjectRows{true, transects, points};
    };
    FamilyLoop(47, stage, doc.NumGenericUtilities(), true, shape, [&](int g, int r0, int r1) {
        CGenericUtility& utility = doc.AccessGenericUtility(g + 1);
        for (int t = r0 + 1; t <= r1; ++t) {
            if (LoopCancelled())
                return t - 1 - r0;
            CUtilityTransect& transect = utility.AccessTransect(t);
            const bool horizontal = transect.IsHorizontal(stage);
            for (int k = 1; k <= transect.NumberOfPoints(stage); ++k) {
                GeoDispResult result;
                result.SetPoint(transect.GetPoint(stage, k));
                result.SetPointType(ePolyline);
                if (horizontal)
                    CalcPointResult(result, doc, stage, eSurface, true);
                else
                    CalcSlopingPointResult(result, stage, eSurface);
                if (result.GetImportMatch() == kImportMatched)
                    result.SetImportMatch(kImportGenericUtility);
                transect.SetHorizontalMovementResult(stage, k, result);
            }
        }
        return r1 - r0;
    });
}

} // namespace Tevra
