#include "host/commands/drawing/picked_curve.h"

#include "host/db/entity.h"
#include "host/db/object_pointer.h"

namespace host {

std::optional<NearestStrokeSink::Stroke> strokeNear(AcDbObjectId entity, const AcGePoint3d& place)
{
    const AcDbObjectPointer<AcDbEntity> picked(entity, AcDb::kForRead);
    NearestStrokeSink sink(place);
    if (picked)
        picked->strokes(sink);
    return sink.nearest();
}

std::optional<TangentTarget> targetNear(AcDbObjectId entity, const AcGePoint3d& place)
{
    const std::optional<NearestStrokeSink::Stroke> stroke = strokeNear(entity, place);
    if (!stroke)
        return std::nullopt;
    if (const auto* const arc = std::get_if<Arc3d>(&*stroke))
        return PlaneCircle{arc->centre.convert2d(), arc->radius()};
    const Segment3d& segment = std::get<Segment3d>(*stroke);
    const AcGeVector2d along = (segment.to - segment.from).convert2d();
    if (along.isZeroLength())
        return std::nullopt; // upright: a point in the plane
    return PlaneLine{segment.from.convert2d(), along.normal()};
}

std::optional<PlaneLine> lineNear(AcDbObjectId entity, const AcGePoint3d& place)
{
    const std::optional<TangentTarget> target = targetNear(entity, place);
    const auto* const line = target ? std::get_if<PlaneLine>(&*target) : nullptr;
    return line ? std::optional(*line) : std::nullopt;
}

} // namespace host
