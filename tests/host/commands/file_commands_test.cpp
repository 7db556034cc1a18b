#include "host/commands/drawing_files.h"
#include "host/files/paths.h"
#include "tests/support/opened_drawing.h"

#include <fstream>
#include <iterator>

namespace {

std::string contents(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class FileCommands : public DrawingTest {
protected:
    FileCommands()
    {
        drawing_.line();
        drawing_.layer("walls");
        type(L"");
        printed();
    }
    std::wstring shown(const char* name) const { return host::shownPath(folder() / name); }
    std::wstring quoted(const char* name) const { return L'"' + shown(name) + L'"'; }
    std::wstring current() { return session().documents().curDocument()->fileName(); }

    DxfDrawing drawing_;
};

TEST_F(FileCommands, OpenMakesTheDrawingCurrent)
{
    drawing_.write(folder(), "a b.dxf");
    type(L"OPEN\n" + quoted("a b.dxf") + L"\n");
    EXPECT_EQ(current(), shown("a b.dxf"));
    EXPECT_EQ(session().documents().documentCount(), 2);
}

TEST_F(FileCommands, OpenTellsWhyADrawingCannotBeRead)
{
    const int before = host::drawingFailures();
    std::ofstream(folder() / "real.dwg") << "AC1032" << std::string(100, '\0');
    drawing_.write(folder());
    const std::string whole = contents(folder() / "drawing.dxf");
    std::ofstream(folder() / "cut.dxf") << whole.substr(0, whole.size() / 2);
    for (const char* name : {"real.dwg", "cut.dxf", "missing.dxf"}) {
        const std::wstring told = transcript(L"OPEN\n" + quoted(name) + L"\n");
        EXPECT_NE(told.find(shown(name), told.find(L"\n", told.find(L"open:"))), std::wstring::npos)
            << name;
        EXPECT_EQ(current(), L"Drawing1.dxf");
    }
    EXPECT_EQ(host::drawingFailures() - before, 3);
}

TEST_F(FileCommands, QsaveWritesUnderTheSameName)
{
    open(drawing_);
    const std::string before = contents(folder() / "drawing.dxf");
    type(L"QSAVE\n");
    EXPECT_EQ(contents(folder() / "drawing.dxf"), before);
    type(L"ERASE\nALL\n\nQSAVE\n");
    EXPECT_EQ(contents(folder() / "drawing.dxf").find("\nLINE\n"), std::string::npos);
    EXPECT_EQ(contents(folder() / "drawing.dxf.bak"), before);
    EXPECT_FALSE(database().isModified());
}

TEST_F(FileCommands, QsaveOfANewDrawingAsksForTheName)
{
    type(L"QSAVE\n" + quoted("fresh.dxf") + L"\n");
    EXPECT_TRUE(std::filesystem::exists(folder() / "fresh.dxf"));
    EXPECT_EQ(current(), shown("fresh.dxf"));
}

TEST_F(FileCommands, SaveasReplacesOnlyWhenTold)
{
    open(drawing_);
    std::ofstream(folder() / "other.dxf") << "kept";
    EXPECT_NE(transcript(L"SAVEAS\n" + quoted("other.dxf") + L"\nN\n")
                  .find(shown("other.dxf") + L" exists. Replace? [Yes/No]<N>: "),
              std::wstring::npos);
    EXPECT_EQ(contents(folder() / "other.dxf"), "kept");
    EXPECT_EQ(current(), shown("drawing.dxf"));
    type(L"SAVEAS\n" + quoted("other.dxf") + L"\nY\n");
    EXPECT_EQ(contents(folder() / "other.dxf"), contents(folder() / "drawing.dxf"));
    EXPECT_EQ(contents(folder() / "other.dxf.bak"), "kept");
    EXPECT_EQ(current(), shown("other.dxf"));
}

TEST_F(FileCommands, ADrawingOpenedForReadingKeepsItsFile)
{
    open(drawing_);
    session().documents().curDocument()->setReadOnly(true);
    const std::string before = contents(folder() / "drawing.dxf");
    type(L"ERASE\nALL\n\nQSAVE\nSAVEAS\n" + quoted("drawing.dxf") + L"\nY\n");
    EXPECT_EQ(contents(folder() / "drawing.dxf"), before);
    type(L"SAVEAS\n" + quoted("copy.dxf") + L"\n");
    EXPECT_EQ(contents(folder() / "copy.dxf").find("\nLINE\n"), std::string::npos);
}

TEST_F(FileCommands, AFailedSaveLeavesTheDrawingOpenAndChanged)
{
    open(drawing_);
    const int before = host::drawingFailures();
    type(L"ERASE\nALL\n\n");
    printed();
    const std::wstring told = transcript(L"SAVEAS\n" + quoted("nowhere/x.dxf") + L"\n");
    EXPECT_NE(told.find(L"nowhere"), std::wstring::npos);
    EXPECT_EQ(current(), shown("drawing.dxf"));
    EXPECT_TRUE(database().isModified());
    EXPECT_EQ(host::drawingFailures() - before, 1);
}

TEST_F(FileCommands, CloseAndQuitAskOnlyWhenChangesWouldBeLost)
{
    open(drawing_);
    type(L"ERASE\nALL\n\n");
    EXPECT_NE(transcript(L"CLOSE\n\n")
                  .find(L"Really want to discard all changes to drawing? [Yes/No] <N>: "),
              std::wstring::npos);
    EXPECT_EQ(current(), shown("drawing.dxf"));
    EXPECT_FALSE((type(L"QUIT\nN\n"), session().engine().finished()));
    type(L"CLOSE\nY\n");
    EXPECT_EQ(current(), L"Drawing1.dxf");
    EXPECT_EQ(transcript(L"QUIT\n"), L"QUIT\n");
    EXPECT_TRUE(session().engine().finished());
}

TEST_F(FileCommands, CommandsTellWhenNothingIsOpen)
{
    type(L"CLOSE\n");
    ASSERT_EQ(session().documents().curDocument(), nullptr);
    for (const wchar_t* name : {L"LIST", L"ERASE", L"QSAVE", L"SAVEAS", L"-LAYER", L"U", L"UNDO",
                                L"REDO", L"AUDIT", L"REGEN", L"PSELECT", L"SELECT", L"CLOSE"})
        EXPECT_EQ(transcript(std::wstring(name) + L"\n"),
                  std::wstring(name) + L"\nNo drawing is open.\nCommand: ");
    type(L"NEW\n");
    EXPECT_NE(session().documents().curDocument(), nullptr);
}

TEST_F(FileCommands, AuditTellsWhatWasKeptThoughWrong)
{
    open(drawing_);
    EXPECT_EQ(transcript(L"AUDIT\n"), L"AUDIT\nTotal warnings found 0\nCommand: ");
    DxfDrawing wrong;
    wrong.entity("LINE", "AcDbLine", "10\n0.0\n20\n0.0\n30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n");
    wrong.object("0\nXRECORD\n5\n100\n330\nC\n100\nAcDbXrecord\n"); // the line's handle again
    const std::wstring path = host::shownPath(wrong.write(folder(), "wrong.dxf"));
    EXPECT_NE(
        transcript(L"OPEN\n" + path + L"\n")
            .find(L"\nwrong.dxf: 1 record with the handle of another; it was given a new one\n"
                  L"Command: "),
        std::wstring::npos);
    EXPECT_EQ(transcript(L"AUDIT\n"),
              L"AUDIT\n1 record with the handle of another; it was given a new one\n"
              L"Total warnings found 1\nCommand: ");
}

} // namespace
