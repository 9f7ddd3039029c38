// Imported displacement sets added to the results of buildings, utilities and rail tracks.
#include "ZorvoData.h"

#include <cmath>

namespace Tevra::Data {

namespace {
// Import match bit of a generic utility's sample that took an imported displacement.
constexpr int kImportGenericUtilityBit = 16;
} // namespace

bool ZorvoData::AddImportedDisplacementIfCoincident(CImportedDisplacement& d, GeoDispResult& sample,
                                                    int bit) {
    const Vec3<double>& p = sample.GetPoint();
    if (!(std::fabs(d.GetXpoint() - p.x) < kImportedObjectTolerance) ||
        !(std::fabs(d.GetYpoint() - p.y) < kImportedObjectTolerance) ||
        !(std::fabs(d.GetZpoint() - p.z) < kImportedObjectTolerance))
        return false;
    sample.SetXdisplacement(d.GetXdisplacement() + sample.GetXdisplacement());
    sample.SetYdisplacement(d.GetYdisplacement() + sample.GetYdisplacement());
    sample.SetZdisplacement(d.GetZdisplacement() + sample.GetZdisplacement());
    sample.SetImportMatch(sample.GetImportMatch() | bit);
    d.SetImportMatch(d.GetImportMatch() | bit);
    return true;
}

void ZorvoData::AddImportedDisplacementsToUtilsBuildsRails(int stage, int set) {
    if (!ImportedDisplacementsSetExists(set))
        return;
    // A working copy: the match bits the samples set go onto it, and it replaces the
    // set's list at the end.
    std::vector<CImportedDisplacement> list = GetImportedDisplacementsSet(set).GetDisplacements();
    for (CImportedDisplacement& d : list) {
        // Each imported point in the set's order walks the families below, each sample
        // through AddImportedDisplacementIfCoincident with the family's bit:
        //  a. each generic building from 1, each transect of it in order: for each vertical
        //     offset j from 0, each vertical result at (stage, j), position from 1: bit 64
        //     (a stage with no entry is passed over); then each horizontal result of the
        //     transect at the stage, position from 1: bit 4, put back with
        //     SetHorizontalMovementResult(stage, position, result);
        //  b. each generic utility from 1, each of its transects, each horizontal result
        //     at the stage: bit 16;
        //  c. each rail track from 1, each of its result sets at the stage: the main
        //     results, bit 128; then the two side lists, bits 256 and 512.
        // The project has no generic buildings or rail tracks yet.
        for (int g = 1; g <= NumGenericUtilities(); ++g) {
            CGenericUtility& utility = AccessGenericUtility(g);
            for (int t = 1; t <= utility.NumTransects(); ++t) {
                CUtilityTransect& transect = utility.AccessTransect(t);
                for (int k = 1; k <= transect.NumHorizontalMovementResults(stage); ++k) {
                    GeoDispResult sample = transect.GetHorizontalMovementResult(stage, k);
                    if (AddImportedDisplacementIfCoincident(d, sample, kImportGenericUtilityBit))
                        transect.SetHorizontalMovementResult(stage, k, sample);
                }
            }
        }
    }
    AccessImportedDisplacementsSet(set).SetDisplacements(list);
}

} // namespace Tevra::Data
