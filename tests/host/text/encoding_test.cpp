#include "host/text/encoding.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace std::string_literals;

TEST(Utf8, DecodesWhatIsWellFormed)
{
    const std::pair<std::string, std::wstring> cases[] = {
        {"", L""},
        {"plain text that is longer than a block", L"plain text that is longer than a block"},
        {"a\0b"s, L"a\0b"s},
        {"\x7F\xC2\x80\xDF\xBF", L"\u007F\u0080\u07FF"},
        {"\xE0\xA0\x80\xEF\xBF\xBF", L"\u0800\uFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0010FFFF"},
        {"12345678\xD0\xAF"
         "12345678",
         L"12345678\u042F"
         L"12345678"},
    };
    for (const auto& [bytes, text] : cases) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(fromUtf8(bytes), text);
        EXPECT_EQ(toUtf8(text), bytes);
    }
}

TEST(Utf8, KeepsBytesThatDoNotDecode)
{
    const std::pair<std::string, std::wstring> cases[] = {
        {"\x80", L"\xDC80"},
        {"a\xFF\xFE"
         "b",
         L"a\xDCFF\xDCFE"
         L"b"},
        {"\xC3", L"\xDCC3"},             // cut at the end
        {"\xE2\x82z", L"\xDCE2\xDC82z"}, // cut inside
        {"\xC0\xAF", L"\xDCC0\xDCAF"},   // longer than needed
        {"\xE0\x9F\xBF", L"\xDCE0\xDC9F\xDCBF"},
        {"\xED\xB2\x80", L"\xDCED\xDCB2\xDC80"},           // a surrogate, even one of ours
        {"\xF4\x90\x80\x80", L"\xDCF4\xDC90\xDC80\xDC80"}, // above the last code point
        {"\xF5\xC3\xA9", L"\xDCF5\u00E9"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(fromUtf8(bytes), text);
        EXPECT_EQ(toUtf8(text), bytes);
    }
}

TEST(Utf8, EveryPairOfBytesComesBack)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second), '\xA9',
                                       'x'};
            ASSERT_EQ(toUtf8(fromUtf8(bytes)), bytes) << first << ' ' << second;
        }
    }
}

TEST(Utf8, ReplacesWhatIsNoCodePoint)
{
    const std::wstring text = {L'a', wchar_t{0xD800}, wchar_t{0xDC7F}, wchar_t{0x110000},
                               wchar_t{-1}};
    EXPECT_EQ(toUtf8(text), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

} // namespace
} // namespace host
