// The check passes of the project as a whole, its tunnels and its stages.
#include "document/ZorvoData.h"

#include "base/CResourceStrings.h"

#include <algorithm>

namespace Tevra::Data {

namespace {

// Pass codes sent to the host window when a pass found something.
constexpr long long kGeneralErrorsCode = 6;
constexpr long long kTunnelErrorsCode = 7;
constexpr long long kStageErrorsCode = 18;

// Plan length (metres) below which a tunnel is vertical.
constexpr double kMinTunnelPlanLength = 0.001;
// Pairs of tunnels with one name reported before the pass gives up listing them.
constexpr int kMaxSameNamePairs = 25;

CString Message(int id) { return CResourceStrings::Load(id); }

} // namespace

bool ZorvoData::GeneralErrors(std::vector<CString>& messages, bool& cancelled,
                              const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kGeneralErrorsCode);
    if (pass.Stopped())
        return pass.Cancelled();
    const int importedSets = 0; // the project holds no imported displacement sets yet
    if (m_general.GetProblemType() == eGroundMovement) {
        if (NumTunnels() == 0 && importedSets == 0)
            pass.Add(Message(57));
    } else if (m_general.GetProblemType() == eMine) {
        if (NumMines() == 0 && importedSets == 0)
            pass.Add(Message(58));
    }
    return pass.Finish();
}

bool ZorvoData::TunnelErrors(std::vector<CString>& messages, bool& cancelled,
                             const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kTunnelErrorsCode);
    for (int t = 1; t <= NumTunnels(); ++t) {
        if (pass.Stopped())
            return pass.Cancelled();
        if (GetTunnel(t).GetPlanLength() < kMinTunnelPlanLength)
            pass.Add(CString::Formatted(Message(3558).GetString(), t));
    }
    return pass.Finish();
}

bool ZorvoData::TunnelWarnings(std::vector<CString>& messages, bool& cancelled,
                               const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"warnings", 0);

    // Sub-surface displacement data, and tunnels whose sub-surface method is out of its
    // range of derivation: Mair et al. in clay (MC) or in sand (MG), New and Bowers in
    // sand (NG).
    std::set<int> P, L, G, MC, MG, NG;
    GetPointsOfSurfaceType(true, eSubSurface, P);
    if (pass.Stopped())
        return pass.Cancelled();
    GetLinesOfSurfaceType(true, eSubSurface, L);
    if (pass.Stopped())
        return pass.Cancelled();
    GetGridsOfSurfaceType(true, eSubSurface, G);
    if (pass.Stopped())
        return pass.Cancelled();
    GetTunnelsOfSubSurfaceMethodAndSoil(GeoTunnel::eMair, GeoTunnel::eCohesive, MC);
    if (pass.Stopped())
        return pass.Cancelled();
    GetTunnelsOfSubSurfaceMethodAndSoil(GeoTunnel::eMair, GeoTunnel::eGranular, MG);
    if (pass.Stopped())
        return pass.Cancelled();
    GetTunnelsOfSubSurfaceMethodAndSoil(GeoTunnel::eNewAndBowers, GeoTunnel::eGranular, NG);

    for (int t = 1; t <= NumTunnels(); ++t)
        if (GetTunnel(t).GetPercentLoss() < 0.0)
            pass.Add(CString::Formatted(Message(396).GetString(), t));

    // Pairs of tunnels with the same name, compared exactly.
    int pairs = 0;
    bool namesDone = false;
    for (int a = 1; a <= NumTunnels() && !namesDone; ++a) {
        for (int b = a + 1; b <= NumTunnels(); ++b) {
            if (pass.Stopped())
                return pass.Cancelled();
            if (GetTunnel(a).GetName() != GetTunnel(b).GetName())
                continue;
            if (pairs == kMaxSameNamePairs) {
                pass.Add(CString::Formatted(L"There may be other pairs of tunnels with identical "
                                            L"names. Only %i are listed here.",
                                            kMaxSameNamePairs));
                namesDone = true;
                break;
            }
            ++pairs;
            pass.Add(CString::Formatted(Message(215).GetString(), L"Tunnel", a, b));
        }
    }
    if (pass.Stopped())
        return pass.Cancelled();

    std::set<int> U = MC;
    U.insert(MG.begin(), MG.end());
    const bool subSurfaceData = !P.empty() || !L.empty() || !G.empty();
    if (subSurfaceData && (!MC.empty() || !MG.empty() || !NG.empty())) {
        CString text = L"At least one set of displacement data is of type 'Sub-surface'. ";
        if (!U.empty())
            text += L"At least one tunnel uses the 'Mair et al' sub-surface displacement method. ";
        if (!MG.empty())
            text += L"In addition, at least one tunnel lies in granular soil. ";
        if (!U.empty())
            text += L"The 'Mair et al' method has been derived for calculating sub-surface "
                    L"settlements in cohesive soil. ";
        if (!NG.empty())
            text += L"At least one tunnel uses the 'New and Bowers' sub-surface displacement "
                    L"method and lies in granular soil. ";
        if (!MG.empty() || !NG.empty())
            text += L"Results should be treated with caution. ";
        else if (!U.empty())
            text += L"Horizontal displacement results should be treated with caution. ";
        pass.Add(text);
    }

    // The z/zo range of Mair et al.: the first example found is reported, once.
    const int S = NumStages(true, false);
    bool found = false;
    for (auto t = U.begin(); t != U.end() && !found; ++t) {
        for (int s = 0; s < S && !found; ++s) {
            if (!IsTunnelInStage(*t, s))
                continue;
            for (int d = 1; d <= NumDisplacementData() && !found; ++d) {
                EPointType type;
                int index;
                GetDisplacementTypeIndex(d, type, index);
                const int locations = GetDisplacementData(d).NumDisplacementLocations(true);
                for (int l = 1; l <= locations && !found; ++l) {
                    Vec3<double> p;
                    if (GetDisplacementLocation(type, index, l, p, true) &&
                        WarningMairZOverZ0(s, *t, p)) {
                        pass.Add(CString::Formatted(
                            L"The appropriateness of results should be checked where the 'Mair "
                            L"et al' sub-surface displacement method has been used and "
                            L"displacement data are below the crown of the tunnel or give z/zo "
                            L"ratios that are greater than 0.8.  An example is Tunnel %i and "
                            L"Displacement Data %i.  There may be others.",
                            *t, d));
                        found = true;
                    }
                }
            }
        }
    }
    return pass.Finish();
}

bool ZorvoData::StageErrors(std::vector<CString>& messages, bool& cancelled,
                            const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kStageErrorsCode);
    const int n = NumActualStages(false, false);
    // With smoothing every stage is calculated twice; the second run maps back to the
    // same stage record.
    const int count = IsSmoothingOn() ? 2 * n : n;
    const struct {
        int id;
        int records;
        const CBasicList& (CStage::*list)() const;
    } families[] = {
        {3588, NumTunnels(), &CStage::GetTunnels},
        {3589, 0, &CStage::GetPolygonalExcavations},
        {3590, 0, &CStage::GetCircularExcavations},
    };
    for (int i = 1; i <= count; ++i) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CStage& stage = m_stages.Get(i > n ? i - n : i);
        for (const auto& family : families) {
            for (const auto& range : (stage.*family.list)().Ranges()) {
                // -3 and -2 are special entries that stand for no record. Of a range, the
                // first number that names no record is reported.
                const int first = range.first, last = range.second;
                int bad = 0;
                if (first == last && (first == -3 || first == -2))
                    continue;
                if (first < 1)
                    bad = first;
                else if (last > family.records)
                    bad = std::max(first, family.records + 1);
                else
                    continue;
                pass.Add(CString::Formatted(Message(family.id).GetString(),
                                            stage.Name().GetString(), bad));
            }
        }
    }

    static const wchar_t* const kPlural[3] = {L"Tunnels", L"Polygonal Excavations",
                                              L"Circular Excavations"};
    for (int p = 1; p <= NumStageProperties(); ++p) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CStageProperty& sp = GetStageProperty(p);
        if (sp.GetStage() < 1 || sp.GetStage() > n)
            pass.Add(CString::Formatted(Message(199).GetString(), p, sp.GetStage()));
        if (sp.NumValues() == 0)
            pass.Add(CString::Formatted(Message(190).GetString(), p));
        const int type = sp.GetElementType();
        const int records = type == eElementTunnel ? NumTunnels() : 0;
        const int highest = sp.GetRefs().MaxItem(0);
        if (highest > records)
            pass.Add(CString::Formatted(Message(4072).GetString(), p, ELEMENT_TYPE_STRING_IDS[type],
                                        highest, records, kPlural[type]));
    }
    return pass.Finish();
}

bool ZorvoData::ErrorsExist() const {
    std::vector<CString> messages;
    bool cancelled = false;
    bool any = false;
    any |= TunnelErrors(messages, cancelled);
    any |= DisplacementPointErrors(messages);
    any |= DisplacementLineErrors(messages);
    any |= DisplacementPolylineErrors(messages);
    any |= DisplacementGridErrors(messages);
    any |= StageErrors(messages, cancelled);
    return any;
}

bool ZorvoData::WarningsExist() const {
    std::vector<CString> messages;
    bool cancelled = false;
    bool any = false;
    any |= TunnelWarnings(messages, cancelled);
    any |= DisplacementPointWarnings(messages);
    any |= DisplacementLineWarnings(messages);
    any |= DisplacementPolylineWarnings(messages);
    any |= DisplacementGridWarnings(messages);
    return any;
}

} // namespace Tevra::Data
