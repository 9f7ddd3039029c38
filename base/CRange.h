#pragma once

namespace Tevra::Util {

// What a table lookup throws when its argument has no value in the table. Codes:
// 0 above the range (value: the highest x), 1 below it (value: the lowest x),
// 3 no usable bracketing pair (value: 0).
template <class T> struct CRange {
    int code = 0;
    T value{};

    CRange() = default;
    CRange(int code_, T value_) : code(code_), value(value_) {}
};

} // namespace Tevra::Util
