#include "base/CDataFile.h"
#include "sources/CCircularExcavation.h"
#include "sources/CExcavationCorner.h"
#include "sources/CPolygonalExcavation.h"

// The excavation records in the model file.

namespace Tevra::Data {

void CExcavation::Write(FileIO::CDataFile&) const {}
void CExcavation::Read(FileIO::CDataFile&, int) {}
void CExcavationCorner::Write(FileIO::CDataFile&) const {}
void CExcavationCorner::Read(FileIO::CDataFile&, int) {}
void CPolygonalExcavation::Write(FileIO::CDataFile&) const {}
void CPolygonalExcavation::Read(FileIO::CDataFile&, int) {}
void CCircularExcavation::Write(FileIO::CDataFile&) const {}
void CCircularExcavation::Read(FileIO::CDataFile&, int) {}

} // namespace Tevra::Data
