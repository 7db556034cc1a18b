#include "host/commands/drawing/pline_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/arc_input.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/polyline_path.h"
#include "host/db/lwpolyline.h"
#include "host/edit/command_engine.h"
#include "host/geom/arc_construction.h"

// The polyline comes into the drawing at the end. Escape leaves what was drawn so far, as Enter
// does; a start point alone leaves nothing.

namespace host {

namespace {

constexpr const wchar_t* kWidth = L"PLINEWID"; // what the next polyline begins with

class PlineDrawing {
public:
    explicit PlineDrawing(const AcGePoint3d& start) : path_(start, realVariable(kWidth, 0.0)) {}
    void draw();
    void finish() const;

private:
    enum class Step { goOn, end };

    Step lineStep();
    Step arcStep();
    Step option(const std::wstring& keyword);
    Step askWidths(const wchar_t* what, double share);
    Step askLengthOfLine();
    Step undo();
    Step append(AcGePoint2d to, double bulge);
    AcGePoint2d at() const { return path_.end().convert2d(); }

    PolylinePath path_;
    bool arcs_ = false;
};

PlineDrawing::Step PlineDrawing::askWidths(const wchar_t* what, double share)
{
    const auto ask = [&](const wchar_t* end, double now) {
        Answered<double> width = askLength(
            {.text = std::wstring(L"Specify ") + end + what + bracketed(now * share) + L": ",
             .base = path_.end(),
             .enterCounts = true,
             .bits = RSG_NONEG});
        if (width.given())
            width.value /= share;
        else
            width.value = now;
        return width;
    };
    const Answered<double> start = ask(L"starting ", path_.startWidth());
    if (start.cancelled())
        return Step::end;
    const Answered<double> end = ask(L"ending ", start.value);
    if (end.cancelled())
        return Step::end;
    path_.setWidths(start.value, end.value);
    setReal(kWidth, end.value);
    return Step::goOn;
}

PlineDrawing::Step PlineDrawing::askLengthOfLine()
{
    const Answered<double> length =
        askLength({.text = L"Specify length of line: ", .base = path_.end(), .bits = RSG_NOZERO});
    if (!length.given())
        return Step::end;
    return append(at() + AcGeVector2d(length.value, 0.0).rotateBy(path_.direction()), 0.0);
}

PlineDrawing::Step PlineDrawing::append(AcGePoint2d to, double bulge)
{
    path_.append(to, bulge);
    setLastPoint(path_.end());
    return Step::goOn;
}

PlineDrawing::Step PlineDrawing::undo()
{
    if (!path_.undo())
        refuse(L"All segments already undone.\n");
    setLastPoint(path_.end());
    return Step::goOn;
}

// What both modes offer, and then the ways to state an arc.
PlineDrawing::Step PlineDrawing::option(const std::wstring& keyword)
{
    if (keyword == L"Undo")
        return undo();
    if (keyword == L"Halfwidth")
        return askWidths(L"half-width", 0.5);
    if (keyword == L"Width")
        return askWidths(L"width", 1.0);
    if (keyword == L"Length")
        return askLengthOfLine();
    if (keyword == L"Arc" || keyword == L"Line") {
        arcs_ = keyword == L"Arc";
        return Step::goOn;
    }
    const std::optional<ArcEnd> arc = arcByOption(keyword, path_.end(), path_.direction());
    return arc ? append(arc->place, arc->bulge) : Step::end;
}

PlineDrawing::Step PlineDrawing::lineStep()
{
    const bool canClose = path_.segments() > 0;
    const Answered<AcGePoint3d> answer = askOtherPlaceInPlane(
        {.text = canClose ? L"Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: "
                          : L"Specify next point or [Arc/Halfwidth/Length/Undo/Width]: ",
         .keywords = canClose ? L"Arc Close Halfwidth Length Undo Width"
                              : L"Arc Halfwidth Length Undo Width",
         .base = path_.end(),
         .enterCounts = true});
    if (answer.given())
        return append(answer.value.convert2d(), 0.0);
    if (answer.chose(L"Close"))
        path_.close(0.0);
    else if (answer.isKeyword())
        return option(answer.keyword);
    return Step::end;
}

PlineDrawing::Step PlineDrawing::arcStep()
{
    const auto arcTo = [&](const AcGePoint3d& to) {
        return bulgeLeaving(at(), to.convert2d(), path_.direction());
    };
    const bool canClose = path_.segments() > 0;
    const Answered<AcGePoint3d> answer = askUntil(
        [&] {
            return askPlace(
                {.text = std::wstring(L"Specify endpoint of arc or [Angle/CEnter/") +
                         (canClose ? L"CLose/" : L"") +
                         L"Direction/Halfwidth/Line/Radius/Second pt/Undo/Width]: ",
                 .keywords =
                     canClose
                         ? L"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width"
                         : L"Angle CEnter Direction Halfwidth Line Radius Second Undo Width",
                 .base = path_.end(),
                 .enterCounts = true});
        },
        [&](const AcGePoint3d& to) { return arcTo(to) ? nullptr : kNoArc; });
    if (answer.given())
        return append(answer.value.convert2d(), *arcTo(answer.value));
    if (answer.chose(L"CLose"))
        path_.close(arcTo(path_.start()).value_or(0.0));
    else if (answer.isKeyword())
        return option(answer.keyword);
    return Step::end;
}

void PlineDrawing::draw()
{
    while ((arcs_ ? arcStep() : lineStep()) == Step::goOn) {
    }
}

void PlineDrawing::finish() const
{
    if (path_.segments() > 0)
        appendThick(path_.entity());
}

} // namespace

void plineCommand()
{
    if (!documentOfCommand())
        return;
    const Answered<AcGePoint3d> start = askPlace({.text = L"Specify start point: "});
    if (!start.given())
        return;
    engine().printForPrompt(L"Current line-width is " + lengthText(realVariable(kWidth, 0.0)) +
                            L"\n");
    PlineDrawing drawing(start.value);
    drawing.draw();
    drawing.finish();
}

} // namespace host
