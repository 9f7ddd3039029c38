#pragma once

#include "CTableT.h"

#include <vector>

namespace Tevra::Data {

// A table that may carry cubic spline coefficients. The calculation reads it only through
// the straight-line lookup of CTableT: no coefficients are ever computed, so the
// coefficient list stays empty and the fitted flag false.
template <class T> class CSplineT : public CTableT<T> {
  public:
    using CTableT<T>::CTableT;
    CSplineT() = default;
    // Copies the rows, name and unit tags of a table.
    explicit CSplineT(const CTableT<T>& table) : CTableT<T>(table) {}

    const std::vector<T>& GetCoefficients() const { return m_coefficients; }
    bool IsFitted() const { return m_fitted; }

  private:
    std::vector<T> m_coefficients;
    bool m_fitted = false;
};

} // namespace Tevra::Data
