#include "GeoDispResultIO.h"

#include "DataFileLists.h"
#include "JsonNameID.h"

#include <algorithm>
#include <string>

namespace Tevra::FileIO {

using Data::GeoDispResult;

namespace {

// Least number of bytes of one binary sample: its generation, nine tagged doubles, three
// tagged integers and an empty name.
constexpr size_t kSampleBytes = 5 + 9 * 9 + 3 * 5 + 5;

} // namespace

void WriteGeoDispResult(CDataFile& f, const GeoDispResult& r) {
    f.BeginObject(jnPoint);
    f.WriteInt(jnVersion, GeoDispResult::GetVersion());
    f.WriteDouble(jnX, r.GetPoint().x);
    f.WriteDouble(jnY, r.GetPoint().y);
    f.WriteDouble(jnZ, r.GetPoint().z);
    f.WriteDouble(jnXDisplacement, r.GetXdisplacement());
    f.WriteDouble(jnYDisplacement, r.GetYdisplacement());
    f.WriteDouble(jnZDisplacement, r.GetZdisplacement());
    f.WriteDouble(jnMajorPrincipalStrain, r.GetMajorPrincipalStrain());
    f.WriteDouble(jnMinorPrincipalStrain, r.GetMinorPrincipalStrain());
    f.WriteDouble(jnPrincipalStrainAngle, r.GetPrincipalStrainAngle());
    f.WriteInt(jnPointType, static_cast<int>(r.GetPointType()));
    f.WriteInt(jnPointGroup, r.GetPointGroup());
    f.WriteInt(jnImportMatch, r.GetImportMatch());
    f.WriteString(jnName, r.Name());
    f.EndObject();
}

void ReadGeoDispResult(CDataFile& f, GeoDispResult& r) {
    const bool required = !f.IsJson();
    int version = GeoDispResult::GetVersion();
    f.ReadInt(jnVersion, version, required);
    if (version < 1 || version > GeoDispResult::GetVersion())
        f.Fail("a movement sample of generation " + std::to_string(version) +
               ", which this version reads only from 1 to " +
               std::to_string(GeoDispResult::GetVersion()));
    Vec3<double> p = r.GetPoint();
    double v[6] = {r.GetXdisplacement(),        r.GetYdisplacement(),
                   r.GetZdisplacement(),        r.GetMajorPrincipalStrain(),
                   r.GetMinorPrincipalStrain(), r.GetPrincipalStrainAngle()};
    int type = r.GetPointType(), group = r.GetPointGroup(), match = r.GetImportMatch();
    f.ReadDouble(jnX, p.x, required);
    f.ReadDouble(jnY, p.y, required);
    f.ReadDouble(jnZ, p.z, required);
    f.ReadDouble(jnXDisplacement, v[0], required);
    f.ReadDouble(jnYDisplacement, v[1], required);
    f.ReadDouble(jnZDisplacement, v[2], required);
    f.ReadDouble(jnMajorPrincipalStrain, v[3], required);
    f.ReadDouble(jnMinorPrincipalStrain, v[4], required);
    f.ReadDouble(jnPrincipalStrainAngle, v[5], required);
    f.ReadInt(jnPointType, type, required);
    f.ReadInt(jnPointGroup, group, required);
    f.ReadInt(jnImportMatch, match, required);
    f.ReadString(jnName, r.AccessName(), required);
    if (type < Data::ePointTypeNone || type > Data::ePolyline)
        f.Fail("a movement sample has point type " + std::to_string(type) +
               ", which is not one of 0 to 4");
    r.SetPoint(p);
    r.SetXdisplacement(v[0]);
    r.SetYdisplacement(v[1]);
    r.SetZdisplacement(v[2]);
    r.SetMajorPrincipalStrain(v[3]);
    r.SetMinorPrincipalStrain(v[4]);
    r.SetPrincipalStrainAngle(v[5]);
    r.SetPointType(static_cast<Data::EPointType>(type));
    r.SetPointGroup(group);
    r.SetImportMatch(match);
}

void WriteGeoDispResults(CDataFile& f, int name, const std::vector<GeoDispResult>& samples) {
    BeginList(f, name, samples.size());
    for (const GeoDispResult& r : samples)
        WriteGeoDispResult(f, r);
    f.EndArray();
}

void ReadGeoDispResults(CDataFile& f, int name, std::vector<GeoDispResult>& samples) {
    const int count = EnterList(f, name, kSampleBytes);
    samples.assign(static_cast<size_t>(std::max(count, 0)), GeoDispResult());
    for (int k = 0; k < count; ++k) {
        f.EnterElement(k);
        ReadGeoDispResult(f, samples[static_cast<size_t>(k)]);
        f.LeaveObject();
    }
    LeaveList(f, count);
}

} // namespace Tevra::FileIO
