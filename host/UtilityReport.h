#pragma once

#include "document/ZorvoData.h"

#include <ostream>
#include <string>

namespace Tevra {

// What zorvo solve does with the utilities after a run: prints each utility's worst
// verdicts by stage and writes the utilities' result tables.
class UtilityReport {
  public:
    // "within threshold", "above threshold" or "beyond limit".
    static const char* VerdictLabel(int category);

    // Each specific utility and stage on one line: for a jointed pipe the largest factored
    // pullout (mm) and rotation (degrees), then the largest factored tensile and
    // compressive strains (microstrain) and the least radius of curvature (m), each with
    // its verdict against the utility's criteria. Then each generic utility and stage: the
    // worst verdicts over its transects.
    static void Print(const Data::ZorvoData& doc, std::ostream& out);

    // specific-utilities.csv in the folder. Answers its path. Throws std::runtime_error
    // when it cannot be written, leaving no part of it behind.
    static std::string WriteCsv(const Data::ZorvoData& doc, const std::string& dir);
    // generic-utilities.csv in the folder, with the columns the user chose last (every
    // one where none is remembered); as WriteCsv.
    static std::string WriteGenericCsv(const Data::ZorvoData& doc, const std::string& dir);
};

} // namespace Tevra
