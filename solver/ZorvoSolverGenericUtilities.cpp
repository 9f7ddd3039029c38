// The generic utilities of a run: the points of each transect, set out before the run,
// take the movements of the stage.
#include "ZorvoSolver.h"

#include "solver/ZorvoSolverFamilyLoop.h"

namespace Tevra {

using namespace Data;

namespace {

// Import match of a sample that an imported displacement was added to, and the mark it
// carries on a generic utility.
constexpr int kImportMatched = 1;
constexpr int kImportGenericUtility = 16;

} // namespace

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
