#include "export/CBDAExportItems.h"
#include "export/CExportBDResult.h"
#include "export/CExportTransectInfo.h"
#include "export/CUDAExportCSVDisps.h"
#include "export/CUDAExportCSVPR.h"
#include "export/CUDAExportCSVStrains.h"

#include "tests/support/ScratchProfile.h"
#include "tests/support/Texts.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <filesystem>
#include <string>
#include <type_traits>
#include <vector>

using namespace Tevra::Data;
using Tevra::CString;
using Tevra::Testing::ReadTexts;
using Tevra::Testing::ScratchProfile;

namespace {

const Tevra::Testing::TextTable kKeys = ReadTexts("export/ExportColumnKeys.tsv");

std::string Utf8(const wchar_t* key) { return CString(key).ToUtf8(); }

// The keys and switches of an object's columns, in the order of its walk.
template <class Items> std::vector<std::string> Keys(const Items& items) {
    std::vector<std::string> keys;
    items.ForEachColumn([&keys](const wchar_t* key, bool) { keys.push_back(Utf8(key)); });
    return keys;
}
template <class Items> std::vector<bool> Switches(const Items& items) {
    std::vector<bool> on;
    items.ForEachColumn([&on](const wchar_t*, bool b) { on.push_back(b); });
    return on;
}
// Every column whose position in the walk is a multiple of 3 (0 included) off, the rest on.
template <class Items> void SetPattern(Items& items) {
    size_t i = 0;
    items.ForEachColumn([&i](const wchar_t*, bool& on) { on = i++ % 3 != 0; });
}
template <class Items> std::vector<bool> Pattern() {
    Items items;
    SetPattern(items);
    return Switches(items);
}

// The test of one class: its name in the key table, and its getters and setters in the order
// of its own columns (the transect block left out).
template <class Items> struct Accessors {
    const char* name;
    std::vector<std::pair<bool (Items::*)() const, void (Items::*)(bool)>> columns;
};

using BDA = CBDAExportItems;
using Disps = CUDAExportCSVDisps;
using PR = CUDAExportCSVPR;
using Strains = CUDAExportCSVStrains;
using Transect = CExportTransectInfo;
#define COLUMN(C, X)                                                                               \
    { &C::Get##X, &C::Set##X }
// clang-format off
const Accessors<BDA> kBDA = {"CBDAExportItems", {
    COLUMN(BDA, Name), COLUMN(BDA, Polyline), COLUMN(BDA, LH), COLUMN(BDA, VertOffset),
    COLUMN(BDA, Segment), COLUMN(BDA, SegmentStart), COLUMN(BDA, SegmentLength),
    COLUMN(BDA, Curvature), {&BDA::GetDeflectionRatio, &BDA::SetDeflnRatio},
    {&BDA::GetAvgHorzStrain, &BDA::SetAvgHorizStrain}, COLUMN(BDA, MaxTensileStrain),
    COLUMN(BDA, GradHorzDispCurve), COLUMN(BDA, GradVertDispCurve), COLUMN(BDA, MinRadCurv),
    COLUMN(BDA, DamageCat)}};
const Accessors<Disps> kDisps = {"CUDAExportCSVDisps", {
    COLUMN(Disps, Name), COLUMN(Disps, Polyline), COLUMN(Disps, IterationNo),
    COLUMN(Disps, Location), COLUMN(Disps, X), COLUMN(Disps, Y), COLUMN(Disps, Z),
    COLUMN(Disps, DispXN), COLUMN(Disps, DispYN), COLUMN(Disps, DispZN),
    COLUMN(Disps, DispHorizN), COLUMN(Disps, DispPerpN),
    COLUMN(Disps, DispXNminus), COLUMN(Disps, DispYNminus), COLUMN(Disps, DispZNminus),
    COLUMN(Disps, DispHorizNminus), COLUMN(Disps, DispPerpNminus),
    COLUMN(Disps, DispXNplus), COLUMN(Disps, DispYNplus), COLUMN(Disps, DispZNplus),
    COLUMN(Disps, DispHorizNplus), COLUMN(Disps, DispPerpNplus)}};
const Accessors<PR> kPR = {"CUDAExportCSVPR", {
    COLUMN(PR, Name), COLUMN(PR, Polyline), COLUMN(PR, IterationNo), COLUMN(PR, Location),
    COLUMN(PR, X), COLUMN(PR, Y), COLUMN(PR, Z),
    COLUMN(PR, AxialUnfactLeft), COLUMN(PR, AxialFactLeft), COLUMN(PR, FlexuralUnfactLeft),
    COLUMN(PR, FlexuralFactLeft), COLUMN(PR, AxialUnfactRight), COLUMN(PR, AxialFactRight),
    COLUMN(PR, FlexuralUnfactRight), COLUMN(PR, FlexuralFactRight), COLUMN(PR, AxialUnfact),
    COLUMN(PR, AxialFact), COLUMN(PR, FlexuralUnfact), COLUMN(PR, FlexuralFact),
    COLUMN(PR, TotalUnfact), COLUMN(PR, TotalFact), COLUMN(PR, POThreshCheck),
    COLUMN(PR, POLimitCheck), COLUMN(PR, RotationUnfact), COLUMN(PR, RotationFact),
    COLUMN(PR, RotationThresh), COLUMN(PR, RotationLimit), COLUMN(PR, VerticalSagHog)}};
const Accessors<Strains> kStrains = {"CUDAExportCSVStrains", {
    COLUMN(Strains, Name), COLUMN(Strains, Polyline), COLUMN(Strains, Location),
    COLUMN(Strains, X), COLUMN(Strains, Y), COLUMN(Strains, Z),
    COLUMN(Strains, AxialUnfact), COLUMN(Strains, AxialFact), COLUMN(Strains, TensionUnfact),
    COLUMN(Strains, TensionFact), COLUMN(Strains, CompressionUnFact),
    COLUMN(Strains, CompressionFact), COLUMN(Strains, TotalTensionUnfact),
    COLUMN(Strains, TotalTensionFact), COLUMN(Strains, TotalTensionCheck),
    COLUMN(Strains, TotalCompressionUnfact), COLUMN(Strains, TotalCompressionFact),
    COLUMN(Strains, TotalCompressionCheck), COLUMN(Strains, RAD), COLUMN(Strains, RADThreshCheck),
    COLUMN(Strains, RADLimitCheck), COLUMN(Strains, PeakFlexTensStrain)}};
const Accessors<Transect> kTransect = {"CExportTransectInfo", {
    COLUMN(Transect, No), COLUMN(Transect, StartX), COLUMN(Transect, StartY),
    COLUMN(Transect, StartZ), COLUMN(Transect, EndX), COLUMN(Transect, EndY),
    COLUMN(Transect, EndZ)}};
// clang-format on
#undef COLUMN

// The walk of the transect block alone, for the checks that all classes share.
struct TransectWalk {
    CExportTransectInfo info;
    template <class F> void ForEachColumn(F&& f) const {
        for (const auto& c : CExportTransectInfo::Columns())
            f(c.key, info.*c.on);
    }
    template <class F> void ForEachColumn(F&& f) {
        for (const auto& c : CExportTransectInfo::Columns())
            f(c.key, info.*c.on);
    }
};

// Position in the walk of own column i: the transect block's seven stand before kTransectBlockAt.
template <class Items> size_t WalkPosition(size_t i) {
    if constexpr (std::is_same_v<Items, CExportTransectInfo>)
        return i;
    else
        return i < Items::kTransectBlockAt ? i : i + 7;
}

template <class Items> std::vector<bool> WalkOf(const Items& items) {
    if constexpr (std::is_same_v<Items, CExportTransectInfo>)
        return Switches(TransectWalk{items});
    else
        return Switches(items);
}

// Each setter turns off its own column and no other, the one whose key stands at that place
// of the key table; the getter reads it back.
template <class Items> void CheckAccessors(const Accessors<Items>& table) {
    SCOPED_TRACE(table.name);
    const std::vector<std::string>& keys = kKeys.at(table.name);
    for (size_t i = 0; i < table.columns.size(); ++i) {
        Items items;
        (items.*table.columns[i].second)(false);
        EXPECT_FALSE((items.*table.columns[i].first)()) << i;
        std::vector<bool> expected(keys.size(), true);
        expected[WalkPosition<Items>(i)] = false;
        EXPECT_EQ(WalkOf(items), expected)
            << "accessor " << i << ", key " << keys[WalkPosition<Items>(i)];
        (items.*table.columns[i].second)(true);
        EXPECT_TRUE((items.*table.columns[i].first)());
    }
}

} // namespace

TEST(ExportColumns, KeysInTheOrderOfTheCells) {
    EXPECT_EQ(Keys(CBDAExportItems()), kKeys.at("CBDAExportItems"));
    EXPECT_EQ(Keys(CUDAExportCSVDisps()), kKeys.at("CUDAExportCSVDisps"));
    EXPECT_EQ(Keys(CUDAExportCSVPR()), kKeys.at("CUDAExportCSVPR"));
    EXPECT_EQ(Keys(CUDAExportCSVStrains()), kKeys.at("CUDAExportCSVStrains"));
    EXPECT_EQ(Keys(TransectWalk()), kKeys.at("CExportTransectInfo"));
    EXPECT_EQ(kKeys.size(), 5u);
}

TEST(ExportColumns, EachAccessorSwitchesItsOwnColumn) {
    CheckAccessors(kBDA);
    CheckAccessors(kDisps);
    CheckAccessors(kPR);
    CheckAccessors(kStrains);
    CheckAccessors(kTransect);
}

namespace {

// A fresh object has every column on; None() is true only when the transect block is off as
// well: with every own column off (all 15 of the building table), any one of the seven
// transect columns keeps the table from being empty.
template <class Items> void CheckFreshAndNone(const char* name) {
    SCOPED_TRACE(name);
    Items items;
    EXPECT_EQ(Switches(items), std::vector<bool>(kKeys.at(name).size(), true));
    EXPECT_FALSE(items.None());
    for (const auto& column : kTransect.columns) {
        Items allOff;
        allOff.ForEachColumn([](const wchar_t*, bool& on) { on = false; });
        EXPECT_TRUE(allOff.None());
        CExportTransectInfo transect = allOff.GetTransectInfo();
        EXPECT_TRUE(transect.None());
        (transect.*column.second)(true);
        EXPECT_FALSE(transect.None());
        allOff.SetTransectInfo(transect);
        EXPECT_FALSE(allOff.None());
    }
}

// Saved under the table's section in the order of the walk, as 1 and 0; restored into a fresh
// object, the choice comes back whole.
template <class Items> void CheckRoundTrip(const char* name) {
    SCOPED_TRACE(name);
    ScratchProfile profile;
    Items saved;
    SetPattern(saved);
    saved.SaveToRegistry();
    Items restored;
    restored.RestoreFromRegistry();
    EXPECT_EQ(Switches(restored), Pattern<Items>());
    EXPECT_FALSE(restored.GetName()); // position 0 of the pattern
    // A copy carries the transect block with it.
    const Items copy = restored;
    EXPECT_EQ(Switches(copy), Pattern<Items>());

    rapidjson::Document doc;
    const std::string text = profile.Read();
    doc.Parse(text.c_str());
    ASSERT_TRUE(doc.IsObject()) << text;
    ASSERT_TRUE(doc.HasMember(Utf8(Items::kSection).c_str())) << text;
    std::vector<std::string> keys;
    std::vector<bool> values;
    for (const auto& m : doc[Utf8(Items::kSection).c_str()].GetObject()) {
        keys.emplace_back(m.name.GetString());
        values.push_back(m.value.GetInt() == 1);
        EXPECT_TRUE(m.value.GetInt() == 0 || m.value.GetInt() == 1);
    }
    EXPECT_EQ(keys, kKeys.at(name));
    EXPECT_EQ(values, Pattern<Items>());
    EXPECT_TRUE(profile.Warnings().empty());
}

} // namespace

TEST(ExportColumns, FreshObjectHasEveryColumnOnAndNoneCountsTheTransectBlock) {
    CheckFreshAndNone<CBDAExportItems>("CBDAExportItems");
    CheckFreshAndNone<CUDAExportCSVDisps>("CUDAExportCSVDisps");
    CheckFreshAndNone<CUDAExportCSVPR>("CUDAExportCSVPR");
    CheckFreshAndNone<CUDAExportCSVStrains>("CUDAExportCSVStrains");
    EXPECT_FALSE(CExportTransectInfo().None());
}

TEST(ExportColumns, SaveThenRestoreRoundTrip) {
    CheckRoundTrip<CBDAExportItems>("CBDAExportItems");
    CheckRoundTrip<CUDAExportCSVDisps>("CUDAExportCSVDisps");
    CheckRoundTrip<CUDAExportCSVPR>("CUDAExportCSVPR");
    CheckRoundTrip<CUDAExportCSVStrains>("CUDAExportCSVStrains");
}

// With nothing saved, or nothing usable, every column keeps its present choice, whatever it is.
TEST(ExportColumns, RestoreWithNothingSavedLeavesTheChoice) {
    const char* files[] = {nullptr, R"({"BDAExportColumnsX": {"Name": 1}, "Other": {}})",
                           R"({"BDAExportColumns": {"Name": 1)"};
    for (const char* file : files) {
        ScratchProfile profile;
        if (file)
            profile.Write(file);
        CBDAExportItems items;
        SetPattern(items);
        items.RestoreFromRegistry();
        EXPECT_EQ(Switches(items), Pattern<CBDAExportItems>()) << (file ? file : "no file");
        EXPECT_EQ(profile.Warnings().size(), file && file == files[2] ? 1u : 0u);
        if (file)
            EXPECT_EQ(profile.Read(), file);
        else
            EXPECT_FALSE(std::filesystem::exists(profile.Path()));
    }
}

// Any stored non-zero value turns a column on, 0 turns it off, and a key not stored leaves the
// column as it was; the transect block of a table is read from the table's own section.
TEST(ExportColumns, StoredValuesTurnColumnsOnAndOff) {
    ScratchProfile profile;
    profile.Write(R"({"BDAExportColumns": {"Name": 0, "Damage Cat": 7, "Transect": 0,)"
                  R"( "TransectEndZ": -1, "Deflection Ratio": 0},)"
                  R"( "GenericUDAPRExportSettings": {"POThresholdCheck": 0, "Z": 0},)"
                  R"( "GenericUDAStrainsExportSettings": {"CompressionUnfact": 0, "X": 0}})");
    CBDAExportItems bda;
    bda.SetDamageCat(false);
    CExportTransectInfo transect;
    transect.SetEndZ(false);
    transect.SetEndY(false);
    bda.SetTransectInfo(transect);
    bda.RestoreFromRegistry();
    EXPECT_FALSE(bda.GetName());
    EXPECT_TRUE(bda.GetDamageCat());
    EXPECT_FALSE(bda.GetDeflectionRatio());
    EXPECT_FALSE(bda.GetTransectInfo().GetNo());
    EXPECT_TRUE(bda.GetTransectInfo().GetEndZ());
    EXPECT_FALSE(bda.GetTransectInfo().GetEndY()); // not stored: as it was
    EXPECT_TRUE(bda.GetPolyline());

    CUDAExportCSVPR pr;
    pr.RestoreFromRegistry();
    EXPECT_FALSE(pr.GetPOThreshCheck());
    EXPECT_FALSE(pr.GetZ());
    EXPECT_TRUE(pr.GetPOLimitCheck());

    CUDAExportCSVStrains strains;
    strains.RestoreFromRegistry();
    EXPECT_FALSE(strains.GetCompressionUnFact());
    EXPECT_FALSE(strains.GetX());
    EXPECT_TRUE(strains.GetTotalCompressionUnfact());

    CUDAExportCSVDisps disps; // nothing stored for it
    disps.RestoreFromRegistry();
    EXPECT_FALSE(disps.None());
    EXPECT_EQ(Switches(disps), std::vector<bool>(kKeys.at("CUDAExportCSVDisps").size(), true));
}

TEST(ExportColumns, TransectBlockUsesTheSectionItIsGiven) {
    ScratchProfile profile;
    profile.Write(R"({"Kept": {"k": 4}})");
    CExportTransectInfo saved;
    saved.SetStartY(false);
    saved.SaveToRegistry(L"Somewhere");

    CExportTransectInfo elsewhere;
    elsewhere.RestoreFromRegistry(L"Elsewhere");
    EXPECT_FALSE(elsewhere.None());
    EXPECT_TRUE(elsewhere.GetStartY());
    CExportTransectInfo restored;
    restored.RestoreFromRegistry(L"Somewhere");
    EXPECT_FALSE(restored.GetStartY());
    EXPECT_TRUE(restored.GetStartX());
    EXPECT_EQ(Tevra::CProfileStore::Application().GetProfileInt(L"Kept", L"k", 0), 4);
}

// A column choice saved over a malformed settings file is refused with one warning, and the
// file is left as it was.
TEST(ExportColumns, SaveOverAMalformedFileLeavesItAlone) {
    ScratchProfile profile;
    const std::string bad = R"({"BDAExportColumns": {"Name": 0,, }})";
    profile.Write(bad);
    CUDAExportCSVStrains items;
    items.SetRAD(false);
    items.SaveToRegistry();
    items.RestoreFromRegistry();
    items.SaveToRegistry();
    EXPECT_FALSE(items.GetRAD());
    EXPECT_EQ(profile.Read(), bad);
    EXPECT_EQ(profile.Warnings().size(), 1u);
}

TEST(CExportBDResult, FullConstructorKeepsEveryValue) {
    CBuildingDamageResult segment;
    segment.SetStart(2.5);
    segment.SetEnd(9.0);
    segment.SetDamageCategory(3);
    const CExportBDResult row(segment, L"Mill", L"North edge", 4, 2, 7, 5, 1.75, -1.5, 10.0, 20.0,
                              30.0, 40.0, 50.0, 60.0);
    const CExportBDResult copy = row;
    for (const CExportBDResult* r : {&row, &copy}) {
        EXPECT_EQ(r->GetLength(), 6.5);
        EXPECT_EQ(r->GetDamageCategory(), 3);
        EXPECT_EQ(r->GetBuildingName().Str(), L"Mill");
        EXPECT_EQ(r->GetPolylineName().Str(), L"North edge");
        EXPECT_EQ(std::vector<int>({r->GetBuildingNo(), r->GetTransectNo(), r->GetPolylineNo(),
                                    r->GetSegmentNo()}),
                  std::vector<int>({4, 2, 7, 5}));
        EXPECT_EQ(
            std::vector<double>({r->GetLH(), r->GetVertOffset(), r->GetStartX(), r->GetStartY(),
                                 r->GetStartZ(), r->GetEndX(), r->GetEndY(), r->GetEndZ()}),
            std::vector<double>({1.75, -1.5, 10.0, 20.0, 30.0, 40.0, 50.0, 60.0}));
    }
    const CExportBDResult empty;
    EXPECT_EQ(empty.GetBuildingNo(), 0);
    EXPECT_TRUE(empty.GetBuildingName().IsEmpty());
}
