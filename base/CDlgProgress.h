#pragma once

#include "CString.h"

namespace Tevra {

// A progress dialog of the host: the check passes tell it what they are doing.
class CDlgProgress {
  public:
    virtual ~CDlgProgress() = default;
    virtual void SetMessage(const CString& text) = 0;
};

} // namespace Tevra
