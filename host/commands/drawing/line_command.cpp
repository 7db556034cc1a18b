#include "host/commands/drawing/line_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/drawn_end.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/line.h"

#include <vector>

// Each segment is in the drawing as soon as its end is given. Escape leaves all of them, as Enter
// does.

namespace host {

namespace {

class LineDrawing {
public:
    bool start();
    bool next(); // false at the end

private:
    bool goOnFromDrawn();
    void draw(const AcGePoint3d& to);
    void undo();

    struct Segment {
        AcGePoint3d from;
        AcDbObjectId id;
    };
    std::vector<Segment> segments_;
    AcGePoint3d start_;
    AcGePoint3d at_;
};

void LineDrawing::draw(const AcGePoint3d& to)
{
    segments_.push_back({at_, appendThick(std::make_unique<AcDbLine>(at_, to))});
    at_ = to;
}

void LineDrawing::undo()
{
    if (segments_.empty()) {
        refuse(L"All segments already undone.\n");
        return;
    }
    eraseEntity(segments_.back().id);
    at_ = segments_.back().from;
    segments_.pop_back();
    setLastPoint(at_);
}

// False when cancelled. From an arc the first segment goes on in its direction.
bool LineDrawing::goOnFromDrawn()
{
    const DrawnEnd end = *drawnEnd();
    start_ = at_ = end.place;
    setLastPoint(at_);
    if (!end.isArc)
        return true;
    const Answered<double> length =
        askLength({.text = L"Length of line: ", .base = at_, .bits = RSG_NOZERO | RSG_NONEG});
    if (!length.given())
        return false;
    draw(at_ + end.direction * length.value);
    setLastPoint(at_);
    return true;
}

bool LineDrawing::start()
{
    for (;;) {
        const Answered<AcGePoint3d> first =
            askPlace({.text = L"Specify first point: ", .enterCounts = true});
        if (first.enter() && !drawnEnd()) {
            refuse(L"No line or arc to continue.\n");
            continue;
        }
        start_ = at_ = first.value;
        return first.enter() ? goOnFromDrawn() : first.given();
    }
}

bool LineDrawing::next()
{
    const bool canClose = segments_.size() > 1;
    const Answered<AcGePoint3d> answer =
        askOtherPlace({.text = canClose ? L"Specify next point or [Close/Undo]: "
                                        : L"Specify next point or [Undo]: ",
                       .keywords = canClose ? L"Close Undo" : L"Undo",
                       .base = at_,
                       .enterCounts = true});
    if (answer.given())
        draw(answer.value);
    else if (answer.chose(L"Undo"))
        undo();
    else if (answer.chose(L"Close") && !at_.isEqualTo(start_))
        draw(start_);
    return answer.given() || answer.chose(L"Undo");
}

} // namespace

void lineCommand()
{
    if (!documentOfCommand())
        return;
    LineDrawing drawing;
    if (!drawing.start())
        return;
    while (drawing.next()) {
    }
}

} // namespace host
