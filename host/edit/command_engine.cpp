#include "host/edit/command_engine.h"

#include "host/edit/command_level.h"
#include "host/edit/pick_first.h"
#include "host/edit/system_variables.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"

#include <algorithm>
#include <cassert>
#include <exception>
#include <iterator>

namespace host {

namespace {

constexpr int kQueuedRoundsLimit = 1000;
constexpr const wchar_t* kCommandPrompt = L"Command: ";

CommandEngine* theEngine = nullptr;

// The journal of the current drawing, as long as that drawing is open.
struct UndoPlace {
    std::uint32_t database = 0;
    std::size_t groupsBefore = 0;

    Drawing* drawing() const
    {
        AcDbDatabase* const found = AcDbDatabase::withNumber(database);
        return found ? &found->drawing() : nullptr;
    }
    void rollBack() const
    {
        if (Drawing* const found = drawing())
            found->undo.rollBack(*found);
    }
};

UndoPlace openUndoGroup(const AcEdCommand& command)
{
    AcApDocument* const document = acDocManagerPtr()->curDocument();
    if (!document || (command.flags & ACRX_CMD_NO_UNDO_MARKER))
        return {};
    Drawing& drawing = document->database()->drawing();
    const UndoPlace place{drawing.number, drawing.undo.undoable()};
    drawing.undo.beginGroup(command.globalName);
    return place;
}

void closeOpenObjects()
{
    for (AcApDocument* document : acDocManagerPtr()->documents())
        document->database()->drawing().closeAllOpen();
}

// What is being caught, as the end of a message.
std::wstring caughtText()
{
    try {
        throw;
    } catch (const std::exception& error) {
        return L": " + fromUtf8(error.what());
    } catch (...) {
        return {};
    }
}

// What commands queued becomes readable.
void releaseWaitingText()
{
    for (AcApDocument* document : acDocManagerPtr()->documents()) {
        std::ranges::move(document->waiting, std::back_inserter(document->queue));
        document->waiting.clear();
    }
}

} // namespace

CommandEngine& engine()
{
    assert(theEngine);
    return *theEngine;
}

bool engineExists()
{
    return theEngine != nullptr;
}

void setEngine(CommandEngine* engine)
{
    theEngine = engine;
}

CommandEngine::CommandEngine(Transcript::Sink sink) : transcript_(std::move(sink))
{
    waiting_.kind = WaitKind::command;
    waiting_.prompt = kCommandPrompt;
}

CommandEngine::~CommandEngine()
{
    abandonCommands();
}

void CommandEngine::abandonCommands()
{
    abandon_ = true;
    for (int tries = 0; outer_ && tries < 3; ++tries) {
        resume(*outer_);
        if (outer_->fiber->done())
            finishOuter();
    }
    // what catches everything and goes on is left where it stands
    if (outer_)
        static_cast<void>(outer_.release());
}

std::deque<QueuedText>* CommandEngine::queue() const
{
    AcApDocument* const document = acDocManagerPtr()->curDocument();
    return document ? &document->queue : nullptr;
}

void CommandEngine::endStep()
{
    input_.endLine();
    run();
    steps_.end();
}

const Waiting& CommandEngine::run()
{
    if (current_)
        return waiting_; // a driver that is called from inside a command has to wait
    for (;;) {
        if (outer_) {
            resume(*outer_);
            if (!outer_->fiber->done())
                return waiting_;
            finishOuter();
        }
        if (quit_ || input_.exhausted(queue())) {
            transcript_.freshLine();
            waiting_ = {};
            waiting_.kind = WaitKind::finished;
            return waiting_;
        }
        if (!promptShown_) {
            transcript_.freshLine();
            transcript_.print(kCommandPrompt);
            promptShown_ = true;
        }
        if (!readCommand()) {
            waiting_ = {};
            waiting_.kind = WaitKind::command;
            waiting_.prompt = kCommandPrompt;
            return waiting_;
        }
    }
}

void CommandEngine::finishOuter()
{
    outer_.reset();
    cancelAll_ = false;
    cancelsInARow_ = 0;
}

bool CommandEngine::readCommand()
{
    TypedAnswer typed;
    switch (input_.read(queue(), {.takesExpression = true, .queueBeforeCancel = true}, typed)) {
    case TypedInput::Read::nothing:
        return false;
    case TypedInput::Read::answer:
        startTyped(typed);
        break;
    case TypedInput::Read::selection:
        guardNotice([&] { setPickFirst(std::move(typed.selection)); });
        break;
    case TypedInput::Read::cancel:
        cancelAtCommandPrompt();
        break;
    case TypedInput::Read::point:
    case TypedInput::Read::queuedCancel:
    case TypedInput::Read::cancelAll:
    case TypedInput::Read::ended:
        break;
    }
    return true;
}

void CommandEngine::cancelAtCommandPrompt()
{
    if (std::deque<QueuedText>* const text = queue())
        text->clear();
    transcript_.print(L"*Cancel*\n");
    promptShown_ = false;
}

void CommandEngine::startTyped(const TypedAnswer& typed)
{
    showAnswer(typed);
    promptShown_ = false;
    std::wstring_view name = typed.text;
    if (name.empty()) {
        if (typed.origin == Origin::terminal && !typed.fromQueue && lastTyped_) {
            transcript_.print(lastTyped_->globalName + L'\n');
            startOuter(lastTyped_, false);
        }
        return;
    }
    if (name.front() == L'\'')
        name.remove_prefix(1);
    std::shared_ptr<const AcEdCommand> command = find(name);
    if (!command) {
        unknownCommands_ += typed.fromQueue ? 0 : 1;
        nameUnknown(name);
        input_.dropLine(queue(), typed);
        return;
    }
    if (!typed.fromQueue)
        lastTyped_ = command;
    startOuter(std::move(command), queueFeedsItself(typed.fromQueue));
}

bool CommandEngine::queueFeedsItself(bool queued)
{
    const bool outsideWasRead = input_.outsideRead() != outsideBefore_;
    outsideBefore_ = input_.outsideRead();
    const bool behindQueued = queued && lastWasQueued_ && !outsideWasRead;
    lastWasQueued_ = queued;
    if (!behindQueued) {
        queuedRounds_ = queued ? 1 : 0;
        return false;
    }
    // the command before had its chance to read the cancel at a prompt
    const bool userCancels = input_.takeWaitingCancel();
    if (!userCancels && ++queuedRounds_ <= kQueuedRoundsLimit)
        return false;
    outsideBefore_ = input_.outsideRead();
    lastWasQueued_ = false;
    if (std::deque<QueuedText>* const text = queue())
        text->clear();
    transcript_.print(userCancels ? L"*Cancel*\n"
                                  : L"Queued commands ran 1,000 times without asking; stopped.\n");
    return true;
}

std::shared_ptr<const AcEdCommand> CommandEngine::find(std::wstring_view name) const
{
    if (AcEdCommandStack* const commands = acedRegCmdsPtr())
        if (auto found = commands->lookUp(name))
            return found;
    while (!name.empty() && (name.front() == L'_' || name.front() == L'.'))
        name.remove_prefix(1);
    if (name.empty() || !isSystemVariable(name))
        return nullptr;
    // a variable's name typed alone is SETVAR for it
    auto command = std::make_shared<AcEdCommand>();
    command->globalName = L"SETVAR";
    command->localName = upperCased(name);
    command->flags = ACRX_CMD_TRANSPARENT | ACRX_CMD_USEPICKSET;
    return command;
}

void CommandEngine::nameUnknown(std::wstring_view name)
{
    const std::wstring upper = upperCased(name);
    transcript_.freshLine();
    transcript_.print(L"Unknown command \"" + upper + L"\".  Press F1 for help.\n");
    guardNotice([&] {
        if (AcEditor* const editor = acedEditorPtr())
            editor->tellReactors(
                [&](AcEditorReactor& reactor) { reactor.unknownCommand(upper.c_str()); });
    });
}

// Outside of a command there is nobody to fail.
void CommandEngine::guardNotice(const std::function<void()>& call)
{
    try {
        call();
    } catch (...) {
        transcript_.freshLine();
        transcript_.print(L"Error in a reactor" + caughtText() + L"\n");
    }
}

void CommandEngine::startOuter(std::shared_ptr<const AcEdCommand> command, bool cancelAtOnce)
{
    outer_ = std::make_unique<Level>(Level::Kind::typed, std::move(command));
    outer_->cancelAtOnce = cancelAtOnce;
    outer_->fiber = std::make_unique<Fiber>([this, level = outer_.get()] { runLevel(*level); });
}

void CommandEngine::resume(Level& level)
{
    Level* const before = std::exchange(current_, &level);
    level.needs = Level::Needs::nothing;
    level.fiber->resume();
    current_ = before;
}

// Runs on the level's own fiber, whole.
void CommandEngine::runLevel(Level& level)
{
    const bool typed = level.kind == Level::Kind::typed;
    levels_.push_back(&level);
    const UndoPlace undo = typed ? openUndoGroup(*level.command) : UndoPlace{};

    tell(level, &AcEditorReactor::commandWillStart);
    if (typed && !(level.command->flags & ACRX_CMD_USEPICKSET))
        guard(level, [] { setPickFirst({}); });
    if (level.cancelAtOnce)
        level.lastCancelled = true;
    else if (!level.failed)
        guard(level, [&] {
            if (level.command->function)
                level.command->function();
            else
                askSystemVariable(level.command->localName);
        });
    leaveInnerToDriver(level);

    level.returned = true;
    std::erase(levels_, &level);
    if (typed) {
        closeOpenObjects();
        releaseWaitingText();
    }
    const bool failed = level.failed;
    if (failed)
        undo.rollBack();
    tell(level, failed                ? &AcEditorReactor::commandFailed
                : level.lastCancelled ? &AcEditorReactor::commandCancelled
                                      : &AcEditorReactor::commandEnded);
    leaveInnerToDriver(level);
    if (level.failed && !failed)
        undo.rollBack(); // a reactor threw
    if (Drawing* const drawing = undo.drawing()) {
        drawing->undo.endGroup(*drawing);
        steps_.groupClosed(*drawing, undo.groupsBefore);
    }
}

// Whatever leaves the call is told, and the command counts as failed.
void CommandEngine::guard(Level& level, const std::function<void()>& call)
{
    try {
        call();
    } catch (const Abandoned&) {
        level.lastCancelled = true;
    } catch (...) {
        level.failed = true;
        transcript_.freshLine();
        transcript_.print(L"Error in the command " + level.command->globalName + caughtText() +
                          L"\n");
    }
}

void CommandEngine::tell(Level& level, void (AcEditorReactor::*notice)(const wchar_t*))
{
    guard(level, [&] {
        if (AcEditor* const editor = acedEditorPtr())
            editor->tellReactors([&](AcEditorReactor& reactor) {
                (reactor.*notice)(level.command->globalName.c_str());
            });
    });
}

void CommandEngine::leaveInnerToDriver(Level& level)
{
    while (level.inner) {
        // a caller that failed has nobody to answer for it
        level.inner->cancelAsked = level.failed;
        level.inner->leftToDriver = !level.failed;
        driveInner(level);
        if (abandon_ && level.inner)
            static_cast<void>(level.inner.release());
    }
}

int CommandEngine::driveInner(Level& caller)
{
    Level& inner = *caller.inner;
    for (;;) {
        resume(inner);
        if (inner.fiber->done())
            break;
        if (inner.needs == Level::Needs::tokens)
            return RTNORM;
        caller.needs = Level::Needs::driver;
        caller.fiber->yield();
    }
    const bool failed = inner.failed;
    const bool cancelled = inner.lastCancelled;
    if (inner.cancelledByUser) {
        caller.lastCancelled = true;
        caller.cancelledByUser = true;
    }
    caller.inner.reset();
    return failed ? RTERROR : cancelled ? RTCAN : RTNORM;
}

int CommandEngine::call(const ResbufChain& tokens)
{
    Level* const caller = current_;
    if (!caller)
        return RTERROR;
    if (tokens.empty()) {
        if (caller->inner) {
            caller->inner->cancelAsked = true;
            driveInner(*caller);
        }
        return RTNORM;
    }
    std::deque<resbuf> answers(tokens.begin(), tokens.end());
    if (!caller->inner) {
        const std::wstring name = answers.front().resval.rstring;
        if (answers.front().restype != RTSTR)
            return RTERROR;
        if (name.empty())
            return RTNORM; // Enter at the command prompt
        std::shared_ptr<const AcEdCommand> command = find(name);
        if (!command) {
            nameUnknown(name);
            return RTERROR;
        }
        if (echoesTokens()) {
            transcript_.freshLine();
            transcript_.print(kCommandPrompt);
            transcript_.echo(name);
        }
        answers.pop_front();
        caller->inner = std::make_unique<Level>(Level::Kind::called, std::move(command));
        caller->inner->fiber =
            std::make_unique<Fiber>([this, level = caller->inner.get()] { runLevel(*level); });
    }
    caller->inner->tokens = std::move(answers);
    return driveInner(*caller);
}

void CommandEngine::runTransparent(Level& outer, std::shared_ptr<const AcEdCommand> command)
{
    Level level(Level::Kind::transparent, std::move(command));
    level.fiber = std::make_unique<Fiber>([this, &level] { runLevel(level); });
    for (;;) {
        resume(level);
        if (level.fiber->done())
            return;
        if (abandon_)
            return;
        outer.needs = Level::Needs::driver;
        outer.fiber->yield();
    }
}

std::wstring CommandEngine::commandNames() const
{
    std::wstring names;
    for (const Level* level : levels_)
        names += (names.empty() ? L"" : L"'") + level->command->globalName;
    return names;
}

int CommandEngine::commandActivity() const
{
    int activity = levels_.empty() ? 0 : 1;
    for (const Level* level : levels_)
        activity |= level->kind == Level::Kind::transparent ? 2 : 0;
    if (!current_ && waiting_.kind == WaitKind::dialog)
        activity |= 8;
    return activity;
}

bool CommandEngine::insideCommand() const
{
    return current_ && outer_ && !outer_->returned;
}

void CommandEngine::postCancel()
{
    AcApDocument* const document = acDocManagerPtr()->curDocument();
    if (!document)
        return;
    QueuedText cancel;
    cancel.cancels = true;
    (insideCommand() ? document->waiting : document->queue).push_back(std::move(cancel));
}

void CommandEngine::runScript(std::wstring_view text)
{
    input_.insert(text);
}

} // namespace host
