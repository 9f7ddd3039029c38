#include "CUnit.h"

#include <string>

namespace Tevra {

CString CUnit::Label(int dimension, bool bracketed, bool spaced) const {
    std::wstring symbol;
    switch (dimension) {
    case 2:
    case 4:
    case 6:
        symbol = L"m";
        break;
    case 8:
        symbol = L"1/m";
        break;
    default:
        break;
    }
    if (symbol.empty())
        return CString();
    if (bracketed)
        symbol = L"(" + symbol + L")";
    if (spaced)
        symbol = L" " + symbol;
    return CString(symbol);
}

CString CUnit::DimensionString(int dimension) const {
    switch (dimension) {
    case 2:
        return CString(L"Length");
    case 4:
        return CString(L"Distance");
    case 6:
        return CString(L"Displacement");
    case 8:
        return CString(L"Curvature");
    case 11:
        return CString(L"Slope");
    case 202:
        return CString(L"Ratio");
    default:
        return CString(L"None");
    }
}

} // namespace Tevra
