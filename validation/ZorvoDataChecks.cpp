// The check passes of the project as a whole, its tunnels and its stages.
#include "document/ZorvoData.h"

#include "base/CResourceStrings.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <unordered_set>

namespace Tevra::Data {

namespace {

// Pass codes sent to the host window when a pass found something.
constexpr long long kGeneralErrorsCode = 6;
constexpr long long kTunnelErrorsCode = 7;
constexpr long long kStageErrorsCode = 18;

// Numbers of one range of a stage's list that are looked at for naming no record: a range
// that runs far past the records would otherwise fill the list with texts that say
// nothing more.
constexpr int kMostEntriesPerRange = 1000;

// Plan length (metres) below which a tunnel is vertical.
constexpr double kMinTunnelPlanLength = 0.001;
// Pairs of tunnels with one name reported before the pass gives up listing them.
constexpr int kMaxSameNamePairs = 25;

CString Message(int id) { return CResourceStrings::Load(id); }

// Coordinates (metres) far beyond any site, yet small enough that no sum or difference
// of a few of them, nor its product with a direction cosine, overflows.
constexpr double kOrdinaryCoordinate = 1e150;

bool Ordinary(double v) { return std::fabs(v) <= kOrdinaryCoordinate; } // false for NaN
bool Ordinary(const Vec3<double>& p) { return Ordinary(p.x) && Ordinary(p.y) && Ordinary(p.z); }

std::uint64_t Bits(double v) {
    std::uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    return bits;
}

// Whether the z/zo test of a tunnel depends on a point's level alone. On a level tunnel
// with level ground the axis and ground levels are the same before, along and beyond
// the tunnel, as long as the point's distance along it is a number, which a plan length
// above 0 and ordinary coordinates ensure. Ground at the axis level is left out: the
// test then divides by a zero whose sign may differ along the tunnel.
bool LevelAloneDecides(const GeoTunnel& t) {
    const double Z = t.GetZCentreLine1(), G = t.GetGroundLevel1();
    return t.GetZCentreLine2() == Z && t.GetGroundLevel2() == G && std::isfinite(Z) &&
           std::isfinite(G) && G != Z && Ordinary(t.GetXCentreLine1()) &&
           Ordinary(t.GetYCentreLine1()) && Ordinary(t.GetXCentreLine2()) &&
           Ordinary(t.GetYCentreLine2()) && t.GetPlanLength() > 0.0;
}

// A search that asks whether to stop once in kStepsPerEventTest steps.
struct SSearch {
    const std::function<bool()>& stop;
    long long steps = 0;
    bool stopped = false;
    bool Stop() {
        if (++steps % kStepsPerEventTest == 0 && stop && stop())
            stopped = true;
        return stopped;
    }
};

// Whether any location of displacement record d is out of the Mair et al. range of
// tunnel t of diameter D (metres).
//
// At one plan position the test is the same at every level below some level, or above
// it, or both, and at none between: the crown test holds below a level, and the z/zo
// ratio falls (or, with the ground below the axis, rises) steadily as the point rises,
// rounding included. So of a run of locations at one plan position whose levels rise or
// fall steadily, only the two ends need testing. That is each row of a grid swept
// upwards, and, where the level alone decides, a whole line or grid, whose lowest and
// highest locations are its first and last (a grid's level changes along its base line
// or across it, not both). The answer is the one of testing every location; only the
// time differs. Other records are walked location by location.
bool AnyOutOfMairRange(const ZorvoData& doc, const GeoTunnel& t, double D, int d, SSearch& search) {
    EPointType type;
    int index;
    doc.GetDisplacementTypeIndex(d, type, index);
    auto outAt = [&](long long l) {
        Vec3<double> p;
        return doc.GetDisplacementLocation(type, index, static_cast<int>(l), p, true) &&
               ZorvoData::MairZOverZ0OutOfRange(t, D, p);
    };
    if (type == eLine) {
        const CDisplacementLine& line = doc.GetDisplacementLine(index);
        const int count = line.NumDisplacementLocations(true);
        if (line.GetIntervalsAlongLine() >= 1 && count > 0 && LevelAloneDecides(t) &&
            Ordinary(line.GetPoint1()) && Ordinary(line.GetPoint2()))
            return outAt(1) || outAt(count);
    } else if (type == eGrid) {
        const CDisplacementGrid& g = doc.GetDisplacementGrid(index);
        const int A = g.GetIntervalsAlongLine(), B = g.GetIntervalsAlongExtrusion();
        const long long count = g.NumDisplacementLocations(true), row = B + 1LL;
        const bool swept = g.GetExtrusionDirection() != eExtrudeX &&
                           g.GetExtrusionDirection() != eExtrudeY; // upwards
        if (A >= 1 && B >= 1 && count > 0 && Ordinary(g.GetPoint1()) && Ordinary(g.GetPoint2()) &&
            Ordinary(g.GetExtrusionDistance())) {
            if (LevelAloneDecides(t))
                return outAt(1) || outAt(count);
            if (swept) {
                for (long long first = 1; first <= count; first += row) {
                    if (search.Stop())
                        return false;
                    if (outAt(first) || outAt(first + B))
                        return true;
                }
                return false;
            }
        }
    }
    return doc.VisitDisplacementLocations(d, [&](int, const Vec3<double>& p) {
        return search.Stop() || ZorvoData::MairZOverZ0OutOfRange(t, D, p);
    }) && !search.stopped;
}

} // namespace

bool ZorvoData::FindMairZOverZ0Example(const std::set<int>& tunnels,
                                       const std::function<bool()>& stop, int& tunnel, int& data,
                                       bool& stopped) const {
    SSearch search{stop};
    stopped = false;
    const int S = NumStages(true, false);
    for (int t : tunnels) {
        // The test sees the stage through the tunnel's diameter alone: a diameter already
        // searched in vain is not searched again.
        std::unordered_set<std::uint64_t> searched;
        for (int s = 0; s < S; ++s) {
            if (!IsTunnelInStage(t, s))
                continue;
            const double D = GetTunnelDiameterInStage(t, s);
            if (!searched.insert(Bits(D)).second)
                continue;
            for (int d = 1; d <= NumDisplacementData(); ++d) {
                if (!search.Stop() && AnyOutOfMairRange(*this, GetTunnel(t), D, d, search)) {
                    tunnel = t;
                    data = d;
                    return true;
                }
                if (search.stopped) {
                    stopped = true;
                    return false;
                }
            }
        }
    }
    return false;
}

bool ZorvoData::GeneralErrors(std::vector<CString>& messages, bool& cancelled,
                              const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"errors", kGeneralErrorsCode);
    if (pass.Stopped())
        return pass.Cancelled();
    const int importedSets = NumImportedDisplacementsSets();
    if (m_general.GetProblemType() == eGroundMovement) {
        if (NumTunnels() + NumPolygonalExcavations() + NumCircularExcavations() == 0 &&
            importedSets == 0)
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

    for (int t = 1; t <= NumTunnels(); ++t) {
        if (t % kStepsPerEventTest == 0 && pass.Stopped())
            return pass.Cancelled();
        if (GetTunnel(t).GetPercentLoss() < 0.0)
            pass.Add(CString::Formatted(Message(396).GetString(), t));
    }

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
    int tunnel = 0, data = 0;
    bool stopped = false;
    if (FindMairZOverZ0Example(
            U, [&pass] { return pass.Stopped(); }, tunnel, data, stopped))
        pass.Add(CString::Formatted(
            L"The appropriateness of results should be checked where the 'Mair et al' "
            L"sub-surface displacement method has been used and displacement data are below "
            L"the crown of the tunnel or give z/zo ratios that are greater than 0.8.  An "
            L"example is Tunnel %i and Displacement Data %i.  There may be others.",
            tunnel, data));
    if (stopped)
        return pass.Cancelled();
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
        {3589, NumPolygonalExcavations(), &CStage::GetPolygonalExcavations},
        {3590, NumCircularExcavations(), &CStage::GetCircularExcavations},
    };
    long long entries = 0;
    for (int i = 1; i <= count; ++i) {
        if (pass.Stopped())
            return pass.Cancelled();
        const CStage& stage = m_stages.Get(i > n ? i - n : i);
        for (const auto& family : families) {
            // A number that stands in the list twice, alone or in ranges, is one entry.
            std::unordered_set<long long> reported;
            for (const auto& range : (stage.*family.list)().Ranges()) {
                // Every number of a range that names no record is an entry of its own. Those
                // below 1 and those past the last record are visited, not the good ones
                // between, so that "1 to 100000" costs nothing; -3 and -2 are special
                // entries that stand for no record and pass.
                const long long first = range.first, last = range.second;
                const long long runs[2][2] = {{first, std::min(last, 0LL)},
                                              {std::max(first, family.records + 1LL), last}};
                int visited = 0;
                for (const auto& run : runs) {
                    for (long long k = run[0]; k <= run[1] && visited < kMostEntriesPerRange;
                         ++k, ++visited) {
                        if (++entries % kStepsPerEventTest == 0 && pass.Stopped())
                            return pass.Cancelled();
                        if (k == -3 || k == -2 || !reported.insert(k).second)
                            continue;
                        pass.Add(CString::Formatted(Message(family.id).GetString(),
                                                    stage.Name().GetString(), static_cast<int>(k)));
                    }
                }
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
        const int records = type == eElementTunnel                ? NumTunnels()
                            : type == eElementPolygonalExcavation ? NumPolygonalExcavations()
                                                                  : NumCircularExcavations();
        const int highest = sp.GetRefs().MaxItem(0);
        if (highest > records)
            pass.Add(CString::Formatted(Message(4072).GetString(), p, ELEMENT_TYPE_STRING_IDS[type],
                                        highest, records, kPlural[type]));
    }
    return pass.Finish();
}

bool ZorvoData::StageWarnings(std::vector<CString>& messages, bool& cancelled,
                              const SCheckArgs& args) const {
    CCheckPass pass(messages, cancelled, args, L"warnings", 0);
    if (pass.Stopped())
        return pass.Cancelled();
    // Finds nothing: every way a stage property can go wrong is an error above (a missing
    // stage, no values, a missing element), and a listed element that its stage does not
    // include merely goes unused, as one list written for several stages is meant to.
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
    any |= ExcavationErrors(messages, cancelled);
    any |= BuildingErrors(messages, cancelled);
    // The generic building errors go here.
    any |= UtilityErrors(messages, cancelled);
    any |= GenericUtilityErrors(messages, cancelled);
    // The rail track errors go here.
    any |= StageErrors(messages, cancelled);
    return any;
}

bool ZorvoData::WarningsExist() {
    std::vector<CString> messages;
    bool cancelled = false;
    bool any = false;
    any |= TunnelWarnings(messages, cancelled);
    any |= DisplacementPointWarnings(messages);
    any |= DisplacementLineWarnings(messages);
    any |= DisplacementPolylineWarnings(messages);
    any |= DisplacementGridWarnings(messages);
    any |= ExcavationWarnings(messages, cancelled);
    any |= BuildingWarnings(messages, cancelled);
    // The generic building warnings go here.
    any |= UtilityWarnings(messages, cancelled);
    any |= GenericUtilityWarnings(messages, cancelled);
    // The rail track warnings go here.
    // The building warnings run a second time, last, as they always have; the answer is
    // the same.
    any |= BuildingWarnings(messages, cancelled);
    return any;
}

} // namespace Tevra::Data
