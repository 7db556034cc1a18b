#include "host/db/helix.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbHelix, AcDbSpline, "HELIX")

std::span<const std::string_view> AcDbHelix::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbSpline", "AcDbHelix"};
    return kMarkers;
}
