#include "host/commands/drawing/polyline3d_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/vertex_path.h"
#include "host/db/object_pointer.h"
#include "host/db/polyline3d.h"
#include "host/db/vertex.h"

// The polyline comes into the drawing at the end. Escape leaves what was drawn so far, as Enter
// does; a start point alone leaves nothing.

namespace host {

void polyline3dCommand()
{
    if (!documentOfCommand())
        return;
    const Answered<AcGePoint3d> start = askPlace({.text = L"Specify start point of polyline: "});
    if (!start.given())
        return;
    const VertexPath path = askPath(start.value, {.next = L"Specify endpoint of line"});
    if (path.points.size() < 2)
        return;
    const AcDbObjectPointer<AcDb3dPolyline> polyline(appendNew(std::make_unique<AcDb3dPolyline>()),
                                                     AcDb::kForWrite);
    if (!polyline)
        return;
    for (const AcGePoint3d& place : path.points) {
        AcDbObjectPointer<AcDb3dPolylineVertex> vertex;
        vertex.acquire(new AcDb3dPolylineVertex(place));
        AcDbObjectId id;
        if (polyline->appendVertex(id, vertex.object()) == Acad::eOk)
            vertex->setLayer(polyline->layer());
    }
    polyline->setClosed(path.isClosed());
}

} // namespace host
