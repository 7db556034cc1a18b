#include "host/db/sub_d_mesh.h"

#include "host/db/exploding.h"
#include "host/db/transforming.h"
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

Acad::ErrorStatus AcDbSubDMesh::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::TagRange places = rangeOf(tags());
    places.last = std::min(tags().find(93, places.first, places.last), places.last);
    host::mapFields(*this, places, kFields, mapped);
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

Acad::ErrorStatus AcDbSubDMesh::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    const std::vector<AcGePoint3d> places = vertices();
    host::PartSink sink(*this, parts);
    for (const std::vector<int>& face : faces()) {
        std::vector<AcGePoint3d> corners;
        for (const int vertex : face)
            if (vertex >= 0 && vertex < static_cast<int>(places.size()))
                corners.push_back(places[static_cast<std::size_t>(vertex)]);
        host::addFaces(sink, corners);
    }
    return sink.outcome();
}

std::span<const std::string_view> AcDbSubDMesh::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbSubDMesh"};
    return kMarkers;
}
