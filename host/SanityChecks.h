#pragma once

#include "document/ZorvoData.h"

#include <string>
#include <vector>

namespace Tevra {

// The host's own checks, beside the library's passes: numbers in the input that mean
// nothing (not finite, or out of their physical range), runs too large for the memory
// they need, and results that are not finite numbers. Each finding names the record,
// the field and what to change. An error stops a run; a warning never changes what is
// computed.
class SanityChecks {
  public:
    struct SFinding {
        bool error;
        std::string text;
    };

    // The input fields of every record.
    static std::vector<SFinding> Inputs(const Data::ZorvoData& doc);

    // The result store and the work a run implies: an error when the results need more than about
    // 80% of memoryBytes (0: not known, no test); a warning when the run will take hours on that
    // many cores.
    static std::vector<SFinding> RunSize(const Data::ZorvoData& doc, double memoryBytes,
                                         const std::string& memorySource, int cores);

    // After a run: the samples holding a value that is not a finite number, counted by
    // record and stage, each count an error.
    static std::vector<SFinding> Results(const Data::ZorvoData& doc);

    // How the host names displacement record d (1-based over all four families) in its
    // messages: "Grid 2 "Site grid"".
    static std::string DisplacementLabel(const Data::ZorvoData& doc, int d);

    // Whether every value of a sample is a finite number.
    static bool IsFinite(const Data::GeoDispResult& r);
};

} // namespace Tevra
