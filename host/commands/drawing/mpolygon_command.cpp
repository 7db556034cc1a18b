#include "host/commands/drawing/mpolygon_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/vertex_path.h"
#include "host/db/circle.h"
#include "host/db/lwpolyline.h"
#include "host/db/mpolygon.h"
#include "host/db/object_pointer.h"
#include "host/geom/polyline.h"

#include <cmath>

// Ring after ring is drawn by its corners, or taken from a closed polyline or circle, until Enter
// instead of a ring; the polygon comes into the drawing then. Escape leaves nothing. It lies at the
// height of the first ring.

namespace host {

namespace {

class PolygonDrawing {
public:
    bool nextRing(); // false when there are no more
    void finish() const;

private:
    bool drawRing(const AcGePoint3d& first);
    bool selectRing();
    void add(std::vector<BulgeVertex> vertices, double height);
    void cancel() { rings_.clear(); }

    std::vector<HatchLoop> rings_;
    double height_ = 0.0;
};

void PolygonDrawing::add(std::vector<BulgeVertex> vertices, double height)
{
    if (rings_.empty())
        height_ = height;
    HatchLoop ring;
    ring.type = AcDbHatch::kPolyline;
    ring.polyline = std::move(vertices);
    rings_.push_back(std::move(ring));
}

bool PolygonDrawing::drawRing(const AcGePoint3d& first)
{
    const VertexPath path = askPath(first, {.undoAtFirst = false});
    if (path.end == VertexPath::End::cancelled) {
        cancel();
        return false;
    }
    if (path.points.size() < 3 || std::abs(signedArea(path.points)) < 1e-12) {
        refuse(L"The ring encloses nothing.\n");
        return true;
    }
    std::vector<BulgeVertex> vertices;
    for (const AcGePoint3d& corner : path.points)
        vertices.push_back({corner.convert2d()});
    add(std::move(vertices), first.z);
    return true;
}

bool PolygonDrawing::selectRing()
{
    const std::optional<PickedEntity> picked =
        pickEntity(L"Select a closed polyline or a circle: ");
    if (!picked) {
        cancel();
        return false;
    }
    if (const AcDbObjectPointer<AcDbCircle> circle(picked->id, AcDb::kForRead); circle) {
        const AcGePoint3d centre = circle->center();
        const AcGeVector2d out(circle->radius(), 0.0);
        add({{centre.convert2d() + out, 1.0}, {centre.convert2d() - out, 1.0}}, centre.z);
        return true;
    }
    const AcDbObjectPointer<AcDbPolyline> polyline(picked->id, AcDb::kForRead);
    if (polyline && polyline->isClosed() && polyline->numVerts() > 1)
        add(polyline->vertices(), polyline->elevation());
    else
        refuse(L"It is no closed polyline and no circle.\n");
    return true;
}

bool PolygonDrawing::nextRing()
{
    const bool isFirst = rings_.empty();
    const Answered<AcGePoint3d> answer =
        askPlace({.text = isFirst ? L"Specify first point or [Select]: "
                                  : L"Specify first point of next ring or [Select] <done>: ",
                  .keywords = L"Select",
                  .enterCounts = true});
    if (answer.given())
        return drawRing(answer.value);
    if (answer.isKeyword())
        return selectRing();
    if (answer.cancelled())
        cancel();
    return false;
}

void PolygonDrawing::finish() const
{
    if (rings_.empty())
        return;
    auto polygon = std::make_unique<AcDbMPolygon>();
    polygon->setElevation(height_);
    polygon->setRings(rings_);
    appendNew(std::move(polygon));
}

} // namespace

void mpolygonCommand()
{
    if (!documentOfCommand())
        return;
    PolygonDrawing drawing;
    while (drawing.nextRing()) {
    }
    drawing.finish();
}

} // namespace host
