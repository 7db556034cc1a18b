#include "host/commands/entity_properties.h"

#include "host/commands/property_text.h"
#include "host/db/arc.h"
#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dimension.h"
#include "host/db/ellipse.h"
#include "host/db/face.h"
#include "host/db/hatch.h"
#include "host/db/helix.h"
#include "host/db/leader.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mtext.h"
#include "host/db/point_entity.h"
#include "host/db/poly_face_mesh.h"
#include "host/db/polygon_mesh.h"
#include "host/db/polyline3d.h"
#include "host/db/ray.h"
#include "host/db/solid_trace.h"

namespace host {

namespace {

std::wstring yesNo(bool value)
{
    return value ? L"yes" : L"no";
}

template <std::size_t Size>
std::wstring nameOf(const wchar_t* const (&names)[Size], int number, int first = 0)
{
    const int index = number - first;
    return index >= 0 && static_cast<std::size_t>(index) < Size ? names[index]
                                                                : std::to_wstring(number);
}

constexpr const wchar_t* kJustifications[] = {
    L"Left",          L"Center",       L"Right",       L"Aligned",       L"Middle",
    L"Fit",           L"Top left",     L"Top center",  L"Top right",     L"Middle left",
    L"Middle center", L"Middle right", L"Bottom left", L"Bottom center", L"Bottom right"};
constexpr int kFirstAttachment = 6; // in the same names: top left and what follows it
constexpr const wchar_t* kMlineJustifications[] = {L"Top", L"Zero", L"Bottom"};

void addThickness(PropertyList& list, double thickness)
{
    if (thickness != 0.0)
        list.emplace_back(L"Thickness", numberText(thickness));
}

void addVertices(PropertyList& list, const std::vector<AcGePoint3d>& vertices)
{
    for (const AcGePoint3d& vertex : vertices)
        list.emplace_back(L"Vertex", pointText(vertex));
}

void addBulgeVertices(PropertyList& list, const std::vector<BulgeVertex>& vertices)
{
    for (const BulgeVertex& vertex : vertices) {
        std::wstring text = pointText(vertex.point);
        if (vertex.bulge != 0.0)
            text += L", bulge " + numberText(vertex.bulge);
        if (vertex.startWidth != 0.0 || vertex.endWidth != 0.0)
            text +=
                L", width " + numberText(vertex.startWidth) + L" to " + numberText(vertex.endWidth);
        list.emplace_back(L"Vertex", text);
    }
}

void describe(const AcDbLine& line, PropertyList& list)
{
    list.emplace_back(L"From", pointText(line.startPoint()));
    list.emplace_back(L"To", pointText(line.endPoint()));
    list.emplace_back(L"Length", numberText(line.startPoint().distanceTo(line.endPoint())));
    addThickness(list, line.thickness());
}

void describe(const AcDbCircle& circle, PropertyList& list)
{
    list.emplace_back(L"Center", pointText(circle.center()));
    list.emplace_back(L"Radius", numberText(circle.radius()));
    addThickness(list, circle.thickness());
}

void describe(const AcDbArc& arc, PropertyList& list)
{
    list.emplace_back(L"Center", pointText(arc.center()));
    list.emplace_back(L"Radius", numberText(arc.radius()));
    list.emplace_back(L"Start angle", angleText(arc.startAngle()));
    list.emplace_back(L"End angle", angleText(arc.endAngle()));
    addThickness(list, arc.thickness());
}

void describe(const AcDbEllipse& ellipse, PropertyList& list)
{
    const AcGeVector3d axis = ellipse.majorAxis();
    list.emplace_back(L"Center", pointText(ellipse.center()));
    list.emplace_back(L"Major axis", pointText(AcGePoint3d(axis.x, axis.y, axis.z)));
    list.emplace_back(L"Radius ratio", numberText(ellipse.radiusRatio()));
    list.emplace_back(L"Start angle", angleText(ellipse.startAngle()));
    list.emplace_back(L"End angle", angleText(ellipse.endAngle()));
}

void describe(const AcDbPoint& point, PropertyList& list)
{
    list.emplace_back(L"Position", pointText(point.position()));
    addThickness(list, point.thickness());
}

template <class Infinite> void describeInfinite(const Infinite& line, PropertyList& list)
{
    const AcGeVector3d direction = line.unitDir();
    list.emplace_back(L"Base point", pointText(line.basePoint()));
    list.emplace_back(L"Direction", pointText(AcGePoint3d(direction.x, direction.y, direction.z)));
}
void describe(const AcDbRay& ray, PropertyList& list)
{
    describeInfinite(ray, list);
}
void describe(const AcDbXline& line, PropertyList& list)
{
    describeInfinite(line, list);
}

void describe(const AcDbPolyline& polyline, PropertyList& list)
{
    list.emplace_back(L"Closed", yesNo(polyline.isClosed()));
    list.emplace_back(L"Elevation", numberText(polyline.elevation()));
    addThickness(list, polyline.thickness());
    if (double width = 0.0; polyline.getConstantWidth(width) == Acad::eOk)
        list.emplace_back(L"Constant width", numberText(width));
    addBulgeVertices(list, polyline.vertices());
}

void describe(const AcDb2dPolyline& polyline, PropertyList& list)
{
    list.emplace_back(L"Closed", yesNo(polyline.isClosed()));
    list.emplace_back(L"Elevation", numberText(polyline.elevation()));
    addThickness(list, polyline.thickness());
    addBulgeVertices(list, polyline.vertices());
}

void describe(const AcDb3dPolyline& polyline, PropertyList& list)
{
    list.emplace_back(L"Closed", yesNo(polyline.isClosed()));
    addVertices(list, polyline.vertices());
}

void describe(const AcDbPolygonMesh& mesh, PropertyList& list)
{
    list.emplace_back(L"Size",
                      std::to_wstring(mesh.mSize()) + L" by " + std::to_wstring(mesh.nSize()));
    list.emplace_back(L"Closed", yesNo(mesh.isMClosed()) + L", " + yesNo(mesh.isNClosed()));
}

void describe(const AcDbPolyFaceMesh& mesh, PropertyList& list)
{
    list.emplace_back(L"Vertices", std::to_wstring(mesh.numVertices()));
    list.emplace_back(L"Faces", std::to_wstring(mesh.numFaces()));
}

void describe(const AcDbSpline& spline, PropertyList& list)
{
    list.emplace_back(L"Degree", std::to_wstring(spline.degree()));
    list.emplace_back(L"Closed", yesNo(spline.isClosed()));
    AcDbSpline::NurbsData curve;
    if (spline.getNurbsData(curve) == Acad::eOk)
        for (const AcGePoint3d& point : curve.controlPoints)
            list.emplace_back(L"Control point", pointText(point));
    AcDbSpline::FitData fit;
    if (spline.getFitData(fit) == Acad::eOk)
        for (const AcGePoint3d& point : fit.points)
            list.emplace_back(L"Fit point", pointText(point));
}

void describe(const AcDbHelix& helix, PropertyList& list)
{
    list.emplace_back(L"Axis point", pointText(helix.axisPoint()));
    list.emplace_back(L"Base radius", numberText(helix.baseRadius()));
    list.emplace_back(L"Turns", numberText(helix.turns()));
    list.emplace_back(L"Turn height", numberText(helix.turnHeight()));
}

void describe(const AcDbText& text, PropertyList& list)
{
    list.emplace_back(L"Text", quotedText(text.textString()));
    list.emplace_back(L"Style", quotedText(text.textStyleName()));
    list.emplace_back(L"Position", pointText(text.position()));
    if (text.justification() != 0)
        list.emplace_back(L"Alignment point", pointText(text.alignmentPoint()));
    list.emplace_back(L"Justification", nameOf(kJustifications, text.justification()));
    list.emplace_back(L"Height", numberText(text.height()));
    list.emplace_back(L"Rotation", angleText(text.rotation()));
    list.emplace_back(L"Width factor", numberText(text.widthFactor()));
    list.emplace_back(L"Obliquing angle", angleText(text.oblique()));
}

void describe(const AcDbAttribute& attribute, PropertyList& list)
{
    list.emplace_back(L"Tag", quotedText(attribute.tag()));
    list.emplace_back(L"Invisible", yesNo(attribute.isInvisible()));
}

void describe(const AcDbAttributeDefinition& definition, PropertyList& list)
{
    list.emplace_back(L"Tag", quotedText(definition.tag()));
    list.emplace_back(L"Prompt", quotedText(definition.prompt()));
    list.emplace_back(L"Invisible", yesNo(definition.isInvisible()));
    list.emplace_back(L"Constant", yesNo(definition.isConstant()));
}

void describe(const AcDbMText& text, PropertyList& list)
{
    list.emplace_back(L"Contents", quotedText(text.contents()));
    list.emplace_back(L"Style", quotedText(text.textStyleName()));
    list.emplace_back(L"Location", pointText(text.location()));
    list.emplace_back(L"Attachment",
                      nameOf(kJustifications, text.attachment() - 1 + kFirstAttachment));
    list.emplace_back(L"Text height", numberText(text.textHeight()));
    list.emplace_back(L"Width", numberText(text.width()));
    list.emplace_back(L"Rotation", angleText(text.rotation()));
    list.emplace_back(L"Line spacing factor", numberText(text.lineSpacingFactor()));
}

void describe(const AcDbBlockReference& reference, PropertyList& list)
{
    const AcGeScale3d scale = reference.scaleFactors();
    list.emplace_back(L"Block", quotedText(reference.blockName()));
    list.emplace_back(L"Position", pointText(reference.position()));
    list.emplace_back(L"Scale factors", pointText(AcGePoint3d(scale.sx, scale.sy, scale.sz)));
    list.emplace_back(L"Rotation", angleText(reference.rotation()));
    for (const AcDbObjectId id : reference.attributes()) {
        AcDbObjectPointer<AcDbAttribute> attribute(id, AcDb::kForRead);
        if (attribute)
            list.emplace_back(L"Attribute " + quotedText(attribute->tag()),
                              quotedText(attribute->textString()));
    }
}

void describe(const AcDbMInsertBlock& array, PropertyList& list)
{
    list.emplace_back(L"Columns", std::to_wstring(array.columns()) + L", spacing " +
                                      numberText(array.columnSpacing()));
    list.emplace_back(L"Rows", std::to_wstring(array.rows()) + L", spacing " +
                                   numberText(array.rowSpacing()));
}

void describe(const AcDbHatch& hatch, PropertyList& list)
{
    list.emplace_back(L"Pattern", quotedText(hatch.patternName()));
    if (!hatch.isSolidFill()) {
        list.emplace_back(L"Pattern angle", angleText(hatch.patternAngle()));
        list.emplace_back(L"Pattern scale", numberText(hatch.patternScale()));
        list.emplace_back(L"Double", yesNo(hatch.patternDouble()));
    }
    list.emplace_back(L"Associative", yesNo(hatch.associative()));
    list.emplace_back(L"Boundaries", std::to_wstring(hatch.numLoops()));
    if (!hatch.backgroundColor().isNone())
        list.emplace_back(L"Background color", colorText(hatch.backgroundColor()));
}

void describe(const AcDbDimension& dimension, PropertyList& list)
{
    list.emplace_back(L"Style", quotedText(dimension.dimensionStyleName()));
    list.emplace_back(L"Text", quotedText(dimension.dimensionText()));
    list.emplace_back(L"Text position", pointText(dimension.textPosition()));
    list.emplace_back(L"Measurement", numberText(dimension.measurement()));
}

void describe(const AcDbLeader& leader, PropertyList& list)
{
    list.emplace_back(L"Style", quotedText(leader.dimensionStyleName()));
    list.emplace_back(L"Arrow", yesNo(leader.hasArrowHead()));
    addVertices(list, leader.vertices());
}

void describe(const AcDbMLeader& leader, PropertyList& list)
{
    list.emplace_back(L"Contents", quotedText(leader.contents()));
}

void describe(const AcDbMline& line, PropertyList& list)
{
    list.emplace_back(L"Style", quotedText(line.styleName()));
    list.emplace_back(L"Scale", numberText(line.scale()));
    list.emplace_back(L"Justification", nameOf(kMlineJustifications, line.justification()));
    list.emplace_back(L"Closed", yesNo(line.closedMline()));
    addVertices(list, line.vertices());
}

void describe(const AcDbFace& face, PropertyList& list)
{
    for (int corner = 0; corner < 4; ++corner)
        list.emplace_back(L"Vertex", pointText(face.vertexAt(corner)));
}

void describe(const AcDbSolid& solid, PropertyList& list)
{
    for (int corner = 0; corner < 4; ++corner)
        list.emplace_back(L"Vertex", pointText(solid.getPointAt(corner)));
    addThickness(list, solid.thickness());
}

struct DescribedClass {
    AcRxClass* (*kind)();
    void (*describe)(const AcDbEntity& entity, PropertyList& list);
};

template <class Kind> constexpr DescribedClass rowOf()
{
    return {&Kind::desc, [](const AcDbEntity& entity, PropertyList& list) {
                describe(static_cast<const Kind&>(entity), list);
            }};
}

// An entity is described by each row whose class it is of, the general one first.
constexpr DescribedClass kRows[] = {
    rowOf<AcDbLine>(),
    rowOf<AcDbCircle>(),
    rowOf<AcDbArc>(),
    rowOf<AcDbEllipse>(),
    rowOf<AcDbPoint>(),
    rowOf<AcDbRay>(),
    rowOf<AcDbXline>(),
    rowOf<AcDbPolyline>(),
    rowOf<AcDb2dPolyline>(),
    rowOf<AcDb3dPolyline>(),
    rowOf<AcDbPolygonMesh>(),
    rowOf<AcDbPolyFaceMesh>(),
    rowOf<AcDbSpline>(),
    rowOf<AcDbHelix>(),
    rowOf<AcDbText>(),
    rowOf<AcDbAttribute>(),
    rowOf<AcDbAttributeDefinition>(),
    rowOf<AcDbMText>(),
    rowOf<AcDbBlockReference>(),
    rowOf<AcDbMInsertBlock>(),
    rowOf<AcDbHatch>(),
    rowOf<AcDbDimension>(),
    rowOf<AcDbLeader>(),
    rowOf<AcDbMLeader>(),
    rowOf<AcDbMline>(),
    rowOf<AcDbFace>(),
    rowOf<AcDbSolid>(),
};

void addSpace(const AcDbEntity& entity, PropertyList& list)
{
    const AcDbObjectId block = entity.blockId();
    if (block.isNull() || block == entity.database()->modelSpaceId())
        return;
    AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    if (record)
        list.emplace_back(L"Space", quotedText(record->name()));
}

} // namespace

PropertyList propertiesOf(const AcDbEntity& entity)
{
    PropertyList list;
    addSpace(entity, list);
    list.emplace_back(L"Color", colorText(entity.color()));
    list.emplace_back(L"Linetype", quotedText(entity.linetype()));
    list.emplace_back(L"Linetype scale", numberText(entity.linetypeScale()));
    list.emplace_back(L"Lineweight", lineWeightText(entity.lineWeight()));
    if (entity.visibility() == AcDb::kInvisible)
        list.emplace_back(L"Visible", yesNo(false));
    for (const DescribedClass& row : kRows)
        if (entity.isKindOf(row.kind()))
            row.describe(entity, list);
    return list;
}

} // namespace host
