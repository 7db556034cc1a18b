#include "host/db/polyline3d.h"

#include "host/db/exploding.h"
#include "host/db/vertex.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve, "POLYLINE")

namespace {

constexpr int kIs3d = 8;

} // namespace

std::vector<AcGePoint3d> AcDb3dPolyline::vertices() const
{
    std::vector<AcGePoint3d> all;
    for (const std::shared_ptr<const host::TagList>& child : host::childTags(*this)) {
        const std::size_t place = host::findInRecord(*child, 10);
        const bool control = host::integerInRecord(*child, 70, 0) & host::kSplineControl;
        if (place != host::TagList::npos && !control)
            all.push_back(host::pointAt(*child, place));
    }
    return all;
}

std::unique_ptr<AcDbObjectIterator> AcDb3dPolyline::vertexIterator() const
{
    return std::make_unique<AcDbObjectIterator>(host::childrenOf(*this));
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDbEntity* vertex)
{
    const Acad::ErrorStatus status = host::appendChild(*this, *vertex);
    if (status != Acad::eOk)
        return status;
    id = vertex->objectId();
    setInteger(host::k3dPolylinePart, 66, 1, 0);
    return setFlag(host::k3dPolylinePart, 70, kIs3d, true);
}

bool AcDb3dPolyline::strokes(host::StrokeSink& sink) const
{
    sink.polyline(vertices(), isClosed());
    return true;
}

Acad::ErrorStatus AcDb3dPolyline::transformBy(const AcGeMatrix3d& map)
{
    return host::transformByVertices(*this, *this, map);
}

Acad::ErrorStatus AcDb3dPolyline::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    host::PartSink sink(*this, parts);
    sink.polyline(vertices(), isClosed());
    return sink.outcome();
}

std::span<const std::string_view> AcDb3dPolyline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDb3dPolyline"};
    return kMarkers;
}
