#include "host/text/wide_format.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cwchar>

namespace host {
namespace {

TEST(WideFormat, FillsMessages)
{
    EXPECT_EQ(format(L"Completed: %i/%i\n", 3, -7), L"Completed: 3/-7\n");
    EXPECT_EQ(format(L"'%s' %c %%T/%%t, %%i", L"\u0416\u00E9", L'\u0416'),
              L"'\u0416\u00E9' \u0416 %T/%t, %i");
    EXPECT_EQ(format(L"%.12lf|%lf|%.0f|%.3s|%-5s|%5s|", 0.1, 2.0, 2.5, L"abcdef", L"ab", L"cd"),
              L"0.100000000000|2.000000|2|abc|ab   |   cd|");
    EXPECT_EQ(format(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
    EXPECT_EQ(format(L"%ld %lld %lu %I64d", LONG_MIN, LLONG_MAX, ULONG_MAX, 1LL << 40),
              L"-9223372036854775808 9223372036854775807 18446744073709551615 1099511627776");
    const wchar_t unended[] = {L'a', L'b'};
    EXPECT_EQ(format(L"%.*s|%*d|%-*d|", 2, unended, 4, 5, 4, 5), L"ab|   5|5   |");
}

TEST(WideFormat, CopiesWhatItDoesNotKnow)
{
    EXPECT_EQ(format(L"100%"), L"100%");
    EXPECT_EQ(format(L"%q %5.2y %i", 4), L"%q %5.2y 4");
    EXPECT_EQ(format(L"%-08"), L"%-08");
}

// The C library formats the same in its own locale.
TEST(WideFormat, AgreesWithTheCLibrary)
{
    const wchar_t* flags[] = {L"", L"-", L"+", L" ", L"0", L"+0", L"-0"};
    const wchar_t* widths[] = {L"", L"1", L"9", L"24"};
    const wchar_t* precisions[] = {L"", L".0", L".", L".3", L".15"};
    const double reals[] = {0.0,  -0.0,   1.5, -2.5,     1e-7, 123456789.0,
                            1e22, -1e300, 0.1, INFINITY, NAN};
    const int integers[] = {0, 1, -1, 42, INT_MAX, INT_MIN};
    wchar_t expected[512];
    for (const wchar_t* flag : flags) {
        for (const wchar_t* width : widths) {
            for (const wchar_t* precision : precisions) {
                const std::wstring head = std::wstring(L"%") + flag + width + precision;
                for (const wchar_t* kind : {L"f", L"e", L"g", L"E", L"G"}) {
                    const std::wstring pattern = head + kind;
                    for (const double real : reals) {
                        std::swprintf(expected, std::size(expected), pattern.c_str(), real);
                        ASSERT_EQ(format(pattern.c_str(), real), expected);
                    }
                }
                for (const wchar_t* kind : {L"d", L"i", L"u", L"x", L"X", L"o", L"hd", L"hhu"}) {
                    const bool isSigned = kind[0] == L'd' || kind[0] == L'i' || kind[1] == L'd';
                    if (!isSigned && std::wcspbrk(flag, L"+ "))
                        continue; // without meaning
                    const std::wstring pattern = head + kind;
                    for (const int integer : integers) {
                        std::swprintf(expected, std::size(expected), pattern.c_str(), integer);
                        ASSERT_EQ(format(pattern.c_str(), integer), expected)
                            << std::string(pattern.begin(), pattern.end());
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace host
