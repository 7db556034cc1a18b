#include "host/commands/drawing/dimension_angles.h"

#include "host/db/dimension_kinds.h"
#include "host/db/dimension_measure.h"

#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kQuarterTurn = 0.5 * std::numbers::pi;
using AnyAngle = std::unique_ptr<AcDbDimension>;

// Counter-clockwise ends, also of an arc that a polyline runs through clockwise.
struct ArcEnds {
    AcGePoint3d from;
    AcGePoint3d to;
    AcGePoint3d middle;
};

ArcEnds endsOf(const Arc3d& arc)
{
    const AcGePoint3d middle = arc.pointAt(0.5 * (arc.start + arc.end));
    if (arc.normal().z < 0.0)
        return {arc.endPoint(), arc.startPoint(), middle};
    return {arc.startPoint(), arc.endPoint(), middle};
}

void moveArc(AcDbDimension& dimension, const AcGePoint3d& place)
{
    if (auto* const lines = AcDb2LineAngularDimension::cast(&dimension))
        lines->setArcPoint(place);
    else if (auto* const places = AcDb3PointAngularDimension::cast(&dimension))
        places->setArcPoint(place);
}

// The angle between two places; its arc lies at first in their middle.
AnyAngle betweenPlaces(const AcGePoint3d& vertex, const AcGePoint3d& first,
                       const AcGePoint3d& second)
{
    auto dimension = std::make_unique<AcDb3PointAngularDimension>();
    dimension->setCenterPoint(vertex);
    dimension->setXLine1Point(first);
    dimension->setXLine2Point(second);
    dimension->setArcPoint(vertex + (first - vertex).normal() + (second - vertex).normal());
    return dimension;
}

AnyAngle ofArc(const Arc3d& arc)
{
    const ArcEnds ends = endsOf(arc);
    AnyAngle dimension = betweenPlaces(arc.centre, ends.from, ends.to);
    moveArc(*dimension, ends.middle);
    return dimension;
}

AnyAngle ofCircle(const PickedStroke& picked)
{
    const Arc3d& circle = *picked.arc();
    const Answered<AcGePoint3d> second =
        askPlace({.text = L"Specify second angle endpoint: ", .base = circle.centre});
    return second.given()
               ? betweenPlaces(circle.centre, circle.closestPoint(picked.place), second.value)
               : nullptr;
}

AnyAngle ofVertex()
{
    const Answered<AcGePoint3d> vertex = askPlace({.text = L"Specify angle vertex: "});
    if (!vertex.given())
        return nullptr;
    const auto end = [&](const wchar_t* text) {
        return askUntil([&] { return askPlace({.text = text, .base = vertex.value}); },
                        [&](const AcGePoint3d& p) {
                            return p.convert2d().isEqualTo(vertex.value.convert2d()) ? kSamePlace
                                                                                     : nullptr;
                        });
    };
    const Answered<AcGePoint3d> first = end(L"Specify first angle endpoint: ");
    const Answered<AcGePoint3d> second =
        first.given() ? end(L"Specify second angle endpoint: ") : first;
    return second.given() ? betweenPlaces(vertex.value, first.value, second.value) : nullptr;
}

bool isSegment(const PickedStroke& picked)
{
    return picked.segment() != nullptr;
}

AnyAngle ofLines(const PickedStroke& one)
{
    for (;;) {
        const std::optional<PickedStroke> other =
            pickStroke(L"Select second line: ", isSegment, L"The object is no line.\n");
        if (!other)
            return nullptr;
        auto dimension = std::make_unique<AcDb2LineAngularDimension>();
        dimension->setXLine1Start(one.segment()->from);
        dimension->setXLine1End(one.segment()->to);
        dimension->setXLine2Start(other->segment()->from);
        dimension->setXLine2End(other->segment()->to);
        // at first in the angle in which the lines were picked
        dimension->setArcPoint(interpolated(one.place, other->place, 0.5));
        if (angularSpan(*dimension))
            return dimension;
        refuse(L"The lines are parallel.\n");
    }
}

AnyAngle askAngle()
{
    const Answered<PickedStroke> picked =
        pickStrokeOrEnter(L"Select arc, circle, line, or <specify vertex>: ", isAnyStroke,
                          L"The object is no arc, circle or line.\n");
    if (picked.enter())
        return ofVertex();
    if (!picked.given())
        return nullptr;
    if (isSegment(picked.value))
        return ofLines(picked.value);
    return isOpenArcStroke(picked.value) ? ofArc(*picked.value.arc()) : ofCircle(picked.value);
}

// The length of an arc, or of a part of it.
class ArcLength {
public:
    ArcLength(const Arc3d& arc, TextPrompt prompt) : arc_(arc), ends_(endsOf(arc)), draft_(prompt)
    {
        dimension_->setCenterPoint(arc.centre);
        dimension_->setXLine1Point(ends_.from);
        dimension_->setXLine2Point(ends_.to);
        dimension_->setArcPoint(ends_.middle);
    }
    AcDbObjectId draw();

private:
    void offerOptions();
    bool takeOption(const std::wstring& keyword); // false when cancelled
    bool takePart();
    double along(const AcGePoint3d& place) const; // radians from the arc's start
    std::optional<AcGePoint3d> askEnd(const wchar_t* text) const;
    void finish(const AngularSpan& span);

    Arc3d arc_;
    ArcEnds ends_;
    DimensionDraft draft_;
    std::unique_ptr<AcDbArcDimension> dimension_ = std::make_unique<AcDbArcDimension>();
    PromptForm form_;
    bool isPart_ = false;
    bool hasLeader_ = false;
};

void ArcLength::offerOptions()
{
    const bool mayHaveLeader = arc_.sweep() > kQuarterTurn;
    form_.text = L"Specify arc length dimension location, or [Mtext/Text/Angle/Partial";
    form_.text += !mayHaveLeader ? L"]: " : hasLeader_ ? L"/No leader]: " : L"/Leader]: ";
    form_.keywords = !mayHaveLeader ? L"Mtext Text Angle Partial"
                     : hasLeader_   ? L"Mtext Text Angle Partial No"
                                    : L"Mtext Text Angle Partial Leader";
}

bool ArcLength::takeOption(const std::wstring& keyword)
{
    if (keyword == L"Partial")
        return takePart();
    hasLeader_ = keyword == L"Leader";
    offerOptions();
    return true;
}

double ArcLength::along(const AcGePoint3d& place) const
{
    const AcGePoint2d centre = arc_.centre.convert2d();
    const double from = (ends_.from.convert2d() - centre).angle();
    const double to = (place.convert2d() - centre).angle();
    return std::fmod(to - from + 4.0 * std::numbers::pi, 2.0 * std::numbers::pi);
}

std::optional<AcGePoint3d> ArcLength::askEnd(const wchar_t* text) const
{
    const Answered<AcGePoint3d> place = askPlace({.text = text});
    return place.given() ? std::optional(arc_.closestPoint(place.value)) : std::nullopt;
}

bool ArcLength::takePart()
{
    const auto first = askEnd(L"Specify first point for arc length dimension: ");
    const auto second = first ? askEnd(L"Specify second point for arc length dimension: ") : first;
    if (!second)
        return false;
    const bool inOrder = along(*first) <= along(*second);
    dimension_->setXLine1Point(inOrder ? *first : *second);
    dimension_->setXLine2Point(inOrder ? *second : *first);
    isPart_ = true;
    return true;
}

void ArcLength::finish(const AngularSpan& span)
{
    dimension_->setPartial(isPart_, span.start, span.start + span.sweep);
    const AcGePoint2d from = span.at(span.start + 0.5 * span.sweep);
    const AcGePoint2d to = span.centre + (from - span.centre).normal() * arc_.radius();
    dimension_->setLeader(hasLeader_, {from, arc_.centre.z}, {to, arc_.centre.z});
}

AcDbObjectId ArcLength::draw()
{
    offerOptions();
    const std::optional<AcGePoint3d> place = draft_.askPlace(
        form_, *dimension_, [this](const std::wstring& keyword) { return takeOption(keyword); });
    if (!place)
        return {};
    dimension_->setArcPoint(*place);
    const std::optional<AngularSpan> span = angularSpan(*dimension_);
    if (!span) {
        refuse(kSamePlace);
        return {};
    }
    finish(*span);
    draft_.tell(*dimension_);
    return draft_.append(std::move(dimension_));
}

} // namespace

AcDbObjectId drawAngularDimension(TextPrompt prompt)
{
    AnyAngle dimension = askAngle();
    if (!dimension)
        return {};
    DimensionDraft draft(prompt);
    std::optional<AcGePoint3d> quadrant;
    const PromptForm form{
        .text = L"Specify dimension arc line location or [Mtext/Text/Angle/Quadrant]: ",
        .keywords = L"Mtext Text Angle Quadrant",
    };
    const std::optional<AcGePoint3d> place =
        draft.askPlace(form, *dimension, [&](const std::wstring&) {
            const Answered<AcGePoint3d> given = askPlace({.text = L"Specify quadrant: "});
            if (given.given()) {
                quadrant = given.value;
                moveArc(*dimension, given.value);
            }
            return given.given();
        });
    if (!place)
        return {};
    moveArc(*dimension, *place);
    const std::optional<AngularSpan> span = angularSpan(*dimension);
    if (!span) {
        refuse(kSamePlace);
        return {};
    }
    if (quadrant) { // the angle stays the chosen one, as far out as the place lies
        const AcGeVector2d toward = (quadrant->convert2d() - span->centre).normal();
        moveArc(*dimension, {span->centre + toward * span->radius, place->z});
    }
    if (!draft.askTextIfAlways(*dimension))
        return {};
    draft.tell(*dimension);
    return draft.append(std::move(dimension));
}

AcDbObjectId drawArcDimension(TextPrompt prompt)
{
    const std::optional<PickedStroke> picked = pickStroke(
        L"Select arc or polyline arc segment: ", isOpenArcStroke, L"The object is no arc.\n");
    return picked ? ArcLength(*picked->arc(), prompt).draw() : AcDbObjectId();
}

} // namespace host
