#pragma once

#include "document/ZorvoData.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tevra {

// The displacement results as comma-separated tables, one per family of displacement
// records, one row per calculated sample (a cancelled run leaves samples it never
// reached out of the tables): calculation stage and its name, record number and name,
// position along and across the record, coordinates (m), displacements (mm) and
// principal strains with their angle (radians), and the import match bits (1 when an
// imported displacement was added to the sample, 0 when none was).
class CDisplacementCsv {
  public:
    // The header row, and the rows of one family ("points", "lines", "polylines" or
    // "grids") for every stage that holds results.
    static void WriteHeader(std::ostream& out);
    static void WriteFamily(const Data::ZorvoData& doc, Data::EPointType family, std::ostream& out);

    // Writes points.csv, lines.csv, polylines.csv and grids.csv into the directory, for
    // the families that have records; answers the paths written. Throws
    // std::runtime_error when a file cannot be written.
    static std::vector<std::string> WriteAll(const Data::ZorvoData& doc, const std::string& dir);

    // A text as a field: quoted when it holds a comma, a quote or a line break.
    static std::string Field(const std::string& text);
};

} // namespace Tevra
