#include "base/CString.h"

#include <gtest/gtest.h>

#include <string>

using Tevra::CString;

TEST(CString, FormatWithTheWideConventions) {
    // "%s" takes a wide string as on the desktop platform; "%i" and "%d" an int.
    const CString name(L"Tunnel \u00e9");
    struct Case {
        CString got;
        const wchar_t* expected;
    } cases[] = {
        {CString::Formatted(L"Stage %i", 12), L"Stage 12"},
        {CString::Formatted(L"%d", -7), L"-7"},
        {CString::Formatted(L"%s %i: %s", name.GetString(), 3, L"x"), L"Tunnel \u00e9 3: x"},
        {CString::Formatted(L"%.3f m", 3.14159), L"3.142 m"},
        {CString::Formatted(L"100%% of %ls", L"it"), L"100% of it"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.got.Str(), std::wstring(c.expected));

    // Longer than the first buffer: the text is complete, not cut.
    const std::wstring longText(5000, L'a');
    CString s;
    s.Format(L"<%s>", longText.c_str());
    EXPECT_EQ(s.Str(), L"<" + longText + L">");
}

TEST(CString, CopiesShareUntilOneIsChanged) {
    const CString original(L"Line #");
    CString copy = original;
    EXPECT_TRUE(copy.SharesBufferWith(original));

    copy += L"2";
    EXPECT_FALSE(copy.SharesBufferWith(original));
    EXPECT_EQ(original.Str(), L"Line #");
    EXPECT_EQ(copy.Str(), L"Line #2");

    CString formatted = original;
    formatted.Format(L"%i", 5);
    EXPECT_EQ(original.Str(), L"Line #");

    CString self(L"ab");
    self += self; // appending itself
    EXPECT_EQ(self.Str(), L"abab");

    CString empty;
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(CString(L""), empty);
    EXPECT_EQ(std::wstring(empty.GetString()), L"");
}

TEST(CString, Utf8RoundTripAndReplacementOfNoCharacter) {
    // Two-, three- and four-byte forms: u-umlaut, en dash, a CJK pair, a train emoji.
    const std::string utf8 = "Z\xC3\xBCrich \xE2\x80\x93 \xE6\x9D\xB1\xE4\xBA\xAC \xF0\x9F\x9A\x87";
    const CString text = CString::FromUtf8(utf8);
    EXPECT_EQ(text.Str(), std::wstring(L"Z\u00fcrich \u2013 \u6771\u4eac \U0001F687"));
    EXPECT_EQ(text.ToUtf8(), utf8);

    struct Case {
        std::string in;
        std::wstring out;
    } bad[] = {
        {"a\xC0\xAF"
         "b",
         L"a\uFFFDb"},                   // overlong '/'
        {"\xED\xA0\x80", L"\uFFFD"},     // a surrogate half
        {"\xE6\x9Dx", L"\uFFFDx"},       // cut short: the next character survives
        {"\x80", L"\uFFFD"},             // stray continuation byte
        {"\xF4\x90\x80\x80", L"\uFFFD"}, // beyond U+10FFFF
    };
    for (const Case& c : bad)
        EXPECT_EQ(CString::FromUtf8(c.in).Str(), c.out) << c.in;

    // A wide text holding a surrogate half is written as the replacement character.
    const wchar_t lone[] = {L'a', static_cast<wchar_t>(0xD800), 0};
    EXPECT_EQ(CString(lone).ToUtf8(), "a\xEF\xBF\xBD");
}
