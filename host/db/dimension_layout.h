#pragma once

#include "host/db/dimension.h"
#include "host/db/dimension_picture.h"

#include <functional>
#include <optional>
#include <span>

// How the parts of a dimension lie to each other, in the xy plane.
namespace host {

AcGeVector2d unitVector(double angle);
// An angle of writing that is never upside down; upright text reads from below.
double readable(double angle);

// One dimension while it is drawn.
struct DimensionScene {
    const AcDbDimension& dimension;
    const DimensionStyle& style;
    DimensionPicture& picture;
    std::wstring contents;
    double width;                      // of the text
    std::optional<AcGePoint2d> placed; // the text's middle, where the user put it
    AcGePoint2d middle;                // where it was drawn

    double gap() const;
    bool hasText() const { return !contents.empty(); }
    void text(AcGePoint2d at, double angle);

    // Of the text beside a line; `inside`: between the arrows, or inside of the circle.
    double textAngle(double lineAngle, bool inside) const;
    // From the middle of the text to the edge of its free space, seen along a line.
    double halfExtent(double angle, double lineAngle) const;
    // How the text is moved off a line that it runs along; zero for text on the line. `outward`
    // leads away from what is measured.
    AcGeVector2d lift(double angle, double lineAngle, AcGeVector2d outward) const;
};

// How one kind of dimension is drawn.
struct DimensionDrawing {
    AcRxClass* (*type)();
    void (*draw)(DimensionScene&);
};
// False when the dimension is of none of the kinds.
bool drawAsKind(DimensionScene& scene, std::span<const DimensionDrawing> kinds);

// A dimension line between two arrows, by the length along it from the first one's tip.
struct DimensionTrack {
    double length;
    std::function<AcGePoint2d(double)> at;
    std::function<double(double)> angle; // of the line there
    std::function<double(AcGePoint2d)> along;
    std::function<AcGeVector2d(double)> outward;
    std::function<void(double, double)> draw;
};

// With its arrows and the text: what has no room between the arrows moves outside, and the line is
// broken where text stands on it.
void drawTrack(DimensionScene& scene, const DimensionTrack& track);

struct TrackSpan {
    double from;
    double to;
};
// Parts of a line, apart from a gap in them.
void drawSpans(const std::function<void(double, double)>& draw, std::span<const TrackSpan> spans,
               std::optional<TrackSpan> gap);

} // namespace host
