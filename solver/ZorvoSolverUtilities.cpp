// The specific utilities of a run: each takes the samples of its line or displacement
// polyline, which the earlier steps of the stage have calculated, and is then assessed
// for pullout, rotation and strain once every stage has its movements.
#include "ZorvoSolver.h"

#include "base/CRange.h"
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

CString LookupNote(int utility, const CString& name, int stage, int code) {
    return CString::Formatted(L"Specific Utility %i (%s), stage %i: its movements were read "
                              L"outside their points (range code %i); no pullouts, rotations "
                              L"or strains for this stage.",
                              utility, name.GetString(), stage, code);
}

} // namespace

void ZorvoSolver::CalculateSpecificUtilityDamage(ZorvoData& doc, int stage) {
    auto shape = [&doc](int u) {
        std::vector<CString> unused;
        return SObjectRows{doc.ValidSpecificUtility(u, false, unused), 1, 1};
    };
    FamilyLoop(50, stage, doc.NumSpecificUtilities(), false, shape, [&](int u, int, int) {
        if (LoopCancelled())
            return 0;
        return SpecificUtilityDamage(doc, stage, u) ? 1 : 0;
    });
}

bool ZorvoSolver::SpecificUtilityDamage(ZorvoData& doc, int stage, int u) {
    CSpecificUtility& utility = doc.AccessSpecificUtility(u);
    const CUtilityDimension& dimension = doc.GetUtilityDimension(utility.GetDimension());
    const bool onPolyline =
        utility.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline;
    const CPolylinePlus* polyline = nullptr;
    if (onPolyline) {
        const int p = doc.GetDisplacementPolyline(utility.GetDisplacementPolyline()).GetPolyline();
        // A polyline of fewer than two points passes the silent check yet has no segment
        // to resolve the movements on: nothing to assess.
        if (!doc.PolylineExists(p) || doc.GetPolyline(p).NumPoint() < 2)
            return true;
        polyline = &doc.GetPolyline(p);
    }

    CUtilityDamageAssessment::SPipe pipe;
    pipe.diameter = dimension.GetInternalDiameter();
    pipe.wallThickness = dimension.GetWallThickness();
    pipe.pipeLength = utility.GetPipeLength();
    pipe.length = utility.GetLineEnd() - utility.GetLineStart();
    // A sloping line's interval is its length in space over its intervals, while the
    // tables run in plan distance: each as it has always been taken.
    pipe.interval = onPolyline
                        ? doc.GetDisplacementPolylineInterval(utility.GetDisplacementPolyline())
                        : doc.GetLineInterval(utility.GetDisplacementLine());
    pipe.jointed = utility.GetUtilityType() == UtilityGlobal::eJointed;

    CTableD parallel, perpendicular, initialX, initialY, initialZ, displacedX, displacedY,
        displacedZ;
    doc.GetParallelAndPerpendicularDisplacementsWRTSpecificUtility(stage, u, parallel,
                                                                   perpendicular);
    doc.GetInitialAndDisplPositionsWRTUtility(stage, u, initialX, initialY, initialZ, displacedX,
                                              displacedY, displacedZ);
    CUtilityDamageAssessment::SCurves curves = CUtilityDamageAssessment::Curves(
        parallel, perpendicular, initialX, initialY, initialZ, displacedX, displacedY, displacedZ);

    CUtilityDamageAssessment::SPolylinePipe along;
    if (polyline) {
        along.polyline = polyline;
        along.lineStart = utility.GetLineStart();
        along.lineEnd = utility.GetLineEnd();
        along.continuousPullouts = utility.GetPolySegContinuousPullouts();
        along.continuousStrains = utility.GetPolySegContinuousStrains();
        along.reResolve = [&](int row, int segment, CUtilityDamageAssessment::SCurves& c) {
            CTableD par(c.parallel), perp(c.perpendicular);
            doc.ModifyParallelAndPerpendicularDisplacementsWRTSpecificUtility_Polyline(
                u, par, perp, row, segment, initialX, initialY, displacedX, displacedY);
            c.parallel = CSplineT<double>(par);
            c.perpendicular = CSplineT<double>(perp);
        };
    }

    try {
        // A cancelled utility is left as it stands.
        return CUtilityDamageAssessment::Assess(
            pipe, polyline ? &along : nullptr, curves,
            CUtilityDamageAssessment::JOINT_SPACING_TOLERANCE, [this] { return LoopCancelled(); },
            utility.AccessResults(), stage);
    } catch (const Util::CRange<double>& e) {
        // Two samples closer than a table can tell apart (duplicate vertices), or a lookup
        // past the samples: this utility has no damage results at this stage, and the run
        // goes on with the next.
        AddNote(stage, eNoteSpecificUtility, u, 0, LookupNote(u, utility.Name(), stage, e.code));
        CUtilityDamageAssessment::DeleteAssessment(utility.AccessResults(), stage);
    }
    return true;
}

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
