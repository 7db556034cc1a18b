#include "host/db/poly_face_mesh.h"

#include "host/db/exploding.h"
#include "host/db/vertex.h"

#include <cstdlib>

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyFaceMesh, AcDbEntity, "POLYLINE")

bool AcDbPolyFaceMesh::strokes(host::StrokeSink& sink) const
{
    std::vector<AcGePoint3d> places;
    for (const std::shared_ptr<const host::TagList>& child : host::childTags(*this)) {
        if (sink.done())
            break;
        const int flags = host::integerInRecord(*child, 70, 0);
        if (flags & host::kMeshVertex) {
            const std::size_t i = host::findInRecord(*child, 10);
            places.push_back(i == host::TagList::npos ? AcGePoint3d() : host::pointAt(*child, i));
            continue;
        }
        std::vector<int> corners;
        for (int code = 71; code <= 74; ++code)
            if (const int corner = host::integerInRecord(*child, code, 0))
                corners.push_back(corner);
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const std::int64_t from = corners[i];
            const std::int64_t to = corners[(i + 1) % corners.size()];
            const auto a = static_cast<std::size_t>(std::abs(from));
            const auto b = static_cast<std::size_t>(std::abs(to));
            if (from > 0 && a <= places.size() && b <= places.size())
                sink.segment(places[a - 1], places[b - 1]);
        }
    }
    return true;
}

Acad::ErrorStatus AcDbPolyFaceMesh::transformBy(const AcGeMatrix3d& map)
{
    return host::transformByVertices(*this, *this, map);
}

Acad::ErrorStatus AcDbPolyFaceMesh::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    std::vector<AcGePoint3d> places;
    host::PartSink sink(*this, parts);
    for (const std::shared_ptr<const host::TagList>& child : host::childTags(*this)) {
        if (host::integerInRecord(*child, 70, 0) & host::kMeshVertex) {
            const std::size_t i = host::findInRecord(*child, 10);
            places.push_back(i == host::TagList::npos ? AcGePoint3d() : host::pointAt(*child, i));
            continue;
        }
        std::vector<AcGePoint3d> corners;
        std::vector<bool> visible;
        for (int code = 71; code <= 74; ++code) {
            const std::int64_t number = host::integerInRecord(*child, code, 0);
            const auto vertex = static_cast<std::size_t>(std::abs(number));
            if (vertex == 0 || vertex > places.size())
                continue;
            corners.push_back(places[vertex - 1]);
            visible.push_back(number > 0);
        }
        if (corners.size() == 1)
            sink.point(corners[0]);
        else if (corners.size() == 2)
            sink.polyline(corners, false);
        else
            host::addFaces(sink, corners, visible);
    }
    return sink.outcome();
}

std::span<const std::string_view> AcDbPolyFaceMesh::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbPolyFaceMesh"};
    return kMarkers;
}
