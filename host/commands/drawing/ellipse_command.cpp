#include "host/commands/drawing/ellipse_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/angle.h"
#include "host/db/ellipse.h"

#include <cmath>
#include <numbers>

// Escape at any of its prompts leaves nothing. Typed angles and parameters count from the end of
// the axis given first, counter-clockwise.

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kQuarter = std::numbers::pi / 2.0;
constexpr double kFlattest = 89.4;   // degrees; a circle seen farther from the side is a line
constexpr double kLeastRatio = 1e-6; // of the axes; programs refuse a record with less

struct Axes {
    AcGePoint3d centre;
    AcGeVector3d first; // half the axis that was given by its ends
    double other = 0.0; // half the other one

    bool firstIsMajor() const { return other <= first.length(); }
    AcGeVector3d major() const
    {
        return firstIsMajor() ? first : AcGeVector3d::kZAxis.crossProduct(first).normal() * other;
    }
    double ratio() const
    {
        return firstIsMajor() ? other / first.length() : first.length() / other;
    }
    // The record's parameter, from one that counts from the first axis.
    double parameter(double fromFirst) const
    {
        return firstIsMajor() ? fromFirst : fromFirst - kQuarter;
    }
    // Of the point on the ellipse that is seen under the angle from the centre.
    double parameterAtAngle(double fromFirst) const
    {
        const double turns = std::round(fromFirst / kTurn) * kTurn;
        const double rest = fromFirst - turns;
        return turns + std::atan2(std::sin(rest) / other, std::cos(rest) / first.length());
    }
};

std::optional<double> askOtherAxis(const Axes& axes)
{
    const Answered<double> distance = askUntil(
        [&] {
            return askLength({.text = L"Specify distance to other axis or [Rotation]: ",
                              .keywords = L"Rotation",
                              .base = axes.centre,
                              .bits = RSG_NOZERO | RSG_NONEG});
        },
        [&](double other) {
            const bool tooFlat = !(Axes{axes.centre, axes.first, other}.ratio() >= kLeastRatio);
            return tooFlat ? L"The axes differ too much in length.\n" : nullptr;
        });
    if (distance.given())
        return distance.value;
    if (!distance.chose(L"Rotation"))
        return std::nullopt;
    const Answered<double> rotation = askUntil(
        [&] {
            return askTurn({.text = L"Specify rotation around major axis: ", .base = axes.centre});
        },
        [](double angle) {
            return std::abs(std::cos(angle)) < std::cos(toRadians(kFlattest))
                       ? L"The rotation must be at most 89.4 degrees.\n"
                       : nullptr;
        });
    return rotation.given()
               ? std::optional(axes.first.length() * std::abs(std::cos(rotation.value)))
               : std::nullopt;
}

std::optional<Axes> fromCentre()
{
    const Answered<AcGePoint3d> centre = askPlace({.text = L"Specify center of ellipse: "});
    if (!centre.given())
        return std::nullopt;
    const Answered<AcGePoint3d> end =
        askOtherPlaceInPlane({.text = L"Specify endpoint of axis: ", .base = centre.value});
    if (!end.given())
        return std::nullopt;
    const AcGeVector3d axis = end.value - centre.value;
    return Axes{centre.value, {axis.x, axis.y, 0.0}};
}

std::optional<Axes> fromEnd(const AcGePoint3d& first)
{
    const Answered<AcGePoint3d> second =
        askOtherPlaceInPlane({.text = L"Specify other endpoint of axis: ", .base = first});
    if (!second.given())
        return std::nullopt;
    const AcGePoint3d other(second.value.convert2d(), first.z);
    const AcGePoint3d centre = interpolated(first, other, 0.5);
    return Axes{centre, first - centre};
}

struct Span {
    double start = 0.0;
    double end = kTurn;
};

// One end of an arc, as an angle or, by the keyword, as a parameter; the mode stays for the other
// end. Included angles count from `start`.
class ArcEnds {
public:
    explicit ArcEnds(const Axes& axes) : axes_(axes) {}

    std::optional<Span> ask()
    {
        const std::optional<double> start = askEnd(nullptr);
        const std::optional<double> end = start ? askEnd(&*start) : std::nullopt;
        if (!end)
            return std::nullopt;
        Span span{axes_.parameter(*start), axes_.parameter(*end)};
        span.start -= std::floor(span.start / kTurn) * kTurn;
        span.end -= std::floor((span.end - span.start) / kTurn) * kTurn;
        if (span.end - span.start < 1e-9)
            span.end += kTurn; // where it begins: the whole
        return span;
    }

private:
    // The parameter that counts from the first axis.
    std::optional<double> askEnd(const double* start)
    {
        for (;;) {
            const std::wstring what = start ? L"Specify end " : L"Specify start ";
            const std::wstring mode =
                byParameter_ ? L"parameter or [Angle" : L"angle or [Parameter";
            const std::wstring keywords = byParameter_ ? L"Angle" : L"Parameter";
            const Answered<double> answer = askAngleFrom(
                {.text = what + mode + (start ? L"/Included angle]: " : L"]: "),
                 .keywords = start ? (byParameter_ ? L"Angle Included" : L"Parameter Included")
                                   : keywords.c_str(),
                 .base = axes_.centre},
                std::atan2(axes_.first.y, axes_.first.x));
            if (answer.given())
                return asParameter(answer.value);
            if (answer.chose(L"Included"))
                return askIncluded(*start);
            if (!answer.isKeyword())
                return std::nullopt;
            byParameter_ = answer.chose(L"Parameter");
        }
    }

    double asParameter(double value)
    {
        angle_ = value;
        return byParameter_ ? value : axes_.parameterAtAngle(value);
    }

    std::optional<double> askIncluded(double start)
    {
        const Answered<double> included =
            askTurn({.text = L"Specify included angle for arc <180>: ",
                     .base = axes_.centre,
                     .enterCounts = true});
        if (included.cancelled())
            return std::nullopt;
        const double turn = included.given() ? included.value : std::numbers::pi;
        return byParameter_ ? start + turn : axes_.parameterAtAngle(angle_ + turn);
    }

    const Axes& axes_;
    bool byParameter_ = false;
    double angle_ = 0.0; // given last
};

struct GivenEllipse {
    Axes axes;
    Span span;
};

std::optional<GivenEllipse> askEllipse()
{
    Answered<AcGePoint3d> first = askPlace(
        {.text = L"Specify axis endpoint of ellipse or [Arc/Center]: ", .keywords = L"Arc Center"});
    const bool isArc = first.chose(L"Arc");
    if (isArc)
        first = askPlace({.text = L"Specify axis endpoint of elliptical arc or [Center]: ",
                          .keywords = L"Center"});
    std::optional<Axes> axes;
    if (first.given())
        axes = fromEnd(first.value);
    else if (first.chose(L"Center"))
        axes = fromCentre();
    if (!axes)
        return std::nullopt;
    const std::optional<double> other = askOtherAxis(*axes);
    if (!other)
        return std::nullopt;
    axes->other = *other;
    if (!isArc)
        return GivenEllipse{*axes, {}};
    const std::optional<Span> span = ArcEnds(*axes).ask();
    return span ? std::optional(GivenEllipse{*axes, *span}) : std::nullopt;
}

} // namespace

void ellipseCommand()
{
    if (!documentOfCommand())
        return;
    const std::optional<GivenEllipse> given = askEllipse();
    if (given)
        appendNew(std::make_unique<AcDbEllipse>(given->axes.centre, AcGeVector3d::kZAxis,
                                                given->axes.major(), given->axes.ratio(),
                                                given->span.start, given->span.end));
}

} // namespace host
