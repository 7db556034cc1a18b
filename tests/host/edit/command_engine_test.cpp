#include "host/edit/command_call.h"
#include "tests/support/command_test.h"

#include <stdexcept>

// Little commands, and what is typed and printed. "ASK" asks for a word, a number and a text.

namespace {

std::wstring notices; // what a reactor heard, in order

class Listener : public AcEditorReactor {
public:
    void commandWillStart(const wchar_t* name) override { note(L"start ", name); }
    void commandEnded(const wchar_t* name) override
    {
        note(L"end ", name);
        if (ended)
            ended(name);
    }
    void commandCancelled(const wchar_t* name) override { note(L"cancel ", name); }
    void commandFailed(const wchar_t* name) override { note(L"fail ", name); }
    void unknownCommand(const wchar_t* name) override { note(L"unknown ", name); }

    void (*ended)(std::wstring_view name) = nullptr;

private:
    static void note(const wchar_t* what, const wchar_t* name)
    {
        notices += std::wstring(what) + name + L';';
    }
};

void queue(const wchar_t* text, bool echo = true)
{
    acDocManagerPtr()->sendStringToExecute(curDoc(), text, true, false, echo);
}

ResbufChain tokens(std::initializer_list<const wchar_t*> texts)
{
    ResbufChain chain;
    for (const wchar_t* text : texts)
        chain.push_back(host::textToken(text));
    return chain;
}

std::wstring commandNames()
{
    resbuf value;
    acedGetVar(L"CMDNAMES", value);
    return value.resval.rstring;
}

void ask()
{
    std::wstring word;
    std::wstring text;
    int number = 0;
    if (acedGetString(0, L"Word: ", word) != RTNORM)
        return;
    if (acedGetInt(L"Number: ", number) == RTCAN)
        return;
    if (acedGetString(1, L"Text: ", text) != RTNORM)
        return;
    acutPrintf(L"(%s)(%i)(%s)\n", word.c_str(), number, text.c_str());
}

void say()
{
    acutPrintf(L"said");
}

class CommandEngineTest : public CommandTest {
protected:
    CommandEngineTest()
    {
        notices.clear();
        command(L"ASK", ask);
        command(L"SAY", say, ACRX_CMD_TRANSPARENT);
        session().editor().addReactor(&listener_);
    }
    ~CommandEngineTest() override { session().editor().removeReactor(&listener_); }

    std::wstring heard() { return std::exchange(notices, {}); }

    Listener listener_;
};

} // namespace

TEST_F(CommandEngineTest, TranscriptReadsLikeASessionAtTheKeyboard)
{
    printed();
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        // blanks end answers, but not of a prompt that takes them
        {L"ask one 2 three four\n",
         L"Command: ask\nWord: one\nNumber: 2\nText: three four\n(one)(2)(three four)\nCommand: "},
        {L"_ASK\none\n2\n\n", L"_ASK\nWord: one\nNumber: 2\nText: \n(one)(2)()\nCommand: "},
        {L"ask\r\none\r\n2\r\nx\r\n",
         L"ask\nWord: one\nNumber: 2\nText: x\n(one)(2)(x)\nCommand: "},
        // double quotes keep blanks together where blanks end answers, and are text elsewhere
        {L"ask \"a b\" 2 \"c\"\n",
         L"ask\nWord: \"a b\"\nNumber: 2\nText: \"c\"\n(a b)(2)(\"c\")\nCommand: "},
        // a refused answer is asked for again
        {L"ask a b 3 c\n", L"ask\nWord: a\nNumber: b\nRequires an integer value.\nNumber: 3\n"
                           L"Text: c\n(a)(3)(c)\nCommand: "},
        // a message without a line end is given one
        {L".say\n", L".say\nsaid\nCommand: "},
        // Enter alone does nothing in a script
        {L"\n", L"\nCommand: "},
        // an unknown command takes the rest of its line along
        {L"foo say say\nsay\n", L"foo\nUnknown command \"FOO\".  Press F1 for help.\nCommand: "
                                L"say\nsaid\nCommand: "},
    };
    for (const auto& [typed, expected] : cases) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        EXPECT_EQ(transcript(typed), expected);
    }
    EXPECT_EQ(session().engine().unknownCommands(), 1);
}

TEST_F(CommandEngineTest, ALineEndThatLeavesThePromptsLineMakesNoEmptyOne)
{
    command(L"OLD", [] {
        std::wstring answer;
        acedGetString(0, L"\nName: ", answer);
        acutPrintf(L"\n%s\n\nDone", answer.c_str());
    });
    printed();
    EXPECT_EQ(transcript(L"old x\n"), L"Command: old\nName: x\nx\n\nDone\nCommand: ");
    printed();
    typeAtTerminal(L"old\n");
    typeAtTerminal(L"x\n");
    EXPECT_EQ(printed(), L"Name: x\n\nDone\nCommand: ");
}

TEST_F(CommandEngineTest, CharactersMayComeOneByOne)
{
    printed();
    for (const wchar_t c : std::wstring_view(L"ask one 2 three four\n"))
        type(std::wstring_view(&c, 1));
    EXPECT_EQ(printed(),
              L"Command: ask\nWord: one\nNumber: 2\nText: three four\n(one)(2)(three four)\n"
              L"Command: ");
}

TEST_F(CommandEngineTest, CancelsByCodeAndByLine)
{
    for (const wchar_t* typed : {L"ask one\x03", L"ask one \x1b", L"ask one\n^C\n",
                                 L"ask one 7 "
                                 L"abc\x1b"}) {
        type(typed);
        EXPECT_EQ(heard(), L"start ASK;cancel ASK;") << typed;
    }
    // a line that holds more, and ^C behind a blank, are answers
    type(L"ask ^C 2 ^C is text\n");
    EXPECT_EQ(heard(), L"start ASK;end ASK;");
    EXPECT_NE(printed().find(L"(^C)(2)(^C is text)"), std::wstring::npos);
}

TEST_F(CommandEngineTest, TheEndOfInputEndsTheLastLineThenCancels)
{
    type(L"ask one");
    endInput();
    EXPECT_EQ(heard(), L"start ASK;cancel ASK;");
    EXPECT_EQ(printed(), L"Command: ask\nWord: one\nNumber: *Cancel*\n");
    EXPECT_TRUE(session().engine().finished());
}

TEST_F(CommandEngineTest, EnterRepeatsTheLastTypedCommandAtATerminalOnly)
{
    command(L"QUEUES", [] { queue(L"say\n"); });
    typeAtTerminal(L"queues\n");
    heard();
    typeAtTerminal(L"\n");
    EXPECT_EQ(heard(), L"start QUEUES;end QUEUES;start SAY;end SAY;"); // not the queued one
    type(L"\n");
    EXPECT_EQ(heard(), L"");
}

// The terminal has shown a line where it was typed: behind the prompt of its first answer.
TEST_F(CommandEngineTest, OfATerminalsLineTheFirstAnswerIsNotEchoed)
{
    printed();
    typeAtTerminal(L"ask one 2\n");
    EXPECT_EQ(printed(), L"Command: Word: one\nNumber: 2\nText: ");
    typeAtTerminal(L"three\n");
    EXPECT_EQ(printed(), L"(one)(2)(three)\nCommand: ");
    typeAtTerminal(L"ask one \n");
    EXPECT_EQ(printed(), L"Word: one\nNumber: \nText: ");
}

TEST_F(CommandEngineTest, ARepeatedCommandIsNamed)
{
    typeAtTerminal(L"ask one 2 three\n");
    printed();
    typeAtTerminal(L"\n");
    EXPECT_EQ(printed(), L"ASK\nWord: ");
}

TEST_F(CommandEngineTest, TransparentCommandRunsInsideAPrompt)
{
    type(L"ask one\n");
    printed();
    type(L"'say\n");
    EXPECT_EQ(printed(), L"'say\nsaid\nNumber: ");
    EXPECT_EQ(heard(), L"start ASK;start SAY;end SAY;");
    type(L"'ask\n");
    EXPECT_EQ(printed(), L"'ask\nThe command ASK cannot run inside another one.\nNumber: ");
    type(L"2 'say\n"); // at a prompt for text an apostrophe is text
    EXPECT_EQ(printed(), L"2\nText: 'say\n(one)(2)('say)\nCommand: ");
}

TEST_F(CommandEngineTest, PromptsOfATransparentCommandAreMarked)
{
    type(L"ask one\n");
    printed();
    type(L"'pickbox\n");
    EXPECT_EQ(printed(), L"'pickbox\n>>Enter new value for PICKBOX <3>: ");
    EXPECT_EQ(commandNames(), L"ASK'SETVAR");
    type(L"\x1b"); // cancels the inner one only
    EXPECT_EQ(printed(), L"*Cancel*\nNumber: ");
    EXPECT_EQ(commandNames(), L"ASK");
}

TEST_F(CommandEngineTest, ExceptionsAreToldAndTheCommandFails)
{
    command(L"THROWS", [] {
        std::wstring answer;
        acedGetString(0, L"Go? ", answer);
        throw std::runtime_error("out of ink");
    });
    printed();
    type(L"throws yes say\n");
    EXPECT_EQ(printed(), L"Command: throws\nGo? yes\nError in the command THROWS: out of ink\n"
                         L"Command: say\nsaid\nCommand: ");
    EXPECT_EQ(heard(), L"start THROWS;fail THROWS;start SAY;end SAY;");
}

TEST_F(CommandEngineTest, AReactorThatThrowsFailsTheCommand)
{
    listener_.ended = [](std::wstring_view) { throw std::runtime_error("no"); };
    printed();
    type(L"say\n");
    EXPECT_EQ(printed(), L"Command: say\nsaid\nError in the command SAY: no\nCommand: ");
}

TEST_F(CommandEngineTest, QueuedTextWaitsForTheOutermostCommand)
{
    command(L"QUEUES", [] {
        std::wstring answer;
        queue(L"say\n");
        acedGetString(0, L"First: ", answer); // not "say"
        acutPrintf(L"%s", answer.c_str());
    });
    printed();
    type(L"queues one ask\n");
    EXPECT_EQ(printed(),
              L"Command: queues\nFirst: one\none\nCommand: say\nsaid\nCommand: ask\nWord: ");
}

TEST_F(CommandEngineTest, TextQueuedByAReactorFeedsTheNextPrompt)
{
    command(L"DRAWS", [] {
        std::wstring point;
        if (acedGetString(0, L"Point: ", point) == RTNORM)
            acutPrintf(L"drawn at %s\n", point.c_str());
    });
    listener_.ended = [](std::wstring_view name) {
        if (name == L"DRAWS")
            queue(L"draws\n", false);
    };
    printed();
    type(L"draws a b\n");
    EXPECT_EQ(printed(), L"Command: draws\nPoint: a\ndrawn at a\nCommand: \nPoint: b\n"
                         L"drawn at b\nCommand: \nPoint: ");
    heard();
    type(L"^C\n"); // ends the command that waits; nothing is left in the queue
    EXPECT_EQ(heard(), L"cancel DRAWS;");
    EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
}

TEST_F(CommandEngineTest, AWaitingCancelReachesTheCommandThatWouldReadIt)
{
    command(L"DRAWS", [] {
        std::wstring point;
        acedGetString(0, L"Point: ", point);
    });
    listener_.ended = [](std::wstring_view) { queue(L"draws\n", false); };
    type(L"draws a\n^C\nsay\n");
    EXPECT_TRUE(heard().starts_with(L"start DRAWS;end DRAWS;start DRAWS;cancel DRAWS;start SAY;"));
}

TEST_F(CommandEngineTest, AQueueThatFeedsItselfIsStopped)
{
    static int rounds;
    rounds = 0;
    command(L"AGAIN", [] { ++rounds; });
    listener_.ended = [](std::wstring_view name) {
        if (name == L"AGAIN")
            queue(L"again\n", false);
    };
    type(L"again\n");
    EXPECT_EQ(rounds, 1001); // typed once, then queued a thousand times
    EXPECT_TRUE(heard().ends_with(L"end AGAIN;start AGAIN;cancel AGAIN;"));
    EXPECT_NE(printed().find(L"Queued commands ran 1,000 times without asking; stopped.\n"),
              std::wstring::npos);
    type(L"say\n");
    EXPECT_EQ(heard(), L"start SAY;end SAY;");
}

TEST_F(CommandEngineTest, AWaitingCancelStopsAQueueThatFeedsItself)
{
    listener_.ended = [](std::wstring_view) { queue(L"say\n", false); };
    type(L"say\n^C\n");
    EXPECT_EQ(heard(), L"start SAY;end SAY;start SAY;end SAY;start SAY;cancel SAY;");
}

TEST_F(CommandEngineTest, PostedCancelGoesBeforeTextQueuedAfterIt)
{
    type(L"ask one\n");
    heard();
    acedPostCommand(L"CANCELCMD");
    queue(L"say\n");
    session().engine().run();
    EXPECT_EQ(heard(), L"cancel ASK;start SAY;end SAY;");
}

TEST_F(CommandEngineTest, CancelByTheUserClearsTheQueue)
{
    command(L"QUEUES", [] {
        queue(L"ask\n");
        queue(L"one\nsay\n");
        host::engine().requestCancel(); // as a signal handler would, meanwhile
    });
    type(L"queues\n");
    EXPECT_EQ(heard(), L"start QUEUES;end QUEUES;start ASK;cancel ASK;");
}

TEST_F(CommandEngineTest, ACommandThatIgnoresCancelIsLeft)
{
    command(L"STUBBORN", [] {
        std::wstring answer;
        while (acedGetString(0, L"Well? ", answer) != RTNORM)
            continue;
    });
    type(L"stubborn\n");
    endInput();
    EXPECT_TRUE(session().engine().finished());
    EXPECT_EQ(heard(), L"start STUBBORN;cancel STUBBORN;");
}

TEST_F(CommandEngineTest, CallAnswersPromptsByTokens)
{
    static int result;
    command(L"CALLS", [] { result = acedCommand(tokens({L"_.ask", L"a b", L"5", L""})); });
    printed();
    type(L"calls\n");
    EXPECT_EQ(result, RTNORM);
    EXPECT_EQ(printed(), L"Command: calls\nCommand: _.ask\nWord: a b\nNumber: 5\nText: \n"
                         L"(a b)(5)()\nCommand: ");
    EXPECT_EQ(heard(), L"start CALLS;start ASK;end ASK;end CALLS;");
}

TEST_F(CommandEngineTest, CallIsSuspendedResumedAndPaused)
{
    static std::wstring names;
    static int last;
    command(L"CALLS", [] {
        acedCommand(tokens({L"ask", L"one"}));
        names = commandNames();
        acutPrintf(L"[between]\n");
        last = acedCommand(tokens({L"\\", L"three"}));
        names += L'|' + commandNames();
    });
    resbuf off{static_cast<short>(RTSHORT), {}};
    acedSetVar(L"CMDECHO", off);
    printed();
    type(L"calls\n");
    EXPECT_EQ(printed(), L"Command: calls\n[between]\nNumber: "); // only the pause is seen
    type(L"x 2\n");                                               // asked again within the pause
    EXPECT_EQ(printed(), L"x\nRequires an integer value.\nNumber: 2\n(one)(2)(three)\nCommand: ");
    EXPECT_EQ(names, L"CALLS'ASK|CALLS");
    EXPECT_EQ(last, RTNORM);
    EXPECT_EQ(heard(), L"start CALLS;start ASK;end ASK;end CALLS;");
}

TEST_F(CommandEngineTest, CallIsCancelledByTheUserInnermostFirst)
{
    static int result;
    command(L"CALLS", [] { result = acedCommand(tokens({L"ask", L"\\"})); });
    type(L"calls\n\x1b");
    EXPECT_EQ(result, RTCAN);
    EXPECT_EQ(heard(), L"start CALLS;start ASK;cancel ASK;cancel CALLS;");
}

TEST_F(CommandEngineTest, CallWithoutTokensCancels)
{
    static std::wstring names;
    command(L"CALLS", [] {
        acedCommand(tokens({L"ask", L"one"}));
        acedCommand({});
        names = commandNames();
    });
    type(L"calls\n");
    EXPECT_EQ(names, L"CALLS");
    EXPECT_EQ(heard(), L"start CALLS;start ASK;cancel ASK;end CALLS;");
}

TEST_F(CommandEngineTest, SurplusTokensAreDropped)
{
    command(L"CALLS", [] { acedCommand(tokens({L"say", L"", L"say", L"ask"})); });
    type(L"calls\n");
    EXPECT_EQ(heard(), L"start CALLS;start SAY;end SAY;end CALLS;");
    EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
}

TEST_F(CommandEngineTest, ACallerThatReturnsLeavesTheInnerCommandToTheUser)
{
    command(L"CALLS", [] { acedCommand(tokens({L"ask", L"one"})); });
    printed();
    type(L"calls 7 rest of line\n");
    EXPECT_EQ(printed(), L"Command: calls\nCommand: ask\nWord: one\nNumber: 7\n"
                         L"Text: rest of line\n(one)(7)(rest of line)\nCommand: ");
    EXPECT_EQ(heard(), L"start CALLS;start ASK;end ASK;end CALLS;");
}

TEST_F(CommandEngineTest, TokensAnswerInTheFormOfTheirPrompt)
{
    command(L"CALLS", [] {
        acedCommand({host::textToken(L"ask"), host::pointToken({1.5, 2, 0}), host::shortToken(-3),
                     host::realToken(0.25)});
    });
    printed();
    type(L"calls\n");
    EXPECT_NE(printed().find(L"(1.5,2.0,0.0)(-3)(0.25)\n"), std::wstring::npos);
}

TEST_F(CommandEngineTest, AFailedCallerTakesItsInnerCommandAlong)
{
    command(L"CALLS", [] {
        acedCommand(tokens({L"ask", L"one"}));
        throw std::runtime_error("enough");
    });
    type(L"calls\n");
    EXPECT_EQ(heard(), L"start CALLS;start ASK;cancel ASK;fail CALLS;");
}

TEST_F(CommandEngineTest, LeavingTheProgramUnwindsWhatWaits)
{
    static int open;
    open = 0;
    struct Scope {
        Scope() { ++open; }
        ~Scope() { --open; }
    };
    command(L"INNER", [] {
        const Scope scope;
        ask();
    });
    command(L"CALLS", [] {
        const Scope scope;
        acedCommand(tokens({L"inner"}));
        std::wstring answer;
        acedGetString(0, L"More: ", answer);
    });
    type(L"calls\n");
    EXPECT_EQ(open, 2);
    session().engine().abandonCommands();
    EXPECT_EQ(open, 0);
    EXPECT_EQ(commandNames(), L"");
}

TEST_F(CommandEngineTest, WhatReactorsDoAtTheEndBelongsToTheStep)
{
    listener_.ended = [](std::wstring_view name) {
        resbuf digits{static_cast<short>(RTSHORT), {}};
        digits.resval.rint = 2;
        if (name == L"SETVAR")
            acedSetVar(L"AUPREC", digits);
    };
    type(L"luprec 6\n");
    host::UndoSteps& steps = session().engine().steps();
    EXPECT_EQ(host::integerVariable(L"AUPREC", -1), 2);
    steps.undo(database().drawing());
    EXPECT_EQ(host::integerVariable(L"AUPREC", -1), 0);
    EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 4);
}

TEST_F(CommandEngineTest, CommandsInsideACommandBelongToItsStep)
{
    command(L"CALLS", [] {
        acedCommand(tokens({L"luprec", L"6"}));
        acedCommand(tokens({L"auprec", L"3"}));
    });
    type(L"calls\n");
    EXPECT_EQ(host::integerVariable(L"AUPREC", -1), 3);
    EXPECT_EQ(session().engine().steps().undo(database().drawing()), L"CALLS");
    EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 4);
}

TEST_F(CommandEngineTest, CallRefuses)
{
    static std::vector<int> results;
    results.clear();
    command(L"THROWS", [] { throw 1; });
    command(L"CALLS", [] {
        results = {acedCommand(tokens({L"nonsense"})), acedCommand(tokens({L"throws"}))};
    });
    EXPECT_EQ(acedCommand(tokens({L"say"})), RTERROR); // outside of a command
    type(L"calls\n");
    EXPECT_EQ(results, (std::vector{RTERROR, RTERROR}));
    EXPECT_EQ(heard(), L"start CALLS;unknown NONSENSE;start THROWS;fail THROWS;end CALLS;");
    EXPECT_EQ(session().engine().unknownCommands(), 0); // nobody typed it
}

TEST_F(CommandEngineTest, PickFirstGoesUnlessTheCommandUsesIt)
{
    command(
        L"USES", [] {}, ACRX_CMD_USEPICKSET);
    const AcDbObjectId layer = database().layerZero(); // any living object will do
    host::setPickFirst({layer});
    type(L"uses\n");
    EXPECT_EQ(host::currentPickFirst().size(), 1u);
    type(L"say\n");
    EXPECT_EQ(host::currentPickFirst().size(), 0u);
}

TEST_F(CommandEngineTest, CommandsAreFoundByTheirNames)
{
    session().commands().addCommand(L"TEST", L"GLOBAL", L"LOCAL", 0, say);
    printed();
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"local", true},    {L"LOCAL", true},    {L"_global", true},
        {L"_.Global", true}, {L"._global", true}, {L".local", true},
        {L"_local", false},  {L"_", false},       {L"globa", false},
    };
    for (const auto& [typed, found] : cases)
        EXPECT_EQ(transcript(std::wstring(typed) + L"\n").find(L"said") != std::wstring::npos,
                  found)
            << typed;
    session().commands().removeGroup(L"TEST");
    EXPECT_EQ(transcript(L"local\n"),
              L"local\nUnknown command \"LOCAL\".  Press F1 for help.\nCommand: ");
}

TEST(ScriptText, LosesItsComments)
{
    EXPECT_EQ(host::withoutComments(L"; first\nline 0,0\n;x\n\n ;text\r\n;last"),
              L"line 0,0\n\n ;text\r\n");
}
