#include "frame/prompts.h"

#include "frame/command_frame.h"
#include "frame/command_posting.h"
#include "frame/echo_off.h"
#include "session/session.h"
#include "tests/support/command_test.h"

namespace {

int kept;
bool answered;
std::optional<std::wstring> objectName;
bool framed;
int echoInside;

class PromptsTest : public CommandTest {
protected:
    PromptsTest()
    {
        command(L"QUESTION", [] { answered = askZeroOne(Message::usePropertiesPrompt, kept); });
        command(L"NAME", [] { objectName = askObjectName(); });
        command(L"FRAMED", [] {
            const CommandFrame frame;
            framed = static_cast<bool>(frame);
        });
        command(L"QUIET", [] {
            const EchoOff off;
            echoInside = host::integerVariable(L"CMDECHO", -1);
        });
    }
    ~PromptsTest() override { endSession(); }
};

} // namespace

TEST_F(PromptsTest, AZeroOneQuestionKeepsAndClamps)
{
    struct Case {
        int before;
        const wchar_t* typed;
        int after;
        bool answered;
    };
    const Case cases[] = {
        {1, L"question\n0\n", 0, true},   {0, L"question\n1\n", 1, true},
        {0, L"question\n\n", 0, true},    {1, L"question\n\n", 1, true},
        {0, L"question\n17\n", 1, true},  {1, L"question\n-3\n", 0, true},
        {1, L"question\nyes\n", 0, true}, {0, L"question\n1x\n", 1, true},
        {1, L"question\n\x3", 1, false},
    };
    for (const Case& row : cases) {
        kept = row.before;
        const std::wstring printed = transcript(row.typed);
        const std::wstring prompt =
            row.before ? L"Use properties? [0/1]<1>: " : L"Use properties? [0/1]<0>: ";
        EXPECT_NE(printed.find(prompt), std::wstring::npos);
        EXPECT_EQ(kept, row.after);
        EXPECT_EQ(answered, row.answered);
    }
}

TEST_F(PromptsTest, AnObjectNameMayHoldBlanks)
{
    EXPECT_NE(transcript(L"name\nOuter Wall\n").find(L"Object: "), std::wstring::npos);
    EXPECT_EQ(objectName, L"Outer Wall");
    type(L"name\n\n");
    EXPECT_EQ(objectName, L"");
    type(L"name\n\x3");
    EXPECT_EQ(objectName, std::nullopt);
}

TEST_F(PromptsTest, TheFrameTellsWhenNoFileIsLoaded)
{
    EXPECT_NE(transcript(L"framed\n").find(L"Error: no file loaded.\n"), std::wstring::npos);
    EXPECT_FALSE(framed);
    ::session().description = std::make_shared<Description>();
    EXPECT_EQ(transcript(L"framed\n").find(L"Error"), std::wstring::npos);
    EXPECT_TRUE(framed);
}

TEST_F(PromptsTest, TheEchoIsPutBack)
{
    for (const wchar_t* typed : {L"setvar cmdecho 1\nquiet\n", L"setvar cmdecho 0\nquiet\n"}) {
        type(typed);
        const int before = typed[15] == L'1' ? 1 : 0;
        EXPECT_EQ(echoInside, 0);
        EXPECT_EQ(host::integerVariable(L"CMDECHO", -1), before);
    }
}

TEST_F(PromptsTest, PostedTextRunsOnTheCommandLine)
{
    PostCommandLine(L"name\nPosted one\n");
    objectName.reset();
    type(L"");
    EXPECT_EQ(objectName, L"Posted one");
}
