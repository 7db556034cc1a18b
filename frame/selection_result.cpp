#include "frame/selection_result.h"

#include "host/edit/selection_set.h"
#include "text/messages.h"

void selectResult(const EntityList& entities)
{
    acedSSSetFirst(nullptr, nullptr);
    ads_name set{};
    if (acedSSAdd(nullptr, nullptr, set) != RTNORM)
        return;
    for (const AcDbObjectId id : entities) {
        ads_name name{};
        ads_name grown{};
        if (acdbGetAdsName(name, id) == Acad::eOk)
            acedSSAdd(&name, &set, grown);
    }
    acedSSSetFirst(&set, &set);
    acedSSFree(set);
}

void tellSelected(const EntityList& entities)
{
    tell(Message::selected, static_cast<int>(entities.size()));
}

void selectAndTell(const EntityList& entities)
{
    selectResult(entities);
    tellSelected(entities);
}
