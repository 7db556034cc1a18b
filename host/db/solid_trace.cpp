#include "host/db/solid_trace.h"

#include "host/db/thickness.h"

using host::kTracePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, "SOLID")
ACRX_DXF_DEFINE_MEMBERS(AcDbTrace, AcDbEntity, "TRACE")

namespace {

constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbTrace"};

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

bool AcDbSolid::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(), [&](host::StrokeSink& to) {
        to.filled(host::outlineOfTrace(tags()));
    });
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

std::span<const std::string_view> AcDbTrace::markers() const
{
    return kMarkers;
}
