#include "host/commands/drawing/ray_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/ray.h"

// Each ray is in the drawing as soon as it is given; Escape leaves them, as Enter does.

namespace host {

void rayCommand()
{
    if (!documentOfCommand())
        return;
    const Answered<AcGePoint3d> start = askPlace({.text = L"Specify start point: "});
    while (start.given()) {
        const Answered<AcGePoint3d> through = askOtherPlace(
            {.text = L"Specify through point: ", .base = start.value, .enterCounts = true});
        if (!through.given())
            return;
        auto ray = std::make_unique<AcDbRay>();
        ray->setBasePoint(start.value);
        ray->setUnitDir(through.value - start.value);
        appendNew(std::move(ray));
    }
}

} // namespace host
