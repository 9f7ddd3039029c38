#pragma once

#include "buildings/ZorvoBuildingSummary.h"
#include "document/ZorvoData.h"
#include "solver/ZorvoSolver.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tevra {

// What zorvo solve does with the specific buildings after a run: joins the segments the
// user names and assesses the joined segments, prints each building's critical values,
// and writes the buildings' result tables.
class BuildingReport {
  public:
    // A segment to join to the one before it: building, vertical offset and segment, all
    // numbered from 1, as the user wrote them ("B/O/S").
    struct SJoin {
        int building = 0;
        int offset = 0;
        int segment = 0;
        std::string text;
    };

    // Reads "B/O/S" for the project; answers an empty text when it names a building and
    // an offset of the project and a segment from 2 on, otherwise what is wrong with it.
    static std::string ParseJoin(const std::string& text, const Data::ZorvoData& doc, SJoin& join);

    // Joins each segment to the one before it at every stage where the segment exists,
    // then makes the joined segments' results, stage by stage. Answers a text for each
    // join that found its segment at no stage.
    static std::vector<std::string> Join(Data::ZorvoData& doc, ZorvoSolver& solver,
                                         const std::vector<SJoin>& joins);

    // The critical values of a building (1-based) at a stage and a vertical offset
    // (0-based), among its segments as the curve cuts them: for each parameter the
    // segment of largest size, the later segment winning a tie; the radii from the
    // segment of largest curvature of that sense. A parameter without such a segment
    // keeps the record's defaults. Offsets and segments in the record count from 1.
    static Data::ZorvoBuildingSummary Summary(const Data::ZorvoData& doc, int stage, int building,
                                              int offset);

    // Each building, stage and vertical offset on one line: the worst damage category,
    // the largest settlement (mm) and tensile strain (%) with their segments, and the
    // number of segments; the worst category of the joined segments where there are any.
    static void Print(const Data::ZorvoData& doc, std::ostream& out);

    // buildings.csv in the folder: the segment tables, the joined segments' table where
    // the user joined any, and the critical values. Answers its path. Throws
    // std::runtime_error when it cannot be written, leaving no part of it behind.
    static std::string WriteCsv(const Data::ZorvoData& doc, const std::string& dir);
};

} // namespace Tevra
