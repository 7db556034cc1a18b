#include "host/db/class_table.h"

#include "host/db/arc.h"
#include "host/db/attribute.h"
#include "host/db/block_begin.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/dimension_kinds.h"
#include "host/db/ellipse.h"
#include "host/db/face.h"
#include "host/db/generic_object.h"
#include "host/db/hatch.h"
#include "host/db/helix.h"
#include "host/db/image.h"
#include "host/db/layout.h"
#include "host/db/leader.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/mtext.h"
#include "host/db/ole2frame.h"
#include "host/db/point_entity.h"
#include "host/db/poly_face_mesh.h"
#include "host/db/polygon_mesh.h"
#include "host/db/polyline3d.h"
#include "host/db/proxy_entity.h"
#include "host/db/ray.h"
#include "host/db/shape.h"
#include "host/db/solid3d.h"
#include "host/db/solid_trace.h"
#include "host/db/sort_ents_table.h"
#include "host/db/style_objects.h"
#include "host/db/sub_d_mesh.h"
#include "host/db/surface.h"
#include "host/db/symbol_tables.h"
#include "host/db/tolerance_frame.h"
#include "host/db/vertex.h"
#include "host/db/viewport.h"
#include "host/db/xrecord.h"

#include <unordered_map>

namespace host {

namespace {

using Desc = AcRxClass* (*)();

struct MarkedClass {
    std::string_view marker;
    Desc desc;
};

// The class of the record's last marker that the rows name; null for none.
AcRxClass* classByMarker(const TagList& tags, std::span<const MarkedClass> rows)
{
    AcRxClass* found = nullptr;
    for (const Tag& tag : tags)
        if (tag.code == 100)
            for (const MarkedClass& row : rows)
                if (row.marker == tag.bytes())
                    found = row.desc();
    return found;
}

AcRxClass* polylineClass(Drawing& drawing, std::uint32_t stub)
{
    static constexpr MarkedClass kMarked[] = {{"AcDb2dPolyline", AcDb2dPolyline::desc},
                                              {"AcDb3dPolyline", AcDb3dPolyline::desc},
                                              {"AcDbPolygonMesh", AcDbPolygonMesh::desc},
                                              {"AcDbPolyFaceMesh", AcDbPolyFaceMesh::desc}};
    static constexpr struct {
        int flag;
        Desc desc;
    } kFlagged[] = {
        {8, AcDb3dPolyline::desc}, {16, AcDbPolygonMesh::desc}, {64, AcDbPolyFaceMesh::desc}};
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    if (AcRxClass* const marked = classByMarker(*tags, kMarked))
        return marked;
    const int flags = integerInRecord(*tags, 70, 0);
    for (const auto& row : kFlagged)
        if (flags & row.flag)
            return row.desc();
    return AcDb2dPolyline::desc();
}

AcRxClass* vertexClass(Drawing& drawing, std::uint32_t stub)
{
    static constexpr MarkedClass kMarked[] = {
        {"AcDb2dVertex", AcDb2dVertex::desc},
        {"AcDb3dPolylineVertex", AcDb3dPolylineVertex::desc},
        {"AcDbPolygonMeshVertex", AcDbPolygonMeshVertex::desc},
        {"AcDbPolyFaceMeshVertex", AcDbPolyFaceMeshVertex::desc},
        {"AcDbFaceRecord", AcDbFaceRecord::desc}};
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    if (AcRxClass* const marked = classByMarker(*tags, kMarked))
        return marked;
    const int flags = integerInRecord(*tags, 70, 0);
    if (flags & kFaceVertex)
        return flags & kMeshVertex ? AcDbPolyFaceMeshVertex::desc() : AcDbFaceRecord::desc();
    if (flags & kMeshVertex)
        return AcDbPolygonMeshVertex::desc();
    return flags & k3dVertex ? AcDb3dPolylineVertex::desc() : AcDb2dVertex::desc();
}

AcRxClass* dimensionClass(Drawing& drawing, std::uint32_t stub)
{
    static constexpr MarkedClass kMarked[] = {
        {"AcDbAlignedDimension", AcDbAlignedDimension::desc},
        {"AcDbRotatedDimension", AcDbRotatedDimension::desc},
        {"AcDb2LineAngularDimension", AcDb2LineAngularDimension::desc},
        {"AcDb3PointAngularDimension", AcDb3PointAngularDimension::desc},
        {"AcDbArcDimension", AcDbArcDimension::desc},
        {"AcDbDiametricDimension", AcDbDiametricDimension::desc},
        {"AcDbRadialDimension", AcDbRadialDimension::desc},
        {"AcDbRadialDimensionLarge", AcDbRadialDimensionLarge::desc},
        {"AcDbOrdinateDimension", AcDbOrdinateDimension::desc}};
    static constexpr Desc kByKind[] = {
        AcDbRotatedDimension::desc,   AcDbAlignedDimension::desc, AcDb2LineAngularDimension::desc,
        AcDbDiametricDimension::desc, AcDbRadialDimension::desc,  AcDb3PointAngularDimension::desc,
        AcDbOrdinateDimension::desc};
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    if (AcRxClass* const marked = classByMarker(*tags, kMarked))
        return marked;
    const std::size_t kind = static_cast<std::size_t>(integerInRecord(*tags, 70, 0) & 7);
    return kind < std::size(kByKind) ? kByKind[kind]() : AcDbRotatedDimension::desc();
}

// Whether the record's bytes may hold a 70 or 71; spares splitting the many references that are no
// arrays.
bool mayBeArray(const Drawing& drawing, std::uint32_t number)
{
    const Stub& stub = drawing.index[number];
    if (drawing.binary || stub.length == 0 || (stub.flags & kChanged) != 0)
        return true;
    const std::string_view bytes(drawing.source->image()->data() + stub.offset, stub.length);
    for (const std::string_view code : {"70\n", "70\r", "71\n", "71\r"})
        if (bytes.find(code) != std::string_view::npos)
            return true;
    return false;
}

AcRxClass* insertClass(Drawing& drawing, std::uint32_t stub)
{
    if (!mayBeArray(drawing, stub))
        return AcDbBlockReference::desc();
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    const bool array = integerInRecord(*tags, 70, 1) > 1 || integerInRecord(*tags, 71, 1) > 1 ||
                       tags->find(100, kMInsertPart.marker) != TagList::npos;
    return array ? AcDbMInsertBlock::desc() : AcDbBlockReference::desc();
}

constexpr ClassRow kClassTable[] = {
    {"TABLE VPORT", AcDbViewportTable::desc},
    {"TABLE LTYPE", AcDbLinetypeTable::desc},
    {"TABLE LAYER", AcDbLayerTable::desc},
    {"TABLE STYLE", AcDbTextStyleTable::desc},
    {"TABLE VIEW", AcDbViewTable::desc},
    {"TABLE UCS", AcDbUCSTable::desc},
    {"TABLE APPID", AcDbRegAppTable::desc},
    {"TABLE DIMSTYLE", AcDbDimStyleTable::desc},
    {"TABLE BLOCK_RECORD", AcDbBlockTable::desc},
    {"VPORT", AcDbViewportTableRecord::desc},
    {"LTYPE", AcDbLinetypeTableRecord::desc},
    {"LAYER", AcDbLayerTableRecord::desc},
    {"STYLE", AcDbTextStyleTableRecord::desc},
    {"VIEW", AcDbViewTableRecord::desc},
    {"UCS", AcDbUCSTableRecord::desc},
    {"APPID", AcDbRegAppTableRecord::desc},
    {"DIMSTYLE", AcDbDimStyleTableRecord::desc},
    {"BLOCK_RECORD", AcDbBlockTableRecord::desc},

    {"BLOCK", AcDbBlockBegin::desc},
    {"ENDBLK", AcDbBlockEnd::desc},
    {"3DFACE", AcDbFace::desc},
    {"3DLINE", AcDbLine::desc}, // R10
    {"3DSOLID", AcDb3dSolid::desc},
    {"ACAD_PROXY_ENTITY", AcDbProxyEntity::desc},
    {"ACAD_TABLE", AcDbTable::desc},
    {"ARC", AcDbArc::desc},
    {"ARC_DIMENSION", AcDbArcDimension::desc},
    {"ATTDEF", AcDbAttributeDefinition::desc},
    {"ATTRIB", AcDbAttribute::desc},
    {"BODY", AcDbBody::desc},
    {"CIRCLE", AcDbCircle::desc},
    {"DIMENSION", AcDbRotatedDimension::desc, dimensionClass},
    {"ELLIPSE", AcDbEllipse::desc},
    {"EXTRUDEDSURFACE", AcDbExtrudedSurface::desc},
    {"HATCH", AcDbHatch::desc},
    {"HELIX", AcDbHelix::desc},
    {"IMAGE", AcDbRasterImage::desc},
    {"INSERT", AcDbBlockReference::desc, insertClass},
    {"LARGE_RADIAL_DIMENSION", AcDbRadialDimensionLarge::desc},
    {"LEADER", AcDbLeader::desc},
    {"LINE", AcDbLine::desc},
    {"LOFTEDSURFACE", AcDbLoftedSurface::desc},
    {"LWPOLYLINE", AcDbPolyline::desc},
    {"MESH", AcDbSubDMesh::desc},
    {"MLINE", AcDbMline::desc},
    {"MPOLYGON", AcDbMPolygon::desc},
    {"MTEXT", AcDbMText::desc},
    {"MULTILEADER", AcDbMLeader::desc},
    {"NURBSURFACE", AcDbNurbSurface::desc},
    {"OLE2FRAME", AcDbOle2Frame::desc},
    {"PLANESURFACE", AcDbPlaneSurface::desc},
    {"POINT", AcDbPoint::desc},
    {"POLYLINE", AcDb2dPolyline::desc, polylineClass},
    {"RAY", AcDbRay::desc},
    {"REGION", AcDbRegion::desc},
    {"REVOLVEDSURFACE", AcDbRevolvedSurface::desc},
    {"SEQEND", AcDbSequenceEnd::desc},
    {"SHAPE", AcDbShape::desc},
    {"SOLID", AcDbSolid::desc},
    {"SPLINE", AcDbSpline::desc},
    {"SURFACE", AcDbSurface::desc},
    {"SWEPTSURFACE", AcDbSweptSurface::desc},
    {"TEXT", AcDbText::desc},
    {"TOLERANCE", AcDbFcf::desc},
    {"TRACE", AcDbTrace::desc},
    {"VERTEX", AcDb2dVertex::desc, vertexClass},
    {"VIEWPORT", AcDbViewport::desc},
    {"WIPEOUT", AcDbWipeout::desc},
    {"XLINE", AcDbXline::desc},

    {"ACAD_PROXY_OBJECT", AcDbProxyObject::desc},
    {"ACDBDICTIONARYWDFLT", AcDbDictionaryWithDefault::desc},
    {"ACDBPLACEHOLDER", AcDbPlaceHolder::desc},
    {"DICTIONARY", AcDbDictionary::desc},
    {"GROUP", AcDbGroup::desc},
    {"LAYOUT", AcDbLayout::desc},
    {"MLEADERSTYLE", AcDbMLeaderStyle::desc},
    {"MLINESTYLE", AcDbMlineStyle::desc},
    {"PLOTSETTINGS", AcDbPlotSettings::desc},
    {"SORTENTSTABLE", AcDbSortentsTable::desc},
    {"XRECORD", AcDbXrecord::desc},
};

const ClassRow* rowOf(std::string_view dxfName)
{
    static const auto rows = [] {
        std::unordered_map<std::string_view, const ClassRow*> byName;
        for (const ClassRow& row : kClassTable)
            byName.emplace(row.dxfName, &row);
        return byName;
    }();
    const auto found = rows.find(dxfName);
    return found == rows.end() ? nullptr : found->second;
}

} // namespace

std::span<const ClassRow> classTable()
{
    return kClassTable;
}

AcRxClass* classOfRecord(Drawing& drawing, std::uint32_t stub)
{
    const Stub& record = drawing.index[stub];
    const NameTable<std::uint16_t>& types = drawing.index.types();
    while (drawing.classRows.size() <= types.size())
        drawing.classRows.push_back(
            rowOf(types.name(static_cast<std::uint16_t>(drawing.classRows.size()))));
    const ClassRow* const row = drawing.classRows[record.type];
    if (row)
        return row->refined ? row->refined(drawing, stub) : row->desc();
    return (record.flags & (kEntity | kChild)) != 0 ? AcDbGenericEntity::desc()
                                                    : AcDbGenericObject::desc();
}

std::unique_ptr<AcDbObject> newObjectOf(Drawing& drawing, std::uint32_t stub)
{
    std::unique_ptr<AcRxObject> made(classOfRecord(drawing, stub)->create());
    AcDbObject* const object = AcDbObject::cast(made.get());
    made.release(); // every class of the table is a database object that can be made
    return std::unique_ptr<AcDbObject>(object);
}

} // namespace host
