#pragma once

#include "CDataFile.h"
#include "GeoDispResult.h"

#include <vector>

namespace Tevra::FileIO {

// A movement sample in a model file: one object holding its generation, point,
// displacements (metres), principal strains, point type, group, import match and name.
// In JSON the reader expects the sample's object to be entered by the caller.
void WriteGeoDispResult(CDataFile& f, const Data::GeoDispResult& r);
void ReadGeoDispResult(CDataFile& f, Data::GeoDispResult& r);

// A list of samples under a name: in binary its count stands first, in JSON it is an
// array. A binary count is held against the bytes left in the record before anything is
// allocated for it; an absent JSON array reads as an empty list.
void WriteGeoDispResults(CDataFile& f, int name, const std::vector<Data::GeoDispResult>& samples);
void ReadGeoDispResults(CDataFile& f, int name, std::vector<Data::GeoDispResult>& samples);

} // namespace Tevra::FileIO
