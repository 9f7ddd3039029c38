// Model file records of the building inputs and results. The record layouts are not yet
// read or written: a project file carries no buildings so far, and these leave a record
// as it stands.
#include "base/CDataFile.h"
#include "buildings/CBuildingDamageProperties.h"
#include "buildings/CBuildingDamageResult.h"
#include "buildings/CDamageCategoryStrains.h"
#include "buildings/CSpecificBuilding.h"

namespace Tevra::Data {

using namespace FileIO;

void CDamageCategoryStrains::Read(CDataFile&, int) {}
void CDamageCategoryStrains::Write(CDataFile&) const {}

void CBuildingDamageProperties::Read(CDataFile&, int) {}
void CBuildingDamageProperties::ReadCurvature(const CDataFile&, int) {}
void CBuildingDamageProperties::Write(CDataFile&) const {}

void CBuildingDamageResult::Read(CDataFile&, int) {}
void CBuildingDamageResult::Write(CDataFile&) const {}

void CSpecificBuilding::Read(CDataFile&, int) {}
void CSpecificBuilding::Write(CDataFile&) const {}
void CSpecificBuilding::ReadBuildingWithoutCBDProperties(CDataFile&, int) {}

} // namespace Tevra::Data
