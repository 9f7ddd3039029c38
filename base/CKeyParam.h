#pragma once

#include "CString.h"

namespace Tevra::FileIO {

// Header of one module of a model file: its key, description, record count and the
// generation of its records.
struct CKeyParam {
    int key = 0;
    CString description;
    int count = 0;
    int generation = 0;
};

} // namespace Tevra::FileIO
