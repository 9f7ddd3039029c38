#include "ZorvoDataHelpers.h"

#include "base/JsonNameID.h"
#include "modelfile/ZorvoDataFamily.h"

#include <cmath>
#include <memory>

namespace Tevra::FileIO {

using namespace Data;

namespace {

// ---- Results of the displacement records ----------------------------------------
// One record per displacement record that holds results: its family and number, then
// every stage as (first, second, samples...) in one list of numbers, each sample as
// x, y, z, the three displacements (m), major and minor strain, angle, point type,
// point group, import match, and whether it carries its record's name.

constexpr int kSampleValues = 13;

CDisplacementData* DisplacementRecord(ZorvoData& doc, int family, int n) {
    switch (family) {
    case eModuleDisplacementPoints:
        return doc.DisplacementPointExists(n) ? &doc.AccessDisplacementPoint(n) : nullptr;
    case eModuleDisplacementLines:
        return doc.DisplacementLineExists(n) ? &doc.AccessDisplacementLine(n) : nullptr;
    case eModuleDisplacementPolylines:
        return doc.DisplacementPolylineExists(n) ? &doc.AccessDisplacementPolyline(n) : nullptr;
    case eModuleDisplacementGrids:
        return doc.DisplacementGridExists(n) ? &doc.AccessDisplacementGrid(n) : nullptr;
    default:
        return nullptr;
    }
}

const CDisplacementData& DisplacementRecord(const ZorvoData& doc, int family, int n) {
    switch (family) {
    case eModuleDisplacementPoints:
        return doc.GetDisplacementPoint(n);
    case eModuleDisplacementLines:
        return doc.GetDisplacementLine(n);
    case eModuleDisplacementPolylines:
        return doc.GetDisplacementPolyline(n);
    default:
        return doc.GetDisplacementGrid(n);
    }
}

// The records with results, as (family, number), in file order.
std::vector<std::pair<int, int>> RecordsWithResults(const ZorvoData& doc) {
    std::vector<std::pair<int, int>> out;
    for (int family = eModuleDisplacementPoints; family <= eModuleDisplacementGrids; ++family)
        for (int n = 1; n <= doc.NumRecord(family); ++n)
            if (!DisplacementRecord(doc, family, n).AllResults().empty())
                out.emplace_back(family, n);
    return out;
}

// The samples go to the file one number at a time: a grid's list, 104 bytes a sample,
// is never held a second time.
void WriteResults(const ZorvoData& doc, CDataFile& f, std::pair<int, int> which) {
    const CDisplacementData& data = DisplacementRecord(doc, which.first, which.second);
    f.WriteInt(jnFamily, which.first);
    f.WriteInt(jnRecord, which.second);
    f.WriteInt(jnStages, static_cast<int>(data.AllResults().size()));
    f.BeginDoubleArray(jnSamples);
    for (const auto& stage : data.AllResults()) {
        // A stage without samples is written 0 x 0 whatever positions it was sized for:
        // the reader refuses positions that hold nothing.
        const size_t second = stage.empty() ? 0 : stage[0].size();
        const size_t first = second ? stage.size() : 0;
        f.PutDouble(static_cast<double>(first));
        f.PutDouble(static_cast<double>(second));
        for (const auto& row : stage) {
            for (const GeoDispResult& r : row) {
                const Vec3<double>& p = r.GetPoint();
                for (double v :
                     {p.x, p.y, p.z, r.GetXdisplacement(), r.GetYdisplacement(),
                      r.GetZdisplacement(), r.GetMajorPrincipalStrain(),
                      r.GetMinorPrincipalStrain(), r.GetPrincipalStrainAngle(),
                      static_cast<double>(r.GetPointType()), static_cast<double>(r.GetPointGroup()),
                      static_cast<double>(r.GetImportMatch()), r.Name().IsEmpty() ? 0.0 : 1.0})
                    f.PutDouble(v);
            }
        }
    }
    f.EndDoubleArray();
}

// The family and number of a displacement record as an engineer names it.
std::string RecordName(int family, int number) {
    const char* kind = family == eModuleDisplacementPoints      ? "displacement point "
                       : family == eModuleDisplacementLines     ? "displacement line "
                       : family == eModuleDisplacementPolylines ? "displacement polyline "
                                                                : "displacement grid ";
    return kind + std::to_string(number);
}

// A whole number from the results list, within [0, limit].
size_t Count(CDataFile& f, double v, size_t limit, const char* what) {
    if (!(v >= 0.0) || v != std::floor(v) || v > static_cast<double>(limit))
        f.Fail(std::string("the results list holds ") + std::to_string(v) + " as the " + what +
               " of a stage, which does not fit the list");
    return static_cast<size_t>(v);
}

int SmallInt(CDataFile& f, double v, const char* what) {
    if (v != std::floor(v) || std::fabs(v) > 1e9)
        f.Fail(std::string("a sample's ") + what + " is " + std::to_string(v) +
               ", which is not a whole number");
    return static_cast<int>(v);
}

void ReadResults(ZorvoData& doc, CDataFile& f, int) {
    int family = 0, number = 0, stages = 0;
    f.ReadInt(jnFamily, family);
    f.ReadInt(jnRecord, number);
    f.ReadInt(jnStages, stages);
    CDisplacementData* data = DisplacementRecord(doc, family, number);
    if (!data)
        f.Fail("results for record " + std::to_string(number) + " of family " +
               std::to_string(family) + ", which the file does not define");
    std::vector<double> v;
    f.ReadDoubleArray(jnSamples, v);
    if (stages < 0 || static_cast<size_t>(stages) > v.size() / 2)
        f.Fail("the results claim " + std::to_string(stages) + " stages, more than the list holds");
    std::vector<CDisplacementData::StageResults> all(static_cast<size_t>(stages));
    size_t at = 0;
    for (size_t k = 0; k < all.size(); ++k) {
        auto& stage = all[k];
        if (v.size() - at < 2)
            f.Fail("the results list ends before all its stages");
        const size_t left = (v.size() - at - 2) / kSampleValues;
        const size_t first = Count(f, v[at], left, "first size");
        const size_t second = Count(f, v[at + 1], first ? left / first : 0, "second size");
        // Positions without samples would cost memory for no number of the file.
        if (first > 0 && second == 0)
            f.Fail("the results of " + RecordName(family, number) + " hold " +
                   std::to_string(first) + " x 0 samples at calculation stage " +
                   std::to_string(k) + "; a stage without samples should be 0 x 0");
        at += 2;
        stage.assign(first, std::vector<GeoDispResult>(second));
        for (auto& row : stage) {
            for (GeoDispResult& r : row) {
                const double* s = &v[at];
                r.SetPoint({s[0], s[1], s[2]});
                r.SetXdisplacement(s[3]);
                r.SetYdisplacement(s[4]);
                r.SetZdisplacement(s[5]);
                r.SetMajorPrincipalStrain(s[6]);
                r.SetMinorPrincipalStrain(s[7]);
                r.SetPrincipalStrainAngle(s[8]);
                r.SetPointType(static_cast<EPointType>(SmallInt(f, s[9], "point type")));
                r.SetPointGroup(SmallInt(f, s[10], "point group"));
                r.SetImportMatch(SmallInt(f, s[11], "import match"));
                if (s[12] != 0.0)
                    r.SetName(data->Name());
                at += kSampleValues;
            }
        }
    }
    if (at != v.size())
        f.Fail("the results list holds " + std::to_string(v.size() - at) +
               " numbers more than its stages");
    data->SetAllResults(std::move(all));
}

// ZorvoDataLegacyImportedDisplacement: the imported sets as files of the first
// generation held them, without match bits. It is read, never written: the sets go to
// "Imported Displacements Sets", and writing both would load every set twice. A later
// generation than it knows is refused with a note, and the other modules still load.
class ZorvoDataLegacyImportedDisplacement : public ZorvoDataFamily {
  public:
    using ZorvoDataFamily::ZorvoDataFamily;
    bool CanWrite() const override { return false; }
    bool RefusesLaterGeneration() const override { return true; }
};

// ZorvoDataDamageCatagoryStrains: the module holds the project's whole list of strains
// records. A new document already holds "Burland Strain Limits" as record 1, and the
// file's records are read after it: appended, they would follow it, the list would grow
// by one at every save and load, and every building's strains number would point one
// record short of its own. So the file's list replaces the document's before its first
// record is read. A file without the module, or with an empty one, keeps the document's
// own record.
class ZorvoDataDamageCategoryStrains : public ZorvoDataFamily {
  public:
    using ZorvoDataFamily::ZorvoDataFamily;
    int ReadData(CDataFile& file, int count, int generation) override {
        if (file.NumRecordsInModule() > 0)
            m_doc.DeleteDamageCategoryStrains(1, m_doc.NumDamageCategoryStrains());
        return ZorvoDataFamily::ReadData(file, count, generation);
    }
};

// An imported set read in a generation, appended to the project's sets.
void ReadImportedSet(ZorvoData& d, CDataFile& f, int generation) {
    CImportedDisplacementsSet r;
    r.Read(f, generation);
    d.SetImportedDisplacementsSet(d.NumImportedDisplacementsSets() + 1, r);
}

} // namespace

ZorvoDataHelpers::ZorvoDataHelpers(ZorvoData& doc) {
    auto add = [&](ZorvoDataFamily::SModule module) {
        m_helpers.push_back(std::make_unique<ZorvoDataFamily>(doc, std::move(module)));
    };

    // ZorvoDataHistory
    add({10, L"File history", 9, [](const ZorvoData& d) { return d.GetHistory().NumRecord(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetHistory().WriteRecord(f, n); },
         [](ZorvoData& d, CDataFile& f, int) { d.AccessHistory().ReadRecord(f); }});
    // ZorvoDataParameters: the general options and the titles.
    add({202001, L"Parameters", 6, [](const ZorvoData&) { return 1; },
         [](const ZorvoData& d, CDataFile& f, int) {
             d.GetGeneral().Write(f);
             d.GetTitles().Write(f);
         },
         [](ZorvoData& d, CDataFile& f, int g) {
             d.AccessGeneral().Read(f, g);
             d.AccessTitles().Read(f);
         }});
    // ZorvoDataDisplacementPoints, Lines, Polylines and Grids.
    add({200011, L"Displacement Points", CDisplacementPoint::GetVersion(),
         [](const ZorvoData& d) { return d.NumDisplacementPoints(false); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetDisplacementPoint(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CDisplacementPoint r;
             r.Read(f, g);
             d.SetDisplacementPoint(d.NumDisplacementPoints(false) + 1, r);
         }});
    add({200012, L"Displacement Lines", CDisplacementLine::GetVersion(),
         [](const ZorvoData& d) { return d.NumDisplacementLines(false); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetDisplacementLine(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CDisplacementLine r;
             r.Read(f, g);
             d.SetDisplacementLine(d.NumDisplacementLines(false) + 1, r);
         }});
    add({200013, L"Displacement Polylines", CDisplacementPolyline::GetVersion(),
         [](const ZorvoData& d) { return d.NumDisplacementPolylines(false); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetDisplacementPolyline(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CDisplacementPolyline r;
             r.Read(f, g);
             d.SetDisplacementPolyline(d.NumDisplacementPolylines(false) + 1, r);
         }});
    add({200014, L"Displacement Grids", CDisplacementGrid::GetVersion(),
         [](const ZorvoData& d) { return d.NumDisplacementGrids(false); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetDisplacementGrid(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CDisplacementGrid r;
             r.Read(f, g);
             d.SetDisplacementGrid(d.NumDisplacementGrids(false) + 1, r);
         }});
    // ZorvoDataLegacyImportedDisplacement and ZorvoDataImportedDisplacementsSets.
    m_helpers.push_back(std::make_unique<ZorvoDataLegacyImportedDisplacement>(
        doc, ZorvoDataFamily::SModule{
                 202120, L"Imported Displacements", CImportedDisplacement::GetVersion(),
                 [](const ZorvoData& d) { return d.NumImportedDisplacementsSets(); },
                 [](const ZorvoData& d, CDataFile& f, int n) {
                     d.GetImportedDisplacementsSet(n).Write(f);
                 },
                 ReadImportedSet}));
    add({202280, L"Imported Displacements Sets", CImportedDisplacementsSet::GetVersion(),
         [](const ZorvoData& d) { return d.NumImportedDisplacementsSets(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetImportedDisplacementsSet(n).Write(f); },
         ReadImportedSet});
    // ZorvoDataTunnels
    add({202010, L"Tunnels", GeoTunnel::GetVersion(),
         [](const ZorvoData& d) { return d.NumTunnels(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetTunnel(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             GeoTunnel r;
             r.Read(f, g);
             d.SetTunnel(d.NumTunnels() + 1, r);
         }});
    // ZorvoDataMines
    add({202020, L"Mine Seams", GeoMine::GetVersion(),
         [](const ZorvoData& d) { return d.NumMines(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetMine(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             GeoMine r;
             r.Read(f, g);
             d.SetMine(d.NumMines() + 1, r);
         }});
    // ZorvoDataVerticalGMCurves and ZorvoDataHorizontalGMCurves: the user's curves; the
    // standard ones come with every project. A read curve takes the module's direction,
    // follows the curves already there and, when it is polynomial, is fitted.
    for (const auto& module : {std::make_pair(202040, GeoGlobal::eVertical),
                               std::make_pair(202050, GeoGlobal::eHorizontal)}) {
        const GeoGlobal::EDirection d = module.second;
        add({module.first,
             d == GeoGlobal::eVertical ? L"Vertical Ground Movement Curves"
                                       : L"Horizontal Ground Movement Curves",
             CGMCurve::GetVersion(),
             [d](const ZorvoData& data) { return data.NumEditableGMCurves(d); },
             [d](const ZorvoData& data, CDataFile& f, int n) {
                 for (const CGMCurve& c : data.GetGMCurves(d))
                     if (c.GetEditable() && --n == 0)
                         return c.Write(f);
             },
             [d](ZorvoData& data, CDataFile& f, int g) {
                 CGMCurve c(true, d);
                 c.Read(f, g);
                 c.SetDirection(d);
                 if (c.GetInterpolationMethod() == CGMCurve::ePolynomial)
                     c.CalculateCoeffs();
                 data.SetGMCurve(d, data.NumGMCurves(d) + 1, c);
             }});
    }
    // ZorvoDataPolygonExcavation and ZorvoDataCircularExcavations: after the curves,
    // which their curve numbers name.
    add({202130, L"Polygonal Excavations", CPolygonalExcavation::GetVersion(),
         [](const ZorvoData& d) { return d.NumPolygonalExcavations(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetPolygonalExcavation(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CPolygonalExcavation r;
             r.Read(f, g);
             d.SetPolygonalExcavation(d.NumPolygonalExcavations() + 1, r);
         }});
    add({202140, L"Circular Excavations", CCircularExcavation::GetVersion(),
         [](const ZorvoData& d) { return d.NumCircularExcavations(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetCircularExcavation(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CCircularExcavation r;
             r.Read(f, g);
             d.SetCircularExcavation(d.NumCircularExcavations() + 1, r);
         }});
    // ZorvoDataDamageCatagoryStrains and ZorvoDataSpecificBuildings: buildings name their
    // strains record by number, so the strains come first.
    m_helpers.push_back(std::make_unique<ZorvoDataDamageCategoryStrains>(
        doc,
        ZorvoDataFamily::SModule{
            202080, L"Damage Category Strains", CDamageCategoryStrains::GetVersion(),
            [](const ZorvoData& d) { return d.NumDamageCategoryStrains(); },
            [](const ZorvoData& d, CDataFile& f, int n) { d.GetDamageCategoryStrains(n).Write(f); },
            [](ZorvoData& d, CDataFile& f, int g) {
                CDamageCategoryStrains r;
                r.Read(f, g);
                d.SetDamageCategoryStrains(d.NumDamageCategoryStrains() + 1, r);
            }}));
    add({202070, L"Specific Buildings", CSpecificBuilding::GetVersion(),
         [](const ZorvoData& d) { return d.NumSpecificBuildings(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetSpecificBuilding(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CSpecificBuilding r;
             r.Read(f, g);
             d.SetSpecificBuilding(d.NumSpecificBuildings() + 1, r);
         }});
    // ZorvoDataGraphicsSettings: whether smoothed results are shown.
    add({202110, L"Graphic Settings", 1, [](const ZorvoData&) { return 1; },
         [](const ZorvoData& d, CDataFile& f, int) {
             f.WriteBool(jnSmoothedDisplay, d.GetGraphicSettings().GetSmoothed());
         },
         [](ZorvoData& d, CDataFile& f, int) {
             bool on = d.GetGraphicSettings().GetSmoothed();
             f.ReadBool(jnSmoothedDisplay, on, false);
             d.AccessGraphicSettings().SetSmoothed(on);
         }});
    // ZorvoDataUtilityDimension and ZorvoDataAcceptanceCriteriaAndParameters: the user's
    // rows alone, for the standard library comes with every project. Read back, they
    // follow the library's rows in the order written, so that the numbers utilities hold
    // stay right; a row read is editable.
    add({202160, L"Utility Dimensions", CUtilityDimension::GetVersion(),
         [](const ZorvoData& d) { return d.NumEditableUtilityDimensions(); },
         [](const ZorvoData& d, CDataFile& f, int n) {
             for (int k = 1; k <= d.NumUtilityDimensions(); ++k)
                 if (d.GetUtilityDimension(k).GetEditable() && --n == 0)
                     return d.GetUtilityDimension(k).Write(f);
         },
         [](ZorvoData& d, CDataFile& f, int g) {
             CUtilityDimension r(true);
             r.Read(f, g);
             d.SetUtilityDimension(d.NumUtilityDimensions() + 1, r);
         }});
    add({202170, L"Acceptance Criteria", CAcceptanceCriteria::GetVersion(),
         [](const ZorvoData& d) { return d.NumEditableAcceptanceCriteria(); },
         [](const ZorvoData& d, CDataFile& f, int n) {
             for (int k = 1; k <= d.NumAcceptanceCriteria(); ++k)
                 if (d.GetAcceptanceCriteria(k).GetEditable() && --n == 0)
                     return d.GetAcceptanceCriteria(k).Write(f);
         },
         [](ZorvoData& d, CDataFile& f, int g) {
             CAcceptanceCriteria r(true);
             r.Read(f, g);
             d.SetAcceptanceCriteria(d.NumAcceptanceCriteria() + 1, r);
         }});
    // ZorvoDataUtilitiesCalculationOptions
    add({202230, L"Utility Calculation Options", CUtilityCalculationOptions::GetVersion(),
         [](const ZorvoData&) { return 1; },
         [](const ZorvoData& d, CDataFile& f, int) { d.GetUtilityCalculationOptions().Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CUtilityCalculationOptions o;
             o.Read(f, g);
             d.SetUtilityCalculationOptions(o);
         }});
    // ZorvoDataReentrantCornerOptions
    add({202290, L"ReEntrantCornerOptions", 1, [](const ZorvoData&) { return 1; },
         [](const ZorvoData& d, CDataFile& f, int) {
             f.WriteBool(jnReEntrantCornerSmoothing,
                         d.GetReEntrantCornerOptions().GetReEntrantCornerSmoothing());
         },
         [](ZorvoData& d, CDataFile& f, int) {
             CReEntrantCornerOptions o = d.GetReEntrantCornerOptions();
             bool on = o.GetReEntrantCornerSmoothing();
             f.ReadBool(jnReEntrantCornerSmoothing, on, false);
             o.SetReEntrantCornerSmoothing(on);
             d.SetReEntrantCornerOptions(o);
         }});
    // ZorvoDataSpecificUtilities: after the options, whose old project-wide choice of
    // continuous polyline segments, when the file's options hold one, becomes each
    // utility's own two flags.
    add({202180, L"Specific Utilities", CSpecificUtility::GetVersion(),
         [](const ZorvoData& d) { return d.NumSpecificUtilities(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetSpecificUtility(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CSpecificUtility r;
             r.Read(f, g);
             if (const auto continuous =
                     d.GetUtilityCalculationOptions().GetPolylineSegmentsContinuous()) {
                 r.SetPolySegContinuousPullouts(*continuous);
                 r.SetPolySegContinuousStrains(*continuous);
             }
             d.SetSpecificUtility(d.NumSpecificUtilities() + 1, r);
         }});
    // ZorvoDataPolylines
    add({202220, L"Polylines", 3, [](const ZorvoData& d) { return d.NumPolylines(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetPolyline(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CPolylinePlus r;
             r.Read(f, g);
             d.SetPolyline(d.NumPolylines() + 1, r);
         }});
    // ZorvoDataGenericBuildings: after the polylines they follow.
    add({202200, L"Generic Buildings", CGenericBuilding::GetVersion(),
         [](const ZorvoData& d) { return d.NumGenericBuildings(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetGenericBuilding(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CGenericBuilding r;
             r.Read(f, g);
             d.SetGenericBuilding(d.NumGenericBuildings() + 1, r);
         }});
    // ZorvoDataGenericUtilities: after the polylines they follow.
    add({202210, L"Generic Utilities", CGenericUtility::GetVersion(),
         [](const ZorvoData& d) { return d.NumGenericUtilities(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetGenericUtility(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CGenericUtility r;
             r.Read(f, g);
             d.SetGenericUtility(d.NumGenericUtilities() + 1, r);
         }});
    // ZorvoDataStages
    add({202240, L"Stages", 1, [](const ZorvoData& d) { return d.NumActualStages(false, false); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetStage(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CStage r;
             r.Read(f, g);
             d.SetStage(d.NumActualStages(false, false) + 1, r);
         }});
    // ZorvoDataStageProperties
    add({202250, L"Stage Properties", 1, [](const ZorvoData& d) { return d.NumStageProperties(); },
         [](const ZorvoData& d, CDataFile& f, int n) { d.GetStageProperty(n).Write(f); },
         [](ZorvoData& d, CDataFile& f, int g) {
             CStageProperty r;
             r.Read(f, g);
             d.SetStageProperty(d.NumStageProperties() + 1, r);
         }});
    // ZorvoDataResults: after every record it refers to. The records with results are
    // listed once when the module is counted, at the start of its writing, and record n
    // is then found in that list: looked up afresh for each, a save took time growing
    // with the square of the number of records.
    auto withResults = std::make_shared<std::vector<std::pair<int, int>>>();
    add({202100, L"Results", CDisplacementGrid::GetVersion(),
         [withResults](const ZorvoData& d) {
             *withResults = RecordsWithResults(d);
             return static_cast<int>(withResults->size());
         },
         [withResults](const ZorvoData& d, CDataFile& f, int n) {
             if (n < 1 || static_cast<size_t>(n) > withResults->size())
                 *withResults = RecordsWithResults(d);
             WriteResults(d, f, (*withResults)[static_cast<size_t>(n - 1)]);
         },
         ReadResults});
}

ZorvoDataElement* ZorvoDataHelpers::KeyFromHelpers(const CString& description) const {
    for (const auto& h : m_helpers)
        if (h->GetDataDescription() == description)
            return h.get();
    return nullptr;
}

} // namespace Tevra::FileIO
