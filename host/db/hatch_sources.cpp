#include "host/db/circle.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/reading.h"

#include <numbers>

namespace {

// Places in the plane of the hatch.
std::vector<host::BulgeVertex> inPlane(const AcDbPolyline& polyline, const AcGeMatrix3d& toPlane)
{
    const AcGeMatrix3d map = toPlane * AcGeMatrix3d::arbitraryAxes(polyline.normal());
    std::vector<host::BulgeVertex> path = polyline.vertices();
    for (host::BulgeVertex& vertex : path) {
        const AcGePoint3d place = map * AcGePoint3d(vertex.point, polyline.elevation());
        vertex.point = {place.x, place.y};
    }
    return path;
}

host::HatchArc inPlane(const AcDbCircle& circle, const AcGeMatrix3d& toPlane)
{
    const AcGePoint3d centre = toPlane * circle.center();
    host::HatchArc arc;
    arc.centre = {centre.x, centre.y};
    arc.majorAxis = {circle.radius(), 0.0};
    arc.end = 2.0 * std::numbers::pi;
    return arc;
}

} // namespace

Acad::ErrorStatus AcDbHatch::appendLoop(int type, const std::vector<AcDbObjectId>& sources)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (sources.size() != 1)
        return Acad::eInvalidInput;
    const AcGeMatrix3d toPlane = AcGeMatrix3d::arbitraryAxes(normal()).inverse();
    host::HatchLoop loop;
    loop.type = type;
    loop.sources = {sources.front().handle().value()};
    if (const host::Reading<AcDbPolyline> polyline(sources.front()); polyline) {
        loop.type |= kPolyline;
        loop.polyline = inPlane(*polyline, toPlane);
    } else if (const host::Reading<AcDbCircle> circle(sources.front()); circle) {
        loop.edges.push_back(inPlane(*circle, toPlane));
    } else {
        return Acad::eInvalidInput;
    }
    std::vector<host::HatchLoop> all = loops();
    all.push_back(std::move(loop));
    return setLoops(all);
}

Acad::ErrorStatus AcDbHatch::evaluateHatch(bool)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (numLoops() == 0)
        return Acad::eInvalidInput;
    completeParts();
    if (findInHead(2) == host::TagList::npos) // no pattern was ever found for it
        tagsForWrite().insertText(placeInHead(2), 2, L"");
    setHeadInteger(71, headInteger(71, 0), -1);
    return Acad::eOk;
}
