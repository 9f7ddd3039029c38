#pragma once

#include <atomic>
#include <cstdarg>
#include <string>

namespace Tevra {

// The text type of every name and message: a wide string whose buffer is shared
// between copies and copied only when one of them is changed. A million samples
// named after their grid therefore hold one copy of the name between them.
// Copies may be made and dropped from several threads at once.
class CString {
  public:
    CString() = default;
    CString(const wchar_t* text);
    CString(const std::wstring& text);
    CString(const CString& other) noexcept;
    CString(CString&& other) noexcept;
    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    ~CString();

    // Text from UTF-8, and back.
    static CString FromUtf8(const std::string& utf8);
    std::string ToUtf8() const;

    int GetLength() const { return m_buf ? static_cast<int>(m_buf->text.size()) : 0; }
    bool IsEmpty() const { return GetLength() == 0; }
    const wchar_t* GetString() const { return m_buf ? m_buf->text.c_str() : L""; }
    const std::wstring& Str() const;
    void Empty();

    // printf-style formatting with the platform's wide conventions: "%s" takes a
    // wide string (const wchar_t*), "%i" and "%d" an int, "%.3f" a double.
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, va_list args);
    static CString Formatted(const wchar_t* format, ...);

    CString& operator+=(const CString& other);
    CString& operator+=(const wchar_t* other);
    friend CString operator+(CString a, const CString& b) { return a += b; }

    bool operator==(const CString& o) const { return Str() == o.Str(); }
    bool operator!=(const CString& o) const { return !(*this == o); }
    bool operator<(const CString& o) const { return Str() < o.Str(); }
    // Compared without regard to case: below 0, 0 or above 0 as for text in order.
    int CompareNoCase(const CString& o) const;

    // True when both share one buffer (for tests of the sharing).
    bool SharesBufferWith(const CString& o) const { return m_buf && m_buf == o.m_buf; }

  private:
    struct Buffer {
        std::atomic<int> refs{1};
        std::wstring text;
    };

    void Release() noexcept;
    std::wstring& Mutable();

    Buffer* m_buf = nullptr; // null for the empty text
};

} // namespace Tevra
