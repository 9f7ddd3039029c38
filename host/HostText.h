#pragma once

#include <cstdio>
#include <string>

namespace Tevra {

// One number by a printf format, in full however large.
inline std::string Printed(const char* format, double v) {
    const int n = std::snprintf(nullptr, 0, format, v);
    std::string text(static_cast<size_t>(n) + 1, '\0');
    std::snprintf(text.data(), text.size(), format, v);
    text.pop_back();
    return text;
}

} // namespace Tevra
