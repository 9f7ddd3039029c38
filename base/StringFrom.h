#pragma once

#include "CNumFormat.h"
#include "CString.h"

namespace Tevra::Vesk {

// A number as text in the given format. The text does not depend on the locale: the
// decimal separator is always ".".
CString StringFrom(double value, const Util::CNumFormat& format);

} // namespace Tevra::Vesk
