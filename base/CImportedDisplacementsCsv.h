#pragma once

#include "CImportedDisplacementsSet.h"

#include <string>

namespace Tevra::Data {

// Reads a set of imported displacements from a comma-separated text file: one point a
// line as X, Y, Z, dX, dY, dZ, all in metres, with the displacements added as they
// stand (dZ with settlement positive, as the results hold it). The first line may be a
// header, told by holding no number at all; blank lines are passed over, and blanks
// around a value do not count.
//
// Faults are refused with a message naming the file, the line and the fault:
//   "FILE: cannot read the file: REASON"
//   "FILE: the file holds no points; each line should give X, Y, Z, dX, dY, dZ (m)"
//   "FILE: line N: K values where a point takes 6 (X, Y, Z, dX, dY, dZ)"
//   "FILE: line N: dY is "TEXT", which is not a number"
//   "FILE: line N: dY is "TEXT", which is not a finite number"
class CImportedDisplacementsCsv {
  public:
    // Reads the file into the set's points and file name (the path as given); the name
    // is left as it is. On a fault, answers false with the message in error and leaves
    // the set untouched.
    static bool Read(const std::string& path, CImportedDisplacementsSet& set, std::string& error);
    // The same from text in memory; name stands for the file in messages.
    static bool Parse(const std::string& text, const std::string& name,
                      CImportedDisplacementsSet& set, std::string& error);
};

} // namespace Tevra::Data
