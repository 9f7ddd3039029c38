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

// A point in plan as a nested object {x, y} in the JSON form, two numbers in binary.
inline void WritePlanPoint(CDataFile& f, int name, double x, double y) {
    f.BeginObject(name);
    f.WriteDouble(jnX, x);
    f.WriteDouble(jnY, y);
    f.EndObject();
}

inline void ReadPlanPoint(CDataFile& f, int name, double& x, double& y) {
    f.EnterObject(name);
    f.ReadDouble(jnX, x);
    f.ReadDouble(jnY, y);
    f.LeaveObject();
}

} // namespace Tevra::FileIO
