// The specific utilities of a run: each takes the samples of its line or displacement
// polyline, which the earlier steps of the stage have calculated.
#include "ZorvoSolver.h"

#include "solver/ZorvoSolverFamilyLoop.h"

namespace Tevra {

using namespace Data;

namespace {

// Import match of a sample that an imported displacement was added to, and the mark it
// carries on a specific utility.
constexpr int kImportMatched = 1;
constexpr int kImportSpecificUtility = 8;

// The line or displacement polyline a utility lies on, when it exists and holds the
// stage's samples as its store was sized; null otherwise, and the utility is passed over.
const CDisplacementData* UtilityData(const ZorvoData& doc, const CSpecificUtility& u, int stage) {
    const CDisplacementData* data = nullptr;
    if (u.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline) {
        const int p = u.GetDisplacementPolyline();
        if (p >= 1 && p <= doc.NumDisplacementPolylines(false))
            data = &doc.GetDisplacementPolyline(p);
    } else {
        const int l = u.GetDisplacementLine();
        if (l >= 1 && l <= doc.NumDisplacementLines(false))
            data = &doc.GetDisplacementLine(l);
    }
    return data && data->StoreMatches(stage) ? data : nullptr;
}

} // namespace

void ZorvoSolver::CalcGroundMovements_UtilitiesSpecific(int stage) {
    ZorvoData& doc = *m_doc;
    // Each utility is one unit of work, so that one thread writes its store.
    auto shape = [&doc, stage](int u) {
        return SObjectRows{UtilityData(doc, doc.GetSpecificUtility(u + 1), stage) != nullptr, 1,
                           1};
    };
    FamilyLoop(45, stage, doc.NumSpecificUtilities(), true, shape, [&](int u, int, int) {
        if (LoopCancelled())
            return 0;
        CSpecificUtility& utility = doc.AccessSpecificUtility(u + 1);
        const CDisplacementData& data = *UtilityData(doc, utility, stage);
        for (int position = 0; position < data.NumResults(stage); ++position) {
            GeoDispResult result = data.GetResultFromPosition(stage, position, 0);
            if (result.GetImportMatch() == kImportMatched)
                result.SetImportMatch(kImportSpecificUtility);
            utility.SetHorizontalMovementResult(stage, position + 1, result);
        }
        return 1;
    });
}

} // namespace Tevra
