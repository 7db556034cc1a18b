#include "host/db/face.h"

#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

#include <array>

using host::kFacePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbFace, AcDbEntity, "3DFACE")

AcGePoint3d AcDbFace::vertexAt(int corner) const
{
    if (corner == 3 && host::findField(tags(), kFacePart, 13) == host::TagList::npos)
        corner = 2;
    return point(kFacePart, 10 + corner);
}

Acad::ErrorStatus AcDbFace::setVertexAt(int corner, const AcGePoint3d& place)
{
    if (corner < 0 || corner > 3)
        return Acad::eInvalidIndex;
    return setPoint(kFacePart, 10 + corner, place);
}

bool AcDbFace::strokes(host::StrokeSink& sink) const
{
    std::array<AcGePoint3d, 4> corners;
    for (int i = 0; i < 4; ++i)
        corners[i] = vertexAt(i);
    const int count = corners[3] == corners[2] ? 3 : 4;
    for (int i = 0; i < count; ++i) {
        const int next = i + 1 == count ? 0 : i + 1;
        if (isEdgeVisibleAt(count == 3 && i == 2 ? 3 : i))
            sink.segment(corners[i], corners[next]);
    }
    return true;
}

Acad::ErrorStatus AcDbFace::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point},
                                                    {11, host::FieldForm::point},
                                                    {12, host::FieldForm::point},
                                                    {13, host::FieldForm::point}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, kFacePart, kFields, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbFace::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbFace"};
    return kMarkers;
}
