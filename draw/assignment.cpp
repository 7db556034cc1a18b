#include "draw/assignment.h"

#include "draw/block_insertion.h"
#include "draw/current_layer.h"
#include "draw/entity_replacement.h"
#include "draw/named_styles.h"
#include "draw/property_writers.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/mline.h"
#include "objects/conformity.h"
#include "objects/record_attachment.h"
#include "objects/unit_scale.h"
#include "text/messages.h"

namespace {

using Props = GraphicProps;
using OpenEntity = AcDbObjectPointer<AcDbEntity>;

// A multiline keeps its style for life.
void replaceMline(OpenEntity& entity, AcDbObjectId& id, const std::wstring& styleName)
{
    AcDbDatabase& database = *entity->database();
    auto& old = static_cast<AcDbMline&>(*entity);
    AcDbObjectPointer<AcDbMline> made;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(blockNamed(database, ACDB_MODEL_SPACE),
                                                      AcDb::kForWrite);
        made.create();
        if (!space || space->appendAcDbEntity(made.object()) != Acad::eOk)
            return;
    }
    made->setNormal(old.normal());
    made->setStyle(dictionaryEntry(database, L"ACAD_MLINESTYLE", styleName));
    for (const AcGePoint3d& vertex : old.vertices())
        made->appendSeg(vertex);
    made->setClosedMline(old.closedMline());
    CommonLook(old).giveTo(*made);
    made->setJustification(old.justification());
    made->setScale(old.scale());
    made->setSupressEndCaps(old.supressEndCaps());
    made->setSupressStartCaps(old.supressStartCaps());

    KeptEntries entries(old);
    old.erase();
    entity.close();
    id = made->objectId();
    made.close();
    if (entity.open(id, AcDb::kForWrite) == Acad::eOk)
        entries.handOver(*entity);
}

void assignMlineStyle(const WantedLook& look, OpenEntity& entity, AcDbObjectId& id)
{
    if (callsForWrite(look, *entity, &Props::mlineStyle))
        replaceMline(entity, id, look.props.mlineStyle.value);
}

// The reference that the host inserted takes the place of the old one.
void takePlace(OpenEntity& entity, AcDbObjectId& id, AcDbObjectId inserted)
{
    auto& old = static_cast<AcDbBlockReference&>(*entity);
    KeptEntries entries(old);
    const CommonLook common(old);
    const AcGeVector3d normal = old.normal();
    const AcGePoint3d position = old.position();
    const double rotation = old.rotation();
    const AcGeScale3d scale = old.scaleFactors();
    old.erase();
    entity.close();
    id = inserted;
    if (entity.open(id, AcDb::kForWrite) != Acad::eOk)
        return;
    entries.handOver(*entity);
    common.giveTo(*entity);
    auto& made = static_cast<AcDbBlockReference&>(*entity);
    made.setNormal(normal);
    made.setPosition(position);
    made.setRotation(rotation);
    made.setScaleFactors(scale);
}

bool isReference(AcDbObjectId id)
{
    return static_cast<bool>(AcDbObjectPointer<AcDbBlockReference>(id, AcDb::kForRead));
}

void replaceBlock(OpenEntity& entity, AcDbObjectId& id, const std::wstring& blockName)
{
    const AcDbObjectId block = blockNamed(*entity->database(), blockName);
    if (block.isNull())
        return;
    auto& reference = static_cast<AcDbBlockReference&>(*entity);
    AcDbObjectId inserted;
    {
        const UsableCurrentLayer layer(entity->layer());
        inserted = insertBlock(blockName, reference.position(), reference.scaleFactors());
    }
    if (isReference(inserted))
        takePlace(entity, id, inserted);
    else
        reference.setBlockTableRecord(block);
}

void assignBlockScale(const WantedLook& look, AcDbBlockReference& reference)
{
    if (!callsForWrite(look, reference, &Props::blockScale))
        return;
    const ScaleFactors& wanted = look.props.blockScale.value;
    reference.setScaleFactors(AcGeScale3d(wanted[0], wanted[1], wanted[2]) *
                              UnitScaleFactor(reference));
}

void assignReference(const WantedLook& look, OpenEntity& entity, AcDbObjectId& id)
{
    if (callsForWrite(look, *entity, &Props::blockName))
        replaceBlock(entity, id, look.props.blockName.value);
    if (entity)
        assignBlockScale(look, static_cast<AcDbBlockReference&>(*entity));
}

void assignLook(const WantedLook& look, OpenEntity& entity, AcDbObjectId& id)
{
    if (entity->isA() == AcDbBlockReference::desc())
        assignReference(look, entity, id);
    else if (entity->isA() == AcDbMline::desc())
        assignMlineStyle(look, entity, id);
    if (!entity)
        return;
    assignClassProperties(look, *entity);
    assignCommonProperties(look, *entity);
}

} // namespace

bool ApplyGraphicProps(const ObjectDef& object, AcDbObjectId storeId, AcDbObjectId& id,
                       AssignmentSteps steps)
{
    {
        OpenEntity entity(id, AcDb::kForWrite);
        if (!entity || !typeAccepted(object, *entity))
            return false;
        if (steps.assign)
            assignLook({object.props, steps.force}, entity, id);
    }
    if (steps.attach)
        for (const TableDef& table : object.props.tables)
            attachRecord(table, id, object, storeId);
    return true;
}

bool ApplyDefinition(const Description& description, std::wstring_view name, AcDbObjectId storeId,
                     AcDbObjectId& id, AssignmentSteps steps, LoadedDependencies& dependencies)
{
    const ObjectDef* const object = description.findObject(name);
    if (!object) {
        tell(Message::undefinedObject, std::wstring(name));
        return false;
    }
    if (!dependencies.load(*object, description)) {
        tell(Message::objectDependenciesNotLoaded, object->props.name);
        return false;
    }
    return ApplyGraphicProps(*object, storeId, id, steps);
}
