#include "ZorvoData.h"

#include "base/CResourceStrings.h"
#include "sources/SStdGMCurve.h"

#include <algorithm>

namespace Tevra::Data {

namespace {
// The base model's name, and the first of the family titles in the string table.
constexpr int kBaseModelNameID = 3886;
constexpr int kFirstTitleID = 49616;
} // namespace

ZorvoData::ZorvoData() {
    m_stageProperties.SetPrototype(CStageProperty());
    CDamageCategoryStrains unnamed;
    unnamed.SetName(CString());
    m_damageCategoryStrains.SetPrototype(unnamed);
    CreateStandardGMCurves();
    CreateStandardUtilityDimensions();
    CreateStandardAcceptanceCriteria();
    // The one strains record of a new project, after any that stand: Burland's limits.
    CDamageCategoryStrains burland;
    burland.SetName(CDamageCategoryStrains::BURLAND_NAME);
    m_damageCategoryStrains.Insert(m_damageCategoryStrains.Num() + 1, burland);
}

int ZorvoData::GetMaxSubBuildingNameLength() const {
    int longest = 0;
    for (const CSpecificBuilding& b : m_specificBuildings.Items())
        longest = std::max(longest, b.GetSubBuildingName().GetLength());
    return longest;
}

void ZorvoData::CreateStandardGMCurves() {
    using GeoGlobal::EDirection;
    const struct {
        EDirection direction;
        const std::vector<SStdGMCurve>& curves;
        const wchar_t* const* names;
    } lists[] = {
        {GeoGlobal::eHorizontal, SStdGMCurve::Horizontal(), CGMCurve::STD_HORZ_GM_CURVE_NAMES},
        {GeoGlobal::eVertical, SStdGMCurve::Vertical(), CGMCurve::STD_VERT_GM_CURVE_NAMES}};
    for (const auto& list : lists) {
        std::vector<CGMCurve>& curves = m_gmCurves[list.direction].Items();
        curves.assign(list.curves.size(), CGMCurve());
        for (size_t k = 0; k < curves.size(); ++k) {
            const SStdGMCurve& standard = list.curves[k];
            CGMCurve& c = curves[k];
            c.SetName(list.names[k]);
            c.SetDataCoords(standard.data);
            c.SetSurfaceOnly(standard.surfaceOnly);
            c.SetXOrder(standard.xOrder);
            c.SetYOrder(0);
            c.SetSigFigs(standard.sigFigs);
            c.SetInterpolationMethod(standard.linear ? CGMCurve::eLinear : CGMCurve::ePolynomial);
            c.SetEditable(false);
            c.SetDirection(list.direction);
            // Fitted now, from the digitised points; a curve that is never fitted (the
            // clay curve of C760 Fig. 6.15(c)) keeps no coefficients.
            if (standard.xOrder >= 0)
                c.CalculateCoeffs();
        }
    }
}

int ZorvoData::NumEditableGMCurves(GeoGlobal::EDirection d) const {
    const auto& curves = m_gmCurves[d].Items();
    return static_cast<int>(std::count_if(curves.begin(), curves.end(),
                                          [](const CGMCurve& c) { return c.GetEditable(); }));
}

bool ZorvoData::IsGMCurveInUse(GeoGlobal::EDirection d, int n, std::vector<CString>& names) const {
    names.clear();
    const int index = n - 1; // excavations hold 0-based curve indices
    for (int p = 1; p <= NumPolygonalExcavations(); ++p) {
        const CPolygonalExcavation& e = GetPolygonalExcavation(p);
        for (int s = 1; s <= e.NumExcavationCorners(); ++s)
            if (e.GetExcavationCornerRef(s).GetGMCurve(d) == index)
                names.push_back(CString::Formatted(L"XP%i : %s (Side %i)", p,
                                                e.GetName().GetString(), s));
    }
    for (int c = 1; c <= NumCircularExcavations(); ++c) {
        const CCircularExcavation& e = GetCircularExcavation(c);
        if (e.GetGMCurve(d) == index)
            names.push_back(CString::Formatted(L"XC%i : ", c) + e.GetName());
    }
    return !names.empty();
}

bool ZorvoData::IsGMCurveInUse(GeoGlobal::EDirection d, int n) const {
    std::vector<CString> names;
    return IsGMCurveInUse(d, n, names);
}

bool ZorvoData::AnyGMCurvesInUse(GeoGlobal::EDirection d) const {
    for (int n = 1; n <= NumGMCurves(d); ++n)
        if (IsGMCurveInUse(d, n))
            return true;
    return false;
}

bool ZorvoData::GMCurveNeedsTriangulation(GeoGlobal::EDirection d, int n) const {
    const CGMCurve& c = GetGMCurve(d, n);
    return !c.GetSurfaceOnly() && c.GetInterpolationMethod() == CGMCurve::eLinear &&
           IsGMCurveInUse(d, n);
}

bool ZorvoData::IsGMCurveTriangulationNeeded() const {
    for (GeoGlobal::EDirection d : {GeoGlobal::eHorizontal, GeoGlobal::eVertical})
        for (int n = 1; n <= NumGMCurves(d); ++n)
            if (GMCurveNeedsTriangulation(d, n))
                return true;
    return false;
}

void ZorvoData::Empty() { *this = ZorvoData(); }

void ZorvoData::DeleteResults() {
    LodraZorvoData::DeleteResults();
    for (bool combined : {false, true})
        for (int b = 1; b <= NumSpecificBuildings(); ++b) {
            CSpecificBuilding building = GetSpecificBuilding(b);
            building.DeleteBuildingDamageResults(-1, combined);
            SetSpecificBuilding(b, building);
        }
    DeleteBuildingMovementResults(-1);
    DeleteSpecificPulloutAndRotations(-1);
    DeleteSpecificUtilityMovementResults(-1);
    DeleteGenericBDResults(-1, true);
    DeleteGenericBDResults(-1, false);
    DeleteGenericUDResults(-1);
    DeleteGenericUtilityMovementResults(-1);
}

bool ZorvoData::ResultsExist(int stage) const {
    // The displacement data are asked for any stage, whatever stage was asked.
    if (LodraZorvoData::ResultsExist(-1))
        return true;
    for (bool combined : {false, true})
        for (const CSpecificBuilding& b : m_specificBuildings.Items())
            if (b.BuildingDamageResultsExist(stage, combined))
                return true;
    if (SpecificUtilityHorizontalMovementResultsExist(stage, -1))
        return true;
    if (SpecificUtilityPulloutAndRotationsExist(stage, -1))
        return true;
    if (SpecificUtilityStrainsExist(stage, -1))
        return true;
    if (GenericBuildingDamageResultsExist(stage, -1, false))
        return true;
    if (GenericBuildingDamageResultsExist(stage, -1, true))
        return true;
    if (GenericUtilityResultsExist(stage, -1))
        return true;
    return false;
}

int ZorvoData::NumRecord(int module) const {
    switch (module) {
    case eModulePolylines:
        return NumPolylines();
    case eModuleDisplacementPoints:
        return NumDisplacementPoints(false);
    case eModuleDisplacementLines:
        return NumDisplacementLines(false);
    case eModuleDisplacementPolylines:
        return NumDisplacementPolylines(false);
    case eModuleDisplacementGrids:
        return NumDisplacementGrids(false);
    case eModuleTunnels:
        return NumTunnels();
    case eModuleMines:
        return NumMines();
    case eModulePolygonalExcavations:
        return NumPolygonalExcavations();
    case eModuleCircularExcavations:
        return NumCircularExcavations();
    case eModuleDamageCategoryStrains:
        return NumDamageCategoryStrains();
    case eModuleSpecificBuildings:
        return NumSpecificBuildings();
    case eModuleImportedDisplacements:
        return NumImportedDisplacementsSets();
    case eModuleUtilityDimensions:
        return NumUtilityDimensions();
    case eModuleAcceptanceCriteria:
        return NumAcceptanceCriteria();
    case eModuleSpecificUtilities:
        return NumSpecificUtilities();
    case eModuleGenericBuildings:
        return NumGenericBuildings();
    case eModuleGenericUtilities:
        return NumGenericUtilities();
    case eModuleStages:
        return m_stages.Num();
    case eModuleStageProperties:
        return NumStageProperties();
    default:
        return 0;
    }
}

int ZorvoData::TitleID(EModuleID module) {
    if (module < eModuleGeneral || module > eModuleGraphicalInput)
        return 0;
    return kFirstTitleID + (module - eModuleGeneral);
}

void ZorvoData::ResizeResultsAndSetupTransects() {
    const int stages = NumStages(true, false);
    for (int i = 1; i <= NumDisplacementPoints(false); ++i)
        if (GetDisplacementPoint(i).GetCalculate())
            AccessDisplacementPoint(i).ResizeResults(stages);
    for (int i = 1; i <= NumDisplacementLines(false); ++i)
        if (GetDisplacementLine(i).GetCalculate())
            AccessDisplacementLine(i).ResizeResults(stages);
    for (int i = 1; i <= NumDisplacementPolylines(false); ++i)
        if (GetDisplacementPolyline(i).GetCalculate())
            AccessDisplacementPolyline(i).ResizeResults(stages);
    for (int i = 1; i <= NumDisplacementGrids(false); ++i)
        if (GetDisplacementGrid(i).GetCalculate())
            AccessDisplacementGrid(i).ResizeResults(stages);
    // Buildings are sized for the stages before the last; their setters grow the stores
    // to hold the last one as it is written.
    const int buildingStages = NumStages(false, false);
    std::vector<CString> unused;
    for (int b = 1; b <= NumSpecificBuildings(); ++b) {
        if (!ValidSpecificBuilding(b, false, unused))
            continue;
        const int points =
            GetDisplacementLine(GetSpecificBuilding(b).GetLine()).NumDisplacementLocations(true);
        CSpecificBuilding& building = AccessSpecificBuilding(b);
        building.ResizeHorizontalMovementResults(buildingStages, points);
        building.ResizeVerticalMovementResults(buildingStages, points);
    }
    // Specific utilities are sized as the buildings are, to the locations of their line
    // or displacement polyline.
    for (int u = 1; u <= NumSpecificUtilities(); ++u) {
        if (!ValidSpecificUtility(u, false, unused))
            continue;
        const CSpecificUtility& utility = GetSpecificUtility(u);
        const int points =
            utility.GetDisplacementDataType() == UtilityGlobal::eDisplacementPolyline
                ? GetDisplacementPolyline(utility.GetDisplacementPolyline())
                      .NumDisplacementLocations(true)
                : GetDisplacementLine(utility.GetDisplacementLine()).NumDisplacementLocations(true);
        AccessSpecificUtility(u).ResizeHorizontalMovementResults(buildingStages, points);
    }
    // Generic buildings that can be assessed, then generic utilities with no test of
    // their validity: the checks keep a utility that cannot be set out from the run.
    SetupTransects();
}

bool ZorvoData::IsPointInAnyExcavation(const Vec3<double>& point, int stage) const {
    const int n = m_stages.Num();
    const bool all = stage == 0 || stage == n + 1;
    for (int k = 1; k <= NumPolygonalExcavations(); ++k)
        if ((all || IsPolygonalExcavationInStage(k, stage)) &&
            GetPolygonalExcavation(k).IsPointInExcavation(point))
            return true;
    for (int k = 1; k <= NumCircularExcavations(); ++k)
        if ((all || IsCircularExcavationInStage(k, stage)) &&
            GetCircularExcavation(k).IsPointInExcavation(point))
            return true;
    return false;
}

bool ZorvoData::IsAnyPolygonalExcavationCornerStiffened() const {
    for (const CPolygonalExcavation& e : m_polygonalExcavations.Items())
        for (const CExcavationCorner& c : e.GetExcavationCorners())
            if (c.GetStiffened())
                return true;
    return false;
}

bool ZorvoData::IsSmoothingOptionRelevantForStage(int stage) const {
    if (!IsSmoothingOn() || stage > m_stages.Num() || stage < 1)
        return false;
    const CBasicList& list = GetStage(stage).GetPolygonalExcavations();
    if (list.IsEmpty())
        return false;
    return IsSmoothingOptionRelevantForExcavationList(list);
}

bool ZorvoData::IsSmoothingOptionRelevantForExcavationList(const CBasicList& polygonal) const {
    for (int k = 1; k <= NumPolygonalExcavations(); ++k) {
        if (!polygonal.IsIncluded(k, 0))
            continue;
        const CPolygonalExcavation& e = GetPolygonalExcavation(k);
        std::vector<int> corners;
        e.GetReEntrantCorners(corners);
        for (int c : corners) {
            if (!e.ExcavationCornerExists(c + 1))
                continue;
            const CExcavationCorner& corner = e.GetExcavationCornerRef(c + 1);
            if (corner.GetPreviousEdge_TransitionZoneFraction() > 0.0 ||
                corner.GetNextEdge_TransitionZoneFraction() > 0.0)
                return true;
        }
    }
    return false;
}

void ZorvoData::ClearIntersectingExcavations() {
    for (CPolygonalExcavation& e : m_polygonalExcavations.Items())
        e.ClearIntersectingExcavations();
    for (CCircularExcavation& e : m_circularExcavations.Items())
        e.ClearIntersectingExcavations();
}

// ---- Stages ----------------------------------------------------------------

int ZorvoData::NumActualStages(bool withBase, bool enabledOnly) const {
    int n = 0;
    if (enabledOnly) {
        for (const CStage& s : m_stages.Items())
            n += s.GetEnabled() ? 1 : 0;
    } else {
        n = m_stages.Num();
    }
    return n + (withBase ? 1 : 0);
}

int ZorvoData::NumStages(bool withBase, bool enabledOnly) const {
    const int count = NumActualStages(withBase, enabledOnly);
    return IsSmoothingOn() ? 2 * count : count;
}

int ZorvoData::GetBaseStageIndex() const {
    return (GetGraphicSettings().GetSmoothed() && IsSmoothingOn()) ? m_stages.Num() + 1 : 0;
}

bool ZorvoData::IsBaseStage(int index) const { return index == 0 || index == m_stages.Num() + 1; }

bool ZorvoData::StageExists(int index) const {
    const int n = m_stages.Num();
    return index >= 1 && index <= (IsSmoothingOn() ? 2 * n : n);
}

const CStage& ZorvoData::GetStage(int index, bool shift) const {
    const int n = m_stages.Num();
    if (index <= n)
        return m_stages.Get(index);
    return m_stages.Items()[static_cast<size_t>(index - n - 2 + (shift ? 1 : 0))];
}

int ZorvoData::StageElement(int index) const {
    const int n = m_stages.Num();
    return index > n ? index - n - 2 : index - 1;
}

int ZorvoData::GetStageIndexFromEnabledStageIndex(int e) const {
    const int n = m_stages.Num();
    if (e == 0 || e == n + 1 || n < 2)
        return 0;
    int enabled = 0;
    for (int i = 1; i < n; ++i) {
        if (m_stages.Get(i).GetEnabled())
            ++enabled;
        if (enabled == e)
            return i;
    }
    return 0;
}

CString ZorvoData::GetStageName(int index) const {
    const int n = m_stages.Num();
    if (IsBaseStage(index))
        return CResourceStrings::Load(kBaseModelNameID);
    if (index < 1 || index > NumStages(true, false) - 1)
        return CString();
    const int number = index > n ? index - n - 1 : index;
    CString name = m_stages.Get(number).Name();
    if (index > n)
        name += L"(Smoothed)";
    return name;
}

void ZorvoData::GetStageDescription(CString& out, int index, bool prefix, bool number) const {
    const int n = m_stages.Num();
    const CString name = GetStageName(index);
    if (IsBaseStage(index)) {
        out = prefix ? CString(L"Stage: ") + name : name;
        return;
    }
    const int m = index > n ? index - (n + 1) : index;
    if (!prefix && !number)
        out = name;
    else if (!prefix)
        out.Format(L"%i: %s", m, name.GetString());
    else if (!number)
        out.Format(L"Stage: %s", name.GetString());
    else
        out.Format(L"Stage %i: %s", m, name.GetString());
}

void ZorvoData::GetStagesDescriptions(bool fullRange, std::vector<CString>& descriptions,
                                      bool prefix, bool number, bool addAll) const {
    descriptions.clear();
    const int n = m_stages.Num();
    int first = 0, last = n;
    if (fullRange) {
        last = NumStages(true, false) - 1;
    } else if (GetGraphicSettings().GetSmoothed() && IsSmoothingOn()) {
        first = n + 1;
        last = 2 * n + 1;
    }
    for (int i = first; i <= last; ++i) {
        CString text;
        GetStageDescription(text, i, prefix, number);
        descriptions.push_back(text);
    }
    if (addAll)
        descriptions.emplace_back(L"All");
}

int ZorvoData::MaxStageNameLength() const {
    int longest = 0;
    for (const CStage& s : m_stages.Items())
        longest = std::max(longest, s.Name().GetLength());
    return longest + 10;
}

bool ZorvoData::IsTunnelInStage(int tunnel, int index) const {
    if (IsBaseStage(index))
        return true;
    return m_stages.Items()[static_cast<size_t>(StageElement(index))].GetTunnels().IsIncluded(
        tunnel, 0);
}

bool ZorvoData::IsPolygonalExcavationInStage(int excavation, int index) const {
    if (IsBaseStage(index))
        return true;
    return m_stages.Items()[static_cast<size_t>(StageElement(index))]
        .GetPolygonalExcavations()
        .IsIncluded(excavation, 0);
}

bool ZorvoData::IsCircularExcavationInStage(int excavation, int index) const {
    if (IsBaseStage(index))
        return true;
    return m_stages.Items()[static_cast<size_t>(StageElement(index))]
        .GetCircularExcavations()
        .IsIncluded(excavation, 0);
}

std::vector<int> ZorvoData::ImportedSetsToInclude(int index) const {
    std::vector<int> sets;
    const bool all = IsBaseStage(index);
    for (int k = 1; k <= NumImportedDisplacementsSets(); ++k)
        if (all || m_stages.Items()[static_cast<size_t>(StageElement(index))]
                       .GetImportedDisplacementSets()
                       .IsIncluded(k, 0))
            sets.push_back(k);
    return sets;
}

double ZorvoData::GetTunnelDiameterInStage(int tunnel, int index) const {
    return GetStageDependentProperty(index, eElementTunnel, tunnel, eTunnelDiameter, 1);
}

double ZorvoData::GetStageDependentProperty(int stage, EElementType type, int element, int property,
                                            int position) const {
    // The record's own value where the element takes part in the stage.
    double value = 0.0;
    if (type == eElementTunnel && IsTunnelInStage(element, stage)) {
        value = GetTunnel(element).GetDiameter();
    } else if (type == eElementPolygonalExcavation && IsPolygonalExcavationInStage(element, stage)) {
        const std::vector<double>& levels = GetPolygonalExcavation(element).GetBaseLevels();
        const int count = static_cast<int>(levels.size());
        if (count > 0)
            value = levels[static_cast<size_t>(std::min(count, position) - 1)];
    } else if (type == eElementCircularExcavation && IsCircularExcavationInStage(element, stage)) {
        value = GetCircularExcavation(element).GetBaseLevel();
    }

    // The index is compared as it stands: smoothed indices above n + 1 meet no property.
    for (const CStageProperty& p : m_stageProperties.Items()) {
        if (p.GetStage() != stage || p.GetElementType() != type ||
            !p.GetRefs().IsIncluded(element, 0))
            continue;
        if (property != 0 || p.NumValues() == 0)
            continue;
        const int index =
            type == eElementPolygonalExcavation ? std::min(p.NumValues(), position) - 1 : 0;
        value = p.GetValues()[static_cast<size_t>(index)];
    }
    return value;
}

// ---- Tunnel geometry -------------------------------------------------------

Vec2<double> ZorvoData::LocalXYReTunnelFromGlobalXY(const Vec2<double>& global,
                                                    const GeoTunnel& t) {
    const double X1 = t.GetXCentreLine1(), Y1 = t.GetYCentreLine1();
    const double L = t.GetPlanLength();
    const double cx = (t.GetXCentreLine2() - X1) / L;
    const double cy = (t.GetYCentreLine2() - Y1) / L;
    return {(global.y - Y1) * cy + (global.x - X1) * cx,
            (global.y - Y1) * cx - (global.x - X1) * cy};
}

ZorvoData::SLevels ZorvoData::GetLevelsForTunnelCalcs(int tunnel, int index,
                                                      const Vec2<double>& local,
                                                      const double& z) const {
    const GeoTunnel& t = GetTunnel(tunnel);
    return LevelsForTunnel(t, t.GetPlanLength(), GetTunnelDiameterInStage(tunnel, index), local, z);
}

bool ZorvoData::WarningMairZOverZ0(int stage, int tunnel, const Vec3<double>& point) const {
    return MairZOverZ0OutOfRange(GetTunnel(tunnel), GetTunnelDiameterInStage(tunnel, stage), point);
}

bool ZorvoData::MairZOverZ0OutOfRange(const GeoTunnel& t, double D, const Vec3<double>& point) {
    const Vec2<double> local = LocalXYReTunnelFromGlobalXY({point.x, point.y}, t);
    const SLevels levels = LevelsForTunnel(t, t.GetPlanLength(), D, local, point.z);
    if (t.GetSubSurfaceMethod() != GeoTunnel::eMair)
        return false;
    // A level less a height, over the ground's height above the axis: the test as it
    // has always been made.
    if ((levels.groundLevel - levels.pointAboveAxis) / levels.groundAboveAxis > 0.8)
        return true;
    return D * 0.5 + levels.axisLevel > point.z; // below the crown
}

void ZorvoData::GetTunnelsOfSubSurfaceMethodAndSoil(GeoTunnel::ESubSurfaceMethod method,
                                                    GeoTunnel::ESoilType soil,
                                                    std::set<int>& out) const {
    for (int t = 1; t <= NumTunnels(); ++t)
        if (GetTunnel(t).GetSubSurfaceMethod() == method && GetTunnel(t).GetSoilType() == soil)
            out.insert(t);
}

bool ZorvoData::operator==(const ZorvoData& o) const {
    return SameBase(o) && m_general == o.m_general && m_stages == o.m_stages &&
           m_stageProperties == o.m_stageProperties && m_tunnels == o.m_tunnels &&
           m_mines == o.m_mines && m_polygonalExcavations == o.m_polygonalExcavations &&
           m_circularExcavations == o.m_circularExcavations && m_gmCurves[0] == o.m_gmCurves[0] &&
           m_gmCurves[1] == o.m_gmCurves[1] && m_cornerOptions == o.m_cornerOptions &&
           m_damageCategoryStrains == o.m_damageCategoryStrains &&
           m_specificBuildings == o.m_specificBuildings &&
           m_genericBuildings == o.m_genericBuildings &&
           m_utilityDimensions == o.m_utilityDimensions &&
           m_acceptanceCriteria == o.m_acceptanceCriteria &&
           m_specificUtilities == o.m_specificUtilities &&
           m_genericUtilities == o.m_genericUtilities &&
           m_utilityCalculationOptions == o.m_utilityCalculationOptions;
}

} // namespace Tevra::Data
