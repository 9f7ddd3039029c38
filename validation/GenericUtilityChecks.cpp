// The check passes of the generic utilities: whether each can be set out and assessed as
// it stands, and whether a transect passes through an excavation.
#include "document/ZorvoData.h"

#include "base/CResourceStrings.h"

#include <cmath>

namespace Tevra::Data {

namespace {

// Pass code sent to the host window when the errors pass found something.
constexpr long long kGenericUtilityErrorsCode = 16;
// Transect inputs closer to zero than this (metres) are zero.
constexpr double kZeroInput = 0.001;
// A jointed pipe shorter than this (metres) has no length: finer than the 0.01 m of a
// specific utility, deliberately.
constexpr double kMinPipeLength = 0.001;

CString Message(int id) { return CResourceStrings::Load(id); }

} // namespace

bool ZorvoData::ValidGenericUtility(int g, bool report, std::vector<CString>& messages) const {
    const CGenericUtility& utility = GetGenericUtility(g);
    const wchar_t* const object = L"Generic Utility";
    bool valid = true;
    // Without report the first fault ends the test; with it every fault adds its text.
    auto fault = [&](int id, auto... args) {
        valid = false;
        if (report)
            messages.push_back(CString::Formatted(Message(id).GetString(), args...));
        return !report;
    };

    // The polyline the transects are set out along.
    const int p = utility.GetPolyline();
    if (p < 1 || p > NumPolylines()) {
        if (fault(43, object, g, p))
            return false;
    } else if (GetPolyline(p).NumPoint() < 2 && fault(183, object, g, p)) {
        return false;
    }

    // The transects.
    const double interval = utility.GetInterval(), length = utility.GetLength();
    const int points = utility.GetDispPoints();
    if (interval < 0.0 && fault(15, object, g))
        return false;
    if (length < 0.0 && fault(14, object, g))
        return false;
    if (points < 0 && fault(13, object, g))
        return false;
    if (std::fabs(interval) < kZeroInput && fault(16, L"Transect Interval", object, g))
        return false;
    if (std::fabs(length) < kZeroInput && fault(16, L"Transect Length", object, g))
        return false;
    if (points == 0 && fault(17, object, g))
        return false;

    // The pipes along a transect.
    if (utility.GetUtilityType() == UtilityGlobal::eJointed) {
        const double pipe = utility.GetPipeLength();
        if (pipe > length && fault(193, g))
            return false;
        if (std::fabs(pipe) < kMinPipeLength && fault(225, g))
            return false;
        if (pipe < 0.0 && fault(255, g))
            return false;
    }

    // The records it names.
    const int dimension = utility.GetDimension();
    if ((dimension < 1 || dimension > NumUtilityDimensions()) && fault(203, object, g, dimension))
        return false;
    const int criteria = utility.GetCriteria();
    if (criteria < 1 || criteria > NumAcceptanceCriteria()) {
        if (fault(194, object, g, criteria))
            return false;
    } else {
        for (const wchar_t* words : GetAcceptanceCriteria(criteria).NegativeFactorWords())
            if (fault(12, object, g, criteria, words))
                return false;
    }
    return valid;
}

bool ZorvoData::ValidGenericUtility(int g) const {
    std::vector<CString> unused;
    return ValidGenericUtility(g, false, unused);
}

bool ZorvoData::ValidGenericUtilities() const {
    const int N = NumGenericUtilities();
    for (int g = 1; g <= N; ++g)
        if (!ValidGenericUtility(g))
            return false;
    return N > 0;
}

bool ZorvoData::GenericUtilityErrors(std::vector<CString>& messages) const {
    bool cancelled = false;
    return GenericUtilityErrors(messages, cancelled);
}

bool ZorvoData::GenericUtilityErrors(std::vector<CString>& messages, bool& cancelled,
                                     const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kGenericUtilityErrorsCode);
    for (int g = 1; g <= NumGenericUtilities(); ++g) {
        if (pass.Stopped())
            return pass.Cancelled();
        ValidGenericUtility(g, true, messages);
    }
    return pass.Finish();
}

bool ZorvoData::GenericUtilityWarnings(std::vector<CString>& messages) const {
    bool cancelled = false;
    return GenericUtilityWarnings(messages, cancelled);
}

bool ZorvoData::GenericUtilityWarnings(std::vector<CString>& messages, bool& cancelled,
                                       const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"warnings", 0);
    for (int g = 1; g <= NumGenericUtilities(); ++g) {
        // A utility that cannot be set out has no transects to cross anything; its
        // errors, or the host's, say why.
        if (!ValidGenericUtility(g) ||
            !FitsInMemory(NumGenericUtilityTransects(g), GetGenericUtility(g).GetDispPoints()))
            continue;
        for (int t = 1; t <= NumGenericUtilityTransects(g); ++t) {
            if (pass.Stopped())
                return pass.Cancelled();
            GenericUtilityCrossesExcavation(g, t, messages);
        }
    }
    return pass.Finish();
}

bool ZorvoData::GenericUtilityCrossesExcavation(int g, int t,
                                                std::vector<CString>& messages) const {
    const int NP = NumPolygonalExcavations(), NC = NumCircularExcavations();
    Vec3<double> crossing, across;
    if (NP + NC == 0 || !GetGenericUtilityTransectCrossing(g, t, crossing, across))
        return false;
    const int n = NumActualStages(false, false);
    // The transect's points as they are set out; every excavation is asked, whatever the
    // stages in which it exists.
    for (int k = 0; k < GetGenericUtility(g).GetDispPoints(); ++k) {
        const Vec3<double> p = GetGenericUtilityTransectPoint(g, crossing, across, k);
        int stage = -1;
        for (int e = 1; e <= NP && stage < 0; ++e)
            if (GetPolygonalExcavation(e).IsPointInExcavation(p)) {
                stage = 0;
                for (int s = 1; s <= n && stage == 0; ++s)
                    if (IsPolygonalExcavationInStage(e, s))
                        stage = s;
            }
        for (int e = 1; e <= NC && stage < 0; ++e)
            if (GetCircularExcavation(e).IsPointInExcavation(p)) {
                stage = 0;
                for (int s = 1; s <= n && stage == 0; ++s)
                    if (IsCircularExcavationInStage(e, s))
                        stage = s;
            }
        if (stage >= 0) {
            messages.push_back(CString::Formatted(Message(212).GetString(), t, g, stage));
            return true;
        }
    }
    return false;
}

} // namespace Tevra::Data
