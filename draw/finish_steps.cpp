#include "draw/finish_steps.h"

#include "draw/given_property.h"
#include "draw/model_space.h"
#include "draw/property_writers.h"
#include "frame/command_frame.h"
#include "host/db/circle.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/point_entity.h"
#include "host/db/polyline3d.h"
#include "host/db/spline.h"
#include "host/edit/selection_set.h"
#include "objects/record_attachment.h"

namespace {

using OpenEntity = AcDbObjectPointer<AcDbEntity>;
using Props = GraphicProps;

// The parts that an entity fell into, in model space.
std::vector<AcDbObjectId> explodedParts(AcDbObjectId id)
{
    std::vector<std::unique_ptr<AcDbEntity>> parts;
    {
        OpenEntity entity(id, AcDb::kForWrite);
        if (entity) {
            entity->explode(parts);
            entity->erase();
        }
    }
    std::vector<AcDbObjectId> ids;
    for (std::unique_ptr<AcDbEntity>& part : parts) {
        OpenEntity appended;
        appended.acquire(part.release());
        if (const AcDbObjectId made = appendPartToModelSpace(*appended); !made.isNull())
            ids.push_back(made);
    }
    return ids;
}

// All that is given is written, also where the entity has another value that is accepted.
WantedLook definedLook(const ObjectDef& object)
{
    return {object.props, true};
}

// The class's own settings, then the common end of all steps.
template <class Settings>
void finishClass(const ObjectDef& object, AcDbObjectId id, const AcRxClass* kind, Settings settings)
{
    {
        OpenEntity entity(id, AcDb::kForWrite);
        if (!entity)
            return;
        if (entity->isKindOf(kind))
            settings(*entity);
    }
    FinishObject(object, id);
}

void finishClass(const ObjectDef& object, AcDbObjectId id, const AcRxClass* kind)
{
    finishClass(object, id, kind,
                [&](AcDbEntity& entity) { assignClassProperties(definedLook(object), entity); });
}

} // namespace

void FinishObject(const ObjectDef& object, AcDbObjectId id)
{
    std::vector<AcDbObjectId> entities{id};
    if (object.props.explode)
        entities = explodedParts(id);
    const AcDbObjectId store = currentStore();
    for (const AcDbObjectId each : entities) {
        {
            OpenEntity entity(each, AcDb::kForWrite);
            if (!entity)
                continue;
            assignCommonProperties(definedLook(object), *entity);
        }
        for (const TableDef& table : object.props.tables)
            attachRecord(table, each, object, store);
    }
}

void Finish3dPolyline(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDb3dPolyline::desc());
}

void FinishDimension(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDbDimension::desc());
}

void FinishHatch(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDbHatch::desc(), [&](AcDbEntity& entity) {
        assignBackgroundColor(definedLook(object), static_cast<AcDbHatch&>(entity));
    });
}

void FinishMLeader(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDbMLeader::desc(), [&](AcDbEntity& entity) {
        assignClassProperties(definedLook(object), entity);
        assignCommonProperties(definedLook(object), entity);
    });
}

void FinishMline(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDbMline::desc(), [&](AcDbEntity& entity) {
        auto& mline = static_cast<AcDbMline&>(entity);
        const Props& props = object.props;
        // an open one is left as it was drawn
        if (isGiven(props, &Props::closed) && props.closed.value >= 1)
            mline.setClosedMline(true);
        if (isGiven(props, &Props::mlineJustification))
            mline.setJustification(props.mlineJustification.value);
        if (isGiven(props, &Props::mlineScale))
            mline.setScale(props.mlineScale.value);
    });
}

void FinishMPolygon(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDbMPolygon::desc());
}

void FinishPolyline(const ObjectDef& object, AcDbObjectId id)
{
    finishClass(object, id, AcDbPolyline::desc());
}

void FinishSpline(const ObjectDef& object, AcDbObjectId)
{
    ads_name last{};
    AcDbObjectId id;
    if (acdbEntLast(last) == RTERROR || acdbGetObjectId(id, last) != Acad::eOk)
        return;
    finishClass(object, id, AcDbSpline::desc(), [&](AcDbEntity& entity) {
        assignClassProperties(definedLook(object), entity);
        assignCommonProperties(definedLook(object), entity);
    });
}

void FinishCircleFromPoint(const ObjectDef& object, AcDbObjectId id)
{
    AcDbObjectPointer<AcDbPoint> point(id, AcDb::kForWrite);
    if (point.openStatus() == Acad::eNotThatKindOfClass)
        return FinishObject(object, id);
    if (!point)
        return;
    AcDbObjectPointer<AcDbCircle> circle;
    circle.create();
    const AcDbObjectId circleId = appendToModelSpace(*circle);
    circle->setCenter(point->position());
    circle->setRadius(object.props.circleRadius.value);
    circle.close();
    point->erase();
    FinishObject(object, circleId);
}
