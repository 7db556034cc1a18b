#include "dialogs/gui_classify.h"

#include "dialogs/gui_od.h"
#include "host/ui/file_dialog.h"
#include "tests/support/command_test.h"

namespace {

ClassifyParameters parameters;
std::vector<std::wstring> names;
int outcome;
int presses; // of "Select All" before the list is answered

// Assign, attach and change as digits.
std::string answers()
{
    return std::string(parameters.assign ? "1" : "0") + (parameters.attach ? "1" : "0") +
           (parameters.change ? "1" : "0");
}

class ClassifyDialogTest : public CommandTest {
protected:
    ClassifyDialogTest()
    {
        parameters = {};
        command(L"ASK", [] { outcome = GUIClassify(parameters).DoModal(); });
        presses = 0;
        command(L"PICKNAMES", [] {
            GUIOD dialog(names);
            for (int press = 0; press < presses; ++press)
                dialog.SelectAll();
            outcome = dialog.DoModal();
        });
        type(L"");
        printed();
    }
};

} // namespace

TEST_F(ClassifyDialogTest, OpensWithEverythingCheckedTheFirstTime)
{
    EXPECT_EQ(transcript(L"ask\n\n\n\n"), L"ask\nAssign graphical properties [0/1]<1>: \n"
                                          L"Attach OD [0/1]<1>: \nChange object [0/1]<1>: \n"
                                          L"Command: ");
    EXPECT_EQ(outcome, IDOK);
    EXPECT_EQ(answers(), "111");
}

TEST_F(ClassifyDialogTest, WithoutAttachingThereIsNoChange)
{
    EXPECT_EQ(transcript(L"ask\n1\n0\n"), L"ask\nAssign graphical properties [0/1]<1>: 1\n"
                                          L"Attach OD [0/1]<1>: 0\nCommand: ");
    EXPECT_EQ(answers(), "100");
    EXPECT_EQ(transcript(L"ask\n0\n1\n\n"), L"ask\nAssign graphical properties [0/1]<1>: 0\n"
                                            L"Attach OD [0/1]<0>: 1\nChange object [0/1]<0>: \n"
                                            L"Command: ");
    EXPECT_EQ(answers(), "010");
}

TEST_F(ClassifyDialogTest, CancelKeepsTheValuesOfTheLastOk)
{
    type(L"ask\n0\n1\n0\n");
    for (const wchar_t* typed : {L"ask\n\x3", L"ask\n1\n\x3", L"ask\n1\n1\n\x3"}) {
        type(typed);
        EXPECT_EQ(outcome, IDCANCEL);
        EXPECT_EQ(answers(), "010");
    }
}

TEST_F(ClassifyDialogTest, TheListIsSortedAndKeepsWhatIsSelected)
{
    using Names = std::vector<std::wstring>;
    const struct {
        const wchar_t* typed;
        Names kept;
    } cases[] = {
        {L"2\n", {L"gate"}},
        {L"1,3\n", {L"wall", L"Door"}},
        {L"All\n", {L"wall", L"gate", L"Door"}},
        {L"\n", {}},
        {L"4\n2-3\n", {L"wall", L"gate"}},
        {L"\x3", {L"wall", L"gate", L"Door"}},
    };
    for (const auto& row : cases) {
        names = {L"wall", L"gate", L"Door"};
        const std::wstring printed = transcript(L"picknames\n" + std::wstring(row.typed));
        EXPECT_NE(printed.find(L"1 Door\n2 gate\n3 wall\nSelect [numbers/All]<none>: "),
                  std::wstring::npos);
        EXPECT_EQ(names, row.kept);
        EXPECT_EQ(outcome, row.typed[0] == L'\x3' ? IDCANCEL : IDOK);
    }
}

TEST_F(ClassifyDialogTest, AnUnselectedRowTakesTheFirstOfEqualNames)
{
    names = {L"gate", L"wall", L"gate"};
    type(L"picknames\n1,3\n");
    EXPECT_EQ(names, (std::vector<std::wstring>{L"wall", L"gate"}));
}

TEST_F(ClassifyDialogTest, SelectAllASecondTimeSelectsNothing)
{
    const struct {
        int presses;
        const wchar_t* shown;
        std::size_t kept;
    } cases[] = {{1, L"<1,2,3>: ", 3}, {2, L"<none>: ", 0}, {3, L"<1,2,3>: ", 3}};
    for (const auto& row : cases) {
        names = {L"wall", L"gate", L"Door"};
        presses = row.presses;
        EXPECT_NE(transcript(L"picknames\n\n").find(row.shown), std::wstring::npos);
        EXPECT_EQ(names.size(), row.kept);
    }
    names.clear();
    type(L"picknames\n\n");
    EXPECT_TRUE(names.empty());
}
