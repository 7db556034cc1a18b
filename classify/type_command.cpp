#include "classify/type_command.h"

#include "frame/command_frame.h"
#include "frame/entity_filter.h"
#include "frame/entity_gathering.h"
#include "host/db/object_pointer.h"
#include "objects/entity_type.h"
#include "text/messages.h"

#include <set>

void tellEntityTypes()
{
    const ResourceScope resources;
    EntityList entities;
    pickFirstEntities(entities);
    if (!gatherIfEmpty(entities, Fallback::ask))
        return;
    filterUsableLayers(entities);

    std::set<std::wstring> words;
    for (const AcDbObjectId id : entities)
        if (const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead); entity)
            words.insert(entityTypeName(*entity));
    for (const std::wstring& word : words)
        host::print(word + L'\n');
}
