#include "host/edit/typed_input.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr wchar_t kCancel = 3;
constexpr wchar_t kEscape = 27;
constexpr std::wstring_view kCancelLine = L"^C";

bool isCancel(wchar_t character)
{
    return character == kCancel || character == kEscape;
}
bool isBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

} // namespace

std::wstring withPlainLineEnds(std::wstring_view text)
{
    std::wstring plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != L'\r')
            plain += text[i];
        else if (i + 1 == text.size() || text[i + 1] != L'\n')
            plain += L'\n';
    }
    return plain;
}

void TypedInput::feed(std::wstring_view text, Origin origin)
{
    Fed fed;
    fed.text = withPlainLineEnds(text);
    fed.origin = origin;
    if (!fed.text.empty())
        fed_.push_back(std::move(fed));
}

void TypedInput::feedPoint(const AcGePoint3d& point)
{
    fed_.push_back(Fed{Event::point, {}, 0, Origin::terminal, point, {}});
}

void TypedInput::feedSelection(std::vector<AcDbObjectId> selection)
{
    fed_.push_back(Fed{Event::selection, {}, 0, Origin::terminal, {}, std::move(selection)});
}

void TypedInput::feedCancel()
{
    fed_.push_back(Fed{Event::cancel, {}, 0, Origin::terminal, {}, {}});
}

void TypedInput::insert(std::wstring_view text)
{
    Fed fed;
    fed.text = withPlainLineEnds(text);
    fedLine_.clear();
    if (!fed.text.empty())
        fed_.push_front(std::move(fed));
}

void TypedInput::endLine()
{
    dropping_ = false;
    if (begun_ && !partial_.empty())
        feed(L"\n", origin_);
    else
        fedLine_.clear();
}

bool TypedInput::openQuote() const
{
    return !partial_.empty() && partial_.front() == L'"' &&
           (partial_.size() == 1 || partial_.find(L'"', 1) == std::wstring::npos);
}

bool TypedInput::openExpression() const
{
    if (partial_.empty() || partial_.front() != L'(')
        return false;
    int depth = 0;
    bool quoted = false;
    for (wchar_t c : partial_) {
        if (c == L'"')
            quoted = !quoted;
        else if (!quoted)
            depth += c == L'(' ? 1 : c == L')' ? -1 : 0;
    }
    return quoted || depth > 0;
}

void TypedInput::noteQueued(bool shown)
{
    if (!std::exchange(begun_, true)) {
        fromQueue_ = true;
        shown_ = false;
        onScreen_ = false;
        origin_ = Origin::script;
    }
    shown_ = shown_ || shown;
}

void TypedInput::noteFed(Origin origin)
{
    if (!std::exchange(begun_, true))
        onScreen_ = false;
    fromQueue_ = false;
    shown_ = true;
    onScreen_ = onScreen_ || (origin == Origin::terminal && fedLine_.empty());
    origin_ = origin;
}

void TypedInput::forgetPartial()
{
    partial_.clear();
    begun_ = false;
}

TypedInput::Read TypedInput::complete(TypedAnswer& answer, bool endsLine, const AnswerForm& form)
{
    answer.typed = std::exchange(partial_, {});
    answer.text = answer.typed;
    if (!form.takesSpaces && !answer.text.empty() && answer.text.front() == L'"') {
        answer.text.erase(0, 1);
        if (const std::size_t quote = answer.text.find(L'"'); quote != std::wstring::npos)
            answer.text.erase(quote, 1);
    }
    answer.endsLine = endsLine;
    answer.fromQueue = fromQueue_;
    answer.shown = shown_;
    answer.onScreen = onScreen_;
    answer.origin = origin_;
    begun_ = false;
    return Read::answer;
}

TypedInput::Read TypedInput::take(wchar_t character, std::wstring& line, const AnswerForm& form,
                                  TypedAnswer& answer)
{
    if (isCancel(character)) {
        forgetPartial();
        return Read::cancel;
    }
    if (character == L'\n') {
        if (std::exchange(line, {}) == kCancelLine) {
            forgetPartial();
            return Read::cancel;
        }
        return complete(answer, true, form);
    }
    if (line.size() <= kCancelLine.size())
        line += character;
    if (isBlank(character) && !form.takesSpaces && !openQuote() &&
        !(form.takesExpression && openExpression()))
        return complete(answer, false, form);
    partial_ += character;
    return Read::nothing;
}

TypedInput::Read TypedInput::read(std::deque<QueuedText>* queue, const AnswerForm& form,
                                  TypedAnswer& answer)
{
    const bool queued = queue && std::ranges::any_of(*queue, [](const QueuedText& text) {
                            return text.at < text.text.size();
                        });
    if (!(form.queueBeforeCancel && queued) && cancelRequested_.exchange(false)) {
        ++outsideRead_;
        forgetPartial();
        return Read::cancel;
    }
    while (queue && !queue->empty()) {
        QueuedText& front = queue->front();
        if (front.cancels) {
            queue->pop_front();
            forgetPartial();
            queueLine_.clear();
            return Read::cancelAll;
        }
        if (front.at == front.text.size()) {
            queue->pop_front();
            continue;
        }
        const wchar_t character = front.text[front.at++];
        noteQueued(front.echo);
        const Read outcome = take(character, queueLine_, form, answer);
        if (outcome == Read::cancel)
            return Read::queuedCancel;
        if (outcome != Read::nothing)
            return outcome;
    }
    while (!fed_.empty()) {
        Fed& front = fed_.front();
        if (front.event != Event::text) {
            ++outsideRead_;
            forgetPartial();
            fedLine_.clear();
            Fed event = std::move(front);
            fed_.pop_front();
            answer = {};
            answer.origin = Origin::terminal;
            answer.point = event.point;
            answer.selection = std::move(event.selection);
            return event.event == Event::point       ? Read::point
                   : event.event == Event::selection ? Read::selection
                                                     : Read::cancel;
        }
        if (front.at == front.text.size()) {
            fed_.pop_front();
            continue;
        }
        const wchar_t character = front.text[front.at++];
        ++outsideRead_;
        if (dropping_ && !isCancel(character)) {
            dropping_ = character != L'\n';
            fedLine_.clear();
            continue;
        }
        dropping_ = false;
        noteFed(front.origin);
        const Read outcome = take(character, fedLine_, form, answer);
        if (outcome != Read::nothing)
            return outcome;
    }
    if (!ended_)
        return Read::nothing;
    if (partial_.empty())
        return Read::ended;
    if (fedLine_ == kCancelLine) {
        forgetPartial();
        return Read::cancel;
    }
    return complete(answer, true, form);
}

void TypedInput::dropLine(std::deque<QueuedText>* queue, const TypedAnswer& answer)
{
    if (answer.endsLine)
        return;
    if (!answer.fromQueue) {
        dropping_ = true;
        return;
    }
    while (queue && !queue->empty() && !queue->front().cancels) {
        QueuedText& front = queue->front();
        while (front.at < front.text.size()) {
            if (isCancel(front.text[front.at]))
                return;
            if (front.text[front.at++] == L'\n') {
                queueLine_.clear();
                return;
            }
        }
        queue->pop_front();
    }
}

bool TypedInput::cancelWaits() const
{
    if (cancelRequested_)
        return true;
    if (fed_.empty())
        return false;
    const Fed& front = fed_.front();
    if (front.event != Event::text)
        return front.event == Event::cancel;
    const std::wstring_view rest = std::wstring_view(front.text).substr(front.at);
    if (rest.empty())
        return false;
    return isCancel(rest.front()) ||
           (fedLine_.empty() && rest.starts_with(kCancelLine) &&
            (rest.size() == kCancelLine.size() || rest[kCancelLine.size()] == L'\n'));
}

bool TypedInput::takeWaitingCancel()
{
    if (!cancelWaits())
        return false;
    TypedAnswer ignored;
    forgetPartial();
    return read(nullptr, {}, ignored) == Read::cancel;
}

bool TypedInput::exhausted(const std::deque<QueuedText>* queue) const
{
    if (!ended_ || !partial_.empty())
        return false;
    if (queue)
        for (const QueuedText& text : *queue)
            if (text.cancels || text.at < text.text.size())
                return false;
    for (const Fed& fed : fed_)
        if (fed.event != Event::text || fed.at < fed.text.size())
            return false;
    return true;
}

std::wstring withoutComments(std::wstring_view script)
{
    std::wstring kept;
    while (!script.empty()) {
        const std::size_t end = script.find_first_of(L"\r\n");
        std::size_t next = end == std::wstring_view::npos ? script.size() : end + 1;
        if (next < script.size() && script[end] == L'\r' && script[next] == L'\n')
            ++next;
        if (script.front() != L';')
            kept += script.substr(0, next);
        script.remove_prefix(next);
    }
    return kept;
}

} // namespace host
