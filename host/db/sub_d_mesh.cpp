#include "host/db/sub_d_mesh.h"

#include "host/geom/stroke_sink.h"

#include <algorithm>
#include <set>

using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbSubDMesh, AcDbEntity, "MESH")

namespace {

constexpr host::Subclass kMeshPart{"AcDbSubDMesh"};

host::TagRange rangeOf(const TagList& tags)
{
    return host::subclassRange(tags, kMeshPart.marker).value_or(host::TagRange());
}

} // namespace

std::vector<AcGePoint3d> AcDbSubDMesh::vertices() const
{
    std::vector<AcGePoint3d> all;
    const TagList& own = tags();
    const host::TagRange range = rangeOf(own);
    for (std::size_t i = range.first; i < range.last && own[i].code != 93; ++i)
        if (own[i].code == 10)
            all.push_back(host::pointAt(own, i));
    return all;
}

std::vector<std::vector<int>> AcDbSubDMesh::faces() const
{
    // One list (93) of numbers: how many corners, then the corners, face after face.
    std::vector<std::vector<int>> all;
    const TagList& own = tags();
    const host::TagRange range = rangeOf(own);
    std::size_t i = own.find(93, range.first, range.last);
    if (i == TagList::npos)
        return all;
    int left = 0;
    for (++i; i < range.last && own[i].code == 90; ++i) {
        const int value = static_cast<int>(own.integer(i));
        if (left > 0) {
            all.back().push_back(value);
            --left;
        } else {
            all.emplace_back();
            left = value;
        }
    }
    return all;
}

Acad::ErrorStatus AcDbSubDMesh::setSubDMesh(std::span<const AcGePoint3d> vertices,
                                            const std::vector<std::vector<int>>& faces)
{
    std::size_t listed = 0;
    for (const std::vector<int>& face : faces) {
        listed += face.size() + 1;
        for (const int corner : face)
            if (corner < 0 || corner >= static_cast<int>(vertices.size()))
                return Acad::eInvalidInput;
    }
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    TagList& own = tagsForWrite();
    const host::TagRange range = rangeOf(own);
    own.erase(range.first, range.last);
    std::size_t at = range.first;
    const auto integer = [&](int code, std::size_t value) {
        own.insertInteger(at++, code, static_cast<std::int64_t>(value));
    };
    integer(71, 2); // version
    integer(72, 0); // creases are not blended
    integer(91, 0); // level of smoothing
    integer(92, vertices.size());
    for (const AcGePoint3d& p : vertices)
        for (const unsigned axis : {0u, 1u, 2u})
            own.insertReal(at++, 10 + 10 * static_cast<int>(axis), p[axis]);
    integer(93, listed);
    for (const std::vector<int>& face : faces) {
        integer(90, face.size());
        for (const int corner : face)
            integer(90, static_cast<std::size_t>(corner));
    }
    integer(94, 0); // edges
    integer(95, 0); // creases
    integer(90, 0); // properties of parts
    return Acad::eOk;
}

bool AcDbSubDMesh::strokes(host::StrokeSink& sink) const
{
    const std::vector<AcGePoint3d> places = vertices();
    std::set<std::pair<int, int>> drawn; // most edges belong to two faces
    for (const std::vector<int>& face : faces())
        for (std::size_t i = 0; i < face.size() && !sink.done(); ++i) {
            const std::pair<int, int> edge = std::minmax(face[i], face[(i + 1) % face.size()]);
            if (edge.first < 0 || edge.second >= static_cast<int>(places.size()))
                continue;
            if (drawn.insert(edge).second)
                sink.segment(places[static_cast<std::size_t>(edge.first)],
                             places[static_cast<std::size_t>(edge.second)]);
        }
    return !places.empty();
}

std::span<const std::string_view> AcDbSubDMesh::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbSubDMesh"};
    return kMarkers;
}
