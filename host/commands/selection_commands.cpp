#include "host/commands/selection_commands.h"

#include "host/commands/command_entities.h"
#include "host/edit/pick_first.h"
#include "host/edit/selection.h"

namespace host {

void pselectCommand()
{
    if (!documentOfCommand())
        return;
    std::vector<AcDbObjectId> selected;
    if (selectObjects(selected) == RTNORM)
        setPickFirst(std::move(selected));
}

void selectCommand()
{
    if (!documentOfCommand())
        return;
    if (const auto selected = entitiesOfCommand(); selected && !selected->empty())
        setPreviousSelection(*selected);
    setPickFirst({});
}

} // namespace host
