#include "CString.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <vector>

namespace Tevra {

namespace {

const std::wstring kEmpty;

// The platform's wide printf reads "%s" and "%c" as wide; the C library reads them
// as narrow unless given the 'l' length. Add it where no length was written.
std::wstring ToCLibraryFormat(const wchar_t* format) {
    std::wstring out;
    for (const wchar_t* p = format; *p; ++p) {
        out += *p;
        if (*p != L'%')
            continue;
        ++p;
        if (*p == L'%') {
            out += *p;
            continue;
        }
        bool hasLength = false;
        while (*p && std::wcschr(L"-+ #0123456789.*hlLqjzt", *p)) {
            if (std::wcschr(L"hlLqjzt", *p))
                hasLength = true;
            out += *p++;
        }
        if (!*p)
            break;
        if (!hasLength && (*p == L's' || *p == L'c'))
            out += L'l';
        out += *p;
    }
    return out;
}

} // namespace

CString::CString(const wchar_t* text) {
    if (text && *text) {
        m_buf = new Buffer;
        m_buf->text = text;
    }
}

CString::CString(const std::wstring& text) {
    if (!text.empty()) {
        m_buf = new Buffer;
        m_buf->text = text;
    }
}

CString::CString(const CString& other) noexcept : m_buf(other.m_buf) {
    if (m_buf)
        m_buf->refs.fetch_add(1, std::memory_order_relaxed);
}

CString::CString(CString&& other) noexcept : m_buf(other.m_buf) { other.m_buf = nullptr; }

CString& CString::operator=(const CString& other) noexcept {
    if (m_buf != other.m_buf) {
        if (other.m_buf)
            other.m_buf->refs.fetch_add(1, std::memory_order_relaxed);
        Release();
        m_buf = other.m_buf;
    }
    return *this;
}

CString& CString::operator=(CString&& other) noexcept {
    if (this != &other) {
        Release();
        m_buf = other.m_buf;
        other.m_buf = nullptr;
    }
    return *this;
}

CString::~CString() { Release(); }

void CString::Release() noexcept {
    if (m_buf && m_buf->refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete m_buf;
    m_buf = nullptr;
}

std::wstring& CString::Mutable() {
    if (!m_buf) {
        m_buf = new Buffer;
    } else if (m_buf->refs.load(std::memory_order_acquire) > 1) {
        Buffer* own = new Buffer;
        own->text = m_buf->text;
        Release();
        m_buf = own;
    }
    return m_buf->text;
}

const std::wstring& CString::Str() const { return m_buf ? m_buf->text : kEmpty; }

void CString::Empty() { Release(); }

CString CString::FromUtf8(const std::string& utf8) {
    std::wstring out;
    out.reserve(utf8.size());
    for (size_t i = 0; i < utf8.size();) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        int extra = 0;
        char32_t cp = 0;
        if (c < 0x80) {
            cp = c;
        } else if ((c >> 5) == 0x6) {
            cp = c & 0x1F;
            extra = 1;
        } else if ((c >> 4) == 0xE) {
            cp = c & 0x0F;
            extra = 2;
        } else if ((c >> 3) == 0x1E) {
            cp = c & 0x07;
            extra = 3;
        } else {
            cp = 0xFFFD; // stray continuation or invalid lead byte
        }
        ++i;
        for (int k = 0; k < extra; ++k, ++i) {
            if (i >= utf8.size() || (static_cast<unsigned char>(utf8[i]) >> 6) != 0x2) {
                cp = 0xFFFD;
                break;
            }
            cp = (cp << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
        }
        // Surrogates, overlong forms and numbers past Unicode are no characters.
        const bool overlong =
            (extra == 1 && cp < 0x80) || (extra == 2 && cp < 0x800) || (extra == 3 && cp < 0x10000);
        if (overlong || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF)
            cp = 0xFFFD;
        out += static_cast<wchar_t>(cp);
    }
    return CString(out);
}

std::string CString::ToUtf8() const {
    std::string out;
    for (wchar_t w : Str()) {
        auto cp = static_cast<char32_t>(w);
        if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF)
            cp = 0xFFFD; // no character: written as the replacement character
        if (cp < 0x80) {
            out += static_cast<char>(cp);
        } else if (cp < 0x800) {
            out += static_cast<char>(0xC0 | (cp >> 6));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else if (cp < 0x10000) {
            out += static_cast<char>(0xE0 | (cp >> 12));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (cp >> 18));
            out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        }
    }
    return out;
}

void CString::Format(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(const wchar_t* format, va_list args) {
    const std::wstring cformat = ToCLibraryFormat(format);
    std::vector<wchar_t> buf(256);
    for (;;) {
        va_list copy;
        va_copy(copy, args);
        const int n = std::vswprintf(buf.data(), buf.size(), cformat.c_str(), copy);
        va_end(copy);
        if (n >= 0 && static_cast<size_t>(n) < buf.size()) {
            *this = CString(std::wstring(buf.data(), static_cast<size_t>(n)));
            return;
        }
        if (buf.size() > (1u << 24)) { // an unformattable argument: keep the format itself
            *this = CString(format);
            return;
        }
        buf.resize(buf.size() * 4);
    }
}

CString CString::Formatted(const wchar_t* format, ...) {
    CString s;
    va_list args;
    va_start(args, format);
    s.FormatV(format, args);
    va_end(args);
    return s;
}

CString& CString::operator+=(const CString& other) {
    if (!other.IsEmpty()) {
        const std::wstring tail = other.Str(); // other may be *this
        Mutable() += tail;
    }
    return *this;
}

CString& CString::operator+=(const wchar_t* other) {
    if (other && *other)
        Mutable() += other;
    return *this;
}

int CString::CompareNoCase(const CString& o) const {
    const std::wstring& a = Str();
    const std::wstring& b = o.Str();
    const size_t n = std::min(a.size(), b.size());
    for (size_t k = 0; k < n; ++k) {
        const wint_t x = std::towlower(static_cast<wint_t>(a[k]));
        const wint_t y = std::towlower(static_cast<wint_t>(b[k]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

} // namespace Tevra
