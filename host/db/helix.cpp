#include "host/db/helix.h"

#include "host/db/exploding.h"
#include "host/db/transforming.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbHelix, AcDbSpline, "HELIX")

Acad::ErrorStatus AcDbHelix::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point},
                                                    {11, host::FieldForm::point},
                                                    {12, host::FieldForm::direction},
                                                    {40, host::FieldForm::length},
                                                    {42, host::FieldForm::length}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    AcDbSpline::transformBy(map);
    host::mapFields(*this, host::kHelixPart, kFields, mapped);
    if (!mapped.mirrors())
        return Acad::eOk;
    constexpr int kRightHanded = 290;
    return setInteger(host::kHelixPart, kRightHanded, !integer(host::kHelixPart, kRightHanded, 1),
                      1);
}

Acad::ErrorStatus AcDbHelix::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    host::PartSink sink(*this, parts);
    strokes(sink); // the spline that it looks like
    return sink.outcome();
}

std::span<const std::string_view> AcDbHelix::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbSpline", "AcDbHelix"};
    return kMarkers;
}
