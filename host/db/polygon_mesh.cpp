#include "host/db/polygon_mesh.h"

#include "host/db/exploding.h"
#include "host/db/vertex.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPolygonMesh, AcDbEntity, "POLYLINE")

std::vector<AcGePoint3d> AcDbPolygonMesh::vertices() const
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

namespace {

std::size_t placeOf(int m, int n, int columns)
{
    return static_cast<std::size_t>(m) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(n);
}

} // namespace

bool AcDbPolygonMesh::strokes(host::StrokeSink& sink) const
{
    const std::vector<AcGePoint3d> grid = vertices();
    const int rows = mSize();
    const int columns = nSize();
    if (rows < 1 || columns < 1 ||
        grid.size() < static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns))
        return false;
    const auto at = [&](int m, int n) { return grid[placeOf(m, n, columns)]; };
    for (int m = 0; m < rows && !sink.done(); ++m) {
        std::vector<AcGePoint3d> line;
        line.reserve(static_cast<std::size_t>(columns));
        for (int n = 0; n < columns; ++n)
            line.push_back(at(m, n));
        sink.polyline(line, isNClosed());
    }
    for (int n = 0; n < columns && !sink.done(); ++n) {
        std::vector<AcGePoint3d> line;
        line.reserve(static_cast<std::size_t>(rows));
        for (int m = 0; m < rows; ++m)
            line.push_back(at(m, n));
        sink.polyline(line, isMClosed());
    }
    return true;
}

Acad::ErrorStatus AcDbPolygonMesh::transformBy(const AcGeMatrix3d& map)
{
    return host::transformByVertices(*this, *this, map);
}

Acad::ErrorStatus AcDbPolygonMesh::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    const std::vector<AcGePoint3d> grid = vertices();
    const int rows = mSize();
    const int columns = nSize();
    if (rows < 2 || columns < 2 ||
        grid.size() < static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns))
        return Acad::eNotApplicable;
    const auto at = [&](int m, int n) { return grid[placeOf(m % rows, n % columns, columns)]; };
    host::PartSink sink(*this, parts);
    for (int m = 0; m < (isMClosed() ? rows : rows - 1); ++m)
        for (int n = 0; n < (isNClosed() ? columns : columns - 1); ++n) {
            const AcGePoint3d corners[] = {at(m, n), at(m, n + 1), at(m + 1, n + 1), at(m + 1, n)};
            host::addFaces(sink, corners);
        }
    return sink.outcome();
}

std::span<const std::string_view> AcDbPolygonMesh::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbPolygonMesh"};
    return kMarkers;
}
