#include "objects/entity_type.h"

#include "host/db/arc.h"
#include "host/db/block_reference.h"
#include "host/db/circle.h"
#include "host/db/dimension.h"
#include "host/db/ellipse.h"
#include "host/db/face.h"
#include "host/db/hatch.h"
#include "host/db/image.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/mtext.h"
#include "host/db/point_entity.h"
#include "host/db/poly_face_mesh.h"
#include "host/db/polyline3d.h"
#include "host/db/proxy_entity.h"
#include "host/db/ray.h"
#include "host/db/solid3d.h"
#include "host/db/spline.h"
#include "host/db/sub_d_mesh.h"
#include "host/db/surface.h"
#include "host/db/text.h"

namespace {

struct TypeWord {
    AcRxClass* (*desc)();
    std::wstring_view word;
};

// Tested by exact class.
constexpr TypeWord kTypeWords[] = {
    {AcDbFace::desc, L"3DFace"},
    {AcDb3dPolyline::desc, L"3DPolyline"},
    {AcDb3dSolid::desc, L"3DSolid"},
    {AcDbArc::desc, L"Arc"},
    {AcDbBlockReference::desc, L"BlockReference"},
    {AcDbCircle::desc, L"Circle"},
    {AcDbEllipse::desc, L"Ellipse"},
    {AcDbHatch::desc, L"Hatch"},
    {AcDbLine::desc, L"Line"},
    {AcDbSubDMesh::desc, L"Mesh"},
    {AcDbMLeader::desc, L"MLeader"},
    {AcDbMline::desc, L"Mline"},
    {AcDbMPolygon::desc, L"MPolygon"},
    {AcDbMText::desc, L"MText"},
    {AcDbPoint::desc, L"Point"},
    {AcDbPolyFaceMesh::desc, L"PolyFaceMesh"},
    {AcDbPolyline::desc, L"Polyline"},
    {AcDbRay::desc, L"Ray"},
    {AcDbSpline::desc, L"Spline"},
    {AcDbSurface::desc, L"Surface"},
    {AcDbText::desc, L"Text"},
    {AcDbWipeout::desc, L"Wipeout"},
    {AcDbXline::desc, L"Xline"},
};

} // namespace

namespace util {

Acad::ErrorStatus MyDxfFiler::writeString(int code, std::wstring_view text)
{
    if (code == 0)
        dxfName_ = text;
    else if (code == 100)
        markers_.emplace_back(text);
    return Acad::eOk;
}

std::wstring MyDxfFiler::classMarker() const
{
    return markers_.empty() || markers_.back() == L"AcDbEntity" ? dxfName_ : markers_.back();
}

} // namespace util

std::wstring entityTypeName(const AcDbEntity& entity)
{
    const AcRxClass* const exact = entity.isA();
    for (const TypeWord& row : kTypeWords)
        if (row.desc() == exact)
            return std::wstring(row.word);
    if (entity.isKindOf(AcDbDimension::desc()))
        return L"Dimension";
    if (const AcDbProxyEntity* const proxy = AcDbProxyEntity::cast(&entity))
        return proxy->originalClassName();

    util::MyDxfFiler filer;
    entity.dxfOutFields(&filer);
    return filer.classMarker();
}
