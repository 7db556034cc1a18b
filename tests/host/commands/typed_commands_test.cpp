#include "host/edit/selection.h"
#include "host/files/paths.h"
#include "tests/support/opened_drawing.h"

#include <fstream>

namespace {

class TypedCommands : public DrawingTest {
protected:
    TypedCommands()
    {
        DxfDrawing drawing;
        drawing.layer("open");
        drawing.layer("locked", 4);
        open_ = drawing.line("open");
        locked_ = drawing.line("locked");
        open(drawing);
        type(L"");
        printed();
    }
    std::wstring script(const char* name, std::string_view text)
    {
        std::ofstream(folder() / name, std::ios::binary) << text;
        return host::shownPath(folder() / name);
    }

    std::string open_;
    std::string locked_;
};

TEST_F(TypedCommands, EraseLeavesWhatIsOnLockedLayers)
{
    EXPECT_NE(transcript(L"ERASE\nALL\n\n").find(L"1 was on a locked layer.\n"),
              std::wstring::npos);
    EXPECT_TRUE(idOf(open_).isErased());
    EXPECT_FALSE(idOf(locked_).isErased());
}

TEST_F(TypedCommands, EraseIsTakenBackByU)
{
    type(L"PSELECT\n(handent \"" + std::wstring(open_.begin(), open_.end()) + L"\")\n\nERASE\n");
    EXPECT_TRUE(idOf(open_).isErased());
    EXPECT_TRUE(host::currentPickFirst().empty());
    type(L"U\n");
    EXPECT_FALSE(idOf(open_).isErased());
    EXPECT_FALSE(database().isModified());
}

TEST_F(TypedCommands, PselectMakesAndEmptiesThePickFirstSet)
{
    type(L"PSELECT\nALL\n\n");
    EXPECT_EQ(host::currentPickFirst().size(), 2u);
    type(L"PSELECT\n\n");
    EXPECT_TRUE(host::currentPickFirst().empty());
    type(L"PSELECT\nP\n\n");
    EXPECT_EQ(host::currentPickFirst().size(), 2u);
    type(L"PSELECT\nALL\n\x1b");
    EXPECT_TRUE(host::currentPickFirst().empty()) << "the set went when the command began";
}

TEST_F(TypedCommands, SelectRemembersForP)
{
    type(L"SELECT\nL\n\n");
    EXPECT_TRUE(host::currentPickFirst().empty());
    EXPECT_EQ(host::previousSelection(), std::vector<AcDbObjectId>{idOf(locked_)});
}

TEST_F(TypedCommands, ScriptTypesItsLines)
{
    const std::wstring path = script("two words.scr", "\xEF\xBB\xBF; comment\r\n-LAYER N one \r\n"
                                                      "-LAYER\r\nN\r\ntwo\r\n\r\n-LAYER N three ");
    const std::wstring told = transcript(L"SCRIPT\n\"" + path + L"\"\nREGEN\n");
    for (const wchar_t* name : {L"one", L"two", L"three"})
        EXPECT_NE(transcript(L"-LAYER ? * \n").find(L"\"" + std::wstring(name) + L"\"  on"),
                  std::wstring::npos)
            << name;
    EXPECT_TRUE(told.ends_with(L"Command: REGEN\nRegenerating model.\nCommand: "));
    EXPECT_EQ(session().engine().unknownCommands(), 0);
}

TEST_F(TypedCommands, AScriptThatIsMissingIsTold)
{
    const std::wstring told = transcript(L"SCRIPT\nmissing.scr\nREGEN\n");
    EXPECT_NE(told.find(L"missing.scr", told.find(L"missing.scr") + 1), std::wstring::npos);
    EXPECT_TRUE(told.ends_with(L"Command: REGEN\nRegenerating model.\nCommand: "));
}

TEST_F(TypedCommands, ScriptsNest)
{
    const std::wstring inner = script("inner.scr", "LUPREC 7\n");
    script("outer.scr", "SCRIPT\n" + std::string(inner.begin(), inner.end()) + "\nLUPREC\n\n");
    const std::wstring told = transcript(L"SCRIPT\n" + host::shownPath(folder() / "outer") + L"\n");
    EXPECT_NE(told.find(L"Enter new value for LUPREC <7>: \n"), std::wstring::npos);
}

TEST_F(TypedCommands, SetvarAsksShowsAndLists)
{
    EXPECT_EQ(transcript(L"SETVAR\nLUPREC\n6\n"), L"SETVAR\n"
                                                  L"Enter variable name or [?]: LUPREC\n"
                                                  L"Enter new value for LUPREC <4>: 6\n"
                                                  L"Command: ");
    EXPECT_EQ(database().luprec(), 6);
    EXPECT_NE(transcript(L"SETVAR ? LUPR*\n").find(L"\nLUPREC              6\nCommand: "),
              std::wstring::npos);
    EXPECT_NE(transcript(L"SETVAR nonsense\n").find(L"Unknown variable name."), std::wstring::npos);
}

TEST_F(TypedCommands, HelpNamesEveryCommand)
{
    const std::wstring told = transcript(L"HELP\n");
    for (const wchar_t* name :
         {L"-LAYER", L"AUDIT",  L"CLOSE",   L"ERASE",  L"HELP", L"LAYER", L"LIST",
          L"NEW",    L"OPEN",   L"PSELECT", L"QSAVE",  L"QUIT", L"REDO",  L"REGEN",
          L"SAVEAS", L"SCRIPT", L"SELECT",  L"SETVAR", L"U",    L"UNDO"})
        EXPECT_NE(told.find(L"\n" + std::wstring(name) + L"\n"), std::wstring::npos) << name;
}

} // namespace
