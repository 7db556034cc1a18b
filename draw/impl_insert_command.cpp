#include "draw/impl_insert_command.h"

#include "draw/block_insertion.h"
#include "draw/given_property.h"
#include "draw/impl_prompts.h"
#include "draw/named_styles.h"
#include "draw/object_rotation.h"
#include "frame/command_frame.h"
#include "host/db/block_reference.h"
#include "host/db/database.h"
#include "objects/unit_scale.h"

namespace {

using Props = GraphicProps;

bool hasBlock(const Props& props)
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    return database && isGiven(props, &Props::blockName) &&
           !blockNamed(*database, props.blockName.value).isNull();
}

AcGeScale3d scaleOf(const Props& props)
{
    const ScaleFactors factors = givenOr(props, &Props::blockScale, {1.0, 1.0, 1.0});
    return {factors[0], factors[1], factors[2]};
}

} // namespace

void insertObjectBlock()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const Props* const props = askProps(frame.description());
    if (!props || !hasBlock(*props))
        return;
    const std::optional<AcGePoint3d> point = askPoint();
    if (!point)
        return;
    const AcDbObjectId id = insertBlock(props->blockName.value, *point, scaleOf(*props));
    if (id.isNull())
        return;

    const bool turned = turnsOnScreen(*props);
    if (turned)
        rotateByUser(id, *point);
    AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    if (!reference)
        return;
    if (!turned)
        reference->setRotation(rotationOf(*props));
    // the insert takes the factors as they stand; the block's units count here
    if (isGiven(*props, &Props::blockScale))
        reference->setScaleFactors(scaleOf(*props) * UnitScaleFactor(*reference));
}
