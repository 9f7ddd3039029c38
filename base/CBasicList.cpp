#include "CBasicList.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <set>

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

// The list written out again: "a" for a single number, "a to b" for a range.
CString Text(const std::vector<std::pair<int, int>>& ranges) {
    std::wstring text;
    for (const auto& r : ranges) {
        if (!text.empty())
            text += L' ';
        text += std::to_wstring(r.first);
        if (r.second != r.first)
            text += L" to " + std::to_wstring(r.second);
    }
    return CString(text);
}

// Ascending ranges, overlapping or touching ones joined.
std::vector<std::pair<int, int>> Merged(std::vector<std::pair<int, int>> ranges) {
    std::sort(ranges.begin(), ranges.end());
    std::vector<std::pair<int, int>> out;
    for (const auto& r : ranges) {
        if (!out.empty() && static_cast<long long>(r.first) <= out.back().second + 1LL)
            out.back().second = std::max(out.back().second, r.second);
        else
            out.push_back(r);
    }
    return out;
}

} // namespace

bool CBasicList::SetString(const CString& text, int limit) {
    const std::vector<std::wstring> tokens = Tokens(text.Str());
    std::vector<std::pair<int, int>> ranges;
    std::set<std::pair<int, int>> seen;
    bool repeats = false;
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
        // A tunnel listed twice in a stage is one tunnel of the stage: the entry is kept
        // once, where it first stands.
        if (seen.emplace(first, last).second)
            ranges.emplace_back(first, last);
        else
            repeats = true;
    }
    m_text = repeats ? Text(ranges) : text;
    m_ranges = std::move(ranges);
    m_sorted = Merged(m_ranges);
    return true;
}

bool CBasicList::IsIncluded(int number, int /*limit*/) const {
    // The last range that starts at or before the number is the only one that can hold it.
    auto after = std::upper_bound(m_sorted.begin(), m_sorted.end(), number,
                                  [](int n, const std::pair<int, int>& r) { return n < r.first; });
    return after != m_sorted.begin() && number <= std::prev(after)->second;
}

int CBasicList::MaxItem(int /*limit*/) const {
    return m_sorted.empty() ? 0 : m_sorted.back().second;
}

} // namespace Tevra
