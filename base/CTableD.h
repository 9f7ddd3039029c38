#pragma once

#include "CTableT.h"

namespace Tevra::Data {

// A table of doubles: (x, y) rows along a utility or building, with its unit tags.
class CTableD : public CTableT<double> {
  public:
    using CTableT<double>::CTableT;
    CTableD() = default;
    CTableD(const CTableT<double>& t) : CTableT<double>(t) {}
};

} // namespace Tevra::Data
