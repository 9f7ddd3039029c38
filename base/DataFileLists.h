// Lists of records in a model file, as every record family writes them: in binary a
// count stands first, in JSON the array carries its own length.
#pragma once

#include "CDataFile.h"

#include <cstddef>

namespace Tevra::FileIO {

// A count read from the file: in binary by its own field, checked against what is left of
// the record before anything is sized by it; in JSON the array is entered and its length
// answered, -1 when the optional list is absent.
inline int EnterList(CDataFile& f, int name, size_t bytesEach) {
    if (f.IsJson())
        return f.EnterArray(name, false);
    int count = 0;
    f.ReadInt(name, count);
    f.CheckCount(name, count, bytesEach);
    return count;
}

// Closes a list that EnterList opened.
inline void LeaveList(CDataFile& f, int count) {
    if (f.IsJson() && count >= 0)
        f.LeaveObject();
}

// The count of a binary list, and the array.
inline void BeginList(CDataFile& f, int name, size_t count) {
    if (!f.IsJson())
        f.WriteInt(name, static_cast<int>(count));
    f.BeginArray(name);
}

} // namespace Tevra::FileIO
