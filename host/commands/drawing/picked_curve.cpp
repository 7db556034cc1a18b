#include "host/commands/drawing/picked_curve.h"

#include "host/db/entity.h"
#include "host/db/object_pointer.h"
#include "host/geom/nearest_stroke.h"

namespace host {

std::optional<TangentTarget> strokeNear(AcDbObjectId entity, const AcGePoint3d& place)
{
    const AcDbObjectPointer<AcDbEntity> picked(entity, AcDb::kForRead);
    NearestStrokeSink sink(place);
    if (picked)
        picked->strokes(sink);
    if (!sink.nearest())
        return std::nullopt;
    if (const auto* const arc = std::get_if<Arc3d>(&*sink.nearest()))
        return PlaneCircle{arc->centre.convert2d(), arc->radius()};
    const Segment3d& segment = std::get<Segment3d>(*sink.nearest());
    const AcGeVector2d along = (segment.to - segment.from).convert2d();
    if (along.isZeroLength())
        return std::nullopt; // upright: a point in the plane
    return PlaneLine{segment.from.convert2d(), along.normal()};
}

std::optional<PlaneLine> lineNear(AcDbObjectId entity, const AcGePoint3d& place)
{
    const std::optional<TangentTarget> stroke = strokeNear(entity, place);
    const auto* const line = stroke ? std::get_if<PlaneLine>(&*stroke) : nullptr;
    return line ? std::optional(*line) : std::nullopt;
}

} // namespace host
