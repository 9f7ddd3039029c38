#include "CBasicList.h"

#include <cerrno>
#include <climits>
#include <cwchar>
#include <cwctype>

namespace Tevra {

namespace {

std::vector<std::wstring> Tokens(const std::wstring& text) {
    std::vector<std::wstring> out;
    std::wstring cur;
    for (wchar_t c : text) {
        if (std::iswspace(static_cast<wint_t>(c)) || c == L',') {
            if (!cur.empty())
                out.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!cur.empty())
        out.push_back(cur);
    return out;
}

bool ParseInt(const std::wstring& token, int& value) {
    if (token.empty())
        return false;
    wchar_t* end = nullptr;
    errno = 0;
    const long v = std::wcstol(token.c_str(), &end, 10);
    if (errno != 0 || *end != L'\0' || v < INT_MIN || v > INT_MAX)
        return false;
    value = static_cast<int>(v);
    return true;
}

bool IsTo(const std::wstring& token) {
    return token.size() == 2 && std::towlower(static_cast<wint_t>(token[0])) == L't' &&
           std::towlower(static_cast<wint_t>(token[1])) == L'o';
}

} // namespace

bool CBasicList::SetString(const CString& text, int limit) {
    const std::vector<std::wstring> tokens = Tokens(text.Str());
    std::vector<std::pair<int, int>> ranges;
    for (size_t i = 0; i < tokens.size(); ++i) {
        int first = 0;
        if (!ParseInt(tokens[i], first))
            return false;
        int last = first;
        if (i + 1 < tokens.size() && IsTo(tokens[i + 1])) {
            if (i + 2 >= tokens.size() || !ParseInt(tokens[i + 2], last) || last < first)
                return false;
            if (limit > 0 && last > limit)
                return false;
            i += 2;
        }
        ranges.emplace_back(first, last);
    }
    m_text = text;
    m_ranges = std::move(ranges);
    return true;
}

bool CBasicList::IsIncluded(int number, int /*limit*/) const {
    for (const auto& r : m_ranges)
        if (number >= r.first && number <= r.second)
            return true;
    return false;
}

int CBasicList::MaxItem(int /*limit*/) const {
    int best = 0;
    bool any = false;
    for (const auto& r : m_ranges) {
        if (!any || r.second > best)
            best = r.second;
        any = true;
    }
    return best;
}

} // namespace Tevra
