#pragma once

#include "host/edit/command_stack.h"
#include "host/edit/editor_reactor.h"
#include "host/edit/fiber.h"
#include "host/edit/question.h"
#include "host/edit/transcript.h"
#include "host/edit/typed_input.h"
#include "host/edit/undo_steps.h"
#include "host/runtime/resbuf.h"
#include "host/text/case_mapping.h"

#include <map>
#include <memory>

namespace host {

// Runs commands. The engine reads nothing by itself: a driver (the console's loop, a window's
// events, a test) feeds it characters, points, selections, cancel and the end of input, calls run()
// and learns what is waited for. Every command runs on a stack of its own; a prompt deep inside it
// goes back to the driver when there is no answer yet, and goes on there when there is one.
//
//     driver > run() > a typed command's fiber > (acedCommand) > an inner command's fiber > ...
//
// A fiber is always resumed by the one that started it, so whoever resumed a waiting one waits,
// too, up to the driver. Order of one command: commandWillStart, the command itself, its inner
// commands left over, the text it queued becomes readable, commandEnded (or commandCancelled, when
// its last prompt was cancelled; or commandFailed, when an exception left it and its changes were
// taken back), the undo group closes, the next prompt.
class CommandEngine {
public:
    explicit CommandEngine(Transcript::Sink sink);
    ~CommandEngine();
    CommandEngine(const CommandEngine&) = delete;
    CommandEngine& operator=(const CommandEngine&) = delete;

    // For drivers.
    void feed(std::wstring_view text, Origin origin = Origin::script) { input_.feed(text, origin); }
    void feedPoint(const AcGePoint3d& point) { input_.feedPoint(point); }
    void feedSelection(std::vector<AcDbObjectId> ids) { input_.feedSelection(std::move(ids)); }
    void feedCancel() { input_.feedCancel(); }
    void feedEnd() { input_.end(); }
    void requestCancel() { input_.requestCancel(); } // may be called by a signal handler
    const Waiting& run();                            // until the input is used up
    const Waiting& waiting() const { return waiting_; }
    bool finished() const { return waiting_.kind == WaitKind::finished; }
    // Changes between the two are one step for U: a script, a text of the program's arguments. A
    // line left open at the end is ended.
    void beginStep() { steps_.begin(); }
    void endStep();
    // At the end of the program: commands still running are cancelled, their prompts throw.
    void abandonCommands();
    int unknownCommands() const { return unknownCommands_; } // typed so far

    // For commands and the functions they call.
    int ask(const Question& question, const AnswerTaker& take); // RTNORM, RTCAN, or RTERROR
    int call(const ResbufChain& tokens);                        // acedCommand
    void print(std::wstring_view text) { transcript_.print(text); }
    // What a prompt says beside its question ("3 found"): not shown while CMDECHO is 0 and the
    // answers come from a calling command.
    void printForPrompt(std::wstring_view text);
    Transcript& transcript() { return transcript_; }
    void runScript(std::wstring_view text); // typed before what waits outside
    void requestQuit() { quit_ = true; }    // no more is read once the running command has ended
    UndoSteps& steps() { return steps_; }
    using Variables = std::map<std::wstring, resbuf, NoCaseLess>;
    Variables& programVariables() { return variables_; } // those that were set
    std::wstring commandNames() const; // of running commands, outermost first, apart by "'"
    int commandActivity() const;       // CMDACTIVE: 1 a command, 2 a transparent one, 8 a dialog
    // Does code run that a command called, so that queued text has to wait for its end?
    bool insideCommand() const;
    bool onFiber() const { return current_ != nullptr; }
    void postCancel();

private:
    friend class OneQuestion;
    struct Level;
    struct Abandoned {}; // leaves a command that goes on asking though everything is over

    // Typed commands.
    std::shared_ptr<const AcEdCommand> find(std::wstring_view name) const;
    void nameUnknown(std::wstring_view name);
    bool readCommand(); // false: nothing to read
    void startTyped(const TypedAnswer& typed);
    void startOuter(std::shared_ptr<const AcEdCommand> command, bool cancelAtOnce);
    bool queueFeedsItself(bool queued);
    void cancelAtCommandPrompt();
    void guardNotice(const std::function<void()>& call);
    void finishOuter();

    // Levels.
    void resume(Level& level);
    void runLevel(Level& level);
    void leaveInnerToDriver(Level& level);
    void guard(Level& level, const std::function<void()>& call);
    void tell(Level& level, void (AcEditorReactor::*notice)(const wchar_t*));
    int driveInner(Level& caller);
    void runTransparent(Level& outer, std::shared_ptr<const AcEdCommand> command);

    // Prompts.
    bool takeToken(Level& level, const Question& question, const AnswerTaker& take, int& result);
    int answerCancelled(Level& level, bool byUser);
    bool runTypedTransparent(Level& level, const Question& question, const TypedAnswer& typed);
    void waitForDriver(Level& level, const Question& question);
    bool echoesTokens() const;
    void showPrompt(const Question& question);
    void showAnswer(const TypedAnswer& typed);
    std::deque<QueuedText>* queue() const;

    Transcript transcript_;
    TypedInput input_;
    UndoSteps steps_;
    Variables variables_;
    Waiting waiting_;
    std::unique_ptr<Level> outer_;
    Level* current_ = nullptr;   // whose fiber runs
    std::vector<Level*> levels_; // running commands, outermost first
    std::shared_ptr<const AcEdCommand> lastTyped_;
    bool promptShown_ = false;
    bool cancelAll_ = false;
    bool abandon_ = false;
    bool quit_ = false;
    int unknownCommands_ = 0;
    int cancelsInARow_ = 0;
    bool lastWasQueued_ = false;
    int queuedRounds_ = 0; // queued commands without a character from outside
    std::uint64_t outsideBefore_ = 0;
};

// Makes several prompts count as one for a pause of acedCommand, as those of a selection do.
class OneQuestion {
public:
    explicit OneQuestion(CommandEngine& engine);
    ~OneQuestion();
    OneQuestion(const OneQuestion&) = delete;
    OneQuestion& operator=(const OneQuestion&) = delete;

private:
    CommandEngine::Level* level_;
};

// The running session's engine. Only inside a session.
CommandEngine& engine();
bool engineExists();
void setEngine(CommandEngine* engine);

} // namespace host
