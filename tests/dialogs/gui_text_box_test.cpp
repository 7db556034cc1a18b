#include "dialogs/gui_text_box.h"
#include "host/ui/file_dialog.h"
#include "tests/support/command_test.h"

namespace {

class TextBoxTest : public CommandTest {
protected:
    // What a command prints that shows the text.
    std::wstring shown(std::wstring_view lines)
    {
        static std::wstring text;
        static int result;
        text = lines;
        result = 0;
        command(L"SHOW", [] {
            GUITextBox box;
            box.title = L"About";
            box.SetText(text);
            box.width = 500;
            box.height = 400;
            result = box.DoModal();
        });
        const std::wstring printed = transcript(L"show\n");
        EXPECT_EQ(result, IDOK);
        const std::size_t echo = printed.find(L"show\n");
        return echo == std::wstring::npos ? L"no echo" : printed.substr(echo + 5);
    }
};

} // namespace

TEST(TextBox, PutsACarriageReturnBeforeEachLineFeedAndDropsTheRest)
{
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"one\ntwo\n", L"one\r\ntwo\r"},
        {L"one\ntwo", L"one\r"},
        {L"one", L""},
        {L"", L""},
        {L"\n", L"\r"},
        {L"one\n\ntwo\n\n", L"one\r\n\r\ntwo\r\n\r"},
    };
    GUITextBox box;
    for (const auto& [lines, text] : rows) {
        SCOPED_TRACE(std::string(lines, lines + std::wcslen(lines)));
        box.SetText(lines);
        EXPECT_EQ(box.text, text);
    }
}

TEST_F(TextBoxTest, PrintsItsLines)
{
    EXPECT_EQ(shown(L"one\n\ttwo\n").substr(0, 9), L"one\n\ttwo\n");
    EXPECT_EQ(shown(L"one\nlost").find(L"lost"), std::wstring::npos);
}
