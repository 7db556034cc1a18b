#include "host/text/drawing_text.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace std::string_literals;

TEST(DrawingText, UnderstandsEscapes)
{
    const std::pair<std::string, std::wstring> cases[] = {
        {"plain", L"plain"},
        {"\\U+0416x", L"\u0416x"},
        {"\\U+00e9", L"\u00E9"},
        {"\\U+D83D\\U+DE00!", L"\U0001F600!"},
        {"\\U+005E \\U+005CU+0041", L"^ \\U+0041"}, // what an escape gives is not read again
        {"\\M+182A0", L"\u3042"},
        {"\\M+2A4A4", L"\u4E2D"},
        {"\\M+3B0A1", L"\uAC00"},
        {"\\M+48861", L"\uAC00"},
        {"\\M+5D6D0", L"\u4E2D"},
        {"\\M+100B1", L"\uFF71"},
        {"one^Jtwo^Mthree^I^@^_", L"one\ntwo\rthree\t\0\x1F"s},
        {"2^ 3", L"2^3"},
        {"^ ^ ", L"^^"},
        {"^ J", L"^J"},
    };
    const CodePage page;
    for (const auto& [bytes, text] : cases) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(decodeDrawingText(bytes, page), text);
    }
}

TEST(DrawingText, LeavesWhatIsNoEscape)
{
    const std::wstring cases[] = {
        L"\\",
        L"\\U",
        L"\\U+",
        L"\\U+12",
        L"\\U+12G4",
        L"\\u+0041",
        L"\\M+",
        L"\\M+1",
        L"\\M+182A",
        L"\\M+682A0",
        L"\\M+08140",
        L"\\M+1FFFF",
        L"^",
        L"^j",
        L"^1",
        L"x^",
        L"\\P{\\fArial;}",
        L"\\U+D83D",
        L"\\U+D83D\\U+0041"s.substr(0, 9),
        L"\\U+DE00",
        L"\\U+DC80",
    };
    const CodePage page;
    for (const std::wstring& text : cases)
        EXPECT_EQ(decodeDrawingText(std::string(text.begin(), text.end()), page), text);
    EXPECT_EQ(decodeDrawingText("\\U+D83D\\U+0041", page), L"\\U+D83DA");
}

TEST(DrawingText, SpellsOutWhatThePageLacks)
{
    const std::pair<std::wstring, std::string> cases[] = {
        {L"\u00E9\u0416", "\xE9\\U+0416"},
        {L"\U0001F600", "\\U+D83D\\U+DE00"},
        {L"\xDC81", "\x81"},
        {L"\u0081", "\\U+0081"},
        {L"2^3^", "2^ 3^ "},
        {L"a\n\t\r\0\x1F"s, "a^J^I^M^@^_"},
    };
    const CodePage page;
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(encodeDrawingText(text, page), bytes);
        EXPECT_EQ(decodeDrawingText(bytes, page), text);
    }
    EXPECT_EQ(encodeDrawingText(L"\u0416\U0001F600\n", CodePage::utf8()),
              "\xD0\x96\xF0\x9F\x98\x80^J");
}

// Every text that a file can give must be given again by what is written for it. All texts of a few
// pieces that mean something to the decoder, in each kind of page.
TEST(DrawingText, ReadsTheSameAfterWriting)
{
    const std::string pieces[] = {"\\",   "U+",   "00E9",     "\\U+", "D83D",     "\\U+DE00",
                                  "M+",   "1",    "82A0",     "^",    " ",        "J",
                                  "\x81", "\xE9", "\xC3\xA9", "a",    "\\U+005E", "\\U+005C"};
    const CodePage pages[] = {CodePage(), CodePage::utf8(),
                              CodePage::forDrawing("ANSI_1251", false)};
    for (const CodePage& page : pages) {
        for (const std::string& a : pieces) {
            for (const std::string& b : pieces) {
                for (const std::string& c : pieces) {
                    for (const std::string& d : pieces) {
                        const std::string bytes = a + b + c + d;
                        // An escaped backslash that completes another escape is the one text that
                        // cannot be written.
                        if (bytes.find("\\U+005CU+") != std::string::npos ||
                            bytes.find("\\U+005CM+") != std::string::npos)
                            continue;
                        const std::wstring text = decodeDrawingText(bytes, page);
                        const std::string written = encodeDrawingText(text, page);
                        ASSERT_EQ(decodeDrawingText(written, page), text)
                            << bytes << " | " << written;
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace host
