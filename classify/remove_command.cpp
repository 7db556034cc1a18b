#include "classify/remove_command.h"

#include "classify/removal.h"
#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"

#include <algorithm>

void removeNamedObject()
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    const std::optional<std::wstring> name = askObjectName();
    if (!name || !gatherIfEmpty(entities, Fallback::ask))
        return;
    filterEntities(entities);
    if (entities.empty())
        return tell(Message::noObjectsSelected);

    StoredTables tables(currentStore());
    const auto removed = std::count_if(entities.begin(), entities.end(), [&](AcDbObjectId entity) {
        return removeObject(frame.description(), tables, entity, *name);
    });
    tell(Message::completed, static_cast<int>(removed));
}
