// Whether a specific utility can be assessed as it stands.
#include "document/ZorvoData.h"

#include "base/CResourceStrings.h"

#include <cmath>

namespace Tevra::Data {

namespace {

CString Message(int id) { return CResourceStrings::Load(id); }

// Distances closer than this (metres) count as one.
constexpr double kSameDistance = 0.001;
// A jointed pipe shorter than this (metres) has no length.
constexpr double kMinPipeLength = 0.01;

} // namespace

bool ZorvoData::ValidSpecificUtility(int u, bool report, std::vector<CString>& messages) const {
    const CSpecificUtility& utility = GetSpecificUtility(u);
    const wchar_t* const object = L"Specific Utility";
    bool valid = true;
    // Without report the first fault ends the test; with it every fault adds its text.
    auto fault = [&](int id, auto... args) {
        valid = false;
        if (report)
            messages.push_back(CString::Formatted(Message(id).GetString(), args...));
        return !report;
    };

    // The line or displacement polyline it lies on.
    const bool onPolyline =
        utility.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline;
    const wchar_t* const word = onPolyline ? L"Polyline" : L"Line";
    const int index = onPolyline ? utility.GetDisplacementPolyline() : utility.GetDisplacementLine();
    const int defined = onPolyline ? NumDisplacementPolylines(false) : NumDisplacementLines(false);
    bool placed = false;
    if (index < 1 || index > defined) {
        if (fault(93, object, u, word, index, word))
            return false;
    } else if (!(onPolyline ? GetDisplacementPolyline(index).GetCalculate()
                            : GetDisplacementLine(index).GetCalculate())) {
        if (fault(94, object, u, word, index, word))
            return false;
    } else {
        placed = true;
        if (onPolyline && report) {
            // Reported only: this one fault does not end a silent test.
            const int p = GetDisplacementPolyline(index).GetPolyline();
            if (!PolylineExists(p) || GetPolyline(p).NumPoint() < 2)
                messages.push_back(CString::Formatted(
                    L"Specific Utility %i refers to Polyline %i which has fewer than 2 points.", u,
                    index));
        }
    }

    // The stretch along it, and the pipes that fill it.
    if (placed) {
        const double length = GetSpecificUtilityPlanLength(u);
        const double start = utility.GetLineStart(), end = utility.GetLineEnd();
        if (length < start || length < end || start < 0.0 || end < 0.0) {
            if (fault(96, object, u, word, index))
                return false;
        } else if (start == end || std::fabs(start - end) < kSameDistance) {
            if (fault(95, object, u, word))
                return false;
        } else if (end < start) {
            if (fault(260, object, u, word))
                return false;
        }
        if (utility.GetUtilityType() == UtilityGlobal::eJointed) {
            const double pipe = utility.GetPipeLength();
            if (end - start < pipe && fault(109, u))
                return false;
            if (std::fabs(pipe) < kMinPipeLength && fault(224, u))
                return false;
            if (pipe < 0.0 && fault(228, u))
                return false;
        }
    }

    // The records it names.
    const int dimension = utility.GetDimension();
    if ((dimension < 1 || dimension > NumUtilityDimensions()) &&
        fault(203, L"Utility", u, dimension))
        return false;
    const int criteria = utility.GetCriteria();
    if (criteria < 1 || criteria > NumAcceptanceCriteria()) {
        if (fault(194, L"Utility", u, criteria))
            return false;
    } else {
        const CAcceptanceCriteria& c = GetAcceptanceCriteria(criteria);
        const struct {
            bool negative;
            const wchar_t* words;
        } factors[] = {
            {c.IsAllowableStrain_Tension_Used() && c.GetAllowableStrain_Tension() < 0.0,
             L"allowable strain in tension"},
            {c.IsAllowableStrain_Compression_Used() && c.GetAllowableStrain_Compression() < 0.0,
             L"allowable strain in compression"},
            {c.GetPulloutRF_Axial() < 0.0, L"axial pullout factor"},
            {c.GetPulloutRF_Flexural() < 0.0, L"flexural pullout factor"},
            {c.GetRotationFactor() < 0.0, L"rotation factor"},
            {c.GetAxialStrainRF_Tension() < 0.0, L"factor for axial strain in tension"},
            {c.GetAxialStrainRF_Compression() < 0.0, L"factor for axial strain in compression"},
            {c.GetBendingFactorTension() < 0.0, L"factor for flexural strain in tension"},
            {c.GetBendingFactorCompression() < 0.0, L"factor for flexural strain in compression"},
        };
        for (const auto& f : factors)
            if (f.negative && fault(12, object, u, criteria, f.words))
                return false;
    }
    return valid;
}

} // namespace Tevra::Data
