#include "UtilityReport.h"

#include "base/CStdioFile.h"
#include "base/CUnit.h"
#include "base/SCSVExportData.h"
#include "export/CUDAExportCSVDisps.h"
#include "export/CUDAExportCSVPR.h"
#include "export/CUDAExportCSVStrains.h"
#include "host/HostText.h"
#include "host/TableFile.h"


namespace Tevra {

using namespace Data;
using namespace UtilityGlobal;

const char* UtilityReport::VerdictLabel(int category) {
    switch (category) {
    case eWithinThreshold:
        return "within threshold";
    case eAboveThreshold:
        return "above threshold";
    case eBeyondLimit:
        return "beyond limit";
    default:
        return "?";
    }
}

void UtilityReport::Print(const ZorvoData& doc, std::ostream& out) {
    const int stages = doc.NumStages(true, false);
    const bool neglect = doc.GetUtilityCalculationOptions().GetNeglectBenificialContribution();
    for (int u = 1; u <= doc.NumSpecificUtilities(); ++u) {
        const CSpecificUtility& utility = doc.GetSpecificUtility(u);
        out << "Specific Utility " << u << " (" << utility.Name().ToUtf8() << ")\n";
        if (utility.GetCriteria() < 1 || utility.GetCriteria() > doc.NumAcceptanceCriteria()) {
            out << "  no criteria\n";
            continue;
        }
        const CAcceptanceCriteria& criteria = doc.GetAcceptanceCriteria(utility.GetCriteria());
        for (int s = 0; s < stages; ++s) {
            out << "  stage " << s << ": ";
            if (!utility.PulloutAndRotationsExist(s) && !utility.UtilityStrainsExist(s)) {
                out << "no results\n";
                continue;
            }
            if (utility.PulloutAndRotationsExist(s)) {
                const double pullout =
                    utility.GetMaxPulloutOrRotationValue(s, ePulloutTotalFactored, criteria);
                const double rotation =
                    utility.GetMaxPulloutOrRotationValue(s, eRotationDegreesFactored, criteria);
                out << "pullout " << Printed("%.3f", pullout * 1000.0) << " mm "
                    << VerdictLabel(
                           utility.GetPulloutOrRotationCategory(s, ePulloutTotalFactored, criteria))
                    << ", rotation " << Printed("%.4f", rotation) << " deg "
                    << VerdictLabel(utility.GetPulloutOrRotationCategory(
                           s, eRotationDegreesFactored, criteria))
                    << ", ";
            }
            double tension = 0.0, compression = 0.0, at = 0.0;
            utility.GetMaximumTensileStrain(s, tension, at, criteria, neglect);
            utility.GetMaximumCompressiveStrain(s, compression, at, criteria, neglect);
            out << "tension " << Printed("%.1f", tension) << " microstrain "
                << VerdictLabel(
                       utility.GetStrainCategory(s, eTotalTensileStrainFactored, criteria, neglect))
                << ", compression " << Printed("%.1f", compression) << " microstrain "
                << VerdictLabel(utility.GetStrainCategory(s, eTotalCompressiveStrainFactored,
                                                          criteria, neglect));
            Vec2<double> least(0.0, 0.0);
            if (utility.GetMinRAD(s, least))
                out << ", least radius " << Printed("%.1f", least.y) << " m "
                    << VerdictLabel(
                           utility.GetStrainCategory(s, eRadiusOfCurvatureResult, criteria, neglect));
            else
                out << ", no bend";
            out << '\n';
        }
    }
    for (int g = 1; g <= doc.NumGenericUtilities(); ++g) {
        const CGenericUtility& utility = doc.GetGenericUtility(g);
        out << "Generic Utility " << g << " (" << utility.Name().ToUtf8() << "), "
            << utility.NumTransects()
            << (utility.NumTransects() == 1 ? " transect\n" : " transects\n");
        if (utility.GetCriteria() < 1 || utility.GetCriteria() > doc.NumAcceptanceCriteria()) {
            out << "  no criteria\n";
            continue;
        }
        const CAcceptanceCriteria& criteria = doc.GetAcceptanceCriteria(utility.GetCriteria());
        for (int s = 0; s < stages; ++s) {
            out << "  stage " << s << ": worst of the transects: ";
            if (!doc.GenericUtilityPulloutAndRotationsExist(s, g) &&
                !doc.GenericUtilityStrainsExist(s, g)) {
                out << "no results\n";
                continue;
            }
            if (utility.GetUtilityType() == eJointed)
                out << "pullout "
                    << VerdictLabel(
                           utility.GetPulloutOrRotationCategory(s, ePulloutTotalFactored, criteria))
                    << ", rotation "
                    << VerdictLabel(utility.GetPulloutOrRotationCategory(
                           s, eRotationDegreesFactored, criteria))
                    << ", ";
            out << "tension "
                << VerdictLabel(
                       utility.GetStrainCategory(s, eTotalTensileStrainFactored, criteria, neglect))
                << ", compression "
                << VerdictLabel(utility.GetStrainCategory(s, eTotalCompressiveStrainFactored,
                                                          criteria, neglect))
                << ", radius "
                << VerdictLabel(
                       utility.GetStrainCategory(s, eRadiusOfCurvatureResult, criteria, neglect))
                << '\n';
        }
    }
}

std::string UtilityReport::WriteCsv(const ZorvoData& doc, const std::string& dir) {
    SCSVExportData data;
    data.numStages = doc.NumStages(true, false);
    return WriteTableFile(dir + "/specific-utilities.csv", [&](CStdioFile& file) {
        doc.WriteCSVUDAResults(file, CUnit(), data);
    });
}

std::string UtilityReport::WriteGenericCsv(const ZorvoData& doc, const std::string& dir) {
    SCSVExportData data;
    data.numStages = doc.NumStages(true, false);
    // The columns the user chose last, every one where nothing is remembered.
    CUDAExportCSVDisps disps;
    CUDAExportCSVPR pullouts;
    CUDAExportCSVStrains strains;
    disps.RestoreFromRegistry();
    pullouts.RestoreFromRegistry();
    strains.RestoreFromRegistry();
    return WriteTableFile(dir + "/generic-utilities.csv", [&](CStdioFile& file) {
        doc.WriteCSVGenericUDAResults(file, CUnit(), data, disps, pullouts, strains);
    });
}

} // namespace Tevra
