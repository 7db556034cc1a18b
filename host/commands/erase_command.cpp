#include "host/commands/erase_command.h"

#include "host/commands/command_entities.h"
#include "host/db/entity.h"
#include "host/db/object_pointer.h"
#include "host/edit/command_line.h"
#include "host/edit/pick_first.h"

namespace host {

void eraseCommand()
{
    if (!documentOfCommand())
        return;
    const auto entities = entitiesOfCommand();
    if (!entities)
        return;
    int locked = 0;
    for (const AcDbObjectId id : *entities) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOnLockedLayer)
            ++locked;
        else if (entity)
            entity->erase();
    }
    if (locked == 1)
        print(L"1 was on a locked layer.\n");
    else if (locked > 1)
        acutPrintf(L"%d were on a locked layer.\n", locked);
    setPickFirst({});
}

} // namespace host
