// The check passes of the specific utilities: whether each can be assessed as it stands,
// and what makes its results deserve caution.
#include "document/ZorvoData.h"

#include "base/CResourceStrings.h"

#include <cmath>
#include <functional>

namespace Tevra::Data {

namespace {

// Pass codes sent to the host window when a pass found something.
constexpr long long kUtilityErrorsCode = 15;
constexpr long long kUtilityWarningsCode = 27;

CString Message(int id) { return CResourceStrings::Load(id); }

// Distances closer than this (metres) count as one.
constexpr double kSameDistance = 0.001;
// A jointed pipe shorter than this (metres) has no length.
constexpr double kMinPipeLength = 0.01;

// UtilityCrossesExcavation, asking stop (when given) once in kStepsPerEventTest points of
// the line: a line of millions of intervals is walked for as long as it takes. When stop
// answers true the walk ends with stopped set and nothing found.
bool LineOfUtilityCrossesExcavation(const ZorvoData& doc, int u, std::vector<CString>& messages,
                                    const std::function<bool()>& stop, bool& stopped) {
    stopped = false;
    const CSpecificUtility& utility = doc.GetSpecificUtility(u);
    if (utility.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline)
        return false;
    const int l = utility.GetDisplacementLine();
    const int NP = doc.NumPolygonalExcavations(), NC = doc.NumCircularExcavations();
    if (l < 1 || l > doc.NumDisplacementLines(false) || NP + NC == 0)
        return false;
    const CDisplacementLine& line = doc.GetDisplacementLine(l);
    const Vec3<double>& P = line.GetPoint1();
    const Vec3<double>& Q = line.GetPoint2();
    // Every interval point of the whole line, also those beyond the utility's stretch,
    // against every excavation whatever the stages in which it exists. A line without
    // intervals has no points (the displacement line errors report it).
    const int n = line.GetIntervalsAlongLine();
    for (long long i = 0; n >= 1 && i <= n; ++i) {
        if (stop && (i + 1) % kStepsPerEventTest == 0 && stop()) {
            stopped = true;
            return false;
        }
        const double f = static_cast<double>(i), N = static_cast<double>(n);
        const Vec3<double> p{P.x + (Q.x - P.x) * f / N, P.y + (Q.y - P.y) * f / N,
                             P.z + (Q.z - P.z) * f / N};
        // The stage named is the first that lists the excavation hit, 0 when none does.
        int hit = 0;
        const CBasicList& (CStage::*list)() const = &CStage::GetPolygonalExcavations;
        for (int e = 1; e <= NP && hit == 0; ++e)
            if (doc.GetPolygonalExcavation(e).IsPointInExcavation(p))
                hit = e;
        if (hit == 0) {
            list = &CStage::GetCircularExcavations;
            for (int e = 1; e <= NC && hit == 0; ++e)
                if (doc.GetCircularExcavation(e).IsPointInExcavation(p))
                    hit = e;
        }
        if (hit == 0)
            continue;
        int stage = 0;
        for (int s = 1; s <= doc.NumActualStages(false, false) && stage == 0; ++s)
            if ((doc.GetStage(s).*list)().IsIncluded(hit, 0))
                stage = s;
        messages.push_back(CString::Formatted(Message(214).GetString(), u, stage));
        return true;
    }
    return false;
}

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
    const int index =
        onPolyline ? utility.GetDisplacementPolyline() : utility.GetDisplacementLine();
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
            // Reported only: this one fault does not end a silent test. It names the
            // polyline's own number, not the displacement polyline's.
            const int p = GetDisplacementPolyline(index).GetPolyline();
            if (!PolylineExists(p) || GetPolyline(p).NumPoint() < 2)
                messages.push_back(CString::Formatted(
                    L"Specific Utility %i refers to Polyline %i which has fewer than 2 points.", u,
                    p));
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
        for (const wchar_t* words : GetAcceptanceCriteria(criteria).NegativeFactorWords())
            if (fault(12, object, u, criteria, words))
                return false;
    }
    return valid;
}

bool ZorvoData::ValidSpecificUtilities() const {
    std::vector<CString> unused;
    const int N = NumSpecificUtilities();
    for (int u = 1; u <= N; ++u)
        if (!ValidSpecificUtility(u, false, unused))
            return false;
    return N > 0;
}

bool ZorvoData::UtilityErrors(std::vector<CString>& messages) const {
    bool cancelled = false;
    return UtilityErrors(messages, cancelled);
}

bool ZorvoData::UtilityErrors(std::vector<CString>& messages, bool& cancelled,
                              const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kUtilityErrorsCode);
    // The answer is whether a utility failed, not whether a text was added: the text of a
    // polyline of fewer than two points is no failure of its own.
    bool failed = false;
    for (int u = 1; u <= NumSpecificUtilities(); ++u) {
        if (pass.Stopped())
            return pass.Cancelled();
        if (!ValidSpecificUtility(u, true, messages))
            failed = true;
    }
    return pass.Finish(failed);
}

bool ZorvoData::UtilityWarnings(std::vector<CString>& messages) const {
    bool cancelled = false;
    return UtilityWarnings(messages, cancelled);
}

bool ZorvoData::UtilityWarnings(std::vector<CString>& messages, bool& cancelled,
                                const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"warnings", kUtilityWarningsCode);
    for (int u = 1; u <= NumSpecificUtilities(); ++u) {
        if (pass.Stopped())
            return pass.Cancelled();
        bool stopped = false;
        LineOfUtilityCrossesExcavation(
            *this, u, messages, [&pass] { return pass.Stopped(); }, stopped);
        if (stopped)
            return pass.Cancelled();
        // On a polyline, segments taken as one continuous pipe ignore the bends between
        // them.
        const CSpecificUtility& utility = GetSpecificUtility(u);
        if (utility.GetDisplacementDataType() != UtilityGlobal::eDisplacementPolyline)
            continue;
        if (utility.GetPolySegContinuousPullouts())
            pass.Add(CString::Formatted(Message(59).GetString(), u));
        if (utility.GetPolySegContinuousStrains())
            pass.Add(CString::Formatted(Message(64).GetString(), u));
    }
    return pass.Finish();
}

bool ZorvoData::UtilityCrossesExcavation(int u, std::vector<CString>& messages) const {
    bool stopped = false;
    return LineOfUtilityCrossesExcavation(*this, u, messages, {}, stopped);
}

} // namespace Tevra::Data
