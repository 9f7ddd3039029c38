#pragma once

#include "CString.h"

namespace Tevra {

// The application's string table: every message and label the system shows,
// addressed by its resource number.
class CResourceStrings {
  public:
    // True if the table holds a text for this number.
    static bool Exists(int id);
    // The text of a message; empty for a number that is not in the table.
    static CString Load(int id);
};

} // namespace Tevra
