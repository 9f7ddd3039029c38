// The utilities' tables: one joint and one strain row worked by hand through every
// factor, verdict and unit, and the generic tables' choice of columns.
#include "document/ZorvoData.h"
#include "export/CUDAExportCSVDisps.h"
#include "export/CUDAExportCSVPR.h"
#include "export/CUDAExportCSVStrains.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

using namespace Tevra;
using namespace Tevra::Data;

namespace {

// Line 1 runs 10 m along X at level 10, in 10 intervals; "Main" lies on it from 2 m to
// 8 m, so that 3 m along the main is the point (5, 0, 10). Its criteria: pullouts
// factored by 0.5 (axial) and 0.25 (flexural), rotation by 2, axial strain by 0.5 in
// tension, flexure by 3 in tension; pullout threshold 1 mm and limit 10 mm, rotation
// threshold 0.1 degree and no limit, tension 120 and compression 100 microstrain, radius
// threshold 1000 m and limit 400 m.
ZorvoData OneMain() {
    ZorvoData doc;
    CDisplacementLine line(L"Spine");
    line.SetPoint1({0.0, 0.0, 10.0});
    line.SetPoint2({10.0, 0.0, 10.0});
    line.SetIntervalsAlongLine(10);
    doc.SetDisplacementLine(1, line);

    CAcceptanceCriteria c(true);
    c.SetPulloutRF_Axial(0.5);
    c.SetPulloutRF_Flexural(0.25);
    c.SetRotationFactor(2.0);
    c.SetAxialStrainRF_Tension(0.5);
    c.SetAxialStrainRF_Compression(1.0);
    c.SetBendingFactorTension(3.0);
    c.SetBendingFactorCompression(1.0);
    c.SetPullout_Threshold(0.001);
    c.SetPullout_Threshold_Used(true);
    c.SetPullout_Limit(0.01);
    c.SetPullout_Limit_Used(true);
    c.SetRotation_Threshold(0.1);
    c.SetRotation_Threshold_Used(true);
    c.SetRotation_Limit_Used(false);
    c.SetAllowableStrain_Tension(120.0);
    c.SetAllowableStrain_Tension_Used(true);
    c.SetAllowableStrain_Compression(100.0);
    c.SetAllowableStrain_Compression_Used(true);
    c.SetRAD_Threshold(1000.0);
    c.SetRAD_Threshold_Used(true);
    c.SetRAD_Limit(400.0);
    c.SetRAD_Limit_Used(true);
    const int criteria = doc.NumAcceptanceCriteria() + 1;
    doc.SetAcceptanceCriteria(criteria, c);

    CSpecificUtility u;
    u.SetName(L"Main");
    u.SetLine(1);
    u.SetLineStart(2.0);
    u.SetLineEnd(8.0);
    u.SetCriteria(criteria);
    for (int k = 1; k <= 11; ++k)
        u.SetHorizontalMovementResult(0, k, GeoDispResult());
    // Left 1 mm, right 4 mm, flexural 2 mm, rotation 0.01 rad, sagging.
    CPulloutAndRotation joint;
    joint.SetLocation(3.0);
    joint.SetPullout_Axial_Left(0.001);
    joint.SetPullout_Axial_Right(0.004);
    joint.SetPullout_Flexural(0.002);
    joint.SetRotation(0.01);
    joint.SetVerticalCurvature(GeoGlobal::eSagging);
    u.SetPulloutAndRotationIteration(0, 1, {joint});
    // 100 microstrain axial, 50 flexural, radius 500 m.
    CUtilityStrain strain;
    strain.SetLocation(3.0);
    strain.SetAxialStrain(0.0001);
    strain.SetFlexuralStrain(0.00005);
    strain.SetRadiusofCurvature(500.0);
    u.SetUtilityStrain(0, 1, strain);
    doc.SetSpecificUtility(1, u);
    return doc;
}

std::string Written(void (ZorvoData::*write)(CStdioFile&, const CUnit&, const SCSVExportData&)
                        const) {
    const ZorvoData doc = OneMain();
    std::ostringstream out;
    CStdioFile file(out);
    SCSVExportData data;
    data.numStages = 1;
    (doc.*write)(file, CUnit(), data);
    file.Close();
    return out.str();
}

} // namespace

TEST(UtilityCsv, JointRowThroughEveryFactorAndVerdict) {
    const std::string lead = "UDA_SPECIFIC_RESULT_PULLOUTS_ROTATIONS,0,Specific Utility 1 : "
                             "Main,Line 1 : Spine,1,3,5,0,10,";
    // Left, right: axial unfactored and by 0.5, flexural unfactored and by 0.25; the
    // joint: right - left, twice the flexural; totals 7 mm and 1.5 + 1 = 2.5 mm, over the
    // 1 mm threshold, under the 10 mm limit; rotation 0.573 degrees, factored 1.146, over
    // its threshold, no limit.
    const std::string cells = "0.001,0.0005,0.002,0.0005,0.004,0.002,0.002,0.0005,0.003,0.0015,"
                              "0.004,0.001,0.007,0.0025,Fails,OK,0.57295779513082,"
                              "1.1459155902616,Fails,-,Sagging\n";
    const std::string text = Written(&ZorvoData::WriteCSVUDAPulloutsRotations);
    EXPECT_NE(text.find("\n" + lead + cells), std::string::npos) << text;
    EXPECT_EQ(text.rfind("UDA_SPECIFIC_RESULT_PULLOUTS_ROTATIONS,Stage,Name,Polyline,"
                         "IterationNo,Location,X,Y,Z,AxialUnfactLeft,",
                         0),
              0u);
}

TEST(UtilityCsv, StrainRowThroughEveryFactorAndVerdict) {
    // Axial 100, by 0.5: 50; flexure 50, by 3 in tension: 150, in compression -50; totals
    // in tension 150 and 200 (over 120), in compression 100 - 50 and 50 - 50 (a
    // compressive fibre not in compression passes); radius 500 m under the 1000 m
    // threshold and over the 400 m limit; the tensile fibre's peak 200.
    const std::string row = "UDA_SPECIFIC_RESULT_STRAINS,0,Specific Utility 1 : Main,Line 1 : "
                            "Spine,3,5,0,10,100,50,50,150,-50,-50,150,200,Fails,50,0,OK,500,"
                            "Fails,OK,200\n";
    const std::string text = Written(&ZorvoData::WriteCSVUDAStrains);
    EXPECT_NE(text.find("\n" + row), std::string::npos) << text;
}

TEST(UtilityCsv, SampledMovementsAtTheJoint) {
    const std::string text = Written(&ZorvoData::WriteCSVUDACoodsDisps);
    // A default location record: nothing was sampled, so every movement is not a number.
    EXPECT_NE(text.find("\nUDA_SPECIFIC_RESULT_COODS_DISPS,0,Specific Utility 1 : Main,Line 1 "
                        ": Spine,1,3,5,0,10,nan,"),
              std::string::npos)
        << text;
}

TEST(UtilityCsv, GenericTablesTakeTheChosenColumnsWithTheTransectAfterThePolyline) {
    // A 20 m route along X sets out transects every 10 m, 10 m long across it, from
    // y = -5 (to the right of the route) to +5; transect 2, at x = 10, holds one joint 3 m
    // along it.
    ZorvoData doc;
    CPolylinePlus route(L"Route");
    route.SetPoint(0, {0.0, 0.0, 5.0});
    route.SetPoint(1, {20.0, 0.0, 5.0});
    doc.SetPolyline(1, route);
    CGenericUtility g;
    g.SetName(L"G");
    doc.SetGenericUtility(1, g);
    doc.SetupTransects();
    ASSERT_EQ(doc.GetGenericUtility(1).NumTransects(), 3);
    CPulloutAndRotation joint;
    joint.SetLocation(3.0);
    joint.SetPullout_Axial_Right(0.002);
    doc.AccessGenericUtility(1).AccessTransect(2).SetPulloutAndRotationIteration(0, 1, {joint});

    CUDAExportCSVPR columns;
    // Off: the transect's end points and everything after the joint's place but for the
    // right pullout.
    for (auto set : {&CExportTransectInfo::SetEndX, &CExportTransectInfo::SetEndY,
                     &CExportTransectInfo::SetEndZ}) {
        CExportTransectInfo info = columns.GetTransectInfo();
        (info.*set)(false);
        columns.SetTransectInfo(info);
    }
    bool past = false;
    columns.ForEachColumn([&past](const wchar_t* key, bool& on) {
        if (past && std::wstring(key) != L"AxialUnfactRight" && std::wstring(key).rfind(L"Transect", 0) != 0)
            on = false;
        past = past || std::wstring(key) == L"Z";
    });
    auto written = [&doc](const CUDAExportCSVPR& c) {
        std::ostringstream out;
        CStdioFile file(out);
        SCSVExportData data;
        data.numStages = 1;
        doc.WriteCSVGenericUDAPulloutsRotations(file, CUnit(), data, c);
        file.Close();
        return out.str();
    };
    EXPECT_EQ(written(columns),
              "UDA_GENERIC_RESULT_PULLOUTS_ROTATIONS,Stage,Name,Polyline,Transect,TransectStartX,"
              "TransectStartY,TransectStartZ,IterationNo,Location,X,Y,Z,AxialUnfactRight\n"
              "UDA_GENERIC_RESULT_PULLOUTS_ROTATIONS,0,Generic Utility 1 : G,Polyline 1 : "
              "Route,2,10,-5,5,1,3,10,-2,5,0.002\n");
    // Nothing at all with every column off.
    columns.ForEachColumn([](const wchar_t*, bool& on) { on = false; });
    EXPECT_EQ(written(columns), "");
}

// Every column a user can choose names a column of the table, and the table has no other:
// with all on, the row of column names holds each key of the column class once.
TEST(UtilityCsv, GenericTablesWriteEveryChoosableColumn) {
    ZorvoData doc;
    const SCSVExportData data{-1, 1};
    auto header = [&](auto write, const auto& columns) {
        std::ostringstream out;
        CStdioFile file(out);
        (doc.*write)(file, CUnit(), data, columns);
        file.Close();
        std::vector<std::string> cells;
        std::istringstream row(out.str().substr(0, out.str().find('\n')));
        for (std::string cell; std::getline(row, cell, ',');)
            cells.push_back(cell);
        cells.erase(cells.begin(), cells.begin() + 2); // token and "Stage"
        std::sort(cells.begin(), cells.end());
        return cells;
    };
    auto keys = [](const auto& columns) {
        std::vector<std::string> k;
        columns.ForEachColumn(
            [&k](const wchar_t* key, bool) { k.push_back(CString(key).ToUtf8()); });
        std::sort(k.begin(), k.end());
        return k;
    };
    EXPECT_EQ(header(&ZorvoData::WriteCSVGenericUDAPulloutsRotations, CUDAExportCSVPR()),
              keys(CUDAExportCSVPR()));
    EXPECT_EQ(header(&ZorvoData::WriteCSVGenericUDAStrains, CUDAExportCSVStrains()),
              keys(CUDAExportCSVStrains()));
    EXPECT_EQ(header(&ZorvoData::WriteCSVGenericUDACoodsDisps, CUDAExportCSVDisps()),
              keys(CUDAExportCSVDisps()));
}
