#include "host/ui/file_dialog.h"
#include "host/ui/modal_dialog.h"
#include "tests/support/command_test.h"

namespace {

using Rows = std::vector<std::size_t>;

class Settings : public host::ModalDialog {
public:
    Settings()
    {
        all.changed = [this] { layers.enabled = !all.checked; };
    }
    host::TextPane& hint = add<host::TextPane>(L"Choose.");
    host::CheckBox& all = add<host::CheckBox>(L"Everything", true);
    host::ChoiceList& layers = add<host::ChoiceList>(std::vector<std::wstring>{L"roads", L"trees"});
    host::CheckBox& quiet = add<host::CheckBox>(L"Quiet", false);
};

int outcome;
bool everything;
Rows layers;

class ModalDialogTest : public CommandTest {
protected:
    ModalDialogTest()
    {
        command(L"DLG", [] {
            Settings dialog;
            outcome = dialog.DoModal();
            everything = dialog.all.checked;
            layers = dialog.layers.chosen;
        });
        type(L"");
        printed();
    }
};

} // namespace

TEST_F(ModalDialogTest, AsksForItsControlsInTabOrder)
{
    EXPECT_EQ(transcript(L"dlg 0 x all 1\n"),
              L"dlg\nChoose.\nEverything [0/1]<1>: 0\n1 roads\n2 trees\n"
              L"Select [numbers/All]<none>: x\nRequires numbers of rows, apart by commas.\n"
              L"Select [numbers/All]<none>: all\nQuiet [0/1]<0>: 1\nCommand: ");
    EXPECT_EQ(outcome, IDOK);
    EXPECT_FALSE(everything);
    EXPECT_EQ(layers, (Rows{0, 1}));
}

TEST_F(ModalDialogTest, PassesOverWhatIsDisabled)
{
    EXPECT_EQ(transcript(L"dlg\n\n2 \n"),
              L"dlg\nChoose.\nEverything [0/1]<1>: \nQuiet [0/1]<0>: 2\nRequires 0 or 1.\n"
              L"Quiet [0/1]<0>: \nCommand: "); // the blank ended "2", the line end is Enter
    EXPECT_TRUE(everything);
}

TEST_F(ModalDialogTest, CancelIsCancel)
{
    type(L"dlg 0 1 \x1b");
    EXPECT_EQ(outcome, IDCANCEL);
}

TEST(ChosenRows, AreNumbersAndRuns)
{
    EXPECT_EQ(host::chosenRows(L"3,1", 5), (Rows{0, 2}));
    EXPECT_EQ(host::chosenRows(L"2-4,3", 5), (Rows{1, 2, 3}));
    EXPECT_EQ(host::chosenRows(L"a", 2), (Rows{0, 1}));
    for (const wchar_t* refused : {L"0", L"6", L"4-2", L"1,", L"x", L"1-9"})
        EXPECT_EQ(host::chosenRows(refused, 5), std::nullopt) << refused;
}
