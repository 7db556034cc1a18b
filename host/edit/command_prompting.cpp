#include "host/edit/command_engine.h"
#include "host/edit/command_level.h"
#include "host/edit/selection_set.h"
#include "host/edit/system_variables.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <algorithm>

// Where the answers of prompts come from. A called command takes the tokens of its caller, one for
// each prompt, until they are used up; then it is suspended. A pause, and the end of the caller,
// hand prompts to the stream of typed characters. Every other command reads that stream; where it
// has no answer, the command waits for the driver.

namespace host {

namespace {

constexpr int kCancelsInARow = 1000; // of a command that goes on asking though it was cancelled
constexpr std::wstring_view kPause = L"\\";

bool isPause(const resbuf& token)
{
    return token.restype == RTSTR && token.resval.rstring == kPause;
}

std::wstring realText(double value)
{
    return fromUtf8(shortestReal(value));
}

Answer answerOf(const resbuf& token)
{
    Answer answer;
    AcDbObjectId id;
    switch (token.restype) {
    case RTSTR:
        answer.text = token.resval.rstring;
        break;
    case RTSHORT:
        answer.text = std::to_wstring(token.resval.rint);
        break;
    case RTLONG:
        answer.text = std::to_wstring(token.resval.rlong);
        break;
    case RTREAL:
    case RTANG:
    case RTORINT:
        answer.text = realText(token.resval.rreal);
        break;
    case RTPOINT:
    case RT3DPOINT:
        answer.kind = Answer::Kind::point;
        answer.point = token.resval.rpoint;
        if (token.restype == RTPOINT)
            answer.point.z = realVariable(L"ELEVATION", 0.0);
        break;
    case RTENAME:
        answer.kind = Answer::Kind::entities;
        if (acdbGetObjectId(id, token.resval.rlname) == Acad::eOk)
            answer.entities.push_back(id);
        break;
    case RTPICKS:
        answer.kind = Answer::Kind::entities;
        if (const std::vector<AcDbObjectId>* const members =
                selectionSetMembers(token.resval.rlname))
            answer.entities = *members;
        break;
    default:
        break; // as Enter
    }
    return answer;
}

bool takesPoints(const Question& question)
{
    return question.kind == WaitKind::point || question.kind == WaitKind::entity ||
           question.kind == WaitKind::selection;
}

// Elsewhere an apostrophe and a bracket are text.
bool takesExpressions(const Question& question)
{
    return question.kind != WaitKind::text && question.kind != WaitKind::dialog;
}

std::wstring shownAnswer(const Answer& answer)
{
    switch (answer.kind) {
    case Answer::Kind::text:
        return answer.text;
    case Answer::Kind::point:
        return realText(answer.point.x) + L',' + realText(answer.point.y) + L',' +
               realText(answer.point.z);
    case Answer::Kind::entities:
        break;
    }
    return {};
}

} // namespace

bool CommandEngine::echoesTokens() const
{
    return integerVariable(L"CMDECHO", 1) != 0;
}

void CommandEngine::printForPrompt(std::wstring_view text)
{
    const bool byTokens = current_ && current_->kind == Level::Kind::called &&
                          !current_->leftToDriver && !current_->paused;
    if (!byTokens || echoesTokens())
        transcript_.print(text);
}

void CommandEngine::showPrompt(const Question& question)
{
    std::wstring prompt = question.prompt;
    const std::size_t text = std::min(prompt.find_first_not_of(L'\n'), prompt.size());
    const auto nested = std::count_if(levels_.begin(), levels_.end(), [](const Level* level) {
        return level->kind == Level::Kind::transparent;
    });
    for (std::ptrdiff_t i = 0; i < nested; ++i)
        prompt.insert(text, L">>");
    transcript_.print(prompt);
}

void CommandEngine::showAnswer(const TypedAnswer& typed)
{
    if (typed.onScreen)
        transcript_.echoedByTerminal();
    else
        transcript_.echo(typed.shown ? typed.typed : std::wstring());
}

void CommandEngine::waitForDriver(Level& level, const Question& question)
{
    static_cast<Question&>(waiting_) = question;
    waiting_.command = level.command->globalName;
    level.needs = Level::Needs::driver;
    level.fiber->yield();
}

int CommandEngine::answerCancelled(Level& level, bool byUser)
{
    if (byUser) {
        transcript_.print(L"*Cancel*\n");
        level.cancelledByUser = true;
    }
    level.paused = false;
    level.lastCancelled = true;
    if (++cancelsInARow_ > kCancelsInARow)
        throw Abandoned{};
    return RTCAN;
}

// True when the prompt is over, with the result; otherwise there is another token, or the stream
// is to be read.
bool CommandEngine::takeToken(Level& level, const Question& question, const AnswerTaker& take,
                              int& result)
{
    if (level.cancelAsked) {
        level.cancelAsked = false;
        result = answerCancelled(level, false);
        return true;
    }
    if (level.tokens.empty()) {
        level.needs = Level::Needs::tokens;
        level.fiber->yield();
        return false;
    }
    const resbuf token = std::move(level.tokens.front());
    level.tokens.pop_front();
    if (isPause(token)) {
        level.paused = true;
        return false;
    }
    Answer answer = answerOf(token);
    if (answer.kind == Answer::Kind::point && !takesPoints(question)) {
        answer.text = shownAnswer(answer);
        answer.kind = Answer::Kind::text;
    }
    if (echoesTokens()) {
        showPrompt(question);
        transcript_.echo(shownAnswer(answer));
    }
    const std::optional<std::wstring> refusal = take(answer);
    if (!refusal) {
        level.lastCancelled = false;
        result = RTNORM;
        return true;
    }
    if (echoesTokens())
        transcript_.print(*refusal);
    return false;
}

int CommandEngine::ask(const Question& question, const AnswerTaker& take)
{
    if (!current_)
        return RTERROR;
    Level& level = *current_;
    const AnswerForm form{question.takesSpaces, takesExpressions(question)};
    bool shown = false;
    for (;;) {
        if (abandon_)
            throw Abandoned{};
        if (cancelAll_)
            return answerCancelled(level, false);
        if (level.kind == Level::Kind::called && !level.leftToDriver && !level.paused) {
            int result = RTNORM;
            if (takeToken(level, question, take, result))
                return result;
            continue;
        }
        if (!std::exchange(shown, true))
            showPrompt(question);

        TypedAnswer typed;
        Answer answer;
        switch (input_.read(queue(), form, typed)) {
        case TypedInput::Read::nothing:
            waitForDriver(level, question);
            continue;
        case TypedInput::Read::cancel:
            if (std::deque<QueuedText>* const text = queue())
                text->clear();
            return answerCancelled(level, true);
        case TypedInput::Read::queuedCancel:
        case TypedInput::Read::ended:
            return answerCancelled(level, true);
        case TypedInput::Read::cancelAll:
            transcript_.print(L"*Cancel*\n");
            cancelAll_ = true;
            continue;
        case TypedInput::Read::point:
            if (!takesPoints(question))
                continue;
            transcript_.echoedByTerminal();
            answer.kind = Answer::Kind::point;
            answer.point = typed.point;
            break;
        case TypedInput::Read::selection:
            if (question.kind != WaitKind::entity && question.kind != WaitKind::selection)
                continue;
            transcript_.echoedByTerminal();
            answer.kind = Answer::Kind::entities;
            answer.entities = std::move(typed.selection);
            break;
        case TypedInput::Read::answer:
            showAnswer(typed);
            if (runTypedTransparent(level, question, typed)) {
                shown = false;
                continue;
            }
            answer.text = typed.text;
            break;
        }
        cancelsInARow_ = 0;
        const std::optional<std::wstring> refusal = take(answer);
        if (!refusal) {
            level.lastCancelled = false;
            if (level.questions == 0)
                level.paused = false;
            return RTNORM;
        }
        transcript_.print(*refusal);
        shown = false;
    }
}

bool CommandEngine::runTypedTransparent(Level& level, const Question& question,
                                        const TypedAnswer& typed)
{
    if (!takesExpressions(question) || typed.text.size() < 2 || typed.text.front() != L'\'' ||
        typed.typed.front() == L'"')
        return false;
    const std::wstring name = typed.text.substr(1);
    std::shared_ptr<const AcEdCommand> command = find(name);
    if (!command) {
        unknownCommands_ += typed.fromQueue ? 0 : 1;
        nameUnknown(name);
    } else if (!(command->flags & ACRX_CMD_TRANSPARENT)) {
        transcript_.print(L"The command " + command->globalName +
                          L" cannot run inside another one.\n");
    } else {
        runTransparent(level, std::move(command));
    }
    if (abandon_)
        throw Abandoned{};
    transcript_.freshLine();
    return true;
}

OneQuestion::OneQuestion(CommandEngine& engine) : level_(engine.current_)
{
    if (level_)
        ++level_->questions;
}

OneQuestion::~OneQuestion()
{
    if (level_ && --level_->questions == 0)
        level_->paused = false;
}

} // namespace host
