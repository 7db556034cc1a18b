#include "host/db/dimension_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNear = 1e-9;

enum TextLevel { kOnLine, kAbove, kOutside, kByStandard, kBelow }; // DIMTAD
enum Fit { kMoveBoth, kMoveArrows, kMoveText, kBestFit };          // DIMATFIT

struct Inside {
    bool text;
    bool arrows;
};

Inside fitting(const DimensionScene& scene, double length)
{
    const double text = scene.hasText() ? scene.width + 2.0 * scene.gap() : 0.0;
    const double arrows = 2.0 * scene.picture.arrowSize();
    if (length >= text + arrows)
        return {true, true};
    if (scene.style.tix != 0)
        return {true, false};
    const Inside onlyText{true, false};
    const Inside onlyArrows{false, true};
    const Inside none{false, false};
    switch (static_cast<int>(scene.style.atfit)) {
    case kMoveBoth:
        return none;
    case kMoveArrows:
        return length >= text ? onlyText : none;
    case kMoveText:
        return length >= arrows ? onlyArrows : none;
    default:
        return length >= text ? onlyText : length >= arrows ? onlyArrows : none;
    }
}

void drawArrow(const DimensionScene& scene, const DimensionTrack& track, double tip, bool backward,
               DimensionEnd end)
{
    const double back = tip + (backward ? 1.0 : -1.0) * scene.picture.arrowSize();
    scene.picture.arrow(track.at(tip), (track.at(tip) - track.at(back)).normal(), end);
}

} // namespace

AcGeVector2d unitVector(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

double readable(double angle)
{
    angle = std::fmod(angle, 2.0 * kPi);
    if (angle < 0.0)
        angle += 2.0 * kPi;
    if (angle > 0.5 * kPi + kNear && angle <= 1.5 * kPi + kNear)
        return angle - kPi;
    return angle > 1.5 * kPi ? angle - 2.0 * kPi : angle;
}

double DimensionScene::gap() const
{
    return style.scaled(std::abs(style.gap));
}

void DimensionScene::text(AcGePoint2d at, double angle)
{
    middle = at;
    picture.text(at, angle, contents);
}

double DimensionScene::textAngle(double lineAngle, bool inside) const
{
    if (dimension.textRotation() != 0.0)
        return dimension.textRotation();
    return (inside ? style.tih : style.toh) != 0 ? 0.0 : readable(lineAngle);
}

double DimensionScene::halfExtent(double angle, double lineAngle) const
{
    const double along = std::abs(std::cos(lineAngle - angle));
    const double across = std::abs(std::sin(lineAngle - angle));
    const double halfWidth = 0.5 * width + gap();
    const double halfHeight = 0.5 * picture.textHeight() + gap();
    return std::min(along > kNear ? halfWidth / along : HUGE_VAL,
                    across > kNear ? halfHeight / across : HUGE_VAL);
}

AcGeVector2d DimensionScene::lift(double angle, double lineAngle, AcGeVector2d outward) const
{
    const int level = static_cast<int>(style.tad);
    if (level == kOnLine || std::abs(std::sin(lineAngle - angle)) > 1e-6)
        return {};
    const AcGeVector2d up = unitVector(angle).perpVector();
    const double height = gap() + 0.5 * picture.textHeight();
    const bool down = level == kBelow || (level == kOutside && outward.dotProduct(up) < 0.0);
    return up * (down ? -height : height);
}

bool drawAsKind(DimensionScene& scene, std::span<const DimensionDrawing> kinds)
{
    const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const DimensionDrawing& one) {
        return scene.dimension.isKindOf(one.type());
    });
    if (kind == kinds.end())
        return false;
    kind->draw(scene);
    return true;
}

void drawSpans(const std::function<void(double, double)>& draw, std::span<const TrackSpan> spans,
               std::optional<TrackSpan> gap)
{
    for (const TrackSpan& span : spans) {
        if (!gap || gap->to <= span.from || gap->from >= span.to) {
            draw(span.from, span.to);
            continue;
        }
        if (gap->from > span.from)
            draw(span.from, gap->from);
        if (gap->to < span.to)
            draw(gap->to, span.to);
    }
}

void drawTrack(DimensionScene& scene, const DimensionTrack& track)
{
    const DimensionStyle& style = scene.style;
    const double length = track.length;
    const double arrow = scene.picture.arrowSize();
    const double first = scene.picture.lineStart(DimensionEnd::first);
    const double second = scene.picture.lineStart(DimensionEnd::second);
    const double halfWidth = 0.5 * scene.width;
    Inside inside = fitting(scene, length);
    double place = 0.5 * length;
    if (scene.placed) {
        place = track.along(*scene.placed);
        inside.text = place >= 0.0 && place <= length;
    } else if (!inside.text) {
        const double tail = inside.arrows ? 0.0 : 2.0 * arrow;
        const double lineAngle = track.angle(length + tail);
        place = length + tail + scene.halfExtent(scene.textAngle(lineAngle, false), lineAngle);
    } else if (style.just == 1) {
        place = arrow + scene.gap() + halfWidth;
    } else if (style.just == 2) {
        place = length - arrow - scene.gap() - halfWidth;
    }
    const double lineAngle = track.angle(place);
    const double angle = scene.textAngle(lineAngle, inside.text);
    const AcGeVector2d lifted = scene.lift(angle, lineAngle, track.outward(place));
    const AcGePoint2d middle = scene.placed ? *scene.placed : track.at(place) + lifted;

    std::vector<TrackSpan> spans;
    if (inside.arrows) {
        const double beyond = style.scaled(style.dle);
        spans.push_back(
            {first > 0.0 ? first : -beyond, second > 0.0 ? length - second : length + beyond});
    } else {
        spans.push_back({-2.0 * arrow, -first});
        if (style.tofl != 0)
            spans.push_back({0.0, length});
        spans.push_back({length + second, length + 2.0 * arrow});
    }
    if (scene.hasText() && !inside.text && !scene.placed)
        spans.push_back({inside.arrows ? length : length + 2.0 * arrow,
                         lifted.isZeroLength() ? place : place + halfWidth});
    for (TrackSpan& span : spans) {
        if (style.sd1 != 0)
            span.from = std::max(span.from, 0.5 * length);
        if (style.sd2 != 0)
            span.to = std::min(span.to, 0.5 * length);
    }
    std::optional<TrackSpan> gap;
    const double across = middle.distanceTo(track.at(place));
    if (scene.hasText() && across < 0.5 * scene.picture.textHeight() + 0.5 * scene.gap()) {
        const double half = scene.halfExtent(angle, lineAngle);
        gap = TrackSpan{place - half, place + half};
    }
    std::erase_if(spans, [](const TrackSpan& span) { return span.to - span.from < kNear; });
    drawSpans(track.draw, spans, gap);
    if (style.sd1 == 0)
        drawArrow(scene, track, 0.0, inside.arrows, DimensionEnd::first);
    if (style.sd2 == 0)
        drawArrow(scene, track, length, !inside.arrows, DimensionEnd::second);
    scene.text(middle, angle);
}

} // namespace host
