#include "host/db/solid_trace.h"

#include "host/db/thickness.h"
#include "host/db/transforming.h"

using host::kTracePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, "SOLID")
ACRX_DXF_DEFINE_MEMBERS(AcDbTrace, AcDbEntity, "TRACE")

namespace {

constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbTrace"};

void mapTrace(host::TagWriter& area, const host::PlaneMap& map)
{
    using host::FieldForm;
    static constexpr host::MappedField kFields[] = {{10, FieldForm::planePoint},
                                                    {11, FieldForm::planePoint},
                                                    {12, FieldForm::planePoint},
                                                    {13, FieldForm::planePoint},
                                                    {39, FieldForm::length}};
    host::mapFields(area, kTracePart, kFields, map);
    host::mapNormal(area, kTracePart, map);
    host::mapExtendedData(area, map);
}

} // namespace

std::array<AcGePoint3d, 4> host::outlineOfTrace(const TagList& tags)
{
    const AcGeVector3d normal = normalField(tags, kTracePart);
    const auto corner = [&](int code) { return worldPoint(tags, kTracePart, code, normal); };
    const bool three = findField(tags, kTracePart, 13) == TagList::npos;
    const AcGePoint3d third = corner(12);
    return {corner(10), corner(11), three ? third : corner(13), third};
}

AcGePoint3d AcDbSolid::getPointAt(int corner) const
{
    if (corner == 3 && host::findField(tags(), kTracePart, 13) == host::TagList::npos)
        corner = 2;
    return host::worldPoint(tags(), kTracePart, 10 + corner, normal());
}

Acad::ErrorStatus AcDbSolid::setPointAt(int corner, const AcGePoint3d& place)
{
    if (corner < 0 || corner > 3)
        return Acad::eInvalidIndex;
    return setPoint(kTracePart, 10 + corner,
                    AcGeMatrix3d::arbitraryAxes(normal()).inverse() * place);
}

Acad::ErrorStatus AcDbSolid::setNormal(const AcGeVector3d& direction)
{
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = direction.normal();
    return unit == normal() ? Acad::eOk : setPoint(kTracePart, 210, AcGePoint3d() + unit);
}

bool AcDbSolid::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(), [&](host::StrokeSink& to) {
        to.filled(host::outlineOfTrace(tags()));
    });
}

Acad::ErrorStatus AcDbSolid::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status == Acad::eOk)
        mapTrace(*this, mapped);
    return status;
}

std::span<const std::string_view> AcDbSolid::markers() const
{
    return kMarkers;
}

bool AcDbTrace::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(), [&](host::StrokeSink& to) {
        to.filled(host::outlineOfTrace(tags()));
    });
}

Acad::ErrorStatus AcDbTrace::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status == Acad::eOk)
        mapTrace(*this, mapped);
    return status;
}

std::span<const std::string_view> AcDbTrace::markers() const
{
    return kMarkers;
}
