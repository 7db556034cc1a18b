#pragma once

#include "host/db/object_id.h"
#include "host/edit/document.h"
#include "host/geom/point.h"

#include <atomic>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// Where characters from outside come from: a terminal shows them by itself.
enum class Origin { script, terminal };

// How an answer is cut out of the stream of characters.
struct AnswerForm {
    bool takesSpaces = false;       // only a line end ends it
    bool takesExpression = false;   // one that begins with "(" goes on to the matching ")"
    bool queueBeforeCancel = false; // a cancel that was requested waits behind queued text
};

// What was read: characters up to the blank or line end that ended them.
struct TypedAnswer {
    std::wstring text;  // without the double quotes around it
    std::wstring typed; // as it was typed
    bool endsLine = false;
    bool fromQueue = false; // all of it
    bool shown = true;      // some of it is to be echoed
    bool onScreen = false;  // the terminal has shown it: it stood first on its line
    Origin origin = Origin::script;
    AcGePoint3d point;
    std::vector<AcDbObjectId> selection;
};

// The one stream that feeds every prompt: the queue of the current document first, then what is fed
// from outside. Nothing is read here; an answer that is not complete waits for more.
//
// Codes 3 and 27 and a line that is exactly "^C" cancel. A line end is LF, CR LF or CR. When the
// outside has ended, an answer that lacks its line end counts as ended.
class TypedInput {
public:
    enum class Read { nothing, answer, point, selection, cancel, queuedCancel, cancelAll, ended };

    void feed(std::wstring_view text, Origin origin);
    void feedPoint(const AcGePoint3d& point);
    void feedSelection(std::vector<AcDbObjectId> selection);
    void feedCancel();
    void end() { ended_ = true; }
    void requestCancel() { cancelRequested_ = true; } // from a signal handler, too
    // Read before all that waits outside.
    void insert(std::wstring_view text);
    // A line of the outside that has no end yet gets one.
    void endLine();

    // `queue` may be null. An answer that is under way stays so until it is complete.
    Read read(std::deque<QueuedText>* queue, const AnswerForm& form, TypedAnswer& answer);

    // After an answer that a blank ended: the rest of its line is dropped.
    void dropLine(std::deque<QueuedText>* queue, const TypedAnswer& answer);

    // Is a cancel the next thing from outside? If so it is taken.
    bool takeWaitingCancel();
    bool cancelWaits() const;

    bool hasEnded() const { return ended_; }
    // Nothing is left to read, and nothing will come.
    bool exhausted(const std::deque<QueuedText>* queue) const;
    std::uint64_t outsideRead() const { return outsideRead_; } // characters and events so far

private:
    enum class Event { text, point, selection, cancel };
    struct Fed {
        Event event = Event::text;
        std::wstring text;
        std::size_t at = 0;
        Origin origin = Origin::script;
        AcGePoint3d point;
        std::vector<AcDbObjectId> selection;
    };

    Read take(wchar_t character, std::wstring& line, const AnswerForm& form, TypedAnswer& answer);
    Read complete(TypedAnswer& answer, bool endsLine, const AnswerForm& form);
    void noteQueued(bool shown);
    void noteFed(Origin origin);
    bool openQuote() const;
    bool openExpression() const;
    void forgetPartial();

    std::deque<Fed> fed_;
    std::wstring partial_;
    bool begun_ = false; // some character of the answer was read
    bool fromQueue_ = true;
    bool shown_ = false;
    bool onScreen_ = false;
    Origin origin_ = Origin::script;
    std::wstring fedLine_; // what stands on the line so far, as much as tells "^C"
    std::wstring queueLine_;
    bool dropping_ = false; // the rest of the outside's line
    bool ended_ = false;
    std::atomic<bool> cancelRequested_ = false;
    std::uint64_t outsideRead_ = 0;
};

// CR LF and CR become LF.
std::wstring withPlainLineEnds(std::wstring_view text);

// The text of a script file without its comments: lines that begin with ";".
std::wstring withoutComments(std::wstring_view script);

} // namespace host
