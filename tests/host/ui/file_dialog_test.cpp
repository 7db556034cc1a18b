#include "host/files/paths.h"
#include "host/ui/file_dialog.h"
#include "host/ui/message_box.h"
#include "tests/support/command_test.h"

#include <fstream>

namespace {

int outcome;
std::wstring chosen;
std::wstring offered;

class FileDialogTest : public CommandTest {
protected:
    FileDialogTest()
    {
        std::ofstream(folder() / "plain.txt") << "x";
        std::ofstream(folder() / "two words.txt") << "x";
        chosen.clear();
        outcome = 0;
        offered = path("offered.txt");
        command(L"OPENS", [] {
            CAcUiFileDialog dialog(true, nullptr, offered, 6, L"Text files (*.txt)|*.txt||",
                                   nullptr);
            outcome = dialog.DoModal();
            chosen = dialog.GetPathName();
        });
        command(L"SAVES", [] {
            CAcUiFileDialog dialog(false, L"txt", L"",
                                   OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_CREATEPROMPT, L"",
                                   nullptr);
            outcome = dialog.DoModal();
            chosen = dialog.GetPathName();
        });
        type(L"");
        printed();
    }
    std::wstring path(const char* name) const { return host::shownPath(folder() / name); }
};

} // namespace

TEST_F(FileDialogTest, AsksForThePathOnTheCommandLine)
{
    EXPECT_EQ(transcript(L"opens " + path("plain.txt") + L"\n"),
              L"opens\nEnter name of file to open <" + offered + L">: " + path("plain.txt") +
                  L"\nCommand: ");
    EXPECT_EQ(outcome, IDOK);
    EXPECT_EQ(chosen, path("plain.txt"));

    type(L"opens \"" + path("two words.txt") + L"\"\n");
    EXPECT_EQ(chosen, path("two words.txt"));
    type(L"opens " + path("PLAIN.TXT") + L"\n"); // as the disk writes it
    EXPECT_EQ(chosen, path("plain.txt"));
    type(L"opens\n\n"); // Enter is the name offered
    EXPECT_EQ(chosen, offered);
    type(L"opens\n\x1b");
    EXPECT_EQ(outcome, IDCANCEL);
    EXPECT_EQ(chosen, L"");
}

TEST_F(FileDialogTest, AsksBeforeAFileIsReplaced)
{
    type(L"saves " + path("fresh") + L"\n");
    EXPECT_EQ(chosen, path("fresh.txt"));
    printed();
    type(L"saves " + path("plain") + L"\n");
    EXPECT_TRUE(printed().ends_with(path("plain.txt") + L" exists. Replace? [Yes/No]<N>: "));
    type(L"y\n");
    EXPECT_EQ(outcome, IDOK);
    for (const wchar_t* answer : {L"\n", L"n\n", L"\x1b"}) {
        type(L"saves " + path("plain") + L"\n");
        type(answer);
        EXPECT_EQ(outcome, IDCANCEL);
    }
    type(L"saves\n\n"); // nothing offered
    EXPECT_EQ(outcome, IDCANCEL);
}

TEST_F(FileDialogTest, AsksAgainWhereThereIsNoFolder)
{
    const std::wstring away = path("away");
    printed();
    type(L"saves " + away + L"/a.txt " + path("a.txt") + L"\n");
    EXPECT_NE(printed().find(away + L": there is no such folder.\nEnter name of file to save: "),
              std::wstring::npos);
    EXPECT_EQ(chosen, path("a.txt"));
}

TEST_F(FileDialogTest, MessageBoxPrintsTitleAndText)
{
    command(L"BOX1", [] { MessageBoxW(nullptr, L"It broke.", L"Error", MB_ICONERROR); });
    command(L"BOX2", [] { outcome = MessageBoxW(nullptr, L"Go on?", L"Question", MB_YESNO); });
    EXPECT_EQ(transcript(L"box1\n"), L"box1\nError\nIt broke.\nCommand: ");
    EXPECT_EQ(transcript(L"box2 n\n"), L"box2\nQuestion\nGo on?\n[Yes/No]<Yes>: n\nCommand: ");
    EXPECT_EQ(outcome, IDNO);
}
