#include "draw/hatch_boundary.h"

#include "draw/finish_steps.h"
#include "draw/given_property.h"
#include "draw/model_space.h"
#include "draw/property_writers.h"
#include "host/db/angle.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"

namespace {

using Props = GraphicProps;

constexpr unsigned kLeastVertices = 3;

// What the hatch is to follow when it is moved.
void tieToSources(const std::vector<AcDbObjectId>& sources, AcDbObjectId hatch)
{
    for (const AcDbObjectId source : sources)
        if (const AcDbObjectPointer<AcDbEntity> entity(source, AcDb::kForWrite); entity)
            entity->addPersistentReactor(hatch);
}

} // namespace

void FinishHatchBoundary(const ObjectDef& object, AcDbObjectId id)
{
    const Props& props = object.props;
    AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForWrite);
    if (!polyline)
        return;
    if (polyline->numVerts() < kLeastVertices) {
        polyline->erase();
        return;
    }
    polyline->setClosed(true);

    AcDbObjectPointer<AcDbHatch> hatch;
    hatch.create();
    const AcDbObjectId hatchId = appendToModelSpace(*hatch);
    assignBackgroundColor({props, true}, *hatch);
    hatch->setPatternAngle(host::toRadians(givenOr(props, &Props::patternAngle, 0.0)));
    hatch->setPatternScale(givenOr(props, &Props::patternScale, 0.0));
    hatch->setNormal(polyline->normal());
    hatch->setElevation(polyline->elevation());
    polyline.close();

    setPattern(*hatch, props.pattern.value);
    hatch->setAssociative(true);
    hatch->appendLoop(AcDbHatch::kExternal, {id});
    hatch->setHatchStyle(AcDbHatch::kNormal);
    hatch->evaluateHatch(false);
    const std::vector<AcDbObjectId> sources = hatch->getAssocObjIds();
    hatch.close();
    tieToSources(sources, hatchId);
    FinishObject(object, hatchId);
}
