#include "StringFrom.h"

#include <cctype>
#include <charconv>
#include <string>

namespace Tevra::Vesk {

CString StringFrom(double value, const Util::CNumFormat& format) {
    char buf[128];
    std::to_chars_result r{};
    switch (format.GetFormat()) {
    case 2:
        r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed,
                          format.GetDecPla());
        break;
    case 3:
        r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific,
                          format.GetSciSigFig() - 1);
        break;
    default:
        r = std::to_chars(buf, buf + sizeof buf, value);
        break;
    }
    std::string text(buf, r.ptr);

    if (format.GetFormat() == 2 && !text.empty() &&
        std::isdigit(static_cast<unsigned char>(text.back()))) {
        if (format.GetTrimZeros() && text.find('.') != std::string::npos) {
            while (text.back() == '0')
                text.pop_back();
            if (text.back() == '.')
                text.pop_back();
        }
        if (format.GetForceDec() && text.find('.') == std::string::npos)
            text += '.';
    }
    return CString(std::wstring(text.begin(), text.end()));
}

} // namespace Tevra::Vesk
