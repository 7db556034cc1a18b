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

// In the world's coordinates, and their height; none for a polyline that is open or tilted.
struct Outline {
    std::vector<BulgeVertex> vertices;
    double height = 0.0;
};
std::optional<Outline> outlineOf(const AcDbPolyline& polyline)
{
    const AcGeVector3d normal = polyline.normal();
    if (!polyline.isClosed() || polyline.numVerts() < 2 ||
        !normal.isParallelTo(AcGeVector3d::kZAxis))
        return std::nullopt;
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(normal);
    Outline outline{polyline.vertices()};
    for (BulgeVertex& vertex : outline.vertices) {
        const AcGePoint3d place = plane * AcGePoint3d(vertex.point, polyline.elevation());
        outline.height = place.z;
        vertex.point = place.convert2d();
        vertex.bulge = std::copysign(1.0, normal.z) * vertex.bulge;
    }
    return outline;
}

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
    std::optional<Outline> outline = polyline ? outlineOf(*polyline) : std::nullopt;
    if (outline)
        add(std::move(outline->vertices), outline->height);
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
