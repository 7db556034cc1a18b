#include "host/db/exploding.h"
#include "host/db/lwpolyline.h"
#include "host/db/mpolygon.h"

namespace {

constexpr int kByLayer = 256;

std::unique_ptr<AcDbEntity> ringOf(const host::HatchLoop& loop, const AcDbMPolygon& whole)
{
    auto ring = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < loop.polyline.size(); ++i)
        ring->addVertexAt(i, loop.polyline[i].point, loop.polyline[i].bulge);
    ring->setClosed(true);
    ring->setElevation(whole.elevation());
    ring->setNormal(whole.normal());
    return ring;
}

// The lines as a definition has them: offsets along and across, before the hatch's scale and angle.
std::vector<host::PatternLine> definitionOf(const AcDbMPolygon& whole)
{
    const double scale = whole.patternScale();
    const double angle = whole.patternAngle();
    std::vector<host::PatternLine> lines = whole.patternLines();
    for (host::PatternLine& line : lines) {
        line.offset = line.offset.rotateBy(-line.angle) / scale;
        line.base = AcGePoint2d() + line.base.asVector().rotateBy(-angle) / scale;
        line.angle -= angle;
        for (double& dash : line.dashes)
            dash /= scale;
    }
    return lines;
}

} // namespace

Acad::ErrorStatus AcDbMPolygon::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    host::PartSink sink(*this, parts);
    const std::vector<host::HatchLoop> rings = loops();
    for (const host::HatchLoop& ring : rings)
        if (ring.polyline.size() > 1)
            sink.add(ringOf(ring, *this));
    if (sink.outcome() != Acad::eOk || (!isSolidFill() && patternLines().empty()))
        return sink.outcome();
    auto filling = std::make_unique<AcDbHatch>();
    filling->setNormal(normal());
    filling->setElevation(elevation());
    filling->setLoops(rings);
    if (isSolidFill()) {
        filling->setSolidFill();
    } else {
        filling->setPatternScale(patternScale());
        filling->setPatternAngle(patternAngle());
        filling->setPatternLines(patternType(), patternName(), definitionOf(*this));
    }
    sink.add(std::move(filling));
    if (const AcCmColor color = patternColor(); color.colorIndex() != kByLayer)
        parts.back()->setColor(color);
    return Acad::eOk;
}
