#pragma once

#include "CDataFile.h"
#include "JsonNameID.h"
#include "Vec3.h"

namespace Tevra::FileIO {

// A point as a nested object {x, y, z} in the JSON form, three numbers in binary.
inline void WritePoint(CDataFile& f, int name, const Vec3<double>& p) {
    f.BeginObject(name);
    f.WriteDouble(jnX, p.x);
    f.WriteDouble(jnY, p.y);
    f.WriteDouble(jnZ, p.z);
    f.EndObject();
}

inline void ReadPoint(CDataFile& f, int name, Vec3<double>& p) {
    f.EnterObject(name);
    f.ReadDouble(jnX, p.x);
    f.ReadDouble(jnY, p.y);
    f.ReadDouble(jnZ, p.z);
    f.LeaveObject();
}

} // namespace Tevra::FileIO
