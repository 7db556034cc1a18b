#include "host/db/readable_text.h"

#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/database.h"
#include "host/db/layer_visibility.h"
#include "host/db/mtext.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

#include <cmath>

namespace host {

namespace {

// What has to change for a mapped frame to be readable again.
enum class Mending {
    none,    // mirrored to the back of its plane, it reads as before
    reverse, // the writing runs from its other end
    turnOver // the letters stand on the other side of the line
};

Mending mendingOf(const TextFrame& frame, const TextFrame& mapped)
{
    const AcGeVector3d side = frame.along.crossProduct(frame.up);
    if (mapped.along.crossProduct(mapped.up).dotProduct(side) > 0.0)
        return Mending::none;
    const double same = frame.along.dotProduct(mapped.along);
    return same < -1e-9 * frame.along.length() * mapped.along.length() ? Mending::reverse
                                                                       : Mending::turnOver;
}

TextFrame mappedFrame(const TextFrame& frame, const AcGeMatrix3d& map)
{
    return {map * frame.corner, map * frame.along, map * frame.up};
}

// A similar map without a mirroring that puts the one frame on the other.
AcGeMatrix3d between(const TextFrame& from, const TextFrame& to, double scale)
{
    const auto axes = [](const TextFrame& frame) {
        const AcGeVector3d x = frame.along.normal();
        const AcGeVector3d y = frame.up.normal();
        return AcGeMatrix3d::coordSystem(frame.corner, x, y, x.crossProduct(y));
    };
    return axes(to) * AcGeMatrix3d::scaling(scale) * axes(from).inverse();
}

Acad::ErrorStatus mirrorText(AcDbText& text, const PlaneMap& map)
{
    TextBox box = text.box();
    if (box.along.isZeroLength())
        box.along = AcGeMatrix3d::arbitraryAxes(text.normal()) *
                    AcGeVector3d(std::cos(text.rotation()), std::sin(text.rotation()), 0.0) * 1e-6;
    const AcGeVector3d direction = box.along.normal();
    const TextFrame frame{box.corner, box.along, box.up - direction * box.up.dotProduct(direction)};
    return text.transformBy(between(frame, readableFrame(frame, map), map.scale()));
}

// The same corner of the text's own box holds it, which is on the other side now.
Acad::ErrorStatus mirrorText(AcDbMText& text, const PlaneMap& map)
{
    const AcGeVector3d along = text.direction();
    const TextFrame frame{text.location(), along, text.normal().crossProduct(along)};
    TextFrame to = mappedFrame(frame, map.world());
    const Mending mending = mendingOf(frame, to);
    if (mending == Mending::reverse)
        to.along = -to.along;
    else if (mending == Mending::turnOver)
        to.up = -to.up;
    const int column = (text.attachment() - 1) % 3;
    const int row = (text.attachment() - 1) / 3;
    const Acad::ErrorStatus status = text.transformBy(between(frame, to, map.scale()));
    if (status != Acad::eOk)
        return status;
    const int held = (mending == Mending::turnOver ? 2 - row : row) * 3 +
                     (mending == Mending::reverse ? 2 - column : column) + 1;
    return text.setAttachment(static_cast<AcDbMText::AttachmentPoint>(held));
}

template <class Text> Acad::ErrorStatus mirrorReadably(Text& text, const AcGeMatrix3d& map)
{
    const PlaneMap seen(map, text.normal());
    const Acad::ErrorStatus status = seen.check(text);
    if (status != Acad::eOk)
        return status;
    return seen.mirrors() ? mirrorText(text, seen) : text.transformBy(map);
}

} // namespace

TextFrame readableFrame(const TextFrame& frame, const PlaneMap& map)
{
    TextFrame to = mappedFrame(frame, map.world());
    if (!map.mirrors())
        return to;
    const Mending mending = mendingOf(frame, to);
    if (mending == Mending::reverse) {
        to.corner += to.along;
        to.along = -to.along;
    } else if (mending == Mending::turnOver) {
        to.corner += to.up;
        to.up = -to.up;
    }
    return to;
}

Acad::ErrorStatus transformReadably(AcDbEntity& entity, const AcGeMatrix3d& map)
{
    if (AcDbText* const text = AcDbText::cast(&entity))
        return mirrorReadably(*text, map);
    if (AcDbMText* const text = AcDbMText::cast(&entity))
        return mirrorReadably(*text, map);
    if (AcDbBlockReference* const reference = AcDbBlockReference::cast(&entity))
        return reference->transformBy(map, AcDbBlockReference::AttributeText::readable);
    return entity.transformBy(map);
}

void transformContents(AcDbObjectId block, const AcGeMatrix3d& map)
{
    const AcDbDatabase* const database = block.database();
    if (!database)
        return;
    Drawing& drawing = database->drawing();
    const auto place = drawing.blocks.find(block.stubNumber());
    if (place == drawing.blocks.end())
        return;
    const LayersUnlocked whole;
    for (const std::uint32_t stub : place->second.entities) {
        AcDbObjectPointer<AcDbEntity> entity(drawing.id(stub), AcDb::kForWrite);
        if (entity)
            transformReadably(*entity, map);
    }
}

} // namespace host
