#include "host/edit/environment.h"
#include "host/files/paths.h"
#include "tests/support/command_test.h"

#include <fstream>
#include <unistd.h>

namespace {

std::wstring notices;

class Listener : public AcApDocManagerReactor {
public:
    void documentCreated(AcApDocument* d) override { note(L"created ", d); }
    void documentToBeDestroyed(AcApDocument* d) override { note(L"going ", d); }
    void documentDestroyed(const wchar_t* name) override
    {
        notices += L"gone " + std::wstring(name) + L';';
    }
    void documentToBeDeactivated(AcApDocument* d) override { note(L"leaving ", d); }
    void documentActivated(AcApDocument* d) override { note(L"active ", d); }

private:
    static void note(const wchar_t* what, AcApDocument* document)
    {
        notices += what + document->fileName() + L';';
    }
};

class DocumentTest : public CommandTest {
protected:
    DocumentTest() { acDocManagerPtr()->addReactor(&listener_); }
    ~DocumentTest() override { acDocManagerPtr()->removeReactor(&listener_); }

    AcApDocManager& documents() { return *acDocManagerPtr(); }
    Listener listener_;
};

} // namespace

TEST_F(DocumentTest, TheWorkingDatabaseFollowsTheCurrentDocument)
{
    AcApDocument* const first = curDoc();
    notices.clear();
    AcApDocument* const second = documents().newDocument();
    EXPECT_EQ(curDoc(), second);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), second->database());
    EXPECT_EQ(documents().document(first->database()), first);
    documents().closeDocument(second);
    EXPECT_EQ(curDoc(), first);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    EXPECT_EQ(notices, L"leaving Drawing1.dxf;active Drawing2.dxf;created Drawing2.dxf;"
                       L"going Drawing2.dxf;leaving Drawing2.dxf;active Drawing1.dxf;"
                       L"gone Drawing2.dxf;");
    documents().closeDocument(first);
    EXPECT_EQ(curDoc(), nullptr);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
    type(L"luprec\n"); // the editor lives on without a drawing
    EXPECT_EQ(session().engine().waiting().command, L"SETVAR");
}

TEST_F(DocumentTest, EachHasItsQueueAndItsSelection)
{
    AcApDocument* const first = curDoc();
    host::setPickFirst({first->database()->layerZero()});
    documents().newDocument();
    EXPECT_TRUE(host::currentPickFirst().empty());
    documents().sendStringToExecute(first, L"luprec 7\n", false);
    session().engine().run();
    EXPECT_EQ(first->database()->luprec(), 4); // waits for its document
    documents().setCurDocument(first);
    session().engine().run();
    EXPECT_EQ(first->database()->luprec(), 7);
}

TEST_F(DocumentTest, AFileThatCannotBeReadOpensNothing)
{
    std::ofstream(folder() / "bad.dxf") << "nonsense\n";
    std::wstring message;
    notices.clear();
    EXPECT_EQ(documents().openDocument(folder() / "bad.dxf", false, message), nullptr);
    EXPECT_NE(message, L"");
    EXPECT_EQ(documents().documentCount(), 1);
    EXPECT_EQ(notices, L"");
}

TEST_F(DocumentTest, SavedAndOpenedAgainItHasItsPath)
{
    const std::filesystem::path path = folder() / "a b.dxf";
    ASSERT_EQ(database().saveAs(path), Acad::eOk);
    std::wstring message;
    AcApDocument* const document = documents().openDocument(path, true, message);
    ASSERT_NE(document, nullptr) << std::string(message.begin(), message.end());
    EXPECT_EQ(document->fileName(), host::shownPath(path));
    const std::pair<const wchar_t*, std::wstring> cases[] = {
        {L"DWGNAME", L"a b.dxf"},
        {L"DWGPREFIX", host::shownPath(folder()) + L"/"},
    };
    resbuf value;
    for (const auto& [name, expected] : cases) {
        acedGetVar(name, value);
        EXPECT_EQ(value.resval.rstring, expected);
    }
    EXPECT_EQ(host::integerVariable(L"DWGTITLED", -1), 1);
    EXPECT_EQ(host::integerVariable(L"WRITESTAT", -1), 0);
    EXPECT_EQ(host::integerVariable(L"DBMOD", -1), 0);
    type(L"luprec 7\n");
    EXPECT_EQ(host::integerVariable(L"DBMOD", -1), 1);
}

TEST(Environment, TheSupportPathBeginsWithTheFoldersOfProgramAndProfile)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("environment-test-" + std::to_string(getpid()));
    const std::wstring own = host::shownPath(folder / "support");
    const auto get = [](const wchar_t* name) {
        std::wstring value;
        return acedGetEnv(name, value) == RTNORM ? value : L"(none)";
    };
    {
        host::UserProfile profile(folder);
        host::setEnvironment(&profile, L"/given");
        EXPECT_EQ(get(L"ACAD"), L"/given;" + own);
        EXPECT_EQ(acedSetEnv(L"acad", L"/given;" + own + L";/more;"), RTNORM);
        EXPECT_EQ(get(L"ACAD"), L"/given;" + own + L";/more;");
        EXPECT_EQ(get(L"Colour"), L"(none)");
        EXPECT_EQ(acedSetEnv(L"Colour", L"blue"), RTNORM);
    }
    {
        host::UserProfile profile(folder);
        host::setEnvironment(&profile); // without the program's folder
        EXPECT_EQ(get(L"ACAD"), own + L";/more;");
        EXPECT_EQ(get(L"COLOUR"), L"blue");
        acedSetEnv(L"ACAD", L"/other");
        EXPECT_EQ(get(L"ACAD"), own + L";/other");
    }
    host::setEnvironment(nullptr);
    EXPECT_EQ(get(L"ACAD"), L"(none)");
    std::filesystem::remove_all(folder);
}
