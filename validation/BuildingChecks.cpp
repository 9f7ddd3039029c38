// The check passes of the specific buildings: whether each can be assessed as it stands,
// and whether its line passes through an excavation.
#include "document/ZorvoData.h"

#include "base/CResourceStrings.h"

namespace Tevra::Data {

namespace {

// Pass codes sent to the host window when a pass found something.
constexpr long long kBuildingErrorsCode = 13;
constexpr long long kBuildingWarningsCode = 25;

CString Message(int id) { return CResourceStrings::Load(id); }

} // namespace

bool ZorvoData::ValidSpecificBuilding(int b, bool withMessages,
                                      std::vector<CString>& messages) const {
    const CSpecificBuilding& building = GetSpecificBuilding(b);
    const int n = building.GetLine();
    // The text of a failure is formatted only when it is wanted.
    auto fail = [&](int id, auto... args) {
        if (withMessages)
            messages.push_back(CString::Formatted(Message(id).GetString(), args...));
        return false;
    };
    if (n > NumDisplacementLines(false))
        return fail(3574, b, n);
    if (n < 1)
        return false;
    const CDisplacementLine& line = GetDisplacementLine(n);
    if (!line.GetCalculate())
        return fail(3577, b, n);
    // The chainages are tested against the line's length in plan, as the assessment
    // tests them, though the profiles along the building are laid out on its length in
    // space: the two differ on a sloping line, and that is how it stands.
    const double length = line.GetLength(true);
    const double start = building.GetLineStart(), end = building.GetLineEnd();
    if (start > length || end > length || start < 0.0 || end < 0.0)
        return fail(3575, b, n);
    if (start == end)
        return fail(3576, b);
    if (start > end)
        return fail(260, L"Building", b, L"Line");
    const CBuildingDamageProperties& p = building.GetBuildingDamageProperties();
    if (p.GetEndVDispSensitivity() < 0.0)
        return fail(258, b);
    if (!p.AnyVerticalOffset())
        return fail(24, L"specific", b);
    const int strains = p.GetDamageCategoryStrains();
    return strains >= 1 && strains <= NumDamageCategoryStrains();
}

bool ZorvoData::ValidSpecificBuildings() const {
    std::vector<CString> unused;
    const int N = NumSpecificBuildings();
    for (int b = 1; b <= N; ++b)
        if (!ValidSpecificBuilding(b, false, unused))
            return false;
    return N > 0;
}

bool ZorvoData::BuildingErrors(std::vector<CString>& messages) const {
    bool cancelled = false;
    return BuildingErrors(messages, cancelled);
}

bool ZorvoData::BuildingErrors(std::vector<CString>& messages, bool& cancelled,
                               const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kBuildingErrorsCode);
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        if (pass.Stopped())
            return pass.Cancelled();
        ValidSpecificBuilding(b, true, messages);
        // Tested whatever the result above, so that a building may have both texts. A
        // ratio that is not a number is not above 0 either.
        if (!(GetSpecificBuilding(b).GetBuildingDamageProperties().GetEOverG() > 0.0))
            pass.Add(CString::Formatted(L"Specific Building %i's E/G must be positive", b));
    }
    return pass.Finish();
}

bool ZorvoData::BuildingWarnings(std::vector<CString>& messages) const {
    bool cancelled = false;
    return BuildingWarnings(messages, cancelled);
}

bool ZorvoData::BuildingWarnings(std::vector<CString>& messages, bool& cancelled,
                                 const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"warnings", kBuildingWarningsCode);
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        if (pass.Stopped())
            return pass.Cancelled();
        SpecificBuildingCrossesExcavation(b, messages);
    }
    return pass.Finish();
}

bool ZorvoData::SpecificBuildingCrossesExcavation(int b, std::vector<CString>& messages) const {
    const int n = GetSpecificBuilding(b).GetLine();
    const int NP = NumPolygonalExcavations(), NC = NumCircularExcavations();
    if (n > NumDisplacementLines(false) || n < 1 || NP + NC == 0)
        return false;
    const CDisplacementLine& line = GetDisplacementLine(n);
    const Vec3<double>& P1 = line.GetPoint1();
    const Vec3<double>& P2 = line.GetPoint2();
    // The line's interval points in space, worked as the run works them; a line without
    // intervals has none (the displacement line errors report it). Every excavation is
    // asked, whatever the stages in which it exists.
    const int J = line.GetIntervalsAlongLine();
    for (long long k = 0; J >= 1 && k <= J; ++k) {
        const double f = static_cast<double>(k), j = static_cast<double>(J);
        const Vec3<double> p{(P2.x - P1.x) * f / j + P1.x, (P2.y - P1.y) * f / j + P1.y,
                             (P2.z - P1.z) * f / j + P1.z};
        bool within = false;
        for (int e = 1; e <= NP && !within; ++e)
            within = GetPolygonalExcavation(e).IsPointInExcavation(p);
        for (int e = 1; e <= NC && !within; ++e)
            within = GetCircularExcavation(e).IsPointInExcavation(p);
        if (within) {
            messages.push_back(CString::Formatted(Message(3582).GetString(), b));
            return true;
        }
    }
    return false;
}

} // namespace Tevra::Data
